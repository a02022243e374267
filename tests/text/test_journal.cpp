#include "random_edits.h"
#include "uZtJournal.h"
#include "uZtJournalReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

void Load(const QByteArray &ABytes, TStringList &AText) { AText.SetUtf8Text(ABytes); }

// Unlike the whole text, tells a break within a line from one behind it.
QString Shown(const TStringList &AText)
{
    QStringList lines;
    for (int i = 0; i < AText.GetCount(); ++i)
        lines += AText.GetStrings(i);
    return lines.isEmpty() ? u"nothing"_s : lines.join(u'\x1e');
}

QByteArray ReadAll(const QString &APath)
{
    QFile file(APath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteAll(const QString &APath, const QByteArray &ABytes)
{
    QFile file(APath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(ABytes);
}

// A text with a file and a journal.
class TSession {
public:
    explicit TSession(const QByteArray &AFile = "one\ntwo\nthree\n")
    {
        Load(AFile, Text);
        Attach(u"/home/me/a.txt"_s, AFile);
    }
    void Attach(const QString &APath, const QByteArray &ABytes)
    {
        Journal.reset();
        Journal.emplace(Text, Path, TZtJournalBase{APath, 7, "format", ABytes});
        Journal->SetFlushInterval(0);
    }
    void Type(const QString &S) { Text.ReplaceInLine(0, Text.GetLength(0), 0, S); }
    bool HasFile() const { return QFileInfo::exists(Path); }
    // What comes back now, when the file holds this.
    QString Restored(const std::optional<QByteArray> &AFile)
    {
        Journal->Flush();
        TStringList text;
        Result = TZtJournalReader(Path).Restore(AFile, Load, text);
        return Shown(text);
    }

    const QTemporaryDir Folder;
    const QString Path = Folder.filePath(u"journal"_s);
    TStringList Text;
    std::optional<TZtJournal> Journal;
    TZtRestored Result; // of the last time
};

// What the text was behind each length of the journal.
using TStates = std::map<qsizetype, QString>;

TStates EditAtRandom(TSession &ASession, unsigned ASeed, int ASteps)
{
    TRandomEdits edits(ASession.Text, ASeed, 10);
    TStates states;
    for (int i = 0; i < ASteps; ++i) {
        edits.One();
        EXPECT_TRUE(ASession.Journal->Flush());
        states[ReadAll(ASession.Path).size()] = Shown(ASession.Text);
    }
    return states;
}

} // namespace

TEST(Journal, OfRandomEditsGivesTheTextBack)
{
    const int runs = std::max(qEnvironmentVariableIntValue("ZT_RANDOM_STEPS") / 100, 40);
    for (int seed = 1; seed <= runs; ++seed) {
        TSession session;
        EditAtRandom(session, unsigned(seed), 30);
        ASSERT_EQ(session.Restored({}), Shown(session.Text)) << seed;
        EXPECT_TRUE(session.Result.IsComplete);
    }
}

// Never anything that the text was not.
TEST(Journal, CutOrDamagedGivesAnEarlierState)
{
    TSession session;
    session.Type(u"first"_s);
    const TStates states = EditAtRandom(session, 5, 20);
    const qsizetype begin = states.begin()->first;
    const QByteArray whole = ReadAll(session.Path);
    ASSERT_GT(whole.size(), begin);
    const auto check = [&](const QByteArray &bytes, qsizetype sound, bool complete) {
        WriteAll(session.Path, bytes);
        ASSERT_EQ(session.Restored({}), std::prev(states.upper_bound(sound))->second) << sound;
        ASSERT_EQ(session.Result.IsComplete, complete) << sound;
        ASSERT_EQ(ReadAll(session.Path), bytes);
    };
    for (qsizetype size = begin; size <= whole.size(); ++size)
        check(whole.first(size), size, states.contains(size));
    std::minstd_rand random(1);
    for (int i = 0; i < 400; ++i) {
        QByteArray bytes = whole;
        const qsizetype at = begin + qsizetype(random()) % (whole.size() - begin);
        bytes[at] = char(bytes[at] ^ (1 << i % 8));
        check(bytes, at, false);
    }
    // Without its header it is no journal.
    for (qsizetype size = 0; size < 60; ++size) {
        WriteAll(session.Path, whole.first(size));
        EXPECT_FALSE(TZtJournalReader::ReadHeader(session.Path));
        EXPECT_THROW(TZtJournalReader(session.Path), EStreamError);
    }
}

TEST(Journal, BeginsWithTheFirstChangeForTheUserAlone)
{
    TSession session;
    EXPECT_TRUE(session.Journal->Flush());
    EXPECT_FALSE(session.HasFile());
    session.Type(u"x"_s);
    EXPECT_TRUE(session.Journal->Flush());
    struct stat facts = {};
    ASSERT_EQ(stat(QFile::encodeName(session.Path).constData(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0600U);
    const auto header = TZtJournalReader::ReadHeader(session.Path);
    ASSERT_TRUE(header);
    EXPECT_EQ(std::tie(header->Path, header->Size, header->Modified, header->Format),
              std::tuple(u"/home/me/a.txt"_s, 14, 7, "format"));
    EXPECT_TRUE(header->Process.IsAlive());
    session.Journal.reset();
    EXPECT_TRUE(QFile::remove(session.Path));
    session.Attach({}, {}); // holds all of a text without a file
    session.Type(u"y"_s);
    EXPECT_EQ(session.Restored({}), Shown(session.Text));
    EXPECT_FALSE(session.Result.IsFileChanged);
    session.Journal->Discard();
    session.Type(u"y"_s);
    EXPECT_TRUE(session.Journal->Flush());
    EXPECT_FALSE(session.HasFile());
}

TEST(Journal, KnowsWhetherItsProcessLives)
{
    const TZtJournalProcess own = TZtJournalProcess::Current();
    EXPECT_TRUE(own.IsAlive());
    EXPECT_FALSE((TZtJournalProcess{own.Pid, own.Start + 1, own.Boot}.IsAlive()));
    EXPECT_FALSE((TZtJournalProcess{own.Pid, own.Start, "another"}.IsAlive()));
    auto *start = static_cast<quint64 *>(
        mmap(nullptr, sizeof(quint64), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    const pid_t child = fork();
    if (child == 0) {
        *start = TZtJournalProcess::Current().Start;
        _exit(0);
    }
    siginfo_t info = {};
    for (const int waiting : {WNOWAIT, 0}) { // first it is still in the table of processes
        EXPECT_EQ(waitid(P_PID, id_t(child), &info, WEXITED | waiting), 0);
        EXPECT_GE(*start, own.Start);
        EXPECT_FALSE((TZtJournalProcess{child, *start, own.Boot}.IsAlive()));
    }
    munmap(start, sizeof(quint64));
}

// Of a large file the journal holds the changes only.
TEST(Journal, OfALargeFileNeedsTheFile)
{
    const QByteArray file = QByteArray("some line of the file\n").repeated(300000);
    const struct {
        std::optional<QByteArray> File;
        bool WholeText;
        TZtRestoredText Text;
    } rows[] = {
        {file, false, TZtRestoredText::rtWhole},
        {file + "more", false, TZtRestoredText::rtTyped},
        {{}, false, TZtRestoredText::rtTyped},
        {file + "more", true, TZtRestoredText::rtWhole},
    };
    for (const auto &row : rows) {
        TSession session(file);
        if (row.WholeText)
            session.Text.SetText(u"all new\nof it"_s);
        session.Type(u" typed"_s);
        session.Type(u" here"_s);
        session.Text.Insert(1, u"one more"_s);
        const QString all = Shown(session.Text), typed = u" typed here\x1eone more\x1e"_s;
        EXPECT_EQ(session.Restored(row.File), row.Text == TZtRestoredText::rtWhole ? all : typed);
        EXPECT_EQ(session.Result.Text, row.Text);
        EXPECT_EQ(session.Result.IsFileChanged, row.File != file);
        EXPECT_LT(QFileInfo(session.Path).size(), 1000);
    }
}

// With a small file and with one whose contents are not in the journal.
TEST(Journal, StartsAnewOnWhatIsSaved)
{
    for (const int lines : {1, 300000}) {
        TSession session;
        const QByteArray saved = QByteArray("a line of what is saved\n").repeated(lines);
        const auto expectAll = [&](const QByteArray &AFile) {
            EXPECT_EQ(session.Restored(AFile), Shown(session.Text));
            EXPECT_FALSE(session.Result.IsFileChanged);
        };
        session.Journal->BeginSave("this fails\n");
        session.Type(u" and"_s);
        session.Journal->SaveFailed();
        session.Type(u" on"_s);
        for (const char *file : {"one\ntwo\nthree\n", "this fails\n"})
            EXPECT_EQ(session.Restored(file), u"one and on\x1etwo\x1ethree"_s);
        session.Text.SetUtf8Text(saved);
        session.Journal->BeginSave(saved);
        session.Type(u"meanwhile"_s);
        // The process ends before or after the file is written.
        expectAll("one\ntwo\nthree\n");
        expectAll(saved);
        session.Journal->Saved({u"/home/me/b.txt"_s, 8, "other", {}});
        expectAll(saved);
        EXPECT_EQ(TZtJournalReader::ReadHeader(session.Path)->Path, u"/home/me/b.txt"_s);

        session.Journal->BeginSave("again\n");
        session.Journal->Saved({u"/home/me/b.txt"_s, 9, "other", {}});
        EXPECT_TRUE(session.Journal->Flush());
        EXPECT_FALSE(session.HasFile());
        session.Text.SetText(u"again\n"_s);
        session.Type(u"!"_s);
        EXPECT_EQ(session.Restored({}), u"again!"_s);
        EXPECT_EQ(QDir(session.Folder.path()).count(), 3U);
    }
}

// An empty last line that the file has no break for, and a character that its encoding lacks.
TEST(Journal, KnowsTheTextThatTheSavedBytesDoNotGiveBack)
{
    const struct {
        QString Last, Saved;
        int Lines;
        TZtRestoredText Text;
    } rows[] = {
        {{}, {}, 1, TZtRestoredText::rtWhole},
        {{}, {}, 300000, TZtRestoredText::rtWhole},
        {u"\xd83d\xde00 "_s, u"? "_s, 1, TZtRestoredText::rtWhole},
        {u"\xd83d\xde00 "_s, u"? "_s, 300000, TZtRestoredText::rtTyped},
    };
    for (const auto &row : rows) {
        const QByteArray lines = QByteArray("one line of what is saved\n").repeated(row.Lines);
        const QByteArray saved = lines + row.Saved.toUtf8();
        TSession session;
        session.Text.SetUtf8Text(lines);
        session.Text.Add(row.Last);
        session.Journal->BeginSave(saved);
        session.Text.ReplaceInLine(row.Lines, int(row.Last.size()), 0, u"x");
        // While it is being saved, the journal begins with what was set as a whole.
        for (const TZtRestoredText expected : {TZtRestoredText::rtWhole, row.Text}) {
            const bool same = session.Restored(saved) == Shown(session.Text);
            EXPECT_EQ(session.Result.Text, expected);
            EXPECT_EQ(same, expected == TZtRestoredText::rtWhole);
            session.Journal->Saved({u"/home/me/a.txt"_s, 8, "format", {}});
        }
    }
}

TEST(Journal, ThatCannotBeWrittenTellsItOnceAndGoesOn)
{
    int count = 0;
    QCoreApplication application(count, nullptr);
    TSession session;
    ASSERT_TRUE(QDir(session.Folder.path()).removeRecursively());
    QStringList faults;
    session.Journal->SetOnFault([&](const QString &reason) { faults += reason; });
    for (const QString &text : {u"a"_s, u"b"_s}) {
        session.Type(text);
        EXPECT_FALSE(session.Journal->Flush());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(faults.size(), 1);
    ASSERT_TRUE(QDir().mkpath(session.Folder.path()));
    session.Type(u"c"_s);
    EXPECT_TRUE(session.Journal->Flush());
    EXPECT_EQ(session.Restored({}), u"oneabc\x1etwo\x1ethree"_s);
}
