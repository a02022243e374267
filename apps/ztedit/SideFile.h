#pragma once

#include "FileHandle.h"

#include <QString>

#include <vector>

/// A new file beside another one, hidden and for this user alone. A lock says that it is in use; it
/// goes with the object unless it was put somewhere. What the system refuses is raised as
/// `std::system_error`.
class TZtSideFile {
public:
    explicit TZtSideFile(const QString &ATarget);
    ~TZtSideFile();
    TZtSideFile(const TZtSideFile &) = delete;
    TZtSideFile &operator=(const TZtSideFile &) = delete;

    int Handle() const { return FHandle.Get(); }
    const QString &Path() const { return FPath; }

    /// Takes a name that says that the file holds what its target held before, all of it. A dead
    /// process leaves it to `ZtFindBackups`.
    void BecomeBackup();
    /// Leaves the file where it is.
    void Keep() { FPath.clear(); }
    /// Puts the file in the place of its target. False when the system refuses, which `errno`
    /// tells.
    bool Replace();
    /// Puts the file where there is none; whatever is there stays, and the error is `EEXIST`.
    void PutAt(const QString &APath);

private:
    bool Lock();

    QString FTarget;
    QString FPath;
    TZtFileHandle FHandle;
};

/// What a file held before a save in place that a dead process did not bring to its end, locked.
struct TZtBackup {
    QString Path;
    TZtFileHandle Handle;
    /// Why it is not to be restored; empty when it is.
    QString Fault;
};

/// Removes the side files of a file that a dead process left, but for the backups.
void ZtRemoveDeadFiles(const QString &ATarget);
/// The backups of a file, or of its other names in the folder, that no living process has, the
/// newest first. One that holds what the file still holds is removed instead.
std::vector<TZtBackup> ZtFindBackups(const QString &ATarget);
/// Gives a file a name that is free; whatever has it stays, and the error is `EEXIST`.
void ZtPutAt(const QString &AFrom, const QString &ATo);
/// A free name for something to be kept of a file, beside it.
QString ZtFreeName(const QString &ATarget);
