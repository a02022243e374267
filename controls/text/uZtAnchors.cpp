#include "uZtAnchors.h"

#include <algorithm>

namespace {

// So many new ones are cheaper put in one by one than merged with all.
constexpr size_t Few = 8;

bool IsRemoved(const TZtAnchors::TAnchor &AItem) { return AItem.Handle < 0; }

bool ComesBefore(const TZtAnchors::TAnchor &A, const TZtAnchors::TAnchor &B)
{
    return ZtIsBefore(A.Place, B.Place) || (A.Place == B.Place && A.Side < B.Side);
}

} // namespace

int TZtAnchors::Add(const QPoint &APlace, TZtAnchorSide ASide, int ATag)
{
    int handle = int(FIndexes.size());
    if (FFree.empty()) {
        FIndexes.push_back(0);
    } else {
        handle = FFree.back();
        FFree.pop_back();
    }
    FIndexes[size_t(handle)] = FItems.size();
    FItems.push_back({APlace - QPoint(0, FShift), handle, ASide, ATag});
    ++FCount;
    return handle;
}

void TZtAnchors::Remove(int AAnchor)
{
    FItems[FIndexes[size_t(AAnchor)]].Handle = -1;
    FFree.push_back(AAnchor);
    --FCount;
}

void TZtAnchors::Number(size_t AFrom, size_t ATo)
{
    for (size_t i = AFrom; i < ATo; ++i)
        if (!IsRemoved(FItems[i]))
            FIndexes[size_t(FItems[i].Handle)] = i;
}

// Puts what was added since in its place, and removed items away where they are many.
void TZtAnchors::Sort()
{
    const bool manyRemoved = FItems.size() > 64 && FItems.size() > 2 * size_t(FCount);
    if (manyRemoved || FItems.size() - FSorted > Few)
        SortMany();
    else if (FItems.size() > FSorted)
        SortFew();
}

void TZtAnchors::SortMany()
{
    MoveSplit(FItems.size());
    FShift = 0;
    const auto added = FItems.begin() + std::ptrdiff_t(FSorted);
    FItems.erase(std::remove_if(added, FItems.end(), IsRemoved), FItems.end());
    const auto sorted = std::remove_if(FItems.begin(), added, IsRemoved);
    FSorted = size_t(sorted - FItems.begin());
    FItems.erase(sorted, added);
    const auto middle = FItems.begin() + std::ptrdiff_t(FSorted);
    if (!std::is_sorted(middle, FItems.end(), ComesBefore))
        std::sort(middle, FItems.end(), ComesBefore);
    std::inplace_merge(FItems.begin(), middle, FItems.end(), ComesBefore);
    FSorted = FSplit = FItems.size();
    Number(0, FItems.size());
}

// Each item behind the first new one is moved once, from the last one on.
void TZtAnchors::SortFew()
{
    std::vector<TAnchor> added;
    for (size_t i = FSorted; i < FItems.size(); ++i)
        added.push_back(AnchorOf(i));
    std::sort(added.begin(), added.end(), ComesBefore);
    const auto at = [this](size_t i) { return FItems.begin() + std::ptrdiff_t(i); };
    size_t end = FSorted, split = FSplit;
    for (size_t more = added.size(); more > 0; --more) {
        TAnchor item = added[more - 1];
        const size_t i = FirstNotBefore(item.Place, item.Side, end);
        std::move_backward(at(i), at(end), at(end + more));
        if (i < FSplit)
            ++split;
        else
            item.Place.ry() -= FShift;
        FItems[i + more - 1] = item;
        end = i;
    }
    FSplit = split;
    FSorted = FItems.size();
    Number(end, FSorted);
}

void TZtAnchors::MoveSplit(size_t ATo)
{
    if (FShift == 0)
        FSplit = ATo;
    for (; FSplit < ATo; ++FSplit)
        FItems[FSplit].Place.ry() += FShift;
    for (; FSplit > ATo; --FSplit)
        FItems[FSplit - 1].Place.ry() -= FShift;
}

// Among the first `AEnd` items.
size_t TZtAnchors::FirstNotBefore(const QPoint &APlace, TZtAnchorSide ASide, size_t AEnd) const
{
    const TAnchor wanted{APlace, 0, ASide, 0};
    size_t low = 0, high = AEnd;
    while (low < high) {
        const size_t middle = (low + high) / 2;
        if (ComesBefore(AnchorOf(middle), wanted))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::vector<int> TZtAnchors::GetBetween(int AFirst, int ALast)
{
    std::vector<int> handles;
    Visit({0, AFirst}, {0, ALast + 1},
          [&](const TAnchor &anchor) { handles.push_back(anchor.Handle); });
    return handles;
}

void TZtAnchors::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    Sort();
    const size_t first = FirstNotBefore(AChange.Start);
    const size_t end = FirstNotBefore({0, AChange.RemovedEnd.y() + 1});
    const int lines = AChange.InsertedEnd.y() - AChange.RemovedEnd.y();
    if (first == end && lines == 0)
        return;
    MoveSplit(end);
    size_t inside = first; // behind the last one that stands in what was removed
    for (; inside < end && !ZtIsBefore(AChange.RemovedEnd, FItems[inside].Place); ++inside) {
    }
    for (size_t i = first; i < end; ++i)
        FItems[i].Place = AChange.Map(FItems[i].Place, FItems[i].Side);
    const auto at = [this](size_t i) { return FItems.begin() + std::ptrdiff_t(i); };
    std::stable_partition(at(first), at(inside),
                          [](const TAnchor &item) { return item.Side == TZtAnchorSide::asBefore; });
    Number(first, inside);
    FShift += lines;
}
