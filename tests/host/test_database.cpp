#include "ConflictDialog.h"
#include "DbDocument.h"
#include "DbFieldsDialog.h"
#include "session.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QSqlError>
#include <QSqlQuery>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Every value of the table with its storage class.
constexpr char Contents[] = "SELECT group_concat(id || typeof(name) || hex(name) || hex(language) "
                            "|| typeof(source) || hex(source) || typeof(data) || hex(data)) FROM t";

// What the words stand for that the second connection does.
const std::pair<const char *, const char *> Statements[] = {
    {"one", "SELECT source FROM t WHERE id=1"},
    {"others", "SELECT name || hex(data) || language FROM t WHERE id=1"},
    {"second", "SELECT typeof(data) || hex(data) FROM t WHERE id=2"},
    {"fourth", "SELECT name || source FROM t WHERE id=4"},
    {"ids", "SELECT group_concat(id) FROM (SELECT id FROM t ORDER BY id)"},
    {"codes", "SELECT group_concat(code || source) FROM nokey"},
    {"theirs", "UPDATE t SET source='theirs' WHERE id=1"},
    {"immediate", "BEGIN IMMEDIATE"},
    {"exclusive", "BEGIN EXCLUSIVE"},
    {"unlock", "ROLLBACK"},
};

const std::pair<const char *, bool (TDbDocument::*)()> Commands[] = {
    {"next", &TDbDocument::Next},         {"last", &TDbDocument::Last},
    {"post", &TDbDocument::Post},         {"cancelrecord", &TDbDocument::Cancel},
    {"delete", &TDbDocument::Delete},     {"insert", &TDbDocument::InsertWithFields},
    {"fields", &TDbDocument::EditFields},
};

// A database "a" that the host opens, and a second connection to it, in more words: "db:data" opens
// a field of its table `t`, "db:b/u/f/k" of others; "at" tells the record, the one that the list
// shows and the text.
class TDbSession : public THostSession {
public:
    TDbSession();
    ~TDbSession();

private:
    TDbDocument &Db() const { return *qobject_cast<TDbDocument *>(Document()); }
    QString Ask(const QString &ASql);
    void Open(const QStringList &APlace);
    void AnswerFields(const QString &AName, bool AAccept);
    void AnswerConflict(int AChoice);
    QString At() const;
    QString Enabled() const;

    QSqlDatabase FTheirs = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"theirs"_s);
    QString FBefore;
};

TDbSession::TDbSession()
{
    FTheirs.setDatabaseName(Path(u"a"_s));
    EXPECT_TRUE(FTheirs.open());
    Ask(u"CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, language TEXT,"
        " source TEXT, data BLOB)"_s);
    Ask(u"INSERT INTO t VALUES (1, 'one', 'sql', 'a' || char(10) || 'b', x'610A62'),"
        " (2, 'two', 'VB', 'c' || char(13,10), x'FFFE6100'), (3, 'three', 'odd', NULL, NULL)"_s);
    Ask(u"CREATE TABLE nokey (code TEXT, source TEXT)"_s);
    Ask(u"INSERT INTO nokey VALUES ('x', 'same'), ('y', 'same')"_s);
    FBefore = Ask(QLatin1StringView(Contents));
    for (const auto &[word, sql] : Statements)
        Words[QLatin1StringView(word)] = [this, sql = QString::fromLatin1(sql)](const QString &) {
            if (const QString answer = Ask(sql); !answer.isNull())
                Say(ShownBytes(answer.toUtf8()));
        };
    for (const auto &[word, command] : Commands)
        Words[QLatin1StringView(word)] = [this, run = command](const QString &) {
            Say((Db().*run)());
        };
    Words[u"db"_s] = [this](const QString &place) { Open(place.split(u'/')); };
    Words[u"to"_s] = [this](const QString &record) { Db().MoveTo(record.toInt()); };
    Words[u"row"_s] = [this](const QString &row) {
        auto *list = Db().findChild<QListView *>();
        list->setCurrentIndex(list->model()->index(row.toInt(), list->modelColumn()));
        QApplication::processEvents();
    };
    Words[u"line"_s] = [this](const QString &line) { Editor()->SetLinePos(line.toInt()); };
    Words[u"accept"_s] = [this](const QString &name) { AnswerFields(name, true); };
    Words[u"refuse"_s] = [this](const QString &name) { AnswerFields(name, false); };
    Words[u"choose"_s] = [this](const QString &choice) { AnswerConflict(choice.toInt()); };
    Words[u"readonly"_s] = [this](const QString &on) {
        QStringList names = QSqlDatabase::connectionNames();
        names.removeAll(u"theirs"_s);
        QSqlQuery(QSqlDatabase::database(names.value(0))).exec(u"PRAGMA query_only="_s + on);
    };
    Words[u"caret"_s] = [this](const QString &) { Say(QString::number(Editor()->GetLinePos())); };
    Words[u"state"_s] = [this](const QString &) { Say(Db().StateText()); };
    Words[u"at"_s] = [this](const QString &) { Say(At()); };
    Words[u"enabled"_s] = [this](const QString &) { Say(Enabled()); };
    Words[u"same"_s] = [this](const QString &) {
        Say(Ask(QLatin1StringView(Contents)) == FBefore);
    };
    Words[u"sample"_s] = [this](const QString &name) { ZtMakeSample(Path(name)); };
}

TDbSession::~TDbSession()
{
    Window.reset();
    FTheirs = QSqlDatabase();
    QSqlDatabase::removeDatabase(u"theirs"_s);
}

QString TDbSession::Ask(const QString &ASql)
{
    QSqlQuery query(FTheirs);
    EXPECT_TRUE(query.exec(ASql)) << query.lastError().text().toStdString();
    return query.next() ? query.value(0).toString() : QString();
}

void TDbSession::Open(const QStringList &APlace)
{
    Window = std::make_unique<TMainWindow>();
    if (APlace.size() == 1)
        Window->OpenDatabase({Path(u"a"_s), u"t"_s, APlace[0], {}});
    else
        Window->OpenDatabase({Path(APlace[0]), APlace[1], APlace[2], APlace[3]});
}

void TDbSession::AnswerFields(const QString &AName, bool AAccept)
{
    QTimer::singleShot(0, &Db(), [this, AName, AAccept] {
        auto *dialog = Db().findChild<TDbFieldsDialog *>();
        ASSERT_TRUE(dialog);
        EXPECT_FALSE(dialog->findChild<QLineEdit *>(u"id"_s));
        auto *name = dialog->findChild<QLineEdit *>(u"name"_s);
        name->setText(AName);
        name->setModified(true);
        dialog->done(AAccept);
    });
}

// Tells the two texts and takes one.
void TDbSession::AnswerConflict(int AChoice)
{
    QTimer::singleShot(0, &Db(), [this, AChoice] {
        auto *dialog = Db().findChild<TConflictDialog *>();
        ASSERT_TRUE(dialog);
        for (const auto *view : dialog->findChildren<TZtCodeEdit *>())
            Say(view->GetText().replace(u"\r\n"_s, u"/"_s));
        dialog->done(AChoice);
    });
}

QString TDbSession::At() const
{
    const int row = Db().findChild<QListView *>()->currentIndex().row();
    return u"%1,%2,%3"_s.arg(Db().DataSet().GetRecNo()).arg(row).arg(Text());
}

QString TDbSession::Enabled() const
{
    QStringList names;
    for (const QAction *action : Db().Actions())
        if (action->isEnabled() && !action->isSeparator())
            names += action->text().remove(u'&');
    return names.join(u',');
}

} // namespace

TEST(HostDatabase, WhatIsMissingIsNamed)
{
    CheckSessions<TDbSession>({
        {"a file", "db:none/t/source/ names", "! a", "There is no database \"~/none\"."},
        {"a folder", "db:./t/source/", "!", "There is no database"},
        {"a table", "db:a/u/source/ tabs", "! ", "has no table \"u\"; it has: t, nokey."},
        {"a field", "db:a/t/sauce/", "!", "has no field \"sauce\"; it has: id, name,"},
        {"a key", "db:a/t/source/k", "!", "has no field \"k\""},
        {"a text", "write:b=text db:b/t/source/", "!", "is not a database"},
    });
}

TEST(HostDatabase, ARecordLosesNothing)
{
    for (const QString &field : {u"source"_s, u"data"_s}) {
        TDbSession session;
        session.Do(u"db:"_s + field);
        for (int record = 1; record <= 3; ++record) {
            const QString text = session.Do(u"to:%1 text"_s.arg(record));
            EXPECT_EQ(session.Do(u"tabs post type:x%0Ay tabs cancelrecord tabs text"_s),
                      u"[a: t.%1] + [a: t.%1*] + [a: t.%1] "_s.arg(field) + text);
        }
        EXPECT_EQ(session.Do(u"close same"_s), u"+ +"_s);
        session.Do(u"to:1 type:x"_s);
        for (const char *lock : {"immediate", "exclusive"}) {
            session.Asked.clear();
            EXPECT_EQ(session.Do(QLatin1StringView(lock) +
                                 u" post next unlock state tabs text canundo same"_s),
                      u"? - ? ? - Editing [a: t.%1*] xa/b/ + +"_s.arg(field));
            EXPECT_TRUE(session.Asked[0].contains(u"locked"_s)) << session.Asked[0].toStdString();
        }
        EXPECT_EQ(session.Do(u"post same"_s), u"+ -"_s);
    }
}

TEST(HostDatabase, RecordsAreEdited)
{
    CheckSessions<TDbSession>({
        {"posting writes the field alone",
         "others db:source type:x line:1 save caret one others db:data to:2 type:x post second",
         "one610A62sql + 1 xa%0D%0Ab%0D%0A one610A62sql + blobFFFE780061000D000A00"},
        {"a database that may only be read",
         "db:source readonly:1 type:x post tabs readonly:0 type:y post tabs text",
         "? - [a: t.source*] + [a: t.source] xya/b/", "readonly"},
        {"leaving, Cancel", "db:source type:x cancel row:1 at tabs close one",
         "? 1,0,xa/b/ [a: t.source*] ? - a%0Ab", "\"one\""},
        {"leaving, No", "db:source type:x no row:1 at tabs canundo close one",
         "? 2,1,c/ [a: t.source] - + a%0Ab"},
        {"leaving, Yes", "db:source type:x row:1 at canundo one row:0 type:y closetab one",
         "? 2,1,c/ - xa%0D%0Ab%0D%0A ? + yxa%0D%0Ab%0D%0A"},
        {"the lexer follows the record", "db:source language next language next language",
         "SQL + Visual Basic + Plain text"},
        {"inserting takes its fields from the dialog",
         "db:source refuse:lost insert state accept:one insert type:new post text state "
         "accept:four fields post fourth at",
         "- Browsing + ? - new/ Inserting + + fournew%0D%0A 4,3,new/"},
        {"deleting asks", "db:source no delete ids yes delete ids at delete delete enabled",
         "? - 1,2,3 ? + 2,3 1,0,c/ ? + ? + Insert…,Refresh"},
        {"a conflict, neither", "db:source type:x theirs choose:0 post one text tabs",
         "xa/b/ theirs/ - theirs xa/b/ [a: t.source*]"},
        {"a conflict, mine", "db:source type:x theirs choose:1 post one text tabs",
         "xa/b/ theirs/ + xa%0D%0Ab%0D%0A xa/b/ [a: t.source]"},
        {"a conflict, theirs", "db:source type:x theirs choose:2 post one text tabs",
         "xa/b/ theirs/ + theirs theirs/ [a: t.source]"},
        {"a named key tells records apart", "db:a/nokey/source/code last type:x post codes",
         "+ + xsame,yxsame%0D%0A"},
    });
}

TEST(HostDatabase, ASampleIsMadeWholeOrNotAtAll)
{
    CheckSessions<TDbSession>({
        {"a fault", "write:s.sql=CREATE%20TABLE%20a(b);NONSENSE; sample:s names", "! a,s.sql",
         "NONSENSE"},
        {"a link there", "write:s.sql=CREATE%20TABLE%20a(b); link:s=e sample:s names",
         "! a,s.sql,s@", "there already"},
        {"whole",
         "write:s.sql=--%20one;%20two%0ACREATE%20TABLE%20a(b,c,d%20PRIMARY%20KEY);/*%20;%20*/"
         "INSERT%20INTO%20a%20VALUES('x;''y','',1);%0A mode:s.sql=644 sample:s modeof:s names "
         "db:s/a/b/ text sample:s",
         "644 a,s,s.sql x;'y/ !", "there already"},
    });
}
