#pragma once

#include "uZtExport.h"
#include "uZtListening.h"

#include <algorithm>
#include <optional>
#include <vector>

/// Positions that move with a text.
///
/// An anchor stands at a place until it is removed; a change before it moves it, and one around it
/// leaves it at an end of what came instead. A change costs what the anchors in its own lines do: a
/// hundred thousand elsewhere are not looked at, unless the change before was far away.
class ZT_EDITOR_EXPORT TZtAnchors final : public TZtTextListener {
public:
    /// An anchor as a visitor sees it.
    struct TAnchor {
        QPoint Place;       ///< (column, line), 0-based
        int Handle;         ///< that `Add` answered
        TZtAnchorSide Side; ///< where it goes when text is inserted right at it
        int Tag;            ///< what its owner says of it
    };

    /// The text may go before the anchors, which then stay where they are.
    explicit TZtAnchors(TStringList *AText) : FListening(AText, this) {}

    /// Answers a handle. `APlace` is (column, line), 0-based.
    int Add(const QPoint &APlace, TZtAnchorSide ASide, int ATag = 0);
    /// `AAnchor` is one that stands; another one may get its handle.
    void Remove(int AAnchor);
    /// Of one that stands: (column, line), 0-based.
    QPoint GetPlace(int AAnchor) const { return PlaceOf(FIndexes[size_t(AAnchor)]); }
    /// `TAnchor::Tag` of one that stands.
    void SetTag(int AAnchor, int ATag) { FItems[FIndexes[size_t(AAnchor)]].Tag = ATag; }
    int GetCount() const { return FCount; } ///< how many stand
    /// The handles of the anchors from line `AFirst` to line `ALast`, in the order of their places.
    std::vector<int> GetBetween(int AFirst, int ALast);

    /// Calls `AVisit(TAnchor)` for the anchors from a place on that stand before another one, in
    /// order; it neither adds nor removes any.
    template <typename TVisit>
    void Visit(const QPoint &AFrom, const QPoint &ATo, const TVisit &AVisit)
    {
        Sort();
        VisitItems(FirstNotBefore(AFrom), FirstNotBefore(ATo), AVisit);
    }
    /// `Visit` of all; `AVisit` answers the line above which others need not be visited.
    template <typename TVisit> void VisitFrom(const TVisit &AVisit)
    {
        Sort();
        for (size_t i = 0; i < FItems.size(); ++i) {
            const int line = FItems[i].Handle < 0 ? 0 : AVisit(AnchorOf(i));
            if (line > PlaceOf(i).y())
                i = std::max(i, FirstNotBefore({0, line}) - 1);
        }
    }
    /// Where the next anchor behind a place stands that `AIsOne(TAnchor)` answers true for, or the
    /// last one before it, going round at the ends. Null when there is none.
    template <typename TIsOne>
    std::optional<QPoint> Next(const QPoint &APlace, bool AForward, const TIsOne &AIsOne)
    {
        Sort();
        const size_t count = FItems.size();
        size_t i = FirstNotBefore(AForward ? APlace + QPoint(1, 0) : APlace);
        for (size_t seen = 0; seen < count; ++seen) {
            i = AForward ? (i == count ? 0 : i) : (i == 0 ? count : i) - 1;
            if (FItems[i].Handle >= 0 && AIsOne(AnchorOf(i)))
                return PlaceOf(i);
            i += AForward;
        }
        return std::nullopt;
    }

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    size_t FirstNotBefore(const QPoint &APlace) const
    {
        return FirstNotBefore(APlace, TZtAnchorSide::asBefore, FSorted);
    }
    size_t FirstNotBefore(const QPoint &APlace, TZtAnchorSide ASide, size_t AEnd) const;
    QPoint PlaceOf(size_t i) const { return FItems[i].Place + QPoint(0, i < FSplit ? 0 : FShift); }
    TAnchor AnchorOf(size_t i) const
    {
        TAnchor anchor = FItems[i];
        anchor.Place = PlaceOf(i);
        return anchor;
    }
    template <typename TVisit> void VisitItems(size_t AFrom, size_t ATo, const TVisit &AVisit) const
    {
        for (size_t i = AFrom; i < ATo; ++i)
            if (FItems[i].Handle >= 0)
                AVisit(AnchorOf(i));
    }
    void MoveSplit(size_t ATo);
    void Sort();
    void SortMany();
    void SortFew();
    void Number(size_t AFrom, size_t ATo);

    // In order, but for those that were added since the last change; the handle of a removed one
    // is -1.
    std::vector<TAnchor> FItems;
    size_t FSorted = 0;
    size_t FSplit = 0; // the items from here on stand FShift lines below what is stored
    int FShift = 0;
    std::vector<size_t> FIndexes; // of the items, by handle
    std::vector<int> FFree;       // handles
    int FCount = 0;
    TZtListening FListening;
};
