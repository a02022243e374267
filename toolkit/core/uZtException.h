#pragma once

#include "uZtExport.h"

#include <QString>

#include <stdexcept>

/// Base of everything that the control and its toolkit raise.
class ZT_PARSERS_EXPORT EZtException : public std::runtime_error {
public:
    /// In words that can be shown to a user.
    explicit EZtException(const QString &message) : std::runtime_error(message.toStdString()) {}
    QString Message() const { return QString::fromUtf8(what()); } ///< what it was made with
};

/// A line that the string list does not have.
class ZT_PARSERS_EXPORT EStringListError : public EZtException {
    using EZtException::EZtException;
};

/// A list index outside the list.
class ZT_PARSERS_EXPORT EListError : public EZtException {
    using EZtException::EZtException;
};

/// A value that cannot be read as the asked type.
class ZT_PARSERS_EXPORT EConvertError : public EZtException {
    using EZtException::EZtException;
};

/// A file or stream that could not be read or written.
class ZT_PARSERS_EXPORT EStreamError : public EZtException {
    using EZtException::EZtException;
};

/// The silent abort: it ends an operation without anything being shown to the user.
class ZT_PARSERS_EXPORT EAbort : public EZtException {
    using EZtException::EZtException;
};
