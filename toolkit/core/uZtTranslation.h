#pragma once

#include "uZtExport.h"

#include <QLocale>
#include <QString>
#include <QStringList>

/// Has the texts of the control and its toolkit said in a locale's language, the best of those that
/// `QLocale::uiLanguages` names, until it is called again or the application object is deleted.
/// What is shown already keeps its texts: call it when the application object is there, before
/// windows are made. Without it, and for a language that the texts are not there in, they are
/// English. Answers whether they are there.
ZT_PARSERS_EXPORT bool ZtInstallTranslator(const QLocale &ALocale);

/// The same for the texts of a host, or Qt's own: loads `AFolder/AName_LANGUAGE.qm`, in the place
/// of what was loaded under that name before. Of a language that is not there, English is loaded if
/// it is there, for its plural forms.
ZT_PARSERS_EXPORT bool ZtInstallTranslator(const QString &AFolder, const QString &AName,
                                           const QLocale &ALocale);

/// The languages that the control's texts are there in, as codes of ISO 639-1 in their order. "en"
/// is always one, also when the library was built without the tools for translations.
ZT_PARSERS_EXPORT QStringList ZtTranslatedLanguages();
