#include "uZtLineWrap.h"

#include <QString>

#include <algorithm>
#include <type_traits>

namespace {

// Calls `AStep` with a line as it is stored.
template <typename TStep> auto Visit(QAnyStringView ALine, TStep AStep)
{
    return ALine.visit([&](auto S) {
        if constexpr (std::is_same_v<decltype(S), QUtf8StringView>)
            return AStep(QStringView());
        else
            return AStep(S);
    });
}

bool IsBlank(QChar C) { return C == u' ' || C == u'\t'; }

// How many units of a row are no further right than its width.
int Fitting(QAnyStringView ARow, int AWidth, const TZtCellRules &ARules)
{
    TZtCellReader reader(ARow, ARules);
    int end = 0;
    for (TZtCellSpan span; reader.Next(span);) {
        if (span.Cell + span.Width > AWidth && (span.IsCluster || span.Cell >= AWidth))
            return end > 0 ? end : span.Length;
        const int room = AWidth - span.Cell;
        if (!span.IsCluster && span.Length > room)
            return span.Start + room;
        end = span.Start + span.Length;
    }
    return end;
}

// Where a row is broken best, if so many units fit in. A blank with a mark is none.
template <typename TView> int BestBreak(TView ARow, int AFitting)
{
    int end = AFitting;
    if (!IsBlank(ARow[end]))
        while (end > AFitting / 2 && !IsBlank(ARow[end - 1]))
            --end;
    if (end <= AFitting / 2 || QChar(ARow[end]).isMark())
        end = AFitting;
    while (end < ARow.size() && QChar(ARow[end]) == u' ' &&
           (end + 1 == ARow.size() || !QChar(ARow[end + 1]).isMark()))
        ++end;
    return end;
}

} // namespace

QAnyStringView ZtPartOf(QAnyStringView ALine, int AFrom, int ATo)
{
    return Visit(ALine, [&](auto S) -> QAnyStringView { return S.sliced(AFrom, ATo - AFrom); });
}

int ZtRowEnd(QAnyStringView ALine, int AFrom, int ATo, int AWidth, const TZtCellRules &ARules)
{
    const QAnyStringView row = ZtPartOf(ALine, AFrom, ATo);
    const int fitting = Fitting(row, std::max(AWidth, 1), ARules);
    if (fitting >= ATo - AFrom)
        return ATo;
    return AFrom + Visit(row, [&](auto S) { return BestBreak(S, fitting); });
}
