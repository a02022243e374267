#include "ViewSettings.h"

#include <QCoreApplication>
#include <QSettings>

#include <optional>

using enum TZtCodeOption;
using enum TZtExtra;

namespace {

constexpr QLatin1StringView SchemeKey("View/Scheme");

QString KeyOf(const TViewSwitch &ASwitch)
{
    return QStringLiteral("View/") + QLatin1StringView(ASwitch.Name);
}

struct TSettingsFile : QSettings {
    TSettingsFile()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("ztedit"),
                    QStringLiteral("ztedit"))
    {
    }
};

std::optional<bool> ReadSwitch(const QVariant &AValue)
{
    const QString text = AValue.toString();
    if (text == QLatin1StringView("true"))
        return true;
    if (text == QLatin1StringView("false"))
        return false;
    return std::nullopt;
}

} // namespace

std::span<const TViewSwitch> ZtViewSwitches()
{
    static constexpr TViewSwitch switches[] = {
        {QT_TRANSLATE_NOOP("View", "&Gutter"), "Gutter", {}, coShowGuttor},
        {QT_TRANSLATE_NOOP("View", "&Line numbers"), "LineNumbers", zeLineNumbers},
        {QT_TRANSLATE_NOOP("View", "&Bookmarks"), "Marks", zeMarks},
        {QT_TRANSLATE_NOOP("View", "&Changed lines"), "ChangeBars", zeChangeBars},
        {QT_TRANSLATE_NOOP("View", "&Diagnostics"), "Diagnostics", zeDiagnostics},
        {QT_TRANSLATE_NOOP("View", "&Overview ruler"), "Ruler", zeRuler},
        {},
        {QT_TRANSLATE_NOOP("View", "C&urrent line"), "CurrentLine", zeCurrentLine},
        {QT_TRANSLATE_NOOP("View", "&Right margin"), "RightMargin", {}, coShowRightMargin},
        {QT_TRANSLATE_NOOP("View", "&Indentation guides"), "Guides", zeGuides},
        {QT_TRANSLATE_NOOP("View", "Bl&anks"), "Blanks", zeBlanks},
        {QT_TRANSLATE_NOOP("View", "Selected bla&nks"), "SelectedBlanks", zeSelectedBlanks},
        {QT_TRANSLATE_NOOP("View", "Pairs of brac&kets"), "Brackets", zeBrackets},
        {QT_TRANSLATE_NOOP("View", "&Matches of the search"), "MatchMarks", zeMatchMarks},
        {QT_TRANSLATE_NOOP("View", "&Word at the caret"), "WordMarks", zeWordMarks},
        {},
        {QT_TRANSLATE_NOOP("View", "&Pairs while typing"), "TypedPairs", zeTypedPairs},
        {QT_TRANSLATE_NOOP("View", "Drag and drop of &text"), "DragText", zeDragText},
        {QT_TRANSLATE_NOOP("View", "&Zoom by wheel and keys"), "Zoom", zeZoom},
        {QT_TRANSLATE_NOOP("View", "&Fine scrolling"), "FineWheel", zeFineWheel},
    };
    return switches;
}

bool TViewSettings::IsOn(const TViewSwitch &ASwitch) const
{
    return !(ASwitch.Extra & ~Extras) && !(ASwitch.Option & ~Options);
}

void TViewSettings::Turn(const TViewSwitch &ASwitch, bool AOn)
{
    Extras = AOn ? Extras | ASwitch.Extra : Extras & ~ASwitch.Extra;
    Options = AOn ? Options | ASwitch.Option : Options & ~ASwitch.Option;
}

TViewSettings TViewSettings::Plain()
{
    TViewSettings plain;
    plain.Extras = {};
    plain.Scheme = ZtPlainScheme;
    return plain;
}

TViewSettings TViewSettings::Load()
{
    const TSettingsFile file;
    TViewSettings settings;
    for (const TViewSwitch &row : ZtViewSwitches())
        if (row.Name)
            settings.Turn(row, ReadSwitch(file.value(KeyOf(row))).value_or(settings.IsOn(row)));
    const QString scheme = file.value(SchemeKey).toString();
    if (ZtSchemeNames().contains(scheme))
        settings.Scheme = scheme;
    return settings;
}

void TViewSettings::Store(const TViewSettings &ABefore) const
{
    TSettingsFile file;
    for (const TViewSwitch &row : ZtViewSwitches())
        if (row.Name && IsOn(row) != ABefore.IsOn(row))
            file.setValue(KeyOf(row), IsOn(row));
    if (Scheme != ABefore.Scheme)
        file.setValue(SchemeKey, Scheme);
}

void TEditorView::ApplyTo(TZtCodeEdit &AEditor) const
{
    TZtCodeOptions options = AEditor.GetOptions();
    options &= ~(coShowGuttor | coShowRightMargin); // the others are not the user's
    options |= Settings.Options;
    AEditor.SetOptions(options);
    AEditor.SetExtras(Settings.Extras);
    if (Scheme)
        AEditor.SetScheme(Scheme);
}
