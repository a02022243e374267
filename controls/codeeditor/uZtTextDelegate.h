#pragma once

#include "uZtExport.h"

#include <QStyledItemDelegate>

/// Carries texts between an editor and a model, for `QDataWidgetMapper::setItemDelegate`.
///
/// Enter, Tab and Escape stay the editor's, and a text that nobody changed is not stored: a field
/// without a value does not become an empty text. To be used with `zcText`, so that all others are
/// given back as they were too.
class ZT_EDITOR_EXPORT TZtTextDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget *AEditor, QAbstractItemModel *AModel,
                      const QModelIndex &AIndex) const override;

protected:
    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;
};
