#pragma once

#include "uZtLineLook.h"
#include "uZtTokenPlacer.h"

#include <QString>

class QInputMethodEvent;

/// What an input method composes at the caret and has not committed yet: its characters, how they
/// look and where the caret stands among them. It is no part of the text; it is put into the line
/// that is drawn. Columns are UTF-16 units of the line without it.
class TZtComposition final {
public:
    /// Takes over the composition of an event, which may be none. Characters that the input method
    /// gives no look are underlined as long as it gives none to any of them.
    void Take(const QInputMethodEvent &AEvent);
    void Clear();

    bool IsEmpty() const { return FText.isEmpty(); }
    const QString &GetText() const { return FText; }
    /// Where the caret stands, in UTF-16 units from the composition's start.
    int GetCaret() const { return FCaret; }
    /// False where the input method wants none to be seen.
    bool IsCaretSeen() const { return FCaretSeen; }

    /// A line with the composition in front of a column; blanks fill what the line lacks before it.
    QString PutInto(QAnyStringView ALine, int AColumn) const;
    /// What stands at a column of the line stands there in the one with the composition.
    int Map(int AColumn, int AAt, bool AStays) const;
    /// Moves the colours of a line behind a column. A run that the column lies in goes on in the
    /// composition, also one that ends with the line, whose length is `ALength`.
    void PutInto(TZtColourRuns &ARuns, int AColumn, int ALength) const;
    /// Moves what else is drawn of a line, and adds the look of the composition.
    void PutInto(TZtLineLook &ALook, int AColumn) const;

private:
    QString FText;
    int FCaret = 0;
    bool FCaretSeen = true;
    std::vector<TZtLineLook::TSpan> FSpans; // from the composition's start
};
