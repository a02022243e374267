#include "uZtBrackets.h"

#include "uZtStringList.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

using enum TZtBracketState;

namespace {

constexpr int MostColumns = 262'144; // of a line that are lexed, for that cannot be sliced
constexpr size_t MostDepth = 1 << 20;
constexpr int FirstStretch = 8; // lines; each stretch is twice as long as the one before
constexpr int MostStretch = 128;
constexpr int FarRight = std::numeric_limits<int>::max();

constexpr int Angles = 4;

// The number of a bracket's kind, negative for a closing one; 0 for any other character.
constexpr auto Codes = [] {
    std::array<qint8, 128> codes{};
    const char16_t pairs[] = u"()[]{}<>";
    for (int i = 0; i < 2 * Angles; ++i)
        codes[pairs[i]] = qint8(i % 2 ? -(i / 2 + 1) : i / 2 + 1);
    return codes;
}();

int CodeOf(char16_t C, bool AAngles)
{
    const int code = C < Codes.size() ? Codes[C] : 0;
    return std::abs(code) == Angles && !AAngles ? 0 : code;
}

// Calls `ADo(units)` with what can be indexed for UTF-16 units.
template <typename TDo> auto WithUnits(const TStringList &AText, int ALine, TDo ADo)
{
    return AText.View(ALine).visit([&](auto view) {
        if constexpr (std::is_same_v<decltype(view), QLatin1StringView>)
            return ADo([data = view.data()](int i) { return char16_t(uchar(data[i])); });
        else if constexpr (std::is_same_v<decltype(view), QStringView>)
            return ADo([data = view.utf16()](int i) { return data[i]; });
        else
            return ADo([](int) { return u'\0'; }); // a text has no such lines
    });
}

bool IsCode(const TZtColourRuns &ARuns, int AColumn)
{
    const auto next = std::ranges::upper_bound(ARuns, AColumn, {}, &TZtColourRun::Start);
    return next == ARuns.begin() || (next - 1)->Kind == TZtElementKind::ekCode;
}

} // namespace

TZtBrackets::TZtBrackets(TStringList *AText, TZtHighlighter &AColours)
    : FText(AText), FColours(AColours)
{
    AText->AddListener(this);
}

TZtBrackets::~TZtBrackets()
{
    if (FText)
        FText->RemoveListener(this);
}

int TZtBrackets::CodeAt(int ALine, int AColumn) const
{
    if (AColumn < 0 || AColumn >= FText->GetLength(ALine))
        return 0;
    return WithUnits(*FText, ALine, [&](auto unit) { return CodeOf(unit(AColumn), FAngles); });
}

bool TZtBrackets::HasBrackets(int ALine, int AColumns) const
{
    const int length = std::min(FText->GetLength(ALine), AColumns);
    return WithUnits(*FText, ALine, [&](auto unit) {
        for (int i = 0; i < length; ++i)
            if (CodeOf(unit(i), FAngles) != 0)
                return true;
        return false;
    });
}

void TZtBrackets::Forget()
{
    FToResolve = false;
    FCaret = {-1, -1};
    FBracket = {-1, -1};
    FLastLine = FInexact = -1;
    End(bsNone);
}

void TZtBrackets::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    if (AChange.IsWholeText || AChange.GetFirstLine() <= FLastLine)
        Forget();
}

bool TZtBrackets::IsOutOfDate() const
{
    if (FRevision != FColours.GetRevision())
        return true;
    return FInexact >= FKnown && FColours.GetKnownLines() > FInexact;
}

TZtBracketState TZtBrackets::Find(const QPoint &ACaret)
{
    if (IsOutOfDate())
        Forget();
    if (ACaret != FCaret) {
        FCaret = ACaret;
        FToResolve = true;
    }
    Look({KeyLines, KeyUnits, KeyUnits});
    return FState;
}

bool TZtBrackets::Advance(int AMilliseconds)
{
    if (FCaret.y() < 0)
        return false;
    if (IsOutOfDate()) {
        const QPoint caret = FCaret;
        Forget();
        FCaret = caret;
        FToResolve = true;
    }
    QElapsedTimer time;
    time.start();
    do
        Look({MostStretch, KeyUnits, MostColumns});
    while (IsBusy() && time.elapsed() < AMilliseconds);
    return IsBusy();
}

void TZtBrackets::Look(TBudget ABudget)
{
    try {
        if (!FText || (FToResolve && !Resolve(ABudget.Columns)))
            return;
        while (FState == bsSearching && ABudget.Lines > 0 && ABudget.Units > 0 && Step(ABudget)) {
        }
    } catch (...) {
        FToResolve = false;
        End(bsNone);
        throw;
    }
}

// Finds out which bracket is at the caret. Answers false when that is for later.
bool TZtBrackets::Resolve(int AColumns)
{
    const int line = FCaret.y();
    const TZtLangParser *parser = FColours.GetParser();
    FAngles = parser && parser->GetLanguage() == QLatin1StringView("XML");
    std::array columns{FCaret.x(), FCaret.x() - 1};
    if (line < 0 || line >= FText->GetCount())
        columns.fill(-1);
    const int inexact = std::exchange(FInexact, -1);
    QPoint place(-1, -1);
    for (const int column : columns) {
        if (place.x() >= 0 || column < 0 || column >= MostColumns || CodeAt(line, column) == 0)
            continue;
        if (column >= AColumns) {
            Begin(place);
            FState = bsSearching;
            return false;
        }
        const std::vector<TZtColourRuns> runs = Peek(line, line, column + 1);
        if (runs.empty())
            return false;
        if (IsCode(runs[0], column))
            place = {column, line};
    }
    FToResolve = false;
    if (place.x() >= 0 && place == FBracket)
        FInexact = std::max(FInexact, inexact);
    else
        Begin(place);
    return true;
}

void TZtBrackets::Begin(const QPoint &APlace)
{
    FRevision = FColours.GetRevision();
    FKnown = FColours.GetKnownLines();
    FLastLine = FCaret.y();
    FBracket = APlace;
    if (APlace.x() < 0)
        return End(bsNone);
    const int code = CodeAt(APlace.y(), APlace.x());
    FForward = code > 0;
    FAt = FForward ? APlace + QPoint(1, 0) : APlace;
    FKinds.assign(1, qint8(std::abs(code)));
    FStretch = FirstStretch;
    FState = bsSearching;
    FPair = {-1, -1};
}

void TZtBrackets::End(TZtBracketState AState, const QPoint &APair)
{
    FState = AState;
    FPair = APair;
    FKinds = {};
}

// Looks through the next lines. Answers false where that has to wait.
bool TZtBrackets::Step(TBudget &ABudget)
{
    const int first = FAt.y();
    const int step = FForward ? 1 : -1;
    const int count = FText->GetCount();
    if (first < 0 || first >= count) {
        if (FForward)
            FLastLine = FarRight; // a line that is appended is one that was looked at
        End(bsUnmatched);
        return false;
    }
    const bool isCut = FText->GetLength(first) > ABudget.Columns;
    if (isCut && FAt.x() >= ABudget.Columns + (FForward ? 0 : 1)) {
        if (ABudget.Columns >= MostColumns)
            End(bsNone);
        ABudget.Lines = 0;
        return false;
    }
    int last = first;
    int lines = std::min(FStretch, ABudget.Lines);
    ABudget.Lines -= lines;
    ABudget.Units -= std::min(FText->GetLength(first), ABudget.Columns);
    for (; !isCut && --lines > 0 && ABudget.Units > 0; last += step) {
        const int next = last + step;
        if (next < 0 || next >= count || FText->GetLength(next) > ABudget.Columns)
            break;
        ABudget.Units -= FText->GetLength(next);
    }
    if (!ScanLines(std::min(first, last), std::max(first, last), ABudget.Columns))
        return false;
    FStretch = std::min(2 * FStretch, MostStretch);
    if (isCut && FForward)
        FAt.setX(ABudget.Columns);
    else
        FAt = {FForward ? 0 : FarRight, last + step};
    return true;
}

// Answers false when the lexer could not be asked.
bool TZtBrackets::ScanLines(int AFirst, int ALast, int AColumns)
{
    int first = AFirst;
    int last = ALast;
    FLastLine = std::max(FLastLine, ALast);
    // Lines without a bracket need not be lexed.
    while (first <= last && !HasBrackets(first, AColumns))
        ++first;
    while (first < last && !HasBrackets(last, AColumns))
        --last;
    if (first > last)
        return true;
    const std::vector<TZtColourRuns> runs = Peek(first, last, AColumns);
    if (int(runs.size()) <= last - first)
        return false;
    for (int i = 0; i <= last - first && FState == bsSearching; ++i) {
        const int line = FForward ? first + i : last - i;
        ScanLine(line, runs[size_t(line - first)], AColumns);
    }
    return true;
}

void TZtBrackets::ScanLine(int ALine, const TZtColourRuns &ARuns, int AColumns)
{
    const bool isFirst = ALine == FAt.y();
    const int from = FForward && isFirst ? FAt.x() : 0;
    const int length = std::min(FText->GetLength(ALine), AColumns);
    const int to = !FForward && isFirst ? std::min(length, FAt.x()) : length;
    std::vector<std::pair<int, int>> found; // columns and codes
    WithUnits(*FText, ALine, [&](auto unit) {
        for (const TZtColourRun &run : ARuns) {
            if (run.Kind != TZtElementKind::ekCode)
                continue;
            const int end = std::min(run.Start + run.Length, to);
            for (int i = std::max(run.Start, from); i < end; ++i)
                if (const int code = CodeOf(unit(i), FAngles))
                    found.emplace_back(i, FForward ? code : -code);
        }
    });
    if (!FForward)
        std::ranges::reverse(found);
    for (size_t i = 0; i < found.size() && FState == bsSearching; ++i)
        Meet({found[i].first, ALine}, found[i].second);
}

// A bracket on the way: positive when it begins a pair on that way.
void TZtBrackets::Meet(const QPoint &APlace, int ACode)
{
    if (ACode > 0) {
        if (FKinds.size() < MostDepth)
            FKinds.push_back(qint8(ACode));
        else
            End(bsNone);
    } else if (FKinds.back() != -ACode) {
        End(bsUnmatched, APlace);
    } else {
        FKinds.pop_back();
        if (FKinds.empty())
            End(bsFound, APlace);
    }
}

std::vector<TZtColourRuns> TZtBrackets::Peek(int AFirst, int ALast, int AColumns)
{
    bool exact = false;
    std::vector<TZtColourRuns> runs = FColours.Peek(AFirst, ALast, AColumns, exact);
    if (!exact)
        FInexact = std::max(FInexact, ALast);
    return runs;
}
