// What Qt's own text widgets offer too: signals of the state, slots, and the menu of commands.

#include "uZtCodeEditOperate.h"

#include "uZtCaret.h"
#include "uZtEditActions.h"
#include "uZtEditState.h"
#include "uZtEditedText.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

using enum TZtExtra;

namespace {

constexpr quint32 MsgSearchDialog = quint32(TZtMsg::wmUser) + 2;
constexpr quint32 MsgSearchAgain = quint32(TZtMsg::wmUser) + 3;
constexpr quint32 MsgRedo = quint32(TZtMsg::wmUser) + 4;

using TValue = TZtEditState::TValue;
using TRow = TZtEditState::TRow;

// A signal that says the value.
template <typename T> TRow Row(void (TZtCodeEdit::*ASignal)(T), T (*ARead)(const TZtCodeEdit &))
{
    return {QMetaMethod::fromSignal(ASignal),
            [ARead](const TZtCodeEdit &edit) { return TValue(ARead(edit)); },
            [ASignal](TZtCodeEdit &edit, const TValue &value) {
                Q_EMIT(edit.*ASignal)(std::get<T>(value));
            }};
}

// One that only says that it is another one.
TRow Row(void (TZtCodeEdit::*ASignal)(), TValue (*ARead)(const TZtCodeEdit &))
{
    return {QMetaMethod::fromSignal(ASignal), ARead, [ASignal](TZtCodeEdit &edit, const TValue &) {
                Q_EMIT(edit.*ASignal)();
            }};
}

TZtEditState::TSelection SelectionOf(const TZtCodeEdit &AEdit)
{
    const QPoint start = AEdit.GetSelStart();
    const QPoint end = AEdit.GetSelEnd();
    if (start.x() == -1 || end.x() == -1 || start == end)
        return {};
    return {start, end};
}

const std::vector<TRow> &Rows()
{
    using TEdit = TZtCodeEdit;
    static const std::vector<TRow> rows = {
        // clang-format off
        Row(&TEdit::readOnlyChanged, +[](const TEdit &e) { return e.GetReadOnly(); }),
        Row(&TEdit::optionsChanged, +[](const TEdit &e) { return e.GetOptions(); }),
        Row(&TEdit::correctionsChanged, +[](const TEdit &e) { return e.GetCorrections(); }),
        Row(&TEdit::extrasChanged, +[](const TEdit &e) { return e.GetExtras(); }),
        Row(&TEdit::zoomChanged, +[](const TEdit &e) { return e.GetZoom(); }),
        Row(&TEdit::schemeChanged, +[](const TEdit &e) { return TValue(e.GetScheme()); }),
        Row(&TEdit::undoAvailable, +[](const TEdit &e) { return e.GetCanUndo(); }),
        Row(&TEdit::redoAvailable, +[](const TEdit &e) { return e.GetCanRedo(); }),
        Row(&TEdit::modificationChanged, +[](const TEdit &e) { return e.GetModified(); }),
        Row(&TEdit::selectionChanged, +[](const TEdit &e) { return TValue(SelectionOf(e)); }),
        Row(&TEdit::copyAvailable,
            +[](const TEdit &e) { return SelectionOf(e) != TZtEditState::TSelection(); }),
        // clang-format on
    };
    return rows;
}

} // namespace

// --- signals -------------------------------------------------------------------------------------

void TZtCodeEdit::MakeState() { FState = std::make_unique<TZtEditState>(*this, Rows()); }

// Runs something at whose end the signals tell what is other.
void TZtCodeEdit::Watched(const std::function<void()> &AStep)
{
    if (!IsWatched())
        return AStep();
    const THold hold(*this);
    TZtFirstException raised;
    raised.Run([&] {
        const QScopedValueRollback inside(FInside, true);
        AStep();
    });
    raised.Run([this] { StateChanged(); });
    raised.Raise();
}

bool TZtCodeEdit::IsWatched() const { return !FInside && FState->IsWatching(); }

void TZtCodeEdit::StateChanged()
{
    if (!IsWatched())
        return;
    for (const TZtCodeEdit *editor : FText->Editors)
        if (editor->FOperations > 0)
            return; // at whose end they are told
    Tell([this] { FState->Tell(); });
}

void TZtCodeEdit::connectNotify(const QMetaMethod &ASignal)
{
    TCustomControl::connectNotify(ASignal);
    FState->Watch(ASignal);
}

// --- slots ---------------------------------------------------------------------------------------

// Behind what was posted before, and as an event, whose handler may raise.
void TZtCodeEdit::Send(quint32 AMsg, quint64 AWParam)
{
    const THold hold(*this);
    QCoreApplication::sendPostedEvents(this, TZtMessage::EventType());
    if (!IsAbandoned())
        ZtSendMessage(this, AMsg, AWParam, 0);
}

void TZtCodeEdit::undo() { Send(quint32(TZtMsg::wmUndo)); }

void TZtCodeEdit::redo() { Send(MsgRedo); }

void TZtCodeEdit::cut() { Send(quint32(TZtMsg::wmCut)); }

void TZtCodeEdit::copy() { Send(quint32(TZtMsg::wmCopy)); }

void TZtCodeEdit::paste() { Send(quint32(TZtMsg::wmPaste)); }

void TZtCodeEdit::find() { ZtPostMessage(this, MsgSearchDialog, 0); }

void TZtCodeEdit::replace() { ZtPostMessage(this, MsgSearchDialog, 1); }

void TZtCodeEdit::findNext() { Send(MsgSearchAgain, quint64(TZtSearchAgain::saForward)); }

void TZtCodeEdit::findPrevious() { Send(MsgSearchAgain, quint64(TZtSearchAgain::saBackward)); }

void TZtCodeEdit::selectAll()
{
    Guarded([this] { Operate([this] { SelectAll(); }); });
}

void TZtCodeEdit::deleteSelection()
{
    Guarded([this] {
        if (SelectionGiven())
            Erase(TZtChangeType::ctDelete, nullptr);
    });
}

void TZtCodeEdit::clear()
{
    Guarded([this] {
        SetText(QString());
        ClearUndo();
    });
}

// --- the menu ------------------------------------------------------------------------------------

QMenu *TZtCodeEdit::createStandardContextMenu()
{
    using enum TZtEditAction;
    auto *menu = new QMenu(this);
    const auto *actions = new TZtEditActions(this, menu);
    for (const auto &[first, last] : {std::pair(eaUndo, eaRedo), std::pair(eaCut, eaDelete),
                                      std::pair(eaSelectAll, eaSelectAll)}) {
        if (first != eaUndo)
            menu->addSeparator();
        menu->addActions(actions->GetActions(first, last));
    }
    return menu;
}

// At a place on the screen; nothing without the extra.
void TZtCodeEdit::PopupMenuAt(const QPoint &APlace)
{
    if (!HasExtra(zeContextMenu))
        return;
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(APlace);
}

// The host's menu, or the standard one. Answers whether there is one.
bool TZtCodeEdit::PopupMenuAtCaret()
{
    const QPoint place = mapToGlobal(FCaret->Rect().bottomLeft() + ClientArea().topLeft());
    if (FPopupMenu)
        FPopupMenu->popup(place);
    else
        PopupMenuAt(place);
    return FPopupMenu || HasExtra(zeContextMenu);
}

// A press outside the selection is about the place where it was.
void TZtCodeEdit::CaretForMenu(int X, int Y)
{
    if (!HasExtra(zeContextMenu))
        return;
    const QPoint at = PlaceAt(X - RealGuttorWidth(), Y);
    const bool reversed = SelectionReversed();
    const QPoint start = reversed ? FSelEnd : FSelStart;
    const QPoint end = reversed ? FSelStart : FSelEnd;
    if (SelectionGiven() && !ZtIsBefore(at, start) && !ZtIsBefore(end, at))
        return;
    MoveCaretTo(X, Y);
    SetSelection(true);
}
