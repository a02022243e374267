#include "uZtPaintHelpers.h"

#include <QPainter>

void ZtPaintTreeButton(QPainter &Canvas, const QRect &Rect, bool)
{
    constexpr int size = 14;
    const QRect box(Rect.x() + Rect.width() / 2 - size / 2, Rect.y() + Rect.height() / 2 - size / 2,
                    size, size);
    Canvas.fillRect(box, Qt::black);
    Canvas.fillRect(box.adjusted(1, 1, -1, -1), Qt::white);
}
