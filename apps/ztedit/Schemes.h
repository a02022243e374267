#pragma once

#include <QLatin1StringView>
#include <QStringList>

#include <memory>

class TZtColorScheme;

/// The name that stands for the light or the dark scheme, as the desktop is.
inline constexpr QLatin1StringView ZtDesktopScheme("Desktop");
/// The scheme that leaves the lexers their own colours.
inline constexpr QLatin1StringView ZtPlainScheme("Classic");

/// What a user can choose by name; the first is `ZtDesktopScheme`.
QStringList ZtSchemeNames();
/// The scheme of a name or in a file. Raises `EZtColorScheme` when the file cannot be read.
std::shared_ptr<const TZtColorScheme> ZtSchemeOf(const QString &AName);
