#pragma once

#include "uZtCodeParser.h"

class TStringList;

/// Drives a lexer over the lines of a text as an editor does: lines with their CR LF, a very long
/// one in pieces. The lexer's source and state are the caller's again when the walk ends.
///
/// A walk ends by itself where the text ends, where a lexer answers thousands of tokens without
/// reading, and where a handler has changed the text. Where a lexer takes a character for the end
/// of the input, the walk goes on with the next line.
class TZtLexerWalk {
public:
    TZtLexerWalk(TZtLangParser &AParser, const TStringList &AText);
    virtual ~TZtLexerWalk();
    TZtLexerWalk(const TZtLexerWalk &) = delete;
    TZtLexerWalk &operator=(const TZtLexerWalk &) = delete;

    /// Restarts at the start of a line (0-based).
    void Start(int ALine, const TZtLexerState &AState);
    /// Reads a token; false where the walk ends.
    bool Next();

    QString Token;
    TColor Back = 0;
    TColor Fore = 0;
    TFontStyles Style;
    bool LineBreak = false;

    /// Whether the text was read to its end.
    bool IsAtEnd() const { return FAtEnd; }
    /// Whether a handler has changed the text since the walk began.
    bool IsTextChanged() const;
    /// How many units were handed over, and of these not read yet.
    qint64 GetHanded() const { return FHanded; }
    qint64 GetUnread() const { return FParser.GetUnread(); }

protected:
    /// Asked before a line is handed over. `ARestartable` tells that the lexer's state is all that
    /// a restart at this line needs. False ends the walk: the lexer is told that the input ends.
    virtual bool LineStarts(int ALine, bool ARestartable) = 0;
    /// Told each piece of a line that is handed over, its break included.
    virtual void HandedOver(QStringView) {}
    /// How many units of a line are handed over at most.
    virtual int LineLimit(int ALength) { return ALength; }
    /// Whether the lexer may be spared text that lies deep in a token.
    virtual bool MaySkip() const { return false; }

    const TStringList &Text() const { return FText; }
    TZtLangParser &Parser() const { return FParser; }

private:
    void Restart(const TZtLexerState &AState);
    bool HandOver(QString &S);
    bool End();
    void SkipTo(const QString &AText);

    TZtLangParser &FParser;
    const TStringList &FText;
    const TZtNotifier::THold FHold;
    const TZtOnGetNewBuffer FOldGetNewBuffer;
    const TZtOnSkipTo FOldSkipTo;
    const TZtLexerState FOldState;
    const bool FOldEndLines;
    const quint64 FRevision;
    int FLine = 0;   // the next to be handed over
    int FColumn = 0; // where that line goes on; 0 when none was begun
    qint64 FHanded = 0;
    qint64 FFarthest = -1; // what was read
    int FIdle = 0;         // tokens since then
    int FPieces = 0;       // handed over in this token
    qint64 FUnread = 0;    // before this token
    bool FAtEnd = false;
    bool FStopped = false;
    bool FDone = false;
};
