#include "SideFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr QLatin1StringView NewSuffix("zt-new");
constexpr QLatin1StringView BackupSuffix("zt-old");
// Leaves room for what a side file's name has besides.
constexpr qsizetype MaxName = 200;

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(SideFile)
};

QString NameIn(const QString &ATarget)
{
    QString name = QFileInfo(ATarget).fileName();
    const QByteArray bytes = QFile::encodeName(name);
    if (bytes.size() <= MaxName)
        return name;
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
}

QString Beside(const QString &ATarget, const QString &AName)
{
    return QFileInfo(ATarget).path() + QLatin1Char('/') + AName;
}

// A name that nobody can know before.
QString NewPath(const QString &ATarget, QLatin1StringView ASuffix)
{
    const QString random = QStringLiteral("%1").arg(QRandomGenerator::system()->generate64(), 16,
                                                    16, QLatin1Char('0'));
    return Beside(ATarget, QStringLiteral(".%1.%2.%3").arg(NameIn(ATarget), random, ASuffix));
}

// The name that a side file tells of its target; empty for another file.
QString TargetName(const QString &AName, QLatin1StringView ASuffix)
{
    static const QRegularExpression pattern(QStringLiteral("\\A\\.(.+)\\.[0-9a-f]{16}\\.zt-...\\z"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return AName.endsWith(ASuffix) ? pattern.match(AName).captured(1) : QString();
}

// The side files of a file, those of its other names in the folder among them.
QStringList SidePaths(const QString &ATarget, QLatin1StringView ASuffix)
{
    const TZtFileHandle target = ZtOpenFile(ATarget, O_PATH);
    QStringList paths;
    QDirIterator all(QFileInfo(ATarget).path(), QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    while (all.hasNext()) {
        const QString path = all.next();
        const QString name = TargetName(all.fileName(), ASuffix);
        if (!name.isEmpty() && (name == NameIn(ATarget) || target.IsAt(Beside(ATarget, name))))
            paths.append(path);
    }
    return paths;
}

// Opens and locks what no process has in use.
TZtFileHandle OpenDead(const QString &APath)
{
    // Over a network, only one who may write may lock.
    TZtFileHandle file = ZtOpenFile(APath, O_RDWR);
    if (!file.IsOpen() && errno == EACCES)
        file = ZtOpenFile(APath, O_RDONLY);
    if (!file.IsOpen() || (flock(file.Get(), LOCK_EX | LOCK_NB) == 0 && file.IsAt(APath)))
        return file;
    errno = EWOULDBLOCK;
    return {};
}

// Whether a file's owner may be believed what it held before.
bool IsTrusted(const TZtFileHandle &AFile, const QString &ATarget)
{
    struct stat file = {};
    struct stat target = {};
    return fstat(AFile.Get(), &file) == 0 &&
           (file.st_uid == geteuid() || file.st_uid == 0 ||
            (lstat(QFile::encodeName(ATarget).constData(), &target) == 0 &&
             file.st_uid == target.st_uid));
}

} // namespace

TZtSideFile::TZtSideFile(const QString &ATarget) : FTarget(ATarget)
{
    do {
        FPath = NewPath(ATarget, NewSuffix);
        FHandle = ZtOpenFile(FPath, O_RDWR | O_CREAT | O_EXCL);
        if (!FHandle.IsOpen() && errno != EEXIST)
            ZtCheckCall(-1);
    } while (!FHandle.IsOpen() || !Lock());
}

TZtSideFile::~TZtSideFile()
{
    if (!FPath.isEmpty())
        unlink(QFile::encodeName(FPath).constData());
}

// Another process may have taken the file for one that was left; then that one removes it. A file
// system may know no locks, and then nobody takes it.
bool TZtSideFile::Lock()
{
    if (flock(FHandle.Get(), LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    return FHandle.IsAt(FPath);
}

void TZtSideFile::BecomeBackup()
{
    const QString path = NewPath(FTarget, BackupSuffix);
    ZtPutAt(FPath, path);
    FPath = path;
}

bool TZtSideFile::Replace()
{
    if (std::rename(QFile::encodeName(FPath).constData(), QFile::encodeName(FTarget).constData()) !=
        0)
        return false;
    Keep();
    return true;
}

void TZtSideFile::PutAt(const QString &APath)
{
    ZtPutAt(FPath, APath);
    Keep();
}

void ZtRemoveDeadFiles(const QString &ATarget)
{
    for (const QString &path : SidePaths(ATarget, NewSuffix))
        if (OpenDead(path).IsOpen())
            unlink(QFile::encodeName(path).constData());
}

std::vector<TZtBackup> ZtFindBackups(const QString &ATarget)
{
    QFileInfoList files;
    for (const QString &path : SidePaths(ATarget, BackupSuffix))
        files.append(QFileInfo(path));
    std::sort(files.begin(), files.end(), [](const QFileInfo &a, const QFileInfo &b) {
        return a.lastModified() > b.lastModified();
    });
    const TZtFileHandle target = ZtOpenFile(ATarget, O_RDONLY);
    std::vector<TZtBackup> backups;
    for (const QFileInfo &info : files) {
        TZtBackup backup{info.filePath(), OpenDead(info.filePath()), {}};
        if (!backup.Handle.IsOpen() && errno != EACCES)
            continue;
        if (!backup.Handle.IsOpen()) {
            backup.Fault = qt_error_string(EACCES);
        } else if (!IsTrusted(backup.Handle, ATarget)) {
            backup.Fault = TTexts::tr("it belongs to the user %1").arg(info.owner());
        } else if (target.IsOpen() && ZtSameContents(target.Get(), backup.Handle.Get())) {
            unlink(QFile::encodeName(backup.Path).constData());
            continue;
        }
        backups.push_back(std::move(backup));
    }
    return backups;
}

void ZtPutAt(const QString &AFrom, const QString &ATo)
{
    const QByteArray from = QFile::encodeName(AFrom);
    const QByteArray to = QFile::encodeName(ATo);
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return;
    // Not every file system can refuse to replace, but then it may have links.
    if (errno != EINVAL && errno != ENOSYS)
        ZtCheckCall(-1);
    ZtCheckCall(link(from.constData(), to.constData()));
    unlink(from.constData());
}

QString ZtFreeName(const QString &ATarget)
{
    const QString first = Beside(ATarget, NameIn(ATarget) + QStringLiteral(".kept"));
    QString name = first;
    for (int i = 2; QFileInfo(name).exists() || QFileInfo(name).isSymLink(); ++i)
        name = first + QStringLiteral("-%1").arg(i);
    return name;
}
