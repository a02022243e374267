#pragma once

#include "uZtListening.h"

#include <vector>

/// A text counted as one string, as assistive tools count it: its lines with one character for each
/// break between them. Behind the last line there is no break.
///
/// Both questions, and a change within a few lines, cost about the square root of the count of
/// lines, and much less near the place before: the lines are shared out over runs whose lengths are
/// known.
class TZtTextOffsets final : public TZtTextListener {
public:
    /// The text may go before this.
    explicit TZtTextOffsets(TStringList *AText);

    /// The length of the whole text in UTF-16 units.
    qint64 GetCount() const { return FUnits > 0 ? FUnits - 1 : 0; }
    /// The offset (0-based, UTF-16 units) of a place, (column, line), 0-based. One outside the text
    /// is put inside: to its line's end, or to the end of the text.
    qint64 OffsetOf(const QPoint &APlace) const;
    /// The place at an offset, which is put inside the text; that of a break is its line's end.
    QPoint PlaceOf(qint64 AOffset) const;

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    struct TRun {
        int Lines;
        qint64 Units; // a break behind each line counted
    };
    // A run with what lies before it.
    struct TFound {
        size_t Run = 0;
        int Line = 0;
        qint64 Offset = 0;
    };

    void Rebuild();
    TFound RunOfLine(int ALine) const;
    qint64 UnitsOf(int AFirst, int ACount) const;
    void Recount(size_t AFirst, size_t AEnd, int ALine, int ALines);

    std::vector<TRun> FRuns;
    qint64 FUnits = 0;    // of all runs
    mutable TFound FNear; // the run that was asked for last: most questions are near by
    int FRunLines = 0;    // how many lines a run has, more or less
    TZtListening FListening;
};
