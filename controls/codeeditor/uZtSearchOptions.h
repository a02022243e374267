#pragma once

#include "uZtBufferSearch.h"
#include "uZtExport.h"

#include <QString>

#include <functional>

class TStringList;

/// Where a search begins: at the caret, or at that end of the scope from which it runs.
enum class TZtSearchOrigin : quint8 { SearchFromCursor, SearchEntireScope };

/// What is looked for, where, and what is done with it. Lines and positions are 0-based.
struct ZT_EDITOR_EXPORT TZtSearchReplaceOptions {
    QString SearchString;        ///< within a line; an empty one is found nowhere
    bool CaseSensitive = false;  ///< else letters are compared by Unicode's simple case folding
    bool WholeWordsOnly = false; ///< only where no letter or digit stands beside the match
    bool SearchForward = false;  ///< towards the end of the text
    /// `SearchFromCursor` after each step.
    TZtSearchOrigin Origin = TZtSearchOrigin::SearchFromCursor;
    int StartLine = 0;      ///< the scope, from here
    int StartPos = 0;       ///< 0-based, in UTF-16 units
    int EndLine = 0;        ///< to here
    int EndPos = 0;         ///< behind the last character
    TZtSearchFlags Options; ///< what the search is run with; follows from the three flags above
    bool Replace = false;   ///< replaces what is found
    QString ReplaceWith;    ///< in the place of each match
    bool PromptOnReplace = false; ///< asks before each replacement
    bool ReplaceAll = false;      ///< goes on after each replacement

    /// Makes `Options` what the three flags say.
    void TakeFlags();
    /// Makes the scope the whole text.
    void WidenTo(const TStringList &ALines);
};

/// What message 1027 repeats the search with, in its `WParam`: as the options say, or in a given
/// direction without replacing anything.
enum class TZtSearchAgain : quint8 { saAsGiven, saForward, saBackward };

/// Told of a search what there is to say without a question.
using TZtSearchMessageEvent = std::function<void(const QString &AText)>;
