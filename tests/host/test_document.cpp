#include "Document.h"
#include "SaveFlow.h"
#include "StatusTexts.h"
#include "session.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabBar>
#include <QWindow>

#include <new>

using namespace Qt::StringLiterals;

TEST(Host, AFileKeepsItsBytesAndItsFormat)
{
    // Loaded; after an "x" was put in front; and the log of saving that.
    const struct {
        const char *Loaded, *Edited, *Log;
    } rows[] = {
        {"", "x", "+"},
        {"a%0D%0Ab%0D%0A", "xa%0D%0Ab%0D%0A", "+"},
        {"a%0Ab", "xa%0Ab", "+"},
        {"a%20%20%0A%0A%0A", "xa%20%20%0A%0A%0A", "+"},
        {"a%0Db%0D", "xa%0Db%0D", "+"},
        {"a%00b%0A", "xa%00b%0A", "+"},
        {"%EF%BB%BF%E2%82%AC%0A", "%EF%BB%BFx%E2%82%AC%0A", "+"},
        {"%E4%80%81%0D%0A", "x%E4%80%81%0D%0A", "+"},
        {"%FE%FF%00a%00%00%00%0A", "%FE%FF%00x%00a%00%00%00%0A", "+"},
        {"a%0Ab%0D%0Ac%0D%0Ad", "xa%0D%0Ab%0D%0Ac%0D%0Ad", "? +"},
        {"%FF%FEa%00b", "%FF%FEx%00a%00%FD%FF", "? +"},
    };
    for (const auto &row : rows) {
        const QString loaded = QString::fromLatin1(row.Loaded);
        THostSession session;
        session.Do(u"write:a="_s + loaded);
        EXPECT_EQ(session.Do(u"open:a tabs saveas:b read:b remove:b save read:b"_s),
                  u"[a] + <%1> + <%1>"_s.arg(loaded));
        EXPECT_EQ(session.Do(u"open:a type:x tabs save tabs read:a"_s),
                  u"b,[a*] %1 b,[a] <%2>"_s.arg(QLatin1StringView(row.Log),
                                                QLatin1StringView(row.Edited)));
    }
}

TEST(Host, NothingIsLostUnasked)
{
    CheckSessions<THostSession>({
        {"mixed", "write:a=a%0A%0D%0A open:a type:x no save read:a", "? - <a%0A%0D%0A>",
         "mixed. All of them will be written as LF."},
        {"odd byte", "write:a=%FF%FEa%00b open:a type:x no save read:a", "? - <%FF%FEa%00b>",
         "holds bytes that are no UTF-16 LE text"},
        {"narrow", "write:a=%E4%0A open:a type:%0A%C5%82 no save tabs read:a", "? - [a*] <%E4%0A>",
         "the first is \u0142 (U+0142) in line 2, column 1. Save it as UTF-8"},
        {"half a pair", "write:a=a%0A open:a surrogate no save read:a", "? - <a%0A>",
         "the first is U+D83D in line 1, column 1. Save it as UTF-16"},
        {"a roomier encoding",
         "write:a=%E4%0D%0A open:a type:%C5%82 save read:a write:b=a open:b surrogate save read:b",
         "? + <%C5%82%C3%A4%0D%0A> ? + <%FF%FE=%D8a%00>"},
        {"another program's change",
         "write:a=one%0A open:a type:x write:a=two%0A no save read:a yes save read:a",
         "? - <two%0A> ? + <xone%0A>"},
        {"what cannot be compared",
         "write:%2=one%0A open:%2 type:x remove:%2 link:%2=%2 no save yes save tabs",
         "? - ? ? - [%2*]",
         "\"%2\" cannot be read to see whether another program changed it: Too many levels of "
         "symbolic links. Overwrite it?\nCannot write \"~/%2\": "},
        {"what cannot be written", "write:a=a open:a type:x remove:a link:a=a save", "? ? -",
         "Cannot write \"~/a\": "},
        {"closing",
         "write:a.pas=one open:a.pas type:x tabs cancel close closetab yes closetab read:a.pas "
         "open:a.pas type:y no close read:a.pas",
         "[a.pas*] ? - ? - ? + <xone> ? + <xone>"},
    });
}

TEST(Host, ASaveThatWasCutShortCanBeTakenBack)
{
    const QString set = u"write:a=ha write:.a.0123456789abcdef.zt-old=old%0A "_s;
    const struct {
        const char *Words, *Log, *Said;
    } rows[] = {
        {"yes open:a text read:a read:a.kept names", "? old/ <old%0A> <ha> a,a.kept", "\"a.kept\""},
        {"no open:a text read:a read:a.kept names", "? ha/ <ha> <old%0A> a,a.kept", "\"a.kept\""},
        {"cancel open:a text read:a names", "? ha/ <ha> .a.#.zt-old,a", ""},
        {"hard:b=a open:b text read:a read:b.kept names", "? old/ <old%0A> <ha> a,b,b.kept", ""},
        {"write:a.kept=x open:a read:a.kept names", "? <x> a,a.kept,a.kept-2", "\"a.kept-2\""},
        {"write:a=old%0A offer:a names", "a", ""},
        {"remove:.a.0123456789abcdef.zt-old backup:a offer:a names", ".a.#.zt-old,a", ""},
    };
    for (const auto &row : rows) {
        THostSession session;
        EXPECT_EQ(session.Do(set + QLatin1StringView(row.Words)), QLatin1StringView(row.Log));
        EXPECT_TRUE(session.Asked.join(u' ').contains(QLatin1StringView(row.Said))) << row.Said;
    }
}

TEST(Host, TabsAndFiles)
{
    CheckSessions<THostSession>({
        {"a file is open in one tab, and an unused tab goes",
         "new write:a.pas=one open:a.pas write:b.sql=two open:b.sql tabs link:l=a.pas open:l tabs "
         "openfiles:none,. tabs",
         "a.pas,[b.sql] [a.pas],b.sql ? [a.pas],b.sql"},
        {"a file that is not there is begun", "write:a=one begin:n.js,n.js,a,.,, tabs open:n.js",
         "3 n.js,[a]"},
        {"the first save makes it",
         "begin:n.js language tabs names save read:n.js remove:n.js type:x save read:n.js",
         "0 JavaScript [n.js]  + <> + <x%0A>"},
        {"another program was quicker", "begin:n write:n=theirs no save read:n", "0 ? - <theirs>"},
        {"loading again forgets the undo list and keeps the language",
         "write:a.pas=one open:a.pas language plain tabs type:x write:a.pas=two load:a.pas tabs "
         "canundo text language load:none tabs",
         "Pascal [a.pas] [a.pas] - two/ Plain text ! [a.pas]"},
        {"the menu Edit",
         "write:a=one open:a menu:Undo menu:Cut menu:Copy menu:Paste menu:Select_all menu:Copy "
         "menu:Paste menu:Paste text menu:Undo text menu:Select_all menu:Cut clipboard",
         "- - - - + + + + oneone/ + one/ + + one"},
    });
}

TEST(Files, AreWrittenWholeOrNotAtAll)
{
    CheckSessions<THostSession>({
        {"the mode", "write:a=old mode:a=640 store:a=new read:a modeof:a names", "<new> 640 a"},
        {"links lead to their target",
         "dir:s write:s/t=old link:n=s/t link:f=n link:d=s/g store:f=new store:d=x read:s/t "
         "read:s/g names",
         "<new> <x> d@,f@,n@,s"},
        {"no room", "write:a=o room:2 store:a=new room read:a names", "! <o> a",
         "Cannot write \"~/a\": File too large."},
        {"no room in place", "write:a=o hard:b=a room:2 store:a=new room read:b names", "! <o> a,b",
         "Cannot write \"~/a\": File too large."},
        {"a folder", "store:.=x", "!", "Cannot write \"~\": it is a directory."},
        {"a pipe", "pipe:p store:p=x", "!", "Cannot write \"~/p\": it is not a regular file."},
        {"no folder", "store:n/a=x", "!", "Cannot write \"~/n/a\": No such file or directory."},
        {"a ring", "link:r=r store:r=x names", "! r@",
         "Cannot write \"~/r\": Too many levels of symbolic links."},
        {"what a dead process left goes and nothing else",
         "write:a=old write:.a.0123456789abcdef.zt-new=half write:.a.0.zt-new= "
         "write:.b.0123456789abcdef.zt-new= write:.a.0123456789abcdef.zt-old= "
         "link:.a.fedcba9876543210.zt-new=a inuse:a store:a=new read:a names",
         "600 <new> .a.#.zt-new,.a.#.zt-new@,.a.#.zt-old,.a.0.zt-new,.b.#.zt-new,a"},
    });
}

TEST(Files, AChangeIsOneOfTheContents)
{
    const struct {
        const char *Words, *Log;
    } rows[] = {
        {"", "none"},
        {"write:a=two", "changed"},
        {"write:a=three", "changed"},
        {"touch:a", "none"},
        {"remove:a write:a=one", "none"},
        {"remove:a", "missing"},
        {"remove:a dir:a", "changed"},
        {"remove:a link:a=a", "unknown?Too"},
    };
    for (const auto &row : rows) {
        THostSession session;
        const QString words = u"write:a=one open:a %1 changed"_s.arg(QLatin1StringView(row.Words));
        EXPECT_EQ(session.Do(words), QLatin1StringView(row.Log)) << row.Words;
    }
}

namespace {

// Runs out of memory when it is told to.
class TPoorDocument : public TDocument {
public:
    using TDocument::TDocument;
    bool IsModified() const override
    {
        return Poor ? throw std::bad_alloc() : TDocument::IsModified();
    }
    bool Poor = false;

protected:
    TZtCodeEdit *CreateEditor() override
    {
        return Poor ? throw std::bad_alloc() : TDocument::CreateEditor();
    }
};

} // namespace

TEST(Host, WithoutMemoryNothingIsLost)
{
    THostSession session;
    session.Do(u"write:a=one%0A write:b=two"_s);
    TPoorDocument document(u"new"_s);
    document.Load(session.Path(u"a"_s));
    document.Editor()->InsertText(TZtChangeType::ctPaste, u"x"_s);
    document.Poor = true;
    EXPECT_THROW(document.Load(session.Path(u"b"_s)), EStreamError);
    EXPECT_FALSE(ZtSaveDocument(document));
    EXPECT_EQ(session.Asked, QStringList{u"\"a\" is not saved: There is not enough memory."_s});
    document.Poor = false;
    EXPECT_TRUE(document.IsModified() && ZtSaveDocument(document));
    EXPECT_EQ(session.Do(u"read:a"_s), u"<xone%0A>"_s);
}

TEST(Host, WhatACommandRaisesEndsItAlone)
{
    THostSession session;
    session.Do(u"write:a=one open:a"_s);
    session.Editor()->OnKeyDown = [](QObject *, quint16 &, TShiftState) { throw std::bad_alloc(); };
    EXPECT_EQ(session.Do(u"menu:Select_all"_s), u"+ !"_s);
    EXPECT_EQ(session.Asked, QStringList{u"There is not enough memory."_s});
    ZtPlatform().MsgBoxYesNoCancel = [](const QString &, const QString &) -> int {
        throw std::runtime_error("no question");
    };
    EXPECT_EQ(session.Do(u"type:x close"_s), u"! -"_s) << "the text is not saved";
}

TEST(Host, GoingToALinePutsItIntoTheMiddle)
{
    THostSession session;
    session.Do(u"write:a="_s + u"x%0A"_s.repeated(1000) + u" open:a"_s);
    session.Window->resize(600, 400);
    session.Window->show();
    QApplication::processEvents();
    const int page = session.Editor()->GetVScrollBar()->GetPageSize();
    // Loading again makes an editor that was not shown before.
    EXPECT_EQ(session.Do(u"goto:500 goto:3 goto:999 goto:5000 load:a goto:510"_s),
              u"499:middle 2:0 998:end 999:end 509:middle"_s);
    EXPECT_EQ(session.Editor()->GetVScrollBar()->GetPageSize(), page);
}

TEST(Host, NamesAreShownAsTheyAre)
{
    const QString name = u"a&b[*]<b>%4.pas"_s;
    THostSession session;
    session.Do(u"write:%1=%E4%0A open:%1 type:%C5%82"_s.replace(u"%1"_s, name));
    session.Window->show();
    QApplication::processEvents();
    const auto *tabs = session.Window->findChild<QTabBar *>();
    EXPECT_EQ(tabs->tabText(0), u"a&&b[*]<b>%4.pas*"_s);
    EXPECT_TRUE(tabs->tabToolTip(0).contains(u"a&amp;b[*]&lt;b&gt;%4.pas"_s));
    EXPECT_TRUE(session.Window->isWindowModified());
    const QString title = session.Window->windowHandle()->title();
    EXPECT_TRUE(title.startsWith(name + u'*')) << title.toStdString();
    EXPECT_EQ(session.Do(u"no save"_s), u"? -"_s);
    EXPECT_TRUE(session.Asked[0].contains(u'"' + name + u'"'));
}

TEST(Status, EachTextIsWholeOrNotThere)
{
    QWidget bar;
    QHBoxLayout row(&bar);
    row.setContentsMargins(0, 0, 0, 0);
    TStatusTexts texts;
    row.addWidget(&texts);
    const QStringList shown{u"Line 1, column 1"_s, u"<b>&x"_s, u"UTF-8"_s, u"CR LF, mixed"_s};
    texts.SetTexts(shown);
    bar.show();
    QString last;
    for (int width = 0; width <= texts.sizeHint().width(); ++width) {
        bar.resize(width, 20);
        row.activate();
        QStringList seen;
        for (const QLabel *label : texts.findChildren<QLabel *>())
            if (label->isVisible())
                seen += label->width() < label->sizeHint().width() ? u"cut"_s : label->text();
        EXPECT_TRUE(shown.join(u'|').startsWith(seen.join(u'|')) && seen.join(u'|') >= last)
            << width;
        last = seen.join(u'|');
    }
    EXPECT_EQ(last, shown.join(u'|'));
    texts.SetTexts({u"Line 1000000, column 1"_s});
    EXPECT_TRUE(texts.findChildren<QLabel *>().constFirst()->isVisible());
}
