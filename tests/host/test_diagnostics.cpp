#include "CompilerOutput.h"
#include "Document.h"
#include "StatusTexts.h"
#include "session.h"

#include "uZtCodeEdit.h"
#include "uZtTextMarks.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <qtestsupport_core.h>

using namespace Qt::StringLiterals;

namespace {

QString Shown(const TZtDiagnostic &ADiagnostic)
{
    const bool all = ADiagnostic.To.x() > ADiagnostic.From.x();
    return u"%1:%2%3 %4 %5"_s.arg(ADiagnostic.From.y())
        .arg(ADiagnostic.From.x())
        .arg(all ? u"-"_s : QString(), u"EWI"_s.at(int(ADiagnostic.Severity)), ADiagnostic.Message);
}

// The user has a compiler, whose messages are loaded, and looks at what is shown of them.
class TCompilerSession : public THostSession {
public:
    TCompilerSession()
    {
        Words[u"compiled"_s] = [this](auto &name) { Window->LoadDiagnostics(Path(name)); };
        Words[u"go"_s] = [this](auto &place) {
            Document()->GoToLine(place.section(u'/', 0, 0).toInt(), place.section(u'/', 1).toInt());
        };
        Words[u"note"_s] = [this](auto &) { Say(u'<' + Document()->StatusNote() + u'>'); };
        Words[u"places"_s] = [this](auto &) {
            TStringList &lines = *Editor()->GetLines();
            QStringList places;
            for (int i = 0; i < lines.GetCount(); ++i)
                for (const auto &said : Editor()->GetTextMarks().Diagnostics.InLine(i))
                    places += u"%1:%2-%3"_s.arg(i).arg(said.From.x()).arg(said.To.x());
            Say(u'{' + places.join(u',') + u'}');
        };
    }
};

} // namespace

TEST(CompilerOutput, LinesOfMessagesAreToldFromOthers)
{
    const struct {
        const char *Line, *Path, *Said;
    } rows[] = {
        {"a.c:3:5: error: no ';'", "a.c", "2:4 E no ';'"},
        {"/x/a b.c:3: warning: w: x", "/x/a b.c", "2:0- W w: x"},
        {"C:\\x\\a.c:3:1: Fatal Error: f", "C:\\x\\a.c", "2:0 E f"},
        {"a.py:10:2: W0611 unused", "a.py", "9:1 E W0611 unused"},
        {"a:1:0: note: n", "a", "0:0- I n"},
        {"a:0: info: n ", "a", "0:0- I n"},
        {"a:1:1: information: n", "a", "0:0 I n"},
        {"a:1:1: hint n", "a", "0:0 E hint n"},
        {"a.pas(12,5) Error: Identifier: x", "a.pas", "11:4 E Identifier: x"},
        {"a.pas(12) Fatal: F100 x", "a.pas", "11:0- E F100 x"},
        {"a (1).pas(12): hint is a word", "a (1).pas", "11:0- E hint is a word"},
        {"a.cs(1, 2): warning CS0168: unused", "a.cs", "0:1 W CS0168: unused"},
        {"a.pas(12,5) erroneous", "", ""},
        {"a.c: In function 'f':", "", ""},
        {"In file included from a.h:3:", "", ""},
        {"In file included from a.h:3:5,", "", ""},
        {"   12 | f(3): x", "", ""},
        {"a.c:3:text", "", ""},
        {"a.c:3:5: ", "", ""},
        {"f(3)::g", "", ""},
        {":3: x", "", ""},
    };
    for (const auto &row : rows) {
        const auto message = ZtReadCompilerMessage(QString::fromUtf8(row.Line));
        EXPECT_EQ(message ? message->Path : QString(), QLatin1StringView(row.Path)) << row.Line;
        EXPECT_EQ(message ? Shown(message->Diagnostic) : QString(), QLatin1StringView(row.Said))
            << row.Line;
    }
}

TEST(CompilerOutput, IsShownInTheTextsThatItIsAbout)
{
    const QString files =
        u"dir:d write:d/a.pas=%20%20one%20two%0Athree%0A write:b.pas=x%0A%0A "
        "write:out=d/a.pas:1:3:%20%1B[31merror:%20e%0D%0Aa.pas:1:3:%20error:%20no%0A"
        "d/a.pas:1:7:%20warning:%20w%0Ad/../b.pas:2:%20note:%20n%0A "
        "write:d/log=a.pas(2)%20Warning:%20l "_s;
    CheckSessions<TCompilerSession>(
        {
            {"open:d/a.pas compiled:out places open:b.pas places", "{0:2-5,0:6-9} {1:0-0}"},
            {"compiled:out open:d/a.pas note go:1/8 note go:1/6 note go:2/1 note",
             "<Error: e> <Warning: w> <Error: e> <>"},
            {"compiled:out open:d/a.pas go:1/1 type:%0Ay places compiled:d/log places go:2/1 note",
             "{1:3-6,1:7-10} {1:0-10} <Warning: l>"},
            {"compiled:out open:d/a.pas compiled:none places", "! {0:2-5,0:6-9}", "none"},
            {"compiled:out open:d/a.pas write:d/a.pas=%20%20onetwo menu:Reload places",
             "+ {0:2-8,0:2-8}"},
            {"write:d/a.pas=%0A%20%09two open:d/a.pas compiled:d/log places", "{1:2-5}"},
            {"compiled:out open:b.pas go:2/1 note menu:Diagnostics note", "<Note: n> + <>"},
            {"open:b.pas compiled:out write:out= compiled:out go:2/1 note", "<>"},
        },
        files);
}

TEST(CompilerOutput, PathsBeginAtTheFileOrAtTheCurrentFolder)
{
    TCompilerSession session;
    session.Do(u"dir:d dir:e write:a=1 write:d/a=2 write:b=3 "
               "write:d/out=a:1:1:%20x%0Ab:1:1:%20y%0Anew:1:1:%20z"_s);
    const QString before = QDir::currentPath();
    QDir::setCurrent(session.Folder.path());
    TCompilerOutput output;
    output.Load(session.Path(u"d/out"_s));
    QDir::setCurrent(before);
    for (const auto &[path, count] : {std::pair("a", 0), {"d/a", 1}, {"b", 1}, {"d/new", 1}})
        EXPECT_EQ(output.Of(session.Path(QLatin1StringView(path))).size(), size_t(count)) << path;
    EXPECT_EQ(output.MessageCount(), 3);
}

TEST(StatusTexts, NotesAreShownBetweenMessages)
{
    TStatusTexts status;
    const QLabel *shown = status.findChild<QLabel *>();
    status.resize(600, 20);
    status.show();
    status.SetNote(u"note"_s);
    EXPECT_EQ(shown->text(), u"note"_s);
    status.ShowMessage(u"message"_s, 1);
    status.SetNote(u"other"_s);
    EXPECT_EQ(shown->text(), u"message"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->text() == u"other"_s; }));
    status.ShowMessage(u"trouble"_s);
    status.SetNote({});
    EXPECT_EQ(shown->text(), u"trouble"_s) << "nothing else to say yet";
    const QString note = QString(u"word "_s).repeated(100) + u"end"_s;
    status.SetNote(note);
    EXPECT_EQ(shown->toolTip(), note);
    EXPECT_TRUE(shown->text().size() > 20 && shown->height() < 2 * shown->fontMetrics().height());
    EXPECT_TRUE(status.rect().contains(shown->geometry()));
    status.SetNote({});
    EXPECT_TRUE(shown->isHidden());
}
