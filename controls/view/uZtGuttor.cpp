#include "uZtGuttor.h"

#include "uZtMarkShapes.h"
#include "uZtTextPainter.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int EdgeWidth = 4; // behind the last column, in pixels
constexpr int BarWidth = 3;
constexpr int BarRoom = 6;
constexpr quint64 CurrentBit = quint64(1) << 63;

int Digits(int ACount) { return std::max(int(QString::number(ACount).size()), 2); }

} // namespace

// --- numbers -------------------------------------------------------------------------------------

int TZtNumberColumn::GetWidth(const TZtGuttorSight &ASight) const
{
    return (Digits(ASight.LineCount) + 1) * ASight.CharWidth;
}

quint64 TZtNumberColumn::GetCell(int ALine, const TZtGuttorSight &ASight) const
{
    return quint64(ALine + 1) | (ALine == ASight.CaretLine ? CurrentBit : 0);
}

void TZtNumberColumn::Draw(QPainter &APainter, TZtTextPainter &AText, const QRectF &ACell,
                           quint64 AValue, const TZtGuttorLook &ALook) const
{
    const bool current = AValue & CurrentBit;
    const QString number = QString::number(AValue & ~CurrentBit);
    const int width = int(number.size()) * AText.CharWidth();
    const int right = int(ACell.right()) - AText.CharWidth() / 2;
    AText.Begin(APainter, 0, QColor(current ? ALook.CurrentText : ALook.Text),
                current ? TFontStyle::fsBold : TFontStyles());
    AText.Add(APainter, right - width, number);
    AText.End(APainter);
}

// --- marks ---------------------------------------------------------------------------------------

void TZtMarkColumn::SetIcon(TZtLineMark AKind, const QIcon &AIcon)
{
    FIcons.resize(size_t(TZtLineMark::lmLast) + 1);
    FIcons[size_t(AKind)] = AIcon;
    ++FRevision;
}

int TZtMarkColumn::GetWidth(const TZtGuttorSight &ASight) const { return ASight.LineHeight; }

quint64 TZtMarkColumn::GetCell(int ALine, const TZtGuttorSight &) const { return FMarks(ALine); }

void TZtMarkColumn::Draw(QPainter &APainter, TZtTextPainter &, const QRectF &ACell, quint64 AValue,
                         const TZtGuttorLook &ALook) const
{
    const qreal side = std::min(ACell.width(), ACell.height()) - 2;
    QRectF box(0, 0, side, side);
    box.moveCenter(ACell.center());
    for (const TZtLineMark kind : ZtMarksInSight(TZtLineMarkSet(AValue))) {
        const bool own = size_t(kind) < FIcons.size() && !FIcons[size_t(kind)].isNull();
        if (own)
            FIcons[size_t(kind)].paint(&APainter, box.toRect());
        else
            ZtPaintMark(APainter, box, kind, ALook);
    }
}

// --- changes -------------------------------------------------------------------------------------

int TZtChangeColumn::GetWidth(const TZtGuttorSight &) const { return BarRoom; }

quint64 TZtChangeColumn::GetCell(int ALine, const TZtGuttorSight &) const
{
    return quint64(FState(ALine));
}

// What is saved is a thinner bar, so that nobody needs to tell the colours apart.
void TZtChangeColumn::Draw(QPainter &APainter, TZtTextPainter &, const QRectF &ACell,
                           quint64 AValue, const TZtGuttorLook &ALook) const
{
    const auto state = TZtLineState(AValue);
    const QRectF bar(ACell.right() - BarRoom + 1, ACell.top(), BarWidth, ACell.height());
    if (state == TZtLineState::csChanged)
        APainter.fillRect(bar, QColor(ALook.Changed));
    if (state == TZtLineState::csSaved)
        APainter.fillRect(bar.adjusted(1, 0, -1, 0), QColor(ALook.Saved));
}

// --- all of them ---------------------------------------------------------------------------------

void TZtGuttor::Insert(int AIndex, std::unique_ptr<TZtGuttorColumn> AColumn)
{
    if (!AColumn)
        return;
    const int at = AIndex < 0 ? GetCount() : std::min(AIndex, GetCount());
    FColumns.insert(FColumns.begin() + at, std::move(AColumn));
    ++FRevision;
    if (OnChange)
        OnChange();
}

int TZtGuttor::IndexOf(const TZtGuttorColumn *AColumn) const
{
    for (int i = 0; i < GetCount(); ++i)
        if (GetColumn(i) == AColumn)
            return i;
    return -1;
}

void TZtGuttor::Remove(const TZtGuttorColumn *AColumn)
{
    const int at = IndexOf(AColumn);
    if (at < 0)
        return;
    FColumns.erase(FColumns.begin() + at);
    ++FRevision;
    if (OnChange)
        OnChange();
}

bool TZtGuttor::HasColumns() const
{
    return std::any_of(FColumns.begin(), FColumns.end(),
                       [](const auto &column) { return column->GetVisible(); });
}

int TZtGuttor::WidthOf(int AIndex, const TZtGuttorSight &ASight) const
{
    const TZtGuttorColumn &column = *FColumns[size_t(AIndex)];
    return column.GetVisible() ? column.GetWidth(ASight) : 0;
}

int TZtGuttor::GetWidth(const TZtGuttorSight &ASight) const
{
    int width = EdgeWidth;
    for (int i = 0; i < GetCount(); ++i)
        width += WidthOf(i, ASight);
    return width;
}

int TZtGuttor::ColumnAt(int AX, const TZtGuttorSight &ASight) const
{
    int right = 0;
    for (int i = 0; i < GetCount(); ++i) {
        right += WidthOf(i, ASight);
        if (AX < right)
            return i;
    }
    return -1;
}

void TZtGuttor::GetCells(int ALine, const TZtGuttorSight &ASight,
                         std::vector<quint64> &ACells) const
{
    for (const auto &column : FColumns)
        ACells.push_back(column->GetVisible() ? column->GetCell(ALine, ASight) : 0);
}

void TZtGuttor::Arrange(const TZtGuttorSight &ASight)
{
    FWidths.clear();
    for (int i = 0; i < GetCount(); ++i)
        FWidths.push_back(WidthOf(i, ASight));
}

void TZtGuttor::Draw(QPainter &APainter, TZtTextPainter &AText, qreal AHeight,
                     const std::vector<quint64> &ACells, const TZtGuttorLook &ALook) const
{
    int left = 0;
    // A handler may have taken columns away since the widths were measured.
    for (size_t i = 0; i < std::min({ACells.size(), FWidths.size(), FColumns.size()}); ++i) {
        if (FWidths[i] > 0) {
            APainter.save(); // for the next one, whatever a host's column sets
            FColumns[i]->Draw(APainter, AText, QRectF(left, 0, FWidths[i], AHeight), ACells[i],
                              ALook);
            APainter.restore();
        }
        left += FWidths[i];
    }
}
