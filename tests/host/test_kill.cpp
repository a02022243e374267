#include "FileStore.h"
#include "session.h"

#include "uZtStringStream.h"

#include <QThread>

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Two texts of different lengths.
const QByteArray Texts[] = {QByteArray("first\r\n").repeated(60000),
                            QByteArray("the second text\n").repeated(20000)};

// Kills, at any moment, a process that saves the texts over each other.
void KillASave(const QString &APath, std::minstd_rand &ARandom)
{
    const pid_t saver = fork();
    for (int i = 1; saver == 0; ++i)
        ZtSaveFile(APath, Texts[i % 2]);
    QThread::usleep(std::uniform_int_distribution<unsigned long>(0, 20000)(ARandom));
    kill(saver, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(saver, &status, 0), saver);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "it left by itself";
}

} // namespace

// What is left is one text or the other, whole, at once or when the user takes back what was cut
// short.
TEST(Killed, ASaveLeavesTheOldOrTheNewTextWhole)
{
    const int kills =
        qEnvironmentVariableIsSet("ZT_KILLS") ? qEnvironmentVariableIntValue("ZT_KILLS") : 60;
    for (const bool inPlace : {false, true}) {
        THostSession session;
        const QString path = session.Path(u"a"_s);
        ZtSaveFile(path, Texts[0]);
        session.Do(u"mode:a=640"_s);
        if (inPlace && !session.Do(u"hard:b=a"_s).isEmpty())
            GTEST_SKIP() << "no hard links here";
        std::minstd_rand random(20);
        int found[2] = {};
        for (int i = 0; i < kills; ++i) {
            KillASave(path, random);
            session.Do(u"offer:a"_s);
            const QByteArray now = ZtReadFile(path);
            ASSERT_TRUE(now == Texts[0] || now == Texts[1]) << "kill " << i << ": " << now.size();
            ++found[now == Texts[1]];
            ASSERT_EQ(session.Do(u"modeof:a"_s), u"640"_s) << "kill " << i;
        }
        EXPECT_GT(found[0], 0);
        EXPECT_GT(found[1], 0);
        EXPECT_TRUE(inPlace || session.Asked.isEmpty());
        ZtSaveFile(path, "");
        const QString names = session.Do(u"names"_s);
        EXPECT_FALSE(names.contains(u'#')) << names.toStdString();
        EXPECT_EQ(session.Do(inPlace ? u"write:b=z read:a"_s : u"read:a"_s),
                  inPlace ? u"<z>"_s : u"<>"_s);
    }
}
