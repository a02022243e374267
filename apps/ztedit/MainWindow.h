#pragma once

#include "CompilerOutput.h"

#include "uZtExtras.h"

#include <QMainWindow>

#include <memory>
#include <span>
#include <utility>
#include <vector>

struct TDbPlace;
class QActionGroup;
class QMenu;
class QScrollArea;
class QStackedWidget;
class QTabWidget;
class TDbDocument;
class TDocument;
class TStatusTexts;
class TViewMenu;
class TZtEditActions;

/// The window: a tab for each document, the menus and the status bar.
class TMainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit TMainWindow(QWidget *AParent = nullptr);

    /// Writes down the changes of each document that comes from now on, for after a crash.
    void KeepJournals();
    /// How all editors look.
    TViewMenu &View() const { return *FView; }
    /// A new text that comes back after a crash, in the place of an unused one. Without a title it
    /// gets that of any new one.
    TDocument *AddRestored(const QString &ATitle);

    /// Opens a file in a tab of its own, or shows the tab that it is open in. Raises `EStreamError`
    /// when it cannot be read.
    TDocument *OpenFile(const QString &APath);
    /// `OpenFile`, or a new text for a file that is not there, which the first save makes.
    TDocument *OpenOrBegin(const QString &APath);
    /// Opens each in the given way. Answers what there is to tell about those that cannot be read.
    QStringList OpenEach(const QStringList &APaths,
                         TDocument *(TMainWindow::*AOpen)(const QString &));
    /// `OpenFile` for each; tells the user about those that cannot be read.
    void OpenFiles(const QStringList &APaths);
    /// The document of a file; null when it is not open.
    TDocument *DocumentOf(const QString &APath) const;
    /// Opens the field of a database's table in a tab of its own. Raises `EDatabaseError` when
    /// something of it is missing or cannot be read.
    TDbDocument *OpenDatabase(const TDbPlace &APlace);
    TDocument *NewDocument();
    /// Shows what a compiler printed into a file, in the documents that are open and in those that
    /// will be, instead of what was shown before. Raises `EStreamError`, and all stays as it was,
    /// when it cannot be read.
    void LoadDiagnostics(const QString &APath);

    int DocumentCount() const;
    TDocument *Document(int AIndex) const;
    /// The document in front; null when there is none.
    TDocument *CurrentDocument() const;
    void ShowDocument(int AIndex);

    /// Saves under its own name, or asks for one; posts the record of a database. Answers whether
    /// it went through.
    bool Save(TDocument *ADocument);
    /// Closes a tab, after a question when its text is not saved. Answers whether it was closed.
    bool CloseDocument(TDocument *ADocument);

Q_SIGNALS:
    /// A file that was not open has a tab now.
    void FileOpened(const QString &APath);

protected:
    void changeEvent(QEvent *AEvent) override;
    void closeEvent(QCloseEvent *AEvent) override;
    void dragEnterEvent(QDragEnterEvent *AEvent) override;
    void dropEvent(QDropEvent *AEvent) override;

private:
    struct TCommand;
    void CreateMenus();
    void CreateFileMenu();
    void CreateEditMenu();
    void CreateSearchMenu();
    void CreateViewMenu();
    QMenu *CreateMenu(const QString &ATitle, std::span<const TCommand> ACommands);
    void CreateLanguageMenu();
    void CreateMethodsMenu();
    void FillMethodsMenu();
    void CreateDatabaseMenu();
    void FillDatabaseMenu();
    void CreatePages();
    void ShowView();
    void FollowTab();

    void New();
    void Open();
    void SaveCurrent();
    void SaveAs();
    void SaveAll();
    void Print();
    void PreviewPrint();
    void ExportHtml();
    void Reload();
    void CloseCurrent();
    void ChooseDiagnostics();
    void NewEventHandler();
    void ShowAllMethods();
    void OpenDatabaseTable();

    bool AskForNameAndSave(TDocument *ADocument);
    void KeepJournalOf(TDocument *ADocument);
    bool ConfirmDiscard(TDocument *ADocument);
    TDbDocument *CurrentDatabase() const;
    QString NextTitle();
    std::unique_ptr<TDocument> CreateDocument(const QString &ATitle);
    void AddDocument(TDocument *ADocument);
    static void Drop(TDocument *ADocument);
    template <typename T> T *AddInsteadOfUnused(std::unique_ptr<T> ADocument);
    void PostExtra(TZtExtraCommand ACommand);
    template <TZtExtraCommand Command> void PostExtra() { PostExtra(Command); }
    void RefreshLater();
    void Refresh();
    void RefreshTab(int AIndex);
    void RefreshCommands();

    QStackedWidget *FPages; // the tabs, or what there is without one
    QTabWidget *FTabs;
    QScrollArea *FStart = nullptr;
    TStatusTexts *FStatus;
    TViewMenu *FView = nullptr;
    TZtEditActions *FEdit = nullptr; // of the editor in front
    TCompilerOutput FOutput;
    std::vector<std::pair<QAction *, TZtExtras>> FNeeds; // commands for a document with these
    QActionGroup *FLanguages = nullptr;
    QMenu *FMethods = nullptr;
    QMetaObject::Connection FMethodsRead; // fills the menu that is open once all methods are known
    QMenu *FDatabase = nullptr;
    QAction *FNew = nullptr;
    QAction *FOpen = nullptr;
    QAction *FOpenDatabase = nullptr;
    QAction *FNewHandler = nullptr;
    QAction *FAllMethods = nullptr;
    QAction *FSaveAs = nullptr;
    QAction *FReload = nullptr;
    bool FKeepsJournals = false;
    int FNewCount = 0;
    bool FRefreshing = false;
};
