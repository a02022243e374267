#include "windows.h"

#include "ConflictDialog.h"
#include "DbConnection.h"
#include "DbDocument.h"
#include "DbFieldsDialog.h"
#include "DbOpenDialog.h"
#include "Document.h"
#include "EventDialog.h"
#include "MainWindow.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "RestoreDialog.h"

#include "fZtCodeEditSearchReplaceDlg.h"
#include "uZtDataSet.h"
#include "uZtEditActions.h"
#include "uZtStringList.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void Show(QDialog &ADialog, const std::function<void(QDialog &)> &ACall)
{
    ADialog.show();
    QCoreApplication::processEvents();
    ACall(ADialog);
}

// A box, a group, a label or a button; empty for what has no text of the program.
QString TextOf(const QWidget &AControl)
{
    if (const auto *label = qobject_cast<const QLabel *>(&AControl))
        return label->text();
    if (const auto *group = qobject_cast<const QGroupBox *>(&AControl))
        return group->title();
    const auto *button = qobject_cast<const QAbstractButton *>(&AControl);
    return button ? button->text() : QString();
}

bool IsCut(const QWidget &AControl)
{
    if (const auto *label = qobject_cast<const QLabel *>(&AControl); label && label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    if (qobject_cast<const QPushButton *>(&AControl)) // may be smaller than its style likes it
        return AControl.fontMetrics().size(Qt::TextShowMnemonic, TextOf(AControl)).width() + 8 >
               AControl.width();
    return AControl.minimumSizeHint().width() > AControl.width();
}

QList<const QWidget *> TextsIn(const QDialog &ADialog)
{
    QList<const QWidget *> controls;
    for (const auto *control : ADialog.findChildren<QWidget *>())
        if (control->isVisible() && !TextOf(*control).isEmpty())
            controls.append(control);
    return controls;
}

} // namespace

TShownWindows::TShownWindows() : FMain(std::make_unique<TMainWindow>())
{
    const QString database = FFolder.filePath(u"scripts.sqlite"_s);
    QFile::copy(QStringLiteral(ZT_SOURCE_DIR "/examples/scripts.sqlite.sql"), database + u".sql"_s);
    ZtMakeSample(database);
    FMain->OpenDatabase({database, u"scripts"_s, u"source"_s, {}});
    FMain->NewDocument()->SetLanguage(*ZtFindLanguage(u"Visual Basic"_s));
}

TShownWindows::~TShownWindows() = default;

void TShownWindows::EachDialog(const std::function<void(QDialog &)> &ACall)
{
    for (const auto type :
         {TFrmCodeEditSearchReplaceDlgType::search, TFrmCodeEditSearchReplaceDlgType::replace}) {
        TFrmCodeEditSearchReplaceDlg form;
        form.SetDlgType(type);
        Show(form, ACall);
    }
    TConflictDialog conflict(u"garden"_s, {{u"source"_s, u"a := 1;"_s, u"a := 2;"_s}});
    Show(conflict, ACall);
    TStringList before, after;
    before.SetText(u"saved"_s);
    after.SetText(u"not saved"_s);
    TRestoreDialog restore({u"\"garden.pas\""_s, &before, &after});
    Show(restore, ACall);
    TDbOpenDialog open({});
    Show(open, ACall);
    TDocument &script = *FMain->Document(FMain->DocumentCount() - 1);
    TEventDialog event(script);
    Show(event, ACall);
    TMethodListDialog methods(*ZtMethodIndexOf(script));
    Show(methods, ACall);
    TDataSet none;
    TDbFieldsDialog fields(none, {});
    Show(fields, ACall);
}

QList<QStringList> MenuTexts(TMainWindow &AWindow)
{
    AWindow.ShowDocument(0); // the database, which has commands of its own
    QList<QStringList> menus{{}};
    for (const auto *menu : AWindow.menuBar()->findChildren<QMenu *>()) {
        Q_EMIT const_cast<QMenu *>(menu)->aboutToShow();
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts.append(action->text());
        menus.append(texts);
    }
    for (const QAction *action : AWindow.menuBar()->actions())
        menus[0].append(action->text());
    // What the control gives a host for its menus.
    using enum TZtEditAction;
    const TZtEditActions actions;
    for (const auto &[first, last] :
         {std::pair(eaUndo, eaSelectAll), std::pair(eaFind, eaGoToLine)}) {
        menus.append(QStringList());
        for (const QAction *action : actions.GetActions(first, last))
            menus.last().append(action->text());
    }
    return menus;
}

QStringList LetteredTexts(const QDialog &ADialog)
{
    QStringList texts;
    for (const QWidget *control : TextsIn(ADialog))
        if (const auto *label = qobject_cast<const QLabel *>(control); !label || label->buddy())
            texts.append(TextOf(*control));
    return texts;
}

QStringList CutTexts(const QDialog &ADialog)
{
    QStringList cut;
    for (const QWidget *control : TextsIn(ADialog))
        if (IsCut(*control))
            cut.append(TextOf(*control));
    return cut;
}
