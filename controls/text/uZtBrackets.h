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
    /// Its pair, with `bsFound`; with `bsUnmatched` the bracket of another kind, or (-1, -1).
    const QPoint &GetPair() const { return FPair; }

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    struct TBracket {
        int Column;
        int Code; // the number of its kind, negative for a closing one
    };
    using TLineBrackets = std::vector<TBracket>;

    void Forget();
    bool IsOutOfDate() const;
    bool Resolve(int AColumns);
    void Begin(const QPoint &APlace, int ACode);
    void Search(int ALines, int AUnits, int AColumns);
    int Step(int AMostLines, int AColumns);
    int NextLines(int AMostLines, int AColumns) const;
    void ScanLines(int AFirst, int ALast, int AColumns);
    void ScanLine(int ALine, const TZtColourRuns &ARuns, int AColumns);
    void Meet(const QPoint &APlace, int ACode);
    void End(TZtBracketState AState, const QPoint &APair = {-1, -1});

    QPointer<TStringList> FText;
    TZtHighlighter &FColours;
    TZtBracketState FState = TZtBracketState::bsNone;
    QPoint FCaret{-1, -1};
    QPoint FBracket{-1, -1};
    QPoint FPair{-1, -1};
};
