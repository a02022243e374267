#include "MethodListDialog.h"

#include "MethodIndex.h"

#include "uZtBufferSearch.h"
#include "uZtGuarded.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QVBoxLayout>

namespace {

constexpr int FirstReading = 50; // milliseconds, enough for a text of usual length
constexpr int ShowPause = 250;   // milliseconds between two looks at what has come in
constexpr int TypingPause = 30;  // milliseconds in which a fast typist types on

bool IsForList(const QKeyEvent &AKey)
{
    switch (AKey.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return false;
    }
}

} // namespace

// --- model ---------------------------------------------------------------------------------------

// The methods whose names hold a text. Rows are added at the end alone.
class TMethodListDialog::TModel : public QAbstractListModel {
public:
    TModel(const TMethodIndex &AIndex, QObject *AOwner) : QAbstractListModel(AOwner), FIndex(AIndex)
    {
    }

    int rowCount(const QModelIndex & = {}) const override
    {
        return FFilter.isEmpty() ? FSeen : int(FMatches.size());
    }
    QVariant data(const QModelIndex &AAt, int ARole) const override
    {
        if (ARole != Qt::DisplayRole || !AAt.isValid())
            return {};
        const int method = MethodOf(AAt.row());
        return TMethodListDialog::tr("%1, line %2")
            .arg(FIndex.Name(method), QString::number(FIndex.Line(method)));
    }
    const QString &Filter() const { return FFilter; }
    int MethodOf(int ARow) const { return FFilter.isEmpty() ? ARow : FMatches.at(ARow); }

    void SetFilter(const QString &AText)
    {
        beginResetModel();
        FFilter = AText;
        FMatches = NewMatches(0);
        FSeen = FIndex.Count();
        endResetModel();
    }
    // Adds what the index has found since.
    void TakeNew()
    {
        const QList<int> matches = NewMatches(FSeen);
        const int added = FFilter.isEmpty() ? FIndex.Count() - FSeen : int(matches.size());
        if (added > 0)
            beginInsertRows({}, rowCount(), rowCount() + added - 1);
        FMatches += matches;
        FSeen = FIndex.Count();
        if (added > 0)
            endInsertRows();
    }

private:
    QList<int> NewMatches(int AFrom) const
    {
        QList<int> matches;
        if (FFilter.isEmpty())
            return matches;
        const TZtBufferSearch search(FFilter, TZtSearchFlag::sfDown);
        for (int i = AFrom; i < FIndex.Count(); ++i) {
            i = FIndex.Find(search, i);
            if (i < 0)
                break;
            matches.append(i);
        }
        return matches;
    }

    const TMethodIndex &FIndex;
    QString FFilter;
    QList<int> FMatches; // unless there is no filter
    int FSeen = 0;       // so many methods of the index are in
};

// --- dialog --------------------------------------------------------------------------------------

TMethodListDialog::TMethodListDialog(TMethodIndex &AIndex, QWidget *AParent)
    : QDialog(AParent), FIndex(AIndex), FModel(new TModel(AIndex, this)),
      FFilter(new QLineEdit(this)), FList(new QListView(this)), FNote(new QLabel(this))
{
    setWindowTitle(tr("Methods"));
    FFilter->setPlaceholderText(tr("Part of the name"));
    FFilter->setAccessibleName(FFilter->placeholderText());
    FFilter->installEventFilter(this);
    FList->setAccessibleName(windowTitle());
    FList->setUniformItemSizes(true); // or each of a million rows is measured
    FList->setModel(FModel);
    FNote->setTextFormat(Qt::PlainText);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(FFilter);
    layout->addWidget(FList);
    layout->addWidget(FNote);
    FSoon.setSingleShot(true);
    connect(FFilter, &QLineEdit::textChanged, this, [this] { FSoon.start(TypingPause); });
    connect(FFilter, &QLineEdit::returnPressed, this, TZtGuarded([this] { Choose(); }));
    connect(FList, &QListView::activated, this, TZtGuarded([this] { Choose(); }));
    connect(&FSoon, &QTimer::timeout, this, TZtGuarded([this] { Update(); }));
    connect(&FIndex, &TMethodIndex::Restarted, this, TZtGuarded([this] {
        FModel->SetFilter(FFilter->text());
        ShowCount();
    }));
    connect(&FIndex, &TMethodIndex::Advanced, this, [this] {
        if (!FSoon.isActive())
            FSoon.start(ShowPause);
    });
    FIndex.ReadOn(FirstReading);
    Update();
    resize(420, 480);
}

// Shows what fits the filter as it is now.
void TMethodListDialog::Update()
{
    FSoon.stop();
    if (FModel->Filter() == FFilter->text())
        FModel->TakeNew();
    else
        FModel->SetFilter(FFilter->text());
    if (!FList->currentIndex().isValid())
        FList->setCurrentIndex(FModel->index(0)); // so that Enter has something to take
    ShowCount();
}

void TMethodListDialog::ShowCount()
{
    const auto number = [](int value) { return QLocale().toString(value); };
    QString text =
        FFilter->text().isEmpty()
            ? tr("Methods: %1").arg(number(FIndex.Count()))
            : tr("Methods: %1 of %2").arg(number(FModel->rowCount()), number(FIndex.Count()));
    if (!FIndex.IsComplete())
        text = tr("%1; %2 % of the text has been read")
                   .arg(text, number(int(FIndex.Progress() * 100)));
    FNote->setText(text);
}

void TMethodListDialog::Choose()
{
    Update();
    const QModelIndex current = FList->currentIndex();
    if (!current.isValid())
        return;
    FLine = FIndex.Line(FModel->MethodOf(current.row()));
    accept();
}

bool TMethodListDialog::eventFilter(QObject *AWatched, QEvent *AEvent)
{
    if (AWatched != FFilter || AEvent->type() != QEvent::KeyPress ||
        !IsForList(*static_cast<QKeyEvent *>(AEvent)))
        return QDialog::eventFilter(AWatched, AEvent);
    TZtGuarded([this] { Update(); })();
    return QCoreApplication::sendEvent(FList, AEvent);
}
