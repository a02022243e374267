#pragma once

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>

class TStringList;

/// How two texts differ, line by line, as the program `diff` shows it in the unified format of
/// POSIX. It runs beside everything else.
class TLineDiff : public QObject {
    Q_OBJECT

public:
    explicit TLineDiff(QObject *AParent = nullptr);
    ~TLineDiff() override;

    /// Texts that are too long together are not compared. The names stand above what differs.
    void Start(const TStringList &ABefore, const QString &ABeforeName, const TStringList &AAfter,
               const QString &AAfterName);

Q_SIGNALS:
    /// What differs, cut off where it becomes too long; empty when it is not known.
    void Finished(const QString &AText);

private:
    void Read();
    void End();

    QTemporaryDir FFolder; // for this user alone
    QProcess FProcess;
    QByteArray FOutput;
    bool FEnded = false;
};
