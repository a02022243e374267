#pragma once

#include <QString>

#include <cstdio>

/// Prints the tokens of a source file, one a line, as the editor's lexer of its language reads
/// them. Raises `EStreamError` when the file cannot be read or printed, and `EZtException` when its
/// language has no tokens.
void ZtPrintTokens(const QString &APath, FILE *ATo);
