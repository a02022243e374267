#include "uZtLexerStates.h"

#include "uZtTextChange.h"

#include <algorithm>

namespace {

constexpr int LinesBetween = 64;
constexpr qint64 UnitsBetween = 16'384;

} // namespace

void TZtLexerStates::Clear()
{
    FPoints.assign(1, {0, false, std::make_shared<TZtLexerState>()});
    FKnown = 1;
    FEndBroken = true;
}

void TZtLexerStates::TextChanged(const TZtTextChange &AChange)
{
    if (AChange.IsWholeText) {
        Clear();
        return;
    }
    const int first = AChange.GetFirstLine();
    const int end = first + AChange.GetOldLines();
    const int shift = AChange.GetNewLines() - AChange.GetOldLines();
    const auto from = std::ranges::upper_bound(FPoints, first, {}, &TPoint::Line);
    const auto to = std::ranges::lower_bound(from, FPoints.end(), end, {}, &TPoint::Line);
    const auto rest = FPoints.erase(from, to);
    if (shift != 0)
        for (auto point = rest; point != FPoints.end(); ++point)
            point->Line += shift;
    const size_t known = size_t(rest - FPoints.begin());
    // The change is in front of this point whichever points are known.
    if (known < FPoints.size())
        FPoints[known].Broken = true;
    else
        FEndBroken = true;
    FKnown = std::min(FKnown, known);
}

const TZtLexerStates::TPoint &TZtLexerStates::KnownAt(int ALine) const
{
    const auto end = FPoints.begin() + std::ptrdiff_t(FKnown);
    const auto next = std::ranges::upper_bound(FPoints.begin(), end, ALine, {}, &TPoint::Line);
    return *(next - 1);
}

const TZtLexerStates::TPoint &TZtLexerStates::GuessAt(int ALine) const
{
    return *(std::ranges::upper_bound(FPoints, ALine, {}, &TPoint::Line) - 1);
}

bool TZtLexerStates::IsWanted(int ALine, qint64 AUnits) const
{
    const int lines = ALine - LastKnown().Line;
    if (lines <= 0)
        return false;
    if (FKnown < FPoints.size() && ALine >= FPoints[FKnown].Line)
        return true;
    // Where there is a point soon, that one serves.
    const bool soon = FKnown < FPoints.size() && FPoints[FKnown].Line - ALine < LinesBetween;
    return AUnits >= UnitsBetween || (lines >= LinesBetween && !soon);
}

bool TZtLexerStates::Add(int ALine, const TZtLexerState &AState)
{
    ForgetBelow(ALine);
    const bool there = FKnown < FPoints.size() && FPoints[FKnown].Line == ALine;
    if (there && *FPoints[FKnown].State == AState) {
        FPoints[FKnown].Broken = false;
        while (FKnown < FPoints.size() && !FPoints[FKnown].Broken)
            ++FKnown;
        return true;
    }
    const TState &last = LastKnown().State;
    TState state = *last == AState ? last : std::make_shared<TZtLexerState>(AState);
    if (there)
        FPoints[FKnown] = {ALine, false, std::move(state)};
    else
        FPoints.insert(FPoints.begin() + std::ptrdiff_t(FKnown), {ALine, false, std::move(state)});
    ++FKnown;
    BreakNext();
    return false;
}

// Points where the lexer could not be stopped this time are none any more.
void TZtLexerStates::ForgetBelow(int ALine)
{
    const auto from = FPoints.begin() + std::ptrdiff_t(FKnown);
    const auto to = std::ranges::lower_bound(from, FPoints.end(), ALine, {}, &TPoint::Line);
    if (from == to)
        return;
    FPoints.erase(from, to);
    BreakNext();
}

void TZtLexerStates::BreakNext()
{
    if (FKnown < FPoints.size())
        FPoints[FKnown].Broken = true;
    else
        FEndBroken = true;
}

void TZtLexerStates::EndReached()
{
    FPoints.resize(FKnown);
    FEndBroken = false;
}
