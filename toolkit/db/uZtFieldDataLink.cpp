#include "uZtFieldDataLink.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace {

void Fire(const TNotifyEvent &AEvent, QObject *ASender)
{
    if (AEvent)
        AEvent(ASender);
}

} // namespace

TFieldDataLink::TFieldDataLink(QObject *AControl) : FControl(AControl) {}

TFieldDataLink::~TFieldDataLink()
{
    if (FDataSource)
        FDataSource->RemoveDataLink(this);
}

void TFieldDataLink::SetDataSource(TDataSource *Value)
{
    if (Value == FDataSource)
        return;
    if (FDataSourceFixed)
        throw EDatabaseError(QCoreApplication::translate("DataSet", "The data source is fixed."));
    if (FDataSource)
        DataSourceRemoved();
    FDataSource = Value;
    if (!FDataSource)
        return;
    FDataSource->AddDataLink(this);
    Attach();
    RecordChanged(nullptr);
}

void TFieldDataLink::DataSourceRemoved()
{
    FDataSource->RemoveDataLink(this);
    FDataSource = nullptr;
    Attach();
    RecordChanged(nullptr);
}

void TFieldDataLink::SetFieldName(const QString &Value)
{
    FFieldName = Value;
    const TField *old = FField;
    UpdateField();
    if (FField == old)
        return;
    Attach();
    RecordChanged(nullptr);
}

void TFieldDataLink::UpdateField()
{
    const TDataSet *dataSet = GetDataSet();
    FField = dataSet && dataSet->GetActive() ? dataSet->FindField(FFieldName) : nullptr;
}

bool TFieldDataLink::MayEdit() const
{
    return FDataSource && FDataSource->GetState() >= TDataSetState::dsEdit && !FReadOnly &&
           FField && !FField->GetReadOnly();
}

// An editing-change would tell a control that the user began to change what it shows, while it
// still shows another field.
void TFieldDataLink::Attach()
{
    UpdateField();
    FEditing = MayEdit();
    FModified = false;
}

void TFieldDataLink::UpdateState()
{
    UpdateField();
    const bool editing = MayEdit();
    if (editing == FEditing)
        return;
    FEditing = editing;
    FModified = false;
    Fire(OnEditingChange, FControl);
}

void TFieldDataLink::DataEvent(TDataEvent AEvent, TField *AField)
{
    switch (AEvent) {
    case TDataEvent::deAttach:
        Attach();
        break;
    case TDataEvent::deUpdateState:
        UpdateState();
        break;
    case TDataEvent::deDataChange:
        if (!FUpdating)
            RecordChanged(AField);
        break;
    case TDataEvent::deUpdateRecord:
        UpdateRecord();
        break;
    }
}

void TFieldDataLink::RecordChanged(const TField *AField)
{
    if (AField && AField != FField)
        return;
    FKept = false;
    Fire(OnDataChange, FControl);
    FModified = FModified && FKept;
}

bool TFieldDataLink::Edit()
{
    if (CanModify())
        FDataSource->Edit();
    return FEditing;
}

void TFieldDataLink::Reset()
{
    const QScopedValueRollback resetting(FResetting, true);
    RecordChanged(nullptr);
}

void TFieldDataLink::UpdateRecord()
{
    const QScopedValueRollback updating(FUpdating, true);
    if (!FModified)
        return;
    if (FField)
        Fire(OnUpdateData, FControl);
    FModified = false;
}
