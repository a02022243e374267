#pragma once

#include <QDialog>

#include <vector>

/// A field that was changed here and by somebody else.
struct TConflict {
    QString Field;
    QString Mine;
    QString Theirs;
};

/// Shows what a record holds here and what somebody else has written into it meanwhile, and asks
/// which of them stays. Nothing is chosen by closing it.
class TConflictDialog : public QDialog {
    Q_OBJECT

public:
    enum TChoice { Neither, Mine, Theirs };

    /// `ARecord` is the record's name.
    TConflictDialog(const QString &ARecord, const std::vector<TConflict> &AConflicts,
                    QWidget *AParent = nullptr);

    /// Asks, and answers what was chosen.
    TChoice Ask() { return TChoice(exec()); }

private:
    QWidget *CreatePage(const TConflict &AConflict);
};
