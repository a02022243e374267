#pragma once

#include "peers.h"

#include <QStringList>

/// Measures an editor on the tasks of the named groups, on all when none is named, and prints a
/// line for each: its name, a tab and the figure. It also compiles with Qt 5, for peers that need
/// it.
void MeasureTasks(const TPeerKind &AKind, const QString &AFolder, const QStringList &AGroups);
