#pragma once

#include "uZtDecorations.h"
#include "uZtExport.h"

#include <QPointer>

#include <array>

/// How bad it is, the worst first.
enum class TZtSeverity : quint8 { dsError, dsWarning, dsInformation };

/// What a compiler, say, found in a text. Places are (column, line), 0-based, columns in UTF-16
/// units; those outside the text are put inside.
struct TZtDiagnostic {
    QPoint From;                                 ///< where it begins
    QPoint To;                                   ///< its end, not in it
    TZtSeverity Severity = TZtSeverity::dsError; ///< the worst is seen where several are
    QString Message = {};                        ///< plain text
    QString Source = {};                         ///< who says so; given to `Set` apart
};

/// What is wrong in a text, by who found it. Each keeps its range through every change
/// (`TZtDecorations`); one whose text was all removed still counts, at its place, until its source
/// takes it back.
class ZT_EDITOR_EXPORT TZtDiagnostics {
public:
    static constexpr int Severities = 3; ///< how many `TZtSeverity` has

    /// The text may go before the diagnostics.
    explicit TZtDiagnostics(TStringList *AText);

    /// Told when they are others, not when they only moved with the text.
    std::function<void()> OnChange;

    /// Replaces all of a source. An empty range covers the word that it stands in, else one
    /// character, at a line's end the last one; in an empty line it stays empty.
    void Set(const QString &ASource, const std::vector<TZtDiagnostic> &ADiagnostics);
    void Clear(const QString &ASource) { Set(ASource, {}); } ///< takes back what one source says
    /// Takes back what all sources say.
    void Clear();

    int GetCount() const { return FDecorations.GetCount(); } ///< of all sources
    int GetCount(TZtSeverity ASeverity) const;               ///< of one severity
    /// The next one that begins behind a place, or the last one that begins before it, going round
    /// at the text's ends; the worst where several begin. Nothing where there are none.
    std::optional<TZtDiagnostic> Next(const QPoint &APlace, bool AForward);
    /// All that cover the character at a place, or stand there empty, the worst first.
    std::vector<TZtDiagnostic> At(const QPoint &APlace);
    /// All that touch a line, the worst first.
    std::vector<TZtDiagnostic> InLine(int ALine);
    /// The worst of those that touch a line.
    std::optional<TZtSeverity> OfLine(int ALine);

    /// How they are drawn: by default a wavy underline in the view's colour for the severity, which
    /// also one of another kind has as long as it is given none. A worse one lies over the others.
    const TZtDecorationStyle &GetStyle(TZtSeverity ASeverity) const
    {
        return FStyles[size_t(ASeverity)];
    }
    void SetStyle(TZtSeverity ASeverity, const TZtDecorationStyle &AStyle);
    /// For drawing, with the messages as tooltips.
    TZtDecorations &GetDecorations() { return FDecorations; }

    /// Sets the bit `1 << severity` in the rows of an overview (`TZtOverviewRows`).
    void Survey(std::vector<quint32> &ARows);

    /// That of one of `GetDecorations`, by its owner.
    static TZtSeverity SeverityOf(TZtDecorationOwner AOwner);

private:
    static TZtDecorationOwner Owner(size_t ASource, TZtSeverity ASeverity);
    TZtDiagnostic Diagnostic(const TZtPlacedDecoration &APlaced) const;
    QPoint Inside(const QPoint &APlace) const;
    TZtDecoration Decoration(const TZtDiagnostic &ADiagnostic) const;
    std::vector<TZtDiagnostic>
    Find(int ALine, const std::function<bool(const TZtPlacedDecoration &)> &AMatches);
    bool Replace(size_t ASource, const std::vector<TZtDiagnostic> &ADiagnostics);
    void Tell()
    {
        if (OnChange)
            OnChange();
    }

    TZtDecorations FDecorations;
    QPointer<TStringList> FText;
    std::vector<QString> FSources;
    std::array<TZtDecorationStyle, Severities> FStyles;
};
