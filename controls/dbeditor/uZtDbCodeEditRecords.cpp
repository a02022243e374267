// What zcRecords makes of the records that are shown and of the operations that change them.

#include "uZtDbCodeEdit.h"

#include "uZtPlatform.h"
#include "uZtShownRecord.h"
#include "uZtTextMarks.h"

#include <QCoreApplication>

using enum TZtCorrection;

// --- what is shown -------------------------------------------------------------------------------

void TZtDbCodeEdit::FollowRecord()
{
    SkipNextDataChange = false;
    const TField *field = GetField();
    const bool wasPending = FShown->IsPending();
    if (!field || !KeepsText(*field))
        return LoadRecord();
    if (wasPending && !FShown->IsPending() && !FUndoPosts)
        ClearUndo();
    if (!FShown->IsPending())
        SetModified(false);
    UpdateReadOnly();
}

// Whether the text is to stay: it is the user's, or it is what the field holds.
bool TZtDbCodeEdit::KeepsText(const TField &AField)
{
    if (!FShown->IsOf(AField))
        return false;
    const bool pending = AField.GetDataSet()->GetState() >= TDataSetState::dsEdit;
    const bool begins = pending && !FShown->IsPending(); // maybe with the lines of a host
    const bool users = pending && DataLink->Keep();
    if (users || (FShown->HasValueOf(AField) && (begins || FShown->IsIn(*GetLines())))) {
        FShown->Follow(AField);
        return true;
    }
    if (!TZtShownRecord::IsShown(AField, *GetLines()))
        return false;
    FShown->Load(&AField, *GetLines());
    return true;
}

void TZtDbCodeEdit::LoadRecord()
{
    FUnstored = false;
    *FShown = {};
    TZtFirstException raised;
    raised.Run([this] {
        if (!GetField())
            ShowText(IsDesigning() ? objectName() : QString());
        else if (GetField()->IsBlob())
            LoadMemo();
        else
            ShowText(GetField()->GetEditText());
        FShown->Load(GetField(), *GetLines());
    });
    ClearUndo(); // it would change another text than the one it was made of
    SetModified(false);
    if (HasTextMarks())
        GetTextMarks().Forget();
    raised.Raise();
    if (GetField())
        Fire(OnLoadData, this);
    UpdateReadOnly();
}

// --- what is stored ------------------------------------------------------------------------------

// Whether the user changes a value that somebody else has replaced meanwhile.
bool TZtDbCodeEdit::IsConflict(const TField &AField) const
{
    return IsCorrected(zcRecords) && FShown->IsOf(AField) && !FShown->HasValueOf(AField) &&
           !TZtShownRecord::IsShown(AField, *GetLines());
}

bool TZtDbCodeEdit::AgreeToReplace(const TField &AField) const
{
    const THold hold(*this); // a question may be long
    const QString question =
        QCoreApplication::translate("TZtDbCodeEdit", "\"%1\" was given another value while its "
                                                     "text was changed here. Replace that value "
                                                     "by the text?");
    return ZtMsgBoxConfirm(question.arg(AField.GetFieldName()), QString()) == mrYes;
}

// --- what enters edit state ----------------------------------------------------------------------

// The text is about to change.
void TZtDbCodeEdit::EnterChange()
{
    EnsureEditState();
    if (IsCorrected(zcRecords) && GetReadOnly())
        throw EAbort(QStringLiteral("The editor is read-only"));
    DataLink->Modified();
}

void TZtDbCodeEdit::Undo()
{
    const THold hold(*this);
    if (IsCorrected(zcRecords) && GetCanUndo())
        EnterChange();
    TZtCodeEdit::Undo();
}

void TZtDbCodeEdit::Redo()
{
    const THold hold(*this);
    if (IsCorrected(zcRecords) && GetCanRedo())
        EnterChange();
    TZtCodeEdit::Redo();
}

void TZtDbCodeEdit::BackSpaceSelected()
{
    const THold hold(*this);
    if (IsCorrected(zcRecords) && CanBackSpace())
        EnterChange();
    TZtCodeEdit::BackSpaceSelected();
}

void TZtDbCodeEdit::WMChar(TZtMessage &Message)
{
    if (Message.WParam == u'\b' && !SelectionGiven() && !CanBackSpace())
        return; // there is nothing to erase
    TZtCodeEdit::WMChar(Message);
}

bool TZtDbCodeEdit::Dispatch(TZtMessage &Message)
{
    const THold hold(*this);
    const bool cut = Message.Msg == quint32(TZtMsg::wmCut);
    const bool paste = Message.Msg == quint32(TZtMsg::wmPaste);
    if (IsCorrected(zcRecords) && (cut || paste)) {
        if (cut ? !SelectionGiven() : !GetCanPaste())
            return true;
        EnterChange();
    }
    return TZtCodeEdit::Dispatch(Message);
}

// Whether the Delete key has something to delete.
bool TZtDbCodeEdit::CanDelete() const
{
    const TStringList &lines = *GetLines();
    const int last = lines.GetCount() - 1;
    return !IsCorrected(zcRecords) || SelectionGiven() || GetLinePos() < last ||
           (last >= 0 && GetLinePos() == last && GetCharPos() < lines.GetLength(last));
}

// Whether something stands before the caret.
bool TZtDbCodeEdit::CanBackSpace() const
{
    return !IsCorrected(zcRecords) || GetCharPos() > 0 || GetLinePos() > 0;
}
