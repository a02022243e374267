#include "IniLexer.h"

#include <utility>

using enum TIniToken;

namespace {

// What ends every token.
bool EndsLine(char16_t C) { return C == u'\r' || C == u'\n' || C == u'\0'; }

bool IsBlank(char16_t C) { return C == u' ' || C == u'\t'; }

} // namespace

// The names are those that other lexers have too, so that every bundled scheme has colours for
// them, and comments and quoted values are known as such.
TIniTokenInfo TIniLexer::DrawInfo[7] = {
    {QStringLiteral("WhiteSpace"), clWindowText, clWindow, {}, {}},
    {QStringLiteral("Comment"), clGreen, clWindow, {itRemark}, TFontStyle::fsItalic},
    {QStringLiteral("Reserved word"), clNavy, clWindow, {itSection}, TFontStyle::fsBold},
    {QStringLiteral("Identifier"), clWindowText, clWindow, {itKey}, {}},
    {QStringLiteral("Symbol"), clMaroon, clWindow, {itBracket, itEquals, itContinues}, {}},
    {QStringLiteral("string"), clBlue, clWindow, {itQuoted}, {}},
    {QStringLiteral("Text"), clWindowText, clWindow, {itValue}, {}},
};

// A lexer is restarted at a line's start only.
void TIniLexer::Reset()
{
    TZtLangParser::Reset();
    FPlace = TPlace::LineStart;
}

bool TIniLexer::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                             TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TIniToken kind = InternalGetNextToken(AToken);
    TakeStyle(DrawInfo, kind, ABackGround, ATextColor, AFontStyle);
    GetPaintInfo(AToken, ABackGround, ATextColor, AFontStyle);
    ALineBreak = kind == itLineBreak;
    return kind != itEndOfFile;
}

TIniToken TIniLexer::InternalGetNextToken(QString &AToken)
{
    TZtTokenText text;
    TIniToken kind = itEndOfFile;
    if (const char16_t c = ReadChar(); c != u'\0') {
        text.append(c);
        if (EndsLine(c)) {
            kind = ReadBreak(c, text);
        } else if (IsBlank(c)) {
            ReadUntil([](char16_t C) { return !IsBlank(C); }, text);
            kind = itBlanks;
        } else if (FPlace == TPlace::LineStart) {
            kind = ReadAtStart(c, text);
        } else if (FPlace == TPlace::Key) {
            kind = ReadKey(c, text);
        } else if (FPlace == TPlace::Value) {
            kind = ReadValue(c, text);
        } else {
            kind = ReadInSection(c, text);
        }
    }
    SetToken(AToken, text);
    return kind;
}

// Both halves of CR LF are one break. LineKind, which the last token of the line has left, is what
// the editor keeps for the next line.
TIniToken TIniLexer::ReadBreak(char16_t C, TZtTokenText &AText)
{
    if (C == u'\r' && Ahead() == u'\n')
        AText.append(ReadChar());
    // A value goes on as long as each line says so.
    if (FPlace == TPlace::LineStart)
        SetLineKind(NewLine);
    FPlace = TPlace::LineStart;
    return itLineBreak;
}

TIniToken TIniLexer::ReadAtStart(char16_t C, TZtTokenText &AText)
{
    const int kind = GetLineKind();
    SetLineKind(NewLine);
    if (kind == ValueGoesOn) {
        FPlace = TPlace::Value;
        return ReadValue(C, AText);
    }
    if (C == u';' || C == u'#') {
        ReadLine(AText);
        return itRemark;
    }
    if (C == u'[') {
        FPlace = TPlace::Section;
        return itBracket;
    }
    FPlace = TPlace::Key;
    return ReadKey(C, AText);
}

// Behind the closing bracket nothing but a remark makes sense.
TIniToken TIniLexer::ReadInSection(char16_t C, TZtTokenText &AText)
{
    if (FPlace == TPlace::SectionEnd) {
        ReadLine(AText);
        return C == u';' || C == u'#' ? itRemark : itValue;
    }
    if (C == u']') {
        FPlace = TPlace::SectionEnd;
        return itBracket;
    }
    ReadUntil([](char16_t next) { return EndsLine(next) || next == u']'; }, AText);
    return itSection;
}

TIniToken TIniLexer::ReadKey(char16_t C, TZtTokenText &AText)
{
    if (C == u'=' || C == u':') {
        FPlace = TPlace::Value;
        return itEquals;
    }
    ReadUntil([](char16_t next) { return EndsLine(next) || next == u'=' || next == u':'; }, AText);
    TakeBlanksBack(AText);
    return itKey;
}

TIniToken TIniLexer::ReadValue(char16_t C, TZtTokenText &AText)
{
    if (C == u'"' || C == u'\'') {
        ReadQuoted(C, AText);
        return itQuoted;
    }
    if (C == u'\\' && EndsLine(Ahead())) {
        SetLineKind(ValueGoesOn);
        return itContinues;
    }
    // In the middle of a value a backslash is a character like any other.
    ReadUntil([](char16_t next) { return EndsLine(next) || next == u'\\'; }, AText);
    TakeBlanksBack(AText);
    return itValue;
}

// A quote that is not closed ends with its line.
void TIniLexer::ReadQuoted(char16_t AQuote, TZtTokenText &AText)
{
    ReadUntil([AQuote](char16_t next) { return EndsLine(next) || next == AQuote; }, AText);
    if (Ahead() == AQuote)
        AText.append(ReadChar());
}

template <typename TStop> void TIniLexer::ReadUntil(TStop AStop, TZtTokenText &AText)
{
    while (!AStop(Ahead()))
        AText.append(ReadChar());
}

void TIniLexer::ReadLine(TZtTokenText &AText) { ReadUntil(EndsLine, AText); }

// Blanks at a token's end are a token of their own.
void TIniLexer::TakeBlanksBack(TZtTokenText &AText)
{
    for (; AText.size() > 1 && IsBlank(AText.back()); AText.removeLast())
        PushChar(AText.back());
}
