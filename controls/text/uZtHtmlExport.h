#pragma once

#include "uZtExport.h"
#include "uZtTextColours.h"

#include <QString>

#include <functional>

class QIODevice;

/// How a text is written as HTML.
struct TZtHtmlOptions {
    QString Title = {};                               ///< of the document, plain text
    QString FontFamily = QStringLiteral("monospace"); ///< one family; "monospace" stands behind it
    int TabWidth = 8;                                 ///< in cells; a tab stays a tab
    quint32 Text = 0;                                 ///< of the page, `$00RRGGBB`
    quint32 Background = 0xFFFFFF;                    ///< of the page, `$00RRGGBB`
    /// Told how many lines are written, now and then; false ends the work.
    std::function<bool(int ALines)> OnProgress = {};
};

/// Writes lines as an HTML5 document that is well-formed XML too, with all attributes in place,
/// as programs want it that are pasted into. What the lines hold is what a reader of the document
/// gets, but for characters that HTML cannot hold: controls become their pictures (U+2400 on),
/// lone surrogates, noncharacters and the controls from U+0080 on U+FFFD.
class ZT_EDITOR_EXPORT TZtHtmlMaker {
public:
    /// Keeps a copy of the options. `OnProgress` is not asked.
    explicit TZtHtmlMaker(const TZtHtmlOptions &AOptions);

    /// What stands before the first line.
    QString Head() const;
    /// What stands behind the last line.
    QString Foot() const;
    /// Appends a part of a line, which begins at column `AFrom` of what the runs belong to. Line
    /// feeds between the lines are the caller's.
    void AppendLine(QString &AHtml, QStringView ALine, const TZtColourRuns &ARuns, int AFrom) const;

private:
    void AppendRun(QString &AHtml, QStringView S, const TZtColourRun &ARun) const;

    const TZtHtmlOptions FOptions;
};

/// Writes a text as UTF-8, in slices: a text of any length takes little memory. Answers whether it
/// was written whole: not where `OnProgress` ends it, or where it changes the text. Raises
/// `EStreamError` when the device does not take it, and what the lexer raises.
ZT_EDITOR_EXPORT bool ZtWriteHtml(QIODevice &ATo, const TZtColouredText &AText,
                                  const TZtHtmlOptions &AOptions);
/// The same in memory.
ZT_EDITOR_EXPORT QString ZtHtmlOf(const TZtColouredText &AText, const TZtHtmlOptions &AOptions);
