#pragma once

#include "uZtHighlighter.h"

#include <QPoint>

/// What is known of the bracket at the caret.
enum class TZtBracketState : quint8 {
    bsNone,      ///< there is none, or it cannot be known where its pair is
    bsFound,     ///< it has a pair
    bsUnmatched, ///< the text ends, or a bracket of another kind stands where its pair should
    bsSearching, ///< not known yet
};

/// The bracket at the caret and its pair.
///
/// Brackets are ( ) [ ] { }, in XML also < >. Those in comments and strings do not count: they are
/// nobody's pair, and have none. A pair encloses whole pairs alone: in `( [ )` none of the brackets
/// has one. Places are (column, line), 0-based, columns in UTF-16 units.
///
/// A key costs no more than `KeyLines` lines and `KeyUnits` units, and what the highlighter lexes
/// to come to them; the rest is done by `Advance`. Right of column 262,144 of a line nothing is
/// known, for a line is lexed in one go: a bracket there is none, and a search that comes there
/// ends as `bsNone`; so does one of 1,048,576 brackets in each other.
///
/// While the highlighter lacks exact colours the pair is sought by those that it has, and anew when
/// it knows more.
class TZtBrackets final : public TZtTextListener {
public:
    static constexpr int KeyLines = 200;
    static constexpr int KeyUnits = 32'768;

    /// Text and highlighter, which is one of that text, outlive the object or its text goes first.
    TZtBrackets(TStringList *AText, TZtHighlighter &AColours);
    ~TZtBrackets();
    TZtBrackets(const TZtBrackets &) = delete;
    TZtBrackets &operator=(const TZtBrackets &) = delete;

    /// Takes the bracket right of the caret, else the one left of it, and looks for its pair. What
    /// is known of a bracket stays known until the text changes in a line that was looked at or
    /// above one, or the bracket is another. Raises what the lexer raises.
    TZtBracketState Find(const QPoint &ACaret);
    /// Looks on for the pair for some milliseconds; answers whether there is more to do. To be
    /// called behind the highlighter's `Advance`, also when there was nothing to do before: what
    /// that came to know can make the search begin anew. Raises what the lexer raises.
    bool Advance(int AMilliseconds);

    TZtBracketState GetState() const { return FState; }
    /// The bracket at the caret; with `bsFound` and `bsUnmatched` only.
    const QPoint &GetBracket() const { return FBracket; }
    /// Its pair, with `bsFound`; with `bsUnmatched` the bracket that is of another kind than the
    /// one it would end, or (-1, -1) at an end of the text.
    const QPoint &GetPair() const { return FPair; }

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    // What may be looked at in one go.
    struct TBudget {
        int Lines;
        int Units;
        int Columns; // of a line
    };

    int CodeAt(int ALine, int AColumn) const;
    bool HasBrackets(int ALine, int AColumns) const;
    void Forget();
    bool IsOutOfDate() const;
    bool IsBusy() const { return FToResolve || FState == TZtBracketState::bsSearching; }
    void Look(TBudget ABudget);
    bool Resolve(int AColumns);
    void Begin(const QPoint &APlace);
    bool Step(TBudget &ABudget);
    bool ScanLines(int AFirst, int ALast, int AColumns);
    void ScanLine(int ALine, const TZtColourRuns &ARuns, int AColumns);
    void Meet(const QPoint &APlace, int ACode);
    void End(TZtBracketState AState, const QPoint &APair = {-1, -1});
    std::vector<TZtColourRuns> Peek(int AFirst, int ALast, int AColumns);

    QPointer<TStringList> FText;
    TZtHighlighter &FColours;
    TZtBracketState FState = TZtBracketState::bsNone;
    QPoint FCaret{-1, -1};
    QPoint FBracket{-1, -1};
    QPoint FPair{-1, -1};
    bool FToResolve = false; // which bracket is at the caret is not known yet
    bool FForward = true;
    bool FAngles = false;      // < > are brackets
    std::vector<qint8> FKinds; // of the brackets around the place that was come to
    QPoint FAt;                // that place: forward the next unit, backward behind the next
    int FStretch = 0;          // how many lines are looked at next
    int FLastLine = -1;        // of those looked at, the lowest
    int FInexact = -1;         // of those without exact colours, the lowest
    int FKnown = 0;            // lines the highlighter knew when the search began
    quint64 FRevision = 0;     // of the highlighter, then
};
