#include "uZtTextOffsets.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int FewLines = 64; // a run has at least so many, where there are as many

} // namespace

TZtTextOffsets::TZtTextOffsets(TStringList *AText) : FListening(AText, this) { Rebuild(); }

void TZtTextOffsets::Rebuild()
{
    const TStringList *text = FListening.GetText();
    const int count = text ? text->GetCount() : 0;
    FRunLines = std::max(FewLines, int(std::sqrt(double(count)) / 4));
    FRuns.clear();
    FUnits = 0;
    Recount(0, 0, 0, count);
}

qint64 TZtTextOffsets::UnitsOf(int AFirst, int ACount) const
{
    const TStringList *text = FListening.GetText();
    qint64 units = ACount;
    for (int i = AFirst; i < AFirst + ACount; ++i)
        units += text->GetLength(i);
    return units;
}

// The run that holds a line, or the end of all runs.
TZtTextOffsets::TFound TZtTextOffsets::RunOfLine(int ALine) const
{
    TFound found = ALine < FNear.Line ? TFound() : FNear;
    for (; found.Run < FRuns.size(); ++found.Run) {
        const TRun &run = FRuns[found.Run];
        if (ALine < found.Line + run.Lines)
            break;
        found.Line += run.Lines;
        found.Offset += run.Units;
    }
    if (found.Run < FRuns.size())
        FNear = found;
    return found;
}

// Has runs of `ALines` lines from `ALine` on in the place of some others.
void TZtTextOffsets::Recount(size_t AFirst, size_t AEnd, int ALine, int ALines)
{
    FNear = {}; // what is found before the runs that change is found anew
    const int count = ALines == 0 ? 0 : std::max(1, ALines / FRunLines);
    std::vector<TRun> runs;
    for (int i = 0; i < count; ++i) {
        const int begin = int(qint64(ALines) * i / count);
        const int lines = int(qint64(ALines) * (i + 1) / count) - begin;
        runs.push_back({lines, UnitsOf(ALine + begin, lines)});
        FUnits += runs.back().Units;
    }
    const auto at = [this](size_t i) { return FRuns.begin() + std::ptrdiff_t(i); };
    for (size_t i = AFirst; i < AEnd; ++i)
        FUnits -= FRuns[i].Units;
    const size_t same = std::min(runs.size(), AEnd - AFirst);
    std::copy_n(runs.begin(), same, at(AFirst));
    if (same < AEnd - AFirst)
        FRuns.erase(at(AFirst + same), at(AEnd));
    else
        FRuns.insert(at(AEnd), runs.begin() + std::ptrdiff_t(same), runs.end());
}

qint64 TZtTextOffsets::OffsetOf(const QPoint &APlace) const
{
    const TStringList *text = FListening.GetText();
    if (!text || APlace.y() < 0)
        return 0;
    if (APlace.y() >= text->GetCount())
        return GetCount();
    const TFound run = RunOfLine(APlace.y());
    return run.Offset + UnitsOf(run.Line, APlace.y() - run.Line) +
           qBound(0, APlace.x(), text->GetLength(APlace.y()));
}

QPoint TZtTextOffsets::PlaceOf(qint64 AOffset) const
{
    const TStringList *text = FListening.GetText();
    if (!text || AOffset <= 0 || FRuns.empty())
        return {0, 0};
    qint64 rest = std::min(AOffset, GetCount());
    const TFound near = rest < FNear.Offset ? TFound() : FNear;
    rest -= near.Offset;
    size_t run = near.Run;
    int line = near.Line;
    for (; rest >= FRuns[run].Units; line += FRuns[run++].Lines)
        rest -= FRuns[run].Units;
    for (; rest > text->GetLength(line); ++line)
        rest -= text->GetLength(line) + 1;
    return {int(rest), line};
}

void TZtTextOffsets::TextChanged(const TStringList &, const TZtTextChange &AChange)
{
    const bool tooMany = FRuns.size() > 64 * size_t(FRunLines);
    if (AChange.IsWholeText || tooMany || FRuns.empty())
        return Rebuild();
    TFound first = RunOfLine(AChange.Start.y());
    if (first.Run == FRuns.size()) // behind the last line, whose run may grow
        first.Line -= FRuns[--first.Run].Lines;
    else if (AChange.GetOldLines() == 1 && AChange.GetNewLines() == 1) {
        const int more = AChange.InsertedEnd.x() - AChange.RemovedEnd.x();
        FRuns[first.Run].Units += more; // what lies before it is as it was
        FUnits += more;
        return;
    }
    // The run of the last line that was touched, and the one behind where little may be left.
    size_t end = first.Run;
    int lines = AChange.InsertedEnd.y() - AChange.RemovedEnd.y();
    for (int line = first.Line;
         end < FRuns.size() && (line <= AChange.RemovedEnd.y() || lines < FRunLines / 2); ++end) {
        line += FRuns[end].Lines;
        lines += FRuns[end].Lines;
    }
    Recount(first.Run, end, first.Line, lines);
}
