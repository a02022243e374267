#pragma once

#include "FileHandle.h"

#include "uZtJournalFormat.h"

#include <QString>

#include <vector>

struct TZtTextFormat;

// Where the journals of this user are, and whose they are.

/// The folder of the journals: `ztedit` in the user's state folder, as the XDG Base Directory
/// Specification has it.
QString ZtJournalFolder();
/// A name in that folder that nothing has. Makes the folder, for this user alone; where that fails
/// the journal cannot be written either, and says why.
QString ZtNewJournalName();

/// A journal that a process left when it was cut short.
struct TLeftJournal {
    QString Path;
    TZtJournalHeader Header;
};
/// Those whose process has ended, the oldest first.
std::vector<TLeftJournal> ZtLeftJournals();
/// Keeps other processes from using a journal too, as long as the handle is there. Not open when
/// another one has it, or has removed it.
TZtFileHandle ZtClaimJournal(const QString &APath);
void ZtRemoveJournal(const QString &APath);

/// How a text is stored, for a journal's header, and back.
QByteArray ZtFormatBytes(const TZtTextFormat &AFormat);
TZtTextFormat ZtFormatOfBytes(const QByteArray &ABytes);
