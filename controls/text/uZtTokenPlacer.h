#pragma once

#include "uZtElements.h"
#include "uZtTypes.h"

#include <QString>
#include <QStringView>

#include <vector>

/// A stretch of a line that is drawn alike; columns are 0-based, in UTF-16 units.
struct TZtColourRun {
    int Start;          ///< the first column
    int Length;         ///< how many units
    TColor Fore;        ///< of the text
    TColor Back;        ///< behind the text
    TFontStyles Style;  ///< bold, italic, underlined, struck out
    quint8 Element = 0; ///< of the lexer (0-based); 0 also for what no token covers
    TZtElementKind Kind = TZtElementKind::ekCode; ///< comment, quoted text or code
    bool operator==(const TZtColourRun &) const = default;
};
/// Those of a line, in order.
using TZtColourRuns = std::vector<TZtColourRun>;

/// Finds the tokens of a lexer again in the text that it was given, whatever it makes of them, and
/// remembers how each character is drawn. What a lexer leaves out is drawn as plain text, and what
/// is not there is not drawn.
class TZtTokenPlacer {
public:
    /// What is placed next belongs to a line (0-based), whose text follows.
    void BeginLine(int ALine);
    /// Text that the lexer is given, with the break.
    void AddText(QStringView S) { FText.append(S); }
    /// A token, behind which `AUnread` units of the text are left to be read.
    void Place(QStringView AToken, qint64 AUnread, const TZtColourRun &ALook, bool ALineBreak);

    /// The line that the next token is looked for in, and the column there.
    int Line() const;
    int Column() const; ///< 0-based, in UTF-16 units
    /// Whether all text was given a look.
    bool IsAtEnd() const { return FPlace >= FText.size(); }
    /// How a line is drawn, whose length is `ALength`: runs in order, side by side, from column 0
    /// to the end of the line. What no token covers looks like `APlain`.
    TZtColourRuns Runs(int ALine, int ALength, const TZtColourRun &APlain) const;

private:
    struct TLine {
        int Line;
        qsizetype Start;
    };
    struct TSpan {
        qsizetype Start;
        qsizetype End;
        TZtColourRun Look;
    };

    const TLine &LineOfPlace() const;
    bool PlaceWhole(QStringView AToken, qsizetype ARead, const TZtColourRun &ALook);
    void PlaceParts(QStringView AToken, qsizetype ARead, const TZtColourRun &ALook);
    void Colour(qsizetype AStart, qsizetype AEnd, const TZtColourRun &ALook);

    QString FText;             // that the lexer was given
    std::vector<TLine> FLines; // of that
    std::vector<TSpan> FSpans; // in order
    qsizetype FRead = 0;       // what the lexer had read before the token
    qsizetype FPlace = 0;      // up to where tokens were found
};
