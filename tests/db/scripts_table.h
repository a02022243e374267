#pragma once

#include "uZtDbCodeEdit.h"

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

/// A database file with a table of scripts; two connections, as two programs would have.
class TScriptsTable : public testing::Test {
protected:
    TScriptsTable()
    {
        for (const char *name : {"ours", "theirs"}) {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", name);
            db.setDatabaseName(Folder.filePath("scripts.db"));
            db.setConnectOptions("QSQLITE_BUSY_TIMEOUT=20");
            EXPECT_TRUE(db.open());
            Run("PRAGMA journal_mode=MEMORY", name);
            Run("PRAGMA synchronous=OFF", name);
        }
        Run("CREATE TABLE scripts (id INTEGER PRIMARY KEY, name TEXT UNIQUE, source TEXT,"
            " data BLOB, size INTEGER)");
        Model = std::make_unique<QSqlTableModel>(nullptr, QSqlDatabase::database("ours"));
        Model->setTable("scripts");
        DataSet.SetModel(Model.get());
        Source.SetDataSet(&DataSet);
    }
    ~TScriptsTable() override
    {
        DataSet.SetModel(nullptr);
        Model.reset();
        QSqlDatabase::removeDatabase("ours");
        QSqlDatabase::removeDatabase("theirs");
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
    /// Storage class and bytes of a value, as the other program finds them.
    static QString Stored(const QString &AColumn, int AId = 1)
    {
        return Ask(QStringLiteral("SELECT typeof(%1) || ' ' || hex(%1) FROM scripts WHERE id=%2")
                       .arg(AColumn)
                       .arg(AId));
    }
    static QString TextOf(const char *AText)
    {
        return "text " + QByteArray(AText).toHex().toUpper();
    }
    static QString BlobOf(const QByteArray &S) { return "blob " + S.toHex().toUpper(); }
    void Fill()
    {
        Run("INSERT INTO scripts VALUES (1, 'one', 'first', x'6669727374', 5),"
            " (2, 'two', 'second', x'7365636F6E64', 6), (3, 'three', NULL, NULL, NULL)");
    }
    /// The message of what `AOperation` raises; empty when it raises nothing.
    template <typename E = EZtException, typename T> static QString Raised(T AOperation)
    {
        try {
            AOperation();
        } catch (const E &error) {
            return error.Message();
        }
        return {};
    }
    TField *Field(const QString &AName) { return DataSet.FieldByName(AName); }
    /// Runs operations of the dataset, and those in `More`, by their names; "field=text" stores.
    void Do(const QString &AWords)
    {
        using T = TDataSet;
        static const std::map<QString, void (T::*)()> operations = {
            {"open", &T::Open},      {"close", &T::Close},   {"first", &T::First},
            {"last", &T::Last},      {"prior", &T::Prior},   {"next", &T::Next},
            {"edit", &T::Edit},      {"post", &T::Post},     {"insert", &T::Insert},
            {"append", &T::Append},  {"cancel", &T::Cancel}, {"delete", &T::Delete},
            {"refresh", &T::Refresh}};
        for (const QString &word : AWords.split(' ')) {
            if (word.contains('='))
                Field(word.section('=', 0, 0))->SetText(word.section('=', 1));
            else
                More.count(word) ? More.at(word)() : (DataSet.*operations.at(word))();
        }
    }
    /// The message of what the operations raise.
    QString Fault(const QString &AWords)
    {
        return Raised<EDatabaseError>([&] { Do(AWords); });
    }

    std::map<QString, std::function<void()>> More;
    QTemporaryDir Folder;
    std::unique_ptr<QSqlTableModel> Model;
    TDataSet DataSet;
    TDataSource Source;
};
