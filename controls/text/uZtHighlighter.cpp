#include "uZtHighlighter.h"

#include "uZtLexerWalk.h"
#include "uZtStringList.h"

#include <QElapsedTimer>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace {

constexpr int Near = 65'536;             // units that are lexed at once to have a state
constexpr int LongRest = 16'384;         // of a line right of what is in sight
constexpr int MostColumns = 1 << 20;     // that are coloured
constexpr qint64 LongestToken = 1 << 22; // or whatever has no line in it to restart at
constexpr qint64 UnitsPerClock = 4096;

} // namespace

// Lexes the lines in sight.
class TZtHighlighter::TSight : public TZtLexerWalk {
public:
    TSight(TZtHighlighter &AOwner, const TStart &AStart, int AFirst, int ALast)
        : TZtLexerWalk(*AOwner.FParser, *AOwner.FText), FOwner(AOwner), FExact(AStart.Exact),
          FColumns(AOwner.FColumns), FFirst(AFirst), FLast(ALast)
    {
        Start(AStart.Line, AStart.State);
    }
    // Answers how far it came: the line behind.
    int Run()
    {
        while (!IsPast() && Next())
            FPlacer.Place(Token, GetUnread(), Look(), LineBreak);
        if (FLine <= FLast)
            CompareBelow(FLast + 1, FPlacer.Line() > FLast && !FIsCut && GetUnread() <= 1);
        return std::clamp(FPlacer.Line(), FFirst, FLast) + 1;
    }
    TZtColourRuns Runs(int ALine, int ALength) const
    {
        return FPlacer.Runs(ALine, ALength, FOwner.FPlain);
    }

protected:
    bool LineStarts(int ALine, bool ARestartable) override
    {
        // A token that goes on below is told that the text ends: its looks above are the same.
        if (FIsCut || (ALine > FLast && GetHanded() > FBelow + Near))
            return false;
        if (ALine <= FLast)
            FBelow = GetHanded();
        if (ALine == FLast + 1)
            CompareBelow(ALine, ARestartable);
        TRow *row = FOwner.Row(ALine);
        if (row && (FExact || !row->Exact))
            row->State = ARestartable ? std::optional(Parser().GetState()) : std::nullopt;
        FLine = ALine;
        FPlacer.BeginLine(ALine);
        return true;
    }
    void HandedOver(QStringView S) override { FPlacer.AddText(S); }
    // What lies far right of the sight is not worth its time; the line below is begun anew.
    int LineLimit(int ALength) override
    {
        if (FLine < FFirst || ALength <= FColumns + LongRest)
            return ALength;
        FIsCut = true;
        return FColumns + LongRest;
    }

private:
    TZtColourRun Look() const
    {
        const int element = Parser().GetElement();
        return {0, 0, Fore, Back, Style, quint8(element), Parser().GetElementKind(element)};
    }
    // The rows below are known, it may be: they stay if the first of them is begun as it was.
    void CompareBelow(int ALine, bool ARestartable)
    {
        const TRow *row = FOwner.Row(ALine);
        if (row && row->Ready && !(ARestartable && row->State == Parser().GetState()))
            FOwner.ForgetFrom(ALine);
    }
    bool IsPast() const
    {
        const int line = FPlacer.Line();
        return line > FLast ||
               (line >= FFirst && (line == FLast || FIsCut) && FPlacer.Column() >= FColumns);
    }

    TZtHighlighter &FOwner;
    const bool FExact;
    const int FColumns;
    const int FFirst;
    const int FLast;
    int FLine = 0;
    bool FIsCut = false;
    qint64 FBelow = 0; // what was handed over before the last line in sight
    TZtTokenPlacer FPlacer;
};

// Lexes on from the last known state, for the states alone.
class TZtHighlighter::TSurvey : public TZtLexerWalk {
public:
    TSurvey(TZtHighlighter &AOwner, const QElapsedTimer &ATime, int AMilliseconds)
        : TZtLexerWalk(*AOwner.FParser, *AOwner.FText), FOwner(AOwner), FStates(AOwner.FStates),
          FRevision(AOwner.FRevision), FFirst(FStates.LastKnown().Line), FTime(ATime),
          FMilliseconds(AMilliseconds)
    {
        Start(FFirst, *FStates.LastKnown().State);
    }
    void Run()
    {
        while (Next()) {
        }
        if (!FIsStopped && !IsTextChanged())
            FStates.EndReached();
    }

protected:
    bool LineStarts(int ALine, bool ARestartable) override
    {
        if (FOwner.FRevision != FRevision) { // a handler has exchanged the lexer
            FIsStopped = true;
            return false;
        }
        const qint64 units = GetHanded() - FSince;
        // Nothing needs to be known of what is below the last line.
        if (ALine == FFirst || ALine + 1 == Text().GetCount())
            return ALine + 1 < Text().GetCount();
        if (!ARestartable)
            return units < LongestToken;
        const bool late = IsLate();
        if (!late && !FStates.IsWanted(ALine, units))
            return true;
        FSince = GetHanded();
        FIsStopped = FStates.Add(ALine, Parser().GetState()) || late;
        return !FIsStopped;
    }
    bool MaySkip() const override { return true; }

private:
    bool IsLate()
    {
        if (GetHanded() < FClock)
            return false;
        FClock = GetHanded() + UnitsPerClock;
        return FTime.elapsed() >= FMilliseconds;
    }

    const TZtHighlighter &FOwner;
    TZtLexerStates &FStates;
    const quint64 FRevision;
    const int FFirst;
    const QElapsedTimer &FTime;
    const int FMilliseconds;
    qint64 FSince = 0; // what was handed over up to the last point
    qint64 FClock = 0; // when the time is looked at
    bool FIsStopped = false;
};

TZtHighlighter::~TZtHighlighter() { SetText(nullptr); }

void TZtHighlighter::SetText(TStringList *Value)
{
    if (FText)
        FText->RemoveListener(this);
    FText = Value;
    if (FText)
        FText->AddListener(this);
    Invalidate();
}

void TZtHighlighter::SetParser(TZtLangParser *Value)
{
    if (FParser == Value)
        return;
    FParser = Value;
    Invalidate();
}

void TZtHighlighter::SetExact(bool Value)
{
    if (FExact == Value)
        return;
    FExact = Value;
    Invalidate();
}

void TZtHighlighter::SetPlain(TColor ATextColor, TColor ABackGround)
{
    if (FPlain.Fore == ATextColor && FPlain.Back == ABackGround)
        return;
    FPlain.Fore = ATextColor;
    FPlain.Back = ABackGround;
    Invalidate();
}

void TZtHighlighter::Invalidate()
{
    FStates.Clear();
    FRows.clear();
    ++FRevision;
}

void TZtHighlighter::ForgetColours()
{
    for (TRow &row : FRows)
        row.Ready = false;
}

void TZtHighlighter::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    FStates.TextChanged(AChange);
    const qsizetype at = AChange.IsWholeText ? -1 : AChange.GetFirstLine() - FFirst;
    const qsizetype count = qsizetype(FRows.size());
    if (at < 0)
        return FRows.clear();
    if (at >= count)
        return;
    // The first line is begun as before, and those below look as before if they are begun so too.
    TRow first;
    first.State = FRows[size_t(at)].State;
    first.Exact = FRows[size_t(at)].Exact;
    const qsizetype removed = std::min<qsizetype>(AChange.GetOldLines(), count - at);
    const qsizetype inserted = std::min<qsizetype>(AChange.GetNewLines(), count - at);
    FRows.erase(FRows.begin() + at, FRows.begin() + at + removed);
    FRows.insert(FRows.begin() + at, size_t(inserted), TRow());
    FRows[size_t(at)] = first;
    FRows.resize(size_t(count));
}

// What stands below was lexed from another state.
void TZtHighlighter::ForgetFrom(int ALine)
{
    for (int i = ALine; TRow *row = Row(i); ++i) {
        row->Ready = false;
        row->State.reset();
    }
}

TZtHighlighter::TRow *TZtHighlighter::Row(int ALine)
{
    const qint64 at = qint64(ALine) - FFirst;
    return at >= 0 && at < qint64(FRows.size()) ? &FRows[size_t(at)] : nullptr;
}

// Rows for other lines, with what is known of them. Behind a change that was not lexed yet, that is
// nothing without the changed line itself.
std::vector<TZtHighlighter::TRow> TZtHighlighter::RowsFor(int AFirst, int ALast)
{
    std::vector<TRow> rows(size_t(ALast - AFirst + 1));
    const int above = std::clamp(AFirst - FFirst, 0, int(FRows.size()));
    if (!std::ranges::all_of(FRows.begin(), FRows.begin() + above, &TRow::Ready))
        return rows;
    for (int i = AFirst; i <= ALast; ++i)
        if (const TRow *row = Row(i))
            rows[size_t(i - AFirst)] = *row;
    return rows;
}

// Whether a line is coloured as far as that many columns, or to its end.
bool TZtHighlighter::IsReady(int ALine, int AColumns)
{
    const TRow *row = Row(ALine);
    return row && row->Ready && row->Columns >= std::min(AColumns, FText->GetLength(ALine));
}

void TZtHighlighter::Prepare(int AFirst, int ALast, int AColumns)
{
    if (FLexing || !FText)
        return;
    const int first = std::max(AFirst, 0);
    const int last = std::min(ALast, FText->GetCount() - 1);
    if (first > last)
        return;
    const QScopedValueRollback lexing(FLexing, true);
    const int columns = std::clamp(AColumns, 1, MostColumns);
    if (FFirst != first || int(FRows.size()) != last - first + 1) {
        FRows = RowsFor(first, last);
        FFirst = first;
    }
    FColumns = columns;
    const quint64 revision = FText->GetRevision();
    for (int line = first; line <= last && FText && FText->GetRevision() == revision;) {
        if (IsReady(line, columns)) {
            ++line;
            continue;
        }
        int end = line;
        while (end < last && !IsReady(end + 1, columns))
            ++end;
        line = Compose(line, end);
    }
}

// Colours lines as far as they can be lexed in one go; answers the line behind them.
int TZtHighlighter::Compose(int AFirst, int ALast)
{
    const quint64 revision = FText->GetRevision();
    const TStart start = StartFor(AFirst);
    const QPointer<TZtLangParser> parser = FParser;
    std::optional<TSight> sight;
    int end = ALast + 1;
    if (parser) {
        sight.emplace(*this, start, AFirst, ALast);
        end = sight->Run();
    }
    for (int i = AFirst; i < end && FText && FText->GetRevision() == revision; ++i) {
        TRow *row = Row(i);
        if (!row)
            break; // a handler has exchanged the lexer
        row->Runs = parser ? sight->Runs(i, FText->GetLength(i))
                           : TZtTokenPlacer().Runs(i, FText->GetLength(i), FPlain);
        row->Ready = true;
        row->Exact = start.Exact || !parser;
        row->Columns = FColumns;
    }
    return end;
}

// Whether a line can be lexed up to another one in no time.
bool TZtHighlighter::IsNear(int AFrom, int ATo) const
{
    int units = 0;
    for (int i = AFrom; i < ATo && units <= Near; ++i)
        units += std::min(FText->GetLength(i), Near) + 2;
    return units <= Near;
}

TZtHighlighter::TStart TZtHighlighter::StartFor(int ALine)
{
    std::optional<TStart> above;
    for (const int line : {ALine, ALine - 1}) {
        const TRow *row = Row(line);
        if (!above && row && row->State && IsNear(line, ALine))
            above = TStart{line, *row->State, row->Exact};
    }
    if (above && above->Exact)
        return *above;
    const TZtLexerStates::TPoint &known = FStates.KnownAt(ALine);
    if (IsNear(known.Line, ALine))
        return {known.Line, *known.State, true};
    if (above)
        return *above;
    const TZtLexerStates::TPoint &guess = FStates.GuessAt(ALine);
    if (IsNear(guess.Line, ALine))
        return {guess.Line, *guess.State, false};
    TZtLexerState state;
    if (!FExact)
        state.LineKind = FText->GetObjects(ALine);
    return {ALine, state, false};
}

const TZtColourRuns &TZtHighlighter::GetRuns(int ALine)
{
    static const TZtColourRuns none;
    const TRow *row = Row(ALine);
    if (!row || !row->Ready)
        Prepare(ALine, ALine, MostColumns);
    row = Row(ALine);
    return row && row->Ready ? row->Runs : none;
}

std::vector<TZtColourRuns> TZtHighlighter::Peek(int AFirst, int ALast, int AColumns, bool &AExact)
{
    AExact = false;
    std::vector<TZtColourRuns> runs;
    const int first = std::max(AFirst, 0);
    const int last = FText ? std::min(ALast, FText->GetCount() - 1) : -1;
    if (FLexing || first > last)
        return runs;
    // Other lines take the place of those in sight for as long as it takes.
    const auto restore = qScopeGuard([this, sight = std::exchange(FRows, RowsFor(first, last)),
                                      start = std::exchange(FFirst, first), columns = FColumns,
                                      revision = FRevision, text = FText->GetRevision()]() mutable {
        const bool same = FText && FText->GetRevision() == text && FRevision == revision;
        FRows = same ? std::move(sight) : std::vector<TRow>();
        FFirst = start;
        FColumns = columns;
    });
    FColumns = std::clamp(AColumns, 1, MostColumns);
    Prepare(first, last, FColumns);
    AExact = std::ranges::all_of(FRows, &TRow::Exact);
    for (TRow &row : FRows) {
        if (!row.Ready)
            break; // a handler has changed something
        runs.push_back(std::move(row.Runs));
    }
    return runs;
}

bool TZtHighlighter::Advance(int AMilliseconds)
{
    if (FLexing || !FExact || !FText || !FParser || FStates.IsDone())
        return false;
    const QScopedValueRollback lexing(FLexing, true);
    const quint64 revision = FText->GetRevision();
    QElapsedTimer time;
    time.start();
    try {
        do
            TSurvey(*this, time, AMilliseconds).Run();
        while (!FStates.IsDone() && time.elapsed() < AMilliseconds && FText && FParser &&
               FText->GetRevision() == revision);
    } catch (...) {
        FStates.EndReached();
        throw;
    }
    DropInexactRows();
    return !FStates.IsDone();
}

// Lines that were coloured as well as was known are coloured anew when more is known.
void TZtHighlighter::DropInexactRows()
{
    for (size_t i = 0; i < FRows.size() && FText; ++i) {
        const int line = FFirst + int(i);
        if (!FRows[i].Ready || FRows[i].Exact || !IsNear(FStates.KnownAt(line).Line, line))
            continue;
        FRows[i] = TRow();
        ++FRevision;
    }
}

int TZtHighlighter::GetKnownLines() const
{
    if (!FText)
        return 0;
    return FStates.IsDone() ? FText->GetCount() : FStates.LastKnown().Line;
}
