#include "uZtColorScheme.h"

#include <QMetaEnum>

#include <map>

using enum TZtViewColor;

// The linker keeps a library's resources when something asks for them, and the macro that does so
// has to stand outside of any namespace.
static void InitResources() { Q_INIT_RESOURCE(zt_schemes); }

namespace {

// WCAG 2.1's weights, without its curve, which does not change which of two greys is the lighter.
int Lightness(TColor AColor)
{
    return int(2126 * (AColor & 0xFF) + 7152 * ((AColor >> 8) & 0xFF) +
               722 * ((AColor >> 16) & 0xFF));
}

bool IsSystemColor(TColor AColor) { return AColor >> 24 != 0; }

constexpr std::pair<TZtViewColor, TColor> ClassicColors[] = {
    {vcText, clWindowText},
    {vcBackground, clWindow},
    {vcReadOnly, clWindow},
    {vcSelectionText, clHighlightText},
    {vcSelection, clHighlight},
    {vcCurrentLine, clWindow},
    {vcRightMargin, clBtnFace},
    {vcGuttor, clBtnFace},
    {vcGuttorEdge, clBtnShadow},
    {vcGuttorText, clWindowText},
    {vcCurrentNumber, clWindowText},
    {vcGuide, clBtnFace},
    {vcCurrentGuide, clBtnShadow},
    {vcBlank, clBtnShadow},
    {vcBracket, clBtnShadow},
    {vcBracketBack, clBtnFace},
    {vcUnmatched, clRed},
    {vcMatch, clYellow},
    {vcWord, clBtnFace},
    {vcChanged, clOlive},
    {vcSaved, clGreen},
    {vcBookmark, clBlue},
    {vcBreakpoint, clRed},
    {vcStatement, clNavy},
    {vcError, clRed},
    {vcWarning, clOlive},
    {vcInformation, clBlue},
    {vcRuler, clBtnFace},
    {vcCaret, clWindowText},
};
static_assert(std::size(ClassicColors) == TZtColorScheme::ViewColorCount);

struct TBundled {
    QLatin1StringView Name;
    const char *File;
};
constexpr TBundled Bundled[] = {
    {QLatin1StringView("Light"), ":/zt/schemes/light.json"},
    {QLatin1StringView("Dark"), ":/zt/schemes/dark.json"},
    {QLatin1StringView("High Contrast Light"), ":/zt/schemes/high-contrast-light.json"},
    {QLatin1StringView("High Contrast Dark"), ":/zt/schemes/high-contrast-dark.json"},
};

} // namespace

EZtColorScheme::EZtColorScheme(const QString &AName, int ALine, int AColumn, const QString &AReason)
    : EZtException(
          ALine > 0 ? QStringLiteral("%1:%2:%3: %4").arg(AName).arg(ALine).arg(AColumn).arg(AReason)
                    : QStringLiteral("%1: %2").arg(AName, AReason)),
      FLine(ALine), FColumn(AColumn), FReason(AReason)
{
}

std::shared_ptr<const TZtColorScheme> TZtColorScheme::Classic()
{
    static const std::shared_ptr<const TZtColorScheme> classic = [] {
        std::shared_ptr<TZtColorScheme> scheme(new TZtColorScheme);
        scheme->FName = QStringLiteral("Classic");
        for (const auto &[part, color] : ClassicColors)
            scheme->FColors[size_t(part)] = color;
        return scheme;
    }();
    return classic;
}

QString TZtColorScheme::ColorName(TZtViewColor AColor)
{
    constexpr int Prefix = 2;
    return QLatin1String(QMetaEnum::fromType<TZtViewColor>().valueToKey(int(AColor)) + Prefix);
}

QStringList TZtColorScheme::BundledNames()
{
    QStringList names{Classic()->GetName()};
    for (const TBundled &row : Bundled)
        names += QLatin1String(row.Name);
    return names;
}

std::shared_ptr<const TZtColorScheme> TZtColorScheme::Find(const QString &AName)
{
    static const std::map<QLatin1StringView, std::shared_ptr<const TZtColorScheme>> schemes = [] {
        InitResources();
        std::map<QLatin1StringView, std::shared_ptr<const TZtColorScheme>> all;
        for (const TBundled &row : Bundled)
            all.emplace(row.Name, Load(QLatin1String(row.File)));
        return all;
    }();
    if (AName.compare(Classic()->GetName(), Qt::CaseInsensitive) == 0)
        return Classic();
    for (const auto &[name, scheme] : schemes)
        if (AName.compare(name, Qt::CaseInsensitive) == 0)
            return scheme;
    return nullptr;
}

bool TZtColorScheme::IsDark() const
{
    const TColor text = GetColor(vcText);
    const TColor back = GetColor(vcBackground);
    return !IsSystemColor(text) && !IsSystemColor(back) && Lightness(text) > Lightness(back);
}

TZtTextStyle TZtColorScheme::GetStyle(const QString &ALanguage, const QString &AElement) const
{
    TZtTextStyle style{GetColor(vcText), GetColor(vcBackground), {}};
    for (const QString &language : {QStringLiteral("*"), ALanguage}) {
        if (AElement.endsWith(QLatin1StringView(" 2")))
            Apply(language, AElement.chopped(2), style);
        Apply(language, AElement, style);
    }
    return style;
}

void TZtColorScheme::Apply(const QString &ALanguage, const QString &AElement,
                           TZtTextStyle &AStyle) const
{
    const auto found = FStyles.constFind({ALanguage, AElement});
    if (found == FStyles.cend())
        return;
    AStyle.Fore = found->Fore.value_or(AStyle.Fore);
    AStyle.Back = found->Back.value_or(AStyle.Back);
    AStyle.Style = (AStyle.Style & ~found->Said) | found->Style;
}
