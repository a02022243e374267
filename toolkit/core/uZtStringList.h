#pragma once

#include "uZtException.h"
#include "uZtGapBuffer.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

using TNotifyEvent = std::function<void(QObject *Sender)>;

/// A list of strings, each with a 32-bit number in its object slot.
///
/// Made for texts of millions of lines: reading a line, and inserting or deleting next to the last
/// change, take constant time; the lines of a loaded text stay in the block of memory that it came
/// in, one byte a character where that is enough.
///
/// Indexes are 0-based. An index outside the list raises `EStringListError`, before any event.
/// Every change of a string, of an object slot or of the count fires `OnChanging` before it and
/// `OnChange` after it, also a store of an equal value; between `BeginUpdate` and `EndUpdate` each
/// fires once for all of them.
class TStringList : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Count READ GetCount)
    Q_PROPERTY(QString Text READ GetText WRITE SetText)

public:
    explicit TStringList(QObject *AOwner = nullptr);
    ~TStringList() override;

    TNotifyEvent OnChanging;
    TNotifyEvent OnChange;

    int GetCount() const { return int(FLines.size()); }

    QString GetStrings(int Index) const;
    /// Replaces a string; its object slot stays.
    void SetStrings(int Index, const QString &S);
    /// `SetStrings` of what `AEdit` makes of `S`. Where `S` was read from that very line and nobody
    /// else holds it, it is changed in its own memory: a line of megabytes is not copied. If
    /// `AEdit` raises, the line is what it left of `S`, or as it was.
    void EditStrings(int Index, QString &&S, const std::function<void(QString &S)> &AEdit);
    int GetObjects(int Index) const;
    void SetObjects(int Index, int AObject);

    /// The length of a line in UTF-16 units.
    int GetLength(int Index) const;
    /// A line as it is stored, without a copy: Latin-1 or UTF-16. Valid until the next change.
    QAnyStringView View(int Index) const;
    /// Appends a line to `S`, whose capacity is used.
    void AppendTo(int Index, QString &S) const { AppendTo(Index, 0, GetLength(Index), S); }
    /// Appends `ACount` units of a line from `AFrom` on, both inside the line.
    void AppendTo(int Index, int AFrom, int ACount, QString &S) const;

    /// Appends a string and returns its index.
    int Add(const QString &S) { return AddObject(S, 0); }
    int AddObject(const QString &S, int AObject);
    /// Inserts before `Index`, which may be the count.
    void Insert(int Index, const QString &S) { InsertObject(Index, S, 0); }
    void InsertObject(int Index, const QString &S, int AObject);
    void Delete(int Index);
    /// Removes everything. No event when the list is empty already.
    void Clear();
    /// Takes over the strings and object slots of `Source`.
    void Assign(const TStringList *Source);

    /// All lines, CR LF after each.
    QString GetText() const;
    /// Replaces all lines. CR LF, CR and LF each end a line; text after the last one is a line too.
    void SetText(const QString &S);
    /// `SetText` of UTF-8 (without a byte-order mark), which stays in its own memory: nothing is
    /// widened but the lines that hold characters above 127. Undecodable bytes become U+FFFD.
    /// The text begins at the byte `AFrom`, behind a mark for instance.
    void SetUtf8Text(const QByteArray &ABytes, qsizetype AFrom = 0);

    void BeginUpdate();
    void EndUpdate();

private:
    // Where a line's characters are. Only an edited line owns a string; the others are views.
    enum class TStore : quint32 { Latin1, Utf16, Owned };
    struct TLine {
        union {
            const char *Latin1;
            const char16_t *Utf16;
            QString *Owned;
        };
        quint32 Length : 30;
        quint32 Store : 2;
        int Object;
    };
    const TLine &Line(int Index) const;
    static void Put(TLine &ALine, QString S);
    void Changing();
    void Changed();
    void FreeLines();
    char *Allocate(qsizetype ASize);
    void AppendLoaded(QStringView S);
    static void FreeLine(const TLine &ALine);
    static TLine NewLine(QString S, int AObject);
    static QAnyStringView ViewOf(const TLine &ALine);

    TZtGapBuffer<TLine> FLines;
    // The memory that the lines which own nothing look into; freed when the list is cleared.
    std::vector<QByteArray> FBlocks;
    char *FFree = nullptr;
    qsizetype FFreeSize = 0;
    int FUpdateCount = 0;
};
