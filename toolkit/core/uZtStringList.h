#pragma once

#include "uZtException.h"
#include "uZtExport.h"
#include "uZtLineStore.h"
#include "uZtNotifier.h"
#include "uZtTextChange.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

/// The usual event; `Sender` is the object that fires it.
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
///
/// A handler may change the list. What `OnChanging` raises prevents the change; an index that it
/// made invalid raises `EStringListError` then. What `OnChange` raises comes after the change.
/// Listeners are told what each change of the strings was, also between `BeginUpdate` and
/// `EndUpdate`; a change of an object slot alone is told to nobody but the handlers.
///
/// A line holds at most `MaxLength` units and a list as many lines; more of either raises
/// `EStringListError`. Whatever a whole-text operation raises, the text is then as it was.
class ZT_PARSERS_EXPORT TStringList : public QObject, public TZtNotifier {
    Q_OBJECT
    Q_PROPERTY(int Count READ GetCount)
    Q_PROPERTY(QString Text READ GetText WRITE SetText)

public:
    explicit TStringList(QObject *AOwner = nullptr);
    ~TStringList() override;
    ZT_DELETE_WHEN_IDLE(TStringList)

    /// Of a line in units, and of a list in lines.
    static constexpr int MaxLength = TZtLineStore::MaxLength;

    TNotifyEvent OnChanging; ///< fired before a change; what it raises prevents it
    TNotifyEvent OnChange;   ///< fired after a change

    /// Raises when a line cannot have so many units.
    static void CheckLength(qsizetype ALength) { TZtLineStore::CheckLength(ALength); }

    int GetCount() const { return int(FText.GetCount()); } ///< how many lines there are
    /// Another number after every change of a string or of the count.
    quint64 GetRevision() const { return FRevision; }

    QString GetStrings(int Index) const;
    /// Replaces a string; its object slot stays.
    void SetStrings(int Index, const QString &S);
    /// `SetStrings` of what `AEdit` makes of `S`. Where `S` was read from that very line and nobody
    /// else holds it, it is changed in its own memory: a line of megabytes is not copied. If
    /// `AEdit` raises, the line is what it left of `S`, or as it was.
    void EditStrings(int Index, QString &&S, const std::function<void(QString &S)> &AEdit);
    int GetObjects(int Index) const;         ///< a line's object slot; 0 at first
    void SetObjects(int Index, int AObject); ///< fires both events; listeners are not told

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
    /// Appends a string with a number in its object slot and returns its index.
    int AddObject(const QString &S, int AObject);
    /// Inserts before `Index`, which may be the count.
    void Insert(int Index, const QString &S) { InsertObject(Index, S, 0); }
    /// Inserts a string with a number in its object slot before `Index`, which may be the count.
    void InsertObject(int Index, const QString &S, int AObject);
    /// Removes a line.
    void Delete(int Index);
    /// Removes everything. No event when the list is empty already.
    void Clear();
    /// Takes over the strings and object slots of `Source`.
    void Assign(const TStringList *Source);

    // --- by positions: (column, line), 0-based; one outside the text raises `EStringListError`

    /// Behind the break of the last line.
    QPoint GetEnd() const { return {0, GetCount()}; }
    /// What stands between two positions in order.
    TZtTextPiece GetPiece(const QPoint &AFrom, const QPoint &ATo) const;
    /// Puts a piece in the place of what stands between two positions in order: one change, whose
    /// characters are not copied where there are many. Up to `GetEnd` it takes whole lines: nothing
    /// may be left that has no break behind it. The object slots of a piece that was cut out of a
    /// text come with it; otherwise the first line keeps its own, and so does the last.
    void ReplaceText(const QPoint &AFrom, const QPoint &ATo, TZtTextPiece APiece);
    /// Puts `S`, which holds no breaks, in the place of `ALength` units of a line from `AColumn`
    /// on. A line of megabytes is not copied.
    void ReplaceInLine(int AIndex, int AColumn, int ALength, QStringView S);

    // --- the whole text

    /// All lines, CR LF after each.
    QString GetText() const;
    /// Replaces all lines. CR LF, CR and LF each end a line; text after the last one is a line too.
    void SetText(const QString &S);
    /// `SetText` of UTF-8 (without a byte-order mark), which stays in its own memory: nothing is
    /// widened but the lines that hold characters above 127. Undecodable bytes become U+FFFD.
    /// The text begins at the byte `AFrom`, behind a mark for instance.
    void SetUtf8Text(const QByteArray &ABytes, qsizetype AFrom = 0);

    /// Fires `OnChanging` for all changes up to `EndUpdate`. Calls may be nested.
    void BeginUpdate();
    /// Ends it. `OnChange` is fired also when nothing was changed.
    void EndUpdate();
    bool IsUpdating() const { return FUpdateCount > 0; } ///< between `BeginUpdate` and `EndUpdate`

    /// A listener is told until it is removed, which it may be twice; it outlives the list or is
    /// removed before it goes.
    void AddListener(TZtTextListener *AListener);
    void RemoveListener(TZtTextListener *AListener); ///< one that does not listen changes nothing

    /// While set, what the handlers raise is kept there and ends no change; null for raising it.
    /// It is null while a handler runs: what a handler begins is an operation of its own.
    TZtFirstException *GetRaised() const { return FRaised; }
    void SetRaised(TZtFirstException *Value) { FRaised = Value; }

protected:
    void Abandoned() override { setParent(nullptr); }

private:
    class TUpdate;
    const TZtStoredLine &Line(int Index) const;
    void CheckRoom(int Index) const;
    void CheckPlace(const QPoint &APlace) const;
    void CheckReplace(const QPoint &AFrom, const QPoint &ATo, const TZtTextPiece &APiece) const;
    void Replace(TZtLineStore &AText);
    void Exchange(TZtLineStore &AText);
    TZtLineStore Exchange(const QPoint &AFrom, const QPoint &ATo, TZtTextPiece APiece);
    static TZtTextPiece CutOut(const QString &ALine, int AObject, qsizetype AFrom, qsizetype ATo);
    static TZtTextPiece CutOut(const QPoint &AFrom, const QPoint &ATo, TZtLineStore ALines);
    QString BeforeEdit(int Index) const;
    void TellEdit(int Index, const QString &ABefore);
    template <typename TTold> void TellListeners(TTold ATold);
    void TellChange(const TZtTextChange &AChange);
    bool IsRemovedWanted() const;
    void Changing();
    void Changed(bool AStrings = true);
    void Tell(const TNotifyEvent &AHandler);

    TZtLineStore FText;
    int FUpdateCount = 0;
    quint64 FRevision = 0;
    TZtFirstException *FRaised = nullptr;
    std::vector<TZtTextListener *> FListeners;
};
