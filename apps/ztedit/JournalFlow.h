#pragma once

#include "JournalFiles.h"
#include "RestoreDialog.h"

#include <QObject>

#include <functional>

class TDocument;
class TMainWindow;

/// Offers what was not saved when the program was cut short. Nothing is lost whatever happens, but
/// for what the user gives up.
class TJournalFlow : public QObject {
    Q_OBJECT

public:
    /// Goes before the window.
    explicit TJournalFlow(TMainWindow &AWindow);

    /// Asks what to do with a journal; a dialog at first.
    std::function<TRestoreDialog::TAnswer(const TRestoreOffer &AOffer)> Ask;

    /// Offers everything that is left, and from now on what is left of each file that is opened.
    void Start();

private:
    struct TFound;
    void OfferOf(const QString &APath);
    void OfferOne(const TLeftJournal &AJournal);
    TFound Read(const TLeftJournal &AJournal) const;
    TRestoreDialog::TAnswer AskUntilSure(const TFound &AFound);
    TDocument &Restore(const TFound &AFound);

    TMainWindow &FWindow;
    bool FOffering = false;
};
