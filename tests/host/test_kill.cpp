#include "FileStore.h"
#include "SaveFlow.h"
#include "kill_texts.h"
#include "message_boxes.h"

#include "uZtStringStream.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <random>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t Mode = 0640;

// Starts the saver and kills it at any moment.
void KillASave(const QString &APath, std::minstd_rand &ARandom)
{
    std::uniform_int_distribution<unsigned long> delay(0, 20000);
    QProcess saver;
    saver.start(QStringLiteral(ZT_SAVER), {APath});
    ASSERT_TRUE(saver.waitForReadyRead()) << saver.errorString().toStdString();
    QThread::usleep(delay(ARandom));
    saver.kill();
    ASSERT_TRUE(saver.waitForFinished());
    ASSERT_EQ(saver.exitStatus(), QProcess::CrashExit) << "the saver left by itself";
}

class Killed : public TMessageBoxes, public testing::WithParamInterface<bool> {};

} // namespace

// What is left is one text or the other, whole, at once or when the user takes back what was cut
// short.
TEST_P(Killed, ASaveLeavesTheOldOrTheNewTextWhole)
{
    const bool inPlace = GetParam();
    const int kills =
        qEnvironmentVariableIsSet("ZT_KILLS") ? qEnvironmentVariableIntValue("ZT_KILLS") : 60;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"text"_s);
    const QByteArray name = QFile::encodeName(path);
    const QByteArray texts[] = {TextToSave(false), TextToSave(true)};
    ZtSaveFile(path, texts[0]);
    chmod(name.constData(), Mode);
    if (inPlace && link(name.constData(), (name + "2").constData()) != 0)
        GTEST_SKIP() << "no hard links here";
    std::minstd_rand random(20);
    int found[2] = {};
    for (int i = 0; i < kills; ++i) {
        KillASave(path, random);
        if (HasFatalFailure())
            return;
        ZtOfferRestore(path);
        const QByteArray now = ZtReadFile(path);
        ASSERT_TRUE(now == texts[0] || now == texts[1]) << "kill " << i << ": " << now.size();
        ++found[now == texts[1]];
        struct stat status = {};
        stat(name.constData(), &status);
        ASSERT_EQ(status.st_mode & 07777, Mode) << "kill " << i;
        ASSERT_EQ(status.st_nlink, inPlace ? 2U : 1U) << "kill " << i;
    }
    EXPECT_GT(found[0], 0);
    EXPECT_GT(found[1], 0);
    EXPECT_TRUE(inPlace || Asked.isEmpty());
    RecordProperty("CutShort", int(Asked.size()));
    ZtSaveFile(path, "");
    EXPECT_TRUE(QDir(folder.path()).entryList({u".*"_s}, QDir::Files | QDir::Hidden).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ways, Killed, testing::Bool(),
                         [](const auto &row) { return row.param ? "InPlace" : "ByRename"; });
