#include "uZtCustomControl.h"

#include "uZtPlatform.h"
#include "uZtSystemColors.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <optional>

TCustomControl::TCustomControl(QWidget *AOwner) : QWidget(AOwner)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    WatchParent();
}

TCustomControl::~TCustomControl() = default;

// --- published properties ------------------------------------------------------------------------

void TCustomControl::BevelChanged()
{
    LayoutChanged();
    update();
}

void TCustomControl::SetBevelEdges(TBevelEdges Value)
{
    FBevelEdges = Value;
    BevelChanged();
}

void TCustomControl::SetBevelInner(TBevelCut Value)
{
    FBevelInner = Value;
    BevelChanged();
}

void TCustomControl::SetBevelOuter(TBevelCut Value)
{
    FBevelOuter = Value;
    BevelChanged();
}

void TCustomControl::SetBevelKind(TBevelKind Value)
{
    FBevelKind = Value;
    BevelChanged();
}

void TCustomControl::SetBevelWidth(int Value)
{
    FBevelWidth = Value;
    BevelChanged();
}

void TCustomControl::SetCtl3D(bool Value)
{
    FCtl3D = Value;
    update();
}

int TCustomControl::EdgeWidth(TBevelEdge AEdge) const
{
    if (!FBevelEdges.testFlag(AEdge))
        return 0;
    const int cuts = (FBevelOuter != TBevelCut::bvNone) + (FBevelInner != TBevelCut::bvNone);
    return cuts * std::max(FBevelWidth, 0);
}

QRect TCustomControl::ClientArea() const
{
    if (FBevelKind == TBevelKind::bkNone)
        return rect();
    return rect().adjusted(EdgeWidth(TBevelEdge::beLeft), EdgeWidth(TBevelEdge::beTop),
                           -EdgeWidth(TBevelEdge::beRight), -EdgeWidth(TBevelEdge::beBottom));
}

void TCustomControl::PaintBevels(QPainter &APainter) const
{
    if (FBevelKind == TBevelKind::bkNone)
        return;
    QRect r = rect();
    for (const TBevelCut cut : {FBevelOuter, FBevelInner}) {
        if (cut == TBevelCut::bvNone)
            continue;
        TColor topLeft = clBtnFace;
        TColor bottomRight = clBtnFace;
        if (FBevelKind == TBevelKind::bkFlat && cut != TBevelCut::bvSpace) {
            topLeft = bottomRight = clBtnShadow;
        } else if (cut != TBevelCut::bvSpace) {
            const bool lowered = cut == TBevelCut::bvLowered;
            topLeft = lowered ? clBtnShadow : clBtnHighlight;
            bottomRight = lowered ? clBtnHighlight : clBtnShadow;
        }
        for (int i = 0; i < FBevelWidth; ++i) {
            APainter.setPen(ZtToQColor(topLeft, palette()));
            if (FBevelEdges.testFlag(TBevelEdge::beTop))
                APainter.drawLine(r.topLeft(), r.topRight());
            if (FBevelEdges.testFlag(TBevelEdge::beLeft))
                APainter.drawLine(r.topLeft(), r.bottomLeft());
            APainter.setPen(ZtToQColor(bottomRight, palette()));
            if (FBevelEdges.testFlag(TBevelEdge::beBottom))
                APainter.drawLine(r.bottomLeft(), r.bottomRight());
            if (FBevelEdges.testFlag(TBevelEdge::beRight))
                APainter.drawLine(r.topRight(), r.bottomRight());
            r.adjust(FBevelEdges.testFlag(TBevelEdge::beLeft),
                     FBevelEdges.testFlag(TBevelEdge::beTop),
                     -int(FBevelEdges.testFlag(TBevelEdge::beRight)),
                     -int(FBevelEdges.testFlag(TBevelEdge::beBottom)));
        }
    }
}

// --- component and geometry ----------------------------------------------------------------------

void TCustomControl::Notification(QObject *, TOperation) {}

void TCustomControl::FreeNotification(QObject *AComponent)
{
    if (AComponent)
        connect(AComponent, &QObject::destroyed, &FNotices, &TNotices::Removed,
                Qt::ConnectionType(Qt::DirectConnection | Qt::UniqueConnection));
}

// The parent may be going right now, and takes along all that it has.
void TCustomControl::Abandoned()
{
    blockSignals(true);
    if (parent() && !parent()->children().contains(this))
        setParent(nullptr);
    else if (!FPainting)
        hide();
}

void TCustomControl::SetParent(QWidget *AParent) { setParent(AParent); }

void TCustomControl::SetBounds(int ALeft, int ATop, int AWidth, int AHeight)
{
    setGeometry(ALeft, ATop, AWidth, AHeight);
}

void TCustomControl::SetAlign(TAlign Value)
{
    FAlign = Value;
    if (parentWidget())
        AlignControls(parentWidget());
}

void TCustomControl::WatchParent()
{
    if (FWatchedParent == parentWidget())
        return;
    if (FWatchedParent)
        FWatchedParent->removeEventFilter(this);
    FWatchedParent = parentWidget();
    if (FWatchedParent)
        FWatchedParent->installEventFilter(this);
}

bool TCustomControl::IsManagedByLayout() const
{
    const QLayout *layout = parentWidget() ? parentWidget()->layout() : nullptr;
    return layout && layout->indexOf(const_cast<TCustomControl *>(this)) >= 0;
}

void TCustomControl::AlignControls(QWidget *AParent)
{
    static constexpr std::array order = {TAlign::alTop, TAlign::alBottom, TAlign::alLeft,
                                         TAlign::alRight, TAlign::alClient};
    const auto controls =
        AParent->findChildren<TCustomControl *>(QString(), Qt::FindDirectChildrenOnly);
    QRect free = AParent->contentsRect();
    for (const TAlign align : order) {
        for (TCustomControl *control : controls) {
            if (control->FAlign != align || control->IsManagedByLayout())
                continue;
            QRect r = free;
            if (align == TAlign::alTop)
                r.setHeight(control->height()), free.setTop(r.bottom() + 1);
            else if (align == TAlign::alBottom)
                r.setTop(r.bottom() + 1 - control->height()), free.setBottom(r.top() - 1);
            else if (align == TAlign::alLeft)
                r.setWidth(control->width()), free.setLeft(r.right() + 1);
            else if (align == TAlign::alRight)
                r.setLeft(r.right() + 1 - control->width()), free.setRight(r.left() - 1);
            control->SetBounds(r.x(), r.y(), r.width(), r.height());
        }
    }
}

void TCustomControl::ParentResized(const QSize &AOldSize, const QSize &ANewSize)
{
    if (IsManagedByLayout() || isWindow())
        return;
    if (FAlign != TAlign::alNone) {
        AlignControls(parentWidget());
        return;
    }
    if (!AOldSize.isValid())
        return;
    // Along one axis: both sides stretch, the far side alone moves, none keeps the middle.
    auto follow = [](bool near, bool far, int delta, int &position, int &size) {
        if (near && far)
            size += delta;
        else if (far)
            position += delta;
        else if (!near)
            position += delta / 2;
    };
    int left = x(), top = y(), newWidth = width(), newHeight = height();
    follow(FAnchors.testFlag(TAnchorKind::akLeft), FAnchors.testFlag(TAnchorKind::akRight),
           ANewSize.width() - AOldSize.width(), left, newWidth);
    follow(FAnchors.testFlag(TAnchorKind::akTop), FAnchors.testFlag(TAnchorKind::akBottom),
           ANewSize.height() - AOldSize.height(), top, newHeight);
    if (QRect(left, top, newWidth, newHeight) != geometry())
        SetBounds(left, top, newWidth, newHeight);
}

bool TCustomControl::eventFilter(QObject *AWatched, QEvent *AEvent)
{
    if (AWatched == FWatchedParent && AEvent->type() == QEvent::Resize) {
        const auto *resize = static_cast<QResizeEvent *>(AEvent);
        ParentResized(resize->oldSize(), resize->size());
    }
    return QWidget::eventFilter(AWatched, AEvent);
}

// --- events --------------------------------------------------------------------------------------

void TCustomControl::Report(std::exception_ptr AException)
{
    if (!FPainting) {
        ZtHandleException(std::move(AException));
        return;
    }
    // Not from inside a paint, and once for a fault that every paint would raise again.
    if (!std::exchange(FPaintFault, true))
        QMetaObject::invokeMethod(
            this, [AException] { ZtHandleException(AException); }, Qt::QueuedConnection);
}

bool TCustomControl::event(QEvent *AEvent)
{
    if (AEvent->type() == TZtMessage::EventType()) {
        bool handled = true;
        Guarded([&] { handled = Dispatch(static_cast<TZtMessage &>(*AEvent)); });
        return handled;
    }
    // A command that was posted runs before any later input, also when several keys come at once.
    if (AEvent->isInputEvent())
        QCoreApplication::sendPostedEvents(this, TZtMessage::EventType());
    std::optional<TZtEventShift> shift;
    if (AEvent->isInputEvent())
        shift.emplace(static_cast<QInputEvent *>(AEvent)->modifiers());
    const bool handled = QWidget::event(AEvent);
    switch (AEvent->type()) {
    case QEvent::ParentChange:
        WatchParent();
        [[fallthrough]];
    case QEvent::Show:
    case QEvent::WinIdChange:
    case QEvent::Resize:
    case QEvent::StyleChange:
        Guarded([this] { LayoutChanged(); });
        break;
    case QEvent::FontChange:
    case QEvent::PaletteChange:
        update();
        break;
    default:
        break;
    }
    return handled;
}

bool TCustomControl::Dispatch(TZtMessage &Message)
{
    if (Message.Msg != quint32(TZtMsg::wmChar))
        return false;
    WMChar(Message);
    return true;
}

void TCustomControl::paintEvent(QPaintEvent *AEvent)
{
    QPainter painter(this);
    PaintBevels(painter);
    const QRect client = ClientArea();
    painter.setClipRect(client);
    painter.translate(client.topLeft());
    FPaintRegion = AEvent->region().translated(-client.topLeft());
    const QScopedValueRollback<QPainter *> canvas(FCanvas, &painter);
    const QScopedValueRollback painting(FPainting, true);
    Guarded([this] {
        Paint();
        FPaintFault = false;
    });
}

void TCustomControl::keyPressEvent(QKeyEvent *AEvent)
{
    quint16 key = ZtVirtualKey(*AEvent);
    const quint16 pressed = key;
    const QString characters = ZtCharactersOf(*AEvent);
    // The characters are typed also when the key press was consumed, but not when it failed.
    if (Guarded([&] { KeyDown(key, ZtShiftStateOf(*AEvent)); }))
        TypeCharacters(characters);
    // Escape's character 27 is no text: the key is left to whoever is around the control.
    const bool typed = pressed != TZtKey::Escape && !characters.isEmpty();
    AEvent->setAccepted(key != pressed || typed);
}

void TCustomControl::TypeCharacters(const QString &S)
{
    for (const QChar C : S) {
        TZtMessage message(quint32(TZtMsg::wmChar), C.unicode(), 0);
        Guarded([&] { WMChar(message); });
    }
}

void TCustomControl::inputMethodEvent(QInputMethodEvent *AEvent)
{
    TypeCharacters(AEvent->commitString());
    AEvent->accept();
}

// A mouse event in client coordinates.
struct TCustomControl::TMousePosition {
    TMousePosition(const TCustomControl &AControl, const QMouseEvent &AEvent)
        : Shift(ZtShiftState(AEvent.modifiers())),
          At(AEvent.position().toPoint() - AControl.ClientArea().topLeft())
    {
        Button = AEvent.button() == Qt::RightButton    ? TMouseButton::mbRight
                 : AEvent.button() == Qt::MiddleButton ? TMouseButton::mbMiddle
                                                       : TMouseButton::mbLeft;
        Known = (AEvent.button() & (Qt::LeftButton | Qt::RightButton | Qt::MiddleButton)) != 0;
    }
    TMouseButton Button;
    bool Known;
    TShiftState Shift;
    QPoint At;
};

void TCustomControl::mousePressEvent(QMouseEvent *AEvent)
{
    const TMousePosition mouse(*this, *AEvent);
    if (mouse.Known)
        Guarded([&] { MouseDown(mouse.Button, mouse.Shift, mouse.At.x(), mouse.At.y()); });
}

void TCustomControl::mouseMoveEvent(QMouseEvent *AEvent)
{
    const TMousePosition mouse(*this, *AEvent);
    Guarded([&] { MouseMove(mouse.Shift, mouse.At.x(), mouse.At.y()); });
}

void TCustomControl::mouseReleaseEvent(QMouseEvent *AEvent)
{
    const TMousePosition mouse(*this, *AEvent);
    if (mouse.Known)
        Guarded([&] { MouseUp(mouse.Button, mouse.Shift, mouse.At.x(), mouse.At.y()); });
}

// A desktop reports a double click before the second press's own mouse-down.
void TCustomControl::mouseDoubleClickEvent(QMouseEvent *AEvent)
{
    if (AEvent->button() == Qt::LeftButton)
        Guarded([this] { DblClick(); });
    mousePressEvent(AEvent);
}

void TCustomControl::focusInEvent(QFocusEvent *AEvent)
{
    QWidget::focusInEvent(AEvent);
    if (FEntered) {
        FocusPaused(false);
        return;
    }
    FEntered = true;
    Guarded([this] { CMEnter(); });
}

void TCustomControl::focusOutEvent(QFocusEvent *AEvent)
{
    QWidget::focusOutEvent(AEvent);
    // The focus comes back from a popup or another window; the user has not left the control.
    const Qt::FocusReason reason = AEvent->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) {
        FocusPaused(true);
        return;
    }
    FEntered = false;
    Guarded([this] { CMExit(); });
}

void TCustomControl::KeyDown(quint16 &Key, TShiftState Shift) { Fire(OnKeyDown, this, Key, Shift); }

void TCustomControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    Fire(OnMouseDown, this, Button, Shift, X, Y);
}

void TCustomControl::MouseMove(TShiftState Shift, int X, int Y)
{
    Fire(OnMouseMove, this, Shift, X, Y);
}

void TCustomControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y)
{
    Fire(OnMouseUp, this, Button, Shift, X, Y);
}

void TCustomControl::DblClick() { Fire(OnDblClick, this); }
