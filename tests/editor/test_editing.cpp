#include "marked_text.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include <climits>

namespace {

// What is typed, erased and undone step by step is the random run's; the rows are about what needs
// to be told by name.
struct TRow {
    const char *Name, *Before, *Do, *After;
    int Undos = 0; ///< when given, how many undos lead back to the text and the caret of `Before`
    const char *Clipboard = "";
};

constexpr TRow Rows[] = {
    {"a pair is one change", "a|b", "\U0001F600", "a\U0001F600|b", 1},
    {"one undo of Enter leaves the blank out", "    foo |bar", "Enter #772", "    foob|ar"},
    {"Tab leaves the selected text", "a[b]c", "Tab", "ab  |c"},
    {"Backspace takes a pair", "a\U0001F600|b", "Backspace", "a|b", 1},
    {"Backspace falls back to an indentation", "a\n    y\n        |x", "Backspace",
     "a\n    y\n    |    x"},
    {"Backspace with a selection acts twice", "z\na[bc]d", "Backspace", "z\n|d", 2},
    {"Delete takes a pair", "a|\U0001F600b", "Delete", "a|b", 1},
    {"Left and Right take a pair", "a\U0001F600|", "Left Right Left", "a|\U0001F600"},
    {"Ctrl+Right goes to the next word", "|foo, bar", "Ctrl+Right", "foo, |bar"},
    {"Ctrl+Right stops at the line's end", "fo|o\nbar", "Ctrl+Right", "foo|\nbar"},
    {"Ctrl+Right from the line's end", "a b\nfoo|\nbar\nx", "Ctrl+Right", "a b\nfoo\n|bar\nx"},
    {"Ctrl+Right in the last line", "a b|\n. ", "Ctrl+Right Ctrl+Right", "a b\n. |"},
    {"Ctrl+Left skips the letter at the caret", "foo b|ar", "Ctrl+Left", "|foo bar"},
    {"Ctrl+Left to the word's start", "foo bar|", "Ctrl+Left", "foo |bar"},
    {"Ctrl+Left in column 1", "foo\nb|ar", "Ctrl+Left", "foo\n|bar"},
    {"Ctrl+Left crosses to a line's end", "foo bar\n|x", "Ctrl+Left", "foo bar|\nx"},
    {"Ctrl+Left with no word above", " .\n\n|x", "Ctrl+Left", "| .\n\nx"},
    {"a character above 255 is a word's", "\u0416|\u0416 x", "Ctrl+Right", "\u0416\u0416 |x"},
    {"a cut of nothing empties the clipboard", "a[b]c", "Ctrl+C Left #768", "a|bc"},
    {"paste over a selection is two changes", "a[b]c", "Ctrl+C #770", "ab|c", 2, "b"},
    {"Shift+Insert pastes", "[ab]", "Ctrl+Insert End Shift+Insert", "abab|", 0, "ab"},
    {"F11 is Ctrl+Z too", "a|", "b Ctrl+F11", "a|"},
    {"the word under the caret", "foo_b|ar1 baz", "#1025", "[foo_bar1] baz"},
    {"the last word of a line", "x b|az", "#1025", "x [baz]"},
    {"no word at a line's end", "baz|", "#1025", "baz|"},
    {"a blank behind a word", "foo| bar", "#1025", "[foo] bar"},
    {"letters above 127 end a word", "ab\u00E9c|d", "#1025", "ab\u00E9[cd]"},
    {"two CRs are one break", "a|b", "insert:x\r\ry", "ax\ny|b", 1},
    {"a split trims nothing", "a~|", "insert:\r\n\r", "a \n\n|"},
    {"a click", "[abcdef\ngh]ijkl", "click@2,0", "ab|cdef\nghijkl"},
    {"Shift and a click", "ab|cdef\nghijkl", "Shift+click@4,1", "ab[cdef\nghij]kl"},
    {"a click right of and below the text", "|ab", "click@4,6", "ab~~|"},
    {"a drag starts in the move's column and the press's line", "abcd\nefgh\nijkl|",
     "press@1,0 move@3,1", "abc[d\nefg]h\nijkl"},
    {"a drag goes on from there", "abcd\nefgh\nijkl|",
     "press@1,0 move@3,1 move@2,2 release@2,2 move@0,0", "abc[d\nefgh\nij]kl"},
    {"a key after a drag", "abcd|", "press@1,0 move@2,0 move@3,0 release@3,0 Right", "abcd|"},
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
        const QString before = Rig.MarkedCaret();
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
            Rig.Send(772);
        EXPECT_EQ(Rig.MarkedCaret(), before) << "undone";
    }
}

TEST_F(TEditing, OrderOfEvents)
{
    const struct {
        const char *Before, *Do, *Events, *Posted;
    } rows[] = {
        {"ab|", "x", "CCML", ""},                   // the deletion of nothing, then the character
        {"a[b]c", "x", "CLMMCML", ""},              // the deletion, then the character
        {"ab|", "Enter", "CCLLMMLM", ""},           // break, line, column, indentation
        {"|", "Enter", "CCLLMM", ""},               // no line above to indent by
        {"ab|", "Backspace", "CLM", ""},            // the backspace itself is no change
        {"ab\n|c", "Backspace", "CMLLM", ""},       // column, join, line
        {"a\n  |b", "Backspace", "CLM", ""},        // nothing to fall back to
        {"|ab", "Delete", "CLMM", ""},              //
        {"a|b", "Tab", "CML", ""},                  // nothing is deleted first
        {"|ab", "Left", "", ""},                    //
        {"a|\nb", "Down", "M", ""},                 //
        {"a|", "Ctrl+A", "MM", ""},                 //
        {"a|b", "Ctrl+X", "C", "768:0"},            // nothing to cut
        {"a|b", "x Ctrl+Z", "CCMLCLMMMM", "772:0"}, // the undo deletes, then places the caret
        {"a|b", "insert:x\ry", "CLLMMLLM", ""},
        {"a|", "click@0,0", "MM", ""},
        {"a\nb|", "click@-2,1", "MMMM", ""}, // column 0, the line above, the outer move, the line
        {"|", "Ctrl+f", "", "1026:0"},
        {"|", "Ctrl+r", "", "1026:1"},
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
    // The recorded places are used as they are, also after the text was replaced.
    Rig.SetMarked("a\nbc|");
    Rig.Do("Backspace x");
    Edit.SetText("one\r\ntwo");
    Rig.Do("#772");
    EXPECT_EQ(Rig.Marked(), "one\nt|o");
    Edit.SetText("one");
    Rig.Do("#772");
    EXPECT_EQ(Rig.Errors.size(), 1) << "line 1 is gone";
    EXPECT_FALSE(Edit.GetCanUndo());
    EXPECT_EQ(Edit.GetText(), "one\r\n");
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
    Rig.Do("insert:x");
    Edit.AddTxt("\r");
    EXPECT_EQ(Rig.Marked(), "z\na[bc]d");
    EXPECT_EQ(Rig.Events, "");
    EXPECT_FALSE(Edit.GetModified() || Edit.GetCanUndo());
    Rig.Do("Ctrl+C x");
    EXPECT_EQ(Rig.Marked(), "z\nabc|d") << "typing still empties the selection";
    EXPECT_EQ(Rig.Clipboard, "bc");
    Rig.Do("#768");
    EXPECT_FALSE(Edit.GetCanPaste());
    Rig.Do("Backspace");
    EXPECT_EQ(Rig.Marked(), "z\nab|d") << "only the backspace at the caret works";
    Rig.Do("x #772");
    EXPECT_EQ(Rig.Marked(), "z\nabc|d") << "what is put back is not asked for";
}

TEST_F(TEditing, SelectionsAtAndBelowTheEnd)
{
    // Anchor and end in "ab\ncdefghijkl", what `SelLength` and `DeleteSelected` make of it.
    const struct {
        QPoint Anchor, End;
        int Length;
        const char *Deleted, *After;
    } rows[] = {
        {{1, 0}, {3, 7}, INT_MAX, "b\r\ncdefghijkl\r\n", "a"},
        {{4, 9}, {2, 7}, 0, "", "ab\r\ncdefghijkl\r\n"}, // below the text
        {{INT_MAX, 0}, {4, 1}, 4 + 2 - INT_MAX, "\r\ncdef", "abghijkl"},
        {{-5, 0}, {3, 1}, 10, "ab\r\ncde", "fghijkl"}, // columns below 0 are the line's start
        {{2, -1}, {1, 0}, 0, "", "ab\r\ncdefghijkl"},
        {{INT_MAX, 1}, {1, 0}, 0, "", "ab\r\ncdefghijkl"},
        {{-1, -1}, {1, 0}, 0, "", "ab\r\ncdefghijkl"},
        {{4, 1}, {2, 1}, 8, "ef", "ab\r\ncdghijkl"}, // counted to the line's end
        {{1, 0}, {3, 1}, 4, "b\r\ncde", "afghijkl"}, // the break is not counted
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Deleted);
        Rig.SetMarked("ab\ncdefghijkl|");
        const auto select = [&] {
            Edit.SetSelEnd(row.Anchor);
            Edit.SetSelStart(row.End);
        };
        select();
        EXPECT_EQ(Edit.SelLength(), row.Length);
        Rig.SetMarked("ab\ncdefghijkl|");
        const QString before = Edit.GetText();
        select();
        QString text;
        Edit.DeleteSelected(TZtChangeType::ctDelete, text);
        EXPECT_EQ(text, row.Deleted);
        EXPECT_EQ(Edit.GetText(), row.After + QString("\r\n"));
        if (!text.isEmpty() && row.End.y() < 2) {
            Rig.Do("#772");
            EXPECT_EQ(Edit.GetText(), before);
        }
    }
    Rig.SetMarked("a[b]c");
    Edit.SetTabIndentSize(-2);
    Rig.Do("Tab");
    EXPECT_EQ(Rig.Marked(), "ab|c") << "no blanks, but the selection is empty";
}

TEST_F(TEditing, TheViewAndTheCaretsMark)
{
    Rig.SetMarked("abc|");
    const int x = Edit.GetGuttorWidth() + 3 * Edit.GetCharWidth() + 2;
    EXPECT_EQ(Edit.GetCaret()->Rect(), QRect(x, 0, 2, Edit.GetLineWidth()));
    Rig.V->SetPosition(1);
    EXPECT_TRUE(Edit.GetCaret()->Rect().isEmpty());
    Rig.V->SetPosition(0);
    Edit.clearFocus();
    Edit.SetCharPos(1);
    EXPECT_TRUE(Edit.GetCaret()->Rect().isEmpty());
    Rig.Events.clear();
    Edit.setFocus();
    EXPECT_FALSE(Edit.GetCaret()->Rect().isEmpty());
    EXPECT_EQ(Rig.Events, "M");
    Rig.Do("Right*510");
    EXPECT_EQ(Edit.GetCharPos(), 500);
    EXPECT_EQ(Rig.H->GetPosition(), 500 - Rig.H->GetPageSize());
    // A drag above the text scrolls.
    Edit.SetText(QStringLiteral("line\r\n").repeated(60));
    Edit.SetLinePos(40);
    const int top = Rig.V->GetPosition();
    Rig.Do("press@1,2 move@1,-3");
    EXPECT_EQ(Rig.V->GetPosition(), top - 2);
    EXPECT_EQ(Edit.GetLinePos(), top - 2);
    // The hidden gutter counts for `CalcCursor` alone.
    Rig.Do("release@1,1");
    Edit.SetOptions({});
    Rig.V->SetPosition(5);
    Rig.Do("click@2,0");
    EXPECT_EQ(QPoint(Edit.GetCharPos(), Edit.GetLinePos()), QPoint(2, 5));
    int column = Edit.GetGuttorWidth() + 3 * Edit.GetCharWidth();
    int line = 2 * Edit.GetLineWidth();
    Edit.CalcCursor(column, line);
    EXPECT_EQ(QPoint(column, line), QPoint(3, 7));
}

TEST_F(TEditing, TheWheelScrollsTheViewAlone)
{
    Edit.SetText(QStringLiteral("line\r\n").repeated(60));
    Rig.Events.clear();
    const int lines = ZtPlatform().WheelLines();
    const std::pair<const char *, int> rows[] = {
        {"wheel-120*2", 2},
        {"wheel120", 1},
        {"wheel-40*3", 2},       // three thirds of a notch
        {"wheel-80 wheel80", 2}, // turning round starts anew
        {"#522", 3},             // a delta of 0 counts as downwards
    };
    for (const auto &[words, notches] : rows) {
        Rig.Do(words);
        EXPECT_EQ(Rig.V->GetPosition(), notches * lines) << words;
    }
    Rig.Do("wheel-120*100");
    EXPECT_EQ(Rig.V->GetPosition(), 160);
    EXPECT_EQ(Rig.Events, "");
    for (const auto &[setting, expected] : {std::pair(0, 3), {-1, 3}, {7, 7}}) {
        ZtPlatform().WheelLines = [value = setting] { return value; };
        EXPECT_EQ(TZtCodeEdit().GetScollLines(), expected);
    }
}

TEST_F(TEditing, ARightClickOpensTheMenu)
{
    QMenu menu;
    menu.addAction("x");
    Edit.SetPopupMenu(&menu);
    SendMouse(Edit, QEvent::MouseButtonPress, QPoint(40, 10), Qt::RightButton);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), Edit.mapToGlobal(QPoint(40, 10)));
    menu.close();
}
