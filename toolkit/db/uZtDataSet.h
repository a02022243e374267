#pragma once

#include "uZtBlobStream.h"
#include "uZtExport.h"
#include "uZtField.h"
#include "uZtNotifier.h"
#include "uZtRecordSource.h"

#include <QObject>

#include <memory>

class QSqlQueryModel;

/// Who is told of what happens to a dataset.
class ZT_DBEDITOR_EXPORT TDataSetListener {
public:
    /// `AField` is null when it is not about one field.
    virtual void DataEvent(TDataEvent AEvent, TField *AField) = 0;
    /// The dataset is about to go; the listener lets go of it.
    virtual void DataSetRemoved() = 0;

protected:
    ~TDataSetListener() = default;
};

/// Records, one of which is the current one, and their editing.
///
/// The records are those of a host's SQL model or of another `TRecordSource`. Opening reads all of
/// them. A changed record is written when it is posted, not before, and only the columns that were
/// stored into.
///
/// What fails raises `EDatabaseError`. A post that fails leaves the state and the fields as they
/// are, so that it can be repeated. A post that finds another value in the database than the one
/// that was read writes nothing and raises `EUpdateConflict`.
///
/// A handler of its sources, links and fields may do anything with it, deleting it included.
class ZT_DBEDITOR_EXPORT TDataSet : public QObject, public TZtNotifier, private TFieldRecord {
    Q_OBJECT
    Q_PROPERTY(bool Active READ GetActive WRITE SetActive)
    Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly)

public:
    explicit TDataSet(QObject *AOwner = nullptr);
    /// Detaches the data sources. A pending record is given up.
    ~TDataSet() override;
    ZT_DELETE_WHEN_IDLE(TDataSet)

    /// The host's model; null without one.
    QSqlQueryModel *GetModel() const;
    /// The model stays the caller's; see `TModelSource`. Closes the dataset.
    void SetModel(QSqlQueryModel *Value);
    TRecordSource *GetRecordSource() const { return FSource.get(); }
    /// Closes the dataset.
    void SetRecordSource(std::unique_ptr<TRecordSource> Value);
    /// Whether it is open. Setting it opens or closes.
    bool GetActive() const { return FState != TDataSetState::dsInactive; }
    void SetActive(bool Value) { Value ? Open() : Close(); }
    /// Reads the records anew and goes to the first one. Nothing happens when it is open.
    void Open();
    /// Gives up a pending record. The fields are gone afterwards.
    void Close();
    TDataSetState GetState() const { return FState; } ///< `dsInactive` while it is closed

    bool GetReadOnly() const { return FReadOnly; }
    /// Forbids `Edit`, `Insert`, `Append` and `Delete`; no one is told.
    void SetReadOnly(bool Value) { FReadOnly = Value; }
    /// Whether the records can be changed at all.
    bool CanModify() const final { return GetReadOnlyReason().isEmpty(); }
    /// Why the records cannot be changed, for a user; empty when they can. Records of which not all
    /// could be read cannot.
    QString GetReadOnlyReason() const;
    /// Whether a field of the pending record was stored into.
    bool GetModified() const { return FModified; }

    /// Of the columns; 0 while it is closed.
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

    int GetRecordCount() const;                            ///< 0 while closed
    bool IsEmpty() const { return GetRecordCount() == 0; } ///< closed, or without a record
    /// The current record's number, 1-based; 0 without records and for a record being inserted.
    int GetRecNo() const;
    /// Goes to a record; raises when there is none of this number.
    void SetRecNo(int Value);
    /// Whether the last move tried to go before the first record or went there.
    bool GetBof() const { return FBof; }
    /// Whether the last move tried to go behind the last record or went there.
    bool GetEof() const { return FEof; }
    void First();                ///< goes to the first record
    void Prior() { MoveBy(-1); } ///< moves by one record towards the first
    void Next() { MoveBy(1); }   ///< moves by one record towards the last
    void Last();                 ///< goes to the last record
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
    /// Takes what a conflict has found for what was read: the next post writes over it. The fields
    /// that were not stored into show it.
    void Rebase(const TZtValues &AStored);
    /// Posts or cancels a pending record, as a move does.
    void CheckBrowseMode();

    /// To be removed before it goes.
    void AddListener(TDataSetListener *AListener) { FListeners.push_back(AListener); }
    /// One that does not listen changes nothing.
    void RemoveListener(TDataSetListener *AListener) { std::erase(FListeners, AListener); }

private:
    // as its fields see it
    TDataSet *RecordDataSet() final { return this; }
    const TZtNotifier &Holder() const final { return *this; }
    void CheckPending() const final;
    QVariant GetValue(int AIndex) const final { return FValues.at(size_t(AIndex)); }
    QVariant ExchangeValue(int AIndex, const QVariant &AValue) final;
    void ValueStored(int AIndex) final;
    bool IsExact(int AIndex) const final;

    void Abandoned() final;
    void Leave();

    bool IsPending() const { return FState >= TDataSetState::dsEdit; }
    void Notify(TDataEvent AEvent, TField *AField = nullptr);
    void SetState(TDataSetState AState);
    void CheckActive() const;
    void CheckCanModify() const;
    // records
    void CreateFields();
    void ReadRecord(int ARow);
    void MoveTo(int ARow);
    void StartInsert(bool AAtEnd);
    void StoreEdit();
    void StoreInsert();
    void StorePending();
    void Reselect(const TZtValues &AValues, const std::vector<int> &AColumns);

    std::unique_ptr<TRecordSource> FSource;
    TDataSetState FState = TDataSetState::dsInactive;
    bool FReadOnly = false;
    bool FModified = false;
    bool FBof = true;
    bool FEof = true;
    int FRow = -1; // of the current record
    int FInsertRow = 0;
    using TFields = std::vector<std::unique_ptr<TField>>;
    TFields FFields;
    TFields FClosedFields;         // of which some may be in use yet
    TZtValues FValues;             // of the current or pending record, one a field
    TZtValues FStored;             // as they were read
    std::vector<bool> FStoredInto; // since the record is pending
    std::vector<TDataSetListener *> FListeners;
};
