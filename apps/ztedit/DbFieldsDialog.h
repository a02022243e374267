#pragma once

#include <QDialog>

#include <vector>

class QLineEdit;
class TDataSet;
class TField;

/// Asks for the fields of a record that are not in the editor, a line each.
class TDbFieldsDialog : public QDialog {
    Q_OBJECT

public:
    TDbFieldsDialog(TDataSet &ADataSet, const std::vector<TField *> &AFields,
                    QWidget *AParent = nullptr);

    /// The fields that a user can write in a line: no bytes, no number that the database makes, and
    /// not the one named `AExcept`.
    static std::vector<TField *> FieldsOf(const TDataSet &ADataSet, const QString &AExcept);
    /// Stores the fields that were changed, entering edit state for the first. Raises what storing
    /// raises.
    void Store();

private:
    TDataSet &FDataSet;
    std::vector<TField *> FFields;
    std::vector<QLineEdit *> FLines;
};
