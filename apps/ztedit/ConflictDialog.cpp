#include "ConflictDialog.h"

#include "uZtCodeEdit.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

TConflictDialog::TConflictDialog(const QString &ARecord, const std::vector<TConflict> &AConflicts,
                                 QWidget *AParent)
    : QDialog(AParent)
{
    setWindowTitle(tr("Changed by someone else"));
    auto *layout = new QVBoxLayout(this);
    auto *note = new QLabel(tr("The record \"%1\" was changed by someone else since it was read "
                               "here. Nothing was written yet.")
                                .arg(ARecord),
                            this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    layout->addWidget(note);
    auto *pages = new QTabWidget(this);
    for (const TConflict &conflict : AConflicts)
        pages->addTab(CreatePage(conflict),
                      QString(conflict.Field).replace(u'&', QLatin1StringView("&&")));
    layout->addWidget(pages, 1);
    auto *box = new QDialogButtonBox(this);
    const auto add = [&](const QString &text, TChoice choice, QDialogButtonBox::ButtonRole role) {
        QPushButton *button = box->addButton(text, role);
        button->setAutoDefault(choice == Neither);
        connect(button, &QPushButton::clicked, this, [this, choice] { done(choice); });
        return button;
    };
    add(tr("Write &mine"), Mine, QDialogButtonBox::ActionRole);
    add(tr("Take &theirs"), Theirs, QDialogButtonBox::ActionRole);
    add(tr("&Go on editing"), Neither, QDialogButtonBox::RejectRole)->setDefault(true);
    layout->addWidget(box);
    resize(760, 480);
}

QWidget *TConflictDialog::CreatePage(const TConflict &AConflict)
{
    auto *page = new QWidget(this);
    auto *grid = new QGridLayout(page);
    int column = 0;
    for (const auto &[title, text] :
         {std::pair(tr("M&ine:"), AConflict.Mine), std::pair(tr("T&heirs:"), AConflict.Theirs)}) {
        auto *view = new TZtCodeEdit(page);
        view->SetCorrections(ZtAllCorrections());
        view->SetText(text);
        view->SetReadOnly(true);
        auto *label = new QLabel(title, page);
        label->setBuddy(view);
        view->setAccessibleName(QString(title).remove(u'&').remove(u':').trimmed());
        grid->addWidget(label, 0, column);
        grid->addWidget(view, 1, column++);
    }
    return page;
}
