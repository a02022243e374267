// What a Qt programmer expects: signals, properties, slots, actions, the menu.

#include "marked_text.h"

#include "uZtCodeJSParser.h"
#include "uZtEditActions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMetaProperty>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWindow>

// A key as the desktop hands it over, with shortcuts, as Qt's own tests do it.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *AWindow, QEvent::Type AType, int AKey,
                                    Qt::KeyboardModifiers AModifiers, const QString &AText,
                                    bool ARepeats, ushort ACount);

using enum TZtCorrection;

namespace {

struct TSignals : testing::Test {
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    QStringList Told;

    template <typename T> void Hear(void (TZtCodeEdit::*ASignal)(T), const char *AName)
    {
        QObject::connect(&Edit, ASignal, &Rig, [this, AName](T value) {
            Told += QStringLiteral("%1=%2").arg(QLatin1StringView(AName)).arg(int(value));
        });
    }
    void HearAll()
    {
        Hear(&TZtCodeEdit::modificationChanged, "modified");
        Hear(&TZtCodeEdit::readOnlyChanged, "readonly");
        Hear(&TZtCodeEdit::undoAvailable, "undo");
        Hear(&TZtCodeEdit::redoAvailable, "redo");
        Hear(&TZtCodeEdit::copyAvailable, "copy");
        Hear(&TZtCodeEdit::zoomChanged, "zoom");
        Hear(&TZtCodeEdit::optionsChanged, "options");
        Hear(&TZtCodeEdit::extrasChanged, "extras");
        QObject::connect(&Edit, &TZtCodeEdit::selectionChanged, &Rig, [&] { Told += "selection"; });
        QObject::connect(&Edit, &TZtCodeEdit::schemeChanged, &Rig, [&] { Told += "scheme"; });
    }
};

} // namespace

TEST_F(TSignals, TellWhatIsOther)
{
    const struct {
        const char *Marked;
        std::function<void()> Do;
        const char *First;     // what the first version's behaviour tells
        const char *Corrected; // what is told with all corrections
    } rows[] = {
        {"ab|", [&] { Rig.Do("x"); }, "undo=1 modified=1", "undo=1 modified=1"},
        {"ab|", [&] { Rig.Do("x y"); }, "undo=1 modified=1", "undo=1 modified=1"},
        {"ab|", [&] { Rig.Do("x Ctrl+Z"); }, "undo=1 modified=1 undo=0",
         "undo=1 modified=1 undo=0 redo=1 modified=0"},
        {"ab|", [&] { Edit.InsertText(TZtChangeType::ctPaste, "1\n2"); }, "undo=1 modified=1",
         "undo=1 modified=1"},
        {"ab|", [&] { Edit.GetLines()->Add("x"); }, "modified=1", "undo=1 modified=1"},
        {"ab|", [&] { Edit.SetModified(true), Edit.SetModified(true); }, "modified=1",
         "modified=1"},
        {"ab|", [&] { Rig.Do("Left Right Home End"); }, "", ""},
        {"ab|", [&] { Rig.Do("Shift+Left Shift+Left Left"); },
         "selection copy=1 selection selection copy=0",
         "selection copy=1 selection selection copy=0"},
        {"a[b]", [&] { Rig.Do("x"); }, "undo=1 modified=1 selection copy=0",
         "undo=1 modified=1 selection copy=0"},
        {"a[b]", [&] { Edit.ClearSelection(); }, "selection copy=0", "selection copy=0"},
        {"a[b]", [&] { Edit.selectAll(), Edit.selectAll(); }, "selection", "selection"},
        {"a[b]", [&] { Edit.deleteSelection(); }, "undo=1 modified=1 selection copy=0",
         "undo=1 modified=1 selection copy=0"},
        {"a|b", [&] { Rig.Do("#1025"); }, "selection copy=1", "selection copy=1"},
        {"ab|", [&] { Edit.SetReadOnly(true), Edit.SetReadOnly(true); }, "readonly=1",
         "readonly=1"},
        {"ab|", [&] { Edit.SetZoom(150), Edit.SetZoom(150), Edit.SetFont(Edit.font()); },
         "zoom=150", "zoom=150"},
        {"ab|", [&] { Edit.SetOptions({}), Edit.SetExtras(TZtExtra::zeZoom); },
         "options=0 extras=8192", "options=0 extras=8192"},
        {"ab|", [&] { Edit.SetScheme(TZtColorScheme::Find("Dark")), Edit.SetScheme(nullptr); },
         "scheme scheme", "scheme scheme"},
        {"ab|", [&] { Rig.Do("x"), Edit.clear(); }, "undo=1 modified=1 undo=0",
         "undo=1 modified=1 undo=0"},
        {"ab|",
         [&] {
             Edit.BeginUpdate();
             Edit.SetModified(true);
             Edit.SetReadOnly(true);
             Edit.SetReadOnly(false);
             Edit.SetModified(false);
             Edit.EndUpdate();
         },
         nullptr, ""},
    };
    for (const bool corrected : {false, true})
        for (const auto &row : rows) {
            if (!corrected && !row.First)
                continue;
            SCOPED_TRACE(testing::Message() << &row - rows << (corrected ? ", corrected" : ""));
            Edit.disconnect(&Rig);
            Edit.SetReadOnly(false);
            Edit.SetZoom(100);
            Edit.SetExtras({});
            Edit.SetCorrections(corrected ? ZtAllCorrections() : TZtCorrections());
            Edit.SetOptions(TZtCodeOption::coShowGuttor);
            Rig.SetMarked(row.Marked);
            Edit.ClearUndo();
            Edit.SetModified(false);
            HearAll();
            Told.clear();
            row.Do();
            EXPECT_EQ(Told.join(u' '), QString(corrected ? row.Corrected : row.First));
        }
}

// A slot may do anything, at whatever place the signal is told.
TEST_F(TSignals, SlotsMayDoWhatTheyLike)
{
    HearAll();
    const auto once = QObject::connect(&Edit, &TZtCodeEdit::undoAvailable, [&](bool available) {
        if (available)
            Edit.ClearUndo(); // told at once, and not again
    });
    Rig.Do("x");
    EXPECT_EQ(Told.join(u' '), "undo=1 undo=0 modified=1");
    QObject::disconnect(once);
    QObject::connect(&Edit, &TZtCodeEdit::modificationChanged, [] { throw EZtException("no"); });
    EXPECT_THROW(Edit.SetModified(false), EZtException);
    EXPECT_FALSE(Edit.GetModified());
    Told.clear();
    Rig.Do("y");
    EXPECT_EQ(Told.join(u' '), "undo=1 modified=1") << "what raises does not end the others";
    EXPECT_EQ(Rig.Errors, QStringList("no"));
}

TEST_F(TSignals, SlotsMayDeleteTheEditor)
{
    using TEdit = TZtCodeEdit;
    const std::function<void(TEdit &)> acts[] = {
        [](TEdit &e) { e.AddTxt("x"); },
        [](TEdit &e) { e.selectAll(); },
        [](TEdit &e) { e.cut(); },
        [](TEdit &e) { e.SetReadOnly(true); },
        [](TEdit &e) { e.SetModified(true); },
        [](TEdit &e) { e.SetZoom(50); },
        [](TEdit &e) { e.setFont(QFont("Courier new", 20)); },
        [](TEdit &e) { e.SetScheme(TZtColorScheme::Find("Dark")); },
        [](TEdit &e) { e.GetLines()->Clear(); },
        [](TEdit &e) { e.SetText("other"), e.clear(); },
        [](TEdit &e) { e.SetCorrections({}); },
    };
    for (const TZtCorrections corrections : {TZtCorrections(), ZtAllCorrections()})
        for (const auto &act : acts) {
            QPointer<TEdit> edit = new TEdit;
            edit->SetCorrections(corrections);
            edit->SetText("one");
            edit->SetModified(false);
            edit->SetSelStart({0, 0});
            edit->SetSelEnd({2, 0});
            edit->SetZoom(120);
            const auto die = [edit] { delete edit.data(); };
            const auto hear = [&](auto signal) { QObject::connect(edit, signal, die); };
            hear(&TEdit::modificationChanged);
            hear(&TEdit::readOnlyChanged);
            hear(&TEdit::selectionChanged);
            hear(&TEdit::undoAvailable);
            hear(&TEdit::zoomChanged);
            hear(&TEdit::schemeChanged);
            hear(&TEdit::correctionsChanged);
            act(*edit);
            const bool silent = !corrections && &act == &acts[std::size(acts) - 1];
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_EQ(edit.isNull(), !silent) << &act - acts;
            delete edit;
        }
}

// --- the meta-object -----------------------------------------------------------------------------

TEST_F(TSignals, EnumerationsAndColoursAreKnown)
{
    struct TProperty {
        const char *Name;
        bool IsFlag;
        const char *Keys;
        int Value;
    };
    for (const TProperty &row : {TProperty{"BorderStyle", false, "bsNone", 0},
                                 {"Options", true, "coShowGuttor|coVirtualSpace", 10},
                                 {"Corrections", true, "zcUndo|zcText", 5 << 20},
                                 {"Extras", true, "zeZoom|zeDragText", 5 << 13},
                                 {"BevelKind", false, "bkFlat", 3}}) {
        const QMetaObject *meta = Edit.metaObject();
        const QMetaProperty property = meta->property(meta->indexOfProperty(row.Name));
        EXPECT_TRUE(property.isEnumType()) << row.Name;
        EXPECT_EQ(property.isFlagType(), row.IsFlag) << row.Name;
        EXPECT_TRUE(Edit.setProperty(row.Name, row.Keys)) << row.Name;
        EXPECT_EQ(Edit.property(row.Name).toInt(), row.Value) << row.Name;
        const QVariant read = Edit.property(row.Name);
        EXPECT_TRUE(Edit.setProperty(row.Name, read)) << row.Name;
        EXPECT_EQ(Edit.property(row.Name), read) << row.Name;
    }
    EXPECT_STREQ(Edit.metaObject()->userProperty().name(), "Text");
    const std::pair<QVariant, TColor> colours[] = {
        {QColor(1, 2, 3), 0x030201},    {QStringLiteral("#0a0b0c"), 0x0C0B0A},
        {QStringLiteral("red"), clRed}, {QStringLiteral("clBtnFace"), clBtnFace},
        {clHighlight, clHighlight},     {QStringLiteral("nonsense"), clHighlight},
    };
    for (const auto &[value, should] : colours) {
        Edit.setProperty("RightMarginColor", value);
        EXPECT_EQ(Edit.property("RightMarginColor").toUInt(), should)
            << value.toString().toStdString();
    }
}

TEST_F(TSignals, StyleSheetsSetProperties)
{
    Edit.setStyleSheet("TZtCodeEdit { qproperty-RightMarginColor: #102030;"
                       " qproperty-Extras: 'zeZoom|zeFineWheel'; qproperty-RightMargin: 40;"
                       " qproperty-ReadOnly: true; qproperty-BorderStyle: bsNone; }");
    Edit.ensurePolished();
    EXPECT_EQ(Edit.GetRightMarginColor(), 0x302010u);
    EXPECT_EQ(int(Edit.GetExtras()), 3 << 13);
    EXPECT_EQ(Edit.GetRightMargin(), 40);
    EXPECT_TRUE(Edit.GetReadOnly());
    EXPECT_EQ(Edit.GetBorderStyle(), TBorderStyle::bsNone);
}

// --- line breaks ---------------------------------------------------------------------------------

TEST_F(TSignals, TheTextComesBackAsItWasSet)
{
    Edit.SetCorrections(ZtAllCorrections());
    const QTemporaryDir folder;
    const struct {
        const char *Set, *AfterX; // typed at the start
    } rows[] = {
        {"", "x"},
        {"a", "xa"},
        {"a\n", "xa\n"},
        {"a\r\nb", "xa\r\nb"},
        {"a\rb\r", "xa\rb\r"},
        {"a\r\nb\nc\n", "xa\nb\nc\n"},
        {"\n", "x\n"},
        {"\r\n\r\n", "x\r\n\r\n"},
        {"a\n\r\nb\r\n\r", "xa\r\n\r\nb\r\n\r\n"},
    };
    for (const auto &row : rows)
        for (const bool file : {false, true}) {
            Edit.SetText(QStringLiteral("other\r\ntext\r\n"));
            if (file) {
                QFile out(folder.filePath("f"));
                ASSERT_TRUE(out.open(QIODevice::WriteOnly) && out.write(row.Set) >= 0);
                out.close();
                Edit.LoadFromFile(out.fileName());
            } else {
                Edit.SetText(row.Set);
            }
            EXPECT_EQ(Edit.GetText(), row.Set);
            Edit.SetLinePos(0);
            Edit.SetCharPos(0);
            Rig.Do("x");
            EXPECT_EQ(Edit.GetText(), row.AfterX);
            Rig.Do("Ctrl+Z");
            EXPECT_EQ(Edit.GetText(), row.Set) << "undone";
            Rig.Do("Shift+Right Ctrl+End");
            const auto caret = Edit.GetCharPos();
            Edit.SetText(row.Set);
            EXPECT_EQ(Edit.GetCharPos(), caret) << "handed back";
        }
    Edit.SetText("a\nb");
    Rig.Do("Ctrl+A Delete");
    EXPECT_EQ(Edit.GetText(), "");
    Edit.SetText("a\r\nb");
    EXPECT_EQ(Edit.GetText(), "a\r\nb") << "other breaks are another text";
    Edit.SetText("a\nb");
    EXPECT_EQ(Edit.GetText(), "a\nb");
}

// --- actions and the menu ------------------------------------------------------------------------

TEST_F(TSignals, ActionsAreEnabledAsTheEditorIs)
{
    using enum TZtEditAction;
    Edit.SetCorrections(ZtAllCorrections());
    Rig.SetMarked("ab|");
    Edit.ClearUndo();
    TZtEditActions actions(&Edit);
    EXPECT_EQ(actions.GetAction(eaReplace)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    QGuiApplication::clipboard()->setText("text");
    const auto enabled = [&] {
        QString letters;
        for (const QAction *action : actions.GetActions())
            letters += action->isEnabled() ? action->text().remove(u'&').at(0) : u'-';
        return letters;
    };
    EXPECT_EQ(enabled(), "----P-SFRFFG");
    const std::pair<std::function<void()>, const char *> rows[] = {
        {[&] { Rig.Do("x"); }, "U---P-SFRFFG"},
        {[&] { actions.GetAction(eaUndo)->trigger(); }, "-R--P-SFRFFG"},
        {[&] { actions.GetAction(eaSelectAll)->trigger(); }, "-RCCPDSFRFFG"},
        {[&] { Edit.SetReadOnly(true); }, "---C--SF-FFG"},
        {[&] { actions.GetAction(eaCopy)->trigger(); }, "---C--SF-FFG"},
        {[&] { Edit.SetReadOnly(false); }, "-RCCPDSFRFFG"},
        {[&] { actions.GetAction(eaDelete)->trigger(); }, "U---P-SFRFFG"},
        {[&] { actions.SetEdit(nullptr); }, "------------"},
    };
    for (const auto &[act, should] : rows) {
        act();
        EXPECT_EQ(enabled(), should);
    }
    EXPECT_EQ(Rig.Clipboard, "ab");
    auto *other = new TZtCodeEdit;
    actions.SetEdit(other);
    EXPECT_EQ(enabled(), "----P-SFRFFG");
    delete other;
    EXPECT_EQ(enabled(), "------------");
}

// In a menu of the window, and with the actions in the editor: each key does its work once, by the
// way that the keys of a real window take.
TEST_F(TSignals, KeysOfActionsWorkOnce)
{
    QWidget window;
    TZtCodeEdit edit(&window);
    QLineEdit line(&window);
    TZtEditActions actions(&edit);
    QMenuBar bar(&window);
    bar.addMenu("Edit")->addActions(actions.GetActions());
    window.show();
    QApplication::setActiveWindow(&window);
    ZtPlatform().ClipboardText = [] { return QStringLiteral("p"); };
    QGuiApplication::clipboard()->setText("p");
    int triggered = 0;
    for (const QAction *action : actions.GetActions())
        QObject::connect(action, &QAction::triggered, [&] { ++triggered; });
    const auto paste = [&](QWidget &focus) {
        focus.setFocus();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            qt_handleKeyEvent(window.windowHandle(), type, Qt::Key_V, Qt::ControlModifier, "\x16",
                              false, 1);
        QCoreApplication::processEvents();
    };
    for (const bool added : {false, true}) {
        if (added)
            edit.addActions(actions.GetActions());
        edit.SetText({});
        line.clear();
        paste(edit);
        EXPECT_EQ(edit.GetText(), "p\r\n");
        paste(line);
        EXPECT_EQ(line.text(), "p");
        EXPECT_EQ(edit.GetText(), "p\r\n");
    }
    EXPECT_EQ(triggered, 0) << "the editor has the key by itself";
}

TEST_F(TSignals, TheMenu)
{
    Edit.SetCorrections(ZtAllCorrections());
    const auto shown = [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QStringList texts;
        for (const QAction *action : menu ? menu->actions() : QList<QAction *>())
            texts += action->isSeparator() ? QStringLiteral("|") : action->text().remove(u'&');
        if (menu)
            menu->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return texts.join(u' ');
    };
    const auto ask = [&](QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, QPoint(60, 10), Edit.mapToGlobal(QPoint(60, 10)));
        QCoreApplication::sendEvent(&Edit, &event);
    };
    const QString standard = "Undo Redo | Cut Copy Paste Delete | Select all";
    QMenu host;
    host.addAction("host");
    for (const bool extra : {false, true})
        for (QMenu *menu : {static_cast<QMenu *>(nullptr), &host}) {
            SCOPED_TRACE(testing::Message() << extra << !!menu);
            Edit.SetExtras(extra ? TZtExtras(TZtExtra::zeContextMenu) : TZtExtras());
            Edit.SetPopupMenu(menu);
            const QString should = menu ? "host" : extra ? standard : QString();
            ask(QContextMenuEvent::Keyboard);
            EXPECT_EQ(shown(), should);
            ask(QContextMenuEvent::Mouse);
            EXPECT_EQ(shown(), menu ? QString() : should) << "a host's came with the press";
            Rig.Do("Shift+F10");
            EXPECT_EQ(shown(), extra ? should : QString());
            Rig.SetMarked("ab [cd] ef");
            Rig.Do("right@4,0");
            EXPECT_EQ(Rig.Marked(), "ab [cd] ef");
            shown();
            Rig.Do("right@1,0");
            EXPECT_EQ(Rig.Marked(), extra ? "a|b cd ef" : "ab [cd] ef");
            shown();
        }
    Edit.SetPopupMenu(nullptr);
}

// --- small things --------------------------------------------------------------------------------

TEST_F(TSignals, TheSearchsFlagsFollow)
{
    for (const TZtSearchFlags given : {TZtSearchFlags(), TZtSearchFlags(TZtSearchFlag::sfDown)}) {
        TZtSearchReplaceOptions options;
        options.SearchString = "B";
        options.SearchForward = options.CaseSensitive = true;
        options.Options = given;
        Rig.SetMarked("|b B b");
        options.WidenTo(*Edit.GetLines());
        Edit.SetSearchOptions(options);
        TZtMessage again(1027, 0, 0);
        Edit.Dispatch(again);
        EXPECT_EQ(Edit.GetCharPos(), given ? 1 : 3) << "a host's own flags are taken as they are";
    }
}

// A style sheet gives the bars another thickness, also one that comes later.
TEST_F(TSignals, BarsFollowStyleSheets)
{
    for (const char *sheet : {"* { border: 2px solid red; background: yellow; margin: 1px; }",
                              "QScrollBar { width: 30px; height: 30px; }", ""}) {
        SCOPED_TRACE(sheet);
        Edit.setStyleSheet(sheet);
        QCoreApplication::processEvents();
        const QScrollBar &across = *Rig.H, &down = *Rig.V;
        EXPECT_EQ(down.geometry().right(), Edit.width() - 1);
        EXPECT_EQ(across.geometry().bottom(), Edit.height() - 1);
        EXPECT_EQ(down.width(), down.sizeHint().width());
        EXPECT_EQ(across.height(), across.sizeHint().height());
        EXPECT_EQ(down.geometry().bottom() + 1, across.y());
        EXPECT_EQ(across.geometry().right() + 1, down.x());
    }
}
