#include "marked_text.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <climits>
#include <span>

namespace {

constexpr int NoUndo = 0;

struct TRow {
    const char *Name;
    const char *Before;
    const char *Keys;
    const char *After;
    int Undos = NoUndo; ///< how many undos lead back to the text and the caret of `Before`
    const char *Clipboard = "";
};

const TRow Typing[] = {
    {"in virtual space pads", "abc~~~|", "a", "abc   a|"},
    {"a trailing blank is not stored", "abc|", "Space", "abc~|"},
    {"replaces a selection", "a[bc]d", "x", "ax|d"},
    {"replaces a selection made backwards", "a]bc[d", "x", "ax|d"},
    {"a pair is one change", "a|b", "\U0001F600", "a\U0001F600|b", 1},
    {"into a text without lines", "-", "x", "x|"},
    {"control characters are dropped", "a|b", "\x01 \x1B", "a|b"},
    {"Enter in the middle indents", "    foo |bar", "Enter", "    foo\n    |bar"},
    {"one undo of Enter leaves the blank out", "    foo |bar", "Enter #772", "    foob|ar"},
    {"Enter takes the nearest indentation above", "  a\n\n   \n|b", "Enter", "  a\n\n   \n\n  |b"},
    {"Enter without a line above", "|", "Enter", "\n|", 1},
    {"Enter counts a tab as no space", "\tx|", "Enter", "\tx\n|", 1},
    {"Enter over a selection", "a[b\nc]d", "Enter", "a\n|d", 2},
    {"Tab inserts spaces", "a|b", "Tab", "a  |b", 1},
    {"Tab leaves the selected text", "a[b]c", "Tab", "ab  |c"},
};

const TRow Erasing[] = {
    {"Backspace in a word", "abc|d", "Backspace", "ab|d", 1},
    {"Backspace trims what stays", "ab c|", "Backspace", "ab~|"},
    {"Backspace takes a pair", "a\U0001F600|b", "Backspace", "a|b", 1},
    {"Backspace at the start of the text", "|ab", "Backspace", "|ab"},
    {"Backspace joins lines", "ab\n|cd", "Backspace", "ab|cd", 1},
    {"Backspace of a line's last character", "ab\nx|\nc", "Backspace", "ab|\nc"},
    {"Backspace of the first line's last character", "x|\nabc", "Backspace", "abc|"},
    {"Backspace falls back to an indentation", "a\n    y\n        |x", "Backspace",
     "a\n    y\n    |    x"},
    {"the first line's indentation does not count", "  a\n    |x", "Backspace", "  a\n   |x", 1},
    {"an empty line has no indentation", "a\n  y\n\n    |x", "Backspace", "a\n  y\n\n  |  x"},
    {"a line of one blank has one", "a\n \n  |x", "Backspace", "a\n \n|  x"},
    {"Backspace in virtual space", "a\nb~~~|", "Backspace", "a\nb|"},
    {"Backspace right of the first line", "ab~~|", "Backspace", "ab~|", 1},
    {"Backspace right of an empty first line", "~~|\nb", "Backspace", "~|\nb", 1},
    {"Backspace with a selection acts twice", "z\na[bc]d", "Backspace", "z\n|d", 2},
    {"Delete in a word", "a|bc", "Delete", "a|c", 1},
    {"Delete takes a pair", "a|\U0001F600b", "Delete", "a|b", 1},
    {"Delete at a line's end", "ab|\n cd", "Delete", "ab| cd", 1},
    {"Delete right of a line's end joins there", "ab~~|\ncd", "Delete", "abcd|"},
    {"Delete on a text without lines", "-", "Delete", "-"},
    {"Delete of a selection over lines", "a[b\n\nc]d", "Delete", "a|d"},
    {"Delete of a selection made backwards", "a]b\n\nc[d", "Delete", "a|d", 1},
    {"Delete keeps trailing blanks", "ab [c]", "Delete", "ab |"},
};

const TRow Moving[] = {
    {"Left stops at column 0", "a\n|b", "Left", "a\n|b"},
    {"Right goes past the end", "a|", "Right*3", "a~~~|"},
    {"Left and Right take a pair", "a\U0001F600|", "Left Right Left", "a|\U0001F600"},
    {"Down stays on the last line", "a\n|b", "Down*2", "a\n|b"},
    {"Up keeps the column", "a\nbcd|", "Up", "a~~|\nbcd"},
    {"Shift extends", "ab|cd", "Shift+Right Shift+Right", "ab[cd]"},
    {"Shift turns round", "ab|cd", "Shift+Right Shift+Left*2", "a]b[cd"},
    {"a move without Shift empties", "ab|cd", "Shift+Right Left", "ab|cd"},
    {"Shift+Home", "ab|cd", "Shift+Home", "]ab[cd"},
    {"Ctrl+Home", "ab\nc|d", "Ctrl+Home", "|ab\ncd"},
    {"Ctrl+End", "|ab\ncd", "Ctrl+End", "ab\ncd|"},
    {"Shift+End", "a|b", "Shift+End", "a[b]"},
    {"Ctrl+A", "a|b\ncd", "Ctrl+A", "[ab\ncd]"},
    {"Ctrl+A without lines", "-", "Ctrl+A", "-"},
    {"Ctrl+Right goes to the next word", "|foo, bar", "Ctrl+Right", "foo, |bar"},
    {"Ctrl+Right stops at the line's end", "fo|o\nbar", "Ctrl+Right", "foo|\nbar"},
    {"Ctrl+Right from the line's end", "a b\nfoo|\nbar\nx", "Ctrl+Right", "a b\nfoo\n|bar\nx"},
    {"Ctrl+Left skips the letter at the caret", "foo b|ar", "Ctrl+Left", "|foo bar"},
    {"Ctrl+Left to the word's start", "foo bar|", "Ctrl+Left", "foo |bar"},
    {"Ctrl+Left in column 1", "foo\nb|ar", "Ctrl+Left", "foo\n|bar"},
    {"Ctrl+Left crosses to a line's end", "foo bar\n|x", "Ctrl+Left", "foo bar|\nx"},
    {"Ctrl+Left with no word above", " .\n\n|x", "Ctrl+Left", "| .\n\nx"},
    {"Ctrl+Left at the start of the text", "|x", "Ctrl+Left", "|x"},
    {"a character above 255 is a word's", "\u0416|\u0416 x", "Ctrl+Right", "\u0416\u0416 |x"},
};

const TRow Commands[] = {
    {"Ctrl+X", "a[bc]d", "Ctrl+X", "a|d", NoUndo, "bc"},
    {"undo of a cut selects again", "a[bc\nd]e", "Ctrl+X Ctrl+Z", "a]bc\nd[e", NoUndo, "bc\r\nd"},
    {"undo of a delete does not", "a[bc]d", "Delete Ctrl+Z", "abc|d"},
    {"Shift+Delete cuts", "a[bc]d", "Shift+Delete", "a|d", NoUndo, "bc"},
    {"a cut of nothing empties the clipboard", "a[b]c", "Ctrl+C Left #768", "a|bc"},
    {"Ctrl+C keeps a reversed selection", "a]b\nc[d", "Ctrl+C", "a]b\nc[d", NoUndo, "b\r\nc"},
    {"paste over a selection is two changes", "a[b]c", "Ctrl+C #770", "ab|c", 2, "b"},
    {"Shift+Insert pastes", "[ab]", "Ctrl+Insert End Shift+Insert", "abab|", NoUndo, "ab"},
    {"F11 is Ctrl+Z too", "a|", "b Ctrl+F11", "a|"},
    {"undo of a paste of lines", "a[b\ncd\n]e", "Ctrl+C End #770 #772", "ab\ncd\ne|", NoUndo,
     "b\r\ncd\r\n"},
    {"the word under the caret", "foo_b|ar1 baz", "#1025", "[foo_bar1] baz"},
    {"the last word of a line", "x b|az", "#1025", "x [baz]"},
    {"no word at a line's end", "baz|", "#1025", "baz|"},
    {"a blank behind a word", "foo| bar", "#1025", "[foo] bar"},
    {"letters above 127 end a word", "ab\u00E9c|d", "#1025", "ab\u00E9[cd]"},
};

class TEditing : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;

    void Run(const TRow &ARow)
    {
        SCOPED_TRACE(ARow.Name);
        Rig.SetMarked(ARow.Before);
        const QString before = Rig.MarkedCaret();
        Rig.Clipboard.clear();
        const int undos = Edit.GetUndoList()->GetCount();
        Rig.Keys(ARow.Keys);
        EXPECT_EQ(Rig.Marked(), QString(ARow.After));
        EXPECT_EQ(Rig.Clipboard, ARow.Clipboard);
        EXPECT_TRUE(Rig.Errors.isEmpty());
        if (ARow.Undos == NoUndo)
            return;
        EXPECT_EQ(Edit.GetUndoList()->GetCount() - undos, ARow.Undos);
        for (int i = 0; i < ARow.Undos; ++i)
            Rig.Send(772);
        EXPECT_EQ(Rig.MarkedCaret(), before) << "undone";
    }
    QString Events(const char *ABefore, const char *AKeys)
    {
        Rig.SetMarked(ABefore);
        Rig.Keys(AKeys);
        return Rig.Events;
    }
};

TEST_F(TEditing, Rows)
{
    for (const auto &table : {std::span<const TRow>(Typing), std::span<const TRow>(Erasing),
                              std::span<const TRow>(Moving), std::span<const TRow>(Commands)})
        for (const TRow &row : table)
            Run(row);
}

TEST_F(TEditing, RightStopsAtTheScrollRange)
{
    Rig.SetMarked("a|");
    Rig.Keys("Right*510");
    EXPECT_EQ(Edit.GetCharPos(), 500);
    EXPECT_EQ(Rig.H->GetPosition(), 500 - Rig.H->GetPageSize());
}

TEST_F(TEditing, OrderOfEvents)
{
    struct {
        const char *Before, *Keys, *Events;
    } const rows[] = {
        {"ab|", "x", "CCML"},              // the deletion of nothing, then the character
        {"a[b]c", "x", "CLMMCML"},         // the deletion, then the character
        {"ab|", "Enter", "CCLLMMLM"},      // break, line, column, indentation
        {"|", "Enter", "CCLLMM"},          // no line above to indent by
        {"ab|", "Backspace", "CLM"},       // the backspace itself is no change
        {"ab\n|c", "Backspace", "CMLLM"},  // column, join, line
        {"a\n  |b", "Backspace", "CLM"},   // nothing to fall back to
        {"|ab", "Delete", "CLMM"},         //
        {"a|b", "Tab", "CML"},             // nothing is deleted first
        {"ab|", "Left", "M"},              //
        {"|ab", "Left", ""},               //
        {"a|\nb", "Down", "M"},            //
        {"a|", "Ctrl+A", "MM"},            //
        {"a|b", "Ctrl+X", "C"},            // nothing to cut
        {"a|b", "Ctrl+C", ""},             //
        {"a|b", "x Ctrl+Z", "CCMLCLMMMM"}, // the undo deletes, then places the caret
    };
    for (const auto &row : rows)
        EXPECT_EQ(Events(row.Before, row.Keys), row.Events) << row.Before << ' ' << row.Keys;
}

TEST_F(TEditing, OnChangeSeesTheOldText)
{
    Rig.SetMarked("ab|");
    QString seen;
    Edit.SetOnChange([&](QObject *) { seen += Edit.GetText(); });
    Edit.AddTxt("c");
    EXPECT_EQ(seen, "ab\r\n");
}

TEST_F(TEditing, TheHostMayTakeBackWhatItHandedOver)
{
    for (const bool typed : {true, false}) {
        Rig.SetMarked("a|b");
        QString pending = "xyz";
        Edit.SetOnCursorChange([&](QObject *) {
            pending.clear();
            Edit.GetLines()->SetStrings(0, "changed");
        });
        if (typed)
            Edit.AddTxt(pending);
        else
            Edit.InsertText(TZtChangeType::ctPaste, pending);
        Edit.SetOnCursorChange(nullptr);
        EXPECT_EQ(Edit.GetText(), typed ? "axyzb\r\n" : "changed\r\n");
    }
}

TEST_F(TEditing, SearchKeysPostTheirMessages)
{
    struct {
        const char *Keys, *Posted, *After;
    } const rows[] = {{"Ctrl+f", "1026:0", "|"},
                      {"Ctrl+r", "1026:1", "|"},
                      {"F3", "1027:0", "|"},
                      {"Shift+F3", "1027:0", "|"},
                      {"r", "1027:0", "r|"}};
    for (const auto &row : rows) {
        Rig.SetMarked("|");
        Rig.Keys(row.Keys);
        EXPECT_EQ(Rig.Posted.join(u' '), row.Posted) << row.Keys;
        EXPECT_EQ(Rig.Marked(), row.After) << row.Keys;
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
        {Qt::Key_A, {}, u"a", true},
        {Qt::Key_Tab, {}, u"\t", true},
        {Qt::Key_Z, Qt::ControlModifier, u"\x1a", true},
        {Qt::Key_Left, {}, u"", true},
        {Qt::Key_G, Qt::ControlModifier, u"\x07", false},
        {Qt::Key_Escape, {}, u"\x1b", false},
        {Qt::Key_F5, {}, u"", false},
    };
    for (const auto &row : rows) {
        QKeyEvent event(QEvent::ShortcutOverride, row.Key, row.Modifiers,
                        QString::fromUtf16(row.Text));
        event.ignore();
        QCoreApplication::sendEvent(&Edit, &event);
        EXPECT_EQ(event.isAccepted(), row.Editors) << row.Key;
    }
}

TEST_F(TEditing, AnyTwoBreakCharactersAreOneBreak)
{
    for (const char *text : {"x\r\ny", "x\n\ry", "x\r\ry", "x\n\ny", "x\ny"}) {
        Rig.SetMarked("a|b");
        Edit.InsertText(TZtChangeType::ctPaste, text);
        EXPECT_EQ(Rig.Marked(), "ax\ny|b");
        EXPECT_EQ(Rig.Events, "CLLMMLLM");
    }
    Rig.SetMarked("a~|");
    Edit.InsertText(TZtChangeType::ctPaste, "\r\n\r");
    EXPECT_EQ(Rig.Marked(), "a \n\n|") << "a split trims nothing";
    const TZtUndoItem item = Edit.GetUndoList()->GetItems(Edit.GetUndoList()->GetCount() - 1);
    EXPECT_EQ(item.GetChangeType(), TZtChangeType::ctPaste);
    EXPECT_EQ(item.GetStartPos(), QPoint(2, 0));
    EXPECT_EQ(item.GetEndPos(), QPoint(0, 2));
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
    Rig.SetMarked("-");
    Edit.AddCode("x");
    EXPECT_EQ(Rig.Marked(), "x|");
}

TEST_F(TEditing, UndoKeepsTheLastHundredChanges)
{
    Rig.SetMarked("|");
    Rig.Keys("a*150 #772*100");
    EXPECT_EQ(Rig.Marked(), QString(50, u'a') + u'|');
    EXPECT_FALSE(Edit.GetCanUndo());
    Rig.Keys("#772");
    EXPECT_EQ(Edit.GetCharPos(), 50);
}

TEST_F(TEditing, UndoAfterTheTextWasReplaced)
{
    Rig.SetMarked("a\nbc|");
    Rig.Keys("Backspace x");
    Edit.SetText("one\r\ntwo");
    EXPECT_TRUE(Edit.GetModified());
    Rig.Keys("#772");
    EXPECT_EQ(Rig.Marked(), "one\nt|o") << "the recorded places are used as they are";
    Edit.SetText("one");
    Rig.Keys("#772");
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
    Edit.InsertText(TZtChangeType::ctPaste, "x");
    Edit.AddTxt("\r");
    EXPECT_EQ(Rig.Marked(), "z\na[bc]d");
    EXPECT_EQ(Rig.Events, "");
    EXPECT_FALSE(Edit.GetModified());
    EXPECT_FALSE(Edit.GetCanUndo());
    Rig.Keys("Ctrl+C x");
    EXPECT_EQ(Rig.Marked(), "z\nabc|d") << "typing still empties the selection";
    EXPECT_EQ(Rig.Clipboard, "bc");
    Rig.Keys("#768");
    EXPECT_FALSE(Edit.GetCanPaste());
    Rig.Keys("Backspace");
    EXPECT_EQ(Rig.Marked(), "z\nab|d") << "only the backspace at the caret works";
    Rig.Keys("x #772");
    EXPECT_EQ(Rig.Marked(), "z\nabc|d") << "what is put back is not asked for";
}

TEST_F(TEditing, SelectionsAtAndBelowTheEnd)
{
    const auto select = [this](QPoint anchor, QPoint end) {
        Rig.SetMarked("ab\ncdefghijkl|");
        Edit.SetSelEnd(anchor);
        Edit.SetSelStart(end);
    };
    QString text;
    select({1, 0}, {3, 7});
    Edit.DeleteSelected(TZtChangeType::ctDelete, text);
    EXPECT_EQ(text, "b\r\ncdefghijkl\r\n");
    EXPECT_EQ(Rig.Marked(), "a|");
    select({4, 9}, {2, 7});
    Edit.DeleteSelected(TZtChangeType::ctDelete, text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(Rig.Lines().mid(0, 2).join(u' '), "ab cdefghijkl");
    select({INT_MAX, 0}, {4, 1});
    Edit.DeleteSelected(TZtChangeType::ctDelete, text);
    EXPECT_EQ(Rig.Marked(), "ab|ghijkl") << "a line's end as the start is a place in the text";
    select({-5, 0}, {3, 1});
    Edit.DeleteSelected(TZtChangeType::ctDelete, text);
    EXPECT_EQ(text, "ab\r\ncde");
    EXPECT_EQ(Edit.GetText(), "fghijkl\r\n") << "columns below 0 are the line's start";
    Rig.Keys("#772");
    EXPECT_EQ(Edit.GetText(), "ab\r\ncdefghijkl\r\n");
    select({2, -1}, {1, 0});
    Edit.DeleteSelected(TZtChangeType::ctDelete, text);
    EXPECT_EQ(text, "");
    select({INT_MAX, 1}, {1, 0});
    Edit.GetSelected(text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(Edit.SelLength(), 0);
    select({-1, -1}, {1, 0});
    EXPECT_EQ(Edit.SelLength(), 0);

    select({4, 1}, {2, 1});
    EXPECT_EQ(Edit.SelLength(), 8) << "counted to the line's end";
    const int caret = Edit.GetCharPos();
    select({1, 0}, {3, 1});
    EXPECT_EQ(Edit.SelLength(), 4) << "the break is not counted";
    EXPECT_EQ(Edit.GetSelStart(), QPoint(3, 1));
    EXPECT_EQ(Edit.GetCharPos(), caret) << "the caret stays where it is";
    select({0, 0}, {1, 5});
    EXPECT_GT(Edit.SelLength(), 0);
}

TEST_F(TEditing, TabOfNoSpacesStillEmptiesTheSelection)
{
    for (const int size : {0, -2}) {
        Rig.SetMarked("a[b]c");
        Edit.SetTabIndentSize(size);
        Rig.Keys("Tab");
        EXPECT_EQ(Rig.Marked(), "ab|c");
    }
}

TEST_F(TEditing, CaretsMarkFollowsTheView)
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
}

} // namespace
