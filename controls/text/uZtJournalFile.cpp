#include "uZtJournalFile.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

[[noreturn]] void Fail() { throw std::system_error(errno, std::generic_category()); }

void Check(int AAnswer)
{
    if (AAnswer < 0)
        Fail();
}

void WriteAll(int AHandle, QByteArrayView ABytes, qint64 AAt)
{
    while (!ABytes.isEmpty()) {
        const ssize_t written = pwrite(AHandle, ABytes.data(), size_t(ABytes.size()), AAt);
        if (written < 0 && errno != EINTR)
            Fail();
        ABytes = ABytes.sliced(std::max<qsizetype>(written, 0));
        AAt += std::max<ssize_t>(written, 0);
    }
}

// Begins to bring it to the disk without waiting: a disk that is busy for seconds must not keep
// what is typed meanwhile in memory, where a crash of the program would lose it.
void SendToDisk(int AHandle) { sync_file_range(AHandle, 0, 0, SYNC_FILE_RANGE_WRITE); }

} // namespace

TZtJournalFile::TZtJournalFile(const QString &APath) : FName(QFile::encodeName(APath)) {}

TZtJournalFile::~TZtJournalFile() { Close(); }

void TZtJournalFile::Close()
{
    if (FHandle >= 0)
        close(std::exchange(FHandle, -1));
}

int TZtJournalFile::Make(const QByteArray &AName) const
{
    const int handle = open(AName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    Check(handle);
    fchmod(handle, 0600);             // whatever the user's mask takes away
    flock(handle, LOCK_EX | LOCK_NB); // for who shares the folder and sees no processes of here
    return handle;
}

void TZtJournalFile::Append(const QByteArray &ARecord)
{
    FPending += FFramer.Frame(ARecord);
    FBegun = true;
}

void TZtJournalFile::Write()
{
    if (FPending.isEmpty())
        return;
    if (FHandle < 0)
        FHandle = Make(FName);
    try {
        WriteAll(FHandle, FPending, FSize);
    } catch (const std::system_error &) {
        [[maybe_unused]] const int cut = ftruncate(FHandle, FSize);
        throw;
    }
    FSize += FPending.size();
    FPending.clear();
    SendToDisk(FHandle);
}

void TZtJournalFile::Begin(const std::vector<QByteArray> &ARecords)
{
    Close();
    FFramer = {};
    FPending.clear();
    FSize = 0;
    FBegun = false;
    for (const QByteArray &record : ARecords)
        Append(record);
}

// A crash in between leaves the one journal or the other.
void TZtJournalFile::Replace(const std::vector<QByteArray> &ARecords)
{
    Begin(ARecords);
    if (!FBegun) {
        unlink(FName.constData());
        return;
    }
    const QByteArray next = FName + ".next";
    try {
        unlink(next.constData());
        FHandle = Make(next);
        Write();
        Check(rename(next.constData(), FName.constData()));
    } catch (const std::system_error &) {
        unlink(next.constData());
        unlink(FName.constData()); // what it holds is saved
        Begin(ARecords);
        throw;
    }
}
