#include "uZtTextDelegate.h"

#include "uZtCodeEdit.h"

void TZtTextDelegate::setModelData(QWidget *AEditor, QAbstractItemModel *AModel,
                                   const QModelIndex &AIndex) const
{
    const auto *edit = qobject_cast<const TZtCodeEdit *>(AEditor);
    if (!edit || edit->GetText() != AModel->data(AIndex, Qt::EditRole).toString())
        QStyledItemDelegate::setModelData(AEditor, AModel, AIndex);
}

bool TZtTextDelegate::eventFilter(QObject *AWatched, QEvent *AEvent)
{
    const bool key =
        AEvent->type() == QEvent::KeyPress || AEvent->type() == QEvent::ShortcutOverride;
    if (key && qobject_cast<TZtCodeEdit *>(AWatched))
        return false;
    return QStyledItemDelegate::eventFilter(AWatched, AEvent);
}
