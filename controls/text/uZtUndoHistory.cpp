#include "uZtUndoHistory.h"

#include <algorithm>
#include <utility>

namespace {

// A step is compared with the text before it as long as that is quick.
constexpr int MaxComparedLines = 2000;
constexpr qint64 MaxComparedUnits = 1 << 20;
constexpr size_t MaxComparedRecords = 500;

} // namespace

TZtUndoHistory::TZtUndoHistory(TStringList *AText) : FText(AText) { AText->AddListener(this); }

TZtUndoHistory::~TZtUndoHistory()
{
    if (FText)
        FText->RemoveListener(this);
}

// --- collecting ----------------------------------------------------------------------------------

TZtViewState TZtUndoHistory::ViewAt(const QPoint &APlace) const
{
    return OnGetView ? OnGetView() : TZtViewState{APlace, APlace, APlace, {}};
}

void TZtUndoHistory::TextChanged(const TStringList &AText, const TZtTextChange &AChange)
{
    TRecord record{AChange.Start, AChange.InsertedEnd, AChange.Removed};
    if (FMoving) {
        FMoving->push_back(std::move(record));
        return;
    }
    const bool alone = FDepth == 0;
    if (alone && !IsOpen())
        FOpen.Before = ViewAt(AChange.Start);
    FOpen.Records.push_back(std::move(record));
    if (alone && !AText.IsUpdating())
        Close(ViewAt(AChange.InsertedEnd), TZtUndoJoin::ujAlone);
}

void TZtUndoHistory::UpdateEnded(const TStringList &) { CloseAlone(); }

// What nobody began a step for.
void TZtUndoHistory::CloseAlone()
{
    if (FDepth == 0)
        CloseOpen();
}

void TZtUndoHistory::CloseOpen()
{
    if (!IsOpen() || FMoving)
        return;
    const TZtViewState view = ViewAt(FOpen.Records.back().End);
    Close(view, TZtUndoJoin::ujAlone);
    FOpen.Before = view;
}

void TZtUndoHistory::BeginStep(const TZtViewState &AView)
{
    if (FDepth == 0) {
        CloseAlone();
        FOpen.Before = AView;
    }
    ++FDepth;
}

bool TZtUndoHistory::EndStep(const TZtViewState &AView, TZtUndoJoin AJoin)
{
    return --FDepth == 0 && Close(AView, AJoin);
}

bool TZtUndoHistory::Close(const TZtViewState &AView, TZtUndoJoin AJoin)
{
    const bool sameText = !IsOpen() || IsNothing(FOpen.Records, false);
    if (sameText && (!IsOpen() || IsNothing(FOpen.Records, true))) {
        FOpen = {};
        return false;
    }
    if (AJoin == TZtUndoJoin::ujBack && TakesBackLast())
        return true;
    FOpen.After = AView;
    FOpen.Join = AJoin;
    FOpen.EndsWithBlank = EndsWithBlank();
    TStep step = std::exchange(FOpen, {});
    while (!FRedo.empty())
        Drop(FRedo);
    step.Version = sameText ? GetVersion() : ++FLastVersion;
    for (const TRecord &record : step.Records)
        step.Bytes += qint64(sizeof(TRecord)) + record.Text->GetBytes();
    FBytes += step.Bytes;
    if (JoinsLast(step)) {
        TStep &last = FUndo.back();
        for (TRecord &record : step.Records)
            Append(last.Records, std::move(record));
        last.Bytes += step.Bytes;
        last.After = step.After;
        last.Version = step.Version;
        last.EndsWithBlank = step.EndsWithBlank;
        if (IsNothing(last.Records, true)) { // what was erased is back, for instance
            FBytes -= last.Bytes;
            FUndo.pop_back();
        }
    } else {
        FUndo.push_back(std::move(step));
    }
    FMayJoin = AJoin != TZtUndoJoin::ujAlone;
    FSinceLast.start();
    DropOldest();
    return !sameText;
}

// Whether the open step takes back what the last one did; then neither is kept.
bool TZtUndoHistory::TakesBackLast()
{
    if (FUndo.empty())
        return false;
    std::vector<TRecord> &records = FOpen.Records;
    const std::vector<TRecord> &last = FUndo.back().Records;
    records.insert(records.begin(), last.begin(), last.end());
    if (!IsNothing(records, false)) {
        records.erase(records.begin(), records.begin() + std::ptrdiff_t(last.size()));
        return false;
    }
    FOpen = {};
    FBytes -= FUndo.back().Bytes;
    FUndo.pop_back();
    FMayJoin = false;
    return true;
}

bool TZtUndoHistory::JoinsLast(const TStep &AStep) const
{
    if (!FMayJoin || FUndo.empty() || IsSaved() || FSinceLast.elapsed() > FPause)
        return false;
    const TStep &last = FUndo.back();
    const bool newWord =
        AStep.Join == TZtUndoJoin::ujTyped && last.EndsWithBlank && !AStep.EndsWithBlank;
    const bool selected =
        AStep.Before.SelStart.x() >= 0 && AStep.Before.SelStart != AStep.Before.SelEnd;
    return AStep.Join == last.Join && AStep.Before.Caret == last.After.Caret && !newWord &&
           !selected;
}

// Typed characters make one record, and so do erased ones.
void TZtUndoHistory::Append(std::vector<TRecord> &ARecords, TRecord ARecord)
{
    if (!ARecords.empty()) {
        TRecord &last = ARecords.back();
        if (ARecord.Text->IsEmpty() && ARecord.Start == last.End) {
            last.End = ARecord.End;
            return;
        }
        const bool erased = last.Start == last.End && ARecord.Start == ARecord.End &&
                            last.Text->GetCount() == 1 && ARecord.Text->GetCount() == 1;
        const QString before = ARecord.Text->GetLine(0), behind = last.Text->GetLine(0);
        const bool leftward = ARecord.Start + QPoint(int(before.size()), 0) == last.Start;
        if (erased && (leftward || ARecord.Start == last.Start)) {
            last.Start = last.End = ARecord.Start;
            last.Text =
                std::make_shared<TZtTextPiece>(leftward ? before + behind : behind + before);
            return;
        }
    }
    ARecords.push_back(std::move(ARecord));
}

bool TZtUndoHistory::EndsWithBlank() const
{
    const QPoint end = FOpen.Records.back().End;
    if (end.y() >= FText->GetCount() || end.x() == 0)
        return true;
    QString last;
    FText->AppendTo(end.y(), end.x() - 1, 1, last);
    return last.front().unicode() <= 32;
}

// Whether changes, of which the last one is the last of all, leave the text as it was. A long one
// is not looked at.
bool TZtUndoHistory::IsNothing(const std::vector<TRecord> &ARecords, bool AObjectsToo) const
{
    if (ARecords.size() == 1)
        return IsNothing(ARecords.front(), AObjectsToo);
    if (ARecords.size() > MaxComparedRecords)
        return false;
    int first = ARecords.front().Start.y(), last = first, lines = 0;
    qint64 units = 0;
    bool counted = true; // a change in lines alone is told by its units
    for (const TRecord &record : ARecords) {
        const int removed = record.Text->GetCount() - 1;
        const int inserted = record.End.y() - record.Start.y();
        first = std::min(first, record.Start.y());
        last = std::max(last + inserted - removed, record.End.y());
        lines += inserted - removed;
        counted = counted && removed == 0 && inserted == 0;
        if (counted)
            units += record.End.x() - record.Start.x() - record.Text->GetLine(0).size();
    }
    if (lines != 0 || (counted && units != 0) || last - first > MaxComparedLines)
        return false;
    const int end = std::min(last + 1, FText->GetCount());
    qint64 size = 0;
    for (int i = first; i < end; ++i)
        size += FText->GetLength(i);
    if (size > MaxComparedUnits)
        return false;
    TStringList before;
    for (int i = first; i < end; ++i)
        before.AddObject(FText->GetStrings(i), FText->GetObjects(i));
    const TStringList &text = *FText;
    const QPoint origin(0, first);
    for (auto record = ARecords.rbegin(); record != ARecords.rend(); ++record)
        before.ReplaceText(record->Start - origin, record->End - origin, *record->Text);
    if (before.GetCount() != end - first)
        return false;
    for (int i = 0; i < before.GetCount(); ++i)
        if ((AObjectsToo && before.GetObjects(i) != text.GetObjects(first + i)) ||
            before.GetStrings(i) != text.GetStrings(first + i))
            return false;
    return true;
}

// Whether the same was put in the place of what was removed.
bool TZtUndoHistory::IsNothing(const TRecord &ARecord, bool AObjectsToo) const
{
    const int last = ARecord.Text->GetCount() - 1;
    if (last != ARecord.End.y() - ARecord.Start.y())
        return false;
    for (int i = 0; i <= last; ++i) {
        const int y = ARecord.Start.y() + i;
        if (y == FText->GetCount())
            break; // behind the last line's break
        const int from = i == 0 ? ARecord.Start.x() : 0;
        const int to = i == last ? ARecord.End.x() : FText->GetLength(y);
        QString now;
        FText->AppendTo(y, from, to - from, now);
        if (now != ARecord.Text->GetLine(i) || (AObjectsToo && ARecord.Text->HasObjects() &&
                                                ARecord.Text->GetObject(i) != FText->GetObjects(y)))
            return false;
    }
    return true;
}

// --- undo and redo -------------------------------------------------------------------------------

// In the middle of an operation, what comes behind the undo is another step.
bool TZtUndoHistory::Undo(TZtViewState &AView)
{
    CloseOpen();
    return Move(FUndo, FRedo, &TStep::Before, AView);
}

bool TZtUndoHistory::Redo(TZtViewState &AView)
{
    CloseOpen();
    return Move(FRedo, FUndo, &TStep::After, AView);
}

// Takes back what the newest step of `AFrom` did; what takes that back becomes a step of `ATo`.
bool TZtUndoHistory::Move(std::deque<TStep> &AFrom, std::deque<TStep> &ATo,
                          TZtViewState TStep::*AView, TZtViewState &AAnswer)
{
    if (AFrom.empty() || FMoving)
        return false;
    FText->BeginUpdate(); // what is raised here prevents it
    TZtFirstException raised;
    std::vector<TRecord> back;
    TStep step = std::move(AFrom.back());
    AFrom.pop_back();
    FMoving = &back;
    raised.Run([&] {
        for (; !step.Records.empty(); step.Records.pop_back()) {
            TRecord &record = step.Records.back();
            const bool alone = record.Text.use_count() == 1; // else a listener has kept it
            FText->ReplaceText(record.Start, record.End,
                               alone ? std::move(*record.Text) : TZtTextPiece(*record.Text));
        }
    });
    FMoving = nullptr;
    FBytes -= step.Bytes;
    step.Records = std::move(back);
    step.Bytes = 0;
    for (const TRecord &record : step.Records)
        step.Bytes += qint64(sizeof(TRecord)) + record.Text->GetBytes();
    FBytes += step.Bytes;
    AAnswer = step.*AView;
    ATo.push_back(std::move(step));
    FMayJoin = false;
    raised.Run([&] { FText->EndUpdate(); });
    raised.Raise();
    return true;
}

void TZtUndoHistory::Clear()
{
    FFirstVersion = IsOpen() ? ++FLastVersion : GetVersion();
    FOpen.Records.clear();
    FUndo.clear();
    FRedo.clear();
    FBytes = 0;
    FMayJoin = false;
}

void TZtUndoHistory::SetMaxBytes(qint64 Value)
{
    FMaxBytes = std::max<qint64>(Value, 0);
    DropOldest();
}

void TZtUndoHistory::Drop(std::deque<TStep> &ASteps)
{
    FBytes -= ASteps.front().Bytes;
    if (&ASteps == &FUndo)
        FFirstVersion = ASteps.front().Version;
    ASteps.pop_front();
}

void TZtUndoHistory::DropOldest()
{
    while (FBytes > FMaxBytes && FUndo.size() + FRedo.size() > 1)
        Drop(FUndo.size() > (FRedo.empty() ? 1u : 0u) ? FUndo : FRedo);
}
