#pragma once

#include "uZtExport.h"
#include "uZtLineItems.h"
#include "uZtListening.h"

#include <array>
#include <functional>
#include <vector>

/// What a line can be marked with.
enum class TZtLineMark : quint8 {
    lmBookmark,
    lmBreakpoint,
    lmStatement, ///< the one that is executed next
    lmError,
    lmWarning,
    lmInformation,
    lmHost,     ///< the first of a host's own kinds
    lmLast = 31 ///< the last of them
};

/// A bit for each kind of mark.
using TZtLineMarkSet = quint32;
/// The bit of one kind.
constexpr TZtLineMarkSet ZtMarkBit(TZtLineMark AKind) { return 1u << quint32(AKind); }

/// Marks on the lines of a text, which move with them; lines are 0-based. A line has each kind at
/// most once.
///
/// A mark goes where its line's first character goes: a break that is inserted before it moves it
/// down, one behind it does not. When its whole line is removed it goes to the line that comes in
/// its place, at the end of the text to the last one, and is one with a mark of its kind there.
/// Where lines are replaced by others in one change, as the whole text is by a load, the first
/// stands for the first, and so on. A change costs what the marks in its own lines do.
class ZT_EDITOR_EXPORT TZtLineMarks final : public TZtTextListener {
public:
    /// The text may go before the marks.
    explicit TZtLineMarks(TStringList *AText);

    /// Told when a mark was set or taken away, not when marks only moved with the text.
    std::function<void()> OnChange;

    /// Both raise `EStringListError` for a line that there is not; an empty text has a first line.
    void Set(int ALine, TZtLineMark AKind, bool AOn);
    /// Answers whether the mark is there now.
    bool Toggle(int ALine, TZtLineMark AKind);
    /// Takes all marks of a kind away.
    void Clear(TZtLineMark AKind);
    void Clear(); ///< takes all marks of all kinds away
    /// Has the marks of another text, line by line; those behind the end go to the last line.
    void Take(const TZtLineMarks &AOther);

    /// The marks of a line, none for one that there is not.
    TZtLineMarkSet GetMarks(int ALine) const;
    /// False also for a line that there is not.
    bool IsMarked(int ALine, TZtLineMark AKind) const { return GetMarks(ALine) & ZtMarkBit(AKind); }
    /// A line that has marks.
    struct TMarked {
        int Line;             ///< 0-based
        TZtLineMarkSet Marks; ///< a bit for each kind
    };
    /// The lines with marks from `AFirst` to `ALast`, in order.
    std::vector<TMarked> GetInLines(int AFirst, int ALast) const;
    /// The next line below a line with a mark of that kind, or the next one above, going round at
    /// the text's ends: the line itself when it is the only one; -1 when there is none. `ALine` may
    /// be outside the text.
    int Next(int ALine, TZtLineMark AKind, bool AForward) const;
    /// How many lines have such a mark.
    int GetCount(TZtLineMark AKind) const { return FCounts[size_t(AKind)]; }

    /// Sets the bit `ZtMarkBit` of each kind in the rows of an overview (`TZtOverviewRows`).
    void Survey(std::vector<quint32> &ARows) const;

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    void Count(TZtLineMarkSet AMarks, int ABy);
    void CheckLine(int ALine) const;
    qsizetype Put(qsizetype AIndex, int ALine, TZtLineMarkSet AMarks);
    void Tell()
    {
        if (OnChange)
            OnChange();
    }

    TZtLineItems FItems; // the lines with marks
    std::array<int, 32> FCounts{};
    TZtListening FListening;
};
