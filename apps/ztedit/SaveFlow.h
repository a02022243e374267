#pragma once

#include <QString>

class TDocument;

// Opening and saving with the questions that it takes.

/// Offers to restore what a file held before a save in place that was cut short. Nothing is lost
/// whatever is answered, and a failure is told. To be called before the file is read.
void ZtOfferRestore(const QString &APath);

// These answer whether they went through; on a refusal by the user, or a failure that the user was
// told, all is as before. What a saved file lost is told as well.

/// Saves a document that has a file. An unedited one whose file is as it was is left alone.
bool ZtSaveDocument(TDocument &ADocument);
/// Saves a document under a name that the user has chosen; an existing file is overwritten.
bool ZtSaveDocumentAs(TDocument &ADocument, const QString &APath);
