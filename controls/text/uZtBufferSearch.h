#pragma once

#include "uZtExport.h"

#include <QAnyStringView>
#include <QFlags>
#include <QObject>
#include <QString>

#include <array>

/// For Qt's meta-objects; hosts write the names without it.
namespace ZtSearch {
Q_NAMESPACE_EXPORT(ZT_EDITOR_EXPORT)

/// How a string is looked for.
enum class TZtSearchFlag : quint8 {
    sfDown = 1,      ///< towards the end of the run
    sfMatchCase = 2, ///< compare with case
    sfWholeWord = 4, ///< only where no letter or digit stands before or behind the match
};
Q_ENUM_NS(TZtSearchFlag)
Q_DECLARE_FLAGS(TZtSearchFlags, TZtSearchFlag)
Q_FLAG_NS(TZtSearchFlags)
Q_DECLARE_OPERATORS_FOR_FLAGS(TZtSearchFlags)

} // namespace ZtSearch

using ZtSearch::TZtSearchFlag;
using ZtSearch::TZtSearchFlags;

/// A search string made ready to be looked for in many runs of characters.
///
/// Without case, single UTF-16 units are compared by Unicode's simple case folding. Word delimiters
/// are the characters that are neither letters nor digits in Unicode; what stands outside the run
/// is not looked at. An empty string is found nowhere.
class ZT_EDITOR_EXPORT TZtBufferSearch {
public:
    /// Folds the string, unless the case counts.
    TZtBufferSearch(const QString &ASearchString, TZtSearchFlags AOptions);

    /// Where the match begins in `ARun` (0-based), or -1. Downwards the first that begins at
    /// `AStart` or later, upwards the last that ends at `AStart` or before.
    qsizetype Find(QAnyStringView ARun, qsizetype AStart) const;

private:
    template <typename TUnit>
    qsizetype FindDown(const TUnit *ARun, qsizetype ASize, qsizetype AStart) const;
    template <typename TUnit>
    qsizetype FindUp(const TUnit *ARun, qsizetype ASize, qsizetype AStart) const;
    template <typename TUnit>
    bool MatchesAt(const TUnit *ARun, qsizetype ASize, qsizetype At) const;
    template <typename TUnit>
    qsizetype NextCandidate(const TUnit *ARun, qsizetype AFrom, qsizetype AEnd) const;
    char16_t Fold(char16_t C) const;

    // The units of one byte that a character of the search string stands for: as many as `Count`.
    struct TBytes {
        int Count = 0;
        std::array<uchar, 2> Byte{};
    };
    TBytes BytesOf(char16_t AFolded) const;

    QString FNeedle; // folded, unless the case counts
    TZtSearchFlags FOptions;
    bool FNarrow = true; // whether every character may stand in a run of bytes
    TBytes FFirst;
    TBytes FLast;
};

/// One search of one run; see `TZtBufferSearch`. `ASelLength` is added to `ASelStart` when
/// searching downwards.
ZT_EDITOR_EXPORT qsizetype ZtSearchBuf(QAnyStringView ABuf, qsizetype ASelStart,
                                       qsizetype ASelLength, const QString &ASearchString,
                                       TZtSearchFlags AOptions);
