#pragma once

#include "uZtExport.h"

#include <QObject>

#include <functional>
#include <type_traits>

class QWidget;

/// Makes one object of a class; null for an owner of the wrong kind.
using TZtObjectFactory = std::function<QObject *(QObject *AOwner)>;

/// Makes `AFactory` answer for `AClassName`; a second registration of the same name is ignored.
ZT_PARSERS_EXPORT void ZtRegisterFactory(const QString &AClassName, TZtObjectFactory AFactory);

/// A new object of the registered class, owned by `AOwner`, or null for an unknown name or an
/// owner of the wrong kind (a control wants a widget, or none).
ZT_PARSERS_EXPORT QObject *ZtCreateObject(const QString &AClassName, QObject *AOwner);

/// Registers `T` under its class name, so that a stored form can create it by name.
template <typename T> bool ZtRegisterClass()
{
    ZtRegisterFactory(QString::fromLatin1(T::staticMetaObject.className()),
                      [](QObject *owner) -> QObject * {
                          if constexpr (std::is_constructible_v<T, QObject *>) {
                              return new T(owner);
                          } else {
                              auto *widget = qobject_cast<QWidget *>(owner);
                              return owner && !widget ? nullptr : new T(widget);
                          }
                      });
    return true;
}
