#include "BoundWidgets.h"

#include "uZtGuarded.h"
#include "uZtLanguages.h"

namespace {

QString TextOf(const TFieldDataLink &ALink)
{
    const TField *field = ALink.GetField();
    return field ? field->GetText() : QString();
}

// Marked first: entering edit state shows the field anew, which is not to undo what was typed.
void UserChanged(TFieldDataLink &ALink)
{
    ALink.Modified();
    if (!ALink.Edit())
        ALink.Reset();
}

void Bind(TFieldDataLink &ALink, TDataSource &ASource, const QString &AField)
{
    ALink.SetFieldName(AField);
    ALink.SetDataSource(&ASource);
}

} // namespace

TBoundLine::TBoundLine(TDataSource &ASource, const QString &AField, QWidget *AParent)
    : QLineEdit(AParent), FLink(this)
{
    FLink.OnDataChange = [this](QObject *) {
        if (!FLink.Keep())
            setText(TextOf(FLink));
    };
    FLink.OnUpdateData = [this](QObject *) { FLink.GetField()->SetText(text()); };
    connect(this, &QLineEdit::textEdited, this, TZtGuarded([this] { UserChanged(FLink); }));
    Bind(FLink, ASource, AField);
}

TBoundLanguage::TBoundLanguage(TDataSource &ASource, const QString &AField, QWidget *AParent)
    : QComboBox(AParent), FLink(this)
{
    for (const TZtLanguage &language : ZtLanguages())
        addItem(ZtLanguageTitle(language), language.Name);
    FLink.OnDataChange = [this](QObject *) {
        if (!FLink.Keep())
            setCurrentIndex(findData(TextOf(FLink)));
    };
    FLink.OnUpdateData = [this](QObject *) { FLink.GetField()->SetText(currentData().toString()); };
    connect(this, &QComboBox::activated, this, TZtGuarded([this] { UserChanged(FLink); }));
    connect(this, &QComboBox::currentIndexChanged, this,
            [this] { Q_EMIT LanguageShown(currentData().toString()); });
    Bind(FLink, ASource, AField);
}
