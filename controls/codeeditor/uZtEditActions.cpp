#include "uZtEditActions.h"

#include "uZtCodeEdit.h"
#include "uZtGuarded.h"
#include "uZtPlatform.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QIcon>
#include <QInputDialog>

#include <array>

namespace {

// What an action needs so that it can be chosen, besides an editor.
enum TNeed : quint8 {
    nNothing = 0,
    nWritable = 1,
    nSelection = 2,
    nUndo = 4,
    nRedo = 8,
    nClipboard = 16
};

struct TRow {
    const char *Text;
    const char *Icon;
    QKeySequence::StandardKey Key;
    int Needs;
    void (TZtCodeEdit::*Run)();
    QKeyCombination Own = QKeyCombination::fromCombined(0); // instead of a standard key
};

using TEdit = TZtCodeEdit;

// In the order of `TZtEditAction`; the last one is the actions' own. Not every desktop has a key
// for replacing, or one that the editor knows.
constexpr std::array Rows = {
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Undo"), "edit-undo", QKeySequence::Undo,
         nWritable | nUndo, &TEdit::undo},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Redo"), "edit-redo", QKeySequence::Redo,
         nWritable | nRedo, &TEdit::redo},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "Cu&t"), "edit-cut", QKeySequence::Cut,
         nWritable | nSelection, &TEdit::cut},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Copy"), "edit-copy", QKeySequence::Copy, nSelection,
         &TEdit::copy},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Paste"), "edit-paste", QKeySequence::Paste,
         nWritable | nClipboard, &TEdit::paste},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Delete"), "edit-delete", QKeySequence::Delete,
         nWritable | nSelection, &TEdit::deleteSelection},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "Select &all"), "edit-select-all",
         QKeySequence::SelectAll, nNothing, &TEdit::selectAll},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Find…"), "edit-find", QKeySequence::Find, nNothing,
         &TEdit::find},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "R&eplace…"), "edit-find-replace",
         QKeySequence::UnknownKey, nWritable, &TEdit::replace, Qt::CTRL | Qt::Key_R},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "Find &next"), nullptr, QKeySequence::FindNext,
         nNothing, &TEdit::findNext},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "Find &previous"), nullptr, QKeySequence::FindPrevious,
         nNothing, &TEdit::findPrevious},
    TRow{QT_TRANSLATE_NOOP("TZtEditActions", "&Go to line…"), "go-jump", QKeySequence::UnknownKey,
         nNothing, nullptr, Qt::CTRL | Qt::Key_G},
};

QList<QKeySequence> KeysOf(const TRow &ARow)
{
    if (ARow.Key != QKeySequence::UnknownKey)
        return QKeySequence::keyBindings(ARow.Key);
    // Some desktops go on searching with it.
    const QKeySequence own(ARow.Own);
    if (QKeySequence::keyBindings(QKeySequence::FindNext).contains(own))
        return {};
    return {own};
}

int OffersOf(const TZtCodeEdit &AEdit)
{
    return (AEdit.GetReadOnly() ? 0 : nWritable) | (AEdit.SelectionGiven() ? nSelection : 0) |
           (AEdit.GetCanUndo() ? nUndo : 0) | (AEdit.GetCanRedo() ? nRedo : 0);
}

} // namespace

TZtEditActions::TZtEditActions(TZtCodeEdit *AEdit, QObject *AOwner) : QObject(AOwner)
{
    for (const TRow &row : Rows) {
        auto *action = new QAction(this);
        FActions.push_back(action);
        if (row.Icon)
            action->setIcon(QIcon::fromTheme(QLatin1StringView(row.Icon)));
        action->setShortcuts(KeysOf(row));
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, TZtGuarded([this, run = row.Run] {
                    if (FEdit && run)
                        (FEdit->*run)();
                    else if (FEdit)
                        GoToLine();
                }));
    }
    Retranslate();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &TZtEditActions::Refresh);
    SetEdit(AEdit);
    Refresh();
}

QList<QAction *> TZtEditActions::GetActions(TZtEditAction AFirst, TZtEditAction ALast) const
{
    return {FActions.begin() + int(AFirst), FActions.begin() + int(ALast) + 1};
}

void TZtEditActions::Retranslate()
{
    for (size_t i = 0; i < Rows.size(); ++i)
        FActions[i]->setText(tr(Rows[i].Text));
}

void TZtEditActions::SetEdit(TZtCodeEdit *Value)
{
    if (Value == FEdit)
        return;
    for (const QMetaObject::Connection &connection : std::exchange(FConnections, {}))
        disconnect(connection);
    FEdit = Value;
    if (FEdit) {
        const auto refresh = [this] { Enable(); };
        FConnections = {connect(FEdit, &TEdit::undoAvailable, this, refresh),
                        connect(FEdit, &TEdit::redoAvailable, this, refresh),
                        connect(FEdit, &TEdit::copyAvailable, this, refresh),
                        connect(FEdit, &TEdit::readOnlyChanged, this, refresh),
                        connect(FEdit, &QObject::destroyed, this, [this] {
                            FEdit.clear(); // it is an editor no more
                            Refresh();
                        })};
    }
    Refresh();
}

void TZtEditActions::Refresh()
{
    FHasClipboard = ZtPlatform().HasClipboardText();
    Enable();
}

// Another program may take its time to say what it has on the clipboard: it is not asked for each
// selection.
void TZtEditActions::Enable()
{
    const int offers = (FEdit ? OffersOf(*FEdit) : 0) | (FHasClipboard ? nClipboard : 0);
    for (size_t i = 0; i < Rows.size(); ++i)
        FActions[i]->setEnabled(FEdit && !(Rows[i].Needs & ~offers));
}

void TZtEditActions::GoToLine()
{
    const QPointer<TZtCodeEdit> edit = FEdit;
    const int last = qMax(edit->GetLines()->GetCount(), 1);
    bool agreed = false;
    const int line = QInputDialog::getInt(edit, tr("Go to line"), tr("Line (1 to %1):").arg(last),
                                          edit->GetLinePos() + 1, 1, last, 1, &agreed);
    if (agreed && edit)
        edit->GoToLine(line - 1);
}
