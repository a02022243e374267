#include "uZtCodePascalParser.h"

#include "uZtClassRegistry.h"

#include <algorithm>
#include <array>
#include <string_view>

using enum TPascalToken;

namespace {

const bool Registered = ZtRegisterClass<TztCodePasParser>();

constexpr TZtCharSet DigitChars = {{u'0', u'9'}};
constexpr TZtCharSet HexChars = {{u'0', u'9'}, {u'A', u'F'}, {u'a', u'f'}};
constexpr TZtCharSet LetterChars = {{u'A', u'Z'}, {u'a', u'z'}, u'_'};
constexpr TZtCharSet IdentifierChars = {{u'0', u'9'}, {u'A', u'Z'}, {u'a', u'z'}, u'_'};

struct TKeyword {
    std::u16string_view Text;
    TPascalToken Kind;
};

// In the order of their first letters.
constexpr TKeyword Keywords[] = {
    {u"AS", ptAs},
    {u"BEGIN", ptBegin},
    {u"CONSTRUCTOR", ptConstructor},
    {u"CONST", ptConst},
    {u"CLASS", ptClass},
    {u"DO", ptDo},
    {u"DESTRUCTOR", ptDestructor},
    {u"END", ptEnd},
    {u"ELSE", ptElse},
    {u"EXCEPT", ptExcept},
    {u"FUNCTION", ptFunction},
    {u"FINALLY", ptFinally},
    {u"IF", ptIf},
    {u"IMPLEMENTATION", ptImplementation},
    {u"INTERFACE", ptinterface},
    {u"INHERITED", ptInherited},
    {u"OUT", ptOut},
    {u"OBJECT", ptClass},
    {u"PROCEDURE", ptProcedure},
    {u"PROGRAM", ptProgram},
    {u"PRIVATE", ptPrivate},
    {u"PROTECTED", ptProtected},
    {u"PUBLIC", ptPublic},
    {u"PUBLISHED", ptPublished},
    {u"PROPERTY", ptProperty},
    {u"THEN", ptThen},
    {u"TRY", ptTry},
    {u"TYPE", ptType},
    {u"UNIT", ptUnit},
    {u"USES", ptUses},
    {u"UNTIL", ptUntil},
    {u"VAR", ptVar},
};

// The other reserved words of the language, "as" in small letters among them.
constexpr std::u16string_view MoreWords[] = {
    u"AND",     u"ARRAY",        u"AS",
    u"ASM",     u"CASE",         u"DISPINTERFACE",
    u"DIV",     u"DOWNTO",       u"EXPORTS",
    u"FILE",    u"FINALIZATION", u"FOR",
    u"GOTO",    u"IN",           u"INITIALIZATION",
    u"INLINE",  u"IS",           u"LABEL",
    u"LIBRARY", u"MOD",          u"NIL",
    u"NOT",     u"OF",           u"ON",
    u"OR",      u"PACKED",       u"RAISE",
    u"RECORD",  u"REPEAT",       u"RESOURCESTRING",
    u"SET",     u"SHL",          u"SHR",
    u"STRING",  u"THREADVAR",    u"TO",
    u"WHILE",   u"WITH",         u"XOR",
};
static_assert(std::ranges::is_sorted(MoreWords));

constexpr TZtSpan Spans[] = {
    {u"(*", u"*)", int(ptComment), true},
    {u"{", u"}", int(ptComment), true},
    {u"//", u"", int(ptComment)},
    {u"'", u"'", int(ptString), false, true},
};

constexpr TZtGrammar Grammar{int(ptLineBreak), MoreWords, false, {}, {u'&'}, Spans};

struct TLetterRows {
    quint8 First = 0;
    quint8 End = 0;
};

// The rows of `Keywords` that a token's first character selects.
constexpr std::array<TLetterRows, 128> KeywordRows = [] {
    std::array<TLetterRows, 128> rows{};
    for (size_t i = 0; i < std::size(Keywords); ++i) {
        const char16_t upper = Keywords[i].Text[0];
        for (const char16_t letter : {upper, char16_t(upper + 32)}) {
            if (rows[letter].End == 0)
                rows[letter].First = quint8(i);
            rows[letter].End = quint8(i + 1);
        }
    }
    // "as" in small letters stays an identifier; "As" and "AS" are the keyword.
    rows[u'a'] = {};
    return rows;
}();

// `AIdentifier` holds letters, digits and underscores only, for which clearing one bit is
// upper-casing as far as letters can match.
bool IsSameWord(std::u16string_view AIdentifier, std::u16string_view AKeyword)
{
    return std::ranges::equal(AIdentifier, AKeyword, [](char16_t written, char16_t upper) {
        return (written & ~0x20) == upper;
    });
}

TPascalToken KeywordKind(std::u16string_view AIdentifier)
{
    const TLetterRows rows = KeywordRows[AIdentifier.front()];
    for (quint8 i = rows.First; i < rows.End; ++i)
        if (IsSameWord(AIdentifier, Keywords[i].Text))
            return Keywords[i].Kind;
    return ptIdentifier;
}

QString AsString(const TZtTokenText &AText)
{
    return QString(reinterpret_cast<const QChar *>(AText.constData()), AText.size());
}

struct TCharKind {
    char16_t C;
    TPascalToken Kind;
};

// Characters that are a token by themselves, or begin an operator of two.
constexpr TCharKind Symbols[] = {
    {u'\0', ptEndOfFile},   {u'\r', ptLineBreak}, {u'#', ptHash},      {u')', ptCloseParen},
    {u'*', ptMultiply},     {u'+', ptPlus},       {u',', ptComma},     {u'-', ptMinus},
    {u'.', ptPeriod},       {u':', ptColon},      {u';', ptSemicolon}, {u'<', ptLess},
    {u'=', ptEquals},       {u'>', ptGreater},    {u'@', ptAddress},   {u'[', ptOpenBracket},
    {u']', ptCloseBracket}, {u'^', ptCaret},
};

struct TOperator {
    char16_t First;
    char16_t Second;
    TPascalToken Kind;
};

constexpr TOperator Operators[] = {
    {u'.', u'.', ptRange},     {u':', u'=', ptAssign},       {u'<', u'=', ptLessEqual},
    {u'<', u'>', ptNotEquals}, {u'>', u'=', ptGreaterEqual},
};

// The comments that can be open at the end of what was read: `LineKind` is the 1-based index.
const std::array<QString, 3> RemarkEnds = {QStringLiteral("*)"), QStringLiteral("}"),
                                           QStringLiteral("\r")};
const QString &ParenEnd = RemarkEnds[0];
const QString &BraceEnd = RemarkEnds[1];
const QString &LineEnd = RemarkEnds[2];

} // namespace

TZtPascalInfo TZtCodePascalParser::DrawInfo[8] = {
    {QStringLiteral("WhiteSpace"), clWindowText, clWindow, {}, {}},
    {QStringLiteral("Reserved word"),
     clWindowText,
     clWindow,
     {ptTry,
      ptExcept,
      ptFinally,
      ptInherited,
      ptAs,
      {ptFunction, ptPublished},
      ptProperty,
      ptinterface,
      ptKeyword,
      ptVar,
      ptConst,
      ptOut},
     TFontStyle::fsBold},
    {QStringLiteral("string"), clWindowText, clYellow, {ptString}, {}},
    {QStringLiteral("Comment"), clHighlightText, clHighlight, {ptComment}, {}},
    {QStringLiteral("Identifier"), clRed, clWhite, {ptIdentifier}, {}},
    {QStringLiteral("Character"), clBlue, clWhite, {ptHash}, TFontStyle::fsItalic},
    {QStringLiteral("Number"), clBlue, clGreen, {ptNumber}, {}},
    {QStringLiteral("Symbol"),
     clBlue,
     clRed,
     {{ptComma, ptCaret}, ptAddress, ptPlus, ptMinus, ptMultiply, ptDivide},
     {}},
};

/// What a character begins: the kind of the token and, when it has more characters or may have,
/// the reader of the rest.
struct TZtCodePascalParser::TRules {
    using TReader = void (TZtCodePascalParser::*)(TZtTokenText &AText, TPascalToken &Kind);
    struct TRule {
        TPascalToken Kind = ptUnknown;
        TReader Read = nullptr;
    };
    using TTable = std::array<TRule, 128>;

    static constexpr TTable Make()
    {
        TTable table{};
        for (const TCharKind &symbol : Symbols)
            table[symbol.C].Kind = symbol.Kind;
        for (const TOperator &op : Operators)
            table[op.First].Read = &TZtCodePascalParser::TakeOperator;
        for (size_t i = 0; i < table.size(); ++i) {
            if (DigitChars.contains(char16_t(i)))
                table[i] = {ptNumber, &TZtCodePascalParser::TakeNumber};
            else if (LetterChars.contains(char16_t(i)))
                table[i] = {ptIdentifier, &TZtCodePascalParser::TakeIdentifier};
        }
        table[u'\b'] = {ptSpace, &TZtCodePascalParser::TakeBackspace};
        table[u' '] = {ptSpace, &TZtCodePascalParser::TakeSpaces};
        table[u'$'] = {ptNumber, &TZtCodePascalParser::TakeHexNumber};
        table[u'\''] = {ptString, &TZtCodePascalParser::TakeString};
        table[u'('] = {ptOpenParen, &TZtCodePascalParser::TakeParen};
        table[u'/'] = {ptDivide, &TZtCodePascalParser::TakeSlash};
        table[u'{'] = {ptComment, &TZtCodePascalParser::TakeBrace};
        return table;
    }

    static const TRule &Of(char16_t C)
    {
        static constexpr TTable table = Make();
        static constexpr TRule other;
        return C < table.size() ? table[C] : other;
    }
};

TZtCodePascalParser::TZtCodePascalParser(QObject *AOwner) : TZtLangParser(AOwner, ::Grammar) {}

QString TZtCodePascalParser::GetLanguage() const { return QStringLiteral("Pascal"); }

void TZtCodePascalParser::SetDelphiVersion(int V)
{
    DelphiVersion = V;
    if (!DelphiKnown(V))
        return;
    for (size_t i = std::size(DrawInfo); i-- > 0;) {
        TZtPascalInfo &row = DrawInfo[i];
        if (!row.Name.isEmpty())
            GetPaintInfoFromDelphi(V, row.Name, row.BckColor, row.TextColor, row.Style);
    }
}

bool TZtCodePascalParser::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                       TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TPascalToken kind = InternalGetNextToken(AToken);
    TakeStyle(DrawInfo, kind, ABackGround, ATextColor, AFontStyle);
    ALineBreak = kind == ptLineBreak;
    return kind != ptInvalid && kind != ptEndOfFile;
}

template <bool Corrected> inline TPascalToken TZtCodePascalParser::ReadNextToken(QString &AToken)
{
    if (!Corrected || !GetClosedRemarks()) {
        const int lineKind = GetLineKind();
        if (lineKind >= 1 && lineKind <= int(RemarkEnds.size()))
            SetRemarkEnd(RemarkEnds[size_t(lineKind - 1)]);
        if (!GetRemarkEnd().isEmpty())
            return ContinueRemark(AToken);
    }

    const char16_t C = ReadChar();
    if (Corrected)
        if (const int closed = ReadClosed(C, AToken); closed >= 0)
            return TPascalToken(closed);
    TZtTokenText text = {C};
    const TRules::TRule &rule = TRules::Of(C);
    TPascalToken kind = rule.Kind;
    if (rule.Read)
        (this->*rule.Read)(text, kind);
    SetToken(AToken, text);
    Q_ASSERT_X(kind != ptInvalid, "InternalGetNextToken", "Managed to find an invalid token.");
    return kind;
}

TPascalToken TZtCodePascalParser::InternalGetNextToken(QString &AToken)
{
    if (IsCorrected()) [[unlikely]]
        return CorrectedToken(AToken);
    return ReadNextToken<false>(AToken);
}

TPascalToken TZtCodePascalParser::CorrectedToken(QString &AToken)
{
    const TPascalToken kind = ReadNextToken<true>(AToken);
    if (kind == ptComment && GetClosedRemarks())
        ResetSoapComment();
    NoteToken(AToken);
    return kind;
}

TPascalToken TZtCodePascalParser::ContinueRemark(QString &AToken)
{
    const char16_t C = ReadChar();
    if (C == u'\r')
        return ptLineBreak;
    if (C != u'\n')
        PushChar(C);
    TZtTokenText text;
    TakeRemark(GetRemarkEnd(), text);
    SetToken(AToken, text);
    return ptComment;
}

QString TZtCodePascalParser::ReadIdentifier()
{
    TZtTokenText text;
    ReadRun(IdentifierChars, text);
    return AsString(text);
}

QString TZtCodePascalParser::ReadNumber(TPascalToken &Kind)
{
    TZtTokenText text;
    TakeNumber(text, Kind);
    return AsString(text);
}

QString TZtCodePascalParser::ReadString()
{
    TZtTokenText text;
    TPascalToken kind = ptString;
    TakeString(text, kind);
    return AsString(text);
}

QString TZtCodePascalParser::ReadRemark(const QString &AEnd, TPascalToken &)
{
    TZtTokenText text;
    TakeRemark(AEnd, text);
    return AsString(text);
}

// It is the backspace code that is expanded; a tab is a token of unknown kind.
void TZtCodePascalParser::TakeBackspace(TZtTokenText &AText, TPascalToken &)
{
    AText.clear();
    AText.insert(AText.cend(), 4, u' ');
}

void TZtCodePascalParser::TakeSpaces(TZtTokenText &AText, TPascalToken &)
{
    static constexpr TZtCharSet space = {u' '};
    ReadRun(space, AText);
}

void TZtCodePascalParser::TakeHexNumber(TZtTokenText &AText, TPascalToken &)
{
    ReadRun(HexChars, AText);
}

void TZtCodePascalParser::TakeNumber(TZtTokenText &AText, TPascalToken &Kind)
{
    bool point = false;
    char16_t C = ReadChar();
    for (;; C = ReadChar()) {
        if (C == u'.') {
            if (point || PeekChar() == u'.')
                break;
            point = true;
        } else if (!DigitChars.contains(C)) {
            break;
        }
        AText.append(C);
    }
    PushChar(C);
    if (point)
        Kind = ptFloat;
}

// A doubled quote is one quote in the token's text.
void TZtCodePascalParser::TakeString(TZtTokenText &AText, TPascalToken &)
{
    for (;;) {
        const char16_t C = ReadChar();
        if (C == u'\r' || C == u'\n' || C == u'\0') {
            PushChar(C);
            return;
        }
        AText.append(C);
        if (C != u'\'')
            continue;
        const char16_t next = ReadChar();
        if (next != u'\'') {
            PushChar(next);
            return;
        }
    }
}

void TZtCodePascalParser::TakeIdentifier(TZtTokenText &AText, TPascalToken &Kind)
{
    ReadRun(IdentifierChars, AText);
    const std::u16string_view word(AText.constData(), size_t(AText.size()));
    Kind = KeywordKind(word);
    if (!HasMoreWords())
        return;
    if (Kind == ptIdentifier)
        Kind = IsMoreWord(word) && IsWholeWord() ? ptKeyword : ptIdentifier;
    else if (GetAllKeyWords() && !IsWholeWord())
        Kind = ptIdentifier;
}

void TZtCodePascalParser::TakeOperator(TZtTokenText &AText, TPascalToken &Kind)
{
    const char16_t first = AText.front();
    const char16_t second = ReadChar();
    for (const TOperator &op : Operators) {
        if (op.First == first && op.Second == second) {
            AText.append(second);
            Kind = op.Kind;
            return;
        }
    }
    PushChar(second);
}

void TZtCodePascalParser::TakeParen(TZtTokenText &AText, TPascalToken &Kind)
{
    const char16_t C = ReadChar();
    if (C != u'*') {
        PushChar(C);
        return;
    }
    Kind = ptComment;
    AText.append(C);
    TakeRemark(ParenEnd, AText);
}

void TZtCodePascalParser::TakeSlash(TZtTokenText &AText, TPascalToken &Kind)
{
    const char16_t C = ReadChar();
    if (C != u'/') {
        PushChar(C);
        return;
    }
    Kind = ptComment;
    AText.append(C);
    TakeRemark(LineEnd, AText);
}

void TZtCodePascalParser::TakeBrace(TZtTokenText &AText, TPascalToken &)
{
    TakeRemark(BraceEnd, AText);
}

void TZtCodePascalParser::ResetSoapComment()
{
    SoapCommentLineStart = -1;
    SoapCommentPosStart = -1;
    SoapCommentLineEnd = -1;
    SoapCommentPosEnd = -1;
    SoapComment.clear();
}

void TZtCodePascalParser::TakeRemark(const QString &AEnd, TZtTokenText &AText)
{
    const char16_t E1 = AEnd.isEmpty() ? u'\0' : AEnd.at(0).unicode();
    const char16_t E2 = AEnd.size() < 2 ? u'\0' : AEnd.at(1).unicode();
    SetLineKind(AEnd == ParenEnd ? 1 : AEnd == BraceEnd ? 2 : 0);
    SetRemarkEnd(AEnd);
    ResetSoapComment();

    char16_t C = ReadChar();
    for (; C != u'\0'; C = ReadChar()) {
        if ((C == u'\r' || C == u'\n') && GetEndLines()) {
            PushChar(C);
            if (C == E1 && E2 == u'\0')
                SetRemarkEnd(QString());
            return;
        }
        if (C == E1 && (E2 == u'\0' || PeekChar() == E2))
            break;
        AText.append(C);
    }
    if (C != u'\0' && E2 != u'\0')
        ReadChar();
    if (C != u'\0')
        AText.append(C);
    // At the end of the input, too, a "(*" comment gets its ")", which the source lacks.
    if (E2 != u'\0')
        AText.append(E2);
    SetLineKind(0);
    SetRemarkEnd(QString());
}
