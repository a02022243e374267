#include "uZtIndentGuides.h"

#include "uZtStringList.h"

#include <algorithm>

namespace {

constexpr int MostUnits = 4096; // of a line that are looked at
constexpr int MostLines = 1000; // on either side
constexpr int Blank = -1;
constexpr int Unindented = 0;

template <typename TUnit>
int IndentationOf(const TUnit *ALine, qsizetype ASize, const TZtCellRules &ARules)
{
    const qsizetype most = std::min<qsizetype>(ASize, MostUnits);
    int cell = 0;
    for (qsizetype i = 0; i < most; ++i) {
        if (ALine[i] == TUnit('\t') && ARules.Tabs)
            cell += ARules.TabWidth - cell % ARules.TabWidth;
        else if (ALine[i] == TUnit(' ') || ALine[i] == TUnit('\t'))
            ++cell;
        else
            return cell;
    }
    return most < ASize ? cell : Blank;
}

// A line's own indentation, or `Blank`.
int OwnIndentation(const TStringList &ALines, int ALine, const TZtCellRules &ARules)
{
    return ALines.View(ALine).visit([&](auto view) {
        if constexpr (std::is_same_v<decltype(view), QStringView>)
            return IndentationOf(view.utf16(), view.size(), ARules);
        else
            return IndentationOf(view.data(), view.size(), ARules);
    });
}

// The indentation of the nearest line from `ALine` on that is not blank.
int Nearest(const TStringList &ALines, int ALine, int AStep, const TZtCellRules &ARules)
{
    const int end = AStep > 0 ? std::min(ALines.GetCount(), ALine + MostLines)
                              : std::max(-1, ALine - MostLines);
    for (int i = ALine; AStep > 0 ? i < end : i > end; i += AStep)
        if (const int cells = OwnIndentation(ALines, i, ARules); cells != Blank)
            return cells;
    return Unindented;
}

int Between(int AAbove, int ABelow)
{
    return AAbove == ABelow ? AAbove : std::min(AAbove, ABelow) + 1;
}

} // namespace

std::vector<int> ZtGuideCells(const TStringList &ALines, int AFirst, int ALast,
                              const TZtCellRules &ARules)
{
    std::vector<int> cells;
    cells.reserve(size_t(ALast - AFirst) + 1);
    for (int i = AFirst; i <= ALast; ++i)
        cells.push_back(OwnIndentation(ALines, i, ARules));
    auto above = cells.begin(); // behind the last line that is not blank
    for (auto line = cells.begin();; ++line) {
        const bool isEnd = line == cells.end();
        if (!isEnd && *line == Blank)
            continue;
        if (above != line) {
            const int before =
                above == cells.begin() ? Nearest(ALines, AFirst - 1, -1, ARules) : *(above - 1);
            const int behind = isEnd ? Nearest(ALines, ALast + 1, 1, ARules) : *line;
            std::fill(above, line, Between(before, behind));
        }
        if (isEnd)
            return cells;
        above = line + 1;
    }
}

TZtGuide ZtCurrentGuide(const TStringList &ALines, int ALine, int AStep, const TZtCellRules &ARules)
{
    const int top = std::max(0, ALine - MostLines);
    const int bottom = std::min(ALines.GetCount() - 1, ALine + MostLines);
    const std::vector<int> cells = ZtGuideCells(ALines, top, bottom, ARules);
    const auto at = [&](int i) { return i < top || i > bottom ? 0 : cells[size_t(i - top)]; };
    TZtGuide guide{(ZtGuideCount(at(ALine), AStep) - 1) * AStep, ALine, ALine};
    // The first guide that is not left of the line's text belongs to the block that it begins.
    const int inner = ZtGuideCount(at(ALine), AStep) * AStep;
    const bool isBlank = OwnIndentation(ALines, ALine, ARules) == Blank;
    for (const int line : {ALine - 1, ALine + 1})
        if (!isBlank && at(line) > inner)
            guide = {inner, line, line};
    if (guide.Cell < 0)
        return {};
    while (at(guide.First - 1) > guide.Cell)
        --guide.First;
    while (at(guide.Last + 1) > guide.Cell)
        ++guide.Last;
    return guide;
}
