#include "uZtSettings.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

namespace {

QString &StoreFile()
{
    static QString fileName;
    return fileName;
}

// The path as QSettings spells it: no empty parts, slashes between the others.
QString GroupPath(const QString &AKey) { return AKey.split(u'\\', Qt::SkipEmptyParts).join(u'/'); }

bool IsNativeStore()
{
#ifdef Q_OS_WIN
    return StoreFile().isEmpty();
#else
    return false;
#endif
}

// The native registry is opened at the key itself, because a search through everything that the
// user has there would take seconds.
std::unique_ptr<QSettings> OpenStore(const QString &AGroup)
{
    if (IsNativeStore())
        return std::make_unique<QSettings>(QStringLiteral("HKEY_CURRENT_USER\\") +
                                               QString(AGroup).replace(u'/', u'\\'),
                                           QSettings::NativeFormat);
    if (!StoreFile().isEmpty())
        return std::make_unique<QSettings>(StoreFile(), QSettings::IniFormat);
    auto store =
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                    QStringLiteral("ZtCodeEditor"), QStringLiteral("registry"));
    store->setFallbacksEnabled(false);
    return store;
}

// A text with commas in it is a list to an INI file.
QString AsText(const QVariant &AValue)
{
    return AValue.userType() == QMetaType::QStringList ? AValue.toStringList().join(u',')
                                                       : AValue.toString();
}

} // namespace

void ZtSetSettingsFile(const QString &AFileName) { StoreFile() = AFileName; }

TZtRegistry::TZtRegistry() = default;
TZtRegistry::~TZtRegistry() = default;

bool TZtRegistry::OpenKeyReadOnly(const QString &AKey)
{
    FKey = AKey;
    const QString group = GroupPath(AKey);
    FStore = OpenStore(group);
    FPrefix = IsNativeStore() || group.isEmpty() ? QString() : group + u'/';
    const QStringList names = FStore->allKeys();
    for (const QString &name : names)
        if (name.startsWith(FPrefix, Qt::CaseInsensitive))
            return true;
    CloseKey();
    return false;
}

void TZtRegistry::CloseKey() { FStore.reset(); }

// The full name of a value as it is stored, whatever its case; null when there is none.
QString TZtRegistry::FindValue(const QString &AName) const
{
    if (!FStore)
        return {};
    const QString wanted = FPrefix + GroupPath(AName);
    const QStringList names = FStore->allKeys();
    for (const QString &name : names)
        if (name.compare(wanted, Qt::CaseInsensitive) == 0)
            return name;
    return {};
}

bool TZtRegistry::ValueExists(const QString &AName) const { return !FindValue(AName).isNull(); }

QString TZtRegistry::ReadString(const QString &AName) const
{
    const QString name = FindValue(AName);
    return name.isNull() ? QString() : AsText(FStore->value(name));
}

int TZtRegistry::ReadInteger(const QString &AName) const
{
    const QString name = FindValue(AName);
    bool ok = false;
    const int value = name.isNull() ? 0 : FStore->value(name).toInt(&ok);
    if (!ok)
        throw ERegistryException(
            QStringLiteral("The settings key \"%1\" has no integer \"%2\".").arg(FKey, AName));
    return value;
}

TZtRegistryIniFile::TZtRegistryIniFile(const QString &AKey) { FRegistry.OpenKeyReadOnly(AKey); }

QString TZtRegistryIniFile::ReadString(const QString &ASection, const QString &AName,
                                       const QString &ADefault) const
{
    const QString name = ASection + u'\\' + AName;
    return FRegistry.ValueExists(name) ? FRegistry.ReadString(name) : ADefault;
}

int TZtRegistryIniFile::ReadInteger(const QString &ASection, const QString &AName,
                                    int ADefault) const
{
    bool ok = false;
    const int value = ReadString(ASection, AName, QString()).trimmed().toInt(&ok);
    return ok ? value : ADefault;
}
