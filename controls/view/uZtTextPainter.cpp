#include "uZtTextPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <memory>
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

std::unique_ptr<QTextLayout> LayOut(const QString &S, const QFont &AFont)
{
    auto layout = std::make_unique<QTextLayout>(S, AFont);
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->beginLayout();
    layout->createLine();
    layout->endLayout();
    return layout;
}

// Whether no font has a character of a text.
bool LacksGlyphs(const QTextLayout &ALayout)
{
    const QList<QGlyphRun> runs = ALayout.glyphRuns();
    return std::any_of(runs.begin(), runs.end(),
                       [](const QGlyphRun &run) { return run.glyphIndexes().contains(0); });
}

// In slanted letters where a font has them: some scripts have upright ones alone.
std::unique_ptr<QTextLayout> LayOutSlanted(const QString &S, QFont AFont)
{
    auto layout = LayOut(S, AFont);
    if (!AFont.italic() || !LacksGlyphs(*layout))
        return layout;
    AFont.setItalic(false);
    return LayOut(S, AFont);
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

bool IsJoined(char32_t C)
{
    return C >= 0x600 && QChar::joiningType(C) != QChar::Joining_None &&
           QChar::joiningType(C) != QChar::Joining_Transparent;
}

// How the character next to a letter joins; marks between the two do not count.
QChar::JoiningType JoiningAtEnd(QStringView S)
{
    for (qsizetype i = S.size() - 1; i >= 0; --i) {
        const bool pair = i > 0 && S[i].isLowSurrogate() && S[i - 1].isHighSurrogate();
        const char32_t C = pair ? QChar::surrogateToUcs4(S[i - 1], S[i]) : S[i].unicode();
        if (QChar::joiningType(C) != QChar::Joining_Transparent)
            return QChar::joiningType(C);
        i -= pair;
    }
    return QChar::Joining_None;
}

QChar::JoiningType JoiningAtStart(QStringView S)
{
    for (qsizetype i = 0; i < S.size();)
        if (const auto type = QChar::joiningType(NextCodePoint(S, i));
            type != QChar::Joining_Transparent)
            return type;
    return QChar::Joining_None;
}

// A letter in the form that it has between two others, by Unicode's joining types (the standard's
// section 9.2): a joiner (U+200D) on a side stands for the letter that it is joined to there.
QString Joined(QStringView S, QStringView ABefore, QStringView ABehind)
{
    using enum QChar::JoiningType;
    const auto own = JoiningAtStart(S);
    const auto before = JoiningAtEnd(ABefore);
    const auto behind = JoiningAtStart(ABehind);
    QString text = S.toString();
    if ((own == Joining_Dual || own == Joining_Left) &&
        (behind == Joining_Dual || behind == Joining_Right || behind == Joining_Causing))
        text.append(QChar(0x200D));
    if ((own == Joining_Dual || own == Joining_Right) &&
        (before == Joining_Dual || before == Joining_Left || before == Joining_Causing))
        text.prepend(QChar(0x200D));
    return text;
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
    glyph.FitsCell =
        glyph.Index && glyph.Advance == FCharWidth && !QChar::isMark(C) && !IsJoined(C);
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

void TZtTextPainter::Add(QPainter &APainter, int ALeft, QStringView S, QStringView ABefore,
                         QStringView ABehind)
{
    int x = ALeft;
    for (qsizetype i = 0; i < S.size();) {
        const qsizetype at = i;
        const char32_t C = NextCodePoint(S, i);
        const TGlyph glyph = Glyph(*FFace, C);
        if (FExact && !glyph.FitsCell) {
            const QStringView before = at > 0 ? S.first(at) : ABefore;
            const QStringView behind = i < S.size() ? S.sliced(i) : ABehind;
            Squeeze(APainter, QRect(x, FTop, FCharWidth, FLineHeight),
                    IsJoined(C) ? Joined(S.sliced(at, i - at), before, behind) : ToText(C));
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
                                 const QColor &AFore, const QColor &ABack, TFontStyles AStyle,
                                 QStringView ABefore, QStringView ABehind)
{
    if (S.isEmpty() || ACells.isEmpty())
        return;
    Begin(APainter, ACells.top(), AFore, AStyle);
    if (CountDrawable(S) == 0)
        DrawMark(APainter, ACells, S.front().unicode(), ABack);
    else
        Squeeze(APainter, ACells, Joined(S, ABefore, ABehind));
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
    const auto layout = LayOutSlanted(text, FFace->Font);
    const QTextLine line = layout->lineAt(0);
    QList<QGlyphRun> runs = layout->glyphRuns();
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
        layout->draw(&APainter, origin);
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
