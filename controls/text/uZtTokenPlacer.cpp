#include "uZtTokenPlacer.h"

#include <algorithm>

// How far a lexer's tokens may lie behind what it reads, when they are no line's own text.
static constexpr qsizetype FarthestBack = 4096;

void TZtTokenPlacer::BeginLine(int ALine) { FLines.push_back({ALine, FText.size()}); }

const TZtTokenPlacer::TLine &TZtTokenPlacer::LineOfPlace() const
{
    auto line = FLines.end() - 1;
    while (line != FLines.begin() && line->Start > FPlace)
        --line;
    return *line;
}

int TZtTokenPlacer::Line() const { return FLines.empty() ? -1 : LineOfPlace().Line; }

int TZtTokenPlacer::Column() const
{
    return FLines.empty() ? 0 : int(FPlace - LineOfPlace().Start);
}

void TZtTokenPlacer::Place(QStringView AToken, qint64 AUnread, const TZtColourRun &ALook,
                           bool ALineBreak)
{
    const qsizetype read = std::clamp<qsizetype>(FText.size() - AUnread, 0, FText.size());
    if (ALineBreak) {
        // Whatever was left of the line.
        const int line = Line();
        const auto next = std::ranges::upper_bound(FLines, line, {}, &TLine::Line);
        FPlace = std::max(FPlace, next == FLines.end() ? FText.size() : next->Start);
    } else if (!AToken.isEmpty() && !PlaceWhole(AToken, read, ALook)) {
        PlaceParts(AToken, read, ALook);
    }
    FRead = read;
}

// A token as it stands in the text: at the start of what was read for it, or at the end, when
// something was passed over, or in what had been read before. Else as many characters as were read.
bool TZtTokenPlacer::PlaceWhole(QStringView AToken, qsizetype ARead, const TZtColourRun &ALook)
{
    const QStringView text = QStringView(FText).first(ARead);
    const qsizetype from = std::max(FPlace, FRead);
    const qsizetype size = AToken.size();
    qsizetype at = -1;
    if (from < ARead && text.sliced(from).startsWith(AToken))
        at = from;
    else if (from <= ARead - size && text.endsWith(AToken))
        at = ARead - size;
    else if (FPlace < ARead)
        at = text.indexOf(AToken, std::max(FPlace, ARead - size - FarthestBack));
    if (at < 0 && from < ARead && ARead - from == size)
        at = from;
    if (at < 0)
        return false;
    Colour(at, at + size, ALook);
    return true;
}

// From the first to the last of the characters that are there, in order.
void TZtTokenPlacer::PlaceParts(QStringView AToken, qsizetype ARead, const TZtColourRun &ALook)
{
    qsizetype start = -1;
    qsizetype end = -1;
    qsizetype i = 0;
    for (qsizetype at = std::max(FPlace, FRead); at < ARead && i < AToken.size(); ++at) {
        if (FText[at] != AToken[i])
            continue;
        if (start < 0)
            start = at;
        end = at + 1;
        ++i;
    }
    if (start >= 0)
        Colour(start, end, ALook);
}

void TZtTokenPlacer::Colour(qsizetype AStart, qsizetype AEnd, const TZtColourRun &ALook)
{
    FPlace = AEnd;
    if (!FSpans.empty() && FSpans.back().End == AStart && FSpans.back().Look == ALook)
        FSpans.back().End = AEnd;
    else
        FSpans.push_back({AStart, AEnd, ALook});
}

TZtColourRuns TZtTokenPlacer::Runs(int ALine, int ALength, const TZtColourRun &APlain) const
{
    TZtColourRuns runs;
    const auto add = [&](qsizetype AStart, qsizetype AEnd, const TZtColourRun &ALook) {
        if (AStart >= AEnd)
            return;
        TZtColourRun run = ALook;
        run.Start = int(AStart);
        run.Length = int(AEnd - AStart);
        TZtColourRun longer = runs.empty() ? TZtColourRun{} : runs.back();
        longer.Start = run.Start;
        longer.Length = run.Length;
        if (!runs.empty() && longer == run)
            runs.back().Length += run.Length;
        else
            runs.push_back(run);
    };
    qsizetype column = 0;
    const auto line = std::ranges::lower_bound(FLines, ALine, {}, &TLine::Line);
    if (line != FLines.end() && line->Line == ALine) {
        const qsizetype start = line->Start;
        const qsizetype limit = line + 1 == FLines.end() ? FText.size() : (line + 1)->Start;
        const qsizetype end = std::min(start + ALength, limit);
        auto span = std::ranges::upper_bound(FSpans, start, {}, &TSpan::End);
        for (; span != FSpans.end() && span->Start < end; ++span) {
            const qsizetype first = std::max(span->Start, start) - start;
            add(column, first, APlain);
            column = std::min(span->End, end) - start;
            add(first, column, span->Look);
        }
    }
    add(column, ALength, APlain);
    return runs;
}
