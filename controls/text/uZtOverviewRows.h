#pragma once

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

/// The lines of a text shared out evenly over the rows of an overview: line l of n lies in row
/// l * rows / n, and a run of lines takes the rows between as well. Bits are set in the rows of
/// lines, which come fastest in their order.
class TZtOverviewRows {
public:
    /// `ALines` is 1 or more. What is in the rows stays.
    TZtOverviewRows(std::vector<quint32> &ARows, int ALines) : FRows(ARows), FLines(ALines) {}

    /// A line below the last one is the last one.
    void Mark(int ALine, quint32 ABits) { Mark(ALine, ALine, ABits); }
    void Mark(int AFirst, int ALast, quint32 ABits)
    {
        if (FFirst <= AFirst && AFirst <= ALast && ALast < FEnd) {
            FRows[FRow] |= ABits;
            return;
        }
        if (FRows.empty() || ALast < AFirst)
            return;
        for (size_t row = Row(AFirst), last = Row(ALast); row <= last; ++row)
            FRows[row] |= ABits;
    }
    /// The line from which on marks can add something, where no others than `AAll` are set: behind
    /// the row marked last when that has them all.
    int GetNextLine(quint32 AAll) const
    {
        return FRows.empty() || (FRows[FRow] & AAll) != AAll ? 0 : int(std::min(FEnd, FLines));
    }
    /// `Mark` of lines that overlap others: `Open` with the first of them, `Close` with the last
    /// one, all in the order of their lines.
    void Open(int ALine, quint32 ABits)
    {
        if (FRows.empty())
            return;
        Reach(Row(ALine));
        ForEachBit(ABits, [this](int bit) { ++FOpenOf[size_t(bit)]; });
        FOpen |= ABits;
        FRows[FReached] |= ABits;
    }
    void Close(int ALine, quint32 ABits)
    {
        if (FRows.empty())
            return;
        Reach(Row(ALine));
        ForEachBit(ABits, [this](int bit) {
            if (--FOpenOf[size_t(bit)] == 0)
                FOpen &= ~(1u << bit);
        });
    }

private:
    template <typename TVisit> static void ForEachBit(quint32 ABits, TVisit AVisit)
    {
        for (; ABits != 0; ABits &= ABits - 1)
            AVisit(std::countr_zero(ABits));
    }
    void Reach(size_t ARow)
    {
        while (FReached < ARow)
            FRows[++FReached] |= FOpen;
    }
    // Divides only where a line is not in the row of the one before.
    size_t Row(int ALine)
    {
        const qint64 line = std::clamp<qint64>(ALine, 0, FLines - 1);
        if (line < FFirst || line >= FEnd) {
            const qint64 rows = qint64(FRows.size());
            const qint64 row = line * rows / FLines;
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
    size_t FReached = 0;
    quint32 FOpen = 0;
    std::array<int, 32> FOpenOf{}; // how many, by bit
};
