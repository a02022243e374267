#pragma once

#include "uZtCodeParser.h"

#include <memory>
#include <vector>

class TStringList;
struct TZtTextChange;

/// What a lexer carries over the starts of some lines of a text, so that it need not begin at the
/// text's first line. Lines are 0-based.
///
/// The first ones are known. Behind a change of the text stand others that were right before it:
/// lexing goes on from the last known one, and where it finds what was there before, all up to the
/// next change is known again.
class TZtLexerStates {
public:
    /// Equal neighbours share one.
    using TState = std::shared_ptr<const TZtLexerState>; // equal neighbours share one
    /// What is known of a line's start.
    struct TPoint {
        int Line;     ///< 0-based
        bool Broken;  ///< what stands between the point before and this one was not lexed since
        TState State; ///< never null
    };

    TZtLexerStates() { Clear(); }
    /// Nothing is known but the start of the text.
    void Clear();
    /// Told of a change of the text: what was known behind it is a guess from now on.
    void TextChanged(const TZtTextChange &AChange);

    /// Whether no point is left that is not known, and the rest of the text was lexed.
    bool IsDone() const { return FKnown == FPoints.size() && !FEndBroken; }
    /// From where lexing goes on.
    const TPoint &LastKnown() const { return FPoints[FKnown - 1]; }
    /// The last known point at a line or above it.
    const TPoint &KnownAt(int ALine) const;
    /// The last point at a line or above it, be it known or only right before a change.
    const TPoint &GuessAt(int ALine) const;
    /// How many points there are.
    size_t GetCount() const { return FPoints.size(); }

    /// Whether a line is worth a point, `AUnits` of text behind the last known one.
    bool IsWanted(int ALine, qint64 AUnits) const;
    /// Notes the state at the start of a line behind the last known point, from where on it was
    /// lexed. Answers whether it is as it was, so that lexing need not go on from there.
    bool Add(int ALine, const TZtLexerState &AState);
    /// Notes that the rest of the text was lexed, or cannot be.
    void EndReached();

private:
    void ForgetBelow(int ALine);
    void BreakNext();

    std::vector<TPoint> FPoints; // by line; the first is that of line 0
    size_t FKnown = 1;
    bool FEndBroken = true; // the text behind the last point was not lexed since a change
};
