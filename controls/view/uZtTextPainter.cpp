#include "uZtTextPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <utility>

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

void LayOut(QTextLayout &ALayout)
{
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    ALayout.setTextOption(option);
    ALayout.beginLayout();
    ALayout.createLine();
    ALayout.endLayout();
}

// A mark that no font sets on its letter stands behind it, with the letter's full width before it:
// it goes to the middle above the letter instead. Answers whether there was one.
bool CentreMarks(QList<QGlyphRun> &ARuns, qreal AWidth)
{
    bool moved = false;
    for (QGlyphRun &run : ARuns) {
        QList<QPointF> places = run.positions();
        for (qsizetype i = 0; i < places.size(); ++i) {
            if (AWidth <= 0 || places[i].x() < AWidth)
                continue;
            const QRectF ink = run.rawFont().boundingRect(run.glyphIndexes().at(i));
            places[i].setX((AWidth - ink.width()) / 2 - ink.left());
            moved = true;
        }
        run.setPositions(places);
    }
    return moved;
}

// What a cell of the exact grid shows instead of nothing.
bool IsMarked(char32_t C)
{
    return (IsBlank(C) && C != u'\t' && C != u' ' && C != QChar::Nbsp) || QChar::isSurrogate(C);
}

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
        return {0, FCharWidth, true};
    const QString text = ToText(C);
    TGlyph glyph{0, 0, false};
    if (AFace.Raw.supportsCharacter(C)) {
        const QList<quint32> indexes = AFace.Raw.glyphIndexesForString(text);
        if (!indexes.isEmpty())
            glyph.Index = indexes.first();
    }
    const qreal advance = glyph.Index
                              ? AFace.Raw.advancesForGlyphIndexes({glyph.Index}).value(0).x()
                              : QFontMetricsF(AFace.Font).horizontalAdvance(text);
    glyph.Advance = std::max(FCharWidth, qRound(advance));
    glyph.FitsCell = glyph.Index && glyph.Advance == FCharWidth && !QChar::isMark(C);
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
    while (i < S.size() && AWidth < AMaxWidth) {
        const char32_t C = NextCodePoint(S, i);
        AWidth += FExact ? FCharWidth : Glyph(face, C).Advance;
    }
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
        if (FExact && !glyph.FitsCell) {
            Squeeze(APainter, QRect(x, FTop, FCharWidth, FLineHeight), ToText(C));
        } else if (glyph.Index) {
            FGlyphs.push_back(glyph.Index);
            FPositions.emplace_back(x, FTop + FAscent);
        } else if (!IsBlank(C)) {
            APainter.setFont(FFace->Font);
            APainter.drawText(QPointF(x, FTop + FAscent), ToText(C));
        }
        x += FExact ? FCharWidth : glyph.Advance;
    }
    DrawLines(APainter, ALeft, x - ALeft);
}

void TZtTextPainter::DrawLines(QPainter &APainter, int ALeft, int AWidth) const
{
    if (!(FStyle & (TFontStyle::fsUnderline | TFontStyle::fsStrikeOut)))
        return;
    const QFontMetrics metrics(FFace->Font);
    const QBrush brush = APainter.pen().brush();
    if (FStyle.testFlag(TFontStyle::fsUnderline))
        APainter.fillRect(ALeft, FTop + FAscent + metrics.underlinePos(), AWidth,
                          metrics.lineWidth(), brush);
    if (FStyle.testFlag(TFontStyle::fsStrikeOut))
        APainter.fillRect(ALeft, FTop + FAscent - metrics.strikeOutPos(), AWidth,
                          metrics.lineWidth(), brush);
}

void TZtTextPainter::End(QPainter &APainter)
{
    if (FGlyphs.empty())
        return;
    FFace->Run.setRawData(FGlyphs.data(), FPositions.data(), int(FGlyphs.size()));
    APainter.drawGlyphRun(QPointF(), FFace->Run);
}

qsizetype TZtTextPainter::CountDrawable(QStringView S)
{
    for (qsizetype i = 0; i < S.size();) {
        const qsizetype at = i;
        if (IsMarked(NextCodePoint(S, i)))
            return at;
    }
    return S.size();
}

void TZtTextPainter::DrawCluster(QPainter &APainter, const QRect &ACells, QStringView S,
                                 const QColor &AFore, const QColor &ABack, TFontStyles AStyle)
{
    if (S.isEmpty() || ACells.isEmpty())
        return;
    Begin(APainter, ACells.top(), AFore, AStyle);
    if (CountDrawable(S) == 0)
        DrawMark(APainter, ACells, S.front().unicode(), ABack);
    else
        Squeeze(APainter, ACells, S.toString());
    DrawLines(APainter, ACells.left(), ACells.width());
}

// A cluster alone stays where it is put, whatever its script; whole strings Qt draws in the order
// in which they are read.
void TZtTextPainter::Squeeze(QPainter &APainter, const QRect &ACells, const QString &S) const
{
    // One glyph, where the font has it, is better than a letter and marks. A mark without a base is
    // shown as if on a blank, which fonts know how to do.
    QString text = S.normalized(QString::NormalizationForm_C);
    if (text.front().isMark())
        text.prepend(QChar::Nbsp);
    QTextLayout layout(text, FFace->Font);
    LayOut(layout);
    const QTextLine line = layout.lineAt(0);
    QList<QGlyphRun> runs = layout.glyphRuns();
    const bool moved = CentreMarks(runs, line.naturalTextWidth());
    qreal left = 0;
    qreal right = line.naturalTextWidth();
    for (const QGlyphRun &run : runs) {
        left = std::min(left, run.boundingRect().left());
        right = std::max(right, run.boundingRect().right());
    }
    const qreal width = right - left;
    APainter.save();
    APainter.setClipRect(ACells, Qt::IntersectClip);
    APainter.translate(ACells.topLeft());
    if (width > ACells.width())
        APainter.scale(ACells.width() / width, 1);
    else
        APainter.translate(int((ACells.width() - width) / 2), 0);
    const QPointF origin(-left, FAscent - line.ascent());
    if (!moved)
        layout.draw(&APainter, origin);
    for (const QGlyphRun &run : std::as_const(runs))
        if (moved)
            APainter.drawGlyphRun(origin, run);
    APainter.restore();
}

void TZtTextPainter::DrawMark(QPainter &APainter, const QRect &ACells, char16_t C,
                              const QColor &ABack) const
{
    const QRect box = ACells.adjusted(0, 1, 0, -1);
    const QColor fore = APainter.pen().color();
    const bool framed = C >= 128 && C < 160;
    APainter.fillRect(box, fore);
    if (framed)
        APainter.fillRect(box.adjusted(1, 1, -1, -1), ABack);
    const char16_t letter = C < 160 ? char16_t((C & 0x7F) ^ 0x40) : u'?';
    APainter.setPen(framed ? fore : ABack);
    Squeeze(APainter, ACells, QChar(letter));
    APainter.setPen(fore);
}
