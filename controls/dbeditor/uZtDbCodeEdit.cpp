#include "uZtDbCodeEdit.h"

#include "uZtClassRegistry.h"
#include "uZtLossQuestion.h"
#include "uZtShownRecord.h"
#include "uZtUtf8.h"

#include <QDropEvent>
#include <QMimeData>

using enum TZtCorrection;

namespace {

const bool Registered = ZtRegisterClass<TZtDbCodeEdit>();

constexpr quint32 MsgSetReadOnly = 0x00CF; // an edit control's message, which the editor ignores

QString LoadLines(TStringList &ALines, QIODevice &AStream)
{
    TZtStringStream stream;
    stream.LoadFromBytes(AStream.readAll());
    const QString text = stream.GetWString();
    ALines.BeginUpdate();
    ALines.SetText(text);
    ALines.EndUpdate();
    return text;
}

} // namespace

// Caret and selection. They are put back through the setters, which also move each other, so that
// the order counts.
struct TZtDbCodeEdit::TPlace {
    int CharPos;
    int LinePos;
    QPoint SelStart;
    QPoint SelEnd;

    void PutSelection(TZtDbCodeEdit &AEdit) const
    {
        AEdit.SetSelStart(SelStart);
        AEdit.SetSelEnd(SelEnd);
    }
    void PutCaret(TZtDbCodeEdit &AEdit) const
    {
        AEdit.SetLinePos(LinePos);
        AEdit.SetCharPos(CharPos);
    }
};

// The lines as a field is to hold them, UTF-8 for a field of text.
struct TZtDbCodeEdit::TCopy {
    TZtTextFormat Format;
    QByteArray Bytes;
    bool IsExact = true; // no character was replaced
};

TZtDbCodeEdit::TPlace TZtDbCodeEdit::Place() const
{
    return {GetCharPos(), GetLinePos(), GetSelStart(), GetSelEnd()};
}

// --- component -----------------------------------------------------------------------------------

TZtDbCodeEdit::TZtDbCodeEdit(QWidget *AOwner)
    : TZtCodeEdit(AOwner), FShown(std::make_unique<TZtShownRecord>())
{
    DataLink = std::make_unique<TFieldDataLink>(this);
    // Whatever a handler does on the way, the editor is there until the link has told it all.
    const auto held = [this](void (TZtDbCodeEdit::*operation)()) {
        return [this, operation](QObject *) {
            const THold hold(*this);
            (this->*operation)();
            StateChanged(); // whether the text can be edited
        };
    };
    DataLink->OnDataChange = held(&TZtDbCodeEdit::DataChange);
    DataLink->OnEditingChange = held(&TZtDbCodeEdit::EditingChange);
    DataLink->OnUpdateData = held(&TZtDbCodeEdit::UpdateData);
    setAcceptDrops(true);
}

TZtDbCodeEdit::~TZtDbCodeEdit() { DataLink.reset(); }

void TZtDbCodeEdit::Loaded()
{
    TZtCodeEdit::Loaded();
    if (IsDesigning())
        DataChange();
}

void TZtDbCodeEdit::Notification(QObject *AComponent, TOperation Operation)
{
    TZtCodeEdit::Notification(AComponent, Operation);
    if (Operation == TOperation::opRemove && DataLink && AComponent == GetDataSource())
        SetDataSource(nullptr);
}

void TZtDbCodeEdit::SetDataField(const QString &Value)
{
    const THold hold(*this);
    SkipNextDataChange = false; // the text of another field is always loaded
    DataLink->SetFieldName(Value);
}

void TZtDbCodeEdit::SetDataSource(TDataSource *Value)
{
    const THold hold(*this);
    if (!(DataLink->GetDataSourceFixed() && IsLoading()))
        DataLink->SetDataSource(Value);
    if (Value)
        FreeNotification(Value);
}

bool TZtDbCodeEdit::GetReadOnly() const
{
    if (TZtCodeEdit::GetReadOnly() || (DataLink && DataLink->GetReadOnly()))
        return true;
    return IsCorrected(zcRecords) && DataLink && GetField() && GetField()->GetReadOnly();
}

void TZtDbCodeEdit::SetReadOnly(bool Value)
{
    TZtCodeEdit::SetReadOnly(Value);
    DataLink->SetReadOnly(Value);
    StateChanged();
}

// --- what the link tells -------------------------------------------------------------------------

void TZtDbCodeEdit::DataChange()
{
    if (IsCorrected(zcRecords))
        return FollowRecord();
    FUnstored = false;
    if (const TField *field = GetField()) {
        if (SkipNextDataChange) {
            SkipNextDataChange = false;
            return;
        }
        if (field->IsBlob())
            LoadMemo();
        else
            ShowText(field->GetEditText());
        Fire(OnLoadData, this);
    } else {
        SkipNextDataChange = false; // what is shown next is another text
        ShowText(IsDesigning() ? objectName() : QString());
    }
    UpdateReadOnly();
}

// The caret goes to the start, also where the text is the one that another record had.
void TZtDbCodeEdit::ShowText(const QString &S)
{
    const bool same = IsCorrected(zcText) && GetText() == S;
    SetText(S);
    if (same)
        InitSelectionAndPosition();
}

void TZtDbCodeEdit::LoadMemo()
{
    const TPlace place = Place();
    const auto restore = [&] {
        place.PutSelection(*this);
        place.PutCaret(*this); // takes the selection along
    };
    try {
        TField *field = GetField();
        QString text;
        if (field->GetText().isEmpty())
            GetLines()->Clear();
        else
            text =
                LoadLines(*GetLines(),
                          *field->GetDataSet()->CreateBlobStream(field, TBlobStreamMode::bmRead));
        TakeBreaks(text);
        InitSelectionAndPosition();
        EditingChange();
    } catch (...) {
        restore();
        throw;
    }
    restore();
}

void TZtDbCodeEdit::EditingChange()
{
    if (!IsCorrected(zcRecords) && DataLink->GetEditing() && GetDataSource() &&
        GetDataSource()->GetState() != TDataSetState::dsInsert)
        SkipNextDataChange = true;
}

void TZtDbCodeEdit::UpdateData()
{
    TField *field = GetField();
    const THold holdData(*field->GetDataSet()); // a handler may close or delete it
    if (IsCorrected(zcRecords) && FShown->IsLoadedIn(*GetLines())) {
        FUnstored = false;
        return; // led back to what it was
    }
    if (IsConflict(*field) && !AgreeToReplace(*field))
        throw EAbort(QStringLiteral("The text is not stored"));
    TCopy copy{FormatOf(*field), {}};
    if (!AgreeToStore(*field, copy))
        throw EAbort(QStringLiteral("The text is not stored"));
    FUnstored = false;
    Store(*field, copy);
}

void TZtDbCodeEdit::Store(TField &AField, const TCopy &ACopy)
{
    const auto stored = [&] {
        if (IsCorrected(zcRecords) && &AField == GetField())
            FShown->Store(AField, *GetLines(), ACopy.Bytes, ACopy.IsExact);
    };
    if (!AField.IsBlob()) {
        AField.SetText(ZtFromUtf8(ACopy.Bytes));
        return stored();
    }
    const auto stream = AField.GetDataSet()->CreateBlobStream(&AField, TBlobStreamMode::bmWrite);
    stream->write(ACopy.Bytes);
    stream->close();
    stored();
    AField.Validate();
}

// How a field is to hold lines: CR LF after each unless that is corrected, bytes in the encoding
// that they were in.
TZtTextFormat TZtDbCodeEdit::FormatOf(const TField &AField) const
{
    TZtStringStream old;
    if (AField.IsBlob())
        old.LoadFromBytes(AField.GetAsBytes());
    TZtTextFormat format;
    format.Encoding = old.GetFormat().Encoding;
    format.Mark = old.GetFormat().Mark;
    format.LineEnding = TZtLineEnding::leCrLf;
    format.Undecodable = old.GetFormat().Undecodable || !AField.IsExact();
    if (IsCorrected(zcRecords))
        FShown->GiveBreaks(format, *GetLines());
    return format;
}

// Whether the field can give the text back, or the user agrees to what will be lost.
bool TZtDbCodeEdit::AgreeToStore(const TField &AField, TCopy &ACopy) const
{
    const THold hold(*this); // a question may be long
    if (ACopy.Format.Undecodable &&
        !ZtAgreeOnUndecodable(AField.GetFieldName(), ZtEncodingName(ACopy.Format.Encoding)))
        return false;
    const auto encode = [this](const TZtTextFormat &format, std::vector<TZtLostChar> &lost) {
        return ZtEncodeLines(*GetLines(), format, lost);
    };
    if (AField.IsBlob())
        return ZtAgreeOnEncoding(encode, AField.GetFieldName(), ACopy.Format, ACopy.Bytes);
    std::vector<TZtLostChar> lost;
    ACopy.Bytes = encode(ACopy.Format, lost);
    ACopy.IsExact = lost.empty();
    return ACopy.IsExact || ZtAgreeOnReplacements(AField.GetFieldName(), lost[0]);
}

bool TZtDbCodeEdit::CanStoreUnasked() const
{
    if (IsConflict(*GetField()))
        return false;
    const TZtTextFormat format = FormatOf(*GetField());
    std::vector<TZtLostChar> lost;
    ZtEncodeLines(*GetLines(), format, lost);
    return lost.empty() && !format.Undecodable;
}

void TZtDbCodeEdit::UpdateReadOnly()
{
    if (!GetField())
        return;
    if (IsCorrected(zcRecords))
        Invalidate();
    else
        SetReadOnly(GetField()->GetReadOnly());
    if (WindowAvailable())
        ZtSendMessage(this, MsgSetReadOnly, GetReadOnly(), 0);
}

void TZtDbCodeEdit::SetFocused(bool Value)
{
    if (Focused == Value)
        return;
    Focused = Value;
    const bool shows = IsCorrected(zcRecords)
                           ? !DataLink->IsModified()
                           : (!GetField() || !GetField()->IsBlob()) && !FUnstored;
    if (shows)
        DataLink->Reset();
}

// --- what the user starts ------------------------------------------------------------------------

void TZtDbCodeEdit::EnsureEditState()
{
    const THold hold(*this);
    const TPlace place = Place();
    const auto restore = [&] {
        place.PutCaret(*this);
        place.PutSelection(*this);
    };
    try {
        TDataSet *dataSet = DataLink->GetDataSet();
        if (dataSet && dataSet->GetState() == TDataSetState::dsBrowse) {
            if (!GetDataSource()->GetAutoEdit() || GetReadOnly())
                throw EAbort(QStringLiteral("Can't go to editstate"));
            dataSet->Edit();
        }
    } catch (...) {
        restore();
        throw;
    }
    restore();
}

void TZtDbCodeEdit::Changed()
{
    const THold hold(*this);
    EnterChange();
    TZtCodeEdit::Changed();
}

void TZtDbCodeEdit::KeyDown(quint16 &Key, TShiftState Shift)
{
    if (Key == TZtKey::Delete && !CanDelete())
        return TCustomControl::KeyDown(Key, Shift); // NOLINT: a host hears of it, no more
    if (Key == TZtKey::Delete)
        EnsureEditState();
    TZtCodeEdit::KeyDown(Key, Shift);
}

void TZtDbCodeEdit::KeyCommand(quint16 &Key, TShiftState Shift)
{
    if (IsCorrected(zcRecords)) // what a key only announces changes nothing yet
        return TZtCodeEdit::KeyCommand(Key, Shift);
    switch (Key) {
    case TZtKey::Insert: // these three whatever the modifiers: also the X that is only typed
    case TZtKey::Letter('X'):
    case TZtKey::F9:
        EnsureEditState();
        break;
    case TZtKey::Letter('V'):
    case TZtKey::F7:
        if (Shift == TShiftState(ssCtrl))
            EnsureEditState();
        break;
    default:
        break;
    }
    TZtCodeEdit::KeyCommand(Key, Shift);
}

void TZtDbCodeEdit::DragDrop(QObject *Source, int X, int Y)
{
    const THold hold(*this);
    DataLink->Edit();
    TZtCodeEdit::DragDrop(Source, X, Y);
}

bool TZtDbCodeEdit::MayTakeText() const
{
    const TDataSource *source = GetDataSource();
    return !GetReadOnly() && source && DataLink->CanModify() &&
           (source->GetState() >= TDataSetState::dsEdit || source->GetAutoEdit());
}

void TZtDbCodeEdit::dragEnterEvent(QDragEnterEvent *AEvent)
{
    if (HasExtra(TZtExtra::zeDragText))
        TZtCodeEdit::dragEnterEvent(AEvent);
    else if (AEvent->mimeData()->hasText() && MayTakeText())
        AEvent->acceptProposedAction();
}

void TZtDbCodeEdit::dropEvent(QDropEvent *AEvent)
{
    if (HasExtra(TZtExtra::zeDragText))
        return TZtCodeEdit::dropEvent(AEvent);
    // A source that moves its text takes it away when the drop is accepted.
    AEvent->setDropAction(Qt::IgnoreAction);
    AEvent->ignore();
    if (!MayTakeText())
        return;
    const QString text = AEvent->mimeData()->text();
    QPoint at = AEvent->position().toPoint() - ClientArea().topLeft();
    Guarded([&] {
        DragDrop(AEvent->source(), at.x(), at.y());
        CalcCursor(at.rx(), at.ry());
        SetLinePos(at.y());
        SetCharPos(at.x());
        InsertText(TZtChangeType::ctPaste, text);
        SetSelection(true);
        AEvent->acceptProposedAction();
    });
}

void TZtDbCodeEdit::CMEnter()
{
    const THold hold(*this);
    SetFocused(true);
    const TPlace place = Place();
    TZtCodeEdit::CMEnter();
    if (IsCorrected(zcRecords))
        place.PutSelection(*this);
}

void TZtDbCodeEdit::CMExit()
{
    const THold hold(*this);
    // A question is no matter for a change of the focus: the post asks it.
    FUnstored = DataLink->IsModified() && GetField() && !CanStoreUnasked();
    if (!FUnstored)
        DataLink->UpdateRecord();
    SetFocused(false);
    TZtCodeEdit::CMExit();
}
