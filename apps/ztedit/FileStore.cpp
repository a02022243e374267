#include "FileStore.h"

#include "FileAttributes.h"
#include "SideFile.h"

#include "uZtException.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int MaxLinks = 40;

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(FileStore)
};

EStreamError CannotWrite(const QString &APath, const QString &AReason)
{
    return EStreamError(TTexts::tr("Cannot write \"%1\": %2.").arg(APath, AReason));
}

// Runs what raises errors of the system, for which the user gets the file's name.
template <typename T> auto Writing(const QString &APath, T AWork)
{
    try {
        return AWork();
    } catch (const std::system_error &error) {
        throw CannotWrite(APath, qt_error_string(error.code().value()));
    }
}

void CheckKind(const QString &APath, const QString &ATarget)
{
    const QFileInfo info(ATarget);
    if (info.isDir())
        throw CannotWrite(APath, TTexts::tr("it is a directory"));
    if (info.exists() && !info.isFile())
        throw CannotWrite(APath, TTexts::tr("it is not a regular file"));
}

std::optional<TZtFileAttributes> AttributesOf(const QString &ATarget)
{
    try {
        TZtFileAttributes attributes(ATarget);
        if (!S_ISREG(attributes.Status().st_mode))
            throw std::system_error(ELOOP, std::generic_category()); // links that lead nowhere
        return attributes;
    } catch (const std::system_error &error) {
        if (error.code().value() != ENOENT)
            throw;
        return std::nullopt;
    }
}

// What a new file in the place of the old one would lose.
QStringList Prepare(const TZtSideFile &AFresh, const QString &ATarget,
                    const std::optional<TZtFileAttributes> &AOld)
{
    if (!AOld) {
        ZtGiveNewFileMode(AFresh.Handle(), ATarget);
        return {};
    }
    QStringList lost = AOld->GiveTo(AFresh.Handle());
    if (AOld->Status().st_nlink > 1)
        lost.append(TTexts::tr("its other names, which keep the old contents"));
    return lost;
}

// Puts a new file in the place of the old one and answers what that lost. None when something would
// be lost that need not be, or the system does not let it, and then all is as before.
std::optional<QStringList> SaveByRename(const QString &ATarget, const QByteArray &ABytes,
                                        const std::optional<TZtFileAttributes> &AOld, bool AOnlyWay)
{
    TZtSideFile fresh(ATarget);
    if (!Prepare(fresh, ATarget, AOld).isEmpty() && !AOnlyWay)
        return std::nullopt;
    ZtWriteAll(fresh.Handle(), ABytes);
    // What was written may have cost the file permissions.
    QStringList lost = Prepare(fresh, ATarget, AOld);
    ZtSync(fresh.Handle());
    if (!fresh.Replace()) {
        ZtCheckCall(AOnlyWay ? -1 : 0);
        return std::nullopt;
    }
    ZtSyncFolderOf(ATarget);
    return lost;
}

TZtFileHandle OpenInPlace(const QString &ATarget, const TZtFileAttributes &AOld)
{
    TZtFileHandle file = ZtOpenFile(ATarget, O_RDWR);
    struct stat now = {};
    if (!file.IsOpen() || (fstat(file.Get(), &now) == 0 && now.st_ino == AOld.Status().st_ino &&
                           now.st_dev == AOld.Status().st_dev))
        return file;
    errno = ESTALE; // another file has come
    return {};
}

// Takes the room on the disk before anything is written over, where the file system has a way.
void Reserve(int AHandle, qsizetype ASize)
{
    if (ASize > 0 && fallocate(AHandle, FALLOC_FL_KEEP_SIZE, 0, ASize) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
        ZtCheckCall(-1);
}

// Gives a file the contents of its backup, which stays.
void CopyBack(int ABackup, int AHandle, const TZtFileAttributes &AOld)
{
    ZtCopyAll(ABackup, AHandle);
    AOld.GiveTo(AHandle);
    ZtSync(AHandle);
}

// Writes the new contents over the old ones and answers what that lost.
QStringList SaveInPlace(const QString &ATarget, const QByteArray &ABytes,
                        const TZtFileAttributes &AOld, int AHandle)
{
    TZtSideFile backup(ATarget);
    ZtCopyAll(AHandle, backup.Handle());
    ZtSync(backup.Handle());
    Reserve(AHandle, ABytes.size());
    backup.BecomeBackup();
    ZtSyncFolderOf(ATarget);
    try {
        ZtWriteAll(AHandle, ABytes);
        QStringList lost = AOld.GiveTo(AHandle);
        ZtSync(AHandle);
        return lost;
    } catch (...) {
        const QString reason = ZtCurrentExceptionMessage();
        try {
            CopyBack(backup.Handle(), AHandle, AOld);
        } catch (...) {
            const QString kept = backup.Path();
            backup.Keep();
            throw CannotWrite(ATarget,
                              TTexts::tr("%1. What it held before is in \"%2\"").arg(reason, kept));
        }
        throw;
    }
}

QStringList Save(const QString &ATarget, const QByteArray &ABytes)
{
    ZtRemoveDeadFiles(ATarget);
    const std::optional<TZtFileAttributes> old = AttributesOf(ATarget);
    if (const auto lost = SaveByRename(ATarget, ABytes, old, !old))
        return *lost;
    if (const TZtFileHandle file = OpenInPlace(ATarget, *old); file.IsOpen())
        return SaveInPlace(ATarget, ABytes, *old, file.Get());
    return *SaveByRename(ATarget, ABytes, old, true);
}

} // namespace

QString ZtFollowLinks(const QString &APath)
{
    QFileInfo info(APath);
    for (int i = 0; i < MaxLinks && info.isSymLink(); ++i)
        info.setFile(info.symLinkTarget());
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

bool ZtMayOnlyReplace(const QString &APath)
{
    const QString target = ZtFollowLinks(APath);
    const auto may = [](const QString &path) {
        return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
    };
    return !may(target) && (errno == EACCES || errno == EPERM) && may(QFileInfo(target).path());
}

QStringList ZtSaveFile(const QString &APath, const QByteArray &ABytes)
{
    const QString target = ZtFollowLinks(APath);
    CheckKind(APath, target);
    return Writing(APath, [&] { return Save(target, ABytes); });
}

void ZtRestoreBackup(const QString &ATarget, const TZtBackup &ABackup, const QString &AKept)
{
    Writing(ATarget, [&] {
        const TZtFileAttributes attributes(ATarget);
        const TZtFileHandle file = OpenInPlace(ATarget, attributes);
        ZtCheckCall(file.Get());
        TZtSideFile kept(ATarget);
        ZtCopyAll(file.Get(), kept.Handle());
        attributes.GiveTo(kept.Handle());
        ZtSync(kept.Handle());
        kept.PutAt(AKept);
        ZtSyncFolderOf(ATarget);
        CopyBack(ABackup.Handle.Get(), file.Get(), attributes);
        unlink(QFile::encodeName(ABackup.Path).constData());
    });
}

void ZtKeepBackup(const QString &ATarget, const TZtBackup &ABackup, const QString &AKept)
{
    Writing(AKept, [&] {
        TZtFileAttributes(ATarget).GiveTo(ABackup.Handle.Get());
        ZtPutAt(ABackup.Path, AKept);
    });
}
