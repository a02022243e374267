#include "uZtDiagnostics.h"

#include "uZtWordScan.h"

#include <algorithm>

namespace {

constexpr TZtDecorationOwner OwnersOfSource = 4; // a severity each, and a spare one

constexpr TZtSeverity AllSeverities[] = {TZtSeverity::dsError, TZtSeverity::dsWarning,
                                         TZtSeverity::dsInformation};

constexpr TZtDecorationStyle Wavy{.Underline = TZtUnderline::ulWavy};

// The character behind a place, or the last one of the line: both halves of a pair.
std::pair<int, int> CharacterAt(const TStringList &AText, const QPoint &APlace)
{
    const int line = APlace.y();
    int from = std::min(APlace.x(), AText.GetLength(line) - 1);
    if (from > 0 && ZtIsPair(AText, line, from - 1))
        --from;
    return {from, from + (ZtIsPair(AText, line, from) ? 2 : 1)};
}

// What an empty range at a place covers.
std::pair<int, int> Covered(const TStringList &AText, const QPoint &APlace)
{
    if (AText.GetLength(APlace.y()) == 0)
        return {0, 0};
    const auto word = ZtWordAt(AText.View(APlace.y()), APlace.x());
    return APlace.x() < word.second ? word : CharacterAt(AText, APlace);
}

} // namespace

TZtDiagnostics::TZtDiagnostics(TStringList *AText)
    : FDecorations(AText), FText(AText), FStyles{Wavy, Wavy, Wavy}
{
}

TZtSeverity TZtDiagnostics::SeverityOf(TZtDecorationOwner AOwner)
{
    return TZtSeverity(AOwner % OwnersOfSource);
}

TZtDecorationOwner TZtDiagnostics::Owner(size_t ASource, TZtSeverity ASeverity)
{
    return TZtDecorationOwner(ASource) * OwnersOfSource + TZtDecorationOwner(ASeverity);
}

// In a line, so that there is one to show it in.
QPoint TZtDiagnostics::Inside(const QPoint &APlace) const
{
    if (APlace.y() < 0)
        return {0, 0};
    const int last = FText->GetCount() - 1;
    if (APlace.y() > last)
        return {FText->GetLength(last), last};
    return {std::clamp(APlace.x(), 0, FText->GetLength(APlace.y())), APlace.y()};
}

TZtDecoration TZtDiagnostics::Decoration(const TZtDiagnostic &ADiagnostic) const
{
    TZtDecoration decoration{ADiagnostic.From, ADiagnostic.To, GetStyle(ADiagnostic.Severity),
                             -int(ADiagnostic.Severity), ADiagnostic.Message};
    if (!FText || FText->GetCount() == 0)
        return decoration;
    decoration.From = Inside(ADiagnostic.From);
    decoration.To = Inside(ADiagnostic.To);
    if (!ZtIsBefore(decoration.From, decoration.To)) {
        const auto [from, to] = Covered(*FText, decoration.From);
        decoration.From.setX(from);
        decoration.To = {to, decoration.From.y()};
    }
    return decoration;
}

bool TZtDiagnostics::Replace(size_t ASource, const std::vector<TZtDiagnostic> &ADiagnostics)
{
    std::array<std::vector<TZtDecoration>, Severities> parts;
    for (const TZtDiagnostic &diagnostic : ADiagnostics)
        parts[size_t(diagnostic.Severity)].push_back(Decoration(diagnostic));
    bool changed = false;
    for (const TZtSeverity severity : AllSeverities) {
        const TZtDecorationOwner owner = Owner(ASource, severity);
        const std::vector<TZtDecoration> &part = parts[size_t(severity)];
        changed = changed || !part.empty() || FDecorations.GetCount(owner) > 0;
        FDecorations.ReplaceOwner(owner, part);
    }
    return changed;
}

void TZtDiagnostics::Set(const QString &ASource, const std::vector<TZtDiagnostic> &ADiagnostics)
{
    const auto known = std::find(FSources.begin(), FSources.end(), ASource);
    const auto source = size_t(known - FSources.begin());
    if (known == FSources.end()) {
        if (ADiagnostics.empty())
            return;
        FSources.push_back(ASource);
    }
    if (Replace(source, ADiagnostics))
        Tell();
}

void TZtDiagnostics::Clear()
{
    bool changed = false;
    for (size_t source = 0; source < FSources.size(); ++source)
        changed = Replace(source, {}) || changed;
    FSources.clear();
    if (changed)
        Tell();
}

int TZtDiagnostics::GetCount(TZtSeverity ASeverity) const
{
    int count = 0;
    for (size_t source = 0; source < FSources.size(); ++source)
        count += FDecorations.GetCount(Owner(source, ASeverity));
    return count;
}

TZtDiagnostic TZtDiagnostics::Diagnostic(const TZtPlacedDecoration &APlaced) const
{
    return {APlaced.From, APlaced.To, SeverityOf(APlaced.Owner), *APlaced.ToolTip,
            FSources[size_t(APlaced.Owner / OwnersOfSource)]};
}

std::optional<TZtDiagnostic> TZtDiagnostics::Next(const QPoint &APlace, bool AForward)
{
    const std::optional<QPoint> place = FDecorations.Next(APlace, AForward);
    if (!place)
        return std::nullopt;
    for (TZtDiagnostic &diagnostic : At(*place))
        if (diagnostic.From == *place)
            return std::move(diagnostic);
    return std::nullopt;
}

std::vector<TZtDiagnostic>
TZtDiagnostics::Find(int ALine, const std::function<bool(const TZtPlacedDecoration &)> &AMatches)
{
    std::vector<TZtDiagnostic> found;
    for (const TZtPlacedDecoration &placed : FDecorations.GetAllInLines(ALine, ALine))
        if (AMatches(placed))
            found.push_back(Diagnostic(placed));
    std::stable_sort(
        found.begin(), found.end(),
        [](const TZtDiagnostic &A, const TZtDiagnostic &B) { return A.Severity < B.Severity; });
    return found;
}

std::vector<TZtDiagnostic> TZtDiagnostics::At(const QPoint &APlace)
{
    return Find(APlace.y(), [&APlace](const TZtPlacedDecoration &placed) {
        const bool covers = !ZtIsBefore(APlace, placed.From) && ZtIsBefore(APlace, placed.To);
        return covers || (placed.IsEmpty() && placed.From == APlace);
    });
}

std::vector<TZtDiagnostic> TZtDiagnostics::InLine(int ALine)
{
    return Find(ALine, [](const TZtPlacedDecoration &) { return true; });
}

std::optional<TZtSeverity> TZtDiagnostics::OfLine(int ALine)
{
    std::optional<TZtSeverity> worst;
    if (GetCount() == 0)
        return worst; // as is most often asked
    for (const TZtPlacedDecoration &placed : FDecorations.GetAllInLines(ALine, ALine)) {
        const TZtSeverity severity = SeverityOf(placed.Owner);
        worst = worst ? std::min(*worst, severity) : severity;
    }
    return worst;
}

void TZtDiagnostics::SetStyle(TZtSeverity ASeverity, const TZtDecorationStyle &AStyle)
{
    FStyles[size_t(ASeverity)] = AStyle;
    for (size_t source = 0; source < FSources.size(); ++source)
        FDecorations.SetStyle(Owner(source, ASeverity), AStyle);
    Tell();
}

void TZtDiagnostics::Survey(std::vector<quint32> &ARows)
{
    FDecorations.Survey(
        ARows, [](TZtDecorationOwner owner) { return 1u << quint32(SeverityOf(owner)); }, true);
}
