#include "SampleForm.h"

#include "uZtMethodDescription.h"

namespace {

void RegisterEvents()
{
    const struct {
        const QMetaObject *Class;
        const char *Event;
        const char *Signature;
    } rows[] = {
        {&TSampleForm::staticMetaObject, "OnShow", "procedure(Sender: TObject) of object"},
        {&TSampleForm::staticMetaObject, "OnCloseQuery", "function(Sender: TObject): Boolean"},
        {&TSampleButton::staticMetaObject, "OnClick", "procedure(Sender: TObject) of object"},
        {&TSampleEdit::staticMetaObject, "OnKeyDown",
         "procedure(Sender: TObject; var Key: Word; Shift: TShiftState) of object"},
        {&TSampleEdit::staticMetaObject, "OnValidate",
         "function(Sender: TObject; const Text: string): Boolean of object"},
    };
    for (const auto &row : rows)
        ZtRegisterEvent(row.Class, QString::fromLatin1(row.Event),
                        QString::fromLatin1(row.Signature));
}

} // namespace

TSampleForm::TSampleForm(QObject *AOwner)
    : QObject(AOwner), FButton(new TSampleButton(this)), FEdit(new TSampleEdit(this))
{
    RegisterEvents();
    setObjectName(QStringLiteral("OrderForm"));
    FButton->setObjectName(QStringLiteral("SendButton"));
    FEdit->setObjectName(QStringLiteral("NameEdit"));
}

std::vector<TSampleForm::TEvent> TSampleForm::Events()
{
    return {{this, QStringLiteral("OnShow")},     {this, QStringLiteral("OnCloseQuery")},
            {FButton, QStringLiteral("OnClick")}, {FButton, QStringLiteral("Pressed")},
            {FEdit, QStringLiteral("OnKeyDown")}, {FEdit, QStringLiteral("OnValidate")},
            {FEdit, QStringLiteral("TextEdited")}};
}
