#include "uZtSearchOptions.h"

#include "uZtStringList.h"

void TZtSearchReplaceOptions::TakeFlags()
{
    Options.setFlag(TZtSearchFlag::sfDown, SearchForward);
    Options.setFlag(TZtSearchFlag::sfMatchCase, CaseSensitive);
    Options.setFlag(TZtSearchFlag::sfWholeWord, WholeWordsOnly);
}

void TZtSearchReplaceOptions::WidenTo(const TStringList &ALines)
{
    StartLine = 0;
    StartPos = 0;
    EndLine = qMax(ALines.GetCount() - 1, 0);
    EndPos = ALines.GetCount() > 0 ? ALines.GetLength(EndLine) : 0;
}
