#include "uZtClassRegistry.h"
#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QMetaProperty>

#include <gtest/gtest.h>

namespace {

struct TCountingEdit : TZtCodeEdit {
    void Paint() override
    {
        ++Paints;
        TZtCodeEdit::Paint();
    }
    // Whether the editor asked for a paint since the last question.
    bool Painted()
    {
        QCoreApplication::processEvents();
        return std::exchange(Paints, 0) > 0;
    }
    int Paints = 0;
};

void ShowAt(TZtCodeEdit &AEditor, int AWidth, int AHeight)
{
    AEditor.resize(AWidth, AHeight);
    AEditor.show();
    QCoreApplication::processEvents();
}

bool IsPlain(const TZtLangParser *AParser)
{
    return AParser->metaObject() == &TZtLangParser::staticMetaObject;
}

} // namespace

TEST(Properties, Defaults)
{
    const TZtCodeEdit editor;
    const auto shown = TZtCodeOption::coShowGuttor | TZtCodeOption::coShowRightMargin;
    const struct {
        const char *Name;
        QVariant Value;
    } rows[] = {
        {"BevelEdges", QVariant::fromValue(TCustomControl::TBevelEdges(0xF))},
        {"BevelInner", QVariant::fromValue(TCustomControl::TBevelCut::bvRaised)},
        {"BevelOuter", QVariant::fromValue(TCustomControl::TBevelCut::bvLowered)},
        {"BevelKind", QVariant::fromValue(TCustomControl::TBevelKind::bkNone)},
        {"BevelWidth", 1},
        {"BorderStyle", QVariant::fromValue(TBorderStyle::bsSingle)},
        {"Ctl3D", true},
        {"Align", QVariant::fromValue(TCustomControl::TAlign::alNone)},
        {"Anchors", QVariant::fromValue(TCustomControl::TAnchorKind::akLeft |
                                        TCustomControl::TAnchorKind::akTop)},
        {"Width", 100},
        {"Height", 100},
        {"GuttorWidth", 20},
        {"RightMargin", 80},
        {"RightMarginColor", QVariant::fromValue(clBtnFace)},
        {"Options", QVariant::fromValue(TZtCodeOptions(shown))},
        {"ReadOnly", false},
        {"TabIndentSize", 2},
        {"PopupMenu", QVariant::fromValue<QMenu *>(nullptr)},
        {"LinePos", 0},
        {"CharPos", 0},
        {"ShowGuttor", true},
        {"ShowRightMargin", true},
        {"SelStart", QPoint(-1, -1)},
        {"SelEnd", QPoint(-1, -1)},
        {"Text", QString()},
        {"ParserLineNr", 0},
        {"Modified", false},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(editor.property(row.Name), row.Value) << row.Name;
        const int index = editor.metaObject()->indexOfProperty(row.Name);
        ASSERT_GE(index, 0) << row.Name;
        EXPECT_TRUE(editor.metaObject()->property(index).isWritable()) << row.Name;
    }
    const auto font = editor.property("Font").value<QFont>();
    EXPECT_EQ(font.family().toLower(), QStringLiteral("courier new"));
    EXPECT_EQ(font.pointSize(), 10);
    EXPECT_EQ(editor.property("Lines").value<TStringList *>(), editor.GetLines());
    EXPECT_TRUE(IsPlain(editor.property("Parser").value<TZtLangParser *>()));
    EXPECT_TRUE(editor.focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(int(TZtLineKind::lkHidden), 4);
}

TEST(Properties, WhichSettersAskForAPaint)
{
    TCountingEdit editor;
    ShowAt(editor, 300, 200);
    QMenu menu;
    TZtLangParser parser;
    const struct {
        const char *Name;
        std::function<void()> Set;
        bool Paints;
    } rows[] = {
        {"GuttorWidth", [&] { editor.SetGuttorWidth(50); }, false},
        {"BorderStyle", [&] { editor.SetBorderStyle(TBorderStyle::bsNone); }, false},
        {"PopupMenu", [&] { editor.SetPopupMenu(&menu); }, false},
        {"TabIndentSize", [&] { editor.SetTabIndentSize(4); }, false},
        {"ParserLineNr", [&] { editor.SetParserLineNr(3); }, false},
        {"OnChange", [&] { editor.SetOnChange([](QObject *) {}); }, false},
        {"RightMargin", [&] { editor.SetRightMargin(70); }, true},
        {"RightMarginColor", [&] { editor.SetRightMarginColor(clRed); }, true},
        {"ReadOnly", [&] { editor.SetReadOnly(true); }, true},
        {"Parser", [&] { editor.SetParser(&parser); }, true},
        {"the same Parser", [&] { editor.SetParser(&parser); }, false},
        {"scrolling", [&] { editor.GetVScrollBar()->SetPosition(1); }, true},
        {"a line", [&] { editor.GetLines()->Add(QStringLiteral("a")); }, true},
    };
    const QRect bar = editor.GetHScrollBar()->geometry();
    EXPECT_TRUE(editor.Painted());
    for (const auto &row : rows) {
        row.Set();
        EXPECT_EQ(editor.Painted(), row.Paints) << row.Name;
        EXPECT_TRUE(editor.GetHScrollBar()->geometry() == bar || row.Paints) << row.Name;
    }
    EXPECT_EQ(editor.GetGuttorWidth(), 50);
    EXPECT_EQ(editor.GetBorderStyle(), TBorderStyle::bsNone);
    EXPECT_EQ(editor.GetPopupMenu(), &menu);
    EXPECT_EQ(editor.GetParserLineNr(), 3);
    EXPECT_TRUE(editor.GetReadOnly());
}

TEST(Properties, OptionsAndTheirSwitches)
{
    TCountingEdit editor;
    ShowAt(editor, 300, 200);
    editor.SetShowGuttor(false);
    editor.SetShowRightMargin(false);
    EXPECT_TRUE(editor.GetShowGuttor());
    EXPECT_TRUE(editor.GetShowRightMargin());

    EXPECT_TRUE(editor.Painted());
    editor.SetOptions(TZtCodeOption::coCanCollapse);
    EXPECT_TRUE(editor.Painted());
    EXPECT_FALSE(editor.GetShowGuttor());
    EXPECT_FALSE(editor.GetShowRightMargin());
    EXPECT_EQ(editor.RealGuttorWidth(), 0);
    EXPECT_EQ(editor.GetGuttorWidth(), 20);
    EXPECT_EQ(editor.GetHScrollBar()->x(), 0);

    editor.SetShowRightMargin(false);
    EXPECT_EQ(editor.GetOptions(), TZtCodeOption::coCanCollapse | TZtCodeOption::coShowRightMargin);
    editor.SetShowGuttor(false);
    EXPECT_EQ(int(editor.GetOptions()), 7);
    EXPECT_EQ(editor.RealGuttorWidth(), 20);
    EXPECT_EQ(editor.GetHScrollBar()->x(), 20);
}

TEST(Properties, ParserOwnership)
{
    QPointer<TZtLangParser> host = new TZtLangParser;
    QPointer<TZtLangParser> replaced = new TZtLangParser;
    auto *editor = new TZtCodeEdit;
    editor->GetLines()->Add(QStringLiteral("a"));
    QPointer<TZtLangParser> own = editor->GetParser();
    EXPECT_TRUE(IsPlain(own));
    EXPECT_EQ(own->parent(), editor);
    EXPECT_EQ(editor->GetParser(), own);

    editor->SetParser(replaced);
    EXPECT_FALSE(own);
    editor->Paint();
    editor->SetParser(host);
    EXPECT_EQ(editor->GetParser(), host);
    EXPECT_TRUE(replaced);
    editor->SetParser(nullptr);
    EXPECT_TRUE(host);
    own = editor->GetParser();
    EXPECT_TRUE(IsPlain(own) && own->parent() == editor);

    // One that was created with the editor as its owner belongs to it, whoever created it.
    QPointer<TZtLangParser> given = new TZtLangParser(editor);
    editor->SetParser(given);
    EXPECT_FALSE(own);
    editor->SetParser(host);
    EXPECT_FALSE(given);

    editor->Paint();
    delete editor;
    ASSERT_TRUE(host && replaced);
    for (TZtLangParser *parser : {host.data(), replaced.data()}) {
        parser->ResetBuffer();
        EXPECT_EQ(parser->ReadChar(), u'\0') << "the source went with the editor";
        delete parser;
    }
}

TEST(Properties, RemovedComponentsAreForgotten)
{
    TZtCodeEdit editor;
    auto *parser = new TZtLangParser;
    auto *menu = new QMenu;
    editor.SetParser(parser);
    editor.SetPopupMenu(menu);
    editor.Notification(parser, TOperation::opInsert);
    EXPECT_EQ(editor.GetParser(), parser);
    delete menu;
    EXPECT_EQ(editor.GetPopupMenu(), nullptr);
    delete parser;
    ASSERT_NE(editor.GetParser(), nullptr);
    EXPECT_EQ(editor.GetParser()->parent(), &editor);
    editor.Paint();

    // Removed with the editor itself, as its child.
    auto *owner = new TZtCodeEdit;
    owner->SetPopupMenu(new QMenu(owner));
    delete owner;
}

TEST(Properties, ModifiedAndLoaded)
{
    TZtCodeEdit editor;
    editor.BeginLoading();
    editor.GetLines()->Add(QStringLiteral("a"));
    EXPECT_TRUE(editor.GetModified());
    editor.Loaded();
    EXPECT_FALSE(editor.GetModified());
    editor.Paint();
    EXPECT_FALSE(editor.GetModified()) << "the states that a paint stores are no change";
    editor.GetLines()->SetObjects(0, 5);
    EXPECT_TRUE(editor.GetModified());
    editor.SetModified(false);
    EXPECT_FALSE(editor.GetModified());
    editor.GetLines()->Clear();
    EXPECT_TRUE(editor.GetModified());

    int changes = 0;
    editor.SetOnChange([&](QObject *sender) { changes += sender == &editor; });
    editor.Changed();
    EXPECT_EQ(changes, 1);
    bool collapsed = true;
    EXPECT_FALSE(editor.IsLineCollapse(0, collapsed));
    EXPECT_TRUE(collapsed);
}

TEST(Layout, BarsRangesAndPages)
{
    const struct {
        int Width, Height;
        bool Guttor;
    } rows[] = {{400, 300, true}, {400, 300, false}, {150, 90, true}, {45, 40, true}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Width + int(row.Guttor));
        TZtCodeEdit editor;
        if (!row.Guttor)
            editor.SetOptions({});
        ShowAt(editor, row.Width, row.Height);
        const TScrollBar &across = *editor.GetHScrollBar();
        const TScrollBar &down = *editor.GetVScrollBar();
        const int g = row.Guttor ? 20 : 0;
        const int h = across.height();
        const int cell = editor.GetCharWidth();
        const int pitch = editor.GetLineWidth();
        EXPECT_EQ(across.orientation(), Qt::Horizontal);
        EXPECT_EQ(down.orientation(), Qt::Vertical);
        EXPECT_EQ(across.geometry(), QRect(g, row.Height - h, row.Width - h - g, h));
        EXPECT_EQ(down.geometry(), QRect(row.Width - h, 0, h, row.Height - h));
        EXPECT_EQ(across.focusPolicy() | down.focusPolicy(), Qt::NoFocus);
        EXPECT_EQ(across.GetMax(), 500);
        EXPECT_EQ(across.GetPageSize(), (row.Width - g - h - cell) / cell);
        EXPECT_EQ(down.GetPageSize(), (row.Height - h - pitch) / pitch);
        EXPECT_EQ(down.GetLargeChange(), qMax(down.GetPageSize(), 0));

        editor.Paint();
        EXPECT_EQ(across.GetPageSize(), (row.Width - h - g) / cell - 1);
        for (int count = 1; count < 4; ++count) {
            editor.GetLines()->Add(QString(600, u'x'));
            EXPECT_EQ(down.GetMax(), count + 100);
        }
        EXPECT_EQ(across.GetMax(), 500);
    }
}

TEST(Layout, TheFontIsMeasuredAtTheNextPaint)
{
    TZtCodeEdit editor;
    ShowAt(editor, 400, 300);
    const int cell = editor.GetCharWidth();
    const int pitch = editor.GetLineWidth();
    QFont font = editor.GetFont();
    font.setPointSize(24);
    editor.SetFont(font);
    EXPECT_EQ(editor.GetCharWidth(), cell);
    editor.Paint();
    EXPECT_GT(editor.GetCharWidth(), cell);
    EXPECT_GT(editor.GetLineWidth(), pitch);
    EXPECT_EQ(editor.GetCharWidth(), QFontMetrics(font).horizontalAdvance(u'X'));
    editor.SetLineWidth(40);
    EXPECT_EQ(editor.GetVScrollBar()->GetPageSize(),
              (300 - editor.GetHScrollBar()->height() - 40) / 40);
}

TEST(Properties, WheelLinesComeFromTheSystem)
{
    for (const int lines : {-1, 0, 1, 7}) {
        ZtPlatform().WheelLines = [lines] { return lines; };
        EXPECT_EQ(TZtCodeEdit().GetScollLines(), lines < 1 ? 3 : lines);
    }
    ZtPlatform() = ZtDefaultPlatform();
}

TEST(Properties, TheListShellStoresNothing)
{
    TZtCodeList list;
    list.SetStrings(0, QStringLiteral("a"));
    EXPECT_EQ(list.GetStrings(0), QString());
}

TEST(Properties, TheRegistryCreatesByName)
{
    QWidget form;
    QObject *made = ZtCreateObject(QStringLiteral("TZtCodeEdit"), &form);
    ASSERT_NE(qobject_cast<TZtCodeEdit *>(made), nullptr);
    EXPECT_EQ(made->parent(), &form);
    QObject noWidget;
    EXPECT_EQ(ZtCreateObject(QStringLiteral("TZtCodeEdit"), &noWidget), nullptr);
    EXPECT_EQ(ZtCreateObject(QStringLiteral("TNoSuchClass"), &form), nullptr);
}
