#include "uZtEditState.h"

#include "uZtNotifier.h"

TZtEditState::TZtEditState(TZtCodeEdit &AEdit, const std::vector<TRow> &ARows)
    : FEdit(AEdit), FRows(ARows), FTold(ARows.size())
{
}

void TZtEditState::Watch(const std::function<bool(const QMetaMethod &)> &AIsConnected)
{
    for (size_t i = 0; i < FRows.size(); ++i) {
        const bool connected = AIsConnected(FRows[i].Signal);
        if (FTold[i].has_value() == connected)
            continue;
        if (connected)
            FTold[i] = FRows[i].Read(FEdit);
        else
            FTold[i].reset();
        FWatched += connected ? 1 : -1;
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
