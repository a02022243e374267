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
    Leave();
}

// What is deleted shows nothing any more.
void TDataSource::Abandoned()
{
    setParent(nullptr);
    Leave();
}

void TDataSource::Leave()
{
    while (!FLinks.empty())
        ZtQuietly([this] { FLinks.back()->DataSourceRemoved(); });
    ZtQuietly([this] { SetDataSet(nullptr); });
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
    const THold hold(*this);
    const bool isState = AEvent == TDataEvent::deAttach || AEvent == TDataEvent::deUpdateState;
    if (isState)
        Fire(OnStateChange, this);
    const std::vector<TDataLink *> links = FLinks; // a listener may detach one
    for (TDataLink *link : links)
        if (std::find(FLinks.begin(), FLinks.end(), link) != FLinks.end())
            link->DataEvent(AEvent, AField);
    if (AEvent == TDataEvent::deDataChange)
        Fire(OnDataChange, this, AField);
    if (AEvent == TDataEvent::deUpdateRecord)
        Fire(OnUpdateData, this);
}
