#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

/// A sequence whose free space lies where it was changed last: reading is constant-time, and so is
/// inserting or removing next to the last change. Indexes are 0-based and not checked.
template <typename T> class TZtGapBuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    TZtGapBuffer() = default;
    TZtGapBuffer(const TZtGapBuffer &) = delete;
    TZtGapBuffer &operator=(const TZtGapBuffer &) = delete;
    ~TZtGapBuffer() { std::free(FItems); }

    /// How many items there are.
    qsizetype size() const { return FCapacity - (FGapEnd - FGapStart); }
    /// An item; the index is not checked.
    T &operator[](qsizetype i) { return FItems[i < FGapStart ? i : i + FGapEnd - FGapStart]; }
    /// The same of one that is not changed.
    const T &operator[](qsizetype i) const { return const_cast<TZtGapBuffer &>(*this)[i]; }

    /// Makes room for as many more items, so that inserting them does not raise.
    void reserveMore(qsizetype count)
    {
        if (FGapEnd - FGapStart >= count)
            return;
        MoveGap(size()); // growing is cheapest there
        Grow(FCapacity + std::max(FCapacity / 4 + 64, count));
    }
    /// Room for one more, so that inserting it does not raise.
    void reserveOne()
    {
        if (FGapStart == FGapEnd)
            Grow(FCapacity + FCapacity / 4 + 64);
    }
    /// Inserts before `i`, which may be the count. Raises `std::bad_alloc` without memory.
    void insert(qsizetype i, const T &item)
    {
        reserveOne();
        MoveGap(i);
        FItems[FGapStart++] = item;
    }
    void append(const T &item) { insert(size(), item); } ///< at the end
    /// Inserts the items `from`, as many as `count`, of another buffer.
    void insert(qsizetype i, const TZtGapBuffer &other, qsizetype from, qsizetype count)
    {
        if (count == 0)
            return;
        reserveMore(count);
        MoveGap(i);
        for (; count > 0; FGapStart += other.copyRun(from, count, FItems + FGapStart)) {
        }
    }
    /// Removes items from `i` on; the memory stays.
    void remove(qsizetype i, qsizetype count = 1)
    {
        if (count == 0)
            return; // the gap stays where it is
        MoveGap(i);
        FGapEnd += count;
    }
    /// Removes everything and gives the memory back.
    void clear()
    {
        std::free(FItems);
        FItems = nullptr;
        FCapacity = FGapStart = FGapEnd = 0;
    }
    /// Exchanges the items with those of another buffer.
    void swap(TZtGapBuffer &other)
    {
        std::swap(FItems, other.FItems);
        std::swap(FCapacity, other.FCapacity);
        std::swap(FGapStart, other.FGapStart);
        std::swap(FGapEnd, other.FGapEnd);
    }

private:
    // Copies the items that lie together from `from` on, at most `count`; moves both past them.
    qsizetype copyRun(qsizetype &from, qsizetype &count, T *to) const
    {
        const qsizetype run = std::min(count, from < FGapStart ? FGapStart - from : count);
        std::memcpy(to, &(*this)[from], size_t(run) * sizeof(T));
        from += run;
        count -= run;
        return run;
    }
    void MoveGap(qsizetype i)
    {
        if (i < FGapStart)
            std::memmove(FItems + FGapEnd - (FGapStart - i), FItems + i,
                         size_t(FGapStart - i) * sizeof(T));
        else if (i > FGapStart)
            std::memmove(FItems + FGapStart, FItems + FGapEnd, size_t(i - FGapStart) * sizeof(T));
        FGapEnd += i - FGapStart;
        FGapStart = i;
    }
    void Grow(qsizetype capacity)
    {
        // The gap is empty or at the end here, so that it may be put there, where growing is
        // cheapest.
        auto *items = static_cast<T *>(std::realloc(FItems, size_t(capacity) * sizeof(T)));
        if (!items)
            throw std::bad_alloc();
        FItems = items;
        FGapStart = FGapStart == FGapEnd ? FCapacity : FGapStart;
        FGapEnd = FCapacity = capacity;
    }

    T *FItems = nullptr;
    qsizetype FCapacity = 0;
    qsizetype FGapStart = 0;
    qsizetype FGapEnd = 0;
};
