#include "uZtMatchMarks.h"
#include "uZtStringList.h"
TZtMatchMarks::TZtMatchMarks(TStringList *AText) : FText(AText) {}
void TZtMatchMarks::SetSearch(const QString &ASearch, TZtSearchFlags AFlags)
{
    FSearch.emplace(ASearch, AFlags);
    FLength = int(ASearch.size());
}
void TZtMatchMarks::Clear() { FSearch.reset(); }
std::vector<TZtMatchMarks::TMatch> TZtMatchMarks::GetInLine(int, int, int) const { return {}; }
bool TZtMatchMarks::Advance(int) { return false; }
void TZtMatchMarks::Restart() {}
bool TZtMatchMarks::IsComplete() const { return FIsDone; }
void TZtMatchMarks::Survey(std::vector<quint32> &, quint32) const {}
