#pragma once

#include "uZtExport.h"
#include "uZtGapBuffer.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QScopeGuard>
#include <QString>

#include <limits>
#include <vector>

/// A line as it is stored: a view into a block of memory, one byte or two a character, or a string
/// of its own. With it goes a 32-bit number, its object slot.
struct ZT_PARSERS_EXPORT TZtStoredLine {
    quintptr Text;       ///< of an owned string with the lowest bit set
    quint32 Length : 31; ///< in UTF-16 units
    quint32 Wide : 1;    ///< not one byte a character
    int Object;          ///< the object slot

    /// Whether the characters are a string of the line's own.
    bool IsOwned() const { return Wide && (Text & 1); }
    /// Only where `IsOwned`.
    QString &Owned() const { return *reinterpret_cast<QString *>(Text & ~quintptr(1)); }
    /// Only where not `Wide`.
    const char *Latin1() const { return reinterpret_cast<const char *>(Text); }
    /// Only where `Wide` and not `IsOwned`.
    const char16_t *Utf16() const { return reinterpret_cast<const char16_t *>(Text); }
    /// The characters where they are; valid until the line changes.
    QAnyStringView View() const;
    qint64 Bytes() const { return qint64(Length) << Wide; } ///< of its characters
    QString ToString() const;                               ///< a copy of them
    /// Appends `ACount` units from `AFrom` on, both inside the line.
    void AppendTo(qsizetype AFrom, qsizetype ACount, QString &S) const;
};

/// Lines, and the memory that those which own nothing look into.
///
/// Lines change hands without a copy of their characters: a few become strings of their own, many
/// share the blocks, which live as long as one store has them. Indexes are 0-based and not checked.
class ZT_PARSERS_EXPORT TZtLineStore {
public:
    /// In UTF-16 units, and of a text in lines.
    static constexpr int MaxLength = std::numeric_limits<int>::max();

    TZtLineStore() = default;
    TZtLineStore(TZtLineStore &&AOther) { Swap(AOther); } ///< the other one is empty then
    /// Exchanges the lines of the two.
    TZtLineStore &operator=(TZtLineStore &&AOther)
    {
        Swap(AOther);
        return *this;
    }
    ~TZtLineStore() { Clear(); }

    /// Raises `EStringListError` when a line cannot have so many units, or a text so many lines.
    static void CheckLength(qsizetype ALength);
    static void CheckCount(qsizetype ACount); ///< 2^31 - 1 at most

    qsizetype GetCount() const { return FLines.size(); } ///< how many lines there are
    /// A line; the index is not checked.
    const TZtStoredLine &operator[](qsizetype i) const { return FLines[i]; }
    /// Replaces a line's object slot.
    void SetObject(qsizetype i, int AObject) { FLines[i].Object = AObject; }
    /// The memory that the lines and their characters take, in bytes.
    qint64 GetBytes() const { return FBytes + GetCount() * qint64(sizeof(TZtStoredLine)); }

    /// Removes all lines and blocks.
    void Clear();
    /// Exchanges all lines and their memory.
    void Swap(TZtLineStore &AOther);

    /// Replaces a line's characters; its object slot stays. A string that has much more memory than
    /// characters gives it back.
    void Put(qsizetype i, QString S);
    /// Changes a line's characters in their own memory. If `AEdit` raises, the line is what it
    /// left.
    template <typename TEdit> void Edit(qsizetype i, TEdit AEdit);
    /// Puts a line before line `i`, which may be the count; it owns its string.
    void Insert(qsizetype i, QString S, int AObject);
    /// Removes lines and the strings that they own; blocks stay.
    void Remove(qsizetype i, qsizetype ACount = 1);

    /// Keeps a block of memory, into which `AppendView` may point.
    void AddBlock(const QByteArray &ABlock) { FBlocks.push_back(ABlock); }
    /// Appends a line that looks into a block: `ALength` units of two bytes each if `AWide`, else
    /// of one.
    void AppendView(const void *AText, qsizetype ALength, bool AWide);
    /// Appends a line that is copied into a block of the store's own, one byte a character where
    /// that is enough.
    void AppendCopy(QStringView S);
    /// As above; one byte a character.
    void AppendCopy(QLatin1StringView S);
    /// As above; decoded.
    void AppendCopy(QUtf8StringView S) { AppendCopy(QStringView(S.toString())); }

    /// Takes lines away, into a store of their own. Of most of the lines, what stays is moved
    /// instead of what goes.
    TZtLineStore Take(qsizetype i, qsizetype ACount);
    /// The same lines again.
    TZtLineStore Copy(qsizetype i, qsizetype ACount) const;
    /// Puts all lines of another store, which is empty then, before line `i`.
    void Insert(qsizetype i, TZtLineStore &&AOther);

private:
    qint64 BytesOf(qsizetype i, qsizetype ACount) const;
    bool IsLarge(qsizetype i, qsizetype ACount) const;
    void OwnAll();
    void ShareBlocks(const TZtLineStore &AOther);
    char *Allocate(qsizetype ASize);

    TZtGapBuffer<TZtStoredLine> FLines;
    std::vector<QByteArray> FBlocks;
    char *FFree = nullptr; // of the block that was made last
    qsizetype FFreeSize = 0;
    qint64 FBytes = 0; // of the lines' characters
};

template <typename TEdit> void TZtLineStore::Edit(qsizetype i, TEdit AEdit)
{
    QString text = FLines[i].ToString();
    if (FLines[i].IsOwned())
        FLines[i].Owned().clear();
    const auto put = qScopeGuard([&] { Put(i, std::move(text)); });
    AEdit(text);
}
