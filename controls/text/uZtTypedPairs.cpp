#include "uZtTypedPairs.h"
TZtTypedPairs::TZtTypedPairs(TStringList *AText) : FText(AText), FAnchors(AText) {}
TZtPairEdit TZtTypedPairs::OnCharacter(QChar, const QPoint &, bool, TZtElementKind, QStringView)
{
    return {};
}
bool TZtTypedPairs::OnBackspace(const QPoint &, QStringView) const { return false; }
void TZtTypedPairs::Inserted(const QPoint &) {}
void TZtTypedPairs::CaretMoved(const QPoint &) {}
TZtElementKind ZtKindAround(const TZtColourRuns &, QAnyStringView, int)
{
    return TZtElementKind::ekCode;
}
