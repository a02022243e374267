#pragma once

#include "uZtDecorations.h"
#include "uZtDiagnostics.h"
#include "uZtLineChanges.h"
#include "uZtLineMarks.h"

/// What is marked in a text, for all editors that show it.
struct TZtTextMarks {
    explicit TZtTextMarks(TStringList *AText)
        : Decorations(AText), Diagnostics(AText), Marks(AText), Changes(AText)
    {
    }
    TZtDecorations Decorations; ///< the host's
    TZtDiagnostics Diagnostics;
    TZtLineMarks Marks;
    TZtLineChanges Changes;
};
