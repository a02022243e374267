#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;
class QLineEdit;
class QListView;
class TMethodIndex;

/// A list of methods to choose one from, also while they are still being read: what is typed leaves
/// those whose names hold it, Enter or a double click takes one, Escape none.
class TMethodListDialog : public QDialog {
    Q_OBJECT

public:
    explicit TMethodListDialog(TMethodIndex &AIndex, QWidget *AParent = nullptr);

    /// The line of the method that was taken, counted from 1; 0 for none.
    int Line() const { return FLine; }

protected:
    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;

private:
    class TModel;
    void Update();
    void ShowCount();
    void Choose();

    TMethodIndex &FIndex;
    TModel *FModel;
    QLineEdit *FFilter;
    QListView *FList;
    QLabel *FNote;
    QTimer FSoon; // to show what was typed or has come in since
    int FLine = 0;
};
