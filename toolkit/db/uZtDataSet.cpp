#include "uZtDataSet.h"

#include "uZtModelSource.h"

#include <QCoreApplication>
#include <QSqlField>

#include <algorithm>

TDataSet::TDataSet(QObject *AOwner) : QObject(AOwner) {}

TDataSet::~TDataSet() { Leave(); }

// What is deleted is shown nowhere any more.
void TDataSet::Abandoned()
{
    setParent(nullptr);
    Leave();
}

void TDataSet::Leave()
{
    while (!FListeners.empty())
        ZtQuietly([this] { FListeners.back()->DataSetRemoved(); });
}

// --- notifications -------------------------------------------------------------------------------

void TDataSet::Notify(TDataEvent AEvent, TField *AField)
{
    const THold hold(*this);
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
        throw EDatabaseError(QCoreApplication::translate("DataSet", "The dataset is closed."));
}

void TDataSet::CheckCanModify() const
{
    const QString reason = GetReadOnlyReason();
    if (!reason.isEmpty())
        throw EDatabaseError(reason);
}

void TDataSet::CheckPending() const
{
    if (!IsPending())
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "The dataset is not in edit or insert state."));
}

// --- model and fields ----------------------------------------------------------------------------

QSqlQueryModel *TDataSet::GetModel() const
{
    const auto *source = dynamic_cast<const TModelSource *>(FSource.get());
    return source ? source->Model() : nullptr;
}

void TDataSet::SetModel(QSqlQueryModel *Value)
{
    QSqlQueryModel *old = GetModel();
    if (Value == old && (Value || !FSource))
        return;
    if (old)
        disconnect(old, nullptr, this, nullptr);
    SetRecordSource(Value ? std::make_unique<TModelSource>(Value) : nullptr);
    if (Value)
        connect(Value, &QObject::destroyed, this, &TDataSet::Close);
}

void TDataSet::SetRecordSource(std::unique_ptr<TRecordSource> Value)
{
    Close();
    FSource = std::move(Value);
}

QString TDataSet::GetReadOnlyReason() const
{
    if (FReadOnly)
        return QCoreApplication::translate("DataSet", "The dataset is read-only.");
    return FSource ? FSource->ReadOnlyReason()
                   : QCoreApplication::translate("DataSet", "The dataset has no records.");
}

void TDataSet::CreateFields()
{
    const QSqlRecord columns = FSource->Columns();
    if (!IsBusy())
        FClosedFields.clear();
    FFields.clear();
    for (int i = 0; i < columns.count(); ++i)
        FFields.emplace_back(new TField(this, i, columns.field(i)));
}

void TDataSet::Open()
{
    if (GetActive())
        return;
    if (!FSource)
        throw EDatabaseError(QCoreApplication::translate("DataSet", "The dataset has no model."));
    FSource->Select();
    CreateFields();
    FEof = FSource->Count() == 0;
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
    const THold hold(*this);
    FRow = -1;
    ReadRecord(FRow);
    SetState(TDataSetState::dsInactive); // the links let go of their fields
    for (auto &field : FFields) {
        field->Detach();
        FClosedFields.push_back(std::move(field));
    }
    FFields.clear();
    Notify(TDataEvent::deDataChange);
}

TField *TDataSet::GetFields(int Index) const
{
    if (Index < 0 || Index >= GetFieldCount())
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "There is no field with the index %1.")
                .arg(Index));
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
    throw EDatabaseError(
        QCoreApplication::translate("DataSet", "There is no field \"%1\".").arg(AFieldName));
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
    for (const auto &field : FFields)
        FStored.push_back(ARow < 0 ? field->NullValue() : FSource->Value(ARow, field->GetIndex()));
    FValues = FStored;
    FStoredInto.assign(FFields.size(), false);
    FModified = false;
}

bool TDataSet::IsExact(int AIndex) const
{
    return FRow < 0 || FState == TDataSetState::dsInsert || FStoredInto.at(size_t(AIndex)) ||
           FSource->IsExact(FRow, AIndex);
}

int TDataSet::GetRecordCount() const { return GetActive() ? FSource->Count() : 0; }

int TDataSet::GetRecNo() const { return FState == TDataSetState::dsInsert ? 0 : FRow + 1; }

void TDataSet::CheckBrowseMode()
{
    CheckActive();
    if (!IsPending())
        return;
    UpdateRecord();
    if (!IsPending())
        return; // a handler has ended it
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
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "There is no record with the number %1.")
                .arg(Value));
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
    CheckActive();
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
    if (IsPending()) // a handler may have ended it
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
        throw EDatabaseError(QCoreApplication::translate("DataSet", "The dataset has no records."));
    FSource->Remove(FRow, FStored);
    SetState(TDataSetState::dsBrowse);
    Reselect({}, {});
    Notify(TDataEvent::deDataChange);
}

void TDataSet::Refresh()
{
    CheckBrowseMode();
    Reselect(FStored, FSource->KeyColumns());
    Notify(TDataEvent::deDataChange);
}

// --- the records ---------------------------------------------------------------------------------

void TDataSet::StoreEdit()
{
    if (FModified)
        FSource->Update(FRow, FStored, FValues, FStoredInto);
    ReadRecord(FRow);
}

void TDataSet::StoreInsert()
{
    const bool known = FSource->Insert(FInsertRow, FValues, FStoredInto);
    FRow = FInsertRow;
    if (known) {
        ReadRecord(FRow);
        return;
    }
    std::vector<int> written;
    for (size_t i = 0; i < FStoredInto.size(); ++i)
        if (FStoredInto[i])
            written.push_back(int(i));
    Reselect(TZtValues(FValues), written);
}

void TDataSet::Rebase(const TZtValues &AStored)
{
    FStored = AStored;
    for (size_t i = 0; i < FValues.size(); ++i) {
        if (FStoredInto[i] || FValues[i] == AStored[i])
            continue;
        FValues[i] = AStored[i];
        Notify(TDataEvent::deDataChange, GetFields(int(i)));
    }
}

// Reads the records anew and goes to the one with these values, or else stays at the same number.
void TDataSet::Reselect(const TZtValues &AValues, const std::vector<int> &AColumns)
{
    try {
        FSource->Select();
    } catch (const EDatabaseError &) {
        FRow = -1;
        ReadRecord(FRow);
        SetState(TDataSetState::dsBrowse);
        Notify(TDataEvent::deDataChange);
        throw;
    }
    const int row = FSource->Find(AValues, AColumns);
    FRow = row >= 0 ? row : qMin(qMax(FRow, 0), GetRecordCount() - 1);
    FBof = FEof = IsEmpty();
    ReadRecord(FRow);
}
