#include "uZtCodeXmlParser.h"

#include "uZtClassRegistry.h"

using enum TZtXmlToken;
using enum TParseInfo;

[[maybe_unused]] static const bool Registered = ZtRegisterClass<TZtCodeXMLParser>();

// "ElemenValue" is the name under which that row has always been known.
TZtXmlTokenInfo TZtCodeXMLParser::DrawInfo[8] = {
    {QStringLiteral("WhiteSpace"), clWindowText, clWindow, {}, {}},
    {QStringLiteral("AttributeName"), clMaroon, clWindow, {vtAttrName}, {}},
    {QStringLiteral("AttributeValue"), clBlack, clWindow, {vtAttrValue}, TFontStyle::fsBold},
    {QStringLiteral("ElementName"), clMaroon, clWindow, {vtElmName}, {}},
    {QStringLiteral("ElemenValue"), clBlack, clWindow, {vtElmCharacters}, TFontStyle::fsBold},
    {QStringLiteral("XMLChar"),
     clBlue,
     clWindow,
     {vtAttrEqual, vtAttrQuote, vtElmStart, vtElmEnd, vtElmEndSlash, vtCDATAStart, vtCDATAEnd,
      vtProlog, vtProcessing},
     {}},
    {QStringLiteral("CDATA"), clBlack, clWindow, {vtCDATACharacters}, {}},
    {QStringLiteral("Comment"), clGreen, clYellow, {vtComment}, {}},
};

// The kind of a character that has no part in the markup, by `TParseInfo`.
static constexpr TZtXmlToken DefaultKind[] = {vtElmStart, vtElmCharacters, vtElmName,
                                              vtAttrName, vtAttrValue,     vtCDATACharacters};

static constexpr TZtSpan Spans[] = {
    {u"<!--", u"-->", int(vtComment), true},
    {u"<?", u"?>", int(vtProcessing), true},
};

static constexpr TZtGrammar Grammar{int(vtLineBreak), {}, false, {}, {}, Spans};

TZtCodeXMLParser::TZtCodeXMLParser(QObject *AOwner) : TZtLangParser(AOwner, ::Grammar) {}

void TZtCodeXMLParser::Reset()
{
    TZtLangParser::Reset();
    ParseInfo = pNone;
}

// The kind of quote matters only between quotes.
int TZtCodeXMLParser::GetOwnState() const
{
    return int(ParseInfo) + (ParseInfo == pAttrValue && Quote == u'\'' ? SingleQuoted : 0);
}

void TZtCodeXMLParser::SetOwnState(int Value)
{
    Quote = Value >= SingleQuoted ? u'\'' : u'"';
    Value %= SingleQuoted;
    ParseInfo = Value >= 0 && Value < int(std::size(DefaultKind)) ? TParseInfo(Value) : pNone;
}

QString TZtCodeXMLParser::GetLanguage() const { return QStringLiteral("XML"); }

template <bool Corrected> inline TZtXmlToken TZtCodeXMLParser::ReadNextToken(QString &AToken)
{
    const char16_t C = ReadChar();
    if (Corrected)
        if (const int Closed = ReadClosed(C, AToken, ParseInfo != pCDATA); Closed >= 0)
            return ClosedToken(TZtXmlToken(Closed));
    AToken = QChar(C);
    if (C < u' ') {
        if (C == u'\r')
            return LineBreakToken(AToken);
        AToken.resize(0);
        return C == u'\0' ? vtEndOfFile : ControlToken(C);
    }
    if (ParseInfo == pCDATA)
        return CDATAToken(C, AToken);
    if (C == u'<') {
        ParseInfo = pElement;
        return vtElmStart;
    }
    if (ParseInfo == pElement || ParseInfo == pAttribute)
        return TagToken(C, AToken);
    if (C == Quote && ParseInfo == pAttrValue) {
        ParseInfo = pAttribute;
        return vtAttrQuote;
    }
    return DefaultKind[int(ParseInfo)];
}

TZtXmlToken TZtCodeXMLParser::InternalGetNextToken(QString &AToken)
{
    if (IsCorrected()) [[unlikely]]
        return CorrectedToken(AToken);
    return ReadNextToken<false>(AToken);
}

TZtXmlToken TZtCodeXMLParser::CorrectedToken(QString &AToken)
{
    return ReadNextToken<true>(AToken);
}

// Behind a comment or a processing instruction stands text. A line break in a tag is a blank.
TZtXmlToken TZtCodeXMLParser::ClosedToken(TZtXmlToken AKind)
{
    if (AKind != vtLineBreak)
        ParseInfo = pData;
    else if (ParseInfo == pElement)
        ParseInfo = pAttribute;
    return AKind;
}

// So is a tab.
TZtXmlToken TZtCodeXMLParser::ControlToken(char16_t C)
{
    const TZtXmlToken Kind = DefaultKind[int(ParseInfo)];
    if (C == u'\t' && ParseInfo == pElement && GetClosedRemarks())
        ParseInfo = pAttribute;
    return Kind;
}

TZtXmlToken TZtCodeXMLParser::TagToken(char16_t C, QString &AToken)
{
    const bool inAttribute = ParseInfo == pAttribute;
    switch (C) {
    case u'>':
        ParseInfo = pData;
        return vtElmEnd;
    case u'/':
        return vtElmEndSlash;
    case u' ':
        ParseInfo = pAttribute;
        return vtAttrName;
    case u'=':
        return inAttribute ? vtAttrEqual : vtElmName;
    case u'"':
    case u'\'':
        if (!inAttribute || (C == u'\'' && !GetClosedRemarks()))
            return DefaultKind[int(ParseInfo)];
        ParseInfo = pAttrValue;
        Quote = C;
        return vtAttrQuote;
    case u'?':
        return inAttribute || GetClosedRemarks() ? DefaultKind[int(ParseInfo)]
                                                 : ProcessingToken(AToken);
    case u'!':
        if (inAttribute)
            return vtAttrName;
        return GetClosedRemarks() ? SectionToken(AToken) : DeclarationToken(AToken);
    default:
        return DefaultKind[int(ParseInfo)];
    }
}

// Reads to the next "?", whatever lies between, or to the end of the input.
TZtXmlToken TZtCodeXMLParser::ProcessingToken(QString &AToken)
{
    char16_t C;
    do {
        C = ReadChar();
        if (C == u'\0') {
            PushChar(C);
            break;
        }
        AToken.append(QChar(C));
        SkipTo(QStringLiteral("?"), AToken.size());
    } while (C != u'?');
    return vtProcessing;
}

TZtXmlToken TZtCodeXMLParser::DeclarationToken(QString &AToken)
{
    AToken.append(ReadString(2));
    if (AToken == QLatin1String("!--")) {
        ReadComment(AToken);
        return vtComment;
    }
    AToken.append(ReadString(5));
    if (AToken.compare(QLatin1String("![CDATA["), Qt::CaseInsensitive) == 0) {
        ParseInfo = pCDATA;
        return vtCDATAStart;
    }
    // A declaration shows its "!" as an attribute name and its word as an element name.
    PushStr(AToken.mid(1));
    AToken.resize(1);
    return vtAttrName;
}

// What a "!" begins that begins no comment. It does not look further than the line's end.
TZtXmlToken TZtCodeXMLParser::SectionToken(QString &AToken)
{
    TZtTokenText Text = {u'!'};
    if (!TakeNext(u"[CDATA[", Text))
        return vtAttrName;
    SetToken(AToken, Text);
    ParseInfo = pCDATA;
    return vtCDATAStart;
}

// Reads the rest of a comment up to its ">", over as many lines as it takes. At the end of the
// input the text gets two #0.
void TZtCodeXMLParser::ReadComment(QString &AToken)
{
    char16_t C;
    do {
        C = ReadChar();
        AToken.append(QChar(C));
        SkipTo(QStringLiteral("-->"), AToken.size());
    } while (C != u'\0' && (C != u'-' || PeekString(2) != QLatin1String("->")));
    AToken.append(QChar(ReadChar()));
}

// After the section's end the state is that of a tag, so text up to the next "<" or ">" shows as an
// element name.
TZtXmlToken TZtCodeXMLParser::CDATAToken(char16_t C, QString &AToken)
{
    if (C != u']' || PeekString(2) != QLatin1String("]>"))
        return vtCDATACharacters;
    AToken.append(ReadString(2));
    ParseInfo = GetClosedRemarks() ? pData : pElement;
    return vtCDATAEnd;
}

TZtXmlToken TZtCodeXMLParser::LineBreakToken(QString &AToken)
{
    if (PeekChar() == u'\n')
        ReadChar();
    AToken = QStringLiteral("~~");
    return vtLineBreak;
}

bool TZtCodeXMLParser::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                    TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TZtXmlToken Kind = InternalGetNextToken(AToken);
    TakeStyle(DrawInfo, Kind, ABackGround, ATextColor, AFontStyle);
    ALineBreak = Kind == vtLineBreak;
    return Kind != vtInvalid && Kind != vtEndOfFile;
}

QString TZtCodeXMLParser::ReadString(int Count)
{
    QString Result;
    Result.reserve(qMax(Count, 0));
    for (int i = 0; i < Count; ++i)
        Result.append(QChar(ReadChar()));
    return Result;
}

QString TZtCodeXMLParser::PeekString(int Count)
{
    QString Result = ReadString(Count);
    PushStr(Result);
    return Result;
}
