#pragma once

#include "uZtExport.h"
#include "uZtTypes.h"

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QString>

#include <array>
#include <vector>

class QColor;
class QPainter;
class QRect;

/// Draws text on a grid of cells of whole pixels. A character takes one cell, or what it draws
/// where that is wider; a font's own advance, which is rarely a whole number, does not add up.
///
/// On the exact grid each character takes one cell whatever the font says, in the order in which
/// the characters are stored, whatever their script; what takes other room is drawn as a cluster.
class ZT_EDITOR_EXPORT TZtTextPainter {
public:
    /// Measures the font, whose own style is added to that of each text; nothing happens when it is
    /// the current one.
    void SetFont(const QFont &AFont);

    /// Whether text stands on the exact grid. False by default.
    void SetExact(bool Value) { FExact = Value; }

    /// The width of an "X", in pixels.
    int CharWidth() const { return FCharWidth; }
    /// The height of a line, in pixels.
    int LineHeight() const { return FLineHeight; }
    /// Where letters stand, in pixels from the top of a line.
    int Baseline() const { return FAscent; }

    /// How many characters of `S` start left of `AMaxWidth` pixels; `AWidth` receives what they
    /// take.
    qsizetype Fit(QStringView S, TFontStyles AStyle, int AMaxWidth, int &AWidth);

    /// Draws texts without a background, all in one colour and style: `Begin`, an `Add` for each
    /// text, `End`. Few large calls are much cheaper for Qt than many small ones.
    void Begin(QPainter &APainter, int ATop, const QColor &AColor, TFontStyles AStyle);
    /// `ALeft` is the left edge of the text's first cell. `ABefore` and `ABehind` are what stands
    /// beside it, to which the letters of some scripts are joined.
    void Add(QPainter &APainter, int ALeft, QStringView S, QStringView ABefore = {},
             QStringView ABehind = {});
    /// Draws what is left of what was added.
    void End(QPainter &APainter);

    /// How many of the first UTF-16 units of `S` can be drawn as text on the exact grid: those
    /// before the first control character but tab, or lone surrogate.
    static qsizetype CountDrawable(QStringView S);
    /// Draws characters as one, in cells that they never leave: what is wider is made narrower,
    /// what is narrower stands in the middle. A character that `CountDrawable` stops at is a letter
    /// in reversed colours, as in "^A"; of the controls from 128 on, in a frame.
    /// Not to be called between `Begin` and `End`.
    void DrawCluster(QPainter &APainter, const QRect &ACells, QStringView S, const QColor &AFore,
                     const QColor &ABack, TFontStyles AStyle, QStringView ABefore = {},
                     QStringView ABehind = {});

private:
    struct TGlyph {
        quint32 Index; // 0: the font has none and another one is asked
        int Advance;
        bool FitsCell; // the font has it, and it is not drawn over its neighbours
    };
    // One of the four combinations of bold and italic.
    struct TFace {
        bool Ready = false;
        QFont Font;
        QRawFont Raw;
        QGlyphRun Run; // kept, since making one costs as much as drawing a word
        std::array<TGlyph, 256> Latin1;
        QHash<char32_t, TGlyph> Others;
    };

    TFace &Face(TFontStyles AStyle);
    TGlyph Measure(const TFace &AFace, char32_t C) const;
    TGlyph Glyph(TFace &AFace, char32_t C);
    void Squeeze(QPainter &APainter, const QRect &ACells, const QString &S) const;
    void DrawMark(QPainter &APainter, const QRect &ACells, char16_t C, const QColor &ABack) const;
    void DrawLines(QPainter &APainter, int ALeft, int AWidth) const;

    QFont FFont;
    TFontStyles FFontStyle; // the lines that the font itself has
    bool FMeasured = false;
    bool FExact = false;
    int FCharWidth = 0;
    int FLineHeight = 0;
    int FAscent = 0;
    std::array<TFace, 4> FFaces;
    TFace *FFace = nullptr; // of the texts being drawn, and how
    TFontStyles FStyle;
    int FTop = 0;
    std::vector<quint32> FGlyphs;
    std::vector<QPointF> FPositions;
};
