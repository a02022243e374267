#pragma once

#include "Schemes.h"

#include "uZtCodeEdit.h"
#include "uZtExtras.h"

#include <QString>

#include <memory>
#include <span>

/// Something of the editors' view that is on or off.
struct TViewSwitch {
    const char *Text = nullptr; ///< in a menu; null for a line between groups
    const char *Name = nullptr; ///< in the file of settings
    TZtExtras Extra = {};
    TZtCodeOptions Option = {};
};

/// All of them, in groups.
std::span<const TViewSwitch> ZtViewSwitches();

/// How the user wants all editors to look.
struct TViewSettings {
    TZtExtras Extras = ZtAllExtras();
    TZtCodeOptions Options = TZtCodeOption::coShowGuttor | TZtCodeOption::coShowRightMargin;
    QString Scheme = ZtDesktopScheme; ///< one of `ZtSchemeNames`, or a file

    bool IsOn(const TViewSwitch &ASwitch) const;
    void Turn(const TViewSwitch &ASwitch, bool AOn);

    /// What the control shows by itself.
    static TViewSettings Plain();
    /// What was stored in the user's configuration folder. What is not there, or has no meaning, is
    /// as it is without a file.
    static TViewSettings Load();
    /// Stores what is not as in `ABefore`: another window may have stored the rest. A file that
    /// cannot be written is no failure.
    void Store(const TViewSettings &ABefore) const;
};

/// How all editors look: what the user wants, with the scheme as it is drawn now.
struct TEditorView {
    TViewSettings Settings = TViewSettings::Plain();
    std::shared_ptr<const TZtColorScheme> Scheme;

    void ApplyTo(TZtCodeEdit &AEditor) const;
};
