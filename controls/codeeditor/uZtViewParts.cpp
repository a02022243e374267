#include "uZtViewParts.h"

#include "uZtCodeEdit.h"
#include "uZtTextMarks.h"

#include <algorithm>

// --- the caret's line ----------------------------------------------------------------------------

void TZtCurrentLinePart::AddToLine(int ALine, int, int, TZtLineLook &ALook)
{
    if (ALine == Edit().GetLinePos())
        ALook.Back = Edit().GetViewColor(TZtViewColor::vcCurrentLine);
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
    FPlaced.clear();
    if (!Edit().HasTextMarks())
        return;
    TZtTextMarks &marks = Edit().GetTextMarks();
    const auto add = [&](TZtDecorations &decorations) {
        const auto placed = decorations.GetInLines(AFirst, ALast);
        FPlaced.insert(FPlaced.end(), placed.begin(), placed.end());
    };
    if (Edit().HasExtra(TZtExtra::zeDiagnostics))
        add(marks.Diagnostics.GetDecorations());
    add(marks.Decorations);
}

void TZtDecorationsPart::AddToLine(int ALine, int, int ATo, TZtLineLook &ALook)
{
    for (const TZtPlacedDecoration &placed : FPlaced) {
        if (ALine < placed.From.y() || ALine > placed.To.y())
            continue;
        ALook.Spans.push_back({ALine == placed.From.y() ? placed.From.x() : -1,
                               ALine == placed.To.y() ? placed.To.x() : ATo + 1, *placed.Style});
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
