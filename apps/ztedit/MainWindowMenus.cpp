#include "MainWindow.h"

#include "DbDocument.h"
#include "Document.h"
#include "Icons.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "PlainText.h"
#include "ViewMenu.h"

#include "uZtCodeEdit.h"
#include "uZtEditActions.h"
#include "uZtGuarded.h"

#include <QActionGroup>
#include <QMenuBar>

#include <optional>

using enum TZtEditAction;
using enum TZtExtra;
using enum TZtExtraCommand;

namespace {

constexpr int MenuMethods = 50;   // as many as a menu shows well
constexpr int MenuPatience = 100; // milliseconds that a menu may take to find them

// The keys behind a tab are called what Qt calls those of the other commands.
QString WithKeyNames(const QString &AText)
{
    const qsizetype tab = AText.indexOf(u'\t');
    if (tab < 0)
        return AText;
    const auto keys = QKeySequence::fromString(AText.sliced(tab + 1), QKeySequence::PortableText);
    return AText.first(tab + 1) + keys.toString(QKeySequence::NativeText);
}

// What a command asks for so that it can be chosen: nothing, a document, or one whose editor has
// these extras.
using TNeeds = std::optional<TZtExtras>;

constexpr TNeeds Text = TZtExtras();

} // namespace

// A text with a tab shows the part after it as the key. The editor handles the keys of the
// commands that have one there by itself; a shortcut would take them away from it.
struct TMainWindow::TCommand {
    const char *Text = nullptr;
    const char *Icon = nullptr;
    const char *Shortcut = nullptr;
    void (TMainWindow::*Run)() = nullptr;
    TNeeds Needs = {};
    QAction *TMainWindow::*Action = nullptr;
    std::optional<TZtEditAction> Edits = {}; // one of the editor's own

    static constexpr TCommand Own(TZtEditAction AAction, const char *AIcon = nullptr)
    {
        return {.Icon = AIcon, .Edits = AAction};
    }
};

void TMainWindow::CreateMenus()
{
    CreateFileMenu();
    CreateEditMenu();
    CreateSearchMenu();
    CreateViewMenu();
    CreateMethodsMenu();
    CreateDatabaseMenu();
    CreateLanguageMenu();
}

void TMainWindow::CreateFileMenu()
{
    using TWin = TMainWindow;
    static constexpr TCommand file[] = {
        {QT_TR_NOOP("&New"), "document-new", "Ctrl+N", &TWin::New, {}, &TWin::FNew},
        {QT_TR_NOOP("&Open…"), "document-open", "Ctrl+O", &TWin::Open, {}, &TWin::FOpen},
        {},
        {QT_TR_NOOP("&Save"), "document-save", "Ctrl+S", &TWin::SaveCurrent, Text},
        {QT_TR_NOOP("Save &as…"),
         "document-save-as",
         "Ctrl+Shift+S",
         &TWin::SaveAs,
         {},
         &TWin::FSaveAs},
        {QT_TR_NOOP("Save a&ll"), nullptr, nullptr, &TWin::SaveAll, Text},
        {QT_TR_NOOP("&Reload"), "document-revert", nullptr, &TWin::Reload, {}, &TWin::FReload},
        {},
        {QT_TR_NOOP("&Print…"), "document-print", "Ctrl+P", &TWin::Print, Text},
        {QT_TR_NOOP("Print pre&view…"), nullptr, nullptr, &TWin::PreviewPrint, Text},
        {QT_TR_NOOP("&Export as HTML…"), nullptr, nullptr, &TWin::ExportHtml, Text},
        {},
        {QT_TR_NOOP("&Close"), "window-close", "Ctrl+W", &TWin::CloseCurrent, Text},
        {QT_TR_NOOP("&Quit"), "application-exit", "Ctrl+Q"},
    };
    CreateMenu(tr("&File"), file);
}

void TMainWindow::CreateEditMenu()
{
    using TWin = TMainWindow;
    static constexpr TCommand edit[] = {
        TCommand::Own(eaUndo, "edit-undo"),
        TCommand::Own(eaRedo, "edit-redo"),
        {},
        TCommand::Own(eaCut, "edit-cut"),
        TCommand::Own(eaCopy, "edit-copy"),
        TCommand::Own(eaPaste, "edit-paste"),
        TCommand::Own(eaDelete),
        {},
        TCommand::Own(eaSelectAll, "edit-select-all"),
        {QT_TR_NOOP("Select to &bracket\tCtrl+Shift+M"), nullptr, nullptr,
         &TWin::PostExtra<ecSelectToBracket>, zeBrackets},
    };
    FEdit = new TZtEditActions(nullptr, this);
    // Not every desktop tells what is on the clipboard meanwhile.
    connect(CreateMenu(tr("&Edit"), edit), &QMenu::aboutToShow, FEdit, &TZtEditActions::Refresh);
}

void TMainWindow::CreateSearchMenu()
{
    using TWin = TMainWindow;
    static constexpr TCommand search[] = {
        TCommand::Own(eaFind, "edit-find"),
        TCommand::Own(eaReplace, "edit-find-replace"),
        TCommand::Own(eaFindNext),
        TCommand::Own(eaFindPrevious),
        {},
        TCommand::Own(eaGoToLine, "go-jump"),
        {QT_TR_NOOP("Go to brac&ket\tCtrl+M"), nullptr, nullptr, &TWin::PostExtra<ecGoToBracket>,
         zeBrackets},
        {},
        {QT_TR_NOOP("&Toggle bookmark\tCtrl+F2"), "bookmark-new", nullptr,
         &TWin::PostExtra<ecToggleBookmark>, zeMarks},
        {QT_TR_NOOP("Next &bookmark\tF2"), nullptr, nullptr, &TWin::PostExtra<ecNextBookmark>,
         zeMarks},
        {QT_TR_NOOP("Pre&vious bookmark\tShift+F2"), nullptr, nullptr,
         &TWin::PostExtra<ecPreviousBookmark>, zeMarks},
        {},
        {QT_TR_NOOP("Next &diagnostic\tF8"), nullptr, nullptr, &TWin::PostExtra<ecNextDiagnostic>,
         zeDiagnostics},
        {QT_TR_NOOP("Previous d&iagnostic\tShift+F8"), nullptr, nullptr,
         &TWin::PostExtra<ecPreviousDiagnostic>, zeDiagnostics},
        {QT_TR_NOOP("&Load diagnostics…"), nullptr, nullptr, &TWin::ChooseDiagnostics},
    };
    CreateMenu(tr("&Search"), search);
    QAction *goTo = FEdit->GetAction(eaGoToLine); // a key that the editor does not have
    goTo->setShortcut(Qt::CTRL | Qt::Key_G);
    goTo->setShortcutContext(Qt::WindowShortcut);
}

void TMainWindow::CreateViewMenu()
{
    using TWin = TMainWindow;
    static constexpr TCommand view[] = {
        {QT_TR_NOOP("Zoom in\tCtrl++"), "zoom-in", nullptr, &TWin::PostExtra<ecZoomIn>, zeZoom},
        {QT_TR_NOOP("Zoom out\tCtrl+-"), "zoom-out", nullptr, &TWin::PostExtra<ecZoomOut>, zeZoom},
        {QT_TR_NOOP("Usual size\tCtrl+0"), "zoom-original", nullptr, &TWin::PostExtra<ecZoomReset>,
         zeZoom},
    };
    FView = new TViewMenu(CreateMenu(tr("&View"), view));
    TDocument::SetView(FView->View());
    connect(FView, &TViewMenu::Changed, this, TZtGuarded([this] { ShowView(); }));
}

QMenu *TMainWindow::CreateMenu(const QString &ATitle, std::span<const TCommand> ACommands)
{
    QMenu *menu = menuBar()->addMenu(ATitle);
    for (const TCommand &command : ACommands) {
        if (command.Edits) {
            QAction *action = FEdit->GetAction(*command.Edits);
            if (command.Icon)
                action->setIcon(ZtIcon(command.Icon));
            menu->addAction(action);
            continue;
        }
        if (!command.Text) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(WithKeyNames(tr(command.Text)));
        if (command.Icon)
            action->setIcon(ZtIcon(command.Icon));
        if (command.Shortcut)
            action->setShortcut(QKeySequence(QLatin1StringView(command.Shortcut)));
        if (command.Run)
            connect(action, &QAction::triggered, this,
                    TZtGuarded([this, run = command.Run] { (this->*run)(); }));
        else
            connect(action, &QAction::triggered, this, &QWidget::close);
        if (command.Action)
            this->*command.Action = action;
        if (command.Needs)
            FNeeds.emplace_back(action, *command.Needs);
    }
    return menu;
}

void TMainWindow::RefreshCommands()
{
    const TDocument *document = CurrentDocument();
    const TZtExtras extras = document ? document->Editor()->GetExtras() : TZtExtras();
    for (const auto &[action, needs] : FNeeds)
        action->setEnabled(document && !(needs & ~extras));
    FEdit->SetEdit(document ? document->Editor() : nullptr);
    FSaveAs->setEnabled(document && !CurrentDatabase());
    FReload->setEnabled(document && !document->Location().isEmpty());
    FLanguages->setEnabled(document);
    if (document)
        for (QAction *action : FLanguages->actions())
            if (action->data() == document->Language().Name)
                action->setChecked(true);
}

void TMainWindow::CreateMethodsMenu()
{
    static constexpr TCommand methods[] = {
        {QT_TR_NOOP("New event &handler…"),
         "flash",
         nullptr,
         &TMainWindow::NewEventHandler,
         {},
         &TMainWindow::FNewHandler},
        {QT_TR_NOOP("&All methods…"),
         "view-list",
         nullptr,
         &TMainWindow::ShowAllMethods,
         {},
         &TMainWindow::FAllMethods},
        {},
    };
    FMethods = CreateMenu(tr("&Methods"), methods);
    FMethods->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }")); // they may be many
    connect(FMethods, &QMenu::aboutToShow, this, TZtGuarded([this] { FillMethodsMenu(); }));
}

// Behind the menu's own commands, the methods in the text as it is now, if they are few.
void TMainWindow::FillMethodsMenu()
{
    disconnect(FMethodsRead);
    const QList<QAction *> before = FMethods->actions();
    for (QAction *action : before.sliced(before.indexOf(FAllMethods) + 2))
        delete action;
    TDocument *document = CurrentDocument();
    TMethodIndex *index = document ? ZtMethodIndexOf(*document) : nullptr;
    FNewHandler->setEnabled(index);
    FAllMethods->setEnabled(index);
    if (!index)
        return;
    const bool complete = index->ReadOn(MenuPatience, MenuMethods);
    if (index->Count() > MenuMethods)
        return;
    if (!complete) {
        const auto fill = TZtGuarded([this, index] {
            if (index->IsComplete() && FMethods->isVisible())
                FillMethodsMenu();
        });
        FMethodsRead = connect(index, &TMethodIndex::Advanced, FMethods, fill);
        return;
    }
    for (int i = 0; i < index->Count(); ++i) {
        const int line = index->Line(i);
        QAction *action = FMethods->addAction(ZtWithoutMnemonics(index->Name(i)) +
                                              QLatin1Char('\t') + tr("line %1").arg(line));
        connect(action, &QAction::triggered, document,
                TZtGuarded([document, line] { document->GoToLine(line); }));
    }
}

void TMainWindow::ShowAllMethods()
{
    TDocument *document = CurrentDocument();
    TMethodIndex *index = document ? ZtMethodIndexOf(*document) : nullptr;
    if (!index)
        return;
    TMethodListDialog dialog(*index, this);
    if (dialog.exec() == QDialog::Accepted)
        document->GoToLine(dialog.Line());
}

void TMainWindow::CreateDatabaseMenu()
{
    static constexpr TCommand database[] = {
        {QT_TR_NOOP("&Open…"),
         "database",
         "Ctrl+Shift+O",
         &TMainWindow::OpenDatabaseTable,
         {},
         &TMainWindow::FOpenDatabase},
        {},
    };
    FDatabase = CreateMenu(tr("&Database"), database);
    connect(FDatabase, &QMenu::aboutToShow, this, TZtGuarded([this] { FillDatabaseMenu(); }));
}

// Behind the menu's own command, those of the database in front.
void TMainWindow::FillDatabaseMenu()
{
    for (QAction *action : FDatabase->actions().sliced(2))
        FDatabase->removeAction(action);
    if (const TDbDocument *database = CurrentDatabase())
        for (QAction *action : database->Actions())
            FDatabase->addAction(action);
}

void TMainWindow::CreateLanguageMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Language"));
    FLanguages = new QActionGroup(this);
    for (const TZtLanguage &language : ZtLanguages()) {
        QAction *action = menu->addAction(ZtLanguageTitle(language));
        action->setCheckable(true);
        action->setData(language.Name);
        FLanguages->addAction(action);
        const auto choose = TZtGuarded([this, &language] {
            if (TDocument *document = CurrentDocument())
                document->SetLanguage(language);
        });
        connect(action, &QAction::triggered, this, choose);
    }
}
