#include "JournalFiles.h"

#include "uZtJournalReader.h"
#include "uZtStringStream.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr QLatin1StringView Suffix(".journal");

} // namespace

QString ZtJournalFolder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(state))
        state = QDir::homePath() + QStringLiteral("/.local/state");
    return QDir::cleanPath(state) + QStringLiteral("/ztedit");
}

QString ZtNewJournalName()
{
    const QString folder = ZtJournalFolder();
    QDir().mkpath(QFileInfo(folder).path());
    const QByteArray local = QFile::encodeName(folder);
    if (mkdir(local.constData(), S_IRWXU) != 0)
        chmod(local.constData(), S_IRWXU);
    QString name;
    do
        name = folder +
               QStringLiteral("/%1-%2").arg(getpid()).arg(QRandomGenerator::system()->generate(), 8,
                                                          16, QLatin1Char('0')) +
               Suffix;
    while (QFileInfo::exists(name));
    return name;
}

std::vector<TLeftJournal> ZtLeftJournals()
{
    std::vector<TLeftJournal> journals;
    const QDir folder(ZtJournalFolder(), QLatin1Char('*') + Suffix, QDir::Time | QDir::Reversed,
                      QDir::Files | QDir::Hidden);
    for (const QFileInfo &info : folder.entryInfoList()) {
        const QString path = info.absoluteFilePath();
        auto header = TZtJournalReader::ReadHeader(path);
        if (header && !header->Process.IsAlive())
            journals.push_back({path, std::move(*header)});
    }
    return journals;
}

TZtFileHandle ZtClaimJournal(const QString &APath)
{
    TZtFileHandle file = ZtOpenFile(APath, O_RDONLY);
    if (file.IsOpen() && flock(file.Get(), LOCK_EX | LOCK_NB) == 0 && file.IsAt(APath))
        return file;
    return {};
}

void ZtRemoveJournal(const QString &APath)
{
    QFile::remove(APath);
    QFile::remove(APath + QStringLiteral(".next")); // one that was to take its place
}

QByteArray ZtFormatBytes(const TZtTextFormat &AFormat)
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly)
        << quint8(AFormat.Encoding) << quint8(AFormat.LineEnding) << AFormat.Mark
        << AFormat.MixedLineEndings << AFormat.FinalLineBreak << AFormat.Undecodable;
    return bytes;
}

TZtTextFormat ZtFormatOfBytes(const QByteArray &ABytes)
{
    TZtTextFormat format;
    quint8 encoding = 0, lineEnding = 0;
    QDataStream from(ABytes);
    from >> encoding >> lineEnding >> format.Mark >> format.MixedLineEndings >>
        format.FinalLineBreak >> format.Undecodable;
    if (from.status() != QDataStream::Ok || encoding > quint8(TZtEncoding::teWindows1252) ||
        lineEnding > quint8(TZtLineEnding::leCr))
        return {};
    format.Encoding = TZtEncoding(encoding);
    format.LineEnding = TZtLineEnding(lineEnding);
    return format;
}
