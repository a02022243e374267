#pragma once

#include "uZtBufferSearch.h"
#include "uZtExport.h"

#include <QString>

#include <functional>

class TStringList;

enum class TZtSearchOrigin : quint8 { SearchFromCursor, SearchEntireScope };

/// What is looked for, where, and what is done with it. Lines and positions are 0-based.
struct ZT_EDITOR_EXPORT TZtSearchReplaceOptions {
    QString SearchString;
    bool CaseSensitive = false;
    bool WholeWordsOnly = false;
    bool SearchForward = false; ///< towards the end of the text
    TZtSearchOrigin Origin = TZtSearchOrigin::SearchFromCursor;
    int StartLine = 0; ///< the scope, from here
    int StartPos = 0;
    int EndLine = 0; ///< to here
    int EndPos = 0;
    TZtSearchFlags Options; ///< what the search is run with; follows from the three flags above
    bool Replace = false;
    QString ReplaceWith;
    bool PromptOnReplace = false;
    bool ReplaceAll = false; ///< goes on after each replacement

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
