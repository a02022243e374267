#include "uZtClassRegistry.h"
#include "uZtCodeEdit.h"
#include "uZtCodeSqlParser.h"

#include <QCoreApplication>
#include <QMenu>

#include <gtest/gtest.h>

namespace {

bool IsPlain(const TZtLangParser *AParser)
{
    return AParser->metaObject() == &TZtLangParser::staticMetaObject;
}

} // namespace

// The two switches only ever switch on.
TEST(Properties, OptionsAndTheirSwitches)
{
    TZtCodeEdit editor;
    editor.show();
    editor.SetShowGuttor(false);
    EXPECT_TRUE(editor.GetShowGuttor() && editor.GetShowRightMargin());
    editor.SetOptions(TZtCodeOption::coCanCollapse);
    EXPECT_FALSE(editor.GetShowGuttor() || editor.GetShowRightMargin());
    EXPECT_EQ(editor.GetHScrollBar()->x(), 0);
    editor.SetShowRightMargin(false);
    EXPECT_EQ(int(editor.GetOptions()), 5);
    editor.SetShowGuttor(false);
    EXPECT_EQ(int(editor.GetOptions()), 7);
    EXPECT_EQ(editor.GetHScrollBar()->x(), 20);
}

TEST(Properties, WhoseTheParserIs)
{
    QPointer<TZtLangParser> host = new TZtLangParser;
    auto *editor = new TZtCodeEdit;
    const auto isOwn = [editor](const TZtLangParser *parser) {
        return IsPlain(parser) && parser->parent() == editor;
    };
    editor->GetLines()->Add("a");
    QPointer<TZtLangParser> own = editor->GetParser();
    EXPECT_TRUE(isOwn(own));
    editor->SetParser(host);
    EXPECT_FALSE(own);
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
    ASSERT_TRUE(host);
    host->ResetBuffer();
    EXPECT_EQ(host->ReadChar(), u'\0') << "the source went with the editor";
    delete host;
}

TEST(Properties, LanguageIsTheLexers)
{
    TZtCodeEdit editor;
    editor.resize(300, 200);
    editor.show();
    int told = 0, changed = 0;
    QObject::connect(&editor, &TZtCodeEdit::languageChanged, &editor, [&] { ++told; });
    const auto isTold = [&](const char *language) {
        QCoreApplication::processEvents();
        EXPECT_EQ(editor.GetLanguage(), language);
        return std::exchange(told, 0) == 1;
    };
    EXPECT_EQ(editor.GetLanguage(), "");
    editor.SetLanguage("javascript");
    EXPECT_TRUE(isTold("JavaScript"));
    EXPECT_EQ(editor.GetParser()->parent(), &editor);

    // As a paint leaves it there: a state that is not one of another lexer.
    editor.SetText("a\nb");
    editor.GetLines()->SetObjects(1, 2);
    editor.SetModified(false);
    QObject::connect(&editor, &TZtCodeEdit::textChanged, &editor, [&] { ++changed; });
    const QPointer<TZtLangParser> lexer = editor.GetParser();
    editor.SetLanguage("JavaScript");
    EXPECT_THROW(editor.SetLanguage("unheard of"), EZtParser);
    editor.setProperty("Language", "unheard of");
    EXPECT_TRUE(lexer && lexer == editor.GetParser() && told == 0);
    editor.setProperty("Language", "XML");
    EXPECT_TRUE(isTold("XML"));
    EXPECT_FALSE(lexer);
    EXPECT_EQ(editor.GetLines()->GetObjects(1), 0);
    EXPECT_FALSE(editor.GetModified() || changed);

    auto host = std::make_unique<TZtCodeSqlParser>();
    editor.SetParser(host.get());
    EXPECT_TRUE(isTold("Sql"));
    host.reset();
    EXPECT_TRUE(isTold(""));
    editor.SetLanguage("Pascal");
    editor.SetLanguage("");
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(IsPlain(editor.GetParser()));
}

TEST(Properties, AFormMayGoWithItsEditor)
{
    int told = 0;
    auto form = std::make_unique<QWidget>();
    auto *editor = new TZtCodeEdit(form.get());
    auto *bound = new TZtCodeEdit(form.get());
    editor->SetLanguage("Pascal");
    bound->SetParser(new TZtCodeSqlParser(form.get()));
    for (TZtCodeEdit *edit : {editor, bound})
        QObject::connect(edit, &TZtCodeEdit::languageChanged, form.get(), [&] { ++told; });
    form.reset();
    EXPECT_EQ(told, 0);
}

TEST(Properties, ModifiedAndLoaded)
{
    TZtCodeEdit editor;
    editor.BeginLoading();
    editor.GetLines()->Add("a");
    editor.Loaded();
    editor.Paint();
    EXPECT_FALSE(editor.GetModified()) << "the states that a paint stores are no change";
    editor.GetLines()->SetObjects(0, 5);
    EXPECT_TRUE(editor.GetModified());
}

TEST(Properties, BarsRangesAndPages)
{
    TZtCodeEdit editor;
    editor.resize(400, 300);
    editor.show();
    const TScrollBar &across = *editor.GetHScrollBar(), &down = *editor.GetVScrollBar();
    const int h = across.height();
    EXPECT_EQ(across.geometry(), QRect(20, 300 - h, 380 - h, h));
    EXPECT_EQ(down.geometry(), QRect(400 - h, 0, h, 300 - h));
    editor.GetLines()->Add(QString(600, u'x'));
    EXPECT_EQ(down.GetMax(), 101);
    EXPECT_EQ(across.GetMax(), 500);
    editor.SetLineWidth(40);
    EXPECT_EQ(down.GetPageSize(), (300 - h - 40) / 40);
}

TEST(Properties, TheRegistryCreatesByName)
{
    QWidget form;
    const QObject *made = ZtCreateObject("TZtCodeEdit", &form);
    EXPECT_TRUE(qobject_cast<const TZtCodeEdit *>(made) && made->parent() == &form);
}
