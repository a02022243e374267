#pragma once

#include "ViewSettings.h"

#include <QObject>

class QActionGroup;
class QMenu;

/// The commands that change how all editors look, behind those that a menu has already.
class TViewMenu : public QObject {
    Q_OBJECT

public:
    explicit TViewMenu(QMenu *AMenu);

    /// Shows the settings that were stored last, and stores each change from now on.
    void Remember();
    /// Shows other settings, which are not stored. Raises `EZtColorScheme` when the scheme is a
    /// file that cannot be read.
    void Use(const TViewSettings &ASettings);
    /// `Use` with another scheme.
    void UseScheme(const QString &AName);
    /// To be called when the desktop may have become light or dark.
    void FollowDesktop();

    const TEditorView &View() const { return FView; }

Q_SIGNALS:
    /// `View` is another one.
    void Changed();

private:
    void AddSwitches();
    void AddSchemes();
    QAction *AddScheme(const QString &AName, const QString &AText);
    void Choose(const TViewSettings &ASettings);
    void ShowChecks();

    QMenu *FMenu;
    QMenu *FSchemeMenu = nullptr;
    QActionGroup *FSchemes = nullptr; // each carries its name
    QList<QAction *> FSwitches;       // in the order of `ZtViewSwitches`, null for a line
    TEditorView FView;
    bool FRemembers = false;
};
