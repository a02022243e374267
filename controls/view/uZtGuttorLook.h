#pragma once

#include <QRgb>

/// The colours of the gutter's columns.
struct TZtGuttorLook {
    QRgb Face = 0;        ///< behind the columns
    QRgb Text = 0;        ///< the numbers
    QRgb CurrentText = 0; ///< that of the caret's line
    QRgb Changed = 0;     ///< a line that was changed and not saved
    QRgb Saved = 0;       ///< one that was changed and saved since
    QRgb Bookmark = 0;    ///< a bookmark's shape
    QRgb Breakpoint = 0;  ///< a breakpoint's shape
    QRgb Statement = 0;   ///< that of the statement that is executed next
    QRgb Error = 0;       ///< an error's, of a compiler
    QRgb Warning = 0;     ///< a warning's
    QRgb Information = 0; ///< an information's
    quint64 Revision = 0; ///< another one when the columns draw their cells in another way
    bool operator==(const TZtGuttorLook &) const = default;
};
