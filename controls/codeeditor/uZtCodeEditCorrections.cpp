#include "uZtCodeEditOperate.h"

#include "uZtEditExtras.h"
#include "uZtEditedText.h"
#include "uZtGuttorMouse.h"
#include "uZtHighlighter.h"
#include "uZtPrimarySelection.h"

#include <QScopedValueRollback>

using enum TZtCorrection;

// What the editor does when somebody else changes its text.
class TZtCodeEdit::TFollower final : public TZtTextListener {
public:
    explicit TFollower(TZtCodeEdit &AEdit) : FEdit(AEdit), FLines(AEdit.FLines)
    {
        FLines->AddListener(this);
    }
    ~TFollower()
    {
        if (FLines)
            FLines->RemoveListener(this);
    }
    TFollower(const TFollower &) = delete;
    TFollower &operator=(const TFollower &) = delete;

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    void MoveAlong(const TZtTextChange &AChange);

    TZtCodeEdit &FEdit;
    QPointer<TStringList> FLines;
};

void TZtCodeEdit::TFollower::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    if (AChange.IsWholeText)
        FEdit.FLongest = 0;
    else if (FEdit.FOperations == 0 && FEdit.IsCorrected(zcCaret))
        MoveAlong(AChange);
}

void TZtCodeEdit::TFollower::MoveAlong(const TZtTextChange &AChange)
{
    const auto map = [&](const QPoint &P) { return AChange.Map(P, TZtAnchorSide::asBehind); };
    const QPoint caret = map({FEdit.FCharPos, FEdit.FLinePos});
    FEdit.FCaretCarried |= caret != QPoint(FEdit.FCharPos, FEdit.FLinePos);
    FEdit.FCharPos = caret.x();
    FEdit.FLinePos = caret.y();
    for (QPoint *end : {&FEdit.FSelStart, &FEdit.FSelEnd})
        if (end->x() >= 0)
            *end = map(*end);
}

// --- which ---------------------------------------------------------------------------------------

void TZtCodeEdit::SetCorrections(TZtCorrections Value)
{
    if (Value & (zcTabs | zcCells | zcStates | zcComposition))
        Value |= zcPicture;
    if (Value & zcReplaceAll)
        Value |= zcUndo;
    const TZtCorrections changed = FCorrections ^ Value;
    if (!changed)
        return;
    FCorrections = Value;
    FCells.Tabs = IsCorrected(zcTabs);
    FCells.Wide = IsCorrected(zcCells);
    if (changed & (zcUndo | zcEvents))
        MakeHistory();
    FFollower.reset();
    if (Value)
        FFollower = std::make_shared<TFollower>(*this);
    CorrectParser(changed);
    FHighlighter.reset();
    if (IsCorrected(zcPicture)) {
        FHighlighter = std::make_shared<TZtHighlighter>();
        FHighlighter->SetText(FLines);
    }
    ColourParser();
    FExtras->TextAttached();
    KeepCaretInText();
    PositionScollBars();
    FGuttorMouse->Track();
    ResetCaret();
    Redraw();
    StateChanged();
}

void TZtCodeEdit::SetTabWidth(int Value)
{
    FCells.TabWidth = qMax(Value, 1);
    ResetCaret();
    Redraw();
}

// The lexer's own corrections go with the editor's, those of `AWhich`.
void TZtCodeEdit::CorrectParser(TZtCorrections AWhich)
{
    TZtLangParser *parser = GetParser();
    if (AWhich & zcWordLists)
        parser->SetAllKeyWords(IsCorrected(zcWordLists));
    if (AWhich & zcRemarks)
        parser->SetClosedRemarks(IsCorrected(zcRemarks));
}

// --- the text and who shows it -------------------------------------------------------------------

// Each editor that shows a text, as long as it is there.
void TZtCodeEdit::ForEach(const TZtEditedText &AText,
                          const std::function<void(TZtCodeEdit &)> &AStep)
{
    const std::vector<QPointer<TZtCodeEdit>> editors(AText.Editors.begin(), AText.Editors.end());
    for (const QPointer<TZtCodeEdit> &editor : editors) {
        if (!editor)
            continue;
        const THold hold(*editor);
        AStep(*editor);
    }
}

void TZtCodeEdit::AttachText(const std::shared_ptr<TZtEditedText> &AText)
{
    FText = AText;
    FLines = AText->GetLines();
    AText->Editors.push_back(this);
    const auto tell = [text = AText.get()](void (TZtCodeEdit::*ATold)(QObject *)) {
        return [text, ATold](QObject *sender) {
            for (const TZtCodeEdit *editor : text->Editors)
                if (editor->InPaint)
                    return; // only a lexer's states are stored
            TZtFirstException raised;
            ForEach(*text, [&](TZtCodeEdit &edit) { raised.Run([&] { (edit.*ATold)(sender); }); });
            raised.Raise();
        };
    };
    FLines->OnChanging = tell(&TZtCodeEdit::LinesChanged);
    FLines->OnChange = tell(&TZtCodeEdit::CodeChange);
}

void TZtCodeEdit::DetachText()
{
    FFollower.reset();
    FHighlighter.reset();
    LeaveHistory();
    std::erase(FText->Editors, this);
    FText.reset();
}

void TZtCodeEdit::ShareText(TZtCodeEdit *AOther)
{
    if (!AOther || AOther->FText == FText)
        return;
    if (FPrimary)
        FPrimary->Keep();
    const TZtCorrections corrections = FCorrections;
    SetCorrections({});
    DetachText();
    AttachText(AOther->FText);
    FUndoList->Clear();
    FModified = AOther->FModified;
    SetCorrections(corrections);
    WatchText();
    FExtras->Show(FShownExtras);
    InitSelectionAndPosition();
    PositionScollBars();
    Redraw();
    StateChanged();
}

// In the middle of an operation too, whose step ends here then.
void TZtCodeEdit::LeaveHistory()
{
    if (FHistory && FOperations > 0)
        FHistory->EndStep(GetView());
    FHistory.reset();
}

void TZtCodeEdit::MakeHistory()
{
    LeaveHistory();
    FUndoList->Clear();
    if (!(FCorrections & (zcUndo | zcEvents)))
        return;
    if (IsCorrected(zcUndo))
        FHistory = FText->History.lock();
    if (!FHistory) {
        FHistory = std::make_shared<TZtUndoHistory>(FLines);
        FHistory->SetMaxBytes(FUndoBytes);
        // Whoever has it answers where the user stands.
        FHistory->OnGetView = [text = std::weak_ptr(FText), history = FHistory.get()] {
            if (const auto edited = text.lock())
                for (const TZtCodeEdit *editor : edited->Editors)
                    if (editor->FHistory.get() == history)
                        return editor->GetView();
            return TZtViewState();
        };
        FModified ? FHistory->SetUnsaved() : FHistory->SetSaved();
        if (IsCorrected(zcUndo))
            FText->History = FHistory;
    }
    FToldVersion = FHistory->GetVersion();
    if (FOperations > 0)
        FHistory->BeginStep(GetView());
}

// --- operations ----------------------------------------------------------------------------------

void TZtCodeEdit::BeginOperation()
{
    if (FOperations++ > 0)
        return;
    FJoin = TZtUndoJoin::ujAlone;
    if (FText->Marks)
        FText->Marks->Changes.SetIsWholeTextMarked(true); // a user changes it, nobody loads
    if (FHistory)
        FHistory->BeginStep(GetView());
}

void TZtCodeEdit::EndOperation()
{
    if (FOperations > 1) {
        --FOperations;
        return;
    }
    TZtFirstException raised; // what handlers raise leaves nothing open
    raised.Run([this] { KeepCaretInText(); });
    raised.Run([this] {
        if (!IsCorrected(zcScroll))
            return;
        PositionScollBars();
        ScrollToColumn();
        ScrollToLine();
    });
    --FOperations;
    if (FText->Marks)
        FText->Marks->Changes.SetIsWholeTextMarked(false);
    // The first version's undo takes back what was one operation; with it no steps join.
    const bool joins = IsCorrected(zcUndo) || FJoin == TZtUndoJoin::ujBack;
    if (FHistory)
        FHistory->EndStep(GetView(), joins ? FJoin : TZtUndoJoin::ujAlone);
    ForEach(*FText, [&](TZtCodeEdit &edit) { raised.Run([&] { edit.TellChange(); }); });
    ForEach(*FText, [&](TZtCodeEdit &edit) { raised.Run([&] { edit.StateChanged(); }); });
    raised.Raise();
}

void TZtCodeEdit::BeginUpdate()
{
    if (FCorrections)
        BeginOperation();
}

void TZtCodeEdit::EndUpdate()
{
    if (FOperations > 0)
        EndOperation();
}

// With zcEvents: once the text is another one and nothing more is under way.
void TZtCodeEdit::TellChange()
{
    if (!IsCorrected(zcEvents))
        return;
    for (const TZtCodeEdit *editor : FText->Editors)
        if (editor->FOperations > 0)
            return;
    const bool modified = !FHistory->IsSaved();
    if (FModified && !modified && FText->Marks)
        FText->Marks->Changes.Restore();
    FModified = modified;
    const quint64 version = FHistory->GetVersion();
    if (std::exchange(FToldVersion, version) == version)
        return;
    TZtFirstException raised;
    raised.Run([this] { Tell([this] { Fire(FOnChange, this); }); });
    raised.Run([this] { Tell([this] { Q_EMIT textChanged(); }); });
    raised.Raise();
}

void TZtCodeEdit::SetModified(bool Value)
{
    for (TZtCodeEdit *editor : FText->Editors)
        editor->FModified = Value;
    if (FHistory && Value)
        FHistory->SetUnsaved();
    else if (FHistory)
        FHistory->SetSaved();
    if (!Value && FText->Marks)
        FText->Marks->Changes.MarkSaved();
    ForEach(*FText, [](TZtCodeEdit &edit) { edit.StateChanged(); });
}

// --- undo and redo -------------------------------------------------------------------------------

// What the first version's undo keeps of a change.
void TZtCodeEdit::Record(TZtChangeType AChangeType, const QPoint &AStart, const QPoint &AEnd,
                         const QPoint &ACaret, const QString &AValue)
{
    if (!IsCorrected(zcUndo))
        FUndoList->AddUndo(AChangeType, AStart, AEnd, ACaret, AValue);
}

bool TZtCodeEdit::GetCanUndo() const
{
    return IsCorrected(zcUndo) ? FHistory->CanUndo() : FUndoList->GetCount() > 0;
}

bool TZtCodeEdit::GetCanRedo() const { return IsCorrected(zcUndo) && FHistory->CanRedo(); }

void TZtCodeEdit::Undo()
{
    if (!MayEdit() || !GetCanUndo())
        return;
    if (IsCorrected(zcUndo))
        Move(&TZtUndoHistory::Undo);
    else
        Operate([this] {
            FUndoList->Undo();
            FJoin = TZtUndoJoin::ujBack;
        });
}

void TZtCodeEdit::Redo()
{
    if (MayEdit() && GetCanRedo())
        Move(&TZtUndoHistory::Redo);
}

void TZtCodeEdit::Move(bool (TZtUndoHistory::*AMove)(TZtViewState &))
{
    Operate([&] {
        Changed();
        TZtViewState view;
        RunToEnd([&] {
            bool moved = false;
            FLines->GetRaised()->Run([&] { moved = (FHistory.get()->*AMove)(view); });
            if (moved)
                SetView(view);
        });
    });
}

TZtViewState TZtCodeEdit::GetView() const
{
    return {QPoint(FCharPos, FLinePos), FSelStart, FSelEnd,
            QPoint(FHScrollBar->GetPosition(), FVScrollBar->GetPosition())};
}

void TZtCodeEdit::SetView(const TZtViewState &AView)
{
    FLongest = qMax(FLongest, AView.Top.x() + qMax(FHScrollBar->GetPageSize(), 0));
    PositionScollBars();
    FHScrollBar->SetPosition(AView.Top.x());
    FVScrollBar->SetPosition(AView.Top.y());
    MoveTo(AView.Caret);
    SetSelStart(AView.SelStart);
    SetSelEnd(AView.SelEnd);
    Redraw();
}

void TZtCodeEdit::ClearUndo()
{
    FUndoList->Clear();
    if (FHistory)
        FHistory->Clear();
    StateChanged();
}

void TZtCodeEdit::SetUndoBytes(qint64 Value)
{
    FUndoBytes = qMax<qint64>(Value, 0);
    if (FHistory)
        FHistory->SetMaxBytes(FUndoBytes);
    StateChanged();
}
