#include "scripts_table.h"

#include "rZtCodeEditorVCL290.h"
#include "uZtClassRegistry.h"
#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

using enum TDataSetState;

namespace {

class TDbCodeEditTest : public TScriptsTable {
protected:
    TDbCodeEditTest()
    {
        ZtPlatform().ShowException = [this](const QString &message) { Errors << message; };
        ZtPlatform().KeyboardShift = [] { return TShiftState(); };
        ZtPlatform().MsgBoxConfirm = [this](const QString &text, const QString &) {
            Asked << text;
            return Answer;
        };
        Fill();
        Edit.SetBounds(0, 0, 400, 220);
        Edit.OnLoadData = [this](QObject *) { ++Loads; };
    }
    ~TDbCodeEditTest() override { ZtPlatform() = ZtDefaultPlatform(); }

    void Bind(const QString &AField)
    {
        Edit.SetDataField(AField);
        Edit.SetDataSource(&Source);
        Do("close open");
    }
    void Press(int AKey, const QString &AText = {}, Qt::KeyboardModifiers AModifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, AKey, AModifiers, AText);
        QCoreApplication::sendEvent(&Edit, &event);
        QCoreApplication::sendPostedEvents(&Edit, TZtMessage::EventType());
    }
    void Type(const QString &AText)
    {
        for (const QChar c : AText)
            Press(c.toUpper().unicode(), c);
    }
    QString Place() const
    {
        QString place = QString("%1,%2").arg(Edit.GetCharPos()).arg(Edit.GetLinePos());
        for (const QPoint p : {Edit.GetSelStart(), Edit.GetSelEnd()})
            place += QString(" %1,%2").arg(p.x()).arg(p.y());
        return place;
    }
    static void Store(const QString &AColumn, const QString &ALiteral)
    {
        Run(QString("UPDATE scripts SET %1=%2 WHERE id=1").arg(AColumn, ALiteral));
    }

    TZtDbCodeEdit Edit;
    QStringList Errors, Asked;
    int Answer = mrYes;
    int Loads = 0;
};

} // namespace

TEST_F(TDbCodeEditTest, ShowsTheFieldOfTheRecord)
{
    for (const char *column : {"source", "data"}) {
        Bind(column);
        EXPECT_EQ(Edit.GetText(), "first\r\n") << column;
        Do("next");
        EXPECT_EQ(Edit.GetText(), "second\r\n") << column;
        Loads = 0;
        Do("next");
        EXPECT_EQ(Edit.GetText(), "") << column;
        EXPECT_EQ(Loads, 1);
        Edit.SetDataField("none");
        EXPECT_EQ(Edit.GetField(), nullptr);
        EXPECT_EQ(Loads, 1);
        Edit.SetDesigning(true);
        Edit.setObjectName("ScriptEdit");
        Edit.Loaded();
        EXPECT_EQ(Edit.GetText(), "ScriptEdit\r\n");
        Edit.SetDesigning(false);
    }
    Edit.CMGetDataLink()->SetDataSourceFixed(true);
    EXPECT_EQ(Raised([&] { Edit.SetDataSource(nullptr); }), "The data source is fixed.");
    Edit.BeginLoading();
    Edit.SetDataSource(nullptr);
    EXPECT_EQ(Edit.GetDataSource(), &Source);
}

TEST_F(TDbCodeEditTest, OnlySomeKeysEnterEditState)
{
    Bind("data");
    // key code / shift state (1 Shift, 2 Alt, 4 Ctrl)
    const struct {
        QString Keys;
        bool Edits, Down;
    } rows[] = {{"45/0 45/2 88/0 120/1 86/4 118/4", true, false},
                {"86/0 86/5 118/0 118/6 67/4 90/4 46/0", false, false},
                {"46/0 46/4", true, true},
                {"37/0 65/4 13/0", false, true}};
    for (const auto &row : rows) {
        for (const QString &press : row.Keys.split(' ')) {
            quint16 key = press.section('/', 0, 0).toUShort();
            const auto shift = TShiftState::fromInt(press.section('/', 1).toInt());
            row.Down ? Edit.KeyDown(key, shift) : Edit.KeyCommand(key, shift);
            EXPECT_EQ(DataSet.GetState(), row.Edits ? dsEdit : dsBrowse) << press.toStdString();
            QCoreApplication::removePostedEvents(&Edit);
            Do("cancel");
            EXPECT_EQ(Edit.GetText(), "first\r\n") << press.toStdString();
        }
    }
}

TEST_F(TDbCodeEditTest, TypingEntersEditStateAndKeepsTheText)
{
    for (const QString column : {"source", "data"}) {
        const bool blob = column == "data";
        const auto stored = [&](const char *s) { return blob ? BlobOf(s) : TextOf(s); };
        Bind(column);
        Loads = 0;
        Press(Qt::Key_End);
        Type("ab");
        EXPECT_EQ(DataSet.GetState(), dsEdit);
        EXPECT_EQ(Loads, 0);
        EXPECT_EQ(Edit.GetText(), "firstab\r\n");
        Do("cancel");
        EXPECT_EQ(Edit.GetText(), "first\r\n");
        EXPECT_EQ(Stored(column), stored("first"));

        Press(Qt::Key_Home);
        Press(Qt::Key_Delete, "\x7F");
        Type("W\rx");
        Do("post");
        EXPECT_EQ(Edit.GetText(), "W\r\nxirst\r\n");
        EXPECT_EQ(Stored(column), stored("W\r\nxirst\r\n"));
        EXPECT_EQ(Place(), blob ? "1,1 1,1 1,1" : "0,0 0,0 0,0"); // text is shown from its start
        Edit.SetLinePos(0);
        Edit.SetCharPos(0);
        Type("q");
        Do("next"); // posts
        EXPECT_EQ(Stored(column), stored("qW\r\nxirst\r\n"));
    }
    Run("DELETE FROM scripts");
    Do("refresh");
    Edit.SetCharPos(0);
    Type("new");
    EXPECT_EQ(DataSet.GetState(), dsInsert);
    Do("post");
    EXPECT_EQ(Stored("data", Field("id")->GetValue().toInt()), BlobOf("new\r\n"));
}

TEST_F(TDbCodeEditTest, WhatMustNotBeChangedSaysNothing)
{
    Bind("data");
    for (const bool readOnly : {false, true}) {
        Source.SetAutoEdit(readOnly);
        Field("data")->SetReadOnly(readOnly);
        Edit.CMGetDataLink()->Reset();
        EXPECT_EQ(Edit.GetReadOnly(), readOnly);
        Edit.SetCharPos(2);
        Edit.SetSelEnd({4, 0});
        EXPECT_EQ(Raised<EAbort>([&] { Edit.EnsureEditState(); }), "Can't go to editstate");
        EXPECT_EQ(Place(), "2,0 2,0 4,0");
        Type("xy\r");
        Press(Qt::Key_Delete, "\x7F");
        Press(Qt::Key_X, {}, Qt::ControlModifier);
        EXPECT_EQ(Raised<EAbort>([&] { Edit.InsertCode(0, 0, "z"); }).isEmpty(), readOnly);
        EXPECT_EQ(Edit.GetText(), "first\r\n");
        EXPECT_EQ(DataSet.GetState(), dsBrowse);
        EXPECT_EQ(Errors, QStringList());
    }
}

TEST_F(TDbCodeEditTest, ALoadedMemoKeepsTheCaret)
{
    Store("data", "CAST('line one' || char(10) || 'line two' AS BLOB)");
    Bind("data");
    Edit.SetLinePos(1);
    Edit.SetCharPos(6);
    Edit.SetSelEnd({1, 0});
    Edit.LoadMemo();
    EXPECT_EQ(Place(), "6,1 6,1 6,1");
    EXPECT_FALSE(Edit.GetSkipNextDataChange());
    // While editing, loading also keeps what comes next from loading.
    Do("edit");
    Field("data")->SetText("stored");
    EXPECT_EQ(Edit.GetText(), "stored\r\n");
    EXPECT_EQ(Edit.GetLinePos(), 0);
    EXPECT_TRUE(Edit.GetSkipNextDataChange());
    Edit.SetDataField("source"); // but not another field
    EXPECT_EQ(Edit.GetText(), "first\r\n");
}

TEST_F(TDbCodeEditTest, AnUnchangedRecordKeepsEveryByte)
{
    const QString literals =
        "NULL;'';x'';'no break';'a' || char(10) || 'b';'a' || char(13) || 'b' || char(13,10);"
        "' trailing  ' || char(10,10);'tab' || char(9) || char(0) || 'z';x'FFFE6100E9000A006200';"
        "x'EFBBBF61';x'E9E80D';x'00010203FF';42;1.5;'€ 😀'";
    for (const QString column : {"source", "data"}) {
        for (const QString &literal : literals.split(';')) {
            Store(column, literal);
            const QString before = Stored(column);
            Bind(column);
            Edit.CMEnter();
            Do("next prior edit post");
            Edit.CMExit();
            Type("some");
            Do("cancel edit size=7 post edit close");
            EXPECT_EQ(Stored(column), before) << literal.toStdString();
        }
    }
}

TEST_F(TDbCodeEditTest, BytesKeepTheirEncoding)
{
    const struct {
        QString Literal;
        const char *Typed;
        QString Stored;
    } rows[] = {
        {"NULL", "\xC3\xA9", BlobOf("\xC3\xA9\r\n")},
        {"x'C3A9'", "x", BlobOf("x\xC3\xA9\r\n")},
        {"x'EFBBBF61'", "x", BlobOf("\xEF\xBB\xBFxa\r\n")},
        {"x'FFFE6100E9000A006200'", "x", "blob FFFE78006100E9000D000A0062000D000A00"},
        {"x'E90A'", "x", BlobOf("x\xE9\r\n")},
        {"x'E90A'", "\xD0\x96", BlobOf("\xD0\x96\xC3\xA9\r\n")},
        {"'text'", "x", TextOf("xtext\r\n")},
    };
    for (const auto &row : rows) {
        Store("data", row.Literal);
        Bind("data");
        Edit.SetLinePos(0);
        Edit.SetCharPos(0);
        Type(QString::fromUtf8(row.Typed));
        Do("post");
        EXPECT_EQ(Stored("data"), row.Stored) << row.Literal.toStdString();
    }
}

TEST_F(TDbCodeEditTest, WhatAFieldCannotHoldIsAskedFor)
{
    const char *const half = "\xED\xA0\xBD"; // stands for half a pair
    const struct {
        QString Column, Literal, Typed, Question, Agreed;
    } rows[] = {
        {"source", "'abcd'", half, "(U+FFFD)",
         TextOf("\xEF\xBF\xBD"
                "abcd\r\n")},
        {"source", "CAST(x'61FF62' AS TEXT)", "x", "holds bytes",
         TextOf("xa\xEF\xBF\xBD"
                "b\r\n")},
        {"source", "'\xEF\xBF\xBD'", "x", {}, TextOf("x\xEF\xBF\xBD\r\n")},
        {"data", "x'E90A'", "\xD0\x96", "Save it as UTF-8", BlobOf("\xD0\x96\xC3\xA9\r\n")},
        {"data", "x'61'", half, "Save it as UTF-16", "blob FFFE3DD861000D000A00"},
        {"data", "x'FFFE610062'", "x", "holds bytes", "blob FFFE78006100FDFF0D000A00"},
    };
    for (const auto &row : rows)
        for (const int answer : {mrNo, mrYes}) {
            Store(row.Column, row.Literal);
            const QString before = Stored(row.Column);
            Bind(row.Column);
            Edit.CMEnter();
            Asked.clear();
            Answer = answer;
            Edit.SetLinePos(0);
            Edit.SetCharPos(0);
            const QString typed = row.Typed == half ? QString(QChar(0xD83D)) : row.Typed;
            Edit.InsertText(TZtChangeType::ctInsert, typed);
            const QString text = Edit.GetText();
            Edit.CMExit();
            EXPECT_EQ(Asked.size(), 0) << "a change of the focus does not ask";
            EXPECT_EQ(Edit.GetText(), text);
            const bool refused = answer == mrNo && !row.Question.isEmpty();
            EXPECT_EQ(Raised<EAbort>([&] { Do("post"); }).isEmpty(), !refused);
            EXPECT_EQ(Stored(row.Column), refused ? before : row.Agreed);
            ASSERT_EQ(Asked.size(), row.Question.isEmpty() ? 0 : 1) << row.Literal.toStdString();
            EXPECT_TRUE(Asked.value(0).contains(row.Question)) << Asked.value(0).toStdString();
            EXPECT_EQ(Edit.GetText() == text, refused || row.Column == "data" || row.Typed != half);
            Do("cancel");
        }
}

TEST_F(TDbCodeEditTest, LeavingStoresTheText)
{
    Bind("source");
    Edit.CMEnter();
    Type("a");
    Field("source")->OnValidate = [](TField *) { throw EDatabaseError("no"); };
    EXPECT_EQ(Raised([&] { Edit.CMExit(); }), "no");
    EXPECT_TRUE(Edit.GetFocused());
    EXPECT_EQ(Edit.GetText(), "afirst\r\n");
    Field("source")->OnValidate = nullptr;
    Edit.CMExit();
    EXPECT_FALSE(Edit.GetFocused());
    EXPECT_EQ(Field("source")->GetText(), "afirst\r\n");
    EXPECT_EQ(Edit.GetText(), "afirst\r\n");
    EXPECT_EQ(Stored("source"), TextOf("first"));

    Bind("data");
    Type("b");
    Field("data")->OnValidate = [](TField *field) {
        if (field->GetText().startsWith('b'))
            throw EDatabaseError("not b");
    };
    EXPECT_EQ(Fault("next"), "not b");
    EXPECT_EQ(DataSet.GetState(), dsEdit);
    EXPECT_EQ(Edit.GetText(), "bfirst\r\n");
    Loads = 0;
    Edit.CMEnter(); // bytes are not shown anew
    EXPECT_EQ(Loads, 0);
}

TEST_F(TDbCodeEditTest, ALockedDatabaseKeepsTheTextForAnotherPost)
{
    const auto failsTo = [this](const char *words, TDataSetState state, const char *text) {
        EXPECT_TRUE(Fault(words).contains("locked"));
        EXPECT_EQ(DataSet.GetState(), state);
        EXPECT_EQ(Edit.GetText(), text);
    };
    for (const QString column : {"source", "data"}) {
        for (const char *lock : {"BEGIN IMMEDIATE", "BEGIN EXCLUSIVE"}) {
            Store(column, "'first'");
            Bind(column);
            Type("N");
            Run(lock);
            failsTo("post", dsEdit, "Nfirst\r\n");
            failsTo("next", dsEdit, "Nfirst\r\n");
            Type("M");
            Run("ROLLBACK");
            Do("post");
            EXPECT_EQ(Stored(column), TextOf("NMfirst\r\n"));
            Do("append");
            Edit.SetCharPos(0);
            Type("K");
            Run(lock);
            failsTo("first", dsInsert, "K\r\n");
            Run("ROLLBACK");
            Do("post delete");
        }
    }
    EXPECT_EQ(Ask("SELECT count(*) FROM scripts"), "3");
}

TEST_F(TDbCodeEditTest, ADropEntersEditState)
{
    Bind("data");
    Edit.PositionScollBars();
    QMimeData data;
    data.setText("<drop>");
    const QPoint at(Edit.GetGuttorWidth() + 2 * Edit.GetCharWidth() + 1, Edit.GetLineWidth() / 2);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Edit, &enter);
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Edit, &event);
    EXPECT_EQ(DataSet.GetState(), dsEdit);
    EXPECT_EQ(Edit.GetText(), "fi<drop>rst\r\n");
    Do("cancel");
    // What cannot be stored is not taken: its source keeps it.
    const std::function<void()> obstacles[] = {[&] { Edit.SetReadOnly(true); },
                                               [&] { Source.SetAutoEdit(false); },
                                               [&] { DataSet.SetReadOnly(true); }};
    for (const auto &obstacle : obstacles) {
        QCoreApplication::sendEvent(&Edit, &enter);
        EXPECT_TRUE(enter.isAccepted());
        obstacle();
        QDragEnterEvent late(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        late.ignore();
        QDropEvent move(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Edit, &move);
        EXPECT_FALSE(move.isAccepted());
        EXPECT_EQ(move.dropAction(), Qt::IgnoreAction);
        EXPECT_EQ(Edit.GetText(), "first\r\n");
        QCoreApplication::sendEvent(&Edit, &late);
        EXPECT_FALSE(late.isAccepted());
        Edit.SetReadOnly(false);
        Source.SetAutoEdit(true);
        DataSet.SetReadOnly(false);
    }
    Edit.DragDrop(nullptr, 0, 0);
    EXPECT_EQ(DataSet.GetState(), dsEdit);
    EXPECT_EQ(Edit.GetText(), "first\r\n");
}

TEST_F(TDbCodeEditTest, PartsCanGoInAnyOrder)
{
    Bind("source");
    auto source = std::make_unique<TDataSource>();
    auto dataSet = std::make_unique<TDataSet>();
    dataSet->SetModel(Model.get());
    source->SetDataSet(dataSet.get());
    dataSet->Open();
    Edit.SetDataSource(source.get());
    EXPECT_EQ(Edit.GetText(), "first\r\n");
    Type("x");
    dataSet.reset();
    EXPECT_EQ(Edit.GetText(), "");
    EXPECT_EQ(source->GetDataSet(), nullptr);
    source.reset();
    EXPECT_EQ(Edit.GetDataSource(), nullptr);

    rZtCodeEditorVCL290Register();
    for (const char *name :
         {"TZtDbCodeEdit", "TZtCodeEdit", "TztCodePasParser", "TZtCodeVBParser", "TZtCodeJSParser",
          "TZtCodeXMLParser", "TZtCodeSqlParser", "TDataSource"})
        EXPECT_TRUE(std::unique_ptr<QObject>(ZtCreateObject(name, nullptr))) << name;
    const std::unique_ptr<QObject> other(ZtCreateObject("TZtDbCodeEdit", nullptr));
    auto *edit = qobject_cast<TZtDbCodeEdit *>(other.get());
    edit->SetDataField("name");
    edit->SetDataSource(&Source);
    EXPECT_EQ(edit->GetText(), "one\r\n"); // and goes first
}
