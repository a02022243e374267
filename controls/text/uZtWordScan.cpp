#include "uZtWordScan.h"

#include "uZtSet.h"
#include "uZtStringList.h"

#include <QTextBoundaryFinder>

namespace {

constexpr char16_t LineEnd = u'\r';
constexpr char16_t Stop = u'\0';
constexpr TZtCharSet WordCharacters{{u'0', u'9'}, {u'A', u'Z'}, {u'a', u'z'}};

bool IsWord(char16_t C) { return C > 255 || WordCharacters.contains(C); }

// Reads one character after the other; p is the 1-based position of the one read last.
struct TReader {
    const TStringList &Lines;
    int StartColumn;
    int Line;
    int p;
    QString Text;
    bool AtTextStart = false; // a line before the first was asked for

    TReader(const TStringList &lines, const QPoint &from)
        : Lines(lines), StartColumn(from.x()), Line(from.y()), p(from.x()),
          Text(lines.GetStrings(from.y()))
    {
    }
    char16_t Forward()
    {
        if (++p <= Text.size())
            return Text.at(p - 1).unicode();
        if (Line < Lines.GetCount() - 1)
            Text = Lines.GetStrings(++Line);
        else
            Text.clear();
        p = 0;
        return LineEnd;
    }
    char16_t Backward()
    {
        if (--p >= 1)
            return p <= Text.size() ? Text.at(p - 1).unicode() : Stop;
        if (StartColumn > 0) {
            p = 0;
            return Stop;
        }
        AtTextStart = Line == 0;
        if (AtTextStart)
            Text.clear();
        else
            Text = Lines.GetStrings(--Line);
        p = int(Text.size()) + 1;
        return LineEnd;
    }
};

QPoint JumpForward(const TStringList &ALines, const QPoint &AFrom)
{
    TReader reader(ALines, AFrom);
    char16_t C;
    do
        C = reader.Forward();
    while (IsWord(C));
    do
        C = reader.Forward();
    while (!IsWord(C) && C != LineEnd);
    if (C == LineEnd && reader.Line == ALines.GetCount() - 1)
        reader.p = ALines.GetLength(reader.Line) + 1;
    if (reader.Line > AFrom.y() && AFrom.x() < ALines.GetLength(AFrom.y()))
        return {ALines.GetLength(AFrom.y()), AFrom.y()};
    return {reader.p - 1, reader.Line};
}

QPoint JumpBackward(const TStringList &ALines, const QPoint &AFrom)
{
    TReader reader(ALines, AFrom);
    char16_t C;
    do {
        C = reader.Backward();
        if (reader.AtTextStart)
            return {0, 0};
    } while (!IsWord(C) && C != Stop);
    int p;
    int line;
    do {
        p = reader.p;
        line = reader.Line;
        C = reader.Backward();
    } while (IsWord(C));
    if (line < AFrom.y() && p < ALines.GetLength(line))
        p = ALines.GetLength(line) + 1;
    return {p - 1, line};
}

} // namespace

QPoint ZtWordJump(const TStringList &ALines, const QPoint &AFrom, bool AForward)
{
    return AForward ? JumpForward(ALines, AFrom) : JumpBackward(ALines, AFrom);
}

// --- words of Unicode ----------------------------------------------------------------------------

namespace {

constexpr int Reach = 2048; // how far a line is looked at on either side

enum class TKind { Blank, Word, Other };

// A stretch of a line around a column. Places are counted from the line's start.
class TStretch {
public:
    TStretch(QAnyStringView ALine, int AColumn)
        : FStart(qMax(AColumn - Reach, 0)),
          FEnd(int(qMin<qsizetype>(qint64(AColumn) + Reach, ALine.size()))),
          FText(ALine.visit(
              [&](auto view) { return view.sliced(FStart, FEnd - FStart).toString(); })),
          FFinder(QTextBoundaryFinder::Word, FText)
    {
    }
    int Start() const { return FStart; }
    int End() const { return FEnd; }
    TKind Kind(int AColumn) const
    {
        QChar C = FText.at(AColumn - FStart);
        char32_t code = C.unicode();
        if (C.isHighSurrogate() && AColumn + 1 < FEnd)
            code = QChar::surrogateToUcs4(C, FText.at(AColumn + 1 - FStart));
        else if (C.isLowSurrogate() && AColumn > FStart)
            code = QChar::surrogateToUcs4(FText.at(AColumn - 1 - FStart), C);
        if (QChar::isSpace(code) || code < 32)
            return TKind::Blank;
        return QChar::isLetterOrNumber(code) || QChar::isMark(code) || code == u'_' ? TKind::Word
                                                                                    : TKind::Other;
    }
    // Whether the characters on both sides of a column belong together.
    bool Joins(int AColumn)
    {
        const TKind kind = Kind(AColumn);
        if (kind != Kind(AColumn - 1))
            return false;
        FFinder.setPosition(AColumn - FStart);
        return kind != TKind::Word || !FFinder.isAtBoundary();
    }
    int EndOfRun(int AColumn)
    {
        do
            ++AColumn;
        while (AColumn < FEnd && Joins(AColumn));
        return AColumn;
    }
    int StartOfRun(int AColumn)
    {
        while (AColumn > FStart && Joins(AColumn))
            --AColumn;
        return AColumn;
    }

private:
    int FStart;
    int FEnd;
    QString FText;
    QTextBoundaryFinder FFinder;
};

} // namespace

std::pair<int, int> ZtWordAt(QAnyStringView ALine, int AColumn)
{
    TStretch stretch(ALine, qMin(AColumn, int(ALine.size())));
    for (const int at : {AColumn, AColumn - 1})
        if (stretch.Start() <= at && at < stretch.End() && stretch.Kind(at) == TKind::Word)
            return {stretch.StartOfRun(at), stretch.EndOfRun(at)};
    return {AColumn, AColumn};
}

QPoint ZtUnicodeWordJump(const TStringList &ALines, const QPoint &AFrom, bool AForward)
{
    const int y = AFrom.y();
    const int length = ALines.GetLength(y);
    if (AForward && AFrom.x() >= length)
        return y + 1 < ALines.GetCount() ? QPoint(0, y + 1) : AFrom;
    if (!AForward && AFrom.x() <= 0)
        return y > 0 ? QPoint(ALines.GetLength(y - 1), y - 1) : QPoint(0, 0);
    int x = qMin(AFrom.x(), length);
    TStretch stretch(ALines.View(y), x);
    if (AForward) {
        if (stretch.Kind(x) != TKind::Blank)
            x = stretch.EndOfRun(x);
        while (x < stretch.End() && stretch.Kind(x) == TKind::Blank)
            ++x;
    } else {
        while (x > stretch.Start() && stretch.Kind(x - 1) == TKind::Blank)
            --x;
        if (x > stretch.Start())
            x = stretch.StartOfRun(x - 1);
    }
    return {x, y};
}

bool ZtIsPair(const TStringList &ALines, int ALine, int AColumn)
{
    if (AColumn < 0 || AColumn + 1 >= ALines.GetLength(ALine))
        return false;
    QString pair;
    ALines.AppendTo(ALine, AColumn, 2, pair);
    return pair.at(0).isHighSurrogate() && pair.at(1).isLowSurrogate();
}
