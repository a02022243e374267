#pragma once

#include "uZtTypes.h"

#include <QFont>
#include <QHash>
#include <QRawFont>
#include <QString>

#include <array>
#include <vector>

class QColor;
class QPainter;

/// Draws text on a grid of cells of whole pixels. A character takes one cell, or what it draws
/// where that is wider; a font's own advance, which is rarely a whole number, does not add up.
class TZtTextPainter {
public:
    /// Measures the font; nothing happens when it is the current one.
    void SetFont(const QFont &AFont);

    /// The width of an "X", in pixels.
    int CharWidth() const { return FCharWidth; }
    /// The height of a line, in pixels.
    int LineHeight() const { return FLineHeight; }

    /// How many characters of `S` start left of `AMaxWidth` pixels; `AWidth` receives what they
    /// take.
    qsizetype Fit(QStringView S, TFontStyles AStyle, int AMaxWidth, int &AWidth);

    /// Draws `S` without a background. (AX, AY) is the top left corner of its first cell.
    void Draw(QPainter &APainter, int AX, int AY, QStringView S, const QColor &AColor,
              TFontStyles AStyle);

private:
    struct TGlyph {
        quint32 Index; // 0: the font has none and another one is asked
        int Advance;
    };
    // One of the four combinations of bold and italic.
    struct TFace {
        bool Ready = false;
        QFont Font;
        QRawFont Raw;
        std::array<TGlyph, 256> Latin1;
        QHash<char32_t, TGlyph> Others;
    };

    TFace &Face(TFontStyles AStyle);
    TGlyph Measure(const TFace &AFace, char32_t C) const;
    TGlyph Glyph(TFace &AFace, char32_t C);

    QFont FFont;
    bool FMeasured = false;
    int FCharWidth = 0;
    int FLineHeight = 0;
    int FAscent = 0;
    std::array<TFace, 4> FFaces;
    std::vector<quint32> FGlyphs;
    std::vector<QPointF> FPositions;
};
