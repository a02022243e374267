#include "uZtDataSet.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlTableModel>

#include <algorithm>

namespace {

[[noreturn]] void Raise(const QSqlError &AError) { throw EDatabaseError(AError.text().trimmed()); }

} // namespace

TDataSet::TDataSet(QObject *AOwner) : QObject(AOwner) {}

TDataSet::~TDataSet()
{
    while (!FListeners.empty())
        FListeners.back()->DataSetRemoved();
}

// --- notifications -------------------------------------------------------------------------------

void TDataSet::Notify(TDataEvent AEvent, TField *AField)
{
    const std::vector<TDataSetListener *> listeners = FListeners; // one may detach another
    for (TDataSetListener *listener : listeners)
        if (std::find(FListeners.begin(), FListeners.end(), listener) != FListeners.end())
            listener->DataEvent(AEvent, AField);
}

void TDataSet::SetState(TDataSetState AState)
{
    if (FState == AState)
        return;
    FState = AState;
    Notify(TDataEvent::deUpdateState);
}

void TDataSet::CheckActive() const
{
    if (!GetActive())
        throw EDatabaseError(QStringLiteral("The dataset is closed."));
}

void TDataSet::CheckCanModify() const
{
    if (!CanModify())
        throw EDatabaseError(QStringLiteral("The dataset is read-only."));
}

void TDataSet::CheckPending() const
{
    if (!IsPending())
        throw EDatabaseError(QStringLiteral("The dataset is not in edit or insert state."));
}

// --- model and fields ----------------------------------------------------------------------------

QSqlTableModel *TDataSet::Table() const { return qobject_cast<QSqlTableModel *>(FModel); }

bool TDataSet::CanModify() const { return !FReadOnly && Table(); }

void TDataSet::SetModel(QSqlQueryModel *Value)
{
    if (Value == FModel)
        return;
    Close();
    if (FModel)
        disconnect(FModel, nullptr, this, nullptr);
    FModel = Value;
    if (FModel)
        connect(FModel, &QObject::destroyed, this, &TDataSet::Close);
}

void TDataSet::Select()
{
    bool selected;
    if (QSqlTableModel *table = Table()) {
        table->setEditStrategy(QSqlTableModel::OnRowChange); // a row is written when it is posted
        selected = table->select();
    } else {
        QSqlQuery query = FModel->query();
        selected = query.boundValues().isEmpty() ? query.exec(query.lastQuery()) : query.exec();
        FModel->setQuery(std::move(query));
    }
    if (!selected)
        Raise(FModel->lastError());
    // A query that is read half keeps its lock on the database; it also could not tell its count.
    while (FModel->canFetchMore())
        FModel->fetchMore();
}

void TDataSet::CreateFields()
{
    const QSqlRecord record = FModel->record();
    FFields.clear();
    for (int i = 0; i < record.count(); ++i)
        FFields.emplace_back(new TField(this, i, record.field(i)));
}

void TDataSet::Open()
{
    if (GetActive())
        return;
    if (!FModel)
        throw EDatabaseError(QStringLiteral("The dataset has no model."));
    Select();
    CreateFields();
    FEof = FModel->rowCount() == 0;
    FBof = true;
    FRow = FEof ? -1 : 0;
    ReadRecord(FRow);
    SetState(TDataSetState::dsBrowse);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Close()
{
    if (!GetActive())
        return;
    FRow = -1;
    ReadRecord(FRow);
    SetState(TDataSetState::dsInactive); // the links let go of their fields
    FFields.clear();
    Notify(TDataEvent::deDataChange);
}

TField *TDataSet::GetFields(int Index) const
{
    if (Index < 0 || Index >= GetFieldCount())
        throw EDatabaseError(QStringLiteral("There is no field with the index %1.").arg(Index));
    return FFields[size_t(Index)].get();
}

TField *TDataSet::FindField(const QString &AFieldName) const
{
    const auto found = std::find_if(FFields.begin(), FFields.end(), [&](const auto &field) {
        return field->GetFieldName().compare(AFieldName, Qt::CaseInsensitive) == 0;
    });
    return found == FFields.end() ? nullptr : found->get();
}

TField *TDataSet::FieldByName(const QString &AFieldName) const
{
    if (TField *field = FindField(AFieldName))
        return field;
    throw EDatabaseError(QStringLiteral("There is no field \"%1\".").arg(AFieldName));
}

std::unique_ptr<TBlobStream> TDataSet::CreateBlobStream(TField *AField, TBlobStreamMode AMode)
{
    return std::make_unique<TBlobStream>(AField, AMode);
}

QVariant TDataSet::ExchangeValue(int AIndex, const QVariant &AValue)
{
    return std::exchange(FValues.at(size_t(AIndex)), AValue);
}

void TDataSet::ValueStored(int AIndex)
{
    FStoredInto.at(size_t(AIndex)) = true;
    FModified = true;
    Notify(TDataEvent::deDataChange, GetFields(AIndex));
}

// --- moving --------------------------------------------------------------------------------------

// Takes the values of a row of the model; a negative one is an empty record.
void TDataSet::ReadRecord(int ARow)
{
    FStored.clear();
    for (const auto &field : FFields) {
        const QModelIndex index = ARow < 0 ? QModelIndex() : FModel->index(ARow, field->GetIndex());
        FStored.push_back(index.isValid() ? index.data(Qt::EditRole) : field->NullValue());
    }
    FValues = FStored;
    FStoredInto.assign(FFields.size(), false);
    FModified = false;
}

int TDataSet::GetRecordCount() const { return GetActive() && FModel ? FModel->rowCount() : 0; }

int TDataSet::GetRecNo() const { return FState == TDataSetState::dsInsert ? 0 : FRow + 1; }

void TDataSet::CheckBrowseMode()
{
    CheckActive();
    if (!IsPending())
        return;
    UpdateRecord();
    if (FModified)
        StorePending();
    else
        Cancel();
}

void TDataSet::MoveTo(int ARow)
{
    if (ARow == FRow)
        return;
    FRow = ARow;
    ReadRecord(FRow);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::First()
{
    CheckBrowseMode();
    FBof = true;
    FEof = IsEmpty();
    MoveTo(IsEmpty() ? -1 : 0);
}

void TDataSet::Last()
{
    CheckBrowseMode();
    FBof = IsEmpty();
    FEof = true;
    MoveTo(GetRecordCount() - 1);
}

void TDataSet::MoveBy(int ADistance)
{
    CheckBrowseMode();
    const int last = GetRecordCount() - 1;
    const qint64 row = qint64(FRow) + ADistance;
    FBof = row < 0 || last < 0;
    FEof = row > last;
    MoveTo(int(std::clamp<qint64>(row, qMin(0, last), last)));
}

void TDataSet::SetRecNo(int Value)
{
    CheckBrowseMode();
    if (Value < 1 || Value > GetRecordCount())
        throw EDatabaseError(QStringLiteral("There is no record with the number %1.").arg(Value));
    FBof = FEof = false;
    MoveTo(Value - 1);
}

// --- editing -------------------------------------------------------------------------------------

void TDataSet::Edit()
{
    CheckActive();
    if (IsPending())
        return;
    if (FRow < 0)
        return Insert();
    CheckCanModify();
    SetState(TDataSetState::dsEdit);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Insert() { StartInsert(false); }

void TDataSet::Append() { StartInsert(true); }

void TDataSet::StartInsert(bool AAtEnd)
{
    CheckBrowseMode();
    CheckCanModify();
    if (AAtEnd)
        FRow = GetRecordCount() - 1; // where a cancel goes to
    FInsertRow = AAtEnd ? FRow + 1 : qMax(FRow, 0);
    FBof = FEof = false;
    ReadRecord(-1);
    SetState(TDataSetState::dsInsert);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::UpdateRecord()
{
    CheckPending();
    Notify(TDataEvent::deUpdateRecord);
}

void TDataSet::Post()
{
    CheckActive();
    UpdateRecord();
    StorePending();
}

void TDataSet::StorePending()
{
    if (FState == TDataSetState::dsInsert)
        StoreInsert();
    else
        StoreEdit();
    SetState(TDataSetState::dsBrowse);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Cancel()
{
    CheckActive();
    if (!IsPending())
        return;
    ReadRecord(FRow);
    SetState(TDataSetState::dsBrowse);
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Delete()
{
    CheckActive();
    if (FState == TDataSetState::dsInsert)
        return Cancel();
    CheckCanModify();
    if (FRow < 0)
        throw EDatabaseError(QStringLiteral("The dataset has no records."));
    CheckRecordIsThere();
    QSqlTableModel *table = Table();
    if (!table->removeRow(FRow)) {
        const QSqlError error = table->lastError();
        table->revertRow(FRow);
        Raise(error);
    }
    SetState(TDataSetState::dsBrowse);
    Reselect({}, {});
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Refresh()
{
    CheckBrowseMode();
    Reselect(FStored, KeyOf(FStored));
    Notify(TDataEvent::deDataChange);
}

// --- the table -----------------------------------------------------------------------------------

// The columns that tell the record from all others, with their values.
QSqlRecord TDataSet::KeyOf(const TZtValues &AValues) const
{
    QSqlRecord key;
    if (const QSqlTableModel *table = Table())
        key = table->primaryKey();
    if (key.isEmpty())
        key = FModel->record();
    for (int i = 0; i < key.count(); ++i)
        if (const TField *field = FindField(key.fieldName(i)))
            key.setValue(i, AValues[size_t(field->GetIndex())]);
    return key;
}

// A statement that finds no record is none that fails: without this check a text could be written
// nowhere, or into several records at once.
void TDataSet::CheckRecordIsThere() const
{
    const QSqlTableModel *table = Table();
    const QSqlRecord key = KeyOf(FStored);
    const QSqlDriver *driver = table->database().driver();
    QSqlQuery query(table->database());
    query.setForwardOnly(true);
    query.prepare(
        driver->sqlStatement(QSqlDriver::SelectStatement, table->tableName(), key, false) + u' ' +
        driver->sqlStatement(QSqlDriver::WhereStatement, table->tableName(), key, true));
    for (int i = 0; i < key.count(); ++i)
        if (!key.isNull(i))
            query.addBindValue(key.value(i));
    if (!query.exec())
        Raise(query.lastError());
    if (!query.next()) {
        if (query.lastError().isValid())
            Raise(query.lastError());
        throw EDatabaseError(QStringLiteral("The record was removed or changed by someone else."));
    }
    if (query.next())
        throw EDatabaseError(
            QStringLiteral("The record cannot be told from another one: the table has no key."));
}

void TDataSet::SubmitRow(int ARow)
{
    QSqlTableModel *table = Table();
    for (const auto &field : FFields) {
        const size_t i = size_t(field->GetIndex());
        if (!FStoredInto[i] || table->setData(table->index(ARow, int(i)), FValues[i]))
            continue;
        table->revertRow(ARow);
        throw EDatabaseError(
            QStringLiteral("The field \"%1\" takes no value.").arg(field->GetFieldName()));
    }
    // When nothing is dirty any more the row was written, and only reading it again failed.
    if (table->submit() || !table->isDirty())
        return;
    const QSqlError error = table->lastError();
    table->revertRow(ARow);
    Raise(error);
}

void TDataSet::StoreEdit()
{
    if (FModified) {
        CheckRecordIsThere();
        SubmitRow(FRow);
    }
    ReadRecord(FRow);
}

void TDataSet::StoreInsert()
{
    QSqlTableModel *table = Table();
    const QSqlRecord columns = table->record();
    if (!FModified) // a database wants at least one column to be named
        for (int i = 0; i < columns.count(); ++i)
            FStoredInto[size_t(i)] = !columns.field(i).isAutoValue();
    if (!table->insertRow(FInsertRow))
        Raise(table->lastError());
    SubmitRow(FInsertRow);
    FRow = FInsertRow;
    const TZtValues written = FValues;
    QSqlRecord stored;
    for (const auto &field : FFields)
        if (FStoredInto[size_t(field->GetIndex())])
            stored.append(columns.field(field->GetIndex()));
    ReadRecord(FRow);
    const QSqlRecord key = KeyOf(FStored);
    bool known = true;
    for (int i = 0; i < key.count() && !table->primaryKey().isEmpty(); ++i)
        known = known && !key.isNull(i);
    if (!known)
        Reselect(written, stored); // the database made the key and its driver does not tell it
}

// The last row whose values in `AColumns` are these, or -1.
int TDataSet::FindRow(const TZtValues &AValues, const QSqlRecord &AColumns) const
{
    if (AColumns.isEmpty() || AValues.empty())
        return -1;
    std::vector<int> columns;
    for (int i = 0; i < AColumns.count(); ++i)
        if (const TField *field = FindField(AColumns.fieldName(i)))
            columns.push_back(field->GetIndex());
    for (int row = GetRecordCount() - 1; row >= 0; --row)
        if (std::all_of(columns.begin(), columns.end(), [&](int column) {
                return FModel->index(row, column).data(Qt::EditRole) == AValues[size_t(column)];
            }))
            return row;
    return -1;
}

// Reads the records anew and goes to the one with these values, or else stays at the same number.
void TDataSet::Reselect(const TZtValues &AValues, const QSqlRecord &AColumns)
{
    try {
        Select();
    } catch (const EDatabaseError &) {
        FRow = -1;
        ReadRecord(FRow);
        SetState(TDataSetState::dsBrowse);
        Notify(TDataEvent::deDataChange);
        throw;
    }
    const int row = FindRow(AValues, AColumns);
    FRow = row >= 0 ? row : qMin(qMax(FRow, 0), GetRecordCount() - 1);
    FBof = FEof = IsEmpty();
    ReadRecord(FRow);
}
