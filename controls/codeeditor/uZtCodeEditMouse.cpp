#include "uZtCodeEditOperate.h"

#include "uZtCaret.h"
#include "uZtEditExtras.h"
#include "uZtGuttorMouse.h"
#include "uZtTextDrag.h"
#include "uZtTripleClick.h"

#include <QContextMenuEvent>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

using enum TZtCorrection;

namespace {

constexpr int WheelNotch = 120; // in eighths of a degree

} // namespace

void TZtCodeEdit::MoveCaretTo(int X, int Y)
{
    if (IsCorrected(zcCaret) || IsCorrected(zcCells) || IsCorrected(zcTabs)) {
        const QPoint at = PlaceAt(X - RealGuttorWidth(), Y);
        return IsCorrected(zcCaret) ? MoveTo(at) : (SetCharPos(at.x()), SetLinePos(at.y()));
    }
    if (FCharWidth > 0)
        SetCharPos(FHScrollBar->GetPosition() + (X - RealGuttorWidth()) / FCharWidth);
    // Read after the column is set, which may have moved the caret and the view.
    if (FLineWidth > 0)
        SetLinePos(FVScrollBar->GetPosition() + int(Y / RowPitch()));
}

// The place in the text at a pixel right of the gutter's edge.
QPoint TZtCodeEdit::PlaceAt(int X, int Y) const
{
    const int cell = FHScrollBar->GetPosition() + (FCharWidth > 0 ? X / FCharWidth : 0);
    const int row = FLineWidth > 0 ? int(std::floor(Y / RowPitch())) : 0;
    int line = FVScrollBar->GetPosition() + row;
    if (IsCorrected(zcCaret))
        line = qBound(0, line, qMax(FLines->GetCount() - 1, 0));
    return {ColumnAt(line, cell), line};
}

QPoint TZtCodeEdit::GetPlaceAt(const QPoint &APixel) const
{
    const QPoint place = PlaceAt(APixel.x() - RealGuttorWidth(), APixel.y());
    const int y = qBound(0, place.y(), qMax(FLines->GetCount() - 1, 0));
    const int length = y < FLines->GetCount() ? FLines->GetLength(y) : 0;
    return {qBound(0, y == place.y() ? place.x() : ColumnAt(y, place.x()), length), y};
}

void TZtCodeEdit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    if (PressComposition(X, Y))
        return;
    Operate([&] { DoMouseDown(Button, Shift, X, Y); });
}

void TZtCodeEdit::DoMouseDown(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseDown(Button, Shift, X, Y);
    setFocus(Qt::MouseFocusReason);
    if (FGuttorMouse->Press(Button, X, Y)) {
        FTripleClick->Forget();
        return;
    }
    if (Button == TMouseButton::mbLeft) {
        const bool third = IsCorrected(zcWords) && FTripleClick->IsThird({X, Y});
        if (FTextDrag && !third && !Shift.testFlag(ssShift) && FTextDrag->Press({X, Y}))
            return;
        InMouseDown = true;
        inMouseMove = false;
        FInMouseSetSelection = false;
        MoveCaretTo(X, Y);
        FPressPlace = QPoint(FCharPos, FLinePos);
        if (third) {
            SelectLine(FLinePos);
            InMouseDown = false; // a hand that trembles selects nothing else
        }
    } else if (Button == TMouseButton::mbMiddle && FPrimary && X >= RealGuttorWidth()) {
        InsertPrimary({X, Y});
    } else if (Button == TMouseButton::mbRight) {
        CaretForMenu(X, Y);
        if (!FPopupMenu)
            return;
        FPopupMenu->setProperty("PopupComponent", QVariant::fromValue<QObject *>(this));
        FPopupMenu->popup(mapToGlobal(QPoint(X, Y) + ClientArea().topLeft()));
    }
}

void TZtCodeEdit::MouseMove(TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseMove(Shift, X, Y);
    FGuttorMouse->PointAt(X);
    if (FGuttorMouse->Drag(Y))
        return;
    if (const auto drag = FTextDrag; drag && drag->IsWaiting())
        return drag->Move({X, Y});
    if (!InMouseDown)
        return;
    if (IsCorrected(zcKeys) && !inMouseMove && PlaceAt(X - RealGuttorWidth(), Y) == FPressPlace)
        return; // the button has only just gone down
    const bool begins = !std::exchange(inMouseMove, true);
    Operate([&] {
        if (begins && IsCorrected(zcKeys) && !Shift.testFlag(ssShift))
            SetSelEnd(FPressPlace); // also where a word was selected meanwhile
        MoveCaretTo(X, Y);
        SetSelection(false);
    });
}

void TZtCodeEdit::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseUp(Button, Shift, X, Y);
    FGuttorMouse->Release();
    InMouseDown = false;
    inMouseMove = false;
    FInMouseSetSelection = false;
    if (Button != TMouseButton::mbLeft || !FTextDrag || !FTextDrag->IsWaiting())
        return;
    const QPoint pressed = FTextDrag->Release();
    Operate([&] {
        MoveCaretTo(pressed.x(), pressed.y());
        SetSelection(true);
    });
}

void TZtCodeEdit::WMMouseWheel(TZtMessage &Message)
{
    const auto delta = qint16(Message.WParam >> 16);
    const int position = FVScrollBar->GetPosition();
    FVScrollBar->SetPosition(delta > 0 ? position - FScollLines : position + FScollLines);
}

void TZtCodeEdit::wheelEvent(QWheelEvent *AEvent)
{
    AEvent->accept();
    if (HasExtra(TZtExtra::zeZoom) && AEvent->modifiers().testFlag(Qt::ControlModifier)) {
        ZoomWith(AEvent);
        return;
    }
    if (HasExtra(TZtExtra::zeFineWheel))
        return ScrollFinely(*AEvent);
    const int delta = AEvent->angleDelta().y();
    if ((delta > 0) != (FWheelRest > 0))
        FWheelRest = 0;
    // A touchpad or a fine wheel reports parts of a notch.
    for (FWheelRest += delta; std::abs(FWheelRest) >= WheelNotch;) {
        const int notch = FWheelRest > 0 ? WheelNotch : -WheelNotch;
        FWheelRest -= notch;
        TZtMessage message(quint32(TZtMsg::wmMouseWheel), quint64(quint16(qint16(notch))) << 16, 0);
        Guarded([&] { WMMouseWheel(message); });
    }
}

void TZtCodeEdit::contextMenuEvent(QContextMenuEvent *AEvent)
{
    // A host's menu was opened by `MouseDown`; what is left of it is the keyboard's menu key.
    if (AEvent->reason() == QContextMenuEvent::Keyboard)
        PopupMenuAtCaret();
    else if (!FPopupMenu)
        PopupMenuAt(AEvent->globalPos());
    AEvent->accept();
}

void TZtCodeEdit::CalcCursor(int &X, int &Y)
{
    const int g = HasColumns() ? RealGuttorWidth() : FGuttorWidth;
    X = FCharWidth < 1 ? -1 : FHScrollBar->GetPosition() + (X - g) / FCharWidth;
    Y = FLineWidth < 1 ? -1 : FVScrollBar->GetPosition() + int(Y / RowPitch());
    X = ColumnAt(Y, X);
}

void TZtCodeEdit::DblClick()
{
    FTripleClick->Doubles();
    TCustomControl::DblClick();
    FTripleClick->Doubled();
    ZtPostMessage(this, quint32(TZtMsg::wmUser) + 1);
}
