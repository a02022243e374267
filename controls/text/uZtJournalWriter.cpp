#include "uZtJournalWriter.h"

#include <exception>
#include <iterator>
#include <system_error>
#include <utility>

namespace {

// How long to wait before a write that failed is tried again, and how much may wait with it.
constexpr std::chrono::seconds RetryInterval(5);
constexpr qsizetype MostPending = 64 << 20;

// To one who takes lines.
template <typename TTaker> void AddLines(TTaker &ATaker, const TZtTextPiece &APiece)
{
    for (int i = 0; i < APiece.GetCount(); ++i)
        ATaker.AddLine(APiece.GetLine(i));
}

QByteArray Encode(const TZtJournalTask &ATask)
{
    TZtJournalChangeEncoder encoder(ATask.Start, ATask.RemovedEnd, ATask.IsWholeText);
    if (ATask.Piece)
        AddLines(encoder, *ATask.Piece);
    else
        encoder.AddLine(ATask.Text);
    return encoder.Finish();
}

QByteArray EncodeWhole(const TZtTextPiece &AText)
{
    TZtJournalChangeEncoder encoder({}, {}, true);
    AddLines(encoder, AText);
    return encoder.Finish();
}

QByteArray HashOf(const TZtTextPiece &AText)
{
    TZtJournalTextHash hash;
    AddLines(hash, AText);
    return hash.Result();
}

} // namespace

TZtJournalWriter::TBase::TBase(TZtJournalBase AFile, const TZtTextPiece *AText)
    : File(std::move(AFile)), Size(File.Bytes.size()), Hash(ZtJournalHash(File.Bytes)),
      TextHash(AText ? HashOf(*AText) : QByteArray())
{
    if (Size <= LargestOwnBase)
        Own = AText ? EncodeWhole(*AText) : ZtEncodeJournalBase(File.Bytes);
    File.Bytes.clear();
}

TZtJournalWriter::TZtJournalWriter(const QString &APath, TFault AFault)
    : FFile(APath), FFault(std::move(AFault))
{
}

TZtJournalWriter::~TZtJournalWriter()
{
    {
        const std::lock_guard lock(FMutex);
        FEnding = true;
    }
    FWake.notify_one();
    if (FThread.joinable())
        FThread.join();
}

// --- in the thread of the text -------------------------------------------------------------------

void TZtJournalWriter::SetInterval(int AMilliseconds)
{
    const std::lock_guard lock(FMutex);
    FInterval = std::chrono::milliseconds(AMilliseconds);
}

void TZtJournalWriter::Put(TZtJournalTask ATask, THurry AHurry)
{
    bool wake = AHurry == huAtOnce;
    {
        const std::lock_guard lock(FMutex);
        wake = wake || FTasks.empty();
        FTasks.push_back(std::move(ATask));
        FHurry = FHurry || AHurry == huAtOnce;
    }
    if (AHurry == huNone)
        return;
    if (FThread.joinable()) {
        if (wake)
            FWake.notify_one();
    } else {
        StartThread();
    }
}

// A system that has no room for a thread now may have it when the next task comes.
void TZtJournalWriter::StartThread()
{
    try {
        FThread = std::thread([this] { Run(); });
    } catch (const std::system_error &error) {
        if (std::exchange(FStarted, false))
            FFault(QString::fromLocal8Bit(error.code().message().c_str()));
    }
}

bool TZtJournalWriter::Flush()
{
    if (!FThread.joinable())
        return FStarted;
    std::unique_lock lock(FMutex);
    FHurry = true;
    FWake.notify_one();
    FIdle.wait(lock, [this] { return FTasks.empty() && !FBusy; });
    return FWritten;
}

// --- in its own ----------------------------------------------------------------------------------

void TZtJournalWriter::Run()
{
    std::unique_lock lock(FMutex);
    while (WaitForTasks(lock)) {
        std::vector<TZtJournalTask> tasks = std::exchange(FTasks, {});
        FHurry = false;
        FBusy = true;
        lock.unlock();
        DoAll(tasks);
        tasks.clear(); // what they hold goes before anybody is told that they are done
        lock.lock();
        FBusy = false;
        FWritten = !FOff && FFile.GetPending() == 0;
        FIdle.notify_all();
    }
}

// Answers whether there is anything more to do.
bool TZtJournalWriter::WaitForTasks(std::unique_lock<std::mutex> &ALock)
{
    const auto wanted = [this] { return FEnding || !FTasks.empty(); };
    if (FWritten || FOff)
        FWake.wait(ALock, wanted);
    else
        FWake.wait_for(ALock, RetryInterval, wanted);
    FWake.wait_for(ALock, FInterval, [this] { return FEnding || FHurry; });
    return !FEnding || !FTasks.empty();
}

void TZtJournalWriter::DoAll(std::vector<TZtJournalTask> &ATasks)
{
    for (TZtJournalTask &task : ATasks)
        if (!FDiscarded)
            Try([&] { Do(task); });
    Try([this] { FFile.Write(); });
}

// What could not be written now waits. Where a change is lost, those that come have no meaning
// until the next save.
template <typename TWork> void TZtJournalWriter::Try(TWork AWork)
{
    QString reason;
    try {
        return AWork();
    } catch (const std::system_error &error) {
        FOff = FOff || FFile.GetPending() > MostPending;
        reason = QString::fromLocal8Bit(error.code().message().c_str());
    } catch (const std::exception &error) {
        FOff = true;
        reason = QString::fromLocal8Bit(error.what());
    }
    if (!std::exchange(FFailed, true))
        FFault(reason);
}

void TZtJournalWriter::Do(TZtJournalTask &ATask)
{
    switch (ATask.Kind) {
    case TZtJournalTask::tkBase:
        FBase = TBase(std::move(*ATask.Base), nullptr);
        break;
    case TZtJournalTask::tkChange:
        AddChange(Encode(ATask));
        break;
    case TZtJournalTask::tkBeginSave:
        BeginSave(ATask);
        break;
    case TZtJournalTask::tkSaved:
        EndSave(std::move(*ATask.Base));
        break;
    case TZtJournalTask::tkSaveFailed:
        FSaving.reset();
        FSince.clear();
        break;
    case TZtJournalTask::tkDiscard:
        FDiscarded = true;
        FFile.Replace({});
        break;
    }
}

std::vector<QByteArray> TZtJournalWriter::FirstRecords() const
{
    const TZtJournalHeader header{
        FBase.File.Path, FBase.Size,        FBase.File.Modified,         FBase.Hash,
        FBase.TextHash,  FBase.File.Format, TZtJournalProcess::Current()};
    std::vector<QByteArray> records{ZtEncodeJournalHeader(header)};
    if (!FBase.Own.isEmpty())
        records.push_back(FBase.Own);
    return records;
}

void TZtJournalWriter::AddChange(QByteArray ARecord)
{
    if (!FOff) {
        if (!FFile.IsBegun())
            for (const QByteArray &record : FirstRecords())
                FFile.Append(record);
        FFile.Append(ARecord);
    }
    if (FSaving)
        FSince.push_back(std::move(ARecord));
}

void TZtJournalWriter::BeginSave(TZtJournalTask &ATask)
{
    FSaving.emplace(std::move(*ATask.Base), ATask.Piece.get());
    FSince.clear();
    if (FFile.IsBegun() && !FOff)
        FFile.Append(ZtEncodeJournalSaving(FSaving->Hash, FSaving->TextHash));
}

void TZtJournalWriter::EndSave(TZtJournalBase ABase)
{
    if (!FSaving) { // it could not begin: what comes is not on what is saved
        FOff = true;
        FFile.Replace({});
        return;
    }
    FSaving->File = std::move(ABase);
    FBase = *std::exchange(FSaving, std::nullopt);
    std::vector<QByteArray> records;
    const std::vector<QByteArray> since = std::exchange(FSince, {});
    if (!since.empty()) {
        records = FirstRecords();
        records.insert(records.end(), since.begin(), since.end());
    }
    FOff = false;
    FFile.Replace(records);
}
