#include "uZtAccessibleEdit.h"
#include "uZtCodeEditPass.h"
#include "uZtEditWatcher.h"

#include <algorithm>
#include <cmath>

void TZtCodeEdit::InstallAccessible() { QAccessible::installFactory(&TZtAccessibleEdit::Create); }

void TZtCodeEdit::TellWatcher()
{
    if (FWatcher)
        FWatcher->Seen();
}

QRect TZtCodeEdit::GetCharacterRect(const QPoint &APlace) const
{
    const int line = qBound(0, APlace.y(), qMax(FLines->GetCount() - 1, 0));
    const int length = line < FLines->GetCount() ? FLines->GetLength(line) : 0;
    const int column = qBound(0, APlace.x(), length);
    const int cell = CellOf({column, line});
    const int next = column < length
                         ? CellOf({ZtNextCluster(FLines->View(line), column, FCells), line})
                         : cell + 1;
    const qint64 left = qint64(cell - FHScrollBar->GetPosition()) * FCharWidth + ZtTextLeft;
    const double top = (line - FVScrollBar->GetPosition()) * RowPitch();
    constexpr int far = 1 << 24; // pixels; what lies farther away stands there
    const QPoint corner(RealGuttorWidth() + int(std::clamp<qint64>(left, -far, far)),
                        int(std::floor(std::clamp<double>(top, -far, far))));
    return QRect(corner, QSize(qMax(next - cell, 1) * FCharWidth, FLineWidth))
        .translated(ClientArea().topLeft());
}

QPoint TZtCodeEdit::GetCharacterAt(const QPoint &AAt) const
{
    const QRect area =
        ClientArea().adjusted(RealGuttorWidth(), 0, -BarsWidth(), -FHScrollBar->height());
    if (!area.contains(AAt))
        return {-1, -1};
    const QPoint at = AAt - area.topLeft();
    const int line = FVScrollBar->GetPosition() + int(std::floor(at.y() / RowPitch()));
    if (line >= FLines->GetCount())
        return {-1, -1};
    return InLine({PlaceAt(qMax(at.x() - ZtTextLeft, 0), at.y()).x(), line});
}

void TZtCodeEdit::ScrollTo(const QPoint &APlace)
{
    const int rows = qMax(FVScrollBar->GetPageSize(), 1);
    if (const int top = FVScrollBar->GetPosition(); APlace.y() < top || APlace.y() >= top + rows)
        FVScrollBar->SetPosition(qMax(APlace.y() - rows / 2, 0));
    const int cell = CellOf(APlace), cells = qMax(FHScrollBar->GetPageSize(), 1);
    if (IsCorrected(TZtCorrection::zcScroll) && cell + cells / 2 > FLongest) {
        FLongest = cell + cells / 2; // of a line that was not drawn yet
        PositionScollBars();
    }
    if (const int left = FHScrollBar->GetPosition(); cell < left || cell >= left + cells)
        FHScrollBar->SetPosition(qMax(cell - cells / 2, 0));
}
