#include "JournalFlow.h"

#include "Document.h"
#include "FileStore.h"
#include "MainWindow.h"

#include "uZtException.h"
#include "uZtGuarded.h"
#include "uZtJournalReader.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QScopedValueRollback>

#include <memory>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(JournalFlow)
};

QString NameOf(const QString &APath)
{
    return APath.isEmpty() ? TTexts::tr("A text without a name") : TTexts::tr("\"%1\"").arg(APath);
}

void Load(const QByteArray &ABytes, TStringList &AText)
{
    TZtStringStream stream;
    stream.LoadFromBytes(ABytes);
    ZtSetLines(stream, AText);
}

bool IsSame(const TStringList &A, const TStringList &B)
{
    if (A.GetCount() != B.GetCount())
        return false;
    for (int i = 0; i < A.GetCount(); ++i)
        if (A.GetStrings(i) != B.GetStrings(i))
            return false;
    return true;
}

bool IsEmpty(const TStringList &AText)
{
    return AText.GetCount() == 0 || (AText.GetCount() == 1 && AText.GetLength(0) == 0);
}

// Nothing where there is no file, or none that this user can read.
std::optional<QByteArray> ReadIfThere(const QString &APath)
{
    if (APath.isEmpty() || !QFileInfo::exists(APath))
        return {};
    try {
        return ZtReadFile(APath);
    } catch (const EStreamError &) {
        return {};
    }
}

} // namespace

// What a journal has to give.
struct TJournalFlow::TFound {
    TLeftJournal Journal;
    std::optional<QByteArray> File; // what it holds now
    TZtRestored Result;
    std::unique_ptr<TStringList> Before = std::make_unique<TStringList>(); // the file's text
    std::unique_ptr<TStringList> After = std::make_unique<TStringList>();

    const QString &Path() const { return Journal.Header.Path; }
    bool IsPartOnly() const { return Result.Text == TZtRestoredText::rtTyped; }
    // Whether it is a text that the file's own does not make room for.
    bool IsBeside() const { return IsPartOnly() || (File && Result.IsFileChanged); }
    bool IsNothing() const
    {
        if (Result.Text == TZtRestoredText::rtNothing)
            return true;
        return File ? !IsPartOnly() && IsSame(*Before, *After) : IsEmpty(*After);
    }
    QString Note() const;
};

QString TJournalFlow::TFound::Note() const
{
    const QDateTime time = QFileInfo(Journal.Path).lastModified();
    QStringList notes{
        TTexts::tr("%1 was not saved when the program was cut short. The last change is of %2.")
            .arg(NameOf(Path()), QLocale().toString(time, QLocale::ShortFormat))};
    if (IsPartOnly())
        notes += TTexts::tr("The file is not what it was any more, so that only what was typed and "
                            "inserted can come back, piece by piece, as a text of its own.");
    else if (IsBeside())
        notes +=
            TTexts::tr("The file was changed since then. It stays as it is, and what comes back "
                       "opens beside it.");
    else if (!File && !Path().isEmpty())
        notes += TTexts::tr("There is no file of this name, or it cannot be read.");
    if (!Result.IsComplete)
        notes += TTexts::tr("The very last changes may be missing.");
    return notes.join(QLatin1Char('\n'));
}

TJournalFlow::TJournalFlow(TMainWindow &AWindow)
    : Ask([&AWindow](const TRestoreOffer &offer) { return TRestoreDialog(offer, &AWindow).Ask(); }),
      FWindow(AWindow)
{
}

void TJournalFlow::Start()
{
    for (const TLeftJournal &journal : ZtLeftJournals())
        OfferOne(journal);
    connect(&FWindow, &TMainWindow::FileOpened, this,
            TZtGuarded([this](const QString &path) { OfferOf(path); }));
}

void TJournalFlow::OfferOf(const QString &APath)
{
    if (FOffering)
        return; // it is opened for what comes back
    const QString target = ZtFollowLinks(APath);
    for (const TLeftJournal &journal : ZtLeftJournals())
        if (!journal.Header.Path.isEmpty() && ZtFollowLinks(journal.Header.Path) == target)
            OfferOne(journal);
}

void TJournalFlow::OfferOne(const TLeftJournal &AJournal)
try {
    const QScopedValueRollback offering(FOffering, true);
    const TZtFileHandle claim = ZtClaimJournal(AJournal.Path);
    if (!claim.IsOpen())
        return;
    const TFound found = Read(AJournal);
    if (found.IsNothing()) {
        if (found.Result.IsComplete)
            ZtRemoveJournal(AJournal.Path);
        return;
    }
    const TRestoreDialog::TAnswer answer = AskUntilSure(found);
    if (answer == TRestoreDialog::Discard ||
        (answer == TRestoreDialog::Restore && Restore(found).FlushJournal()))
        ZtRemoveJournal(AJournal.Path);
} catch (...) {
    ZtMsgBoxError(TTexts::tr("%1 is not restored: %2")
                      .arg(NameOf(AJournal.Header.Path), ZtCurrentExceptionMessage()),
                  QCoreApplication::applicationName());
}

TJournalFlow::TFound TJournalFlow::Read(const TLeftJournal &AJournal) const
{
    TFound found;
    found.Journal = AJournal;
    found.File = ReadIfThere(found.Path());
    found.Result = TZtJournalReader(AJournal.Path).Restore(found.File, Load, *found.After);
    if (found.File)
        Load(*found.File, *found.Before);
    return found;
}

TRestoreDialog::TAnswer TJournalFlow::AskUntilSure(const TFound &AFound)
{
    const TRestoreOffer offer{AFound.Note(), AFound.File ? AFound.Before.get() : nullptr,
                              AFound.After.get()};
    for (;;) {
        const TRestoreDialog::TAnswer answer = Ask(offer);
        if (answer != TRestoreDialog::Discard ||
            ZtMsgBoxConfirm(
                TTexts::tr("%1: give up for good what was not saved?").arg(NameOf(AFound.Path())),
                QCoreApplication::applicationName()) == mrYes)
            return answer;
    }
}

// In the file's own document, unless there is another text in it.
TDocument &TJournalFlow::Restore(const TFound &AFound)
{
    const QString &path = AFound.Path();
    const TDocument *open = path.isEmpty() ? nullptr : FWindow.DocumentOf(path);
    const bool taken = AFound.IsBeside() || (open && open->IsModified());
    if (!path.isEmpty() && !taken) {
        TDocument *document = FWindow.OpenOrBegin(path);
        if (open && AFound.File)
            document->Load(path); // what could be undone is not of the text that comes
        document->Restore(*AFound.After, AFound.File
                                             ? document->Format()
                                             : ZtFormatOfBytes(AFound.Journal.Header.Format));
        return *document;
    }
    if (AFound.File)
        FWindow.OpenFile(path);
    TDocument *document = FWindow.AddRestored(
        path.isEmpty() ? QString() : QFileInfo(path).fileName() + QStringLiteral(".restored"));
    document->SetLanguage(ZtLanguageOfFile(path));
    document->Restore(*AFound.After, ZtFormatOfBytes(AFound.Journal.Header.Format));
    return *document;
}
