#include "MainWindow.h"

#include "DbDocument.h"
#include "DbOpenDialog.h"
#include "Document.h"
#include "EventDialog.h"
#include "FileStore.h"
#include "MethodIndex.h"
#include "MethodListDialog.h"
#include "Methods.h"
#include "PlainText.h"
#include "SaveFlow.h"
#include "StatusTexts.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtGuarded.h"
#include "uZtMessages.h"
#include "uZtPlatform.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>

#include <filesystem>

namespace {

constexpr int MessageTime = 5000;
constexpr int MenuMethods = 50;   // as many as a menu shows well
constexpr int MenuPatience = 100; // milliseconds that a menu may take to find them

// Whether nothing is there, as far as one may see.
bool IsMissing(const QString &APath)
{
    std::error_code error;
    return !APath.isEmpty() &&
           std::filesystem::status(QFileInfo(APath).filesystemFilePath(), error).type() ==
               std::filesystem::file_type::not_found;
}

void ShowError(const QString &AText) { ZtMsgBoxError(AText, QCoreApplication::applicationName()); }

bool HasSelection(const TZtCodeEdit &AEditor)
{
    const QPoint start = AEditor.GetSelStart();
    const QPoint end = AEditor.GetSelEnd();
    return start.x() != -1 && end.x() != -1 && start != end;
}

} // namespace

// A text with a tab shows the part after it as the key. The editor handles the keys of the
// commands that have one there by itself; a shortcut would take them away from it.
struct TMainWindow::TCommand {
    const char *Text;
    const char *Shortcut;
    void (TMainWindow::*Run)();
    QAction *TMainWindow::*Action = nullptr;
};

TMainWindow::TMainWindow(QWidget *AParent) : QMainWindow(AParent), FTabs(new QTabWidget(this))
{
    FTabs->setDocumentMode(true);
    FTabs->setTabsClosable(true);
    FTabs->setMovable(true);
    setCentralWidget(FTabs);
    setAcceptDrops(true);
    CreateMenus();
    CreateStatusBar();
    connect(FTabs, &QTabWidget::currentChanged, this, TZtGuarded([this] { FollowTab(); }));
    connect(FTabs, &QTabWidget::tabCloseRequested, this,
            TZtGuarded([this](int index) { CloseDocument(Document(index)); }));
    resize(900, 640);
    Refresh();
}

void TMainWindow::KeepJournals() { FKeepsJournals = true; }

void TMainWindow::FollowTab()
{
    if (TDocument *document = CurrentDocument())
        document->setFocus();
    Refresh();
}

void TMainWindow::CreateMenus()
{
    using TWin = TMainWindow;
    static constexpr TCommand file[] = {
        {QT_TR_NOOP("&New"), "Ctrl+N", &TWin::New},
        {QT_TR_NOOP("&Open…"), "Ctrl+O", &TWin::Open},
        {},
        {QT_TR_NOOP("&Save"), "Ctrl+S", &TWin::SaveCurrent},
        {QT_TR_NOOP("Save &as…"), "Ctrl+Shift+S", &TWin::SaveAs, &TWin::FSaveAs},
        {QT_TR_NOOP("Save a&ll"), nullptr, &TWin::SaveAll},
        {QT_TR_NOOP("&Reload"), nullptr, &TWin::Reload, &TWin::FReload},
        {},
        {QT_TR_NOOP("&Close"), "Ctrl+W", &TWin::CloseCurrent},
        {QT_TR_NOOP("&Quit"), "Ctrl+Q", nullptr},
    };
    static constexpr TCommand edit[] = {
        {QT_TR_NOOP("&Undo\tCtrl+Z"), nullptr, &TWin::Undo, &TWin::FUndo},
        {QT_TR_NOOP("&Redo\tCtrl+Y"), nullptr, &TWin::Redo, &TWin::FRedo},
        {},
        {QT_TR_NOOP("Cu&t\tCtrl+X"), nullptr, &TWin::Cut, &TWin::FCut},
        {QT_TR_NOOP("&Copy\tCtrl+C"), nullptr, &TWin::Copy, &TWin::FCopy},
        {QT_TR_NOOP("&Paste\tCtrl+V"), nullptr, &TWin::Paste, &TWin::FPaste},
        {},
        {QT_TR_NOOP("Select &all\tCtrl+A"), nullptr, &TWin::SelectAll},
    };
    static constexpr TCommand search[] = {
        {QT_TR_NOOP("&Find…\tCtrl+F"), nullptr, &TWin::Find},
        {QT_TR_NOOP("&Replace…\tCtrl+R"), nullptr, &TWin::Replace},
        {QT_TR_NOOP("Find &next\tF3"), nullptr, &TWin::FindAgain},
        {QT_TR_NOOP("Find &previous\tShift+F3"), nullptr, &TWin::FindBefore},
        {},
        {QT_TR_NOOP("&Go to line…"), "Ctrl+G", &TWin::GoToLine},
    };
    CreateMenu(tr("&File"), std::begin(file), std::end(file));
    connect(CreateMenu(tr("&Edit"), std::begin(edit), std::end(edit)), &QMenu::aboutToShow, this,
            TZtGuarded([this] { RefreshEditMenu(); }));
    CreateMenu(tr("&Search"), std::begin(search), std::end(search));
    CreateMethodsMenu();
    CreateDatabaseMenu();
    CreateLanguageMenu();
}

QMenu *TMainWindow::CreateMenu(const QString &ATitle, const TCommand *AFirst, const TCommand *ALast)
{
    QMenu *menu = menuBar()->addMenu(ATitle);
    for (const TCommand *command = AFirst; command != ALast; ++command) {
        if (!command->Text) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(tr(command->Text));
        if (command->Shortcut)
            action->setShortcut(QKeySequence(QLatin1StringView(command->Shortcut)));
        if (command->Run)
            connect(action, &QAction::triggered, this,
                    TZtGuarded([this, run = command->Run] { (this->*run)(); }));
        else
            connect(action, &QAction::triggered, this, &QWidget::close);
        if (command->Action)
            this->*command->Action = action;
    }
    return menu;
}

void TMainWindow::CreateMethodsMenu()
{
    static constexpr TCommand methods[] = {
        {QT_TR_NOOP("New event &handler…"), nullptr, &TMainWindow::NewEventHandler,
         &TMainWindow::FNewHandler},
        {QT_TR_NOOP("&All methods…"), nullptr, &TMainWindow::ShowAllMethods,
         &TMainWindow::FAllMethods},
        {},
    };
    FMethods = CreateMenu(tr("&Methods"), std::begin(methods), std::end(methods));
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
        {QT_TR_NOOP("&Open…"), nullptr, &TMainWindow::OpenDatabaseTable},
        {},
    };
    FDatabase = CreateMenu(tr("&Database"), std::begin(database), std::end(database));
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
    for (const TLanguage &language : ZtLanguages()) {
        QAction *action = menu->addAction(ZtLanguageName(language));
        action->setCheckable(true);
        FLanguages->addAction(action);
        const auto choose = TZtGuarded([this, &language] {
            if (TDocument *document = CurrentDocument())
                document->SetLanguage(language);
        });
        connect(action, &QAction::triggered, this, choose);
    }
}

void TMainWindow::CreateStatusBar()
{
    FStatus = new TStatusTexts(this);
    statusBar()->addPermanentWidget(FStatus);
}

int TMainWindow::DocumentCount() const { return FTabs->count(); }

TDocument *TMainWindow::Document(int AIndex) const
{
    return qobject_cast<TDocument *>(FTabs->widget(AIndex));
}

TDocument *TMainWindow::CurrentDocument() const { return Document(FTabs->currentIndex()); }

TDbDocument *TMainWindow::CurrentDatabase() const
{
    return qobject_cast<TDbDocument *>(FTabs->currentWidget());
}

void TMainWindow::ShowDocument(int AIndex) { FTabs->setCurrentIndex(AIndex); }

TDocument *TMainWindow::NewDocument()
{
    TDocument *document = CreateDocument(NextTitle()).release();
    AddDocument(document);
    return document;
}

TDocument *TMainWindow::AddRestored(const QString &ATitle)
{
    return AddInsteadOfUnused(CreateDocument(ATitle.isEmpty() ? NextTitle() : ATitle));
}

QString TMainWindow::NextTitle() { return tr("Untitled %1").arg(++FNewCount); }

std::unique_ptr<TDocument> TMainWindow::CreateDocument(const QString &ATitle)
{
    auto document = std::make_unique<TDocument>(ATitle);
    KeepJournalOf(document.get());
    return document;
}

void TMainWindow::KeepJournalOf(TDocument *ADocument)
{
    const auto tell = [this](const QString &reason) {
        statusBar()->showMessage(
            tr("What is changed would not come back after a crash: %1").arg(reason));
    };
    connect(ADocument, &TDocument::JournalFailed, this, tell);
    if (FKeepsJournals)
        ADocument->KeepJournal();
}

// What it did not save is not to come back.
void TMainWindow::Drop(TDocument *ADocument)
{
    ADocument->DiscardJournal();
    delete ADocument;
}

void TMainWindow::AddDocument(TDocument *ADocument)
{
    connect(ADocument, &TDocument::Changed, this, &TMainWindow::RefreshLater);
    connect(ADocument, &TDocument::Notice, this,
            [this](const QString &text) { statusBar()->showMessage(text, MessageTime); });
    FTabs->setCurrentIndex(FTabs->addTab(ADocument, ADocument->Title()));
    Refresh();
}

TDocument *TMainWindow::DocumentOf(const QString &APath) const
{
    const QString target = ZtFollowLinks(APath);
    for (int i = 0; i < DocumentCount(); ++i)
        if (!Document(i)->Path().isEmpty() && ZtFollowLinks(Document(i)->Path()) == target)
            return Document(i);
    return nullptr;
}

TDocument *TMainWindow::OpenFile(const QString &APath)
{
    if (TDocument *open = DocumentOf(APath)) {
        FTabs->setCurrentWidget(open);
        return open;
    }
    ZtOfferRestore(APath);
    auto document = CreateDocument(QString());
    document->Load(APath);
    TDocument *added = AddInsteadOfUnused(std::move(document));
    Q_EMIT FileOpened(APath);
    return added;
}

template <typename T> T *TMainWindow::AddInsteadOfUnused(std::unique_ptr<T> ADocument)
{
    TDocument *unused = CurrentDocument();
    AddDocument(ADocument.get());
    if (unused && unused->IsUnused())
        Drop(unused);
    return ADocument.release();
}

TDbDocument *TMainWindow::OpenDatabase(const TDbPlace &APlace)
{
    auto document = std::make_unique<TDbDocument>(APlace);
    KeepJournalOf(document.get());
    return AddInsteadOfUnused(std::move(document));
}

TDocument *TMainWindow::OpenOrBegin(const QString &APath)
{
    if (DocumentOf(APath) || !IsMissing(APath))
        return OpenFile(APath);
    auto document = CreateDocument(QString());
    document->Begin(APath);
    return AddInsteadOfUnused(std::move(document));
}

QStringList TMainWindow::OpenEach(const QStringList &APaths,
                                  TDocument *(TMainWindow::*AOpen)(const QString &))
{
    QStringList messages;
    for (const QString &path : APaths) {
        try {
            (this->*AOpen)(path);
        } catch (const EStreamError &error) {
            messages.append(error.Message());
        } catch (...) {
            messages.append(tr("Cannot open \"%1\": %2").arg(path, ZtCurrentExceptionMessage()));
        }
    }
    return messages;
}

void TMainWindow::OpenFiles(const QStringList &APaths)
{
    const QStringList messages = OpenEach(APaths, &TMainWindow::OpenFile);
    if (!messages.isEmpty())
        ShowError(messages.join(QLatin1Char('\n')));
}

void TMainWindow::New() { NewDocument(); }

void TMainWindow::Open()
{
    const TDocument *current = CurrentDocument();
    const QString folder = current ? QFileInfo(current->Path()).path() : QString();
    OpenFiles(QFileDialog::getOpenFileNames(this, tr("Open files"), folder));
}

void TMainWindow::SaveCurrent()
{
    if (TDocument *document = CurrentDocument())
        Save(document);
}

void TMainWindow::SaveAs()
{
    if (TDocument *document = CurrentDocument())
        AskForNameAndSave(document);
}

void TMainWindow::SaveAll()
{
    for (int i = 0; i < DocumentCount(); ++i)
        if (Document(i)->IsModified() && !Save(Document(i)))
            return;
}

bool TMainWindow::Save(TDocument *ADocument)
{
    if (auto *database = qobject_cast<TDbDocument *>(ADocument))
        return database->Post();
    if (ADocument->Path().isEmpty())
        return AskForNameAndSave(ADocument);
    const bool saved = ZtSaveDocument(*ADocument);
    if (saved)
        statusBar()->showMessage(tr("%1 is saved").arg(ADocument->Title()), MessageTime);
    return saved;
}

bool TMainWindow::AskForNameAndSave(TDocument *ADocument)
{
    FTabs->setCurrentWidget(ADocument);
    const QString start = ADocument->Path().isEmpty() ? ADocument->Title() : ADocument->Path();
    const QString path = QFileDialog::getSaveFileName(this, tr("Save as"), start);
    if (path.isEmpty())
        return false;
    const TDocument *open = DocumentOf(path);
    if (open && open != ADocument) {
        ShowError(tr("\"%1\" is open in another tab.").arg(path));
        return false;
    }
    return ZtSaveDocumentAs(*ADocument, path);
}

void TMainWindow::Reload()
{
    if (TDbDocument *database = CurrentDatabase()) {
        database->Reload();
        return;
    }
    TDocument *document = CurrentDocument();
    if (!document || document->Path().isEmpty())
        return;
    if (document->IsModified() &&
        ZtMsgBoxConfirm(
            tr("Give up the changes to \"%1\" and read it again?").arg(document->Title()),
            QCoreApplication::applicationName()) != mrYes)
        return;
    try {
        const int line = document->Editor()->GetLinePos() + 1;
        ZtOfferRestore(document->Path());
        document->Load(document->Path());
        document->GoToLine(line);
    } catch (...) {
        ShowError(ZtCurrentExceptionMessage());
    }
}

bool TMainWindow::ConfirmDiscard(TDocument *ADocument)
{
    if (!ADocument->IsModified())
        return true;
    FTabs->setCurrentWidget(ADocument);
    const int answer =
        ZtMsgBoxYesNoCancel(ADocument->DiscardQuestion(), QCoreApplication::applicationName());
    if (answer == mrYes)
        return Save(ADocument);
    return answer == mrNo;
}

bool TMainWindow::CloseDocument(TDocument *ADocument)
{
    if (!ADocument || !ConfirmDiscard(ADocument))
        return false;
    Drop(ADocument);
    Refresh();
    return true;
}

void TMainWindow::CloseCurrent() { CloseDocument(CurrentDocument()); }

void TMainWindow::closeEvent(QCloseEvent *AEvent)
{
    AEvent->ignore(); // also when a question or a save fails
    TZtGuarded([&] {
        for (int i = 0; i < DocumentCount(); ++i)
            if (!ConfirmDiscard(Document(i)))
                return;
        for (int i = 0; i < DocumentCount(); ++i)
            Document(i)->DiscardJournal();
        AEvent->accept();
    })();
}

void TMainWindow::dragEnterEvent(QDragEnterEvent *AEvent)
{
    if (AEvent->mimeData()->hasUrls())
        AEvent->acceptProposedAction();
}

void TMainWindow::dropEvent(QDropEvent *AEvent)
{
    QStringList paths;
    for (const QUrl &url : AEvent->mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    AEvent->acceptProposedAction();
    TZtGuarded([&] { OpenFiles(paths); })();
}

void TMainWindow::Post(quint32 AMsg, quint64 AWParam)
{
    if (TDocument *document = CurrentDocument())
        ZtPostMessage(document->Editor(), AMsg, AWParam);
}

void TMainWindow::Undo() { Post(quint32(TZtMsg::wmUndo)); }
void TMainWindow::Redo() { Post(quint32(TZtMsg::wmUser) + 4); }
void TMainWindow::Cut() { Post(quint32(TZtMsg::wmCut)); }
void TMainWindow::Copy() { Post(quint32(TZtMsg::wmCopy)); }
void TMainWindow::Paste() { Post(quint32(TZtMsg::wmPaste)); }
void TMainWindow::Find() { Post(quint32(TZtMsg::wmUser) + 2, 0); }
void TMainWindow::Replace() { Post(quint32(TZtMsg::wmUser) + 2, 1); }
void TMainWindow::FindAgain() { SearchAgain(TZtSearchAgain::saForward); }
void TMainWindow::FindBefore() { SearchAgain(TZtSearchAgain::saBackward); }

void TMainWindow::SearchAgain(TZtSearchAgain AHow)
{
    Post(quint32(TZtMsg::wmUser) + 3, quint64(AHow));
}

void TMainWindow::GoToLine()
{
    TDocument *document = CurrentDocument();
    if (!document)
        return;
    const int count = qMax(document->Editor()->GetLines()->GetCount(), 1);
    bool accepted = false;
    const int line =
        QInputDialog::getInt(this, tr("Go to line"), tr("Line, from 1 to %1:").arg(count),
                             document->Editor()->GetLinePos() + 1, 1, count, 1, &accepted);
    if (accepted)
        document->GoToLine(line);
}

void TMainWindow::NewEventHandler()
{
    TDocument *document = CurrentDocument();
    if (document && ZtScriptLexerOf(*document))
        TEventDialog(*document, this).exec();
}

void TMainWindow::OpenDatabaseTable()
{
    const TDbDocument *current = CurrentDatabase();
    TDbOpenDialog dialog(current ? current->Location() : QString(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    try {
        OpenDatabase(dialog.Place());
    } catch (const EZtException &error) {
        ShowError(error.Message());
    }
}

void TMainWindow::SelectAll()
{
    quint16 key = TZtKey::Letter('A');
    if (TDocument *document = CurrentDocument())
        document->Editor()->KeyDown(key, ssCtrl);
}

// The editor announces a change before it makes it, so it is looked at after the event.
void TMainWindow::RefreshLater()
{
    if (FRefreshing)
        return;
    FRefreshing = true;
    QMetaObject::invokeMethod(this, TZtGuarded([this] { Refresh(); }), Qt::QueuedConnection);
}

void TMainWindow::Refresh()
{
    FRefreshing = false;
    for (int i = 0; i < DocumentCount(); ++i)
        RefreshTab(i);
    RefreshStatus();
    const TDocument *document = CurrentDocument();
    FSaveAs->setEnabled(document && !CurrentDatabase());
    FReload->setEnabled(document && !document->Location().isEmpty());
    setWindowTitle(document ? ZtPlainTitle(document->Title()) + QStringLiteral("[*]") : QString());
    setWindowModified(document && document->IsModified());
    setWindowFilePath(document ? document->Location() : QString());
}

void TMainWindow::RefreshTab(int AIndex)
{
    const TDocument *document = Document(AIndex);
    const QString text = ZtWithoutMnemonics(document->Title()) +
                         (document->IsModified() ? QStringLiteral("*") : QString());
    if (FTabs->tabText(AIndex) != text)
        FTabs->setTabText(AIndex, text);
    FTabs->setTabToolTip(AIndex, ZtPlainToolTip(document->Location()));
}

void TMainWindow::RefreshStatus()
{
    const TDocument *document = CurrentDocument();
    FLanguages->setEnabled(document);
    if (!document) {
        FStatus->SetTexts({});
        return;
    }
    const auto index = &document->Language() - ZtLanguages().data();
    FLanguages->actions().at(index)->setChecked(true);
    const TDbDocument *database = CurrentDatabase();
    FStatus->SetTexts(QStringList{tr("Line %1, column %2")
                                      .arg(document->Editor()->GetLinePos() + 1)
                                      .arg(document->Editor()->GetCaretCell() + 1),
                                  ZtLanguageName(document->Language())} +
                      (database ? QStringList{database->PositionText(), database->StateText()}
                                : FormatTexts(document->Format())));
}

QStringList TMainWindow::FormatTexts(const TZtTextFormat &AFormat)
{
    const QString encoding = ZtEncodingName(AFormat.Encoding);
    const QString ending = ZtLineEndingName(AFormat.LineEnding);
    return {AFormat.Mark ? tr("%1 with byte-order mark").arg(encoding) : encoding,
            AFormat.MixedLineEndings ? tr("%1, mixed").arg(ending) : ending};
}

void TMainWindow::RefreshEditMenu()
{
    const TDocument *document = CurrentDocument();
    const TZtCodeEdit *editor = document ? document->Editor() : nullptr;
    const bool selected = editor && HasSelection(*editor);
    FUndo->setEnabled(editor && editor->GetCanUndo());
    FRedo->setEnabled(editor && editor->GetCanRedo());
    FCut->setEnabled(selected && !editor->GetReadOnly());
    FCopy->setEnabled(selected);
    FPaste->setEnabled(editor && !editor->GetReadOnly() && editor->GetCanPaste());
}
