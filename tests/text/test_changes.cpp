// Random changes of a text, beside plain models of what stands on them.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its seed.

#include "uZtAnchors.h"
#include "uZtUndoHistory.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

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

class TChanges : public testing::Test {
protected:
    TStringList Text;
    std::mt19937 Random;

    int Below(int ACount) { return int(Random() % unsigned(ACount)); }
    QPoint AnyPlace()
    {
        const int y = Below(Text.GetCount() + 1);
        return y == Text.GetCount() ? Text.GetEnd() : QPoint(Below(Text.GetLength(y) + 1), y);
    }
    QString AnyText()
    {
        static const QStringList texts = {"", "x", "ab", "\r\n", "a\nb", "\n\n", "one\rtwo\nthree"};
        return texts[Below(int(texts.size()))];
    }
    void Change()
    {
        const int kind = Below(20);
        const int line = Text.GetCount() > 0 ? Below(Text.GetCount()) : -1;
        if (kind == 0 || (kind < 4 && Text.GetCount() > 40)) {
            Text.SetText(AnyText() + AnyText());
        } else if (kind < 6) {
            Text.InsertObject(Below(Text.GetCount() + 1), "new", Below(9));
        } else if (kind < 8 && line >= 0) {
            Text.Delete(line);
        } else if (kind < 10 && line >= 0) {
            Text.SetStrings(line, Text.GetStrings(line).replace(u"a"_s, u"ba"_s));
        } else {
            QPoint from = AnyPlace(), to = AnyPlace();
            if (ZtIsBefore(to, from))
                std::swap(from, to);
            QString text = AnyText();
            if (to == Text.GetEnd()) {
                from.setX(0);
                text += text.isEmpty() || text.endsWith(u'\n') ? "" : "\n";
            }
            Text.ReplaceText(from, to, TZtTextPiece(text));
        }
    }
};

} // namespace

TEST_F(TChanges, UndoAndAnchorsAreExact)
{
    const int longRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    Random.seed(unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED")));
    TPlainAnchors plain;
    Text.AddListener(&plain);
    TZtAnchors anchors(&Text);
    TZtUndoHistory history(&Text);
    std::vector<TLines> states{LinesOf(Text)};
    size_t at = 0, saved = 0;
    TZtViewState view;
    for (int step = 0; step < (longRun > 0 ? longRun : 20'000); ++step) {
        const int kind = Below(16);
        if (kind < 10) {
            const auto before = LinesOf(Text);
            history.BeginStep(At(step));
            for (int i = Below(4); i >= 0; --i)
                Change();
            const auto now = LinesOf(Text);
            ASSERT_EQ(history.EndStep(At(step + 1)), now != before) << step;
            if (now != before) {
                saved = saved > at ? size_t(-1) : saved;
                states.resize(++at);
                states.push_back(now);
            }
        } else if (kind < 13) {
            ASSERT_EQ(history.Undo(view), at > 0);
            at -= at > 0;
        } else if (kind < 14) {
            ASSERT_EQ(history.Redo(view), at + 1 < states.size());
            at += at + 1 < states.size();
        } else if (kind < 15) {
            const auto side = Below(2) ? TZtAnchorSide::asBefore : TZtAnchorSide::asBehind;
            const QPoint place = AnyPlace();
            const int handle = anchors.Add(place, side);
            plain.Anchors[handle] = {place, side};
            if (plain.Anchors.size() > 50) {
                anchors.Remove(plain.Anchors.begin()->first);
                plain.Anchors.erase(plain.Anchors.begin());
            }
        } else {
            history.SetSaved();
            saved = at;
        }
        ASSERT_TRUE(LinesOf(Text) == states[at]) << step;
        ASSERT_EQ(history.IsSaved(), saved == at) << step;
        for (const auto &[handle, anchor] : plain.Anchors)
            ASSERT_EQ(anchors.GetPlace(handle), anchor.first) << step;
        const int first = Below(20), last = first + Below(5);
        qsizetype between = 0;
        for (const auto &[handle, anchor] : plain.Anchors)
            between += first <= anchor.first.y() && anchor.first.y() <= last;
        ASSERT_EQ(qsizetype(anchors.GetBetween(first, last).size()), between) << step;
    }
    while (history.Undo(view)) {
    }
    ASSERT_TRUE(LinesOf(Text) == states.front());
    while (history.Redo(view)) {
    }
    ASSERT_TRUE(LinesOf(Text) == states.back());
    Text.RemoveListener(&plain);
}

TEST_F(TChanges, TypedCharactersAreAStepUpToTheNextWord)
{
    Text.SetText("");
    Text.Add("");
    TZtUndoHistory history(&Text);
    TZtViewState view;
    const auto type = [&](const QString &S) {
        for (const QChar C : S) {
            const int x = Text.GetLength(0);
            history.BeginStep(At(x));
            Text.ReplaceInLine(0, x, 0, QStringView(&C, 1));
            history.EndStep(At(x + 1), TZtUndoJoin::ujTyped);
        }
    };
    const auto erase = [&] {
        const int x = Text.GetLength(0);
        history.BeginStep(At(x));
        Text.ReplaceInLine(0, x - 1, 1, {});
        history.EndStep(At(x - 1), TZtUndoJoin::ujErased);
    };
    QStringList seen;
    const auto undoAll = [&] {
        for (seen.clear(); history.Undo(view);)
            seen += u"%1@%2"_s.arg(Text.GetStrings(0)).arg(view.Caret.x());
        return seen.join(u'|');
    };
    type("one two  x");
    EXPECT_EQ(undoAll(), "one two  @9|one @4|@0");
    while (history.Redo(view)) {
    }
    EXPECT_EQ(Text.GetStrings(0), "one two  x");
    EXPECT_EQ(view.Caret.x(), 10);
    for (int i = 0; i < 3; ++i)
        erase();
    type("y");
    EXPECT_EQ(undoAll(), "one two@7|one two  x@10|one two  @9|one @4|@0");
    type("ab");
    history.SetSaved();
    type("c");
    history.SetPause(-1); // every moment is a pause
    type("d");
    EXPECT_EQ(undoAll(), "abc@3|ab@2|@0") << "what is saved can be come back to";
    history.Redo(view);
    EXPECT_TRUE(history.IsSaved());
}

TEST_F(TChanges, AnUpdateIsAStepAndTheOldestGoFirst)
{
    TZtUndoHistory history(&Text);
    TZtViewState view;
    Text.BeginUpdate();
    Text.Add("a");
    Text.Add("b");
    Text.EndUpdate();
    EXPECT_TRUE(history.Undo(view));
    EXPECT_FALSE(history.CanUndo());
    history.Redo(view);
    Text.SetText(QString(100'000, u'x'));
    EXPECT_LT(history.GetBytes(), 10'000) << "what was inserted takes nothing";
    Text.SetText("y");
    EXPECT_GT(history.GetBytes(), 100'000);
    history.SetSaved();
    history.SetMaxBytes(50'000);
    EXPECT_TRUE(history.Undo(view)) << "the last step stays, whatever it takes";
    EXPECT_EQ(Text.GetCount(), 1);
    EXPECT_FALSE(history.Undo(view));
    history.Redo(view);
    EXPECT_TRUE(history.IsSaved());
    Text.OnChanging = [](QObject *) { throw EZtException(u"no"_s); };
    EXPECT_THROW(history.Undo(view), EZtException);
    Text.OnChanging = nullptr;
    EXPECT_TRUE(history.CanUndo()) << "a step that was prevented stays";
}
