#include "uZtTranslation.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

#include <memory>

// The macro wants to be outside of all namespaces.
static void InitTexts() { Q_INIT_RESOURCE(ztcodeeditor_translations); }

namespace {

const QString Folder = QStringLiteral(":/ztcodeeditor/translations");
const QString Name = QStringLiteral("ztcodeeditor");

} // namespace

bool ZtInstallTranslator(const QLocale &ALocale)
{
    InitTexts();
    return ZtInstallTranslator(Folder, Name, ALocale);
}

bool ZtInstallTranslator(const QString &AFolder, const QString &AName, const QLocale &ALocale)
{
    // One that is deleted is removed from the application by that.
    delete qApp->findChild<QTranslator *>(AName, Qt::FindDirectChildrenOnly);
    auto translator = std::make_unique<QTranslator>();
    translator->setObjectName(AName);
    const bool there = translator->load(ALocale, AName, QStringLiteral("_"), AFolder);
    if (there || translator->load(AName + QStringLiteral("_en"), AFolder)) {
        translator->setParent(qApp);
        QCoreApplication::installTranslator(translator.release());
    }
    return there;
}

QStringList ZtTranslatedLanguages()
{
    InitTexts();
    QStringList languages{QStringLiteral("en")};
    for (const QString &file : QDir(Folder).entryList({Name + QStringLiteral("_*.qm")}))
        languages.append(file.section(u'_', 1).section(u'.', 0, 0));
    languages.removeDuplicates();
    languages.sort();
    return languages;
}
