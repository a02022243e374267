// What each correction changes: the same keys without it and with it.

#include "marked_text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

using enum TZtCorrection;

namespace {

struct TRow {
    TZtCorrections Corrections;
    const char *Before, *Do, *Without, *With;
    const char *ClipboardWithout = "clip", *ClipboardWith = "clip";
};

const TRow Rows[] = {
    {zcBackspace, "ab[cd]e", "Backspace", "a|e", "ab|e"},
    {zcBackspace, "x\na|\ny", "Backspace", "x|\ny", "x\n|\ny"},
    {zcBackspace, "foo bar|", "Ctrl+Backspace", "foo ba|", "foo |"},
    {zcBackspace | zcBlanks, "|foo bar", "Ctrl+Delete", "|oo bar", "|bar"},
    {zcBackspace, "a\n  b\n    |c", "Backspace", "a\n  b\n  |  c", "a\n  b\n  |c"},
    {zcBackspace, "|", "Backspace", "|", "|"},
    {zcBlanks, "a|", "Space", "a~|", "a |"},
    {zcBlanks, "a |b", "Enter", "a\n|b", "a \n|b"},
    {zcBlanks, "a \n|", "Backspace", "a~|", "a |"},
    {zcBreaks, "|", "insert:a\rb\r\rc", "a\nb\nc|", "a\nb\n\nc|"},
    {zcBreaks, "|", "insert:a\n\nb", "a\nb|", "a\n\nb|"},
    {zcClipboard, "a|b", "Ctrl+C", "a|b", "a|b", "", "clip"},
    {zcClipboard, "a|b", "Ctrl+X", "a|b", "a|b", "", "clip"},
    {zcWords, "foo bar|", "double@0,0", nullptr, "[foo] bar"},
    {zcWords, "|foo bar", "double@6,0", "foo [bar]", "foo [bar]"},
    {zcWords, "foo bar\n|x", "triple@5,0", "foo b|ar\nx", "[foo bar\n]x"},
    {zcWords, "foo bar|", "triple@1,0", "f|oo bar", "[foo bar]"},
    {zcWords, "|foo_1.bar x", "Ctrl+Right Ctrl+Right", "foo_1.|bar x", "foo_1.|bar x"},
    {zcWords, "foo_1 bar|", "Ctrl+Left Ctrl+Left", "foo_|1 bar", "|foo_1 bar"},
    {zcWords, "|\u00E4\u00F6\u00FC x", "Ctrl+Right", "\u00E4\u00F6\u00FC |x",
     "\u00E4\u00F6\u00FC |x"},
    {zcWords, "x f\u00E4hre|", "Ctrl+Left", nullptr, "x |f\u00E4hre"},
    {zcCaret, "ab|", "Right*3 Down", "ab~~~|", "ab|"},
    {zcCaret, "abcd|\nx\nabcd", "Down Down", "abcd\nx\nabcd|", "abcd\nx\nabcd|"},
    {zcCaret, "abc|\nx", "Down a", "abc\nx  a|", "abc\nxa|"},
    {zcCaret, "abc|\ndef", "click@-1,1", "abc\n|def", "abc\n|def"},
    {zcTabs, "a|b", "Tab", "a  |b", "a |b"},
    {zcTabs, "a\n[b\nc\n]d", "Tab", "a\nb\nc\n  |d", "a\n[  b\n  c\n]d"},
    {zcTabs, "a\n    b|", "Shift+Backtab", "a\n    b~~|", "a\n  b|"},
    {zcTabs, "[\tx\n y\nz]", "Shift+Tab", "\tx\n y\nz~~|", "[x\ny\nz]"},
    {zcTabs, "  ab|", "Home", "|  ab", "  |ab"},
    {zcTabs, "  ab|", "Home Home", "|  ab", "|  ab"},
    {zcTabs, "\tx|", "Enter", "\tx\n|", "\tx\n\t|"},
    {zcKeys, "a\n|b", "Left", "a\n|b", "a|\nb"},
    {zcKeys | zcCaret, "a|\nb", "Right", "a~|\nb", "a\n|b"},
    {zcKeys, "abcdef|", "press@1,0 move@4,0 release@4,0", "abcd|ef", "a[bcd]ef"},
    {zcReadOnly, "ab|c", "x read-only Ctrl+Z", "ab|xc", "abx|c"},
    {zcReadOnly, "a[b]c", "read-only Backspace Delete y Enter Ctrl+C Ctrl+X", "a|c", "ab|c", "",
     ""},
    {zcSearchKey, "a|", "r", "ar|", "ar|"},
    {zcUndo, "|", "a b Ctrl+Z", "a|", "|"},
    {zcUndo, "|", "a b Ctrl+Z Ctrl+Y", "a|", "ab|"},
    {zcUndo, "|", "a b Ctrl+Z Ctrl+Shift+Z", "a|", "ab|"},
    {zcUndo, "[ab]c", "x Ctrl+Z", "|c", "[ab]c"},
    {zcUndo, "a[b\nc]d", "Delete Ctrl+Z", "ab\nc|d", "a[b\nc]d"},
    {zcCells, "e\u0301x|", "Left Left", "e|\u0301x", "|e\u0301x"},
    {zcCells, "|\U0001F468\u200D\U0001F469x", "Delete", "|\u200D\U0001F469x", "|x"},
    {zcCells, "x\u65E5y|", "click@2,0", "x\u65E5|y", "x|\u65E5y"},
    {zcTabs, "\tx|", "click@8,0", "\tx~~~~~~|", "\t|x"},
};

class TCorrections : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;

    std::unique_ptr<TZtCodeEdit> Sharing()
    {
        auto other = std::make_unique<TZtCodeEdit>();
        other->SetCorrections(ZtAllCorrections());
        other->ShareText(&Edit);
        return other;
    }
};

} // namespace

TEST_F(TCorrections, Rows)
{
    for (const TRow &row : Rows)
        for (const bool with : {false, true}) {
            SCOPED_TRACE(std::string(row.Before) + " : " + row.Do + (with ? " with" : " without"));
            Edit.SetCorrections(with ? row.Corrections : TZtCorrections());
            Edit.SetReadOnly(false);
            Rig.SetMarked(row.Before);
            Edit.ClearUndo();
            Rig.Clipboard = "clip";
            Rig.Do(row.Do);
            if (with || row.Without) { // null where it is no place in the text
                EXPECT_EQ(Rig.Marked(), QString::fromUtf8(with ? row.With : row.Without));
            }
            EXPECT_EQ(Rig.Clipboard, with ? row.ClipboardWith : row.ClipboardWithout);
            EXPECT_TRUE(Rig.Errors.isEmpty());
        }
}

TEST_F(TCorrections, ASelectionBelowTheTextCopiesWhatThereIs)
{
    for (const bool with : {false, true}) {
        Edit.SetCorrections(with ? TZtCorrections(zcClipboard) : TZtCorrections());
        Rig.SetMarked("|ab");
        Edit.SetSelStart({1, 0});
        Edit.SetSelEnd({3, 5});
        Rig.Do("Ctrl+C");
        EXPECT_EQ(Edit.GetText(), with ? "ab\r\n" : "ab\r\n\r\n");
        EXPECT_EQ(Rig.Clipboard, with ? "b" : "b\r\n");
        EXPECT_EQ(Edit.GetSelEnd(), with ? QPoint(3, 5) : QPoint(ZtEndOfLine, 1));
    }
}

TEST_F(TCorrections, SwitchesSwitchOffToo)
{
    Edit.SetCorrections(zcSwitches);
    for (const bool on : {false, true}) {
        Edit.SetShowGuttor(on);
        Edit.SetShowRightMargin(on);
        EXPECT_EQ(Edit.GetShowGuttor(), on);
        EXPECT_EQ(Edit.GetShowRightMargin(), on);
        EXPECT_EQ(Edit.RealGuttorWidth() > 0, on);
    }
}

TEST_F(TCorrections, KeysThatPostAndKeysThatAreLeft)
{
    const struct {
        const char *Do, *Without, *With;
    } rows[] = {
        {"r", "1027:0", ""},
        {"F3", "1027:0", "1027:1"},
        {"Shift+F3", "1027:0", "1027:2"},
        {"Ctrl+f", "1026:0", "1026:0"},
        {"Ctrl+r", "1026:1", "1026:1"},
        {"Ctrl+h", "", "1026:1"},
        {"Ctrl+y", "", "1028:0"},
    };
    for (const auto &row : rows)
        for (const bool with : {false, true}) {
            Edit.SetCorrections(with ? TZtCorrections(zcSearchKey | zcUndo) : TZtCorrections());
            Rig.SetMarked("|");
            Rig.Do(row.Do);
            EXPECT_EQ(Rig.Posted.join(u' '), with ? row.With : row.Without) << row.Do;
        }
}

TEST_F(TCorrections, CtrlTabLeavesTheControl)
{
    QWidget window;
    TZtCodeEdit first(&window), second(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    for (const bool with : {false, true}) {
        first.SetCorrections(with ? TZtCorrections(zcKeys) : TZtCorrections());
        first.setFocus();
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
        QCoreApplication::sendEvent(&first, &event);
        EXPECT_EQ(second.hasFocus(), with);
    }
}

// When OnChange is fired, what the text is then, and what Modified says.
TEST_F(TCorrections, Events)
{
    Edit.SetCorrections(zcEvents | zcUndo);
    QStringList told;
    Edit.SetOnChange([&](QObject *) {
        told += Edit.GetText().replace("\r\n", "/") + (Edit.GetModified() ? "*" : "");
    });
    int signalled = 0;
    QObject::connect(&Edit, &TZtCodeEdit::textChanged, [&] { ++signalled; });
    TStringList lines;
    lines.Add("L");
    const QTemporaryDir folder;
    const QString file = folder.filePath("events.txt");
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly) && out.write("F\n") == 2);
    out.close();
    const std::pair<std::function<void()>, QString> rows[] = {
        {[&] { Edit.SetText("a\nb"); }, "a/b/*"},
        {[&] { Edit.SetText("a\nb"); }, ""},
        {[&] { Edit.SetModified(false); }, ""},
        {[&] { Rig.Do("x"); }, "xa/b/*"},
        {[&] { Rig.Do("Enter"); }, "x/a/b/*"},
        {[&] { Rig.Do("Left Down Ctrl+C"); }, ""},
        {[&] { Edit.Undo(); }, "xa/b/*"},
        {[&] { Edit.Undo(); }, "a/b/"},
        {[&] { Edit.Undo(); }, "*"}, // the text before the first one
        {[&] { Edit.Redo(); }, "a/b/"},
        {[&] { Edit.GetLines()->SetStrings(0, "h"); }, "h/b/*"},
        {[&] { Edit.GetLines()->SetStrings(0, "h"); }, ""},
        {[&] { Edit.SetLines(&lines); }, "L/"},
        {[&] { Edit.LoadFromFile(file); }, "F/"},
        {[&] {
             Edit.BeginUpdate();
             Edit.AddTxt("1");
             Edit.GetLines()->Add("2");
             Edit.EndUpdate();
         },
         "1F/2/*"},
        {[&] { Edit.Undo(); }, "F/"},
        {[&] {
             Edit.SetSelStart({0, 0});
             Edit.SetSelEnd({1, 0});
             Rig.Do("F");
         },
         ""}, // the same character again
    };
    int row = 0;
    for (const auto &[act, should] : rows) {
        SCOPED_TRACE(row++);
        told.clear();
        signalled = 0;
        act();
        EXPECT_EQ(told.join(u'|'), should);
        EXPECT_EQ(signalled, should.isEmpty() ? 0 : 1);
    }
    Edit.SetOnChange(nullptr);
}

TEST_F(TCorrections, TheUndoIsBoundedByBytesAndMayForgetLoads)
{
    Edit.SetCorrections(zcUndo);
    Edit.SetText(QString(10'000, u'x'));
    Edit.SetText("y");
    Edit.SetUndoBytes(1000);
    Rig.Do("z Ctrl+Z");
    EXPECT_EQ(Edit.GetText(), "y\r\n");
    EXPECT_TRUE(!Edit.GetCanUndo() && Edit.GetCanRedo());
    Edit.ClearUndo();
    EXPECT_FALSE(Edit.GetCanRedo());
}

// Whatever handlers do in the middle of an operation, it ends, and the next one is a whole one.
TEST_F(TCorrections, OperationsEndWhateverHandlersDo)
{
    const std::function<void()> acts[] = {
        [&] { throw EZtException("no"); },
        [&] { Edit.SetCorrections(ZtAllCorrections() & ~TZtCorrections(zcUndo)); },
        [&] { Edit.SetCorrections({}); },
        [&] { Edit.Undo(); },
        [&] { Edit.BeginUpdate(), Edit.AddTxt("x"), Edit.EndUpdate(); },
        [&] { Edit.SetText("another\ntext"); },
    };
    TStringList shorter;
    shorter.Add("a");
    for (const auto &act : acts)
        for (const bool atCursor : {true, false}) {
            Edit.SetCorrections(ZtAllCorrections());
            Rig.SetMarked("one\ntwo\nthree|");
            bool done = false;
            const auto handler = [&](QObject *) {
                if (!std::exchange(done, true))
                    act();
            };
            atCursor ? Edit.SetOnCursorChange(handler) : Edit.SetOnChange(handler);
            try {
                Edit.SetLines(&shorter);
            } catch (const EZtException &) {
            }
            EXPECT_TRUE(done);
            Edit.SetOnCursorChange(nullptr);
            int changes = 0;
            Edit.SetOnChange([&](QObject *) { ++changes; });
            Edit.SetCorrections(ZtAllCorrections());
            const QString before = Edit.GetText();
            Rig.Do("y");
            EXPECT_EQ(changes, 1);
            Edit.Undo();
            EXPECT_EQ(Edit.GetText(), before);
            Edit.SetOnChange(nullptr);
        }
}

TEST_F(TCorrections, AnEditorOfASharedTextMayGoAtAnyMoment)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetText("a");
    auto second = Sharing(), third = Sharing();
    Edit.SetOnChange([&](QObject *) { second.reset(); });
    Rig.Do("b");
    EXPECT_FALSE(second);
    Edit.SetOnChange(nullptr);
    third->BeginUpdate();
    third->AddTxt("c");
    third.reset();
    Rig.Do("Left d");
    Edit.Undo();
    EXPECT_EQ(Edit.GetLines()->GetText(), "bca\r\n");
    // The one that made the history leaves it first.
    const auto fourth = Sharing();
    Edit.SetCorrections({});
    fourth->GetLines()->Add("e");
    fourth->Undo();
    EXPECT_EQ(fourth->GetLines()->GetText(), "bca\r\n");
}

TEST_F(TCorrections, TwoEditorsOnOneText)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetText("one\ntwo\nthree\n");
    Edit.SetModified(false);
    const auto other = Sharing();
    int changes = 0;
    other->SetOnChange([&](QObject *) { ++changes; });
    other->SetLinePos(2);
    other->SetCharPos(3);
    Rig.Do("Enter x");
    EXPECT_EQ(other->GetLines()->GetText(), Edit.GetLines()->GetText());
    EXPECT_EQ(QPoint(other->GetCharPos(), other->GetLinePos()), QPoint(3, 3)) << "it moves along";
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(other->GetModified());
    other->Undo();
    other->Undo();
    EXPECT_EQ(Edit.GetLines()->GetText(), "one\r\ntwo\r\nthree\r\n");
    EXPECT_FALSE(Edit.GetModified());
    Edit.Redo();
    EXPECT_EQ(other->GetLines()->GetText(), "\r\none\r\ntwo\r\nthree\r\n");
}
