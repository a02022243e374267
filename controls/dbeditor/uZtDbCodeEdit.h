#pragma once

#include "uZtCodeEdit.h"
#include "uZtExport.h"
#include "uZtFieldDataLink.h"
#include "uZtStringStream.h"

class TZtShownRecord;

/// The code editor bound to one field of a dataset.
///
/// It shows the field of the current record, puts the dataset into edit state as soon as the user
/// starts to change the text, and gives the lines back when the record is posted. A record that is
/// only looked at, or whose change is cancelled, keeps every byte. Once the user has changed it,
/// all its lines are stored with CR LF after each; bytes keep the encoding that they were in.
///
/// With `zcRecords`, to be switched on before a field is shown, lines end in the record as they
/// did, what the user changed and what others store into the field are never overwritten unseen,
/// and only what changes the text enters edit state.
class ZT_DBEDITOR_EXPORT TZtDbCodeEdit : public TZtCodeEdit {
    Q_OBJECT
    /// What is shown of the field. A form does not store it: it is the record's.
    Q_PROPERTY(QString Text READ GetText WRITE SetText STORED false DESIGNABLE false)
    Q_PROPERTY(QString DataField READ GetDataField WRITE SetDataField)
    Q_PROPERTY(TDataSource *DataSource READ GetDataSource WRITE SetDataSource DESIGNABLE false)
    Q_PROPERTY(bool UndoPosts READ GetUndoPosts WRITE SetUndoPosts)

public:
    explicit TZtDbCodeEdit(QWidget *AOwner = nullptr);
    ~TZtDbCodeEdit() override;

    /// Fired after the text has been loaded from a field; with `zcRecords` only if it had to be.
    TNotifyEvent OnLoadData;

    QString GetDataField() const { return DataLink->GetFieldName(); }
    /// The name of the field, letter case apart. An unknown one shows nothing.
    void SetDataField(const QString &Value);
    TDataSource *GetDataSource() const { return DataLink->GetDataSource(); }
    /// The source stays the caller's. Ignored while loading when the link's source is fixed; raises
    /// `EDatabaseError` when it is fixed otherwise.
    void SetDataSource(TDataSource *Value);
    /// The linked field; null while there is none.
    TField *GetField() const { return DataLink->GetField(); }
    /// Whether the editor's own flag or the link's is set; with `zcRecords` also the field's.
    bool GetReadOnly() const override;
    /// Sets both flags. Without `zcRecords` the next load takes the field's flag over.
    void SetReadOnly(bool Value) override;
    bool GetFocused() const { return Focused; }
    /// Whether the next data-change leaves the text as it is; never with `zcRecords`.
    bool GetSkipNextDataChange() const { return SkipNextDataChange; }
    bool GetUndoPosts() const { return FUndoPosts; }
    /// With `zcRecords`: whether what was done before a post can be undone after it. If not, a post
    /// forgets it; showing another record or another text of it always does.
    void SetUndoPosts(bool Value) { FUndoPosts = Value; }

    void Loaded() override;
    void Notification(QObject *AComponent, TOperation Operation) override;

    // --- what the link tells --------------------------------------------------------------------

    /// Shows the field. Without a field the text becomes empty; at design time, the editor's name.
    /// With `zcRecords` the text stays, with caret, selection and undo, where it shows the field
    /// already or the user has changed it.
    void DataChange();
    /// Shows a field of bytes. The caret stays; the selection goes.
    void LoadMemo();
    /// Entering edit state on a record must not reload the text that the user is changing.
    void EditingChange();
    /// Stores the lines into the field; raises what storing and validating raise. What the field
    /// cannot hold, half a surrogate pair or a character that the encoding of its bytes lacks, is
    /// stored otherwise only if the user agrees, and so is a text that was not all decoded;
    /// `EAbort` if not. With `zcRecords` the user is also asked where the field was given another
    /// value than the one that he began to change.
    void UpdateData();
    /// Takes over the field's read-only flag; with `zcRecords` the editor's own stays.
    void UpdateReadOnly();
    /// Keeps the flag; a field of text is then shown anew. With `zcRecords` any field is, unless
    /// the user's text is not stored yet.
    void SetFocused(bool Value);

    // --- what the user starts -------------------------------------------------------------------

    /// Puts the dataset into edit state if it is in browse state. Raises `EAbort` when the data
    /// source does not do that by itself or the editor is read-only. Caret and selection stay.
    void EnsureEditState();
    /// Called before the editing operations change the text: enters edit state first, and raises
    /// what `EnsureEditState` raises.
    void Changed() override;
    /// With `zcRecords` these enter edit state first where there is something to be done, and raise
    /// `EAbort` in an editor that is read-only.
    void Undo() override;
    void Redo() override;
    void BackSpaceSelected() override;
    void WMChar(TZtMessage &Message) override;
    /// With `zcRecords` a cut without a selection and a paste of nothing do nothing.
    bool Dispatch(TZtMessage &Message) override;
    void KeyDown(quint16 &Key, TShiftState Shift) override;
    void KeyCommand(quint16 &Key, TShiftState Shift) override;
    void DragDrop(QObject *Source, int X, int Y) override;
    /// Only text that could be stored is taken.
    bool MayTakeText() const override;
    void CMEnter() override;
    /// Stores the text into the field, unless the user would have to be asked; what that raises
    /// goes to the caller.
    void CMExit() override;
    /// The link, for whoever asks a control for it.
    TFieldDataLink *CMGetDataLink() const { return DataLink.get(); }

protected:
    void dragEnterEvent(QDragEnterEvent *AEvent) override;
    void dropEvent(QDropEvent *AEvent) override;

private:
    struct TPlace;
    TPlace Place() const;
    void ShowText(const QString &S);
    struct TCopy;
    TZtTextFormat FormatOf(const TField &AField) const;
    bool AgreeToStore(const TField &AField, TCopy &ACopy) const;
    bool CanStoreUnasked() const;
    void Store(TField &AField, const TCopy &ACopy);
    // with zcRecords
    void FollowRecord();
    bool KeepsText(const TField &AField);
    void LoadRecord();
    bool IsConflict(const TField &AField) const;
    bool AgreeToReplace(const TField &AField) const;
    void EnterChange();
    bool CanDelete() const;
    bool CanBackSpace() const;

    std::unique_ptr<TFieldDataLink> DataLink;
    bool Focused = false;
    bool SkipNextDataChange = false;
    bool FUnstored = false; // the focus left with a text that only a post may store
    bool FUndoPosts = true;
    std::unique_ptr<TZtShownRecord> FShown; // with zcRecords
};
