#include "FileStore.h"
#include "session.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t Nobody = 65534;
constexpr char AccessList[] = "system.posix_acl_access";
constexpr char DefaultList[] = "system.posix_acl_default";

// A POSIX access control list as the system stores it: what the owner, user 1000, the group, the
// mask and others may do.
QByteArray List(const QString &APermissions)
{
    static constexpr quint16 tags[] = {1, 2, 4, 16, 32};
    QByteArray list("\2\0\0\0", 4);
    for (qsizetype i = 0; i < APermissions.size(); ++i) {
        const quint16 entry[] = {tags[i], quint16(APermissions[i].digitValue())};
        const quint32 id = tags[i] == 2 ? 1000 : 0xFFFFFFFF;
        list.append(reinterpret_cast<const char *>(entry), sizeof entry);
        list.append(reinterpret_cast<const char *>(&id), sizeof id);
    }
    return list;
}

// In more words: the file "a" gets an "owner:user=group", a "note", a "list:permissions" or its
// folder a "default:permissions"; "nobody" saves from then on; "now" remembers what a save is to
// keep, and "then" tells whether it did and whether it is the same file.
class TAttributes : public THostSession {
public:
    TAttributes()
    {
        chmod(Folder.path().toLocal8Bit().constData(), 0777);
        Words[u"owner"_s] = [this](const QString &owner) {
            Check(chown(Local(u"a"_s).constData(), owner.section(u'=', 0, 0).toUInt(),
                        owner.section(u'=', 1).toUInt()));
        };
        Words[u"note"_s] = [this](const QString &) { Set(u"a"_s, "user.note", "a"); };
        Words[u"list"_s] = [this](const QString &list) { Set(u"a"_s, AccessList, List(list)); };
        Words[u"default"_s] = [this](const QString &list) { Set(u"."_s, DefaultList, List(list)); };
        Words[u"nobody"_s] = [this](const QString &) {
            Check(setgroups(0, nullptr) | setresgid(Nobody, Nobody, 0) |
                  setresuid(Nobody, Nobody, 0));
        };
        Words[u"now"_s] = [this](const QString &) {
            FInode = Status(u"a"_s).st_ino;
            FBefore = All(u"a"_s);
        };
        Words[u"then"_s] = [this](const QString &) {
            Say(FBefore == All(u"a"_s) ? u"kept"_s : u"changed"_s);
            Say(FInode == Status(u"a"_s).st_ino ? u"inplace"_s : u"replaced"_s);
        };
        Words[u"may"_s] = [this](const QString &) { Say(!ZtMayOnlyReplace(Path(u"a"_s))); };
    }
    ~TAttributes()
    {
        if (setresuid(0, 0, 0) | setresgid(0, 0, 0))
            return; // never another user
    }
    // All that a save is to keep.
    QString All(const QString &AName) const
    {
        const struct stat status = Status(AName);
        QString all = u"%1 %2:%3, %4 names"_s.arg(status.st_mode, 0, 8)
                          .arg(status.st_uid)
                          .arg(status.st_gid)
                          .arg(status.st_nlink);
        for (const char *name : {"user.note", AccessList, DefaultList}) {
            char value[1000];
            const ssize_t size = getxattr(Local(AName).constData(), name, value, sizeof value);
            all += u' ' + QString::fromLatin1(QByteArray(value, qMax<ssize_t>(size, 0)).toHex());
        }
        return all;
    }

private:
    struct stat Status(const QString &AName) const
    {
        struct stat status = {};
        stat(Local(AName).constData(), &status);
        return status;
    }
    void Check(int AAnswer)
    {
        if (AAnswer != 0)
            Say(qt_error_string());
    }
    void Set(const QString &AFile, const char *AName, const QByteArray &AValue)
    {
        Check(setxattr(Local(AFile).constData(), AName, AValue.constData(), size_t(AValue.size()),
                       0));
    }

    ino_t FInode = 0;
    QString FBefore;
};

} // namespace

TEST(Saving, KeepsWhatCanBeKept)
{
    const struct {
        const char *Words, *Log, *Mode;
    } rows[] = {
        {"mode:a=604", "+ kept replaced", "604"},
        {"list:66060", "+ kept replaced", "660"},
        {"note", "+ kept replaced", "640"},
        {"owner:1000=1001 mode:a=6755", "+ kept replaced", "6755"},
        {"hard:b=a note list:66060", "+ kept inplace", "660"},
        {"hard:b=a owner:65534=65534 mode:a=6755 nobody", "+ kept inplace", "6755"},
        {"mode:a=666 nobody", "+ kept inplace", "666"},
        {"mode:a=644 nobody", "- its owner (root), its group (root) changed replaced", "644"},
        {"mode:a=604 nobody",
         "- its owner (root), its group (root), its permissions changed replaced", "600"},
        {"mode:a=644 list:60444 nobody",
         "- its owner (root), its group (root), its access control list, its permissions changed "
         "replaced",
         "600"},
        {"hard:b=a mode:a=644 nobody",
         "- its owner (root), its group (root), its other names, which keep the old contents "
         "changed replaced",
         "644"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Words);
        TAttributes session;
        const QString fault =
            session.Do(u"write:a=old mode:a=640 "_s + QLatin1StringView(row.Words));
        if (!fault.isEmpty())
            continue; // not here
        // Of no importance for a file that has no list, or has its own.
        session.Do(u"default:77777 now"_s);
        EXPECT_EQ(session.Do(u"may store:a=new then modeof:a"_s),
                  QLatin1StringView(row.Log) + u' ' + QLatin1StringView(row.Mode));
    }
}

TEST(Saving, ANewFileIsAsTheFolderWantsIt)
{
    TAttributes session;
    for (const char *words : {"write:a=new store:b=new", "default:76760 write:c=new store:d=new"}) {
        session.Do(QLatin1StringView(words));
    }
    EXPECT_EQ(session.All(u"a"_s), session.All(u"b"_s));
    EXPECT_EQ(session.All(u"c"_s), session.All(u"d"_s));
}
