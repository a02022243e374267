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

TZtCodeXMLParser::TZtCodeXMLParser(QObject *AOwner) : TZtLangParser(AOwner) {}

void TZtCodeXMLParser::Reset()
{
    TZtLangParser::Reset();
    ParseInfo = pNone;
}

QString TZtCodeXMLParser::GetLanguage() const { return QStringLiteral("XML"); }

TZtXmlToken TZtCodeXMLParser::InternalGetNextToken(QString &AToken)
{
    const char16_t C = ReadChar();
    AToken = QChar(C);
    if (C < u' ') {
        if (C == u'\r')
            return LineBreakToken(AToken);
        AToken.resize(0);
        return C == u'\0' ? vtEndOfFile : DefaultKind[int(ParseInfo)];
    }
    if (ParseInfo == pCDATA)
        return CDATAToken(C, AToken);
    if (C == u'<') {
        ParseInfo = pElement;
        return vtElmStart;
    }
    if (ParseInfo == pElement || ParseInfo == pAttribute)
        return TagToken(C, AToken);
    if (C == u'"' && ParseInfo == pAttrValue) {
        ParseInfo = pAttribute;
        return vtAttrQuote;
    }
    return DefaultKind[int(ParseInfo)];
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
        if (inAttribute)
            ParseInfo = pAttrValue;
        return inAttribute ? vtAttrQuote : vtElmName;
    case u'?':
        return inAttribute ? vtAttrName : ProcessingToken(AToken);
    case u'!':
        return inAttribute ? vtAttrName : DeclarationToken(AToken);
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
    ParseInfo = pElement;
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
    const TZtXmlTokenInfo &Row = ZtDrawInfoRow(DrawInfo, Kind);
    ABackGround = Row.BckColor;
    ATextColor = Row.TextColor;
    AFontStyle = Row.Style;
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
