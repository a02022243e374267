#include "marked_text.h"

#include <QCoreApplication>
#include <QMenu>

namespace {

class TMouse : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;

    void Press(QPoint AAt, Qt::KeyboardModifiers AModifiers = {})
    {
        Rig.Mouse(QEvent::MouseButtonPress, AAt, Qt::LeftButton, AModifiers);
    }
    void Release(QPoint AAt) { Rig.Mouse(QEvent::MouseButtonRelease, AAt); }
    void Move(QPoint AAt) { Rig.Mouse(QEvent::MouseMove, AAt); }
    void Click(QPoint AAt, Qt::KeyboardModifiers AModifiers = {})
    {
        Press(AAt, AModifiers);
        Release(AAt);
    }
    void FillLines(int ACount) { Edit.SetText(QStringLiteral("line\r\n").repeated(ACount)); }
};

TEST_F(TMouse, ClickAndShiftClick)
{
    Rig.SetMarked("[abcdef\ngh]ijkl");
    Click(Rig.Cell(2, 0));
    EXPECT_EQ(Rig.Marked(), "ab|cdef\nghijkl");
    EXPECT_EQ(Rig.Events, "MM");
    Click(Rig.Cell(4, 1), Qt::ShiftModifier);
    EXPECT_EQ(Rig.Marked(), "ab[cdef\nghij]kl");
    Click(Rig.Cell(9, 0));
    EXPECT_EQ(Rig.Marked(), "abcdef~~~|\nghijkl");
    Click(Rig.Cell(1, 6));
    EXPECT_EQ(Rig.Marked(), "abcdef\ng|hijkl") << "below the text";
}

TEST_F(TMouse, TheFirstMoveOfADragSetsTheAnchor)
{
    Rig.SetMarked("abcdef\nghijkl\nmnopqr|");
    Press(Rig.Cell(1, 0));
    Move(Rig.Cell(3, 1));
    EXPECT_EQ(Rig.Marked(), "abc[def\nghi]jkl\nmnopqr") << "the move's column, the press's line";
    Move(Rig.Cell(5, 2));
    EXPECT_EQ(Rig.Marked(), "abc[def\nghijkl\nmnopq]r");
    Release(Rig.Cell(5, 2));
    Move(Rig.Cell(0, 0));
    EXPECT_EQ(Rig.Marked(), "abc[def\nghijkl\nmnopq]r") << "no button, no selection";
    Rig.Keys("Right");
    EXPECT_EQ(Rig.Marked(), "abcdef\nghijkl\nmnopqr|");
}

TEST_F(TMouse, ADragAboveTheTextScrolls)
{
    FillLines(60);
    Edit.SetLinePos(40);
    Press(Rig.Cell(1, 2));
    const int top = Rig.V->GetPosition();
    Move(QPoint(60, -3 * Edit.GetLineWidth()));
    EXPECT_EQ(Rig.V->GetPosition(), top - 3);
    EXPECT_EQ(Edit.GetLinePos(), top - 3);
    Release({});
}

TEST_F(TMouse, AGutterClickGoesToTheLinesStart)
{
    Rig.SetMarked("abc\ndef\nghi|");
    Click({Edit.GetGuttorWidth() - Edit.GetCharWidth() - 1, Rig.Cell(0, 1).y()});
    EXPECT_EQ(Rig.Marked(), "abc\n|def\nghi");
    EXPECT_EQ(Rig.Events, "MMMM") << "column 0, the line above, the outer move, the line";
    Rig.Events.clear();
    Click({Edit.GetGuttorWidth() - 1, Rig.Cell(0, 0).y()});
    EXPECT_EQ(Rig.Events, "MM") << "less than a cell left of the text is column 0";
}

TEST_F(TMouse, WithoutTheGutter)
{
    Rig.SetMarked("abcdef|");
    Edit.SetOptions({});
    Click(Rig.Cell(2, 0));
    EXPECT_EQ(Rig.Marked(), "ab|cdef");
    int x = Edit.GetGuttorWidth() + 3 * Edit.GetCharWidth();
    int y = 2 * Edit.GetLineWidth();
    Rig.V->SetPosition(5);
    Edit.CalcCursor(x, y);
    EXPECT_EQ(QPoint(x, y), QPoint(3, 7)) << "the hidden gutter counts here";
}

TEST_F(TMouse, TheWheelScrollsTheViewAlone)
{
    FillLines(60);
    Edit.SetCharPos(2);
    Rig.Events.clear();
    const int lines = ZtPlatform().WheelLines();
    Rig.Wheel(-120);
    Rig.Wheel(-120);
    EXPECT_EQ(Rig.V->GetPosition(), 2 * lines);
    EXPECT_TRUE(Edit.GetCaret()->Rect().isEmpty());
    Rig.Wheel(120);
    EXPECT_EQ(Rig.V->GetPosition(), lines);
    for (int i = 0; i < 3; ++i)
        Rig.Wheel(-40);
    EXPECT_EQ(Rig.V->GetPosition(), 2 * lines) << "three thirds of a notch";
    Rig.Wheel(-80);
    Rig.Wheel(80);
    EXPECT_EQ(Rig.V->GetPosition(), 2 * lines) << "turning round starts anew";
    Rig.Send(522, 0);
    EXPECT_EQ(Rig.V->GetPosition(), 3 * lines) << "a delta of 0 counts as downwards";
    for (int i = 0; i < 100; ++i)
        Rig.Wheel(-120);
    EXPECT_EQ(Rig.V->GetPosition(), 160);
    EXPECT_EQ(Edit.GetCharPos(), 2);
    EXPECT_EQ(Rig.Events, "");
}

TEST_F(TMouse, TheWheelsSettingIsReadAtConstruction)
{
    for (const auto &[setting, expected] : {std::pair(0, 3), {-1, 3}, {7, 7}}) {
        ZtPlatform().WheelLines = [value = setting] { return value; };
        TMarkedEditor other;
        other.Edit.SetText("a");
        other.Wheel(-120);
        EXPECT_EQ(other.V->GetPosition(), expected);
    }
}

TEST_F(TMouse, ADoubleClickSelectsTheWord)
{
    for (const int column : {1, 4, 7}) {
        Rig.SetMarked("foo_bar1 baz|");
        Click(Rig.Cell(column, 0));
        Rig.Mouse(QEvent::MouseButtonDblClick, Rig.Cell(column, 0));
        Release(Rig.Cell(column, 0));
        EXPECT_EQ(Rig.Marked(), "[foo_bar1] baz") << column;
    }
    Rig.SetMarked("a\nfoo bar|");
    Rig.Mouse(QEvent::MouseButtonDblClick, Rig.Cell(0, 1));
    Release(Rig.Cell(0, 1));
    EXPECT_EQ(Edit.GetSelStart().x(), -1) << "nothing in column 0";
    EXPECT_EQ(QPoint(Edit.GetCharPos(), Edit.GetLinePos()), QPoint(0, 0));
}

TEST_F(TMouse, ARightClickOpensTheMenuAndLeavesTheCaret)
{
    Rig.SetMarked("abc[def]");
    Rig.Mouse(QEvent::MouseButtonPress, Rig.Cell(1, 0), Qt::RightButton);
    QMenu menu;
    menu.addAction("x");
    Edit.SetPopupMenu(&menu);
    Rig.Mouse(QEvent::MouseButtonPress, Rig.Cell(1, 0), Qt::RightButton);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), Edit.mapToGlobal(Rig.Cell(1, 0)));
    menu.close();
    EXPECT_EQ(Rig.Marked(), "abc[def]");
    EXPECT_EQ(Rig.Events, "");
}

} // namespace
