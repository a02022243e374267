#include "uZtCodeEdit.h"

#include "uZtEditSearch.h"

void TZtCodeEdit::WMSearchReplaceDlg(TZtMessage &Message)
{
    FSearch->ShowDialog(Message.WParam == 1);
}

void TZtCodeEdit::WMSearchReplace(TZtMessage &Message) { FSearch->Search(Message.WParam); }

const TZtSearchReplaceOptions &TZtCodeEdit::GetSearchOptions() const
{
    return FSearch->GetOptions();
}

void TZtCodeEdit::SetSearchOptions(const TZtSearchReplaceOptions &Value)
{
    FSearch->SetOptions(Value);
}

const TZtSearchMessageEvent &TZtCodeEdit::GetOnSearchMessage() const
{
    return FSearch->GetOnMessage();
}

void TZtCodeEdit::SetOnSearchMessage(const TZtSearchMessageEvent &Value)
{
    FSearch->SetOnMessage(Value);
}

TFrmCodeEditSearchReplaceDlg *TZtCodeEdit::GetSearchDlg() const { return FSearch->GetDialog(); }

void TZtCodeEdit::Abandoned()
{
    FSearch->CloseDialog();
    TCustomControl::Abandoned();
}
