#include "ConflictDialog.h"
#include "DbDocument.h"
#include "DbFieldsDialog.h"
#include "session.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"

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
    void AnswerFields(const QString &AName);
    void AnswerConflict(int AChoice);
    void ChooseRow(int ARow);

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
        Words[QLatin1StringView(word)] = [this, sql = QString::fromLatin1(sql)](auto &) {
            if (const QString answer = Ask(sql); !answer.isNull())
                Say(ShownBytes(answer.toUtf8()));
        };
    for (const auto &[word, command] : Commands)
        Words[QLatin1StringView(word)] = [this, run = command](auto &) { Say((Db().*run)()); };
    Words[u"db"_s] = [this](auto &place) { Open(place.split(u'/')); };
    Words[u"to"_s] = [this](auto &record) { Db().MoveTo(record.toInt()); };
    Words[u"row"_s] = [this](auto &row) { ChooseRow(row.toInt()); };
    Words[u"line"_s] = [this](auto &line) { Editor()->SetLinePos(line.toInt()); };
    Words[u"name"_s] = [this](auto &name) { AnswerFields(name); };
    Words[u"choose"_s] = [this](auto &choice) { AnswerConflict(choice.toInt()); };
    Words[u"at"_s] = [this](auto &) {
        const int row = Db().findChild<QListView *>()->currentIndex().row();
        Say(u"%1,%2,%3"_s.arg(Db().DataSet().GetRecNo()).arg(row).arg(Text()));
    };
    Words[u"same"_s] = [this](auto &) { Say(Ask(QLatin1StringView(Contents)) == FBefore); };
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
    Window->OpenDatabase(APlace.size() == 1
                             ? TDbPlace{Path(u"a"_s), u"t"_s, APlace[0], {}}
                             : TDbPlace{Path(APlace[0]), APlace[1], APlace[2], APlace[3]});
}

// An empty name cancels.
void TDbSession::AnswerFields(const QString &AName)
{
    QTimer::singleShot(0, &Db(), [this, AName] {
        auto *dialog = Db().findChild<TDbFieldsDialog *>();
        ASSERT_TRUE(dialog);
        auto *name = dialog->findChild<QLineEdit *>(u"name"_s);
        name->setText(AName);
        name->setModified(true);
        dialog->done(!AName.isEmpty());
    });
}

// Tells the two texts and takes one.
void TDbSession::AnswerConflict(int AChoice)
{
    QTimer::singleShot(0, &Db(), [this, AChoice] {
        auto *dialog = Db().findChild<TConflictDialog *>();
        ASSERT_TRUE(dialog);
        for (const auto *view : dialog->findChildren<TZtCodeEdit *>())
            Say(view->GetLines()->GetText().replace(u"\r\n"_s, u"/"_s));
        dialog->done(AChoice);
    });
}

void TDbSession::ChooseRow(int ARow)
{
    auto *list = Db().findChild<QListView *>();
    list->setCurrentIndex(list->model()->index(ARow, list->modelColumn()));
    QApplication::processEvents();
}

} // namespace

TEST(HostDatabase, WhatIsMissingIsNamed)
{
    CheckSessions<TDbSession>({
        {"db:none/t/source/ names", "! a", "There is no database \"~/none\"."},
        {"db:a/u/source/ tabs", "! ", "has no table \"u\"; it has: t, nokey."},
        {"write:b=text db:b/t/source/", "!", "is not a database"},
    });
}

TEST(HostDatabase, ARecordLosesNothing)
{
    for (const QString &field : {u"db:source "_s, u"db:data "_s})
        CheckSessions<TDbSession>(
            {
                {"text type:x%0Ay cancelrecord text close same", "a/b/ + a/b/ + +"},
                {"to:2 post type:x cancelrecord post close same", "+ + + + +"},
                {"to:3 text post type:x cancelrecord text close same", " + +  + +"},
                {"type:x immediate post next unlock text canundo same post same",
                 "? - ? ? - xa/b/ + + + -", "locked"},
                {"type:x exclusive post next unlock text canundo same post same",
                 "? - ? ? - xa/b/ + + + -", "locked"},
            },
            field);
}

TEST(HostDatabase, RecordsAreEdited)
{
    CheckSessions<TDbSession>({
        // Posting writes the field alone.
        {"others db:source type:x line:1 save caret one others db:data to:2 type:x post second",
         "one610A62sql + 1 xa%0Ab one610A62sql + blobFFFE78006100"},
        {"db:source type:x cancel row:1 at tabs close one", "? 1,0,xa/b/ [a: t.source*] ? - a%0Ab",
         "\"one\""},
        {"db:source type:x no row:1 at tabs canundo close one", "? 2,1,c/ [a: t.source] - + a%0Ab"},
        {"db:source type:x row:1 at canundo one row:0 type:y closetab one",
         "? 2,1,c/ - xa%0Ab ? + yxa%0Ab"},
        {"db:source language next language next language", "SQL + Visual Basic + Plain text"},
        // A new record takes its fields from the dialog.
        {"db:source name: insert name:one insert type:new post text name:four fields "
         "post fourth at",
         "- + ? - new/ + + fournew 4,3,new/"},
        {"db:source no delete ids yes delete ids at delete delete at",
         "? - 1,2,3 ? + 2,3 1,0,c/ ? + ? + 0,-1,"},
        // A conflict: neither, mine, theirs.
        {"db:source type:x theirs choose:0 post one text tabs",
         "xa/b/ theirs/ - theirs xa/b/ [a: t.source*]"},
        {"db:source type:x theirs choose:1 post one text tabs",
         "xa/b/ theirs/ + xa%0Ab xa/b/ [a: t.source]"},
        {"db:source type:x theirs choose:2 post one text tabs",
         "xa/b/ theirs/ + theirs theirs/ [a: t.source]"},
        {"db:a/nokey/source/code last type:x post codes", "+ + xsame,yxsame"},
    });
}
