#include "uZtTranslation.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TRow {
    const char *Locale;
    bool IsThere;
    const char *Options;
    const char *One;
    const char *Two;
};

std::string Replaced(int ACount)
{
    return QCoreApplication::translate("TZtCodeEdit", "%n occurrence(s) replaced.", nullptr, ACount)
        .toStdString();
}

} // namespace

// Each in the place of the one before.
TEST(Translation, TextsAreInTheLanguageOfTheLocale)
{
    const TRow rows[] = {
        {"de_AT", true, "Optionen", "1 Vorkommen ersetzt.", "2 Vorkommen ersetzt."},
        {"sv", false, "Options", "1 occurrence replaced.", "2 occurrences replaced."},
        {"es_MX", true, "Opciones", "1 aparición reemplazada.", "2 apariciones reemplazadas."},
        {"C", false, "Options", "1 occurrence replaced.", "2 occurrences replaced."},
        {"nl", true, "Opties", "1 voorkomen vervangen.", "2 voorkomens vervangen."},
        {"en_GB", true, "Options", "1 occurrence replaced.", "2 occurrences replaced."},
    };
    for (const TRow &row : rows) {
        EXPECT_EQ(ZtInstallTranslator(QLocale(QLatin1StringView(row.Locale))), row.IsThere)
            << row.Locale;
        EXPECT_EQ(
            QCoreApplication::translate("TFrmCodeEditSearchReplaceDlg", "Options").toStdString(),
            row.Options)
            << row.Locale;
        EXPECT_EQ(Replaced(1), row.One);
        EXPECT_EQ(Replaced(2), row.Two);
        EXPECT_EQ(qApp->findChildren<QTranslator *>(u"ztcodeeditor"_s).size(), 1);
    }
    EXPECT_EQ(ZtTranslatedLanguages(), QStringList({u"de"_s, u"en"_s, u"es"_s, u"fr"_s, u"nl"_s}));
}
