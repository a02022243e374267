#include "scripts_table.h"

#include "rZtCodeEditorVCL290.h"
#include "uZtClassRegistry.h"

#include <QAccessible>
#include <QDropEvent>
#include <QMimeData>

namespace {

class TDbCodeEditTest : public TScriptsTable {
protected:
    TDbCodeEditTest()
    {
        Words["reset"] = [this](auto) { Edit->CMGetDataLink()->Reset(); };
        Words["select"] = [this](auto end) { Edit->SetSelEnd({end.toInt(), 0}); };
        Words["load-memo"] = [this](auto) { Edit->LoadMemo(); };
        Words["ensure"] = [this](auto) { Edit->EnsureEditState(); };
        Words["assist"] = [this](auto text) {
            QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(Edit);
            seen->editableTextInterface()->insertText(0, text);
        };
        Words["code"] = [this](auto code) { Edit->InsertCode(0, 0, code); };
    }
    // A star while the editor has the focus, its text, the caret and the selection.
    QString State() const
    {
        QString state = (Edit->GetFocused() ? "*" : "") + Shown();
        const QPoint caret(Edit->GetCharPos(), Edit->GetLinePos());
        for (const QPoint p : {caret, Edit->GetSelStart(), Edit->GetSelEnd()})
            state += QString(" %1,%2").arg(p.x()).arg(p.y());
        return state;
    }
};

} // namespace

TEST_F(TDbCodeEditTest, ShowsAndStoresTheFieldOfTheRecord)
{
    const QString locked = " database is locked Unable to fetch row";
    for (const QString column : {"source", "data"}) {
        Fill();
        Do("bind:" + column);
        const TSteps steps = {
            {"next", "L second/ first"},
            {"next", "L  first"},
            {"first show:none", "L  first"},
            {"show:" + column + " key:End type:ab", "LS2 firstab/ first"},
            {"cancel", "S1L first/ first"},
            {"key:Home key:Del type:W\rx post", "S2S1L W/xirst/ W%0D%0Axirst%0D%0A"},
            {"at:0 type:q next", "S2S1LL second/ qW%0D%0Axirst%0D%0A"},
            {"{UPDATE scripts SET source='first', data='first'} refresh first at:0",
             "LL first/ first"},
            // A text that could not be written is there for another post.
            {"type:N {BEGIN IMMEDIATE} post", "S2 Nfirst/ first" + locked},
            {"next", "Nfirst/ first" + locked},
            {"type:M {ROLLBACK} post", "S1L NMfirst/ NMfirst%0D%0A"},
            {"append at:0 type:K {BEGIN EXCLUSIVE} first", "S3L K/ NMfirst%0D%0A" + locked},
            {"{ROLLBACK} post delete", "S1LL first/ NMfirst%0D%0A"},
            {"{DELETE FROM scripts} refresh at:0 type:new post", "LS3LS1L new/ new%0D%0A"},
            {"type:x delete-set delete-source", "S2S0  new%0D%0A"},
        };
        Follow(steps, [&] { return Shown() + " " + Stored(column).section(' ', 1); });
        EXPECT_EQ(Edit->GetDataSource(), nullptr);
        Destroy();
        Create();
    }
}

TEST_F(TDbCodeEditTest, OnlySomeKeysEnterEditState)
{
    Do("bind:data");
    // A key's code and the shift state: 1 is Shift, 2 is Alt, 4 is Ctrl.
    const std::tuple<QString, bool, bool> rows[] = {
        {"45/0 45/2 88/0 120/1 86/4 118/4", false, true},
        {"86/0 86/5 118/0 118/6 67/4 90/4 46/0", false, false},
        {"46/0 46/4", true, true},
        {"37/0 65/4 13/0", true, false},
    };
    for (const auto &[keys, down, edits] : rows)
        for (const QString &press : keys.split(' ')) {
            quint16 key = press.section('/', 0, 0).toUShort();
            const auto shift = TShiftState::fromInt(press.section('/', 1).toInt());
            down ? Edit->KeyDown(key, shift) : Edit->KeyCommand(key, shift);
            QCoreApplication::removePostedEvents(Edit);
            EXPECT_EQ(Records(), edits ? "(1)23<" : "[1]23<") << press.toStdString();
            Do("cancel");
            EXPECT_EQ(Shown(), "first/") << press.toStdString();
        }
}

TEST_F(TDbCodeEditTest, AnAssistiveToolEntersEditStateOrIsRefused)
{
    const TSteps steps = {
        {"bind:data assist:z", "S1LS2 zfirst/ (1)23<"},
        {"cancel auto-edit:0 assist:z", "S1L first/ [1]23<"},
        {"auto-edit:1 protect-editor:1 assist:z", "first/ [1]23<"},
    };
    Follow(steps, [this] { return Shown() + " " + Records(); });
}

TEST_F(TDbCodeEditTest, KeepsTextAndPlace)
{
    const QString refused = " Can't go to editstate";
    const TSteps steps = {
        {"bind:source enter type:a invalid:source=a leave", "S1LLS2 *afirst/ 1,0 1,0 1,0 not a"},
        {"invalid:source= leave", "L afirst/ 0,0 0,0 0,0"},
        {"bind:data type:b invalid:data=b next", "LS0S1LS2 bfirst/ 1,0 1,0 1,0 not b"},
        // Bytes are not shown anew when the focus comes, only when others store.
        {"enter invalid:data= data=line\nline", "L *line/line/ 1,0 1,0 1,0"},
        {"at:3,1 select:1 load-memo", "*line/line/ 3,1 3,1 3,1"},
        // While editing, loading also keeps what comes next from loading, but not another field.
        {"cancel edit data=stored", "S1S2L *stored/ 3,0 3,0 3,0"},
        {"show:source", "L *first/ 0,0 0,0 0,0"},
        {"cancel bind:data auto-edit:0 at:2 select:4 ensure",
         "S1LLS0S1L *first/ 2,0 2,0 4,0" + refused},
        {"type:xy\r key:Del key:Ctrl+X", "*first/ 2,0 2,0 4,0"},
        {"code:z", "*first/ 0,0 0,0 0,0" + refused},
        {"auto-edit:1 protect-data:1 reset at:2 select:4 ensure",
         "L *first/ 2,0 2,0 4,0" + refused},
        {"type:xy\r key:Del key:Ctrl+X code:z", "*first/ 0,0 0,0 0,0"},
        {"delete-source", "* 0,0 0,0 0,0"},
    };
    Follow(steps, [this] { return State(); });
}

// Bytes keep their encoding; what the field cannot hold is asked for when the record is posted.
TEST_F(TDbCodeEditTest, WhatIsTypedIsEncoded)
{
    const QString half = QChar(0xD83D); // of a pair
    const std::tuple<QString, QString, QString, QString, QString> rows[] = {
        {"data", "NULL", "é", {}, "blob %C3%A9%0D%0A"},
        {"data", "x'EFBBBF61'", "x", {}, "blob %EF%BB%BFxa%0D%0A"},
        {"data", "x'FFFE6100E9'", "x", "holds bytes", "blob %FF%FEx%00a%00%FD%FF%0D%00%0A%00"},
        {"data", "x'FFFE6100E900'", "x", {}, "blob %FF%FEx%00a%00%E9%00%0D%00%0A%00"},
        {"data", "x'E90A'", "x", {}, "blob x%E9%0D%0A"},
        {"data", "x'E90A'", "Ж", "Save it as UTF-8", "blob %D0%96%C3%A9%0D%0A"},
        {"data", "x'61'", half, "Save it as UTF-16", "blob %FF%FE%3D%D8a%00%0D%00%0A%00"},
        {"data", "'té'", "x", {}, "text xt%C3%A9%0D%0A"},
        {"source", "x'61626364'", half, "(U+FFFD)", "text %EF%BF%BDabcd%0D%0A"},
        {"source", "CAST(x'61FF' AS TEXT)", "x", "holds bytes", "text xa%EF%BF%BD%0D%0A"},
        {"source", "'\xEF\xBF\xBD'", "x", {}, "text x%EF%BF%BD%0D%0A"},
    };
    for (const auto &[column, literal, typed, question, stored] : rows)
        for (const int answer : {mrNo, mrYes}) {
            SCOPED_TRACE(literal.toStdString());
            Run(QString("UPDATE scripts SET %1=%2 WHERE id=1").arg(column, literal));
            const QString before = Stored(column);
            Asked.clear();
            Answer = answer;
            Do("bind:" + column + " enter at:0");
            DoOne("put:" + typed);
            const QString text = Shown();
            Do("leave");
            EXPECT_EQ(Asked, QStringList()) << "a change of the focus does not ask";
            EXPECT_EQ(Shown(), text);
            const bool refused = answer == mrNo && !question.isEmpty();
            EXPECT_EQ(Fault("post"), refused ? "The text is not stored" : "");
            EXPECT_EQ(Stored(column), refused ? before : stored);
            EXPECT_EQ(Field(column)->GetText().replace("\r\n", "/") == Shown(), !refused);
            EXPECT_EQ(Asked.size(), question.isEmpty() ? 0 : 1);
            EXPECT_TRUE(Asked.join("").contains(question)) << Asked.join("").toStdString();
            EXPECT_EQ(Shown() == text, refused || column == "data" || typed != half);
        }
}

TEST_F(TDbCodeEditTest, ADropEntersEditState)
{
    Do("bind:data");
    Edit->PositionScollBars();
    QMimeData data;
    data.setText("<drop>");
    const QPoint at(Edit->GetGuttorWidth() + 2 * Edit->GetCharWidth() + 1,
                    Edit->GetLineWidth() / 2);
    // What is not taken stays with its source. It may be forbidden between the entry and the drop.
    for (const TZtExtras extras : {TZtExtras(), TZtExtras(TZtExtra::zeDragText)}) {
        Edit->SetExtras(extras);
        Edit->SetCharPos(0); // back in sight
        for (const QString obstacle :
             {"protect-editor:1", "auto-edit:0", "protect:1", "auto-edit:1"}) {
            const bool taken = obstacle == "auto-edit:1"; // it is no obstacle
            QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QDropEvent drop(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(Edit, &enter);
            enter.ignore();
            Do(obstacle);
            QCoreApplication::sendEvent(Edit, &drop);
            QCoreApplication::sendEvent(Edit, &enter);
            EXPECT_EQ(drop.isAccepted(), taken) << obstacle.toStdString();
            EXPECT_EQ(enter.isAccepted(), taken) << obstacle.toStdString();
            EXPECT_EQ(drop.dropAction(), taken ? Qt::MoveAction : Qt::IgnoreAction);
            EXPECT_EQ(Records() + Shown(), taken ? "(1)23<fi<drop>rst/" : "[1]23<first/");
            Do("cancel protect-editor:0 auto-edit:1 protect:0");
        }
    }
    Edit->DragDrop(nullptr, 0, 0);
    EXPECT_EQ(Records() + Shown(), "(1)23<first/");
}

TEST_F(TDbCodeEditTest, IsAComponent)
{
    Edit->SetOnChange([this](QObject *) { Log += "C"; });
    Follow({{"bind:source type:a cancel", "S1LS2CCS1L first/"}}, [this] { return Shown(); });
    Edit->CMGetDataLink()->SetDataSourceFixed(true);
    EXPECT_EQ(Fault("detach"), "The data source is fixed.");
    Edit->BeginLoading();
    EXPECT_EQ(Fault("detach"), "");
    EXPECT_EQ(Edit->GetDataSource(), Source);
    Do("close");
    Edit->SetDesigning(true);
    Edit->setObjectName("ScriptEdit");
    Edit->Loaded();
    EXPECT_EQ(Shown(), "ScriptEdit/");
    rZtCodeEditorVCL290Register();
    for (const char *name :
         {"TZtDbCodeEdit", "TZtCodeEdit", "TztCodePasParser", "TZtCodeVBParser", "TZtCodeJSParser",
          "TZtCodeXMLParser", "TZtCodeSqlParser", "TDataSource"})
        EXPECT_TRUE(std::unique_ptr<QObject>(ZtCreateObject(name, nullptr))) << name;
}
