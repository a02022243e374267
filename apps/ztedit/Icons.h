#pragma once

#include <QIcon>

/// The desktop's icon of a name from the freedesktop icon naming specification. Where the theme has
/// none, the program's own drawing in the colour of the palette's text; null without either.
QIcon ZtIcon(const char *AName);
/// The program's own symbol.
QIcon ZtSymbol();
