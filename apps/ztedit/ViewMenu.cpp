#include "ViewMenu.h"

#include "PlainText.h"

#include "uZtGuarded.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMenu>

TViewMenu::TViewMenu(QMenu *AMenu) : QObject(AMenu), FMenu(AMenu)
{
    FMenu->addSeparator();
    AddSwitches();
    FMenu->addSeparator();
    AddSchemes();
    Use({});
}

void TViewMenu::AddSwitches()
{
    for (const TViewSwitch &row : ZtViewSwitches()) {
        if (!row.Text) {
            FMenu->addSeparator();
            FSwitches.append(nullptr);
            continue;
        }
        QAction *action = FMenu->addAction(QCoreApplication::translate("View", row.Text));
        action->setCheckable(true);
        FSwitches.append(action);
        connect(action, &QAction::triggered, this, TZtGuarded([this, &row](bool on) {
                    TViewSettings settings = FView.Settings;
                    settings.Turn(row, on);
                    Choose(settings);
                }));
    }
}

void TViewMenu::AddSchemes()
{
    FSchemeMenu = FMenu->addMenu(tr("Colour &scheme"));
    FSchemes = new QActionGroup(this);
    for (const QString &name : ZtSchemeNames())
        AddScheme(name, name == ZtDesktopScheme ? tr("&Follow the desktop") : name);
}

QAction *TViewMenu::AddScheme(const QString &AName, const QString &AText)
{
    QAction *action = FSchemeMenu->addAction(AText);
    action->setCheckable(true);
    action->setData(AName);
    FSchemes->addAction(action);
    connect(action, &QAction::triggered, this, TZtGuarded([this, AName] {
                TViewSettings settings = FView.Settings;
                settings.Scheme = AName;
                Choose(settings);
            }));
    return action;
}

void TViewMenu::Remember()
{
    FRemembers = true;
    Use(TViewSettings::Load());
}

void TViewMenu::Use(const TViewSettings &ASettings)
{
    FView = {ASettings, ZtSchemeOf(ASettings.Scheme)};
    ShowChecks();
    Q_EMIT Changed();
}

void TViewMenu::UseScheme(const QString &AName)
{
    TViewSettings settings = FView.Settings;
    settings.Scheme = AName;
    Use(settings);
}

void TViewMenu::FollowDesktop()
{
    if (FView.Settings.Scheme == ZtDesktopScheme && FView.Scheme != ZtSchemeOf(ZtDesktopScheme))
        Use(FView.Settings);
}

// The user wants it.
void TViewMenu::Choose(const TViewSettings &ASettings)
{
    const TViewSettings before = FView.Settings;
    ShowChecks(); // of what is shown, until it is another
    Use(ASettings);
    if (FRemembers)
        ASettings.Store(before);
}

void TViewMenu::ShowChecks()
{
    const auto switches = ZtViewSwitches();
    for (qsizetype i = 0; i < FSwitches.size(); ++i)
        if (FSwitches[i])
            FSwitches[i]->setChecked(FView.Settings.IsOn(switches[size_t(i)]));
    const QString &scheme = FView.Settings.Scheme;
    for (QAction *action : FSchemes->actions()) {
        if (action->data().toString() == scheme) {
            action->setChecked(true);
            return;
        }
    }
    AddScheme(scheme, ZtWithoutMnemonics(QFileInfo(scheme).fileName()))->setChecked(true);
}
