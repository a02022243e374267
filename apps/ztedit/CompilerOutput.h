#pragma once

#include "uZtDiagnostics.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

/// What a compiler or linter says of a place in a file.
struct TCompilerMessage {
    QString Path; ///< as it was printed
    /// Where it was said of no column, all of the line.
    TZtDiagnostic Diagnostic;
};

/// Reads one line of what a compiler printed: `PATH:LINE[:COLUMN]: [SEVERITY:] MESSAGE` or, as
/// Pascal compilers have it, `PATH(LINE[,COLUMN])[:] [SEVERITY:] MESSAGE`. Lines and columns count
/// from 1, columns in UTF-16 units; a 0 counts as unknown. The severity is one of "error", "fatal
/// error" or "fatal", "warning", "note", "info", "information" and "hint", in any case, and may
/// have a number of the message behind it; without one it is an error. Nothing for any other line.
std::optional<TCompilerMessage> ZtReadCompilerMessage(const QString &ALine);

/// What a compiler said of files.
class TCompilerOutput {
public:
    /// Reads what was printed into a file, instead of what was read before. Paths are relative to
    /// the file's folder, or to the current one where they lead to a file only from there. Lines
    /// that say nothing of a file are passed over. Raises `EStreamError`, and all stays as it was,
    /// when the file cannot be read.
    void Load(const QString &APath);

    /// What is said of a file, in the order in which it was printed.
    std::vector<TZtDiagnostic> Of(const QString &APath) const;
    int FileCount() const { return int(FFiles.size()); }
    int MessageCount() const;

private:
    QHash<QString, std::vector<TZtDiagnostic>> FFiles; // by where the links of a path lead
};
