#pragma once

#include "uZtExport.h"

#include <QtGlobal>

/// Whether there is memory for so many bytes; also where the system does not tell how much there
/// is. To be asked before much is allocated: a system that gives out more memory than it has may
/// end the process later, when it is used.
ZT_PARSERS_EXPORT bool ZtHasMemory(qint64 ABytes);
