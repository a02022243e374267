#pragma once

#include "uZtAnchors.h"
#include "uZtExport.h"
#include "uZtListening.h"
#include "uZtTypes.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

/// The line below a text; `ulNone`: there is none.
enum class TZtUnderline : quint8 { ulNone, ulStraight, ulDotted, ulWavy };

/// How text is decorated. What is not set is left as it is below.
struct ZT_EDITOR_EXPORT TZtDecorationStyle {
    /// Without a colour of its own it has the text's; `ulNone` takes away one that lies below.
    std::optional<TZtUnderline> Underline = std::nullopt;
    /// Of the line below; the text's own where it is not set.
    std::optional<TColor> UnderlineColor = std::nullopt;
    std::optional<TColor> Background = std::nullopt; ///< behind the text
    std::optional<TColor> TextColor = std::nullopt;  ///< the text's own
    std::optional<TColor> Box = std::nullopt;        ///< a frame of one pixel
    std::optional<TColor> StrikeOut = std::nullopt;  ///< a line through the text

    /// Lays another style over this one: each attribute that is set there wins.
    void PutOver(const TZtDecorationStyle &AUpper);
    bool operator==(const TZtDecorationStyle &) const = default;
};

/// A decoration as a host adds it: what stands between two places, (column, line), 0-based, columns
/// in UTF-16 units. Places outside the text are put inside; a range that ends before it begins is
/// empty.
struct TZtDecoration {
    QPoint From;                   ///< where it begins
    QPoint To;                     ///< its end, not in it
    TZtDecorationStyle Style = {}; ///< how it looks
    int Layer = 0;                 ///< higher ones win, and later ones in a layer
    QString ToolTip = {};          ///< plain text
};

/// Names a decoration, and never another one. 0 names none.
using TZtDecorationHandle = quint64;
/// Who a decoration belongs to: a number from 0 to 2^28 - 1 that the host chooses.
using TZtDecorationOwner = int;

/// A decoration where it stands now. The pointers hold until one is added or removed.
struct TZtPlacedDecoration {
    TZtDecorationHandle Handle = 0;            ///< of `Add`
    QPoint From;                               ///< as it stands now
    QPoint To;                                 ///< the end, not in it
    TZtDecorationOwner Owner = 0;              ///< who added it
    int Layer = 0;                             ///< higher ones win
    const TZtDecorationStyle *Style = nullptr; ///< as it was added, or as `SetStyle` changed it
    const QString *ToolTip = nullptr;          ///< null or plain text

    bool IsEmpty() const { return From == To; } ///< a place without text, which is not drawn
};

/// Ranges of a text with a look of their own, which move with it.
///
/// A range takes in what is inserted within it, not what is inserted at its ends. One whose text
/// was all removed is empty: it stands for a place, is not drawn, and stays empty until it is
/// removed, whatever is inserted there; undo does not bring it back either. A change costs what the
/// ranges in its own lines do.
class ZT_EDITOR_EXPORT TZtDecorations final : public TZtTextListener {
public:
    /// The text may go before the decorations.
    explicit TZtDecorations(TStringList *AText);

    /// Told when what is marked is other than it was, not when it only moved with the text.
    std::function<void()> OnChange;

    /// Places outside the text are put inside. `OnChange` is told.
    TZtDecorationHandle Add(TZtDecorationOwner AOwner, const TZtDecoration &ADecoration);
    /// A handle of one that was removed is passed over.
    void Remove(TZtDecorationHandle AHandle);
    /// Tells `OnChange` once.
    void RemoveOwner(TZtDecorationOwner AOwner) { ReplaceOwner(AOwner, {}); }
    /// Removes all of an owner and adds others, told as one change.
    void ReplaceOwner(TZtDecorationOwner AOwner, const std::vector<TZtDecoration> &ADecorations);
    /// Gives all of an owner another look, for other colours.
    void SetStyle(TZtDecorationOwner AOwner, const TZtDecorationStyle &AStyle);

    int GetCount() const { return FAlive; }        ///< of all owners
    int GetCount(TZtDecorationOwner AOwner) const; ///< of one
    /// Nothing for one that was removed.
    std::optional<TZtPlacedDecoration> GetRange(TZtDecorationHandle AHandle) const;
    /// What is to be drawn in the lines from `AFirst` to `ALast`, the lowest first.
    std::vector<TZtPlacedDecoration> GetInLines(int AFirst, int ALast)
    {
        return Touching(AFirst, ALast, false);
    }
    /// `GetInLines`, and the empty ones there.
    std::vector<TZtPlacedDecoration> GetAllInLines(int AFirst, int ALast)
    {
        return Touching(AFirst, ALast, true);
    }
    /// What covers the character at a place, the topmost first.
    std::vector<TZtPlacedDecoration> GetAt(const QPoint &APlace);
    /// Where the next one behind a place begins, or the last one before it, also an empty one,
    /// going round at the text's ends: the place itself when there is no other. Nothing where
    /// there are none at all.
    std::optional<QPoint> Next(const QPoint &APlace, bool AForward);

    /// Which bits an owner's decorations set in an overview.
    using TBitsOf = std::function<quint32(TZtDecorationOwner AOwner)>;
    /// Sets bits in those of the rows, over which the text's lines are shared out evenly
    /// (`TZtOverviewRows`), in which decorations stand, from the line where one begins to the one
    /// where it ends; empty ones where wanted.
    void Survey(std::vector<quint32> &ARows, const TBitsOf &ABitsOf, bool AEmptyToo = false);

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    struct TSlot {
        TZtDecorationHandle Handle = 0; // 0 when it is free
        int From = NoAnchor;            // of one that is not empty
        int To = NoAnchor;
        TZtDecorationOwner Owner = 0;
        size_t OfOwner = 0;    // where it stands among its owner's
        bool IsListed = false; // among those of several lines
        int Layer = 0;
        TZtDecorationStyle Style;
        QString ToolTip;
    };
    static constexpr int NoAnchor = -1;

    const TSlot *Find(TZtDecorationHandle AHandle) const;
    bool IsMultiLine(const TSlot &ASlot) const;
    QPoint Inside(QPoint APlace) const;
    int AddAnchor(const QPoint &APlace, TZtAnchorSide ASide, int ATag, quint32 ASlot);
    TZtDecorationHandle Put(TZtDecorationOwner AOwner, const TZtDecoration &ADecoration);
    void Free(quint32 ASlot);
    void ListMultiLine(TSlot &ASlot);
    void SetListed(TSlot &ASlot, bool AListed);
    bool KeepsListed(TZtDecorationHandle AHandle);
    void Prune();
    TZtPlacedDecoration Placed(const TSlot &ASlot) const;
    std::vector<TZtPlacedDecoration> Touching(int AFirst, int ALast, bool AEmptyToo);
    void BecomeEmpty(const QPoint &APlace);
    void BecomeMultiLine(const QPoint &ABreak);
    void Tell()
    {
        if (OnChange)
            OnChange();
    }

    TZtAnchors FAnchors;
    std::vector<TSlot> FSlots;
    std::vector<quint32> FFree;
    std::vector<quint32> FSlotOf; // by anchor
    std::unordered_map<TZtDecorationOwner, std::vector<quint32>> FOwned;
    std::vector<TZtDecorationHandle> FMultiLine; // all of several lines, and some that were
    TZtDecorationHandle FAdded = 0;
    int FAlive = 0;
    TZtListening FListening; // behind the anchors
};
