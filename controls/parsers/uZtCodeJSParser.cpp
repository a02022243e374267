#include "uZtCodeJSParser.h"

#include "uZtClassRegistry.h"

#include <algorithm>

using enum TJSToken;
using TRange = TZtRange<TJSToken>;

[[maybe_unused]] static const bool Registered = ZtRegisterClass<TZtCodeJSParser>();

// Numbers and operators are both named "Symbol". The last row lists strings and comments too, which
// the rows before it catch. Braces are drawn as reserved words.
TZtJSInfo TZtCodeJSParser::DrawInfo[RowCount] = {
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

const TZtCodeJSParser::TLanguage &TZtCodeJSParser::Language()
{
    // The words exit, then and until stay identifiers in every spelling.
    static constexpr TLanguage Result = [] {
        TCharacters Characters = CommonCharacters();
        Characters[u'/'].Reader = static_cast<TReader>(&TZtCodeJSParser::SlashToken);
        Characters[u'{'].Kind = vtBegin;
        Characters[u'}'].Kind = vtEnd;
        return MakeLanguage(typeid(TZtCodeJSParser), Characters, {});
    }();
    return Result;
}

// The reserved words of ECMAScript that the lexer's table lacks, those of strict code among them,
// and the constants that read like such.
static constexpr std::u16string_view MoreWords[] = {
    u"async",      u"await",     u"break",   u"catch", u"continue", u"debugger",   u"delete",
    u"enum",       u"export",    u"extends", u"false", u"finally",  u"implements", u"import",
    u"instanceof", u"interface", u"new",     u"null",  u"package",  u"protected",  u"return",
    u"static",     u"super",     u"switch",  u"this",  u"throw",    u"true",       u"try",
    u"typeof",     u"undefined", u"var",     u"void",  u"yield",
};
static_assert(std::ranges::is_sorted(MoreWords));

// A template literal is one string, also where it holds expressions.
static constexpr TZtSpan Spans[] = {
    {u"/*", u"*/", int(vtComment), true, false, u'\0'},
    {u"`", u"`", int(vtString), true, false, u'\\'},
    {u"\"", u"\"", int(vtString), false, false, u'\\'},
    {u"'", u"'", int(vtString), false, false, u'\\'},
    {u"//", u"", int(vtComment), false, false, u'\0'},
};

static constexpr TZtGrammar Grammar{int(vtLineBreak), MoreWords, true, {u'$'}, {u'#'}, Spans};

TZtCodeJSParser::TZtCodeJSParser(QObject *AOwner)
    : TZtScriptLexer(AOwner, Language(), ::Grammar, DrawInfo)
{
}

QString TZtCodeJSParser::GetLanguage() const { return QStringLiteral("JavaScript"); }

// The line kinds are numbered as in Pascal: a "/*" comment, which leaves a 1, goes on until "*)",
// in the next line or any after it.
static const QString RemarkEnds[] = {QStringLiteral("*)"), QStringLiteral("}"),
                                     QStringLiteral("\r")};

bool TZtCodeJSParser::ContinueRemark(QString &AToken, TJSToken &AKind)
{
    const bool HasKind = quint32(GetLineKind() - 1) < std::size(RemarkEnds);
    if (!HasKind && GetRemarkEnd().isEmpty())
        return false;
    if (HasKind)
        SetRemarkEnd(RemarkEnds[GetLineKind() - 1]);
    AKind = RemarkToken(AToken);
    return true;
}

TJSToken TZtCodeJSParser::RemarkToken(QString &AToken)
{
    const char16_t C = ReadChar();
    if (C == u'\r')
        return vtLineBreak;
    if (C != u'\n')
        PushChar(C);
    TJSToken Kind = vtComment;
    const QString EndStr = GetRemarkEnd();
    AToken = ReadRemark(EndStr, Kind);
    return Kind;
}

QString TZtCodeJSParser::ReadRemark(const QString &EndStr, TJSToken &)
{
    SetLineKind(EndStr == QLatin1String("*/") ? 1 : 0);
    SetRemarkEnd(EndStr);
    const char16_t First = EndChar(EndStr, 0);
    const char16_t Second = EndChar(EndStr, 1);
    TZtTokenText Result;
    char16_t C = ReadChar();
    for (; C != u'\0'; C = ReadChar()) {
        if ((C == u'\n' || C == u'\r') && GetEndLines()) {
            PushChar(C);
            if (C == First && EndStr.size() == 1)
                SetRemarkEnd(QString());
            return ToText(Result);
        }
        if (C == First && (Second == u'\0' || PeekChar() == Second)) {
            if (Second != u'\0')
                ReadChar();
            break;
        }
        Result.append(C);
    }
    // The second end character is added at the end of the input too: an open "/*" comment gets
    // a "/" there.
    for (const char16_t End : {C, Second})
        if (End != u'\0')
            Result.append(End);
    SetLineKind(0);
    SetRemarkEnd(QString());
    return ToText(Result);
}

TJSToken TZtCodeJSParser::SlashToken(TZtTokenText &AText)
{
    const char16_t C = ReadChar();
    if (C != u'*' && C != u'/') {
        PushChar(C);
        return vtDivide;
    }
    AText.append(C);
    TJSToken Kind = vtComment;
    AppendText(AText, ReadRemark(C == u'*' ? QStringLiteral("*/") : QStringLiteral("\r"), Kind));
    return Kind;
}

QString TZtCodeJSParser::MethodTemplate(TMethodKind) const
{
    return QStringLiteral("\r\nfunction %1(%2)\r\n{  \r\n} // %1\r\n");
}
