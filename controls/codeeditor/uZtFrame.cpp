#include "uZtFrame.h"

#include "uZtPaintHelpers.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

void TZtFrame::Begin(const TZtFrameLook &ALook, int AFirstLine)
{
    FLook = ALook;
    FFirstLine = AFirstLine;
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
    const int pitch = std::max(FText.LineHeight(), 1);
    const int screenRows = (FLook.Size.height() + pitch - 1) / pitch;
    if (!PrepareImage())
        return;
    Row(screenRows - 1); // rows after the text are empty ones
    FDrawn.resize(size_t(screenRows));
    FKnown.resize(size_t(screenRows));
    MoveRows();
    MoveBelowChange();
    QPainter painter(&FImage);
    for (int i = 0; i < screenRows; ++i) {
        TZtPaintRow &drawn = FDrawn[size_t(i)];
        if (FKnown[size_t(i)] && drawn == FRows[size_t(i)])
            continue;
        std::swap(drawn, FRows[size_t(i)]);
        FKnown[size_t(i)] = true;
        DrawRow(painter, i);
    }
    if (!FGuttorKnown || FButtons != FDrawnButtons) {
        DrawGuttor(painter);
        FDrawnButtons = FButtons;
        FGuttorKnown = true;
    }
}

// A picture of the right size, in which nothing is known when the look has changed.
bool TZtFrame::PrepareImage()
{
    if (FLook == FDrawnLook && !FImage.isNull())
        return true;
    const QSize pixels = (QSizeF(FLook.Size) * FLook.PixelRatio).toSize();
    if (FImage.size() != pixels)
        FImage = QImage(pixels, QImage::Format_RGB32);
    FImage.setDevicePixelRatio(FLook.PixelRatio);
    FDrawnLook = FLook;
    FKnown.clear();
    FGuttorKnown = false;
    return !FImage.isNull();
}

// Moves what is drawn along with the text, where whole rows are whole device pixels.
void TZtFrame::MoveRows()
{
    const int count = int(FDrawn.size());
    const int shift = FFirstLine - FDrawnFirstLine;
    FDrawnFirstLine = FFirstLine;
    if (shift == 0 || std::abs(shift) >= count || RowPixels() == 0)
        return;
    FKnown[size_t(count - 1)] = false; // it may be cut off at the bottom
    const qsizetype stride = FImage.bytesPerLine();
    const qsizetype moved = std::abs(shift) * RowPixels() * stride;
    const qsizetype kept = FImage.sizeInBytes() - moved;
    uchar *bits = FImage.bits();
    if (shift > 0) {
        std::memmove(bits, bits + moved, size_t(kept));
        std::rotate(FDrawn.begin(), FDrawn.begin() + shift, FDrawn.end());
        std::rotate(FKnown.begin(), FKnown.begin() + shift, FKnown.end());
        std::fill(FKnown.end() - shift, FKnown.end(), false);
    } else {
        std::memmove(bits + moved, bits, size_t(kept));
        std::rotate(FDrawn.begin(), FDrawn.end() + shift, FDrawn.end());
        std::rotate(FKnown.begin(), FKnown.end() + shift, FKnown.end());
        std::fill(FKnown.begin(), FKnown.begin() - shift, false);
    }
    FGuttorKnown = FGuttorKnown && FDrawnButtons.empty();
}

// A row's height in device pixels, or 0 where it is not a whole number.
int TZtFrame::RowPixels() const
{
    const qreal pixels = FText.LineHeight() * FLook.PixelRatio;
    return pixels == std::floor(pixels) ? int(pixels) : 0;
}

// Where a line was inserted or removed, the rows below it are the old ones, one further down or up.
void TZtFrame::MoveBelowChange()
{
    const int count = int(FDrawn.size());
    int changed = 0;
    while (changed < count && FKnown[size_t(changed)] &&
           FDrawn[size_t(changed)] == FRows[size_t(changed)])
        ++changed;
    // The row of the change, and the new one below it, are drawn in any case.
    if (RowPixels() > 0 && FDrawnButtons.empty() && !MoveBand(changed + 2, 1))
        MoveBand(changed + 1, -1);
}

bool TZtFrame::MoveBand(int AFrom, int AShift)
{
    constexpr int worthIt = 4;
    const int count = int(FDrawn.size());
    const int end = AShift > 0 ? count : count - 1;
    if (end - AFrom < worthIt)
        return false;
    for (int i = AFrom; i < end; ++i)
        if (!FKnown[size_t(i - AShift)] || !(FRows[size_t(i)] == FDrawn[size_t(i - AShift)]))
            return false;
    const qsizetype row = RowPixels() * FImage.bytesPerLine();
    uchar *bits = FImage.bits();
    const int top = AShift > 0 ? AFrom - 1 : AFrom; // of the two rows that meet there
    const qsizetype size = FImage.sizeInBytes() - (top + 1) * row;
    if (AShift > 0) {
        std::memmove(bits + (top + 1) * row, bits + top * row, size_t(size));
        std::rotate(FDrawn.begin() + top, FDrawn.end() - 1, FDrawn.end());
        std::rotate(FKnown.begin() + top, FKnown.end() - 1, FKnown.end());
        FKnown[size_t(top)] = false;
    } else {
        std::memmove(bits + top * row, bits + (top + 1) * row, size_t(size));
        std::rotate(FDrawn.begin() + top, FDrawn.begin() + top + 1, FDrawn.end());
        std::rotate(FKnown.begin() + top, FKnown.begin() + top + 1, FKnown.end());
        FKnown[size_t(count - 1)] = FKnown[size_t(count - 2)] = false; // was cut off at the bottom
    }
    return true;
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
        if (ARow.Coloured || piece.Back != FLook.Back)
            APainter.fillRect(piece.Left, ATop, piece.Width, FText.LineHeight(),
                              QColor(piece.Back));
    // Then the texts, those of one colour and style together wherever they stand in the row.
    FTextDrawn.assign(ARow.Pieces.size(), false);
    for (size_t i = 0; i < ARow.Pieces.size(); ++i) {
        if (FTextDrawn[i])
            continue;
        const TZtPaintPiece &first = ARow.Pieces[i];
        FText.Begin(APainter, ATop, QColor(first.Fore), first.Style);
        for (size_t k = i; k < ARow.Pieces.size(); ++k) {
            const TZtPaintPiece &piece = ARow.Pieces[k];
            if (piece.Fore != first.Fore || piece.Style != first.Style)
                continue;
            FText.Add(APainter, piece.Left, ARow.TextOf(piece));
            FTextDrawn[k] = true;
        }
        FText.End(APainter);
    }
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
