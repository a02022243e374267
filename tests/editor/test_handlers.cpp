// Handlers that do what they should not: whatever one does, the editor goes on, and an operation is
// done, with its undo item, or not done.

#include "marked_text.h"

#include "uZtCodeJSParser.h"

#include <QApplication>

namespace {

using THandler = std::function<void()>;

// An editor that may be deleted.
struct TVictim {
    explicit TVictim(const QString &APrepare) : Form(new QWidget), Edit(new TZtCodeEdit(Form))
    {
        TZtPlatform &platform = ZtPlatform();
        platform.ShowException = [](const QString &) {};
        platform.ClipboardText = [] { return QString("paste"); };
        platform.SetClipboardText = [](const QString &) {};
        platform.MsgBoxInfo = [](const QString &, const QString &) {};
        platform.MsgBoxYesNoCancel = [](const QString &, const QString &) { return mrNo; };
        Parser = new TZtCodeJSParser(Form);
        Edit->SetParser(Parser);
        Edit->resize(300, 180);
        Form->show();
        QApplication::setActiveWindow(Form);
        Edit->setFocus();
        Edit->SetText("one two\nthree // four\n  five\n");
        TZtSearchReplaceOptions options;
        options.SearchString = "o";
        options.Options = TZtSearchFlag::sfDown;
        options.SearchForward = options.Replace = options.ReplaceAll = true;
        options.PromptOnReplace = true;
        options.WidenTo(*Edit->GetLines());
        Edit->SetSearchOptions(options);
        DoInEditor(Edit, "Down Right*2 " + APrepare);
        QCoreApplication::processEvents();
    }
    ~TVictim()
    {
        delete Form;
        delete Edit; // when a handler has taken it out of the form
        Settle();
        ZtPlatform() = ZtDefaultPlatform();
    }
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // What may not be half done.
    auto State() const { return std::pair(Edit->GetText(), Edit->GetUndoList()->GetCount()); }

    QPointer<QWidget> Form;
    QPointer<TZtCodeEdit> Edit;
    QPointer<TZtCodeJSParser> Parser;
};

using TInstall = void (*)(TVictim &, const THandler &);
template <auto ASignal> void Connect(TVictim &v, const THandler &h)
{
    QObject::connect(v.Edit, ASignal, v.Edit, h);
}
template <auto AEvent> void BehindOwn(TVictim &v, const THandler &h)
{
    auto &handler = v.Edit->GetLines()->*AEvent;
    handler = [h, own = handler](QObject *s) { own(s), h(); };
}
const std::pair<const char *, TInstall> Callbacks[] = {
    {"OnChange", [](auto &v, auto &h) { v.Edit->SetOnChange([h](QObject *) { h(); }); }},
    {"OnCursorChange",
     [](auto &v, auto &h) { v.Edit->SetOnCursorChange([h](QObject *) { h(); }); }},
    {"textChanged", Connect<&TZtCodeEdit::textChanged>},
    {"cursorPositionChanged", Connect<&TZtCodeEdit::cursorPositionChanged>},
    {"Lines.OnChanging", BehindOwn<&TStringList::OnChanging>},
    {"Lines.OnChange", BehindOwn<&TStringList::OnChange>},
    {"OnParserLineChange",
     [](auto &v, auto &h) {
         v.Edit->SetOnParserLineChange([h](int, TColor &, TColor &) { return h(), false; });
     }},
    {"OnPaintInfo",
     [](auto &v, auto &h) {
         v.Parser->OnPaintInfo = [h](const QString &, TColor &, TColor &, TFontStyles &) { h(); };
     }},
    {"OnKeyDown",
     [](auto &v, auto &h) { v.Edit->OnKeyDown = [h](QObject *, quint16 &, TShiftState) { h(); }; }},
    {"mouse",
     [](auto &v, auto &h) {
         v.Edit->OnMouseDown = [h](QObject *, TMouseButton, TShiftState, int, int) { h(); };
         v.Edit->OnMouseUp = v.Edit->OnMouseDown;
         v.Edit->OnMouseMove = [h](QObject *, TShiftState, int, int) { h(); };
         v.Edit->OnDblClick = [h](QObject *) { h(); };
     }},
    {"clipboard",
     [](auto &, auto &h) {
         ZtPlatform().ClipboardText = [h] { return h(), QString("paste"); };
         ZtPlatform().SetClipboardText = [h](const QString &) { h(); };
     }},
    {"message box",
     [](auto &, auto &h) {
         ZtPlatform().MsgBoxInfo = [h](const QString &, const QString &) { h(); };
         ZtPlatform().MsgBoxYesNoCancel = [h](auto &, auto &) { return h(), mrYes; };
     }},
};

using TAction = void (*)(TVictim &);
const std::pair<std::string, TAction> Actions[] = {
    {"throw", [](TVictim &) { throw EZtException("raised"); }},
    {"throw an int", [](TVictim &) { throw 7; }},
    {"delete", [](TVictim &v) { delete v.Edit; }},
    {"delete later", [](TVictim &v) { v.Edit->deleteLater(); }},
    {"delete form", [](TVictim &v) { delete v.Form; }},
    {"close", [](TVictim &v) { v.Form->close(); }},
    {"take lexer", [](TVictim &v) { delete v.Parser; }},
    {"take own lexer", [](TVictim &v) { v.Edit->SetParser(nullptr), delete v.Edit->GetParser(); }},
    {"type", [](TVictim &v) { v.Edit->InsertText(TZtChangeType::ctPaste, "in\nside"); }},
    {"undo", [](TVictim &v) { ZtSendMessage(v.Edit, TZtMsg::wmUndo); }},
    {"empty the text", [](TVictim &v) { v.Edit->GetLines()->Clear(); }},
    {"take a line", [](TVictim &v) { v.Edit->GetLines()->Delete(0); }},
    {"set the text", [](TVictim &v) { v.Edit->SetText("new"); }},
    {"let go of handlers",
     [](TVictim &v) {
         v.Edit->SetOnChange(nullptr);
         v.Edit->SetOnCursorChange(nullptr);
         v.Edit->SetOnParserLineChange(nullptr);
         v.Parser->OnPaintInfo = nullptr;
         v.Edit->OnKeyDown = nullptr;
         v.Edit->OnDblClick = nullptr;
     }},
    {"repaint", [](TVictim &v) { v.Edit->repaint(), v.Edit->Paint(); }},
    {"turn the event loop", [](TVictim &) { QCoreApplication::processEvents(); }},
};

// What is done before the handler comes, and with it.
const struct {
    const char *Prepare, *Do;
} Triggers[] = {
    {"", "x"},
    {"", "Enter"},
    {"", "Backspace"},
    {"", "Delete"},
    {"", "#772"},
    {"Shift+Up", "#768"},
    {"", "#770"},
    {"insert:ab", "#772"},
    {"Shift+Up #768", "#772"},
    {"", "insert:p\r\nq\r\nr"},
    {"", "press@3,1 move@5,2 release@5,2 double@5,1"},
    {"", "#1027"}, // replace
    {"", "paint"},
};

// How often `ADo` calls the handler, whose call `AAt` does something.
int CallsIn(TVictim &AVictim, const char *ADo, TInstall AInstall, int AAt, const THandler &AHandler)
{
    const auto calls = std::make_shared<int>(0);
    AInstall(AVictim, [calls, AAt, AHandler, edit = AVictim.Edit] {
        if (++*calls == AAt && edit)
            AHandler();
    });
    try {
        DoInEditor(AVictim.Edit, ADo);
    } catch (const EZtException &) { // a host that inserts gets it
    } catch (int) {
    }
    return *calls;
}

} // namespace

// What is half done by a handler that raises is undone: the text and the undo items are those
// before the operation, or those after it.
TEST(Handlers, MayDoWhatTheyLike)
{
    int ran = 0;
    const auto run = [&ran](const auto &trigger, const auto &callback, const auto &action) {
        const auto &[prepare, doing] = trigger;
        const auto plain = std::make_unique<TVictim>(prepare);
        const auto before = plain->State();
        const int calls = CallsIn(*plain, doing, callback.second, 0, {});
        const auto after = plain->State();
        const bool raises = action.first == "throw";
        for (int at = 1; at <= (raises ? calls : qMin(calls, 2)); ++at, ++ran) {
            TVictim victim(prepare);
            CallsIn(victim, doing, callback.second, at, [&] { action.second(victim); });
            victim.Settle();
            ASSERT_EQ(victim.Edit.isNull(), action.first.starts_with("delete")) << at;
            if (!victim.Edit)
                continue;
            // A replacement is a deletion and an insertion.
            if (raises && QByteArray(doing) != "#1027") {
                // An undo that was prevented keeps the item that it was given.
                const auto state = victim.State();
                ASSERT_TRUE(state == after || state.first == before.first) << at;
                ASSERT_TRUE(state.second == after.second || state.second >= before.second) << at;
            }
            victim.Edit->grab();
        }
    };
    for (const auto &trigger : Triggers)
        for (const auto &callback : Callbacks)
            for (const auto &action : Actions) {
                SCOPED_TRACE(testing::Message()
                             << trigger.Do << ", " << callback.first << ", " << action.first);
                run(trigger, callback, action);
            }
    EXPECT_GT(ran, 1000);
}
