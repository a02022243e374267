#include "uZtCodeEdit.h"

void TZtCodeEdit::ResetCaret()
{
    const qint64 x = qint64(FCharPos - FHScrollBar->GetPosition()) * FCharWidth;
    const qint64 y = qint64(FLinePos - FVScrollBar->GetPosition()) * FLineWidth;
    const int g = RealGuttorWidth();
    const bool inside = 0 <= x && x < GetClientWidth() - g - FVScrollBar->width() && 0 <= y &&
                        y < GetClientHeight() - FHScrollBar->height();
    if (!inside || FReplacingAll) {
        FCaret->Hide();
        return;
    }
    FCaret->SetParent(this);
    FCaret->Show(g + int(x), int(y), 2, FLineWidth);
}

void TZtCodeEdit::SetCharPos(int Value)
{
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
    const int position = FHScrollBar->GetPosition();
    const int page = FHScrollBar->GetPageSize();
    if (FCharPos < position)
        FHScrollBar->SetPosition(FCharPos);
    else if (FCharPos > position + page)
        FHScrollBar->SetPosition(FCharPos - page);
    CaretMoved();
}

void TZtCodeEdit::SetLinePos(int Value)
{
    FLinePos = qMax(0, qMin(Value, FLines->GetCount() - 1));
    const int position = FVScrollBar->GetPosition();
    const int page = FVScrollBar->GetPageSize();
    if (FLinePos < position)
        FVScrollBar->SetPosition(FLinePos);
    else if (FLinePos > position + page - 1)
        FVScrollBar->SetPosition(FLinePos - page);
    CaretMoved();
}

void TZtCodeEdit::CaretMoved()
{
    ResetCaret();
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
    FCaret->Leave();
    TCustomControl::CMExit();
    FCaret->DestroyCaret();
}

void TZtCodeEdit::FocusPaused(bool AActive)
{
    if (AActive)
        FCaret->DestroyCaret();
    else
        ResetCaret();
}
