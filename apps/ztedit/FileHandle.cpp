#include "FileHandle.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void WriteAt(int AHandle, QByteArrayView ABytes, qint64 AFrom)
{
    while (!ABytes.isEmpty()) {
        const ssize_t written = pwrite(AHandle, ABytes.data(), size_t(ABytes.size()), AFrom);
        if (written < 0 && errno == EINTR)
            continue;
        ZtCheckCall(written < 0 ? -1 : 0);
        ABytes = ABytes.sliced(written);
        AFrom += written;
    }
}

} // namespace

TZtFileHandle::~TZtFileHandle()
{
    if (IsOpen())
        close(FHandle);
}

bool TZtFileHandle::IsAt(const QString &APath) const
{
    struct stat here = {};
    struct stat there = {};
    return fstat(FHandle, &here) == 0 && lstat(QFile::encodeName(APath).constData(), &there) == 0 &&
           here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

TZtFileHandle ZtOpenFile(const QString &APath, int AFlags)
{
    return TZtFileHandle(open(QFile::encodeName(APath).constData(),
                              AFlags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

int ZtCheckCall(int AAnswer)
{
    if (AAnswer == -1)
        throw std::system_error(errno, std::generic_category());
    return AAnswer;
}

QByteArrayView ZtReadChunk(int AHandle, TZtChunk &AChunk, qint64 AFrom)
{
    size_t filled = 0;
    while (filled < AChunk.size()) {
        const ssize_t size =
            pread(AHandle, AChunk.data() + filled, AChunk.size() - filled, AFrom + qint64(filled));
        if (size < 0 && errno == EINTR)
            continue;
        ZtCheckCall(size < 0 ? -1 : 0);
        if (size == 0)
            break;
        filled += size_t(size);
    }
    return {AChunk.data(), qsizetype(filled)};
}

void ZtWriteAll(int AHandle, QByteArrayView ABytes)
{
    WriteAt(AHandle, ABytes, 0);
    ZtCheckCall(ftruncate(AHandle, ABytes.size()));
}

void ZtCopyAll(int AFrom, int ATo)
{
    TZtChunk chunk;
    qint64 at = 0;
    for (;;) {
        const QByteArrayView bytes = ZtReadChunk(AFrom, chunk, at);
        if (bytes.isEmpty())
            break;
        WriteAt(ATo, bytes, at);
        at += bytes.size();
    }
    ZtCheckCall(ftruncate(ATo, at));
}

bool ZtSameContents(int AOne, int AOther)
{
    TZtChunk chunk;
    TZtChunk otherChunk;
    for (qint64 at = 0;; at += chunk.size()) {
        const QByteArrayView bytes = ZtReadChunk(AOne, chunk, at);
        if (bytes != ZtReadChunk(AOther, otherChunk, at))
            return false;
        if (bytes.isEmpty())
            return true;
    }
}

void ZtSync(int AHandle)
{
    // Not every file system has a way, or one for folders.
    if (fsync(AHandle) != 0 && errno != EINVAL && errno != ENOTSUP)
        ZtCheckCall(-1);
}

void ZtSyncFolderOf(const QString &APath)
{
    const TZtFileHandle folder(open(QFile::encodeName(QFileInfo(APath).path()).constData(),
                                    O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // One may write into a folder that one may not read.
    if (folder.IsOpen())
        ZtSync(folder.Get());
}
