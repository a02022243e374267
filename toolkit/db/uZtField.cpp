#include "uZtField.h"

#include "uZtDbTypes.h"
#include "uZtStringStream.h"
#include "uZtUtf8.h"

#include <QCoreApplication>

namespace {

// Qt takes a null string or byte array for the database's null.
template <typename T> T NotNull(const T &AValue) { return AValue.isNull() ? T("") : AValue; }

QString Decoded(const QByteArray &ABytes)
{
    TZtStringStream stream;
    stream.LoadFromBytes(ABytes);
    return stream.GetWString();
}

} // namespace

TField::TField(TFieldRecord *ARecord, int AIndex, const QSqlField &AColumn)
    : FRecord(ARecord), FIndex(AIndex), FColumn(AColumn), FReadOnly(AColumn.isReadOnly())
{
}

bool TField::CanModify() const { return !FReadOnly && FRecord && FRecord->CanModify(); }

QVariant TField::GetValue() const { return FRecord ? FRecord->GetValue(FIndex) : NullValue(); }

QString TField::TextOf(const QVariant &AValue)
{
    if (AValue.typeId() == QMetaType::QByteArray)
        return Decoded(AValue.toByteArray());
    return AValue.toString();
}

QByteArray TField::GetAsBytes() const
{
    const QVariant value = GetValue();
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray()
                                                   : value.toString().toUtf8();
}

void TField::CheckStore() const
{
    if (!FRecord)
        throw EDatabaseError(QCoreApplication::translate("DataSet", "The dataset is closed."));
    FRecord->CheckPending();
    if (FReadOnly)
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "The field \"%1\" is read-only.")
                .arg(GetFieldName()));
}

void TField::Clear() { SetValue(NullValue()); }

void TField::SetValue(const QVariant &Value)
{
    CheckStore();
    const TZtNotifier::THold hold(FRecord->Holder()); // a handler may close or delete the dataset
    const QVariant old = FRecord->ExchangeValue(FIndex, Value);
    try {
        Validate();
    } catch (...) {
        if (FRecord)
            FRecord->ExchangeValue(FIndex, old);
        throw;
    }
    if (FRecord)
        FRecord->ValueStored(FIndex);
}

QVariant TField::FromText(const QString &AText) const
{
    const QMetaType type = FColumn.metaType();
    if (IsBlob())
        return NotNull(AText.toUtf8());
    if (type.id() == QMetaType::QString || !type.isValid())
        return NotNull(AText);
    if (AText.trimmed().isEmpty())
        return NullValue();
    QVariant value(AText.trimmed());
    if (!value.convert(type))
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "\"%1\" is no value for the field \"%2\".")
                .arg(AText.trimmed(), GetFieldName()));
    return value;
}

void TField::SetAsString(const QString &Value)
{
    CheckStore();
    SetValue(FromText(Value));
}

void TField::StoreBytes(const QByteArray &ABytes)
{
    CheckStore();
    const TZtNotifier::THold hold(FRecord->Holder());
    // The type of a null says nothing.
    const bool text = IsNull() ? !IsBlob() : GetValue().typeId() == QMetaType::QString;
    FRecord->ExchangeValue(FIndex, text ? QVariant(NotNull(ZtFromUtf8(ABytes)))
                                        : QVariant(NotNull(ABytes)));
    FRecord->ValueStored(FIndex);
}

void TField::Validate()
{
    const auto validate = OnValidate;
    if (!validate || !FRecord)
        return;
    const TZtNotifier::THold hold(FRecord->Holder());
    validate(this);
}
