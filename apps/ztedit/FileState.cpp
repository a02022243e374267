#include "FileState.h"

#include "FileHandle.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>

namespace {

size_t Hash(QByteArrayView ABytes, size_t ABefore)
{
    return qHashBits(ABytes.data(), size_t(ABytes.size()), ABefore);
}

// Of a file, chunk by chunk: it need not fit into memory.
size_t HashOfFile(const QString &APath)
{
    const TZtFileHandle file(
        ZtCheckCall(open(QFile::encodeName(APath).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)));
    TZtChunk chunk;
    size_t hash = 0;
    for (qint64 at = 0;; at += chunk.size()) {
        const QByteArrayView bytes = ZtReadChunk(file.Get(), chunk, at);
        if (bytes.isEmpty())
            return hash;
        hash = Hash(bytes, hash);
    }
}

size_t HashOfBytes(QByteArrayView ABytes)
{
    constexpr qsizetype size = sizeof(TZtChunk);
    size_t hash = 0;
    for (; !ABytes.isEmpty(); ABytes = ABytes.sliced(std::min(size, ABytes.size())))
        hash = Hash(ABytes.first(std::min(size, ABytes.size())), hash);
    return hash;
}

qint64 Nanoseconds(const timespec &ATime)
{
    return qint64(ATime.tv_sec) * 1'000'000'000 + ATime.tv_nsec;
}

// A file system's clock ticks a hundred times a second or faster; some count but every other
// second, and then have no fractions.
bool IsSettled(const struct stat &AFacts)
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    const bool fine = AFacts.st_mtim.tv_nsec != 0 || AFacts.st_ctim.tv_nsec != 0;
    const qint64 tick = fine ? 20'000'000 : 2'000'000'000;
    return Nanoseconds(now) - tick >
           std::max(Nanoseconds(AFacts.st_mtim), Nanoseconds(AFacts.st_ctim));
}

bool SameFacts(const struct stat &A, const struct stat &B)
{
    return A.st_dev == B.st_dev && A.st_ino == B.st_ino &&
           Nanoseconds(A.st_mtim) == Nanoseconds(B.st_mtim) &&
           Nanoseconds(A.st_ctim) == Nanoseconds(B.st_ctim);
}

} // namespace

TZtFileState::TZtFileState(const QString &APath)
    : FSettled(stat(QFile::encodeName(APath).constData(), &FFacts) == 0 && IsSettled(FFacts))
{
}

void TZtFileState::SetContents(const QByteArray &ABytes)
{
    FSize = ABytes.size();
    FHash = HashOfBytes(ABytes);
}

TZtFileChange TZtFileState::ChangeOf(const QString &APath, QString &AReason) const
try {
    struct stat now = {};
    const int found = stat(QFile::encodeName(APath).constData(), &now);
    if (found != 0 && (errno == ENOENT || errno == ENOTDIR))
        return TZtFileChange::fcMissing;
    ZtCheckCall(found);
    if (!S_ISREG(now.st_mode) || now.st_size != FSize)
        return TZtFileChange::fcChanged;
    if ((FSettled && SameFacts(FFacts, now)) || HashOfFile(APath) == FHash)
        return TZtFileChange::fcNone;
    return TZtFileChange::fcChanged;
} catch (const std::system_error &error) {
    AReason = qt_error_string(error.code().value());
    return TZtFileChange::fcUnknown;
}
