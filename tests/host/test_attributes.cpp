#include "FileStore.h"

#include "uZtException.h"
#include "uZtStringStream.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t Self = uid_t(-1);
constexpr uid_t Nobody = 65534;
constexpr char AccessList[] = "system.posix_acl_access";
constexpr char DefaultList[] = "system.posix_acl_default";

// A POSIX access control list as the system stores it.
struct TEntry {
    quint16 Tag;
    quint16 Permissions;
    quint32 Id = 0xFFFFFFFF;
};
constexpr quint16 Owner = 1, User = 2, OwnGroup = 4, Mask = 16, Other = 32;

QByteArray List(std::initializer_list<TEntry> AEntries)
{
    QByteArray list("\2\0\0\0", 4);
    for (const TEntry &entry : AEntries)
        list.append(reinterpret_cast<const char *>(&entry), sizeof entry);
    return list;
}

bool Set(const char *APath, const char *AName, const QByteArray &AValue)
{
    return setxattr(APath, AName, AValue.constData(), size_t(AValue.size()), 0) == 0;
}

// All that a save is to keep.
std::string Attributes(const char *APath)
{
    struct stat status = {};
    stat(APath, &status);
    char text[80];
    std::snprintf(text, sizeof text, "%o %u:%u, %u names", unsigned(status.st_mode), status.st_uid,
                  status.st_gid, unsigned(status.st_nlink));
    std::string all = text;
    char names[1000];
    const ssize_t size = listxattr(APath, names, sizeof names);
    for (const char *name = names; name < names + size; name += strlen(name) + 1) {
        char value[1000];
        const ssize_t length = getxattr(APath, name, value, sizeof value);
        all += std::string("\n") + name + "=" +
               QByteArray(value, qMax<ssize_t>(length, 0)).toHex().toStdString();
    }
    return all;
}

// What a save as that user answers.
std::string Save(const QString &APath, uid_t AUser)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        std::string answer = "not that user";
        try {
            if (AUser == Self ||
                (setgroups(0, nullptr) == 0 && setgid(AUser) == 0 && setuid(AUser) == 0)) {
                answer = ZtMayOnlyReplace(APath) ? "replaced: " : "";
                answer += ZtSaveFile(APath, "new").join(u", "_s).toStdString();
            }
        } catch (const EZtException &error) {
            answer = error.what();
        }
        _exit(write(ends[1], answer.data(), answer.size()) != ssize_t(answer.size()));
    }
    close(ends[1]);
    char answer[1000];
    const ssize_t size = read(ends[0], answer, sizeof answer);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0 ? std::string(answer, size_t(size)) : "the child died";
}

struct TRow {
    const char *Name;
    bool (*SetUp)(const char *APath);
    uid_t Saver;
    bool InPlace;
    // What is lost, and the mode then; none when all is kept.
    const char *Lost = "";
    mode_t Mode = 0;
};

const QByteArray KeepsTheGroupOut =
    List({{Owner, 6}, {User, 6, 1000}, {OwnGroup, 0}, {Mask, 6}, {Other, 0}});

const TRow Rows[] = {
    {"Mode", [](const char *path) { return chmod(path, 0604) == 0; }, Self, false},
    {"List", [](const char *path) { return Set(path, AccessList, KeepsTheGroupOut); }, Self, false},
    {"Attribute", [](const char *path) { return Set(path, "user.note", "a"); }, Self, false},
    {"OwnerAndSetUid",
     [](const char *path) { return chown(path, 1000, 1001) == 0 && chmod(path, 06755) == 0; }, Self,
     false},
    {"HardLink",
     [](const char *path) {
         return link(path, QByteArray(path).append("2").constData()) == 0 &&
                Set(path, "user.note", "a") && Set(path, AccessList, KeepsTheGroupOut);
     },
     Self, true},
    {"HardLinkAndSetUidOfItsOwner",
     [](const char *path) {
         return link(path, QByteArray(path).append("2").constData()) == 0 &&
                chown(path, Nobody, Nobody) == 0 && chmod(path, 06755) == 0;
     },
     Nobody, true},
    {"OthersFileThatAllMayWrite", [](const char *path) { return chmod(path, 0666) == 0; }, Nobody,
     true},
    {"OthersFileThatOneMayRead", [](const char *path) { return chmod(path, 0644) == 0; }, Nobody,
     false, "replaced: its owner (root), its group (root)", 0644},
    {"OthersFileThatItsGroupMayNotRead", [](const char *path) { return chmod(path, 0604) == 0; },
     Nobody, false, "replaced: its owner (root), its group (root), its permissions", 0600},
    {"OthersList",
     [](const char *path) {
         return chmod(path, 0644) == 0 &&
                Set(path, AccessList,
                    List({{Owner, 6}, {User, 0, 1000}, {OwnGroup, 4}, {Mask, 4}, {Other, 4}}));
     },
     Nobody, false,
     "replaced: its owner (root), its group (root), its access control list, its permissions",
     0600},
    {"OthersHardLink",
     [](const char *path) {
         return link(path, QByteArray(path).append("2").constData()) == 0 && chmod(path, 0644) == 0;
     },
     Nobody, false,
     "replaced: its owner (root), its group (root), its other names, which keep the old contents",
     0644},
};

class Saving : public testing::TestWithParam<TRow> {
protected:
    Saving() { chmod(QFile::encodeName(Folder.path()).constData(), 0777); }

    QTemporaryDir Folder;
};

} // namespace

TEST_P(Saving, KeepsWhatCanBeKept)
{
    const TRow &row = GetParam();
    if (row.Saver != Self && geteuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    const QString path = Folder.filePath(u"a"_s);
    const QByteArray name = QFile::encodeName(path);
    close(open(name.constData(), O_CREAT | O_WRONLY, 0640));
    if (!row.SetUp(name.constData()))
        GTEST_SKIP() << "not here: " << strerror(errno);
    // Of no importance for a file that has no list, or has its own.
    Set(QFile::encodeName(Folder.path()), DefaultList,
        List({{Owner, 7}, {User, 7, 1002}, {OwnGroup, 7}, {Mask, 7}, {Other, 7}}));
    struct stat before = {};
    struct stat after = {};
    stat(name.constData(), &before);
    const std::string attributes = Attributes(name.constData());
    EXPECT_EQ(Save(path, row.Saver), row.Lost);
    stat(name.constData(), &after);
    EXPECT_EQ(ZtReadFile(path), "new");
    EXPECT_EQ(before.st_ino == after.st_ino, row.InPlace);
    const bool all = std::string(row.Lost).empty();
    EXPECT_EQ(after.st_mode & 07777, all ? before.st_mode & 07777 : row.Mode);
    if (all) {
        EXPECT_EQ(Attributes(name.constData()), attributes);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Saving, testing::ValuesIn(Rows),
                         [](const auto &row) { return std::string(row.param.Name); });

TEST_F(Saving, ANewFileIsAsTheFolderWantsIt)
{
    const QByteArray folder = QFile::encodeName(Folder.path());
    for (const bool list : {false, true}) {
        if (list && !Set(folder.constData(), DefaultList,
                         List({{Owner, 7}, {User, 6, 1002}, {OwnGroup, 7}, {Mask, 6}, {Other, 0}})))
            GTEST_SKIP() << "no access control lists: " << strerror(errno);
        const QByteArray made = folder + (list ? "/made2" : "/made");
        close(open(made.constData(), O_CREAT | O_WRONLY, 0666));
        const QByteArray saved = folder + (list ? "/saved2" : "/saved");
        ZtSaveFile(QFile::decodeName(saved), "new");
        EXPECT_EQ(Attributes(saved.constData()), Attributes(made.constData()));
    }
}
