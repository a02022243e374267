#include "uZtWordScan.h"

#include "uZtSet.h"
#include "uZtStringList.h"

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

bool ZtIsPair(const TStringList &ALines, int ALine, int AColumn)
{
    if (AColumn < 0 || AColumn + 1 >= ALines.GetLength(ALine))
        return false;
    const QString line = ALines.GetStrings(ALine);
    return line.at(AColumn).isHighSurrogate() && line.at(AColumn + 1).isLowSurrogate();
}
