#pragma once

#include "uZtBufferSearch.h"

#include <QPointer>

#include <optional>
#include <vector>

class TStringList;

/// All places of a text that match a search text.
///
/// A text is looked for line by line, as the editor's search does: one with a line break is found
/// nowhere. A match begins where the one before has ended, or behind. Lines are 0-based, columns
/// UTF-16 units.
///
/// Matches are not kept. Those of a line are found when it is shown; for the whole text there are
/// their count and a bit for every stretch of lines, at most 65,536 of them.
class TZtMatchMarks {
public:
    struct TMatch {
        int Start;
        int Length;
        bool operator==(const TMatch &) const = default;
    };

    explicit TZtMatchMarks(TStringList *AText);

    /// Marks another text; the direction in `AFlags` does not matter. An empty text clears.
    void SetSearch(const QString &ASearch, TZtSearchFlags AFlags);
    void Clear();
    /// Whether no text is marked.
    bool IsEmpty() const { return !FSearch; }

    /// The matches of a line that have something between two columns. In a line of more than
    /// 65,536 units they are sought from as many units before `AFrom` on, so that where matches
    /// could overlap others may be taken than from the line's start.
    std::vector<TMatch> GetInLine(int ALine, int AFrom, int ATo) const;

    /// Looks the whole text through for some milliseconds; answers whether there is more to do.
    /// A change of the text does not stop it.
    bool Advance(int AMilliseconds);
    /// Begins to look the text through anew. Until that is complete, what was found before is told.
    void Restart();
    /// Whether the count and the survey are those of the text as it is.
    bool IsComplete() const;
    /// How many matches there are; before the text was looked through once, how many so far.
    qint64 GetCount() const { return Shown().Count; }
    /// Sets a bit in the rows of an overview that have a match. The rows share the lines evenly:
    /// line i of n stands in row i * rows / n. In a text of more than 65,536 lines a row's
    /// neighbour can be taken for it.
    void Survey(std::vector<quint32> &ARows, quint32 ABit) const;

private:
    struct TPass {
        int Lines = 0; // of the text when it began
        int Shift = 0; // the stretches have 1 << Shift lines
        std::vector<bool> Stretches;
        qint64 Count = 0;
        quint64 Revision = 0;
    };
    const TPass &Shown() const { return FComplete ? *FComplete : FPass; }
    template <typename TDo> int ForEachMatch(int ALine, int AFrom, int ATo, TDo ADo) const;
    int SearchPiece();

    QPointer<TStringList> FText;
    std::optional<TZtBufferSearch> FSearch;
    int FLength = 0; // of a match
    std::optional<TPass> FComplete;
    TPass FPass;     // under way
    int FLine = 0;   // where it goes on
    int FColumn = 0; // in that line
    bool FIsDone = true;
};
