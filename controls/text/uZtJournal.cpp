#include "uZtJournal.h"

#include "uZtJournalWriter.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace {

// What a change put into the text. Within a line only that is copied, and not the line.
TZtJournalTask TaskOf(const TStringList &AText, const TZtTextChange &AChange)
{
    TZtJournalTask task;
    task.Kind = TZtJournalTask::tkChange;
    task.Start = AChange.Start;
    task.RemovedEnd = AChange.RemovedEnd;
    task.IsWholeText = AChange.IsWholeText;
    const QPoint &from = AChange.Start, &to = AChange.InsertedEnd;
    if (from.y() != to.y())
        task.Piece = std::make_unique<TZtTextPiece>(AText.GetPiece(from, to));
    else if (from.x() != to.x())
        AText.AppendTo(from.y(), from.x(), to.x() - from.x(), task.Text);
    return task;
}

TZtJournalTask TaskOf(TZtJournalTask::TKind AKind, TZtJournalBase ABase)
{
    TZtJournalTask task;
    task.Kind = AKind;
    task.Base = std::make_unique<TZtJournalBase>(std::move(ABase));
    return task;
}

} // namespace

TZtJournal::TZtJournal(TStringList &AText, const QString &APath, TZtJournalBase ABase)
    : FText(&AText), FPath(APath), FWriter(std::make_unique<TZtJournalWriter>(
                                       APath, [this](const QString &reason) { TellLater(reason); }))
{
    const bool withoutFile = ABase.Path.isEmpty();
    const bool small = ABase.Bytes.size() <= TZtJournalWriter::LargestOwnBase;
    FWriter->Put(TaskOf(TZtJournalTask::tkBase, std::move(ABase)),
                 // A large one is read when the text has been loaded and shown.
                 small ? TZtJournalWriter::huNone : TZtJournalWriter::huSoon);
    if (AText.GetCount() > 0 && withoutFile)
        FWriter->Put(TaskOf(AText, {QPoint(), QPoint(), AText.GetEnd(), true}),
                     TZtJournalWriter::huNone);
    FText->AddListener(this);
}

TZtJournal::~TZtJournal()
{
    if (FText)
        FText->RemoveListener(this);
}

// From whatever thread.
void TZtJournal::TellLater(const QString &AReason)
{
    const auto tell = [this, AReason] {
        if (FOnFault)
            FOnFault(AReason);
    };
    QMetaObject::invokeMethod(&FThread, tell, Qt::QueuedConnection);
}

int TZtJournal::GetFlushInterval() const { return FWriter->GetInterval(); }

void TZtJournal::SetFlushInterval(int Value) { FWriter->SetInterval(std::max(Value, 0)); }

void TZtJournal::SetOnFault(TFault AFault) { FOnFault = std::move(AFault); }

void TZtJournal::BeginSave(const QByteArray &ABytes)
try {
    if (!FText)
        return;
    TZtJournalBase base;
    base.Bytes = ABytes;
    TZtJournalTask task = TaskOf(TZtJournalTask::tkBeginSave, std::move(base));
    task.Piece = std::make_unique<TZtTextPiece>(FText->GetPiece({0, 0}, FText->GetEnd()));
    FWriter->Put(std::move(task), TZtJournalWriter::huAtOnce);
} catch (const std::exception &error) {
    GiveUp(error);
}

// What is there stays; without this step, those that come have no meaning.
void TZtJournal::GiveUp(const std::exception &AError)
{
    FText->RemoveListener(this);
    TellLater(QString::fromLocal8Bit(AError.what()));
}

void TZtJournal::Saved(TZtJournalBase ABase)
{
    FWriter->Put(TaskOf(TZtJournalTask::tkSaved, std::move(ABase)), TZtJournalWriter::huAtOnce);
}

void TZtJournal::SaveFailed()
{
    FWriter->Put(TaskOf(TZtJournalTask::tkSaveFailed, {}), TZtJournalWriter::huAtOnce);
}

void TZtJournal::Discard()
{
    if (FText)
        FText->RemoveListener(this);
    FWriter->Put(TaskOf(TZtJournalTask::tkDiscard, {}), TZtJournalWriter::huAtOnce);
    FWriter->Flush();
}

bool TZtJournal::Flush() { return FWriter->Flush(); }

void TZtJournal::TextChanged(const TStringList &AText, const TZtTextChange &AChange)
try {
    FWriter->Put(TaskOf(AText, AChange), TZtJournalWriter::huSoon);
} catch (const std::exception &error) {
    GiveUp(error);
}
