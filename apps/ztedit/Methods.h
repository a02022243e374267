#pragma once

#include <QString>

#include <memory>

class TDocument;
class TMethodIndex;
class TZtLangParser;

/// A lexer of its own over the text of a document, so that the one that draws it is not disturbed.
/// Null for a language without method tools. It reads the document, which must outlive it.
std::unique_ptr<TZtLangParser> ZtScriptLexerOf(const TDocument &ADocument);

/// The methods of a script, made when they are asked for first; they go with the document's editor.
/// Null for a language without method tools.
TMethodIndex *ZtMethodIndexOf(const TDocument &ADocument);

enum class TInsertPlace { Caret, End };

/// Inserts what `CreateMethod` gave and puts the caret into its body, which is its line with two
/// blanks at the end.
void ZtInsertMethod(TDocument &ADocument, const QString &ACode, TInsertPlace APlace);
