#pragma once

#include "uZtDiagnostics.h"

#include <vector>

/// What can be said of a script without running it: brackets without their pair, strings without an
/// end, comparisons that convert, and what was left to be done.
///
/// It knows nothing of an editor and runs in any thread.
std::vector<TZtDiagnostic> FindProblems(const QString &AText);
