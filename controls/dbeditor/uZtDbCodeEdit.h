#pragma once

#include "uZtCodeEdit.h"
#include "uZtFieldDataLink.h"
#include "uZtStringStream.h"

/// The code editor bound to one field of a dataset.
///
/// It shows the field of the current record, puts the dataset into edit state as soon as the user
/// starts to change the text, and gives the lines back when the record is posted. A record that is
/// only looked at, or whose change is cancelled, keeps every byte. Once the user has changed it,
/// all its lines are stored with CR LF after each; bytes keep the encoding that they were in.
class TZtDbCodeEdit : public TZtCodeEdit {
    Q_OBJECT
    Q_PROPERTY(QString DataField READ GetDataField WRITE SetDataField)
    Q_PROPERTY(TDataSource *DataSource READ GetDataSource WRITE SetDataSource)

public:
    explicit TZtDbCodeEdit(QWidget *AOwner = nullptr);
    ~TZtDbCodeEdit() override;

    /// Fired after the text has been loaded from a field.
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
    /// Whether the editor's own flag or the link's is set.
    bool GetReadOnly() const override;
    /// Sets both flags. The next load takes the field's flag over.
    void SetReadOnly(bool Value) override;
    bool GetFocused() const { return Focused; }
    /// Whether the next data-change leaves the text as it is.
    bool GetSkipNextDataChange() const { return SkipNextDataChange; }

    void Loaded() override;
    void Notification(QObject *AComponent, TOperation Operation) override;

    // --- what the link tells --------------------------------------------------------------------

    /// Shows the field. Without a field the text becomes empty; at design time, the editor's name.
    void DataChange();
    /// Shows a field of bytes. The caret stays; the selection goes.
    void LoadMemo();
    /// Entering edit state on a record must not reload the text that the user is changing.
    void EditingChange();
    /// Stores the lines into the field; raises what storing and validating raise. What the field
    /// cannot hold, half a surrogate pair or a character that the encoding of its bytes lacks, is
    /// stored otherwise only if the user agrees, and so is a text that was not all decoded;
    /// `EAbort` if not.
    void UpdateData();
    /// Takes over the field's read-only flag.
    void UpdateReadOnly();
    /// Keeps the flag; a field of text is then shown anew.
    void SetFocused(bool Value);

    // --- what the user starts -------------------------------------------------------------------

    /// Puts the dataset into edit state if it is in browse state. Raises `EAbort` when the data
    /// source does not do that by itself or the editor is read-only. Caret and selection stay.
    void EnsureEditState();
    /// Called before the editing operations change the text: enters edit state first, and raises
    /// what `EnsureEditState` raises.
    void Changed() override;
    void KeyDown(quint16 &Key, TShiftState Shift) override;
    void KeyCommand(quint16 &Key, TShiftState Shift) override;
    void DragDrop(QObject *Source, int X, int Y) override;
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
    bool AgreeToStore(const TField &AField, TZtTextFormat &AFormat, QByteArray &ABytes) const;
    bool CanStoreUnasked() const;
    bool CanTakeDrop() const;

    std::unique_ptr<TFieldDataLink> DataLink;
    bool Focused = false;
    bool SkipNextDataChange = false;
    bool FUnstored = false; // the focus left with a text that only a post may store
};
