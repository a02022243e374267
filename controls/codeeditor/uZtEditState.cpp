#include "uZtEditState.h"

#include "uZtNotifier.h"

TZtEditState::TZtEditState(TZtCodeEdit &AEdit, const std::vector<TRow> &ARows)
    : FEdit(AEdit), FRows(ARows), FTold(ARows.size())
{
}

void TZtEditState::Watch(const QMetaMethod &ASignal)
{
    for (size_t i = 0; i < FRows.size(); ++i) {
        if (FRows[i].Signal != ASignal || FTold[i])
            continue;
        FTold[i] = FRows[i].Read(FEdit);
        ++FWatched;
    }
}

void TZtEditState::Tell()
{
    TZtFirstException raised;
    for (size_t i = 0; i < FRows.size(); ++i) {
        if (!FTold[i])
            continue;
        const TValue value = FRows[i].Read(FEdit);
        if (value == *FTold[i])
            continue;
        FTold[i] = value;
        raised.Run([&] { FRows[i].Emit(FEdit, value); });
    }
    raised.Raise();
}
