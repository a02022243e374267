#pragma once

#include "uZtStringList.h"
#include "uZtTextBreaks.h"
#include "uZtTextMarks.h"
#include "uZtUndoHistory.h"

#include <memory>
#include <vector>

class TZtCodeEdit;

/// A text and the editors that show it. It goes with the last of them.
class TZtEditedText {
public:
    TZtEditedText() : FLines(new TStringList) {}
    ~TZtEditedText()
    {
        FLines->OnChanging = nullptr;
        FLines->OnChange = nullptr;
        Marks.reset();
        delete FLines; // which waits while a handler of it runs
    }
    TZtEditedText(const TZtEditedText &) = delete;
    TZtEditedText &operator=(const TZtEditedText &) = delete;

    TStringList *GetLines() const { return FLines; }
    std::vector<TZtCodeEdit *> Editors;
    std::weak_ptr<TZtUndoHistory> History; ///< the one that the editors with `zcUndo` share
    TZtTextBreaks Breaks;                  ///< with `zcText`
    std::unique_ptr<TZtTextMarks> Marks;   ///< from the first one on who asked for them

private:
    TStringList *FLines;
};
