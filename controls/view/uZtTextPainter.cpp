#include "uZtTextPainter.h"

#include <QFontMetricsF>
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
    FFontStyle.setFlag(TFontStyle::fsUnderline, FFont.underline());
    FFontStyle.setFlag(TFontStyle::fsStrikeOut, FFont.strikeOut());
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
        face.Font.setUnderline(false); // lines are drawn under the whole text
        face.Font.setStrikeOut(false);
        face.Raw = QRawFont::fromFont(face.Font);
        face.Run.setRawFont(face.Raw);
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

void TZtTextPainter::Begin(QPainter &APainter, int ATop, const QColor &AColor, TFontStyles AStyle)
{
    APainter.setPen(AColor);
    FFace = &Face(AStyle);
    FStyle = AStyle | FFontStyle;
    FTop = ATop;
    FGlyphs.clear();
    FPositions.clear();
}

void TZtTextPainter::Add(QPainter &APainter, int ALeft, QStringView S)
{
    int x = ALeft;
    for (qsizetype i = 0; i < S.size();) {
        const char32_t C = NextCodePoint(S, i);
        const TGlyph glyph = Glyph(*FFace, C);
        if (glyph.Index) {
            FGlyphs.push_back(glyph.Index);
            FPositions.emplace_back(x, FTop + FAscent);
        } else if (!IsBlank(C)) {
            APainter.setFont(FFace->Font);
            APainter.drawText(QPointF(x, FTop + FAscent), ToText(C));
        }
        x += glyph.Advance;
    }
    if (!(FStyle & (TFontStyle::fsUnderline | TFontStyle::fsStrikeOut)))
        return;
    const QFontMetrics metrics(FFace->Font);
    const QBrush brush = APainter.pen().brush();
    if (FStyle.testFlag(TFontStyle::fsUnderline))
        APainter.fillRect(ALeft, FTop + FAscent + metrics.underlinePos(), x - ALeft,
                          metrics.lineWidth(), brush);
    if (FStyle.testFlag(TFontStyle::fsStrikeOut))
        APainter.fillRect(ALeft, FTop + FAscent - metrics.strikeOutPos(), x - ALeft,
                          metrics.lineWidth(), brush);
}

void TZtTextPainter::End(QPainter &APainter)
{
    if (FGlyphs.empty())
        return;
    FFace->Run.setRawData(FGlyphs.data(), FPositions.data(), int(FGlyphs.size()));
    APainter.drawGlyphRun(QPointF(), FFace->Run);
}
