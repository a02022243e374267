#include "uZtTextPrinter.h"

#include "uZtException.h"
#include "uZtLineWrap.h"
#include "uZtStringList.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace {

constexpr qreal UnitsPerInch = 1200;
constexpr qreal PointsPerInch = 72;
constexpr qreal UsualSize = 9;     // points
constexpr int LeastTextWidth = 20; // cells beside numbers
constexpr char16_t LastSimple = 0x058F;

// Whether a character is drawn alike whatever stands beside it, from left to right.
bool IsSimple(char16_t C)
{
    return (C > u' ' && C < 127) ||
           (C > 160 && C <= LastSimple && !QChar(C).isMark() && C != 0xAD) ||
           (C >= 0x1E00 && C < 0x2000) || (C >= 0x2010 && C <= 0x2027) ||
           (C >= 0x2030 && C < 0x205F) || (C >= 0x20A0 && C < 0x20C0) ||
           (C >= 0x2100 && C < 0x2C00);
}

QColor ColourOf(quint32 AColour) { return QColor(QRgb(AColour | 0xFF000000)); }

} // namespace

TZtTextPrinter::TZtTextPrinter(const TZtColouredText &AText, const TZtCellRules &ACells,
                               const TZtPrintOptions &AOptions)
    : FText(AText), FCells(ACells), FOptions(AOptions), FColours([&] {
          FText.Scheme =
              FOptions.Scheme ? FOptions.Scheme : TZtColorScheme::Find(QStringLiteral("Light"));
          return FText;
      }())
{
    FPaper = FOptions.Monochrome ? 0xFFFFFF : FText.GetColour(TZtViewColor::vcBackground);
    FInk = FOptions.Monochrome ? 0 : FText.GetColour(TZtViewColor::vcText);
    FNumbers = FOptions.Monochrome ? 0 : FText.GetColour(TZtViewColor::vcGuttorText);
    SetFont();
}

void TZtTextPrinter::SetFont()
{
    FFont = FOptions.Font.value_or(QFont(QStringLiteral("Liberation Mono"), int(UsualSize)));
    const qreal points = FFont.pointSizeF() > 0 ? FFont.pointSizeF() : UsualSize;
    FFont.setPixelSize(std::max(qRound(points * UnitsPerInch / PointsPerInch), 1));
    FFont.setHintingPreference(QFont::PreferNoHinting);
    FFont.setKerning(false);
    FPainter.SetExact(true);
    FPainter.SetFont(FFont);
    FPitch = FPainter.LineHeight();
    FBaseline = FPainter.Baseline();
    FCell = std::max(QFontMetricsF(FFont).horizontalAdvance(u'X'), 1.0);
}

int TZtTextPrinter::PageCount(const QPagedPaintDevice &ADevice)
{
    LayOut(ADevice);
    return int(FPages.size());
}

void TZtTextPrinter::LayOut(const QPagedPaintDevice &ADevice)
{
    FPage = QSizeF(ADevice.width() * UnitsPerInch / std::max(ADevice.logicalDpiX(), 1),
                   ADevice.height() * UnitsPerInch / std::max(ADevice.logicalDpiY(), 1));
    const auto isGiven = [](const QString &field) { return !field.isEmpty(); };
    const int room = int(FPage.height() / FPitch);
    FHasHeader = room >= 6 && std::ranges::any_of(FOptions.Header, isGiven);
    FHasFooter = room >= 6 && std::ranges::any_of(FOptions.Footer, isGiven);
    FTop = FHasHeader ? 2 * FPitch : 0;
    FRows = std::max(int((FPage.height() - FTop - (FHasFooter ? 2 * FPitch : 0)) / FPitch), 1);
    const int cells = int(FPage.width() / FCell);
    FDigits = int(QString::number(FText.GetLastLine() + 1).size());
    if (!FOptions.LineNumbers || cells - FDigits - 2 < LeastTextWidth)
        FDigits = 0;
    // Without numbers there still is room for the mark of what goes on.
    const int beside = FDigits > 0 ? FDigits + 2 : FOptions.Wrap && cells > 2 ? 2 : 0;
    FLeft = beside * FCell;
    FColumns = std::max(cells - beside, 1);
    Paginate();
}

void TZtTextPrinter::Paginate()
{
    TPlace place{FText.From.y(), FText.From.x()};
    FPages.assign(1, place);
    TRow row;
    int rows = 0;
    for (TPlace next = place; NextRow(next, row); place = next) {
        if (rows == FRows) {
            FPages.push_back(place);
            rows = 0;
        }
        ++rows;
    }
}

// Takes the row that begins at a place, which moves behind it; false behind the last.
bool TZtTextPrinter::NextRow(TPlace &APlace, TRow &ARow)
{
    if (!FColours.IsIntact() || APlace.Line > FText.GetLastLine())
        return false;
    const int start = FText.GetStart(APlace.Line);
    const int end = FText.GetEnd(APlace.Line);
    ARow = {APlace.Line, APlace.Column, end, 0, APlace.Column <= start};
    ARow.Column = std::min(ARow.Column, end);
    // Most lines are seen to fit by their length.
    const int widest = std::max(FCells.Tabs ? FCells.TabWidth : 1, 2);
    if (FOptions.Wrap && (!ARow.IsFirst || end - ARow.Column > FColumns / widest)) {
        ARow.Indent = ARow.IsFirst ? 0 : IndentOf(APlace.Line);
        ARow.End = ZtRowEnd(FText.Lines->View(APlace.Line), ARow.Column, end,
                            FColumns - ARow.Indent, FCells);
    }
    const bool done = ARow.End >= end;
    APlace = done ? TPlace{APlace.Line + 1, 0} : TPlace{APlace.Line, ARow.End};
    return true;
}

// How far rows that go on stand below the line's own beginning.
int TZtTextPrinter::IndentOf(int ALine) const
{
    const int from = FText.GetStart(ALine);
    const int to = std::min(FText.GetEnd(ALine), from + FColumns);
    int cells = 0;
    ZtForEachCluster(ZtPartOf(FText.Lines->View(ALine), from, to), FCells,
                     [&, open = true](int start, int length, int, int width) mutable {
                         QString text;
                         FText.Lines->AppendTo(ALine, from + start, length, text);
                         open = open && (text == u' ' || text == u'\t');
                         cells += open ? width : 0;
                     });
    return std::min(cells, FColumns / 2);
}

// The pages (0-based) in the order in which they come.
std::vector<int> TZtTextPrinter::PagesFor(const QPagedPaintDevice &ADevice) const
{
    const QPageRanges ranges = ADevice.pageRanges();
    std::vector<int> once;
    for (int i = 0; i < int(FPages.size()); ++i)
        if (ranges.isEmpty() || ranges.contains(i + 1))
            once.push_back(i);
    if (FOptions.LastFirst)
        std::ranges::reverse(once);
    const size_t copies = size_t(std::max(FOptions.Copies, 1));
    std::vector<int> pages;
    pages.reserve(once.size() * copies);
    if (FOptions.Collated)
        for (size_t copy = 0; copy < copies; ++copy)
            pages.insert(pages.end(), once.begin(), once.end());
    else
        for (const int page : once)
            pages.insert(pages.end(), copies, page);
    return pages;
}

bool TZtTextPrinter::Print(QPagedPaintDevice &ADevice)
{
    LayOut(ADevice);
    const std::vector<int> pages = PagesFor(ADevice);
    if (pages.empty())
        throw EZtException(TZtPrintOptions::tr("There is no such page to print."));
    QPainter painter;
    const auto goesOn = [&](size_t done) {
        return !FOptions.OnProgress || FOptions.OnProgress(int(done), int(pages.size()));
    };
    if (!goesOn(0))
        return false;
    if (!painter.begin(&ADevice))
        throw EZtException(TZtPrintOptions::tr("The text cannot be printed there."));
    for (size_t i = 0; i < pages.size(); ++i) {
        if (i > 0 && !goesOn(i))
            return false;
        if (!FColours.IsIntact())
            return false;
        if (i > 0 && !ADevice.newPage())
            throw EZtException(TZtPrintOptions::tr("There is no new page to print on."));
        DrawPage(painter, pages[i]);
    }
    return FColours.IsIntact();
}

void TZtTextPrinter::DrawPage(QPainter &APainter, int APage)
{
    APainter.save();
    APainter.setLayoutDirection(Qt::LeftToRight);
    APainter.scale(APainter.device()->logicalDpiX() / UnitsPerInch,
                   APainter.device()->logicalDpiY() / UnitsPerInch);
    const QRectF page(QPointF(), FPage);
    // Letters do not stand on the edge of coloured paper.
    if (FPaper != 0xFFFFFF)
        APainter.fillRect(page.adjusted(-FPitch, -FPitch, FPitch, FPitch), ColourOf(FPaper));
    APainter.setClipRect(page);
    if (FHasHeader)
        DrawFields(APainter, FOptions.Header, 0, APage);
    if (FHasFooter)
        DrawFields(APainter, FOptions.Footer, FPage.height() - FPitch, APage);
    TPlace place = FPages[size_t(APage)];
    TRow row;
    for (int i = 0; i < FRows && NextRow(place, row); ++i)
        DrawRow(APainter, row, FTop + i * FPitch);
    APainter.restore();
}

// A line of its own, with a rule between it and the text.
void TZtTextPrinter::DrawFields(QPainter &APainter, const TZtPrintOptions::TFields &AFields,
                                qreal ATop, int APage)
{
    static constexpr Qt::Alignment places[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const qreal rule = ATop > 0 ? ATop - FPitch / 2.0 : ATop + 1.5 * FPitch;
    APainter.setFont(Face({}).Font);
    APainter.setPen(QPen(ColourOf(FNumbers), UnitsPerInch / PointsPerInch / 2));
    APainter.drawLine(QPointF(0, rule), QPointF(FPage.width(), rule));
    APainter.setPen(ColourOf(FInk));
    const QFontMetricsF metrics(Face({}).Font);
    const auto given =
        std::ranges::count_if(AFields, [](const QString &S) { return !S.isEmpty(); });
    const qreal parts = AFields[1].isEmpty() || given == 1 ? qreal(given) : 3;
    const qreal room = FPage.width() / std::max(parts, 1.0) - FCell;
    for (size_t i = 0; i < AFields.size(); ++i) {
        const QString text = metrics.elidedText(Filled(AFields[i], APage), Qt::ElideMiddle, room);
        APainter.drawText(QRectF(0, ATop, FPage.width(), FPitch),
                          int(places[i] | Qt::AlignTop) | Qt::TextSingleLine | Qt::TextDontClip,
                          text);
    }
}

// What is put in may hold braces of its own.
QString TZtTextPrinter::Filled(const QString &AField, int APage) const
{
    const QLocale locale;
    const QDateTime date = FOptions.Date.isValid() ? FOptions.Date : QDateTime::currentDateTime();
    const std::pair<QLatin1StringView, QString> values[] = {
        {QLatin1StringView("{name}"), FOptions.Name},
        {QLatin1StringView("{path}"), FOptions.Path},
        {QLatin1StringView("{page}"), QString::number(APage + 1)},
        {QLatin1StringView("{pages}"), QString::number(FPages.size())},
        {QLatin1StringView("{date}"), locale.toString(date.date(), QLocale::ShortFormat)},
        {QLatin1StringView("{time}"), locale.toString(date.time(), QLocale::ShortFormat)},
    };
    QString text;
    for (qsizetype i = 0; i < AField.size();) {
        const QStringView rest = QStringView(AField).sliced(i);
        const auto *value = std::ranges::find_if(
            values, [&](const auto &row) { return rest.startsWith(row.first); });
        if (value == std::end(values)) {
            text += AField[i++];
            continue;
        }
        text += value->second;
        i += value->first.size();
    }
    return text;
}

void TZtTextPrinter::DrawRow(QPainter &APainter, const TRow &ARow, qreal ATop)
{
    if (ARow.IsFirst)
        DrawNumber(APainter, ARow, ATop);
    else if (FLeft > 0)
        DrawWrapMark(APainter, ATop);
    const qreal left = FLeft + ARow.Indent * FCell;
    const TZtColourRuns &runs = FColours.GetRuns(ARow.Line);
    FLine.resize(0);
    const int units =
        FOptions.Wrap ? ARow.End - ARow.Column : std::min(ARow.End - ARow.Column, FColumns * 64);
    FText.Lines->AppendTo(ARow.Line, ARow.Column, units, FLine);
    auto run = std::ranges::partition_point(
        runs, [&](const TZtColourRun &R) { return R.Start + R.Length <= ARow.Column; });
    const TZtColourRun plain{0, 0, clWindowText, clWindow, {}};
    TZtCellReader reader(QStringView(FLine), FCells);
    for (TZtCellSpan span; reader.Next(span) && span.Cell + ARow.Indent < FColumns;) {
        const int end = span.Start + span.Length;
        while (span.Start < end) {
            while (run != runs.end() && run->Start + run->Length <= ARow.Column + span.Start)
                ++run;
            TZtCellSpan part = span;
            if (!span.IsCluster) {
                const int room = FColumns - ARow.Indent - span.Cell;
                if (room <= 0)
                    break;
                part.Length = std::min(end - span.Start, room);
                if (run != runs.end())
                    part.Length =
                        std::min(part.Length, run->Start + run->Length - ARow.Column - span.Start);
                part.Width = part.Length;
            }
            DrawSpan(APainter, part, left, ATop, run == runs.end() ? plain : *run);
            span.Start += part.Length;
            span.Cell += part.Width;
        }
    }
}

void TZtTextPrinter::DrawNumber(QPainter &APainter, const TRow &ARow, qreal ATop)
{
    if (FDigits == 0)
        return;
    const QString number = QString::number(ARow.Line + 1);
    APainter.setFont(Face({}).Font);
    APainter.setPen(ColourOf(FNumbers));
    APainter.drawText(QPointF((FDigits - number.size()) * FCell, ATop + FBaseline), number);
}

// An arrow in the column of the numbers: down and to the right. Few fonts have one.
void TZtTextPrinter::DrawWrapMark(QPainter &APainter, qreal ATop) const
{
    const qreal right = FLeft - FCell;
    const qreal y = ATop + FBaseline - 0.3 * FPitch;
    const qreal head = FCell / 4;
    const QPointF tip(right, y);
    APainter.setPen(QPen(ColourOf(FNumbers), UnitsPerInch / PointsPerInch / 2));
    APainter.drawPolyline(
        QPolygonF{{right - FCell * 0.8, y - FPitch * 0.35}, {right - FCell * 0.8, y}, tip});
    APainter.drawPolyline(QPolygonF{tip + QPointF(-head, -head), tip, tip + QPointF(-head, head)});
}

TZtColourRun TZtTextPrinter::LookOf(const TZtColourRun &ARun) const
{
    TZtColourRun look = ARun;
    look.Fore = ZtPaperColour(ARun.Fore);
    look.Back = ZtPaperColour(ARun.Back);
    if (FOptions.Monochrome) {
        look.Fore = FInk;
        look.Back = FPaper;
        look.Style.setFlag(TFontStyle::fsItalic, ARun.Kind == TZtElementKind::ekRemark ||
                                                     ARun.Style.testFlag(TFontStyle::fsItalic));
    }
    return look;
}

// Draws neighbours of one look.
void TZtTextPrinter::DrawSpan(QPainter &APainter, const TZtCellSpan &ASpan, qreal ALeft, qreal ATop,
                              const TZtColourRun &ARun)
{
    const TZtColourRun look = LookOf(ARun);
    const qreal left = ALeft + ASpan.Cell * FCell;
    if (look.Back != FPaper)
        APainter.fillRect(QRectF(left, ATop, ASpan.Width * FCell, FPitch), ColourOf(look.Back));
    const QStringView text = QStringView(FLine).sliced(ASpan.Start, ASpan.Length);
    APainter.setPen(ColourOf(look.Fore));
    if (!ASpan.IsCluster)
        return DrawPlain(APainter, ASpan.Start, ASpan.Start + ASpan.Length, left, ATop, look.Style);
    if (text == u"\t" || text == u" ")
        return;
    FPainter.DrawCluster(APainter, QRectF(left, ATop, ASpan.Width * FCell, FPitch).toAlignedRect(),
                         text, ColourOf(look.Fore), ColourOf(look.Back), look.Style);
}

// Draws units of the row that take a cell each. Words are drawn at once where the font lets their
// letters stand in their cells: anything else would lose what a preview keeps of a text.
void TZtTextPrinter::DrawPlain(QPainter &APainter, qsizetype AStart, qsizetype AEnd, qreal ALeft,
                               qreal ATop, TFontStyles AStyle)
{
    TFace &face = Face(AStyle);
    const QColor ink = APainter.pen().color();
    const bool lines =
        AStyle.testFlag(TFontStyle::fsUnderline) || AStyle.testFlag(TFontStyle::fsStrikeOut);
    for (qsizetype i = AStart; i < AEnd;) {
        qsizetype end = i;
        while (end < AEnd && (FLine[end] == u' ' || Fits(face, FLine[end])))
            ++end;
        while (!lines && i < end && FLine[i] == u' ')
            ++i;
        const qreal left = ALeft + qreal(i - AStart) * FCell;
        if (i < end) {
            APainter.setFont(face.Font);
            APainter.setPen(ink);
            APainter.drawText(QPointF(left, ATop + FBaseline), FLine.sliced(i, end - i));
            i = end;
            continue;
        }
        if (i == AEnd)
            break;
        FPainter.DrawCluster(APainter, QRectF(left, ATop, FCell, FPitch).toAlignedRect(),
                             QStringView(FLine).sliced(i, 1), ink, ColourOf(FPaper), AStyle,
                             QStringView(FLine).first(i), QStringView(FLine).sliced(i + 1));
        ++i;
    }
}

TZtTextPrinter::TFace &TZtTextPrinter::Face(TFontStyles AStyle)
{
    TFace &face = FFaces[size_t(AStyle.toInt()) % FFaces.size()];
    if (face.Ready)
        return face;
    face.Font = FFont;
    face.Font.setBold(FFont.bold() || AStyle.testFlag(TFontStyle::fsBold));
    face.Font.setItalic(FFont.italic() || AStyle.testFlag(TFontStyle::fsItalic));
    face.Font.setUnderline(AStyle.testFlag(TFontStyle::fsUnderline));
    face.Font.setStrikeOut(AStyle.testFlag(TFontStyle::fsStrikeOut));
    face.Ready = true;
    return face;
}

bool TZtTextPrinter::Fits(TFace &AFace, QChar C) const
{
    if (!IsSimple(C.unicode()))
        return false;
    const auto known = AFace.Fits.constFind(C.unicode());
    if (known != AFace.Fits.constEnd())
        return *known;
    const QFontMetricsF metrics(AFace.Font);
    const bool fits =
        metrics.inFont(C) && qAbs(metrics.horizontalAdvance(C) - FCell) < 0.005 * FCell;
    AFace.Fits.insert(C.unicode(), fits);
    return fits;
}
