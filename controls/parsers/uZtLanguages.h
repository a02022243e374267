#pragma once

#include "uZtExport.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>

class QObject;
class TZtLangParser;

/// A language that a text can be shown in.
struct ZT_PARSERS_EXPORT TZtLanguage {
    QString Name;           ///< what its lexer's `GetLanguage` answers; empty for plain text
    QString Title;          ///< as people write it; `ZtLanguageTitle` translates it
    QStringList Extensions; ///< of file names, in lower case, without the dot, the usual one first
    /// Makes a lexer; empty for plain text, which needs none.
    std::function<TZtLangParser *(QObject *AOwner)> CreateParser;
};

/// Every language, plain text first, a host's own last. One that is here stays, at its address.
///
/// The list belongs to the thread of the user interface.
ZT_PARSERS_EXPORT const std::deque<TZtLanguage> &ZtLanguages();

/// The language of this name, letter case apart; plain text for an empty one, null for one that is
/// not known.
ZT_PARSERS_EXPORT const TZtLanguage *ZtFindLanguage(const QString &AName);
/// The language of a file by its extension, letter case apart; plain text when no language claims
/// it. Of several that do, the one that was registered last.
ZT_PARSERS_EXPORT const TZtLanguage &ZtLanguageOfFile(const QString &AFileName);
/// The language's title for a user; its name where it has no title.
ZT_PARSERS_EXPORT QString ZtLanguageTitle(const TZtLanguage &ALanguage);
/// The name of a lexer's language; empty for plain text and for null.
ZT_PARSERS_EXPORT QString ZtLanguageNameOf(const TZtLangParser *AParser);

/// Makes a language known, for instance to `TZtCodeEdit::Language`. One of the same name, letter
/// case apart, is replaced: what shows it already keeps its lexer. Raises `EZtParser` without a
/// name or a way to make the lexer.
ZT_PARSERS_EXPORT void ZtRegisterLanguage(const TZtLanguage &ALanguage);
