#pragma once

#include "uZtDecorations.h"
#include "uZtDiagnostics.h"
#include "uZtLineChanges.h"
#include "uZtLineMarks.h"

/// What is marked in a text, for all editors that show it.
struct TZtTextMarks {
    /// Listens to `AText`, which may go before; changes are counted from now on.
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
    TZtDiagnostics Diagnostics; ///< what compilers say
    TZtLineMarks Marks;         ///< bookmarks, breakpoints and a host's own
    TZtLineChanges Changes;     ///< which lines were changed, and which of them saved since
};
