#include "FileAttributes.h"

#include "FileHandle.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <grp.h>
#include <linux/limits.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <linux/xattr.h>
#include <pwd.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr mode_t AllModeBits = 07777;

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(FileAttributes)
};

// What a function of <sys/xattr.h> puts into a buffer.
template <typename T> std::optional<QByteArray> Fetch(T ACall)
{
    QByteArray value(XATTR_SIZE_MAX, Qt::Uninitialized);
    const ssize_t size = ACall(value.data(), size_t(value.size()));
    if (size < 0)
        return std::nullopt;
    return value.first(size);
}

bool IsList(const QByteArray &AName) { return AName.startsWith("system."); }

// The system makes these from the contents.
bool IsDerived(const QByteArray &AName)
{
    return AName == "security.ima" || AName == "security.evm";
}

bool Give(int AHandle, const QByteArray &AName, const std::optional<QByteArray> &AValue)
{
    const auto now = Fetch(
        [&](char *to, size_t size) { return fgetxattr(AHandle, AName.constData(), to, size); });
    return AValue && (now == AValue || fsetxattr(AHandle, AName.constData(), AValue->constData(),
                                                 size_t(AValue->size()), 0) == 0);
}

// The folder may have given a list to a new file.
bool RemoveList(int AHandle)
{
    const bool none = fgetxattr(AHandle, XATTR_NAME_POSIX_ACL_ACCESS, nullptr, 0) < 0 &&
                      (errno == ENODATA || errno == ENOTSUP);
    return none || fremovexattr(AHandle, XATTR_NAME_POSIX_ACL_ACCESS) == 0;
}

QString UserName(uid_t AUser)
{
    const passwd *entry = getpwuid(AUser);
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString::number(AUser);
}

QString GroupName(gid_t AGroup)
{
    const group *entry = getgrgid(AGroup);
    return entry ? QString::fromLocal8Bit(entry->gr_name) : QString::number(AGroup);
}

// The permissions in a list, as those of a file: what its group may do is what the mask lets.
mode_t ModeOfList(const QByteArray &AList)
{
    mode_t mode = 0;
    mode_t group = 0;
    bool masked = false;
    posix_acl_xattr_entry entry = {};
    for (qsizetype at = sizeof(posix_acl_xattr_header);
         at + qsizetype(sizeof entry) <= AList.size(); at += sizeof entry) {
        std::memcpy(&entry, AList.constData() + at, sizeof entry);
        if (entry.e_tag == ACL_USER_OBJ)
            mode |= mode_t(entry.e_perm) << 6;
        else if (entry.e_tag == ACL_OTHER)
            mode |= entry.e_perm;
        else if (entry.e_tag == ACL_MASK || (entry.e_tag == ACL_GROUP_OBJ && !masked))
            group = mode_t(entry.e_perm) << 3;
        masked = masked || entry.e_tag == ACL_MASK;
    }
    return mode | group;
}

mode_t CurrentMask()
{
    const mode_t mask = umask(S_IRWXG | S_IRWXO);
    umask(mask);
    return mask;
}

} // namespace

TZtFileAttributes::TZtFileAttributes(const QString &APath)
{
    const QByteArray path = QFile::encodeName(APath);
    ZtCheckCall(lstat(path.constData(), &FStatus));
    const auto names =
        Fetch([&](char *to, size_t size) { return llistxattr(path.constData(), to, size); });
    FAllListed = names || errno == ENOTSUP;
    if (!names)
        return;
    for (const QByteArray &name : names->split('\0'))
        if (!name.isEmpty() && !IsDerived(name))
            FAttributes.push_back({name, Fetch([&](char *to, size_t size) {
                                       return lgetxattr(path.constData(), name.constData(), to,
                                                        size);
                                   })});
}

QStringList TZtFileAttributes::GiveTo(int AHandle) const
{
    struct stat now = {};
    ZtCheckCall(fstat(AHandle, &now));
    QStringList lost;
    // The group first: one who has given a file away may not change its group. Both before the
    // rest, as a new owner costs permissions and capabilities.
    const bool group =
        now.st_gid == FStatus.st_gid || fchown(AHandle, uid_t(-1), FStatus.st_gid) == 0;
    const bool owner =
        now.st_uid == FStatus.st_uid || fchown(AHandle, FStatus.st_uid, gid_t(-1)) == 0;
    if (!owner)
        lost.append(TTexts::tr("its owner (%1)").arg(UserName(FStatus.st_uid)));
    if (!group)
        lost.append(TTexts::tr("its group (%1)").arg(GroupName(FStatus.st_gid)));
    // In a list the owning group has no name: it would let another group in.
    const bool lists = (group || !HasLists()) && GiveLists(AHandle);
    if (!lists) {
        RemoveList(AHandle);
        lost.append(TTexts::tr("its access control list"));
    }
    for (const TAttribute &attribute : FAttributes)
        if (!IsList(attribute.Name) && !Give(AHandle, attribute.Name, attribute.Value))
            lost.append(TTexts::tr("its attribute %1").arg(QString::fromLocal8Bit(attribute.Name)));
    if (!FAllListed)
        lost.append(TTexts::tr("its extended attributes"));
    const mode_t mode = ModeWithout(!owner, !group, !lists);
    ZtCheckCall(fstat(AHandle, &now));
    if ((now.st_mode & AllModeBits) != mode)
        fchmod(AHandle, mode);
    ZtCheckCall(fstat(AHandle, &now));
    if ((now.st_mode ^ FStatus.st_mode) & AllModeBits)
        lost.append(TTexts::tr("its permissions"));
    return lost;
}

bool TZtFileAttributes::HasLists() const
{
    return std::any_of(FAttributes.begin(), FAttributes.end(),
                       [](const TAttribute &a) { return IsList(a.Name); });
}

// Answers whether the access control lists are those of the file, and there is no other one.
bool TZtFileAttributes::GiveLists(int AHandle) const
{
    bool access = false;
    for (const TAttribute &attribute : FAttributes) {
        if (IsList(attribute.Name) && !Give(AHandle, attribute.Name, attribute.Value))
            return false;
        access = access || attribute.Name == XATTR_NAME_POSIX_ACL_ACCESS;
    }
    return access || RemoveList(AHandle);
}

// Who belongs to a group that was lost counts among the others now, and some others may belong to
// the group that came: both may do what both might. Without its lists a file does not tell who was
// kept out.
mode_t TZtFileAttributes::ModeWithout(bool AOwner, bool AGroup, bool ALists) const
{
    mode_t mode = FStatus.st_mode & AllModeBits;
    if (AOwner)
        mode &= ~mode_t(S_ISUID);
    if (AGroup) {
        const mode_t both = mode >> 3 & mode & S_IRWXO;
        mode = (mode & ~mode_t(S_ISGID | S_IRWXG | S_IRWXO)) | both << 3 | both;
    }
    if (ALists)
        mode &= ~mode_t(S_IRWXG | S_IRWXO);
    return mode;
}

void ZtGiveNewFileMode(int AHandle, const QString &APath)
{
    // A folder's own list takes the place of the process's mask.
    const QByteArray folder = QFile::encodeName(QFileInfo(APath).path());
    const auto list = Fetch([&](char *to, size_t size) {
        return getxattr(folder.constData(), XATTR_NAME_POSIX_ACL_DEFAULT, to, size);
    });
    const mode_t allowed = list ? ModeOfList(*list) : ~CurrentMask();
    ZtCheckCall(fchmod(AHandle, DEFFILEMODE & allowed));
}
