#pragma once

#include "uZtSet.h"

#include <array>
#include <span>
#include <string_view>

/// A stretch of text that is one token on each of its lines: a comment or a string.
struct TZtSpan {
    std::u16string_view Begin; ///< what opens it; not empty
    std::u16string_view End;   ///< empty where nothing but the line's end closes it
    int Kind;                  ///< the ordinal of its tokens among the lexer's kinds
    /// Whether it goes on in the next line; else it ends with its line at the latest.
    bool OverLines = false;
    /// Whether an end that is written twice is text.
    bool Doubled = false;
    /// Makes the next character text; before a line break, the break too. #0 for none.
    char16_t Escape = u'\0';
};

/// What a lexer knows of its language besides its own tables, for the properties that are off by
/// default.
struct TZtGrammar {
    /// The ordinal of a line break among the lexer's kinds.
    int LineBreak = 0;
    /// The reserved words that the lexer's table lacks, sorted, in upper case unless `MatchCase`.
    std::span<const std::u16string_view> Words;
    bool MatchCase = false; ///< whether "End" and "END" are two words
    /// What belongs to a word though the lexer's words lack it.
    TZtCharSet Letters;
    /// What makes the word behind it a name.
    TZtCharSet NamePrefixes;
    /// The comments and strings; an open one's number from 1 is the `LineKind` of its lines. One
    /// that begins with a letter is looked up by the lexer itself.
    std::span<const TZtSpan> Spans;

    /// Whether the language has words at all.
    constexpr bool HasWords() const { return !Words.empty(); }
    /// The characters that line breaks and spans begin with.
    constexpr std::array<bool, 128> SpanStarts() const
    {
        std::array<bool, 128> Result{};
        Result[u'\r'] = Result[u'\n'] = true;
        for (const TZtSpan &Span : Spans)
            if (Span.Begin[0] < u'A' || Span.Begin[0] == u'`' || Span.Begin[0] > u'z')
                Result[Span.Begin[0]] = true;
        return Result;
    }
};
