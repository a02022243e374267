#include "uZtScrollBar.h"

#include <QStyle>
#include <QStyleOptionSlider>

TScrollBar::TScrollBar(QWidget *AOwner) : QScrollBar(AOwner)
{
    const int extent = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    setGeometry(0, 0, extent, extent);
    setRange(0, 100);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (OnChange)
            OnChange(this);
    });
}

void TScrollBar::SetKind(TScrollBarKind Value)
{
    const Qt::Orientation wanted =
        Value == TScrollBarKind::sbHorizontal ? Qt::Horizontal : Qt::Vertical;
    if (orientation() != wanted)
        setOrientation(wanted);
}

void TScrollBar::SetPageSize(int Value)
{
    FPageSize = Value;
    if (Value >= 0 && pageStep() != Value)
        setPageStep(Value);
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
