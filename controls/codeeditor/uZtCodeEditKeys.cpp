#include "uZtCodeEdit.h"

#include "uZtWordScan.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

constexpr quint32 MsgSearchDialog = quint32(TZtMsg::wmUser) + 2;
constexpr quint32 MsgSearchAgain = quint32(TZtMsg::wmUser) + 3;

enum class TModifiers { Ctrl, Shift, Any };

// Each command answers to two codes: its letter, and the code of that letter in lower case, which
// is a function or numeric-pad key. Hosts know both.
struct TShortcut {
    quint16 Code;
    quint16 OtherCode;
    TModifiers Modifiers; // Ctrl and Shift: exactly that key
    quint32 Msg;
    quint64 WParam;
};

// The first row that matches is taken.
constexpr std::array Shortcuts = {
    TShortcut{TZtKey::Letter('Z'), TZtKey::F11, TModifiers::Ctrl, quint32(TZtMsg::wmUndo), 0},
    TShortcut{TZtKey::Letter('X'), TZtKey::F9, TModifiers::Ctrl, quint32(TZtMsg::wmCut), 0},
    TShortcut{TZtKey::Letter('V'), TZtKey::F7, TModifiers::Ctrl, quint32(TZtMsg::wmPaste), 0},
    TShortcut{TZtKey::Letter('C'), TZtKey::Numpad3, TModifiers::Ctrl, quint32(TZtMsg::wmCopy), 0},
    TShortcut{TZtKey::Insert, TZtKey::Insert, TModifiers::Ctrl, quint32(TZtMsg::wmCopy), 0},
    TShortcut{TZtKey::Insert, TZtKey::Insert, TModifiers::Shift, quint32(TZtMsg::wmPaste), 0},
    TShortcut{TZtKey::Letter('F'), TZtKey::Numpad6, TModifiers::Ctrl, MsgSearchDialog, 0},
    TShortcut{TZtKey::Letter('R'), TZtKey::F3, TModifiers::Ctrl, MsgSearchDialog, 1},
    // R alone repeats the search too; its character is typed all the same.
    TShortcut{TZtKey::Letter('R'), TZtKey::F3, TModifiers::Any, MsgSearchAgain, 0},
};

bool Matches(TModifiers AModifiers, TShiftState AShift)
{
    return AModifiers == TModifiers::Any ||
           AShift == TShiftState(AModifiers == TModifiers::Ctrl ? ssCtrl : ssShift);
}

const TShortcut *FindShortcut(quint16 AKey, TShiftState AShift)
{
    const auto row = std::find_if(Shortcuts.begin(), Shortcuts.end(), [=](const TShortcut &s) {
        return (AKey == s.Code || AKey == s.OtherCode) && Matches(s.Modifiers, AShift);
    });
    return row == Shortcuts.end() ? nullptr : &*row;
}

bool IsMovementKey(quint16 AKey)
{
    return AKey == TZtKey::Prior || AKey == TZtKey::Next ||
           (AKey >= TZtKey::Left && AKey <= TZtKey::Down);
}

bool IsSelectAll(quint16 AKey, TShiftState AShift)
{
    return (AKey == TZtKey::Letter('A') || AKey == TZtKey::Numpad1) && AShift.testFlag(ssCtrl);
}

constexpr int LastColumn = 500; // the right end of the horizontal scroll range

} // namespace

// What a key does at the caret. False: the key press ends there.
struct TZtCodeEdit::TKeyAction {
    quint16 Key;
    bool (TZtCodeEdit::*Handler)(TShiftState AShift);
};

void TZtCodeEdit::KeyCommand(quint16 &Key, TShiftState Shift)
{
    const TShortcut *shortcut = FindShortcut(Key, Shift);
    if (!shortcut)
        return;
    ZtPostMessage(this, shortcut->Msg, shortcut->WParam);
    Key = TZtKey::None;
}

void TZtCodeEdit::KeyDown(quint16 &Key, TShiftState Shift)
{
    KeyCommand(Key, Shift);
    if (IsMovementKey(Key)) {
        SetSelection(false);
    } else if (IsSelectAll(Key, Shift)) {
        SelectAll();
        Key = TZtKey::None;
    }
    TCustomControl::KeyDown(Key, Shift);
    static constexpr std::array actions = {
        TKeyAction{TZtKey::Left, &TZtCodeEdit::KeyLeft},
        TKeyAction{TZtKey::Right, &TZtCodeEdit::KeyRight},
        TKeyAction{TZtKey::Up, &TZtCodeEdit::KeyUp},
        TKeyAction{TZtKey::Down, &TZtCodeEdit::KeyDownLine},
        TKeyAction{TZtKey::Prior, &TZtCodeEdit::KeyPageUp},
        TKeyAction{TZtKey::Next, &TZtCodeEdit::KeyPageDown},
        TKeyAction{TZtKey::Home, &TZtCodeEdit::KeyHome},
        TKeyAction{TZtKey::End, &TZtCodeEdit::KeyEnd},
        TKeyAction{TZtKey::Delete, &TZtCodeEdit::KeyDelete},
    };
    for (const TKeyAction &action : actions)
        if (Key == action.Key && !(this->*action.Handler)(Shift))
            return;
    if (IsMovementKey(Key))
        SetSelection(false);
}

void TZtCodeEdit::SelectAll()
{
    SetLinePos(FLines->GetCount() - 1);
    SetCharPos(FLinePos < FLines->GetCount() ? FLines->GetLength(FLinePos) : 0);
    FSelEnd = QPoint(0, 0);
    FSelStart = QPoint(FCharPos, FLinePos);
    Invalidate();
}

bool TZtCodeEdit::KeyLeft(TShiftState AShift)
{
    if (AShift.testFlag(ssCtrl))
        GotoNextChar(false);
    else if (FCharPos > 0)
        SetCharPos(FCharPos - CharactersBefore(FCharPos));
    return true;
}

bool TZtCodeEdit::KeyRight(TShiftState AShift)
{
    if (AShift.testFlag(ssCtrl))
        GotoNextChar(true);
    else if (FCharPos < LastColumn)
        SetCharPos(FCharPos + CharactersAfter(FCharPos));
    return true;
}

bool TZtCodeEdit::KeyUp(TShiftState)
{
    if (FLinePos > 0)
        SetLinePos(FLinePos - 1);
    return true;
}

bool TZtCodeEdit::KeyDownLine(TShiftState)
{
    if (FLinePos < FLines->GetCount())
        SetLinePos(FLinePos + 1);
    return true;
}

bool TZtCodeEdit::KeyPageUp(TShiftState)
{
    SetLinePos(FLinePos - FVScrollBar->GetPageSize());
    return true;
}

bool TZtCodeEdit::KeyPageDown(TShiftState)
{
    SetLinePos(FLinePos + FVScrollBar->GetPageSize());
    return true;
}

bool TZtCodeEdit::KeyHome(TShiftState AShift)
{
    SetCharPos(0);
    if (AShift.testFlag(ssCtrl))
        SetLinePos(0);
    return true;
}

bool TZtCodeEdit::KeyEnd(TShiftState AShift)
{
    if (AShift.testFlag(ssShift))
        SetSelection(false);
    if (AShift.testFlag(ssCtrl))
        SetLinePos(FLines->GetCount() - 1);
    if (FLinePos < FLines->GetCount())
        SetCharPos(FLines->GetLength(FLinePos));
    return true;
}

bool TZtCodeEdit::KeyDelete(TShiftState AShift)
{
    if (FSelEnd.x() == -1 || FSelEnd == FSelStart) {
        FSelStart = QPoint(FCharPos, FLinePos);
        FSelEnd = QPoint(FCharPos + CharactersAfter(FCharPos), FLinePos);
        if (FLinePos > FLines->GetCount() - 1)
            return false;
        if (FLines->GetLength(FLinePos) < FSelEnd.x())
            FSelEnd = QPoint(0, FLinePos + 1);
    }
    QString deleted;
    DeleteSelected(AShift.testFlag(ssShift) ? TZtChangeType::ctCut : TZtChangeType::ctDelete,
                   deleted);
    return true;
}

int TZtCodeEdit::CharactersBefore(int AColumn) const
{
    return FLinePos < FLines->GetCount() && ZtIsPair(*FLines, FLinePos, AColumn - 2) ? 2 : 1;
}

int TZtCodeEdit::CharactersAfter(int AColumn) const
{
    return FLinePos < FLines->GetCount() && ZtIsPair(*FLines, FLinePos, AColumn) ? 2 : 1;
}

void TZtCodeEdit::GotoNextChar(bool Forward)
{
    if (FLinePos < 0 || FLinePos >= FLines->GetCount())
        return;
    const QPoint to = ZtWordJump(*FLines, QPoint(FCharPos, FLinePos), Forward);
    SetCharPos(to.x());
    SetLinePos(to.y());
}

bool TZtCodeEdit::CMWantSpecialKey(quint16 Key) const
{
    return (Key >= TZtKey::Left && Key <= TZtKey::Down) || Key == TZtKey::Return;
}

bool TZtCodeEdit::focusNextPrevChild(bool)
{
    return false; // Tab is the editor's
}

bool TZtCodeEdit::event(QEvent *AEvent)
{
    // What the editor does with a key goes before a host's shortcut of the same key.
    if (AEvent->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(AEvent);
        const quint16 code = ZtVirtualKey(*key);
        const TShiftState shift = ZtShiftStateOf(*key);
        if (IsMovementKey(code) || code == TZtKey::Home || code == TZtKey::End ||
            code == TZtKey::Delete || IsSelectAll(code, shift) || FindShortcut(code, shift) ||
            (code != TZtKey::Escape && !ZtCharactersOf(*key).isEmpty())) {
            AEvent->accept();
            return true;
        }
    }
    return TCustomControl::event(AEvent);
}

void TZtCodeEdit::inputMethodEvent(QInputMethodEvent *AEvent)
{
    FComposition = AEvent->preeditString();
    Invalidate();
    TCustomControl::inputMethodEvent(AEvent);
}

QVariant TZtCodeEdit::inputMethodQuery(Qt::InputMethodQuery AQuery) const
{
    switch (AQuery) {
    case Qt::ImEnabled:
        return !GetReadOnly();
    case Qt::ImCursorRectangle:
        return FCaret->Rect().translated(ClientArea().topLeft());
    case Qt::ImFont:
        return font();
    case Qt::ImCursorPosition:
    case Qt::ImAnchorPosition:
        return FCharPos;
    case Qt::ImSurroundingText:
        return FLinePos < FLines->GetCount() ? FLines->GetStrings(FLinePos) : QString();
    default:
        return TCustomControl::inputMethodQuery(AQuery);
    }
}
