#include "lexing.h"
#include "uZtClassRegistry.h"
#include "uZtLanguages.h"

#include <gtest/gtest.h>

namespace {

// Hands out the pieces one by one; a restart goes back to the first.
TZtOnGetNewBuffer Pieces(QStringList APieces)
{
    return [pieces = std::move(APieces), next = 0](bool AReset, QString &S) mutable {
        EXPECT_TRUE(S.isEmpty());
        if (AReset)
            next = 0;
        S = AReset || next >= pieces.size() ? "junk" : pieces.at(next++);
        return S != "junk";
    };
}

QString ReadAll(TZtLangParser &AParser, int ALimit = 100000)
{
    QString text;
    for (char16_t C; text.size() < ALimit && (C = AParser.ReadChar()) != 0;)
        text += QChar(C);
    return text;
}

TEST(ParserBase, ReadsPiecesAndPushedCharactersAndCountsLines)
{
    TZtLangParser parser;
    parser.OnGetNewBuffer = Pieces({"a\r\n", "\r\n", "bc", "", "d"});
    const struct {
        const char *Push; // '?' peeks, '!' starts again
        int Count;        // so many characters are read
        QString Read;
        int LineNr;
        char16_t Current;
    } rows[] = {
        {"", 0, "", 1, u'\0'},
        {"?", 3, "a\r\n", 2, u'\n'},
        {"\n", 0, "", 1, u'\r'},
        {"", 2, "\n\r", 2, u'\r'},
        {"?", 3, "\nbc", 3, u'c'},
        {"C", 1, "C", 3, u'C'},
        // Back over the start of the piece stands the last character of the piece before.
        {"123", 0, "", 3, u'\n'},
        {"", 9, "123", 3, u'3'},
        {"", 9, "d", 3, u'\0'},
        {"", 9, "", 3, u'\0'},
        {"!", 1, "a", 1, u'a'},
    };
    for (const auto &row : rows) {
        if (*row.Push == '?')
            parser.PeekChar();
        else if (*row.Push == '!')
            parser.Reset();
        else
            parser.PushStr(row.Push);
        EXPECT_EQ(ReadAll(parser, row.Count), row.Read);
        EXPECT_EQ(parser.GetLineNr(), row.LineNr) << row.Read.toStdString();
        EXPECT_EQ(parser.ReadCurrChar(), row.Current) << row.Read.toStdString();
    }
}

TEST(ParserBase, ReadsAStreamInBlocksAndDropsAnOddByte)
{
    for (const int size : {0, 1, 4095, 4096, 4097, 8192}) {
        const QString text(size, u'q');
        TTextStream stream(text, "!"); // on the stack: a lexer that took it over would crash
        TZtLangParser parser;
        parser.SetInputStream(&stream, true);
        EXPECT_EQ(ReadAll(parser), text) << size;
        EXPECT_EQ(parser.ReadChar(), 0) << size;
        parser.Reset();
        EXPECT_EQ(ReadAll(parser), text) << size << " after a restart";
    }
}

TEST(ParserBase, PlainTextGivesWholeLines)
{
    TZtLangParser parser;
    parser.OnGetNewBuffer = Pieces({"ab\r\n", "\r\n", "c\rd"});
    const std::pair<QString, bool> expected[] = {
        {"ab", false}, {"", true}, {"", true}, {"c", false}, {"", true}, {"d", true}, {"", true}};
    for (const auto &[text, atBreak] : expected) {
        QString token = "old";
        TColor background = 0, color = 0;
        TFontStyles style = TFontStyle::fsBold;
        bool lineBreak = !atBreak;
        EXPECT_TRUE(parser.GetNextToken(token, background, color, style, lineBreak));
        EXPECT_EQ(token, text);
        EXPECT_EQ(lineBreak, atBreak);
        EXPECT_TRUE(background == clWindow && color == clWindowText && !style);
    }
}

TEST(Languages, AreFoundByNameAndFile)
{
    EXPECT_EQ(ZtLanguages().front().Name, "");
    for (const TZtLanguage &language : ZtLanguages()) {
        const std::unique_ptr<TZtLangParser> parser(
            language.CreateParser ? language.CreateParser(nullptr) : new TZtLangParser);
        EXPECT_EQ(ZtLanguageNameOf(parser.get()), language.Name);
        EXPECT_EQ(ZtFindLanguage(language.Name.toUpper()), &language);
        for (const QString &extension : language.Extensions)
            EXPECT_EQ(&ZtLanguageOfFile("/a.b/C." + extension.toUpper()), &language);
    }
    for (const char *name : {"a.txt", "pas", "a.pas/b", "", "a."})
        EXPECT_EQ(ZtLanguageOfFile(name).Name, "") << name;
    EXPECT_FALSE(ZtFindLanguage("unheard of"));
    EXPECT_EQ(ZtLanguageNameOf(nullptr), "");
}

class THostsLexer final : public TZtLangParser {
public:
    using TZtLangParser::TZtLangParser;
    QString GetLanguage() const override { return "Own"; }
};

TEST(Languages, AHostAddsAndReplaces)
{
    const auto create = [](QObject *owner) { return new THostsLexer(owner); };
    const TZtLanguage &pascal = *ZtFindLanguage("Pascal");
    const TZtLanguage before = pascal;
    EXPECT_THROW(ZtRegisterLanguage({"Own", {}, {}, {}}), EZtParser);
    EXPECT_THROW(ZtRegisterLanguage({{}, "Own", {}, create}), EZtParser);
    ZtRegisterLanguage({"Own", {}, {"own", "inc"}, create});
    ZtRegisterLanguage({"own", "Our own", {"own", "inc"}, create});
    EXPECT_EQ(ZtLanguages().back().Title, "Our own");
    EXPECT_EQ(ZtLanguages().size(), 7U);
    EXPECT_EQ(ZtLanguageOfFile("a.inc").Title, "Our own") << "the last one counts";
    ZtRegisterLanguage({"pascal", {}, {"p"}, create});
    EXPECT_EQ(&ZtLanguageOfFile("a.p"), &pascal);
    EXPECT_EQ(&ZtLanguageOfFile("a.pas"), &ZtLanguages().front());
    ZtRegisterLanguage(before);
    EXPECT_EQ(&ZtLanguageOfFile("a.pas"), &pascal);
}

// The paint hook sees what a row of a script claims twice.
TEST(Lexers, AreCreatedByNameAndAskThePaintHook)
{
    const char *const rows[][3] = {{"TztCodePasParser", "Pascal", ""},
                                   {"TZtCodeVBParser", "Visual Basic", "aa"},
                                   {"TZtCodeJSParser", "JavaScript", "aa"},
                                   {"TZtCodeXMLParser", "XML", ""},
                                   {"TZtCodeSqlParser", "Sql", ""}};
    for (const auto &[name, language, asked] : rows) {
        const std::unique_ptr<QObject> object(ZtCreateObject(name, nullptr));
        auto *parser = qobject_cast<TZtLangParser *>(object.get());
        ASSERT_TRUE(parser) << name;
        EXPECT_EQ(parser->GetLanguage(), language);
        TTextStream stream("a");
        parser->SetInputStream(&stream, false);
        QString seen, token;
        parser->OnPaintInfo = [&](const QString &AToken, TColor &ABack, TColor &, TFontStyles &) {
            seen += AToken;
            ABack = clLime;
        };
        TColor background = 0, color = 0;
        TFontStyles style;
        bool lineBreak = false;
        parser->GetNextToken(token, background, color, style, lineBreak);
        EXPECT_EQ(background == clLime, !seen.isEmpty());
        EXPECT_EQ(seen, asked);
    }
}

} // namespace
