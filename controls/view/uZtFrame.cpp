#include "uZtFrame.h"

#include "uZtPaintHelpers.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

void TZtFrame::Begin(const TZtFrameLook &ALook)
{
    FLook = ALook;
    FText.SetExact(FLook.Exact);
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
    if (!FLook.Exact)
        return AddRun(ARow, ALeft, S, AFore, ABack, AStyle);
    // What can be seen of it takes no more units than this, also where all are pairs.
    const int cell = std::max(FText.CharWidth(), 1);
    const qsizetype cells = std::max(FLook.Size.width() - ALeft, 0) / cell + 1;
    S = S.first(std::min(S.size(), 2 * cells));
    int x = ALeft;
    while (!S.isEmpty() && x < FLook.Size.width()) {
        const qsizetype count = FText.CountDrawable(S);
        x += AddRun(ARow, x, S.first(count), AFore, ABack, AStyle);
        S = S.sliced(count);
        if (S.isEmpty())
            break;
        AddCluster(ARow, x, cell, S.first(1), AFore, ABack, AStyle);
        x += cell;
        S = S.sliced(1);
    }
    return x - ALeft;
}

void TZtFrame::AddCluster(int ARow, int ALeft, int AWidth, QStringView S, QRgb AFore, QRgb ABack,
                          TFontStyles AStyle)
{
    if (AWidth <= 0 || ALeft + AWidth <= FLook.GuttorWidth || ALeft >= FLook.Size.width())
        return;
    TZtPaintRow &row = Row(ARow);
    row.Pieces.push_back({ALeft, AWidth, row.Text.size(), S.size(), AFore, ABack, AStyle, true});
    row.Text.append(S);
}

int TZtFrame::AddRun(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle)
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
        if (!last.IsCluster && last.Left + last.Width == ALeft && last.Fore == AFore &&
            last.Back == ABack && last.Style == AStyle) {
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
    const int count = (FLook.Size.height() + pitch - 1) / pitch;
    const bool prepared = PrepareImages(count);
    FComplete = false; // nothing is known when the drawing fails
    if (!prepared)
        return;
    Row(count - 1); // rows after the text are empty ones
    PlaceDrawnRows();
    PlaceNewRows();
    if (!FGuttor.isNull() && (!FGuttorKnown || FButtons != FDrawnButtons)) {
        QPainter painter(&FGuttor);
        DrawGuttor(painter);
        FDrawnButtons = FButtons;
        FGuttorKnown = true;
    }
    FComplete = true;
}

// Images of the right size, in which nothing is known when the look has changed.
bool TZtFrame::PrepareImages(int ARowCount)
{
    if (FComplete && FLook == FDrawnLook)
        return true;
    const auto prepare = [this](QImage &AImage, const QSize &ASize) {
        const QSize pixels = (QSizeF(ASize) * FLook.PixelRatio).toSize();
        if (AImage.size() != pixels)
            AImage = QImage(pixels, QImage::Format_RGB32);
        AImage.setDevicePixelRatio(FLook.PixelRatio);
    };
    prepare(FImage, QSize(FLook.Size.width(), ARowCount * FText.LineHeight()));
    if (FImage.isNull())
        return false;
    prepare(FGuttor, QSize(FLook.GuttorWidth, FLook.Size.height()));
    FDrawnLook = FLook;
    FDrawnPitch = FText.LineHeight();
    FGuttorKnown = false;
    FStrips.resize(size_t(ARowCount));
    FShown.resize(size_t(ARowCount));
    for (int i = 0; i < ARowCount; ++i) {
        FStrips[size_t(i)].Known = false;
        FShown[size_t(i)] = i;
    }
    return true;
}

// Whether rows are whole device pixels, so that one looks the same in every strip.
bool TZtFrame::RowsCanMove() const
{
    const qreal pixels = FText.LineHeight() * FLook.PixelRatio;
    return pixels == std::floor(pixels);
}

// Gives the rows that are drawn already their strips. Rows that scrolled, or stand below an
// inserted or removed line, follow each other strip by strip: the search mostly ends at its first
// step.
void TZtFrame::PlaceDrawnRows()
{
    const int count = int(FShown.size());
    for (TStrip &strip : FStrips)
        strip.Taken = false;
    const int reach = RowsCanMove() ? count : 1;
    int next = FShown[0];
    for (int i = 0; i < count; ++i) {
        const int found = FindStrip(next, reach, &FRows[size_t(i)]);
        FShown[size_t(i)] = found;
        if (found >= 0)
            FStrips[size_t(found)].Taken = true;
        next = ((found >= 0 ? found : next) + 1) % count;
    }
}

// Draws the other rows into free strips, as far as there are any behind the row above.
void TZtFrame::PlaceNewRows()
{
    const int count = int(FShown.size());
    QPainter painter;
    for (int i = 0; i < count; ++i) {
        int &shown = FShown[size_t(i)];
        if (shown >= 0)
            continue;
        shown = FindStrip(i > 0 ? (FShown[size_t(i - 1)] + 1) % count : 0, count, nullptr);
        TStrip &strip = FStrips[size_t(shown)];
        std::swap(strip.Row, FRows[size_t(i)]);
        strip.Known = strip.Taken = true;
        if (!painter.isActive())
            painter.begin(&FImage);
        DrawStrip(painter, shown);
    }
}

// The first free one of `AReach` strips from `AFrom` on, around the image, that shows a row, or any
// when `ARow` is null; -1 if there is none.
int TZtFrame::FindStrip(int AFrom, int AReach, const TZtPaintRow *ARow) const
{
    const int count = int(FStrips.size());
    for (int i = 0; i < AReach; ++i) {
        const int at = AFrom + i < count ? AFrom + i : AFrom + i - count;
        const TStrip &strip = FStrips[size_t(at)];
        if (!strip.Taken && (!ARow || (strip.Known && strip.Row == *ARow)))
            return at;
    }
    return -1;
}

void TZtFrame::CopyTo(QPainter &APainter, const QRect &APart) const
{
    const auto copy = [&](const QImage &AImage, const QRect &ATarget, int AShift) {
        const qreal ratio = AImage.devicePixelRatio();
        APainter.drawImage(QRectF(ATarget), AImage,
                           QRectF(QPointF(ATarget.topLeft() + QPoint(0, AShift)) * ratio,
                                  QSizeF(ATarget.size()) * ratio));
    };
    if (!FComplete)
        return;
    // What was drawn, which is older than the look when a paint was broken off.
    const int pitch = FDrawnPitch;
    const int guttorWidth = FDrawnLook.GuttorWidth;
    const QRect part = APart.intersected(QRect(QPoint(), FDrawnLook.Size));
    const QRect text = part.adjusted(std::max(guttorWidth - part.left(), 0), 0, 0, 0);
    int first = text.isEmpty() ? int(FShown.size()) : text.top() / pitch;
    while (first < int(FShown.size()) && first * pitch <= text.bottom()) {
        // Rows whose strips follow each other are copied as one.
        int end = first + 1;
        while (end < int(FShown.size()) && FShown[size_t(end)] == FShown[size_t(end - 1)] + 1)
            ++end;
        const QRect band(text.left(), first * pitch, text.width(), (end - first) * pitch);
        copy(FImage, band.intersected(text), (FShown[size_t(first)] - first) * pitch);
        first = end;
    }
    const QRect guttor = part.intersected(QRect(0, 0, guttorWidth, FDrawnLook.Size.height()));
    if (!guttor.isEmpty())
        copy(FGuttor, guttor, 0);
}

std::vector<TZtPaintRow> TZtFrame::Rows() const
{
    std::vector<TZtPaintRow> rows;
    if (!FComplete)
        return rows;
    for (const int strip : FShown)
        rows.push_back(FStrips[size_t(strip)].Row);
    return rows;
}

void TZtFrame::DrawStrip(QPainter &APainter, int AStrip)
{
    const TZtPaintRow &row = FStrips[size_t(AStrip)].Row;
    const int top = AStrip * FText.LineHeight();
    const QRect area(FLook.GuttorWidth, top, FLook.Size.width() - FLook.GuttorWidth,
                     FText.LineHeight());
    APainter.setClipRect(area);
    APainter.fillRect(area, QColor(FLook.Back));
    if (row.Coloured)
        APainter.fillRect(
            QRect(row.ColouredLeft, top, FLook.Size.width() - row.ColouredLeft, FText.LineHeight()),
            QColor(row.ColouredBack));
    DrawRowText(APainter, row, top);
    if (FLook.MarginX >= 0)
        APainter.fillRect(FLook.MarginX, top, 1, FText.LineHeight(), QColor(FLook.Margin));
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
        if (first.IsCluster) {
            FText.DrawCluster(APainter, {first.Left, ATop, first.Width, FText.LineHeight()},
                              ARow.TextOf(first), QColor(first.Fore), QColor(first.Back),
                              first.Style);
            continue;
        }
        FText.Begin(APainter, ATop, QColor(first.Fore), first.Style);
        for (size_t k = i; k < ARow.Pieces.size(); ++k) {
            const TZtPaintPiece &piece = ARow.Pieces[k];
            if (piece.IsCluster || piece.Fore != first.Fore || piece.Style != first.Style)
                continue;
            FText.Add(APainter, piece.Left, ARow.TextOf(piece));
            FTextDrawn[k] = true;
        }
        FText.End(APainter);
    }
}

void TZtFrame::DrawGuttor(QPainter &APainter)
{
    const int width = FLook.GuttorWidth;
    const int height = FLook.Size.height();
    APainter.fillRect(0, 0, width, height, QColor(FLook.GuttorFace));
    APainter.fillRect(width - 2, 0, 1, height, QColor(FLook.GuttorLight));
    APainter.fillRect(width - 1, 0, 1, height, QColor(FLook.GuttorShadow));
    for (const TButton &button : FButtons)
        ZtPaintTreeButton(APainter, button.Rect, button.Expanded);
}
