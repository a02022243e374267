#pragma once

#include <QString>

#include <span>

class QObject;
class TZtLangParser;

/// A language that a text can be shown in.
struct TLanguage {
    const char *Name; ///< as people write it; `ZtLanguageName` translates it
    /// Of file names, in lower case, without the dot, between blanks, the usual one first:
    /// " pas dpr ".
    const char *Extensions;
    /// Creates the lexer; null for plain text, which needs none.
    TZtLangParser *(*CreateParser)(QObject *AOwner);
};

/// Every language; the first is plain text.
std::span<const TLanguage> ZtLanguages();
/// The language of a file by its extension; plain text when no language claims it.
const TLanguage &ZtLanguageOfFile(const QString &AFileName);
/// The language of this name or extension, letter case apart; plain text when there is none.
const TLanguage &ZtLanguageOfName(const QString &AName);
/// The first of the extensions; empty for plain text.
QString ZtUsualExtension(const TLanguage &ALanguage);
QString ZtLanguageName(const TLanguage &ALanguage);
