#include "uZtCodeEditOperate.h"

#include "uZtCaret.h"
#include "uZtEditExtras.h"
#include "uZtIndentation.h"
#include "uZtPrimarySelection.h"
#include "uZtUndoHistory.h"
#include "uZtWordScan.h"

#include <QHelpEvent>
#include <QKeyEvent>

#include <algorithm>
#include <array>

using enum TZtCorrection;

namespace {

constexpr quint32 MsgSearchDialog = quint32(TZtMsg::wmUser) + 2;
constexpr quint32 MsgSearchAgain = quint32(TZtMsg::wmUser) + 3;
constexpr quint32 MsgRedo = quint32(TZtMsg::wmUser) + 4;

enum class TModifiers { None, Ctrl, Shift, CtrlShift, Any };

// Each command answers to two codes: its letter, and the code of that letter in lower case, which
// is a function or numeric-pad key. Hosts know both.
struct TShortcut {
    quint16 Code;
    quint16 OtherCode;
    TModifiers Modifiers; // exactly those keys
    quint32 Msg;
    quint64 WParam;
    TZtCorrections With = {};    // the row is there with these alone
    TZtCorrections Without = {}; // and not with these
    TZtExtras Extras = {};       // and there with these alone
};

constexpr quint32 MsgExtra = quint32(TZtMsg::wmUser) + 5;

constexpr TShortcut Extra(quint16 ACode, TModifiers AModifiers, TZtExtraCommand ACommand,
                          TZtExtra AExtra)
{
    return {ACode, ACode, AModifiers, MsgExtra, quint64(ACommand), {}, {}, AExtra};
}

using enum TZtExtraCommand;
constexpr auto Forward = quint64(TZtSearchAgain::saForward);
constexpr auto Backward = quint64(TZtSearchAgain::saBackward);

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
    TShortcut{TZtKey::Letter('R'), TZtKey::F3, TModifiers::Any, MsgSearchAgain, 0, {}, zcSearchKey},
    TShortcut{TZtKey::F3, TZtKey::F3, TModifiers::None, MsgSearchAgain, Forward, zcSearchKey},
    TShortcut{TZtKey::F3, TZtKey::F3, TModifiers::Shift, MsgSearchAgain, Backward, zcSearchKey},
    TShortcut{TZtKey::Letter('H'), TZtKey::Letter('H'), TModifiers::Ctrl, MsgSearchDialog, 1,
              zcSearchKey},
    TShortcut{TZtKey::Letter('Y'), TZtKey::Letter('Y'), TModifiers::Ctrl, MsgRedo, 0, zcUndo},
    TShortcut{TZtKey::Letter('Z'), TZtKey::Letter('Z'), TModifiers::CtrlShift, MsgRedo, 0, zcUndo},
    Extra(TZtKey::F2, TModifiers::Ctrl, ecToggleBookmark, TZtExtra::zeMarks),
    Extra(TZtKey::F2, TModifiers::None, ecNextBookmark, TZtExtra::zeMarks),
    Extra(TZtKey::F2, TModifiers::Shift, ecPreviousBookmark, TZtExtra::zeMarks),
    Extra(TZtKey::F8, TModifiers::None, ecNextDiagnostic, TZtExtra::zeDiagnostics),
    Extra(TZtKey::F8, TModifiers::Shift, ecPreviousDiagnostic, TZtExtra::zeDiagnostics),
    Extra(TZtKey::Letter('M'), TModifiers::Ctrl, ecGoToBracket, TZtExtra::zeBrackets),
    Extra(TZtKey::Letter('M'), TModifiers::CtrlShift, ecSelectToBracket, TZtExtra::zeBrackets),
    Extra(TZtKey::OemPlus, TModifiers::Ctrl, ecZoomIn, TZtExtra::zeZoom),
    Extra(TZtKey::OemPlus, TModifiers::CtrlShift, ecZoomIn, TZtExtra::zeZoom),
    Extra(TZtKey::Add, TModifiers::Ctrl, ecZoomIn, TZtExtra::zeZoom),
    Extra(TZtKey::OemMinus, TModifiers::Ctrl, ecZoomOut, TZtExtra::zeZoom),
    Extra(TZtKey::Subtract, TModifiers::Ctrl, ecZoomOut, TZtExtra::zeZoom),
    Extra('0', TModifiers::Ctrl, ecZoomReset, TZtExtra::zeZoom),
    Extra(TZtKey::Numpad0, TModifiers::Ctrl, ecZoomReset, TZtExtra::zeZoom),
    Extra(TZtKey::F10, TModifiers::Shift, ecContextMenu, TZtExtra::zeContextMenu),
};

bool Matches(TModifiers AModifiers, TShiftState AShift)
{
    const bool ctrl = AModifiers == TModifiers::Ctrl || AModifiers == TModifiers::CtrlShift;
    const bool shift = AModifiers == TModifiers::Shift || AModifiers == TModifiers::CtrlShift;
    TShiftState wanted;
    wanted.setFlag(ssCtrl, ctrl);
    wanted.setFlag(ssShift, shift);
    return AModifiers == TModifiers::Any || AShift == wanted;
}

const TShortcut *FindShortcut(quint16 AKey, TShiftState AShift, const TZtCodeEdit &AEdit)
{
    const auto row = std::find_if(Shortcuts.begin(), Shortcuts.end(), [&](const TShortcut &s) {
        return (AKey == s.Code || AKey == s.OtherCode) && Matches(s.Modifiers, AShift) &&
               (!s.With || (s.With & AEdit.GetCorrections())) &&
               !(s.Without & AEdit.GetCorrections()) &&
               (!s.Extras || (s.Extras & AEdit.GetExtras()));
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
    bool (*Handler)(TZtCodeEdit &AEdit, TShiftState AShift);

    static bool Left(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool Right(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool Up(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool Down(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool PageUp(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool PageDown(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool Home(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool End(TZtCodeEdit &AEdit, TShiftState AShift);
    static bool Delete(TZtCodeEdit &AEdit, TShiftState AShift);

private:
    static void CrossTo(TZtCodeEdit &AEdit, int ALine, bool AToEnd);
    static void MoveByLines(TZtCodeEdit &AEdit, int ALines);
    static int HomeColumn(const TZtCodeEdit &AEdit);
};

void TZtCodeEdit::KeyCommand(quint16 &Key, TShiftState Shift)
{
    const TShortcut *shortcut = FindShortcut(Key, Shift, *this);
    if (!shortcut)
        return;
    ZtPostMessage(this, shortcut->Msg, shortcut->WParam);
    Key = TZtKey::None;
}

void TZtCodeEdit::KeyDown(quint16 &Key, TShiftState Shift)
{
    Operate([&] { DoKey(Key, Shift); });
}

void TZtCodeEdit::DoKey(quint16 &Key, TShiftState Shift)
{
    KeyCommand(Key, Shift);
    if (Key == TZtKey::Escape)
        MarkMatches({}, {});
    if (IsMovementKey(Key)) {
        SetSelection(false);
    } else if (IsSelectAll(Key, Shift)) {
        SelectAll();
        Key = TZtKey::None;
    }
    TCustomControl::KeyDown(Key, Shift);
    static constexpr std::array actions = {
        TKeyAction{TZtKey::Left, &TKeyAction::Left},
        TKeyAction{TZtKey::Right, &TKeyAction::Right},
        TKeyAction{TZtKey::Up, &TKeyAction::Up},
        TKeyAction{TZtKey::Down, &TKeyAction::Down},
        TKeyAction{TZtKey::Prior, &TKeyAction::PageUp},
        TKeyAction{TZtKey::Next, &TKeyAction::PageDown},
        TKeyAction{TZtKey::Home, &TKeyAction::Home},
        TKeyAction{TZtKey::End, &TKeyAction::End},
        TKeyAction{TZtKey::Delete, &TKeyAction::Delete},
    };
    for (const TKeyAction &action : actions)
        if (Key == action.Key && !action.Handler(*this, Shift))
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
    Redraw();
}

bool TZtCodeEdit::TKeyAction::Left(TZtCodeEdit &AEdit, TShiftState AShift)
{
    if (AShift.testFlag(ssCtrl))
        AEdit.GotoNextChar(false);
    else if (AEdit.FCharPos > 0)
        AEdit.SetCharPos(AEdit.FCharPos - AEdit.CharactersBefore(AEdit.FCharPos));
    else if (AEdit.IsCorrected(zcKeys) && AEdit.FLinePos > 0)
        CrossTo(AEdit, AEdit.FLinePos - 1, true);
    return true;
}

bool TZtCodeEdit::TKeyAction::Right(TZtCodeEdit &AEdit, TShiftState AShift)
{
    if (AShift.testFlag(ssCtrl))
        AEdit.GotoNextChar(true);
    else if (AEdit.IsCorrected(zcKeys) && !AEdit.FOptions.testFlag(TZtCodeOption::coVirtualSpace) &&
             AEdit.FLinePos + 1 < AEdit.FLines->GetCount() &&
             AEdit.FCharPos >= AEdit.FLines->GetLength(AEdit.FLinePos))
        CrossTo(AEdit, AEdit.FLinePos + 1, false);
    else if (AEdit.FCharPos < LastColumn || AEdit.IsCorrected(zcKeys))
        AEdit.SetCharPos(AEdit.FCharPos + AEdit.CharactersAfter(AEdit.FCharPos));
    return true;
}

// Goes over a line's end.
void TZtCodeEdit::TKeyAction::CrossTo(TZtCodeEdit &AEdit, int ALine, bool AToEnd)
{
    AEdit.SetLinePos(ALine);
    AEdit.SetCharPos(AToEnd ? AEdit.FLines->GetLength(ALine) : 0);
}

// Up or down, with `zcCaret` to the cell where the caret was when it last moved otherwise.
void TZtCodeEdit::TKeyAction::MoveByLines(TZtCodeEdit &AEdit, int ALines)
{
    const int line = qBound(0, AEdit.FLinePos + ALines, qMax(AEdit.FLines->GetCount() - 1, 0));
    const int cell = AEdit.FWantedCell >= 0 ? AEdit.FWantedCell : AEdit.GetCaretCell();
    AEdit.MoveTo({AEdit.ColumnAt(line, cell), line});
    AEdit.FWantedCell = cell;
}

bool TZtCodeEdit::TKeyAction::Up(TZtCodeEdit &AEdit, TShiftState)
{
    if (AEdit.IsCorrected(zcCaret))
        MoveByLines(AEdit, -1);
    else if (AEdit.FLinePos > 0)
        AEdit.SetLinePos(AEdit.FLinePos - 1);
    return true;
}

bool TZtCodeEdit::TKeyAction::Down(TZtCodeEdit &AEdit, TShiftState)
{
    if (AEdit.IsCorrected(zcCaret))
        MoveByLines(AEdit, 1);
    else if (AEdit.FLinePos < AEdit.FLines->GetCount())
        AEdit.SetLinePos(AEdit.FLinePos + 1);
    return true;
}

bool TZtCodeEdit::TKeyAction::PageUp(TZtCodeEdit &AEdit, TShiftState)
{
    if (AEdit.IsCorrected(zcCaret))
        MoveByLines(AEdit, -AEdit.FVScrollBar->GetPageSize());
    else
        AEdit.SetLinePos(AEdit.FLinePos - AEdit.FVScrollBar->GetPageSize());
    return true;
}

bool TZtCodeEdit::TKeyAction::PageDown(TZtCodeEdit &AEdit, TShiftState)
{
    if (AEdit.IsCorrected(zcCaret))
        MoveByLines(AEdit, AEdit.FVScrollBar->GetPageSize());
    else
        AEdit.SetLinePos(AEdit.FLinePos + AEdit.FVScrollBar->GetPageSize());
    return true;
}

bool TZtCodeEdit::TKeyAction::Home(TZtCodeEdit &AEdit, TShiftState AShift)
{
    const bool lineAlone = !AShift.testFlag(ssCtrl);
    AEdit.SetCharPos(lineAlone && AEdit.IsCorrected(zcTabs) ? HomeColumn(AEdit) : 0);
    if (!lineAlone)
        AEdit.SetLinePos(0);
    return true;
}

// The first character that is not blank, or column 0 where the caret stands there already.
int TZtCodeEdit::TKeyAction::HomeColumn(const TZtCodeEdit &AEdit)
{
    if (AEdit.FLinePos >= AEdit.FLines->GetCount())
        return 0;
    const int column = int(ZtIndentOf(AEdit.FLines->GetStrings(AEdit.FLinePos)));
    return AEdit.FCharPos == column ? 0 : column;
}

bool TZtCodeEdit::TKeyAction::End(TZtCodeEdit &AEdit, TShiftState AShift)
{
    if (AShift.testFlag(ssShift))
        AEdit.SetSelection(false);
    if (AShift.testFlag(ssCtrl))
        AEdit.SetLinePos(AEdit.FLines->GetCount() - 1);
    if (AEdit.FLinePos < AEdit.FLines->GetCount())
        AEdit.SetCharPos(AEdit.FLines->GetLength(AEdit.FLinePos));
    return true;
}

bool TZtCodeEdit::TKeyAction::Delete(TZtCodeEdit &AEdit, TShiftState AShift)
{
    if (AShift.testFlag(ssCtrl) && AEdit.IsCorrected(zcBackspace)) {
        AEdit.EraseWord(true);
        return true;
    }
    if (AEdit.FSelEnd.x() == -1 || AEdit.FSelEnd == AEdit.FSelStart) {
        if (!AEdit.MayEdit())
            return true;
        AEdit.FJoin = TZtUndoJoin::ujErased;
        AEdit.FSelStart = QPoint(AEdit.FCharPos, AEdit.FLinePos);
        AEdit.FSelEnd =
            QPoint(AEdit.FCharPos + AEdit.CharactersAfter(AEdit.FCharPos), AEdit.FLinePos);
        if (AEdit.FLinePos > AEdit.FLines->GetCount() - 1)
            return false;
        if (AEdit.FLines->GetLength(AEdit.FLinePos) < AEdit.FSelEnd.x())
            AEdit.FSelEnd = QPoint(0, AEdit.FLinePos + 1);
    }
    AEdit.Erase(AShift.testFlag(ssShift) ? TZtChangeType::ctCut : TZtChangeType::ctDelete, nullptr);
    return true;
}

int TZtCodeEdit::CharactersBefore(int AColumn) const
{
    if (FLinePos >= FLines->GetCount())
        return 1;
    if (IsCorrected(zcCells))
        return AColumn - ZtPreviousCluster(FLines->View(FLinePos), AColumn, FCells);
    return ZtIsPair(*FLines, FLinePos, AColumn - 2) ? 2 : 1;
}

int TZtCodeEdit::CharactersAfter(int AColumn) const
{
    if (FLinePos >= FLines->GetCount())
        return 1;
    if (IsCorrected(zcCells))
        return ZtNextCluster(FLines->View(FLinePos), AColumn, FCells) - AColumn;
    return ZtIsPair(*FLines, FLinePos, AColumn) ? 2 : 1;
}

void TZtCodeEdit::GotoNextChar(bool Forward)
{
    if (FLinePos < 0 || FLinePos >= FLines->GetCount())
        return;
    const QPoint from(FCharPos, FLinePos);
    if (IsCorrected(zcWords))
        return MoveTo(ZtUnicodeWordJump(*FLines, from, Forward));
    const QPoint to = ZtWordJump(*FLines, from, Forward);
    if (IsCorrected(zcCaret))
        return MoveTo(to);
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

void TZtCodeEdit::keyPressEvent(QKeyEvent *AEvent)
{
    const bool tab = AEvent->key() == Qt::Key_Tab || AEvent->key() == Qt::Key_Backtab;
    if (tab && AEvent->modifiers().testFlag(Qt::ControlModifier) && IsCorrected(zcKeys)) {
        TCustomControl::focusNextPrevChild(AEvent->key() == Qt::Key_Tab &&
                                           !AEvent->modifiers().testFlag(Qt::ShiftModifier));
        return;
    }
    TCustomControl::keyPressEvent(AEvent);
}

bool TZtCodeEdit::event(QEvent *AEvent)
{
    if (AEvent->isInputEvent())
        PutOffIdle();
    if (AEvent->type() == QEvent::ToolTip && ShowToolTip(*static_cast<QHelpEvent *>(AEvent)))
        return true;
    if (AEvent->type() == QEvent::NativeGesture && HasExtra(TZtExtra::zeZoom) && ZoomWith(AEvent))
        return true;
    if (AEvent->type() == QEvent::FontChange) {
        FZoom = 100; // the host's own font from now on
        if (IsCorrected(zcPicture))
            MeasureFont();
        Guarded([this] { StateChanged(); });
    }
    if (AEvent->type() == QEvent::PaletteChange)
        FExtras->TakeColours();
    // What the editor does with a key goes before a host's shortcut of the same key.
    if (AEvent->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(AEvent);
        const quint16 code = ZtVirtualKey(*key);
        const TShiftState shift = ZtShiftStateOf(*key);
        if (IsMovementKey(code) || code == TZtKey::Home || code == TZtKey::End ||
            code == TZtKey::Delete || IsSelectAll(code, shift) ||
            FindShortcut(code, shift, *this) ||
            (code != TZtKey::Escape && !ZtCharactersOf(*key).isEmpty())) {
            AEvent->accept();
            return true;
        }
    }
    const bool followed =
        FPrimary && (AEvent->isInputEvent() || AEvent->type() == TZtMessage::EventType());
    if (!followed)
        return TCustomControl::event(AEvent);
    const THold hold(*this);
    const bool handled = TCustomControl::event(AEvent);
    if (FPrimary && !IsAbandoned())
        FPrimary->Follow();
    return handled;
}
