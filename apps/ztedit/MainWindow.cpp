#include "MainWindow.h"

#include "DbDocument.h"
#include "DbOpenDialog.h"
#include "Document.h"
#include "EventDialog.h"
#include "FileStore.h"
#include "Icons.h"
#include "Methods.h"
#include "PlainText.h"
#include "PrintFlow.h"
#include "SaveFlow.h"
#include "StartPage.h"
#include "StatusTexts.h"
#include "ViewMenu.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtGuarded.h"
#include "uZtMessages.h"
#include "uZtPlatform.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>

#include <filesystem>

namespace {

constexpr int MessageTime = 5000;

// Whether nothing is there, as far as one may see.
bool IsMissing(const QString &APath)
{
    std::error_code error;
    return !APath.isEmpty() &&
           std::filesystem::status(QFileInfo(APath).filesystemFilePath(), error).type() ==
               std::filesystem::file_type::not_found;
}

void ShowError(const QString &AText) { ZtMsgBoxError(AText, QCoreApplication::applicationName()); }

} // namespace

TMainWindow::TMainWindow(QWidget *AParent)
    : QMainWindow(AParent), FPages(new QStackedWidget(this)), FTabs(new QTabWidget(FPages)),
      FStatus(new TStatusTexts(this))
{
    setWindowIcon(ZtSymbol());
    FTabs->setDocumentMode(true);
    FTabs->setTabsClosable(true);
    FTabs->setMovable(true);
    setCentralWidget(FPages);
    setAcceptDrops(true);
    CreateMenus();
    CreatePages();
    statusBar()->addPermanentWidget(FStatus, 1);
    connect(FTabs, &QTabWidget::currentChanged, this, TZtGuarded([this] { FollowTab(); }));
    connect(FTabs, &QTabWidget::tabCloseRequested, this,
            TZtGuarded([this](int index) { CloseDocument(Document(index)); }));
    resize(900, 640);
    Refresh();
}

void TMainWindow::KeepJournals() { FKeepsJournals = true; }

void TMainWindow::FollowTab()
{
    Refresh();
    if (TDocument *document = CurrentDocument())
        document->setFocus();
    else
        FStart->setFocus();
}

// The first page scrolls, so that the window can be small.
void TMainWindow::CreatePages()
{
    FStart = new QScrollArea(FPages);
    FStart->setFrameShape(QFrame::NoFrame);
    FStart->setWidgetResizable(true);
    FStart->setWidget(new TStartPage(
        {{FNew, tr("New text")}, {FOpen, tr("Open…")}, {FOpenDatabase, tr("Open database…")}}));
    FStart->setFocusProxy(FStart->widget());
    FPages->addWidget(FStart);
    FPages->addWidget(FTabs);
}

void TMainWindow::ShowView()
{
    TDocument::SetView(FView->View());
    for (int i = 0; i < DocumentCount(); ++i)
        Document(i)->ShowView();
    RefreshCommands();
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
        FStatus->ShowMessage(
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
            [this](const QString &text) { FStatus->ShowMessage(text, MessageTime); });
    ADocument->SetDiagnostics(FOutput.Of(ADocument->Path()));
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

void TMainWindow::Print()
{
    if (TDocument *document = CurrentDocument())
        ZtPrint(*document, this);
}

void TMainWindow::PreviewPrint()
{
    if (TDocument *document = CurrentDocument())
        ZtPreviewPrint(*document, this);
}

void TMainWindow::ExportHtml()
{
    TDocument *document = CurrentDocument();
    const QString path = document ? ZtExportHtml(*document, this) : QString();
    if (!path.isEmpty())
        FStatus->ShowMessage(tr("%1 is written").arg(QFileInfo(path).fileName()), MessageTime);
}

bool TMainWindow::Save(TDocument *ADocument)
{
    if (auto *database = qobject_cast<TDbDocument *>(ADocument))
        return database->Post();
    if (ADocument->Path().isEmpty())
        return AskForNameAndSave(ADocument);
    const bool saved = ZtSaveDocument(*ADocument);
    if (saved)
        FStatus->ShowMessage(tr("%1 is saved").arg(ADocument->Title()), MessageTime);
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

void TMainWindow::changeEvent(QEvent *AEvent)
{
    QMainWindow::changeEvent(AEvent);
    if (AEvent->type() == QEvent::PaletteChange && FView)
        TZtGuarded([this] { FView->FollowDesktop(); })();
}

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

void TMainWindow::PostExtra(TZtExtraCommand ACommand)
{
    if (TDocument *document = CurrentDocument())
        ZtPostMessage(document->Editor(), quint32(TZtMsg::wmUser) + 5, quint64(ACommand));
}

void TMainWindow::LoadDiagnostics(const QString &APath)
{
    FOutput.Load(APath);
    for (int i = 0; i < DocumentCount(); ++i)
        Document(i)->SetDiagnostics(FOutput.Of(Document(i)->Path()));
}

void TMainWindow::ChooseDiagnostics()
{
    const TDocument *current = CurrentDocument();
    const QString folder = current ? QFileInfo(current->Location()).path() : QString();
    const QString path = QFileDialog::getOpenFileName(this, tr("Load diagnostics"), folder);
    if (path.isEmpty())
        return;
    try {
        LoadDiagnostics(path);
        FStatus->ShowMessage(tr("Diagnostics: %1, of files: %2")
                                 .arg(FOutput.MessageCount())
                                 .arg(FOutput.FileCount()),
                             MessageTime);
    } catch (...) {
        ShowError(ZtCurrentExceptionMessage());
    }
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
    RefreshCommands();
    const TDocument *document = CurrentDocument();
    FStatus->SetTexts(document ? document->StatusTexts() : QList<TStatusText>());
    FStatus->SetNote(document ? document->StatusNote() : QString());
    FPages->setCurrentWidget(document ? static_cast<QWidget *>(FTabs) : FStart);
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
    if (TZtCodeEdit *editor = document->Editor(); editor->accessibleName() != document->Title())
        editor->setAccessibleName(document->Title());
}
