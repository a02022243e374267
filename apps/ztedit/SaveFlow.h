#pragma once

#include <QString>

class TDocument;

// Saving with the questions that it takes. Each answers whether it went through; on a refusal by
// the user, or a failure that the user was told, all is as before.

/// Saves a document that has a file. An unedited one whose file is as it was is left alone.
bool ZtSaveDocument(TDocument &ADocument);
/// Saves a document under a name that the user has chosen; an existing file is overwritten.
bool ZtSaveDocumentAs(TDocument &ADocument, const QString &APath);
