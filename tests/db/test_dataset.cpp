#include "scripts_table.h"

#include <QFile>

namespace {

const QString Gone = "The record was removed or changed by someone else.";
const QString Changed = "The record was changed by someone else since it was read.";

class TDataSetTest : public TScriptsTable {
protected:
    TDataSetTest()
    {
        Link.SetFieldName("source");
        Link.OnDataChange = [this](QObject *) { Log += "D"; };
        Link.OnEditingChange = [this](QObject *) { Log += Link.GetEditing() ? "E+" : "E-"; };
        Link.OnUpdateData = [this](QObject *) {
            Log += "U";
            if (!Refusal.isEmpty())
                throw EDatabaseError(Refusal);
            Field("source")->SetText("from the control");
        };
        Words["attach"] = [this](auto) { Link.SetDataSource(Source); };
        Words["detach"] = [this](auto) { Link.SetDataSource(nullptr); };
        Words["link-edit"] = [this](auto) { Link.Edit(); };
        Words["type"] = [this](auto) { Link.Modified(); };
        Words["reset"] = [this](auto) { Link.Reset(); };
        Words["link"] = [this](auto field) { Link.SetFieldName(field); };
        Words["protect-link"] = [this](auto on) { Link.SetReadOnly(on.toInt()); };
        Words["refuse"] = [this](auto message) { Refusal = message; };
        Words["own"] = [this](auto name) { // and the key behind a slash
            Data->SetRecordSource(std::make_unique<TSqlTableSource>(
                QSqlDatabase::database("ours"), name.section('/', 0, 0), name.split('/').mid(1)));
        };
        Words["model"] = [this](auto) { Data->SetModel(Model.get()); };
        Words["post-over"] = [this](auto) {
            try {
                Data->Post();
            } catch (const EUpdateConflict &conflict) {
                Data->Rebase(conflict.Stored());
                Data->Post();
            }
        };
    }

    QString Refusal;
    TFieldDataLink Link;
};

} // namespace

// What is told, in its order, and where that leads.
TEST_F(TDataSetTest, MovesEditsAndTells)
{
    const TSteps steps = {
        {"attach next", "D -<> The dataset is closed."},
        {"open open prior next", "S1DD 1[2]3"},
        {"edit last next", "S2E+DS1E-DD 12[3]>"},
        {"edit edit source=x name=x cancel", "S2E+DDS1E-D 12[3]>"},
        {"edit first", "S2E+DS1E-DD [1]23<"},
        {"edit type by:1", "S2E+DUS1E-DD 1[2]3"},
        {"edit type insert prior", "S2E+DUS1E-DS3E+DS1E-DD [1]23"},
        {"link-edit type post", "S2E+DUS1E-D [1]23"},
        {"edit type reset post", "S2E+DDS1E-D [1]23"},
        {"edit protect-link:1 cancel link-edit edit cancel", "S2E+DS1E-DS2DS1D [1]23"},
        {"protect-link:0 protect-source:1 edit cancel protect-source:0", "S2DS1D [1]23"},
        {"auto-edit:0 link-edit auto-edit:1", "[1]23"},
        {"edit refresh", "S2E+DS1E-DD [1]23"},
        {"link:name", "D [1]23"},
        {"edit detach-set attach-set cancel", "S2E+DS0DS2DS1E-D [1]23"},
        {"detach by:9", "D 12[3]>"},
        {"no:2", "1[2]3"},
        {"insert name=a", "S3 123+"},
        {"post", "S1 1[4]23"}, // before the record that was current, with its new key
        {"append name=b prior", "S3S1 142[3]5"},
        {"append cancel", "S3S1 1423[5]"},
        {"delete", "123[4]"}, // read anew
        {"insert delete", "S3S1 123[4]"},
        {"first insert post", "S3S1 [5]1234"}, // nothing was stored: all of it is the database's
        {"delete last", "123[4]>"},
        {"first edit id=9 post refresh", "S2S1 234[9]"},
        {"{UPDATE scripts SET id=0 WHERE id=3} refresh", "024[9]"},
        {"{DELETE FROM scripts WHERE id=9} refresh", "02[4]"},
        {"edit delete delete attach delete", "S2S1DD <>"},
        {"close open first", "S0DS1D <>"},
        {"edit post", "S3E+DS1E-D [1]"},
    };
    Follow(steps, [this] {
        EXPECT_EQ(Link.GetField() != nullptr, Data->GetActive() && Link.GetDataSet());
        return Records();
    });
}

TEST_F(TDataSetTest, RefusesWhatItCannotDo)
{
    const QString notPending = " The dataset is not in edit or insert state.";
    const QString readOnly = " The dataset is read-only.";
    const TSteps steps = {
        {"attach open post", "DS1D [1]23<" + notPending},
        {"name=two", "[1]23<" + notPending},
        {"no:4", "[1]23< There is no record with the number 4."},
        {"none=1", "[1]23< There is no field \"none\"."},
        {"protect:1 edit", "[1]23<" + readOnly},
        {"insert", "[1]23<" + readOnly},
        {"delete", "[1]23<" + readOnly},
        {"protect:0 edit protect-name:1 name=two", "S2E+D (1)23< The field \"name\" is read-only."},
        {"size=tall", "(1)23< \"tall\" is no value for the field \"size\"."},
        {"invalid:size=100 size=99 size=100", "(1)23< not 100"},
        {"post edit refuse:no type post", "S1E-DS2E+DU (1)23< no"},
        {"next", "U (1)23< no"}, // it is still marked as modified
        {"refuse: post", "US1E-D [1]23<"},
        {"append source= protect-name:0 name=two post",
         "S3E+DD 123+ UNIQUE constraint failed: scripts.name Unable to fetch row"},
        {"name=four post", "S1E-D 123[4]"},
        {"{DELETE FROM scripts WHERE id=4} edit size=99 post", "S2E+D 123(4) " + Gone},
        {"cancel delete", "S1E-D 123[4] " + Gone},
        {"close own:none", "S0D - There is no table \"none\"."},
        {"own:scripts/k", "- There is no field \"k\"."},
    };
    Follow(steps, [this] { return Records(); });
    EXPECT_EQ(Stored("size"), "integer 99");
    EXPECT_EQ(Stored("source"), "text from the control");
}

TEST_F(TDataSetTest, TakesQueriesAndTablesWithoutAKey)
{
    const QSqlDatabase ours = QSqlDatabase::database("ours");
    QSqlQueryModel query;
    query.setQuery("SELECT name, source FROM scripts ORDER BY id DESC", ours);
    Data->SetModel(&query);
    Follow({{"open last edit", "S1 first one The dataset is read-only."},
            {"{UPDATE scripts SET name='uno' WHERE id=1} refresh last", "first uno"}},
           [this] { return Field("SOURCE")->GetText() + " " + Field("name")->GetText(); });

    Run("CREATE TABLE notes (a TEXT, b TEXT)");
    Run("INSERT INTO notes VALUES ('same', NULL), ('same', NULL), ('other', 'x')");
    QSqlTableModel notes(nullptr, ours);
    notes.setTable("notes");
    Data->SetModel(&notes);
    Follow({{"open edit a=new post",
             "S1S2 same-,same-,otherx The record cannot be told from another one: the table has "
             "no key."},
            {"cancel last edit a=new post append a=new post", "S1S2S1S3S1 same-,same-,newx,new-"}},
           [] { return Ask("SELECT group_concat(a || ifnull(b, '-')) FROM notes"); });
    EXPECT_EQ(Field("a")->GetText(), "new");
    EXPECT_TRUE(Fault("{DROP TABLE notes} refresh").contains("no such table"));
    EXPECT_TRUE(Data->IsEmpty());
    Data->SetModel(nullptr);
}

// A text that another program wrote meanwhile is not overwritten unless the user wants that, nor is
// another record that has the key of one that was deleted.
TEST_F(TDataSetTest, AnotherProgramsTextIsKept)
{
    // What others set, what comes of the post, and of the one that the user wants nevertheless.
    const std::tuple<QString, QString, QString> rows[] = {
        {"source='theirs'", "one'theirs' " + Changed, "S1 one'mine'"},
        {"source=NULL", "oneNULL " + Changed, "S1 one'mine'"},
        {"source=CAST('first' AS BLOB)", "oneX'6669727374' " + Changed, "S1 one'mine'"},
        {"name='other', source='else', size=1", "other'else' " + Changed, "S1 other'mine'"},
        {"id=8, source='moved'", Gone, Gone},
        {"name='uno'", "S1 uno'mine'", "uno'mine' The dataset is not in edit or insert state."},
    };
    for (const QString source : {"model", "own:scripts"})
        for (const auto &[others, outcome, over] : rows) {
            Fill();
            Do(source + " close open edit source=mine");
            Follow({{"{UPDATE scripts SET " + others + " WHERE id=1} post", outcome},
                    {"post-over", over}},
                   [this] {
                       EXPECT_EQ(Field("source")->GetText(), "mine");
                       return Ask("SELECT max(name || quote(source)) FROM scripts WHERE id=1");
                   });
        }
}

// A database with a damaged page: what could be read is shown, and cannot be changed.
TEST_F(TDataSetTest, RecordsThatDidNotAllComeAreReadOnly)
{
    Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000) INSERT INTO "
        "scripts (name, source) SELECT i, hex(zeroblob(500)) FROM n");
    QSqlDatabase ours = QSqlDatabase::database("ours");
    ours.close();
    QSqlDatabase::database("theirs").close();
    QFile file(Folder.filePath("scripts.db"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2 / 4096 * 4096));
    file.write(QByteArray(4096 * 20, '\xFF'));
    file.close();
    ours.open();
    for (const bool own : {false, true}) {
        Do(own ? "own:scripts open" : "open");
        EXPECT_GT(Data->GetRecordCount(), 100);
        EXPECT_LT(Data->GetRecordCount(), 2000);
        EXPECT_TRUE(Fault("edit").startsWith("The records were not all read: "));
        EXPECT_FALSE(Field("source")->CanModify());
    }
}

// Names that are legal in the database and troublesome everywhere else.
TEST_F(TDataSetTest, AnyLegalNameWorks)
{
    const QStringList names = {"plain",  "with blank", "a.b",    "\"quoted\"", "in\"side", "[x]",
                               "`back`", "it's",       "%1 %2",  "?",          ":name",    "select",
                               "\\",     "tab\tx",     "日本語", ";--",        "@p",       "a]b"};
    for (int i = 0; i < names.size(); ++i) {
        const QString table = names[i], field = names[(i * 5 + 1) % names.size()];
        const auto quoted = [](QString s) { return '"' + s.replace('"', "\"\"") + '"'; };
        Run("CREATE TABLE " + quoted(table) + " (id INTEGER PRIMARY KEY, " + quoted(field) +
            " TEXT)");
        Run("INSERT INTO " + quoted(table) + " VALUES (1, 'text'), (2, 'other')");
        EXPECT_TRUE(TSqlTableSource::Tables(QSqlDatabase::database("ours")).contains(table));
        Words["set"] = [this, field](auto text) { Field(field)->SetText(text); };
        DoOne("own:" + table);
        Do("open edit set:new append set:added post");
        EXPECT_EQ(Ask("SELECT group_concat(id || " + quoted(field) + ") FROM " + quoted(table)),
                  "1new,2other,3added");
        Do("delete");
        EXPECT_EQ(Data->GetRecordCount(), 2);
    }
}
