#pragma once

#include "uZtExport.h"
#include "uZtKeys.h"
#include "uZtMessages.h"
#include "uZtNotifier.h"
#include "uZtStringList.h"
#include "uZtTypes.h"

#include <QWidget>

#include <exception>
#include <functional>

class QPainter;

/// Which button of the mouse.
enum class TMouseButton : quint8 { mbLeft, mbRight, mbMiddle };

/// Told of a key; `Key` set to 0 ends its work there.
using TKeyEvent = std::function<void(QObject *Sender, quint16 &Key, TShiftState Shift)>;
/// Told of a mouse button; `X` and `Y` are pixels in client coordinates.
using TMouseEvent =
    std::function<void(QObject *Sender, TMouseButton Button, TShiftState Shift, int X, int Y)>;
/// Told of the mouse; `X` and `Y` are pixels in client coordinates.
using TMouseMoveEvent = std::function<void(QObject *Sender, TShiftState Shift, int X, int Y)>;

/// Base of the controls that draw themselves: the published properties that every such control
/// has, its messages, and the one place where Qt's events become named operations.
///
/// Positions are pixels in client coordinates: (0, 0) is the top left corner inside the bevels.
/// What is raised while an event is handled is caught here and handed to `ZtHandleException`; an
/// operation that a host calls itself raises to the host.
///
/// A handler may call every operation of the control, exchange itself, open message boxes, raise,
/// and delete the control, which then goes when the event loop comes round and fires nothing more.
class ZT_EDITOR_EXPORT TCustomControl : public QWidget, public TZtNotifier {
    Q_OBJECT
    Q_PROPERTY(TBevelEdges BevelEdges READ GetBevelEdges WRITE SetBevelEdges)
    Q_PROPERTY(TBevelCut BevelInner READ GetBevelInner WRITE SetBevelInner)
    Q_PROPERTY(TBevelCut BevelOuter READ GetBevelOuter WRITE SetBevelOuter)
    Q_PROPERTY(TBevelKind BevelKind READ GetBevelKind WRITE SetBevelKind)
    Q_PROPERTY(int BevelWidth READ GetBevelWidth WRITE SetBevelWidth)
    Q_PROPERTY(bool Ctl3D READ GetCtl3D WRITE SetCtl3D)
    Q_PROPERTY(TAlign Align READ GetAlign WRITE SetAlign DESIGNABLE false)
    Q_PROPERTY(TAnchors Anchors READ GetAnchors WRITE SetAnchors DESIGNABLE false)
    Q_PROPERTY(QFont Font READ GetFont WRITE SetFont DESIGNABLE false)
    Q_PROPERTY(int Left READ GetLeft WRITE SetLeft STORED false DESIGNABLE false)
    Q_PROPERTY(int Top READ GetTop WRITE SetTop STORED false DESIGNABLE false)
    Q_PROPERTY(int Width READ GetWidth WRITE SetWidth DESIGNABLE false)
    Q_PROPERTY(int Height READ GetHeight WRITE SetHeight DESIGNABLE false)

public:
    /// Where bevels are drawn.
    enum class TBevelEdge : quint8 { beLeft = 1, beTop = 2, beRight = 4, beBottom = 8 };
    Q_DECLARE_FLAGS(TBevelEdges, TBevelEdge)
    Q_FLAG(TBevelEdges)
    /// What a cut of the bevel looks like: not there, lowered, raised, or a strip of the face's
    /// colour.
    enum class TBevelCut : quint8 { bvNone, bvLowered, bvRaised, bvSpace };
    Q_ENUM(TBevelCut)
    /// Whether there are bevels; `bkTile` and `bkSoft` are drawn in light and shadow, `bkFlat` in
    /// shadow alone.
    enum class TBevelKind : quint8 { bkNone, bkTile, bkSoft, bkFlat };
    Q_ENUM(TBevelKind)
    /// The side of its parent that a control is docked to; `alClient` takes what is left.
    enum class TAlign : quint8 { alNone, alTop, alBottom, alLeft, alRight, alClient };
    Q_ENUM(TAlign)
    /// To which sides of the parent the distance is kept.
    enum class TAnchorKind : quint8 { akLeft = 1, akTop = 2, akRight = 4, akBottom = 8 };
    Q_DECLARE_FLAGS(TAnchors, TAnchorKind)
    Q_FLAG(TAnchors)

    explicit TCustomControl(QWidget *AOwner = nullptr);
    ~TCustomControl() override;
    ZT_DELETE_WHEN_IDLE(TCustomControl)

    // --- published properties -------------------------------------------------------------------

    /// The bevel is drawn around the client area when `BevelKind` is not `bkNone`: the outer cut,
    /// then the inner one, each `BevelWidth` pixels wide, on the chosen edges.
    TBevelEdges GetBevelEdges() const { return FBevelEdges; }
    void SetBevelEdges(TBevelEdges Value);
    TBevelCut GetBevelInner() const { return FBevelInner; } ///< the cut next to the client area
    void SetBevelInner(TBevelCut Value);
    TBevelCut GetBevelOuter() const { return FBevelOuter; } ///< the cut at the control's edge
    void SetBevelOuter(TBevelCut Value);
    TBevelKind GetBevelKind() const { return FBevelKind; } ///< `bkNone` by default
    void SetBevelKind(TBevelKind Value);
    int GetBevelWidth() const { return FBevelWidth; } ///< pixels of one cut; 1 by default
    void SetBevelWidth(int Value);
    /// False lets a control that has a border of its own draw it as one line.
    bool GetCtl3D() const { return FCtl3D; }
    void SetCtl3D(bool Value);
    /// Docks the control to a side of its parent, unless a layout manages it.
    TAlign GetAlign() const { return FAlign; }
    void SetAlign(TAlign Value);
    /// The sides of the parent to which the distance is kept when the parent is resized, unless the
    /// control is aligned or a layout manages it.
    TAnchors GetAnchors() const { return FAnchors; }
    void SetAnchors(TAnchors Value) { FAnchors = Value; }
    QFont GetFont() const { return font(); }
    /// Takes effect at the next paint.
    void SetFont(const QFont &Value) { setFont(Value); }
    int GetLeft() const { return x(); } ///< pixels from the left of the parent
    void SetLeft(int Value) { SetBounds(Value, y(), width(), height()); }
    int GetTop() const { return y(); } ///< pixels from the top of the parent
    void SetTop(int Value) { SetBounds(x(), Value, width(), height()); }
    /// The control's size in pixels, bevels included.
    int GetWidth() const { return width(); }
    void SetWidth(int Value) { SetBounds(x(), y(), Value, height()); }
    int GetHeight() const { return height(); } ///< pixels, bevels included
    void SetHeight(int Value) { SetBounds(x(), y(), width(), Value); }

    TKeyEvent OnKeyDown;         ///< fired by `KeyDown`
    TMouseEvent OnMouseDown;     ///< fired by `MouseDown`
    TMouseEvent OnMouseUp;       ///< fired by `MouseUp`
    TMouseMoveEvent OnMouseMove; ///< fired by `MouseMove`
    TNotifyEvent OnDblClick;     ///< fired by `DblClick`

    // --- component ------------------------------------------------------------------------------

    /// True between `BeginLoading` and `Loaded`, while a stored form is being read.
    bool IsLoading() const { return FLoading; }
    void BeginLoading() { FLoading = true; }    ///< see `IsLoading`
    virtual void Loaded() { FLoading = false; } ///< the stored form was read
    /// True when the control is edited in a form designer.
    bool IsDesigning() const { return FDesigning; }
    void SetDesigning(bool Value) { FDesigning = Value; }
    /// Told when an object that was given to `FreeNotification` is destroyed.
    virtual void Notification(QObject *AComponent, TOperation Operation);
    /// Asking for the same component again changes nothing.
    void FreeNotification(QObject *AComponent);

    // --- geometry -------------------------------------------------------------------------------

    /// Another parent widget; null for a window of its own.
    virtual void SetParent(QWidget *AParent);
    /// Place in the parent and size, in pixels, bevels included.
    virtual void SetBounds(int ALeft, int ATop, int AWidth, int AHeight);
    /// Whether the control has its place in a window.
    bool WindowAvailable() const { return testAttribute(Qt::WA_WState_Created); }
    /// The control without its bevels, in the control's own coordinates.
    QRect ClientArea() const;
    int GetClientWidth() const { return ClientArea().width(); }   ///< pixels without the bevels
    int GetClientHeight() const { return ClientArea().height(); } ///< pixels without the bevels

    /// Asks for a paint.
    virtual void Invalidate() { update(); }
    /// Draws the client area. Called for every paint of the control.
    virtual void Paint() {}

    // --- input; the base fires the host's event --------------------------------------------------

    /// A virtual-key code (`TZtKey`), before the characters that the key types. Fires `OnKeyDown`.
    virtual void KeyDown(quint16 &Key, TShiftState Shift);
    /// One UTF-16 unit of typed text, in `WParam`.
    virtual void WMChar(TZtMessage &Message) { Q_UNUSED(Message); }
    /// Client coordinates. Fires `OnMouseDown`.
    virtual void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
    /// Client coordinates, also with no button down where the widget tracks the mouse. Fires
    /// `OnMouseMove`.
    virtual void MouseMove(TShiftState Shift, int X, int Y);
    /// Client coordinates. Fires `OnMouseUp`.
    virtual void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y);
    /// The second press of a double click, before `MouseDown` tells of it. Fires `OnDblClick`.
    virtual void DblClick();
    /// Something is dropped at a position; `Source` is null when it comes from another program.
    virtual void DragDrop(QObject *Source, int X, int Y)
    {
        Q_UNUSED(Source);
        Q_UNUSED(X);
        Q_UNUSED(Y);
    }
    virtual void CMEnter() {} ///< the focus came, other than back from a popup or another window
    virtual void CMExit() {}  ///< the focus went, other than to a popup or another window
    /// Handles a message; true when it was one of the control's.
    virtual bool Dispatch(TZtMessage &Message);

protected:
    bool event(QEvent *AEvent) override;
    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;
    void paintEvent(QPaintEvent *AEvent) override;
    void keyPressEvent(QKeyEvent *AEvent) override;
    void inputMethodEvent(QInputMethodEvent *AEvent) override;
    void mousePressEvent(QMouseEvent *AEvent) override;
    void mouseMoveEvent(QMouseEvent *AEvent) override;
    void mouseReleaseEvent(QMouseEvent *AEvent) override;
    void mouseDoubleClickEvent(QMouseEvent *AEvent) override;
    void focusInEvent(QFocusEvent *AEvent) override;
    void focusOutEvent(QFocusEvent *AEvent) override;
    void Abandoned() override;

    /// Runs a handler of an event. What it raises is reported here: Qt's own frames must not be
    /// unwound. False when it raised.
    template <typename THandler> bool Guarded(THandler AHandler)
    {
        const THold hold(*this);
        try {
            AHandler();
            return true;
        } catch (...) {
            Report(std::current_exception());
            return false;
        }
    }
    /// The window appeared or changed, or the client area moved.
    virtual void LayoutChanged() {}
    /// The focus left for a popup or another window, from where it comes back (`AActive` true).
    virtual void FocusPaused(bool AActive) { Q_UNUSED(AActive); }
    /// Hands typed text to `WMChar`, one UTF-16 unit at a time.
    void TypeCharacters(const QString &S);
    /// The device of the paint in progress, with the origin at the client area; null outside.
    QPainter *Canvas() const { return FCanvas; }
    /// What the paint in progress has to draw, in client coordinates.
    const QRegion &PaintRegion() const { return FPaintRegion; }

private:
    struct TMousePosition;
    // Receives removal notices; gone before the children are destroyed.
    class TNotices : public QObject {
    public:
        explicit TNotices(TCustomControl &AControl) : FControl(AControl) {}
        void Removed(QObject *AComponent)
        {
            FControl.Notification(AComponent, TOperation::opRemove);
        }

    private:
        TCustomControl &FControl;
    };

    void Report(std::exception_ptr AException);
    void BevelChanged();
    void PaintBevels(QPainter &APainter) const;
    int EdgeWidth(TBevelEdge AEdge) const;
    void WatchParent();
    void ParentResized(const QSize &AOldSize, const QSize &ANewSize);
    static void AlignControls(QWidget *AParent);
    bool IsManagedByLayout() const;

    TBevelEdges FBevelEdges = TBevelEdges(0x0F);
    TBevelCut FBevelInner = TBevelCut::bvRaised;
    TBevelCut FBevelOuter = TBevelCut::bvLowered;
    TBevelKind FBevelKind = TBevelKind::bkNone;
    int FBevelWidth = 1;
    bool FCtl3D = true;
    bool FLoading = false;
    bool FDesigning = false;
    bool FEntered = false;
    bool FPainting = false;
    bool FPaintFault = false; // the last paint raised, which was reported
    TAlign FAlign = TAlign::alNone;
    TAnchors FAnchors = TAnchors(0x03);
    QWidget *FWatchedParent = nullptr;
    QPainter *FCanvas = nullptr;
    QRegion FPaintRegion;
    TNotices FNotices{*this};
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TCustomControl::TBevelEdges)
Q_DECLARE_OPERATORS_FOR_FLAGS(TCustomControl::TAnchors)
