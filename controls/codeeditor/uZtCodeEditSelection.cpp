#include "uZtCodeEditOperate.h"

#include "uZtEditExport.h"
#include "uZtGuttorMouse.h"
#include "uZtPlatform.h"
#include "uZtStrings.h"
#include "uZtWordScan.h"

#include <QScopeGuard>

#include <array>

using enum TZtCorrection;

void TZtCodeEdit::SetSelStart(const QPoint &P)
{
    if (FSelStart == P)
        return;
    Redraw();
    FSelStart = P;
    StateChanged();
}

void TZtCodeEdit::SetSelEnd(const QPoint &P)
{
    if (FSelEnd == P)
        return;
    Redraw();
    FSelEnd = P;
    StateChanged();
}

void TZtCodeEdit::SetSelection(bool ACollapse)
{
    SetSelStart(QPoint(FCharPos, FLinePos));
    bool anchorMoves;
    if (FInMouseSetSelection)
        anchorMoves = false; // a drag goes on
    else if (inMouseMove)
        anchorMoves = !IsCorrected(zcKeys); // a drag has just begun
    else
        anchorMoves = ACollapse || !ZtPlatform().KeyboardShift().testFlag(ssShift);
    if (anchorMoves)
        SetSelEnd(FSelStart);
    FInMouseSetSelection = inMouseMove;
}

void TZtCodeEdit::ClearSelection()
{
    Watched([this] {
        SetSelStart(QPoint(-1, -1));
        SetSelEnd(QPoint(-1, -1));
    });
}

void TZtCodeEdit::InitSelectionAndPosition()
{
    Watched([this] {
        ClearSelection();
        SetCharPos(0);
        SetLinePos(0);
    });
}

// What only looks at the selection leaves it as it is, where that is corrected.
auto TZtCodeEdit::KeepSelection()
{
    auto keep = qScopeGuard([this, start = FSelStart, end = FSelEnd] {
        FSelStart = start;
        FSelEnd = end;
    });
    if (!IsCorrected(zcClipboard) && MayEdit())
        keep.dismiss();
    return keep;
}

void TZtCodeEdit::GetSelected(QString &Selected)
{
    const auto keep = KeepSelection();
    const bool swapped = SelectionReversed();
    if (swapped)
        std::swap(FSelStart, FSelEnd);
    Selected.clear();
    if (!SelectionGiven())
        return; // the points stay in order then
    ClampSelectionEnd();
    if (FSelStart.y() < FLines->GetCount())
        Selected = SelectedText();
    if (swapped)
        std::swap(FSelStart, FSelEnd);
}

int TZtCodeEdit::SelLength()
{
    const auto keep = KeepSelection();
    const bool swapped = SelectionReversed();
    if (swapped)
        std::swap(FSelStart, FSelEnd);
    qint64 length = 0; // the end of the last line may be the largest number there is
    if (SelectionGiven()) {
        ClampSelectionEnd();
        for (int k = FSelStart.y(); k <= FSelEnd.y() && k < FLines->GetCount(); ++k) {
            if (k == FSelStart.y())
                length += FLines->GetLength(k) - FSelStart.x();
            else
                length += k == FSelEnd.y() ? FSelEnd.x() : FLines->GetLength(k);
        }
    }
    if (swapped)
        std::swap(FSelStart, FSelEnd);
    return int(qMin<qint64>(length, std::numeric_limits<int>::max()));
}

bool TZtCodeEdit::GetCanPaste() const { return !ZtPlatform().ClipboardText().isEmpty(); }

void TZtCodeEdit::WMSselectWord(TZtMessage &)
{
    static constexpr TZtCharSet word{{u'0', u'9'}, {u'A', u'Z'}, {u'a', u'z'}, u'_'};
    if (FLinePos >= FLines->GetCount() ||
        FGuttorMouse->IsPressed()) // a double click there is two presses
        return;
    if (IsCorrected(zcWords))
        return SelectWord();
    const QString line = FLines->GetStrings(FLinePos);
    const int length = int(line.size());
    if (FCharPos >= length)
        return;
    const auto wordBefore = [&line](int column) {
        return column > 0 && ZtCharInSet(line.at(column - 1).unicode(), word);
    };
    int end = FCharPos;
    int start = FCharPos;
    while (end < length && wordBefore(end))
        ++end;
    while (wordBefore(start))
        --start;
    if (end < length)
        --end; // -1 in column 0, where nothing is selected
    SetCharPos(end);
    FSelEnd.setX(start);
    FSelStart.setX(end);
    Redraw();
}

void TZtCodeEdit::SelectWord()
{
    const QPoint caret = InText({FCharPos, FLinePos});
    const auto [start, end] = ZtWordAt(FLines->View(caret.y()), caret.x());
    if (start == end)
        return;
    MoveTo({end, caret.y()});
    SetSelEnd({start, caret.y()});
}

// With its break, as far as it has a line below it.
void TZtCodeEdit::SelectLine(int ALine)
{
    if (ALine >= FLines->GetCount())
        return;
    const bool last = ALine + 1 == FLines->GetCount();
    MoveTo(last ? QPoint(FLines->GetLength(ALine), ALine) : QPoint(0, ALine + 1));
    SetSelEnd({0, ALine});
}

void TZtCodeEdit::WMCut(TZtMessage &)
{
    if (IsCorrected(zcClipboard))
        return Erase(TZtChangeType::ctCut, nullptr);
    QString text;
    DeleteSelected(TZtChangeType::ctCut, text);
    Tell([&] { ZtPlatform().SetClipboardText(text); }); // empties it when nothing was selected
}

void TZtCodeEdit::WMCopy(TZtMessage &)
{
    QString text;
    GetSelected(text);
    if (text.isEmpty() && IsCorrected(zcClipboard))
        return;
    TZtEditExport::ToClipboard(*this, text);
}

void TZtCodeEdit::WMPaste(TZtMessage &)
{
    QString text;
    Tell([&] { text = ZtPlatform().ClipboardText(); });
    Operate([&] {
        Erase(TZtChangeType::ctDelete, nullptr);
        InsertText(TZtChangeType::ctPaste, text);
        SetSelection(true);
    });
}

void TZtCodeEdit::WMUndo(TZtMessage &) { Undo(); }

void TZtCodeEdit::WMRedo(TZtMessage &) { Redo(); }

bool TZtCodeEdit::Dispatch(TZtMessage &Message)
{
    struct THandler {
        quint32 Msg;
        void (TZtCodeEdit::*Handle)(TZtMessage &Message);
    };
    if (Message.Msg == quint32(TZtMsg::wmEraseBkgnd) ||
        Message.Msg == quint32(TZtMsg::wmGetDlgCode)) {
        Message.Result =
            Message.Msg == quint32(TZtMsg::wmGetDlgCode) ? WMGetDlgCode() : WMEraseBkgnd();
        return true;
    }
    static constexpr std::array handlers = {
        THandler{quint32(TZtMsg::wmMouseWheel), &TZtCodeEdit::WMMouseWheel},
        THandler{quint32(TZtMsg::wmCut), &TZtCodeEdit::WMCut},
        THandler{quint32(TZtMsg::wmCopy), &TZtCodeEdit::WMCopy},
        THandler{quint32(TZtMsg::wmPaste), &TZtCodeEdit::WMPaste},
        THandler{quint32(TZtMsg::wmUndo), &TZtCodeEdit::WMUndo},
        THandler{quint32(TZtMsg::wmUser) + 1, &TZtCodeEdit::WMSselectWord},
        THandler{quint32(TZtMsg::wmUser) + 2, &TZtCodeEdit::WMSearchReplaceDlg},
        THandler{quint32(TZtMsg::wmUser) + 3, &TZtCodeEdit::WMSearchReplace},
        THandler{quint32(TZtMsg::wmUser) + 4, &TZtCodeEdit::WMRedo},
        THandler{quint32(TZtMsg::wmUser) + 5, &TZtCodeEdit::WMExtra},
    };
    for (const THandler &handler : handlers) {
        if (handler.Msg == Message.Msg) {
            (this->*handler.Handle)(Message);
            StateChanged();
            return true;
        }
    }
    return TCustomControl::Dispatch(Message);
}
