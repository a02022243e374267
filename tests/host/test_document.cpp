#include "Document.h"
#include "session.h"

#include "uZtCodeEdit.h"

#include <QApplication>
#include <QTabBar>

using namespace Qt::StringLiterals;

TEST(Host, AFileKeepsItsBytesAndItsFormat)
{
    // Loaded; after an "x" was put in front; and the log of saving that.
    const struct {
        const char *Loaded, *Edited, *Log;
    } rows[] = {
        {"a%0D%0Ab%0D%0A", "xa%0D%0Ab%0D%0A", "+"},
        {"a%20%20%0A%0A%0A", "xa%20%20%0A%0A%0A", "+"},
        {"a%0Db", "xa%0Db", "+"},
        {"%EF%BB%BF%E2%82%AC%0A", "%EF%BB%BFx%E2%82%AC%0A", "+"},
        {"%E4%80%81%0D%0A", "x%E4%80%81%0D%0A", "+"},
        {"%FE%FF%00a%00%00%00%0A", "%FE%FF%00x%00a%00%00%00%0A", "+"},
        {"a%0Ab%0D%0Ac%0D%0Ad", "xa%0D%0Ab%0D%0Ac%0D%0Ad", "? +"},
        {"%FF%FEa%00b", "%FF%FEx%00a%00%FD%FF", "? +"},
    };
    for (const auto &row : rows) {
        const QString loaded = QString::fromLatin1(row.Loaded);
        THostSession session;
        EXPECT_EQ(session.Do(u"write:a=%1 open:a saveas:b read:b type:x save read:b"_s.arg(loaded)),
                  u"+ <%1> %2 <%3>"_s.arg(loaded, QLatin1StringView(row.Log),
                                          QLatin1StringView(row.Edited)));
    }
}

TEST(Host, NothingIsLostUnasked)
{
    CheckSessions({
        {"write:a=a%0A%0D%0A open:a type:x no save read:a", "? - <a%0A%0D%0A>",
         "mixed. All of them will be written as LF."},
        {"write:a=%FF%FEa%00b open:a type:x no save read:a", "? - <%FF%FEa%00b>",
         "holds bytes that are no UTF-16 LE text"},
        {"write:a=%E4%0D%0A open:a type:%0D%0A%C5%82 no save tabs read:a yes save read:a",
         "? - [a*] <%E4%0D%0A> ? + <%0D%0A%C5%82%C3%A4%0D%0A>",
         "the first is \u0142 (U+0142) in line 2, column 1. Save it as UTF-8"},
        {"write:a=one%0A open:a type:x write:a=two%0A no save read:a yes save read:a",
         "? - <two%0A> ? + <xone%0A>"},
        {"write:%2=one%0A open:%2 type:x remove:%2 link:%2=%2 no save yes save tabs",
         "? - ? ? - [%2*]",
         "\"%2\" cannot be read to see whether another program changed it: Too many levels of "
         "symbolic links. Overwrite it?\nCannot write \"~/%2\": "},
        {"write:a.pas=one open:a.pas type:x tabs cancel close closetab yes closetab read:a.pas "
         "open:a.pas type:y no close read:a.pas",
         "[a.pas*] ? - ? - ? + <xone> ? + <xone>"},
    });
}

TEST(Host, ASaveThatWasCutShortCanBeTakenBack)
{
    CheckSessions(
        {
            {"open:a text read:a read:a.kept names", "? old/ <old%0A> <ha> a,a.kept", "\"a.kept\""},
            {"no open:a text read:a read:a.kept names", "? ha/ <ha> <old%0A> a,a.kept"},
            {"cancel open:a text read:a names", "? ha/ <ha> .a.#.zt-old,a"},
            {"hard:b=a open:b text read:a read:b.kept names", "? old/ <old%0A> <ha> a,b,b.kept"},
            {"write:a.kept=x open:a read:a.kept names", "? <x> a,a.kept,a.kept-2", "\"a.kept-2\""},
            {"write:a=old%0A offer:a names", "a"},
            // In use by a save that goes on.
            {"remove:.a.0123456789abcdef.zt-old inuse:a backup offer:a names", "600 .a.#.zt-old,a"},
        },
        u"write:a=ha write:.a.0123456789abcdef.zt-old=old%0A "_s);
}

TEST(Host, TabsAndFiles)
{
    CheckSessions({
        {"new write:a.pas=one open:a.pas write:b.sql=two open:b.sql tabs link:l=a.pas open:l tabs",
         "a.pas,[b.sql] [a.pas],b.sql"},
        // A file that is not there is begun, and the first save makes it.
        {"write:a=one begin:n.js begin:a begin:n.js begin:. tabs open:none", "! [n.js],a !"},
        {"begin:n.js language tabs names save read:n.js remove:n.js type:x save read:n.js",
         "JavaScript [n.js]  + <> + <x%0A>"},
        {"begin:n write:n=theirs no save read:n", "? - <theirs>"},
        {"write:a=one open:a type:x write:a=two load:a tabs canundo text load:none tabs",
         "[a] - two/ ! [a]"},
        {"write:a=one open:a menu:Undo menu:Cut menu:Copy menu:Paste menu:Select_all menu:Copy "
         "menu:Paste menu:Paste text menu:Undo text menu:Select_all menu:Cut menu:Paste text",
         "- - - - + + + + oneone/ + one/ + + + one/"},
        {"write:a=one write:b=two open:a type:x open:b menu:Undo menu:Select_all menu:Delete text "
         "open:a menu:Undo text",
         "- + + / + one/"},
        {"new menu:All_methods… write:a.js=%0Afunction%20f() open:a.js menu:f caret", "- + 1"},
    });
}

TEST(Files, AreWrittenWholeOrNotAtAll)
{
    CheckSessions({
        {"write:a=old mode:a=640 store:a=new read:a modeof:a names", "<new> 640 a"},
        {"dir:s write:s/t=old link:n=s/t link:f=n link:d=s/g store:f=new store:d=x read:s/t "
         "read:s/g names",
         "<new> <x> d@,f@,n@,s"},
        {"write:a=o room:2 store:a=new room read:a names", "! <o> a",
         "Cannot write \"~/a\": File too large."},
        {"write:a=o hard:b=a room:2 store:a=new room read:b names", "! <o> a,b", "too large"},
        {"store:.=x", "!", "Cannot write \"~\": it is a directory."},
        // What a dead process left goes, and nothing else.
        {"write:a=old write:.a.0123456789abcdef.zt-new=half write:.a.0.zt-new= "
         "write:.b.0123456789abcdef.zt-new= write:.a.0123456789abcdef.zt-old= "
         "link:.a.fedcba9876543210.zt-new=a inuse:a store:a=new read:a names",
         "600 <new> .a.#.zt-new,.a.#.zt-new@,.a.#.zt-old,.a.0.zt-new,.b.#.zt-new,a"},
    });
}

TEST(Files, AChangeIsOneOfTheContents)
{
    CheckSessions(
        {
            {"changed", "none"},
            {"write:a=two changed", "changed"},
            {"write:a=three changed", "changed"},
            {"remove:a changed write:a=one changed", "missing none"},
            {"remove:a dir:a changed", "changed"},
            {"remove:a link:a=a changed", "unknown"},
        },
        u"write:a=one open:a "_s);
}

TEST(Host, GoingToALinePutsItIntoTheMiddle)
{
    THostSession session;
    session.Do(u"write:a="_s + u"x%0A"_s.repeated(1000) + u" open:a"_s);
    session.Window->resize(600, 400);
    session.Window->show();
    QApplication::processEvents();
    const int page = session.Editor()->GetVScrollBar()->GetPageSize();
    for (const int line : {500, 3, 1000, 5000}) {
        session.Do(u"load:a"_s); // into an editor that was not shown before
        session.Document()->GoToLine(line);
        const int at = qMin(line, 1000) - 1;
        EXPECT_EQ(session.Editor()->GetLinePos(), at);
        EXPECT_EQ(session.Editor()->GetVScrollBar()->GetPosition(),
                  qBound(0, at - page / 2, session.Editor()->GetLines()->GetCount() - page));
    }
}

TEST(Host, NamesAreShownAsTheyAre)
{
    const QString name = u"a&b<b>%4.pas"_s;
    THostSession session;
    EXPECT_EQ(session.Do(u"write:%1=a%0D%0A%0A open:%1 type:x no save"_s.replace(u"%1"_s, name)),
              u"? -"_s);
    EXPECT_TRUE(session.Asked[0].contains(u'"' + name + u'"'));
    QApplication::processEvents();
    const auto *tabs = session.Window->findChild<QTabBar *>();
    EXPECT_EQ(tabs->tabText(0), u"a&&b<b>%4.pas*"_s);
    EXPECT_TRUE(tabs->tabToolTip(0).contains(u"a&amp;b&lt;b&gt;%4.pas"_s));
}
