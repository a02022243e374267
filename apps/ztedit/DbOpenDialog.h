#pragma once

#include "DbConnection.h"

#include <QDialog>

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for a database file, one of its tables, the field to edit and, if wanted, a key.
class TDbOpenDialog : public QDialog {
    Q_OBJECT

public:
    explicit TDbOpenDialog(const QString &AFile, QWidget *AParent = nullptr);

    TDbPlace Place() const;

private:
    QWidget *CreateFileRow(const QString &AFile);
    void Browse();
    void ShowFile();
    void ShowTable();

    std::unique_ptr<TDbConnection> FConnection;
    QLineEdit *FFile = nullptr;
    QComboBox *FTable;
    QComboBox *FField;
    QComboBox *FKey;
    QLabel *FNote;
    QPushButton *FOk;
};
