// What comes from input methods, drags and the primary selection.

#include "marked_text.h"
#include "uZtCaret.h"
#include "uZtFrame.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTextCharFormat>
#include <QUrl>

using enum TZtCorrection;
using enum TZtExtra;
using namespace Qt::StringLiterals;

namespace {

using TAttribute = QInputMethodEvent::Attribute;

class TInput : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;

    TInput() { Edit.SetCorrections(ZtAllCorrections()); }
    QImage Picture()
    {
        Edit.GetCaret()->Hide();
        return Edit.grab().toImage();
    }
    bool Compose(const QString &AText, const QList<TAttribute> &AAttributes = {},
                 const QString &ACommit = {}, int AFrom = 0, int ALength = 0)
    {
        QInputMethodEvent event(AText, AAttributes);
        event.setCommitString(ACommit, AFrom, ALength);
        QCoreApplication::sendEvent(&Edit, &event);
        return event.isAccepted();
    }
    QVariant Ask(Qt::InputMethodQuery AQuery)
    {
        QInputMethodQueryEvent event(AQuery);
        QCoreApplication::sendEvent(&Edit, &event);
        return event.value(AQuery);
    }
};

TAttribute Format(int AStart, int ALength, const QTextCharFormat &AFormat)
{
    return {QInputMethodEvent::TextFormat, AStart, ALength, AFormat};
}

} // namespace

// --- composing -----------------------------------------------------------------------------------

TEST_F(TInput, AComposedLineLooksAsIfItsTextHeldTheComposition)
{
    QTextCharFormat none;
    none.setUnderlineStyle(QTextCharFormat::NoUnderline);
    const struct {
        const char16_t *Text, *Composed, *Held;
    } rows[] = {
        {u"ab|cd\nef", u"xyz", u"abxyzcd\nef"},
        {u"|", u"x", u"x"},
        {u"-", u"x", u"x"},
        {u"ab|", u"漢字", u"ab漢字"},
        {u"\t|x\ty", u"か", u"\tかx\ty"},
        {u"a[bc]d", u"12", u"abc12d"},
        {u"a]bc[d", u"12", u"a12bcd"},
        {u"a[b\nc]d", u"12", u"ab\nc12d"},
    };
    for (const auto &row : rows) {
        const QString text = QString::fromUtf16(row.Text);
        Rig.SetMarked(text);
        const QPoint caret(Edit.GetCharPos(), Edit.GetLinePos());
        QPoint anchor = Edit.GetSelEnd();
        const QString composed = QString::fromUtf16(row.Composed);
        EXPECT_TRUE(Compose(composed, {Format(0, int(composed.size()), none)}));
        const QImage picture = Picture();
        EXPECT_EQ(Rig.Marked(), text) << "the text is what it was";
        EXPECT_EQ(Rig.Events, "");
        Compose({});
        Edit.SetText(QString::fromUtf16(row.Held));
        Edit.SetLinePos(caret.y());
        const int behind = caret.x() + int(composed.size());
        const bool right = anchor.y() == caret.y() && anchor.x() > caret.x();
        Edit.SetCharPos(right ? behind : caret.x());
        if (anchor != caret)
            Edit.SetSelEnd(anchor + QPoint(right ? int(composed.size()) : 0, 0));
        EXPECT_EQ(Picture(), picture) << text.toStdString();
    }
}

TEST_F(TInput, ACompositionHasTheLookAndTheCaretThatItIsGiven)
{
    Rig.SetMarked("ab|cd");
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(Qt::red);
    format.setBackground(Qt::green);
    format.setForeground(Qt::blue);
    Compose(u"x漢y"_s, {Format(1, 1, format), {QInputMethodEvent::Cursor, 2, 1, {}}});
    EXPECT_EQ(Edit.GetCaretCell(), 5) << "behind the wide one";
    EXPECT_EQ(Edit.GetCaret()->Rect(), Edit.GetPlaceRect({5, 0}));
    EXPECT_EQ(Ask(Qt::ImCursorRectangle).toRect(), Edit.GetPlaceRect({5, 0}));
    Edit.grab();
    const TZtPaintRow row = Edit.PaintedRows().front();
    QStringList pieces;
    for (const TZtPaintPiece &piece : row.Pieces)
        pieces += row.TextOf(piece).toString() + u':' + QString::number(int(piece.Marks.Line)) +
                  QString::number(piece.Marks.LineColour, 16) + u':' +
                  QString::number(piece.Back, 16) + u':' + QString::number(piece.Fore, 16);
    EXPECT_TRUE(pieces.contains(u"漢:3ffff0000:ff00ff00:ff0000ff"_s))
        << pieces.join(u' ').toStdString();
    Compose(u"xy"_s, {{QInputMethodEvent::Cursor, 1, 0, {}}});
    EXPECT_TRUE(Edit.GetCaret()->Rect().isEmpty());
    Edit.grab();
    EXPECT_EQ(Edit.PaintedRows().front().Pieces.at(1).Marks.Line, TZtUnderline::ulStraight);
    Compose({});
    EXPECT_EQ(Edit.GetCaretCell(), 2);
}

TEST_F(TInput, ACommitIsOneStep)
{
    const struct {
        const char *Before, *Commit;
        int From, Length;
        const char *After;
    } rows[] = {
        {"a|b", "xyz", 0, 0, "axyz|b"},  {"a[bc]d", "xyz", 0, 0, "axyz|d"},
        {"a]b\nc[d", "x", 0, 0, "ax|d"}, {"abcd|e", "X", -3, 2, "aX|de"},
        {"a|bcd", "X", 1, 1, "abX|d"},   {"a|b", "X", -9, 99, "X|"},
        {"ab|", "", -1, 1, "a|"},        {"|", "x\ny", 0, 0, "x\ny|"},
        {"a|", "(", 0, 0, "a(|)"},
    };
    Edit.SetExtras(zeTypedPairs);
    for (const auto &row : rows) {
        Rig.SetMarked(row.Before);
        Edit.ClearUndo();
        EXPECT_TRUE(Compose("composed"));
        EXPECT_TRUE(Compose({}, {}, row.Commit, row.From, row.Length));
        EXPECT_EQ(Rig.Marked(), row.After);
        EXPECT_EQ(Rig.Changes, 1) << row.After;
        Rig.Do("Ctrl+Z");
        EXPECT_EQ(Rig.Marked(), row.Before);
        EXPECT_FALSE(Edit.GetCanUndo()) << row.After;
        Rig.SetMarked(row.Before);
        Edit.SetReadOnly(true);
        EXPECT_FALSE(Compose("composed", {}, row.Commit, row.From, row.Length));
        EXPECT_EQ(Edit.GetCaretCell(), Edit.GetCharPos());
        EXPECT_EQ(Rig.Marked(), row.Before);
        Edit.SetReadOnly(false);
    }
    EXPECT_EQ(Rig.Errors, QStringList());
}

TEST_F(TInput, ACompositionEndsWithTheFocusOrAPress)
{
    const std::function<void()> ends[] = {[&] { Rig.Do("click@9,0"); }, [&] { Edit.clearFocus(); }};
    for (const auto &end : ends) {
        Rig.SetMarked("ab|");
        Edit.setFocus();
        const QImage before = Picture();
        Compose("xyz");
        Rig.Do("click@3,0");
        EXPECT_EQ(Edit.GetCaretCell(), 5) << "a press on it is the input method's";
        EXPECT_NE(Picture(), before);
        end();
        EXPECT_EQ(Edit.GetCaretCell(), 2);
        EXPECT_EQ(Picture(), before);
        EXPECT_EQ(Rig.Marked(), "ab|");
    }
}

TEST_F(TInput, AnInputMethodIsToldTheCaretsLine)
{
    const auto told = [&] {
        return QStringLiteral("%1 %2 %3 <%4|%5> %6")
            .arg(Ask(Qt::ImSurroundingText).toString())
            .arg(Ask(Qt::ImCursorPosition).toInt())
            .arg(Ask(Qt::ImAnchorPosition).toInt())
            .arg(Ask(Qt::ImTextBeforeCursor).toString(), Ask(Qt::ImTextAfterCursor).toString(),
                 Ask(Qt::ImCurrentSelection).toString());
    };
    for (const auto &[text, expected] : {std::pair("xx\nab|cd\ny", "abcd 2 2 <ab|cd> "),
                                         {"xx\na[bc]d", "abcd 3 1 <abc|d> bc"},
                                         {"x[x\nabc]d", "abcd 3 0 <abc|d> x\nabc"},
                                         {"x]x\nab[cd", "xx 1 2 <x|x> x\nab"},
                                         {"-", " 0 0 <|> "}}) {
        Rig.SetMarked(text);
        EXPECT_EQ(told(), expected);
    }
    const QString line = QString(100'000, u'a') + QString(100'000, u'b');
    Edit.SetText(line);
    Edit.SetCharPos(100'000);
    EXPECT_EQ(Ask(Qt::ImTextBeforeCursor).toString(), QString(4096, u'a'));
    EXPECT_EQ(Ask(Qt::ImSurroundingText).toString().size(), 8192);
    EXPECT_TRUE(Edit.rect().contains(Ask(Qt::ImCursorRectangle).toRect()));
    Compose({}, {{QInputMethodEvent::Selection, 4095, 2, {}}});
    EXPECT_EQ(Ask(Qt::ImCurrentSelection).toString(), "ab");
    EXPECT_TRUE(Ask(Qt::ImHints).toInt() & Qt::ImhNoAutoUppercase);
    Edit.SetReadOnly(true);
    EXPECT_FALSE(Ask(Qt::ImEnabled).toBool());
    EXPECT_TRUE(Ask(Qt::ImReadOnly).toBool());
}

// --- dragging ------------------------------------------------------------------------------------

namespace {

class TDragInput : public TInput {
protected:
    Qt::DropAction Action = Qt::MoveAction;
    std::function<Qt::DropAction(QDrag *, Qt::DropActions)> Target;

    TDragInput()
    {
        Edit.SetExtras(zeDragText);
        ZtPlatform().RunDrag = [this](QDrag *drag, Qt::DropActions actions) {
            const auto done = Target(drag, actions);
            delete drag;
            return done;
        };
    }
    static QPointF PixelOf(TZtCodeEdit &AEdit, const QPoint &ACell)
    {
        const int w = AEdit.GetCharWidth(), h = AEdit.GetLineWidth();
        return QPointF(AEdit.RealGuttorWidth() + ACell.x() * w + w / 2, ACell.y() * h + h / 2);
    }
    // Answers what was done with it.
    Qt::DropAction Drop(TZtCodeEdit &AEdit, const QMimeData &AData, const QPoint &ACell)
    {
        const QPointF at = PixelOf(AEdit, ACell);
        const auto modifiers = Action == Qt::CopyAction ? Qt::ControlModifier : Qt::NoModifier;
        QDragEnterEvent enter(at.toPoint(), Action, &AData, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&AEdit, &enter);
        QDragMoveEvent move(at.toPoint(), Action, &AData, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&AEdit, &move);
        if (!enter.isAccepted() || !move.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(&AEdit, &leave);
            return Qt::IgnoreAction;
        }
        QDropEvent drop(at, Action, &AData, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&AEdit, &drop);
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }
};

} // namespace

TEST_F(TDragInput, WithinATextAMoveIsOneStep)
{
    const struct {
        const char *Before, *From;
        QPoint To;
        Qt::DropAction Action;
        const char *After;
    } rows[] = {
        {"a[bc]def", "1,0", {5, 0}, Qt::MoveAction, "ade[bc]f"},
        {"a]bc[def", "2,0", {5, 0}, Qt::MoveAction, "ade[bc]f"},
        {"abc[de]f", "3,0", {1, 0}, Qt::MoveAction, "a[de]bcf"},
        {"a[bc]def", "1,0", {5, 0}, Qt::CopyAction, "abcde[bc]f"},
        {"a[b\n\nc]d\nef", "1,0", {1, 3}, Qt::MoveAction, "ad\ne[b\n\nc]f"},
        {"a[b\nc]d", "1,0", {2, 1}, Qt::MoveAction, "ad[b\nc]"},
        {"ab\nc[d\ne]f", "1,1", {1, 0}, Qt::MoveAction, "a[d\ne]b\ncf"},
        {"a[b]", "1,0", {30, 9}, Qt::CopyAction, "ab[b]"},
        {"a[bcd]e", "1,0", {2, 0}, Qt::MoveAction, "a[bcd]e"},
        {"a[bcd]e", "1,0", {2, 0}, Qt::CopyAction, "a[bcd]e"},
        {"a[bcd]e", "1,0", {4, 0}, Qt::MoveAction, "a[bcd]e"},
        {"a[bcd]e", "1,0", {4, 0}, Qt::CopyAction, "abcd[bcd]e"},
        {"a[漢]b\tc", "2,0", {9, 0}, Qt::MoveAction, "ab\tc[漢]"},
    };
    for (const auto &row : rows) {
        Rig.SetMarked(row.Before);
        Edit.ClearUndo();
        Action = row.Action;
        Target = [&](QDrag *drag, Qt::DropActions actions) {
            EXPECT_EQ(actions, Qt::CopyAction | Qt::MoveAction);
            return Drop(Edit, *drag->mimeData(), row.To);
        };
        Rig.Do(QStringLiteral("press@%1 move@12,0 release@12,0").arg(row.From));
        EXPECT_EQ(Rig.Marked(), row.After);
        const bool changed = qstrcmp(row.Before, row.After) != 0;
        EXPECT_EQ(Rig.Changes, changed) << row.After;
        EXPECT_EQ(Edit.GetCanUndo(), changed) << row.After;
        Rig.Do("Ctrl+Z");
        EXPECT_EQ(Rig.Marked(), row.Before);
        EXPECT_FALSE(Edit.GetCanUndo());
    }
}

TEST_F(TDragInput, WhatOthersWroteInItsPlaceStays)
{
    Rig.SetMarked("[abc] def\ngh");
    Target = [this](QDrag *drag, Qt::DropActions) {
        Edit.GetLines()->SetStrings(0, "ABCDE");
        return Drop(Edit, *drag->mimeData(), {1, 1});
    };
    Rig.Do("press@1,0 move@12,0 release@12,0");
    EXPECT_EQ(Rig.Lines().join(u'/'), "ABCDE/gabch");
}

TEST_F(TDragInput, BetweenEditorsItGoesWhenItHasArrived)
{
    TZtCodeEdit other;
    other.SetCorrections(ZtAllCorrections());
    other.SetExtras(zeDragText);
    other.resize(400, 200);
    const struct {
        const char *Obstacle;
        Qt::DropAction Action;
        const char *From, *To;
    } rows[] = {
        {"", Qt::MoveAction, "a|d", "1bc2"},           {"", Qt::CopyAction, "a[bc]d", "1bc2"},
        {"source", Qt::CopyAction, "a[bc]d", "1bc2"},  {"target", Qt::MoveAction, "a[bc]d", "12"},
        {"changed", Qt::MoveAction, "X[bC]d", "1bc2"},
    };
    for (const QByteArrayView obstacle : {"", "source", "target", "changed"})
        for (const auto &row : rows) {
            if (obstacle != row.Obstacle)
                continue;
            other.SetText("12");
            Rig.SetMarked("a[bc]d");
            Edit.SetReadOnly(obstacle == "source");
            other.SetReadOnly(obstacle == "target");
            Action = row.Action;
            Target = [&](QDrag *drag, Qt::DropActions actions) {
                EXPECT_EQ(actions.testFlag(Qt::MoveAction), obstacle != "source");
                const auto done = Drop(other, *drag->mimeData(), {1, 0});
                if (obstacle == "changed")
                    Edit.GetLines()->SetStrings(0, "XbCd");
                return done;
            };
            if (obstacle == "changed")
                Edit.SetCorrections({});
            Rig.Do("press@1,0 move@12,0 release@12,0");
            Edit.SetCorrections(ZtAllCorrections());
            EXPECT_EQ(other.GetLines()->GetStrings(0), row.To) << obstacle.data();
            EXPECT_EQ(Rig.Lines().join(u'/'),
                      QString(row.From).remove(u'[').remove(u']').remove(u'|'))
                << obstacle.data();
        }
}

TEST_F(TDragInput, APressInTheSelectionWaits)
{
    Target = [](QDrag *, Qt::DropActions) {
        ADD_FAILURE() << "nothing is dragged";
        return Qt::IgnoreAction;
    };
    const struct {
        const char *Before, *Words, *Pressed, *After;
    } rows[] = {
        {"a[bc]d", "1,0", "a[bc]d", "a|bcd"},
        {"a[bc]d", "3,0", "abc|d", "abc|d"},
        {"a[bc]d", "0,0", "|abcd", "|abcd"},
        {"a[b\nc]d", "9,0", "a[b\nc]d", "ab|\ncd"},
    };
    for (const auto &row : rows) {
        Rig.SetMarked(row.Before);
        Rig.Do(QStringLiteral("press@%1").arg(row.Words));
        EXPECT_EQ(Rig.Marked(), row.Pressed);
        Rig.Do(QStringLiteral("release@%1").arg(row.Words));
        EXPECT_EQ(Rig.Marked(), row.After);
    }
    Edit.SetExtras({});
    Rig.SetMarked("a[bc]d");
    Rig.Do("press@1,0");
    EXPECT_EQ(Rig.Marked(), "a|bcd");
    Rig.Do("release@1,0");
    Edit.SetExtras(zeDragText);
    Rig.SetMarked("[ab cd]");
    Rig.Do("double@1,0");
    EXPECT_EQ(Rig.Marked(), "[ab] cd");
}

TEST_F(TDragInput, FilesAreLeftToTheParent)
{
    QMimeData files, link;
    files.setUrls({QUrl::fromLocalFile("/tmp/x")});
    link.setUrls({QUrl("https://example.org/")});
    link.setText("link\n\nx");
    Rig.SetMarked("a|b");
    EXPECT_EQ(Drop(Edit, files, {1, 0}), Qt::IgnoreAction);
    EXPECT_EQ(Rig.Marked(), "a|b");
    const QImage before = Picture();
    QDragEnterEvent enter(PixelOf(Edit, {1, 0}).toPoint(), Action, &link, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Edit, &enter);
    EXPECT_NE(Picture(), before) << "a caret shows the place";
    EXPECT_EQ(Drop(Edit, link, {1, 0}), Qt::MoveAction);
    EXPECT_EQ(Rig.Marked(), "a[link\n\nx]b");
    Edit.SetText("");
    for (int i = 0; i < 99; ++i)
        Edit.GetLines()->Add("line");
    Rig.Do("paint");
    QCoreApplication::sendEvent(&Edit, &enter);
    QDragMoveEvent low(QPoint(60, Edit.GetClientHeight() - Rig.H->height() - 2), Action, &link,
                       Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Edit, &low);
    for (int i = 0; i < 100 && Rig.V->GetPosition() < 2; ++i)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_GE(Rig.V->GetPosition(), 2);
}

// --- the primary selection -----------------------------------------------------------------------

TEST_F(TInput, WhatIsSelectedIsThePrimarySelection)
{
    QMimeData *primary = nullptr;
    int offers = 0;
    ZtPlatform().HasPrimary = [] { return true; };
    ZtPlatform().PrimaryText = [&] { return primary ? primary->text() : QString(); };
    ZtPlatform().SetPrimary = [&](QMimeData *data) {
        delete std::exchange(primary, data);
        ++offers;
    };
    const auto text = [&] { return primary ? primary->text() : u"-"_s; };
    const auto middle = [&](int column) {
        const QPoint at(Edit.RealGuttorWidth() + column * Edit.GetCharWidth() + 2, 2);
        QMouseEvent event(QEvent::MouseButtonPress, at, Edit.mapToGlobal(QPointF(at)),
                          Qt::MiddleButton, Qt::MiddleButton, {});
        QCoreApplication::sendEvent(&Edit, &event);
    };
    Edit.SetExtras(zePrimary);
    Rig.SetMarked("|abc\ndef");
    EXPECT_EQ(text(), "-");
    Rig.Do("Shift+Right Shift+Right");
    EXPECT_EQ(text(), "ab");
    Rig.Do("Shift+Down");
    EXPECT_EQ(text(), "abc\nde");
    EXPECT_EQ(offers, 1) << "it is made when it is asked for";
    Rig.Do("click@3,0");
    EXPECT_EQ(text(), "abc\nde") << "what was selected last";
    Rig.Do("press@1,0 move@3,0 release@3,0");
    EXPECT_EQ(text(), "bc");
    middle(0);
    middle(0);
    EXPECT_EQ(Rig.Marked(), "bc|bcabc\ndef");
    Rig.Do("Ctrl+Z");
    EXPECT_EQ(Rig.Marked(), "bc|abc\ndef");
    middle(-1);
    Edit.SetReadOnly(true);
    middle(0);
    EXPECT_EQ(Rig.Lines().join(u'/'), "bcabc/def") << "neither the gutter nor a read-only text";
    delete std::exchange(primary, new QMimeData);
    primary->setText("other");
    Rig.Do("Ctrl+C");
    EXPECT_EQ(text(), "other");
    Rig.Do("Ctrl+A");
    EXPECT_EQ(text(), "bcabc\ndef");
    TZtCodeEdit other;
    other.SetText("other text");
    Edit.SetText("first text"); // as often changed as the other one
    Rig.Do("Ctrl+A");
    Edit.ShareText(&other);
    EXPECT_EQ(text(), "first text") << "what was selected is of the text before";
    Edit.SetExtras({});
    EXPECT_EQ(text(), "-");
}
