#pragma once

#include "uZtExport.h"

#include <QFlags>
#include <QObject>

/// For Qt's meta-objects; hosts write the names without it.
namespace ZtExtras {
Q_NAMESPACE_EXPORT(ZT_EDITOR_EXPORT)

/// What the editor shows and offers beside the text. None of it unless the host says so.
/// `ZtDrawnExtras` bring `zcPicture` with them.
enum class TZtExtra : quint32 {
    zeLineNumbers = 1 << 0,     ///< a gutter column of line numbers
    zeMarks = 1 << 1,           ///< one of bookmarks and a host's marks; Ctrl+F2, F2, Shift+F2
    zeChangeBars = 1 << 2,      ///< one of lines changed and saved
    zeRuler = 1 << 3,           ///< the whole text in the height of the vertical scroll bar
    zeDiagnostics = 1 << 4,     ///< what compilers say of the text; F8, Shift+F8
    zeMatchMarks = 1 << 5,      ///< all matches of the last search, until Escape
    zeWordMarks = 1 << 6,       ///< the word at the caret wherever else it stands
    zeBrackets = 1 << 7,        ///< the pair of the bracket at the caret; Ctrl+M, Ctrl+Shift+M
    zeGuides = 1 << 8,          ///< lines down the columns of the indentation
    zeCurrentLine = 1 << 9,     ///< a background of its own for the caret's line
    zeBlanks = 1 << 10,         ///< blanks and tabs are seen
    zeSelectedBlanks = 1 << 11, ///< those that are selected
    zeTypedPairs = 1 << 12,     ///< brackets and quotes come and go in pairs
    zeZoom = 1 << 13,           ///< Ctrl+wheel, Ctrl+Plus, Ctrl+Minus, Ctrl+0, a pinch
    zeFineWheel = 1 << 14,      ///< small steps of a touchpad count, and sideways ones
    zeDragText = 1 << 15,       ///< selected text is dragged with the mouse, and text is dropped
    zePrimary = 1 << 16,        ///< the desktop's primary selection, where it has one
    zeContextMenu = 1 << 17,    ///< a menu of the usual commands where the host has set none
    zeRichCopy = 1 << 18,       ///< what is copied is also there with its colours
};
Q_ENUM_NS(TZtExtra)
Q_DECLARE_FLAGS(TZtExtras, TZtExtra)
Q_FLAG_NS(TZtExtras)
Q_DECLARE_OPERATORS_FOR_FLAGS(TZtExtras)

} // namespace ZtExtras

using ZtExtras::TZtExtra;
using ZtExtras::TZtExtras;

/// All of them, but `zeBlanks`, which few people want to see all the time.
constexpr TZtExtras ZtAllExtras()
{
    return TZtExtras::fromInt(0x7FFFF & ~quint32(TZtExtra::zeBlanks));
}

/// Those that are drawn, line by line.
constexpr TZtExtras ZtDrawnExtras() { return TZtExtras::fromInt(0x1FFF); }

/// What the keys of the extras do, and the `WParam` of message 1029, which hosts post for it.
enum class TZtExtraCommand : quint8 {
    ecToggleBookmark,
    ecNextBookmark,
    ecPreviousBookmark,
    ecNextDiagnostic,
    ecPreviousDiagnostic,
    ecGoToBracket,
    ecSelectToBracket,
    ecZoomIn,
    ecZoomOut,
    ecZoomReset,
    ecContextMenu,
};
