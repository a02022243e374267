#pragma once

#include "uZtDecorations.h"

#include <optional>
#include <vector>

/// What is drawn of a line besides its text in the lexer's colours. Columns are UTF-16 units.
struct TZtLineLook {
    struct TSpan {
        int From; ///< may lie before the line's start
        int To;   ///< or behind its end
        TZtDecorationStyle Style;
    };
    struct TGuide {
        int Cell;
        TColor Colour;
    };
    std::vector<TSpan> Spans;                  ///< the lowest first
    std::vector<TGuide> Guides;                ///< lines down a column of cells
    std::optional<TColor> Back = std::nullopt; ///< of the whole line, where the text has none
    int BlanksFrom = 0;                        ///< blanks are seen from here
    int BlanksTo = 0;                          ///< to here

    void Clear();
    /// The style of the character at a column: of all spans there, each over those before.
    TZtDecorationStyle StyleAt(int AColumn) const;
    /// Where after a column something changes next, `AEnd` if nowhere before that.
    int StopBehind(int AColumn, int AEnd) const;
    /// Whether a box begins or ends at a column.
    bool IsBoxEdge(int AColumn) const;
};
