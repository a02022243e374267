#pragma once

#include "uZtExport.h"
#include "uZtNotifier.h"

#include <QSqlField>
#include <QString>
#include <QVariant>

#include <functional>

class TDataSet;

/// The record that a field belongs to, as the field sees it. Columns are counted from 0.
class ZT_DBEDITOR_EXPORT TFieldRecord {
public:
    virtual TDataSet *RecordDataSet() = 0; ///< the one that is told of stores
    /// What keeps the field alive while it is held.
    virtual const TZtNotifier &Holder() const = 0;
    /// Raises without a pending record.
    virtual void CheckPending() const = 0;
    virtual bool CanModify() const = 0; ///< whether it can be changed at all
    /// What a column holds now, also what was stored and not posted.
    virtual QVariant GetValue(int AIndex) const = 0;
    /// Puts a value into the record and returns the one before; nobody is told.
    virtual QVariant ExchangeValue(int AIndex, const QVariant &AValue) = 0;
    /// Marks a field as stored into and tells who shows it.
    virtual void ValueStored(int AIndex) = 0;
    /// Whether the value gives back what the database has.
    virtual bool IsExact(int AIndex) const = 0;

protected:
    ~TFieldRecord() = default;
};

/// A column of a dataset and its value in the current record.
///
/// A store needs the dataset in edit or insert state and a field that is not read-only, and raises
/// `EDatabaseError` otherwise. It is checked by `OnValidate`, and tells the data sources at once.
class ZT_DBEDITOR_EXPORT TField {
public:
    /// Read-only at first as `AColumn` is. `ARecord` outlives the field or calls `Detach`.
    TField(TFieldRecord *ARecord, int AIndex, const QSqlField &AColumn);
    TField(const TField &) = delete;
    TField &operator=(const TField &) = delete;

    /// Looks at the new value; what it raises undoes the store.
    std::function<void(TField *Sender)> OnValidate;

    /// Null once the dataset is closed.
    TDataSet *GetDataSet() const { return FRecord ? FRecord->RecordDataSet() : nullptr; }
    /// The column's, as the database spells it.
    QString GetFieldName() const { return FColumn.name(); }
    /// 0-based.
    int GetIndex() const { return FIndex; }
    /// Whether the column's type is one of bytes, to be read and written through streams.
    bool IsBlob() const { return FColumn.metaType().id() == QMetaType::QByteArray; }
    /// Whether the database makes the value, as the number of a new record.
    bool IsAutoValue() const { return FColumn.isAutoValue(); }
    bool GetReadOnly() const { return FReadOnly; }
    /// Forbids stores. Nobody is told until the dataset's state changes.
    void SetReadOnly(bool Value) { FReadOnly = Value; }
    /// Whether neither the field nor its dataset is read-only.
    bool CanModify() const;

    /// Whether the value gives back what is stored: a text whose bytes are no text in the
    /// database's encoding does not, and storing what was made of it would change them.
    bool IsExact() const { return !FRecord || FRecord->IsExact(FIndex); }

    /// Whether the value is the database's null.
    bool IsNull() const { return GetValue().isNull(); }
    /// Stores null.
    void Clear();
    /// The value as the database has it.
    QVariant GetValue() const;
    /// Stores a value as it is.
    void SetValue(const QVariant &Value);

    /// A value as text, empty for null. Bytes are decoded, whatever their encoding.
    static QString TextOf(const QVariant &AValue);
    /// The value as text, empty for null. Bytes are decoded, whatever their encoding.
    QString GetAsString() const { return TextOf(GetValue()); }
    /// Stores a text as a value of the column's type; raises when it is none. An empty text is an
    /// empty string, and null in a column of another type.
    void SetAsString(const QString &Value);
    /// The value as bytes; text is UTF-8.
    QByteArray GetAsBytes() const;
    /// The value as it is shown.
    QString GetText() const { return GetAsString(); }
    /// Stores what a user wrote.
    void SetText(const QString &Value) { SetAsString(Value); }
    /// The value as it is given to a user to edit.
    QString GetEditText() const { return GetAsString(); }
    /// Runs `OnValidate` on the value as it is.
    void Validate();
    /// Null, of the column's type.
    QVariant NullValue() const { return QVariant(FColumn.metaType()); }
    /// Raises when the field cannot be stored into as it is.
    void CheckStore() const;
    /// Stores bytes as they are, without a validation. A text in a column of bytes stays a text.
    void StoreBytes(const QByteArray &ABytes);
    /// The record goes: the field holds nothing any more.
    void Detach() { FRecord = nullptr; }

private:
    QVariant FromText(const QString &AText) const;

    TFieldRecord *FRecord;
    int FIndex;
    QSqlField FColumn;
    bool FReadOnly;
};
