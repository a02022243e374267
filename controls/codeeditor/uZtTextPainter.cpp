#include "uZtTextPainter.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>

#include <algorithm>

namespace {

// The code point at `i`, which moves past it. A lone surrogate stands for itself.
char32_t NextCodePoint(QStringView S, qsizetype &i)
{
    const QChar C = S[i++];
    if (C.isHighSurrogate() && i < S.size() && S[i].isLowSurrogate())
        return QChar::surrogateToUcs4(C, S[i++]);
    return C.unicode();
}

QString ToText(char32_t C) { return QString::fromUcs4(&C, 1); }

// Control characters take a cell and draw nothing; fonts disagree about them.
bool IsBlank(char32_t C) { return C <= 32 || C == 127 || (C >= 128 && C <= 160); }

} // namespace

void TZtTextPainter::SetFont(const QFont &AFont)
{
    if (FMeasured && AFont == FFont)
        return;
    FFont = AFont;
    FMeasured = true;
    const QFontMetrics metrics(FFont);
    FCharWidth = metrics.horizontalAdvance(QStringLiteral("X"));
    FLineHeight = metrics.height();
    FAscent = metrics.ascent();
    for (TFace &face : FFaces)
        face = TFace();
}

TZtTextPainter::TFace &TZtTextPainter::Face(TFontStyles AStyle)
{
    const bool bold = AStyle.testFlag(TFontStyle::fsBold);
    const bool italic = AStyle.testFlag(TFontStyle::fsItalic);
    TFace &face = FFaces[size_t(bold) + 2 * size_t(italic)];
    if (!face.Ready) {
        face.Ready = true;
        face.Font = FFont;
        face.Font.setBold(bold || FFont.bold());
        face.Font.setItalic(italic || FFont.italic());
        face.Raw = QRawFont::fromFont(face.Font);
        for (char32_t C = 0; C < 256; ++C)
            face.Latin1[C] = Measure(face, C);
    }
    return face;
}

TZtTextPainter::TGlyph TZtTextPainter::Measure(const TFace &AFace, char32_t C) const
{
    if (IsBlank(C))
        return {0, FCharWidth};
    const QString text = ToText(C);
    TGlyph glyph{0, 0};
    if (AFace.Raw.supportsCharacter(C)) {
        const QList<quint32> indexes = AFace.Raw.glyphIndexesForString(text);
        if (!indexes.isEmpty())
            glyph.Index = indexes.first();
    }
    const qreal advance = glyph.Index
                              ? AFace.Raw.advancesForGlyphIndexes({glyph.Index}).value(0).x()
                              : QFontMetricsF(AFace.Font).horizontalAdvance(text);
    glyph.Advance = std::max(FCharWidth, qRound(advance));
    return glyph;
}

TZtTextPainter::TGlyph TZtTextPainter::Glyph(TFace &AFace, char32_t C)
{
    if (C < 256)
        return AFace.Latin1[C];
    const auto known = AFace.Others.constFind(C);
    if (known != AFace.Others.constEnd())
        return *known;
    return *AFace.Others.insert(C, Measure(AFace, C));
}

qsizetype TZtTextPainter::Fit(QStringView S, TFontStyles AStyle, int AMaxWidth, int &AWidth)
{
    TFace &face = Face(AStyle);
    AWidth = 0;
    qsizetype i = 0;
    while (i < S.size() && AWidth < AMaxWidth)
        AWidth += Glyph(face, NextCodePoint(S, i)).Advance;
    return i;
}

void TZtTextPainter::Draw(QPainter &APainter, int AX, int AY, QStringView S, const QColor &AColor,
                          TFontStyles AStyle)
{
    TFace &face = Face(AStyle);
    APainter.setPen(AColor);
    FGlyphs.clear();
    FPositions.clear();
    const QPointF origin(AX, AY + FAscent);
    int x = 0;
    for (qsizetype i = 0; i < S.size();) {
        const char32_t C = NextCodePoint(S, i);
        const TGlyph glyph = Glyph(face, C);
        if (glyph.Index) {
            FGlyphs.push_back(glyph.Index);
            FPositions.emplace_back(x, 0);
        } else if (!IsBlank(C)) {
            APainter.setFont(face.Font);
            APainter.drawText(origin + QPointF(x, 0), ToText(C));
        }
        x += glyph.Advance;
    }
    if (!FGlyphs.empty()) {
        QGlyphRun run;
        run.setRawFont(face.Raw);
        run.setRawData(FGlyphs.data(), FPositions.data(), int(FGlyphs.size()));
        APainter.drawGlyphRun(origin, run);
    }
    if (!(AStyle & (TFontStyle::fsUnderline | TFontStyle::fsStrikeOut)))
        return;
    const QFontMetrics metrics(face.Font);
    if (AStyle.testFlag(TFontStyle::fsUnderline))
        APainter.fillRect(AX, AY + FAscent + metrics.underlinePos(), x, metrics.lineWidth(),
                          AColor);
    if (AStyle.testFlag(TFontStyle::fsStrikeOut))
        APainter.fillRect(AX, AY + FAscent - metrics.strikeOutPos(), x, metrics.lineWidth(),
                          AColor);
}
