#pragma once

#include "uZtJournalFile.h"
#include "uZtTextChange.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// Something for the thread of a journal to do.
struct TZtJournalTask {
    enum TKind : quint8 { tkBase, tkChange, tkBeginSave, tkSaved, tkSaveFailed, tkDiscard };
    TKind Kind = tkChange;
    bool IsWholeText = false;
    QPoint Start;
    QPoint RemovedEnd;
    QString Text;                        ///< what a change inserted within a line
    std::unique_ptr<TZtTextPiece> Piece; ///< or in lines; the text that is saved
    std::unique_ptr<TZtJournalBase> Base;
};

/// The thread that writes a journal, and the tasks that wait for it. The thread begins with the
/// first task that has to be done.
class TZtJournalWriter {
public:
    using TFault = std::function<void(const QString &AReason)>;
    /// Of a file up to this size the journal holds the contents too, and needs the file no more.
    static constexpr qsizetype LargestOwnBase = 4 << 20;

    /// How long a task may wait: for the next one that may not, for the interval, or not at all.
    enum THurry { huNone, huSoon, huAtOnce };

    /// `AFault` is called in the thread, once, with the reason why nothing can be written.
    TZtJournalWriter(const QString &APath, TFault AFault);
    /// Waits until the thread has done everything.
    ~TZtJournalWriter();

    int GetInterval() const { return int(FInterval.count()); }
    void SetInterval(int AMilliseconds);

    void Put(TZtJournalTask ATask, THurry AHurry);
    /// Waits until everything that was put is done. Answers whether it is written.
    bool Flush();

private:
    // What the journal says of the bytes that its text was.
    struct TBase {
        TZtJournalBase File; // without the bytes
        qint64 Size = 0;
        QByteArray Hash;
        QByteArray TextHash;
        QByteArray Own; // the record that makes the file superfluous
        TBase() = default;
        // `AText` is null where it is what the bytes say.
        TBase(TZtJournalBase AFile, const TZtTextPiece *AText);
    };

    void StartThread();
    void Run();
    bool WaitForTasks(std::unique_lock<std::mutex> &ALock);
    void DoAll(std::vector<TZtJournalTask> &ATasks);
    void Do(TZtJournalTask &ATask);
    void BeginSave(TZtJournalTask &ATask);
    void EndSave(TZtJournalBase ABase);
    std::vector<QByteArray> FirstRecords() const;
    void AddChange(QByteArray ARecord);
    template <typename TWork> void Try(TWork AWork);

    bool FStarted = true; // as far as it was to be

    // Shared by both threads.
    std::mutex FMutex;
    std::condition_variable FWake;
    std::condition_variable FIdle;
    std::vector<TZtJournalTask> FTasks;
    std::chrono::milliseconds FInterval{300};
    bool FHurry = false;
    bool FEnding = false;
    bool FBusy = false;
    bool FWritten = true;

    // The thread's own.
    TZtJournalFile FFile;
    const TFault FFault;
    TBase FBase;
    std::optional<TBase> FSaving;   // what is being saved
    std::vector<QByteArray> FSince; // the changes after that
    bool FOff = false;              // until the next save
    bool FDiscarded = false;
    bool FFailed = false;

    std::thread FThread;
};
