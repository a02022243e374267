#pragma once

#include "uZtJournalFormat.h"

#include <vector>

/// A journal on disk, for the one thread that writes it, locked (`flock`) as long as it is open.
/// What the system refuses is raised as `std::system_error`; what could not be written then is kept
/// for the next time.
class TZtJournalFile {
public:
    /// Makes no file yet.
    explicit TZtJournalFile(const QString &APath);
    ~TZtJournalFile();
    TZtJournalFile(const TZtJournalFile &) = delete;
    TZtJournalFile &operator=(const TZtJournalFile &) = delete;

    /// Whether it has records, on disk or still to be written.
    bool IsBegun() const { return FBegun; }
    /// Puts a record behind the others, which `Write` writes.
    void Append(const QByteArray &ARecord);
    /// Makes the file, for this user alone, if it is not there, and writes what was appended. A
    /// write that fails leaves the records before it.
    void Write();
    /// What is still to be written, in bytes.
    qsizetype GetPending() const { return FPending.size(); }

    /// Exchanges the whole journal for these records, or for none: then the file goes away.
    void Replace(const std::vector<QByteArray> &ARecords);

private:
    int Make(const QByteArray &AName) const;
    void Close();
    void Begin(const std::vector<QByteArray> &ARecords);

    const QByteArray FName;
    TZtJournalFramer FFramer;
    QByteArray FPending;
    int FHandle = -1;
    qint64 FSize = 0;
    bool FBegun = false;
};
