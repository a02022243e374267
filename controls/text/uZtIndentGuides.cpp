#include "uZtIndentGuides.h"
#include <cstddef>
std::vector<int> ZtGuideCells(const TStringList &, int AFirst, int ALast, const TZtCellRules &)
{
    return std::vector<int>(size_t(ALast - AFirst + 1));
}
TZtGuide ZtCurrentGuide(const TStringList &, int, int, const TZtCellRules &) { return {}; }
