#include "windows.h"

#include "MainWindow.h"
#include "UiLanguage.h"

#include "uZtTranslation.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeySequence>
#include <QMenuBar>
#include <QScopeGuard>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize SmallScreen(1024, 768);

// A language whose texts are longer than the English ones by two fifths.
class TLongLanguage : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *ASource, const char *, int) const override
    {
        const QString source = QString::fromUtf8(ASource);
        QString more = source.section(u'\t', 0, 0).remove(u'&').remove(u'%').simplified();
        more.truncate((more.size() * 2 + 4) / 5);
        const qsizetype tab = source.indexOf(u'\t');
        return source.left(tab) + more + (tab < 0 ? QString() : source.sliced(tab));
    }
};

QStringList Twice(const QStringList &ATexts)
{
    QHash<QString, QString> seen;
    QStringList twice;
    for (const QString &text : ATexts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty() && seen.contains(key))
            twice.append({seen[key], text});
        seen.insert(key, text);
    }
    return twice;
}

// Every text is seen, and the dialog on a small screen. `ZT_PICTURES` is a folder to draw them in.
void CheckRoom(const QString &ALanguage)
{
    TShownWindows windows;
    int count = 0;
    windows.EachDialog([&](const QDialog &dialog) {
        const QString name = u"%1-%2-%3.png"_s.arg(ALanguage).arg(++count).arg(
            QLatin1StringView(dialog.metaObject()->className()));
        EXPECT_EQ(CutTexts(dialog).join(u'|').toStdString(), "") << name.toStdString();
        EXPECT_EQ(dialog.size().boundedTo(SmallScreen), dialog.size()) << name.toStdString();
        const QString pictures = qEnvironmentVariable("ZT_PICTURES");
        if (!pictures.isEmpty())
            const_cast<QDialog &>(dialog).grab().save(pictures + u'/' + name);
    });
    windows.Main().resize(SmallScreen);
    windows.Main().show();
    QCoreApplication::processEvents();
    const QMenuBar *bar = windows.Main().menuBar();
    EXPECT_LE(bar->actionGeometry(bar->actions().constLast()).right(), bar->width());
}

} // namespace

// A letter with Alt leads to one command, or to one control.
TEST(Languages, LettersAreUniqueInEachMenuAndDialog)
{
    const auto back = qScopeGuard([] { ZtUseLanguage(u"en"_s); });
    for (const QString &language : ZtTranslatedLanguages()) {
        ZtUseLanguage(language);
        TShownWindows windows;
        const QList<QStringList> menus = MenuTexts(windows.Main());
        EXPECT_GE(menus.size(), 10);
        for (const QStringList &menu : menus)
            EXPECT_EQ(Twice(menu).join(u'|').toStdString(), "") << language.toStdString();
        windows.EachDialog([&](const QDialog &dialog) {
            EXPECT_EQ(Twice(LetteredTexts(dialog)).join(u'|').toStdString(), "")
                << language.toStdString() << ' ' << dialog.metaObject()->className();
        });
    }
}

TEST(Languages, DialogsHaveRoomForTheirTexts)
{
    const auto back = qScopeGuard([] { ZtUseLanguage(u"en"_s); });
    for (const QString &language : ZtTranslatedLanguages()) {
        ZtUseLanguage(language);
        CheckRoom(language);
    }
    ZtUseLanguage(u"en"_s);
    TLongLanguage longer;
    QCoreApplication::installTranslator(&longer);
    CheckRoom(u"long"_s);
}
