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
    if (first > last) {
        TPaintPass pass(*this);
        if (FLines->GetCount() == 0 && IsComposing())
            pass.ComposeCells(0);
        return;
    }
    FeedParser();
    const THold hold(*this);
    const auto highlighter = FHighlighter; // a handler may exchange it
    TPaintPass pass(*this);
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
        pass.ComposeRow(first + pass.Row);
    }
    FShownColours = highlighter->GetRevision();
    LexAhead();
}

void TZtCodeEdit::TPaintPass::ComposeRow(int ALine)
{
    X = Left;
    Back = Runs.empty() ? clWindow : Runs.front().Back;
    Fore = Runs.empty() ? clWindowText : Runs.front().Fore;
    Edit.FParserLineNr = ALine + 1;
    StartLine();
    if (ALine >= Edit.FLines->GetCount())
        return; // a handler has taken it away
    DecorateRow(ALine);
    ComposeCells(ALine);
}

// Draws the characters of a line, with those that are composed in it.
void TZtCodeEdit::TPaintPass::ComposeCells(int ALine)
{
    const QPoint begin = Begin, end = End;
    Composed.clear();
    if (Edit.FLinePos == ALine && Edit.IsComposing())
        PutComposition();
    const bool composed = !Composed.isNull();
    TZtCellReader reader(composed ? QAnyStringView(Composed) : Edit.FLines->View(ALine),
                         Edit.FCells);
    Run = 0;
    const int length = composed ? int(Composed.size()) : Edit.FLines->GetLength(ALine);
    int cells = length; // of a line that is not measured
    TZtCellSpan span;
    bool more = reader.Next(span);
    for (; more && Left + span.Cell * Edit.FCharWidth < Right; more = reader.Next(span))
        AddColumns(ALine, span);
    if (!more)
        cells = int(reader.Cell());
    else if (length <= LongestMeasured && !composed)
        cells = Edit.CellOf({length, ALine});
    Edit.FLongest = std::max(Edit.FLongest, cells);
    Begin = begin;
    End = end;
}

// Makes room in the caret's line for what is composed there. What is selected stays so.
void TZtCodeEdit::TPaintPass::PutComposition()
{
    const bool exists = Edit.FLinePos < Edit.FLines->GetCount();
    const QAnyStringView line = exists ? Edit.FLines->View(Edit.FLinePos) : QAnyStringView();
    Composed = Edit.FComposition->PutInto(line, Edit.FCharPos);
    Edit.FComposition->PutInto(Runs, Edit.FCharPos, int(line.size()));
    if (exists)
        ComposedLook = *Look;
    Edit.FComposition->PutInto(ComposedLook, Edit.FCharPos);
    Look = &ComposedLook;
    if (Begin.y() == Edit.FLinePos)
        Begin.setX(Edit.FComposition->Map(Begin.x(), Edit.FCharPos, false));
    if (End.y() == Edit.FLinePos)
        End.setX(Edit.FComposition->Map(End.x(), Edit.FCharPos, true));
}

// What stands beside, behind and over the text of a line.
void TZtCodeEdit::TPaintPass::DecorateRow(int ALine)
{
    const int length = Edit.FLines->GetLength(ALine);
    const int first = Edit.FHScrollBar->GetPosition();
    const int from = length > LongestMeasured && first > 0 ? Edit.ColumnAt(ALine, first) : 0;
    const int cells = (Right - Guttor) / Edit.FCharWidth + 1;
    // A cell shows a few units where marks stand on letters.
    const int to = qMin(length, from + (from > 0 ? 0 : first) + 4 * cells);
    Look = &Edit.FExtras->LookOf(ALine, from, to);
    if (Look->Back && !LineColoured)
        Edit.FFrame->ColourRow(Row, Guttor, Rgb(*Look->Back));
    for (const TZtLineLook::TGuide &guide : Look->Guides) {
        const int left = Left + guide.Cell * Edit.FCharWidth;
        if (left >= Guttor && left < Right)
            Edit.FFrame->AddGuide(Row, {left, Rgb(guide.Colour)});
    }
    if (HasColumns)
        Edit.FExtras->Guttor().GetCells(ALine, Sight, Edit.FFrame->Cells(Row));
}

// Where the attributes of a line's text change next behind a column.
int TZtCodeEdit::TPaintPass::StopOf(int ALine, int AColumn, int AEnd) const
{
    int stop = Look->StopBehind(AColumn, AEnd);
    if (Run < Runs.size()) {
        const TZtColourRun &run = Runs[Run];
        stop = std::min(stop, run.Start <= AColumn ? run.Start + run.Length : run.Start);
    }
    for (const QPoint &border : {Begin, End})
        if (border.y() == ALine && border.x() > AColumn)
            stop = std::min(stop, border.x());
    return stop;
}

// Draws neighbours in a line as far as they are in sight, cut where their attributes change.
void TZtCodeEdit::TPaintPass::AddColumns(int ALine, const TZtCellSpan &ASpan)
{
    const auto left = [&](int column) {
        return Left + (ASpan.Cell + (ASpan.IsCluster ? 0 : column - ASpan.Start)) * Edit.FCharWidth;
    };
    const int end = ASpan.Start + ASpan.Length;
    int column = ASpan.Start;
    if (!ASpan.IsCluster)
        column += std::clamp((Guttor - left(column)) / Edit.FCharWidth, 0, ASpan.Length);
    while (column < end && left(column) < Right) {
        while (Run < Runs.size() && Runs[Run].Start + Runs[Run].Length <= column)
            ++Run;
        const int stop = ASpan.IsCluster
                             ? end
                             : std::min(StopOf(ALine, column, end),
                                        column + (Right - left(column)) / Edit.FCharWidth + 1);
        X = left(column);
        AddStretch(ALine, ASpan, column, stop);
        column = stop;
    }
}

// Draws what stands between two columns and has one look.
void TZtCodeEdit::TPaintPass::AddStretch(int ALine, const TZtCellSpan &ASpan, int AColumn,
                                         int AStop)
{
    const bool known = Run < Runs.size() && Runs[Run].Start <= AColumn;
    const TZtColourRun &run = known ? Runs[Run] : Plain;
    const QPoint place(AColumn, ALine);
    const bool selected = !ZtIsBefore(place, Begin) && ZtIsBefore(place, End);
    const TZtDecorationStyle style =
        Look->Spans.empty() ? TZtDecorationStyle() : Look->StyleAt(AColumn);
    TColor fore = style.TextColor.value_or(run.Fore);
    TColor back = Edit.Shaded(run.Back, Edit.FReadOnly);
    if (Look->Back && Rgb(run.Back) == Rgb(clWindow))
        back = *Look->Back;
    back = style.Background.value_or(back);
    if (selected) {
        fore = clHighlightText;
        back = clHighlight;
    }
    if (LineColoured) {
        fore = LineFore;
        back = LineBack;
    }
    TZtPieceMarks marks = MarksOf(style, fore, AColumn, AStop);
    if (marks.AreBlanksSeen)
        marks.BlankColour = selected ? HalfWay(Rgb(fore), Rgb(back)) : Blank;
    Token.resize(0);
    if (Composed.isNull())
        Edit.FLines->AppendTo(ALine, AColumn, AStop - AColumn, Token);
    else
        Token.append(QStringView(Composed).mid(AColumn, AStop - AColumn));
    const bool tab = ASpan.IsCluster && Token == QLatin1StringView("\t");
    if (tab && !marks.AreBlanksSeen)
        Token.fill(u' ', ASpan.Width);
    const bool cluster = ASpan.IsCluster && Token.front() != u' ';
    if (cluster)
        Edit.FFrame->AddCluster(Row, X, ASpan.Width * Edit.FCharWidth, Token, Rgb(fore), Rgb(back),
                                run.Style, marks);
    else
        Edit.FFrame->AddText(Row, X, Token, Rgb(fore), Rgb(back), run.Style, marks);
}

// What is drawn over a stretch, in colours of the picture.
TZtPieceMarks TZtCodeEdit::TPaintPass::MarksOf(const TZtDecorationStyle &AStyle, TColor AFore,
                                               int AColumn, int AStop) const
{
    TZtPieceMarks marks;
    marks.Line = AStyle.Underline.value_or(TZtUnderline::ulNone);
    if (marks.Line != TZtUnderline::ulNone)
        marks.LineColour = Rgb(AStyle.UnderlineColor.value_or(AFore));
    marks.IsBoxed = AStyle.Box.has_value();
    if (marks.IsBoxed) {
        marks.BoxColour = Rgb(*AStyle.Box);
        marks.BoxBegins = Look->IsBoxEdge(AColumn);
        marks.BoxEnds = Look->IsBoxEdge(AStop);
    }
    marks.IsStruck = AStyle.StrikeOut.has_value();
    if (marks.IsStruck)
        marks.StrikeColour = Rgb(*AStyle.StrikeOut);
    marks.AreBlanksSeen = Look->BlanksFrom <= AColumn && AColumn < Look->BlanksTo;
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
