#pragma once

#include "uZtBlobStream.h"
#include "uZtException.h"
#include "uZtField.h"

#include <QObject>
#include <QPointer>
#include <QSqlQueryModel>
#include <QVariant>

#include <memory>
#include <vector>

class TDataSource;
class QSqlError;
class QSqlRecord;
class QSqlTableModel;

/// A fault of the database, with its driver's own words, or an operation that a dataset, a field or
/// a data source cannot do as it is.
class EDatabaseError : public EZtException {
    using EZtException::EZtException;
};

enum class TDataSetState : quint8 {
    dsInactive, ///< closed: no records and no fields
    dsBrowse,   ///< looking at a record
    dsEdit,     ///< changing a record
    dsInsert    ///< writing a new one
};

/// What a dataset tells its data sources and these tell their links.
enum class TDataEvent : quint8 {
    deAttach,      ///< source or dataset were exchanged
    deUpdateState, ///< the state is another one
    deDataChange,  ///< the record or, when a field comes with it, this field is another one
    deUpdateRecord ///< what is still in the controls is to be stored into the fields
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
class TDataSet : public QObject {
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
    bool CanModify() const;
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

private:
    friend class TDataSource;
    friend class TField;
    using TValues = std::vector<QVariant>;

    bool IsPending() const { return FState >= TDataSetState::dsEdit; }
    void AddDataSource(TDataSource *ASource) { FSources.push_back(ASource); }
    void RemoveDataSource(TDataSource *ASource);
    void Notify(TDataEvent AEvent, TField *AField = nullptr);
    void SetState(TDataSetState AState);
    void CheckActive() const;
    void CheckCanModify() const;
    void CheckPending() const;
    // records
    QSqlTableModel *Table() const;
    void Select();
    void CreateFields();
    void ReadRecord(int ARow);
    void MoveTo(int ARow);
    void StartInsert(bool AAtEnd);
    QSqlRecord KeyOf(const TValues &AValues) const;
    void CheckRecordIsThere() const;
    void StoreEdit();
    void StoreInsert();
    void StorePending();
    void SubmitRow(int ARow);
    void Reselect(const TValues &AValues, const QSqlRecord &AColumns);
    int FindRow(const TValues &AValues, const QSqlRecord &AColumns) const;
    void StoreValue(int AIndex, const QVariant &AValue);

    QPointer<QSqlQueryModel> FModel;
    TDataSetState FState = TDataSetState::dsInactive;
    bool FReadOnly = false;
    bool FModified = false;
    bool FBof = true;
    bool FEof = true;
    int FRow = -1; // of the current record in the model
    int FInsertRow = 0;
    std::vector<std::unique_ptr<TField>> FFields;
    TValues FValues;               // of the current or pending record, one a field
    TValues FStored;               // as they were read
    std::vector<bool> FStoredInto; // since the record is pending
    std::vector<TDataSource *> FSources;
};
