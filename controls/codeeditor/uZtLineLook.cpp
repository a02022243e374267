#include "uZtLineLook.h"

#include <algorithm>

void TZtLineLook::Clear()
{
    Spans.clear();
    Guides.clear();
    Back.reset();
    BlanksFrom = BlanksTo = 0;
}

TZtDecorationStyle TZtLineLook::StyleAt(int AColumn) const
{
    TZtDecorationStyle style;
    for (const TSpan &span : Spans)
        if (span.From <= AColumn && AColumn < span.To)
            style.PutOver(span.Style);
    return style;
}

int TZtLineLook::StopBehind(int AColumn, int AEnd) const
{
    int stop = AEnd;
    for (const TSpan &span : Spans)
        for (const int border : {span.From, span.To})
            if (border > AColumn)
                stop = std::min(stop, border);
    for (const int border : {BlanksFrom, BlanksTo})
        if (border > AColumn)
            stop = std::min(stop, border);
    return stop;
}

bool TZtLineLook::IsBoxEdge(int AColumn) const
{
    return std::any_of(Spans.begin(), Spans.end(), [=](const TSpan &span) {
        return span.Style.Box && (span.From == AColumn || span.To == AColumn);
    });
}
