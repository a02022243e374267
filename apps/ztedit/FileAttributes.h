#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

#include <sys/stat.h>

/// Whose a file is and who may do what with it: owner, group, permissions, access control lists and
/// all other extended attributes.
class TZtFileAttributes {
public:
    /// Those of a file itself, not of what a link leads to. Raises `std::system_error`.
    explicit TZtFileAttributes(const QString &APath);

    const struct stat &Status() const { return FStatus; }
    /// Gives all of them to an open file that nobody else has access to, or that has them already
    /// and lost some as it was written. Answers in words what the file cannot have; then others
    /// may do less with it than before, and nobody more. Raises `std::system_error`.
    QStringList GiveTo(int AHandle) const;

private:
    struct TAttribute {
        QByteArray Name;
        // None where it may not be read.
        std::optional<QByteArray> Value;
    };
    bool HasLists() const;
    bool GiveLists(int AHandle) const;
    mode_t ModeWithout(bool AOwner, bool AGroup, bool ALists) const;

    struct stat FStatus = {};
    // An access control list is one, too, whose name begins with "system.".
    std::vector<TAttribute> FAttributes;
    bool FAllListed = true;
};

/// Gives a file that only its owner has access to the permissions that a new one has where it is.
/// Raises `std::system_error`.
void ZtGiveNewFileMode(int AHandle, const QString &APath);
