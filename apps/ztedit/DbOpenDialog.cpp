#include "DbOpenDialog.h"

#include "uZtDataSet.h"
#include "uZtGuarded.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

TDbOpenDialog::TDbOpenDialog(const QString &AFile, QWidget *AParent)
    : QDialog(AParent), FTable(new QComboBox(this)), FField(new QComboBox(this)),
      FKey(new QComboBox(this)), FNote(new QLabel(this))
{
    setWindowTitle(tr("Open a database"));
    auto *form = new QFormLayout(this);
    form->addRow(tr("&File:"), CreateFileRow(AFile));
    form->addRow(tr("&Table:"), FTable);
    form->addRow(tr("Fi&eld to edit:"), FField);
    form->addRow(tr("&Key:"), FKey);
    FNote->setTextFormat(Qt::PlainText);
    FNote->setWordWrap(true);
    form->addRow(FNote);
    auto *box = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    FOk = box->button(QDialogButtonBox::Open);
    form->addRow(box);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(FTable, &QComboBox::currentIndexChanged, this, TZtGuarded([this] { ShowTable(); }));
    connect(FFile, &QLineEdit::textChanged, this, TZtGuarded([this] { ShowFile(); }));
    ShowFile();
    resize(480, sizeHint().height());
}

QWidget *TDbOpenDialog::CreateFileRow(const QString &AFile)
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    FFile = new QLineEdit(AFile, row);
    FFile->setAccessibleName(tr("File")); // the label is the row's
    auto *browse = new QPushButton(tr("&Browse…"), row);
    browse->setAutoDefault(false);
    layout->addWidget(FFile);
    layout->addWidget(browse);
    row->setFocusProxy(FFile);
    connect(browse, &QPushButton::clicked, this, TZtGuarded([this] { Browse(); }));
    return row;
}

void TDbOpenDialog::Browse()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Open a database"), FFile->text(),
        tr("SQLite databases (*.sqlite *.sqlite3 *.db *.db3);;All files (*)"));
    if (!file.isEmpty())
        FFile->setText(file);
}

void TDbOpenDialog::ShowFile()
{
    FConnection.reset();
    FTable->clear();
    FNote->clear();
    try {
        if (!FFile->text().isEmpty())
            FConnection = std::make_unique<TDbConnection>(FFile->text());
    } catch (const EDatabaseError &error) {
        FNote->setText(error.Message());
    }
    if (FConnection)
        FTable->addItems(FConnection->Tables());
    if (FConnection && FTable->count() == 0)
        FNote->setText(tr("This database has no tables."));
    ShowTable();
}

void TDbOpenDialog::ShowTable()
{
    FField->clear();
    FKey->clear();
    FKey->addItem(tr("the table's primary key"));
    if (FConnection && FTable->currentIndex() >= 0)
        FField->addItems(FConnection->Columns(FTable->currentText()));
    for (int i = 0; i < FField->count(); ++i)
        FKey->addItem(FField->itemText(i));
    FField->setCurrentIndex(FField->count() - 1); // the long texts are mostly the last ones
    FOk->setEnabled(FField->count() > 0);
}

TDbPlace TDbOpenDialog::Place() const
{
    return {FFile->text(), FTable->currentText(), FField->currentText(),
            FKey->currentIndex() > 0 ? FKey->currentText() : QString()};
}
