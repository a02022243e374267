#include "uZtJournalFormat.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

#include <unistd.h>

namespace {

constexpr char Magic[] = "Zt journal 1\n";
constexpr qsizetype CheckSize = 8;
constexpr qsizetype FrameSize = sizeof(quint64) + CheckSize;

QByteArray CheckOf(const QByteArray &ABefore, QByteArrayView ARecord)
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_160);
    hash.addData(ABefore);
    hash.addData(ARecord);
    return hash.result().first(CheckSize);
}

template <typename T> void AppendNumber(QByteArray &ATo, T ANumber)
{
    const T number = qToLittleEndian(ANumber);
    ATo.append(reinterpret_cast<const char *>(&number), sizeof(number));
}

void AppendBytes(QByteArray &ATo, QByteArrayView ABytes)
{
    AppendNumber(ATo, quint64(ABytes.size()));
    ATo.append(ABytes.data(), ABytes.size());
}

void AppendPoint(QByteArray &ATo, const QPoint &APoint)
{
    AppendNumber(ATo, qint32(APoint.x()));
    AppendNumber(ATo, qint32(APoint.y()));
}

// One byte a character where that is enough. The lowest bit of the size tells.
void AppendText(QByteArray &ATo, QStringView S)
{
    const bool wide = !QtPrivate::isLatin1(S);
    AppendNumber(ATo, quint64(S.size()) << 1 | quint64(wide));
    const qsizetype at = ATo.size();
    ATo.resize(at + (S.size() << qsizetype(wide)));
    if (wide)
        qToLittleEndian<char16_t>(S.utf16(), S.size(), ATo.data() + at);
    else
        std::transform(S.begin(), S.end(), ATo.data() + at, [](QChar c) { return c.toLatin1(); });
}

// Reads what the functions above have appended. Beyond the end, or of a size that cannot be, all
// is empty and it is no longer sound.
class TCursor {
public:
    explicit TCursor(QByteArrayView ABytes) : FLeft(ABytes) {}
    bool IsSound() const { return FSound; }
    bool AtEnd() const { return FLeft.isEmpty(); }

    QByteArrayView Take(quint64 ASize)
    {
        FSound = FSound && ASize <= quint64(FLeft.size());
        if (!FSound)
            return {};
        const QByteArrayView taken = FLeft.first(qsizetype(ASize));
        FLeft = FLeft.sliced(qsizetype(ASize));
        return taken;
    }
    template <typename T> T Number()
    {
        const QByteArrayView bytes = Take(sizeof(T));
        return FSound ? qFromLittleEndian<T>(bytes.data()) : T();
    }
    QByteArray Bytes() { return Take(Number<quint64>()).toByteArray(); }
    QPoint Point()
    {
        const int x = Number<qint32>();
        return {x, Number<qint32>()};
    }
    QString Text()
    {
        const quint64 size = Number<quint64>();
        if ((size & 1) == 0)
            return QString::fromLatin1(Take(size >> 1));
        const QByteArrayView bytes = Take(size >> 1 << 1);
        QString text(bytes.size() / 2, Qt::Uninitialized);
        qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
        return text;
    }

private:
    QByteArrayView FLeft;
    bool FSound = true;
};

TZtJournalHeader ReadHeader(TCursor &AFrom)
{
    TZtJournalHeader header;
    if (AFrom.Take(sizeof(Magic) - 1) != Magic) {
        AFrom.Take(~quint64(0));
        return header;
    }
    header.Path = AFrom.Text();
    header.Size = AFrom.Number<qint64>();
    header.Modified = AFrom.Number<qint64>();
    header.Hash = AFrom.Bytes();
    header.TextHash = AFrom.Bytes();
    header.Format = AFrom.Bytes();
    header.Process.Pid = AFrom.Number<qint64>();
    header.Process.Start = AFrom.Number<quint64>();
    header.Process.Boot = AFrom.Bytes();
    return header;
}

void ReadChange(TCursor &AFrom, TZtJournalRecord &ARecord)
{
    ARecord.Start = AFrom.Point();
    ARecord.RemovedEnd = AFrom.Point();
    ARecord.IsWholeText = AFrom.Number<quint8>() != 0;
    do
        ARecord.Lines += AFrom.Text();
    while (AFrom.IsSound() && !AFrom.AtEnd());
}

QByteArray ReadSystemFile(const QString &APath)
{
    QFile file(APath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What the system's line about a process says from its third word on: the second, its name in
// brackets, may hold anything. Empty where there is no such line.
struct TSystemLine {
    explicit TSystemLine(qint64 APid)
    {
        const QByteArray line = ReadSystemFile(QStringLiteral("/proc/%1/stat").arg(APid));
        FWords = line.mid(line.lastIndexOf(')') + 1).simplified().split(' ');
    }
    quint64 Start() const { return Word(22).toULongLong(); }
    // Nobody has asked yet how it ended.
    bool IsEnded() const { return Word(3) == "Z" || Word(3) == "X"; }

private:
    QByteArray Word(qsizetype ANumber) const { return FWords.value(ANumber - 3); }
    QList<QByteArray> FWords;
};

QByteArray ThisBoot()
{
    return ReadSystemFile(QStringLiteral("/proc/sys/kernel/random/boot_id")).trimmed();
}

} // namespace

TZtJournalProcess TZtJournalProcess::Current()
{
    const qint64 pid = getpid();
    return {pid, TSystemLine(pid).Start(), ThisBoot()};
}

bool TZtJournalProcess::IsAlive() const
{
    if (Pid <= 0 || Boot != ThisBoot() || (kill(pid_t(Pid), 0) != 0 && errno == ESRCH))
        return false;
    const TSystemLine line(Pid);
    return !line.IsEnded() && (line.Start() == 0 || line.Start() == Start);
}

QByteArray ZtJournalHash(const QByteArray &ABytes)
{
    return QCryptographicHash::hash(ABytes, QCryptographicHash::Blake2b_256);
}

void TZtJournalTextHash::AddLine(QStringView ALine)
{
    QByteArray bytes;
    AppendText(bytes, ALine);
    FHash.addData(bytes);
}

// --- records -------------------------------------------------------------------------------------

QByteArray ZtEncodeJournalHeader(const TZtJournalHeader &AHeader)
{
    QByteArray bytes(1, char(TZtJournalKind::jkHeader));
    bytes.append(Magic);
    AppendText(bytes, AHeader.Path);
    AppendNumber(bytes, AHeader.Size);
    AppendNumber(bytes, AHeader.Modified);
    AppendBytes(bytes, AHeader.Hash);
    AppendBytes(bytes, AHeader.TextHash);
    AppendBytes(bytes, AHeader.Format);
    AppendNumber(bytes, AHeader.Process.Pid);
    AppendNumber(bytes, AHeader.Process.Start);
    AppendBytes(bytes, AHeader.Process.Boot);
    return bytes;
}

QByteArray ZtEncodeJournalBase(const QByteArray &ABytes)
{
    QByteArray bytes(1, char(TZtJournalKind::jkBase));
    AppendBytes(bytes, ABytes);
    return bytes;
}

QByteArray ZtEncodeJournalSaving(const QByteArray &AHash, const QByteArray &ATextHash)
{
    QByteArray bytes(1, char(TZtJournalKind::jkSaving));
    AppendBytes(bytes, AHash);
    AppendBytes(bytes, ATextHash);
    return bytes;
}

TZtJournalChangeEncoder::TZtJournalChangeEncoder(const QPoint &AStart, const QPoint &ARemovedEnd,
                                                 bool AIsWholeText)
    : FBytes(1, char(TZtJournalKind::jkChange))
{
    AppendPoint(FBytes, AStart);
    AppendPoint(FBytes, ARemovedEnd);
    AppendNumber(FBytes, quint8(AIsWholeText));
}

void TZtJournalChangeEncoder::AddLine(QStringView ALine) { AppendText(FBytes, ALine); }

std::optional<TZtJournalRecord> ZtDecodeJournalRecord(QByteArrayView ARecord)
{
    TCursor from(ARecord);
    TZtJournalRecord record;
    record.Kind = TZtJournalKind(from.Number<quint8>());
    switch (record.Kind) {
    case TZtJournalKind::jkHeader:
        record.Header = ReadHeader(from);
        break;
    case TZtJournalKind::jkBase:
        record.Bytes = from.Bytes();
        break;
    case TZtJournalKind::jkSaving:
        record.Bytes = from.Bytes();
        record.TextHash = from.Bytes();
        break;
    case TZtJournalKind::jkChange:
        ReadChange(from, record);
        break;
    default:
        return {};
    }
    return from.IsSound() && from.AtEnd() ? std::optional(std::move(record)) : std::nullopt;
}

// --- frames --------------------------------------------------------------------------------------

QByteArray TZtJournalFramer::Frame(const QByteArray &ARecord)
{
    FCheck = CheckOf(FCheck, ARecord);
    QByteArray framed;
    framed.reserve(FrameSize + ARecord.size());
    AppendNumber(framed, quint64(ARecord.size()));
    return framed.append(FCheck).append(ARecord);
}

std::optional<QByteArrayView> TZtJournalUnframer::Next()
{
    TCursor from(FLeft);
    const auto size = from.Number<quint64>();
    const QByteArrayView check = from.Take(CheckSize);
    const QByteArrayView record = from.Take(size);
    if (!from.IsSound())
        return {};
    QByteArray expected = CheckOf(FCheck, record);
    if (check != expected)
        return {};
    FCheck = std::move(expected);
    FLeft = FLeft.sliced(FrameSize + record.size());
    return record;
}
