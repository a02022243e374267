#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>
#include <utility>

/// An open file of the system, closed with the object.
class TZtFileHandle {
public:
    TZtFileHandle() = default;
    /// Takes over what `open` answered; -1 is none.
    explicit TZtFileHandle(int AHandle) : FHandle(AHandle) {}
    TZtFileHandle(TZtFileHandle &&AOther) noexcept : FHandle(std::exchange(AOther.FHandle, -1)) {}
    TZtFileHandle &operator=(TZtFileHandle &&AOther) noexcept
    {
        std::swap(FHandle, AOther.FHandle);
        return *this;
    }
    ~TZtFileHandle();

    bool IsOpen() const { return FHandle >= 0; }
    int Get() const { return FHandle; }
    /// Whether `APath` itself, and no link that leads here, is this file.
    bool IsAt(const QString &APath) const;

private:
    int FHandle = -1;
};

/// Opens a file itself, not what a link leads to, and never waits for it. A new file is for this
/// user alone. Not open when the system refuses, which `errno` tells.
TZtFileHandle ZtOpenFile(const QString &APath, int AFlags);

// What the system refuses is raised as `std::system_error` by each of these.

/// Raises for the answer -1 of a call of the system; else answers it.
int ZtCheckCall(int AAnswer);
/// Enough for a large file to be worked through at its disk's speed.
using TZtChunk = std::array<char, 1 << 16>;
/// Reads from the byte `AFrom` on until the chunk is full or the file ends. Answers what was read.
QByteArrayView ZtReadChunk(int AHandle, TZtChunk &AChunk, qint64 AFrom);
/// Makes a file hold these bytes and no others.
void ZtWriteAll(int AHandle, QByteArrayView ABytes);
/// Makes one file hold what another holds.
void ZtCopyAll(int AFrom, int ATo);
/// Whether two files hold the same.
bool ZtSameContents(int AOne, int AOther);
/// Waits until what was written is on disk.
void ZtSync(int AHandle);
/// Waits until the names in the folder of a file are on disk, where the file system has a way.
void ZtSyncFolderOf(const QString &APath);
