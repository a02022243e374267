#pragma once

#include "uZtGuttorLook.h"
#include "uZtLineMarks.h"

#include <vector>

class QPainter;
class QRectF;

/// Which of a line's marks are drawn, those below first: what happens there now over what stands
/// there, a compiler's worst word only where nothing else is, and a bookmark below them all.
std::vector<TZtLineMark> ZtMarksInSight(TZtLineMarkSet AMarks);

/// Draws a mark into a square, sharp at every size and told from the others by its shape alone: a
/// ribbon, a disc, an arrow, a cross in a disc, a triangle, a letter i in a square. A host's own
/// kinds have no shape.
void ZtPaintMark(QPainter &APainter, const QRectF &ABox, TZtLineMark AKind,
                 const TZtGuttorLook &ALook);
