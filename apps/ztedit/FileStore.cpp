#include "FileStore.h"

#include "uZtException.h"
#include "uZtStringStream.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int MaxLinks = 40;

QString Tr(const char *AText) { return QCoreApplication::translate("FileStore", AText); }

EStreamError CannotWrite(const QString &APath, const QString &AReason)
{
    return EStreamError(Tr("Cannot write \"%1\": %2.").arg(APath, AReason));
}

// Gives the new file the owner, group and permissions of the one that it will replace. The owner
// comes first, since a change of owner takes permission bits away.
void KeepOwnerAndMode(const QString &APath, int AHandle)
{
    struct stat old = {};
    struct stat fresh = {};
    if (stat(QFile::encodeName(APath).constData(), &old) != 0 || fstat(AHandle, &fresh) != 0)
        return;
    mode_t mode = old.st_mode & 07777;
    if (old.st_gid != fresh.st_gid && fchown(AHandle, uid_t(-1), old.st_gid) != 0)
        mode = (mode & ~mode_t(S_ISGID | S_IRWXG)) | (mode & S_IRWXO) << 3; // another group now
    if (old.st_uid != fresh.st_uid && fchown(AHandle, old.st_uid, gid_t(-1)) != 0)
        mode &= ~mode_t(S_ISUID);
    fchmod(AHandle, mode);
}

// Writes down to the disk. Answers the system's error number, 0 for none.
int WriteAll(int AHandle, QByteArrayView ABytes)
{
    while (!ABytes.isEmpty()) {
        const ssize_t written = write(AHandle, ABytes.data(), size_t(ABytes.size()));
        if (written < 0 && errno != EINTR)
            return errno;
        ABytes = ABytes.sliced(std::max<ssize_t>(written, 0));
    }
    return fsync(AHandle) == 0 || errno == EINVAL ? 0 : errno;
}

} // namespace

TZtFileFingerprint ZtFingerprintOf(const QByteArray &ABytes)
{
    return {true, ABytes.size(), qHashBits(ABytes.constData(), size_t(ABytes.size()))};
}

TZtFileFingerprint ZtFingerprintOfFile(const QString &APath)
{
    try {
        return ZtFingerprintOf(ZtReadFile(APath));
    } catch (const EStreamError &) {
        return {};
    }
}

QString ZtFollowLinks(const QString &APath)
{
    QFileInfo info(APath);
    for (int i = 0; i < MaxLinks && info.isSymLink(); ++i)
        info.setFile(info.symLinkTarget());
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

void ZtSaveFile(const QString &APath, const QByteArray &ABytes)
{
    const QString target = ZtFollowLinks(APath);
    const QFileInfo info(target);
    if (info.isDir())
        throw CannotWrite(APath, Tr("it is a directory"));
    if (info.exists() && !info.isFile())
        throw CannotWrite(APath, Tr("it is not a regular file"));
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        throw CannotWrite(APath, file.errorString());
    KeepOwnerAndMode(target, file.handle());
    if (const int error = WriteAll(file.handle(), ABytes)) {
        file.cancelWriting();
        throw CannotWrite(APath, qt_error_string(error));
    }
    if (!file.commit())
        throw CannotWrite(APath, file.errorString());
}
