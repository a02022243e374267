#include "uZtLineChanges.h"

#include "uZtOverviewRows.h"

#include <algorithm>

namespace {

// What is known of a line. A line that was saved and then changed is both: it is saved again when
// the change is undone.
constexpr quint32 IsChanged = 1;
constexpr quint32 WasSaved = 2;

TZtLineState StateOf(quint32 AValue)
{
    if (AValue & IsChanged)
        return TZtLineState::csChanged;
    return AValue & WasSaved ? TZtLineState::csSaved : TZtLineState::csNone;
}

// The lines that a change leaves others than they were, the last one below the first where it only
// removed whole lines.
struct TTouched {
    int First;
    int Last;
    bool IsLastWhole; // the line behind what was removed is the one behind what was inserted
    TTouched(const TStringList &AText, const TZtTextChange &AChange)
        : First(AChange.Start.y()), Last(AChange.InsertedEnd.y()),
          IsLastWhole(AChange.RemovedEnd.x() == 0 && AChange.InsertedEnd.x() == 0)
    {
        if (IsLastWhole)
            --Last;
        else if (First < Last && AChange.Start == AChange.RemovedEnd &&
                 AText.GetLength(First) == AChange.Start.x() &&
                 AText.GetLength(Last) == AChange.InsertedEnd.x())
            ++First; // lines were inserted behind its end
    }
};

} // namespace

TZtLineChanges::TZtLineChanges(TStringList *AText) : FListening(AText, this) {}

// --- the runs ------------------------------------------------------------------------------------

quint32 TZtLineChanges::ValueAt(int ALine) const
{
    const qsizetype i = FRuns.Find(ALine + 1);
    return i == 0 ? 0 : FRuns.GetValue(i - 1);
}

// Has a run begin at a line, and answers its index.
qsizetype TZtLineChanges::Split(int ALine)
{
    const qsizetype i = FRuns.Find(ALine);
    if (i == FRuns.GetCount() || FRuns.GetLine(i) != ALine)
        FRuns.Insert(i, ALine, ValueAt(ALine));
    return i;
}

// Joins each of some runs with the one before it where both are the same.
void TZtLineChanges::Merge(qsizetype AFrom, qsizetype ATo)
{
    for (qsizetype i = std::min(ATo, FRuns.GetCount()); i-- > AFrom;)
        if (FRuns.GetValue(i) == (i == 0 ? 0 : FRuns.GetValue(i - 1)))
            FRuns.Remove(i, 1);
}

void TZtLineChanges::Insert(int ALine, int ACount)
{
    const qsizetype i = Split(ALine);
    FRuns.Shift(i, ACount);
    FRuns.Insert(i, ALine, IsChanged);
    Merge(i, i + 2);
}

void TZtLineChanges::Remove(int ALine, int ACount)
{
    const qsizetype end = Split(ALine + ACount), first = FRuns.Find(ALine);
    FRuns.Remove(first, end - first);
    FRuns.Shift(first, -ACount);
    Merge(first, first + 1);
}

void TZtLineChanges::Touch(int AFirst, int ALast)
{
    const qsizetype covering = FRuns.Find(AFirst + 1);
    const bool begun = covering > 0 && FRuns.GetValue(covering - 1) & IsChanged;
    if (begun && (covering == FRuns.GetCount() || FRuns.GetLine(covering) > ALast))
        return;
    const qsizetype first = Split(AFirst);
    const qsizetype end = ALast + 1 < FListening.GetLines() ? Split(ALast + 1) : FRuns.GetCount();
    for (qsizetype i = first; i < end; ++i)
        FRuns.SetValue(i, FRuns.GetValue(i) | IsChanged);
    Merge(first, end + 1);
}

// Nothing begins behind the text.
void TZtLineChanges::Trim()
{
    qsizetype last = FRuns.GetCount() - 1;
    for (; last >= 0 && FRuns.GetLine(last) >= FListening.GetLines(); --last)
        FRuns.Remove(last, 1);
}

template <typename TMap> void TZtLineChanges::MapAll(TMap AMap)
{
    TZtLineItems runs;
    quint32 last = 0;
    FRuns.VisitAll([&](int line, quint32 value) {
        const quint32 mapped = AMap(value);
        if (mapped != last)
            runs.Insert(runs.GetCount(), line, mapped);
        last = mapped;
    });
    FRuns.Swap(runs);
    Tell();
}

// --- what became of the lines --------------------------------------------------------------------

TZtLineState TZtLineChanges::GetState(int ALine) const
{
    const bool there = 0 <= ALine && ALine < FListening.GetLines();
    return there ? StateOf(ValueAt(ALine)) : TZtLineState::csNone;
}

void TZtLineChanges::MarkSaved()
{
    MapAll([](quint32 value) { return value == 0 ? 0 : WasSaved; });
}

void TZtLineChanges::Reset()
{
    FRuns.Clear();
    Tell();
}

void TZtLineChanges::Restore()
{
    MapAll([](quint32 value) { return value & ~IsChanged; });
}

void TZtLineChanges::Survey(std::vector<quint32> &ARows) const
{
    const int lines = FListening.GetLines();
    TZtOverviewRows rows(ARows, lines);
    TZtLineState state = TZtLineState::csNone; // of the lines from `first` on
    int first = 0;
    const auto begin = [&](int line, quint32 value) {
        const TZtLineState next = StateOf(value);
        if (next == state)
            return;
        if (state != TZtLineState::csNone)
            rows.Mark(first, line - 1, 1u << quint32(state));
        state = next;
        first = line;
    };
    FRuns.VisitAll(begin);
    if (state != TZtLineState::csNone)
        rows.Mark(first, lines - 1, 1u << quint32(state));
}

void TZtLineChanges::TextChanged(const TStringList &AText, const TZtTextChange &AChange)
{
    if (AChange.IsWholeText) {
        FRuns.Clear();
        if (FIsWholeTextMarked)
            Touch(0, FListening.GetLines() - 1);
        return;
    }
    TTouched touched(AText, AChange);
    const int more = AChange.GetNewLines() - AChange.GetOldLines();
    const int behind = touched.IsLastWhole ? 0 : 1; // lines that stay behind others
    if (more > 0)
        Insert(AChange.RemovedEnd.y() + behind, more);
    else if (more < 0)
        Remove(AChange.InsertedEnd.y() + behind, -more);
    if (touched.Last < touched.First) // the line that whole lines were removed before, or the last
        touched.First = touched.Last = std::min(touched.First, FListening.GetLines() - 1);
    Touch(touched.First, touched.Last);
    Trim();
}
