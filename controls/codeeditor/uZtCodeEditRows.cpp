#include "uZtCodeEditPass.h"

#include "uZtComposition.h"

#include "uZtEditExtras.h"

#include <algorithm>

// Drawing with zcPicture: each line of the text is a row, each character stands in its cells, and
// the lexer only colours.

using enum TZtCorrection;

namespace {

constexpr int LexSlice = 4;            // milliseconds of idle time
constexpr int IdleDelay = 30;          // milliseconds after a key or a paint
constexpr int LongestMeasured = 65536; // units of a line that is measured in cells at each paint

QRgb HalfWay(QRgb A, QRgb B)
{
    return qRgb((qRed(A) + qRed(B)) / 2, (qGreen(A) + qGreen(B)) / 2, (qBlue(A) + qBlue(B)) / 2);
}

const TZtColourRun Plain{0, 0, clWindowText, clWindow, {}};

} // namespace

void TZtCodeEdit::ComposeText()
{
    const int first = FVScrollBar->GetPosition();
    const int last = qMin(first + int(GetHeight() / RowPitch()), FLines->GetCount() - 1);
    TPaintPass pass;
    if (first > last) {
        BeginPass(pass);
        if (FLines->GetCount() == 0 && IsComposing())
            ComposeCells(pass, 0);
        return;
    }
    FeedParser();
    const THold hold(*this);
    const auto highlighter = FHighlighter; // a handler may exchange it
    BeginPass(pass);
    highlighter->SetExact(IsCorrected(zcStates));
    highlighter->SetParser(FParser);
    if (FParser->OnPaintInfo)
        highlighter->ForgetColours(); // it is asked at each paint
    FExtras->BeginRows(first, last);
    pass.HasColumns = HasColumns();
    pass.Sight = GuttorSight();
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
    DecorateRow(APass, ALine);
    ComposeCells(APass, ALine);
}

// Draws the characters of a line, with those that are composed in it.
void TZtCodeEdit::ComposeCells(TPaintPass &APass, int ALine)
{
    const QPoint begin = APass.Begin, end = APass.End;
    APass.Composed.clear();
    if (FLinePos == ALine && IsComposing())
        PutComposition(APass);
    const bool composed = !APass.Composed.isNull();
    TZtCellReader reader(composed ? QAnyStringView(APass.Composed) : FLines->View(ALine), FCells);
    APass.Run = 0;
    const int length = composed ? int(APass.Composed.size()) : FLines->GetLength(ALine);
    int cells = length; // of a line that is not measured
    TZtCellSpan span;
    bool more = reader.Next(span);
    for (; more && APass.Left + span.Cell * FCharWidth < APass.Right; more = reader.Next(span))
        AddColumns(APass, ALine, span);
    if (!more)
        cells = int(reader.Cell());
    else if (length <= LongestMeasured && !composed)
        cells = CellOf({length, ALine});
    FLongest = std::max(FLongest, cells);
    APass.Begin = begin;
    APass.End = end;
}

// Makes room in the caret's line for what is composed there. What is selected stays so.
void TZtCodeEdit::PutComposition(TPaintPass &APass) const
{
    const bool exists = FLinePos < FLines->GetCount();
    const QAnyStringView line = exists ? FLines->View(FLinePos) : QAnyStringView();
    APass.Composed = FComposition->PutInto(line, FCharPos);
    FComposition->PutInto(APass.Runs, FCharPos, int(line.size()));
    if (exists)
        APass.ComposedLook = *APass.Look;
    FComposition->PutInto(APass.ComposedLook, FCharPos);
    APass.Look = &APass.ComposedLook;
    if (APass.Begin.y() == FLinePos)
        APass.Begin.setX(FComposition->Map(APass.Begin.x(), FCharPos, false));
    if (APass.End.y() == FLinePos)
        APass.End.setX(FComposition->Map(APass.End.x(), FCharPos, true));
}

// What stands beside, behind and over the text of a line.
void TZtCodeEdit::DecorateRow(TPaintPass &APass, int ALine)
{
    const int length = FLines->GetLength(ALine);
    const int first = FHScrollBar->GetPosition();
    const int from = length > LongestMeasured && first > 0 ? ColumnAt(ALine, first) : 0;
    const int cells = (APass.Right - APass.Guttor) / FCharWidth + 1;
    // A cell shows a few units where marks stand on letters.
    const int to = qMin(length, from + (from > 0 ? 0 : first) + 4 * cells);
    APass.Look = &FExtras->LookOf(ALine, from, to);
    if (APass.Look->Back && !APass.LineColoured)
        FFrame->ColourRow(APass.Row, APass.Guttor, APass.Rgb(*APass.Look->Back));
    for (const TZtLineLook::TGuide &guide : APass.Look->Guides) {
        const int left = APass.Left + guide.Cell * FCharWidth;
        if (left >= APass.Guttor && left < APass.Right)
            FFrame->AddGuide(APass.Row, {left, APass.Rgb(guide.Colour)});
    }
    if (APass.HasColumns)
        FExtras->Guttor().GetCells(ALine, APass.Sight, FFrame->Cells(APass.Row));
}

// Where the attributes of a line's text change next behind a column.
int TZtCodeEdit::StopOf(const TPaintPass &APass, int ALine, int AColumn, int AEnd) const
{
    int stop = APass.Look->StopBehind(AColumn, AEnd);
    if (APass.Run < APass.Runs.size()) {
        const TZtColourRun &run = APass.Runs[APass.Run];
        stop = std::min(stop, run.Start <= AColumn ? run.Start + run.Length : run.Start);
    }
    for (const QPoint &border : {APass.Begin, APass.End})
        if (border.y() == ALine && border.x() > AColumn)
            stop = std::min(stop, border.x());
    return stop;
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
        column += std::clamp((APass.Guttor - left(column)) / FCharWidth, 0, ASpan.Length);
    while (column < end && left(column) < APass.Right) {
        while (APass.Run < APass.Runs.size() &&
               APass.Runs[APass.Run].Start + APass.Runs[APass.Run].Length <= column)
            ++APass.Run;
        const int stop = ASpan.IsCluster
                             ? end
                             : std::min(StopOf(APass, ALine, column, end),
                                        column + (APass.Right - left(column)) / FCharWidth + 1);
        APass.X = left(column);
        AddStretch(APass, ALine, ASpan, column, stop);
        column = stop;
    }
}

// Draws what stands between two columns and has one look.
void TZtCodeEdit::AddStretch(TPaintPass &APass, int ALine, const TZtCellSpan &ASpan, int AColumn,
                             int AStop)
{
    const bool known = APass.Run < APass.Runs.size() && APass.Runs[APass.Run].Start <= AColumn;
    const TZtColourRun &run = known ? APass.Runs[APass.Run] : Plain;
    const QPoint place(AColumn, ALine);
    const bool selected = !ZtIsBefore(place, APass.Begin) && ZtIsBefore(place, APass.End);
    const TZtDecorationStyle style =
        APass.Look->Spans.empty() ? TZtDecorationStyle() : APass.Look->StyleAt(AColumn);
    TColor fore = style.TextColor.value_or(run.Fore);
    TColor back = Shaded(run.Back, FReadOnly);
    if (APass.Look->Back && APass.Rgb(run.Back) == APass.Rgb(clWindow))
        back = *APass.Look->Back;
    back = style.Background.value_or(back);
    if (selected) {
        fore = clHighlightText;
        back = clHighlight;
    }
    if (APass.LineColoured) {
        fore = APass.LineFore;
        back = APass.LineBack;
    }
    TZtPieceMarks marks = MarksOf(APass, style, fore, AColumn, AStop);
    if (marks.AreBlanksSeen)
        marks.BlankColour = selected ? HalfWay(APass.Rgb(fore), APass.Rgb(back)) : APass.Blank;
    APass.Token.resize(0);
    if (APass.Composed.isNull())
        FLines->AppendTo(ALine, AColumn, AStop - AColumn, APass.Token);
    else
        APass.Token.append(QStringView(APass.Composed).mid(AColumn, AStop - AColumn));
    const bool tab = ASpan.IsCluster && APass.Token == QLatin1StringView("\t");
    if (tab && !marks.AreBlanksSeen)
        APass.Token.fill(u' ', ASpan.Width);
    const bool cluster = ASpan.IsCluster && APass.Token.front() != u' ';
    if (cluster)
        FFrame->AddCluster(APass.Row, APass.X, ASpan.Width * FCharWidth, APass.Token,
                           APass.Rgb(fore), APass.Rgb(back), run.Style, marks);
    else
        FFrame->AddText(APass.Row, APass.X, APass.Token, APass.Rgb(fore), APass.Rgb(back),
                        run.Style, marks);
}

// What is drawn over a stretch, in colours of the picture.
TZtPieceMarks TZtCodeEdit::MarksOf(const TPaintPass &APass, const TZtDecorationStyle &AStyle,
                                   TColor AFore, int AColumn, int AStop)
{
    TZtPieceMarks marks;
    marks.Line = AStyle.Underline.value_or(TZtUnderline::ulNone);
    if (marks.Line != TZtUnderline::ulNone)
        marks.LineColour = APass.Rgb(AStyle.UnderlineColor.value_or(AFore));
    marks.IsBoxed = AStyle.Box.has_value();
    if (marks.IsBoxed) {
        marks.BoxColour = APass.Rgb(*AStyle.Box);
        marks.BoxBegins = APass.Look->IsBoxEdge(AColumn);
        marks.BoxEnds = APass.Look->IsBoxEdge(AStop);
    }
    marks.IsStruck = AStyle.StrikeOut.has_value();
    if (marks.IsStruck)
        marks.StrikeColour = APass.Rgb(*AStyle.StrikeOut);
    marks.AreBlanksSeen = APass.Look->BlanksFrom <= AColumn && AColumn < APass.Look->BlanksTo;
    return marks;
}

// Goes on with what the colours need in idle time, as long as there is anything to do.
void TZtCodeEdit::LexAhead()
{
    const bool lexes = IsCorrected(zcStates) && FHighlighter->GetKnownLines() < FLines->GetCount();
    const int delay = lexes ? 0 : FExtras->GetWorkDelay();
    if (delay < 0)
        FIdle.stop();
    else if (!FIdle.isActive() || qMax(IdleDelay, delay) < FIdleDelay)
        StartIdle(qMax(IdleDelay, delay));
}

void TZtCodeEdit::StartIdle(int ADelay)
{
    FIdleDelay = ADelay;
    FIdle.start(ADelay, this);
}

// What is typed goes first.
void TZtCodeEdit::PutOffIdle()
{
    if (FIdle.isActive())
        StartIdle(IdleDelay);
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
        const bool lexes = highlighter->Advance(LexSlice);
        if (!lexes)
            FExtras->Advance(LexSlice);
        const int delay = lexes ? 0 : FExtras->GetWorkDelay();
        if (delay < 0)
            FIdle.stop();
        else
            StartIdle(delay);
        if (highlighter->GetRevision() != FShownColours)
            Redraw();
    });
}
