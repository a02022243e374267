#pragma once

#include "uZtCodeEdit.h"

// For the sources of the editor that have operations in them.

// Runs an operation, which ends in an orderly way whatever it raises: the caret in the text, one
// step of undo, one `OnChange`, as far as these are corrected.
template <typename TStep> void TZtCodeEdit::Operate(TStep AStep)
{
    if (IsWatched())
        return Watched([&] { Operate(AStep); });
    if (!FCorrections)
        return AStep();
    const THold hold(*this);
    BeginOperation();
    TZtFirstException raised;
    raised.Run(AStep);
    raised.Run([this] { EndOperation(); });
    raised.Raise();
}
