#pragma once

#include "uZtDataSource.h"

#include <QMainWindow>
#include <QSqlDatabase>

#include <vector>

class QAction;

/// The records of the table "snippets", one at a time, with their text in an editor.
class TSnippetForm final : public QMainWindow {
    Q_OBJECT

public:
    explicit TSnippetForm(const QSqlDatabase &ADatabase, QWidget *AParent = nullptr);
    ~TSnippetForm() override;

protected:
    void closeEvent(QCloseEvent *AEvent) override;

private:
    struct TCommand;

    void CreateFields();
    void CreateToolBar();
    void Refresh();

    TDataSet FRecords; // before its source, which lets go of it
    TDataSource FSource;
    std::vector<std::pair<QAction *, bool (*)(const TDataSet &)>> FActions;
};
