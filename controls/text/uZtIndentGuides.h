#pragma once

#include "uZtCells.h"

#include <vector>

class TStringList;

/// The indentation in cells that holds in each of the lines from `AFirst` to `ALast` (0-based, both
/// inside the text). Guides stand at cell 0 and at each step behind it, left of that indentation:
/// see `ZtGuideCount`.
///
/// A line's own indentation is that of its blanks and tabs, 4096 at most. A line that holds nothing
/// else takes what the nearest other lines above and below have in common; where one of them stands
/// deeper, the guide of the deeper one's block goes on through it, and one cell more holds. Those
/// lines are looked for among the next 1000, also outside the range; behind these nothing is
/// indented.
std::vector<int> ZtGuideCells(const TStringList &ALines, int AFirst, int ALast,
                              const TZtCellRules &ARules);

/// How many guides stand in a line in which that indentation holds, `AStep` cells (1 or more) from
/// each other.
constexpr int ZtGuideCount(int AIndentation, int AStep)
{
    return (AIndentation + AStep - 1) / AStep;
}

/// A guide and the lines (0-based) that it runs through.
struct TZtGuide {
    int Cell = -1; ///< -1 for none
    int First = 0;
    int Last = -1;
    bool operator==(const TZtGuide &) const = default;
};

/// The innermost guide of the block that a line (0-based, inside the text) belongs to: the block
/// that it begins or ends, else the one that it stands in. It is followed for 1000 lines each way.
TZtGuide ZtCurrentGuide(const TStringList &ALines, int ALine, int AStep,
                        const TZtCellRules &ARules);
