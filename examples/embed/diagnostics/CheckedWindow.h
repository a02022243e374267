#pragma once

#include "uZtDiagnostics.h"

#include <QFutureWatcher>
#include <QMainWindow>
#include <QTimer>

class TZtCodeEdit;

/// An editor whose text is checked in another thread whenever the user pauses.
class TCheckedWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit TCheckedWindow(QWidget *AParent = nullptr);

private:
    void Check();
    void Checked();
    void ShowMessage();

    TZtCodeEdit *FEditor;
    QTimer FPause;
    QFutureWatcher<std::vector<TZtDiagnostic>> FCheck;
};
