#pragma once

#include <QString>

#include <memory>
#include <vector>

class QObject;
class TDocument;
class TZtLangParser;

/// A method in a script.
struct TScriptMethod {
    QString Name;
    int Line; ///< of the name, counted from 1
};

/// A lexer of its own over the text of a document, so that the one that draws it is not disturbed.
/// Null for a language without method tools. It reads the document, which must outlive it.
std::unique_ptr<TZtLangParser> ZtScriptLexerOf(const TDocument &ADocument);

/// The methods of a script in the order of the text; none in other languages.
std::vector<TScriptMethod> ZtMethodsOf(const TDocument &ADocument);

enum class TInsertPlace { Caret, End };

/// Inserts what `CreateMethod` gave and puts the caret into its body, which is its line with two
/// blanks at the end.
void ZtInsertMethod(TDocument &ADocument, const QString &ACode, TInsertPlace APlace);
