// What zcRecords changes, next to what happens without it. ZT_RANDOM_STEPS makes the random run
// longer; ZT_RANDOM_SEED is its seed.

#include "scripts_table.h"

#include <random>

using enum TZtCorrection;

namespace {

struct TRow {
    const char *Name;
    QString Column;
    QString Value; ///< as SQL
    QString Words;
    QString Without;
    QString With;
    TZtCorrections Others = {}; ///< that are on in both
};

class TRecordsTest : public TScriptsTable {
protected:
    TRecordsTest()
    {
        ZtPlatform().ClipboardText = [this] { return Clipboard; };
        ZtPlatform().SetClipboardText = [this](const QString &text) { Clipboard = text; };
        Words["undo"] = [this](auto) { Edit->Undo(); };
        Words["redo"] = [this](auto) { Edit->Redo(); };
        Words["erase"] = [this](auto) { Press(Qt::Key_Backspace, "\b"); };
        Words["mark"] = [this](auto range) { // columns of the first line
            Edit->SetSelStart({range.section(',', 0, 0).toInt(), 0});
            Edit->SetSelEnd({range.section(',', 1).toInt(), 0});
        };
        Words["clip"] = [this](auto text) { Clipboard = text; };
        Words["answer"] = [this](auto yes) { Answer = yes.toInt() ? mrYes : mrNo; };
        Words["undo-posts"] = [this](auto on) { Edit->SetUndoPosts(on.toInt()); };
        Words["log"] = [this](auto text) { Log += text; };
        Words["line"] = [this](auto text) { Edit->GetLines()->SetStrings(0, text); };
        Words["load-memo"] = [this](auto) { Edit->LoadMemo(); };
        Words["next-at-change"] = [this](auto) { // in the middle of what a key does
            Edit->SetOnChange([this](QObject *) {
                Edit->SetOnChange(nullptr);
                Do("next");
            });
        };
        Words["reset"] = [this](auto) { Edit->CMGetDataLink()->Reset(); };
    }
    void Start(TZtCorrections ACorrections, const QString &AColumn)
    {
        Destroy();
        Create();
        Edit->SetCorrections(ACorrections);
        Do("bind:" + AColumn);
        Log.clear();
        Asked.clear();
        Answer = mrNo;
        Clipboard.clear();
    }
    /// What was logged, the records, the text, the selection if any, M when modified, ? for each
    /// question, what is stored and what was raised.
    QString Outcome(const QString &AColumn, const QString &AFault) const
    {
        QString mark;
        const QPoint start = Edit->GetSelStart(), end = Edit->GetSelEnd();
        if (start != end)
            mark = QString("[%1,%2]").arg(start.x()).arg(end.x());
        return QStringList({Log, Records(), Shown() + mark,
                            (Edit->GetModified() ? "M" : "-") + QString(Asked.size(), u'?'),
                            Stored(AColumn).section(' ', 1), AFault})
            .join(" ")
            .simplified();
    }

    QString Clipboard;
};

const TRow Rows[] = {
    {"undo in another record", "source", "", "type:x next undo",
     "S2S1LLS2 1(2)3 econd/ M xfirst%0D%0A", "S2S1L 1[2]3 second/ - xfirst"},
    {"undo after a post, with the history", "source", "", "type:x post undo redo undo",
     "S2S1LS2 (1)23< first/ M xfirst%0D%0A", "S2S1S2 (1)23< first/ M xfirst",
     TZtCorrections(zcUndo)},
    {"undo after a post that forgets it", "source", "", "undo-posts:0 type:x post undo",
     "S2S1LS2 (1)23< first/ M xfirst%0D%0A", "S2S1 [1]23< xfirst/ - xfirst"},
    {"undo after a new record was posted", "source", "", "append type:x post undo",
     "S3LS1LS2 123(4) / M first", "S3LS1S2 123(4) / M first"},
    {"undo after a refresh with another text", "source", "",
     "type:x post {UPDATE scripts SET source='theirs'} refresh undo",
     "S2S1LLS2 (1)23 heirs/ M theirs", "S2S1L [1]23 theirs/ - theirs"},
    {"undo after a cancel", "source", "", "type:x cancel undo", "S2S1LS2 (1)23< irst/ M first",
     "S2S1L [1]23< first/ - first"},
    {"redo after a new record was cancelled", "source", "", "last append type:x undo cancel redo",
     "LS3LS1LS2 12(3) x/ M first", "LS3LS1L 12[3] - first", zcUndo},
    {"undo in another field", "source", "", "type:x post show:data undo",
     "S2S1LLS2 (1)23< irst/ M xfirst%0D%0A", "S2S1L [1]23< first/ - xfirst"},
    {"undo of a deletion", "data", "", "key:Del post undo post",
     "S2S1L [1]23< first/ M irst%0D%0A The dataset is not in edit or insert state.",
     "S2S1S2S1 [1]23< first/ - first"},
    {"undo where a handler shows another record", "source", "", "next-at-change type:x undo undo",
     "S2S1LLS2 1(2)3 second/ M first%0D%0A", "S2S1LS2 1(2)3 second/ M first"},
    {"the same with the history", "source", "", "next-at-change type:x undo undo",
     "S2S1LLS2 1(2)3 M first%0D%0A", "S2S1LS2 1(2)3 second/ M first", zcUndo},
    {"undo without AutoEdit", "data", "", "key:Del post auto-edit:0 undo",
     "S2S1L [1]23< first/ M irst%0D%0A", "S2S1 [1]23< irst/ - irst Can't go to editstate"},
    {"undo in a read-only editor", "data", "", "key:Del post protect-editor:1 undo",
     "S2S1L [1]23< first/ M irst%0D%0A", "S2S1 [1]23< irst/ - irst Can't go to editstate"},
    {"copying", "source", "", "mark:0,3 key:Ctrl+C key:Ctrl+Ins clip:",
     "S2 (1)23< first/[0,3] M first", "[1]23< first/[0,3] - first"},
    {"cutting", "source", "", "mark:0,3 key:Ctrl+X", "S2 (1)23< st/ M first",
     "S2 (1)23< st/ M first"},
    {"deleting at the text's end, erasing at its start", "source", "", "at:5 key:Del at:0 erase",
     "S2 (1)23< first/ M first", "[1]23< first/ - first"},
    {"pasting nothing", "source", "", "clip: mark:0,3 key:Shift+Ins", "S2 (1)23< st/ M first",
     "[1]23< first/[0,3] - first"},
    {"pasting", "source", "", "clip:pp mark:0,3 key:Ctrl+V", "S2 (1)23< ppst/ M first",
     "S2 (1)23< ppst/ M first"},
    {"a host's read-only flag", "source", "", "protect-editor:1 next first type:x",
     "LLS2 (1)23< xfirst/ M first", "LL [1]23< first/ - first"},
    {"a field's read-only flag", "data", "", "protect-data:1 reset show:source type:x",
     "LLS2 (1)23< xfirst/ M first", "LS2 (1)23< xfirst/ M first"},
    {"a final LF", "data", "x'610A'", "type:x post", "S2S1L [1]23< xa/ M xa%0D%0A",
     "S2S1 [1]23< xa/ - xa%0A"},
    {"mostly LF", "data", "x'610A620A630D0A64'", "type:x post",
     "S2S1L [1]23< xa/b/c/d/ M xa%0D%0Ab%0D%0Ac%0D%0Ad%0D%0A",
     "S2S1 [1]23< xa/b/c/d/ - xa%0Ab%0Ac%0Ad"},
    {"mixed, and led back", "data", "x'610A620D0A63'", "type:x erase post",
     "S2S1L [1]23< a/b/c/ M a%0D%0Ab%0D%0Ac%0D%0A", "S2S1 [1]23< a/b/c/ - a%0Ab%0D%0Ac"},
    {"UTF-16", "data", "x'FFFE61000A006200'", "type:x post",
     "S2S1L [1]23< xa/b/ M %FF%FEx%00a%00%0D%00%0A%00b%00%0D%00%0A%00",
     "S2S1 [1]23< xa/b/ - %FF%FEx%00a%00%0A%00b%00"},
    {"a break typed at the end, and taken back", "data", "'a'",
     "at:1 type:\r post log:| erase post", "S2S1L|S2S1L [1]23< a/ M a%0D%0A",
     "S2S1|S2S1 [1]23< a/ - a"},
    {"empty stays empty", "source", "''", "type:x erase post", "S2S1L [1]23< / M %0D%0A",
     "S2S1 [1]23< / -"},
    {"emptied", "data", "x'610A'", "key:Del post", "S2S1L [1]23< / M %0D%0A", "S2S1 [1]23< / -"},
    {"others store while nothing is typed", "source", "", "edit source=theirs post",
     "S2LS1L [1]23< theirs/ M theirs", "S2LS1 [1]23< theirs/ - theirs"},
    {"others store over what is typed", "source", "", "type:x source=theirs log:| post",
     "S2L|S1L [1]23< theirs/ M theirs", "S2| (1)23< xfirst/ M? first The text is not stored"},
    {"others store, unseen until then", "data", "", "edit load-memo data=theirs type:q post",
     "S2S1L [1]23< qfirst/ M qfirst%0D%0A", "S2LS1 [1]23< qtheirs/ - qtheirs"},
    {"others store over what is typed, which is to go in", "source", "",
     "type:x source=theirs answer:1 post", "S2LS1L [1]23< theirs/ M theirs",
     "S2S1 [1]23< xfirst/ -? xfirst"},
    {"others store over what is typed; leaving asks nothing", "source", "",
     "enter type:x source=theirs leave", "LS2LL (1)23< theirs/ M first",
     "S2 (1)23< xfirst/ M first"},
    {"a reset gives up", "source", "", "type:x reset post", "S2LS1L [1]23< first/ M first",
     "S2LS1 [1]23< first/ - first"},
    {"the focus comes and goes", "source", "", "at:2 mark:1,3 enter leave enter",
     "LLL [1]23< first/ M first", "[1]23< first/[1,3] - first"},
    {"the focus comes and goes over a host's lines", "source", "", "enter line:host leave",
     "LL [1]23< first/ M first", "L [1]23< first/ - first"},
    {"loading is no change, with the history", "source", "", "type:x undo",
     "S2 (1)23< first/ M first", "S2 (1)23< first/ - first", zcUndo | zcEvents},
    {"a host's lines before the editing", "source", "", "line:host type:x post",
     "S2S1L [1]23< xhost/ M xhost%0D%0A", "S2S1 [1]23< xhost/ - xhost"},
};

} // namespace

TEST_F(TRecordsTest, WithoutAndWith)
{
    for (const TRow &row : Rows)
        for (const bool with : {false, true}) {
            SCOPED_TRACE(row.Name);
            Fill();
            if (!row.Value.isEmpty())
                Run(QString("UPDATE scripts SET %1=%2 WHERE id=1").arg(row.Column, row.Value));
            Start(row.Others | (with ? TZtCorrections(zcRecords) : TZtCorrections()), row.Column);
            const QString fault = Fault(row.Words);
            EXPECT_EQ(Outcome(row.Column, fault), with ? row.With : row.Without) << with;
        }
}

// Whatever a user, a host and others do, in whatever order.
class TRecordsRun : public TRecordsTest {
protected:
    static inline const QStringList Steps =
        QString("type:ab type:\r type:é erase key:Del key:Ctrl+C key:Ctrl+Ins key:Ctrl+X "
                "key:Ctrl+V key:Shift+Del undo redo undo mark:0,2 at:0 at:9,9 post cancel next "
                "prior first refresh edit insert append delete enter leave answer:0 answer:1 "
                "source=their size=7 protect-it:1 protect-it:0 clip:two\r\nlines clip: "
                "auto-edit:0 auto-edit:1 show:data show:source undo-posts:0 protect-it:0 "
                "auto-edit:1 auto-edit:1 protect-it:0 data=their type:c type:d key:Del post "
                "leave undo-posts:1 key:Ctrl+Left key:Shift+End reset")
            .split(' ');

    TRecordsRun()
    {
        Words["protect-it"] = [this](auto on) { Edit->SetReadOnly(on.toInt()); };
    }
    // A text apart from how its lines end and how many end it.
    static QString Lines(QString AText)
    {
        AText.replace("\r\n", "\n").replace('\r', '\n');
        while (AText.endsWith('\n'))
            AText.chop(1);
        return AText;
    }
    static bool IsKey(const QString &AStep)
    {
        return AStep.contains("type") || AStep.contains("key") || AStep.contains("do") ||
               AStep == "erase";
    }
    // The records' values of the field, by their keys.
    std::map<int, QString> Table() const
    {
        QSqlQuery query("SELECT id, " + Edit->GetDataField() + " FROM scripts",
                        QSqlDatabase::database("theirs"));
        std::map<int, QString> table;
        while (query.next())
            table[query.value(0).toInt()] = query.value(1).toString();
        return table;
    }
    void Step(const QString &AStep);

    QString Base; ///< what was shown when the user had changed nothing
};

// What is stored is what the editor showed or what others put into the field.
void TRecordsRun::Step(const QString &AStep)
{
    const QString shown = Edit->GetLines()->GetText(), records = Records();
    const QString value = Edit->GetField()->GetText();
    const bool users = Edit->CMGetDataLink()->IsModified(), readOnly = Edit->GetReadOnly();
    if (!users)
        Base = shown;
    const bool changed = users && Lines(shown) != Lines(Base); // and not led back
    const auto before = Table();
    Asked.clear();
    Fault(AStep);
    if (AStep.startsWith("show"))
        return;
    for (const auto &[id, text] : Table()) {
        const auto old = before.find(id);
        const bool same = old != before.end() && old->second == text;
        const bool others = Lines(text) == Lines(value) && !changed;
        const bool agreed = !changed || Lines(value) == Lines(Base) ||
                            Lines(value) == Lines(shown) || !Asked.isEmpty();
        ASSERT_TRUE(same || others || (users && Lines(text) == Lines(shown) && agreed))
            << text.toStdString();
    }
    const bool browsing = Data->GetState() == TDataSetState::dsBrowse;
    const bool copies = AStep == "key:Ctrl+C" || AStep == "key:Ctrl+Ins";
    const bool kept = copies || (AStep == "post" && browsing) || (readOnly && IsKey(AStep));
    ASSERT_TRUE(!kept || Edit->GetLines()->GetText() == shown ||
                (!changed && Lines(value) != Lines(shown)));
    ASSERT_TRUE(!(copies || (readOnly && IsKey(AStep))) || Records() == records);
    ASSERT_TRUE(Lines(Edit->GetField()->GetText()) == Lines(Edit->GetLines()->GetText()) ||
                (!browsing && Edit->CMGetDataLink()->IsModified()));
    if (!browsing)
        return;
    ASSERT_TRUE(Edit->GetLines()->GetText() == shown ||
                !(Edit->GetCanUndo() || Edit->GetModified()));
}

TEST_F(TRecordsRun, LosesNothing)
{
    const int steps = qMax(qEnvironmentVariableIntValue("ZT_RANDOM_STEPS"), 1'500);
    std::mt19937 random(unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED")));
    Start(ZtAllCorrections(), "source");
    QStringList last;
    for (int i = 0; i < steps && !HasFatalFailure(); ++i) {
        if (Data->IsEmpty()) {
            Fill();
            Fault("cancel refresh");
        }
        const QString step = Steps[int(random() % unsigned(Steps.size()))];
        last = last.mid(qMax(0, int(last.size()) - 12)) << step;
        SCOPED_TRACE(last.join(' ').toStdString());
        Step(step);
    }
}
