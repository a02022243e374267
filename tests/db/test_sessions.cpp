// Random sessions of work on a table through the editor, beside a plain model of the table.
//
// ZT_DB_SESSIONS (and ZT_RANDOM_SEED) make the run longer.

#include "scripts_table.h"

#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <array>
#include <optional>
#include <random>

using enum TDataSetState;

namespace {

const QString Pieces = "|word|a\r\nb|\n\n x|  indented\r\n|\u0416 \u20AC|\t";
const QString Literals = "NULL|''|'plain'|char(97,10,98)|x''|x'6C66C3A90A'|x'E9E8'|"
                         "x'FFFE6100E9000A00'|char(97,13)";

class TSessions : public TScriptsTable {
protected:
    TSessions()
    {
        ZtPlatform().ClipboardText = [this] { return Clipboard; };
        ZtPlatform().SetClipboardText = [this](const QString &s) { Clipboard = s; };
        ZtPlatform().KeyboardShift = [this] {
            return Shift ? TShiftState(ssShift) : TShiftState();
        };
        ZtPlatform().ShowException = [](const QString &message) {
            ADD_FAILURE() << message.toStdString();
        };
        ZtPlatform().MsgBoxConfirm = [](const QString &, const QString &) { return mrYes; };
        Edit.SetBounds(0, 0, 400, 220);
    }
    ~TSessions() override { ZtPlatform() = ZtDefaultPlatform(); }

    // What the columns of each record hold, as `Stored` tells it, by the record's key.
    using TRow = std::map<QString, QString>;
    std::map<int, TRow> Table;
    // The pending record, and what the user has made of its text.
    bool Pending = false, Inserting = false, StoredInto = false;
    std::optional<QString> Text;
    QString Written; // into the field, when the editor was left

    TZtDbCodeEdit Edit;
    QString Clipboard, Column;
    bool Shift = false, Touched = false;
    std::mt19937 Random;
    QStringList Done;

    int Pick(int ACount) { return int(Random() % unsigned(ACount)); }
    QString Any(const QString &AList)
    {
        const QStringList list = AList.split('|');
        return list[Pick(int(list.size()))];
    }

    void Begin(bool AInsert)
    {
        Pending = true;
        Inserting = AInsert;
        StoredInto = false;
        Text.reset();
        Written.clear();
    }
    void Key(int AKey, const QString &AText = {}, bool ACtrl = false);
    TRow Expected(int AId);
    void Operate(const QString &AWord, bool APosts);
    void Check();
    void Act();
    void OthersWrite();
};

// A key, and what becomes of the record by it.
void TSessions::Key(int AKey, const QString &AText, bool ACtrl)
{
    Touched = false;
    QKeyEvent event(QEvent::KeyPress, AKey,
                    (ACtrl ? Qt::ControlModifier : Qt::NoModifier) |
                        (Shift ? Qt::ShiftModifier : Qt::NoModifier),
                    AText);
    QCoreApplication::sendEvent(&Edit, &event);
    QCoreApplication::sendPostedEvents(&Edit, TZtMessage::EventType());
    Done << QString("key %1%2").arg(AKey, 0, 16).arg(Shift ? "+" : "");
    const bool enters = AKey == Qt::Key_Delete || AKey == Qt::Key_Insert || AKey == Qt::Key_X ||
                        (AKey == Qt::Key_V && ACtrl && !Shift);
    if (!Pending && (enters || Touched))
        Begin(Table.empty());
    if (Touched)
        Text = Edit.GetText(); // what the user sees is what the record will hold
}

// The record as it is once it is posted.
TSessions::TRow TSessions::Expected(int AId)
{
    TRow row = Inserting ? TRow{{"source", "null "}, {"data", "null "}} : Table[AId];
    if (!Text)
        return row;
    const QString old = Written.isEmpty() ? row[Column] : Written;
    const QByteArray oldBytes = QByteArray::fromHex(old.section(' ', 1).toLatin1());
    const bool isText = Column == "source" || old.startsWith("text");
    QByteArray bytes = Text->toUtf8();
    if (!isText && oldBytes.startsWith("\xFF\xFE"))
        bytes = QByteArray(Text->isEmpty() ? "" : "\xFF\xFE") +
                QByteArray(reinterpret_cast<const char *>(Text->utf16()), Text->size() * 2);
    else if (!isText && !oldBytes.isValidUtf8() && !Text->contains(QChar(0x416)))
        bytes = QString(*Text).replace(QChar(0x20AC), QChar(0x80)).toLatin1();
    row[Column] = (isText ? "text " : "blob ") + bytes.toHex().toUpper();
    return row;
}

// An operation of the dataset, which ends the pending record.
void TSessions::Operate(const QString &AWord, bool APosts)
{
    Done << AWord;
    const int id = DataSet.IsEmpty() ? 0 : Field("id")->GetValue().toInt();
    Do(AWord);
    if (Pending && APosts)
        Table[Inserting ? Ask("SELECT max(id) FROM scripts").toInt() : id] = Expected(id);
    Pending = false;
}

void TSessions::Check()
{
    std::map<int, TRow> found;
    QSqlQuery query("SELECT id, typeof(source) || ' ' || hex(source), typeof(data) || ' ' || "
                    "hex(data) FROM scripts",
                    QSqlDatabase::database("theirs"));
    while (query.next())
        found[query.value(0).toInt()] = {{"source", query.value(1).toString()},
                                         {"data", query.value(2).toString()}};
    ASSERT_EQ(found, Table);
    ASSERT_EQ(DataSet.GetState(), !Pending ? dsBrowse : Inserting ? dsInsert : dsEdit);
    TStringList lines;
    lines.SetText(Field(Column)->GetText());
    ASSERT_EQ(Edit.GetText(), Pending && Text ? *Text : lines.GetText());
}

void TSessions::Act()
{
    static const std::map<QString, int> keys = {{"\r", Qt::Key_Return},
                                                {"\b", Qt::Key_Backspace},
                                                {"\t", Qt::Key_Tab},
                                                {"\x7F", Qt::Key_Delete}};
    static const QString checking = "next|prior|first|last|insert|append|refresh";
    const int action = Pick(20);
    Shift = action < 8 && Pick(5) == 0;
    if (action < 5) {
        const QString text = Any("a|x|v|\u00E9|\u0416| |\r|\b|\b|\t|\x7F");
        Key(keys.count(text) ? keys.at(text) : text[0].toUpper().unicode(), text);
    } else if (action < 7) {
        Shift = Pick(2) == 0;
        Key(Qt::Key_Home + Pick(6)); // Home, End and the arrows
    } else if (action < 9) {
        Clipboard = Any(Pieces);
        const int key =
            std::array{Qt::Key_X, Qt::Key_A, Qt::Key_V, Qt::Key_C, Qt::Key_Insert}[size_t(Pick(5))];
        if (Edit.GetLines()->GetCount() > 0) // a copy below the text appends a line
            Key(key, {}, true);
    } else if (action < 14) {
        const QString word = Any(checking);
        Operate(word, Pending && (StoredInto || Text));
        if (word == "insert" || word == "append")
            Begin(true);
    } else if (action < 16) {
        if (Pending)
            Operate("post", true);
    } else if (action == 16) {
        Operate("cancel", false);
    } else if (action == 17 && Table.size() > 2 && !(Pending && Inserting)) {
        Table.erase(Field("id")->GetValue().toInt());
        Operate("delete", false);
    } else if (action == 18 && Pending) {
        Field("size")->SetText("5");
        StoredInto = true;
    } else if (Pending) {
        Edit.CMExit();
        Edit.CMEnter();
        if (!Edit.CMGetDataLink()->IsModified()) // what had to be asked is left for the post
            Written = Expected(Inserting ? 0 : Field("id")->GetValue().toInt())[Column];
    } else {
        Column = Pick(2) ? "source" : "data";
        Edit.SetDataField(Column);
    }
}

// Another program changes the table while it is closed here.
void TSessions::OthersWrite()
{
    const int id = Pick(6) + 1;
    Run(QString("REPLACE INTO scripts (id, source, data) VALUES (%1, %2, %3)")
            .arg(id)
            .arg(Any(Literals), Any(Literals)));
    Table[id] = {{"source", Stored("source", id)}, {"data", Stored("data", id)}};
    if (Pick(20) == 0) {
        Run("DELETE FROM scripts");
        Table.clear();
    }
}

} // namespace

TEST_F(TSessions, TheTableIsWhatTheUserSawWhenPosting)
{
    const int sessions = qEnvironmentVariableIsSet("ZT_DB_SESSIONS")
                             ? qEnvironmentVariableIntValue("ZT_DB_SESSIONS")
                             : 1500;
    const int seed = qEnvironmentVariableIntValue("ZT_RANDOM_SEED");
    Edit.SetOnChange([this](QObject *) { Touched = true; });
    Edit.CMEnter();
    for (int i = 0; i < sessions; ++i) {
        Random.seed(unsigned(seed * 1000003 + i));
        OthersWrite();
        Column = Pick(2) ? "source" : "data";
        Edit.SetDataField(Column);
        Edit.SetDataSource(&Source);
        DataSet.Open();
        Done.clear();
        for (int step = Pick(25); step >= 0 && !HasFatalFailure(); --step) {
            Act();
            Check();
        }
        ASSERT_FALSE(HasFailure()) << "session " << i << ": " << Done.join(", ").toStdString();
        DataSet.Close(); // gives up what is pending
        Pending = false;
        if (Pick(2))
            Edit.SetDataSource(nullptr);
        ASSERT_EQ(Edit.GetText(), QString());
    }
}
