#include "UiLanguage.h"

#include "uZtTranslation.h"

#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>

// The macro wants to be outside of all namespaces.
static void InitTexts() { Q_INIT_RESOURCE(ztedit_translations); }

namespace {

QString CodeOf(const QString &AName) { return AName.section(u'-', 0, 0); }

// One language for all texts, whatever Qt itself is there in.
QString UsersLanguage()
{
    const QStringList languages = ZtTranslatedLanguages();
    const QStringList wanted = QLocale::system().uiLanguages();
    const auto found = std::ranges::find_if(
        wanted, [&](const QString &name) { return languages.contains(CodeOf(name)); });
    return found == wanted.end() ? QStringLiteral("en") : CodeOf(*found);
}

} // namespace

void ZtUseLanguage(const QString &ALanguage)
{
    InitTexts();
    const QString language = ALanguage.isEmpty() ? UsersLanguage() : ALanguage;
    const QLocale locale(language);
    QLocale::setDefault(language == UsersLanguage() ? QLocale::system() : locale);
    ZtInstallTranslator(locale);
    ZtInstallTranslator(QStringLiteral(":/ztedit/translations"), QStringLiteral("ztedit"), locale);
    ZtInstallTranslator(QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                        QStringLiteral("qtbase"), locale);
}
