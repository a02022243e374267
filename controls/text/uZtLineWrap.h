#pragma once

#include "uZtCells.h"
#include "uZtExport.h"

/// Where a row ends that begins at column `AFrom` of a line and is `AWidth` cells wide, as if its
/// text were a line of its own: tab stops count from the row's start. It ends behind a blank where
/// there is one in the second half of the row, and takes all the blanks behind its end along. A row
/// has at least one cluster; `ATo` is the end of the part of the line that is wrapped.
ZT_EDITOR_EXPORT int ZtRowEnd(QAnyStringView ALine, int AFrom, int ATo, int AWidth,
                              const TZtCellRules &ARules);

/// A part of a line, without a copy: `ATo` is behind its last unit. A UTF-8 line is not accepted.
ZT_EDITOR_EXPORT QAnyStringView ZtPartOf(QAnyStringView ALine, int AFrom, int ATo);
