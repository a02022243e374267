#include "uZtFrame.h"

#include "uZtPaintHelpers.h"

#include <QPainter>

#include <algorithm>

void TZtFrame::Begin(const TZtFrameLook &ALook)
{
    FLook = ALook;
    FRowCount = 0;
    FButtons.clear();
}

TZtPaintRow &TZtFrame::Row(int ARow)
{
    while (FRowCount <= ARow) {
        if (size_t(FRowCount) == FRows.size())
            FRows.emplace_back();
        TZtPaintRow &row = FRows[size_t(FRowCount++)];
        row.Text.resize(0);
        row.Pieces.clear();
        row.Coloured = false;
        row.ColouredLeft = 0;
        row.ColouredBack = 0;
    }
    return FRows[size_t(ARow)];
}

void TZtFrame::ColourRow(int ARow, int ALeft, QRgb ABack)
{
    TZtPaintRow &row = Row(ARow);
    row.Coloured = true;
    row.ColouredLeft = ALeft;
    row.ColouredBack = ABack;
}

int TZtFrame::AddText(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack,
                      TFontStyles AStyle)
{
    int width = 0;
    const qsizetype count = FText.Fit(S, AStyle, FLook.Size.width() - ALeft, width);
    if (count == 0 || ALeft + width <= FLook.GuttorWidth)
        return width;
    TZtPaintRow &row = Row(ARow);
    const qsizetype start = row.Text.size();
    row.Text.append(S.first(count));
    if (!row.Pieces.empty()) {
        TZtPaintPiece &last = row.Pieces.back();
        if (last.Left + last.Width == ALeft && last.Fore == AFore && last.Back == ABack &&
            last.Style == AStyle) {
            last.Width += width;
            last.Length += count;
            return width;
        }
    }
    row.Pieces.push_back({ALeft, width, start, count, AFore, ABack, AStyle});
    return width;
}

void TZtFrame::AddButton(const QRect &ARect, bool AExpanded)
{
    FButtons.push_back({ARect, AExpanded});
}

void TZtFrame::Finish()
{
    const int height = FLook.Size.height();
    const int pitch = std::max(FText.LineHeight(), 1);
    const int screenRows = (height + pitch - 1) / pitch;
    bool all = !(FLook == FDrawnLook) || FImage.isNull();
    if (all) {
        const QSize pixels = (QSizeF(FLook.Size) * FLook.PixelRatio).toSize();
        if (FImage.size() != pixels)
            FImage = QImage(pixels, QImage::Format_RGB32);
        FImage.setDevicePixelRatio(FLook.PixelRatio);
        FDrawnLook = FLook;
    }
    if (FImage.isNull())
        return;
    Row(screenRows - 1); // rows after the text are empty ones
    FDrawn.resize(size_t(screenRows));
    QPainter painter(&FImage);
    for (int i = 0; i < screenRows; ++i) {
        TZtPaintRow &drawn = FDrawn[size_t(i)];
        if (!all && drawn == FRows[size_t(i)])
            continue;
        std::swap(drawn, FRows[size_t(i)]);
        DrawRow(painter, i);
    }
    if (all || FButtons != FDrawnButtons) {
        DrawGuttor(painter);
        FDrawnButtons = FButtons;
    }
}

void TZtFrame::DrawRow(QPainter &APainter, int ARow)
{
    const TZtPaintRow &row = FDrawn[size_t(ARow)];
    const int top = ARow * FText.LineHeight();
    const QRect area(FLook.GuttorWidth, top, FLook.Size.width() - FLook.GuttorWidth,
                     FText.LineHeight());
    APainter.setClipRect(area);
    APainter.fillRect(area, QColor(FLook.Back));
    if (row.Coloured)
        APainter.fillRect(
            QRect(row.ColouredLeft, top, FLook.Size.width() - row.ColouredLeft, FText.LineHeight()),
            QColor(row.ColouredBack));
    DrawRowText(APainter, row, top);
    DrawMargin(APainter, top, top + FText.LineHeight());
}

void TZtFrame::DrawRowText(QPainter &APainter, const TZtPaintRow &ARow, int ATop)
{
    // All backgrounds first: a slanted letter may lean over the next piece.
    for (const TZtPaintPiece &piece : ARow.Pieces)
        APainter.fillRect(piece.Left, ATop, piece.Width, FText.LineHeight(), QColor(piece.Back));
    for (const TZtPaintPiece &piece : ARow.Pieces)
        FText.Draw(APainter, piece.Left, ATop, ARow.TextOf(piece), QColor(piece.Fore), piece.Style);
}

void TZtFrame::DrawMargin(QPainter &APainter, int ATop, int ABottom)
{
    if (FLook.MarginX >= 0)
        APainter.fillRect(FLook.MarginX, ATop, 1, ABottom - ATop, QColor(FLook.Margin));
}

void TZtFrame::DrawGuttor(QPainter &APainter)
{
    const int width = FLook.GuttorWidth;
    const int height = FLook.Size.height();
    if (width <= 0)
        return;
    APainter.setClipRect(0, 0, width, height);
    APainter.fillRect(0, 0, width, height, QColor(FLook.GuttorFace));
    APainter.fillRect(width - 2, 0, 1, height, QColor(FLook.GuttorLight));
    APainter.fillRect(width - 1, 0, 1, height, QColor(FLook.GuttorShadow));
    for (const TButton &button : FButtons)
        ZtPaintTreeButton(APainter, button.Rect, button.Expanded);
}
