#pragma once

#include "uZtCodeEdit.h"
#include "uZtExport.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <vector>

class QAction;

/// The commands, in the order in which a menu has them. `eaGoToLine` asks for a line's number.
enum class TZtEditAction : quint8 {
    eaUndo,
    eaRedo,
    eaCut,
    eaCopy,
    eaPaste,
    eaDelete,
    eaSelectAll,
    eaFind,
    eaReplace,
    eaFindNext,
    eaFindPrevious,
    eaGoToLine,
};

/// The usual commands of an editor as actions, for a host's menus and tool bars. They are enabled
/// as the editor can carry them out.
///
/// Their keys are shown; the editor handles those that it has by itself, and no other widget loses
/// one: the shortcuts are of `Qt::WidgetShortcut`. A host that adds the actions to the editor
/// (`QWidget::addActions`) lets the other keys, Ctrl+G for instance, trigger them there; one that
/// the editor has never does.
class ZT_EDITOR_EXPORT TZtEditActions : public QObject {
    Q_OBJECT

public:
    /// `AEdit` may be null, and may go first. `AOwner` is the parent, which deletes the actions.
    explicit TZtEditActions(TZtCodeEdit *AEdit = nullptr, QObject *AOwner = nullptr);

    TZtCodeEdit *GetEdit() const { return FEdit; }
    /// The editor that the actions are about from now on; null disables them.
    void SetEdit(TZtCodeEdit *Value);
    /// Never null; it is this object's child.
    QAction *GetAction(TZtEditAction AAction) const { return FActions[size_t(AAction)]; }
    /// Those from the first to the last, in the order of `TZtEditAction`.
    QList<QAction *> GetActions(TZtEditAction AFirst = TZtEditAction::eaUndo,
                                TZtEditAction ALast = TZtEditAction::eaGoToLine) const;
    /// Takes the texts from the translation that is installed now.
    void Retranslate();
    /// Looks again at what can be done, which is known without it as far as an editor's signals
    /// and the clipboard tell.
    void Refresh();

private:
    void Enable();
    void GoToLine();

    bool FHasClipboard = false;
    QPointer<TZtCodeEdit> FEdit;
    std::vector<QAction *> FActions;
    QList<QMetaObject::Connection> FConnections;
};
