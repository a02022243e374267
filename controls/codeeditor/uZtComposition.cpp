#include "uZtComposition.h"

#include <QInputMethodEvent>
#include <QTextCharFormat>

#include <algorithm>
#include <limits>

namespace {

TColor ToColor(const QColor &AColor)
{
    return TColor(AColor.red()) | TColor(AColor.green()) << 8 | TColor(AColor.blue()) << 16;
}

TZtUnderline UnderlineOf(QTextCharFormat::UnderlineStyle AStyle)
{
    switch (AStyle) {
    case QTextCharFormat::NoUnderline:
        return TZtUnderline::ulNone;
    case QTextCharFormat::SingleUnderline:
        return TZtUnderline::ulStraight;
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline:
        return TZtUnderline::ulWavy;
    default:
        return TZtUnderline::ulDotted;
    }
}

TZtDecorationStyle StyleOf(const QTextCharFormat &AFormat)
{
    TZtDecorationStyle style;
    const auto colour = [&](int property) -> std::optional<TColor> {
        const QBrush brush = AFormat.brushProperty(property);
        if (brush.style() == Qt::NoBrush || brush.color().alpha() == 0)
            return std::nullopt;
        return ToColor(brush.color());
    };
    if (AFormat.hasProperty(QTextFormat::TextUnderlineStyle))
        style.Underline = UnderlineOf(AFormat.underlineStyle());
    if (AFormat.underlineColor().isValid())
        style.UnderlineColor = ToColor(AFormat.underlineColor());
    style.Background = colour(QTextFormat::BackgroundBrush);
    style.TextColor = colour(QTextFormat::ForegroundBrush);
    return style;
}

} // namespace

void TZtComposition::Clear()
{
    FText.clear();
    FSpans.clear();
    FCaret = 0;
    FCaretSeen = true;
}

void TZtComposition::Take(const QInputMethodEvent &AEvent)
{
    Clear();
    FText = AEvent.preeditString();
    const int length = int(FText.size());
    FCaret = length;
    for (const QInputMethodEvent::Attribute &attribute : AEvent.attributes()) {
        const int from = std::clamp(attribute.start, 0, length);
        const int to =
            int(std::clamp<qint64>(qint64(attribute.start) + attribute.length, 0, length));
        if (attribute.type == QInputMethodEvent::Cursor) {
            FCaret = from;
            FCaretSeen = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat && from < to) {
            const auto format = qvariant_cast<QTextFormat>(attribute.value).toCharFormat();
            FSpans.push_back({from, to, StyleOf(format)});
        }
    }
    if (!FSpans.empty() || FText.isEmpty())
        return;
    FSpans.push_back({0, length, {}});
    FSpans.back().Style.Underline = TZtUnderline::ulStraight;
}

QString TZtComposition::PutInto(QAnyStringView ALine, int AColumn) const
{
    QString line = ALine.toString();
    if (line.size() < AColumn)
        line = line.leftJustified(AColumn);
    return line.insert(AColumn, FText);
}

// The end of a selection may be the largest number there is.
int TZtComposition::Map(int AColumn, int AAt, bool AStays) const
{
    if (AColumn < AAt || (AStays && AColumn == AAt))
        return AColumn;
    return int(std::min<qint64>(qint64(AColumn) + FText.size(), std::numeric_limits<int>::max()));
}

void TZtComposition::PutInto(TZtColourRuns &ARuns, int AColumn, int ALength) const
{
    for (TZtColourRun &run : ARuns) {
        const int end = run.Start + run.Length;
        if (run.Start >= AColumn)
            run.Start += int(FText.size());
        else if (end > AColumn || (end == AColumn && end == ALength))
            run.Length += int(FText.size());
    }
}

void TZtComposition::PutInto(TZtLineLook &ALook, int AColumn) const
{
    for (TZtLineLook::TSpan &span : ALook.Spans) {
        span.From = Map(span.From, AColumn, false);
        span.To = Map(span.To, AColumn, true);
    }
    ALook.BlanksFrom = Map(ALook.BlanksFrom, AColumn, false);
    ALook.BlanksTo = Map(ALook.BlanksTo, AColumn, true);
    for (const TZtLineLook::TSpan &span : FSpans)
        ALook.Spans.push_back({AColumn + span.From, AColumn + span.To, span.Style});
}
