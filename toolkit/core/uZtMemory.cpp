#include "uZtMemory.h"

#include <QFile>

namespace {

// What is not worth to be asked for.
constexpr qint64 Little = 1 << 20;

} // namespace

bool ZtHasMemory(qint64 ABytes)
{
    if (ABytes <= Little)
        return true;
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray text = file.readAll();
    const QByteArrayView key("\nMemAvailable:");
    const qsizetype at = text.indexOf(key);
    if (at < 0)
        return true;
    const qsizetype from = at + key.size();
    const QByteArray kibibytes = text.mid(from, text.indexOf("kB", from) - from).trimmed();
    bool known = false;
    const qint64 available = kibibytes.toLongLong(&known) * 1024;
    return !known || ABytes <= available;
}
