#pragma once

#include "uZtExport.h"

#include <QAnyStringView>

/// How the characters of a line stand on the grid of cells.
struct TZtCellRules {
    int TabWidth = 8;  ///< in cells, 1 or more
    bool Tabs = false; ///< a tab reaches to the next stop; else it takes one cell
    bool Wide = false; ///< widths of UAX #11 and grapheme clusters of UAX #29; else each character,
                       ///< a pair of surrogates too, takes one cell
    bool operator==(const TZtCellRules &) const = default;
};

/// Neighbours in a line, with columns in UTF-16 units. Either one cluster, or characters of the
/// Basic Multilingual Plane that take one cell each and are clusters of their own.
struct TZtCellSpan {
    int Start;      ///< the first column, in UTF-16 units, 0-based
    int Length;     ///< how many of them
    int Cell;       ///< the first cell, 0-based
    int Width;      ///< in cells; 0 for a cluster that is not seen, like a mark of direction
    bool IsCluster; ///< all of it is drawn in one piece
};

/// Goes through a line from its start. What was not asked for is not looked at, as far as 4096
/// units behind it.
///
/// Wide and fullwidth characters of East Asia and emoji, their sequences included, take two cells;
/// control characters one, marks none; a cluster of several letters at most two. Marks without a
/// base are drawn as if on a blank and take one. A cluster ends after 2048 units at the latest.
class ZT_EDITOR_EXPORT TZtCellReader {
public:
    /// `ALine` has to outlive the reader. A UTF-8 line is not accepted.
    TZtCellReader(QAnyStringView ALine, const TZtCellRules &ARules);
    /// The next neighbours, or false at the end of the line.
    bool Next(TZtCellSpan &ASpan);
    /// Where the line goes on: behind its end, once `Next` has answered false.
    qint64 Cell() const { return FCell; }

private:
    bool IsTab(int AColumn) const;
    int PlainRun() const;
    int Width(int AEnd) const;
    int EndOfCluster();

    const QAnyStringView FLine;
    const QStringView FUtf16; // empty for a Latin-1 line
    const TZtCellRules FRules;
    const int FLength;
    int FColumn = 0;
    int FStretchEnd = 0; // of the stretch that holds FColumn
    qint64 FCell = 0;
};

/// The cell (0-based) of the cluster at a column; each column behind the line's end is one more.
ZT_EDITOR_EXPORT int ZtCellOf(QAnyStringView ALine, int AColumn, const TZtCellRules &ARules);

/// The column where the cluster begins that covers a cell; each cell behind the line's end is one
/// more.
ZT_EDITOR_EXPORT int ZtColumnAt(QAnyStringView ALine, int ACell, const TZtCellRules &ARules);

/// Where the cluster ends that covers a column. Behind the line's end each column is one.
ZT_EDITOR_EXPORT int ZtNextCluster(QAnyStringView ALine, int AColumn, const TZtCellRules &ARules);

/// Where the cluster begins that covers the unit before a column; 0 at the start.
ZT_EDITOR_EXPORT int ZtPreviousCluster(QAnyStringView ALine, int AColumn,
                                       const TZtCellRules &ARules);

/// Calls `AEmit(start, length, cell, width)` for each cluster of a line.
template <typename TEmit>
void ZtForEachCluster(QAnyStringView ALine, const TZtCellRules &ARules, TEmit AEmit)
{
    TZtCellReader reader(ALine, ARules);
    for (TZtCellSpan span; reader.Next(span);) {
        if (span.IsCluster)
            AEmit(span.Start, span.Length, span.Cell, span.Width);
        for (int i = 0; !span.IsCluster && i < span.Length; ++i)
            AEmit(span.Start + i, 1, span.Cell + i, 1);
    }
}
