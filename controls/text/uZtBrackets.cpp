#include "uZtBrackets.h"
#include "uZtStringList.h"
TZtBrackets::TZtBrackets(TStringList *AText, TZtHighlighter &AColours)
    : FText(AText), FColours(AColours)
{
    AText->AddListener(this);
}
TZtBrackets::~TZtBrackets()
{
    if (FText)
        FText->RemoveListener(this);
}
TZtBracketState TZtBrackets::Find(const QPoint &ACaret)
{
    FCaret = ACaret;
    return FState;
}
bool TZtBrackets::Advance(int)
{
    FColours.GetRevision();
    return false;
}
void TZtBrackets::TextChanged(const TStringList &, const TZtTextChange &) {}
