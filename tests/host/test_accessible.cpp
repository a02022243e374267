// Every dialog and page of the program without a mouse and without a picture: what can have the
// focus has a name and is reached with Tab, and no two captions share a letter.

#include "ConflictDialog.h"
#include "DbDocument.h"
#include "DbFieldsDialog.h"
#include "DbOpenDialog.h"
#include "EventDialog.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "fZtCodeEditSearchReplaceDlg.h"
#include "session.h"
#include "uZtLanguages.h"

#include "uZtCodeEdit.h"
#include "uZtDataSet.h"

#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

QString NameOf(QWidget *AWidget)
{
    const auto *button = qobject_cast<QAbstractButton *>(AWidget);
    return u"%1 \"%2\""_s.arg(QLatin1StringView(AWidget->metaObject()->className()),
                              button ? button->text() : AWidget->objectName());
}

QList<QWidget *> Focusable(QWidget &AWindow, Qt::FocusPolicy APolicy)
{
    QList<QWidget *> found;
    for (auto *widget : AWindow.findChildren<QWidget *>())
        if ((widget->focusPolicy() & APolicy) == APolicy && widget->isEnabled() &&
            widget->isVisibleTo(&AWindow) && !widget->focusProxy())
            found += widget;
    return found;
}

void CheckNames(QWidget &AWindow)
{
    for (auto *widget : Focusable(AWindow, Qt::ClickFocus) + Focusable(AWindow, Qt::TabFocus)) {
        const auto *seen = QAccessible::queryAccessibleInterface(widget);
        EXPECT_TRUE(seen && !seen->text(QAccessible::Name).isEmpty())
            << NameOf(widget).toStdString() << " has no name";
    }
}

// Each letter that Alt takes to something, once.
void CheckLetters(const QStringList &ACaptions)
{
    QSet<QKeySequence> letters;
    for (const QString &caption : ACaptions) {
        const QKeySequence letter = QKeySequence::mnemonic(caption);
        EXPECT_TRUE(letter.isEmpty() || !letters.contains(letter))
            << caption.toStdString() << " has the letter of another one";
        letters.insert(letter);
    }
}

QStringList Captions(QWidget &AWindow)
{
    QStringList captions;
    for (auto *widget : AWindow.findChildren<QWidget *>()) {
        if (!widget->isVisibleTo(&AWindow))
            continue;
        if (const auto *button = qobject_cast<QAbstractButton *>(widget))
            captions += button->text();
        else if (const auto *group = qobject_cast<QGroupBox *>(widget))
            captions += group->title();
        else if (const auto *label = qobject_cast<QLabel *>(widget); label && label->buddy())
            captions += label->text();
    }
    return captions;
}

// To an editor Tab alone belongs.
void PressTab(QWidget &AIn)
{
    const bool editor = qobject_cast<TZtCodeEdit *>(&AIn);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, editor ? Qt::ControlModifier : Qt::NoModifier,
                    u"\t"_s);
    QApplication::sendEvent(&AIn, &press);
}

void CheckTabs(QWidget &AWindow)
{
    QList<QWidget *> wanted = Focusable(AWindow, Qt::TabFocus);
    QSet<QWidget *> reached;
    for (qsizetype i = 0; i <= 2 * wanted.size(); ++i) {
        QWidget *focused = QApplication::focusWidget();
        if (!focused)
            break;
        reached.insert(focused);
        PressTab(*focused);
    }
    for (QWidget *widget : wanted)
        EXPECT_TRUE(reached.contains(widget))
            << "Tab does not reach " << NameOf(widget).toStdString();
}

void CheckWindow(QWidget &AWindow, const char *AName)
{
    SCOPED_TRACE(AName);
    AWindow.show();
    QApplication::setActiveWindow(&AWindow);
    if (!AWindow.focusWidget() || !AWindow.focusWidget()->hasFocus())
        PressTab(AWindow);
    QApplication::processEvents();
    ASSERT_TRUE(AWindow.isAncestorOf(QApplication::focusWidget()));
    CheckNames(AWindow);
    CheckLetters(Captions(AWindow));
    CheckTabs(AWindow);
}

void CheckMenu(const QList<QAction *> &AActions)
{
    QStringList captions;
    for (const QAction *action : AActions) {
        captions += action->text();
        if (action->menu())
            CheckMenu(action->menu()->actions());
    }
    CheckLetters(captions);
}

} // namespace

TEST(Accessible, DialogsOfAText)
{
    TFrmCodeEditSearchReplaceDlg search;
    CheckWindow(search, "find");
    search.SetDlgType(TFrmCodeEditSearchReplaceDlgType::replace);
    CheckWindow(search, "replace");

    TDocument script(u"new"_s);
    script.SetLanguage(ZtLanguageOfFile(u"x.vbs"_s));
    TEventDialog events(script);
    CheckWindow(events, "events");
    TMethodListDialog methods(*ZtMethodIndexOf(script));
    CheckWindow(methods, "methods");

    TStringList text;
    text.SetText(u"text"_s);
    TRestoreDialog restore({u"Note"_s, nullptr, &text});
    CheckWindow(restore, "restore");
}

TEST(Accessible, DialogsOfADatabase)
{
    THostSession session;
    {
        auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"accessible"_s);
        database.setDatabaseName(session.Path(u"a"_s));
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(
            query.exec(u"CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT, b TEXT, c TEXT)"_s));
        ASSERT_TRUE(query.exec(u"INSERT INTO t VALUES (1, 'x', 'y', 'z')"_s));
    }
    QSqlDatabase::removeDatabase(u"accessible"_s);
    TDbOpenDialog open(session.Path(u"a"_s));
    CheckWindow(open, "open a database");
    TConflictDialog conflict(u"1"_s, {{u"a"_s, u"x"_s, u"y"_s}, {u"b"_s, u"x"_s, u"y"_s}});
    CheckWindow(conflict, "conflict");
    ASSERT_TRUE(session.Window->OpenDatabase({session.Path(u"a"_s), u"t"_s, u"c"_s, {}}));
    TDataSet &data = session.Window->findChild<TDbDocument *>()->DataSet();
    TDbFieldsDialog fields(data, TDbFieldsDialog::FieldsOf(data, u"c"_s));
    CheckWindow(fields, "fields");
    CheckNames(*session.Window);
}

TEST(Accessible, TheWindow)
{
    THostSession session;
    CheckWindow(*session.Window, "start page");
    CheckMenu(session.Window->menuBar()->actions());
    session.Do(u"write:a.pas=x open:a.pas"_s);
    CheckNames(*session.Window);
    const auto *editor = QAccessible::queryAccessibleInterface(session.Editor());
    EXPECT_EQ(editor->text(QAccessible::Name), u"a.pas"_s);
}
