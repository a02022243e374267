#include "token_rows.h"

#include "uZtClassRegistry.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeXmlParser.h"

#include <QScopeGuard>

#include <memory>

namespace {

// One token for each character of the text.
template <typename TToken> TTokenRow<TToken> Each(TToken AKind, const QString &AText)
{
    TTokenRow<TToken> tokens;
    for (const QChar c : AText)
        tokens.emplace_back(AKind, c);
    return tokens;
}

template <typename TToken>
TTokenRow<TToken> operator+(TTokenRow<TToken> AFirst, const TTokenRow<TToken> &ASecond)
{
    AFirst.insert(AFirst.end(), ASecond.begin(), ASecond.end());
    return AFirst;
}

TEST(XmlLexer, TokensAndTheStateAfterThem)
{
    using enum TZtXmlToken;
    using enum TParseInfo;
    using TTokens = TTokenRow<TZtXmlToken>;
    const struct {
        QString Text;
        TTokens Tokens;
        TParseInfo After;
    } rows[] = {
        {"", {}, pNone},
        {"<a b=\"c\">",
         {{vtElmStart, "<"},
          {vtElmName, "a"},
          {vtAttrName, " "},
          {vtAttrName, "b"},
          {vtAttrEqual, "="},
          {vtAttrQuote, "\""},
          {vtAttrValue, "c"},
          {vtAttrQuote, "\""},
          {vtElmEnd, ">"}},
         pData},
        {"x>/\"", Each(vtElmStart, "x>/\""), pNone},
        {"</a>x>/=\"!?]",
         TTokens{{vtElmStart, "<"}, {vtElmEndSlash, "/"}, {vtElmName, "a"}, {vtElmEnd, ">"}} +
             Each(vtElmCharacters, "x>/=\"!?]"),
         pData},
        {"<=\"]", TTokens{{vtElmStart, "<"}} + Each(vtElmName, "=\"]"), pElement},
        {"< !?'/", TTokens{{vtElmStart, "<"}} + Each(vtAttrName, " !?'") + Each(vtElmEndSlash, "/"),
         pAttribute},
        {"< \"> /=!?<b",
         TTokens{{vtElmStart, "<"}, {vtAttrName, " "}, {vtAttrQuote, "\""}} +
             Each(vtAttrValue, "> /=!?") + TTokens{{vtElmStart, "<"}, {vtElmName, "b"}},
         pElement},
        {"<!--x-->", {{vtElmStart, "<"}, {vtComment, "!--x--"}, {vtElmEnd, ">"}}, pData},
        {"<!-- -\r\n-- >-->\r\n",
         {{vtElmStart, "<"}, {vtComment, "!-- -\r\n-- >--"}, {vtElmEnd, ">"}, {vtLineBreak, "~~"}},
         pData},
        {"<!--x",
         {{vtElmStart, "<"}, {vtComment, QString("!--x") + QChar(0) + QChar(0)}},
         pElement},
        {"<![cdata[a]<]]>b",
         TTokens{{vtElmStart, "<"}, {vtCDATAStart, "![cdata["}} + Each(vtCDATACharacters, "a]<") +
             TTokens{{vtCDATAEnd, "]]>"}, {vtElmName, "b"}},
         pElement},
        {"<![CDATA[]]",
         TTokens{{vtElmStart, "<"}, {vtCDATAStart, "![CDATA["}} + Each(vtCDATACharacters, "]]"),
         pCDATA},
        {"<!DOCTYPE>",
         TTokens{{vtElmStart, "<"}, {vtAttrName, "!"}} + Each(vtElmName, "DOCTYPE") +
             TTokens{{vtElmEnd, ">"}},
         pData},
        {"<!a", {{vtElmStart, "<"}, {vtAttrName, "!"}, {vtElmName, "a"}}, pElement},
        {"<?x\r\ny?>", {{vtElmStart, "<"}, {vtProcessing, "?x\r\ny?"}, {vtElmEnd, ">"}}, pData},
        {"<?x", {{vtElmStart, "<"}, {vtProcessing, "?x"}}, pElement},
        {"<\r\n\ta\r\n",
         {{vtElmStart, "<"},
          {vtLineBreak, "~~"},
          {vtElmName, ""},
          {vtElmName, "a"},
          {vtLineBreak, "~~"}},
         pElement},
        {"\ra\n", {{vtLineBreak, "~~"}, {vtElmStart, "a"}, {vtElmStart, ""}}, pNone},
    };
    for (const auto &row : rows) {
        TZtCodeXMLParser lexer;
        Feed(lexer, row.Text);
        EXPECT_EQ(ToLines(ReadTokens<TZtXmlToken>(lexer)), ToLines(row.Tokens))
            << row.Text.toStdString();
        EXPECT_EQ(lexer.GetParseInfo(), row.After) << row.Text.toStdString();
        lexer.Reset();
        EXPECT_EQ(lexer.GetParseInfo(), pNone);
    }
}

TEST(XmlLexer, PeeksOverTheEndOfALineAndOfTheInput)
{
    TZtCodeXMLParser lexer;
    Feed(lexer, "a\r\nb");
    EXPECT_EQ(lexer.PeekString(4), "a\r\nb");
    EXPECT_EQ(lexer.GetLineNr(), 1);
    EXPECT_EQ(lexer.ReadString(3), "a\r\n");
    EXPECT_EQ(lexer.GetLineNr(), 2);
    EXPECT_EQ(lexer.PeekString(2), QString("b") + QChar(0));
    EXPECT_EQ(lexer.ReadString(1), "b");
}

TEST(XmlLexer, RowsOfTheAttributeTable)
{
    TZtCodeXMLParser lexer;
    lexer.OnPaintInfo = [](const QString &, TColor &, TColor &, TFontStyles &) {
        ADD_FAILURE() << "the hook is not for XML";
    };
    Feed(lexer, "<n a=\"v\"><!-- --><![CDATA[x");
    const TAttributes sign = {clWindow, clBlue, {}}, name = {clWindow, clMaroon, {}};
    const TAttributes expected[] = {sign,
                                    name,
                                    name,
                                    name,
                                    sign,
                                    sign,
                                    {clWindow, clBlack, TFontStyle::fsBold},
                                    sign,
                                    sign,
                                    sign,
                                    {clYellow, clGreen, {}},
                                    sign,
                                    sign,
                                    sign,
                                    {clWindow, clBlack, {}}};
    QString token;
    bool lineBreak = true;
    for (const TAttributes &attributes : expected) {
        TAttributes actual;
        EXPECT_TRUE(lexer.GetNextToken(token, actual.BackGround, actual.TextColor, actual.Style,
                                       lineBreak));
        EXPECT_EQ(actual, attributes) << token.toStdString();
        EXPECT_FALSE(lineBreak);
    }
    const TAttributes none = {clWindow, clWindowText, {}};
    EXPECT_EQ(FirstAttributes(lexer, "\r\n"), none);
    EXPECT_EQ(FirstAttributes(lexer, ""), none);
    EXPECT_EQ(lexer.GetLanguage(), "XML");
}

TEST(SqlLexer, Tokens)
{
    using enum TZtSqlToken;
    using TTokens = TTokenRow<TZtSqlToken>;
    const TTokens blank = {{vtUnknown, " "}}, lineBreak = {{vtLineBreak, "\r\n"}};
    const struct {
        QString Text;
        TTokens Tokens;
        bool InComment = false;
    } rows[] = {
        {"", {}},
        {"select * From t", TTokens{{vtKeyWord, "select"}} + blank + TTokens{{vtUnknown, "*"}} +
                                blank + TTokens{{vtKeyWord, "From"}} + blank +
                                TTokens{{vtUnknown, "t"}}},
        {"Selection", TTokens{{vtUnknown, "Selecti"}} + Each(vtUnknown, "on")},
        {"SEL", {{vtUnknown, "SEL"}}},
        {"as,or(In)is.by",
         {{vtKeyWord, "as"},
          {vtUnknown, ","},
          {vtKeyWord, "or"},
          {vtUnknown, "("},
          {vtKeyWord, "In"},
          {vtUnknown, ")"},
          {vtKeyWord, "is"},
          {vtUnknown, "."},
          {vtUnknown, "b"},
          {vtUnknown, "y"}}},
        {"\tas", TTokens{{vtUnknown, ""}} + Each(vtUnknown, "as")},
        {"CURRENT_DATE", TTokens{{vtKeyWord, "CURRENT"}} + Each(vtUnknown, "_DATE")},
        {"SESSION_USER", TTokens{{vtUnknown, "SESSION"}} + Each(vtUnknown, "_USER")},
        {"/* a\r\nb */ as", TTokens{{vtComment, "/* a"}} + lineBreak +
                                TTokens{{vtComment, "b */"}} + blank + TTokens{{vtKeyWord, "as"}}},
        {"/**/x", {{vtComment, "/**/"}, {vtUnknown, "x"}}},
        {"/*/x", {{vtComment, "/*/"}, {vtUnknown, "x"}}},
        {"/*\r\nx\r\ny",
         TTokens{{vtComment, "/*"}} + lineBreak +
             TTokens{{vtComment, "x\r"}, {vtUnknown, "\n"}, {vtComment, QString("y") + QChar(0)}},
         true},
        {"/*\r\n\r\n*/",
         TTokens{{vtComment, "/*"}} + lineBreak + lineBreak + TTokens{{vtComment, "*/"}}},
        {"'it''s'", {{vtQuotedValue, "'it'"}, {vtQuotedValue, "'s'"}}},
        {"'open\r\n'",
         TTokens{{vtQuotedValue, "'open"}} + lineBreak + TTokens{{vtQuotedValue, "'"}}},
        {"12)", {{vtNumber, "12"}, {vtUnknown, ")"}}},
        {"1.5,2\r\n", TTokens{{vtNumber, "1.5,2"}} + lineBreak},
        {"12x", {{vtUnknown, "1"}, {vtUnknown, "x"}}},
        {"(7 .8 a9", TTokens{{vtUnknown, "("}, {vtNumber, "7"}} + blank +
                         TTokens{{vtUnknown, "."}, {vtNumber, "8"}} + blank +
                         Each(vtUnknown, "a9")},
        {"@id, @@n)", TTokens{{vtParameter, "@id,"}} + blank + TTokens{{vtParameter, "@@n)"}}},
        {")@b", Each(vtUnknown, ")@b")},
        {"--x\ty", {{vtComment, "--x"}, {vtUnknown, ""}, {vtUnknown, "y"}}},
        {"-1/2", Each(vtUnknown, "-1/2")},
        {"-- a\r\n", TTokens{{vtComment, "-- a"}} + lineBreak},
        {"\r\n\ras", TTokens{{vtLineBreak, "\r\n"}, {vtLineBreak, "\r"}, {vtKeyWord, "as"}}},
        {"\nas", TTokens{{vtUnknown, "\n"}} + Each(vtUnknown, "as")},
    };
    for (const auto &row : rows) {
        TZtCodeSqlParser lexer;
        Feed(lexer, row.Text);
        EXPECT_EQ(ToLines(ReadTokens<TZtSqlToken>(lexer)), ToLines(row.Tokens))
            << row.Text.toStdString();
        EXPECT_EQ(lexer.GetInComment(), row.InComment) << row.Text.toStdString();
        lexer.Reset();
        EXPECT_FALSE(lexer.GetInComment());
        EXPECT_EQ(lexer.GetLastChar(), u' ');
    }
}

TEST(SqlLexer, KeywordsWithoutUnderscoreAreFoundInBothCases)
{
    using enum TZtSqlToken;
    int found = 0;
    for (const QString &word : ZtSqlKeyWords) {
        if (word.isEmpty() || word.contains(u'_'))
            continue;
        ++found;
        ExpectTokens<TZtCodeSqlParser, TZtSqlToken>(word, {{vtKeyWord, word}});
        ExpectTokens<TZtCodeSqlParser, TZtSqlToken>(word.toLower(), {{vtKeyWord, word.toLower()}});
    }
    // Seven have an underscore, one is empty.
    EXPECT_EQ(found, 176 - 8);
}

TEST(SqlLexer, RaisesForAKeywordWithAnotherCharacter)
{
    const QString kept = ZtSqlKeyWords[3];
    const auto restore = qScopeGuard([&] { ZtSqlKeyWords[3] = kept; });
    ZtSqlKeyWords[3] = "a b";
    try {
        TZtCodeSqlParser lexer;
        FAIL() << "nothing was raised";
    } catch (const EZtException &e) {
        EXPECT_EQ(e.Message(), "Invalid Character \" \" in keyword \" \" ");
    }
}

TEST(SqlLexer, RowsOfTheAttributeTable)
{
    TZtCodeSqlParser lexer;
    lexer.OnPaintInfo = [](const QString &, TColor &, TColor &, TFontStyles &) {
        ADD_FAILURE() << "the hook is not for SQL";
    };
    const std::pair<QString, TColor> rows[] = {
        {"", clWindowText}, {"\r\n", clWindowText}, {"x", clWindowText}, {"as", clRed},
        {"'", clBlue},      {"1", clBlue},          {"@a", clNavy},      {"--", clGreen},
    };
    for (const auto &[text, color] : rows)
        EXPECT_EQ(FirstAttributes(lexer, text), (TAttributes{clWindow, color, {}}))
            << text.toStdString();
    EXPECT_EQ(lexer.GetLanguage(), "Sql");
    Feed(lexer, "ab");
    EXPECT_EQ(lexer.PeekString(3), QString("ab") + QChar(0));
    EXPECT_EQ(lexer.ReadChar(), u'a');
}

TEST(MarkupLexers, EveryTextEnds)
{
    ExpectEveryTextEnds<TZtXmlToken, TZtCodeXMLParser>({"<", ">", "a", " ", "\"", "=", "?", "!",
                                                        "<!--", "-->", "-", "<![CDATA[", "]]>", "]",
                                                        "\n", "\r\n", "\r", "/"});
    ExpectEveryTextEnds<TZtSqlToken, TZtCodeSqlParser>({"as", "x",  " ",  "1",    ".",  ",", "(",
                                                        ")",  "'",  "@",  "-",    "--", "/", "*",
                                                        "/*", "*/", "\n", "\r\n", "\r", "\t"});
}

TEST(MarkupLexers, AreCreatedByName)
{
    for (const char *name : {"TZtCodeXMLParser", "TZtCodeSqlParser"}) {
        const std::unique_ptr<QObject> lexer(ZtCreateObject(name, nullptr));
        ASSERT_TRUE(lexer) << name;
        EXPECT_STREQ(lexer->metaObject()->className(), name);
    }
}

} // namespace
