#include "token_rows.h"

#include "uZtClassRegistry.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"

#include <memory>

namespace {

template <typename TToken> struct TRow {
    QString Text;
    TTokenRow<TToken> Tokens;
};

TEST(VBLexer, Tokens)
{
    using enum TVBToken;
    const TRow<TVBToken> rows[] = {
        {"", {}},
        {"a = b",
         {{vtIdentifier, "a"},
          {vtUnknown, " "},
          {vtEquals, "="},
          {vtUnknown, " "},
          {vtIdentifier, "b"}}},
        {"End Function", {{vtEnd, "End"}, {vtUnknown, " "}, {vtFunction, "Function"}}},
        {"a\r\nb\nc",
         {{vtIdentifier, "a"}, {vtLineBreak, "\r"}, {vtIdentifier, "b"}, {vtIdentifier, "c"}}},
        {"\"a\"\"b\"c", {{vtString, "\"a\"\"b\""}, {vtIdentifier, "c"}}},
        {"\"open\r\n\"", {{vtString, "\"open"}, {vtLineBreak, "\r"}, {vtString, "\""}}},
        {"'note", {{vtComment, "'note"}, {vtLineBreak, "\r"}}},
        {"'a\r\nb", {{vtComment, "'a"}, {vtLineBreak, "\r"}, {vtIdentifier, "b"}}},
        {"Rem a\r\nb", {{vtComment, "Rem a"}, {vtLineBreak, "\r"}, {vtIdentifier, "b"}}},
        {"REM", {{vtComment, "REM"}, {vtLineBreak, "\r"}}},
        {"remark", {{vtIdentifier, "remark"}}},
        {"$1FG", {{vtNumber, "$1F"}, {vtIdentifier, "G"}}},
        {"$", {{vtNumber, "$"}}},
        {"3.14", {{vtFloat, "3.14"}}},
        {"1.", {{vtFloat, "1."}}},
        {"1.2.3", {{vtNumber, "1.2"}, {vtPeriod, "."}, {vtNumber, "3"}}},
        {"1..5", {{vtNumber, "1"}, {vtRange, ".."}, {vtNumber, "5"}}},
        {"1.5..", {{vtNumber, "1.5"}, {vtRange, ".."}}},
        {"7e3", {{vtNumber, "7"}, {vtIdentifier, "e3"}}},
        {"<><=< >=>a",
         {{vtNotEquals, "<>"},
          {vtLessEqual, "<="},
          {vtLess, "<"},
          {vtUnknown, " "},
          {vtGreaterEqual, ">="},
          {vtGreater, ">"},
          {vtIdentifier, "a"}}},
        {"\u00e9lan_1 _",
         {{vtUnknown, "\u00e9"}, {vtIdentifier, "lan_1"}, {vtUnknown, " "}, {vtIdentifier, "_"}}},
        {"(* a *)x", {{vtMultiply, "*"}, {vtIdentifier, "x"}}},
        {"(* a", {{vtMultiply, "*"}}},
        {"(a)", {{vtOpenParen, "("}, {vtIdentifier, "a"}, {vtCloseParen, ")"}}},
        {"&*+,-./;[\\]",
         {{vtConcat, "&"},
          {vtMultiply, "*"},
          {vtPlus, "+"},
          {vtComma, ","},
          {vtMinus, "-"},
          {vtPeriod, "."},
          {vtDivide, "/"},
          {vtSemicolon, ";"},
          {vtOpenBracket, "["},
          {vtDivideInt, "\\"},
          {vtCloseBracket, "]"}}},
    };
    for (const auto &row : rows)
        for (const bool endLines : {false, true})
            ExpectTokens<TZtCodeVBParser>(row.Text, row.Tokens, endLines);
}

TEST(JSLexer, TokensWithAndWithoutEndLines)
{
    using enum TJSToken;
    struct {
        QString Text;
        TTokenRow<TJSToken> EndLines;
        TTokenRow<TJSToken> Through;
    } const rows[] = {
        {"{}/ '",
         {{vtBegin, "{"}, {vtEnd, "}"}, {vtDivide, "/"}, {vtUnknown, " "}, {vtUnknown, "'"}},
         {}},
        {"(*|", {{vtOpenParen, "("}, {vtMultiply, "*"}, {vtUnknown, "|"}}, {}},
        {"/* */a", {{vtComment, "/* */"}, {vtIdentifier, "a"}}, {}},
        {"/*a*b**/c", {{vtComment, "/*a*b**/"}, {vtIdentifier, "c"}}, {}},
        {"/* open", {{vtComment, "/* open/"}}, {}},
        {"// open", {{vtComment, "// open"}}, {}},
        {"//a\r\nb",
         {{vtComment, "//a"}, {vtLineBreak, "\r"}, {vtIdentifier, "b"}},
         {{vtComment, "//a\r"}, {vtIdentifier, "b"}}},
        {"Rem a\r\nb",
         {{vtComment, "Rem a"}, {vtLineBreak, "\r"}, {vtIdentifier, "b"}},
         {{vtComment, "Rem a\r"}, {vtIdentifier, "b"}}},
        // A line break within a comment leaves the text of the token before.
        {"/* a\r\nb\r\nc *)d",
         {{vtComment, "/* a"},
          {vtLineBreak, "/* a"},
          {vtComment, "b"},
          {vtLineBreak, "b"},
          {vtComment, "c *)"},
          {vtIdentifier, "d"}},
         {{vtComment, "/* a\r\nb\r\nc *)d/"}}},
        {"/*\r\n\r\nx",
         {{vtComment, "/*"},
          {vtLineBreak, "/*"},
          {vtComment, ""},
          {vtLineBreak, ""},
          {vtComment, "x)"}},
         {{vtComment, "/*\r\n\r\nx/"}}},
        // A lone LF keeps a line comment open.
        {"//a\nb\r\nc",
         {{vtComment, "//a"}, {vtComment, "b"}, {vtLineBreak, "\r"}, {vtIdentifier, "c"}},
         {{vtComment, "//a\nb\r"}, {vtIdentifier, "c"}}},
    };
    for (const auto &row : rows) {
        ExpectTokens<TZtCodeJSParser>(row.Text, row.EndLines, true);
        const auto &through = row.Through.empty() ? row.EndLines : row.Through;
        ExpectTokens<TZtCodeJSParser>(row.Text, through, false);
    }
}

TEST(JSLexer, LineStateOpensAndClosesRemarks)
{
    using enum TJSToken;
    TZtCodeJSParser lexer;
    lexer.SetEndLines(true);
    QString text;
    Feed(lexer, "/* a\r\nb *)");
    lexer.InternalGetNextToken(text);
    EXPECT_EQ(lexer.GetLineKind(), 1);
    EXPECT_EQ(lexer.GetRemarkEnd(), "*/");
    ReadTokens<TJSToken>(lexer);
    EXPECT_EQ(lexer.GetLineKind(), 0);
    EXPECT_EQ(lexer.GetRemarkEnd(), "");

    const struct {
        int LineKind;
        QString First;
    } rows[] = {{1, "a}*)"}, {2, "a}"}, {3, "a}*)b"}, {4, "a"}};
    for (const auto &row : rows) {
        Feed(lexer, "a}*)b\r\n");
        lexer.SetLineKind(row.LineKind);
        const TJSToken kind = lexer.InternalGetNextToken(text);
        EXPECT_EQ(kind, row.LineKind < 4 ? vtComment : vtIdentifier) << row.LineKind;
        EXPECT_EQ(text, row.First);
        EXPECT_EQ(lexer.GetLineKind(), row.LineKind < 4 ? 0 : 4);
        EXPECT_EQ(lexer.GetRemarkEnd(), "");
    }
}

// Every kind of reserved word is named after its word.
template <typename TLexer, typename TToken> void ExpectKeyWords(const QStringList &AIdentifiers)
{
    for (int i = int(TToken::vtFunction); i <= int(TToken::vtUntil); ++i) {
        const QString word = KindName(TToken(i)).mid(2);
        TToken kind = TToken(i);
        if (AIdentifiers.contains(word))
            kind = TToken::vtIdentifier;
        else if (word == "Rem")
            kind = TToken::vtComment;
        for (const QString &spelling : {word, word.toUpper(), word.toLower()}) {
            ExpectTokens<TLexer, TToken>(spelling + "\r\n",
                                         {{kind, spelling}, {TToken::vtLineBreak, "\r"}});
            ExpectTokens<TLexer, TToken>(spelling + "0", {{TToken::vtIdentifier, spelling + "0"}});
        }
    }
}

TEST(ScriptLexers, ReservedWords)
{
    ExpectKeyWords<TZtCodeVBParser, TVBToken>({"Unitil"});
    ExpectKeyWords<TZtCodeJSParser, TJSToken>({"Unitil", "Begin", "Exit", "Then", "Until"});
    EXPECT_EQ(int(TVBToken::vtUntil), 51);
    EXPECT_EQ(int(TVBToken::vtDivideInt), 77);
    EXPECT_EQ(int(TJSToken::vtUntil), 52);
    EXPECT_EQ(int(TJSToken::vtDivideInt), 78);
}

TEST(ScriptLexers, RowsOfTheAttributeTable)
{
    const struct {
        QString Text;
        TAttributes Attributes;
    } rows[] = {
        {"", {clWindow, clWindowText, {}}},     {" ", {clWindow, clWindowText, {}}},
        {"\r\n", {clWindow, clWindowText, {}}}, {"wend", {clWindow, clBlue, TFontStyle::fsBold}},
        {"\"", {clYellow, clWindowText, {}}},   {"rem", {clWindow, clGreen, {}}},
        {"name", {clWindow, clWindowText, {}}}, {"1", {clWindow, clRed, {}}},
        {"1.5", {clWindow, clRed, {}}},         {"&", {clWindow, clBlue, {}}},
        {"\\", {clWindow, clBlue, {}}},
    };
    TZtCodeVBParser vb;
    TZtCodeJSParser js;
    for (TZtLangParser *lexer :
         {static_cast<TZtLangParser *>(&vb), static_cast<TZtLangParser *>(&js)})
        for (const auto &row : rows)
            EXPECT_EQ(FirstAttributes(*lexer, row.Text), row.Attributes) << row.Text.toStdString();
    EXPECT_EQ(FirstAttributes(js, "{"), (TAttributes{clWindow, clBlue, TFontStyle::fsBold}));
    EXPECT_EQ(vb.GetLanguage(), "Visual Basic");
    EXPECT_EQ(js.GetLanguage(), "JavaScript");
}

TEST(ScriptLexers, PaintHookSeesAClaimedTokenTwiceAndMayRecolourIt)
{
    TZtCodeVBParser lexer;
    QStringList seen;
    lexer.OnPaintInfo = [&](const QString &AToken, TColor &ABackGround, TColor &, TFontStyles &) {
        seen += AToken;
        ABackGround = clLime;
    };
    EXPECT_EQ(FirstAttributes(lexer, "a").BackGround, clLime);
    EXPECT_EQ(FirstAttributes(lexer, " ").BackGround, clLime);
    EXPECT_EQ(seen, QStringList({"a", "a", " "}));
}

TEST(VBLexer, ReadRemarkDropsTheCharacterAfterALoneStar)
{
    TZtCodeVBParser lexer;
    TVBToken kind = TVBToken::vtDim;
    Feed(lexer, "*x*)y");
    EXPECT_EQ(lexer.ReadRemark("*)", kind), "*");
    EXPECT_EQ(kind, TVBToken::vtDim);
    EXPECT_EQ(lexer.ReadChar(), u'*');
    EXPECT_EQ(lexer.ReadChar(), u'y');
}

class TReplacedReaders : public TZtCodeVBParser {
public:
    QString ReadString() override { return "s" + TZtCodeVBParser::ReadString(); }
    QString ReadRemark(const QString &EndStr, TVBToken &TokenKind) override
    {
        TokenKind = TVBToken::vtRem;
        return "r" + TZtCodeVBParser::ReadRemark(EndStr, TokenKind);
    }
    QString ReadNumber(TVBToken &) override
    {
        TVBToken kind;
        return "n" + TZtCodeVBParser::ReadNumber(kind);
    }
    QString ReadHexNumber() override { return "h" + TZtCodeVBParser::ReadHexNumber(); }
    QString ReadIdentifier() override { return "i" + TZtCodeVBParser::ReadIdentifier(); }
};

TEST(ScriptLexers, ReadersOfADescendantAreUsed)
{
    using enum TVBToken;
    ExpectTokens<TReplacedReaders, TVBToken>("f\"x\"1.5$Ad'c\r\n", {{vtIdentifier, "fi"},
                                                                    {vtString, "\"sx\""},
                                                                    {vtNumber, "1n.5"},
                                                                    {vtNumber, "$hAd"},
                                                                    {vtRem, "'rc"},
                                                                    {vtLineBreak, "\r"}});
    ExpectTokens<TReplacedReaders, TVBToken>("(*a*)", {{vtRem, "ra"}, {vtMultiply, "*"}});
}

TEST(ScriptLexers, EveryTextEnds)
{
    const QStringList pieces = {"a",  "rem", "\"", "1", ".", "..", "$f", "<",  ">",    "(*", "*)",
                                "/*", "*/",  "//", "'", "{", "}",  " ",  "\n", "\r\n", "\r", "*"};
    ExpectEveryTextEnds<TVBToken, TZtCodeVBParser>(pieces);
    ExpectEveryTextEnds<TJSToken, TZtCodeJSParser>(pieces);
}

TEST(ScriptLexers, AreCreatedByName)
{
    for (const char *name : {"TZtCodeVBParser", "TZtCodeJSParser"}) {
        const std::unique_ptr<QObject> lexer(ZtCreateObject(name, nullptr));
        ASSERT_TRUE(lexer) << name;
        EXPECT_STREQ(lexer->metaObject()->className(), name);
    }
}

} // namespace
