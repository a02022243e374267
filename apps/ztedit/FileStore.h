#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct TZtBackup;

/// The file that `APath` leads to when every symbolic link is followed, also one whose target is
/// not there.
QString ZtFollowLinks(const QString &APath);

/// Whether this user has no right to write a file, but one to put another in its place. To be asked
/// before `ZtSaveFile`, which does that.
bool ZtMayOnlyReplace(const QString &APath);

/// Writes a file so that a process that ends at any moment leaves either the old or the new
/// contents whole. A symbolic link stays and its target is written. Owner, group, permissions,
/// access control lists, extended attributes and hard links stay. The new contents take the place
/// of the old ones; where that would lose something they are written over them instead, and a
/// backup (`ZtFindBackups`) is there until they are on disk.
///
/// Where neither can keep all, the file is replaced, and the answer tells in words what was lost.
/// Nobody ever has more access than before. Raises `EStreamError`, with the file and the reason in
/// the message, and leaves the old contents whole when the new ones cannot be written.
QStringList ZtSaveFile(const QString &APath, const QByteArray &ABytes);

/// Puts the contents of a backup of `ATarget` back; those that are there now go to the new file
/// `AKept`. The backup goes last. Raises `EStreamError`, and the backup stays.
void ZtRestoreBackup(const QString &ATarget, const TZtBackup &ABackup, const QString &AKept);
/// Leaves a file as it is and gives its backup the name `AKept`, which nothing has.
void ZtKeepBackup(const QString &ATarget, const TZtBackup &ABackup, const QString &AKept);
