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
// folder a "default:permissions"; "nobody" saves from then on; "may" tells whether that one may
// write over the file.
class TAttributes : public THostSession {
public:
    TAttributes()
    {
        chmod(Folder.path().toLocal8Bit().constData(), 0777);
        Words[u"owner"_s] = [this](auto &owner) {
            Check(chown(Local(u"a"_s).constData(), owner.section(u'=', 0, 0).toUInt(),
                        owner.section(u'=', 1).toUInt()));
        };
        Words[u"note"_s] = [this](auto &) { Set(u"a"_s, "user.note", "a"); };
        Words[u"list"_s] = [this](auto &list) { Set(u"a"_s, AccessList, List(list)); };
        Words[u"default"_s] = [this](auto &list) { Set(u"."_s, DefaultList, List(list)); };
        Words[u"nobody"_s] = [this](auto &) {
            Check(setgroups(0, nullptr) | setresgid(Nobody, Nobody, 0) |
                  setresuid(Nobody, Nobody, 0));
        };
        Words[u"may"_s] = [this](auto &) { Say(!ZtMayOnlyReplace(Path(u"a"_s))); };
    }
    ~TAttributes()
    {
        if (setresuid(0, 0, 0) | setresgid(0, 0, 0))
            return; // never another user
    }
    // All that a save is to keep.
    QStringList All(const QString &AName) const
    {
        struct stat status = {};
        stat(Local(AName).constData(), &status);
        QStringList all;
        for (const auto number : {status.st_mode, status.st_uid, status.st_gid})
            all += QString::number(number, 8);
        all += QString::number(status.st_nlink);
        for (const char *name : {"user.note", AccessList, DefaultList}) {
            QByteArray value(1000, '\0');
            getxattr(Local(AName).constData(), name, value.data(), size_t(value.size()));
            all += QString::fromLatin1(value.toHex());
        }
        return all;
    }

private:
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
};

} // namespace

TEST(Saving, KeepsWhatCanBeKept)
{
    const struct {
        const char *Words, *Log; // whether the user may write, what was lost and the mode
        bool Kept = false;
    } rows[] = {
        {"mode:a=604", "+ 604", true},
        {"list:66060", "+ 660", true},
        {"note", "+ 640", true},
        {"owner:1000=1001 mode:a=6755", "+ 6755", true},
        {"hard:b=a note list:66060", "+ 660", true},
        {"hard:b=a owner:65534=65534 mode:a=6755 nobody", "+ 6755", true},
        {"mode:a=666 nobody", "+ 666", true},
        {"mode:a=604 nobody", "- its owner (root), its group (root), its permissions 600"},
        {"mode:a=644 list:60444 nobody",
         "- its owner (root), its group (root), its access control list, its permissions 600"},
        {"hard:b=a mode:a=644 nobody",
         "- its owner (root), its group (root), its other names, which keep the old contents 644"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Words);
        TAttributes session;
        if (!session.Do(u"write:a=old mode:a=640 "_s + QLatin1StringView(row.Words)).isEmpty())
            continue; // not here
        // Of no importance for a file that has no list, or has its own.
        session.Do(u"default:77777"_s);
        const QStringList before = session.All(u"a"_s);
        EXPECT_EQ(session.Do(u"may store:a=new modeof:a"_s), QLatin1StringView(row.Log));
        EXPECT_EQ(session.All(u"a"_s) == before, row.Kept);
    }
}

TEST(Saving, ANewFileIsAsTheFolderWantsIt)
{
    TAttributes session;
    session.Do(u"write:a=new store:b=new default:76760 write:c=new store:d=new"_s);
    EXPECT_EQ(session.All(u"a"_s), session.All(u"b"_s));
    EXPECT_EQ(session.All(u"c"_s), session.All(u"d"_s));
}
