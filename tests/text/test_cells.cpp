#include "uZtCells.h"

#include <QString>

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace {

constexpr TZtCellRules Plain{8, false, false};
constexpr TZtCellRules Tabs{4, true, false};
constexpr TZtCellRules Wide{4, true, true};

// "length:width" of each cluster, where that is not "1:1", which is ".". Each other way through the
// line has to agree, also behind its end; it is asked for every `AStep`th cluster.
std::string Clusters(QAnyStringView ALine, const TZtCellRules &ARules, int AStep = 1)
{
    std::string text;
    int column = 0, cell = 0, index = 0;
    ZtForEachCluster(ALine, ARules, [&](int AStart, int ALength, int ACell, int AWidth) {
        EXPECT_EQ(AStart, column);
        EXPECT_EQ(ACell, cell);
        column += ALength;
        cell += AWidth;
        const std::string size = std::to_string(ALength) + ":" + std::to_string(AWidth);
        text += size == "1:1" ? "." : " " + size + " ";
        if (index++ % AStep != 0)
            return;
        for (int i = AStart; i < column; ++i) {
            EXPECT_EQ(ZtCellOf(ALine, i, ARules), ACell) << i;
            EXPECT_EQ(ZtNextCluster(ALine, i, ARules), column) << i;
            EXPECT_EQ(ZtPreviousCluster(ALine, i + 1, ARules), AStart) << i;
        }
        for (int i = ACell; i < cell; ++i)
            EXPECT_EQ(ZtColumnAt(ALine, i, ARules), AStart) << i;
    });
    EXPECT_EQ(column, ALine.size());
    for (const int behind : {0, 7}) {
        EXPECT_EQ(ZtCellOf(ALine, column + behind, ARules), cell + behind);
        EXPECT_EQ(ZtColumnAt(ALine, cell + behind, ARules), column + behind);
        EXPECT_EQ(ZtNextCluster(ALine, column + behind, ARules), column + behind + 1);
        EXPECT_EQ(ZtPreviousCluster(ALine, column + behind + 1, ARules), column + behind);
    }
    EXPECT_EQ(ZtPreviousCluster(ALine, 0, ARules), 0);
    return text;
}

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
        {u"a\xD83Dz\xDE00\xD83D", Wide, "....."},
        {u"a\xD83Dz\xDE00\xD83D", Plain, "....."},
        {u"\x01\x0\x1F\x7F\x85\r\n\u2028"sv, Wide, "........"},
        {u"z\tz\xE9\xAD\x01\r\n\t \xA9", Plain, "..........."},
        {u"z\tz\xE9\xAD\x01\r\n\t \xA9", Wide, ". 1:3 ...... 1:2 .."},
        {u"\u0430\u0431\u0301\u0432 \u03B1", Wide, ". 2:1 ..."},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        EXPECT_EQ(Clusters(QStringView(row.Line), row.Rules), row.Clusters);
        const QByteArray latin1 = QStringView(row.Line).toLatin1();
        if (QString::fromLatin1(latin1) == QStringView(row.Line)) {
            EXPECT_EQ(Clusters(QLatin1StringView(latin1), row.Rules), row.Clusters);
        }
    }
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(ZtCellOf(u"\t\ta", 1, {most, true, false}), most);
    EXPECT_EQ(ZtCellOf(u"\t\ta", 2, {most, true, false}), most) << "no cell is behind the largest";
}

TEST(Cells, EveryWayThroughALongLineAgrees)
{
    const QString lines[] = {u"\U0001F1E9\U0001F1EA"_s.repeated(900),       // flags
                             "x" + u"\U0001F1E9\U0001F1EA"_s.repeated(900), // across the blocks
                             "a" + u"\u0301"_s.repeated(1500) + "b",        // marks without an end
                             u"\u1100"_s.repeated(2100) + QChar(0x1161),    // leading consonants
                             u"x\u65E5e\u0301\t"_s.repeated(1000),          // no long stretch
                             u"abc \u0431"_s.repeated(1500), // runs longer than are read at once
                             "abc" + u"\U0001F469\u200D"_s.repeated(1100) + "\tx"};
    for (const QString &line : lines) {
        SCOPED_TRACE(&line - lines);
        EXPECT_NE(Clusters(line, Wide, 17), "");
    }
}
