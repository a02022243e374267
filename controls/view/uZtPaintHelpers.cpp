#include "uZtPaintHelpers.h"

#include <QPainter>

#include <array>

void ZtPaintTreeButton(QPainter &Canvas, const QRect &Rect, bool)
{
    constexpr int size = 14;
    const QRect box(Rect.x() + Rect.width() / 2 - size / 2, Rect.y() + Rect.height() / 2 - size / 2,
                    size, size);
    Canvas.fillRect(box, Qt::black);
    Canvas.fillRect(box.adjusted(1, 1, -1, -1), Qt::white);
}

void ZtPaintUnderline(QPainter &Canvas, TZtUnderline AKind, int ALeft, int AWidth, int ATop,
                      const QColor &AColour)
{
    static constexpr std::array<int, 4> wave = {0, 1, 2, 1}; // by the column of pixels
    if (AKind == TZtUnderline::ulStraight)
        Canvas.fillRect(ALeft, ATop, AWidth, 1, AColour);
    for (int x = ALeft; x < ALeft + AWidth; ++x) {
        if (AKind == TZtUnderline::ulWavy)
            Canvas.fillRect(x, ATop - 1 + wave[size_t(x) % wave.size()], 1, 1, AColour);
        else if (AKind == TZtUnderline::ulDotted && x % 3 != 2)
            Canvas.fillRect(x, ATop, 1, 1, AColour);
    }
}

void ZtPaintTabArrow(QPainter &Canvas, const QRect &ACells, const QColor &AColour)
{
    const int head = std::min(ACells.width() - 2, ACells.height() / 4);
    const int right = ACells.left() + ACells.width() - 2;
    const int middle = ACells.top() + ACells.height() / 2;
    Canvas.fillRect(ACells.left() + 1, middle, right - ACells.left() - 1, 1, AColour);
    for (int i = 1; i < head; ++i) {
        Canvas.fillRect(right - i, middle - i, 1, 1, AColour);
        Canvas.fillRect(right - i, middle + i, 1, 1, AColour);
    }
}
