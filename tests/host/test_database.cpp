#include "ConflictDialog.h"
#include "DbDocument.h"
#include "DbFieldsDialog.h"
#include "MainWindow.h"
#include "message_boxes.h"

#include "uZtDbCodeEdit.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListView>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// A database file that the host has open, and a second connection to it.
class HostDatabase : public TMessageBoxes {
protected:
    HostDatabase()
    {
        Theirs = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"theirs"_s);
        Theirs.setDatabaseName(Place.File);
        EXPECT_TRUE(Theirs.open());
        Ask("CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, language TEXT,"
            " source TEXT, data BLOB)");
        Ask("INSERT INTO t VALUES (1, 'one', 'sql', 'a' || char(10) || 'b', x'610A62'),"
            " (2, 'two', 'VB', 'c' || char(13,10), x'FFFE6100'), (3, 'three', 'odd', NULL, NULL)");
        Ask("CREATE TABLE nokey (code TEXT, source TEXT)");
        Ask("INSERT INTO nokey VALUES ('x', 'same'), ('y', 'same')");
    }
    ~HostDatabase() override
    {
        Window.reset();
        Theirs = QSqlDatabase();
        QSqlDatabase::removeDatabase(u"theirs"_s);
    }

    QString Ask(const QString &ASql)
    {
        QSqlQuery query(Theirs);
        EXPECT_TRUE(query.exec(ASql)) << query.lastError().text().toStdString();
        return query.next() ? query.value(0).toString() : QString();
    }
    // Every value of the table with its storage class.
    QString Contents()
    {
        return Ask("SELECT group_concat(id || typeof(name) || hex(name) || hex(language) ||"
                   " typeof(source) || hex(source) || typeof(data) || hex(data)) FROM t");
    }
    QString Source(int AId) { return Ask(u"SELECT source FROM t WHERE id=%1"_s.arg(AId)); }
    TDbDocument &Open(const QString &AField = u"source"_s)
    {
        Place.Field = AField;
        Window = std::make_unique<TMainWindow>();
        return *Window->OpenDatabase(Place);
    }
    static void Type(TDbDocument &ADocument, const QString &AText)
    {
        ADocument.Editor()->InsertText(TZtChangeType::ctPaste, AText);
    }

    QTemporaryDir Folder;
    TDbPlace Place{Folder.filePath(u"a.sqlite"_s), u"t"_s, u"source"_s, {}};
    QSqlDatabase Theirs;
    std::unique_ptr<TMainWindow> Window;
};

} // namespace

TEST_F(HostDatabase, WhatIsMissingIsNamed)
{
    const QString none = Folder.filePath(u"none"_s);
    const struct {
        TDbPlace Place;
        QString Fault;
    } rows[] = {
        {{none, u"t"_s, u"source"_s, {}}, u"There is no database \"%1\"."_s.arg(none)},
        {{Folder.path(), u"t"_s, u"source"_s, {}}, u"There is no database"_s},
        {{Place.File, u"u"_s, u"source"_s, {}}, u"has no table \"u\"; it has: t, nokey."_s},
        {{Place.File, u"t"_s, u"sauce"_s, {}}, u"has no field \"sauce\"; it has: id, name,"_s},
        {{Place.File, u"t"_s, u"source"_s, u"k"_s}, u"has no field \"k\""_s},
        {{Folder.filePath(u"text"_s), u"t"_s, u"source"_s, {}}, u"is not a database"_s},
    };
    QFile text(Folder.filePath(u"text"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write(QByteArray(2000, 'x')) == 2000);
    text.close();
    TMainWindow window;
    for (const auto &row : rows) {
        try {
            window.OpenDatabase(row.Place);
            ADD_FAILURE() << row.Fault.toStdString();
        } catch (const EDatabaseError &error) {
            EXPECT_TRUE(error.Message().contains(row.Fault)) << error.what();
        }
    }
    EXPECT_EQ(window.DocumentCount(), 0);
    EXPECT_FALSE(QFile::exists(none));
}

TEST_F(HostDatabase, ARecordThatIsNotPostedKeepsEveryByte)
{
    const QString before = Contents();
    for (const QString &field : {u"source"_s, u"data"_s}) {
        TDbDocument &document = Open(field);
        for (int record = 1; record <= 3; ++record) {
            EXPECT_TRUE(document.MoveTo(record));
            const QString text = document.Editor()->GetText();
            EXPECT_FALSE(document.IsModified());
            EXPECT_TRUE(document.Post());
            Type(document, u"x\ny"_s);
            EXPECT_TRUE(document.IsModified());
            EXPECT_TRUE(document.Cancel());
            EXPECT_FALSE(document.IsModified());
            EXPECT_EQ(document.Editor()->GetText(), text);
        }
        EXPECT_TRUE(Window->close());
        EXPECT_EQ(Contents(), before);
    }
    EXPECT_TRUE(Asked.isEmpty());
}

TEST_F(HostDatabase, PostingWritesTheFieldAlone)
{
    const QString others = Ask("SELECT hex(name || data) || language FROM t WHERE id=1");
    TDbDocument &document = Open();
    Type(document, u"x"_s);
    document.Editor()->SetLinePos(1);
    EXPECT_TRUE(Window->Save(&document));
    EXPECT_EQ(Source(1), u"xa\r\nb\r\n"_s);
    EXPECT_EQ(document.Editor()->GetLinePos(), 1);
    EXPECT_EQ(Ask("SELECT hex(name || data) || language FROM t WHERE id=1"), others);
    TDbDocument &bytes = Open(u"data"_s);
    EXPECT_TRUE(bytes.MoveTo(2));
    Type(bytes, u"x"_s);
    EXPECT_TRUE(bytes.Post());
    EXPECT_EQ(Ask("SELECT typeof(data) || hex(data) FROM t WHERE id=2"),
              u"blobFFFE780061000D000A00"_s);
}

TEST_F(HostDatabase, LeavingAChangedRecordAsks)
{
    const struct {
        int Answer;
        bool Left;
        QString Stored;
    } rows[] = {
        {mrCancel, false, u"a\nb"_s}, {mrNo, true, u"a\nb"_s}, {mrYes, true, u"xa\r\nb\r\n"_s}};
    for (const auto &row : rows) {
        TDbDocument &document = Open();
        auto *list = document.findChild<QListView *>();
        Type(document, u"x"_s);
        Answer = row.Answer;
        list->setCurrentIndex(list->model()->index(1, list->modelColumn()));
        QApplication::processEvents();
        EXPECT_EQ(document.DataSet().GetRecNo(), row.Left ? 2 : 1);
        EXPECT_EQ(list->currentIndex().row(), row.Left ? 1 : 0);
        EXPECT_EQ(document.IsModified(), !row.Left);
        EXPECT_EQ(document.Editor()->GetText(), row.Left ? u"c\r\n"_s : u"xa\r\nb\r\n"_s);
        EXPECT_FALSE(row.Left && document.Editor()->GetCanUndo());
        EXPECT_EQ(Window->close(), row.Left);
        EXPECT_EQ(Source(1), row.Stored);
    }
    EXPECT_EQ(Asked.size(), 4);
    EXPECT_TRUE(Asked[0].contains(u"\"one\""_s));
    TDbDocument &document = Open();
    Type(document, u"y"_s);
    EXPECT_TRUE(Window->CloseDocument(&document));
    EXPECT_EQ(Source(1), u"yxa\r\nb\r\n"_s);
}

TEST_F(HostDatabase, TheLexerFollowsTheRecord)
{
    TDbDocument &document = Open();
    for (const char *name : {"SQL", "Visual Basic", "Plain text"}) {
        EXPECT_STREQ(document.Language().Name, name);
        document.Next();
    }
}

TEST_F(HostDatabase, InsertingTakesItsFieldsFromTheDialog)
{
    TDbDocument &document = Open();
    const auto answer = [&](const char *name, bool accept) {
        QTimer::singleShot(0, &document, [&document, name, accept] {
            auto *dialog = document.findChild<TDbFieldsDialog *>();
            ASSERT_TRUE(dialog);
            EXPECT_FALSE(dialog->findChild<QLineEdit *>(u"id"_s));
            dialog->findChild<QLineEdit *>(u"name"_s)->setText(QLatin1StringView(name));
            dialog->findChild<QLineEdit *>(u"name"_s)->setModified(true);
            dialog->done(accept);
        });
    };
    answer("lost", false);
    EXPECT_FALSE(document.InsertWithFields());
    EXPECT_EQ(document.DataSet().GetState(), TDataSetState::dsBrowse);
    answer("one", true);
    EXPECT_TRUE(document.InsertWithFields());
    Type(document, u"new"_s);
    EXPECT_FALSE(document.Post()); // the name is taken
    EXPECT_EQ(document.Editor()->GetText(), u"new\r\n"_s);
    EXPECT_EQ(document.DataSet().GetState(), TDataSetState::dsInsert);
    answer("four", true);
    EXPECT_TRUE(document.EditFields());
    EXPECT_TRUE(document.Post());
    EXPECT_EQ(Ask("SELECT name || source FROM t WHERE id=4"), u"fournew\r\n"_s);
    EXPECT_EQ(document.findChild<QListView *>()->currentIndex().row(), 3);
}

TEST_F(HostDatabase, DeletingAsks)
{
    TDbDocument &document = Open();
    Answer = mrNo;
    EXPECT_FALSE(document.Delete());
    EXPECT_EQ(Ask("SELECT count(*) FROM t"), u"3"_s);
    Answer = mrYes;
    EXPECT_TRUE(document.Delete());
    EXPECT_EQ(Ask("SELECT min(id) FROM t"), u"2"_s);
    EXPECT_EQ(document.Editor()->GetText(), u"c\r\n"_s);
    EXPECT_TRUE(document.Delete() && document.Delete());
    for (const QAction *action : document.Actions())
        EXPECT_EQ(action->isEnabled(), action->isSeparator() || action->text() == u"&Insert…"_s ||
                                           action->text() == u"R&efresh"_s)
            << action->text().toStdString();
}

TEST_F(HostDatabase, ALockedOrReadOnlyDatabaseLosesNothing)
{
    for (const QString &field : {u"source"_s, u"data"_s}) {
        SCOPED_TRACE(field.toStdString());
        const QString before = Contents();
        TDbDocument &document = Open(field);
        Type(document, u"x"_s);
        const QString text = document.Editor()->GetText();
        for (const char *lock : {"BEGIN IMMEDIATE", "BEGIN EXCLUSIVE"}) {
            Asked.clear();
            Ask(lock);
            EXPECT_FALSE(document.Post());
            EXPECT_FALSE(document.Next()); // "Yes", which fails
            Ask("ROLLBACK");
            EXPECT_EQ(Asked.size(), 3);
            EXPECT_TRUE(Asked[0].contains(u"locked"_s)) << Asked[0].toStdString();
            EXPECT_EQ(document.Editor()->GetText(), text);
            EXPECT_EQ(document.DataSet().GetState(), TDataSetState::dsEdit);
            EXPECT_TRUE(document.IsModified());
            EXPECT_EQ(Contents(), before);
        }
        EXPECT_TRUE(document.Post());
        EXPECT_NE(Contents(), before);
    }
    QStringList names = QSqlDatabase::connectionNames();
    names.removeAll(u"theirs"_s);
    ASSERT_EQ(names.size(), 1);
    const QSqlDatabase ours = QSqlDatabase::database(names[0]);
    auto &document = *qobject_cast<TDbDocument *>(Window->CurrentDocument());
    for (const bool readOnly : {true, false}) {
        QSqlQuery(ours).exec(u"PRAGMA query_only=%1"_s.arg(int(readOnly)));
        Asked.clear();
        Type(document, u"y"_s);
        EXPECT_EQ(document.Post(), !readOnly);
        EXPECT_EQ(document.IsModified(), readOnly);
        EXPECT_EQ(Asked.join(u' ').contains(u"readonly"_s), readOnly);
    }
    EXPECT_TRUE(document.Editor()->GetText().startsWith(u"xyy"_s));
}

TEST_F(HostDatabase, AConflictIsTheUsersChoice)
{
    const struct {
        TConflictDialog::TChoice Choice;
        QString Stored, Shown;
        bool Posted;
    } rows[] = {{TConflictDialog::Neither, u"theirs"_s, u"xa\r\nb\r\n"_s, false},
                {TConflictDialog::Mine, u"xa\r\nb\r\n"_s, u"xa\r\nb\r\n"_s, true},
                {TConflictDialog::Theirs, u"theirs"_s, u"theirs\r\n"_s, true}};
    for (const auto &row : rows) {
        Ask("UPDATE t SET source='a' || char(10) || 'b' WHERE id=1");
        TDbDocument &document = Open();
        Type(document, u"x"_s);
        Ask("UPDATE t SET source='theirs' WHERE id=1");
        QTimer::singleShot(0, &document, [&] {
            auto *dialog = document.findChild<TConflictDialog *>();
            ASSERT_TRUE(dialog);
            QStringList texts;
            for (const auto *view : dialog->findChildren<TZtCodeEdit *>())
                texts += view->GetText();
            EXPECT_EQ(texts, QStringList({u"xa\r\nb\r\n"_s, u"theirs\r\n"_s}));
            dialog->done(row.Choice);
        });
        EXPECT_EQ(document.Post(), row.Posted);
        EXPECT_EQ(Source(1), row.Stored);
        EXPECT_EQ(document.Editor()->GetText(), row.Shown);
        EXPECT_EQ(document.IsModified(), !row.Posted);
        EXPECT_TRUE(Asked.isEmpty());
        document.Cancel();
    }
}

TEST_F(HostDatabase, ANamedKeyTellsRecordsApart)
{
    Place.Table = u"nokey"_s;
    Place.Key = u"code"_s;
    TDbDocument &document = Open();
    document.Last();
    Type(document, u"x"_s);
    EXPECT_TRUE(document.Post());
    EXPECT_EQ(Ask("SELECT group_concat(code || source) FROM nokey"), u"xsame,yxsame\r\n"_s);
}

TEST_F(HostDatabase, ASampleIsMadeWholeOrNotAtAll)
{
    const QString path = Folder.filePath(u"sample"_s);
    const auto make = [&](const QByteArray &script) -> QString {
        QFile file(path + u".sql"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(script) == script.size());
        file.close();
        try {
            ZtMakeSample(path);
        } catch (const EZtException &error) {
            return error.Message();
        }
        return {};
    };
    EXPECT_TRUE(make("CREATE TABLE a (b); NONSENSE;").contains(u"NONSENSE"_s));
    const auto names = [&] {
        return QDir(Folder.path()).entryList({u"*sample*"_s}, QDir::Files | QDir::Hidden);
    };
    EXPECT_EQ(names(), QStringList(u"sample.sql"_s));
    QFile::link(u"elsewhere"_s, path);
    EXPECT_TRUE(make("CREATE TABLE a (b);").contains(u"there already"_s));
    EXPECT_FALSE(QFile::exists(Folder.filePath(u"elsewhere"_s)));
    QFile::remove(path);
    EXPECT_EQ(make("-- one; two\nCREATE TABLE a (b); /* ; */ INSERT INTO a VALUES ('x;''y');\n"),
              QString());
    EXPECT_TRUE(make("CREATE TABLE a (b);").contains(u"there already"_s));
    EXPECT_EQ(names(), (QStringList{u"sample"_s, u"sample.sql"_s}));
    EXPECT_EQ(QFileInfo(path).permissions(), QFileInfo(path + u".sql"_s).permissions());
    const TDbConnection connection(path);
    QSqlQuery query(u"SELECT b FROM a"_s, connection.Database());
    EXPECT_TRUE(query.next());
    EXPECT_EQ(query.value(0).toString(), u"x;'y"_s);
}
