#include "SaveFlow.h"

#include "Document.h"
#include "FileStore.h"
#include "SideFile.h"

#include "uZtException.h"
#include "uZtLossQuestion.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(SaveFlow)
};

int Ask(const QString &AText)
{
    return ZtMsgBoxConfirm(AText, QCoreApplication::applicationName());
}

bool Confirm(const QString &AText) { return Ask(AText) == mrYes; }

void Tell(const QString &AText)
{
    if (!AText.isEmpty())
        ZtMsgBoxError(AText, QCoreApplication::applicationName());
}

// Runs what ends with a message when something is raised, and answers what it does.
template <typename T> bool Try(const char *AFault, const QString &AName, T AWork)
{
    try {
        return AWork();
    } catch (const EStreamError &error) {
        Tell(error.Message());
    } catch (...) {
        const QString message = ZtCurrentExceptionMessage();
        Tell(message.isEmpty() ? message : TTexts::tr(AFault).arg(AName, message));
    }
    return false;
}

QString NameOf(const QString &APath) { return QFileInfo(APath).fileName(); }

void OfferRestore(const QString &ATarget, const TZtBackup &ABackup)
{
    if (!ABackup.Fault.isEmpty())
        return Tell(
            TTexts::tr(
                "A save of \"%1\" was cut short. What it held before that is in \"%2\", which "
                "cannot be restored here: %3.")
                .arg(NameOf(ATarget), ABackup.Path, ABackup.Fault));
    const QString kept = ZtFreeName(ATarget);
    const QString time =
        QLocale().toString(QFileInfo(ABackup.Path).lastModified(), QLocale::ShortFormat);
    const int answer =
        Ask(TTexts::tr(
                "A save of \"%1\" was cut short at %2, and it may hold only a part of its text. "
                "Restore what it held before that save? What you do not choose is kept as \"%3\".")
                .arg(NameOf(ATarget), time, NameOf(kept)));
    if (answer == mrYes)
        ZtRestoreBackup(ATarget, ABackup, kept);
    else if (answer == mrNo)
        ZtKeepBackup(ATarget, ABackup, kept);
}

// The file may have been changed since it was read, or may not be this user's to write.
bool ConfirmOverwriting(const TDocument &ADocument)
{
    QString reason;
    switch (ADocument.ChangeOnDisk(reason)) {
    case TZtFileChange::fcChanged:
        return Confirm(
            TTexts::tr("\"%1\" was changed by another program after it was read here. Overwrite "
                       "those changes?")
                .arg(ADocument.Title()));
    case TZtFileChange::fcUnknown:
        return Confirm(
            TTexts::tr("\"%1\" cannot be read to see whether another program changed it: %2. "
                       "Overwrite it?")
                .arg(ADocument.Title(), reason));
    case TZtFileChange::fcNone:
    case TZtFileChange::fcMissing:
        break;
    }
    return true;
}

bool ConfirmReplacing(const QString &APath)
{
    return !ZtMayOnlyReplace(APath) ||
           Confirm(
               TTexts::tr("You have no right to write \"%1\", but you may put another file in its "
                          "place. Replace it?")
                   .arg(NameOf(APath)));
}

// An edited text cannot give back all of a file with mixed line endings or undecodable bytes.
bool ConfirmWhatIsLost(const TDocument &ADocument)
{
    const TZtTextFormat &format = ADocument.Format();
    if (!ADocument.IsModified())
        return true;
    if (format.MixedLineEndings &&
        !Confirm(
            TTexts::tr("The line endings of \"%1\" are mixed. All of them will be written as %2. "
                       "Save it?")
                .arg(ADocument.Title(), ZtLineEndingName(format.LineEnding))))
        return false;
    return !format.Undecodable ||
           ZtAgreeOnUndecodable(ADocument.Title(), ZtEncodingName(format.Encoding));
}

bool Save(TDocument &ADocument, const QString &APath)
{
    TZtTextFormat format = ADocument.Format();
    QByteArray bytes;
    const auto encode = [&](const TZtTextFormat &in, std::vector<TZtLostChar> &lost) {
        return ADocument.Encode(in, lost);
    };
    if (!ConfirmWhatIsLost(ADocument) ||
        !ZtAgreeOnEncoding(encode, ADocument.Title(), format, bytes) || !ConfirmReplacing(APath))
        return false;
    const QStringList lost = ADocument.Write(APath, bytes, format);
    if (!lost.isEmpty())
        Tell(TTexts::tr("\"%1\" is saved, but it lost %2.")
                 .arg(ADocument.Title(), lost.join(QLatin1StringView(", "))));
    return true;
}

constexpr const char *NotSaved = QT_TRANSLATE_NOOP("SaveFlow", "\"%1\" is not saved: %2");

} // namespace

void ZtOfferRestore(const QString &APath)
{
    const QString target = ZtFollowLinks(APath);
    if (!QFileInfo(target).isFile())
        return;
    Try(QT_TRANSLATE_NOOP("SaveFlow", "\"%1\" is not restored: %2"), NameOf(target), [&] {
        for (const TZtBackup &backup : ZtFindBackups(target))
            OfferRestore(target, backup);
        return true;
    });
}

bool ZtSaveDocument(TDocument &ADocument)
{
    return Try(NotSaved, ADocument.Title(), [&] {
        ZtOfferRestore(ADocument.Path());
        QString reason;
        if (!ADocument.IsModified() && ADocument.ChangeOnDisk(reason) == TZtFileChange::fcNone)
            return true;
        return ConfirmOverwriting(ADocument) && Save(ADocument, ADocument.Path());
    });
}

bool ZtSaveDocumentAs(TDocument &ADocument, const QString &APath)
{
    return Try(NotSaved, ADocument.Title(), [&] {
        ZtOfferRestore(APath);
        return Save(ADocument, APath);
    });
}
