#include "uZtClassRegistry.h"
#include "uZtCodePascalParser.h"

#include <QBuffer>
#include <QVariant>

#include <gtest/gtest.h>

#include <memory>

namespace {

// Hands out the pieces one by one; a restart goes back to the first.
TZtOnGetNewBuffer Pieces(QStringList APieces)
{
    return [pieces = std::move(APieces), next = 0](bool AReset, QString &S) mutable {
        EXPECT_TRUE(S.isEmpty());
        if (AReset)
            next = 0;
        if (AReset || next >= pieces.size())
            return false;
        S = pieces.at(next++);
        return true;
    };
}

QString ReadAll(TZtLangParser &AParser, int ALimit = 100000)
{
    QString text;
    for (char16_t C; text.size() < ALimit && (C = AParser.ReadChar()) != 0;)
        text += QChar(C);
    return text;
}

class Utf16Stream : public QBuffer {
public:
    explicit Utf16Stream(const QString &AText, const QByteArray &AExtra = {})
    {
        setData(QByteArray(reinterpret_cast<const char *>(AText.utf16()), AText.size() * 2) +
                AExtra);
        open(ReadOnly);
    }
};

TEST(ParserBase, StartsWithNothingToRead)
{
    TZtLangParser parser;
    EXPECT_EQ(parser.ReadCurrChar(), 0);
    EXPECT_EQ(parser.ReadChar(), 0);
    EXPECT_EQ(parser.GetLineNr(), 1);
    EXPECT_FALSE(parser.GetInRemark() || parser.GetEndLines() || parser.GetLineKind());
    EXPECT_EQ(parser.GetLanguage(), "<undefined language>");
    QString name = "kept";
    EXPECT_EQ(parser.CreateMethod(&parser, "OnClick", name), "");
    EXPECT_EQ(parser.GetSameMethods(&parser, "OnClick"), "");
    EXPECT_EQ(parser.MethodLineNr("kept"), -1);
    EXPECT_EQ(name, "kept");
}

TEST(ParserBase, ReadsPieceAfterPieceAndEndsWithZeroEachTime)
{
    TZtLangParser parser;
    int calls = 0;
    parser.OnGetNewBuffer = [&](bool AReset, QString &S) {
        calls += AReset ? 0 : 1;
        S = QStringLiteral("junk after the end");
        if (!AReset && calls < 3)
            S = calls == 1 ? "ab" : "c";
        return !AReset && calls < 3;
    };
    EXPECT_EQ(ReadAll(parser), "abc");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(parser.ReadChar(), 0);
    EXPECT_EQ(calls, 6);
    EXPECT_EQ(parser.ReadCurrChar(), 0);
}

TEST(ParserBase, AnEmptyPieceReadsAsZeroWithoutMoving)
{
    TZtLangParser parser;
    parser.OnGetNewBuffer = Pieces({"", "x"});
    EXPECT_EQ(parser.ReadChar(), 0);
    EXPECT_EQ(parser.ReadChar(), u'x');
}

TEST(ParserBase, ASourceThatRaisesLeavesTheParserUsable)
{
    TZtLangParser parser;
    bool fail = false;
    parser.OnGetNewBuffer = [&](bool, QString &S) {
        if (fail)
            throw EZtParser("no text");
        S = "ab";
        return true;
    };
    parser.ReadChar();
    parser.ReadChar();
    fail = true;
    EXPECT_THROW(parser.ReadChar(), EZtParser);
    EXPECT_EQ(parser.ReadCurrChar(), u'b');
    fail = false;
    EXPECT_EQ(parser.ReadChar(), u'a');
}

TEST(ParserBase, PushedCharactersAreReadAgainAndReplaceTheOnesRead)
{
    TZtLangParser parser;
    parser.PushStr("xyz");
    parser.PushStr("");
    EXPECT_EQ(ReadAll(parser, 3), "xyz");

    parser.ResetBuffer();
    parser.OnGetNewBuffer = Pieces({"ab", "cd"});
    EXPECT_EQ(parser.PeekChar(), u'a');
    EXPECT_EQ(parser.ReadChar(), u'a');
    parser.PushChar(u'A');
    EXPECT_EQ(ReadAll(parser, 3), "Abc");
    EXPECT_EQ(parser.ReadCurrChar(), u'c');
    // Back over the start of the piece: the last pushed is read first.
    parser.PushStr("123");
    EXPECT_EQ(parser.ReadCurrChar(), u'b') << "the last character of the piece before";
    EXPECT_EQ(ReadAll(parser), "123d");
}

TEST(ParserBase, CountsLineFeedsOnce)
{
    TZtLangParser parser;
    parser.OnGetNewBuffer = Pieces({"a\r\n", "\r\n", "b"});
    EXPECT_EQ(ReadAll(parser, 3).size(), 3);
    EXPECT_EQ(parser.GetLineNr(), 2);
    parser.PushChar(u'\n');
    EXPECT_EQ(parser.GetLineNr(), 1);
    parser.PeekChar();
    EXPECT_EQ(parser.GetLineNr(), 1);
    ReadAll(parser);
    EXPECT_EQ(parser.GetLineNr(), 3);
    parser.Reset();
    EXPECT_EQ(parser.GetLineNr(), 1);
    EXPECT_EQ(parser.ReadChar(), u'a');
}

TEST(ParserBase, ReadsAStreamInBlocksAndDropsAnOddByte)
{
    for (const int size : {0, 1, 4095, 4096, 4097, 8192}) {
        const QString text = QString(size, u'q').replace(size / 2, 1, "\n").left(size);
        for (const QByteArray &extra : {QByteArray(), QByteArray("!")}) {
            Utf16Stream stream(text, extra);
            TZtLangParser parser;
            parser.SetInputStream(&stream, true);
            EXPECT_EQ(stream.pos(), qMin<qint64>(8192, size * 2 + extra.size()));
            EXPECT_EQ(ReadAll(parser), text) << size;
            EXPECT_EQ(parser.ReadChar(), 0) << size;
            parser.Reset();
            EXPECT_EQ(ReadAll(parser), text) << size << " after a restart";
        }
    }
}

TEST(ParserBase, TheStreamStaysTheCallersAndComesAfterTheCallback)
{
    auto stream = std::make_unique<Utf16Stream>("stream");
    {
        TZtLangParser parser;
        parser.SetInputStream(stream.get(), true);
        parser.SetInputStream(nullptr, true);
        parser.SetInputStream(stream.get(), true);
        parser.OnGetNewBuffer = Pieces({"callback"});
        parser.ResetBuffer();
        EXPECT_EQ(ReadAll(parser), "callback");
    }
    EXPECT_EQ(stream->size(), 12);
}

TEST(ParserBase, ARestartKeepsWhatCrossesLines)
{
    TZtLangParser parser;
    parser.SetInRemark(true);
    parser.SetRemarkEnd("*)");
    parser.SetEndLines(true);
    parser.SetLineKind(7);
    int resets = 0;
    parser.OnGetNewBuffer = [&](bool AReset, QString &) { return resets += AReset, false; };
    parser.Reset();
    parser.ResetBuffer();
    EXPECT_EQ(resets, 2);
    EXPECT_TRUE(parser.GetInRemark() && parser.GetEndLines());
    EXPECT_EQ(parser.GetRemarkEnd(), "*)");
    EXPECT_EQ(parser.GetLineKind(), 7);
}

TEST(ParserBase, PlainTextGivesWholeLines)
{
    TZtLangParser parser;
    parser.OnGetNewBuffer = Pieces({"ab\r\n", "\r\n", "cd"});
    parser.OnPaintInfo = [](const QString &, TColor &, TColor &, TFontStyles &) { FAIL(); };
    const struct {
        QString Text;
        bool LineBreak;
    } expected[] = {{"ab", false}, {"", true}, {"", true}, {"cd", true}, {"", true}, {"", true}};
    for (const auto &row : expected) {
        QString token = "old";
        TColor background = 0, color = 0;
        TFontStyles style = TFontStyle::fsBold;
        bool lineBreak = !row.LineBreak;
        EXPECT_TRUE(parser.GetNextToken(token, background, color, style, lineBreak));
        EXPECT_EQ(token, row.Text);
        EXPECT_EQ(lineBreak, row.LineBreak);
        EXPECT_EQ(background, clWindow);
        EXPECT_EQ(color, clWindowText);
        EXPECT_FALSE(style);
    }
}

TEST(ParserBase, GetPaintInfoAsksTheHandler)
{
    TZtLangParser parser;
    TColor background = 1, color = 2;
    TFontStyles style;
    parser.GetPaintInfo("x", background, color, style);
    EXPECT_TRUE(background == 1 && color == 2 && !style);
    parser.OnPaintInfo = [](const QString &AToken, TColor &ABack, TColor &AText, TFontStyles &) {
        ABack = AText = TColor(AToken.size());
    };
    parser.GetPaintInfo("four", background, color, style);
    EXPECT_TRUE(background == 4 && color == 4);
}

// A descendant that filters the characters must see each one, those of long tokens too.
TEST(PascalParser, ReadsThroughADescendantsCharacters)
{
    class TUpper : public TZtCodePascalParser {
    public:
        char16_t InternalReadChar() override
        {
            return QChar::toUpper(char32_t(TZtCodePascalParser::InternalReadChar()));
        }
    };
    TUpper parser;
    parser.OnGetNewBuffer = Pieces({"as name { x } 'y' "});
    const QStringList expected = {"AS", " ", "NAME", " ", "{ X }", " ", "'Y'"};
    QString token;
    EXPECT_EQ(parser.InternalGetNextToken(token), TPascalToken::ptAs);
    for (const QString &text : expected.mid(1)) {
        parser.InternalGetNextToken(token);
        EXPECT_EQ(token, text);
    }
}

TEST(PascalParser, ReadersCanBeUsedAlone)
{
    const auto read = [](const QString &AText, auto AReader) {
        TZtCodePascalParser parser;
        parser.PushStr(AText);
        TPascalToken kind = TPascalToken::ptNumber;
        const QString token = AReader(parser, kind);
        return QStringLiteral("%1|%2|%3")
            .arg(token, ReadAll(parser), kind == TPascalToken::ptFloat ? u"float" : u"");
    };
    const auto number = [](auto &parser, TPascalToken &kind) { return parser.ReadNumber(kind); };
    const auto name = [](auto &parser, TPascalToken &) { return parser.ReadIdentifier(); };
    const auto string = [](auto &parser, TPascalToken &) { return parser.ReadString(); };
    EXPECT_EQ(read("1.2.3", number), "1.2|.3|float");
    EXPECT_EQ(read("1..3", number), "1|..3|");
    EXPECT_EQ(read(".", number), ".||float");
    EXPECT_EQ(read("a_1-", name), "a_1|-|");
    EXPECT_EQ(read("a''b'c", string), "a'b'|c|");
    EXPECT_EQ(read("a\nb", string), "a|\nb|");
}

// With EndLines off a comment is one token over all its lines, its line breaks included.
TEST(PascalParser, CommentsWithoutEndLines)
{
    const struct {
        QString Text, End, Token, Rest;
    } rows[] = {
        {"a\r\nb*)c", "*)", "a\r\nb*)", "c"}, {"a*b", "*)", "a*b)", ""},
        {"a\r\nb}c", "}", "a\r\nb}", "c"},    {"a", "}", "a", ""},
        {"a\r\nb", "\r", "a\r", "\nb"},
    };
    for (const auto &row : rows) {
        TZtCodePascalParser parser;
        parser.PushStr(row.Text);
        parser.SetLineKind(5);
        TPascalToken kind = TPascalToken::ptComment;
        EXPECT_EQ(parser.ReadRemark(row.End, kind), row.Token);
        EXPECT_EQ(ReadAll(parser), row.Rest);
        EXPECT_EQ(parser.GetLineKind(), 0);
        EXPECT_EQ(parser.GetRemarkEnd(), "");
    }
}

TEST(PascalParser, AnOpenCommentIsKeptInTheLineKind)
{
    const struct {
        QString Text;
        int LineKind;
        QString RemarkEnd;
    } rows[] = {{"{ a\r\n", 2, "}"}, {"(* a\r\n", 1, "*)"}, {"// a\r\n", 0, ""}, {"{ a }", 0, ""}};
    for (const auto &row : rows) {
        TZtCodePascalParser parser;
        parser.SetEndLines(true);
        parser.SetSoapComment("text");
        parser.SetSoapCommentPosEnd(3);
        parser.OnGetNewBuffer = Pieces({row.Text});
        QString token;
        EXPECT_EQ(parser.InternalGetNextToken(token), TPascalToken::ptComment);
        EXPECT_EQ(token, row.Text.trimmed());
        EXPECT_EQ(parser.GetLineKind(), row.LineKind);
        EXPECT_EQ(parser.GetRemarkEnd(), row.RemarkEnd);
        EXPECT_EQ(parser.GetSoapComment(), "");
        EXPECT_EQ(parser.GetSoapCommentPosEnd(), -1);
    }
    // A state that no lexer stores, but a host may set: a comment to the end of the line.
    TZtCodePascalParser parser;
    parser.SetEndLines(true);
    parser.SetLineKind(3);
    parser.OnGetNewBuffer = Pieces({"as\r\n"});
    QString token = "old";
    EXPECT_EQ(parser.InternalGetNextToken(token), TPascalToken::ptComment);
    EXPECT_EQ(token, "as");
    EXPECT_EQ(parser.InternalGetNextToken(token), TPascalToken::ptLineBreak);
    EXPECT_EQ(token, "\r");
}

TEST(PascalParser, IsRegisteredUnderTheNameThatFormsStore)
{
    const std::unique_ptr<QObject> object(ZtCreateObject("TztCodePasParser", nullptr));
    const auto *parser = qobject_cast<TZtCodePascalParser *>(object.get());
    ASSERT_TRUE(parser);
    EXPECT_EQ(parser->GetLanguage(), "Pascal");
    EXPECT_EQ(parser->property("SoapCommentLineStart").toInt(), -1);
    EXPECT_EQ(ZtCreateObject("TZtCodePascalParser", nullptr), nullptr);
}

} // namespace
