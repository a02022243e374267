#pragma once

#include "uZtExport.h"

#include <QLatin1StringView>
#include <QStringView>

#include <span>

/// What a token is to whoever asks whether it is code: brackets match and words count in code only.
enum class TZtElementKind : quint8 {
    ekCode,
    ekRemark, ///< a comment
    ekText,   ///< what stands in quotes, or between the tags of XML
};

/// The kind of an element of that name, `ekCode` when no lexer has it.
ZT_PARSERS_EXPORT TZtElementKind ZtElementKind(QStringView AElement);

/// A language under the name that its lexer answers, and its elements in the order of the rows that
/// draw them. The second of two rows of one name is "Symbol 2".
struct TZtLanguageElements {
    QLatin1StringView Language;                  ///< never translated
    std::span<const QLatin1StringView> Elements; ///< by row of the lexer's table, 0-based
};

/// Every language with a lexer.
ZT_PARSERS_EXPORT std::span<const TZtLanguageElements> ZtLanguageElements();
