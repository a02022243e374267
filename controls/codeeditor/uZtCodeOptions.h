#pragma once

#include "uZtCustomControl.h"
#include "uZtExport.h"

#include <QFlags>
#include <QObject>

#include <functional>
#include <limits>

/// For Qt's meta-objects; hosts write the names without it.
namespace ZtCodeOptions {
Q_NAMESPACE_EXPORT(ZT_EDITOR_EXPORT)

/// The frame that the editor draws while `Ctl3D` is off: none, or a line of one pixel.
enum class TBorderStyle : quint8 { bsNone, bsSingle };
Q_ENUM_NS(TBorderStyle)

/// What `TZtCodeEdit::Options` switches.
enum class TZtCodeOption : quint8 {
    coCanCollapse = 1,     ///< kept, and without an effect
    coShowGuttor = 2,      ///< the strip left of the text
    coShowRightMargin = 4, ///< the line at the column `RightMargin`
    coVirtualSpace = 8,    ///< with `zcCaret`: the caret may stand right of its line's end
};
Q_ENUM_NS(TZtCodeOption)
Q_DECLARE_FLAGS(TZtCodeOptions, TZtCodeOption)
Q_FLAG_NS(TZtCodeOptions)
Q_DECLARE_OPERATORS_FOR_FLAGS(TZtCodeOptions)

} // namespace ZtCodeOptions

/// Kinds of lines for folding, which is declared and switched off (`IsLineCollapse`).
enum class TZtLineKind : quint8 { lkNotSet, lkNormal, lkMainOpen, lkMainClose, lkHidden };

using ZtCodeOptions::TBorderStyle;
using ZtCodeOptions::TZtCodeOption;
using ZtCodeOptions::TZtCodeOptions;

/// Lets the host recolour a line: true makes the whole line take the two colours. `aLineNr` is
/// 1-based.
using TZtParserLineChangeEvent =
    std::function<bool(int aLineNr, TColor &aBackGroundColor, TColor &aFontColor)>;

/// Told of a press beside a line (0-based) in a column of the gutter (0-based, -1 right of the
/// last).
using TZtGuttorClickEvent = std::function<void(int ALine, int AColumn, TMouseButton AButton)>;

/// The X of a selection point that means "up to the end of the line".
inline constexpr int ZtEndOfLine = std::numeric_limits<int>::max();
