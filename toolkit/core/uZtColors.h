#pragma once

#include "uZtExport.h"
#include "uZtTypes.h"

#include <QStringView>

/// Finds the colour of an identifier such as `clYellow` or `clBtnFace`, in any letter case.
/// Answers false, and leaves `AColor` as it is, for a text that is no known identifier.
ZT_PARSERS_EXPORT bool ZtIdentToColor(QStringView AIdent, TColor &AColor);
