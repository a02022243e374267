#pragma once

#include <QString>

/// Has all texts from now on in a language of `ZtTranslatedLanguages`, Qt's own where they are
/// installed; in the user's for an empty one: the first of those that the desktop is set to which
/// is there, or English. Numbers and times follow a language that is not the user's. For an
/// application object that is there, before its windows are.
void ZtUseLanguage(const QString &ALanguage);
