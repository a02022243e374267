#pragma once

#include "uZtExport.h"

#include <QFlags>
#include <QString>
#include <QtGlobal>

class QKeyEvent;

/// A key that is held down while another one is pressed.
enum class TShiftKey : quint8 { ssShift = 1, ssAlt = 2, ssCtrl = 4 };
Q_DECLARE_FLAGS(TShiftState, TShiftKey)
Q_DECLARE_OPERATORS_FOR_FLAGS(TShiftState)

/// The names without their type.
inline constexpr TShiftKey ssShift = TShiftKey::ssShift;
inline constexpr TShiftKey ssAlt = TShiftKey::ssAlt;
inline constexpr TShiftKey ssCtrl = TShiftKey::ssCtrl;

/// Virtual-key codes. Letters and digits have the code of their upper-case character. `Prior` and
/// `Next` are Page Up and Page Down, `Apps` is the menu key.
namespace TZtKey {
/// As `TCustomControl::KeyDown` is given it.
inline constexpr quint16 None = 0, Back = 0x08, Tab = 0x09, Clear = 0x0C, Return = 0x0D,
                         Pause = 0x13, CapsLock = 0x14, Escape = 0x1B, Space = 0x20, Prior = 0x21,
                         Next = 0x22, End = 0x23, Home = 0x24, Left = 0x25, Up = 0x26, Right = 0x27,
                         Down = 0x28, Print = 0x2A, Insert = 0x2D, Delete = 0x2E, Help = 0x2F,
                         Apps = 0x5D, Numpad0 = 0x60, Numpad1 = 0x61, Numpad3 = 0x63,
                         Numpad6 = 0x66, Multiply = 0x6A, Add = 0x6B, Subtract = 0x6D,
                         Decimal = 0x6E, Divide = 0x6F, F1 = 0x70, F2 = 0x71, F3 = 0x72, F7 = 0x76,
                         F8 = 0x77, F9 = 0x78, F10 = 0x79, F11 = 0x7A, F24 = 0x87, NumLock = 0x90,
                         ScrollLock = 0x91, OemPlus = 0xBB, OemComma = 0xBC, OemMinus = 0xBD,
                         OemPeriod = 0xBE;
constexpr quint16 Letter(char upper) { return quint16(upper); } ///< of A to Z and 0 to 9
} // namespace TZtKey

/// The keys that are held, out of Qt's.
ZT_EDITOR_EXPORT TShiftState ZtShiftState(Qt::KeyboardModifiers AModifiers);

/// The key's virtual-key code, the numeric pad told apart from the rest; 0 for a key without one.
ZT_EDITOR_EXPORT quint16 ZtVirtualKey(const QKeyEvent &AEvent);

/// The modifiers that the key is pressed with. AltGr is none of them: what is typed with it comes
/// with an empty state.
ZT_EDITOR_EXPORT TShiftState ZtShiftStateOf(const QKeyEvent &AEvent);

/// The characters that the key types: 13 for Return and Enter, 8 for Backspace, 9 for Tab; none for
/// Delete, and none for a character key with Ctrl or Alt held.
ZT_EDITOR_EXPORT QString ZtCharactersOf(const QKeyEvent &AEvent);
