#include "uZtScrollBar.h"

#include <QStyle>

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
