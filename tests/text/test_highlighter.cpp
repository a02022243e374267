#include "random_edits.h"
#include "uZtHighlighter.h"
#include "uZtTokenDump.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <map>

namespace {

using TParser = std::unique_ptr<TZtLangParser>;

constexpr int AllColumns = 1 << 20;

// The looks of the characters of a line, a letter each: "." for plain text.
QString Looks(const TZtColourRuns &ARuns)
{
    QString looks;
    for (const TZtColourRun &run : ARuns) {
        const bool plain = run.Fore == clWindowText && run.Back == clWindow && !run.Style;
        const uint look = run.Fore * 31 + run.Back * 7 + uint(run.Style);
        looks += QString(run.Length, plain ? u'.' : QChar(char16_t(u'A' + look % 57)));
    }
    return looks;
}

// The lines of the looks, in letters in the order in which they come.
std::string Shape(const QStringList &ALooks)
{
    std::map<QChar, QChar> letters{{u'.', u'.'}, {u'|', u'|'}};
    QString shape = ALooks.join(u'|');
    for (QChar &C : shape)
        C = letters.try_emplace(C, QChar(int('a' + letters.size() - 2))).first->second;
    return shape.toStdString();
}

TParser ParserOf(const char *AExtension)
{
    return ZtTokenLanguageOf(QStringLiteral("a.") + QLatin1String(AExtension))->CreateParser();
}

struct Highlighter : testing::Test {
    void Use(TZtLangParser *AParser, const QString &AText)
    {
        Text.SetText(AText);
        Colours.SetText(&Text);
        Colours.SetParser(AParser);
    }
    // The runs stand side by side in any line, whatever the lexer is.
    QStringList AllLooks(TZtHighlighter &AColours)
    {
        QStringList looks;
        AColours.Prepare(0, Text.GetCount() - 1, AllColumns);
        for (int i = 0; i < Text.GetCount(); ++i) {
            int column = 0;
            for (const TZtColourRun &run : AColours.GetRuns(i)) {
                EXPECT_EQ(run.Start, column);
                EXPECT_GT(run.Length, 0);
                column += run.Length;
            }
            EXPECT_EQ(column, Text.GetLength(i));
            looks += Looks(AColours.GetRuns(i));
        }
        return looks;
    }
    void Finish(int AMilliseconds = 0)
    {
        while (Colours.Advance(AMilliseconds)) {
        }
        EXPECT_EQ(Colours.GetKnownLines(), Text.GetCount());
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
    using TChange = void (*)(QString &AToken, bool &ALineBreak);
    explicit THostLexer(TRead ARead, TChange AChange = nullptr) : Read(ARead), Change(AChange) {}
    bool GetNextToken(QString &AToken, TColor &ABack, TColor &AFore, TFontStyles &AStyle,
                      bool &ALineBreak) override
    {
        ABack = clWindow;
        AFore = clRed;
        AStyle = {};
        ALineBreak = false;
        AToken.resize(0);
        const bool more = Read(*this, AToken, ALineBreak);
        if (Change)
            Change(AToken, ALineBreak);
        return more;
    }
    QStringList Ahead;
    TRead Read;
    TChange Change;
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

// The whole next line, word by word.
bool ReadAhead(THostLexer &AThis, QString &AToken, bool &ALineBreak)
{
    if (AThis.Ahead.isEmpty()) {
        QString line;
        char16_t C;
        while ((C = AThis.ReadChar()) != u'\n' && C != u'\0')
            line += QChar(C);
        AThis.Ahead = line.chopped(C ? 1 : 0).split(' ');
        if (C)
            AThis.Ahead += "\r";
    }
    AToken = AThis.Ahead.takeFirst();
    ALineBreak = AToken == "\r";
    return !AToken.isEmpty() || !AThis.Ahead.isEmpty();
}

} // namespace

TEST_F(Highlighter, AHostsLexerStaysInItsLines)
{
    const char *const words = "aaaaaaa||aaa", *const plain = ".......||...";
    const struct {
        const char *Name;
        THostLexer::TRead Read;
        const char *Looks; // null: some
        void (*Change)(QString &AToken, bool &ALineBreak) = nullptr;
    } rows[] = {
        {"words", ReadWord, words},
        {"the line ahead", ReadAhead, "aaa.aaa||aaa"},
        {"upper case", ReadWord, words, [](QString &s, bool &) { s = s.toUpper(); }},
        {"drops the last character", ReadWord, "aa.aaa.||aa.",
         [](QString &s, bool &) { s.chop(s.size() > 1); }},
        {"more than there is", ReadWord, nullptr, [](QString &s, bool &) { s = "zz" + s + "zz"; }},
        {"no line break", ReadWord, words, [](QString &, bool &b) { b = false; }},
        {"line breaks alone", ReadWord, plain,
         [](QString &s, bool &b) { b = !std::exchange(s, {}).isNull(); }},
        {"something else", ReadWord, nullptr, [](QString &s, bool &) { s = "no such text"; }},
        {"nothing, forever", [](THostLexer &, QString &, bool &) { return true; }, plain},
        {"the same, forever",
         [](THostLexer &t, QString &s, bool &) { return s.append(t.PeekChar()).size() > 0; },
         nullptr},
        {"pushes more back",
         [](THostLexer &t, QString &s, bool &) {
             s = QChar(t.ReadChar());
             t.PushStr("xyz");
             return true;
         },
         nullptr},
        {"the end at once", [](THostLexer &, QString &, bool &) { return false; }, plain},
        {"all in one",
         [](THostLexer &t, QString &s, bool &) {
             for (char16_t C; (C = t.ReadChar()) != u'\0';)
                 s += QChar(C);
             return !s.isEmpty();
         },
         words},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        THostLexer lexer(row.Read, row.Change);
        Use(&lexer, "abc def\n\nghi");
        Finish();
        const std::string shape = Shape(AllLooks(Colours));
        EXPECT_EQ(shape, row.Looks ? row.Looks : shape);
        EXPECT_FALSE(lexer.OnGetNewBuffer || lexer.OnSkipTo);
        EXPECT_EQ(lexer.GetUnread(), 0);
    }
    TZtLangParser endless; // the plain one never says that it is at the end
    Use(&endless, QStringLiteral("one\n\nthree\n").repeated(50));
    Finish(1000);
}

TEST_F(Highlighter, AfterAnyEditsAllIsAsIfLexedAnew)
{
    QStringList pieces =
        QString("x /* */ { } (* *) ' \" <!-- --> > <![CDATA[ ]]> \\ // \t \u00E9").split(' ');
    pieces += {"<a b=\"", "12 ", "end ", " ", QString(30, u'y')};
    const int rounds = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS") / 100 + 30;
    for (const TZtTokenLanguage &language : ZtTokenLanguages())
        for (const bool closed : {false, true}) {
            SCOPED_TRACE(testing::Message() << language.Name << (closed ? ", closed" : ""));
            const TParser parser = language.CreateParser();
            parser->SetClosedRemarks(closed);
            TRandomEdits edits(Text, 4711, 400, pieces);
            Use(parser.get(),
                "\ta\u00E9 12x /* \x01 */ 'q\n<!-- a\n\n b\n\t--> (* {\n } *)\na /* b\nc */ "
                "d // e\na { b\nc } d\n(* b\n*) d 'c\nd ' b\n<a>\n");
            const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/") + language.Name);
            for (const QFileInfo &info : folder.entryInfoList(QDir::Files)) {
                QFile file(info.filePath());
                ASSERT_TRUE(file.open(QIODevice::ReadOnly));
                Text.SetUtf8Text(Text.GetText().toUtf8() + file.readAll());
            }
            const QStringList lexed = LooksOf(*parser, Text);
            EXPECT_GT(lexed.join(QString()).remove('.').size(), 300);
            EXPECT_EQ(AllLooks(Colours).join('\n').toStdString(), lexed.join('\n').toStdString());
            for (int round = 0; round < rounds && !HasFailure(); ++round) {
                for (int i = edits.Below(4); i >= 0; --i) {
                    edits.One();
                    if (edits.Below(2))
                        Colours.Advance(0);
                    const int top = edits.Place().y();
                    Colours.Prepare(top, top + edits.Below(60), 1 + edits.Below(100));
                }
                Finish();
                TZtHighlighter fresh;
                fresh.SetText(&Text);
                fresh.SetParser(parser.get());
                const QStringList expected = AllLooks(fresh);
                const int top = edits.Place().y();
                Colours.Prepare(top, top + 50, 200);
                for (int i = top; i < std::min(top + 50, Text.GetCount()); ++i)
                    EXPECT_EQ(Looks(Colours.GetRuns(i)), expected[i]) << i;
            }
        }
}

TEST_F(Highlighter, RunsTellTheirElements)
{
    const struct {
        const char *Extension, *Text;
        QString Elements, Kinds; // a digit for each character; code, remark or text
    } rows[] = {
        {"pas", "if a='b' {c}", "110472220333", "ccccctttcrrr"},
        {"pas", "#65", "566", "tcc"},
        {"vbs", "x = 1 'y", "40605033", "ccccccrr"},
        {"js", "f(\"s\")//c", "462226333", "cctttcrrr"},
        {"xml", "<a b='c'>d<!--e-->", "531155255477777777", "cccccctcctrrrrrrrr"},
        {"sql", " a = 'b' --c", "111113331777", "ccccctttcrrr"},
        {"txt", "a", "0", "c"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Text);
        const bool lexed = ZtTokenLanguageOf(QStringLiteral("a.") + row.Extension);
        const TParser parser = lexed ? ParserOf(row.Extension) : std::make_unique<TZtLangParser>();
        parser->SetClosedRemarks(true);
        Use(parser.get(), row.Text);
        QString elements, kinds;
        for (const TZtColourRun &run : Colours.GetRuns(0)) {
            elements += QString(run.Length, QChar('0' + run.Element));
            kinds += QString(run.Length, QChar("crt"[int(run.Kind)]));
        }
        EXPECT_EQ(elements, row.Elements);
        EXPECT_EQ(kinds, row.Kinds);
        Colours.SetParser(nullptr);
    }
}

TEST_F(Highlighter, FarLinesAreColouredBeforeAllIsKnown)
{
    const TParser parser = ParserOf("pas");
    parser->SetClosedRemarks(true);
    Use(parser.get(), "{\n" + QString("while x > 1\n").repeated(20000));
    const auto look = [&] { return Looks(Colours.GetRuns(15000)).at(0); };
    const QChar guess = look();
    const quint64 revision = Colours.GetRevision();
    EXPECT_LT(Colours.GetKnownLines(), 10);
    Finish(1);
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
    Finish(1);
    EXPECT_EQ(look(), guess);
}

// What stands below a change is right also when the change went out of sight before it was lexed.
TEST_F(Highlighter, AChangeScrolledOutOfSightIsNoticed)
{
    const TParser parser = ParserOf("js");
    parser->SetClosedRemarks(true);
    Use(parser.get(), QString("while (x)\n").repeated(100));
    Finish();
    Colours.Prepare(0, 40, 80);
    Text.SetStrings(5, "/*");
    Colours.Prepare(6, 46, 80);
    EXPECT_EQ(Colours.GetRuns(7).front().Kind, TZtElementKind::ekRemark);
}

TEST_F(Highlighter, HandlersMayDoAnything)
{
    const TParser parser = ParserOf("js"); // fires the handler
    THostLexer other(ReadWord);
    const std::function<void()> rows[] = {[&] { Text.SetStrings(3, "new text"); },
                                          [&] { Text.Delete(5); },
                                          [&] { Colours.SetParser(&other); },
                                          [&] { Colours.GetRuns(7); },
                                          [&] { Colours.Advance(1); },
                                          [] { throw EZtParser("no"); }};
    for (const auto &act : rows) {
        for (const int when : {1, 30, 700}) {
            SCOPED_TRACE(testing::Message() << &act - rows << " at " << when);
            Use(parser.get(), QString("while (x) { y /* 1 */ }\n").repeated(200));
            int tokens = 0;
            parser->OnPaintInfo = [&](const QString &, TColor &, TColor &, TFontStyles &) {
                if (++tokens == when)
                    act();
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
