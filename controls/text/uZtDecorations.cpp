#include "uZtDecorations.h"

#include "uZtOverviewRows.h"

#include <algorithm>
#include <tuple>

namespace {

// A handle is a number that grows with each one added, above the index of its slot.
constexpr int SlotBits = 24;
constexpr quint32 SlotMask = (1u << SlotBits) - 1;

// What the tags of anchors say, so that a pass over them need not look anything up: whose it is,
// and what of it stands there.
enum class TRole : quint8 {
    roBegin,      // a range begins
    roEnd,        // it ends
    roBeginLines, // one of several lines begins
    roEndLines,
    roEmpty, // an empty one stands
};
constexpr int RoleBits = 3;

constexpr int TagOf(TZtDecorationOwner AOwner, TRole ARole)
{
    return AOwner << RoleBits | int(ARole);
}
TZtDecorationOwner OwnerOf(const TZtAnchors::TAnchor &AAnchor) { return AAnchor.Tag >> RoleBits; }
TRole RoleOf(const TZtAnchors::TAnchor &AAnchor)
{
    return TRole(AAnchor.Tag & ((1 << RoleBits) - 1));
}
bool IsEnd(const TZtAnchors::TAnchor &AAnchor)
{
    return RoleOf(AAnchor) == TRole::roEnd || RoleOf(AAnchor) == TRole::roEndLines;
}

bool IsBelow(const TZtPlacedDecoration &A, const TZtPlacedDecoration &B)
{
    return std::tuple(A.Layer, A.Handle) < std::tuple(B.Layer, B.Handle);
}

} // namespace

void TZtDecorationStyle::PutOver(const TZtDecorationStyle &AUpper)
{
    const auto put = [](auto &below, const auto &upper) {
        if (upper)
            below = upper;
    };
    if (AUpper.Underline) { // a line without a colour does not take that of another one
        Underline = AUpper.Underline;
        UnderlineColor = AUpper.UnderlineColor;
    }
    put(UnderlineColor, AUpper.UnderlineColor);
    put(Background, AUpper.Background);
    put(TextColor, AUpper.TextColor);
    put(Box, AUpper.Box);
    put(StrikeOut, AUpper.StrikeOut);
}

TZtDecorations::TZtDecorations(TStringList *AText) : FAnchors(AText), FListening(AText, this) {}

// --- what there is -------------------------------------------------------------------------------

const TZtDecorations::TSlot *TZtDecorations::Find(TZtDecorationHandle AHandle) const
{
    const size_t slot = AHandle & SlotMask;
    const bool there = AHandle != 0 && slot < FSlots.size() && FSlots[slot].Handle == AHandle;
    return there ? &FSlots[slot] : nullptr;
}

QPoint TZtDecorations::Inside(QPoint APlace) const
{
    const TStringList *text = FListening.GetText();
    if (!text || APlace.y() < 0)
        return {0, 0};
    if (APlace.y() >= text->GetCount())
        return text->GetEnd();
    APlace.setX(std::clamp(APlace.x(), 0, text->GetLength(APlace.y())));
    return APlace;
}

int TZtDecorations::AddAnchor(const QPoint &APlace, TZtAnchorSide ASide, int ATag, quint32 ASlot)
{
    const int anchor = FAnchors.Add(APlace, ASide, ATag);
    if (size_t(anchor) >= FSlotOf.size())
        FSlotOf.resize(size_t(anchor) + 1);
    FSlotOf[size_t(anchor)] = ASlot;
    return anchor;
}

TZtDecorationHandle TZtDecorations::Put(TZtDecorationOwner AOwner, const TZtDecoration &ADecoration)
{
    Q_ASSERT(0 <= AOwner && AOwner < 1 << (31 - RoleBits));
    auto index = quint32(FSlots.size());
    if (FFree.empty()) {
        Q_ASSERT(index < SlotMask);
        FSlots.emplace_back();
    } else {
        index = FFree.back();
        FFree.pop_back();
    }
    std::vector<quint32> &owned = FOwned[AOwner];
    TSlot &slot = FSlots[index];
    slot.Handle = ++FAdded << SlotBits | index;
    slot.Owner = AOwner;
    slot.OfOwner = owned.size();
    slot.Layer = ADecoration.Layer;
    slot.Style = ADecoration.Style;
    slot.ToolTip = ADecoration.ToolTip;
    owned.push_back(index);
    ++FAlive;
    const QPoint from = Inside(ADecoration.From), to = Inside(ADecoration.To);
    const bool empty = !ZtIsBefore(from, to);
    if (!empty)
        slot.From = AddAnchor(from, TZtAnchorSide::asBehind, TagOf(AOwner, TRole::roBegin), index);
    slot.To = AddAnchor(empty ? from : to, TZtAnchorSide::asBefore,
                        TagOf(AOwner, empty ? TRole::roEmpty : TRole::roEnd), index);
    ListMultiLine(slot);
    return slot.Handle;
}

void TZtDecorations::Free(quint32 ASlot)
{
    TSlot &slot = FSlots[ASlot];
    if (slot.From != NoAnchor)
        FAnchors.Remove(slot.From);
    FAnchors.Remove(slot.To);
    slot = {};
    FFree.push_back(ASlot);
    --FAlive;
}

TZtDecorationHandle TZtDecorations::Add(TZtDecorationOwner AOwner, const TZtDecoration &ADecoration)
{
    const TZtDecorationHandle handle = Put(AOwner, ADecoration);
    Prune();
    Tell();
    return handle;
}

void TZtDecorations::Remove(TZtDecorationHandle AHandle)
{
    const TSlot *slot = Find(AHandle);
    if (!slot)
        return;
    std::vector<quint32> &owned = FOwned[slot->Owner];
    owned[slot->OfOwner] = owned.back();
    FSlots[owned.back()].OfOwner = slot->OfOwner;
    owned.pop_back();
    if (owned.empty())
        FOwned.erase(slot->Owner);
    Free(quint32(AHandle & SlotMask));
    Tell();
}

void TZtDecorations::ReplaceOwner(TZtDecorationOwner AOwner,
                                  const std::vector<TZtDecoration> &ADecorations)
{
    const auto owned = FOwned.extract(AOwner);
    if (owned.empty() && ADecorations.empty())
        return;
    if (owned)
        for (const quint32 slot : owned.mapped())
            Free(slot);
    for (const TZtDecoration &decoration : ADecorations)
        Put(AOwner, decoration);
    Prune();
    Tell();
}

void TZtDecorations::SetStyle(TZtDecorationOwner AOwner, const TZtDecorationStyle &AStyle)
{
    const auto owned = FOwned.find(AOwner);
    if (owned == FOwned.end())
        return;
    for (const quint32 slot : owned->second)
        FSlots[slot].Style = AStyle;
    Tell();
}

int TZtDecorations::GetCount(TZtDecorationOwner AOwner) const
{
    const auto owned = FOwned.find(AOwner);
    return owned == FOwned.end() ? 0 : int(owned->second.size());
}

// --- where it stands -----------------------------------------------------------------------------

TZtPlacedDecoration TZtDecorations::Placed(const TSlot &ASlot) const
{
    const QPoint to = FAnchors.GetPlace(ASlot.To);
    const QPoint from = ASlot.From == NoAnchor ? to : FAnchors.GetPlace(ASlot.From);
    return {ASlot.Handle, from, to, ASlot.Owner, ASlot.Layer, &ASlot.Style, &ASlot.ToolTip};
}

std::optional<TZtPlacedDecoration> TZtDecorations::GetRange(TZtDecorationHandle AHandle) const
{
    const TSlot *slot = Find(AHandle);
    return slot ? std::optional(Placed(*slot)) : std::nullopt;
}

bool TZtDecorations::IsMultiLine(const TSlot &ASlot) const
{
    return ASlot.From != NoAnchor &&
           FAnchors.GetPlace(ASlot.From).y() < FAnchors.GetPlace(ASlot.To).y();
}

void TZtDecorations::ListMultiLine(TSlot &ASlot)
{
    if (ASlot.IsListed || !IsMultiLine(ASlot))
        return;
    FMultiLine.push_back(ASlot.Handle);
    SetListed(ASlot, true);
}

void TZtDecorations::SetListed(TSlot &ASlot, bool AListed)
{
    ASlot.IsListed = AListed;
    if (ASlot.From == NoAnchor)
        return;
    FAnchors.SetTag(ASlot.From, TagOf(ASlot.Owner, AListed ? TRole::roBeginLines : TRole::roBegin));
    FAnchors.SetTag(ASlot.To, TagOf(ASlot.Owner, AListed ? TRole::roEndLines : TRole::roEnd));
}

// Whether one that was of several lines is so still; else it is listed no more.
bool TZtDecorations::KeepsListed(TZtDecorationHandle AHandle)
{
    if (!Find(AHandle))
        return false;
    TSlot &slot = FSlots[AHandle & SlotMask];
    if (!IsMultiLine(slot))
        SetListed(slot, false);
    return slot.IsListed;
}

void TZtDecorations::Prune()
{
    if (FMultiLine.size() > 64 && FMultiLine.size() > 2 * size_t(FAlive))
        std::erase_if(FMultiLine, [this](auto handle) { return !KeepsListed(handle); });
}

std::vector<TZtPlacedDecoration> TZtDecorations::Touching(int AFirst, int ALast, bool AEmptyToo)
{
    const int last = std::min(ALast, FListening.GetLines());
    std::vector<TZtPlacedDecoration> found;
    std::erase_if(FMultiLine, [&](TZtDecorationHandle handle) {
        if (!KeepsListed(handle))
            return true;
        const TZtPlacedDecoration placed = Placed(FSlots[handle & SlotMask]);
        if (placed.From.y() <= last && ZtIsBefore({0, AFirst}, placed.To))
            found.push_back(placed);
        return false;
    });
    FAnchors.Visit({0, AFirst}, {0, last + 1}, [&](const TZtAnchors::TAnchor &anchor) {
        if (IsEnd(anchor) || (RoleOf(anchor) == TRole::roEmpty && !AEmptyToo))
            return;
        const TSlot &slot = FSlots[FSlotOf[size_t(anchor.Handle)]];
        if (!slot.IsListed)
            found.push_back(Placed(slot));
    });
    std::sort(found.begin(), found.end(), IsBelow);
    return found;
}

std::vector<TZtPlacedDecoration> TZtDecorations::GetAt(const QPoint &APlace)
{
    std::vector<TZtPlacedDecoration> found = GetInLines(APlace.y(), APlace.y());
    std::erase_if(found, [&](const TZtPlacedDecoration &placed) {
        return ZtIsBefore(APlace, placed.From) || !ZtIsBefore(APlace, placed.To);
    });
    std::reverse(found.begin(), found.end());
    return found;
}

std::optional<QPoint> TZtDecorations::Next(const QPoint &APlace, bool AForward)
{
    return FAnchors.Next(APlace, AForward,
                         [](const TZtAnchors::TAnchor &anchor) { return !IsEnd(anchor); });
}

void TZtDecorations::Survey(std::vector<quint32> &ARows, const TBitsOf &ABitsOf, bool AEmptyToo)
{
    TZtOverviewRows rows(ARows, FListening.GetLines());
    quint32 all = 0, bits = 0;
    for (const auto &[owner, owned] : FOwned)
        all |= ABitsOf(owner);
    const bool jumps = FMultiLine.empty(); // else each end has to be seen
    TZtDecorationOwner last = -1;
    FAnchors.VisitFrom([&](const TZtAnchors::TAnchor &anchor) {
        const TRole role = RoleOf(anchor);
        if (role == TRole::roEnd || (role == TRole::roEmpty && !AEmptyToo))
            return 0;
        if (last != OwnerOf(anchor))
            bits = ABitsOf(last = OwnerOf(anchor));
        if (role == TRole::roBeginLines)
            rows.Open(anchor.Place.y(), bits);
        else if (role == TRole::roEndLines)
            rows.Close(anchor.Place.y(), bits);
        else
            rows.Mark(anchor.Place.y(), bits);
        return jumps ? rows.GetNextLine(all) : 0;
    });
}

void TZtDecorations::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    if (AChange.RemovedEnd != AChange.Start)
        BecomeEmpty(AChange.Start);
    if (AChange.InsertedEnd.y() > AChange.Start.y())
        BecomeMultiLine(AChange.Start);
}

// What ended in text that was removed ends here now. What also began there has nothing left and
// needs its end alone, at which nothing is ever inserted into it.
void TZtDecorations::BecomeEmpty(const QPoint &APlace)
{
    std::vector<TSlot *> empty;
    FAnchors.Visit(APlace, APlace + QPoint(1, 0), [&](const TZtAnchors::TAnchor &anchor) {
        if (!IsEnd(anchor))
            return;
        TSlot &slot = FSlots[FSlotOf[size_t(anchor.Handle)]];
        if (!ZtIsBefore(FAnchors.GetPlace(slot.From), APlace))
            empty.push_back(&slot);
    });
    for (TSlot *slot : empty) {
        FAnchors.Remove(slot->From);
        FAnchors.SetTag(slot->To, TagOf(slot->Owner, TRole::roEmpty));
        slot->From = NoAnchor;
    }
}

// What a break was inserted into begins above it, and was of one line only if it began in the
// break's line.
void TZtDecorations::BecomeMultiLine(const QPoint &ABreak)
{
    FAnchors.Visit({0, ABreak.y()}, ABreak, [this](const TZtAnchors::TAnchor &anchor) {
        if (anchor.Side == TZtAnchorSide::asBehind)
            ListMultiLine(FSlots[FSlotOf[size_t(anchor.Handle)]]);
    });
}
