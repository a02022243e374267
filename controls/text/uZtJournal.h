#pragma once

#include "uZtExport.h"
#include "uZtJournalFormat.h"
#include "uZtStringList.h"

#include <QObject>
#include <QPointer>

#include <exception>
#include <functional>
#include <memory>

class TZtJournalWriter;

/// Writes down each change of a text, so that it comes back after a crash (`TZtJournalReader`).
///
/// A thread of its own writes: a change costs as much time as it takes to copy what was typed,
/// however long the text is. There is no file until the first change. Of a text that came from a
/// file of a few megabytes at most the journal holds all; to restore a longer one that was not
/// replaced as a whole, the file must be as it was.
///
/// All operations are for the thread of the text.
class ZT_EDITOR_EXPORT TZtJournal final : public TZtTextListener {
public:
    /// Says why the journal cannot be written; called in the thread of the text, once.
    using TFault = std::function<void(const QString &AReason)>;

    /// `AText` is what `ABase` holds; one without a file may be anything. `APath` is the name of
    /// the journal, at which nothing may be.
    TZtJournal(TStringList &AText, const QString &APath, TZtJournalBase ABase);
    /// Writes what is not yet written. The journal stays, unless it was discarded.
    ~TZtJournal();
    TZtJournal(const TZtJournal &) = delete;
    TZtJournal &operator=(const TZtJournal &) = delete;

    /// Of the journal's file, which is there from the first change on.
    const QString &GetPath() const { return FPath; }
    /// Milliseconds from a change to its being written, together with those that came meanwhile;
    /// 0 or more, 300 at first.
    int GetFlushInterval() const;
    void SetFlushInterval(int Value);
    void SetOnFault(TFault AFault); ///< null for nobody; told on the text's thread

    /// The text as it is now is about to be saved as these bytes, which need not give all of it
    /// back. Changes from now on belong to what is saved. Takes the time that a copy of the lines
    /// without their characters takes.
    void BeginSave(const QByteArray &ABytes);
    /// The save that began went through. The journal's file goes away until the next change. The
    /// bytes are those of `BeginSave`, and none in `ABase`.
    void Saved(TZtJournalBase ABase);
    /// The save did not go through.
    void SaveFailed();
    /// Removes the journal's file; changes are not written down any more.
    void Discard();

    /// Waits until everything is written. Answers whether it is.
    bool Flush();

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;

private:
    void TellLater(const QString &AReason);
    void GiveUp(const std::exception &AError);

    QPointer<TStringList> FText; // which may go first
    const QString FPath;
    TFault FOnFault;
    QObject FThread; // receives in the thread of the text
    std::unique_ptr<TZtJournalWriter> FWriter;
};
