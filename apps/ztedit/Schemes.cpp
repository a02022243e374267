#include "Schemes.h"

#include "uZtColorScheme.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

QString DesktopScheme()
{
    const bool dark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    return dark ? QStringLiteral("Dark") : QStringLiteral("Light");
}

} // namespace

QStringList ZtSchemeNames()
{
    return QStringList{ZtDesktopScheme} + TZtColorScheme::BundledNames();
}

std::shared_ptr<const TZtColorScheme> ZtSchemeOf(const QString &AName)
{
    const QString name = AName == ZtDesktopScheme ? DesktopScheme() : AName;
    if (auto bundled = TZtColorScheme::Find(name))
        return bundled;
    return TZtColorScheme::Load(name);
}
