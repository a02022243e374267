#pragma once

#include "uZtTypes.h"

#include <QColor>
#include <QPalette>
#include <QVariant>

#include <optional>

/// `AColor` as a plain `$00BBGGRR` value: a system colour is looked up in `APalette`, so that a
/// dark palette gives dark colours. An unknown system index gives black.
TColor ZtColorToRGB(TColor AColor, const QPalette &APalette);

/// The colour that a value stands for: a `TColor` as a number, a `QColor`, or the name of either,
/// such as `clBtnFace`, `red` or `#c0c0c0`. Nothing for all else.
std::optional<TColor> ZtToColor(const QVariant &AValue);

/// `ZtColorToRGB` for painting.
QColor ZtToQColor(TColor AColor, const QPalette &APalette);
