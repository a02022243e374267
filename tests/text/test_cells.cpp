#include "uZtCells.h"

#include <QString>

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

using namespace std::string_view_literals;

namespace {

constexpr TZtCellRules Plain{8, false, false};
constexpr TZtCellRules Tabs{4, true, false};
constexpr TZtCellRules Wide{4, true, true};

// "length:width" of each cluster, where that is not "1:1", which is ".".
std::string Clusters(QAnyStringView ALine, const TZtCellRules &ARules)
{
    std::string text;
    int column = 0;
    int cell = 0;
    ZtForEachCluster(ALine, ARules, [&](int start, int length, int at, int width) {
        EXPECT_EQ(start, column);
        EXPECT_EQ(at, cell);
        column += length;
        cell += width;
        const std::string size = std::to_string(length) + ":" + std::to_string(width);
        text += size == "1:1" ? "." : " " + size + " ";
    });
    EXPECT_EQ(column, ALine.size());
    return text;
}

// Whether each way through the line agrees with all others, also behind its end.
// Looks at every `AStep`th cluster.
void ExpectAgreement(QAnyStringView ALine, const TZtCellRules &ARules, int AStep = 1)
{
    int start = 0;
    int index = 0;
    ZtForEachCluster(ALine, ARules, [&](int column, int length, int cell, int width) {
        start = column + length;
        if (index++ % AStep != 0)
            return;
        for (int i = column; i < start; ++i) {
            EXPECT_EQ(ZtCellOf(ALine, i, ARules), cell) << i;
            EXPECT_EQ(ZtNextCluster(ALine, i, ARules), start) << i;
            EXPECT_EQ(ZtPreviousCluster(ALine, i + 1, ARules), column) << i;
        }
        for (int i = cell; i < cell + width; ++i)
            EXPECT_EQ(ZtColumnAt(ALine, i, ARules), column) << i;
    });
    const int end = ZtCellOf(ALine, start, ARules);
    EXPECT_EQ(ZtCellOf(ALine, start + 7, ARules), end + 7);
    EXPECT_EQ(ZtColumnAt(ALine, end + 7, ARules), start + 7);
    EXPECT_EQ(ZtColumnAt(ALine, end, ARules), start);
    EXPECT_EQ(ZtNextCluster(ALine, start + 7, ARules), start + 8);
    EXPECT_EQ(ZtPreviousCluster(ALine, start + 7, ARules), start + 6);
    EXPECT_EQ(ZtPreviousCluster(ALine, 0, ARules), 0);
}

QString Repeated(const char16_t *S, int ACount) { return QString::fromUtf16(S).repeated(ACount); }

} // namespace

TEST(Cells, ClustersAndTheirWidths)
{
    const struct {
        std::u16string_view Line;
        TZtCellRules Rules;
        const char *Clusters;
    } rows[] = {
        {u"", Wide, ""},
        {u"ab c", Wide, "...."},
        {u"\ta\tabc\tabcd\t", Tabs, " 1:4 . 1:3 ........ 1:4 "},
        {u"a\tb", Plain, "..."},
        {u"日\t日本語。ｗ", Wide, " 1:2  1:2  1:2  1:2  1:2  1:2  1:2 "},
        {u"日\t本", Tabs, ". 1:3 ."},
        {u"e\u0301a\u0301\u0302b", Wide, " 2:1  3:1 ."},
        {u"e\u0301", Plain, ".."},
        {u"a\U0001F600b", Plain, ". 2:1 ."},
        {u"a\U0001F600b", Wide, ". 2:2 ."},
        {u"\U0001F468\u200D\U0001F469\u200D\U0001F467!", Wide, " 8:2 ."},
        {u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", Wide, " 4:2  4:2 "},
        {u"1\uFE0F\u20E3#\u20E3", Wide, " 3:2  2:2 "},
        {u"\u2764\u2764\uFE0F\u231A\U0001F44D\U0001F3FD", Wide, ". 2:2  1:2  4:2 "},
        {u"\u1112\u1161\u11AB\uD55C\uAE00", Wide, " 3:2  1:2  1:2 "},
        {u"\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627", Wide, ".........."},
        {u"\u05E9\u05C1\u0645\u064E", Wide, " 2:1  2:1 "},
        {u"\u0E01\u0E33\u0915\u094D\u0937\u093F", Wide, " 2:2  4:2 "},
        {u"\u0301a\u200Bb\uFEFF\u00AD", Wide, ".. 1:0 . 1:0 ."},
        {u"a\xD83D"
         u"b\xDE00\xD83D",
         Wide, "....."},
        {u"a\xD83D"
         u"b\xDE00\xD83D",
         Plain, "....."},
        {u"\x01\x0\x1F\x7F\x85\r\n"
         u"\u2028"sv,
         Wide, "........"},
        {u"\u0430\u0431\u0301\u0432 \u03B1", Wide, ". 2:1 ..."},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        EXPECT_EQ(Clusters(QStringView(row.Line), row.Rules), row.Clusters);
        ExpectAgreement(QStringView(row.Line), row.Rules);
    }
}

TEST(Cells, ALatin1LineIsReadAsItsUtf16Is)
{
    const QByteArray line("a\tbc\xE9\xAD\x01\r\n\t \xA9"
                          "1");
    for (const TZtCellRules &rules : {Plain, Tabs, Wide}) {
        ExpectAgreement(QLatin1StringView(line), rules);
        EXPECT_EQ(Clusters(QLatin1StringView(line), rules),
                  Clusters(QString::fromLatin1(line), rules));
    }
}

TEST(Cells, EveryWayThroughALongLineAgrees)
{
    const QString lines[] = {Repeated(u"\U0001F1E9\U0001F1EA", 900),       // flags
                             "x" + Repeated(u"\U0001F1E9\U0001F1EA", 900), // across the blocks
                             "a" + Repeated(u"\u0301", 1500) + "b",        // marks without an end
                             Repeated(u"\u1100", 2100) + QChar(0x1161),    // leading consonants
                             Repeated(u"x\u65E5e\u0301\t", 1000),          // no long stretch
                             Repeated(u"abc \u0431", 1500), // runs longer than are read at once
                             "abc" + Repeated(u"\U0001F469\u200D", 1100) + "\tx"};
    for (const QString &line : lines) {
        SCOPED_TRACE(&line - lines);
        ExpectAgreement(line, Wide, 17);
    }
}

TEST(Cells, BehindTheLargestNumberEachCellIsTheLargest)
{
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(ZtCellOf(u"\t\ta", 1, {most, true, false}), most);
    EXPECT_EQ(ZtCellOf(u"\t\ta", 2, {most, true, false}), most);
}
