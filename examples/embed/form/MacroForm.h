#pragma once

#include "ui_MacroForm.h"

#include <QDialog>

struct TMacro {
    QString Name;
    QString Language;
    QString Source;
};

/// Edits a macro; the form was made in Qt Designer.
class TMacroForm final : public QDialog {
    Q_OBJECT

public:
    explicit TMacroForm(QWidget *AParent = nullptr);

    void SetMacro(const TMacro &Value);
    TMacro GetMacro() const;

private:
    void Refresh();

    Ui::MacroForm FForm;
};
