#pragma once

#include "uZtJournal.h"

#include <memory>

struct TZtTextFormat;

/// The journal of a document, which gets another text with each file that is loaded. Does nothing
/// until it is kept.
class TDocumentJournal {
public:
    /// From the next `Begin` on there is a journal. `AFault` is told why it cannot be written.
    void Keep(TZtJournal::TFault AFault);

    /// The text is this one now, which a file holds as `ABytes`. What was written down of the text
    /// before goes.
    void Begin(TStringList &AText, const QString &APath, const TZtTextFormat &AFormat,
               const QByteArray &ABytes);
    /// Calls `AWrite`, which saves the text as `ABytes` or raises.
    template <typename TWrite> void Save(const QByteArray &ABytes, TWrite AWrite);
    /// What was saved is in this file.
    void Saved(const QString &APath, const TZtTextFormat &AFormat);
    /// Nothing is to come back.
    void Discard();
    /// Waits until all changes are written. Answers whether they are.
    bool Flush() { return FJournal && FJournal->Flush(); }

private:
    bool FKept = false;
    TZtJournal::TFault FFault;
    std::unique_ptr<TZtJournal> FJournal;
};

template <typename TWrite> void TDocumentJournal::Save(const QByteArray &ABytes, TWrite AWrite)
{
    if (FJournal)
        FJournal->BeginSave(ABytes);
    try {
        AWrite();
    } catch (...) {
        if (FJournal)
            FJournal->SaveFailed();
        throw;
    }
}
