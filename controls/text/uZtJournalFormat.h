#pragma once

#include "uZtExport.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

// A journal is a row of records. Each has its length and a checksum that goes on from the one of
// the record before it, so that nothing can be missing in between. Numbers are little-endian.

/// A process of this or of an earlier run of the system.
struct ZT_EDITOR_EXPORT TZtJournalProcess {
    qint64 Pid = 0;    ///< 0 or less is no process
    quint64 Start = 0; ///< when it began, in ticks of the system's clock: a pid is used again
    QByteArray Boot;   ///< which run of the system

    static TZtJournalProcess Current(); ///< the one that asks
    /// Whether it has not ended, as far as one may see.
    bool IsAlive() const;
};

/// The file that a text came from or was saved to.
struct TZtJournalBase {
    QString Path;        ///< empty for a text without a file
    qint64 Modified = 0; ///< when it was written, in milliseconds since 1970 in UTC
    QByteArray Format;   ///< how it is stored, which only the host needs to understand
    QByteArray Bytes;    ///< what it holds; let go as soon as it is not needed
};

/// What a journal says of itself.
struct TZtJournalHeader {
    QString Path;        ///< of the file that the text came from; empty for a text without one
    qint64 Size = 0;     ///< of that file, in bytes
    qint64 Modified = 0; ///< when it was written, in milliseconds since 1970 in UTC
    QByteArray Hash;     ///< of its bytes (`ZtJournalHash`)
    QByteArray TextHash; ///< of the text (`TZtJournalTextHash`); empty where its bytes give it back
    QByteArray Format;   ///< how the host stores it, which only the host can read
    TZtJournalProcess Process; ///< the one that writes the journal
};

/// What a record is.
enum class TZtJournalKind : quint8 {
    jkHeader, ///< comes first
    jkBase,   ///< the bytes of the file that the text came from
    jkChange, ///< what was removed and what came in its place
    jkSaving, ///< the text as it is here is being saved, as bytes of this hash
};

/// One record. What is not of its kind is empty.
struct TZtJournalRecord {
    TZtJournalKind Kind = TZtJournalKind::jkHeader; ///< which of the following are filled in
    TZtJournalHeader Header;                        ///< of `jkHeader`
    QByteArray Bytes;         ///< of the base, or the hash of what is being saved
    QByteArray TextHash;      ///< of the text that is being saved
    QPoint Start;             ///< of `jkChange`: (column, line), 0-based
    QPoint RemovedEnd;        ///< where what was removed ended, before the change
    bool IsWholeText = false; ///< nothing is left of what was before
    QStringList Lines;        ///< what came in its place; the last has no break behind it
};

/// What tells the bytes of a file from others.
ZT_EDITOR_EXPORT QByteArray ZtJournalHash(const QByteArray &ABytes);

/// What tells a text from others, line by line. A text ends with a line that has no break.
class ZT_EDITOR_EXPORT TZtJournalTextHash {
public:
    /// A line without its break.
    void AddLine(QStringView ALine);
    /// Of all lines so far; to be called once, at the end.
    QByteArray Result() { return FHash.result(); }

private:
    QCryptographicHash FHash{QCryptographicHash::Blake2b_256};
};

/// The bytes of a `jkHeader`.
ZT_EDITOR_EXPORT QByteArray ZtEncodeJournalHeader(const TZtJournalHeader &AHeader);
/// The bytes of a `jkBase`.
ZT_EDITOR_EXPORT QByteArray ZtEncodeJournalBase(const QByteArray &ABytes);
/// The bytes of a `jkSaving`; see `TZtJournalRecord`.
ZT_EDITOR_EXPORT QByteArray ZtEncodeJournalSaving(const QByteArray &AHash,
                                                  const QByteArray &ATextHash);

/// A change's record, line by line.
class ZT_EDITOR_EXPORT TZtJournalChangeEncoder {
public:
    /// Positions are (column, line), 0-based; with `AIsWholeText` nothing is left of the text
    /// before.
    TZtJournalChangeEncoder(const QPoint &AStart, const QPoint &ARemovedEnd, bool AIsWholeText);
    /// A line of what was inserted, without its break.
    void AddLine(QStringView ALine);
    QByteArray Finish() { return std::move(FBytes); } ///< the record; to be called once, at the end

private:
    QByteArray FBytes;
};

/// Puts length and checksum before records, in the order in which they stand in the journal.
class ZT_EDITOR_EXPORT TZtJournalFramer {
public:
    /// Answers a record as it stands in the journal behind those before.
    QByteArray Frame(const QByteArray &ARecord);

private:
    QByteArray FCheck;
};

/// Takes the records out of a journal's bytes, until one is cut short or damaged.
class ZT_EDITOR_EXPORT TZtJournalUnframer {
public:
    /// The bytes outlive this and what `Next` answers.
    explicit TZtJournalUnframer(QByteArrayView ABytes) : FLeft(ABytes) {}
    /// The next record, as long as the bytes are; nothing behind the last sound one.
    std::optional<QByteArrayView> Next();
    /// How many bytes no sound record was found in.
    qsizetype GetLeft() const { return FLeft.size(); }

private:
    QByteArrayView FLeft;
    QByteArray FCheck;
};

/// Nothing when the bytes are no record.
ZT_EDITOR_EXPORT std::optional<TZtJournalRecord> ZtDecodeJournalRecord(QByteArrayView ARecord);
