#pragma once

#include "uZtExport.h"
#include "uZtLineItems.h"
#include "uZtListening.h"

#include <functional>
#include <vector>

/// What became of a line.
enum class TZtLineState : quint8 {
    csNone,    ///< it is as it was opened
    csChanged, ///< it was changed since the text was saved
    csSaved,   ///< it was changed since the text was opened, and saved so
};

/// Which lines of a text were changed, by every change, also by one that undoes another. Lines are
/// 0-based.
///
/// Where lines were removed and nothing came for them, the line that stands there now was changed,
/// or the last one. A line that only moved was not. The memory is that of the runs of lines of one
/// kind; a change costs what the runs in its own lines do.
///
/// A change of the whole text (`TZtTextChange::IsWholeText`) is taken for a load, after which no
/// line is changed; `SetIsWholeTextMarked` says otherwise.
class ZT_EDITOR_EXPORT TZtLineChanges final : public TZtTextListener {
public:
    /// The text may go before this.
    explicit TZtLineChanges(TStringList *AText);

    /// Told when lines have got another state otherwise than by a change of the text.
    std::function<void()> OnChange;

    /// Of a line that there is not: `csNone`.
    TZtLineState GetState(int ALine) const;

    /// The text was saved: what was changed is saved.
    void MarkSaved();
    /// The text was opened: nothing is changed.
    void Reset();
    /// The text is again the one that was saved last, as undo can make it: what was changed since
    /// is what it was before, saved or none. A line that was removed and has come back is none.
    void Restore();

    /// Whether a change of the whole text marks all lines as changed, as for a user who replaces
    /// all of it, instead of being taken for a load.
    bool GetIsWholeTextMarked() const { return FIsWholeTextMarked; }
    void SetIsWholeTextMarked(bool AValue) { FIsWholeTextMarked = AValue; }

    /// Sets the bits `1 << csChanged` and `1 << csSaved` in the rows of an overview
    /// (`TZtOverviewRows`).
    void Survey(std::vector<quint32> &ARows) const;

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    quint32 ValueAt(int ALine) const;
    qsizetype Split(int ALine);
    void Merge(qsizetype AFrom, qsizetype ATo);
    void Insert(int ALine, int ACount);
    void Remove(int ALine, int ACount);
    void Touch(int AFirst, int ALast);
    void Trim();
    template <typename TMap> void MapAll(TMap AMap);
    void Tell()
    {
        if (OnChange)
            OnChange();
    }

    TZtLineItems FRuns; // a run's state begins at its line and goes on to the next one
    bool FIsWholeTextMarked = false;
    TZtListening FListening;
};
