#include "FileStore.h"
#include "session.h"

#include "uZtStringStream.h"

#include <QFile>
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
    for (const char *begin : {"mode:a=640", "mode:a=640 hard:b=a"}) {
        THostSession session;
        const QString path = session.Path(u"a"_s);
        ZtSaveFile(path, Texts[0]);
        session.Do(QLatin1StringView(begin));
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
        EXPECT_TRUE(QFile::exists(session.Path(u"b"_s)) || session.Asked.isEmpty());
        EXPECT_FALSE(session.Do(u"store:a= names"_s).contains(u'#'));
    }
}

// ZT_LONG_LINES=1 takes the longest line that there can be, one of half the length and one that is
// too long.
TEST(LongLines, AreKeptWholeOrRefused)
{
    const QList<qint64> sizes = qEnvironmentVariableIntValue("ZT_LONG_LINES") > 0
                                    ? QList<qint64>{1LL << 30, (1LL << 31) - 1, 1LL << 31}
                                    : QList<qint64>{5};
    for (const qint64 size : sizes) {
        THostSession session;
        const QByteArray zeros(size, '\0');
        session.Do(u"write:a="_s);
        ASSERT_TRUE(QFile::resize(session.Path(u"a"_s), size));
        const bool opened = session.Do(u"open:a"_s).isEmpty();
        EXPECT_NE(opened, session.Asked.join(u' ').startsWith(u"Cannot open \"~/a\": "));
        if (opened) {
            const QString saved = session.Do(u"saveas:b type:x save"_s);
            const QByteArray now = ZtReadFile(session.Path(u"b"_s));
            EXPECT_TRUE(now.endsWith(zeros) && now.size() == size + (saved == u"+ +"_s)) << size;
        }
        EXPECT_TRUE(ZtReadFile(session.Path(u"a"_s)) == zeros) << size;
    }
}
