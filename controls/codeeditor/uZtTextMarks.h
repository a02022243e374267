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
    /// The text is another one, whose lines are not those that were marked.
    void Forget()
    {
        Marks.Clear();
        Diagnostics.Clear();
        Changes.Reset();
    }

    TZtDecorations Decorations; ///< the host's; those of a text that is replaced are empty
    TZtDiagnostics Diagnostics;
    TZtLineMarks Marks;
    TZtLineChanges Changes;
};
