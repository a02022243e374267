#include "uZtClassRegistry.h"
#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QMetaProperty>

#include <gtest/gtest.h>

namespace {

struct TCountingEdit : TZtCodeEdit {
    TCountingEdit(int AWidth, int AHeight)
    {
        resize(AWidth, AHeight);
        show();
        Painted();
    }
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

bool IsPlain(const TZtLangParser *AParser)
{
    return AParser->metaObject() == &TZtLangParser::staticMetaObject;
}

} // namespace

TEST(Properties, Defaults)
{
    using TControl = TCustomControl;
    TZtCodeEdit editor;
    const auto shown = TZtCodeOption::coShowGuttor | TZtCodeOption::coShowRightMargin;
    const auto anchors = TControl::TAnchorKind::akLeft | TControl::TAnchorKind::akTop;
    const std::pair<const char *, QVariant> rows[] = {
        {"BevelEdges", QVariant::fromValue(TControl::TBevelEdges(0xF))},
        {"BevelInner", QVariant::fromValue(TControl::TBevelCut::bvRaised)},
        {"BevelOuter", QVariant::fromValue(TControl::TBevelCut::bvLowered)},
        {"BevelKind", QVariant::fromValue(TControl::TBevelKind::bkNone)},
        {"BevelWidth", 1},
        {"BorderStyle", QVariant::fromValue(TBorderStyle::bsSingle)},
        {"Ctl3D", true},
        {"Align", QVariant::fromValue(TControl::TAlign::alNone)},
        {"Anchors", QVariant::fromValue(anchors)},
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
        {"Lines", QVariant::fromValue(editor.GetLines())},
        {"Parser", QVariant::fromValue(editor.GetParser())},
    };
    for (const auto &[name, value] : rows) {
        EXPECT_EQ(editor.property(name), value) << name;
        const int index = editor.metaObject()->indexOfProperty(name);
        EXPECT_TRUE(editor.metaObject()->property(index).isWritable()) << name;
    }
    const auto font = editor.property("Font").value<QFont>();
    EXPECT_EQ(font.family().toLower(), QString("courier new"));
    EXPECT_EQ(font.pointSize(), 10);
    EXPECT_TRUE(IsPlain(editor.GetParser()));
    EXPECT_TRUE(editor.focusPolicy() & Qt::TabFocus);
    for (const int lines : {-1, 0, 1, 7}) {
        ZtPlatform().WheelLines = [lines] { return lines; };
        EXPECT_EQ(TZtCodeEdit().GetScollLines(), lines < 1 ? 3 : lines);
    }
    ZtPlatform() = ZtDefaultPlatform();
}

TEST(Properties, WhichSettersAskForAPaint)
{
    TCountingEdit editor(300, 200);
    QMenu menu;
    TZtLangParser parser;
    const std::pair<bool, std::function<void()>> rows[] = {
        {false, [&] { editor.SetGuttorWidth(50); }},
        {false, [&] { editor.SetBorderStyle(TBorderStyle::bsNone); }},
        {false, [&] { editor.SetPopupMenu(&menu); }},
        {false, [&] { editor.SetTabIndentSize(4); }},
        {false, [&] { editor.SetParserLineNr(3); }},
        {false, [&] { editor.SetOnChange([](QObject *) {}); }},
        {true, [&] { editor.SetRightMargin(70); }},
        {true, [&] { editor.SetRightMarginColor(clRed); }},
        {true, [&] { editor.SetReadOnly(true); }},
        {true, [&] { editor.SetParser(&parser); }},
        {false, [&] { editor.SetParser(&parser); }},
        {true, [&] { editor.GetVScrollBar()->SetPosition(1); }},
        {true, [&] { editor.GetLines()->Add("a"); }},
        {true, [&] { editor.SetOptions(TZtCodeOption::coCanCollapse); }},
    };
    const QRect bar = editor.GetHScrollBar()->geometry();
    for (const auto &[paints, set] : rows) {
        set();
        EXPECT_TRUE(paints || editor.GetHScrollBar()->geometry() == bar);
        EXPECT_EQ(editor.Painted(), paints) << &set - &rows[0].second;
    }
    EXPECT_EQ(editor.GetGuttorWidth(), 50);
    EXPECT_EQ(editor.GetPopupMenu(), &menu);
    EXPECT_EQ(editor.GetParserLineNr(), 3);
}

// The two switches only ever switch on.
TEST(Properties, OptionsAndTheirSwitches)
{
    TCountingEdit editor(300, 200);
    editor.SetShowGuttor(false);
    EXPECT_TRUE(editor.GetShowGuttor() && editor.GetShowRightMargin());
    editor.SetOptions(TZtCodeOption::coCanCollapse);
    EXPECT_FALSE(editor.GetShowGuttor() || editor.GetShowRightMargin());
    EXPECT_EQ(editor.RealGuttorWidth(), 0);
    EXPECT_EQ(editor.GetGuttorWidth(), 20);
    EXPECT_EQ(editor.GetHScrollBar()->x(), 0);
    editor.SetShowRightMargin(false);
    EXPECT_EQ(editor.GetOptions(), TZtCodeOption::coCanCollapse | TZtCodeOption::coShowRightMargin);
    editor.SetShowGuttor(false);
    EXPECT_EQ(int(editor.GetOptions()), 7);
    EXPECT_EQ(editor.GetHScrollBar()->x(), 20);
}

TEST(Properties, WhoseTheParserIs)
{
    QPointer<TZtLangParser> host = new TZtLangParser, replaced = new TZtLangParser;
    auto *editor = new TZtCodeEdit;
    const auto isOwn = [editor](const TZtLangParser *parser) {
        return IsPlain(parser) && parser->parent() == editor;
    };
    editor->GetLines()->Add("a");
    QPointer<TZtLangParser> own = editor->GetParser();
    EXPECT_TRUE(isOwn(own) && editor->GetParser() == own);
    editor->SetParser(replaced);
    EXPECT_FALSE(own);
    editor->Paint();
    editor->SetParser(host);
    EXPECT_TRUE(replaced);
    editor->Notification(host, TOperation::opInsert);
    EXPECT_EQ(editor->GetParser(), host);
    editor->SetParser(nullptr);
    own = editor->GetParser();
    EXPECT_TRUE(host && isOwn(own));
    // One that was created with the editor as its owner belongs to it, whoever created it.
    QPointer<TZtLangParser> given = new TZtLangParser(editor);
    editor->SetParser(given);
    EXPECT_FALSE(own);
    editor->SetParser(new TZtLangParser);
    EXPECT_FALSE(given);
    delete editor->GetParser();
    EXPECT_TRUE(isOwn(editor->GetParser()));
    editor->SetParser(host);
    editor->Paint();
    editor->SetPopupMenu(new QMenu);
    delete editor->GetPopupMenu();
    EXPECT_EQ(editor->GetPopupMenu(), nullptr);
    editor->SetPopupMenu(new QMenu(editor));
    delete editor;
    ASSERT_TRUE(host && replaced);
    for (TZtLangParser *parser : {host.data(), replaced.data()}) {
        parser->ResetBuffer();
        EXPECT_EQ(parser->ReadChar(), u'\0') << "the source went with the editor";
        delete parser;
    }
}

TEST(Properties, ModifiedAndLoaded)
{
    TZtCodeEdit editor;
    editor.BeginLoading();
    editor.GetLines()->Add("a");
    EXPECT_TRUE(editor.GetModified());
    editor.Loaded();
    EXPECT_FALSE(editor.GetModified());
    editor.Paint();
    EXPECT_FALSE(editor.GetModified()) << "the states that a paint stores are no change";
    editor.GetLines()->SetObjects(0, 5);
    EXPECT_TRUE(editor.GetModified());
    editor.SetModified(false);
    editor.GetLines()->Clear();
    EXPECT_TRUE(editor.GetModified());
    int changes = 0;
    editor.SetOnChange([&](QObject *sender) { changes += sender == &editor; });
    editor.Changed();
    EXPECT_EQ(changes, 1);
    bool collapsed = true;
    EXPECT_FALSE(editor.IsLineCollapse(0, collapsed));
    EXPECT_TRUE(collapsed);
    TZtCodeList shell;
    shell.SetStrings(0, "a");
    EXPECT_EQ(shell.GetStrings(0), QString());
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
        editor.resize(row.Width, row.Height);
        editor.show();
        QCoreApplication::processEvents();
        const TScrollBar &across = *editor.GetHScrollBar(), &down = *editor.GetVScrollBar();
        const int g = row.Guttor ? 20 : 0, h = across.height();
        const int cell = editor.GetCharWidth(), pitch = editor.GetLineWidth();
        EXPECT_EQ(across.geometry(), QRect(g, row.Height - h, row.Width - h - g, h));
        EXPECT_EQ(down.geometry(), QRect(row.Width - h, 0, h, row.Height - h));
        EXPECT_EQ(across.focusPolicy() | down.focusPolicy(), Qt::NoFocus);
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
    TCountingEdit editor(400, 300);
    const int cell = editor.GetCharWidth(), pitch = editor.GetLineWidth();
    QFont font = editor.GetFont();
    font.setPointSize(24);
    editor.SetFont(font);
    EXPECT_EQ(editor.GetCharWidth(), cell);
    editor.Paint();
    EXPECT_EQ(editor.GetCharWidth(), QFontMetrics(font).horizontalAdvance(u'X'));
    EXPECT_GT(editor.GetLineWidth(), pitch);
    editor.SetLineWidth(40);
    EXPECT_EQ(editor.GetVScrollBar()->GetPageSize(),
              (300 - editor.GetHScrollBar()->height() - 40) / 40);
}

TEST(Properties, TheRegistryCreatesByName)
{
    QWidget form;
    QObject noWidget;
    const QObject *made = ZtCreateObject("TZtCodeEdit", &form);
    ASSERT_NE(qobject_cast<const TZtCodeEdit *>(made), nullptr);
    EXPECT_EQ(made->parent(), &form);
    EXPECT_EQ(ZtCreateObject("TZtCodeEdit", &noWidget), nullptr);
    EXPECT_EQ(ZtCreateObject("TNoSuchClass", &form), nullptr);
}
