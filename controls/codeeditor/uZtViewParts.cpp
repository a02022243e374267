#include "uZtViewParts.h"

#include "uZtTextMarks.h"

#include <algorithm>
#include <array>

using enum TZtViewColor;

// --- the caret's line ----------------------------------------------------------------------------

void TZtCurrentLinePart::AddToLine(int ALine, int, int, TZtLineLook &ALook)
{
    if (ALine == Edit().GetLinePos())
        ALook.Back = Edit().GetViewColor(vcCurrentLine);
}

// --- blanks --------------------------------------------------------------------------------------

void TZtBlanksPart::AddToLine(int ALine, int, int ATo, TZtLineLook &ALook)
{
    if (Edit().HasExtra(TZtExtra::zeBlanks)) {
        ALook.BlanksTo = ATo;
        return;
    }
    QPoint from = Edit().GetSelStart(), to = Edit().GetSelEnd();
    if (from.x() < 0 || to.x() < 0)
        return;
    if (ZtIsBefore(to, from))
        std::swap(from, to);
    if (ALine < from.y() || ALine > to.y())
        return;
    ALook.BlanksFrom = ALine == from.y() ? from.x() : 0;
    ALook.BlanksTo = ALine == to.y() ? to.x() : ATo;
}

// --- decorations ---------------------------------------------------------------------------------

void TZtDecorationsPart::BeginRows(int AFirst, int ALast)
{
    static constexpr std::array colours = {vcError, vcWarning, vcInformation}; // by severity
    FShown.clear();
    if (!Edit().HasTextMarks())
        return;
    TZtTextMarks &marks = Edit().GetTextMarks();
    if (Edit().HasExtra(TZtExtra::zeDiagnostics)) {
        for (const auto &placed : marks.Diagnostics.GetDecorations().GetInLines(AFirst, ALast)) {
            const auto severity = size_t(TZtDiagnostics::SeverityOf(placed.Owner));
            FShown.push_back({placed, *placed.Style});
            if (!placed.Style->UnderlineColor)
                FShown.back().Style.UnderlineColor = Edit().GetViewColor(colours[severity]);
        }
    }
    for (const auto &placed : marks.Decorations.GetInLines(AFirst, ALast))
        FShown.push_back({placed, *placed.Style});
}

void TZtDecorationsPart::AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook)
{
    for (const auto &[placed, style] : FShown) {
        if (ALine < placed.From.y() || ALine > placed.To.y())
            continue;
        const int from = ALine == placed.From.y() ? placed.From.x() : -1;
        const int to = ALine == placed.To.y() ? placed.To.x() : ATo + 1;
        if (from <= ATo && to >= AFrom)
            ALook.Spans.push_back({from, to, style});
    }
}

QString TZtDecorationsPart::GetToolTip(const QPoint &APlace)
{
    if (!Edit().HasTextMarks())
        return {};
    QStringList texts;
    TZtTextMarks &marks = Edit().GetTextMarks();
    if (Edit().HasExtra(TZtExtra::zeDiagnostics))
        for (const TZtDiagnostic &diagnostic : marks.Diagnostics.At(APlace))
            texts += diagnostic.Message;
    for (const TZtPlacedDecoration &placed : marks.Decorations.GetAt(APlace))
        if (!placed.ToolTip->isEmpty())
            texts += *placed.ToolTip;
    return texts.join(u'\n');
}

void TZtDecorationsPart::Survey(std::vector<quint32> &ARows)
{
    static_assert(TZtOverviewBit::Warning == TZtOverviewBit::Error << 1 &&
                  TZtOverviewBit::Information == TZtOverviewBit::Error << 2);
    if (!Edit().HasExtra(TZtExtra::zeDiagnostics) || !Edit().HasTextMarks())
        return;
    std::vector<quint32> rows(ARows.size());
    Edit().GetTextMarks().Diagnostics.Survey(rows);
    for (size_t i = 0; i < rows.size(); ++i)
        ARows[i] |= rows[i] * TZtOverviewBit::Error;
}
