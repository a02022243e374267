#include "lexing.h"

#include "uZtClassRegistry.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtTokenDump.h"

#include <gtest/gtest.h>

namespace {

// The hook sees what a row of a script claims twice.
TEST(Lexers, AreCreatedByNameAndAskThePaintHook)
{
    const char *const rows[][3] = {{"TztCodePasParser", "Pascal", ""},
                                   {"TZtCodeVBParser", "Visual Basic", "aa "},
                                   {"TZtCodeJSParser", "JavaScript", "aa "},
                                   {"TZtCodeXMLParser", "XML", ""},
                                   {"TZtCodeSqlParser", "Sql", ""}};
    for (const auto &[name, language, asked] : rows) {
        const std::unique_ptr<QObject> object(ZtCreateObject(name, nullptr));
        auto *parser = qobject_cast<TZtLangParser *>(object.get());
        ASSERT_TRUE(parser) << name;
        EXPECT_EQ(parser->GetLanguage(), language);
        TTextStream stream("a ");
        parser->SetInputStream(&stream, false);
        QString seen, token;
        parser->OnPaintInfo = [&](const QString &AToken, TColor &ABack, TColor &, TFontStyles &) {
            seen += AToken;
            ABack = clLime;
        };
        for (int i = 0; i < 2; ++i) {
            TColor background = 0, color = 0;
            TFontStyles style;
            bool lineBreak = false;
            parser->GetNextToken(token, background, color, style, lineBreak);
            EXPECT_EQ(background == clLime, !seen.isEmpty());
        }
        EXPECT_EQ(seen, asked);
    }
    EXPECT_EQ(ZtCreateObject("TZtCodePascalParser", nullptr), nullptr);
}

// A descendant that filters the characters sees each one; readers that it replaces are used.
class TReplaced : public TZtCodeVBParser {
public:
    char16_t InternalReadChar() override
    {
        const char16_t C = TZtCodeVBParser::InternalReadChar();
        return C == u'Z' ? u'z' : C;
    }
    QString ReadString() override { return 's' + TZtCodeVBParser::ReadString(); }
    QString ReadHexNumber() override { return 'h' + TZtCodeVBParser::ReadHexNumber(); }
    QString ReadIdentifier() override { return 'i' + TZtCodeVBParser::ReadIdentifier(); }
    QString ReadNumber(TVBToken &) override { return 'n' + TZtCodeVBParser::ReadNumber(FKind); }
    QString ReadRemark(const QString &AEnd, TVBToken &AKind) override
    {
        AKind = TVBToken::vtRem;
        return 'r' + TZtCodeVBParser::ReadRemark(AEnd, AKind);
    }

private:
    TVBToken FKind = TVBToken::vtUnknown;
};

TEST(Lexers, WhatADescendantReplacesIsUsed)
{
    TReplaced lexer;
    TTextStream stream("fZ\"x\"1.5$Ad(*a*)'c\r\n");
    lexer.SetInputStream(&stream, false);
    QString token, tokens;
    for (TVBToken kind; (kind = lexer.InternalGetNextToken(token)) != TVBToken::vtEndOfFile;)
        tokens += QString::number(int(kind)) + token + '|';
    EXPECT_EQ(tokens.toStdString(), "4fiz|53\"sx\"|551n.5|55$hAd|46ra|75*|46'rc|0\r|");
}

TEST(Lexers, ReadersCanBeUsedAlone)
{
    TZtCodePascalParser pascal;
    TPascalToken kind = TPascalToken::ptUnknown;
    pascal.SetSoapComment("old");
    pascal.SetSoapCommentPosEnd(1);
    pascal.PushStr("1.5a_1b''c'd*)e");
    EXPECT_EQ(pascal.ReadNumber(kind), "1.5");
    EXPECT_EQ(pascal.ReadIdentifier(), "a_1b");
    EXPECT_EQ(pascal.ReadString(), "'c'");
    EXPECT_EQ(pascal.ReadRemark("*)", kind), "d*)");
    EXPECT_TRUE(pascal.GetSoapComment().isEmpty() && pascal.GetSoapCommentPosEnd() == -1);

    TZtCodeVBParser vb;
    TVBToken remark = TVBToken::vtDim;
    vb.PushStr("*x*)y");
    EXPECT_EQ(vb.ReadRemark("*)", remark), "*");
    EXPECT_EQ(vb.ReadChar(), u'*');

    TZtCodeXMLParser xml;
    xml.PushStr("a\r\nb");
    EXPECT_EQ(xml.PeekString(4), "a\r\nb");
    EXPECT_EQ(xml.ReadString(3), "a\r\n");
    TZtCodeSqlParser sql;
    sql.PushStr("ab");
    EXPECT_EQ(sql.PeekString(3), QString("ab") + QChar(0));
    EXPECT_EQ(sql.ReadChar(), u'a');
    QString token;
    sql.InternalGetNextToken(token);
    sql.Reset();
    EXPECT_EQ(sql.GetLastChar(), u' ');
}

TEST(Lexers, AKeywordOfOtherCharactersRaises)
{
    QString word = "a b";
    word.swap(ZtSqlKeyWords[3]);
    EXPECT_EQ(Raised([] { TZtCodeSqlParser(); }), "Invalid Character \" \" in keyword \" \" ");
    word.swap(ZtSqlKeyWords[3]);
}

} // namespace
