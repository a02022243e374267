#include "uZtHighlighter.h"
#include "uZtStringList.h"
#include "uZtTokenDump.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace {

using TParser = std::unique_ptr<TZtLangParser>;

constexpr int AllColumns = 1 << 20;

// The looks of the characters of a line, a letter each: "." for plain text.
QString Looks(const TZtColourRuns &ARuns)
{
    QString looks;
    for (const TZtColourRun &run : ARuns) {
        const bool plain = run == TZtColourRun{run.Start, run.Length, clWindowText, clWindow, {}};
        const uint look = run.Fore * 31 + run.Back * 7 + uint(run.Style);
        looks += QString(run.Length, plain ? u'.' : QChar(char16_t(u'A' + look % 57)));
    }
    return looks;
}

// What can be expected of any runs, whatever the lexer is.
void ExpectSound(const TZtColourRuns &ARuns, int ALength)
{
    int column = 0;
    for (const TZtColourRun &run : ARuns) {
        EXPECT_EQ(run.Start, column);
        EXPECT_GT(run.Length, 0);
        column += run.Length;
    }
    EXPECT_EQ(column, ALength);
}

struct Highlighter : testing::Test {
    void Use(TZtLangParser *AParser, const QString &AText)
    {
        Text.SetText(AText);
        Colours.SetText(&Text);
        Colours.SetParser(AParser);
    }
    QStringList AllLooks(TZtHighlighter &AColours)
    {
        QStringList looks;
        AColours.Prepare(0, Text.GetCount() - 1, AllColumns);
        for (int i = 0; i < Text.GetCount(); ++i) {
            ExpectSound(AColours.GetRuns(i), Text.GetLength(i));
            looks += Looks(AColours.GetRuns(i));
        }
        return looks;
    }
    TStringList Text;
    TZtHighlighter Colours;
};

// Lexes a text in one go and finds each token behind the one before.
QStringList LooksOf(TZtLangParser &AParser, const TStringList &AText)
{
    const QString text = AText.GetText();
    QString looks(text.size(), u'.');
    bool given = false;
    AParser.OnGetNewBuffer = [&](bool AReset, QString &S) {
        S = text;
        return AReset || !std::exchange(given, true);
    };
    AParser.ResetBuffer();
    AParser.SetEndLines(true);
    AParser.SetState({});
    QString token;
    TZtColourRun look{0, 1, 0, 0, {}};
    bool lineBreak = false;
    qsizetype place = 0;
    while (AParser.GetNextToken(token, look.Back, look.Fore, look.Style, lineBreak)) {
        while (token.endsWith(u'\0'))
            token.chop(1);
        if (!AParser.GetClosedRemarks() && token.startsWith(u'\'') &&
            token.count(u'\'') > 2) // the lexer halves doubled ones
            token = u'\'' + token.chopped(1).sliced(1).replace("'", "''") + u'\'';
        const qsizetype at = text.indexOf(lineBreak ? QStringLiteral("\r\n") : token, place);
        if (token.isEmpty() || at < 0)
            continue;
        looks.replace(at, token.size(), Looks({look}).repeated(token.size()));
        place = at + (lineBreak ? 1 : token.size());
    }
    AParser.OnGetNewBuffer = nullptr;
    QStringList lines;
    qsizetype start = 0;
    for (int i = 0; i < AText.GetCount(); ++i) {
        lines += looks.mid(start, AText.GetLength(i));
        start += AText.GetLength(i) + 2;
    }
    return lines;
}

// Reads as it is told, or not.
class THostLexer : public TZtLangParser {
public:
    using TRead = bool (*)(THostLexer &AThis, QString &AToken, bool &ALineBreak);
    explicit THostLexer(TRead ARead) : Read(ARead) {}
    bool GetNextToken(QString &AToken, TColor &ABack, TColor &AFore, TFontStyles &AStyle,
                      bool &ALineBreak) override
    {
        ABack = clWindow;
        AFore = clRed;
        AStyle = {};
        ALineBreak = false;
        AToken.resize(0);
        return Read(*this, AToken, ALineBreak);
    }
    QStringList Ahead;
    TRead Read;
};

bool ReadWord(THostLexer &AThis, QString &AToken, bool &ALineBreak)
{
    char16_t C = AThis.ReadChar();
    ALineBreak = C == u'\r';
    AToken = QChar(C);
    if (ALineBreak)
        AThis.ReadChar();
    for (bool isWord = C > 32; isWord && (C = AThis.ReadChar()) > 32;)
        AToken += QChar(C);
    if (AToken.size() > 1 || AToken[0] > u' ')
        AThis.PushChar(C);
    return AToken[0] != u'\0';
}

} // namespace

TEST_F(Highlighter, ColoursWhatTheLexersAnswer)
{
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/") +
                          QLatin1String(language.Name));
        QString text =
            QStringLiteral("\ta\u00E9 12x /* \x01 */ 'q\n<!-- a\n\n b --> (* {\n } *)\n");
        for (const QString &name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            text += QString::fromUtf8(file.readAll());
        }
        for (const bool closed : {false, true}) {
            SCOPED_TRACE(std::string(language.Name) + (closed ? ", closed" : ""));
            const TParser parser = language.CreateParser();
            parser->SetClosedRemarks(closed);
            Use(parser.get(), text);
            const QStringList expected = LooksOf(*parser, Text);
            const QStringList looks = AllLooks(Colours);
            for (int i = 0; i < Text.GetCount(); ++i)
                EXPECT_EQ(looks[i].toStdString(), expected[i].toStdString())
                    << i << ": " << Text.GetStrings(i).toStdString();
            EXPECT_GT(expected.join(QString()).count(QRegularExpression("[^.]")), 300);
            Colours.SetParser(nullptr);
        }
    }
}

TEST_F(Highlighter, TokensOverLines)
{
    const struct {
        const char *Language;
        bool Closed;
        const char *Text;
        const char *Looks; // of comments C, of strings S
    } rows[] = {
        {"xml", false, "<a>|<!-- b|c|\t-->d", "...|.CCCCC|C|CCC.."},
        {"xml", true, "<!-- b||c --> d", "CCCCCC||CCCCC.."},
        {"js", false, "a /* b|c */ d", "..CCCC|CCCCCC"}, // its ends are found in one line
        {"js", true, "a /* b|c */ d // e|f", "..CCCC|CCCC...CCCC|."},
        {"sql", true, "a /*|b*/ 'c|d", "..CC|CCC.SS|S"},
        {"sql", false, "a 'c|d", "..SS|."},
        {"pascal", false, "a { b|c } d", "..CCC|CCC.."},
        {"pascal", true, "a (* b|*) d", "..CCCC|CC.."},
        {"vb", true, "a ' b|c", "..CCC|."},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        const auto &languages = ZtTokenLanguages();
        const auto language =
            std::find_if(languages.begin(), languages.end(), [&](const TZtTokenLanguage &l) {
                return QLatin1String(l.Name) == QLatin1String(row.Language);
            });
        ASSERT_NE(language, languages.end());
        const TParser parser = language->CreateParser();
        parser->SetClosedRemarks(row.Closed);
        const auto look = [&](const char *AText) {
            Use(parser.get(), AText);
            return Looks(Colours.GetRuns(0)).at(1);
        };
        const QChar comment = look(*row.Language == 'x'   ? "<!---->"
                                   : *row.Language == 'p' ? "{}"
                                   : *row.Language == 'v' ? "''"
                                                          : "/**/");
        const QChar string = look("''");
        Use(parser.get(), QString::fromLatin1(row.Text).replace('|', '\n'));
        const QStringList looks = AllLooks(Colours);
        EXPECT_EQ(looks.join('|').toStdString(), LooksOf(*parser, Text).join('|').toStdString());
        QString shown = looks.join('|');
        for (QChar &C : shown)
            C = C == comment                          ? u'C'
                : C == string && *row.Language == 's' ? u'S'
                : C == u'|'                           ? u'|'
                                                      : u'.';
        EXPECT_EQ(shown.toStdString(), row.Looks);
        Colours.SetParser(nullptr);
    }
}

// The plain lexer never says that it is at the end.
TEST_F(Highlighter, ThePlainLexerComesToAnEnd)
{
    TZtLangParser parser;
    Use(&parser, QStringLiteral("one\n\nthree\n").repeated(50));
    while (Colours.Advance(1000)) {
    }
    EXPECT_EQ(Colours.GetKnownLines(), Text.GetCount());
}

TEST_F(Highlighter, AHostsLexerStaysInItsLines)
{
    const struct {
        const char *Name;
        THostLexer::TRead Read;
        const char *Looks; // "R" what is red
    } rows[] = {
        {"words", ReadWord, "RRRRRRR||RRR"},
        {"upper case",
         [](THostLexer &t, QString &s, bool &b) {
             const bool more = ReadWord(t, s, b);
             s = s.toUpper();
             return more;
         },
         "RRRRRRR||RRR"},
        {"drops the last character",
         [](THostLexer &t, QString &s, bool &b) {
             const bool more = ReadWord(t, s, b);
             if (s.size() > 1)
                 s.chop(1);
             return more;
         },
         "RR.RRR.||RR."},
        {"more than there is",
         [](THostLexer &t, QString &s, bool &b) {
             const bool more = ReadWord(t, s, b);
             s = QStringLiteral("zz") + s + QStringLiteral("zz");
             return more;
         },
         nullptr},
        {"something else",
         [](THostLexer &t, QString &s, bool &) {
             s = QStringLiteral("no such text");
             return t.ReadChar() != u'\0';
         },
         nullptr},
        {"the line ahead",
         [](THostLexer &t, QString &s, bool &b) {
             if (t.Ahead.isEmpty()) {
                 QString line;
                 char16_t C;
                 while ((C = t.ReadChar()) != u'\n' && C != u'\0')
                     line += QChar(C);
                 t.Ahead = line.chopped(C ? 1 : 0).split(' ');
                 if (C)
                     t.Ahead += "\r";
             }
             s = t.Ahead.takeFirst();
             b = s == "\r";
             return !s.isEmpty() || !t.Ahead.isEmpty();
         },
         "RRR.RRR||RRR"},
        {"no line break",
         [](THostLexer &t, QString &s, bool &b) {
             const bool more = ReadWord(t, s, b);
             b = false;
             return more;
         },
         "RRRRRRR||RRR"},
        {"line breaks alone",
         [](THostLexer &t, QString &, bool &b) {
             b = true;
             return t.ReadChar() != u'\0';
         },
         ".......||..."},
        {"nothing, forever", [](THostLexer &, QString &, bool &) { return true; }, ".......||..."},
        {"the same, forever",
         [](THostLexer &t, QString &s, bool &) {
             s = QChar(t.PeekChar());
             return true;
         },
         nullptr},
        {"pushes more back",
         [](THostLexer &t, QString &s, bool &) {
             s = QChar(t.ReadChar());
             t.PushStr("xyz");
             return true;
         },
         nullptr},
        {"the end at once", [](THostLexer &, QString &, bool &) { return false; }, ".......||..."},
        {"all in one",
         [](THostLexer &t, QString &s, bool &) {
             for (char16_t C; (C = t.ReadChar()) != u'\0';)
                 s += QChar(C);
             return !s.isEmpty();
         },
         "RRRRRRR||RRR"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        THostLexer lexer(row.Read);
        Use(&lexer, "abc def\n\nghi");
        while (Colours.Advance(0)) {
        }
        const QString looks = AllLooks(Colours).join('|');
        QString shown = looks;
        for (QChar &C : shown)
            C = C == u'.' || C == u'|' ? C : u'R';
        if (row.Looks) {
            EXPECT_EQ(shown.toStdString(), row.Looks);
        }
        EXPECT_FALSE(lexer.OnGetNewBuffer || lexer.OnSkipTo);
        EXPECT_EQ(lexer.GetUnread(), 0);
        Colours.SetParser(nullptr);
    }
}

TEST_F(Highlighter, AfterAnyEditsAllIsAsIfLexedAnew)
{
    const char *const pieces[] = {"x",  "/*",   "*/",   "{",       "}",  "(*",        "*)",  "'",
                                  "\"", "<!--", "-->",  "<a b=\"", ">",  "<![CDATA[", "]]>", "\\",
                                  "//", "12 ",  "end ", " ",       "\t", "\xE9"};
    const int rounds = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS") / 100 + 30;
    std::mt19937 random(4711);
    const auto pick = [&](int ACount) { return int(random() % uint(ACount)); };
    const auto someText = [&](int ALines) {
        QStringList lines;
        for (int i = 0; i < ALines; ++i) {
            lines += QString(pick(3) ? 0 : pick(40), u'y');
            for (int k = pick(4); k > 0; --k)
                lines.back() += QString::fromLatin1(pieces[size_t(pick(int(std::size(pieces))))]);
        }
        return lines.join('\n');
    };
    const auto place = [&] {
        const int line = pick(Text.GetCount());
        return QPoint(pick(Text.GetLength(line) + 1), line);
    };
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        for (const bool closed : {false, true}) {
            SCOPED_TRACE(std::string(language.Name) + (closed ? ", closed" : ""));
            const TParser parser = language.CreateParser();
            parser->SetClosedRemarks(closed);
            Use(parser.get(), someText(400));
            for (int round = 0; round < rounds && !HasFailure(); ++round) {
                for (int edits = pick(4); edits >= 0; --edits) {
                    QPoint from = place();
                    QPoint to = pick(3) ? from : place();
                    if (ZtIsBefore(to, from))
                        std::swap(from, to);
                    if (to.y() - from.y() > 30)
                        to = from;
                    Text.ReplaceText(from, to, TZtTextPiece(someText(pick(3) ? 1 : 1 + pick(20))));
                    if (pick(2))
                        Colours.Advance(0);
                    const int top = pick(Text.GetCount());
                    Colours.Prepare(top, top + pick(60), 1 + pick(100));
                }
                while (Colours.Advance(0)) {
                }
                TZtHighlighter fresh;
                fresh.SetText(&Text);
                fresh.SetParser(parser.get());
                const QStringList expected = AllLooks(fresh);
                const int top = pick(Text.GetCount());
                Colours.Prepare(top, top + 50, 200);
                for (int i = top; i < std::min(top + 50, Text.GetCount()); ++i)
                    EXPECT_EQ(Looks(Colours.GetRuns(i)).toStdString(), expected[i].toStdString())
                        << i;
            }
            Colours.SetParser(nullptr);
        }
    }
}

TEST_F(Highlighter, FarLinesAreColouredBeforeAllIsKnown)
{
    const TZtTokenLanguage &language = ZtTokenLanguages()[0];
    const TParser parser = language.CreateParser();
    parser->SetClosedRemarks(true);
    const bool isXml = QLatin1String(language.Name) == QLatin1String("xml");
    const QString open = isXml ? "<!--" : language.Name[0] == 'p' ? "{" : "/*";
    Use(parser.get(), open + QStringLiteral("\n") + QString("while x > 1\n").repeated(20000));
    const auto look = [&] { return Looks(Colours.GetRuns(15000)).at(0); };
    const QChar guess = look();
    const quint64 revision = Colours.GetRevision();
    EXPECT_LT(Colours.GetKnownLines(), 10);
    while (Colours.Advance(1)) {
    }
    EXPECT_EQ(Colours.GetKnownLines(), Text.GetCount());
    EXPECT_NE(Colours.GetRevision(), revision);
    const QChar comment = Looks(Colours.GetRuns(0)).at(0);
    EXPECT_NE(guess, comment);
    EXPECT_EQ(look(), comment);
    // A change without an effect below is dealt with at once.
    Text.SetStrings(10, "y");
    int slices = 0;
    while (Colours.Advance(0))
        ++slices;
    EXPECT_LT(slices, 100);
    EXPECT_EQ(look(), comment);
    Text.SetStrings(0, "");
    EXPECT_EQ(look(), comment); // as it was, until more is known
    while (Colours.Advance(1)) {
    }
    EXPECT_EQ(look(), guess);
}

TEST_F(Highlighter, HandlersMayDoAnything)
{
    const TParser parser = ZtTokenLanguages()[2].CreateParser(); // fires the handler
    THostLexer other(ReadWord);
    int tokens = 0;
    const struct {
        const char *Name;
        std::function<void()> Act;
    } rows[] = {{"changes the text", [&] { Text.SetStrings(3, "new text"); }},
                {"removes lines", [&] { Text.Delete(5); }},
                {"exchanges the lexer", [&] { Colours.SetParser(&other); }},
                {"asks for colours",
                 [&] {
                     Colours.GetRuns(7);
                     Colours.Advance(1);
                 }},
                {"raises", [&] { throw EZtParser("no"); }}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        for (const int when : {1, 30, 700}) {
            Use(parser.get(), QString("while (x) { y /* 1 */ }\n").repeated(200));
            tokens = 0;
            parser->OnPaintInfo = [&](const QString &, TColor &, TColor &, TFontStyles &) {
                if (++tokens == when)
                    row.Act();
            };
            for (int i = 0; i < 3; ++i) {
                try {
                    Colours.Advance(1);
                    Colours.Prepare(0, 60, 100);
                } catch (const EZtParser &) {
                }
            }
            EXPECT_GE(tokens, when);
            parser->OnPaintInfo = nullptr;
            AllLooks(Colours);
            EXPECT_FALSE(parser->OnGetNewBuffer);
            Colours.SetParser(nullptr);
        }
    }
}
