#pragma once

#include "uZtFieldDataLink.h"

#include <QComboBox>
#include <QLineEdit>

/// A line of text that shows and changes a field of the current record.
class TBoundLine final : public QLineEdit {
    Q_OBJECT

public:
    TBoundLine(TDataSource &ASource, const QString &AField, QWidget *AParent);

private:
    TFieldDataLink FLink;
};

/// A language by its name in a field of the current record.
class TBoundLanguage final : public QComboBox {
    Q_OBJECT

public:
    TBoundLanguage(TDataSource &ASource, const QString &AField, QWidget *AParent);

Q_SIGNALS:
    /// Another record or another choice; the name is one of `ZtLanguages`, or empty.
    void LanguageShown(const QString &AName);

private:
    TFieldDataLink FLink;
};
