// Random changes of a text, beside plain models of what stands on them.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its seed.

#include "random_edits.h"
#include "uZtAnchors.h"
#include "uZtUndoHistory.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

using TLines = std::vector<std::pair<QString, int>>; // with the object slots

TLines LinesOf(const TStringList &AText)
{
    TLines lines;
    for (int i = 0; i < AText.GetCount(); ++i)
        lines.emplace_back(AText.GetStrings(i), AText.GetObjects(i));
    return lines;
}

TZtViewState At(int AColumn) { return {{AColumn, 0}, {AColumn, 0}, {AColumn, 0}, {}}; }

// Anchors that are all looked at, one by one.
class TPlainAnchors final : public TZtTextListener {
public:
    std::map<int, std::pair<QPoint, TZtAnchorSide>> Anchors;
    void TextChanged(const TStringList &, const TZtTextChange &AChange) override
    {
        for (auto &[handle, anchor] : Anchors)
            anchor.first = AChange.Map(anchor.first, anchor.second);
    }
};

QStringList TextOf(const TLines &ALines)
{
    QStringList text;
    for (const auto &line : ALines)
        text += line.first;
    return text;
}

struct TChanges : testing::Test {
    TStringList Text;
    TZtViewState View;
};

} // namespace

TEST_F(TChanges, UndoAndAnchorsAreExact)
{
    const int longRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    TRandomEdits edits(Text, unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED")));
    TPlainAnchors plain;
    Text.AddListener(&plain);
    TZtAnchors anchors(&Text);
    TZtUndoHistory history(&Text);
    std::vector<TLines> states{LinesOf(Text)};
    std::vector<size_t> texts{0}; // the same number where the object slots alone are others
    size_t at = 0, saved = 0, last = 0;
    for (int step = 0; step < (longRun > 0 ? longRun : 20'000); ++step) {
        const int kind = edits.Below(16);
        if (kind < 10) {
            history.BeginStep(At(step));
            for (int i = edits.Below(4); i >= 0; --i)
                edits.One();
            const auto now = LinesOf(Text);
            const bool changed = TextOf(now) != TextOf(states[at]);
            ASSERT_EQ(history.EndStep(At(step + 1)), changed) << step;
            if (now != states[at]) {
                states.resize(++at);
                states.push_back(now);
                texts.resize(at);
                texts.push_back(changed ? ++last : texts.back());
            }
        } else if (kind < 13) {
            ASSERT_EQ(history.Undo(View), at > 0);
            at -= at > 0;
        } else if (kind < 14) {
            ASSERT_EQ(history.Redo(View), at + 1 < states.size());
            at += at + 1 < states.size();
        } else if (kind < 15) {
            const auto side = edits.Below(2) ? TZtAnchorSide::asBefore : TZtAnchorSide::asBehind;
            const QPoint place = edits.Place();
            plain.Anchors[anchors.Add(place, side)] = {place, side};
            if (plain.Anchors.size() > 50)
                anchors.Remove(plain.Anchors.extract(plain.Anchors.begin()).key());
        } else {
            history.SetSaved();
            saved = texts[at];
        }
        ASSERT_TRUE(LinesOf(Text) == states[at]) << step;
        ASSERT_EQ(history.IsSaved(), saved == texts[at]) << step;
        const int first = edits.Below(20), end = first + edits.Below(5);
        qsizetype between = 0;
        for (const auto &[handle, anchor] : plain.Anchors) {
            ASSERT_EQ(anchors.GetPlace(handle), anchor.first) << step;
            between += first <= anchor.first.y() && anchor.first.y() <= end;
        }
        ASSERT_EQ(qsizetype(anchors.GetBetween(first, end).size()), between) << step;
    }
    Text.RemoveListener(&plain);
}

TEST_F(TChanges, TypedCharactersAreAStepUpToTheNextWord)
{
    Text.Add("");
    TZtUndoHistory history(&Text);
    const auto change = [&](int ARemove, QStringView S, TZtUndoJoin AJoin) {
        const int x = Text.GetLength(0);
        history.BeginStep(At(x));
        Text.ReplaceInLine(0, x - ARemove, ARemove, S);
        history.EndStep(At(Text.GetLength(0)), AJoin);
    };
    const auto type = [&](QStringView S) {
        for (const QChar &C : S)
            change(0, {&C, 1}, TZtUndoJoin::ujTyped);
    };
    const auto undoAll = [&] {
        QStringList seen;
        while (history.Undo(View))
            seen += u"%1@%2"_s.arg(Text.GetStrings(0)).arg(View.Caret.x());
        return seen.join(u'|');
    };
    type(u"one two  x");
    EXPECT_EQ(undoAll(), "one two  @9|one @4|@0");
    while (history.Redo(View)) {
    }
    EXPECT_EQ(Text.GetStrings(0), "one two  x");
    EXPECT_EQ(View.Caret.x(), 10);
    for (int i = 0; i < 3; ++i)
        change(1, {}, TZtUndoJoin::ujErased);
    type(u"y");
    EXPECT_EQ(undoAll(), "one two@7|one two  x@10|one two  @9|one @4|@0");
    type(u"ab");
    history.SetSaved();
    type(u"c");
    history.SetPause(-1); // every moment is a pause
    type(u"d");
    EXPECT_EQ(undoAll(), "abc@3|ab@2|@0") << "what is saved can be come back to";
    history.Redo(View);
    EXPECT_TRUE(history.IsSaved());
}

TEST_F(TChanges, AnUpdateIsAStepAndTheOldestGoFirst)
{
    TZtUndoHistory history(&Text);
    Text.BeginUpdate();
    Text.Add("a");
    Text.Add("b");
    Text.EndUpdate();
    EXPECT_TRUE(history.Undo(View));
    EXPECT_FALSE(history.CanUndo());
    history.Redo(View);
    Text.SetText(QString(100'000, u'x'));
    EXPECT_LT(history.GetBytes(), 10'000) << "what was inserted takes nothing";
    Text.SetText("y");
    EXPECT_GT(history.GetBytes(), 100'000);
    history.SetSaved();
    history.SetMaxBytes(50'000);
    EXPECT_TRUE(history.Undo(View)) << "the last step stays, whatever it takes";
    EXPECT_EQ(Text.GetCount(), 1);
    EXPECT_FALSE(history.Undo(View));
    history.Redo(View);
    EXPECT_TRUE(history.IsSaved());
    Text.OnChanging = [](QObject *) { throw EZtException(u"no"_s); };
    EXPECT_THROW(history.Undo(View), EZtException);
    Text.OnChanging = nullptr;
    EXPECT_TRUE(history.CanUndo()) << "a step that was prevented stays";
}
