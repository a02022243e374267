#pragma once

#include "uZtCodeParser.h"

/// The token kinds of an INI file.
enum class TIniToken : quint8 {
    itLineBreak,
    itEndOfFile,
    itBlanks,
    itRemark,  ///< ";" or "#" at a line's start, to its end
    itBracket, ///< around a section's name
    itSection,
    itKey,
    itEquals,
    itValue,
    itQuoted,   ///< a value in quotes
    itContinues ///< a backslash at a line's end: the value goes on in the next line
};

/// A row of the attribute table: how the tokens of some kinds are drawn without a scheme.
struct TIniTokenInfo {
    QString Name; ///< the element, under which schemes know the row
    TColor TextColor;
    TColor BckColor;
    TZtSet<TIniToken> Tokens;
    TFontStyles Style;
};

/// Lexer for INI files, small and complete. No input is rejected: what is no section and no remark
/// is a key up to the first "=" or ":", and a value behind it.
class TIniLexer : public TZtLangParser {
    Q_OBJECT

public:
    explicit TIniLexer(QObject *AOwner = nullptr) : TZtLangParser(AOwner) {}

    /// Row 0 draws what no other row claims.
    static TIniTokenInfo DrawInfo[7];

    QString GetLanguage() const override { return QStringLiteral("INI"); }
    QStringList GetElements() const override { return ZtDrawInfoNames(DrawInfo); }
    void Reset() override;
    bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                      TFontStyles &AFontStyle, bool &ALineBreak) override;

    /// Reads one token and answers its kind. A line break's text is the break itself, that of the
    /// end of the input is empty.
    TIniToken InternalGetNextToken(QString &AToken);

private:
    enum class TPlace : quint8 { LineStart, Key, Section, SectionEnd, Value };
    // What LineKind says of a line.
    enum TLineKind : int { NewLine, ValueGoesOn };

    TIniToken ReadBreak(char16_t C, TZtTokenText &AText);
    TIniToken ReadAtStart(char16_t C, TZtTokenText &AText);
    TIniToken ReadInSection(char16_t C, TZtTokenText &AText);
    TIniToken ReadKey(char16_t C, TZtTokenText &AText);
    TIniToken ReadValue(char16_t C, TZtTokenText &AText);
    void ReadQuoted(char16_t AQuote, TZtTokenText &AText);
    template <typename TStop> void ReadUntil(TStop AStop, TZtTokenText &AText);
    void ReadLine(TZtTokenText &AText);
    void TakeBlanksBack(TZtTokenText &AText);

    TPlace FPlace = TPlace::LineStart;
};
