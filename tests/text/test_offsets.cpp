// A text counted as one string, beside the string itself.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its seed.

#include "random_edits.h"
#include "uZtTextOffsets.h"
#include "uZtTextUnits.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Offsets, AreThoseOfOneStringAfterAnyEdits)
{
    const int longRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    const auto seed = unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED"));
    for (const int lines : {20, 400}) {
        TStringList text;
        TRandomEdits edits(text, seed, lines);
        const TZtTextOffsets offsets(&text);
        for (int step = 0; step < (longRun > 0 ? longRun : 3'000); ++step) {
            edits.One();
            qint64 before = 0;
            const int place = edits.Below(text.GetCount() + 1);
            for (int i = 0; i < place; ++i)
                before += text.GetLength(i) + 1;
            qint64 count = before;
            for (int i = place; i < text.GetCount(); ++i)
                count += text.GetLength(i) + 1;
            count -= count > 0;
            ASSERT_EQ(offsets.GetCount(), count) << step;
            ASSERT_EQ(offsets.OffsetOf({0, place}), std::min(before, count)) << step;
            if (place == text.GetCount())
                continue;
            const int column = edits.Below(text.GetLength(place) + 1);
            ASSERT_EQ(offsets.OffsetOf({column, place}), before + column) << step;
            ASSERT_EQ(offsets.PlaceOf(before + column), QPoint(column, place)) << step;
        }
    }
}

TEST(Offsets, OutsideTheTextTheyArePutInside)
{
    TStringList text;
    const TZtTextOffsets offsets(&text);
    EXPECT_EQ(offsets.OffsetOf({5, 5}), 0);
    EXPECT_EQ(offsets.PlaceOf(7), QPoint(0, 0));
    text.SetText(u"one\n\nthree"_s);
    EXPECT_EQ(offsets.OffsetOf({9, 0}), 3);
    EXPECT_EQ(offsets.OffsetOf({-1, 2}), 5);
    EXPECT_EQ(offsets.OffsetOf({0, 3}), 10);
    EXPECT_EQ(offsets.OffsetOf({0, -1}), 0);
    EXPECT_EQ(offsets.PlaceOf(-4), QPoint(0, 0));
    EXPECT_EQ(offsets.PlaceOf(99), QPoint(5, 2));
}

TEST(Offsets, UnitsOfALineHoldTheColumn)
{
    struct TRow {
        QString Line;
        int Column;
        TZtTextUnit Unit;
        std::pair<int, int> Expected;
    };
    using enum TZtTextUnit;
    const TRow rows[] = {
        {u"foo.bar(1)"_s, 1, tuWord, {0, 3}},
        {u"foo + bar"_s, 0, tuWord, {0, 3}},
        {u"foo + bar"_s, 4, tuWord, {3, 6}},
        {u"foo + bar"_s, 8, tuWord, {6, 9}},
        {u"One. Two."_s, 2, tuSentence, {0, 5}},
        {u"One. Two."_s, 5, tuSentence, {5, 9}},
        {u"e\u0301x"_s, 1, tuCharacter, {0, 2}},
        {u"\U0001F600x"_s, 1, tuCharacter, {0, 2}},
        {u"\U0001F600x"_s, 2, tuCharacter, {2, 3}},
        {u"x"_s, 1, tuCharacter, {1, 1}},
        {QString(5000, u'x'), 4000, tuWord, {1952, 5000}},
    };
    for (const TRow &row : rows)
        EXPECT_EQ(ZtUnitAt(row.Line, row.Column, row.Unit), row.Expected)
            << row.Line.left(20).toStdString() << " " << row.Column;
}
