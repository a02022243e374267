#include "session.h"

#include "Document.h"
#include "FileStore.h"
#include "SaveFlow.h"
#include "SideFile.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const QString &AShown)
{
    return QByteArray::fromPercentEncoding(AShown.toUtf8());
}

QString Before(const QString &AArgument) { return AArgument.section(u'=', 0, 0); }
QString After(const QString &AArgument) { return AArgument.section(u'=', 1); }

QString ModeOf(const QString &APath)
{
    struct stat status = {};
    stat(APath.toLocal8Bit().constData(), &status);
    return QString::number(status.st_mode & 07777, 8);
}

} // namespace

QString ShownBytes(const QByteArray &ABytes)
{
    return QString::fromLatin1(ABytes.toPercentEncoding("!\"#$&'()*+,/:;<=>?@[]^`{|}"));
}

THostSession::THostSession() : Answer(mrYes)
{
    qputenv("XDG_STATE_HOME", QFile::encodeName(State.path()));
    Window->KeepJournals();
    TZtPlatform &platform = ZtPlatform();
    const auto box = [this](const QString &text, const QString &) { return Box(text); };
    platform.MsgBoxError = box;
    platform.MsgBoxConfirm = platform.MsgBoxYesNoCancel = box;
    platform.ShowException = [this](const QString &message) { Fault(message); };
    platform.ClipboardText = [this] { return FClipboard; };
    platform.HasClipboardText = [this] { return !FClipboard.isEmpty(); };
    platform.SetClipboardText = [this](const QString &text) { FClipboard = text; };
    platform.SetClipboardData = [this](std::unique_ptr<QMimeData> mime) {
        FClipboard = mime->text();
    };
    std::signal(SIGXFSZ, SIG_IGN);
    AddFileWords();
    AddProgramWords();
    AddTextWords();
    AddSaveWords();
    AddCrashWords();
}

THostSession::~THostSession()
{
    FJournals.reset();
    Window.reset();
    ZtPlatform() = ZtDefaultPlatform();
}

QString THostSession::Do(const QString &AWords)
{
    FLog.clear();
    for (const QString &step : AWords.split(u' ', Qt::SkipEmptyParts)) {
        const auto action = Words.value(step.section(u':', 0, 0));
        if (!action)
            return u"unknown word "_s + step;
        try {
            action(step.section(u':', 1));
        } catch (const EZtException &error) {
            Fault(error.Message());
        }
    }
    return FLog.join(u' ');
}

QString THostSession::Path(const QString &AName) const
{
    return AName == u'.' ? Folder.path() : Folder.filePath(AName);
}

TZtCodeEdit *THostSession::Editor() const { return Document()->Editor(); }

QString THostSession::Text() const
{
    return Editor()->GetLines()->GetText().replace(u"\r\n"_s, u"/"_s);
}

int THostSession::Box(const QString &AText)
{
    Asked += QString(AText).replace(Folder.path(), u"~"_s);
    Say(u"?"_s);
    return Answer;
}

void THostSession::Fault(const QString &AMessage)
{
    Box(AMessage);
    FLog.last() = u"!"_s;
}

// What other programs do.
void THostSession::AddFileWords()
{
    Words[u"write"_s] = [this](auto &file) {
        QFile to(Path(Before(file)));
        EXPECT_TRUE(to.open(QIODevice::WriteOnly));
        to.write(BytesOf(After(file)));
    };
    Words[u"dir"_s] = [this](auto &name) { QDir().mkdir(Path(name)); };
    Words[u"remove"_s] = [this](auto &name) { QFile::remove(Path(name)); };
    Words[u"link"_s] = [this](auto &link) { QFile::link(After(link), Path(Before(link))); };
    Words[u"hard"_s] = [this](auto &name) {
        EXPECT_EQ(link(Local(After(name)).constData(), Local(Before(name)).constData()), 0);
    };
    Words[u"mode"_s] = [this](auto &mode) {
        chmod(Local(Before(mode)).constData(), After(mode).toUInt(nullptr, 8));
    };
    Words[u"modeof"_s] = [this](auto &name) { Say(ModeOf(Path(name))); };
    Words[u"read"_s] = [this](auto &name) {
        Say(u'<' + ShownBytes(ZtReadFile(Path(name))) + u'>');
    };
    Words[u"names"_s] = [this](auto &) { Say(Names()); };
}

// Without the digits that are found by chance, and with a mark for links.
QString THostSession::Names() const
{
    QStringList names;
    const auto all = QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QFileInfo &info : QDir(Folder.path()).entryInfoList(all))
        names += info.fileName() + (info.isSymLink() ? u"@"_s : QString());
    names.replaceInStrings(QRegularExpression(u"\\.[0-9a-f]{16}\\."_s), u".#."_s);
    names.sort();
    return names.join(u',');
}

// The program without its window.
void THostSession::AddProgramWords()
{
    Words[u"store"_s] = [this](auto &file) {
        const QStringList lost = ZtSaveFile(Path(Before(file)), BytesOf(After(file)));
        if (!lost.isEmpty())
            Say(lost.join(u", "_s));
    };
    Words[u"room"_s] = [](auto &bytes) {
        const rlimit limit = {bytes.isEmpty() ? RLIM_INFINITY : bytes.toUInt(), RLIM_INFINITY};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    };
    Words[u"offer"_s] = [this](auto &name) { ZtOfferRestore(Path(name)); };
    Words[u"inuse"_s] = [this](auto &name) {
        FSideFiles.push_back(std::make_unique<TZtSideFile>(Path(name)));
        Say(ModeOf(FSideFiles.back()->Path()));
    };
    Words[u"backup"_s] = [this](auto &) { FSideFiles.back()->BecomeBackup(); };
}

void THostSession::AddTextWords()
{
    Words[u"new"_s] = [this](auto &) { Window->NewDocument(); };
    Words[u"open"_s] = [this](auto &name) { Window->OpenFile(Path(name)); };
    Words[u"begin"_s] = [this](auto &name) { Window->OpenOrBegin(Path(name)); };
    Words[u"load"_s] = [this](auto &name) { Document()->Load(Path(name)); };
    Words[u"type"_s] = [this](auto &text) {
        Editor()->InsertText(TZtChangeType::ctPaste, QString::fromUtf8(BytesOf(text)));
    };
    Words[u"menu"_s] = [this](auto &name) { ChooseInMenu(name); };
    Words[u"language"_s] = [this](auto &) { Say(ZtLanguageTitle(Document()->Language())); };
    Words[u"text"_s] = [this](auto &) { Say(Text()); };
    Words[u"caret"_s] = [this](auto &) { Say(QString::number(Editor()->GetLinePos())); };
    Words[u"canundo"_s] = [this](auto &) { Say(Editor()->GetCanUndo()); };
    Words[u"tabs"_s] = [this](auto &) { Say(Tabs()); };
}

// Says whether it was enabled.
void THostSession::ChooseInMenu(const QString &AName)
{
    for (const QAction *title : Window->menuBar()->actions())
        Q_EMIT title->menu()->aboutToShow();
    for (const QMenu *menu : Window->menuBar()->findChildren<QMenu *>()) {
        for (QAction *action : menu->actions()) {
            if (action->text().remove(u'&').section(u'\t', 0, 0).replace(u' ', u'_') == AName) {
                Say(action->isEnabled());
                action->trigger();
            }
        }
    }
    QApplication::processEvents();
}

// The one in front in brackets, with a star for changes.
QString THostSession::Tabs() const
{
    QStringList tabs;
    for (int i = 0; i < Window->DocumentCount(); ++i) {
        const TDocument *document = Window->Document(i);
        const QString tab = document->Title() + (document->IsModified() ? u"*"_s : QString());
        tabs += document == Document() ? u'[' + tab + u']' : tab;
    }
    return tabs.join(u',');
}

void THostSession::AddSaveWords()
{
    Words[u"yes"_s] = [this](auto &) { Answer = mrYes; };
    Words[u"no"_s] = [this](auto &) { Answer = mrNo; };
    Words[u"cancel"_s] = [this](auto &) { Answer = mrCancel; };
    Words[u"save"_s] = [this](auto &) { Say(Window->Save(Document())); };
    Words[u"saveas"_s] = [this](auto &name) { Say(ZtSaveDocumentAs(*Document(), Path(name))); };
    Words[u"closetab"_s] = [this](auto &) { Say(Window->CloseDocument(Document())); };
    Words[u"close"_s] = [this](auto &) { Say(Window->close()); };
    Words[u"changed"_s] = [this](auto &) {
        QString reason;
        const QString names[] = {u"none"_s, u"changed"_s, u"missing"_s, u"unknown"_s};
        Say(names[int(Document()->ChangeOnDisk(reason))]);
    };
}

void THostSession::AddCrashWords()
{
    Words[u"crash"_s] = [this](auto &words) { Crash(words); };
    Words[u"start"_s] = [this](auto &) {
        FJournals = std::make_unique<TJournalFlow>(*Window);
        FJournals->Ask = [this](const TRestoreOffer &offer) { return AnswerOffer(offer); };
        FJournals->Start();
    };
    Words[u"later"_s] = [this](auto &) { FOfferAnswers += TRestoreDialog::Later; };
    Words[u"restore"_s] = [this](auto &) { FOfferAnswers += TRestoreDialog::Restore; };
    Words[u"discard"_s] = [this](auto &) { FOfferAnswers += TRestoreDialog::Discard; };
    // How many there are, and the rights to them.
    Words[u"journals"_s] = [this](auto &) {
        for (int i = 0; i < Window->DocumentCount(); ++i)
            Window->Document(i)->FlushJournal();
        QStringList modes;
        for (const QFileInfo &info : QDir(ZtJournalFolder()).entryInfoList(QDir::Files))
            modes += ModeOf(info.filePath());
        Say(u'{' + modes.join(u',') + u'}');
    };
}

// Before anything here has a thread, of which the other process would have but a part.
void THostSession::Crash(const QString &AWords)
{
    const pid_t child = fork();
    if (child == 0) {
        Do(QString(AWords).replace(u',', u' '));
        for (int i = 0; i < Window->DocumentCount(); ++i)
            Window->Document(i)->FlushJournal();
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

// What it is about is in `Asked`, with what would come back.
TRestoreDialog::TAnswer THostSession::AnswerOffer(const TRestoreOffer &AOffer)
{
    Box(AOffer.Note + u'\n' + AOffer.After->GetText());
    return FOfferAnswers.isEmpty() ? TRestoreDialog::Later : FOfferAnswers.takeFirst();
}
