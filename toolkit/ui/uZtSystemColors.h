#pragma once

#include "uZtTypes.h"

#include <QColor>
#include <QPalette>

/// `AColor` as a plain `$00BBGGRR` value: a system colour is looked up in `APalette`, so that a
/// dark palette gives dark colours. An unknown system index gives black.
TColor ZtColorToRGB(TColor AColor, const QPalette &APalette);

/// `ZtColorToRGB` for painting.
QColor ZtToQColor(TColor AColor, const QPalette &APalette);
