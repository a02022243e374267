#include "uZtFrame.h"

#include "uZtPaintHelpers.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

qreal ZtRowPitch(int ALineHeight, qreal ARatio)
{
    return ARatio == std::floor(ARatio) ? ALineHeight
                                        : std::ceil(ALineHeight * ARatio - 1e-6) / ARatio;
}

QStringView TZtPaintRow::Before(size_t APiece) const
{
    if (APiece == 0)
        return {};
    const TZtPaintPiece &piece = Pieces[APiece];
    const TZtPaintPiece &before = Pieces[APiece - 1];
    return before.Left + before.Width == piece.Left ? TextOf(before) : QStringView();
}

QStringView TZtPaintRow::Behind(size_t APiece) const
{
    if (APiece + 1 >= Pieces.size())
        return {};
    const TZtPaintPiece &piece = Pieces[APiece];
    const TZtPaintPiece &behind = Pieces[APiece + 1];
    return piece.Left + piece.Width == behind.Left ? TextOf(behind) : QStringView();
}

void TZtFrame::Begin(const TZtFrameLook &ALook, const TZtGuttor *AGuttor)
{
    FLook = ALook;
    FGuttor = AGuttor;
    FText.SetExact(FLook.Exact);
    FRowCount = 0;
}

TZtPaintRow &TZtFrame::Row(int ARow)
{
    while (FRowCount <= ARow) {
        if (size_t(FRowCount) == FRows.size()) {
            FRows.emplace_back();
            FGuttorRows.emplace_back();
        }
        FGuttorRows[size_t(FRowCount)].Cells.clear();
        FGuttorRows[size_t(FRowCount)].HasButton = false;
        TZtPaintRow &row = FRows[size_t(FRowCount++)];
        row.Text.resize(0);
        row.Pieces.clear();
        row.Guides.clear();
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

void TZtFrame::AddButton(int ARow, bool AExpanded)
{
    Row(ARow);
    FGuttorRows[size_t(ARow)].HasButton = true;
    FGuttorRows[size_t(ARow)].IsExpanded = AExpanded;
}

std::vector<quint64> &TZtFrame::Cells(int ARow)
{
    Row(ARow);
    return FGuttorRows[size_t(ARow)].Cells;
}

int TZtFrame::AddText(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack,
                      TFontStyles AStyle, const TZtPieceMarks &AMarks)
{
    if (!FLook.Exact)
        return AddRun(ARow, ALeft, S, AFore, ABack, AStyle, AMarks);
    // What can be seen of it takes no more units than this, also where all are pairs.
    const int cell = std::max(FText.CharWidth(), 1);
    const qsizetype cells = std::max(FLook.Size.width() - ALeft, 0) / cell + 1;
    S = S.first(std::min(S.size(), 2 * cells));
    int x = ALeft;
    while (!S.isEmpty() && x < FLook.Size.width()) {
        const qsizetype count = FText.CountDrawable(S);
        x += AddRun(ARow, x, S.first(count), AFore, ABack, AStyle, AMarks);
        S = S.sliced(count);
        if (S.isEmpty())
            break;
        AddCluster(ARow, x, cell, S.first(1), AFore, ABack, AStyle, AMarks);
        x += cell;
        S = S.sliced(1);
    }
    return x - ALeft;
}

void TZtFrame::AddCluster(int ARow, int ALeft, int AWidth, QStringView S, QRgb AFore, QRgb ABack,
                          TFontStyles AStyle, const TZtPieceMarks &AMarks)
{
    if (AWidth <= 0 || ALeft + AWidth <= FLook.GuttorWidth || ALeft >= FLook.Size.width())
        return;
    TZtPaintRow &row = Row(ARow);
    row.Pieces.push_back(
        {ALeft, AWidth, row.Text.size(), S.size(), AFore, ABack, AStyle, true, AMarks});
    row.Text.append(S);
}

int TZtFrame::AddRun(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle,
                     const TZtPieceMarks &AMarks)
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
            last.Back == ABack && last.Style == AStyle && last.Marks == AMarks) {
            last.Width += width;
            last.Length += count;
            return width;
        }
    }
    row.Pieces.push_back({ALeft, width, start, count, AFore, ABack, AStyle, false, AMarks});
    return width;
}

qreal TZtFrame::Pitch() const
{
    const int height = std::max(FText.LineHeight(), 1);
    return FLook.Exact ? ZtRowPitch(height, FLook.PixelRatio) : height;
}

void TZtFrame::Finish()
{
    const int count = int(std::ceil(FLook.Size.height() / Pitch()));
    const bool prepared = PrepareImages(count);
    FComplete = false; // nothing is known when the drawing fails
    if (!prepared)
        return;
    Row(count - 1); // rows after the text are empty ones
    FImage.Show(FRows, [this](QPainter &p, const TZtPaintRow &row) { DrawRow(p, row); });
    FGuttorImage.Show(FGuttorRows,
                      [this](QPainter &p, const TGuttorRow &row) { DrawGuttorRow(p, row); });
    FComplete = true;
}

// Images of the right size, in which nothing is known when the look has changed.
bool TZtFrame::PrepareImages(int ARowCount)
{
    if (FComplete && FLook == FDrawnLook)
        return true;
    FDrawnLook = FLook;
    const qreal ratio = FLook.PixelRatio;
    return FImage.Prepare(FLook.Size.width(), ARowCount, Pitch(), ratio) &&
           FGuttorImage.Prepare(FLook.GuttorWidth, ARowCount, Pitch(), ratio);
}

void TZtFrame::CopyTo(QPainter &APainter, const QRect &APart) const
{
    if (!FComplete)
        return;
    // What was drawn, which is older than the look when a paint was broken off.
    const QRect part = APart.intersected(QRect(QPoint(), FDrawnLook.Size));
    const int width = FDrawnLook.GuttorWidth;
    const QRect text = part.adjusted(std::max(width - part.left(), 0), 0, 0, 0);
    FImage.CopyTo(APainter, text);
    FGuttorImage.CopyTo(APainter, part & QRect(0, 0, width, FDrawnLook.Size.height()));
}

std::vector<TZtPaintRow> TZtFrame::Rows() const
{
    return FComplete ? FImage.Rows() : std::vector<TZtPaintRow>();
}

void TZtFrame::DrawRow(QPainter &APainter, const TZtPaintRow &ARow)
{
    const QRectF area(FLook.GuttorWidth, 0, FLook.Size.width() - FLook.GuttorWidth, Pitch());
    if (Pitch() == std::floor(Pitch()))
        APainter.setClipRect(area.toRect());
    else
        APainter.setClipRect(area);
    APainter.fillRect(area, QColor(FLook.Back));
    if (ARow.Coloured)
        APainter.fillRect(
            QRectF(ARow.ColouredLeft, 0, FLook.Size.width() - ARow.ColouredLeft, Pitch()),
            QColor(ARow.ColouredBack));
    DrawBackgrounds(APainter, ARow);
    for (const TZtPaintGuide &guide : ARow.Guides)
        APainter.fillRect(QRectF(guide.Left, 0, 1, Pitch()), QColor(guide.Colour));
    DrawTexts(APainter, ARow);
    DrawMarks(APainter, ARow);
    if (FLook.MarginX >= 0)
        APainter.fillRect(QRectF(FLook.MarginX, 0, 1, Pitch()), QColor(FLook.Margin));
}

// All of them first: a slanted letter may lean over the next piece.
void TZtFrame::DrawBackgrounds(QPainter &APainter, const TZtPaintRow &ARow)
{
    for (const TZtPaintPiece &piece : ARow.Pieces)
        if (ARow.Coloured ? piece.Back != ARow.ColouredBack || piece.Left < ARow.ColouredLeft
                          : piece.Back != FLook.Back)
            APainter.fillRect(QRectF(piece.Left, 0, piece.Width, Pitch()), QColor(piece.Back));
}

// Those of one colour and style together wherever they stand in the row.
void TZtFrame::DrawTexts(QPainter &APainter, const TZtPaintRow &ARow)
{
    FTextDrawn.assign(ARow.Pieces.size(), false);
    for (size_t i = 0; i < ARow.Pieces.size(); ++i) {
        if (FTextDrawn[i])
            continue;
        const TZtPaintPiece &first = ARow.Pieces[i];
        if (first.IsCluster) {
            FText.DrawCluster(APainter, {first.Left, 0, first.Width, FText.LineHeight()},
                              ARow.TextOf(first), QColor(first.Fore), QColor(first.Back),
                              first.Style, ARow.Before(i), ARow.Behind(i));
            continue;
        }
        FText.Begin(APainter, 0, QColor(first.Fore), first.Style);
        for (size_t k = i; k < ARow.Pieces.size(); ++k) {
            const TZtPaintPiece &piece = ARow.Pieces[k];
            if (piece.IsCluster || piece.Fore != first.Fore || piece.Style != first.Style)
                continue;
            FText.Add(APainter, piece.Left, ARow.TextOf(piece), ARow.Before(k), ARow.Behind(k));
            FTextDrawn[k] = true;
        }
        FText.End(APainter);
    }
}

void TZtFrame::DrawMarks(QPainter &APainter, const TZtPaintRow &ARow)
{
    for (const TZtPaintPiece &piece : ARow.Pieces) {
        const TZtPieceMarks &marks = piece.Marks;
        if (marks.AreBlanksSeen)
            DrawBlanks(APainter, ARow, piece);
        ZtPaintUnderline(APainter, marks.Line, piece.Left, piece.Width, FText.Baseline() + 2,
                         QColor(marks.LineColour));
        if (marks.IsStruck)
            APainter.fillRect(piece.Left, FText.LineHeight() / 2, piece.Width, 1,
                              QColor(marks.StrikeColour));
        if (!marks.IsBoxed)
            continue;
        const QColor colour(marks.BoxColour);
        const int bottom = FText.LineHeight() - 1;
        APainter.fillRect(piece.Left, 0, piece.Width, 1, colour);
        APainter.fillRect(piece.Left, bottom, piece.Width, 1, colour);
        if (marks.BoxBegins)
            APainter.fillRect(piece.Left, 0, 1, bottom, colour);
        if (marks.BoxEnds)
            APainter.fillRect(piece.Left + piece.Width - 1, 0, 1, bottom, colour);
    }
}

// A dot in the middle of each blank's cell. A tab is blanks here, of which the first is an arrow
// over all of them.
void TZtFrame::DrawBlanks(QPainter &APainter, const TZtPaintRow &ARow, const TZtPaintPiece &APiece)
{
    const QStringView text = ARow.TextOf(APiece);
    const int cell = FText.CharWidth();
    const int dot = std::max(FText.LineHeight() / 9, 1);
    const int top = (FText.LineHeight() - dot) / 2;
    if (APiece.IsCluster) {
        if (text.startsWith(u'\t'))
            ZtPaintTabArrow(APainter, {APiece.Left, 0, APiece.Width, FText.LineHeight()},
                            QColor(APiece.Marks.BlankColour));
        return;
    }
    int x = APiece.Left + (cell - dot) / 2;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u' ')
            APainter.fillRect(x, top, dot, dot, QColor(APiece.Marks.BlankColour));
        if (!text[i].isLowSurrogate()) // the other half of a character of one cell
            x += cell;
    }
}

void TZtFrame::DrawGuttorRow(QPainter &APainter, const TGuttorRow &ARow)
{
    const int width = FLook.GuttorWidth;
    APainter.setClipRect(QRectF(0, 0, width, Pitch())); // the next strip shows another row
    APainter.fillRect(QRectF(0, 0, width, Pitch()), QColor(FLook.GuttorFace));
    APainter.fillRect(QRectF(width - 2, 0, 1, Pitch()), QColor(FLook.GuttorLight));
    APainter.fillRect(QRectF(width - 1, 0, 1, Pitch()), QColor(FLook.GuttorShadow));
    if (FGuttor && !ARow.Cells.empty())
        FGuttor->Draw(APainter, FText, Pitch(), ARow.Cells, FLook.Guttor);
    if (ARow.HasButton)
        ZtPaintTreeButton(APainter, QRect(4, 0, 16, 15), ARow.IsExpanded);
}
