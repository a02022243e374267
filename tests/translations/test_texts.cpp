#include "texts.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString Folder = QStringLiteral(ZT_SOURCE_DIR "/translations/");

// What a program has to find in every language, in an order that does not depend on it.
QStringList PlacesOf(const QString &AText)
{
    static const QRegularExpression place(u"%L?(\\d+|n)"_s);
    QStringList places;
    for (auto i = place.globalMatch(AText); i.hasNext();)
        places.append(i.next().captured());
    places.sort();
    return places;
}

int LettersToPress(const QString &AText) { return int(QString(AText).remove(u"&&"_s).count(u'&')); }

QStringList NamesOf(const std::vector<TTranslatedText> &ATexts)
{
    QStringList names;
    for (const TTranslatedText &text : ATexts)
        names.append(text.Name());
    return names;
}

// What is wrong with a form of a text; empty for nothing.
QString FaultOf(const QString &ASource, const QString &AForm, bool AFrench)
{
    static const QRegularExpression breaking(u" [:;!?»]|« "_s);
    if (AForm.isEmpty())
        return u"nothing"_s;
    if (PlacesOf(ASource) != PlacesOf(AForm))
        return u"other arguments"_s;
    if (LettersToPress(ASource) != LettersToPress(AForm))
        return u"other letters to press"_s;
    if (ASource.section(u'\t', 1) != AForm.section(u'\t', 1))
        return u"other keys"_s;
    if (ASource.contains(u'…') != AForm.contains(u'…'))
        return u"other dots"_s;
    return AFrench && breaking.match(AForm).hasMatch() ? u"a blank that can break"_s : QString();
}

} // namespace

// As `cmake --build … --target translations` would leave them.
TEST(Texts, FilesHoldWhatTheSourcesDo)
{
    const QTemporaryDir copies;
    const QStringList files = FilesOfTexts(Folder);
    ASSERT_FALSE(files.isEmpty());
    for (const QString &file : files)
        ASSERT_TRUE(QFile::copy(Folder + file, copies.filePath(file)));
    QProcess update;
    update.start(QStringLiteral(ZT_SOURCE_DIR "/cmake/lupdate.sh"),
                 {QStringLiteral(ZT_LUPDATE), copies.path()});
    ASSERT_TRUE(update.waitForFinished(120'000));
    EXPECT_EQ(update.exitCode(), 0);
    // A text whose context is not found would be looked up in vain.
    EXPECT_EQ(update.readAllStandardError().toStdString(), "");
    for (const QString &file : files)
        EXPECT_EQ(NamesOf(ReadTexts(Folder + file)).join(u'\n').toStdString(),
                  NamesOf(ReadTexts(copies.filePath(file))).join(u'\n').toStdString())
            << file.toStdString() << ": build the target `translations`, and fill in what is new";
}

TEST(Texts, EachTextIsThereInEachLanguage)
{
    for (const QString &file : FilesOfTexts(Folder)) {
        const bool french = file.contains(u"_fr."_s);
        for (const TTranslatedText &text : ReadTexts(Folder + file)) {
            const std::string where = (file + u", "_s + text.Name()).toStdString();
            EXPECT_TRUE(text.IsFinished) << where;
            EXPECT_EQ(text.Forms.size(), text.IsPlural ? 2 : 1) << where; // all have two
            for (const QString &form : text.Forms)
                EXPECT_EQ(FaultOf(text.Source, form, french).toStdString(), "")
                    << where << ": " << form.toStdString();
        }
    }
}
