#pragma once

#include <QDialog>

class TStringList;
class TZtCodeEdit;

/// What can come back after a crash.
struct TRestoreOffer {
    QString Note;                        ///< what happened, in words
    const TStringList *Before = nullptr; ///< what the file holds; null without a file
    const TStringList *After = nullptr;  ///< what would come back
};

/// Shows what would come back after a crash, and asks whether it shall. Closing it puts the
/// question off.
class TRestoreDialog : public QDialog {
    Q_OBJECT

public:
    enum TAnswer { Later, Restore, Discard };

    explicit TRestoreDialog(const TRestoreOffer &AOffer, QWidget *AParent = nullptr);

    /// Asks, and answers what was chosen.
    TAnswer Ask() { return TAnswer(exec()); }

private:
    void ShowText(const TStringList &AText);
    void AddButtons();

    TZtCodeEdit *FView;
};
