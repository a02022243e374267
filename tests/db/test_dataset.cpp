#include "scripts_table.h"

#include "uZtSqlTable.h"

#include <QFile>

using enum TDataSetState;

namespace {

class TDataSetTest : public TScriptsTable {
protected:
    TDataSetTest()
    {
        Source.OnStateChange = [this](QObject *) {
            Log += "S" + QString::number(int(Source.GetState()));
        };
        Link.OnDataChange = [this](QObject *) { Log += "D"; };
        Link.OnEditingChange = [this](QObject *) { Log += Link.GetEditing() ? "E+" : "E-"; };
        Link.OnUpdateData = [this](QObject *) {
            Log += "U";
            if (!Refuse.isEmpty())
                throw EDatabaseError(Refuse);
            Field("source")->SetText("from the control");
        };
        Link.SetFieldName("source");
    }
    ~TDataSetTest() override { Source.OnStateChange = nullptr; }
    /// The records' keys, the current one in brackets; < and > stand for Bof and Eof.
    QString Records()
    {
        QString ids;
        for (int i = 0; i < DataSet.GetRecordCount(); ++i)
            ids += QString(i + 1 == DataSet.GetRecNo() ? "[%1]" : "%1")
                       .arg(Model->index(i, 0).data().toInt());
        return ids + (DataSet.GetBof() ? "<" : "") + (DataSet.GetEof() ? ">" : "");
    }

    static void Validate(const TField *AField)
    {
        if (AField->GetValue().toInt() > 99)
            throw EDatabaseError("too much");
    }

    QString Log, Refuse;
    TFieldDataLink Link;
};

} // namespace

TEST_F(TDataSetTest, TellsInTheUsualOrder)
{
    Fill();
    More = {{"attach", [this] { Link.SetDataSource(&Source); }},
            {"detach", [this] { Link.SetDataSource(nullptr); }},
            {"attach-set", [this] { Source.SetDataSet(&DataSet); }},
            {"detach-set", [this] { Source.SetDataSet(nullptr); }},
            {"link-edit", [this] { Link.Edit(); }},
            {"type", [this] { Link.Modified(); }},
            {"reset", [this] { Link.Reset(); }},
            {"other-field", [this] { Link.SetFieldName("name"); }},
            {"read-only-link", [this] { Link.SetReadOnly(!Link.GetReadOnly()); }},
            {"read-only-field",
             [this] { Field("source")->SetReadOnly(!Link.GetField()->GetReadOnly()); }},
            {"auto-edit", [this] { Source.SetAutoEdit(!Source.GetAutoEdit()); }}};
    const std::pair<const char *, const char *> rows[] = {
        {"attach", "D"},
        {"open", "S1D"},
        {"open", ""},
        {"next", "D"},
        {"last", "D"},
        {"next", ""},
        {"edit", "S2E+D"},
        {"edit", ""},
        {"source=x", "D"},
        {"name=x", ""},
        {"cancel", "S1E-D"},
        {"edit first", "S2E+DS1E-DD"},
        {"edit type next", "S2E+DUS1E-DD"},
        {"edit type insert", "S2E+DUS1E-DS3E+D"},
        {"prior", "S1E-DD"},
        {"link-edit type post", "S2E+DUS1E-D"},
        {"edit post", "S2E+DS1E-D"},
        {"edit type reset post", "S2E+DDS1E-D"},
        {"edit read-only-link", "S2E+D"},
        {"cancel link-edit", "S1E-D"},
        {"edit cancel read-only-link", "S2DS1D"},
        {"read-only-field edit cancel read-only-field", "S2DS1D"},
        {"auto-edit link-edit auto-edit", ""},
        {"delete", "D"},
        {"refresh", "D"},
        {"other-field", "D"},
        {"edit detach-set", "S2E+DS0D"},
        {"attach-set", "S2D"},
        {"close", "S0E-D"},
        {"detach", "D"},
    };
    for (const auto &[words, log] : rows) {
        Log.clear();
        Do(words);
        EXPECT_EQ(Log, log) << words;
        EXPECT_EQ(Link.GetField() != nullptr, DataSet.GetActive() && Link.GetDataSet()) << words;
    }
}

TEST_F(TDataSetTest, MovesInsertsAndDeletes)
{
    Fill();
    More = {{"far", [this] { DataSet.MoveBy(9); }},
            {"2", [this] { DataSet.SetRecNo(2); }},
            {"others-add", [] { Run("INSERT INTO scripts (id, name) VALUES (0, 'z')"); }},
            {"others-delete", [] { Run("DELETE FROM scripts WHERE id IN (9, 3)"); }}};
    const std::pair<const char *, const char *> rows[] = {
        {"open", "[1]23<"},
        {"prior", "[1]23<"},
        {"next", "1[2]3"},
        {"far", "12[3]>"},
        {"2", "1[2]3"},
        {"insert name=a", "123"},
        {"post", "1[4]23"}, // before the record that was current, with its new key
        {"append name=b prior", "142[3]5"},
        {"append cancel", "1423[5]"},
        {"delete", "123[4]"}, // read anew
        {"insert delete", "123[4]"},
        {"first insert post", "[5]1234"}, // nothing was stored: all of it is the database's
        {"delete last", "123[4]>"},
        {"first edit id=9 post refresh", "234[9]"},
        {"others-add refresh", "0234[9]"},
        {"others-delete refresh", "02[4]"},
        {"delete delete delete", "<>"},
        {"edit", ""}, // inserts
        {"post", "[1]"},
    };
    for (const auto &[words, records] : rows) {
        Do(words);
        EXPECT_EQ(Records(), records) << words;
    }
}

TEST_F(TDataSetTest, RefusesWhatItCannotDo)
{
    Fill();
    More = {
        {"number-4", [this] { DataSet.SetRecNo(4); }},
        {"read-only", [this] { DataSet.SetReadOnly(!DataSet.GetReadOnly()); }},
        {"name-read-only", [this] { Field("name")->SetReadOnly(!Field("name")->GetReadOnly()); }},
        {"attach", [this] { Link.SetDataSource(&Source); }},
        {"type", [this] { Link.Modified(); }},
        {"refuse", [this] { Refuse = Refuse.isEmpty() ? "not so" : ""; }},
        {"others-delete", [] { Run("DELETE FROM scripts WHERE id=4"); }},
        {"validate", [this] { Field("size")->OnValidate = Validate; }}};
    const QString gone = "The record was removed or changed by someone else.";
    const QString notPending = "The dataset is not in edit or insert state.";
    const struct {
        const char *Words;
        QString Fault;
        TDataSetState State;
    } rows[] = {
        {"next", "The dataset is closed.", dsInactive},
        {"open post", notPending, dsBrowse},
        {"name=two", notPending, dsBrowse},
        {"number-4", "There is no record with the number 4.", dsBrowse},
        {"none=1", "There is no field \"none\".", dsBrowse},
        {"read-only edit", "The dataset is read-only.", dsBrowse},
        {"insert", "The dataset is read-only.", dsBrowse},
        {"append", "The dataset is read-only.", dsBrowse},
        {"delete", "The dataset is read-only.", dsBrowse},
        {"read-only edit name-read-only name=two", "The field \"name\" is read-only.", dsEdit},
        {"size=tall", "\"tall\" is no value for the field \"size\".", dsEdit},
        {"validate size=99 size=100", "too much", dsEdit},
        {"post", {}, dsBrowse},
        {"attach edit type refuse post", "not so", dsEdit},
        {"next", "not so", dsEdit}, // it is still marked as modified
        {"refuse post", {}, dsBrowse},
        {"append source= name-read-only name=two post",
         "UNIQUE constraint failed: scripts.name Unable to fetch row", dsInsert},
        {"name=four post", {}, dsBrowse},
        {"others-delete edit size=99 post", gone, dsEdit},
        {"cancel delete", gone, dsBrowse},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(Fault(row.Words), row.Fault) << row.Words;
        EXPECT_EQ(DataSet.GetState(), row.State) << row.Words;
    }
    EXPECT_EQ(Stored("size"), "integer 3939");
    EXPECT_EQ(Stored("source"), TextOf("from the control"));
}

TEST_F(TDataSetTest, TakesQueriesAndTablesWithoutAKey)
{
    Fill();
    const QSqlDatabase ours = QSqlDatabase::database("ours");
    QSqlQueryModel query;
    query.setQuery("SELECT name, source FROM scripts ORDER BY id DESC", ours);
    DataSet.SetModel(&query);
    Do("open last");
    EXPECT_EQ(Field("SOURCE")->GetAsString(), "first");
    EXPECT_EQ(Fault("edit"), "The dataset is read-only.");
    Run("UPDATE scripts SET name='uno' WHERE id=1");
    Do("refresh last");
    EXPECT_EQ(Field("name")->GetAsString(), "uno");

    Run("CREATE TABLE notes (a TEXT, b TEXT)");
    Run("INSERT INTO notes VALUES ('same', NULL), ('same', NULL), ('other', 'x')");
    QSqlTableModel notes(nullptr, ours);
    notes.setTable("notes");
    DataSet.SetModel(&notes);
    EXPECT_EQ(Fault("open edit a=new post"),
              "The record cannot be told from another one: the table has no key.");
    Do("cancel last edit a=new post append a=new post");
    EXPECT_EQ(Ask("SELECT group_concat(a || ifnull(b, '-')) FROM notes"), "same-,same-,newx,new-");
    EXPECT_EQ(Field("a")->GetText(), "new");

    Run("DROP TABLE notes");
    EXPECT_TRUE(Fault("refresh").contains("no such table"));
    EXPECT_TRUE(DataSet.IsEmpty());
}

// A text that another program wrote meanwhile is not overwritten, nor is another record that has
// the key of one that was deleted.
TEST_F(TDataSetTest, AnotherProgramsTextIsKept)
{
    const QString gone = "The record was removed or changed by someone else.";
    const QString changed = "The record was changed by someone else since it was read.";
    const struct {
        QString Others, Fault;
    } rows[] = {
        {"UPDATE scripts SET source='theirs' WHERE id=1", changed},
        {"UPDATE scripts SET source=NULL WHERE id=1", changed},
        {"UPDATE scripts SET source=CAST('first' AS BLOB) WHERE id=1", changed},
        {"DELETE FROM scripts WHERE id=1", gone},
        {"REPLACE INTO scripts VALUES (1, 'other', 'another one', NULL, 1)", changed},
        {"UPDATE scripts SET name='uno' WHERE id=1", {}},
    };
    for (const bool own : {false, true})
        for (const auto &row : rows) {
            SCOPED_TRACE(row.Others.toStdString());
            Run("DELETE FROM scripts");
            Fill();
            if (own)
                DataSet.SetRecordSource(
                    std::make_unique<TSqlTableSource>(QSqlDatabase::database("ours"), "scripts"));
            else
                DataSet.SetModel(Model.get());
            Do("open edit source=mine");
            Run(row.Others);
            const QString before = Ask("SELECT group_concat(quote(source)) FROM scripts");
            EXPECT_EQ(Fault("post"), row.Fault);
            if (row.Fault.isEmpty()) {
                EXPECT_EQ(Ask("SELECT name || source FROM scripts WHERE id=1"), "unomine");
                continue;
            }
            EXPECT_EQ(Ask("SELECT group_concat(quote(source)) FROM scripts"), before);
            EXPECT_EQ(DataSet.GetState(), dsEdit);
            EXPECT_EQ(Field("source")->GetText(), "mine");
            try {
                DataSet.Post();
            } catch (const EUpdateConflict &conflict) {
                DataSet.Rebase(conflict.Stored());
                EXPECT_EQ(Fault("post"), QString());
                EXPECT_EQ(Ask("SELECT source FROM scripts WHERE id=1"), "mine");
            } catch (const EDatabaseError &) {
                EXPECT_EQ(row.Fault, gone);
            }
            DataSet.Close();
        }
}

// A database with a damaged page: what could be read is shown, and cannot be changed.
TEST_F(TDataSetTest, RecordsThatDidNotAllComeAreReadOnly)
{
    Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000) INSERT INTO "
        "scripts (name, source) SELECT i, hex(zeroblob(500)) FROM n");
    const QString path = QSqlDatabase::database("ours").databaseName();
    for (const char *name : {"ours", "theirs"})
        QSqlDatabase::database(name).close();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2 / 4096 * 4096));
    file.write(QByteArray(4096 * 20, '\xFF'));
    file.close();
    QSqlDatabase ours = QSqlDatabase::database("ours");
    for (const bool own : {false, true}) {
        if (own)
            DataSet.SetRecordSource(std::make_unique<TSqlTableSource>(ours, "scripts"));
        Do("open");
        EXPECT_GT(DataSet.GetRecordCount(), 100);
        EXPECT_LT(DataSet.GetRecordCount(), 2000);
        EXPECT_TRUE(Fault("edit").startsWith("The records were not all read: "));
        EXPECT_FALSE(Field("source")->CanModify());
    }
    DataSet.SetRecordSource(nullptr);
}

// Names that are legal in the database and troublesome everywhere else.
TEST_F(TDataSetTest, AnyLegalNameWorks)
{
    const QStringList names = {"plain",  "with blank", "a.b",    "\"quoted\"", "in\"side", "[x]",
                               "`back`", "it's",       "%1 %2",  "?",          ":name",    "select",
                               "\\",     "tab\tx",     "日本語", ";--",        "@p",       "a]b"};
    for (const QString &table : names)
        for (const QString &field : names) {
            const auto quoted = [](QString s) { return '"' + s.replace('"', "\"\"") + '"'; };
            Run("CREATE TABLE " + quoted(table) + " (id INTEGER PRIMARY KEY, " + quoted(field) +
                " TEXT)");
            Run("INSERT INTO " + quoted(table) + " VALUES (1, 'text'), (2, 'other')");
            QSqlDatabase ours = QSqlDatabase::database("ours");
            ASSERT_TRUE(TSqlTableSource::Tables(ours).contains(table));
            DataSet.SetRecordSource(std::make_unique<TSqlTableSource>(ours, table));
            DataSet.Open();
            ASSERT_EQ(Field(field)->GetText(), "text") << field.toStdString();
            DataSet.Edit();
            Field(field)->SetText("new");
            DataSet.Append();
            Field(field)->SetText("added");
            DataSet.Post();
            EXPECT_EQ(Ask("SELECT group_concat(id || " + quoted(field) + ") FROM " + quoted(table)),
                      "1new,2other,3added");
            DataSet.Delete();
            EXPECT_EQ(DataSet.GetRecordCount(), 2);
            DataSet.Close();
            Run("DROP TABLE " + quoted(table));
        }
    EXPECT_EQ(Raised([] { TSqlTableSource(QSqlDatabase::database("ours"), "none"); }),
              "There is no table \"none\".");
    EXPECT_EQ(Raised([] { TSqlTableSource(QSqlDatabase::database("ours"), "scripts", {"k"}); }),
              "There is no field \"k\".");
}

TEST_F(TDataSetTest, TheSampleDatabaseOpens)
{
    QFile file(ZT_SOURCE_DIR "/examples/scripts.sqlite.sql");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    Run("DROP TABLE scripts");
    const QStringList statements =
        QString::fromUtf8(file.readAll()).split(";\n\n", Qt::SkipEmptyParts);
    for (const QString &statement : statements)
        Run(statement);
    Model->setTable("scripts"); // with its own columns
    DataSet.Open();
    EXPECT_GE(DataSet.GetRecordCount(), 6);
    for (; !DataSet.GetEof(); DataSet.Next()) {
        EXPECT_TRUE(Field("source_blob")->IsBlob());
        EXPECT_EQ(Field("source")->GetText(), Field("source_blob")->GetText());
        EXPECT_GT(Field("source")->GetText().count('\n'), 3);
    }
}
