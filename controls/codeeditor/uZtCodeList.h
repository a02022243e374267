#pragma once

#include "uZtExport.h"

#include <QObject>
#include <QString>

/// An inert shell: it holds nothing and answers empty strings. The editor's text is a
/// `TStringList`.
class ZT_EDITOR_EXPORT TZtCodeList : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    QString GetStrings(int) const { return {}; } ///< always empty
    void SetStrings(int, const QString &) {}     ///< does nothing
};
