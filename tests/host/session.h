#pragma once

#include "JournalFlow.h"
#include "MainWindow.h"

#include <QHash>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

class TZtCodeEdit;
class TZtSideFile;

/// A user with the host's window, a folder and other programs that write there, driven in words:
/// "write:a.pas=x open:a.pas type:y no save" and so on. A file is named within the folder, which
/// is "."; contents are written with `%0A` for an odd byte.
///
/// "crash:open:a.pas,type:y" is another run of the program, which ends in the middle of it; what it
/// left is offered from "start" on.
///
/// What comes of it is logged: "+" and "-" for what went through and what did not, "?" for a
/// message box, "!" for an exception, and whatever a word is there to tell.
class THostSession {
public:
    THostSession();
    ~THostSession();

    /// Does it and answers the log of it.
    QString Do(const QString &AWords);
    QString Path(const QString &AName) const;
    QByteArray Local(const QString &AName) const { return Path(AName).toLocal8Bit(); }
    TDocument *Document() const { return Window->CurrentDocument(); }
    TZtCodeEdit *Editor() const;

    const QTemporaryDir Folder;
    const QTemporaryDir State; ///< of the user, where the journals are
    std::unique_ptr<TMainWindow> Window = std::make_unique<TMainWindow>();
    int Answer;
    QStringList Asked; ///< what the boxes and exceptions said, with "~" for the folder

protected:
    void Say(const QString &AText) { FLog += AText; }
    void Say(bool AOk) { Say(QString(QLatin1Char(AOk ? '+' : '-'))); }
    /// The text with a slash for each end of a line.
    QString Text() const;

    QHash<QString, std::function<void(const QString &)>> Words;

private:
    int Box(const QString &AText);
    void Fault(const QString &AMessage);
    void AddFileWords();
    void AddProgramWords();
    void AddTextWords();
    void AddSaveWords();
    void AddCrashWords();
    void Crash(const QString &AWords);
    TRestoreDialog::TAnswer AnswerOffer(const TRestoreOffer &AOffer);
    QString Names() const;
    QString Tabs() const;
    void ChooseInMenu(const QString &AName);

    std::unique_ptr<TJournalFlow> FJournals;
    QList<TRestoreDialog::TAnswer> FOfferAnswers;
    QStringList FLog;
    QString FClipboard;
    std::vector<std::unique_ptr<TZtSideFile>> FSideFiles;
};

/// Contents as the words have them.
QString ShownBytes(const QByteArray &ABytes);

struct TSessionRow {
    const char *Words;
    const char *Log;
    const char *Said = ""; ///< in a box or an exception
};

/// Runs each row in a session of its own, which begins with the same words.
template <typename TSession = THostSession>
void CheckSessions(std::initializer_list<TSessionRow> ARows, const QString &ABegin = {})
{
    for (const TSessionRow &row : ARows) {
        TSession session;
        EXPECT_EQ(session.Do(ABegin + QString::fromUtf8(row.Words)).toStdString(), row.Log)
            << row.Words;
        const QString said = session.Asked.join(u'\n');
        EXPECT_TRUE(said.contains(QString::fromUtf8(row.Said)))
            << row.Words << ": " << said.toStdString();
    }
}

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << S.toStdString() << '"';
}
