// The picture with zcPicture, zcTabs, zcCells, zcStates and zcScroll.

#include "marked_text.h"

#include "uZtCaret.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtFrame.h"

#include <qtestsupport_core.h>

using enum TZtCorrection;

namespace {

// The rows as they are drawn, each piece at its cell.
QString Drawn(TZtCodeEdit &AEdit)
{
    AEdit.grab();
    QString text;
    const int cell = AEdit.GetCharWidth(), left = AEdit.RealGuttorWidth() + 2;
    const auto rows = AEdit.PaintedRows();
    for (int i = 0; i < AEdit.GetLines()->GetCount() && size_t(i) < rows.size(); ++i) {
        QString row;
        for (const TZtPaintPiece &piece : rows[size_t(i)].Pieces) {
            const int at = (piece.Left - left) / cell;
            row = row.leftJustified(at);
            row += rows[size_t(i)].TextOf(piece);
        }
        text += row + u'\n';
    }
    return text;
}

QColor ForeAt(TZtCodeEdit &AEdit, int ARow, int ACell)
{
    AEdit.grab();
    const int x = AEdit.RealGuttorWidth() + 2 + ACell * AEdit.GetCharWidth();
    const auto rows = AEdit.PaintedRows();
    for (const TZtPaintPiece &piece : rows[size_t(ARow)].Pieces)
        if (piece.Left <= x && x < piece.Left + piece.Width)
            return QColor(piece.Fore);
    return {};
}

class TCorrectedPicture : public testing::Test {
protected:
    TZtCodeJSParser Js;
    TZtCodeXMLParser Xml;
    TZtCodeSqlParser Sql;
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
};

} // namespace

TEST_F(TCorrectedPicture, EachLineIsARow)
{
    const struct {
        TZtLangParser &Parser;
        const char *Text, *Without, *With;
    } rows[] = {
        {Xml, "<!-- a\nb -->\n<c/>", "<!-- a", "<!-- a\nb -->\n<c/>\n"},
        {Xml, "<a>\t<b/>", "<a><b/>", "<a>     <b/>\n"},
        {Sql, "12x", "1x", "12x\n"},
        {Sql, "a\tb", "ab", "a       b\n"},
    };
    for (const auto &row : rows)
        for (const bool with : {false, true}) {
            Edit.SetCorrections(with ? zcPicture | zcTabs : TZtCorrections());
            Edit.SetParser(&row.Parser);
            Edit.SetText(QString(row.Text));
            const QString drawn = Drawn(Edit);
            EXPECT_TRUE(with ? drawn == row.With : drawn.startsWith(QString(row.Without)))
                << row.Text << (with ? " with: " : " without: ") << drawn.toStdString();
        }
}

// Caret, mouse and selection stand where the characters are drawn.
TEST_F(TCorrectedPicture, CellsAgree)
{
    Edit.SetCorrections(zcTabs | zcCells);
    Edit.SetText(QString::fromUtf8("\t\u65E5e\u0301\U0001F600x"));
    const std::pair<int, int> cells[] = {{0, 0}, {1, 8}, {2, 10}, {4, 11}, {6, 13}, {7, 14}};
    for (const auto &[column, cell] : cells) {
        Edit.SetCharPos(column);
        EXPECT_EQ(Edit.GetCaretCell(), cell);
        EXPECT_EQ(Edit.GetCaret()->Rect().x(),
                  Edit.RealGuttorWidth() + cell * Edit.GetCharWidth() + 2);
        Rig.Do(QStringLiteral("click@%1,0").arg(cell));
        EXPECT_EQ(Edit.GetCharPos(), column);
    }
    Edit.SetSelStart({1, 0});
    Edit.SetSelEnd({4, 0});
    const QColor selected = Edit.palette().color(QPalette::HighlightedText);
    for (const auto &[cell, is] : {std::pair(7, false), {8, true}, {9, true}, {10, true}})
        EXPECT_EQ(ForeAt(Edit, 0, cell) == selected, is) << cell;
}

TEST_F(TCorrectedPicture, TheRangesFollowTheText)
{
    Edit.SetCorrections(zcScroll);
    Edit.SetText(QStringLiteral("line\n").repeated(100) + QString(800, u'x'));
    Edit.grab();
    EXPECT_EQ(Rig.V->GetMax(), 101 - Rig.V->GetPageSize());
    EXPECT_EQ(Rig.H->GetMax(), 0) << "the long line was not shown yet";
    Rig.Do("Ctrl+End");
    Edit.grab();
    EXPECT_EQ(Rig.H->GetMax(), 800 - Rig.H->GetPageSize());
    EXPECT_FALSE(Edit.GetCaret()->Rect().isEmpty());
    Edit.SetText("short");
    Edit.grab();
    EXPECT_EQ(Rig.H->GetMax() + Rig.V->GetMax(), 0);
}

// A jump shows at once what is known, and soon the right colours.
TEST_F(TCorrectedPicture, AJumpIntoACommentIsColouredRight)
{
    Edit.SetParser(&Js);
    for (const bool with : {false, true}) {
        Edit.SetCorrections(with ? zcStates | zcRemarks : zcPicture | zcRemarks);
        Edit.SetText("/* open\n" + QStringLiteral("var x = 1;\n").repeated(30'000) + "*/ end");
        Rig.Do("Ctrl+End");
        const auto isRemark = [this] { return ForeAt(Edit, 0, 0) == QColor(0, 128, 0); };
        EXPECT_EQ(QTest::qWaitFor(isRemark, with ? 20'000 : 300), with);
    }
}

TEST_F(TCorrectedPicture, WordListsAndRemarksAreTheLexers)
{
    Edit.SetParser(&Js);
    for (const bool with : {false, true}) {
        Edit.SetCorrections(with ? zcWordLists | zcRemarks | zcPicture : zcPicture);
        Edit.SetText("return\n/* a\n*/ b");
        EXPECT_EQ(ForeAt(Edit, 0, 0) == QColor(0, 0, 255), with);
        EXPECT_EQ(ForeAt(Edit, 2, 3) == QColor(0, 128, 0), !with);
    }
}
