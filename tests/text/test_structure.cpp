#include "random_edits.h"
#include "uZtBrackets.h"
#include "uZtIndentGuides.h"
#include "uZtMatchMarks.h"
#include "uZtTokenDump.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace {

using enum TZtBracketState;

std::unique_ptr<TZtLangParser> ParserOf(const char *AExtension)
{
    const auto *language = ZtTokenLanguageOf(QStringLiteral("a.") + QLatin1String(AExtension));
    std::unique_ptr<TZtLangParser> parser = language ? language->CreateParser() : nullptr;
    if (parser)
        parser->SetClosedRemarks(true);
    return parser;
}

// Takes the mark out of a text and answers where it stood.
QPoint TakeMark(QString &AText, QChar AMark)
{
    const qsizetype at = AText.indexOf(AMark);
    AText.remove(at, 1);
    const QStringView before = QStringView(AText).first(at);
    return {int(at - before.lastIndexOf(u'\n') - 1), int(before.count(u'\n'))};
}

struct Structure : testing::Test {
    void Use(const char *AExtension, const QString &AText)
    {
        Colours.SetParser(nullptr);
        Parser = ParserOf(AExtension);
        Text.SetText(AText);
        Colours.SetText(&Text);
        Colours.SetParser(Parser.get());
    }
    void Finish()
    {
        while (Colours.Advance(100)) {
        }
        while (Brackets.Advance(100)) {
        }
    }
    // Every line's runs, lexed from the text's first line on.
    std::vector<TZtColourRuns> AllRuns()
    {
        TZtHighlighter colours;
        colours.SetText(&Text);
        colours.SetParser(Parser.get());
        while (colours.Advance(1000)) {
        }
        std::vector<TZtColourRuns> runs;
        colours.Prepare(0, Text.GetCount() - 1, 1 << 20);
        for (int i = 0; i < Text.GetCount(); ++i)
            runs.push_back(colours.GetRuns(i));
        return runs;
    }
    TStringList Text;
    std::unique_ptr<TZtLangParser> Parser;
    TZtHighlighter Colours;
    TZtBrackets Brackets{&Text, Colours};
};

// "|" is the caret, "#" stands before the pair; without one there is none.
TEST_F(Structure, PairsOfBrackets)
{
    const struct {
        const char *Name, *Extension, *Text;
        TZtBracketState State;
    } rows[] = {
        {"right of the caret", "js", "a |( b #)", bsFound},
        {"left of the caret", "js", "#( b )| c", bsFound},
        {"the right one goes first", "js", "()|(#)", bsFound},
        {"pairs inside", "js", "|{ ( [ ] )\n( ) #}", bsFound},
        {"backward", "js", "#{ ( [ ]\n ) { } |}", bsFound},
        {"no other end", "js", "|( ( )", bsUnmatched},
        {"no other start", "js", "( ) |)", bsUnmatched},
        {"another kind", "js", "|( #]", bsUnmatched},
        {"another kind inside", "js", "|{ ( #] ) }", bsUnmatched},
        {"comments do not count", "js", "|( // )\n/* ) */ #)", bsFound},
        {"strings do not count", "js", "|( ')' #)", bsFound},
        {"none in a comment", "js", "// |()", bsNone},
        {"code left of a string", "js", "#(1)|'('", bsFound},
        {"no bracket", "js", "a|b ()", bsNone},
        {"behind the text", "js", "()\n|", bsNone},
        {"comment in braces", "pas", "|( { ) } #)", bsFound},
        {"braces of a comment", "pas", "|{ a }", bsNone},
        {"angles elsewhere", "js", "a |< b >", bsNone},
        {"angles of a tag", "xml", "|<a b='>'#>(</a>", bsFound},
        {"a text in a tag", "xml", "<a>b|(c)</a>", bsNone},
        {"plain text", "txt", "|( ' #)", bsFound},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        QString text = row.Text;
        const bool caretFirst = text.indexOf('|') < text.indexOf('#');
        QPoint pair = text.contains('#') && !caretFirst ? TakeMark(text, '#') : QPoint(-1, -1);
        const QPoint caret = TakeMark(text, '|');
        if (text.contains('#'))
            pair = TakeMark(text, '#');
        Use(row.Extension, text);
        EXPECT_EQ(Brackets.Find(caret), row.State);
        EXPECT_EQ(Brackets.GetPair(), pair);
    }
}

TEST_F(Structure, FarPairsAreFoundWhileNothingElseIsDone)
{
    Use("js", "{\n" + QString("f(x)[1] // )\n").repeated(6000) + "}\n");
    const int last = Text.GetCount() - 1;
    const QPoint top, bottom(0, last), nowhere(-1, -1);
    const struct {
        std::map<int, const char *> Lines; // that are changed before
        QPoint Caret;
        std::optional<TZtBracketState> Key; // what is known at once
        TZtBracketState Idle;
        QPoint Pair;
    } rows[] = {
        {{}, top, bsSearching, bsFound, bottom},
        {{}, {1, 0}, bsFound, bsFound, bottom}, // another place at the bracket
        {{}, bottom, bsSearching, bsFound, top},
        {{}, {1, last}, bsFound, bsFound, top},
        {{}, top, {}, bsFound, bottom},
        {{{last + 1, "a"}}, top, bsFound, bsFound, bottom}, // what is below does not matter
        {{{4000, "("}}, top, bsSearching, bsUnmatched, bottom},
        {{}, bottom, bsSearching, bsUnmatched, {0, 4000}},
        // What begins a comment far above is known later.
        {{{10, "/*"}, {5000, "*/"}}, bottom, {}, bsFound, top},
        {{{0, ""}}, bottom, {}, bsUnmatched, nowhere},
        {{{last + 2, "("}}, {0, last + 2}, bsUnmatched, bsUnmatched, nowhere},
        {{{last + 3, ")"}}, {0, last + 2}, bsFound, bsFound, {0, last + 3}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        for (const auto &[line, text] : row.Lines)
            line < Text.GetCount() ? Text.SetStrings(line, text) : Text.Insert(line, text);
        const TZtBracketState known = Brackets.Find(row.Caret);
        EXPECT_EQ(known, row.Key.value_or(known));
        Finish();
        EXPECT_EQ(Brackets.GetState(), row.Idle);
        EXPECT_EQ(Brackets.GetPair(), row.Pair);
    }
}

TEST_F(Structure, LongLinesAreLexedAsFarAsIsGood)
{
    const auto blanks = [](int ACount) { return QString(ACount, u' '); };
    const struct {
        const char *Name;
        QString Text;
        QPoint Caret;
        TZtBracketState Key, Idle;
    } rows[] = {
        {"at the start", "(" + blanks(300'000), {0, 0}, bsSearching, bsNone},
        {"near in a long line", "()" + blanks(300'000), {0, 0}, bsFound, bsFound},
        {"far in the line", "(" + blanks(200'000) + ")", {0, 0}, bsSearching, bsFound},
        {"far at the caret", "(" + blanks(200'000) + ")", {200'001, 0}, bsSearching, bsFound},
        {"too far", "(" + blanks(300'000) + ")", {300'001, 0}, bsNone, bsNone},
        {"long line below", "(\n" + blanks(100'000) + "\n)", {0, 0}, bsSearching, bsFound},
        {"too long above", "(\n" + blanks(300'000) + "\n)", {0, 2}, bsSearching, bsNone},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        Use("js", row.Text);
        EXPECT_EQ(Brackets.Find(row.Caret), row.Key);
        Finish();
        EXPECT_EQ(Brackets.GetState(), row.Idle);
    }
}

// The brackets of a text that count, and what is known of each when all is lexed.
struct TModel {
    struct TItem {
        QPoint Place;
        int Code;
    };
    TModel(const TStringList &AText, const std::vector<TZtColourRuns> &ARuns)
    {
        const QString pairs = "()[]{}";
        for (int y = 0; y < AText.GetCount(); ++y) {
            const QString line = AText.GetStrings(y);
            for (const TZtColourRun &run : ARuns[size_t(y)])
                for (int x = run.Start; x < run.Start + run.Length; ++x)
                    if (const auto at = pairs.indexOf(line[x]);
                        at >= 0 && run.Kind == TZtElementKind::ekCode)
                        Items.push_back({{x, y}, int(at % 2 ? -at / 2 - 1 : at / 2 + 1)});
        }
    }
    const TItem *At(const QPoint &APlace) const
    {
        const auto item = std::ranges::find(Items, APlace, &TItem::Place);
        return item == Items.end() ? nullptr : &*item;
    }
    std::pair<TZtBracketState, QPoint> Find(const QPoint &ACaret) const
    {
        const TItem *item = At(ACaret) ? At(ACaret) : At(ACaret - QPoint(1, 0));
        if (!item)
            return {bsNone, {-1, -1}};
        const int way = item->Code > 0 ? 1 : -1;
        std::vector<int> open;
        for (auto i = item - Items.data(); i >= 0 && i < std::ssize(Items); i += way) {
            const int code = Items[size_t(i)].Code * way;
            if (code > 0)
                open.push_back(code);
            else if (open.back() != -code)
                return {bsUnmatched, Items[size_t(i)].Place};
            else if (open.pop_back(); open.empty())
                return {bsFound, Items[size_t(i)].Place};
        }
        return {bsUnmatched, {-1, -1}};
    }
    std::vector<TItem> Items;
};

// What was peeked is what lexing from the top finds, wherever that is said.
void ExpectRuns(TZtHighlighter &AColours, int AFirst, int ALast,
                const std::vector<TZtColourRuns> &ARuns, int &AExact)
{
    bool exact = false;
    const auto runs = AColours.Peek(AFirst, ALast, 1 << 20, exact);
    const int last = std::min(ALast, int(ARuns.size()) - 1);
    ASSERT_EQ(runs.size(), size_t(last - AFirst + 1));
    AExact += exact;
    for (int i = AFirst; exact && i <= last; ++i)
        ASSERT_TRUE(runs[size_t(i - AFirst)] == ARuns[size_t(i)]) << "line " << i;
}

TEST_F(Structure, BracketsAsInAModelAfterAnyEdits)
{
    const QStringList words{"(",  ")", "[",  "]",  "{",  "}",  "()", "'",  "/*", "*/",
                            "//", "a", "b ", "\"", "\n", "(*", "*)", "{}", "  "};
    const int steps = qMax(qEnvironmentVariableIntValue("ZT_RANDOM_STEPS"), 200);
    int exact = 0, found = 0;
    for (const char *extension : {"js", "pas"}) {
        for (const int lines : {12, 40, 700}) {
            SCOPED_TRACE(testing::Message() << extension << ", " << lines << " lines");
            Use(extension, "");
            TRandomEdits edits(Text, unsigned(lines), lines, words);
            for (int step = 0; step < steps / (lines > 100 ? 5 : 1); ++step) {
                edits.One();
                if (Text.GetCount() == 0)
                    continue;
                Colours.Prepare(edits.Below(Text.GetCount()), 5 + edits.Below(30), 80);
                const QPoint caret = edits.Place();
                Brackets.Find(caret);
                if (edits.Below(2))
                    Colours.Advance(0);
                const std::vector<TZtColourRuns> runs = AllRuns();
                const int first = edits.Below(Text.GetCount());
                ExpectRuns(Colours, first, first + edits.Below(20), runs, exact);
                Finish();
                const auto expected = TModel(Text, runs).Find(caret);
                ASSERT_EQ(Brackets.GetState(), expected.first) << "step " << step;
                ASSERT_EQ(Brackets.GetPair(), expected.second) << "step " << step;
                found += expected.first == bsFound;
            }
        }
    }
    EXPECT_GT(exact, steps / 2);
    EXPECT_GT(found, steps / 50);
}

// Lines in sight stay as they are known: not one is lexed again.
TEST_F(Structure, PeekingLeavesTheSight)
{
    Use("js", QString("while (x) { y /* 1 */ }\n").repeated(500));
    Finish();
    int tokens = 0;
    Parser->OnPaintInfo = [&](const QString &, TColor &, TColor &, TFontStyles &) { ++tokens; };
    const auto lexed = [&](auto ADo) {
        tokens = 0;
        ADo();
        return tokens;
    };
    bool exact = false;
    EXPECT_GT(lexed([&] { Colours.Prepare(100, 140, 60); }), 0);
    EXPECT_EQ(lexed([&] { Colours.Peek(110, 120, 1000, exact); }), 0);
    EXPECT_TRUE(exact);
    EXPECT_GT(lexed([&] { Colours.Peek(400, 410, 1000, exact); }), 0);
    EXPECT_EQ(lexed([&] { Colours.Prepare(100, 140, 60); }), 0);
    // A handler may change the text under it.
    Parser->OnPaintInfo = [&](const QString &, TColor &, TColor &, TFontStyles &) {
        if (++tokens == 20)
            Text.SetStrings(100, "/*");
    };
    tokens = 0;
    EXPECT_LT(Colours.Peek(300, 420, 1000, exact).size(), 121U);
    Parser->OnPaintInfo = nullptr;
    EXPECT_EQ(Colours.GetRuns(101).front().Kind, TZtElementKind::ekRemark);
}

// The indentation that holds, and the caret's guide, in lines with guides at every second cell.
TEST(IndentGuides, LinesAndBlocks)
{
    const TZtCellRules rules{4, true, true};
    const struct {
        const char *Name, *Text;
        std::vector<int> Cells;
        int Caret;
        TZtGuide Guide;
    } rows[] = {
        {"a block", "a\n  b\n    c\n  d\ne", {0, 2, 4, 2, 0}, 2, {2, 2, 2}},
        {"an outer block", "a\n  b\n    c\n  d\ne", {0, 2, 4, 2, 0}, 4, {0, 1, 3}},
        {"the block that begins", "a\n  b\n    c\n  d\ne", {0, 2, 4, 2, 0}, 1, {2, 2, 2}},
        {"begins before it ends", "  a\nb\n  c", {2, 0, 2}, 1, {0, 2, 2}},
        {"tabs", "a\n \tb\n\t c", {0, 4, 5}, 1, {4, 2, 2}},
        {"blank lines", "  a\n\n \t  \n  b", {2, 2, 2, 2}, 1, {0, 0, 3}},
        {"blank at a block's start", "a\n\n    b", {0, 1, 4}, 1, {0, 1, 2}},
        {"blank at an inner end", "    a\n\n  b\n", {4, 3, 2}, 1, {2, 0, 1}},
        {"blank at the text's ends", "\n  a\n", {1, 2}, 0, {0, 0, 1}},
        {"all blank", "\n \n\n", {0, 0, 0}, 1, {-1, 0, -1}},
        {"odd steps", "   a\n     b", {3, 5}, 0, {4, 1, 1}},
        {"no block", "a\nb", {0, 0}, 0, {-1, 0, -1}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        TStringList text;
        text.SetText(row.Text);
        EXPECT_EQ(ZtGuideCells(text, 0, text.GetCount() - 1, rules), row.Cells);
        for (int i = 0; i < text.GetCount(); ++i) // each line alone
            EXPECT_EQ(ZtGuideCells(text, i, i, rules), std::vector{row.Cells[size_t(i)]});
        const TZtGuide guide = ZtCurrentGuide(text, row.Caret, 2, rules);
        EXPECT_EQ(guide.Cell, row.Guide.Cell);
        EXPECT_EQ(guide.First, row.Guide.First);
        EXPECT_EQ(guide.Last, row.Guide.Last);
    }
    TStringList text;
    text.SetText("  a\n" + QString("\n").repeated(3000) + "  b\n");
    EXPECT_EQ(ZtGuideCells(text, 500, 500, rules), std::vector{1}); // nothing is near below
    EXPECT_EQ(ZtGuideCells(text, 1500, 1500, rules), std::vector{0});
    text.SetText(QString("  a\n").repeated(3000));
    EXPECT_EQ(ZtCurrentGuide(text, 1500, 2, rules), (TZtGuide{0, 500, 2500}));
}

TEST(MatchMarks, WhatMatches)
{
    using enum TZtSearchFlag;
    const QString longLine = QString("ab ").repeated(100'000);
    const struct {
        const char *Name;
        QString Text, Search;
        TZtSearchFlags Flags;
        std::vector<int> Starts; // in line 0, from column 2 to column 8
        qint64 Count;
        std::vector<quint32> Rows; // two
    } rows[] = {
        {"any case", "ab ab Ab\nx\nab", "ab", {}, {3, 6}, 4, {1, 1}},
        {"case", "ab ab Ab\nx\nab", "ab", sfMatchCase, {3}, 3, {1, 1}},
        {"whole words", "xab ab abx ab", "ab", sfWholeWord, {4}, 2, {1, 0}},
        {"no overlap", "aaaaaaa", "aa", {}, {2, 4}, 3, {1, 0}},
        {"goes in at the left", "xabcd", "abc", {}, {1}, 1, {1, 0}},
        {"goes out at the right", "1234567abc", "abc", {}, {7}, 1, {1, 0}},
        {"word at the right edge", "123456 abcd", "abc", sfWholeWord, {}, 0, {0, 0}},
        {"wide characters", u"\u65E5\u672C a\u65E5"_qs, u"\u65E5"_qs, {}, {4}, 2, {1, 0}},
        {"a break", "ab\nab", "b\na", {}, {}, 0, {0, 0}},
        {"second half", "x\nx\nx\nab", "ab", {}, {}, 1, {0, 1}},
        {"long line", longLine, "ab", {}, {3, 6}, 100'000, {1, 0}},
        {"across the pieces", longLine, "b a", {}, {1, 4, 7}, 99'999, {1, 0}},
        {"nothing", "ab", "", {}, {}, 0, {0, 0}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        TStringList text;
        text.SetText(row.Text);
        TZtMatchMarks marks(&text);
        marks.SetSearch(row.Search, row.Flags);
        std::vector<int> starts;
        for (const auto &match : marks.GetInLine(0, 2, 8)) {
            EXPECT_EQ(match.Length, row.Search.size());
            starts.push_back(match.Start);
        }
        EXPECT_EQ(starts, row.Starts);
        while (marks.Advance(0)) {
        }
        EXPECT_TRUE(marks.IsComplete());
        EXPECT_EQ(marks.GetCount(), row.Count);
        std::vector<quint32> survey(2);
        marks.Survey(survey, 1);
        EXPECT_EQ(survey, row.Rows);
    }
}

TEST(MatchMarks, AChangedTextKeepsWhatWasFound)
{
    TStringList text;
    text.SetText(QString("a\n").repeated(200'000));
    TZtMatchMarks marks(&text);
    marks.SetSearch("b", {});
    text.SetStrings(199'000, "b b");
    const auto rowsOf = [&] {
        std::vector<quint32> rows(1000, 4);
        marks.Survey(rows, 3);
        return rows;
    };
    const auto finish = [&] {
        while (marks.Advance(0)) {
        }
    };
    EXPECT_TRUE(marks.Advance(0));
    finish();
    EXPECT_FALSE(marks.IsComplete()); // it was begun before the change
    EXPECT_EQ(marks.GetCount(), 2);
    marks.Restart();
    finish();
    EXPECT_TRUE(marks.IsComplete());
    std::vector<quint32> expected(1000, 4);
    expected[995] = 7;
    EXPECT_EQ(rowsOf(), expected);
    text.SetText("b\nb\nb\n");
    EXPECT_FALSE(marks.IsComplete());
    EXPECT_EQ(rowsOf(), expected);
    marks.Restart();
    EXPECT_EQ(marks.GetCount(), 2);
    finish();
    EXPECT_EQ(marks.GetCount(), 3);
    marks.Clear();
    EXPECT_EQ(rowsOf(), std::vector<quint32>(1000, 4));
    EXPECT_TRUE(marks.GetInLine(0, 0, 9).empty());
}

} // namespace
