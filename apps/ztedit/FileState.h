#pragma once

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

/// What became of a file since it was read or written.
enum class TZtFileChange { fcNone, fcChanged, fcMissing, fcUnknown };

/// What tells one state of a file on disk from another.
class TZtFileState {
public:
    /// The state of an empty file that is nowhere.
    TZtFileState() = default;
    /// Looks at a file, which is to be read after that, so that a change in between is found later.
    explicit TZtFileState(const QString &APath);
    /// Sets what the file holds.
    void SetContents(const QByteArray &ABytes);

    /// In bytes.
    qint64 Size() const { return FSize; }
    /// Compares with the file as it is now. Its contents are read only when the size is the same
    /// but when or where it was written is not: a file that was only touched, or was copied back,
    /// has not changed. `AReason` says why nothing is known.
    TZtFileChange ChangeOf(const QString &APath, QString &AReason) const;

private:
    struct stat FFacts = {};
    // Whether a later change could not have had the same time.
    bool FSettled = false;
    qint64 FSize = 0;
    size_t FHash = 0; // comparable within one run of the program
};
