#include "CommandLine.h"
#include "FileState.h"
#include "FileStore.h"
#include "SideFile.h"

#include "uZtException.h"
#include "uZtStringStream.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class FileStore : public testing::Test {
protected:
    QString Path(const char *AName) const { return Folder.filePath(QString::fromLatin1(AName)); }
    QString Make(const char *AName, const QByteArray &ABytes) const
    {
        QFile file(Path(AName));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(ABytes);
        return file.fileName();
    }
    QStringList Names() const
    {
        return QDir(Folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir Folder;
};

mode_t ModeOf(const QString &APath)
{
    struct stat status = {};
    stat(QFile::encodeName(APath).constData(), &status);
    return status.st_mode & 07777;
}

std::string MessageOfSave(const QString &APath)
{
    try {
        ZtSaveFile(APath, QByteArray(5000, 'n'));
    } catch (const EStreamError &error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST_F(FileStore, SavingKeepsTheModeAndLeavesNothingElse)
{
    const QString path = Make("a.pas", "old");
    for (const mode_t mode : {0640u, 0755u, 0604u}) {
        chmod(QFile::encodeName(path).constData(), mode);
        ZtSaveFile(path, "new");
        EXPECT_EQ(ModeOf(path), mode);
        EXPECT_EQ(ZtReadFile(path), "new");
    }
    EXPECT_EQ(Names(), QStringList{u"a.pas"_s});
}

TEST_F(FileStore, SavingThroughLinksWritesTheirTarget)
{
    QDir(Folder.path()).mkdir(u"sub"_s);
    const QString target = Make("sub/target", "old");
    QFile::link(u"sub/target"_s, Path("near"));
    QFile::link(u"near"_s, Path("far"));
    QFile::link(u"sub/fresh"_s, Path("dangling"));
    ZtSaveFile(Path("far"), "new");
    ZtSaveFile(Path("dangling"), "fresh");
    EXPECT_EQ(ZtReadFile(target), "new");
    EXPECT_EQ(ZtReadFile(Path("sub/fresh")), "fresh");
    for (const char *link : {"near", "far", "dangling"})
        EXPECT_TRUE(QFileInfo(Path(link)).isSymLink()) << link;
}

TEST_F(FileStore, AWriteThatFailsLeavesTheOldFileWhole)
{
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 1000;
    for (const bool inPlace : {false, true}) {
        const QString path = Make("a.pas", "old");
        if (inPlace)
            link(QFile::encodeName(path).constData(), QFile::encodeName(Path("b")).constData());
        const QStringList names = Names();
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        const std::string message = MessageOfSave(path);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        EXPECT_EQ(message, "Cannot write \"" + path.toStdString() + "\": File too large.");
        EXPECT_EQ(ZtReadFile(path), "old");
        EXPECT_EQ(Names(), names);
    }
}

TEST_F(FileStore, WhatCannotBeWrittenIsNamedWithTheReason)
{
    EXPECT_EQ(MessageOfSave(Folder.path()),
              "Cannot write \"" + Folder.path().toStdString() + "\": it is a directory.");
    EXPECT_EQ(MessageOfSave(u"/dev/null"_s),
              "Cannot write \"/dev/null\": it is not a regular file.");
    EXPECT_EQ(MessageOfSave(Path("none/a")),
              "Cannot write \"" + Path("none/a").toStdString() + "\": No such file or directory.");
    QFile::link(u"loop"_s, Path("loop"));
    EXPECT_EQ(MessageOfSave(Path("loop")), "Cannot write \"" + Path("loop").toStdString() +
                                               "\": Too many levels of symbolic links.");
    EXPECT_TRUE(QFileInfo(Path("loop")).isSymLink());
}

TEST_F(FileStore, WhatADeadProcessLeftGoesAndNothingElse)
{
    const QString path = Make("a", "old");
    const QString dead = Make(".a.0123456789abcdef.zt-new", "half");
    const QString others[] = {Make(".b.0123456789abcdef.zt-new", ""), Make(".a.0.zt-new", ""),
                              Make(".a.0123456789abcdef.zt-old", "older")};
    QFile::link(u"a"_s, Path(".a.fedcba9876543210.zt-new"));
    const TZtSideFile inUse(path);
    ZtSaveFile(path, "new");
    EXPECT_FALSE(QFile::exists(dead));
    for (const QString &other : others)
        EXPECT_TRUE(QFile::exists(other)) << other.toStdString();
    EXPECT_TRUE(QFileInfo(Path(".a.fedcba9876543210.zt-new")).isSymLink());
    EXPECT_TRUE(QFile::exists(inUse.Path()));
    EXPECT_EQ(ModeOf(inUse.Path()), 0600);
    EXPECT_EQ(ZtReadFile(path), "new");
}

TEST_F(FileStore, AChangeIsOneOfTheContents)
{
    using enum TZtFileChange;
    const QString path = Path("a");
    const QByteArray name = QFile::encodeName(path);
    const struct {
        const char *Name;
        std::function<void()> Change;
        TZtFileChange Found;
    } rows[] = {
        {"nothing", [] {}, fcNone},
        {"same size at once", [&] { Make("a", "two"); }, fcChanged},
        {"other size", [&] { Make("a", "three"); }, fcChanged},
        {"touched", [&] { utimensat(AT_FDCWD, name.constData(), nullptr, 0); }, fcNone},
        {"copied back",
         [&] {
             QFile::remove(path);
             Make("a", "one");
         },
         fcNone},
        {"gone", [&] { QFile::remove(path); }, fcMissing},
        {"no file",
         [&] {
             QFile::remove(path);
             QDir().mkdir(path);
         },
         fcChanged},
        {"cannot be read",
         [&] {
             QFile::remove(path);
             QFile::link(u"a"_s, path);
         },
         fcUnknown},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Name);
        const QFileInfo old(path);
        old.isDir() ? QDir().rmdir(path) : QFile::remove(path);
        Make("a", "one");
        TZtFileState state(path);
        state.SetContents("one");
        row.Change();
        QString reason;
        EXPECT_EQ(state.ChangeOf(path, reason), row.Found);
        EXPECT_EQ(reason.isEmpty(), row.Found != fcUnknown);
    }
}

TEST(CommandLine, WrongArgumentsAreUsageErrors)
{
    const QStringList rows[] = {
        {u"--nonsense"_s},           {u"--size"_s, u"12"_s}, {u"--size"_s, u"0x5"_s},
        {u"--size"_s, u"5x99999"_s}, {u"--size=axb"_s},      {u"--line"_s, u"0"_s},
        {u"--line"_s, u"x"_s},       {u"--render"_s},        {u"--render"_s, u""_s},
        {u"a"_s, u"-platform"_s},    {u"-reverse=1"_s},      {u"-strange"_s}};
    for (const QStringList &row : rows) {
        TCommandLine line;
        const auto answer = ZtReadCommandLine(QStringList{u"ztedit"_s} + row, line);
        ASSERT_TRUE(answer) << row.join(u' ').toStdString();
        EXPECT_EQ(answer->ExitCode, ZtUsageTrouble);
        EXPECT_FALSE(answer->Text.contains(u'\n'));
    }
}

TEST(CommandLine, OptionsAndFilesComeInAnyOrder)
{
    TCommandLine line;
    const QStringList arguments{u"ztedit"_s,   u"a.pas"_s,    u"--size"_s, u"30x20"_s, u"b"_s,
                                u"--line=7"_s, u"--render"_s, u"o.png"_s,  u"--"_s,    u"-x"_s};
    ASSERT_FALSE(ZtReadCommandLine(arguments, line));
    EXPECT_EQ(line.Files, (QStringList{u"a.pas"_s, u"b"_s, u"-x"_s}));
    EXPECT_EQ(line.Size, QSize(30, 20));
    EXPECT_EQ(line.Line, 7);
    EXPECT_EQ(line.RenderTo, u"o.png"_s);
}

TEST(CommandLine, QtsOwnOptionsAreLeftToQt)
{
    const struct {
        const char *Arguments, *Files;
        bool Display = false;
    } rows[] = {
        {"a -style fusion b", "a b"},
        {"--style=fusion a -stylesheet=x", "a"},
        {"-reverse a -qwindowtitle t -platform xcb", "a", true},
        {"-display :3", "", true},
        {"-- -reverse --style", "-reverse --style"},
    };
    for (const auto &row : rows) {
        TCommandLine line;
        const QString arguments = u"ztedit "_s + QLatin1StringView(row.Arguments);
        EXPECT_FALSE(ZtReadCommandLine(arguments.split(u' '), line)) << row.Arguments;
        EXPECT_EQ(line.Files.join(u' '), QLatin1StringView(row.Files));
        EXPECT_EQ(line.ChoosesDisplay, row.Display) << row.Arguments;
    }
}
