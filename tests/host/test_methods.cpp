#include "Document.h"
#include "EventDialog.h"
#include "MainWindow.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"

#include "uZtCodeEdit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const TLanguage &LanguageOf(const char *AExtension)
{
    return ZtLanguageOfFile(u"x."_s + QLatin1StringView(AExtension));
}

constexpr int Patience = 60'000; // milliseconds, of which a fraction is needed

QString Found(TMethodIndex *AIndex)
{
    QString found;
    EXPECT_TRUE(!AIndex || AIndex->ReadOn(Patience));
    for (int i = 0; AIndex && i < AIndex->Count(); ++i)
        found += u"%1:%2 "_s.arg(AIndex->Name(i)).arg(AIndex->Line(i));
    return found;
}

QString MethodsOf(const char *AExtension, const QString &AText)
{
    TDocument document(u"new"_s);
    document.SetLanguage(LanguageOf(AExtension));
    document.Editor()->SetText(AText);
    return Found(ZtMethodIndexOf(document));
}

struct TScript {
    explicit TScript(const QString &AText, const char *AExtension = "vbs")
    {
        Document.SetLanguage(LanguageOf(AExtension));
        Document.Editor()->SetText(AText);
    }
    QString Text() const { return Document.Editor()->GetText().replace(u"\r\n"_s, u"\n"_s); }
    QPoint Caret() const
    {
        return {Document.Editor()->GetCharPos(), Document.Editor()->GetLinePos()};
    }
    TDocument Document{u"new"_s};
};

// What a user does in the dialog: chooses an event, then presses a button, or a fitting method.
template <typename T> T *Part(TEventDialog &ADialog, const char *AText)
{
    for (T *part : ADialog.findChildren<T *>())
        if (part->text().remove(u'&') == QLatin1StringView(AText))
            return part;
    return nullptr;
}

QStringList Choose(TEventDialog &ADialog, const QString &AEvent)
{
    auto *events = ADialog.findChild<QListWidget *>(u"events"_s);
    const auto found = events->findItems(AEvent, Qt::MatchExactly);
    EXPECT_EQ(found.size(), 1) << AEvent.toStdString();
    events->setCurrentItem(found.value(0));
    QStringList fitting;
    const auto *methods = ADialog.findChild<QListWidget *>(u"methods"_s);
    for (int i = 0; i < methods->count(); ++i)
        fitting += methods->item(i)->text();
    return fitting;
}

} // namespace

TEST(Methods, AreListedWithTheirLines)
{
    EXPECT_EQ(MethodsOf("vbs", u"sub A\nend sub ' sub X\nfunction b(c)\nend function\nSUB\nd"_s),
              u"A:1 b:3 d:6 "_s);
    EXPECT_EQ(MethodsOf("js", u"function a() {\n}\n/* function x\n*/\nfunction b() {}"_s),
              u"a:1 b:5 "_s);
    EXPECT_EQ(MethodsOf("vbs", QString()) + MethodsOf("pas", u"function a;"_s), QString());
    // A long line is read in pieces, which cut words in two.
    for (int blanks = 16378; blanks < 16386; ++blanks)
        EXPECT_EQ(
            MethodsOf("js", QString(blanks, u' ') + u"function abc(){}function d\nfunction e"_s),
            u"abc:1 d:1 e:2 "_s);
}

TEST(Methods, AreReadAgainWhenTheTextHasChanged)
{
    TScript script(u"sub A\nend sub"_s);
    TMethodIndex *index = ZtMethodIndexOf(script.Document);
    int restarts = 0;
    QObject::connect(index, &TMethodIndex::Restarted, [&] { ++restarts; });
    while (!index->IsComplete())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(index->Progress(), 1);
    for (const QChar typed : u"\nsub B"_s) {
        script.Document.Editor()->InsertText(TZtChangeType::ctPaste, QString(typed));
        QApplication::processEvents();
        EXPECT_EQ(index->Count() + index->Progress(), 0) << "not before a pause";
    }
    EXPECT_EQ(restarts, 1);
    while (!index->IsComplete())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(ZtMethodIndexOf(script.Document), index);
    EXPECT_EQ(Found(index), u"Bsub:2 "_s);
    script.Document.SetLanguage(LanguageOf("js"));
    script.Document.Editor()->SetText(u"function f() {\n}\n'function g'"_s);
    EXPECT_EQ(Found(ZtMethodIndexOf(script.Document)), u"f:1 g:3 "_s);
    script.Document.SetLanguage(LanguageOf("pas"));
    EXPECT_FALSE(ZtMethodIndexOf(script.Document));
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
        {QString(), 2000, {Qt::Key_Return}, 1},
        {u"METHOD15"_s, 111, {Qt::Key_Return}, 15},
        {u"99"_s, 38, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, 199},
        {u"d2000"_s, 1, {Qt::Key_Down, Qt::Key_Return}, 2000},
        {u"d\n"_s, 0, {Qt::Key_Return, Qt::Key_Escape}, 0},
        {u"15"_s, 139, {Qt::Key_Escape}, 0},
    };
    for (const auto &row : rows) {
        TMethodListDialog dialog(*ZtMethodIndexOf(script.Document));
        dialog.show();
        auto *filter = dialog.findChild<QLineEdit *>();
        const auto *model = dialog.findChild<QListView *>()->model();
        filter->setText(row.Filter);
        press(filter, Qt::Key_Up);
        EXPECT_EQ(model->rowCount(), row.Rows);
        for (const int key : row.Keys)
            press(filter, key);
        EXPECT_EQ(dialog.Line(), row.Line) << row.Filter.toStdString();
        EXPECT_EQ(dialog.result() == QDialog::Accepted, row.Line > 0);
        EXPECT_FALSE(dialog.isVisible());
    }
    // What is found later comes in, and goes when the text changes.
    TMethodListDialog dialog(*ZtMethodIndexOf(script.Document));
    const auto *model = dialog.findChild<QListView *>()->model();
    script.Document.Editor()->SetText(u"sub A1\nsub A2"_s);
    EXPECT_EQ(model->rowCount(), 0);
    dialog.findChild<QLineEdit *>()->setText(u"2"_s);
    while (model->rowCount() == 0)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(model->index(0, 0).data(), u"A2, line 2"_s);
}

TEST(Methods, AHandlerIsInsertedAndTheCaretIsInIt)
{
    const struct {
        const char *Extension;
        QString Before;
        QString Event;
        const char *Button;
        QString After;
        QPoint Caret;
    } rows[] = {
        {"vbs",
         u"x = 1\nend sub"_s,
         u"SendButton.OnClick"_s,
         "Insert at the end",
         u"x = 1\nend sub\n\nsub SendButton_OnClick(Sender)\n  \nend sub rem "
         "SendButton_OnClick\n\n"_s,
         {2, 4}},
        {"vbs",
         QString(),
         u"OrderForm.OnCloseQuery"_s,
         "Insert at the end",
         u"\nfunction OrderForm_OnCloseQuery(Sender)\n  \nend function rem "
         "OrderForm_OnCloseQuery\n\n"_s,
         {2, 2}},
        {"js",
         u"a\nb"_s,
         u"NameEdit.OnKeyDown"_s,
         "Insert at the caret",
         u"\nfunction NameEdit_OnKeyDown(Sender, Key, Shift)\n{  \n} // NameEdit_OnKeyDown\na\nb\n"_s,
         {3, 2}},
        {"vbs",
         u"\n"_s,
         u"SendButton.Pressed"_s,
         "Insert at the caret",
         u"\nsub SendButton_Pressed(X, Y)\n  \nend sub rem SendButton_Pressed\n\n"_s,
         {2, 2}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Event.toStdString());
        TScript script(row.Before, row.Extension);
        TEventDialog dialog(script.Document);
        Choose(dialog, row.Event);
        Part<QPushButton>(dialog, row.Button)->click();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
        EXPECT_EQ(script.Text().toStdString(), row.After.toStdString());
        EXPECT_EQ(script.Caret(), row.Caret);
    }
}

TEST(Methods, WhatFitsIsOfferedAndLeadsThere)
{
    TScript script(u"sub One(a)\nend sub\nsub Two(a, b)\nend sub\nsub Three(c)\nend sub\n"
                   "sub SendButton_OnClick(Sender)\nend sub\nfunction F(a)\nend function"_s);
    TEventDialog dialog(script.Document);
    EXPECT_EQ(Choose(dialog, u"SendButton.Pressed"_s), QStringList{u"Two"_s});
    EXPECT_TRUE(Part<QPushButton>(dialog, "Insert at the end")->isEnabled());
    EXPECT_EQ(Choose(dialog, u"OrderForm.OnCloseQuery"_s), QStringList{u"F"_s});
    EXPECT_EQ(Choose(dialog, u"SendButton.OnClick"_s),
              (QStringList{u"One"_s, u"Three"_s, u"SendButton_OnClick"_s}));
    EXPECT_FALSE(Part<QPushButton>(dialog, "Insert at the end")->isEnabled()) << "it is there";
    auto *button = Part<QPushButton>(dialog, "Go to the method");
    EXPECT_FALSE(button->isEnabled());
    dialog.findChild<QListWidget *>(u"methods"_s)->setCurrentRow(1);
    button->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(script.Caret(), QPoint(0, 4));
}

TEST(Methods, TheMenuFollowsTheText)
{
    TMainWindow window;
    TDocument *document = window.NewDocument();
    QMenu *menu = nullptr;
    for (const QAction *action : window.menuBar()->actions())
        if (action->text() == u"&Methods"_s)
            menu = action->menu();
    ASSERT_TRUE(menu);
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(menu->actions().constFirst()->isEnabled()) << "plain text has no methods";
    document->SetLanguage(LanguageOf("vbs"));
    document->Editor()->SetText(u"\nsub A\nend sub\nsub B\nend sub"_s);
    for (int i = 0; i < 2; ++i)
        Q_EMIT menu->aboutToShow();
    EXPECT_TRUE(menu->actions().constFirst()->isEnabled());
    ASSERT_EQ(menu->actions().size(), 5);
    EXPECT_EQ(menu->actions().at(4)->text(), u"B\tline 4"_s);
    menu->actions().at(4)->trigger();
    EXPECT_EQ(document->Editor()->GetLinePos(), 3);
    // Many are in the list alone.
    for (const int count : {50, 51}) {
        document->Editor()->SetText(u"sub A\n"_s.repeated(count));
        Q_EMIT menu->aboutToShow();
        EXPECT_EQ(menu->actions().size(), count > 50 ? 3 : 3 + count);
        EXPECT_EQ(menu->actions().at(1)->text(), u"&All methods…"_s);
        EXPECT_TRUE(menu->actions().at(1)->isEnabled());
    }
}
