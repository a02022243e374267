#pragma once

#include <QRgb>

/// The colours of the gutter's columns.
struct TZtGuttorLook {
    QRgb Face = 0;
    QRgb Text = 0;
    QRgb CurrentText = 0;
    QRgb Changed = 0;
    QRgb Saved = 0;
    QRgb Bookmark = 0;
    QRgb Breakpoint = 0;
    QRgb Statement = 0;
    QRgb Error = 0;
    QRgb Warning = 0;
    QRgb Information = 0;
    quint64 Revision = 0; ///< another one when the columns draw their cells in another way
    bool operator==(const TZtGuttorLook &) const = default;
};
