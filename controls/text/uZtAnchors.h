#pragma once

#include "uZtStringList.h"

#include <QPointer>

/// Positions that move with a text.
///
/// An anchor stands at a place until it is removed; a change before it moves it, and one around it
/// leaves it at an end of what came instead. A change costs what the anchors in its own lines do: a
/// hundred thousand elsewhere are not looked at, unless the change before was far away.
class TZtAnchors final : public TZtTextListener {
public:
    /// The text may go before the anchors, which then stay where they are.
    explicit TZtAnchors(TStringList *AText);
    ~TZtAnchors();
    TZtAnchors(const TZtAnchors &) = delete;
    TZtAnchors &operator=(const TZtAnchors &) = delete;

    /// Answers a handle. `APlace` is (column, line), 0-based.
    int Add(const QPoint &APlace, TZtAnchorSide ASide);
    void Remove(int AAnchor);
    QPoint GetPlace(int AAnchor) const;
    int GetCount() const { return FCount; }
    /// The handles of the anchors from line `AFirst` to line `ALast`, in the order of their places.
    std::vector<int> GetBetween(int AFirst, int ALast);

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    struct TItem {
        QPoint Place;
        TZtAnchorSide Side;
        int Handle; // -1 when it was removed
    };
    size_t FirstNotBefore(const QPoint &APlace) const;
    QPoint PlaceOf(size_t i) const;
    void MoveSplit(size_t ATo);
    void Sort();
    void Number(size_t AFrom, size_t ATo);

    QPointer<TStringList> FText;
    std::vector<TItem> FItems; // in order, but for those that were added since the last change
    size_t FSorted = 0;
    size_t FSplit = 0; // the items from here on stand FShift lines below what is stored
    int FShift = 0;
    std::vector<size_t> FIndexes; // of the items, by handle
    std::vector<int> FFree;       // handles
    int FCount = 0;
};
