#pragma once

class QPainter;
class QRect;

/// Draws a collapse button: a white box of 14 × 14 pixels with a black outline in the middle of
/// `Rect` (whose right and bottom are one past its last pixel, as `QRect(left, top, width, height)`
/// gives them). `Expanded` is accepted and not used: hosts get the same box for both states.
void ZtPaintTreeButton(QPainter &Canvas, const QRect &Rect, bool Expanded);
