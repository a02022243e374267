#include "uZtCaret.h"

#include "uZtCustomControl.h"

#include <QApplication>
#include <QPainter>
#include <QStyleHints>

TZtCaret::TZtCaret(TCustomControl *) {}

TZtCaret::~TZtCaret() { FBlink.stop(); }

void TZtCaret::SetParent(TCustomControl *AParent)
{
    if (FParent == AParent)
        return;
    DestroyCaret();
    FParent = AParent;
    UpdateCaret();
}

void TZtCaret::SetNormal(bool Value)
{
    if (FNormal == Value)
        return;
    FNormal = Value;
    UpdateCaret();
}

void TZtCaret::UpdateCaret()
{
    DestroyCaret();
    if (FParent && FParent->WindowAvailable())
        FRect = QRect(0, 0, FNormal ? 2 : 10, 10);
}

void TZtCaret::Show(int X, int Y, int Width, int Height)
{
    const QRect rect(X + 2, Y, Width, Height);
    if (!FParent || !FParent->hasFocus()) {
        DestroyCaret();
        return;
    }
    if (FShown && FRect == rect && FBlinkOn && FBlink.isActive())
        return;
    DestroyCaret();
    FRect = rect;
    FShown = true;
    FBlinkOn = true;
    UpdateRect();
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (period > 1)
        FBlink.start(period / 2, this);
}

void TZtCaret::Hide() { DestroyCaret(); }

void TZtCaret::DestroyCaret()
{
    FBlink.stop();
    if (FShown)
        UpdateRect();
    FShown = false;
}

void TZtCaret::Leave()
{
    FVisible = false;
    DestroyCaret();
}

void TZtCaret::UpdateRect()
{
    if (FParent)
        FParent->update(FRect.translated(FParent->ClientArea().topLeft()));
}

void TZtCaret::timerEvent(QTimerEvent *AEvent)
{
    if (AEvent->timerId() != FBlink.timerId())
        return;
    FBlinkOn = !FBlinkOn;
    UpdateRect();
}

void TZtCaret::Draw(QPainter &APainter) const
{
    if (!FShown || !FBlinkOn)
        return;
    if (FColour.isValid())
        return APainter.fillRect(FRect, FColour);
    // The inverse of what lies under it, so that it is seen on every background.
    APainter.setCompositionMode(QPainter::CompositionMode_Difference);
    APainter.fillRect(FRect, Qt::white);
    APainter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}
