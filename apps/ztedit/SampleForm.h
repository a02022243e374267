#pragma once

#include <QObject>

#include <vector>

class TSampleButton : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void Pressed(int X, int Y);
};

class TSampleEdit : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void TextEdited(const QString &Text);
};

/// What a scripting host would have: a form with components whose events a script can handle. Some
/// events are registered with their signature, others are signals.
class TSampleForm : public QObject {
    Q_OBJECT

public:
    explicit TSampleForm(QObject *AOwner = nullptr);

    struct TEvent {
        QObject *Object;
        QString Name;
    };
    std::vector<TEvent> Events();

private:
    TSampleButton *FButton;
    TSampleEdit *FEdit;
};
