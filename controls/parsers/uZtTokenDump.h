#pragma once

#include "uZtCodeParser.h"
#include "uZtExport.h"

#include <QList>
#include <QMetaEnum>
#include <QStringList>

#include <memory>
#include <span>

/// One token of a source text.
struct ZT_PARSERS_EXPORT TZtTokenRecord {
    int Line = 0;          ///< 1-based line on which it starts
    int Column = 0;        ///< 1-based UTF-16 unit of that line
    const char *Kind = ""; ///< the name of its kind, such as "ptIdentifier"
    int Row = 0;           ///< the 0-based row of `DrawInfo` that draws it
    QString Text;          ///< as the lexer answers it, which need not be what it read
    qsizetype Start = 0;   ///< 0-based place of its first character in all that was read
    qsizetype Length = 0;  ///< how many characters were read for it, a #0 after the last included

    /// All of it on one line: `12:5 ptIdentifier 4 "Name"`. Control characters, backslashes,
    /// surrogates and line separators in the text are escaped.
    QString ToString() const;
};

/// A lexer whose token kinds can be asked for by name, and which knows where it stands.
class ZT_PARSERS_EXPORT TZtTokenReader {
public:
    virtual ~TZtTokenReader() = default;
    virtual TZtLangParser &Parser() = 0; ///< the lexer, which the reader owns
    /// The enumeration of the token kinds.
    virtual QMetaEnum Kinds() const = 0;
    /// Reads one token: its kind, row and text. Answers false at the end of the input.
    virtual bool Next(TZtTokenRecord &ARecord) = 0;
    /// The attributes of a row of the lexer's `DrawInfo`.
    virtual void RowAttributes(int ARow, TColor &ABackGround, TColor &ATextColor,
                               TFontStyles &AFontStyle) const = 0;
    /// How many characters of the input are consumed, pushed-back ones not counted.
    virtual qsizetype Consumed() const = 0;
};

/// A language whose lexer can be asked for its tokens, and how one is made.
struct ZT_PARSERS_EXPORT TZtTokenLanguage {
    const char *Name;     ///< the folder of its example texts
    const char *Language; ///< its name among `ZtLanguages`
    /// Makes a lexer, which nobody owns yet.
    std::unique_ptr<TZtLangParser> (*CreateParser)();
    /// Makes a lexer that can be asked for its tokens.
    std::unique_ptr<TZtTokenReader> (*CreateReader)();
    /// The usual one of its source files.
    QString Extension() const;
};

/// Every language whose lexer can be asked for its tokens, and the one for a file's name (null for
/// none).
ZT_PARSERS_EXPORT std::span<const TZtTokenLanguage> ZtTokenLanguages();
/// The language of a file's name, by its extension; null for none.
ZT_PARSERS_EXPORT const TZtTokenLanguage *ZtTokenLanguageOf(const QString &AFileName);

/// The lines of a text, whatever ends them (CR LF or LF), without the empty one after a last line
/// break.
ZT_PARSERS_EXPORT QStringList ZtTokenLines(const QString &AText);

/// The tokens of `ALines` from `AFirst` (0-based), each line followed by CR LF, read as the editor
/// reads them: with `EndLines` set, no `RemarkEnd`, and `ALineKinds[AFirst]` as the state there
/// when the list has it. The state at the start of each line is stored in `ALineKinds`, which
/// grows to the number of lines read. At most `AMaxLines` lines are read.
ZT_PARSERS_EXPORT QList<TZtTokenRecord> ZtReadTokens(TZtTokenReader &AReader,
                                                     const QStringList &ALines,
                                                     QList<int> &ALineKinds, int AFirst = 0,
                                                     int AMaxLines = 0x7FFFFFFF);

/// The tokens from where `AReader` stands to the end of its input, which is `ALines` from `AFirst`
/// (0-based), each line followed by CR LF.
ZT_PARSERS_EXPORT QList<TZtTokenRecord> ZtDrainTokens(TZtTokenReader &AReader,
                                                      const QStringList &ALines, int AFirst = 0);
