// What assistive tools see of the editor and do with it.
//
// ZT_RANDOM_STEPS makes the random run longer; ZT_RANDOM_SEED is its seed.

#include "marked_text.h"
#include "uZtAccessibleEdit.h"
#include "uZtCodePascalParser.h"
#include "uZtTextMarks.h"

#include <QApplication>

#include <random>

using namespace Qt::StringLiterals;

namespace {

// A tool that listens: it keeps the text by what it is told alone.
class TTool {
public:
    TTool()
    {
        ZtPlatform().IsAssisted = [] { return true; };
        ZtPlatform().TellAssistants = [this](QAccessibleEvent &event) { Take(event); };
    }
    ~TTool() { ZtPlatform() = ZtDefaultPlatform(); }
    TTool(const TTool &) = delete;
    TTool &operator=(const TTool &) = delete;

    QObject *Of = nullptr; // whose events are wanted
    QString Text;
    int Caret = 0;
    std::pair<int, int> Selection;
    QStringList Events;
    bool IsStale = false; // it was told to read the value anew

private:
    void Take(QAccessibleEvent &AEvent)
    {
        if (AEvent.object() != Of)
            return;
        switch (AEvent.type()) {
        case QAccessible::TextInserted: {
            auto &event = static_cast<QAccessibleTextInsertEvent &>(AEvent);
            Replace(event.changePosition(), {}, event.textInserted());
            break;
        }
        case QAccessible::TextRemoved: {
            auto &event = static_cast<QAccessibleTextRemoveEvent &>(AEvent);
            Replace(event.changePosition(), event.textRemoved(), {});
            break;
        }
        case QAccessible::TextUpdated: {
            auto &event = static_cast<QAccessibleTextUpdateEvent &>(AEvent);
            Replace(event.changePosition(), event.textRemoved(), event.textInserted());
            break;
        }
        case QAccessible::TextSelectionChanged: {
            auto &event = static_cast<QAccessibleTextSelectionEvent &>(AEvent);
            Selection = {event.selectionStart(), event.selectionEnd()};
            Caret = event.cursorPosition();
            Events += u"selected %1 %2"_s.arg(Selection.first).arg(Selection.second);
            break;
        }
        case QAccessible::TextCaretMoved:
            Caret = static_cast<QAccessibleTextCursorEvent &>(AEvent).cursorPosition();
            Events += u"caret %1"_s.arg(Caret);
            break;
        case QAccessible::ValueChanged:
            IsStale = true;
            Events += u"value"_s;
            break;
        case QAccessible::DescriptionChanged:
            Events +=
                u"description "_s + AEvent.accessibleInterface()->text(QAccessible::Description);
            break;
        case QAccessible::StateChanged:
            Events += u"state"_s;
            break;
        default:
            break;
        }
    }
    void Replace(int AAt, const QString &ARemoved, const QString &AInserted)
    {
        EXPECT_EQ(Text.mid(AAt, ARemoved.size()), ARemoved) << AAt;
        Text.replace(AAt, ARemoved.size(), AInserted);
        Events += u"%1 -%2 +%3"_s.arg(AAt).arg(ARemoved, AInserted);
    }
};

struct TAccessible : testing::Test {
    TTool Tool;
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    QAccessibleInterface *Seen = QAccessible::queryAccessibleInterface(&Edit);
    QAccessibleTextInterface *Text = Seen->textInterface();
    QAccessibleEditableTextInterface *Editable = Seen->editableTextInterface();

    TAccessible() { Start(u"|"_s, {}); }
    void Start(const QString &AMarked, TZtCorrections ACorrections)
    {
        Edit.SetCorrections(ACorrections);
        Edit.SetReadOnly(false);
        Rig.SetMarked(AMarked);
        Look();
        Tool.Of = &Edit;
        Tool.Text = Rig.Lines().join(u'\n');
        Tool.Events.clear();
    }
    // What is told later is told now; nothing is drawn for it.
    static void Look() { QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); }
    QString Whole() const { return Text->text(0, Text->characterCount()); }
};

} // namespace

TEST_F(TAccessible, IsATextToBeEdited)
{
    Start(u"a|b\nc"_s, {});
    EXPECT_EQ(Seen->role(), QAccessible::EditableText);
    EXPECT_EQ(Seen->text(QAccessible::Name), u"Source code"_s);
    Edit.setAccessibleName(u"Unit1"_s);
    EXPECT_EQ(Seen->text(QAccessible::Name), u"Unit1"_s);
    EXPECT_EQ(Seen->text(QAccessible::Value), u"ab\nc"_s);
    const auto state = [&] {
        const QAccessible::State s = Seen->state();
        return QList<int>{int(s.multiLine), int(s.selectableText), int(s.focusable),
                          int(s.focused),   int(s.editable),       int(s.readOnly)};
    };
    EXPECT_EQ(state(), (QList{1, 1, 1, 1, 1, 0}));
    Edit.SetReadOnly(true);
    EXPECT_EQ(state(), (QList{1, 1, 1, 1, 0, 1}));
    Look();
    EXPECT_EQ(Tool.Events, QStringList{u"state"_s});
}

TEST_F(TAccessible, TextIsGivenByBoundaries)
{
    Start(u"if a\n\nOne. Two|"_s, ZtAllCorrections());
    using TAsk = decltype(&QAccessibleTextInterface::textAtOffset);
    constexpr TAsk at = &QAccessibleTextInterface::textAtOffset;
    constexpr TAsk before = &QAccessibleTextInterface::textBeforeOffset;
    constexpr TAsk after = &QAccessibleTextInterface::textAfterOffset;
    struct TRow {
        TAsk Ask;
        int Offset;
        QAccessible::TextBoundaryType Type;
        QString Text;
        int Start, End;
    };
    using enum QAccessible::TextBoundaryType;
    const TRow rows[] = {
        {at, 1, CharBoundary, u"f"_s, 1, 2},
        {at, 4, CharBoundary, u"\n"_s, 4, 5},
        {before, 5, CharBoundary, u"\n"_s, 4, 5},
        {after, 4, CharBoundary, u"\n"_s, 5, 6},
        {at, 14, CharBoundary, u""_s, 14, 14},
        {before, -2, CharBoundary, u"o"_s, 13, 14}, // the caret's
        {at, 1, WordBoundary, u"if"_s, 0, 2},
        {after, 1, WordBoundary, u" "_s, 2, 3},
        {before, 3, WordBoundary, u" "_s, 2, 3},
        {at, 2, LineBoundary, u"if a\n"_s, 0, 5},
        {after, 2, LineBoundary, u"\n"_s, 5, 6},
        {at, 14, LineBoundary, u"One. Two"_s, 6, 14},
        {before, 14, LineBoundary, u"\n"_s, 5, 6},
        {after, 14, LineBoundary, u""_s, 14, 14},
        {before, 3, ParagraphBoundary, u""_s, 0, 0},
        {at, 7, SentenceBoundary, u"One. "_s, 6, 11},
        {after, 7, SentenceBoundary, u"Two"_s, 11, 14},
        {at, -1, NoBoundary, u"if a\n\nOne. Two"_s, 0, 14},
    };
    for (const TRow &row : rows) {
        int start = -9, end = -9;
        EXPECT_EQ((Text->*row.Ask)(row.Offset, row.Type, &start, &end), row.Text) << row.Offset;
        EXPECT_EQ(std::pair(start, end), std::pair(row.Start, row.End)) << row.Offset;
    }
}

TEST_F(TAccessible, CharactersStandWhereTheyAreDrawn)
{
    for (const TZtCorrections corrections : {TZtCorrections(), ZtAllCorrections()}) {
        const bool tabs = corrections != TZtCorrections();
        Start(u"|\ta\nbc"_s, corrections);
        const int cell = Edit.GetCharWidth();
        const QRect b = Text->characterRect(3), c = Text->characterRect(4);
        EXPECT_EQ(b.size(), QSize(cell, Edit.GetLineWidth()));
        EXPECT_EQ(c.left(), b.left() + cell);
        EXPECT_EQ(Text->characterRect(5).left(), c.left() + cell);
        EXPECT_EQ(Text->characterRect(1).left(), b.left() + (tabs ? 8 : 1) * cell);
        EXPECT_EQ(Text->characterRect(0).width(), (tabs ? 8 : 1) * cell);
        EXPECT_EQ(Text->characterRect(0).bottom() + 1, b.top());
        for (const int offset : {0, 1, 3, 4})
            EXPECT_EQ(Text->offsetAtPoint(Text->characterRect(offset).center()), offset);
        EXPECT_EQ(Text->offsetAtPoint(c.center() + QPoint(100, 0)), 5);
        EXPECT_EQ(Text->offsetAtPoint(c.center() + QPoint(0, 2 * c.height())), -1);
        EXPECT_EQ(Text->offsetAtPoint(b.topLeft() - QPoint(9, 0)), -1);
    }
    Start(u"|"_s + QString(99, u'\n') + QString(400, u'x'), ZtAllCorrections());
    EXPECT_FALSE(Edit.rect().contains(Edit.mapFromGlobal(Text->characterRect(450).center())));
    Text->scrollToSubstring(450, 452);
    EXPECT_TRUE(Edit.rect().contains(Edit.mapFromGlobal(Text->characterRect(450).center())));
    EXPECT_EQ(Text->cursorPosition(), 0);
}

TEST_F(TAccessible, LooksAreToldByRuns)
{
    TZtCodePascalParser parser;
    for (const TZtCorrections corrections : {TZtCorrections(), ZtAllCorrections()}) {
        Edit.SetParser(&parser);
        Start(u"|begin\n x := 1; // why\nend."_s, corrections);
        Edit.GetTextMarks().Diagnostics.Set(u"lint"_s, {{{1, 1}, {2, 1}}});
        struct TRow {
            int Offset, Start, End;
            QString Holds;
        };
        const TRow rows[] = {{2, 0, 5, u"font-weight:bold"_s},
                             {7, 7, 8, u"invalid:true"_s},
                             {18, 15, 21, u"color:rgb("_s},
                             {5, 5, 6, u"font-family:"_s},
                             {26, 26, 26, u"font-size:"_s}};
        for (const TRow &row : rows) {
            int start = -9, end = -9;
            const QString look = Text->attributes(row.Offset, &start, &end);
            EXPECT_TRUE(look.contains(row.Holds)) << look.toStdString();
            EXPECT_EQ(std::pair(start, end), std::pair(row.Start, row.End)) << row.Offset;
            EXPECT_EQ(look.contains(u"invalid"_s), row.Offset == 7);
        }
        Edit.GetTextMarks().Diagnostics.Clear();
        Edit.SetParser(nullptr);
    }
}

TEST_F(TAccessible, EditsAreTheEditors)
{
    for (const TZtCorrections corrections : {TZtCorrections(), ZtAllCorrections()}) {
        Start(u"one\ntwo|"_s, corrections);
        const int changes = Rig.Changes;
        Editable->insertText(3, u" a\n\nb"_s);
        EXPECT_EQ(Whole(), u"one a\n\nb\ntwo"_s);
        EXPECT_EQ(Text->cursorPosition(), 8);
        EXPECT_GT(Rig.Changes, changes);
        Edit.Undo();
        EXPECT_EQ(Whole(), u"one\ntwo"_s);
        Editable->deleteText(6, 2);
        EXPECT_EQ(Rig.Marked(), u"on|o"_s);
        Edit.Undo();
        EXPECT_EQ(Whole(), u"one\ntwo"_s);
        Editable->replaceText(0, 3, u"1"_s);
        EXPECT_EQ(Rig.Marked(), u"1|\ntwo"_s);
        Seen->setText(QAccessible::Value, u"new"_s);
        EXPECT_EQ(Whole(), u"new"_s);
        Text->setCursorPosition(2);
        EXPECT_EQ(Rig.Marked(), u"ne|w"_s);
        Text->addSelection(0, 2);
        EXPECT_EQ(Rig.Marked(), u"[ne]w"_s);
        int start = 0, end = 0;
        Text->selection(0, &start, &end);
        EXPECT_EQ(std::pair(start, end), std::pair(0, 2));
        EXPECT_EQ(Text->selectionCount(), 1);
        Text->removeSelection(0);
        EXPECT_EQ(Text->selectionCount(), 0);

        Edit.SetReadOnly(true);
        const QString before = Rig.Marked();
        Editable->insertText(0, u"x"_s);
        Editable->deleteText(0, 2);
        EXPECT_EQ(Rig.Marked(), before);
    }
    EXPECT_EQ(Rig.Errors, QStringList());
}

TEST_F(TAccessible, WhatHappensIsToldInOrderAndInBounds)
{
    struct TRow {
        QString Before;
        QString Keys;
        QStringList Events;
    };
    const TRow rows[] = {
        {u"ab|\nc"_s, u"d"_s, {u"2 - +d"_s, u"caret 3"_s}},
        {u"ab|\nc"_s, u"Enter"_s, {u"2 - +\n"_s, u"caret 3"_s}},
        {u"a|b\nc"_s, u"Shift+Right"_s, {u"selected 1 2"_s}},
        {u"[ab\nc]"_s, u"Delete"_s, {u"0 -ab\nc +"_s, u"selected 0 0"_s}},
        {u"ab\n|c"_s, u"Backspace"_s, {u"2 -\n +"_s, u"caret 2"_s}},
        {u"|ab"_s, u"Right Left"_s, {}},
    };
    for (const TRow &row : rows) {
        Start(row.Before, ZtAllCorrections());
        Rig.Do(row.Keys);
        Look();
        EXPECT_EQ(Tool.Events, row.Events) << row.Keys.toStdString();
    }
    Start(u"|a"_s, ZtAllCorrections());
    Edit.SetText(QString(TZtAccessibleText::MostUnits + 1, u'x'));
    Edit.AddTxt(u"y"_s);
    Look();
    EXPECT_EQ(Tool.Events, (QStringList{u"value"_s, u"caret 1"_s}));
    Tool.Events.clear();
    for (int i = 0; i <= TZtAccessibleText::MostChanges; ++i)
        Edit.GetLines()->Add(u"more"_s);
    Look();
    EXPECT_EQ(Tool.Events, (QStringList{u"value"_s, u"caret 1"_s}));
}

TEST_F(TAccessible, MarksOfTheCaretsLineAreSaid)
{
    Start(u"|one\ntwo"_s, ZtAllCorrections());
    TZtTextMarks &marks = Edit.GetTextMarks();
    marks.Diagnostics.Set(u"lint"_s, {{{0, 1}, {3, 1}, TZtSeverity::dsWarning, u"no use"_s}});
    marks.Marks.Set(1, TZtLineMark::lmBookmark, true);
    Look();
    EXPECT_TRUE(Tool.Events.isEmpty());
    Edit.setAccessibleDescription(u"A unit"_s);
    Tool.Events.clear();
    Rig.Do(u"Down"_s);
    Look();
    const QString said = u"description A unit; Warning: no use; Bookmark"_s;
    EXPECT_EQ(Tool.Events, (QStringList{u"caret 4"_s, said}));
    marks.Diagnostics.Clear();
    Look();
    EXPECT_EQ(Tool.Events.back(), u"description A unit; Bookmark"_s);
}

TEST_F(TAccessible, KnowsTheTextOfAnotherEditor)
{
    TZtCodeEdit other;
    other.SetText(u"of another"_s);
    Edit.ShareText(&other);
    Look();
    EXPECT_EQ(Whole(), u"of another"_s);
    EXPECT_TRUE(Tool.IsStale);
    Tool.Text = Whole();
    other.InsertText(TZtChangeType::ctInsert, u"text "_s);
    Look();
    EXPECT_EQ(Tool.Text, u"text of another"_s);
}

TEST_F(TAccessible, AToolKnowsTheTextAfterAnySteps)
{
    const int longRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    std::mt19937 random(unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED")));
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    const QStringList keys =
        u"a ( \u00E9 \U0001F600 Space Enter Tab Backspace Backspace Delete Left Right Up Down Home "
        "End PgDn Shift+Left Shift+Down Shift+Home Ctrl+Right Ctrl+Home Ctrl+End Ctrl+A #772 "
        "Ctrl+Z "
        "click@3,1 double@2,0 Shift+Delete #770 insert:a\rb\n"_s.split(u' ');
    const int steps = longRun > 0 ? longRun : 5'000;
    for (int step = 0; step < steps; ++step) {
        if (step % 250 == 0)
            Start(u"one two\n\n|last"_s, step % 500 ? ZtAllCorrections() : TZtCorrections());
        const int kind = below(8), count = Text->characterCount();
        const int a = below(count + 1), b = below(count + 1);
        if (kind == 0)
            Editable->replaceText(a, std::min(b, a + 20), below(2) ? u"x\ny"_s : QString());
        else if (kind == 1)
            below(2) ? Text->setCursorPosition(a) : Text->setSelection(0, a, b);
        else if (kind == 2 && Edit.GetLines()->GetCount() > 1)
            Edit.GetLines()->Delete(below(Edit.GetLines()->GetCount()));
        else
            Rig.Do(keys[below(int(keys.size()))]);
        if (below(4) > 0)
            Look();
        if (below(50) == 0)
            Edit.SetText(u"anew\r\n"_s.repeated(below(30)));
        const QString whole = Rig.Lines().join(u'\n');
        ASSERT_EQ(Whole(), whole) << step;
        const int asked = below(int(whole.size()) + 1);
        const auto type = QAccessible::TextBoundaryType(below(QAccessible::NoBoundary + 1));
        int start = 0, end = 0, next = 0, last = 0;
        const QString at = Text->textAtOffset(asked, type, &start, &end);
        ASSERT_EQ(at, whole.mid(start, end - start)) << step;
        ASSERT_TRUE(start <= asked && (asked < end || asked == whole.size())) << step;
        Text->textAfterOffset(asked, type, &next, &last);
        ASSERT_EQ(next, type == QAccessible::NoBoundary ? whole.size() : end) << step;
        if (start > 0) {
            Text->textBeforeOffset(asked, type, &next, &last);
            ASSERT_EQ(last, start) << step;
        }
        if (below(3) > 0)
            continue;
        Look();
        ASSERT_EQ(Tool.Text, whole) << step << Tool.Events.join(u'|').toStdString();
        ASSERT_EQ(Tool.Caret, Text->cursorPosition()) << step;
        Tool.Events.clear();
    }
}
