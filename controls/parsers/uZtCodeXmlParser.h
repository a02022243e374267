#pragma once

#include "uZtCodeParser.h"
#include "uZtExport.h"
#include "uZtSet.h"

/// For Qt's reflection, which gives the names of the kinds; hosts write them without it.
namespace ZtXml {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The token kinds of XML. `vtUnknown`, `vtInvalid` and `vtProlog` are never produced.
enum class TZtXmlToken : quint8 {
    vtLineBreak,
    vtUnknown,
    vtInvalid,
    vtEndOfFile,
    vtAttrName,
    vtAttrEqual,
    vtAttrQuote,
    vtAttrValue,
    vtElmName,
    vtElmStart,
    vtElmEnd,
    vtElmEndSlash,
    vtElmCharacters, ///< text between tags
    vtCDATAStart,
    vtCDATAEnd,
    vtCDATACharacters,
    vtComment,
    vtProlog,
    vtProcessing ///< a processing instruction
};
Q_ENUM_NS(TZtXmlToken)
} // namespace ZtXml

using ZtXml::TZtXmlToken;
/// Kinds of tokens.
using TZtXmlTokens = TZtSet<TZtXmlToken>;

/// Where in the markup the lexer is.
enum class TParseInfo : quint8 {
    pNone,      ///< at the start of the text
    pData,      ///< between tags
    pElement,   ///< inside a tag, before its first blank
    pAttribute, ///< inside a tag after a blank
    pAttrValue, ///< between the quotes of an attribute value
    pCDATA      ///< inside a CDATA section
};

/// A row of the XML attribute table.
struct TZtXmlTokenInfo {
    /// The element under which colour settings know the row.
    QString Name;
    TColor TextColor; ///< the text's colour
    TColor BckColor;  ///< the background's
    /// The kinds of token that are drawn with the row.
    TZtXmlTokens Tokens;
    TFontStyles Style; ///< bold, italic, underlined, struck out
};

/// Lexer for XML. Most tokens are a single character, whose kind depends on the place in the
/// markup; comments, processing instructions and the ends of CDATA sections are read whole. No
/// input is rejected. With `ClosedRemarks` a `LineKind` of 1 is an open comment, 2 an open
/// processing instruction.
class ZT_PARSERS_EXPORT TZtCodeXMLParser : public TZtLangParser {
    Q_OBJECT

public:
    explicit TZtCodeXMLParser(QObject *AOwner = nullptr);

    /// The attributes of all XML lexers. Row 0 draws what no other row claims.
    static TZtXmlTokenInfo DrawInfo[8];

    /// Restarts the source and goes back to the start of the markup.
    void Reset() override;

    /// "XML".
    QString GetLanguage() const override;
    QStringList GetElements() const override { return ZtDrawInfoNames(DrawInfo); }

    /// Reads one token and answers its kind. A line break's text is "~~", that of any other
    /// control character and of the end of the input is empty.
    TZtXmlToken InternalGetNextToken(QString &AToken);

    /// Reads one token with its attributes from `DrawInfo`; false at the end of the input.
    /// `OnPaintInfo` is not asked.
    bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                      TFontStyles &AFontStyle, bool &ALineBreak) override;

    /// The next `Count` characters, with a #0 for each one past the end of the input.
    QString ReadString(int Count);
    /// The same, which stay to be read.
    QString PeekString(int Count);

    /// The place in the markup, which crosses line ends; `Reset` sets it to `pNone`.
    TParseInfo GetParseInfo() const { return ParseInfo; }

protected:
    /// The place in the markup, and which quote is open there.
    int GetOwnState() const override;
    void SetOwnState(int Value) override;

private:
    static constexpr int SingleQuoted = 16; // above all values of `TParseInfo`

    template <bool Corrected> Q_ALWAYS_INLINE TZtXmlToken ReadNextToken(QString &AToken);
    Q_NEVER_INLINE TZtXmlToken CorrectedToken(QString &AToken);
    TZtXmlToken ClosedToken(TZtXmlToken AKind);
    TZtXmlToken ControlToken(char16_t C);
    TZtXmlToken SectionToken(QString &AToken);
    TZtXmlToken TagToken(char16_t C, QString &AToken);
    TZtXmlToken ProcessingToken(QString &AToken);
    TZtXmlToken DeclarationToken(QString &AToken);
    TZtXmlToken CDATAToken(char16_t C, QString &AToken);
    TZtXmlToken LineBreakToken(QString &AToken);
    void ReadComment(QString &AToken);

    TParseInfo ParseInfo = TParseInfo::pNone;
    char16_t Quote = u'"'; // that ends an attribute's value
};
