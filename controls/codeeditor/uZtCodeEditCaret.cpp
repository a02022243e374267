#include "uZtCodeEditPass.h"

#include "uZtCaret.h"
#include "uZtComposition.h"
#include "uZtEditSearch.h"

using enum TZtCorrection;

void TZtCodeEdit::ResetCaret()
{
    const qint64 x = qint64(GetCaretCell() - FHScrollBar->GetPosition()) * FCharWidth;
    const int row = FLinePos - FVScrollBar->GetPosition();
    const qint64 y = qint64(row * RowPitch());
    const int g = RealGuttorWidth();
    const bool inside = 0 <= x && x < GetClientWidth() - g - BarsWidth() && 0 <= y &&
                        y < GetClientHeight() - FHScrollBar->height();
    TellInputMethod();
    if (!inside || FSearch->IsReplacingAll() || (IsComposing() && !FComposition->IsCaretSeen())) {
        FCaret->Hide();
        return;
    }
    FCaret->SetParent(this);
    FCaret->Show(g + int(x), int(y), 2, FLineWidth);
}

void TZtCodeEdit::SetCharPos(int Value)
{
    if (IsCorrected(zcCaret))
        return MoveTo({Value, FLinePos});
    if (Value >= 0) {
        MoveToColumn(Value);
        return;
    }
    // Lands on column 0 of the line above, not on its end; gutter clicks pass through here.
    RunToEnd([this, Value] {
        FCharPos = Value;
        SetCharPos(0);
        if (FLinePos > 0) {
            SetLinePos(FLinePos - 1);
            if (FLinePos > FLines->GetCount())
                SetCharPos(FLines->GetLength(FLinePos));
        }
        MoveToColumn(FCharPos);
    });
}

void TZtCodeEdit::MoveToColumn(int AColumn)
{
    FCharPos = AColumn;
    ScrollToColumn();
    CaretMoved();
}

void TZtCodeEdit::SetLinePos(int Value)
{
    if (IsCorrected(zcCaret))
        return MoveTo({FCharPos, Value});
    FLinePos = qMax(0, qMin(Value, FLines->GetCount() - 1));
    ScrollToLine();
    CaretMoved();
}

void TZtCodeEdit::ScrollToColumn()
{
    const int cell = GetCaretCell();
    if (IsCorrected(zcScroll) && cell > FLongest) {
        FLongest = cell;
        PositionScollBars();
    }
    const int position = FHScrollBar->GetPosition();
    const int page = FHScrollBar->GetPageSize();
    if (cell < position)
        FHScrollBar->SetPosition(cell);
    else if (cell > position + page)
        FHScrollBar->SetPosition(cell - page);
}

void TZtCodeEdit::ScrollToLine()
{
    const int position = FVScrollBar->GetPosition();
    const int page = FVScrollBar->GetPageSize();
    if (FLinePos < position)
        FVScrollBar->SetPosition(FLinePos);
    else if (FLinePos > position + page - 1)
        FVScrollBar->SetPosition(FLinePos - page);
}

// --- places in the text --------------------------------------------------------------------------

// The nearest place where the caret may stand.
QPoint TZtCodeEdit::InText(const QPoint &APlace) const
{
    const int y = qBound(0, APlace.y(), qMax(FLines->GetCount() - 1, 0));
    const int x = qMax(APlace.x(), 0);
    if (FOptions.testFlag(TZtCodeOption::coVirtualSpace))
        return {x, y};
    return {y < FLines->GetCount() ? qMin(x, FLines->GetLength(y)) : 0, y};
}

// The same place, or the end of its line, which exists.
QPoint TZtCodeEdit::InLine(const QPoint &APlace) const
{
    return {qBound(0, APlace.x(), FLines->GetLength(APlace.y())), APlace.y()};
}

// Both at once, so that neither is taken for the other's line; one cursor event.
void TZtCodeEdit::MoveTo(const QPoint &APlace)
{
    const QPoint place = InText(APlace);
    FCharPos = IsCorrected(zcCaret) ? place.x() : qMax(APlace.x(), 0);
    FLinePos = place.y();
    FWantedCell = -1;
    ScrollToColumn();
    ScrollToLine();
    CaretMoved();
}

void TZtCodeEdit::KeepCaretInText()
{
    if (!IsCorrected(zcCaret))
        return;
    for (QPoint *end : {&FSelStart, &FSelEnd})
        if (end->x() >= 0)
            *end = InText(*end);
    const QPoint caret(FCharPos, FLinePos);
    if (InText(caret) != caret)
        MoveTo(caret);
    else
        ResetCaret();
    if (std::exchange(FCaretCarried, false)) {
        Tell([this] { Fire(FOnCursorChange, this); });
        Tell([this] { Q_EMIT cursorPositionChanged(); });
    }
}

int TZtCodeEdit::CellOf(const QPoint &APlace) const
{
    if (!FCells.Tabs && !FCells.Wide)
        return APlace.x();
    if (APlace.y() < 0 || APlace.y() >= FLines->GetCount())
        return APlace.x();
    return ZtCellOf(FLines->View(APlace.y()), APlace.x(), FCells);
}

int TZtCodeEdit::ColumnAt(int ALine, int ACell) const
{
    if ((!FCells.Tabs && !FCells.Wide) || ALine < 0 || ALine >= FLines->GetCount())
        return ACell;
    return ZtColumnAt(FLines->View(ALine), qMax(ACell, 0), FCells);
}

int TZtCodeEdit::GetCaretCell() const
{
    return IsComposing() ? ComposedCell(FComposition->GetCaret()) : CellOf({FCharPos, FLinePos});
}

QRect TZtCodeEdit::GetPlaceRect(const QPoint &APlace) const
{
    return CaretRectAt(CellOf(APlace), APlace.y());
}

// The caret in a cell of a line, as far out of sight as numbers of pixels go.
QRect TZtCodeEdit::CaretRectAt(int ACell, int ALine) const
{
    constexpr qreal far = 1 << 24;
    const qreal x = qreal(ACell - FHScrollBar->GetPosition()) * FCharWidth;
    const qreal y = (ALine - FVScrollBar->GetPosition()) * RowPitch();
    return {RealGuttorWidth() + int(qBound(-far, x, far)) + ZtTextLeft, int(qBound(-far, y, far)),
            2, FLineWidth};
}

void TZtCodeEdit::CaretMoved()
{
    ResetCaret();
    CaretSeen();
    RunToEnd([this] {
        Tell([this] { Fire(FOnCursorChange, this); });
        Tell([this] { Q_EMIT cursorPositionChanged(); });
        SetSelection(false);
    });
}

void TZtCodeEdit::CMEnter()
{
    TCustomControl::CMEnter();
    SetCharPos(FCharPos);
    FCaret->SetVisible(true);
}

void TZtCodeEdit::CMExit()
{
    EndComposition();
    FCaret->Leave();
    TCustomControl::CMExit();
    FCaret->DestroyCaret();
}

void TZtCodeEdit::FocusPaused(bool AActive)
{
    if (!AActive)
        return ResetCaret();
    EndComposition();
    FCaret->DestroyCaret();
}
