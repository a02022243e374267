#include "DbDocument.h"
#include "Document.h"
#include "StatusTexts.h"
#include "ViewMenu.h"
#include "session.h"

#include "uZtColorScheme.h"
#include "uZtMessages.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

// The window's user has a folder for settings, where other versions of the program may have
// written, and looks at how the editors are shown.
class TWindowSession : public THostSession {
public:
    TWindowSession()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, Folder.path());
        QDir(Folder.path()).mkdir(u"ztedit"_s);
        Words[u"remember"_s] = [this](auto &) { Window->View().Remember(); };
        Words[u"again"_s] = [this](auto &) { Window = std::make_unique<TMainWindow>(); };
        Words[u"scheme"_s] = [this](auto &name) { Window->View().UseScheme(name); };
        Words[u"desktop"_s] = [](auto &color) {
            QPalette palette = QApplication::palette();
            palette.setColor(QPalette::Window, QColor(color));
            QApplication::setPalette(palette);
            QApplication::processEvents();
        };
        Words[u"look"_s] = [this](auto &) {
            for (int i = 0; i < Window->DocumentCount(); ++i)
                Say(LookOf(*Window->Document(i)->Editor()));
        };
    }
    ~TWindowSession()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, State.path());
        QApplication::setPalette(QApplication::style()->standardPalette());
    }

private:
    static QString LookOf(const TZtCodeEdit &AEditor)
    {
        QString look = AEditor.GetScheme() ? AEditor.GetScheme()->GetName() : u"none"_s;
        if (AEditor.GetShowGuttor())
            look += u",gutter"_s;
        if (AEditor.GetExtras() != ZtAllExtras())
            look += u",%1"_s.arg((ZtAllExtras() ^ AEditor.GetExtras()).toInt());
        return look;
    }
};

} // namespace

TEST(View, IsThatOfAllEditorsAndOfTheNextStart)
{
    CheckSessions<TWindowSession>({
        {"new menu:Gutter menu:Overview_ruler new look", "+ + Light,8 Light,8"},
        {"new menu:Blanks menu:Dark look", "+ + Dark,gutter,1024"},
        {"remember new menu:Gutter menu:Blanks menu:Classic again new look remember look",
         "+ + + Light,gutter Classic,1024"},
        {"new menu:Gutter again remember new look", "+ Light,gutter"},
        {"remember scheme:Dark new menu:Gutter look again remember new look", "+ Dark Light"},
        {"new desktop:black look desktop:white look menu:Classic desktop:black look menu:"
         "Follow_the_desktop look",
         "Dark,gutter Light,gutter + Classic,gutter + Dark,gutter"},
    });
}

TEST(View, SettingsThatMeanNothingAreNoSettings)
{
    CheckSessions<TWindowSession>(
        {
            {"[View]%0AGutter=false%0ARuler=true%0A remember new look", "Light"},
            {"[View]%0AGutter=0%0ARuler=%0AMarks=@Point(1%202)%0A remember new look",
             "Light,gutter"},
            {"[View]%0AScheme=Pink%0ABlanks=true%0AOther=true%0A remember new look",
             "Light,gutter,1024"},
            {"[View]%0AScheme=dark%0A remember new look", "Light,gutter"},
            {"%00%FF[View%0AGutter=false remember new look", "Light,gutter"},
        },
        u"write:ztedit/ztedit.ini="_s);
    // A folder in the way of the file.
    CheckSessions<TWindowSession>(
        {{"dir:ztedit/ztedit.ini remember new menu:Gutter look names", "+ Light ztedit"}});
}

TEST(Menus, EachLetterLeadsToOneCommand)
{
    THostSession session;
    session.Do(u"new"_s);
    QList<QMenu *> menus = session.Window->menuBar()->findChildren<QMenu *>();
    EXPECT_GE(menus.size(), 8);
    for (const QMenu *menu : menus) {
        QSet<QKeySequence> letters;
        for (const QAction *action : menu->actions()) {
            const QKeySequence letter = QKeySequence::mnemonic(action->text());
            EXPECT_TRUE(letter.isEmpty() || !letters.contains(letter))
                << menu->title().toStdString() << ": " << action->text().toStdString();
            letters.insert(letter);
        }
    }
}

TEST(Menus, CommandsOfExtrasArePostedWhereTheyAreShown)
{
    struct TPosted : QObject {
        QList<quint64> Commands;
        bool eventFilter(QObject *, QEvent *AEvent) override
        {
            const auto *message = dynamic_cast<const TZtMessage *>(AEvent);
            if (message && message->Msg == quint32(TZtMsg::wmUser) + 5)
                Commands.append(message->WParam);
            return false;
        }
    } posted;
    THostSession session;
    session.Do(u"new"_s);
    session.Editor()->installEventFilter(&posted);
    EXPECT_EQ(session.Do(u"menu:Toggle_bookmark menu:Next_diagnostic menu:Select_to_bracket "
                         "menu:Zoom_in menu:Bookmarks menu:Next_bookmark closetab "
                         "menu:Zoom_in menu:Save menu:New"_s),
              u"+ + + + + - + - - +"_s);
    EXPECT_EQ(posted.Commands, (QList<quint64>{0, 3, 6, 7}));
}

namespace {

// What is wrong with the labels that are shown.
QString FaultsOf(const TStatusTexts &ATexts)
{
    QString faults;
    QRegion covered;
    for (const QLabel *label : ATexts.findChildren<QLabel *>()) {
        if (label->isHidden())
            continue;
        const QRect place = label->geometry();
        const bool whole = label->wordWrap()
                               ? place.height() >= label->heightForWidth(place.width())
                               : place.width() >= label->sizeHint().width();
        if (!whole)
            faults += u" cut: "_s + label->text();
        if (!ATexts.rect().contains(place) || covered.intersects(place))
            faults += u" covered: "_s + label->text();
        covered += place;
    }
    return faults;
}

QStringList ShownBy(const TStatusTexts &ATexts)
{
    QStringList shown;
    for (const QLabel *label : ATexts.findChildren<QLabel *>())
        if (!label->isHidden())
            shown += label->text();
    return shown;
}

} // namespace

TEST(StatusTexts, AreWholeAtAnyWidth)
{
    const QList<TStatusText> texts{{u"Line 1234567, column 890"_s, u"1234567:890"_s},
                                   u"JavaScript"_s,
                                   {u"UTF-16 LE with byte-order mark"_s, u"UTF-16 LE+BOM"_s},
                                   {u"CR LF, mixed"_s, u"Mixed"_s}};
    for (const QString &message :
         {QString(), u"a.pas is saved"_s, u"What is changed would not come back: no room"_s}) {
        TStatusTexts status;
        status.SetTexts(texts);
        status.ShowMessage(message);
        status.show();
        for (int width = 1200; width >= 120; width -= 7) {
            status.resize(width, 10);
            status.resize(width, status.sizeHint().height());
            EXPECT_EQ(FaultsOf(status), QString()) << width << message.toStdString();
            EXPECT_EQ(ShownBy(status).size(), message.isEmpty() ? 4 : 5) << width;
            EXPECT_EQ(ShownBy(status).contains(texts[0].Full),
                      ShownBy(status).contains(texts[2].Full));
        }
        EXPECT_TRUE(ShownBy(status).contains(texts[0].Short));
        status.resize(1200, 10);
        EXPECT_TRUE(ShownBy(status).contains(texts[0].Full));
    }
}

TEST(StatusTexts, LetTheWindowBeNarrow)
{
    THostSession session;
    session.Do(u"new"_s);
    TMainWindow &window = *session.Window;
    window.show();
    QApplication::processEvents();
    auto *status = window.findChild<TStatusTexts *>();
    const int narrow = window.minimumSizeHint().width();
    status->ShowMessage(QString(300, u'x') + u' ' + QString(300, u'y'));
    QApplication::processEvents();
    EXPECT_EQ(window.minimumSizeHint().width(), narrow);
    status->ShowMessage(u"The text that was looked for was not found anywhere in it"_s);
    for (const int width : {narrow, 300, 500, 1200}) {
        window.resize(width, 500);
        for (int i = 0; i < 3; ++i) // the heights follow one after the other
            QApplication::processEvents();
        EXPECT_EQ(FaultsOf(*status), QString()) << width;
    }
}

TEST(StartPage, IsThereWhileNothingIsOpenAndBegins)
{
    THostSession session;
    const auto button = [&session] {
        const auto buttons = session.Window->centralWidget()->findChildren<QPushButton *>();
        return buttons.isEmpty() ? nullptr : buttons.constFirst();
    };
    session.Window->show();
    ASSERT_TRUE(button());
    EXPECT_TRUE(button()->isVisible());
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(button(), &enter);
    EXPECT_EQ(session.Do(u"tabs"_s), u"[Untitled 1]"_s);
    EXPECT_FALSE(button()->isVisible());
    session.Do(u"closetab"_s);
    EXPECT_TRUE(button()->isVisible());
    EXPECT_EQ(session.Window->focusWidget(), button());
}
