#include "uZtLineStore.h"

#include "uZtException.h"

#include <QCoreApplication>
#include <QSet>
#include <QStringEncoder>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr qsizetype BlockSize = 1 << 20;
// Lines with more characters than these together keep their blocks when they change hands.
constexpr qsizetype LargeSize = 1 << 16;

TZtStoredLine OwningLine(QString S, int AObject)
{
    const auto length = quint32(S.size());
    return {reinterpret_cast<quintptr>(new QString(std::move(S))) | 1, length, 1, AObject};
}

} // namespace

QAnyStringView TZtStoredLine::View() const
{
    if (!Wide)
        return QLatin1StringView(Latin1(), qsizetype(Length));
    return IsOwned() ? QStringView(Owned()) : QStringView(Utf16(), qsizetype(Length));
}

QString TZtStoredLine::ToString() const { return IsOwned() ? Owned() : View().toString(); }

void TZtStoredLine::AppendTo(qsizetype AFrom, qsizetype ACount, QString &S) const
{
    if (!Wide)
        S.append(QLatin1StringView(Latin1() + AFrom, ACount));
    else if (IsOwned())
        S.append(QStringView(Owned()).sliced(AFrom, ACount));
    else
        S.append(QStringView(Utf16() + AFrom, ACount));
}

void TZtLineStore::CheckLength(qsizetype ALength)
{
    if (ALength > MaxLength)
        throw EStringListError(
            QCoreApplication::translate("TStringList",
                                        "A line of %1 characters is too long; it may have %2.")
                .arg(ALength)
                .arg(MaxLength));
}

void TZtLineStore::CheckCount(qsizetype ACount)
{
    if (ACount > MaxLength)
        throw EStringListError(
            QCoreApplication::translate("TStringList", "A text holds at most %1 lines.")
                .arg(MaxLength));
}

qint64 TZtLineStore::BytesOf(qsizetype i, qsizetype ACount) const
{
    qint64 bytes = 0;
    for (qsizetype k = i; k < i + ACount; ++k)
        bytes += FLines[k].Bytes();
    return bytes;
}

void TZtLineStore::Clear()
{
    for (qsizetype i = 0; i < FLines.size(); ++i)
        if (FLines[i].IsOwned())
            delete &FLines[i].Owned();
    FLines.clear();
    FBlocks.clear();
    FFree = nullptr;
    FFreeSize = 0;
    FBytes = 0;
}

void TZtLineStore::Swap(TZtLineStore &AOther)
{
    FLines.swap(AOther.FLines);
    FBlocks.swap(AOther.FBlocks);
    std::swap(FFree, AOther.FFree);
    std::swap(FFreeSize, AOther.FFreeSize);
    std::swap(FBytes, AOther.FBytes);
}

void TZtLineStore::Put(qsizetype i, QString S)
{
    // Most of a long line was deleted: its memory goes too.
    constexpr qsizetype worthIt = 4096;
    if (S.capacity() > worthIt && S.capacity() / 4 > S.size())
        S.squeeze();
    TZtStoredLine &line = FLines[i];
    FBytes += S.size() * 2 - line.Bytes();
    if (!line.IsOwned()) {
        line = OwningLine(std::move(S), line.Object);
        return;
    }
    line.Length = quint32(S.size());
    line.Owned() = std::move(S);
}

void TZtLineStore::Insert(qsizetype i, QString S, int AObject)
{
    FLines.reserveOne();
    const qint64 bytes = S.size() * 2;
    FLines.insert(i, OwningLine(std::move(S), AObject));
    FBytes += bytes;
}

void TZtLineStore::Remove(qsizetype i, qsizetype ACount)
{
    FBytes -= BytesOf(i, ACount);
    for (qsizetype k = i; k < i + ACount; ++k)
        if (FLines[k].IsOwned())
            delete &FLines[k].Owned();
    FLines.remove(i, ACount);
}

// --- from characters -----------------------------------------------------------------------------

char *TZtLineStore::Allocate(qsizetype ASize)
{
    ASize = (ASize + 1) & ~qsizetype(1); // keeps the next one's address even
    if (ASize > FFreeSize) {
        const qsizetype size = std::max(ASize, BlockSize);
        FBlocks.emplace_back(size, Qt::Uninitialized);
        FFree = FBlocks.back().data();
        FFreeSize = size;
    }
    FFreeSize -= ASize;
    return std::exchange(FFree, FFree + ASize);
}

void TZtLineStore::AppendView(const void *AText, qsizetype ALength, bool AWide)
{
    CheckLength(ALength);
    CheckCount(FLines.size() + 1);
    FLines.append({reinterpret_cast<quintptr>(AText), quint32(ALength), AWide, 0});
    FBytes += qint64(ALength) << AWide;
}

// As one byte a character where that is enough.
void TZtLineStore::AppendCopy(QStringView S)
{
    if (QtPrivate::isLatin1(S)) {
        char *to = Allocate(S.size());
        QStringEncoder(QStringEncoder::Latin1).appendToBuffer(to, S);
        AppendView(to, S.size(), false);
    } else {
        char *to = Allocate(S.size() * 2);
        std::memcpy(to, S.data(), size_t(S.size()) * 2);
        AppendView(to, S.size(), true);
    }
}

void TZtLineStore::AppendCopy(QLatin1StringView S)
{
    char *to = Allocate(S.size());
    std::copy(S.begin(), S.end(), to);
    AppendView(to, S.size(), false);
}

// --- changing hands ------------------------------------------------------------------------------

bool TZtLineStore::IsLarge(qsizetype i, qsizetype ACount) const
{
    qsizetype size = 0;
    for (qsizetype k = i; k < i + ACount && size <= LargeSize; ++k)
        size += qsizetype(FLines[k].Length);
    return size > LargeSize;
}

void TZtLineStore::OwnAll()
{
    for (qsizetype i = 0; i < FLines.size(); ++i)
        if (!FLines[i].IsOwned())
            FLines[i] = OwningLine(FLines[i].ToString(), FLines[i].Object);
    FBytes = BytesOf(0, FLines.size());
    FBlocks.clear();
    FFree = nullptr;
    FFreeSize = 0;
}

void TZtLineStore::ShareBlocks(const TZtLineStore &AOther)
{
    if (AOther.FBlocks.empty())
        return;
    QSet<const char *> known;
    for (const QByteArray &block : FBlocks)
        known.insert(block.constData());
    for (const QByteArray &block : AOther.FBlocks)
        if (!known.contains(block.constData()))
            FBlocks.push_back(block);
}

TZtLineStore TZtLineStore::Take(qsizetype i, qsizetype ACount)
{
    TZtLineStore taken;
    taken.FBlocks = FBlocks;
    const qsizetype behind = GetCount() - i - ACount;
    const bool most = ACount > i + behind;
    taken.FBytes = most ? FBytes - BytesOf(0, i) - BytesOf(i + ACount, behind) : BytesOf(i, ACount);
    FBytes -= taken.FBytes;
    if (most) {
        TZtGapBuffer<TZtStoredLine> kept;
        kept.insert(0, FLines, 0, i);
        kept.insert(i, FLines, i + ACount, behind);
        FLines.remove(i + ACount, behind);
        FLines.remove(0, i);
        taken.FLines.swap(FLines);
        FLines.swap(kept);
    } else {
        taken.FLines.insert(0, FLines, i, ACount);
        FLines.remove(i, ACount);
    }
    if (!taken.IsLarge(0, taken.GetCount()))
        taken.OwnAll();
    if (most && !IsLarge(0, GetCount()))
        OwnAll();
    return taken;
}

TZtLineStore TZtLineStore::Copy(qsizetype i, qsizetype ACount) const
{
    TZtLineStore copy;
    const bool large = IsLarge(i, ACount);
    if (large)
        copy.FBlocks = FBlocks;
    copy.FLines.reserveMore(ACount);
    for (qsizetype k = i; k < i + ACount; ++k) {
        const TZtStoredLine &line = FLines[k];
        const bool shared = large && !line.IsOwned();
        copy.FLines.append(shared ? line : OwningLine(line.ToString(), line.Object));
    }
    copy.FBytes = copy.BytesOf(0, ACount);
    return copy;
}

void TZtLineStore::Insert(qsizetype i, TZtLineStore &&AOther)
{
    const qsizetype count = AOther.GetCount();
    CheckCount(GetCount() + count);
    const qint64 bytes = FBytes + AOther.FBytes;
    if (count > GetCount()) {
        // The fewer lines move, at both ends of the more.
        AOther.ShareBlocks(*this);
        AOther.FLines.insert(count, FLines, i, GetCount() - i);
        AOther.FLines.insert(0, FLines, 0, i);
        FLines.clear();
        Swap(AOther);
    } else {
        ShareBlocks(AOther);
        FLines.insert(i, AOther.FLines, 0, count);
        AOther.FLines.clear();
    }
    AOther.Clear();
    FBytes = bytes;
}
