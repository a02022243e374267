#pragma once

#include "uZtDataSource.h"
#include "uZtExport.h"

/// What a control holds to show and change one field of a data source's current record.
///
/// The link is editing while the dataset is in edit or insert state and neither the link nor the
/// field is read-only. A read-only flag that is set takes effect, and is told, with the next change
/// of the state.
class ZT_DBEDITOR_EXPORT TFieldDataLink : private TDataLink {
public:
    /// `AControl` is the control that holds the link; it is not used by the link itself.
    explicit TFieldDataLink(QObject *AControl = nullptr);
    /// Detaches without a notification.
    virtual ~TFieldDataLink();
    TFieldDataLink(const TFieldDataLink &) = delete;
    TFieldDataLink &operator=(const TFieldDataLink &) = delete;

    /// The control is to show the field anew: another record, a store by someone else, another
    /// state.
    TNotifyEvent OnDataChange;
    /// `Editing` is another one. Not fired when the source, its dataset or the field name is
    /// exchanged: the data-change that follows tells that.
    TNotifyEvent OnEditingChange;
    /// The control is to store what it holds into the field. Only when it is marked as modified;
    /// the mark is cleared afterwards, unless this raises.
    TNotifyEvent OnUpdateData;

    /// The one that holds the link, which does not use it.
    QObject *GetControl() const { return FControl; }
    void SetControl(QObject *Value) { FControl = Value; }
    TDataSource *GetDataSource() const { return FDataSource; }
    /// Detaches from the old one, then attaches to the new one. Raises when the source is fixed.
    void SetDataSource(TDataSource *Value);
    /// Whether the data source must not be exchanged, as within a grid's control.
    bool GetDataSourceFixed() const { return FDataSourceFixed; }
    void SetDataSourceFixed(bool Value) { FDataSourceFixed = Value; }
    /// Null without a data source.
    TDataSet *GetDataSet() const { return FDataSource ? FDataSource->GetDataSet() : nullptr; }
    QString GetFieldName() const { return FFieldName; }
    /// A data-change tells of another field.
    void SetFieldName(const QString &Value);
    /// The field; null while the dataset is closed or has none of this name.
    TField *GetField() const { return FField; }
    /// Forbids changes through this link, from the next change of the state on.
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool Value) { FReadOnly = Value; }
    bool GetEditing() const { return FEditing; } ///< whether the control may change the field now
    /// Whether the field can be changed through this link.
    bool CanModify() const { return !FReadOnly && FField && FField->CanModify(); }

    /// Puts the dataset into edit state where that is allowed; answers whether the link is editing.
    bool Edit();
    /// Marks what the control holds as changed by the user.
    void Modified() { FModified = true; }
    /// Whether the control holds what is not stored yet.
    bool IsModified() const { return FModified; }
    /// For `OnDataChange`: what the user changed goes on being held, and its mark stays. False when
    /// there is nothing of that, or when it is to be given up.
    bool Keep() { return FKept = FModified && !FResetting; }
    /// Has the control show the field anew; what it held is given up.
    void Reset();
    /// Has the control store what it holds, if it is modified. The link does not hear of that
    /// store.
    void UpdateRecord();

private:
    void DataEvent(TDataEvent AEvent, TField *AField) final;
    void DataSourceRemoved() final;
    void Attach();
    void UpdateField();
    void UpdateState();
    bool MayEdit() const;
    void RecordChanged(const TField *AField);

    QObject *FControl;
    TDataSource *FDataSource = nullptr;
    bool FDataSourceFixed = false;
    QString FFieldName;
    TField *FField = nullptr;
    bool FReadOnly = false;
    bool FEditing = false;
    bool FModified = false;
    bool FUpdating = false;
    bool FResetting = false;
    bool FKept = false; // by the control, at this data-change
};
