#pragma once

#include "uZtDecorations.h"

class QColor;
class QPainter;
class QRect;

/// Draws a collapse button: a white box of 14 × 14 pixels with a black outline in the middle of
/// `Rect` (whose right and bottom are one past its last pixel, as `QRect(left, top, width, height)`
/// gives them). `Expanded` is accepted and not used: hosts get the same box for both states.
void ZtPaintTreeButton(QPainter &Canvas, const QRect &Rect, bool Expanded);

/// Draws a line below text whose letters stand at `ATop` - 2, in the two pixels there and, where it
/// is wavy, the one below. Lines that meet go on from each other.
void ZtPaintUnderline(QPainter &Canvas, TZtUnderline AKind, int ALeft, int AWidth, int ATop,
                      const QColor &AColour);

/// Draws an arrow from the left to the right of `ACells`, for a tab.
void ZtPaintTabArrow(QPainter &Canvas, const QRect &ACells, const QColor &AColour);
