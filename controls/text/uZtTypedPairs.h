#pragma once

#include "uZtAnchors.h"
#include "uZtElements.h"
#include "uZtTokenPlacer.h"

/// What becomes of a typed character.
enum class TZtPairAction : quint8 {
    paNone,     ///< it is typed as any other
    paInsert,   ///< it is inserted with `Closing` behind it, and the caret goes between
    paTypeOver, ///< nothing is inserted: the caret goes behind the same character
    paSurround, ///< it goes before the selection, and `Closing` behind it
};
struct TZtPairEdit {
    TZtPairAction Action = TZtPairAction::paNone;
    QChar Closing = u'\0';
    bool operator==(const TZtPairEdit &) const = default;
};

/// Brackets and quotes that come and go in pairs: decides what is to be done, and changes nothing.
///
/// Which ones do depends on the language, by the name that its lexer answers; another name is plain
/// text, with brackets and double quotes. XML has quotes only: what ends a tag is not known when it
/// begins. Places are (column, line), 0-based, columns in UTF-16 units.
///
/// Only a closing character that came by itself is typed over, as long as the caret stays in its
/// line and nothing else happens to that character.
class TZtTypedPairs {
public:
    /// The text may go before the object.
    explicit TZtTypedPairs(TStringList *AText);

    /// Whether a character belongs to a pair in some language: others are never asked for.
    static bool MayPair(QChar C);

    /// What becomes of `C`, typed at the caret (behind the line's end too) or, with `ASelected`,
    /// over a selection that begins there. `AKind` is what stands around the caret; in comments and
    /// strings nothing is paired. A bracket is paired at the line's end and before a blank, a
    /// closing character or one of , ; : . ; a quote there too, unless a letter, a digit, an
    /// underscore or the same quote stands before it.
    TZtPairEdit OnCharacter(QChar C, const QPoint &ACaret, bool ASelected, TZtElementKind AKind,
                            QStringView ALanguage);
    /// Whether Backspace at the caret takes the character behind it too: it stands in an empty
    /// pair.
    bool OnBackspace(const QPoint &ACaret, QStringView ALanguage) const;

    /// To be told where a closing character was inserted, behind the insertion.
    void Inserted(const QPoint &AClosing);
    /// To be told where the caret is.
    void CaretMoved(const QPoint &ACaret);

private:
    struct TClosing {
        int Before; // an anchor on either side
        int Behind;
        QChar Character;
    };
    QChar At(int ALine, int AColumn) const;
    bool Stands(const TClosing &AClosing) const;
    bool TypeOver(QChar C, const QPoint &ACaret);
    void Drop(const TClosing &AClosing);

    QPointer<TStringList> FText;
    TZtAnchors FAnchors;
    std::vector<TClosing> FClosing; // that came by themselves
};

/// What stands around a place between two characters of a line: what both are, `ekCode` where they
/// differ. At the line's start its first character decides, at its end a comment goes on, and so
/// does a string that no quote ends. An empty line is code.
TZtElementKind ZtKindAround(const TZtColourRuns &ARuns, QAnyStringView ALine, int AColumn);
