#include "FileStore.h"
#include "kill_texts.h"

#include "uZtStringStream.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <random>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

// Kills the saver at any moment: what is left is one text or the other, whole.
TEST(Killed, ASaveLeavesTheOldOrTheNewTextWhole)
{
    constexpr int kills = 200;
    constexpr mode_t mode = 0640;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"text"_s);
    const QByteArray texts[] = {TextToSave(false), TextToSave(true)};
    ZtSaveFile(path, texts[0]);
    chmod(QFile::encodeName(path).constData(), mode);
    std::minstd_rand random(20);
    std::uniform_int_distribution<unsigned long> delay(0, 20000);
    int found[2] = {};
    for (int i = 0; i < kills; ++i) {
        QProcess saver;
        saver.start(QStringLiteral(ZT_SAVER), {path});
        ASSERT_TRUE(saver.waitForReadyRead()) << saver.errorString().toStdString();
        QThread::usleep(delay(random));
        saver.kill();
        ASSERT_TRUE(saver.waitForFinished());
        ASSERT_EQ(saver.exitStatus(), QProcess::CrashExit) << "the saver left by itself";
        const QByteArray now = ZtReadFile(path);
        ASSERT_TRUE(now == texts[0] || now == texts[1]) << "kill " << i << ": " << now.size();
        ++found[now == texts[1]];
        struct stat status = {};
        stat(QFile::encodeName(path).constData(), &status);
        ASSERT_EQ(status.st_mode & 07777, mode) << "kill " << i;
    }
    EXPECT_GT(found[0], 0);
    EXPECT_GT(found[1], 0);
}
