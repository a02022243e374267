#include "uZtMarkShapes.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

using enum TZtLineMark;

namespace {

// Shapes in a square from (0, 0) to (1, 1).

QPainterPath Polygon(std::initializer_list<QPointF> APoints)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QList<QPointF>(APoints)));
    path.closeSubpath();
    return path;
}

QPainterPath Ribbon()
{
    return Polygon({{0.22, 0.05}, {0.78, 0.05}, {0.78, 0.95}, {0.5, 0.7}, {0.22, 0.95}});
}

QPainterPath Disc()
{
    QPainterPath path;
    path.addEllipse(QRectF(0.1, 0.1, 0.8, 0.8));
    return path;
}

QPainterPath Arrow()
{
    return Polygon({{0.08, 0.36},
                    {0.48, 0.36},
                    {0.48, 0.12},
                    {0.94, 0.5},
                    {0.48, 0.88},
                    {0.48, 0.64},
                    {0.08, 0.64}});
}

QPainterPath Cross()
{
    QPainterPath cross;
    cross.moveTo(0.34, 0.34);
    cross.lineTo(0.66, 0.66);
    cross.moveTo(0.66, 0.34);
    cross.lineTo(0.34, 0.66);
    QPainterPathStroker pen;
    pen.setWidth(0.13);
    return Disc().subtracted(pen.createStroke(cross));
}

QPainterPath Triangle()
{
    QPainterPath path = Polygon({{0.5, 0.06}, {0.97, 0.92}, {0.03, 0.92}});
    path.addRect(QRectF(0.44, 0.36, 0.12, 0.28)); // the holes of "!"
    path.addRect(QRectF(0.44, 0.71, 0.12, 0.12));
    return path;
}

QPainterPath Square()
{
    QPainterPath path;
    path.addRect(QRectF(0.12, 0.12, 0.76, 0.76));
    path.addRect(QRectF(0.44, 0.22, 0.12, 0.12)); // the holes of "i"
    path.addRect(QRectF(0.44, 0.42, 0.12, 0.36));
    return path;
}

struct TShape {
    TZtLineMark Kind;
    QPainterPath (*Path)();
    QRgb TZtGuttorLook::*Colour;
};

constexpr std::array Shapes = {
    TShape{lmBookmark, Ribbon, &TZtGuttorLook::Bookmark},
    TShape{lmInformation, Square, &TZtGuttorLook::Information},
    TShape{lmWarning, Triangle, &TZtGuttorLook::Warning},
    TShape{lmError, Cross, &TZtGuttorLook::Error},
    TShape{lmBreakpoint, Disc, &TZtGuttorLook::Breakpoint},
    TShape{lmStatement, Arrow, &TZtGuttorLook::Statement},
};

} // namespace

std::vector<TZtLineMark> ZtMarksInSight(TZtLineMarkSet AMarks)
{
    const auto has = [AMarks](TZtLineMark kind) { return (AMarks & ZtMarkBit(kind)) != 0; };
    std::vector<TZtLineMark> marks;
    if (has(lmBookmark))
        marks.push_back(lmBookmark);
    for (int kind = int(lmHost); kind <= int(lmLast); ++kind)
        if (has(TZtLineMark(kind)))
            marks.push_back(TZtLineMark(kind));
    const bool alone = !has(lmBreakpoint) && !has(lmStatement);
    for (const TZtLineMark kind : {lmError, lmWarning, lmInformation}) {
        if (!alone || !has(kind))
            continue;
        marks.push_back(kind);
        break;
    }
    for (const TZtLineMark kind : {lmBreakpoint, lmStatement})
        if (has(kind))
            marks.push_back(kind);
    return marks;
}

void ZtPaintMark(QPainter &APainter, const QRectF &ABox, TZtLineMark AKind,
                 const TZtGuttorLook &ALook)
{
    for (const TShape &shape : Shapes) {
        if (shape.Kind != AKind)
            continue;
        APainter.save();
        APainter.setRenderHint(QPainter::Antialiasing);
        APainter.translate(ABox.topLeft());
        APainter.scale(ABox.width(), ABox.height());
        // A rim of the background keeps shapes apart that lie on each other.
        APainter.setPen(QPen(QColor(ALook.Face), 0.07));
        APainter.setBrush(QColor(ALook.*shape.Colour));
        APainter.drawPath(shape.Path());
        APainter.restore();
    }
}
