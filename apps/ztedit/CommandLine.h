#pragma once

#include "DbConnection.h"

#include <QSize>
#include <QStringList>

#include <optional>

/// What the program is asked to do.
struct TCommandLine {
    QStringList Files;
    /// What to open of a database; without a file for none.
    TDbPlace Database;
    /// The sample database to make instead of showing a window.
    QString SampleToMake;
    /// The picture to draw instead of showing a window.
    QString RenderTo;
    /// The PDF and the HTML file to write of the one file instead of showing a window.
    QString PrintTo;
    QString HtmlTo;
    /// Whether to print the tokens of the one file instead of showing a window.
    bool Tokens = false;
    /// Whether something else is drawn or written than a window on a display.
    bool IsForFile() const
    {
        return !RenderTo.isEmpty() || !PrintTo.isEmpty() || !HtmlTo.isEmpty();
    }
    /// The window's size in pixels; invalid for the usual one.
    QSize Size;
    /// Whether one of Qt's own options says where to show the window.
    bool ChoosesDisplay = false;
    /// The scheme of colours, as `ZtSchemeOf` takes it; empty for none given.
    QString Scheme;
    /// The language of the texts, as `ZtTranslatedLanguages` names it; empty for none given.
    QString Language;
    /// Whether the editors do without corrections, to compare.
    bool PlainControl = false;
    /// The caret's line and column, counted from 1, columns in UTF-16 units; 0 for none given.
    int Line = 0;
    int Column = 0;
    /// The lines to mark in the first file, counted from 1.
    QList<int> Bookmarks;
    /// The file with what a compiler printed; empty for none.
    QString Diagnostics;
};

/// What to print and the exit code to leave with, when there is nothing else to do.
struct TCommandAnswer {
    QString Text;
    int ExitCode;
};

inline constexpr int ZtFileTrouble = 1;
inline constexpr int ZtUsageTrouble = 2;

/// The language that the arguments ask for, as it is there; empty for none. For the texts with
/// which the arguments themselves are answered.
QString ZtLanguageAskedFor(const QStringList &AArguments);

/// Reads the arguments, of which the first is the program's name. The options that every Qt
/// application has are left to Qt.
std::optional<TCommandAnswer> ZtReadCommandLine(const QStringList &AArguments, TCommandLine &ALine);
