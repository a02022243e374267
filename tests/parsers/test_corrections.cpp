#include "lexing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

const TZtTokenLanguage &LanguageNamed(QLatin1StringView AName)
{
    return *std::ranges::find(ZtTokenLanguages(), AName, [](const auto &language) {
        return QLatin1StringView(language.Name);
    });
}

/// The texts of a source's tokens that are drawn with one of the rows, with a "|" between them.
std::string Drawn(TZtTokenReader &AReader, const QString &AText, const QList<int> &ARows)
{
    QList<int> states;
    QStringList drawn;
    for (const auto &token : ZtReadTokens(AReader, AText.split(u'\n'), states))
        if (ARows.contains(token.Row))
            drawn += token.Text;
    return drawn.join(u'|').toStdString();
}

TEST(Corrections, ReservedWordsAreThoseOfTheLanguageAndTheHost)
{
    const struct {
        const char *Language;
        int Row; // of the reserved words
        QString Text;
        std::string Usual;
        std::string All;
        std::string Extra; // with "Foo" and "a_b" as words of the host
    } rows[] = {
        {"js", 1, "let Let Return return a.class .new f(...new Foo) x.if.Foo", "let|Let|class|if",
         "let|Let|return|new", "let|Let|class|Foo|if"},
        {"js", 1, "$return return$ #delete typeof a_b null\u00e9 var x", "", "typeof|var", "a_b"},
        {"vb", 1, "If Not foo Is NoThing Then rs!And [And] err.Next foo.Foo", "If|Then|Next",
         "If|Not|Is|NoThing|Then", "If|foo|Then|Next|foo"},
        {"pascal", 1, "Case x of as As &while t.type 0..nil repeat FOO end", "As|type|end",
         "Case|of|as|As|nil|repeat|end", "As|type|FOO|end"},
        {"sql", 2, "select order_id, open_loans,x=null t.order foo @of a_b merge",
         "select|order|open", "select|null|merge", "select|null|foo|a_b"},
        {"xml", 5, "Foo and", "F|o|o| |a|n|d", "F|o|o| |a|n|d", "F|o|o| |a|n|d"},
    };
    for (const auto &row : rows) {
        const auto reader = LanguageNamed(QLatin1StringView(row.Language)).CreateReader();
        TZtLangParser &parser = reader->Parser();
        const auto drawn = [&] { return Drawn(*reader, row.Text, {row.Row}); };
        EXPECT_EQ(drawn(), row.Usual) << row.Language;
        parser.SetAllKeyWords(true);
        EXPECT_EQ(drawn(), row.All) << row.Language;
        parser.SetAllKeyWords(false);
        parser.SetExtraKeyWords({"Foo", "a_b"});
        EXPECT_EQ(drawn(), row.Extra) << row.Language;
        parser.SetExtraKeyWords({});
        EXPECT_EQ(drawn(), row.Usual) << row.Language;
    }
}

TEST(Corrections, CommentsAndStringsEndWhereTheLanguageSays)
{
    const QList<int> drawn = {2, 3}, drawnSql = {3, 6, 7}, drawnXml = {1, 2, 5, 7};
    const struct {
        const char *Language;
        QList<int> Rows; // of comments and strings
        QString Text;
        std::string Closed;
    } rows[] = {
        {"js", drawn, "/* *)\n */ a // b\nc", "/* *)| */|// b"},
        {"js", drawn, "'/*' + \"\\\"//\" + '\\\\' x\n'open\nrem it is",
         "'/*'|\"\\\"//\"|'\\\\'|'open"},
        {"js", drawn, "`a ${b} \\` /*\n'` c `d`", "`a ${b} \\` /*|'`|`d`"},
        {"js", drawn, "'a\\\nb' c\n'a\\\n\nb'", "'a\\|b'|'a\\|'"},
        {"vb", drawn, "f(*2) \"a\"\"'\" 'b\nRem c\nx.Rem = 1: rem d\nremark \"open\ne",
         "\"a\"\"'\"|'b|Rem c|rem d|\"open"},
        {"pascal", drawn, "(* { \n*) a '(*''' {\n(*\n} // b\n'open\nc",
         "(* { |*)|'(*'''|{|(*|}|// b|'open"},
        {"sql", drawnSql, "/* '\n*/ a 'it''s\n--' \"a\"\" --\" -- b\nc",
         "/* '|*/|'it''s|--'|\"a\"\" --\"|-- b"},
        {"xml", drawnXml, "<?a ?\n?><b\n\tc='>\"'\nd=\"'\n>\"/>e<!-- f\n> --><g/><![CDATA[h]]>i",
         "<?a ?|?>|<||c|=|'|>|\"|'|d|=|\"|'|>|\"|/|>|<!-- f|> -->|<|/|>|<|![CDATA[|]]>"},
    };
    for (const auto &row : rows) {
        const auto reader = LanguageNamed(QLatin1StringView(row.Language)).CreateReader();
        EXPECT_NE(Drawn(*reader, row.Text, row.Rows), row.Closed) << row.Language;
        reader->Parser().SetClosedRemarks(true);
        EXPECT_EQ(Drawn(*reader, row.Text, row.Rows), row.Closed) << row.Language;
        EXPECT_EQ(reader->Parser().GetLineKind(), 0) << row.Language;
    }
}

/// A lexer with its corrections or without them, fed with lines in pieces, and what it says of each
/// line.
class TFedLexer {
public:
    struct TLine {
        TZtLexerState State; // at its start
        QStringList Tokens;
        bool operator==(const TLine &) const = default;
    };

    TFedLexer(const TZtTokenLanguage &ALanguage, bool ACorrected)
        : FReader(ALanguage.CreateReader())
    {
        FReader->Parser().SetClosedRemarks(ACorrected);
        FReader->Parser().SetAllKeyWords(ACorrected);
        if (ACorrected)
            FReader->Parser().SetExtraKeyWords({"host"});
    }
    /// The lines and what would follow them, read from a state, in pieces of at most `APiece`.
    QList<TLine> Read(const QStringList &ALines, const TZtLexerState &AState, qsizetype APiece);

private:
    std::unique_ptr<TZtTokenReader> FReader;
};

QList<TFedLexer::TLine> TFedLexer::Read(const QStringList &ALines, const TZtLexerState &AState,
                                        qsizetype APiece)
{
    TZtLangParser &parser = FReader->Parser();
    QList<TLine> result;
    QString left;
    parser.OnGetNewBuffer = [&](bool reset, QString &S) {
        if (reset)
            return false;
        EXPECT_EQ(parser.GetUnread(), 0);
        if (left.isEmpty() && result.size() <= ALines.size()) {
            result.append({parser.GetState(), {}});
            left = result.size() > ALines.size() ? QString() : ALines[result.size() - 1] + "\r\n";
        }
        // A piece is never cut within the line break.
        const auto count = left.size() - 2 <= APiece ? left.size() : APiece;
        S = left.first(count);
        left.remove(0, count);
        return !S.isEmpty();
    };
    parser.ResetBuffer();
    parser.SetState(AState);
    TZtTokenRecord token;
    while (FReader->Next(token)) {
        const bool lineBreak = QByteArray(token.Kind).endsWith("LineBreak");
        const bool breaks = token.Text.contains(u'\r') || token.Text.contains(u'\n');
        EXPECT_TRUE(breaks == lineBreak || !parser.GetClosedRemarks());
        result.last().Tokens += token.ToString();
    }
    return result;
}

// What each language's comments, strings and words are made of.
const QHash<QLatin1StringView, QStringList> Fragments = {
    {"js"_L1, {"/*", "*/", "//", "`", "\"", "'", "\\", "${", "}", "rem ", "return", "/", "..."}},
    {"vb"_L1, {"(*", "*)", "'", "\"", "\"\"", "Rem", " rem ", ":", "End", "And"}},
    {"pascal"_L1, {"(*", "*)", "{", "}", "//", "'", "''", "(", "*", "1..", "while", "\b", "#13"}},
    {"sql"_L1, {"/*", "*/", "--", "'", "''", "\"", "-", "/", "@p", "12", "_", "order", "null"}},
    {"xml"_L1, {"<!--", "-->", "<?", "?>", "<![CDATA[", "]]>", "<a", "<a b='", "<a b=\"", "/>",
                ">",    "\"",  "'",  "b=", "<!",        "]",   "-",  "?",      "<",       "\t"}},
};

QStringList RandomLines(std::mt19937 &ARandom, const QStringList &AFragments)
{
    static const QStringList any = {" ", "a", ".", "host", "\u00e9", " = ", "2.5", "..", "$", "*"};
    QStringList lines(1);
    for (auto count = ARandom() % 40; count > 0; --count) {
        const QStringList &from = ARandom() % 3 == 0 ? any : AFragments;
        lines.last() += from.at(ARandom() % size_t(from.size()));
        if (ARandom() % 5 == 0)
            lines.append(QString());
    }
    return lines;
}

TEST(Corrections, ARestartAtALineGivesItsTokensHoweverTheLinesAreCut)
{
    const int rounds = qEnvironmentVariable("ZT_RANDOM_TEXTS", "500").toInt();
    std::mt19937 random(20'261);
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        TFedLexer lexer(language, true), plain(language, false);
        int carried = 0;
        for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
            const QStringList lines =
                RandomLines(random, Fragments.value(QLatin1StringView(language.Name)));
            const auto whole = lexer.Read(lines, {}, 1 << 14);
            ASSERT_EQ(whole.size(), lines.size() + 1);
            EXPECT_EQ(lexer.Read(lines, {}, qsizetype(1 + random() % 4)), whole)
                << language.Name << " cut: " << lines.join(u'\n').toStdString();
            EXPECT_EQ(plain.Read(lines, {}, qsizetype(1 + random() % 4)),
                      plain.Read(lines, {}, 1 << 14))
                << language.Name << " plain, cut: " << lines.join(u'\n').toStdString();
            for (qsizetype i = 0; i < lines.size(); ++i) {
                auto expected = whole.mid(i, 2);
                expected.last().Tokens.clear();
                EXPECT_EQ(lexer.Read({lines[i]}, whole[i].State, 1 << 14), expected)
                    << language.Name << " line " << i << ": " << lines.join(u'\n').toStdString();
                carried += whole[i].State != TZtLexerState();
            }
        }
        EXPECT_TRUE(carried > rounds / 10 || language.Name == "vb"_L1) << language.Name;
    }
}

} // namespace
