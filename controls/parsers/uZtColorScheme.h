#pragma once

#include "uZtException.h"
#include "uZtExport.h"
#include "uZtTypes.h"

#include <QByteArray>
#include <QMap>
#include <QMetaObject>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>
#include <utility>

/// A scheme that cannot be read. The message names the file, the line and column and the reason.
class ZT_PARSERS_EXPORT EZtColorScheme : public EZtException {
public:
    /// `ALine` and `AColumn` (in UTF-16 units) are 1-based, 0 when the file could not be opened.
    EZtColorScheme(const QString &AName, int ALine, int AColumn, const QString &AReason);
    int GetLine() const { return FLine; } ///< 1-based; 0 when the file could not be opened
    /// 1-based, in UTF-16 units; 0 when the file could not be opened.
    int GetColumn() const { return FColumn; }
    const QString &GetReason() const { return FReason; } ///< what is wrong, without name and place

private:
    int FLine;
    int FColumn;
    QString FReason;
};

/// For Qt's reflection, which gives the names of the parts; hosts write them without it.
namespace ZtScheme {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The parts of the view that have a colour. In a file they are named without the prefix.
enum class TZtViewColor : quint8 {
    vcText, ///< what no element draws
    vcBackground,
    vcReadOnly, ///< background of a read-only text
    vcSelectionText,
    vcSelection,     ///< background of what is selected
    vcCurrentLine,   ///< background of the caret's line
    vcRightMargin,   ///< the line at the margin
    vcGuttor,        ///< background of the gutter
    vcGuttorEdge,    ///< the line between gutter and text
    vcGuttorText,    ///< the line numbers
    vcCurrentNumber, ///< that of the caret's line
    vcGuide,         ///< a line of indentation
    vcCurrentGuide,  ///< that of the caret's block
    vcBlank,         ///< visible blanks
    vcBracket,       ///< the box of the pair
    vcBracketBack,   ///< background of the pair
    vcUnmatched,     ///< a bracket without its other one
    vcMatch,         ///< background of what a search for all has found
    vcWord,          ///< background of the word at the caret where it stands elsewhere
    vcChanged,       ///< bar of a line that is not saved
    vcSaved,         ///< bar of a line saved since it was changed
    vcBookmark,
    vcBreakpoint,
    vcStatement,
    vcError,
    vcWarning,
    vcInformation,
    vcRuler, ///< background of the overview ruler
    vcCaret
};
Q_ENUM_NS(TZtViewColor)
} // namespace ZtScheme

using ZtScheme::TZtViewColor;

/// How a text is drawn.
struct TZtTextStyle {
    TColor Fore = clWindowText; ///< the text's colour
    TColor Back = clWindow;     ///< the background's
    TFontStyles Style;          ///< bold, italic, underlined, struck out
    bool operator==(const TZtTextStyle &) const = default;
};

/// The colours of a view and the styles of the elements of its language. Immutable once made.
class ZT_PARSERS_EXPORT TZtColorScheme {
public:
    /// How many parts of a view have a colour.
    static constexpr size_t ViewColorCount = size_t(TZtViewColor::vcCaret) + 1;

    const QString &GetName() const { return FName; } ///< "Light", or what a file says
    /// Whether the text is lighter than its background. False for a scheme of system colours.
    bool IsDark() const;
    /// Whether the scheme draws the elements. If not, each lexer's own table does.
    bool HasStyles() const { return FHasStyles; }
    /// Of a part of the view; may be a system colour.
    TColor GetColor(TZtViewColor AColor) const { return FColors[size_t(AColor)]; }
    /// The style of an element of a language, both named as the lexer does: what the scheme says of
    /// the element in all languages, and over that what it says of the language's own. "Symbol 2"
    /// takes from "Symbol" what is not said of itself. Without either the text's colour on the
    /// background.
    TZtTextStyle GetStyle(const QString &ALanguage, const QString &AElement) const;

    /// The name of a part of the view in a file ("CurrentLine").
    static QString ColorName(TZtViewColor AColor);

    /// The lexers' own tables, and a view in the desktop's colours.
    static std::shared_ptr<const TZtColorScheme> Classic();
    /// The names of the schemes that need no file, the classic one first.
    static QStringList BundledNames();
    /// A bundled scheme by its name, in any letter case; null when there is none.
    static std::shared_ptr<const TZtColorScheme> Find(const QString &AName);

    /// Reads a scheme, which `docs/schemes.md` describes. Raises `EZtColorScheme`, whose message
    /// begins with `AName`, for whatever is wrong with it: a scheme is read whole or not at all.
    static std::shared_ptr<const TZtColorScheme> FromJson(const QByteArray &AText,
                                                          const QString &AName);
    /// The same for a file, of a megabyte at most. Raises `EZtColorScheme` when it cannot be read,
    /// too.
    static std::shared_ptr<const TZtColorScheme> Load(const QString &AFileName);

private:
    class TReader;
    struct TPartStyle {
        std::optional<TColor> Fore;
        std::optional<TColor> Back;
        TFontStyles Said;  // to be or not to be
        TFontStyles Style; // those of them that are
    };
    using TElement = std::pair<QString, QString>; // of a language or, "*", of all

    TZtColorScheme() = default;
    void Apply(const QString &ALanguage, const QString &AElement, TZtTextStyle &AStyle) const;

    QString FName;
    bool FHasStyles = false;
    std::array<TColor, ViewColorCount> FColors{};
    QMap<TElement, TPartStyle> FStyles;
};
