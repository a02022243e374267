#pragma once

#include <QtGlobal>

#include <algorithm>
#include <vector>

/// The lines of a text shared out evenly over the rows of an overview: line l of n lies in row
/// l * rows / n. Bits are set in the rows of lines; they come fastest in the order of the lines.
class TZtOverviewRows {
public:
    /// `ALines` is 1 or more. What is in the rows stays.
    TZtOverviewRows(std::vector<quint32> &ARows, int ALines) : FRows(ARows), FLines(ALines) {}

    /// A line below the last one is the last one.
    void Mark(int ALine, quint32 ABits)
    {
        if (FRows.empty())
            return;
        FRows[Row(ALine)] |= ABits;
    }
    void Mark(int AFirst, int ALast, quint32 ABits)
    {
        if (FRows.empty() || ALast < AFirst)
            return;
        const size_t first = Row(AFirst), last = Row(ALast);
        for (size_t row = first; row <= last; ++row)
            FRows[row] |= ABits;
    }

private:
    // Divides only where a line is not in the row of the one before.
    size_t Row(int ALine)
    {
        if (ALine < FFirst || ALine >= FEnd) {
            const qint64 rows = qint64(FRows.size());
            const qint64 row = std::clamp<qint64>(ALine, 0, FLines - 1) * rows / FLines;
            FRow = size_t(row);
            FFirst = (row * FLines + rows - 1) / rows;
            FEnd = ((row + 1) * FLines + rows - 1) / rows;
        }
        return FRow;
    }

    std::vector<quint32> &FRows;
    const qint64 FLines;
    size_t FRow = 0;
    qint64 FFirst = 0, FEnd = 0; // the lines of that row
};
