#pragma once

#include <QBasicTimer>
#include <QColor>
#include <QObject>
#include <QRect>

class QPainter;
class TCustomControl;

/// The caret of a control: shown only while the control has the focus, blinking at the system's
/// rate. It is drawn by the control's paint and asks only for its own rectangle to be painted.
///
/// Positions and sizes are pixels in the control's client coordinates.
class TZtCaret : public QObject {
    Q_OBJECT

public:
    /// `AParent` is not stored: the caret gets its control through `SetParent`.
    explicit TZtCaret(TCustomControl *AParent);
    ~TZtCaret() override;

    void SetParent(TCustomControl *AParent);
    TCustomControl *GetParent() const { return FParent; }
    /// The thin shape (true) or the block.
    void SetNormal(bool Value);
    bool GetNormal() const { return FNormal; }
    /// Makes a hidden caret of the shape's standard size anew.
    void UpdateCaret();
    /// How it is drawn; an invalid colour, the default, is the inverse of what lies below.
    void SetColour(const QColor &Value) { FColour = Value; }
    /// Shows the caret 2 pixels right of (X, Y), if the control has the focus.
    void Show(int X, int Y, int Width, int Height);
    void Hide();
    /// Does nothing: whether the caret shows follows from the focus alone.
    void SetVisible(bool Value) { Q_UNUSED(Value); }
    bool GetVisible() const { return FVisible; }
    void DestroyCaret();
    /// The focus left: no caret, and not visible.
    void Leave();

    /// Where the caret stands while it is shown, in either phase of its blinking; else empty.
    QRect Rect() const { return FShown ? FRect : QRect(); }
    /// Whether `ARect` lies in the place that the caret has or had last.
    bool Covers(const QRect &ARect) const { return FRect.contains(ARect); }
    /// Draws the caret if it is shown and in its visible phase.
    void Draw(QPainter &APainter) const;

protected:
    void timerEvent(QTimerEvent *AEvent) override;

private:
    void UpdateRect();

    TCustomControl *FParent = nullptr;
    bool FNormal = true;
    QColor FColour;
    bool FVisible = false;
    QRect FRect;
    bool FShown = false;
    bool FBlinkOn = false;
    QBasicTimer FBlink;
};
