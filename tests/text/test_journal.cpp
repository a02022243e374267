#include "uZtJournal.h"
#include "uZtJournalReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

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
    QString Restored(const std::optional<QByteArray> &AFile, TZtRestored *AResult = nullptr)
    {
        Journal->Flush();
        TStringList text;
        const TZtRestored result = TZtJournalReader(Path).Restore(AFile, Load, text);
        if (AResult)
            *AResult = result;
        return Shown(text);
    }

    const QTemporaryDir Folder;
    const QString Path = Folder.filePath(u"journal"_s);
    TStringList Text;
    std::optional<TZtJournal> Journal;
};

class TRandomEdits {
public:
    TRandomEdits(TStringList &AText, unsigned ASeed) : FText(AText), FRandom(ASeed) {}

    void One()
    {
        const int line = FText.GetCount() == 0 ? 0 : Below(FText.GetCount());
        const QPoint from = Place(), to = Place();
        switch (FText.GetCount() == 0 ? 8 : Below(12)) {
        case 0:
            return FText.SetStrings(line, Words());
        case 1:
            return FText.SetStrings(line, u"a\r"_s + Words() + u'\n');
        case 2:
            return FText.Delete(line);
        case 3:
            return FText.SetText(Words() + u"\n\n"_s + Words());
        case 4:
            return Below(4) == 0 ? FText.Clear() : FText.Insert(line, Words());
        case 5:
        case 6:
            return FText.ReplaceText(ZtIsBefore(from, to) ? from : to,
                                     ZtIsBefore(from, to) ? to : from,
                                     TZtTextPiece(Words() + u"\nb\n"_s + Words()));
        case 7:
            return FText.EditStrings(line, FText.GetStrings(line), [](QString &s) { s += u'x'; });
        case 8:
            return FText.Insert(line, Words());
        default:
            return FText.ReplaceInLine(from.y(), from.x(), 0, Words());
        }
    }
    int Below(int AEnd) { return std::uniform_int_distribution(0, AEnd - 1)(FRandom); }

private:
    QPoint Place()
    {
        if (FText.GetCount() == 0)
            return {};
        const int line = Below(FText.GetCount());
        return {Below(FText.GetLength(line) + 1), line};
    }
    QString Words()
    {
        const QString words[] = {{}, u"word"_s, u"\xe4\xf6"_s, u"\x4e16\xd83d"_s, u"tab\t"_s};
        return words[Below(5)];
    }

    TStringList &FText;
    std::minstd_rand FRandom;
};

struct TState {
    qsizetype Size; // of the journal
    QString Text;
};

// What the journal was after each of some edits.
std::vector<TState> EditAtRandom(TSession &ASession, unsigned ASeed, int ASteps)
{
    TRandomEdits edits(ASession.Text, ASeed);
    std::vector<TState> states;
    for (int i = 0; i < ASteps; ++i) {
        edits.One();
        EXPECT_TRUE(ASession.Journal->Flush());
        states.push_back({ReadAll(ASession.Path).size(), Shown(ASession.Text)});
    }
    return states;
}

// The last state that the first `ASize` bytes of the journal hold.
QString StateAt(const std::vector<TState> &AStates, qsizetype ASize)
{
    QString text;
    for (const TState &state : AStates)
        if (state.Size <= ASize)
            text = state.Text;
    return text;
}

} // namespace

TEST(Journal, OfRandomEditsGivesTheTextBack)
{
    const int runs = std::max(qEnvironmentVariableIntValue("ZT_RANDOM_STEPS") / 100, 40);
    for (int seed = 1; seed <= runs; ++seed) {
        TSession session;
        const QString before = Shown(session.Text);
        EditAtRandom(session, unsigned(seed), 30);
        if (!session.HasFile()) {
            EXPECT_EQ(Shown(session.Text), before);
            continue;
        }
        TZtRestored result;
        ASSERT_EQ(session.Restored({}, &result), Shown(session.Text)) << seed;
        EXPECT_TRUE(result.IsComplete);
    }
}

// Never anything that the text was not.
TEST(Journal, CutOrDamagedGivesAnEarlierState)
{
    TSession session;
    session.Type(u"first"_s);
    session.Journal->Flush();
    const qsizetype begin = ReadAll(session.Path).size();
    std::vector<TState> states{{begin, Shown(session.Text)}};
    const std::vector<TState> more = EditAtRandom(session, 5, 20);
    states.insert(states.end(), more.begin(), more.end());
    const QByteArray whole = ReadAll(session.Path);
    ASSERT_GT(whole.size(), begin);
    const auto check = [&](const QByteArray &bytes, qsizetype sound, bool complete) {
        WriteAll(session.Path, bytes);
        TZtRestored result;
        ASSERT_EQ(session.Restored({}, &result), StateAt(states, sound)) << sound;
        ASSERT_EQ(result.IsComplete, complete) << sound;
        ASSERT_EQ(ReadAll(session.Path), bytes);
    };
    const auto isEnd = [&](qsizetype size) {
        return std::any_of(states.begin(), states.end(),
                           [&](const TState &state) { return state.Size == size; });
    };
    for (qsizetype size = begin; size <= whole.size(); ++size)
        check(whole.first(size), size, isEnd(size));
    std::minstd_rand random(1);
    for (int i = 0; i < 400; ++i) {
        QByteArray bytes = whole;
        const qsizetype at = std::uniform_int_distribution(begin, whole.size() - 1)(random);
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
    EXPECT_EQ(header->Path, u"/home/me/a.txt"_s);
    EXPECT_EQ(header->Size, 14);
    EXPECT_EQ(header->Modified, 7);
    EXPECT_EQ(header->Format, "format");
    EXPECT_TRUE(header->Process.IsAlive());
    session.Journal.reset();
    EXPECT_TRUE(session.HasFile());
    session.Attach({}, {});
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
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const quint64 start = TZtJournalProcess::Current().Start;
        _exit(write(ends[1], &start, sizeof(start)) == sizeof(start) ? 0 : 1);
    }
    quint64 start = 0;
    EXPECT_EQ(read(ends[0], &start, sizeof(start)), ssize_t(sizeof(start)));
    close(ends[0]);
    close(ends[1]);
    siginfo_t info = {};
    for (const int waiting : {WNOWAIT, 0}) { // first it is still in the table of processes
        EXPECT_EQ(waitid(P_PID, id_t(child), &info, WEXITED | waiting), 0);
        EXPECT_FALSE((TZtJournalProcess{child, start, own.Boot}.IsAlive()));
    }
}

// Of a large file the journal holds the changes only.
TEST(Journal, OfALargeFileNeedsTheFile)
{
    const QByteArray file = QByteArray("some line of the file\n").repeated(300000);
    struct TRow {
        std::optional<QByteArray> File;
        bool WholeText;
        TZtRestoredText Text;
        bool Changed;
    };
    const TRow rows[] = {
        {file, false, TZtRestoredText::rtWhole, false},
        {file + "more", false, TZtRestoredText::rtTyped, true},
        {{}, false, TZtRestoredText::rtTyped, true},
        {file + "more", true, TZtRestoredText::rtWhole, true},
    };
    for (const TRow &row : rows) {
        TSession session(file);
        if (row.WholeText)
            session.Text.SetText(u"all new\nof it"_s);
        session.Type(u" typed"_s);
        session.Type(u" here"_s);
        session.Text.Insert(1, u"and a line"_s);
        TZtRestored result;
        const QString text = session.Restored(row.File, &result);
        EXPECT_EQ(result.Text, row.Text);
        EXPECT_EQ(result.IsFileChanged, row.Changed);
        EXPECT_LT(QFileInfo(session.Path).size(), 1000);
        EXPECT_EQ(text, row.Text == TZtRestoredText::rtWhole ? Shown(session.Text)
                                                             : u" typed here\x1e"
                                                               "and a line\x1e"_s);
    }
}

TEST(Journal, OfATextWithoutAFileHoldsAllOfIt)
{
    TSession session;
    session.Attach({}, {});
    session.Type(u"x"_s);
    TZtRestored result;
    EXPECT_EQ(session.Restored({}, &result), Shown(session.Text));
    EXPECT_FALSE(result.IsFileChanged);
}

// With a small file and with one whose contents are not in the journal.
TEST(Journal, StartsAnewOnWhatIsSaved)
{
    for (const int lines : {1, 300000}) {
        TSession session;
        const QByteArray saved = QByteArray("a line of what is saved\n").repeated(lines);
        session.Text.SetUtf8Text(saved);
        session.Journal->BeginSave(saved);
        session.Type(u"meanwhile"_s);
        // The process ends before or after the file is written.
        TZtRestored result;
        EXPECT_EQ(session.Restored("one\ntwo\nthree\n", &result), Shown(session.Text));
        EXPECT_FALSE(result.IsFileChanged);
        EXPECT_EQ(session.Restored(saved, &result), Shown(session.Text));
        EXPECT_FALSE(result.IsFileChanged);
        session.Journal->Saved({u"/home/me/b.txt"_s, 8, "other", {}});
        EXPECT_EQ(session.Restored(saved, &result), Shown(session.Text));
        EXPECT_FALSE(result.IsFileChanged);
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
    struct TRow {
        QString Last, Saved;
        int Lines;
        TZtRestoredText Text;
    };
    const TRow rows[] = {
        {{}, {}, 1, TZtRestoredText::rtWhole},
        {{}, {}, 300000, TZtRestoredText::rtWhole},
        {u"\xd83d\xde00 "_s, u"? "_s, 1, TZtRestoredText::rtWhole},
        {u"\xd83d\xde00 "_s, u"? "_s, 300000, TZtRestoredText::rtTyped},
    };
    for (const TRow &row : rows) {
        const QByteArray lines = QByteArray("one line of what is saved\n").repeated(row.Lines);
        const QByteArray saved = lines + row.Saved.toUtf8();
        TSession session;
        session.Text.SetUtf8Text(lines);
        session.Text.Add(row.Last);
        const QPoint end(int(row.Last.size()), row.Lines);
        session.Journal->BeginSave(saved);
        session.Text.ReplaceInLine(end.y(), end.x(), 0, u"x");
        TZtRestored result;
        for (int i = 0; i < 2; ++i) {
            const QString text = session.Restored(saved, &result);
            // While it is being saved, the journal begins with what was set as a whole.
            EXPECT_EQ(result.Text, i == 0 ? TZtRestoredText::rtWhole : row.Text);
            EXPECT_EQ(text == Shown(session.Text), result.Text == TZtRestoredText::rtWhole);
            session.Journal->Saved({u"/home/me/a.txt"_s, 8, "format", {}});
        }
    }
}

TEST(Journal, StaysWhenASaveFails)
{
    TSession session;
    session.Type(u"a"_s);
    session.Journal->BeginSave("onea\ntwo\nthree\n");
    session.Type(u"b"_s);
    session.Journal->SaveFailed();
    session.Type(u"c"_s);
    EXPECT_EQ(session.Restored({}), Shown(session.Text));
    EXPECT_EQ(session.Restored("onea\ntwo\nthree\n"), Shown(session.Text));
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
