#include "uZtLineMarks.h"

#include "uZtOverviewRows.h"

#include <algorithm>
#include <bit>

namespace {

// Where a line's mark goes, for a line that a change touches.
int MapLine(const TZtTextChange &AChange, int ALine)
{
    if (AChange.IsWholeText)
        return ALine;
    const QPoint &start = AChange.Start, &removed = AChange.RemovedEnd;
    const QPoint &inserted = AChange.InsertedEnd;
    const bool removesNothing = start == removed;
    const bool lastIsWhole = removed.x() == 0 && (removesNothing || removed.y() > start.y());
    if (ALine == removed.y() && lastIsWhole)
        return inserted.y();
    // A whole line that stands behind what came instead is another one.
    const int lastNew = inserted.y() - (lastIsWhole && inserted.x() == 0 ? 1 : 0);
    return std::max(start.y(), std::min(ALine, lastNew));
}

} // namespace

TZtLineMarks::TZtLineMarks(TStringList *AText) : FListening(AText, this) {}

void TZtLineMarks::Count(TZtLineMarkSet AMarks, int ABy)
{
    for (; AMarks != 0; AMarks &= AMarks - 1)
        FCounts[size_t(std::countr_zero(AMarks))] += ABy;
}

void TZtLineMarks::CheckLine(int ALine) const
{
    if (ALine < 0 || ALine >= FListening.GetLines())
        throw EStringListError(QStringLiteral("There is no line with the index %1.").arg(ALine));
}

void TZtLineMarks::Set(int ALine, TZtLineMark AKind, bool AOn)
{
    CheckLine(ALine);
    if (IsMarked(ALine, AKind) != AOn)
        Toggle(ALine, AKind);
}

bool TZtLineMarks::Toggle(int ALine, TZtLineMark AKind)
{
    CheckLine(ALine);
    const qsizetype i = FItems.Find(ALine);
    const TZtLineMarkSet marks = GetMarks(ALine), toggled = marks ^ ZtMarkBit(AKind);
    if (marks == 0)
        FItems.Insert(i, ALine, toggled);
    else if (toggled == 0)
        FItems.Remove(i, 1);
    else
        FItems.SetValue(i, toggled);
    const bool on = toggled > marks;
    Count(ZtMarkBit(AKind), on ? 1 : -1);
    Tell();
    return on;
}

void TZtLineMarks::Clear()
{
    for (int kind = 0; kind <= int(TZtLineMark::lmLast); ++kind)
        Clear(TZtLineMark(kind));
}

void TZtLineMarks::Take(const TZtLineMarks &AOther)
{
    Clear();
    const int last = FListening.GetLines() - 1;
    for (const TMarked &marked : AOther.GetInLines(0, AOther.FListening.GetLines() - 1))
        for (int kind = 0; kind <= int(TZtLineMark::lmLast); ++kind)
            if (marked.Marks & ZtMarkBit(TZtLineMark(kind)))
                Set(std::min(marked.Line, last), TZtLineMark(kind), true);
}

void TZtLineMarks::Clear(TZtLineMark AKind)
{
    if (GetCount(AKind) == 0)
        return;
    TZtLineItems others;
    FItems.VisitAll([&](int line, TZtLineMarkSet marks) {
        if ((marks &= ~ZtMarkBit(AKind)) != 0)
            others.Insert(others.GetCount(), line, marks);
    });
    FItems.Swap(others);
    FCounts[size_t(AKind)] = 0;
    Tell();
}

TZtLineMarkSet TZtLineMarks::GetMarks(int ALine) const
{
    const qsizetype i = FItems.Find(ALine);
    return i < FItems.GetCount() && FItems.GetLine(i) == ALine ? FItems.GetValue(i) : 0;
}

std::vector<TZtLineMarks::TMarked> TZtLineMarks::GetInLines(int AFirst, int ALast) const
{
    std::vector<TMarked> found;
    for (qsizetype i = FItems.Find(AFirst); i < FItems.GetCount() && FItems.GetLine(i) <= ALast;
         ++i)
        found.push_back({FItems.GetLine(i), FItems.GetValue(i)});
    return found;
}

int TZtLineMarks::Next(int ALine, TZtLineMark AKind, bool AForward) const
{
    if (GetCount(AKind) == 0)
        return -1;
    const qsizetype count = FItems.GetCount();
    qsizetype i = FItems.Find(ALine);
    if (AForward && i < count && FItems.GetLine(i) == ALine)
        ++i;
    if (!AForward)
        --i;
    for (;; i += AForward ? 1 : -1) {
        i = (i + count) % count;
        if (FItems.GetValue(i) & ZtMarkBit(AKind))
            return FItems.GetLine(i);
    }
}

void TZtLineMarks::Survey(std::vector<quint32> &ARows) const
{
    TZtOverviewRows rows(ARows, FListening.GetLines());
    FItems.VisitAll([&](int line, TZtLineMarkSet marks) { rows.Mark(line, marks); });
}

// Puts marks that have moved behind the items before an index, or to those of the last one there.
// Answers the index behind them.
qsizetype TZtLineMarks::Put(qsizetype AIndex, int ALine, TZtLineMarkSet AMarks)
{
    if (AIndex == 0 || FItems.GetLine(AIndex - 1) != ALine) {
        FItems.Insert(AIndex, ALine, AMarks);
        return AIndex + 1;
    }
    const TZtLineMarkSet there = FItems.GetValue(AIndex - 1);
    Count(there & AMarks, -1);
    FItems.SetValue(AIndex - 1, there | AMarks);
    return AIndex;
}

void TZtLineMarks::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    const QPoint &start = AChange.Start, &removed = AChange.RemovedEnd;
    if (FItems.GetCount() == 0 || AChange.GetOldLines() + AChange.GetNewLines() == 2)
        return;
    const std::vector<TMarked> touched = GetInLines(start.y(), removed.y());
    qsizetype i = FItems.Find(start.y());
    FItems.Remove(i, qsizetype(touched.size()));
    FItems.Shift(i, AChange.InsertedEnd.y() - removed.y());
    const int lastLine = FListening.GetLines() - 1;
    for (const TMarked &marked : touched)
        i = Put(i, std::min(MapLine(AChange, marked.Line), lastLine), marked.Marks);
}
