#include "DbDocument.h"

#include "ConflictDialog.h"
#include "DbFieldsDialog.h"
#include "Icons.h"
#include "RecordList.h"

#include "uZtDbCodeEdit.h"
#include "uZtGuarded.h"
#include "uZtPlatform.h"
#include "uZtSqlTable.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QFileInfo>
#include <QListView>
#include <QSplitter>
#include <QToolBar>

namespace {

using TState = TDataSetState;

bool IsPending(const TDataSet &S) { return S.GetState() >= TState::dsEdit; }
bool HasRecord(const TDataSet &S) { return S.GetRecNo() > 0; }
bool HasBefore(const TDataSet &S) { return S.GetRecNo() > 1; }
bool HasBehind(const TDataSet &S) { return HasRecord(S) && S.GetRecNo() < S.GetRecordCount(); }
bool HasAny(const TDataSet &S) { return HasRecord(S) || IsPending(S); }
bool CanInsert(const TDataSet &S) { return S.CanModify() && S.GetState() != TState::dsInsert; }
bool IsOpen(const TDataSet &S) { return S.GetActive(); }

} // namespace

struct TDbDocument::TCommand {
    const char *Text;
    const char *Icon;
    bool (TDbDocument::*Run)();
    bool (*Enabled)(const TDataSet &);
};

TDbDocument::TDbDocument(const TDbPlace &APlace, QWidget *AParent)
    : TDocument(QString(), AParent), FPlace(APlace), FConnection(APlace.File)
{
    FConnection.Check(FPlace);
    const QStringList key = FPlace.Key.isEmpty() ? QStringList() : QStringList(FPlace.Key);
    auto records = std::make_unique<TSqlTableSource>(FConnection.Database(), FPlace.Table, key);
    FRecords = records.get();
    FDataSet.SetRecordSource(std::move(records));
    CreateWidgets();
    FSource.SetDataSet(&FDataSet);
    FSource.OnStateChange = [this](QObject *) { Q_EMIT Changed(); };
    FDataSet.Open();
    ShowRecord();
}

// The editor goes before the data that it shows.
TDbDocument::~TDbDocument()
{
    FSource.OnStateChange = {};
    DeleteEditor();
    delete FList;
    FCaptions.reset();
    FDataSet.SetRecordSource(nullptr);
}

void TDbDocument::CreateWidgets()
{
    layout()->addWidget(CreateToolBar());
    auto *splitter = new QSplitter(this);
    layout()->addWidget(splitter);
    FList = new QListView(splitter);
    FCaptions = std::make_unique<TRecordList>(*FRecords, CaptionColumn());
    FList->setModel(FCaptions.get());
    FList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FList->setUniformItemSizes(true);
    FList->setAccessibleName(tr("Records"));
    auto *pane = new QWidget(splitter);
    auto *place = new QVBoxLayout(pane);
    place->setContentsMargins(0, 0, 0, 0);
    SetEditorPlace(place);
    splitter->setSizes({200, 700});
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    // A question must not come up in the middle of a click.
    connect(FList->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            TZtGuarded([this] { FollowList(); }), Qt::QueuedConnection);
}

QWidget *TDbDocument::CreateToolBar()
{
    using TDoc = TDbDocument;
    static constexpr TCommand commands[] = {
        {QT_TR_NOOP("F&irst"), "go-first", &TDoc::First, HasBefore},
        {QT_TR_NOOP("P&rior"), "go-previous", &TDoc::Prior, HasBefore},
        {QT_TR_NOOP("&Next"), "go-next", &TDoc::Next, HasBehind},
        {QT_TR_NOOP("&Last"), "go-last", &TDoc::Last, HasBehind},
        {},
        {QT_TR_NOOP("In&sert…"), "list-add", &TDoc::InsertWithFields, CanInsert},
        {QT_TR_NOOP("&Delete…"), "list-remove", &TDoc::Delete, HasRecord},
        {QT_TR_NOOP("&Fields…"), "document-properties", &TDoc::EditFields, HasAny},
        {},
        {QT_TR_NOOP("&Post"), "dialog-ok", &TDoc::Post, IsPending},
        {QT_TR_NOOP("&Cancel"), "edit-clear", &TDoc::Cancel, IsPending},
        {QT_TR_NOOP("R&efresh"), "view-refresh", &TDoc::Reload, IsOpen},
    };
    auto *bar = new QToolBar(this);
    bar->setIconSize({16, 16});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const TCommand &command : commands) {
        auto *action = new QAction(command.Text ? tr(command.Text) : QString(), this);
        action->setSeparator(!command.Text);
        if (command.Text) {
            action->setIcon(ZtIcon(command.Icon));
            connect(action, &QAction::triggered, this,
                    TZtGuarded([this, run = command.Run] { (this->*run)(); }));
            connect(this, &TDbDocument::Changed, action, [this, action, enabled = command.Enabled] {
                action->setEnabled(enabled(FDataSet));
            });
        }
        bar->addAction(action);
        FActions.push_back(action);
    }
    return bar;
}

// A name says more than a number.
int TDbDocument::CaptionColumn() const
{
    for (const char *name : {"name", "title", "caption"})
        if (const int column = FRecords->ColumnOf(QLatin1StringView(name));
            column >= 0 && FPlace.Field.compare(QLatin1StringView(name), Qt::CaseInsensitive) != 0)
            return column;
    const std::vector<int> key = FRecords->KeyColumns();
    return int(key.size()) < FRecords->Columns().count() ? key[0] : 0;
}

TZtCodeEdit *TDbDocument::CreateEditor()
{
    auto *editor = new TZtDbCodeEdit(this);
    editor->SetCorrections(Corrections()); // before a record is shown
    editor->SetDataField(FPlace.Field);
    editor->SetDataSource(&FSource);
    return editor;
}

QString TDbDocument::Title() const
{
    return QStringLiteral("%1: %2.%3")
        .arg(QFileInfo(FConnection.Path()).fileName(), FPlace.Table, FPlace.Field);
}

bool TDbDocument::IsModified() const
{
    const auto *editor = qobject_cast<const TZtDbCodeEdit *>(Editor());
    return IsPending(FDataSet) &&
           (FDataSet.GetModified() || (editor && editor->CMGetDataLink()->IsModified()));
}

QString TDbDocument::DiscardQuestion() const
{
    return tr("Post the changes to the record \"%1\"? \"No\" discards them.").arg(RecordName());
}

QString TDbDocument::PositionText() const
{
    if (FDataSet.GetState() == TState::dsInsert)
        return tr("New record");
    return tr("Record %1 of %2").arg(FDataSet.GetRecNo()).arg(FDataSet.GetRecordCount());
}

QList<TStatusText> TDbDocument::StorageTexts() const
{
    const QString position =
        QStringLiteral("%1/%2").arg(FDataSet.GetRecNo()).arg(FDataSet.GetRecordCount());
    const bool isNew = FDataSet.GetState() == TState::dsInsert;
    return {{PositionText(), isNew ? tr("New") : position}, StateText()};
}

QString TDbDocument::StateText() const
{
    static constexpr const char *names[] = {QT_TR_NOOP("Closed"), QT_TR_NOOP("Browsing"),
                                            QT_TR_NOOP("Editing"), QT_TR_NOOP("Inserting")};
    const QString reason = FDataSet.GetReadOnlyReason();
    return FDataSet.GetState() == TState::dsBrowse && !reason.isEmpty()
               ? reason
               : tr(names[size_t(FDataSet.GetState())]);
}

QString TDbDocument::RecordName() const
{
    if (!FDataSet.GetActive())
        return {};
    const TField *field = FDataSet.GetFields(CaptionColumn());
    return field->IsNull() ? tr("New record") : field->GetText();
}

// --- operations ----------------------------------------------------------------------------------

template <typename T> bool TDbDocument::Try(const QString &AFault, T AOperation)
{
    try {
        AOperation();
        return true;
    } catch (const EAbort &) {
        SyncList();
        return false;
    } catch (const EZtException &error) {
        SyncList();
        ZtMsgBoxError(AFault.arg(error.Message()), QCoreApplication::applicationName());
        return false;
    }
}

bool TDbDocument::Leave()
{
    if (!IsModified())
        return true;
    const int answer = ZtMsgBoxYesNoCancel(DiscardQuestion(), QCoreApplication::applicationName());
    if (answer == mrYes)
        return Post();
    return answer == mrNo && Try(QStringLiteral("%1"), [this] { FDataSet.Cancel(); });
}

bool TDbDocument::MoveTo(int ARecNo)
{
    if (FDataSet.IsEmpty() || !Leave()) {
        SyncList();
        return false;
    }
    const bool moved = Try(tr("Cannot go to another record: %1"), [&] {
        FDataSet.SetRecNo(qBound(1, ARecNo, FDataSet.GetRecordCount()));
    });
    ShowRecord();
    return moved;
}

bool TDbDocument::Insert()
{
    if (!Leave())
        return false;
    const bool inserted = Try(tr("Cannot insert a record: %1"), [this] { FDataSet.Append(); });
    ShowRecord();
    return inserted;
}

bool TDbDocument::HasOtherFields() const
{
    return !TDbFieldsDialog::FieldsOf(FDataSet, FPlace.Field).empty();
}

bool TDbDocument::InsertWithFields()
{
    if (!Insert())
        return false;
    return !HasOtherFields() || EditFields() || !Cancel();
}

bool TDbDocument::EditFields()
{
    TDbFieldsDialog dialog(FDataSet, TDbFieldsDialog::FieldsOf(FDataSet, FPlace.Field), this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const bool stored = Try(tr("Cannot change the fields: %1"), [&] { dialog.Store(); });
    ShowLanguage();
    return stored;
}

bool TDbDocument::Delete()
{
    if (ZtMsgBoxConfirm(tr("Delete the record \"%1\"? This cannot be undone.").arg(RecordName()),
                        QCoreApplication::applicationName()) != mrYes)
        return false;
    const bool deleted = Try(tr("The record was not deleted: %1"), [this] { FDataSet.Delete(); });
    if (deleted)
        ShowRecord();
    return deleted;
}

bool TDbDocument::Post()
{
    if (!IsPending(FDataSet))
        return true;
    const QPoint caret(Editor()->GetCharPos(), Editor()->GetLinePos());
    const bool posted = Try(tr("The record was not posted: %1\nIts text stays in the editor; post "
                               "it again later, or cancel."),
                            [this] { PostOrAsk(); });
    if (posted) {
        // The text is the same; what could be undone before still can.
        Editor()->SetLinePos(caret.y());
        Editor()->SetCharPos(caret.x());
        RestartJournal();
        SyncList();
        ShowLanguage();
    }
    return posted;
}

// Posts; when somebody else has written into the record meanwhile, the user chooses.
void TDbDocument::PostOrAsk()
{
    while (IsPending(FDataSet)) {
        try {
            FDataSet.Post();
        } catch (const EUpdateConflict &conflict) {
            Resolve(conflict);
        }
    }
}

void TDbDocument::Resolve(const EUpdateConflict &AConflict)
{
    std::vector<TConflict> conflicts;
    for (const int column : AConflict.Columns()) {
        const TField *field = FDataSet.GetFields(column);
        conflicts.push_back({field->GetFieldName(), field->GetText(),
                             TField::TextOf(AConflict.Stored()[size_t(column)])});
    }
    switch (TConflictDialog(RecordName(), conflicts, this).Ask()) {
    case TConflictDialog::Mine:
        FDataSet.Rebase(AConflict.Stored());
        break;
    case TConflictDialog::Theirs:
        FDataSet.Cancel();
        FDataSet.Refresh();
        ShowRecord();
        break;
    case TConflictDialog::Neither:
        throw EAbort(QStringLiteral("Nothing was chosen"));
    }
}

bool TDbDocument::Cancel()
{
    const int line = Editor()->GetLinePos() + 1;
    const bool cancelled = Try(QStringLiteral("%1"), [this] { FDataSet.Cancel(); });
    ShowRecord();
    GoToLine(line);
    return cancelled;
}

bool TDbDocument::Reload()
{
    if (!Leave())
        return false;
    const bool reloaded = Try(tr("Cannot read the records: %1"), [this] {
        FDataSet.GetActive() ? FDataSet.Refresh() : FDataSet.Open();
    });
    ShowRecord();
    return reloaded;
}

// --- what is shown -------------------------------------------------------------------------------

// In an editor of its own: what could be undone in another record has no meaning in this one.
void TDbDocument::ShowRecord()
{
    const bool focused = Editor()->hasFocus();
    NewEditor();
    RestartJournal();
    SyncList();
    ShowLanguage();
    if (focused)
        Editor()->setFocus();
}

void TDbDocument::ShowLanguage()
{
    if (const TField *field = FDataSet.FindField(QStringLiteral("language"))) {
        // A name or, as others write it, an extension.
        const QString text = field->GetText();
        const TZtLanguage *named = ZtFindLanguage(text);
        SetLanguage(named ? *named : ZtLanguageOfFile(QLatin1Char('.') + text));
    }
    Q_EMIT Changed();
}

void TDbDocument::FollowList()
{
    const int wanted = FList->currentIndex().row() + 1;
    if (wanted > 0 && wanted != FDataSet.GetRecNo())
        MoveTo(wanted);
}

void TDbDocument::SyncList()
{
    const int row = FDataSet.GetRecNo() - 1;
    if (FList->currentIndex().row() != row)
        FList->setCurrentIndex(row < 0 ? QModelIndex() : FCaptions->index(row));
}
