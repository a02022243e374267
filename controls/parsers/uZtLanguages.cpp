#include "uZtLanguages.h"

#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <ranges>

namespace {

template <typename T> TZtLangParser *Create(QObject *AOwner) { return new T(AOwner); }

struct TBuiltIn {
    const char *Name;
    const char *Title;
    const char *Extensions; // between blanks
    TZtLangParser *(*CreateParser)(QObject *AOwner);
};

constexpr TBuiltIn BuiltIn[] = {
    {"", QT_TRANSLATE_NOOP("Languages", "Plain text"), "", nullptr},
    {"Pascal", "Pascal", "pas pp dpr dpk lpr inc", Create<TZtCodePascalParser>},
    {"Visual Basic", "Visual Basic", "vbs bas vb cls frm", Create<TZtCodeVBParser>},
    {"JavaScript", "JavaScript", "js mjs cjs json", Create<TZtCodeJSParser>},
    {"XML", "XML", "xml xsd xsl xslt svg html htm xhtml ui qrc", Create<TZtCodeXMLParser>},
    {"Sql", "SQL", "sql ddl", Create<TZtCodeSqlParser>},
};

// A function-local list, so that a unit can register its own during static initialisation.
std::deque<TZtLanguage> &Languages()
{
    static std::deque<TZtLanguage> list = [] {
        std::deque<TZtLanguage> known;
        for (const TBuiltIn &row : BuiltIn) {
            const QString extensions = QLatin1String(row.Extensions);
            known.push_back({QLatin1String(row.Name), QLatin1String(row.Title),
                             extensions.split(u' ', Qt::SkipEmptyParts), row.CreateParser});
        }
        return known;
    }();
    return list;
}

TZtLanguage *Find(const QString &AName)
{
    const auto found = std::ranges::find_if(Languages(), [&](const TZtLanguage &language) {
        return AName.compare(language.Name, Qt::CaseInsensitive) == 0;
    });
    return found == Languages().end() ? nullptr : &*found;
}

} // namespace

const std::deque<TZtLanguage> &ZtLanguages() { return Languages(); }

const TZtLanguage *ZtFindLanguage(const QString &AName) { return Find(AName); }

const TZtLanguage &ZtLanguageOfFile(const QString &AFileName)
{
    const QString extension = QFileInfo(AFileName).suffix().toLower();
    for (const TZtLanguage &language : Languages() | std::views::reverse)
        if (language.Extensions.contains(extension))
            return language;
    return Languages().front();
}

QString ZtLanguageTitle(const TZtLanguage &ALanguage)
{
    const QString &title = ALanguage.Title.isEmpty() ? ALanguage.Name : ALanguage.Title;
    return QCoreApplication::translate("Languages", title.toUtf8().constData());
}

QString ZtLanguageNameOf(const TZtLangParser *AParser)
{
    const QString name = AParser ? AParser->GetLanguage() : QString();
    return AParser && name == AParser->TZtLangParser::GetLanguage() ? QString() : name;
}

void ZtRegisterLanguage(const TZtLanguage &ALanguage)
{
    if (ALanguage.Name.isEmpty() || !ALanguage.CreateParser)
        throw EZtParser(QCoreApplication::translate(
            "Languages", "A language needs a name and a way to make its lexer."));
    if (TZtLanguage *known = Find(ALanguage.Name))
        *known = ALanguage;
    else
        Languages().push_back(ALanguage);
}
