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

// Whether the file is what comes first and then NUL bytes.
bool HasZeros(const QString &APath, const QByteArray &AFirst, qint64 ACount)
{
    QFile file(APath);
    bool same = file.open(QIODevice::ReadOnly) && file.size() == AFirst.size() + ACount &&
                file.read(AFirst.size()) == AFirst;
    const QByteArray zeros(1 << 20, 0);
    while (same && !file.atEnd()) {
        const QByteArray bytes = file.read(zeros.size());
        same = !bytes.isEmpty() && zeros.startsWith(bytes);
    }
    return same;
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

// ZT_LONG_LINES=1 takes the longest line that there can be, one of half the length and one that is
// too long.
TEST(LongLines, AreKeptWholeOrRefused)
{
    const bool longest = qEnvironmentVariableIntValue("ZT_LONG_LINES") > 0;
    const QList<qint64> sizes =
        longest ? QList<qint64>{1LL << 30, (1LL << 31) - 1, 1LL << 31} : QList<qint64>{5};
    for (const qint64 size : sizes) {
        THostSession session;
        const QString path = session.Path(u"a"_s), copy = session.Path(u"b"_s);
        QFile sparse(path);
        ASSERT_TRUE(sparse.open(QIODevice::WriteOnly) && sparse.resize(size));
        sparse.close();
        const QString opened = session.Do(u"open:a"_s);
        if (opened.isEmpty()) {
            EXPECT_EQ(session.Do(u"saveas:b"_s), u"+"_s);
            EXPECT_TRUE(HasZeros(copy, {}, size)) << size;
            const QString saved = session.Do(u"type:x save"_s);
            EXPECT_TRUE(HasZeros(copy, saved == u'+' ? "x" : "", size)) << saved.toStdString();
        }
        EXPECT_TRUE(HasZeros(path, {}, size)) << size;
        EXPECT_NE(opened.isEmpty(), session.Asked.join(u' ').startsWith(u"Cannot open \"~/a\": "));
        if (longest)
            std::printf("%lld units: %s %s\n", static_cast<long long>(size), qPrintable(opened),
                        qPrintable(session.Asked.join(u' ')));
    }
}
