#pragma once

#include "uZtDataSet.h"
#include "uZtExport.h"
#include "uZtStringList.h"

/// Who is told of what happens to a data source.
class ZT_DBEDITOR_EXPORT TDataLink {
public:
    /// `AField` is null when it is not about one field.
    virtual void DataEvent(TDataEvent AEvent, TField *AField) = 0;
    /// The data source is about to go; the link lets go of it.
    virtual void DataSourceRemoved() = 0;

protected:
    ~TDataLink() = default;
};

/// `Field` is null when it is not about one field.
using TDataChangeEvent = std::function<void(QObject *Sender, TField *Field)>;

/// Connects a dataset with the controls that show it.
///
/// A handler may do anything with it, deleting it included.
class ZT_DBEDITOR_EXPORT TDataSource : public QObject,
                                       public TZtNotifier,
                                       private TDataSetListener {
    Q_OBJECT
    Q_PROPERTY(TDataSet *DataSet READ GetDataSet WRITE SetDataSet)
    Q_PROPERTY(bool AutoEdit READ GetAutoEdit WRITE SetAutoEdit)

public:
    explicit TDataSource(QObject *AOwner = nullptr);
    /// Detaches the links.
    ~TDataSource() override;
    ZT_DELETE_WHEN_IDLE(TDataSource)

    /// Fired before the links are told of another state or another dataset.
    TNotifyEvent OnStateChange;
    /// Fired after the links were told of a change; `Field` is null when it is not one field's.
    TDataChangeEvent OnDataChange;
    /// Fired before a record is posted, after the links stored what they hold.
    TNotifyEvent OnUpdateData;

    TDataSet *GetDataSet() const { return FDataSet; }
    /// Detaches the old one, then attaches the new one; the links hear of each as of another state,
    /// then of other data.
    void SetDataSet(TDataSet *Value);
    /// Whether a control may put the dataset into edit state; true at first.
    bool GetAutoEdit() const { return FAutoEdit; }
    void SetAutoEdit(bool Value) { FAutoEdit = Value; }
    /// The dataset's state; `dsInactive` without one.
    TDataSetState GetState() const;
    /// Puts the dataset into edit state if that is automatic and it is in browse state.
    void Edit();

    /// To be removed before it goes.
    void AddDataLink(TDataLink *ALink) { FLinks.push_back(ALink); }
    /// One that does not listen changes nothing.
    void RemoveDataLink(TDataLink *ALink) { std::erase(FLinks, ALink); }

private:
    void Abandoned() final;
    void Leave();
    void TellOfDataSet();
    void DataEvent(TDataEvent AEvent, TField *AField) final;
    void DataSetRemoved() final { SetDataSet(nullptr); }

    TDataSet *FDataSet = nullptr;
    bool FAutoEdit = true;
    std::vector<TDataLink *> FLinks;
};
