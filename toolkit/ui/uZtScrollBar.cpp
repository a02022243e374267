#include "uZtScrollBar.h"

#include <QStyle>
#include <QStyleOptionSlider>

TScrollBar::TScrollBar(QWidget *AOwner) : QScrollBar(AOwner)
{
    FThickness = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    setGeometry(0, 0, FThickness, FThickness);
    setRange(0, 100);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (OnChange)
            OnChange(this);
    });
    connect(this, &QScrollBar::actionTriggered, this, &TScrollBar::TakeLargeStep);
}

void TScrollBar::SetKind(TScrollBarKind Value)
{
    const Qt::Orientation wanted =
        Value == TScrollBarKind::sbHorizontal ? Qt::Horizontal : Qt::Vertical;
    if (orientation() != wanted)
        setOrientation(wanted);
}

void TScrollBar::FitThickness()
{
    const bool across = orientation() == Qt::Horizontal;
    const QSize hint =
        testAttribute(Qt::WA_StyleSheet) ? sizeHint() : QSize(FThickness, FThickness);
    resize(across ? QSize(width(), hint.height()) : QSize(hint.width(), height()));
}

void TScrollBar::SetPageSize(int Value)
{
    FPageSize = Value;
    if (Value >= 0 && pageStep() != Value)
        setPageStep(Value);
}

// Qt has moved by the page step, from which the thumb has its length; the value follows after this.
void TScrollBar::TakeLargeStep(int AAction)
{
    const bool up = AAction == SliderPageStepSub;
    if (!up && AAction != SliderPageStepAdd)
        return;
    const qint64 wanted = qint64(value()) + (up ? -qint64(FLargeChange) : FLargeChange);
    setSliderPosition(int(qBound(qint64(minimum()), wanted, qint64(maximum()))));
}

TScrollBar::TLook TScrollBar::Look() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return {
        style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this),
        value() == minimum(), value() == maximum()};
}

void TScrollBar::paintEvent(QPaintEvent *AEvent)
{
    FDrawn.reset();
    if (!FLookAsked)
        FDrawn = Look();
    QScrollBar::paintEvent(AEvent);
}

void TScrollBar::sliderChange(SliderChange)
{
    // Styles are slow to answer: they are asked once for all changes of an event. Where updates are
    // off, switching them on draws the bar.
    if (FLookAsked || !updatesEnabled())
        return;
    FLookAsked = true;
    QMetaObject::invokeMethod(this, &TScrollBar::UpdateLook, Qt::QueuedConnection);
}

void TScrollBar::UpdateLook()
{
    FLookAsked = false;
    if (Look() != FDrawn)
        update();
}
