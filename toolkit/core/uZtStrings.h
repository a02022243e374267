#pragma once

#include "uZtExport.h"
#include "uZtSet.h"

#include <QAnyStringView>
#include <QString>

class TStringList;

/// Whether `C` is a member of `ASet`. Codes above 255 are in no set.
inline bool ZtCharInSet(char16_t C, const TZtCharSet &ASet) { return ASet.contains(C); }

/// Appends the pieces of `S` between the occurrences of `ASeparator` to `AList`. Empty pieces
/// count, also the last one: n separators give n + 1 lines. An empty separator gives one line.
ZT_PARSERS_EXPORT void ZtStringToList(const QString &S, const QString &ASeparator,
                                      TStringList &AList);

/// `S` without the characters of codes up to 32 at its end, or at both ends.
ZT_PARSERS_EXPORT QString ZtTrimRight(const QString &S);
ZT_PARSERS_EXPORT QString ZtTrim(const QString &S);
/// How many units are left of a text without the blanks at its end.
ZT_PARSERS_EXPORT qsizetype ZtTrimmedSize(QAnyStringView S);
/// `ZtTrimRight` of a string in its own memory.
ZT_PARSERS_EXPORT void ZtChopBlanks(QString &S);
