#pragma once

#include "uZtException.h"

#include <QString>

#include <memory>

class QSettings;

/// A settings value that is missing or not of the asked type.
class ERegistryException : public EZtException {
    using EZtException::EZtException;
};

/// Makes the INI file `AFileName` the store that every settings view opened from now on reads. An
/// empty name puts back the user's own store: the registry under HKEY_CURRENT_USER on Windows, an
/// INI file in the user's configuration folder elsewhere.
void ZtSetSettingsFile(const QString &AFileName);

/// One key of the user's settings, for reading. Key paths have their parts separated by
/// backslashes, with or without one at the start and the end. Neither paths nor value names tell
/// upper from lower case.
class TZtRegistry {
public:
    TZtRegistry();
    ~TZtRegistry();
    Q_DISABLE_COPY_MOVE(TZtRegistry)

    /// Opens `AKey` in place of the key that was open. Answers false, with no key open, when there
    /// is none; a key exists when it holds a value or another key.
    bool OpenKeyReadOnly(const QString &AKey);
    void CloseKey();

    /// Whether the open key has the value `AName`, which may be a path into its subkeys.
    bool ValueExists(const QString &AName) const;
    /// The value as a string; empty when it is missing.
    QString ReadString(const QString &AName) const;
    /// The value as an integer; raises `ERegistryException` when it is missing or no integer.
    int ReadInteger(const QString &AName) const;

private:
    QString FindValue(const QString &AName) const;

    std::unique_ptr<QSettings> FStore;
    QString FPrefix;
    QString FKey;
};

/// The same store read like an INI file: the sections are the subkeys of one key. A missing key,
/// section or value gives the default.
class TZtRegistryIniFile {
public:
    /// Opens the view on `AKey`, which need not exist.
    explicit TZtRegistryIniFile(const QString &AKey);

    QString ReadString(const QString &ASection, const QString &AName,
                       const QString &ADefault) const;
    /// The default also stands for a value that is no integer.
    int ReadInteger(const QString &ASection, const QString &AName, int ADefault) const;

private:
    TZtRegistry FRegistry;
};
