#pragma once

#include <QStringList>

/// The names of the package's units.
QStringList rZtCodeEditorVCL290Units();

/// Registers the package's classes, so that `ZtCreateObject` knows them also in a program that
/// names none of them. Calling it again does nothing.
void rZtCodeEditorVCL290Register();
