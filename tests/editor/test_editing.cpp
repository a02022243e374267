#include "marked_text.h"

#include "uZtCaret.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include <climits>

namespace {

// What is typed, erased and undone step by step is the random run's; the rows are about what needs
// to be told by name.
struct TRow {
    const char *Name, *Before, *Do, *After;
    int Undos = 0; ///< when given, how many undos lead back to the text of `Before`
    const char *Clipboard = "";
};

constexpr TRow Rows[] = {
    {"a pair is one change", "a|b", "\U0001F600", "a\U0001F600|b", 1},
    {"a tab indents nothing", "\tx|", "Enter", "\tx\n|"},
    {"Ctrl+Right goes to the next word", "|foo, bar", "Ctrl+Right", "foo, |bar"},
    {"Ctrl+Right from the line's end", "a b\nfoo|\nbar\nx", "Ctrl+Right", "a b\nfoo\n|bar\nx"},
    {"Ctrl+Right in the last line", "a b|\n. ", "Ctrl+Right Ctrl+Right", "a b\n. |"},
    {"Ctrl+Left skips the letter at the caret", "foo b|ar", "Ctrl+Left", "|foo bar"},
    {"Ctrl+Left to the word's start", "foo bar|", "Ctrl+Left", "foo |bar"},
    {"Ctrl+Left crosses to a line's end", "foo bar\n|x", "Ctrl+Left", "foo bar|\nx"},
    {"a character above 255 is a word's", "\u0416|\u0416 x", "Ctrl+Right", "\u0416\u0416 |x"},
    {"paste over a selection is two changes", "a[b]c", "Ctrl+C #770", "ab|c", 2, "b"},
    {"Shift+Insert pastes", "[ab]", "Ctrl+Insert End Shift+Insert", "abab|", 0, "ab"},
    {"F11 is Ctrl+Z too", "a|", "b Ctrl+F11", "a|"},
    {"the word under the caret", "foo_b|ar1 baz", "#1025", "[foo_bar1] baz"},
    {"the last word of a line", "x b|az", "#1025", "x [baz]"},
    {"no word at a line's end", "baz|", "#1025", "baz|"},
    {"a blank behind a word", "foo| bar", "#1025", "[foo] bar"},
    {"two CRs are one break", "a|b", "insert:x\r\ry", "ax\ny|b", 1},
    {"a click", "[abcdef\ngh]ijkl", "click@2,0", "ab|cdef\nghijkl"},
    {"Shift and a click", "ab|cdef\nghijkl", "Shift+click@4,1", "ab[cdef\nghij]kl"},
    {"a drag goes on from there", "abcd\nefgh\nijkl|",
     "press@1,0 move@3,1 move@2,2 release@2,2 move@0,0", "abc[d\nefgh\nij]kl"},
    {"a click beside the text", "abc\ndef\nghi|", "click@-2,1", "abc\n|def\nghi"},
    {"a double click", "foo_bar1 baz|", "double@4,0", "[foo_bar1] baz"},
    {"a right click moves nothing", "abc[def]", "right@1,0", "abc[def]"},
};

class TEditing : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
};

} // namespace

TEST_F(TEditing, Rows)
{
    for (const TRow &row : Rows) {
        SCOPED_TRACE(row.Name);
        Rig.SetMarked(row.Before);
        const QString before = Edit.GetText();
        Rig.Clipboard.clear();
        const int undos = Edit.GetUndoList()->GetCount();
        Rig.Do(row.Do);
        EXPECT_EQ(Rig.Marked(), QString(row.After));
        EXPECT_EQ(Rig.Clipboard, row.Clipboard);
        EXPECT_TRUE(Rig.Errors.isEmpty());
        if (row.Undos == 0)
            continue;
        EXPECT_EQ(Edit.GetUndoList()->GetCount() - undos, row.Undos);
        for (int i = 0; i < row.Undos; ++i)
            Rig.Do("#772");
        EXPECT_EQ(Edit.GetText(), before) << "undone";
    }
}

TEST_F(TEditing, OrderOfEvents)
{
    const struct {
        const char *Before, *Do, *Events, *Posted;
    } rows[] = {
        {"a[b]c", "x", "CLMMCML", ""},              // the deletion, then the character
        {"ab|", "Enter", "CCLLMMLM", ""},           // break, line, column, indentation
        {"ab|", "Backspace", "CLM", ""},            // the backspace itself is no change
        {"ab\n|c", "Backspace", "CMLLM", ""},       // column, join, line
        {"a|b", "Tab", "CML", ""},                  // nothing is deleted first
        {"a|b", "Ctrl+X", "C", "768:0"},            // nothing to cut
        {"a|b", "x Ctrl+Z", "CCMLCLMMMM", "772:0"}, // the undo deletes, then places the caret
        {"a|b", "insert:x\ry", "CLLMMLLM", ""},
        {"a\nb|", "click@-2,1", "MMMM", ""}, // column 0, the line above, the outer move, the line
        {"|", "Ctrl+f", "", "1026:0"},
        {"|", "F3 Shift+F3", "", "1027:0 1027:0"},
        {"|", "r", "CCML", "1027:0"}, // R searches again and is typed
    };
    for (const auto &row : rows) {
        Rig.SetMarked(row.Before);
        Rig.Do(row.Do);
        EXPECT_EQ(Rig.Events, row.Events) << row.Before << ' ' << row.Do;
        EXPECT_EQ(Rig.Posted.join(u' '), row.Posted) << row.Before << ' ' << row.Do;
    }
}

TEST_F(TEditing, HandlersSeeTheOldTextAndMayTakeBackWhatWasHandedOver)
{
    Rig.SetMarked("ab|");
    QString seen;
    Edit.SetOnChange([&](QObject *) { seen += Edit.GetText(); });
    Edit.AddTxt("c");
    EXPECT_EQ(seen, "ab\r\n");
    for (const bool typed : {true, false}) {
        Rig.SetMarked("a|b");
        QString pending = "xyz";
        Edit.SetOnChange([&](QObject *) { pending.clear(); });
        typed ? Edit.AddTxt(pending) : Edit.InsertText(TZtChangeType::ctPaste, pending);
        EXPECT_EQ(Edit.GetText(), "axyzb\r\n");
    }
}

TEST_F(TEditing, KeysThatAHostsShortcutDoesNotTake)
{
    const struct {
        int Key;
        Qt::KeyboardModifiers Modifiers;
        const char16_t *Text;
        bool Editors;
    } rows[] = {
        {Qt::Key_A, {}, u"a", true},          {Qt::Key_Z, Qt::ControlModifier, u"\x1a", true},
        {Qt::Key_Left, {}, u"", true},        {Qt::Key_G, Qt::ControlModifier, u"\x07", false},
        {Qt::Key_Escape, {}, u"\x1b", false}, {Qt::Key_F5, {}, u"", false},
    };
    for (const auto &row : rows) {
        QKeyEvent event(QEvent::ShortcutOverride, row.Key, row.Modifiers,
                        QString::fromUtf16(row.Text));
        event.ignore();
        QCoreApplication::sendEvent(&Edit, &event);
        EXPECT_EQ(event.isAccepted(), row.Editors) << row.Key;
    }
}

TEST_F(TEditing, AddCodeGoesBeforeTheLastLine)
{
    Rig.SetMarked("a|\nb");
    Edit.AddCode("x");
    EXPECT_EQ(Rig.Marked(), "a\nx|b");
    Edit.InsertCode(70, 1, "y\r\n");
    EXPECT_EQ(Rig.Marked(), "a\nxy\n|b");
    Edit.InsertCode(-3, 3, "z");
    EXPECT_EQ(Rig.Marked(), "a  z|\nxy\nb");
}

TEST_F(TEditing, UndoKeepsTheLastHundredChanges)
{
    Rig.SetMarked("|");
    Rig.Do("a*150 #772*101");
    EXPECT_EQ(Rig.Marked(), QString(50, u'a') + u'|');
    EXPECT_FALSE(Edit.GetCanUndo());
    Edit.GetUndoList()->AddUndo(TZtChangeType::ctNone, {}, {}, {}, {});
    EXPECT_THROW(Edit.GetUndoList()->Undo(), EZtException);
    EXPECT_TRUE(Edit.GetCanUndo());
}

TEST_F(TEditing, ReadOnly)
{
    Rig.SetMarked("z\na[bc]d");
    Edit.SetReadOnly(true);
    Edit.SetModified(false);
    QString deleted = "kept";
    Edit.DeleteSelected(TZtChangeType::ctCut, deleted);
    EXPECT_EQ(deleted, "kept");
    Rig.Do("insert:x Ctrl+X");
    Edit.AddTxt("\r");
    EXPECT_EQ(Rig.Marked(), "z\na[bc]d");
    EXPECT_EQ(Rig.Events, "");
    EXPECT_FALSE(Edit.GetModified() || Edit.GetCanUndo() || Edit.GetCanPaste());
}

TEST_F(TEditing, SelectionsAtAndBelowTheEnd)
{
    // Anchor and end in "ab\ncdefghijkl", what `SelLength` and `DeleteSelected` make of it.
    const struct {
        QPoint Anchor, End;
        int Length;
        const char *Deleted, *After;
    } rows[] = {
        {{INT_MAX, 0}, {4, 1}, 4 + 2 - INT_MAX, "\r\ncdef", "abghijkl"},
        {{-5, 0}, {3, 1}, 10, "ab\r\ncde", "fghijkl"}, // columns below 0 are the line's start
        {{INT_MAX, 1}, {1, 0}, 0, "", "ab\r\ncdefghijkl"},
        {{4, 1}, {2, 1}, 8, "ef", "ab\r\ncdghijkl"}, // counted to the line's end
        {{1, 0}, {3, 1}, 4, "b\r\ncde", "afghijkl"}, // the break is not counted
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Deleted);
        Rig.SetMarked("ab\ncdefghijkl|");
        const QString before = Edit.GetText();
        Edit.SetSelEnd(row.Anchor);
        Edit.SetSelStart(row.End);
        EXPECT_EQ(Edit.SelLength(), row.Length);
        QString text;
        Edit.DeleteSelected(TZtChangeType::ctDelete, text);
        EXPECT_EQ(text, row.Deleted);
        EXPECT_EQ(Edit.GetText(), row.After + QString("\r\n"));
        if (!text.isEmpty()) {
            Rig.Do("#772");
            EXPECT_EQ(Edit.GetText(), before);
        }
    }
    Rig.SetMarked("[ab]");
    Edit.SetSelStart({3, 7});
    EXPECT_EQ(Edit.SelLength(), INT_MAX);
    EXPECT_EQ(Edit.GetText(), "ab\r\n\r\n") << "a selection that ends below adds a line";
    Rig.SetMarked("-");
    Edit.SetSelStart({5, 5});
    Rig.Do("Shift+End");
    EXPECT_EQ(Edit.GetSelStart(), QPoint()) << "the caret, which does not move";
}

TEST_F(TEditing, TheViewAndTheCaretsMark)
{
    const auto mark = [this] { return Edit.GetCaret()->Rect(); };
    Rig.SetMarked("abc|");
    const int x = Edit.GetGuttorWidth() + 3 * Edit.GetCharWidth() + 2;
    EXPECT_EQ(mark(), QRect(x, 0, 2, Edit.GetLineWidth()));
    Rig.V->SetPosition(1);
    EXPECT_TRUE(mark().isEmpty());
    Rig.V->SetPosition(0);
    Edit.clearFocus();
    EXPECT_TRUE(mark().isEmpty());
    Rig.Events.clear();
    Edit.setFocus();
    EXPECT_FALSE(mark().isEmpty());
    EXPECT_EQ(Rig.Events, "M");
    // A drag above the text scrolls.
    Edit.SetText(QStringLiteral("line\r\n").repeated(60));
    Edit.SetLinePos(40);
    const int top = Rig.V->GetPosition();
    Rig.Do("press@1,2 move@1,-3 release@1,1");
    EXPECT_EQ(Rig.V->GetPosition(), top - 2);
    EXPECT_EQ(Edit.GetLinePos(), top - 2);
    Edit.SetOptions({});
    Rig.V->SetPosition(5);
    Rig.Do("click@2,0");
    EXPECT_EQ(QPoint(Edit.GetCharPos(), Edit.GetLinePos()), QPoint(2, 5)) << "without the gutter";
}

TEST_F(TEditing, TheWheelScrollsTheViewAlone)
{
    Edit.SetText(QStringLiteral("line\r\n").repeated(60));
    Rig.Events.clear();
    const int lines = Edit.GetScollLines();
    const std::pair<const char *, int> rows[] = {
        {"wheel-120*2", 2},
        {"wheel120", 1},
        {"wheel-40*3", 2},               // three thirds of a notch
        {"wheel-80 wheel80 wheel40", 1}, // turning round starts anew
        {"#522", 2},                     // a delta of 0 counts as downwards
    };
    for (const auto &[words, notches] : rows) {
        Rig.Do(words);
        EXPECT_EQ(Rig.V->GetPosition(), notches * lines) << words;
    }
    EXPECT_EQ(Rig.Events, "");
}

TEST_F(TEditing, ARightClickOpensTheMenu)
{
    QMenu menu;
    menu.addAction("x");
    Edit.SetPopupMenu(&menu);
    Rig.Do("right@2,0");
    const int x = Edit.GetGuttorWidth() + 2 * Edit.GetCharWidth() + Edit.GetCharWidth() / 2;
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), Edit.mapToGlobal(QPoint(x, Edit.GetLineWidth() / 2)));
    menu.close();
}
