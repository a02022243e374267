#include "Document.h"
#include "EventDialog.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "session.h"

#include "uZtCodeEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 60'000; // milliseconds, of which a fraction is needed

// A script, and what a user does in the dialog for handlers: chooses an event, or a fitting method,
// and presses a button.
class TScript : public TDocument {
public:
    explicit TScript(const QString &AText, const char *AExtension = "vbs") : TDocument(u"new"_s)
    {
        Become(AExtension, AText);
    }
    void Become(const char *AExtension, const QString &AText)
    {
        SetLanguage(ZtLanguageOfFile(u"x."_s + QLatin1StringView(AExtension)));
        Editor()->SetText(AText);
    }
    TMethodIndex *Index() { return ZtMethodIndexOf(*this); }
    // "name:line" of each method.
    QString Methods()
    {
        TMethodIndex *index = Index();
        QStringList found;
        EXPECT_TRUE(!index || index->ReadOn(Patience));
        for (int i = 0; index && i < index->Count(); ++i)
            found += u"%1:%2"_s.arg(index->Name(i)).arg(index->Line(i));
        return found.join(u' ');
    }
    // The text with a `|` for the caret.
    QString Marked() const
    {
        QStringList lines = Editor()->GetText().split(u"\r\n"_s);
        lines[Editor()->GetLinePos()].insert(Editor()->GetCharPos(), u'|');
        return lines.join(u'\n');
    }
};

QStringList Fitting(TEventDialog &ADialog, const QString &AEvent)
{
    auto *events = ADialog.findChild<QListWidget *>(u"events"_s);
    events->setCurrentItem(events->findItems(AEvent, Qt::MatchExactly).value(0));
    QStringList fitting;
    const auto *methods = ADialog.findChild<QListWidget *>(u"methods"_s);
    for (int i = 0; i < methods->count(); ++i)
        fitting += methods->item(i)->text();
    return fitting;
}

QPushButton *Button(TEventDialog &ADialog, const QString &AText)
{
    for (auto *button : ADialog.findChildren<QPushButton *>())
        if (button->text().remove(u'&') == AText)
            return button;
    return nullptr;
}

void Wait(const std::function<bool()> &AUntil)
{
    while (!AUntil())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

TEST(Methods, AreListedWithTheirLines)
{
    const struct {
        const char *Extension;
        QString Text, Methods;
    } rows[] = {
        {"vbs", u"sub A\nend sub ' sub X\nfunction b(c)\nend function\nSUB\nd"_s, u"A:1 b:3 d:6"_s},
        {"js", u"function a() {\n}\n/* function x\n*/\nfunction b() {}"_s, u"a:1 b:5"_s},
        {"vbs", {}, {}},
        {"pas", u"function a;"_s, {}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(TScript(row.Text, row.Extension).Methods(), row.Methods);
    // A long line is read in pieces, which cut words in two.
    const QString rest = u"function abc(){}function d\nfunction e"_s;
    for (int blanks = 16378; blanks < 16386; ++blanks)
        EXPECT_EQ(TScript(QString(blanks, u' ') + rest, "js").Methods(), u"abc:1 d:1 e:2"_s);
}

TEST(Methods, AreReadAgainWhenTheTextHasChanged)
{
    TScript script(u"sub A\nend sub"_s);
    TMethodIndex *index = script.Index();
    int restarts = 0;
    QObject::connect(index, &TMethodIndex::Restarted, [&] { ++restarts; });
    Wait([&] { return index->IsComplete(); });
    EXPECT_EQ(index->Progress(), 1);
    for (const QChar typed : u"\nsub B"_s) {
        script.Editor()->InsertText(TZtChangeType::ctPaste, QString(typed));
        QApplication::processEvents();
        EXPECT_EQ(index->Count() + index->Progress(), 0) << "not before a pause";
    }
    EXPECT_EQ(restarts, 1);
    Wait([&] { return index->IsComplete(); });
    EXPECT_EQ(script.Index(), index);
    EXPECT_EQ(script.Methods(), u"Bsub:2"_s);
    script.Become("js", u"function f() {\n}\n'function g'"_s);
    EXPECT_EQ(script.Methods(), u"f:1 g:3"_s);
    script.Become("pas", {});
    EXPECT_FALSE(script.Index());
}

TEST(Methods, TheListIsFilteredWhileTyping)
{
    QString text;
    for (int i = 1; i <= 2000; ++i)
        text += u"sub Method%1\n"_s.arg(i);
    TScript script(text);
    const auto press = [](QWidget *widget, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    };
    const struct {
        QString Filter;
        int Rows;
        QList<int> Keys;
        int Line; // 0: none was taken
    } rows[] = {
        {{}, 2000, {Qt::Key_Return}, 1},
        {u"METHOD15"_s, 111, {Qt::Key_Return}, 15},
        {u"99"_s, 38, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, 199},
        {u"d2000"_s, 1, {Qt::Key_Down, Qt::Key_Return}, 2000},
        {u"d\n"_s, 0, {Qt::Key_Return, Qt::Key_Escape}, 0},
        {u"15"_s, 139, {Qt::Key_Escape}, 0},
    };
    for (const auto &row : rows) {
        TMethodListDialog dialog(*script.Index());
        dialog.show();
        auto *filter = dialog.findChild<QLineEdit *>();
        filter->setText(row.Filter);
        press(filter, Qt::Key_Up);
        EXPECT_EQ(dialog.findChild<QListView *>()->model()->rowCount(), row.Rows);
        for (const int key : row.Keys)
            press(filter, key);
        EXPECT_EQ(dialog.Line(), row.Line) << row.Filter.toStdString();
        EXPECT_EQ(dialog.result() == QDialog::Accepted, row.Line > 0);
        EXPECT_FALSE(dialog.isVisible());
    }
    // What is found later comes in, and goes when the text changes.
    TMethodListDialog dialog(*script.Index());
    const auto *model = dialog.findChild<QListView *>()->model();
    script.Editor()->SetText(u"sub A1\nsub A2"_s);
    EXPECT_EQ(model->rowCount(), 0);
    dialog.findChild<QLineEdit *>()->setText(u"2"_s);
    Wait([&] { return model->rowCount() > 0; });
    EXPECT_EQ(model->index(0, 0).data(), u"A2, line 2"_s);
}

TEST(Methods, AHandlerIsInsertedAndTheCaretIsInIt)
{
    const QString end = u"Insert at the end"_s, caret = u"Insert at the caret"_s;
    const struct {
        const char *Extension;
        QString Before, Event, Button, After;
    } rows[] = {
        {"vbs", u"x = 1\nend sub"_s, u"SendButton.OnClick"_s, end,
         u"x = 1\nend sub\n\nsub SendButton_OnClick(Sender)\n  |\nend sub rem "
         "SendButton_OnClick\n\n"_s},
        {"vbs",
         {},
         u"OrderForm.OnCloseQuery"_s,
         end,
         u"\nfunction OrderForm_OnCloseQuery(Sender)\n  |\nend function rem "
         "OrderForm_OnCloseQuery\n\n"_s},
        {"js", u"a\nb"_s, u"NameEdit.OnKeyDown"_s, caret,
         u"\nfunction NameEdit_OnKeyDown(Sender, Key, Shift)\n{  |\n} // "
         "NameEdit_OnKeyDown\na\nb\n"_s},
        {"vbs", u"\n"_s, u"SendButton.Pressed"_s, caret,
         u"\nsub SendButton_Pressed(X, Y)\n  |\nend sub rem SendButton_Pressed\n\n"_s},
    };
    for (const auto &row : rows) {
        TScript script(row.Before, row.Extension);
        TEventDialog dialog(script);
        Fitting(dialog, row.Event);
        Button(dialog, row.Button)->click();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
        EXPECT_EQ(script.Marked(), row.After);
    }
}

TEST(Methods, WhatFitsIsOfferedAndLeadsThere)
{
    TScript script(u"sub One(a)\nend sub\nsub Two(a, b)\nend sub\nsub Three(c)\nend sub\n"
                   "sub SendButton_OnClick(Sender)\nend sub\nfunction F(a)\nend function"_s);
    TEventDialog dialog(script);
    EXPECT_EQ(Fitting(dialog, u"SendButton.Pressed"_s), QStringList{u"Two"_s});
    EXPECT_TRUE(Button(dialog, u"Insert at the end"_s)->isEnabled());
    EXPECT_EQ(Fitting(dialog, u"OrderForm.OnCloseQuery"_s), QStringList{u"F"_s});
    EXPECT_EQ(Fitting(dialog, u"SendButton.OnClick"_s).join(u' '),
              u"One Three SendButton_OnClick"_s);
    EXPECT_FALSE(Button(dialog, u"Insert at the end"_s)->isEnabled()) << "it is there";
    EXPECT_FALSE(Button(dialog, u"Go to the method"_s)->isEnabled());
    dialog.findChild<QListWidget *>(u"methods"_s)->setCurrentRow(1);
    Button(dialog, u"Go to the method"_s)->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(script.Marked().contains(u"|sub Three"_s));
}

TEST(Methods, TheMenuFollowsTheText)
{
    THostSession session;
    TDocument *document = session.Window->NewDocument();
    QMenu *menu = nullptr;
    for (const QAction *action : session.Window->menuBar()->actions())
        if (action->text() == u"&Methods"_s)
            menu = action->menu();
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(menu->actions()[0]->isEnabled()) << "plain text has no methods";
    document->SetLanguage(ZtLanguageOfFile(u"x.vbs"_s));
    // Many are in the list alone.
    for (const int count : {2, 50, 51}) {
        session.Editor()->SetText(u"\n"_s + u"sub A\n"_s.repeated(count));
        Q_EMIT menu->aboutToShow();
        const QList<QAction *> actions = menu->actions();
        ASSERT_EQ(actions.size(), count > 50 ? 3 : 3 + count);
        EXPECT_TRUE(actions[0]->isEnabled() && actions[1]->isEnabled());
        EXPECT_EQ(actions[1]->text(), u"&All methods…"_s);
        if (count == 2) {
            EXPECT_EQ(actions[3]->text(), u"A\tline 2"_s);
            actions[3]->trigger();
            EXPECT_EQ(session.Editor()->GetLinePos(), 1);
        }
    }
}
