#pragma once

#include "uZtDbCodeEdit.h"
#include "uZtPlatform.h"
#include "uZtSqlTable.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <ostream>

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << S.toStdString() << '"';
}

/// What is done, in the words of `TScriptsTable::Do`, and what comes of it.
using TSteps = std::vector<std::pair<QString, QString>>;

/// A database file with a table of scripts, a dataset of it and an editor; two connections, as two
/// programs would have.
class TScriptsTable : public testing::Test {
protected:
    TScriptsTable()
    {
        for (const char *name : {"ours", "theirs"}) {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", name);
            db.setDatabaseName(Folder.filePath("scripts.db"));
            db.setConnectOptions("QSQLITE_BUSY_TIMEOUT=20");
            EXPECT_TRUE(db.open());
            Run("PRAGMA synchronous=OFF", name);
        }
        Run("CREATE TABLE scripts (id INTEGER PRIMARY KEY, name TEXT UNIQUE, source TEXT,"
            " data BLOB, size INTEGER)");
        Fill();
        Model = std::make_unique<QSqlTableModel>(nullptr, QSqlDatabase::database("ours"));
        Model->setTable("scripts");
        ZtPlatform().ShowException = [this](const QString &message) { Log += "!" + message; };
        ZtPlatform().MsgBoxConfirm = [this](const QString &text, const QString &) {
            Asked << text;
            return Answer;
        };
        Create();
    }
    ~TScriptsTable() override
    {
        Destroy();
        Model.reset();
        QSqlDatabase::removeDatabase("ours");
        QSqlDatabase::removeDatabase("theirs");
        ZtPlatform() = ZtDefaultPlatform();
    }
    void Create()
    {
        Data = new TDataSet;
        Data->SetModel(Model.get());
        Source = new TDataSource;
        Source->SetDataSet(Data);
        Source->OnStateChange = [this](QObject *) {
            Log += "S" + QString::number(int(Source->GetState()));
        };
        Edit = new TZtDbCodeEdit;
        Edit->SetBounds(0, 0, 400, 220);
        Edit->OnLoadData = [this](QObject *) { Log += "L"; };
    }
    void Destroy()
    {
        delete Edit;
        delete Source;
        delete Data;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static void Run(const QString &ASql, const char *AConnection = "theirs")
    {
        QSqlQuery query(QSqlDatabase::database(AConnection));
        EXPECT_TRUE(query.exec(ASql))
            << query.lastError().text().toStdString() << ASql.toStdString();
    }
    static QString Ask(const QString &ASql)
    {
        QSqlQuery query(QSqlDatabase::database("theirs"));
        EXPECT_TRUE(query.exec(ASql) && query.next()) << query.lastError().text().toStdString();
        return query.value(0).toString();
    }
    static void Fill()
    {
        Run("DELETE FROM scripts");
        Run("INSERT INTO scripts VALUES (1, 'one', 'first', x'6669727374', 5),"
            " (2, 'two', 'second', x'7365636F6E64', 6), (3, 'three', NULL, NULL, NULL)");
    }
    /// Storage class and bytes of the first record's value, as the other program finds them:
    /// "text two%0D%0Alines".
    static QString Stored(const QString &AColumn)
    {
        const QString value = Ask(
            QString("SELECT typeof(%1) || ' ' || hex(%1) FROM scripts WHERE id=1").arg(AColumn));
        const QByteArray bytes = QByteArray::fromHex(value.section(' ', 1).toLatin1());
        return value.section(' ', 0, 0) + " " + bytes.toPercentEncoding(" <>");
    }
    /// The records' keys, the current one in brackets, in parentheses while it is edited; + is one
    /// being inserted, < and > stand for Bof and Eof, - for a closed dataset.
    QString Records() const
    {
        QString ids = Data->GetActive() ? "" : "-";
        const QString current = Data->GetState() == TDataSetState::dsEdit ? "(%1)" : "[%1]";
        for (int i = 0; i < Data->GetRecordCount(); ++i)
            ids += QString(i + 1 == Data->GetRecNo() ? current : "%1")
                       .arg(Model->index(i, 0).data().toInt());
        return ids + (Data->GetState() == TDataSetState::dsInsert ? "+" : "") +
               (Data->GetBof() ? "<" : "") + (Data->GetEof() ? ">" : "");
    }
    /// What the editor shows, a slash for each line break.
    QString Shown() const { return Edit->GetLines()->GetText().replace("\r\n", "/"); }
    TField *Field(const QString &AName) { return Data->FieldByName(AName); }

    void Press(Qt::Key AKey, const QString &AText = {}, Qt::KeyboardModifiers AModifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, AKey, AModifiers, AText);
        QCoreApplication::sendEvent(Edit, &event);
        QCoreApplication::sendPostedEvents(Edit, TZtMessage::EventType());
    }
    /// One word. Operations of the dataset are called by their names, "field=text" stores, "{...}"
    /// is run by the other program, and the rest is in `Words`, its argument behind a colon. What
    /// is gone does nothing.
    void DoOne(const QString &AWord)
    {
        using T = TDataSet;
        static const std::map<QString, void (T::*)()> operations = {
            {"open", &T::Open},      {"close", &T::Close},   {"first", &T::First},
            {"last", &T::Last},      {"prior", &T::Prior},   {"next", &T::Next},
            {"edit", &T::Edit},      {"post", &T::Post},     {"insert", &T::Insert},
            {"append", &T::Append},  {"cancel", &T::Cancel}, {"delete", &T::Delete},
            {"refresh", &T::Refresh}};
        const auto word = Words.find(AWord.section(':', 0, 0));
        if (AWord.startsWith('{'))
            Run(AWord.sliced(1).chopped(1));
        else if (word != Words.end())
            word->second(AWord.section(':', 1));
        else if (Data && AWord.contains('='))
            Field(AWord.section('=', 0, 0))->SetText(AWord.section('=', 1));
        else if (Data)
            (Data->*operations.at(AWord))();
    }
    void Do(const QString &AWords)
    {
        static const QRegularExpression word("\\{[^}]*\\}|[^ ]+");
        for (auto words = word.globalMatch(AWords); words.hasNext();)
            DoOne(words.next().captured());
    }
    /// The message of what the words raise; empty when they raise nothing.
    QString Fault(const QString &AWords)
    {
        try {
            Do(AWords);
        } catch (const EZtException &error) {
            return error.Message();
        }
        return {};
    }
    /// Does the steps one after the other. The outcome of each is what it logs, the state and what
    /// it raises.
    void Follow(const TSteps &ASteps, const std::function<QString()> &AState)
    {
        for (const auto &[words, outcome] : ASteps) {
            Log.clear();
            const QString fault = Fault(words);
            EXPECT_EQ(QStringList({Log, AState(), fault}).join(" ").trimmed(), outcome)
                << words.toStdString();
        }
    }

    using TWord = std::function<void(const QString &AArgument)>;
    std::map<QString, TWord> Words = {
        {"by", [this](auto distance) { Data->MoveBy(distance.toInt()); }},
        {"no", [this](auto number) { Data->SetRecNo(number.toInt()); }},
        {"protect", [this](auto on) { Data->SetReadOnly(on.toInt()); }},
        {"protect-name", [this](auto on) { Field("name")->SetReadOnly(on.toInt()); }},
        {"protect-data", [this](auto on) { Field("data")->SetReadOnly(on.toInt()); }},
        {"protect-source", [this](auto on) { Field("source")->SetReadOnly(on.toInt()); }},
        {"protect-editor", [this](auto on) { Edit->SetReadOnly(on.toInt()); }},
        {"auto-edit", [this](auto on) { Source->SetAutoEdit(on.toInt()); }},
        {"invalid", // what starts with the text; nothing is with an empty one
         [this](auto value) {
             const QString start = value.section('=', 1);
             Field(value.section('=', 0, 0))->OnValidate = [start](const TField *field) {
                 if (!start.isEmpty() && field->GetText().startsWith(start))
                     throw EDatabaseError("not " + start);
             };
         }},
        {"attach-set", [this](auto) { Source->SetDataSet(Data); }},
        {"detach-set", [this](auto) { Source->SetDataSet(nullptr); }},
        {"detach", [this](auto) { Edit->SetDataSource(nullptr); }},
        {"delete-set", [this](auto) { delete Data; }},
        {"delete-source", [this](auto) { delete Source; }},
        {"delete-editor", [this](auto) { delete Edit; }},
        {"bind",
         [this](auto field) {
             Edit->SetDataField(field);
             Edit->SetDataSource(Source);
             Do("close open");
         }},
        {"show", [this](auto field) { Edit->SetDataField(field); }},
        {"type",
         [this](auto text) {
             for (const QChar c : text)
                 Press(c == '\r' ? Qt::Key_Return : Qt::Key(c.toUpper().unicode()), c);
         }},
        {"key",
         [this](auto name) {
             const QKeyCombination key = QKeySequence(name)[0];
             Press(key.key(), {}, key.keyboardModifiers());
         }},
        {"put", [this](auto text) { Edit->InsertText(TZtChangeType::ctInsert, text); }},
        {"at", // column and line
         [this](auto place) {
             Edit->SetLinePos(place.section(',', 1).toInt());
             Edit->SetCharPos(place.section(',', 0, 0).toInt());
         }},
        {"enter", [this](auto) { Edit->CMEnter(); }},
        {"leave", [this](auto) { Edit ? Edit->CMExit() : void(); }}};

    QTemporaryDir Folder;
    std::unique_ptr<QSqlTableModel> Model;
    QPointer<TDataSet> Data;
    QPointer<TDataSource> Source;
    QPointer<TZtDbCodeEdit> Edit;
    QString Log; ///< `S` and a number for a state, `L` for a load, `!` for an error that is shown
    QStringList Asked;
    int Answer = mrYes;
};
