#include "DbDocument.h"

#include "DbFieldsDialog.h"

#include "uZtDbCodeEdit.h"
#include "uZtPlatform.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QFileInfo>
#include <QListView>
#include <QSplitter>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlTableModel>
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

// The key that the user named stands for one that the table does not have.
class TDbDocument::TModel : public QSqlTableModel {
public:
    using QSqlTableModel::QSqlTableModel;
    using QSqlTableModel::setPrimaryKey;
};

struct TDbDocument::TCommand {
    const char *Text;
    bool (TDbDocument::*Run)();
    bool (*Enabled)(const TDataSet &);
};

TDbDocument::TDbDocument(const TDbPlace &APlace, QWidget *AParent)
    : TDocument(QString(), AParent), FPlace(APlace), FConnection(APlace.File)
{
    FConnection.Check(FPlace);
    FColumns = FConnection.Columns(FPlace.Table);
    CreateModel();
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
    FDataSet.SetModel(nullptr);
    delete FList;
    FModel.reset();
}

void TDbDocument::CreateModel()
{
    auto model = std::make_unique<TModel>(nullptr, FConnection.Database());
    model->setTable(FPlace.Table);
    if (!FPlace.Key.isEmpty()) {
        QSqlIndex key(FPlace.Table);
        key.append(FColumns.field(FPlace.Key));
        model->setPrimaryKey(key);
    }
    FModel = std::move(model);
    FDataSet.SetModel(FModel.get());
}

void TDbDocument::CreateWidgets()
{
    layout()->addWidget(CreateToolBar());
    auto *splitter = new QSplitter(this);
    layout()->addWidget(splitter);
    FList = new QListView(splitter);
    FList->setModel(FModel.get());
    FList->setModelColumn(CaptionColumn());
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
            &TDbDocument::FollowList, Qt::QueuedConnection);
}

QWidget *TDbDocument::CreateToolBar()
{
    using TDoc = TDbDocument;
    static constexpr TCommand commands[] = {
        {QT_TR_NOOP("F&irst"), &TDoc::First, HasBefore},
        {QT_TR_NOOP("P&rior"), &TDoc::Prior, HasBefore},
        {QT_TR_NOOP("&Next"), &TDoc::Next, HasBehind},
        {QT_TR_NOOP("&Last"), &TDoc::Last, HasBehind},
        {},
        {QT_TR_NOOP("&Insert…"), &TDoc::InsertWithFields, CanInsert},
        {QT_TR_NOOP("&Delete…"), &TDoc::Delete, HasRecord},
        {QT_TR_NOOP("&Fields…"), &TDoc::EditFields, HasAny},
        {},
        {QT_TR_NOOP("&Post"), &TDoc::Post, IsPending},
        {QT_TR_NOOP("&Cancel"), &TDoc::Cancel, IsPending},
        {QT_TR_NOOP("R&efresh"), &TDoc::Reload, IsOpen},
    };
    auto *bar = new QToolBar(this);
    for (const TCommand &command : commands) {
        auto *action = new QAction(command.Text ? tr(command.Text) : QString(), this);
        action->setSeparator(!command.Text);
        if (command.Text) {
            connect(action, &QAction::triggered, this,
                    [this, run = command.Run] { (this->*run)(); });
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
        if (FColumns.contains(QLatin1StringView(name)) && FPlace.Field != QLatin1StringView(name))
            return FColumns.indexOf(QLatin1StringView(name));
    return FModel->primaryKey().isEmpty() ? 0 : FColumns.indexOf(FModel->primaryKey().fieldName(0));
}

TZtCodeEdit *TDbDocument::CreateEditor()
{
    auto *editor = new TZtDbCodeEdit(this);
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

QString TDbDocument::StateText() const
{
    static constexpr const char *names[] = {QT_TR_NOOP("Closed"), QT_TR_NOOP("Browsing"),
                                            QT_TR_NOOP("Editing"), QT_TR_NOOP("Inserting")};
    return tr(names[size_t(FDataSet.GetState())]);
}

QString TDbDocument::RecordName() const
{
    const TField *field = FDataSet.FindField(FColumns.fieldName(CaptionColumn()));
    return field && !field->IsNull() ? field->GetText() : tr("New record");
}

// --- operations ----------------------------------------------------------------------------------

template <typename T> bool TDbDocument::Try(const QString &AFault, T AOperation)
{
    try {
        AOperation();
        return true;
    } catch (const EZtException &error) {
        SyncList();
        ZtMsgBoxInfo(AFault.arg(error.Message()), QCoreApplication::applicationName());
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
    return !TDbFieldsDialog::FieldsOf(FDataSet, FColumns, FPlace.Field).empty();
}

bool TDbDocument::InsertWithFields()
{
    if (!Insert())
        return false;
    return !HasOtherFields() || EditFields() || !Cancel();
}

bool TDbDocument::EditFields()
{
    TDbFieldsDialog dialog(FDataSet, TDbFieldsDialog::FieldsOf(FDataSet, FColumns, FPlace.Field),
                           this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const bool stored = Try(tr("Cannot change the fields: %1"), [&] { dialog.Store(); });
    ShowLanguage();
    return stored;
}

bool TDbDocument::Delete()
{
    if (ZtMsgBoxYesNo(tr("Delete the record \"%1\"? This cannot be undone.").arg(RecordName()),
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
                            [this] { FDataSet.Post(); });
    if (posted) {
        // The text is the same; what could be undone before still can.
        Editor()->SetLinePos(caret.y());
        Editor()->SetCharPos(caret.x());
        SyncList();
        ShowLanguage();
    }
    return posted;
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
    SyncList();
    ShowLanguage();
    if (focused)
        Editor()->setFocus();
}

void TDbDocument::ShowLanguage()
{
    if (const TField *field = FDataSet.FindField(QStringLiteral("language")))
        SetLanguage(ZtLanguageOfName(field->GetText()));
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
        FList->setCurrentIndex(row < 0 ? QModelIndex() : FModel->index(row, CaptionColumn()));
}
