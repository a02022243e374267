#include "uZtCodeEditPass.h"

#include "uZtHighlighter.h"
#include "uZtSystemColors.h"

#include <algorithm>

// Drawing with zcPicture: each line of the text is a row, each character stands in its cells, and
// the lexer only colours.

using enum TZtCorrection;

namespace {

constexpr int ReadOnlyDarker = 10;     // per cent
constexpr int LexSlice = 4;            // milliseconds of idle time
constexpr int IdleDelay = 30;          // milliseconds after a key or a paint
constexpr int LongestMeasured = 65536; // units of a line that is measured in cells at each paint

const TZtColourRun Plain{0, 0, clWindowText, clWindow, {}};

} // namespace

void TZtCodeEdit::ComposeText()
{
    const int first = FVScrollBar->GetPosition();
    const int last = qMin(first + GetHeight() / FLineWidth, FLines->GetCount() - 1);
    if (first > last)
        return;
    FeedParser();
    const THold hold(*this);
    const auto highlighter = FHighlighter; // a handler may exchange it
    TPaintPass pass;
    BeginPass(pass);
    highlighter->SetExact(IsCorrected(zcStates));
    highlighter->SetParser(FParser);
    if (FParser->OnPaintInfo)
        highlighter->ForgetColours(); // it is asked at each paint
    highlighter->Prepare(first, last, (pass.Right - pass.Left) / FCharWidth + 1);
    for (; first + pass.Row <= last; ++pass.Row) {
        if (first + pass.Row >= FLines->GetCount())
            break; // a handler has taken lines away
        pass.Runs = highlighter->GetRuns(first + pass.Row);
        ComposeRow(pass, first + pass.Row);
    }
    FShownColours = highlighter->GetRevision();
    LexAhead();
}

void TZtCodeEdit::ComposeRow(TPaintPass &APass, int ALine)
{
    APass.X = APass.Left;
    APass.Back = APass.Runs.empty() ? clWindow : APass.Runs.front().Back;
    APass.Fore = APass.Runs.empty() ? clWindowText : APass.Runs.front().Fore;
    FParserLineNr = ALine + 1;
    StartLine(APass);
    if (ALine >= FLines->GetCount())
        return; // a handler has taken it away
    TZtCellReader reader(FLines->View(ALine), FCells);
    APass.Run = 0;
    const int length = FLines->GetLength(ALine);
    int cells = length; // of a line that is not measured
    TZtCellSpan span;
    bool more = reader.Next(span);
    for (; more && APass.Left + span.Cell * FCharWidth < APass.Right; more = reader.Next(span))
        AddColumns(APass, ALine, span);
    if (!more)
        cells = int(reader.Cell());
    else if (length <= LongestMeasured)
        cells = CellOf({length, ALine});
    FLongest = std::max(FLongest, cells);
}

// Draws neighbours in a line as far as they are in sight, cut where their attributes change.
void TZtCodeEdit::AddColumns(TPaintPass &APass, int ALine, const TZtCellSpan &ASpan)
{
    const auto left = [&](int column) {
        return APass.Left +
               (ASpan.Cell + (ASpan.IsCluster ? 0 : column - ASpan.Start)) * FCharWidth;
    };
    const int end = ASpan.Start + ASpan.Length;
    int column = ASpan.Start;
    if (!ASpan.IsCluster)
        column += std::clamp((RealGuttorWidth() - left(column)) / FCharWidth, 0, ASpan.Length);
    while (column < end && left(column) < APass.Right) {
        while (APass.Run < APass.Runs.size() &&
               APass.Runs[APass.Run].Start + APass.Runs[APass.Run].Length <= column)
            ++APass.Run;
        const bool known = APass.Run < APass.Runs.size();
        const TZtColourRun &next = known ? APass.Runs[APass.Run] : Plain;
        const bool inside = known && next.Start <= column;
        const TZtColourRun &run = inside ? next : Plain;
        int stop = inside ? next.Start + next.Length : known ? next.Start : end;
        const QPoint place(column, ALine);
        const bool selected = !ZtIsBefore(place, APass.Begin) && ZtIsBefore(place, APass.End);
        for (const QPoint &border : {APass.Begin, APass.End})
            if (border.y() == ALine && border.x() > column)
                stop = std::min(stop, border.x());
        stop = ASpan.IsCluster
                   ? end
                   : std::min({stop, end, column + (APass.Right - left(column)) / FCharWidth + 1});
        APass.Style = run.Style;
        TColor fore = selected ? clHighlightText : run.Fore;
        TColor back = selected ? clHighlight : run.Back;
        if (!selected)
            DarkenColor(back, FReadOnly, ReadOnlyDarker);
        if (APass.LineColoured) {
            fore = APass.LineFore;
            back = APass.LineBack;
        }
        APass.Token.resize(0);
        FLines->AppendTo(ALine, column, stop - column, APass.Token);
        if (ASpan.IsCluster && APass.Token == QLatin1StringView("\t"))
            APass.Token.fill(u' ', ASpan.Width);
        const bool cluster = ASpan.IsCluster && APass.Token.front() != u' ';
        if (cluster)
            FFrame.AddCluster(APass.Row, left(column), ASpan.Width * FCharWidth, APass.Token,
                              APass.Rgb(fore), APass.Rgb(back), APass.Style);
        else
            FFrame.AddText(APass.Row, left(column), APass.Token, APass.Rgb(fore), APass.Rgb(back),
                           APass.Style);
        column = stop;
    }
}

// Goes on with what the colours need in idle time, as long as there is anything to do.
void TZtCodeEdit::LexAhead()
{
    const bool more = IsCorrected(zcStates) && FHighlighter->GetKnownLines() < FLines->GetCount();
    if (!more)
        FIdle.stop();
    else if (!FIdle.isActive())
        FIdle.start(IdleDelay, this);
}

// What is typed goes first.
void TZtCodeEdit::PutOffIdle()
{
    if (FIdle.isActive())
        FIdle.start(IdleDelay, this);
}

void TZtCodeEdit::timerEvent(QTimerEvent *AEvent)
{
    if (AEvent->timerId() != FIdle.timerId())
        return TCustomControl::timerEvent(AEvent);
    if (!FHighlighter || !isVisible()) {
        FIdle.stop();
        return;
    }
    Guarded([this] {
        const THold hold(*this);
        const auto highlighter = FHighlighter;
        if (highlighter->Advance(LexSlice))
            FIdle.start(0, this);
        else
            FIdle.stop();
        if (highlighter->GetRevision() != FShownColours)
            Redraw();
    });
}
