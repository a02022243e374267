#include "SnippetForm.h"

#include "BoundWidgets.h"

#include "uZtDbCodeEdit.h"
#include "uZtGuarded.h"
#include "uZtSqlTable.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QStatusBar>
#include <QToolBar>

namespace {

bool IsPending(const TDataSet &S) { return S.GetState() >= TDataSetState::dsEdit; }
bool HasRecord(const TDataSet &S) { return S.GetRecNo() > 0; }
bool HasBefore(const TDataSet &S) { return S.GetRecNo() > 1; }
bool HasBehind(const TDataSet &S) { return HasRecord(S) && S.GetRecNo() < S.GetRecordCount(); }
bool IsLooking(const TDataSet &S) { return S.GetState() == TDataSetState::dsBrowse; }

} // namespace

struct TSnippetForm::TCommand {
    const char *Text;
    void (TDataSet::*Run)();
    bool (*Enabled)(const TDataSet &);
};

TSnippetForm::TSnippetForm(const QSqlDatabase &ADatabase, QWidget *AParent) : QMainWindow(AParent)
{
    setWindowTitle(tr("Snippets"));
    FRecords.SetRecordSource(std::make_unique<TSqlTableSource>(ADatabase, "snippets"));
    FSource.SetDataSet(&FRecords);
    CreateFields();
    CreateToolBar();
    FSource.OnStateChange = [this](QObject *) { Refresh(); };
    FSource.OnDataChange = [this](QObject *, TField *) { Refresh(); };
    FRecords.Open();
}

// The widgets outlive the source; it tells them nothing any more.
TSnippetForm::~TSnippetForm()
{
    FSource.OnStateChange = {};
    FSource.OnDataChange = {};
}

void TSnippetForm::CreateFields()
{
    auto *pane = new QWidget(this);
    auto *name = new TBoundLine(FSource, "name", pane);
    auto *language = new TBoundLanguage(FSource, "language", pane);
    auto *source = new TZtDbCodeEdit(pane);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    source->SetCorrections(ZtAllCorrections());
    source->SetExtras(ZtAllExtras());
    source->SetScheme(TZtColorScheme::Find(dark ? "Dark" : "Light"));
    source->SetDataField("source");
    source->SetDataSource(&FSource);
    connect(language, &TBoundLanguage::LanguageShown, source,
            TZtGuarded([source](const QString &shown) { source->SetLanguage(shown); }));

    auto *layout = new QFormLayout(pane);
    layout->addRow(tr("&Name:"), name);
    layout->addRow(tr("&Language:"), language);
    layout->addRow(source);
    setCentralWidget(pane);
}

void TSnippetForm::CreateToolBar()
{
    static constexpr TCommand commands[] = {
        {QT_TR_NOOP("&First"), &TDataSet::First, HasBefore},
        {QT_TR_NOOP("P&revious"), &TDataSet::Prior, HasBefore},
        {QT_TR_NOOP("Ne&xt"), &TDataSet::Next, HasBehind},
        {QT_TR_NOOP("L&ast"), &TDataSet::Last, HasBehind},
        {QT_TR_NOOP("&Insert"), &TDataSet::Append, IsLooking},
        {QT_TR_NOOP("&Delete"), &TDataSet::Delete, HasRecord},
        {QT_TR_NOOP("&Post"), &TDataSet::Post, IsPending},
        {QT_TR_NOOP("&Cancel"), &TDataSet::Cancel, IsPending},
    };
    QToolBar *bar = addToolBar(tr("Records"));
    for (const TCommand &command : commands) {
        // What cannot be done, as the post of a record without a name, is told the user.
        QAction *action = bar->addAction(
            tr(command.Text), this, TZtGuarded([this, &command] { (FRecords.*command.Run)(); }));
        FActions.emplace_back(action, command.Enabled);
    }
}

void TSnippetForm::Refresh()
{
    for (const auto &[action, enabled] : FActions)
        action->setEnabled(enabled(FRecords));
    const QString place =
        tr("Record %1 of %2").arg(FRecords.GetRecNo()).arg(FRecords.GetRecordCount());
    statusBar()->showMessage(IsPending(FRecords) ? tr("%1, not posted yet").arg(place) : place);
}

// What is not posted is; the window stays open when that fails.
void TSnippetForm::closeEvent(QCloseEvent *AEvent)
{
    AEvent->ignore();
    TZtGuarded([&] {
        FRecords.CheckBrowseMode();
        AEvent->accept();
    })();
}
