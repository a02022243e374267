#include "uZtCodeEdit.h"

#include <QContextMenuEvent>
#include <QWheelEvent>

#include <cstdlib>

namespace {

constexpr int WheelNotch = 120; // in eighths of a degree

} // namespace

void TZtCodeEdit::MoveCaretTo(int X, int Y)
{
    if (FCharWidth > 0)
        SetCharPos(FHScrollBar->GetPosition() + (X - RealGuttorWidth()) / FCharWidth);
    // Read after the column is set, which may have moved the caret and the view.
    if (FLineWidth > 0)
        SetLinePos(FVScrollBar->GetPosition() + Y / FLineWidth);
}

void TZtCodeEdit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseDown(Button, Shift, X, Y);
    setFocus(Qt::MouseFocusReason);
    if (Button == TMouseButton::mbLeft) {
        InMouseDown = true;
        inMouseMove = false;
        FInMouseSetSelection = false;
        MoveCaretTo(X, Y);
    } else if (Button == TMouseButton::mbRight && FPopupMenu) {
        FPopupMenu->setProperty("PopupComponent", QVariant::fromValue<QObject *>(this));
        FPopupMenu->popup(mapToGlobal(QPoint(X, Y) + ClientArea().topLeft()));
    }
}

void TZtCodeEdit::MouseMove(TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseMove(Shift, X, Y);
    if (!InMouseDown)
        return;
    inMouseMove = true;
    MoveCaretTo(X, Y);
    SetSelection(false);
}

void TZtCodeEdit::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    TCustomControl::MouseUp(Button, Shift, X, Y);
    InMouseDown = false;
    inMouseMove = false;
    FInMouseSetSelection = false;
}

void TZtCodeEdit::WMMouseWheel(TZtMessage &Message)
{
    const auto delta = qint16(Message.WParam >> 16);
    const int position = FVScrollBar->GetPosition();
    FVScrollBar->SetPosition(delta > 0 ? position - FScollLines : position + FScollLines);
}

void TZtCodeEdit::wheelEvent(QWheelEvent *AEvent)
{
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
    AEvent->accept();
}

void TZtCodeEdit::contextMenuEvent(QContextMenuEvent *AEvent)
{
    // The mouse's own menu is opened by `MouseDown`; what is left is the keyboard's menu key.
    if (AEvent->reason() == QContextMenuEvent::Keyboard && FPopupMenu)
        FPopupMenu->popup(mapToGlobal(FCaret->Rect().bottomLeft() + ClientArea().topLeft()));
    AEvent->accept();
}

void TZtCodeEdit::CalcCursor(int &X, int &Y)
{
    X = FCharWidth < 1 ? -1 : FHScrollBar->GetPosition() + (X - FGuttorWidth) / FCharWidth;
    Y = FLineWidth < 1 ? -1 : FVScrollBar->GetPosition() + Y / FLineWidth;
}

void TZtCodeEdit::DblClick()
{
    TCustomControl::DblClick();
    ZtPostMessage(this, quint32(TZtMsg::wmUser) + 1);
}
