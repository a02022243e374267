#pragma once

#include "uZtGapBuffer.h"

/// Lines with a value each, in order, which move with a text. Inserting, removing and moving cost
/// what lies between this place and the one before.
class TZtLineItems {
public:
    qsizetype GetCount() const { return FItems.size(); } ///< how many there are
    /// The line of an item, 0-based.
    int GetLine(qsizetype AIndex) const
    {
        return FItems[AIndex].Line + (AIndex < FSplit ? 0 : FShift);
    }
    /// What it carries, for its owner.
    quint32 GetValue(qsizetype AIndex) const { return FItems[AIndex].Value; }
    /// Replaces that.
    void SetValue(qsizetype AIndex, quint32 AValue) { FItems[AIndex].Value = AValue; }

    /// The index of the first item that is not above a line.
    qsizetype Find(int ALine) const
    {
        qsizetype low = 0, high = GetCount();
        while (low < high) {
            const qsizetype middle = (low + high) / 2;
            if (GetLine(middle) < ALine)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }
    /// Calls `AVisit(line, value)` for all, in order.
    template <typename TVisit> void VisitAll(TVisit AVisit) const
    {
        const qsizetype count = GetCount(), split = FSplit;
        for (qsizetype i = 0; i < split; ++i)
            AVisit(FItems[i].Line, FItems[i].Value);
        for (qsizetype i = split; i < count; ++i)
            AVisit(FItems[i].Line + FShift, FItems[i].Value);
    }
    /// Puts an item before another one; the order is the caller's care.
    void Insert(qsizetype AIndex, int ALine, quint32 AValue)
    {
        MoveSplit(AIndex);
        FItems.insert(AIndex, {ALine, AValue});
        ++FSplit;
    }
    /// Takes items away; the lines of the others stay.
    void Remove(qsizetype AIndex, qsizetype ACount)
    {
        MoveSplit(AIndex);
        FItems.remove(AIndex, ACount);
    }
    /// Moves the items from `AIndex` on by as many lines.
    void Shift(qsizetype AIndex, int ALines)
    {
        if (ALines == 0)
            return;
        MoveSplit(AIndex);
        FShift += ALines;
    }
    /// Forgets all of them.
    void Clear()
    {
        FItems.clear();
        FSplit = 0;
        FShift = 0;
    }
    /// Exchanges the items with those of another one.
    void Swap(TZtLineItems &AOther)
    {
        FItems.swap(AOther.FItems);
        std::swap(FSplit, AOther.FSplit);
        std::swap(FShift, AOther.FShift);
    }

private:
    struct TItem {
        int Line;
        quint32 Value;
    };
    void MoveSplit(qsizetype ATo)
    {
        if (FShift == 0)
            FSplit = ATo;
        for (; FSplit < ATo; ++FSplit)
            FItems[FSplit].Line += FShift;
        for (; FSplit > ATo; --FSplit)
            FItems[FSplit - 1].Line -= FShift;
    }

    TZtGapBuffer<TItem> FItems;
    qsizetype FSplit = 0; // the items from here on stand FShift lines below what is stored
    int FShift = 0;
};
