#include "uZtKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

struct TKeyRow {
    int Key;
    quint16 Code;
    quint16 PadCode; // on the numeric pad; 0: the same
};

constexpr std::array KeyRows = {
    TKeyRow{Qt::Key_Backspace, TZtKey::Back, 0},
    TKeyRow{Qt::Key_Tab, TZtKey::Tab, 0},
    TKeyRow{Qt::Key_Backtab, TZtKey::Tab, 0},
    TKeyRow{Qt::Key_Clear, TZtKey::Clear, 0},
    TKeyRow{Qt::Key_Return, TZtKey::Return, 0},
    TKeyRow{Qt::Key_Enter, TZtKey::Return, 0},
    TKeyRow{Qt::Key_Pause, TZtKey::Pause, 0},
    TKeyRow{Qt::Key_CapsLock, TZtKey::CapsLock, 0},
    TKeyRow{Qt::Key_Escape, TZtKey::Escape, 0},
    TKeyRow{Qt::Key_Space, TZtKey::Space, 0},
    TKeyRow{Qt::Key_PageUp, TZtKey::Prior, 0},
    TKeyRow{Qt::Key_PageDown, TZtKey::Next, 0},
    TKeyRow{Qt::Key_End, TZtKey::End, 0},
    TKeyRow{Qt::Key_Home, TZtKey::Home, 0},
    TKeyRow{Qt::Key_Left, TZtKey::Left, 0},
    TKeyRow{Qt::Key_Up, TZtKey::Up, 0},
    TKeyRow{Qt::Key_Right, TZtKey::Right, 0},
    TKeyRow{Qt::Key_Down, TZtKey::Down, 0},
    TKeyRow{Qt::Key_Print, TZtKey::Print, 0},
    TKeyRow{Qt::Key_Insert, TZtKey::Insert, 0},
    TKeyRow{Qt::Key_Delete, TZtKey::Delete, 0},
    TKeyRow{Qt::Key_Help, TZtKey::Help, 0},
    TKeyRow{Qt::Key_Menu, TZtKey::Apps, 0},
    TKeyRow{Qt::Key_NumLock, TZtKey::NumLock, 0},
    TKeyRow{Qt::Key_ScrollLock, TZtKey::ScrollLock, 0},
    TKeyRow{Qt::Key_Plus, TZtKey::OemPlus, TZtKey::Add},
    TKeyRow{Qt::Key_Comma, TZtKey::OemComma, TZtKey::Decimal},
    TKeyRow{Qt::Key_Minus, TZtKey::OemMinus, TZtKey::Subtract},
    TKeyRow{Qt::Key_Period, TZtKey::OemPeriod, TZtKey::Decimal},
    TKeyRow{Qt::Key_Asterisk, 0, TZtKey::Multiply},
    TKeyRow{Qt::Key_Slash, 0, TZtKey::Divide},
};

// A character typed with AltGr: its own modifier on some systems, Ctrl with Alt on others.
bool IsAltGr(const QKeyEvent &AEvent)
{
    const Qt::KeyboardModifiers modifiers = AEvent.modifiers();
    if (modifiers & Qt::GroupSwitchModifier)
        return true;
    constexpr auto both = Qt::ControlModifier | Qt::AltModifier;
    return (modifiers & both) == both && !AEvent.text().isEmpty() && AEvent.text().at(0).isPrint();
}

} // namespace

TShiftState ZtShiftState(Qt::KeyboardModifiers AModifiers)
{
    TShiftState state;
    state.setFlag(ssShift, AModifiers.testFlag(Qt::ShiftModifier));
    state.setFlag(ssAlt, AModifiers.testFlag(Qt::AltModifier));
    state.setFlag(ssCtrl, AModifiers.testFlag(Qt::ControlModifier));
    return state;
}

quint16 ZtVirtualKey(const QKeyEvent &AEvent)
{
    const int key = AEvent.key();
    const bool pad = AEvent.modifiers().testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return quint16(pad ? TZtKey::Numpad0 + (key - Qt::Key_0) : key);
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return quint16(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return quint16(TZtKey::F1 + (key - Qt::Key_F1));
    const auto row = std::find_if(KeyRows.begin(), KeyRows.end(),
                                  [key](const TKeyRow &r) { return r.Key == key; });
    if (row == KeyRows.end())
        return TZtKey::None;
    return pad && row->PadCode ? row->PadCode : row->Code;
}

TShiftState ZtShiftStateOf(const QKeyEvent &AEvent)
{
    return IsAltGr(AEvent) ? TShiftState() : ZtShiftState(AEvent.modifiers());
}

QString ZtCharactersOf(const QKeyEvent &AEvent)
{
    const Qt::KeyboardModifiers modifiers = AEvent.modifiers();
    if (!IsAltGr(AEvent) && modifiers.testFlag(Qt::AltModifier))
        return {};
    const bool ctrl = !IsAltGr(AEvent) && modifiers.testFlag(Qt::ControlModifier);
    switch (AEvent.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return ctrl ? QString() : QStringLiteral("\t"); // Ctrl+Tab switches pages, it types nothing
    case Qt::Key_Delete:
        return {};
    default:
        return ctrl ? QString() : AEvent.text();
    }
}
