#include "uZtCodeEdit.h"

using enum TZtExtra;

void TZtCodeEdit::SetExtras(TZtExtras Value)
{
    if (Value & ~(zeTypedPairs | zeZoom | zeFineWheel))
        SetCorrections(FCorrections | TZtCorrection::zcPicture);
    FShownExtras = Value;
    PositionScollBars();
    Redraw();
}
