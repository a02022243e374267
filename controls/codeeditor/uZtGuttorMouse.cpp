#include "uZtGuttorMouse.h"

#include "uZtCodeEditOperate.h"
#include "uZtEditExtras.h"
#include "uZtGuttor.h"
#include "uZtTextMarks.h"

#include <cmath>
#include <utility>

bool TZtGuttorMouse::Press(TMouseButton AButton, int X, int Y)
{
    FIsPressed = PressIn(AButton, X, Y);
    return FIsPressed;
}

bool TZtGuttorMouse::Drag(int Y)
{
    if (FDrag < 0)
        return false;
    FEdit.Operate([&] { SelectLines(FDrag, FEdit.PlaceAt(0, Y).y()); });
    return true;
}

void TZtGuttorMouse::Release()
{
    FDrag = -1;
    FIsPressed = false;
}

// For the pointer, where the host has not asked for it anyway.
void TZtGuttorMouse::Track()
{
    if (FEdit.HasColumns() && !FEdit.hasMouseTracking())
        FTracks = true;
    if (FTracks)
        FEdit.setMouseTracking(FEdit.HasColumns());
    FTracks &= FEdit.HasColumns();
}

// The gutter has a pointer of its own.
void TZtGuttorMouse::PointAt(int X)
{
    const bool over = FEdit.HasColumns() && X < FEdit.RealGuttorWidth();
    if (over == std::exchange(FIsOver, over))
        return;
    if (over)
        FTextCursor = FEdit.cursor();
    FEdit.setCursor(over ? QCursor(Qt::ArrowCursor) : FTextCursor);
}

// Answers whether the press was in a column of the gutter, and is done with.
bool TZtGuttorMouse::PressIn(TMouseButton Button, int X, int Y)
{
    if (X >= FEdit.RealGuttorWidth() || !FEdit.HasColumns())
        return false;
    const TZtGuttor &guttor = FEdit.FExtras->Guttor();
    const int line = FEdit.FVScrollBar->GetPosition() + int(std::floor(Y / FEdit.RowPitch()));
    if (line < 0 || line >= qMax(FEdit.FLines->GetCount(), 1))
        return Button == TMouseButton::mbLeft;
    const int at = guttor.ColumnAt(X, FEdit.GuttorSight());
    // The handler may take itself away, and columns, and lines.
    const TZtGuttorColumn *column = at < 0 ? nullptr : guttor.GetColumn(at);
    const bool marks = column == FEdit.GetMarkColumn() && !FEdit.FOnGuttorClick;
    const bool numbers = dynamic_cast<const TZtNumberColumn *>(column) != nullptr;
    FEdit.Fire(FEdit.FOnGuttorClick, line, at, Button);
    if (FEdit.IsAbandoned())
        return true;
    if (Button != TMouseButton::mbLeft)
        return false;
    if (marks)
        FEdit.GetTextMarks().Marks.Toggle(line, TZtLineMark::lmBookmark);
    if (!numbers || line >= FEdit.FLines->GetCount())
        return true;
    FDrag = line;
    SelectLines(line, line);
    return true;
}

// Selects whole lines, the caret at the end of those that it was dragged to.
void TZtGuttorMouse::SelectLines(int AFrom, int ATo)
{
    const int last = FEdit.FLines->GetCount() - 1;
    if (last < 0)
        return;
    const auto behind = [&](int line) {
        return line < last ? QPoint(0, line + 1) : QPoint(FEdit.FLines->GetLength(last), last);
    };
    const bool down = AFrom <= ATo;
    FEdit.MoveTo(down ? behind(ATo) : QPoint(0, ATo));
    FEdit.SetSelEnd(down ? QPoint(0, AFrom) : behind(AFrom));
    FEdit.SetSelStart({FEdit.FCharPos, FEdit.FLinePos});
}
