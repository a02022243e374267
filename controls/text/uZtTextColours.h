#pragma once

#include "uZtColorScheme.h"
#include "uZtExport.h"
#include "uZtHighlighter.h"

#include <QPoint>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

/// Part of a text and who colours it, for what goes to paper or into a file.
struct ZT_EDITOR_EXPORT TZtColouredText {
    TStringList *Lines = nullptr;    ///< outlives whoever reads it
    TZtLangParser *Parser = nullptr; ///< null for plain text
    /// The colours; those of the lexer's own table without one, or with one that has no styles.
    std::shared_ptr<const TZtColorScheme> Scheme = nullptr;
    QPoint From;                             ///< (column, line), 0-based, in the text
    std::optional<QPoint> To = std::nullopt; ///< not before `From`; the end of the text without one

    /// The last line, -1 in an empty text. One of which nothing but its start belongs to the part
    /// is none, unless it is the only one.
    int GetLastLine() const;
    /// Where the part begins and ends in one of its lines.
    int GetStart(int ALine) const { return ALine == From.y() ? From.x() : 0; }
    int GetEnd(int ALine) const; ///< behind its last character
    /// A colour of the scheme's view as `ZtPaperColour` makes it; black on white without a scheme.
    quint32 GetColour(TZtViewColor APart) const;
};

/// What a colour is on paper, `$00RRGGBB`: the desktop's colours are black text, white background
/// and grey lines there, whatever they are on the screen.
ZT_EDITOR_EXPORT quint32 ZtPaperColour(TColor AColor);

/// The exact colours of the lines of a text in another scheme than on the screen, from the lexer
/// that colours them there. The lexer is used while a line is asked for and then is as it was.
class ZT_EDITOR_EXPORT TZtTextColours {
public:
    /// Keeps what it needs of `AText`; text and lexer may go before.
    explicit TZtTextColours(const TZtColouredText &AText);

    /// The runs of a line (0-based), best asked for from the first line down; valid until the next
    /// call. A line that was never lexed has the text above it lexed first. Raises what the lexer
    /// raises.
    const TZtColourRuns &GetRuns(int ALine);
    /// Whether the text is there and as it was when this was made.
    bool IsIntact() const;

private:
    void Fetch(int ALine);

    const QPointer<TStringList> FText;
    const QPointer<TZtLangParser> FParser;
    const std::shared_ptr<const TZtColorScheme> FScheme;
    const quint64 FTextRevision;
    TZtHighlighter FColours;
    std::vector<TZtColourRuns> FRuns; // of the lines from FFirst on
    int FFirst = 0;
};
