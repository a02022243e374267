#pragma once

#include "uZtSet.h"

#include <QAnyStringView>
#include <QString>

class TStringList;

/// Whether `C` is a member of `ASet`. Codes above 255 are in no set.
inline bool ZtCharInSet(char16_t C, const TZtCharSet &ASet) { return ASet.contains(C); }

/// Appends the pieces of `S` between the occurrences of `ASeparator` to `AList`. Empty pieces
/// count, also the last one: n separators give n + 1 lines. An empty separator gives one line.
void ZtStringToList(const QString &S, const QString &ASeparator, TStringList &AList);

/// `S` without the characters of codes up to 32 at its end, or at both ends.
QString ZtTrimRight(const QString &S);
QString ZtTrim(const QString &S);
/// How many units are left of a text without the blanks at its end.
qsizetype ZtTrimmedSize(QAnyStringView S);
/// `ZtTrimRight` of a string in its own memory.
void ZtChopBlanks(QString &S);
