#pragma once

#include "uZtExport.h"
#include "uZtJournalFormat.h"
#include "uZtStringList.h"

#include <functional>
#include <optional>
#include <vector>

/// What a journal gave back.
enum class TZtRestoredText {
    rtNothing, ///< no change of a text is in it
    rtWhole,   ///< the text, up to the last sound record
    rtTyped,   ///< what was inserted, piece by piece: the file that the text came from is no more
};

/// What a journal gave back, and how sure that is.
struct TZtRestored {
    TZtRestoredText Text = TZtRestoredText::rtNothing; ///< which text `Restore` made
    /// Whether the journal is sound up to its end. One that was being written when the process
    /// ended may lack its last changes.
    bool IsComplete = true;
    /// Whether the file holds something else than the text came from, or is no more.
    bool IsFileChanged = false;
};

/// Reads what a `TZtJournal` wrote. Neither changes nor removes it.
class ZT_EDITOR_EXPORT TZtJournalReader {
public:
    /// Makes the lines of a text from the bytes of its file.
    using TLoad = std::function<void(const QByteArray &ABytes, TStringList &AText)>;

    /// Only what the journal says of itself; nothing when it is none or cannot be read.
    static std::optional<TZtJournalHeader> ReadHeader(const QString &APath);

    /// Raises `EStreamError` when the file cannot be read or is no journal.
    explicit TZtJournalReader(const QString &APath);

    /// What the journal says of itself.
    const TZtJournalHeader &GetHeader() const { return FHeader; }

    /// Makes `AText`, which is empty, the text as the journal's process had it last. `AFile` is
    /// what the text's file holds now, or nothing when it is not there. What `ALoad` raises ends
    /// it.
    TZtRestored Restore(const std::optional<QByteArray> &AFile, const TLoad &ALoad,
                        TStringList &AText) const;

private:
    struct TStart;
    std::vector<TStart> FindStarts(const std::optional<QByteArray> &AFile,
                                   TZtRestored &AResult) const;
    static bool LoadBase(const TStart &AStart, const TLoad &ALoad, TStringList &AText);
    bool Apply(size_t AFirst, TStringList &AText) const;
    void CollectTyped(TStringList &AText) const;

    QByteArray FBytes;
    TZtJournalHeader FHeader;
    std::vector<QByteArrayView> FRecords; // but the header
    bool FComplete = true;
};
