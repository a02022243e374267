#pragma once

#include <QString>

class QWidget;
class TDocument;

// A text on paper and in files of other kinds. What goes wrong is raised.

/// Asks for a printer and prints.
void ZtPrint(TDocument &ADocument, QWidget *AParent);
/// Shows the pages, from where they can be printed.
void ZtPreviewPrint(TDocument &ADocument, QWidget *AParent);
/// Asks for a file and writes the text into it, or what is selected in it. Answers its name, empty
/// when the user did not choose one.
QString ZtExportHtml(TDocument &ADocument, QWidget *AParent);

/// Prints the whole text into a PDF file, in the document's scheme, dark or not.
void ZtPrintTo(TDocument &ADocument, const QString &APath);
/// Writes the whole text, or what is selected in it, into an HTML file.
void ZtWriteHtmlTo(TDocument &ADocument, const QString &APath, bool ASelectionOnly);
