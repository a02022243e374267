#pragma once

#include "SampleForm.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class TDocument;
enum class TInsertPlace;

/// Offers the events of a form: shows the handler that a script would get for one, lists the
/// methods of the text that fit it, and inserts the one or leads to the others.
class TEventDialog : public QDialog {
    Q_OBJECT

public:
    TEventDialog(TDocument &ADocument, QWidget *AParent = nullptr);

private:
    QListWidget *AddList(const QString &ATitle, int AColumn);
    void CreateButtons();
    void ShowEvent(int AIndex);
    void Insert(TInsertPlace APlace);
    void GoToMethod();

    TDocument &FDocument;
    TSampleForm FForm;
    QListWidget *FEvents;
    QListWidget *FMethods;
    QPlainTextEdit *FCode;
    QLabel *FNote;
    QPushButton *FAtCaret;
    QPushButton *FAtEnd;
    QPushButton *FGoTo;
    QString FNewCode;
};
