#include "uZtCodeVBParser.h"

#include "uZtClassRegistry.h"

#include <algorithm>

using enum TVBToken;
using TRange = TZtRange<TVBToken>;

[[maybe_unused]] static const bool Registered = ZtRegisterClass<TZtCodeVBParser>();

// Numbers and operators are both named "Symbol". The last row lists strings and comments too, which
// the rows before it catch.
TZtVBInfo TZtCodeVBParser::DrawInfo[RowCount] = {
    {QStringLiteral("WhiteSpace"), clWindowText, clWindow, {}, {}},
    {QStringLiteral("Reserved word"),
     clBlue,
     clWindow,
     {TRange(vtFunction, vtUntil)},
     TFontStyle::fsBold},
    {QStringLiteral("string"), clWindowText, clYellow, {vtString}, {}},
    {QStringLiteral("Comment"), clGreen, clWindow, {vtComment}, {}},
    {QStringLiteral("Identifier"), clWindowText, clWindow, {vtIdentifier}, {}},
    {QStringLiteral("Symbol"), clRed, clWindow, {vtHexNumber, vtNumber, vtFloat}, {}},
    {QStringLiteral("Symbol"),
     clBlue,
     clWindow,
     {vtConcat, vtString, TRange(vtComment, vtDivideInt)},
     {}},
};

const TZtCodeVBParser::TLanguage &TZtCodeVBParser::Language()
{
    static constexpr TLanguage Result = [] {
        TCharacters Characters = CommonCharacters();
        Characters[u'\''].Reader = static_cast<TReader>(&TZtCodeVBParser::LineRemarkToken);
        Characters[u'('].Reader = static_cast<TReader>(&TZtCodeVBParser::OpenParenToken);
        return MakeLanguage(typeid(TZtCodeVBParser), Characters,
                            {{u"EXIT", vtExit}, {u"THEN", vtThen}, {u"UNTIL", vtUntil}});
    }();
    return Result;
}

// The reserved words of the script language that the lexer's table lacks.
static constexpr std::u16string_view MoreWords[] = {
    u"AND", u"CALL", u"EMPTY",   u"EQV",  u"FALSE", u"IMP",  u"IS",   u"ME",   u"MOD",
    u"NEW", u"NOT",  u"NOTHING", u"NULL", u"OR",    u"STEP", u"STOP", u"TRUE", u"XOR",
};
static_assert(std::ranges::is_sorted(MoreWords));

static constexpr TZtSpan Spans[] = {
    {u"'", u"", int(vtComment)},
    {u"REM", u"", int(vtComment)},
    {u"\"", u"\"", int(vtString), false, true},
};

static constexpr TZtGrammar Grammar{int(vtLineBreak), MoreWords, false, {}, {u'!', u'['}, Spans};

TZtCodeVBParser::TZtCodeVBParser(QObject *AOwner)
    : TZtScriptLexer(AOwner, Language(), ::Grammar, DrawInfo)
{
}

QString TZtCodeVBParser::GetLanguage() const { return QStringLiteral("Visual Basic"); }

QString TZtCodeVBParser::ReadRemark(const QString &EndStr, TVBToken &)
{
    const char16_t First = EndChar(EndStr, 0);
    const char16_t Second = EndChar(EndStr, 1);
    TZtTokenText Result;
    for (char16_t C = ReadChar(); C != u'\0'; C = ReadChar()) {
        // A first end character without its second is text; the character that stands in the
        // second one's place is not.
        if (C == First && (Second == u'\0' || ReadChar() == Second))
            break;
        Result.append(C);
    }
    PushChar(First);
    return ToText(Result);
}

TVBToken TZtCodeVBParser::LineRemarkToken(TZtTokenText &AText)
{
    TVBToken Kind = vtComment;
    AppendText(AText, ReadRemark(QStringLiteral("\r"), Kind));
    return Kind;
}

// A "(*" remark makes no token: the scanner reads on at the star that ReadRemark gives back, so the
// remark shows as a vtMultiply.
TVBToken TZtCodeVBParser::OpenParenToken(TZtTokenText &AText)
{
    const char16_t C = ReadChar();
    if (C != u'*' || GetClosedRemarks()) {
        PushChar(C);
        return vtOpenParen;
    }
    TVBToken Kind = vtInvalid;
    AText.clear();
    AppendText(AText, ReadRemark(QStringLiteral("*)"), Kind));
    return Kind;
}

QString TZtCodeVBParser::MethodTemplate(TMethodKind AKind) const
{
    return AKind == TMethodKind::mkFunction
               ? QStringLiteral("\r\nfunction %1(%2)\r\n  \r\nend function rem %1\r\n")
               : QStringLiteral("\r\nsub %1(%2)\r\n  \r\nend sub rem %1\r\n");
}
