#pragma once

#include "uZtBlobStream.h"
#include "uZtDbTypes.h"
#include "uZtField.h"

#include <QObject>
#include <QPointer>
#include <QSqlQueryModel>

#include <memory>

class QSqlError;
class QSqlRecord;
class QSqlTableModel;

/// Who is told of what happens to a dataset.
class TDataSetListener {
public:
    virtual void DataEvent(TDataEvent AEvent, TField *AField) = 0;
    /// The dataset is about to go; the listener lets go of it.
    virtual void DataSetRemoved() = 0;

protected:
    ~TDataSetListener() = default;
};

/// The records of an SQL model, one of which is the current one, and their editing.
///
/// The model is the host's: a `QSqlTableModel` of any driver, or another `QSqlQueryModel`, whose
/// records are read-only. Opening reads all of them. A changed record is written with the model's
/// own statements when it is posted, not before; the record is found by the table's primary key, by
/// all its columns where there is none. Only columns that were stored into are written.
///
/// What fails raises `EDatabaseError`. A post that fails leaves the state and the fields as they
/// are, so that it can be repeated.
class TDataSet : public QObject, private TFieldRecord {
    Q_OBJECT
    Q_PROPERTY(bool Active READ GetActive WRITE SetActive)
    Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly)

public:
    explicit TDataSet(QObject *AOwner = nullptr);
    /// Detaches the data sources. A pending record is given up.
    ~TDataSet() override;

    QSqlQueryModel *GetModel() const { return FModel; }
    /// The model stays the caller's; its edit strategy becomes `OnRowChange`. Closes the dataset.
    void SetModel(QSqlQueryModel *Value);
    bool GetActive() const { return FState != TDataSetState::dsInactive; }
    void SetActive(bool Value) { Value ? Open() : Close(); }
    /// Reads the records anew and goes to the first one. Nothing happens when it is open.
    void Open();
    /// Gives up a pending record. The fields are gone afterwards.
    void Close();
    TDataSetState GetState() const { return FState; }

    bool GetReadOnly() const { return FReadOnly; }
    /// Forbids `Edit`, `Insert`, `Append` and `Delete`; no one is told.
    void SetReadOnly(bool Value) { FReadOnly = Value; }
    /// Whether the records can be changed at all: a table, and not read-only.
    bool CanModify() const final;
    /// Whether a field of the pending record was stored into.
    bool GetModified() const { return FModified; }

    int GetFieldCount() const { return int(FFields.size()); }
    /// 0-based. The fields live until the dataset is closed.
    TField *GetFields(int Index) const;
    /// By name, letter case apart; null when there is none.
    TField *FindField(const QString &AFieldName) const;
    /// `FindField` that raises.
    TField *FieldByName(const QString &AFieldName) const;
    /// A stream of a field's bytes; see `TBlobStream`.
    std::unique_ptr<TBlobStream> CreateBlobStream(TField *AField, TBlobStreamMode AMode);

    // Every move first checks the pending record: it is posted if a field was stored into, else
    // cancelled.

    int GetRecordCount() const;
    bool IsEmpty() const { return GetRecordCount() == 0; }
    /// The current record's number, 1-based; 0 without records and for a record being inserted.
    int GetRecNo() const;
    /// Goes to a record; raises when there is none of this number.
    void SetRecNo(int Value);
    /// Whether the last move tried to go before the first record or went there.
    bool GetBof() const { return FBof; }
    /// Whether the last move tried to go behind the last record or went there.
    bool GetEof() const { return FEof; }
    void First();
    void Prior() { MoveBy(-1); }
    void Next() { MoveBy(1); }
    void Last();
    /// Moves over so many records, backwards when negative, stopping at either end.
    void MoveBy(int ADistance);

    /// Starts changing the current record, or a new one when there are no records. Nothing happens
    /// when a record is being changed already.
    void Edit();
    /// Starts a new record before the current one.
    void Insert();
    /// Starts a new record behind the last one.
    void Append();
    /// Writes the pending record. Raises without one.
    void Post();
    /// Gives up the pending record; the fields are as stored again. Nothing happens without one.
    void Cancel();
    /// Removes the current record; the next one takes its place. Cancels one being inserted.
    void Delete();
    /// Reads the records anew and goes to the one that was current, if it is still there.
    void Refresh();
    /// Has the controls store what they hold into the fields. Raises without a pending record.
    void UpdateRecord();
    /// Posts or cancels a pending record, as a move does.
    void CheckBrowseMode();

    void AddListener(TDataSetListener *AListener) { FListeners.push_back(AListener); }
    void RemoveListener(TDataSetListener *AListener) { std::erase(FListeners, AListener); }

private:
    // as its fields see it
    TDataSet *RecordDataSet() final { return this; }
    void CheckPending() const final;
    QVariant GetValue(int AIndex) const final { return FValues.at(size_t(AIndex)); }
    QVariant ExchangeValue(int AIndex, const QVariant &AValue) final;
    void ValueStored(int AIndex) final;

    bool IsPending() const { return FState >= TDataSetState::dsEdit; }
    void Notify(TDataEvent AEvent, TField *AField = nullptr);
    void SetState(TDataSetState AState);
    void CheckActive() const;
    void CheckCanModify() const;
    // records
    QSqlTableModel *Table() const;
    void Select();
    void CreateFields();
    void ReadRecord(int ARow);
    void MoveTo(int ARow);
    void StartInsert(bool AAtEnd);
    QSqlRecord KeyOf(const TZtValues &AValues) const;
    void CheckRecordIsThere() const;
    void StoreEdit();
    void StoreInsert();
    void StorePending();
    void SubmitRow(int ARow);
    void Reselect(const TZtValues &AValues, const QSqlRecord &AColumns);
    int FindRow(const TZtValues &AValues, const QSqlRecord &AColumns) const;

    QPointer<QSqlQueryModel> FModel;
    TDataSetState FState = TDataSetState::dsInactive;
    bool FReadOnly = false;
    bool FModified = false;
    bool FBof = true;
    bool FEof = true;
    int FRow = -1; // of the current record in the model
    int FInsertRow = 0;
    std::vector<std::unique_ptr<TField>> FFields;
    TZtValues FValues;               // of the current or pending record, one a field
    TZtValues FStored;               // as they were read
    std::vector<bool> FStoredInto; // since the record is pending
    std::vector<TDataSetListener *> FListeners;
};
