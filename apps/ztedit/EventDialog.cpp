#include "EventDialog.h"

#include "Document.h"
#include "Methods.h"

#include "uZtCodeEdit.h"
#include "uZtGuarded.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

TEventDialog::TEventDialog(TDocument &ADocument, QWidget *AParent)
    : QDialog(AParent), FDocument(ADocument)
{
    setWindowTitle(tr("New event handler"));
    auto *grid = new QGridLayout(this);
    FEvents = AddList(tr("&Events of the sample form"), 0);
    FEvents->setObjectName(QStringLiteral("events"));
    FMethods = AddList(tr("&Methods in the text that fit"), 1);
    FMethods->setObjectName(QStringLiteral("methods"));
    FCode = new QPlainTextEdit(this);
    FCode->setReadOnly(true);
    FCode->setAccessibleName(tr("What will be inserted"));
    FCode->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    grid->addWidget(FCode, 2, 0, 1, 2);
    FNote = new QLabel(this);
    FNote->setTextFormat(Qt::PlainText);
    grid->addWidget(FNote, 3, 0, 1, 2);
    CreateButtons();
    for (const TSampleForm::TEvent &event : FForm.Events())
        FEvents->addItem(event.Object->objectName() + QLatin1Char('.') + event.Name);
    connect(FEvents, &QListWidget::currentRowChanged, this,
            TZtGuarded([this](int index) { ShowEvent(index); }));
    connect(FMethods, &QListWidget::itemSelectionChanged, this,
            [this] { FGoTo->setEnabled(FMethods->currentItem()); });
    connect(FMethods, &QListWidget::itemActivated, this, TZtGuarded([this] { GoToMethod(); }));
    FEvents->setCurrentRow(0);
    resize(560, 420);
}

QListWidget *TEventDialog::AddList(const QString &ATitle, int AColumn)
{
    auto *list = new QListWidget(this);
    auto *title = new QLabel(ATitle, this);
    title->setBuddy(list);
    list->setAccessibleName(QString(ATitle).remove(u'&')); // a list is not named by its label
    auto *grid = qobject_cast<QGridLayout *>(layout());
    grid->addWidget(title, 0, AColumn);
    grid->addWidget(list, 1, AColumn);
    return list;
}

void TEventDialog::CreateButtons()
{
    auto *box = new QDialogButtonBox(this);
    FAtCaret = box->addButton(tr("Insert at the &caret"), QDialogButtonBox::ActionRole);
    FAtEnd = box->addButton(tr("Insert at the e&nd"), QDialogButtonBox::ActionRole);
    FGoTo = box->addButton(tr("&Go to the method"), QDialogButtonBox::ActionRole);
    // Last, as it stands: made before the others, it would never be reached with Tab.
    box->addButton(QDialogButtonBox::Cancel);
    FGoTo->setAutoDefault(false);
    FAtEnd->setDefault(true);
    connect(FAtCaret, &QPushButton::clicked, this,
            TZtGuarded([this] { Insert(TInsertPlace::Caret); }));
    connect(FAtEnd, &QPushButton::clicked, this, TZtGuarded([this] { Insert(TInsertPlace::End); }));
    connect(FGoTo, &QPushButton::clicked, this, TZtGuarded([this] { GoToMethod(); }));
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    qobject_cast<QGridLayout *>(layout())->addWidget(box, 4, 0, 1, 2);
}

void TEventDialog::ShowEvent(int AIndex)
{
    const TSampleForm::TEvent event = FForm.Events().at(size_t(AIndex));
    const auto lexer = ZtScriptLexerOf(FDocument);
    QString name;
    FNewCode = lexer->CreateMethod(event.Object, event.Name, name);
    FCode->setPlainText(FNewCode.trimmed());
    FMethods->clear();
    FMethods->addItems(lexer->GetSameMethods(event.Object, event.Name)
                           .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts));
    FGoTo->setEnabled(false);
    const int line = lexer->MethodLineNr(name);
    FNote->setText(line > 0 ? tr("Line %1 has a method of this name.").arg(line) : QString());
    FAtCaret->setEnabled(line < 0);
    FAtEnd->setEnabled(line < 0);
}

void TEventDialog::Insert(TInsertPlace APlace)
{
    ZtInsertMethod(FDocument, FNewCode, APlace);
    accept();
}

void TEventDialog::GoToMethod()
{
    const QListWidgetItem *item = FMethods->currentItem();
    const int line = item ? ZtScriptLexerOf(FDocument)->MethodLineNr(item->text()) : -1;
    if (line < 0)
        return;
    FDocument.GoToLine(line);
    accept();
}
