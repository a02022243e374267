#include "uZtDataSource.h"

#include "uZtClassRegistry.h"

#include <algorithm>

namespace {

const bool Registered = ZtRegisterClass<TDataSource>() && ZtRegisterClass<TDataSet>();

} // namespace

TDataSource::TDataSource(QObject *AOwner) : QObject(AOwner) {}

TDataSource::~TDataSource()
{
    OnStateChange = nullptr;
    OnDataChange = nullptr;
    while (!FLinks.empty())
        FLinks.back()->DataSourceRemoved();
    SetDataSet(nullptr);
}

TDataSetState TDataSource::GetState() const
{
    return FDataSet ? FDataSet->GetState() : TDataSetState::dsInactive;
}

void TDataSource::SetDataSet(TDataSet *Value)
{
    if (Value == FDataSet)
        return;
    if (FDataSet) {
        FDataSet->RemoveListener(this);
        FDataSet = nullptr;
        TellOfDataSet();
    }
    FDataSet = Value;
    if (FDataSet) {
        FDataSet->AddListener(this);
        TellOfDataSet();
    }
}

void TDataSource::TellOfDataSet()
{
    DataEvent(TDataEvent::deAttach, nullptr);
    DataEvent(TDataEvent::deDataChange, nullptr);
}

void TDataSource::Edit()
{
    if (FAutoEdit && GetState() == TDataSetState::dsBrowse)
        FDataSet->Edit();
}

void TDataSource::DataEvent(TDataEvent AEvent, TField *AField)
{
    const bool isState = AEvent == TDataEvent::deAttach || AEvent == TDataEvent::deUpdateState;
    if (isState && OnStateChange)
        OnStateChange(this);
    const std::vector<TDataLink *> links = FLinks; // a listener may detach one
    for (TDataLink *link : links)
        if (std::find(FLinks.begin(), FLinks.end(), link) != FLinks.end())
            link->DataEvent(AEvent, AField);
    if (AEvent == TDataEvent::deDataChange && OnDataChange)
        OnDataChange(this, AField);
    if (AEvent == TDataEvent::deUpdateRecord && OnUpdateData)
        OnUpdateData(this);
}
