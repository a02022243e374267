#include "DbFieldsDialog.h"

#include "PlainText.h"

#include "uZtDataSet.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

TDbFieldsDialog::TDbFieldsDialog(TDataSet &ADataSet, const std::vector<TField *> &AFields,
                                 QWidget *AParent)
    : QDialog(AParent), FDataSet(ADataSet), FFields(AFields)
{
    setWindowTitle(tr("Fields of the record"));
    auto *form = new QFormLayout(this);
    for (const TField *field : FFields) {
        const QString text = field->GetEditText();
        auto *line = new QLineEdit(text, this);
        // What does not come back out of one line is only shown.
        line->setReadOnly(line->text() != text || text.contains(QLatin1Char('\n')) ||
                          !field->CanModify());
        line->setObjectName(field->GetFieldName());
        form->addRow(ZtPlainLabel(field->GetFieldName() + QLatin1Char(':'), line), line);
        FLines.push_back(line);
    }
    auto *box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(box);
    resize(400, sizeHint().height());
}

std::vector<TField *> TDbFieldsDialog::FieldsOf(const TDataSet &ADataSet, const QString &AExcept)
{
    std::vector<TField *> fields;
    for (int i = 0; i < ADataSet.GetFieldCount(); ++i) {
        TField *field = ADataSet.GetFields(i);
        if (!field->IsBlob() && !field->IsAutoValue() &&
            field->GetFieldName().compare(AExcept, Qt::CaseInsensitive) != 0)
            fields.push_back(field);
    }
    return fields;
}

void TDbFieldsDialog::Store()
{
    for (size_t i = 0; i < FFields.size(); ++i) {
        if (!FLines[i]->isModified())
            continue;
        FDataSet.Edit();
        FFields[i]->SetText(FLines[i]->text());
    }
}
