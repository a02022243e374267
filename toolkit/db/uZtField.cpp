#include "uZtField.h"

#include "uZtDataSet.h"
#include "uZtStringStream.h"

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

TField::TField(TDataSet *ADataSet, int AIndex, const QSqlField &AColumn)
    : FDataSet(ADataSet), FIndex(AIndex), FColumn(AColumn), FReadOnly(AColumn.isReadOnly())
{
}

bool TField::CanModify() const { return !FReadOnly && FDataSet->CanModify(); }

QVariant TField::GetValue() const { return FDataSet->FValues.at(size_t(FIndex)); }

QString TField::GetAsString() const
{
    const QVariant value = GetValue();
    if (value.typeId() == QMetaType::QByteArray)
        return Decoded(value.toByteArray());
    return value.toString();
}

QByteArray TField::GetAsBytes() const
{
    const QVariant value = GetValue();
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray()
                                                   : value.toString().toUtf8();
}

void TField::CheckStore() const
{
    FDataSet->CheckPending();
    if (FReadOnly)
        throw EDatabaseError(QStringLiteral("The field \"%1\" is read-only.").arg(GetFieldName()));
}

void TField::Clear() { SetValue(NullValue()); }

void TField::SetValue(const QVariant &Value)
{
    CheckStore();
    QVariant &value = FDataSet->FValues.at(size_t(FIndex));
    const QVariant old = std::exchange(value, Value);
    try {
        Validate();
    } catch (...) {
        value = old;
        throw;
    }
    FDataSet->StoreValue(FIndex, Value);
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
        throw EDatabaseError(QStringLiteral("\"%1\" is no value for the field \"%2\".")
                                 .arg(AText.trimmed(), GetFieldName()));
    return value;
}

void TField::SetAsString(const QString &Value)
{
    CheckStore();
    SetValue(FromText(Value));
}

// A text in a column of bytes stays a text. The type of a null says nothing.
void TField::StoreBytes(const QByteArray &ABytes)
{
    CheckStore();
    if (IsNull() ? !IsBlob() : GetValue().typeId() == QMetaType::QString)
        FDataSet->StoreValue(FIndex, NotNull(QString::fromUtf8(ABytes)));
    else
        FDataSet->StoreValue(FIndex, NotNull(ABytes));
}

void TField::Validate()
{
    if (OnValidate)
        OnValidate(this);
}
