#include "Languages.h"

#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

namespace {

template <typename T> TZtLangParser *Create(QObject *AOwner) { return new T(AOwner); }

constexpr std::array<TLanguage, 6> Languages{{
    {QT_TRANSLATE_NOOP("Languages", "Plain text"), "", nullptr},
    {"Pascal", " pas pp dpr dpk lpr inc ", Create<TZtCodePascalParser>},
    {"Visual Basic", " vbs bas vb cls frm ", Create<TZtCodeVBParser>},
    {"JavaScript", " js mjs cjs json ", Create<TZtCodeJSParser>},
    {"XML", " xml xsd xsl xslt svg html htm xhtml ui qrc ", Create<TZtCodeXMLParser>},
    {"SQL", " sql ddl ", Create<TZtCodeSqlParser>},
}};

} // namespace

std::span<const TLanguage> ZtLanguages() { return Languages; }

const TLanguage &ZtLanguageOfFile(const QString &AFileName)
{
    const QString extension = QFileInfo(AFileName).suffix().toLower();
    const QString wanted = QLatin1Char(' ') + extension + QLatin1Char(' ');
    for (const TLanguage &language : Languages)
        if (!extension.isEmpty() && QLatin1StringView(language.Extensions).contains(wanted))
            return language;
    return Languages[0];
}

const TLanguage &ZtLanguageOfName(const QString &AName)
{
    for (const TLanguage &language : Languages)
        if (AName.compare(QLatin1StringView(language.Name), Qt::CaseInsensitive) == 0)
            return language;
    return ZtLanguageOfFile(QLatin1Char('.') + AName);
}

QString ZtUsualExtension(const TLanguage &ALanguage)
{
    return QString::fromLatin1(ALanguage.Extensions).section(QLatin1Char(' '), 1, 1);
}

QString ZtLanguageName(const TLanguage &ALanguage)
{
    return QCoreApplication::translate("Languages", ALanguage.Name);
}
