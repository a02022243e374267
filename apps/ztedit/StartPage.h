#pragma once

#include <QWidget>

class QAction;
class QGridLayout;

/// What the window shows while nothing is open: what it is, and how to begin.
class TStartPage : public QWidget {
    Q_OBJECT

public:
    /// A way to begin. The command has a text of its own here, where no menu says what it is about.
    struct TWay {
        QAction *Action;
        QString Text;
    };

    explicit TStartPage(const QList<TWay> &AWays, QWidget *AParent = nullptr);

private:
    void AddWay(const TWay &AWay, QGridLayout &ATo);
};
