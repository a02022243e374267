#pragma once

#include "uZtLexerStates.h"
#include "uZtTextChange.h"
#include "uZtTokenPlacer.h"

#include <QPointer>

#include <optional>

/// The colours of a text's lines, from any lexer.
///
/// It uses the lexer only while it is asked, and gives its source and its state back. Lines are
/// 0-based. For exact colours the lexer has to be restarted with what it carries over the lines
/// above: `Advance` finds that out for the whole text while nothing else is done, and lines that it
/// has not come to yet are coloured as well as is known. While the lexer runs, a handler may change
/// the text and the lexer, but not delete the highlighter.
class TZtHighlighter final : public TZtTextListener {
public:
    TZtHighlighter() = default;
    ~TZtHighlighter();
    TZtHighlighter(const TZtHighlighter &) = delete;
    TZtHighlighter &operator=(const TZtHighlighter &) = delete;

    /// The text, of which it is a listener from then on; null for none.
    void SetText(TStringList *Value);
    /// The lexer; null for plain text. Neither becomes the highlighter's own.
    void SetParser(TZtLangParser *Value);
    TZtLangParser *GetParser() const { return FParser; }
    /// Whether `Advance` finds out what the lines carry over. Without it, a part of the text that
    /// does not go on from one shown before is lexed from its first line on, with that line's
    /// object slot as the lexer's `LineKind`. True by default.
    void SetExact(bool Value);
    bool GetExact() const { return FExact; }
    /// The colours of what no token covers, and of all text without a lexer: those of the lexer's
    /// scheme, if it has one. `clWindowText` on `clWindow` by default.
    void SetPlain(TColor ATextColor, TColor ABackGround);
    /// Forgets everything, after a change of the lexer's properties or colours.
    void Invalidate();

    /// Asks the lexer anew for the colours of the lines in sight, not for what it carries over.
    void ForgetColours();

    /// Finds the colours of some lines in one go, as far as `AColumns` columns of each; they stay
    /// known until the text changes or others are asked for. Raises what the lexer raises.
    void Prepare(int AFirst, int ALast, int AColumns);
    /// The runs of a line, side by side from its first column to its last; none for an empty line
    /// or one outside the text. What lies right of the columns of the last `Prepare`, and right of
    /// 2^20 columns, is plain text. A line that was not prepared is prepared, for all its columns.
    /// Valid until the next call.
    const TZtColourRuns &GetRuns(int ALine);
    /// The runs of lines anywhere, one item each, as `Prepare` and `GetRuns` would find them; what
    /// is known of the lines in sight is used and stays. `AExact` tells whether they were lexed
    /// with what the lexer carries over to them. All lines are lexed in this call, from up to
    /// 65,536 units above the first on: ask for as many as there is time for. Fewer come where a
    /// handler changes text or lexer, and none from within a handler. Raises what the lexer raises.
    std::vector<TZtColourRuns> Peek(int AFirst, int ALast, int AColumns, bool &AExact);

    /// Lexes on for some milliseconds, a line at least; answers whether there is more to do. Raises
    /// what the lexer raises, and takes the rest of the text for unknowable then.
    bool Advance(int AMilliseconds);
    /// Another number whenever runs that were answered before may be others now, without a change
    /// of the text.
    quint64 GetRevision() const { return FRevision; }
    /// The first line that lexing has not come to, or that it has to go over once more; the count
    /// of the lines when there is none.
    int GetKnownLines() const;

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    class TSight;
    class TSurvey;
    struct TRow {
        bool Ready = false;
        bool Exact = false;
        int Columns = 0;                    // as many were coloured
        std::optional<TZtLexerState> State; // at the line's start
        TZtColourRuns Runs;
    };
    struct TStart {
        int Line;
        TZtLexerState State;
        bool Exact;
    };

    TRow *Row(int ALine);
    bool IsReady(int ALine, int AColumns);
    std::vector<TRow> RowsFor(int AFirst, int ALast);
    int Compose(int AFirst, int ALast);
    bool IsNear(int AFrom, int ATo) const;
    TStart StartFor(int ALine);
    void DropInexactRows();
    void ForgetFrom(int ALine);

    QPointer<TStringList> FText;
    QPointer<TZtLangParser> FParser;
    TZtLexerStates FStates;
    std::vector<TRow> FRows; // of the lines in sight
    int FFirst = 0;          // of those
    int FColumns = 0;
    TZtColourRun FPlain{0, 0, clWindowText, clWindow, {}};
    quint64 FRevision = 0;
    bool FExact = true;
    bool FLexing = false;
};
