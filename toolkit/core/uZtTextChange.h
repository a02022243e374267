#pragma once

#include "uZtExport.h"
#include "uZtLineStore.h"

#include <QPoint>

#include <memory>

class TStringList;

/// A piece of a text: lines, of which the last has no break behind it. A piece without a break is
/// one line. Cut out of a text, it also knows the object slots of its lines.
class ZT_PARSERS_EXPORT TZtTextPiece {
public:
    /// Nothing: one line without a character.
    TZtTextPiece() = default;
    /// CR LF, CR and LF are each one break.
    explicit TZtTextPiece(const QString &AText);
    /// Long pieces share their blocks.
    TZtTextPiece(const TZtTextPiece &AOther);
    /// The other one may only be assigned to then, or go.
    TZtTextPiece(TZtTextPiece &&AOther) = default;
    /// Copies or takes over, as the constructors do.
    TZtTextPiece &operator=(TZtTextPiece AOther);

    /// How many lines it has, 1 or more.
    int GetCount() const { return FLines.GetCount() == 0 ? 1 : int(FLines.GetCount()); }
    /// Whether it has no character and no break.
    bool IsEmpty() const { return FLines.GetCount() == 0 && FLine.isEmpty(); }
    /// A line's characters, 0-based.
    QString GetLine(int AIndex) const;
    /// Of a piece that is cut out of a text: a line's object slot.
    int GetObject(int AIndex) const;
    /// Whether the object slots are those of a text, and come back with the piece.
    bool HasObjects() const { return FHasObjects; }
    /// All lines with `ABreak` between them.
    QString GetText(QLatin1StringView ABreak = QLatin1StringView("\r\n")) const;
    /// The memory that it takes, in bytes.
    qint64 GetBytes() const;

private:
    friend class TStringList;
    QString FLine; // of a piece without a break
    int FObject = 0;
    bool FHasObjects = false;
    TZtLineStore FLines; // of one with breaks
};

/// On which side of an insertion a position stands that the insertion is made at.
enum class TZtAnchorSide : quint8 {
    asBefore, ///< it stays where it was
    asBehind, ///< it goes behind what was inserted
};

/// What a change of a text was. Positions are (column, line), 0-based, columns in UTF-16 units;
/// behind the break of the last line is the text's end, column 0 of the line that is the count.
struct ZT_PARSERS_EXPORT TZtTextChange {
    QPoint Start;             ///< where the change begins
    QPoint RemovedEnd;        ///< where what was removed ended, before the change
    QPoint InsertedEnd;       ///< where what was inserted ends, after the change
    bool IsWholeText = false; ///< every line was replaced
    /// What was removed; null when no listener wants it. A listener that keeps it may use it up
    /// when nobody else has it.
    std::shared_ptr<TZtTextPiece> Removed = nullptr;

    /// The first line that the change touches, and how many there were and are now, whole or part.
    int GetFirstLine() const { return Start.y(); }
    /// How many it touched before.
    int GetOldLines() const { return RemovedEnd.y() - Start.y() + 1; }
    /// How many there are in their place.
    int GetNewLines() const { return InsertedEnd.y() - Start.y() + 1; }

    /// Where a position of the text before stands after the change. What stood in the removed text
    /// goes to its start, or behind what came in its place.
    QPoint Map(const QPoint &APlace, TZtAnchorSide ASide) const;
};

/// Whether `A` comes before `B` in a text.
inline bool ZtIsBefore(const QPoint &A, const QPoint &B)
{
    return A.y() < B.y() || (A.y() == B.y() && A.x() < B.x());
}

/// Somebody who is told each change of a text, after it and before `OnChange`. Told while the list
/// is in between: it reads the text, and neither changes it nor raises.
class ZT_PARSERS_EXPORT TZtTextListener {
public:
    /// `AText` is the text as it is now.
    virtual void TextChanged(const TStringList &AText, const TZtTextChange &AChange) = 0;
    /// Told behind the last change of those between `BeginUpdate` and `EndUpdate`.
    virtual void UpdateEnded(const TStringList &) {}
    /// Whether it needs what was removed, which is kept for it then.
    virtual bool WantsRemoved() const { return false; }

protected:
    ~TZtTextListener() = default;
};
