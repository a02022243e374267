#include "MacroForm.h"

#include "uZtLanguages.h"

#include <QPushButton>

TMacroForm::TMacroForm(QWidget *AParent) : QDialog(AParent)
{
    FForm.setupUi(this);
    for (const TZtLanguage &language : ZtLanguages())
        FForm.language->addItem(ZtLanguageTitle(language), language.Name);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    FForm.source->SetCorrections(ZtAllCorrections());
    FForm.source->SetExtras(ZtAllExtras());
    FForm.source->SetScheme(TZtColorScheme::Find(dark ? "Dark" : "Light"));

    connect(FForm.name, &QLineEdit::textChanged, this, &TMacroForm::Refresh);
    connect(FForm.source, &TZtCodeEdit::languageChanged, this, &TMacroForm::Refresh);
    connect(FForm.language, &QComboBox::activated, this,
            [this] { FForm.source->SetLanguage(FForm.language->currentData().toString()); });
    Refresh();
}

void TMacroForm::SetMacro(const TMacro &Value)
{
    FForm.name->setText(Value.Name);
    FForm.source->SetLanguage(Value.Language);
    FForm.source->SetText(Value.Source);
}

TMacro TMacroForm::GetMacro() const
{
    return {FForm.name->text(), FForm.source->GetLanguage(), FForm.source->GetText()};
}

void TMacroForm::Refresh()
{
    FForm.language->setCurrentIndex(FForm.language->findData(FForm.source->GetLanguage()));
    FForm.buttons->button(QDialogButtonBox::Save)->setEnabled(!FForm.name->text().isEmpty());
}
