#pragma once

#include "uZtExport.h"

#include <QStringView>

class TStringList;

/// How many blanks and tabs a line begins with.
ZT_EDITOR_EXPORT qsizetype ZtIndentOf(QStringView ALine);

/// How many spaces a new line below `ALine` is indented by: those that lead the nearest line, from
/// `ALine` upwards, that holds anything but spaces; -1 when there is none. Only spaces count.
ZT_EDITOR_EXPORT int ZtAutoIndent(const TStringList &ALines, int ALine);

/// The column (0-based) that Backspace falls back to from `AColumn`: the indentation of the nearest
/// line, from `ALine` up to line 1, that is indented by less; -1 when there is none. Line 0 is
/// never looked at, and a line that starts with no space is passed over.
ZT_EDITOR_EXPORT int ZtIndentationBefore(const TStringList &ALines, int ALine, int AColumn);
