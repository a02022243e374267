#pragma once

#include <QByteArray>
#include <QString>

/// What tells one state of a file on disk from another.
struct TZtFileFingerprint {
    bool Exists = false;
    qint64 Size = 0;
    /// A hash of the contents, comparable within one run of the program. Times are not compared: a
    /// copy may keep them, and a file that was only touched is still the same.
    size_t Hash = 0;

    bool operator==(const TZtFileFingerprint &) const = default;
};

/// The fingerprint of contents that were just read or written.
TZtFileFingerprint ZtFingerprintOf(const QByteArray &ABytes);
/// The fingerprint of a file as it is now. What cannot be read does not exist.
TZtFileFingerprint ZtFingerprintOfFile(const QString &APath);

/// The file that `APath` leads to when every symbolic link is followed, also one whose target is
/// not there.
QString ZtFollowLinks(const QString &APath);

/// Writes a file so that at any moment either the old or the new contents are there whole. A
/// symbolic link stays and its target is written; the permissions stay, and the owner as far as
/// the user may give files away. Raises `EStreamError`, with the file and the reason in the
/// message, and leaves the old file as it was when the contents cannot be written.
void ZtSaveFile(const QString &APath, const QByteArray &ABytes);
