#include "uZtAnchors.h"

#include <algorithm>
#include <tuple>

TZtAnchors::TZtAnchors(TStringList *AText) : FText(AText) { AText->AddListener(this); }

TZtAnchors::~TZtAnchors()
{
    if (FText)
        FText->RemoveListener(this);
}

int TZtAnchors::Add(const QPoint &APlace, TZtAnchorSide ASide)
{
    int handle = int(FIndexes.size());
    if (FFree.empty()) {
        FIndexes.push_back(0);
    } else {
        handle = FFree.back();
        FFree.pop_back();
    }
    FIndexes[size_t(handle)] = FItems.size();
    FItems.push_back({APlace - QPoint(0, FShift), ASide, handle});
    ++FCount;
    return handle;
}

void TZtAnchors::Remove(int AAnchor)
{
    FItems[FIndexes[size_t(AAnchor)]].Handle = -1;
    FFree.push_back(AAnchor);
    --FCount;
}

QPoint TZtAnchors::PlaceOf(size_t i) const
{
    return FItems[i].Place + QPoint(0, i < FSplit ? 0 : FShift);
}

QPoint TZtAnchors::GetPlace(int AAnchor) const { return PlaceOf(FIndexes[size_t(AAnchor)]); }

void TZtAnchors::Number(size_t AFrom, size_t ATo)
{
    for (size_t i = AFrom; i < ATo; ++i)
        if (FItems[i].Handle >= 0)
            FIndexes[size_t(FItems[i].Handle)] = i;
}

// Puts what was added since in its place, and removed items away where they are many.
void TZtAnchors::Sort()
{
    const bool many = FItems.size() > 64 && FItems.size() > 2 * size_t(FCount);
    if (FSorted == FItems.size() && !many)
        return;
    MoveSplit(FItems.size());
    FShift = 0;
    const auto before = [](const TItem &A, const TItem &B) {
        return std::tuple(A.Place.y(), A.Place.x(), A.Side) <
               std::tuple(B.Place.y(), B.Place.x(), B.Side);
    };
    const auto added = FItems.begin() + std::ptrdiff_t(FSorted);
    std::sort(added, FItems.end(), before);
    std::inplace_merge(FItems.begin(), added, FItems.end(), before);
    if (many)
        std::erase_if(FItems, [](const TItem &item) { return item.Handle < 0; });
    FSorted = FSplit = FItems.size();
    Number(0, FItems.size());
}

void TZtAnchors::MoveSplit(size_t ATo)
{
    for (; FSplit < ATo; ++FSplit)
        FItems[FSplit].Place.ry() += FShift;
    for (; FSplit > ATo; --FSplit)
        FItems[FSplit - 1].Place.ry() -= FShift;
}

size_t TZtAnchors::FirstNotBefore(const QPoint &APlace) const
{
    size_t low = 0, high = FSorted;
    while (low < high) {
        const size_t middle = (low + high) / 2;
        if (ZtIsBefore(PlaceOf(middle), APlace))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::vector<int> TZtAnchors::GetBetween(int AFirst, int ALast)
{
    Sort();
    std::vector<int> handles;
    const size_t end = FirstNotBefore({0, ALast + 1});
    for (size_t i = FirstNotBefore({0, AFirst}); i < end; ++i)
        if (FItems[i].Handle >= 0)
            handles.push_back(FItems[i].Handle);
    return handles;
}

void TZtAnchors::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    Sort();
    const size_t first = FirstNotBefore(AChange.Start);
    const size_t end = FirstNotBefore({0, AChange.RemovedEnd.y() + 1});
    MoveSplit(end);
    size_t inside = first; // behind the last one that stands in what was removed
    for (; inside < end && !ZtIsBefore(AChange.RemovedEnd, FItems[inside].Place); ++inside) {
    }
    for (size_t i = first; i < end; ++i)
        FItems[i].Place = AChange.Map(FItems[i].Place, FItems[i].Side);
    const auto at = [this](size_t i) { return FItems.begin() + std::ptrdiff_t(i); };
    std::stable_partition(at(first), at(inside),
                          [](const TItem &item) { return item.Side == TZtAnchorSide::asBefore; });
    Number(first, inside);
    FShift += AChange.InsertedEnd.y() - AChange.RemovedEnd.y();
}
