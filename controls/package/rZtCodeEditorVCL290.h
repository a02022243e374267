#pragma once

#include "uZtExport.h"

#include <QStringList>

/// The names of the package's units.
ZT_DBEDITOR_EXPORT QStringList rZtCodeEditorVCL290Units();

/// Registers the package's classes, so that `ZtCreateObject` knows them also in a program that
/// names none of them. Calling it again does nothing.
ZT_DBEDITOR_EXPORT void rZtCodeEditorVCL290Register();
