// Handlers that do what they should not: whatever one does, the editor goes on, and an operation is
// done, with its undo item, or not done.

#include "marked_text.h"

#include "uZtCodeJSParser.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

using THandler = std::function<void()>;

// An editor that may be deleted, with one handler that does something at its n-th call.
struct TVictim {
    TVictim() : Form(new QWidget), Edit(new TZtCodeEdit(Form)), Parser(new TZtCodeJSParser(Form))
    {
        ZtPlatform().ClipboardText = [] { return QString("paste"); };
        ZtPlatform().SetClipboardText = [](const QString &) {};
        ZtPlatform().MsgBoxInfo = [](const QString &, const QString &) {};
        ZtPlatform().MsgBoxYesNoCancel = [](const QString &, const QString &) { return mrNo; };
        Edit->SetParser(Parser);
        Form->resize(320, 200);
        Edit->resize(300, 180);
        Form->show();
        QApplication::setActiveWindow(Form);
        Edit->setFocus();
        Edit->SetText("one two\nthree // four\n  five\n");
        Edit->SetLinePos(1);
        Edit->SetCharPos(2);
        QCoreApplication::processEvents();
    }
    ~TVictim()
    {
        delete Form;
        delete Edit; // when a handler has taken it out of the form
        Settle();
    }
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QPointer<QWidget> Form;
    QPointer<TZtCodeEdit> Edit;
    QPointer<TZtCodeJSParser> Parser;
};

struct TCallback {
    const char *Name;
    std::function<void(TVictim &, const THandler &)> Install;
};

const std::vector<TCallback> &Callbacks()
{
    static const std::vector<TCallback> list = {
        {"OnChange",
         [](TVictim &v, const THandler &h) { v.Edit->SetOnChange([h](QObject *) { h(); }); }},
        {"OnCursorChange",
         [](TVictim &v, const THandler &h) { v.Edit->SetOnCursorChange([h](QObject *) { h(); }); }},
        {"textChanged",
         [](TVictim &v, const THandler &h) {
             QObject::connect(v.Edit, &TZtCodeEdit::textChanged, v.Edit, h);
         }},
        {"cursorPositionChanged",
         [](TVictim &v, const THandler &h) {
             QObject::connect(v.Edit, &TZtCodeEdit::cursorPositionChanged, v.Edit, h);
         }},
        {"Lines.OnChanging",
         [](TVictim &v, const THandler &h) {
             TStringList *lines = v.Edit->GetLines();
             lines->OnChanging = [h, own = lines->OnChanging](QObject *s) { own(s), h(); };
         }},
        {"Lines.OnChange",
         [](TVictim &v, const THandler &h) {
             TStringList *lines = v.Edit->GetLines();
             lines->OnChange = [h, own = lines->OnChange](QObject *s) { own(s), h(); };
         }},
        {"OnParserLineChange",
         [](TVictim &v, const THandler &h) {
             v.Edit->SetOnParserLineChange([h](int, TColor &, TColor &) { return h(), false; });
         }},
        {"OnPaintInfo",
         [](TVictim &v, const THandler &h) {
             v.Parser->OnPaintInfo = [h](const QString &, TColor &, TColor &, TFontStyles &) {
                 h();
             };
         }},
        {"OnKeyDown",
         [](TVictim &v, const THandler &h) {
             v.Edit->OnKeyDown = [h](QObject *, quint16 &, TShiftState) { h(); };
         }},
        {"mouse",
         [](TVictim &v, const THandler &h) {
             v.Edit->OnMouseDown = [h](QObject *, TMouseButton, TShiftState, int, int) { h(); };
             v.Edit->OnMouseUp = v.Edit->OnMouseDown;
             v.Edit->OnMouseMove = [h](QObject *, TShiftState, int, int) { h(); };
             v.Edit->OnDblClick = [h](QObject *) { h(); };
         }},
        {"clipboard",
         [](TVictim &, const THandler &h) {
             ZtPlatform().ClipboardText = [h] { return h(), QString("paste"); };
             ZtPlatform().SetClipboardText = [h](const QString &) { h(); };
         }},
        {"message box",
         [](TVictim &, const THandler &h) {
             ZtPlatform().MsgBoxInfo = [h](const QString &, const QString &) { h(); };
             ZtPlatform().MsgBoxYesNoCancel = [h](const QString &, const QString &) {
                 return h(), mrYes;
             };
         }},
    };
    return list;
}

struct TAction {
    const char *Name;
    std::function<void(TVictim &)> Do;
};

const std::vector<TAction> &Actions()
{
    static const std::vector<TAction> list = {
        {"throw", [](TVictim &) { throw EZtException("raised"); }},
        {"throw an int", [](TVictim &) { throw 7; }},
        {"delete", [](TVictim &v) { delete v.Edit; }},
        {"deleteLater", [](TVictim &v) { v.Edit->deleteLater(); }},
        {"delete form", [](TVictim &v) { delete v.Form; }},
        {"close", [](TVictim &v) { v.Form->close(); }},
        {"delete lexer", [](TVictim &v) { delete v.Parser; }},
        {"delete own lexer",
         [](TVictim &v) {
             v.Edit->SetParser(nullptr);
             delete v.Edit->GetParser();
         }},
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
        {"repaint",
         [](TVictim &v) {
             v.Edit->repaint();
             v.Edit->Paint();
         }},
        {"turn the event loop", [](TVictim &) { QCoreApplication::processEvents(); }},
    };
    return list;
}

void Mouse(TZtCodeEdit *AEdit, QEvent::Type AType, QPoint AAt)
{
    if (!AEdit)
        return;
    QMouseEvent event(AType, AAt, AEdit->mapToGlobal(QPointF(AAt)), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(AEdit, &event);
}

struct TTrigger {
    const char *Name;
    std::function<void(TVictim &)> Do;
};

TTrigger Message(const char *AName, quint32 AMsg)
{
    return {AName, [AMsg](TVictim &v) { ZtSendMessage(v.Edit, AMsg); }};
}

TTrigger Key(const char *AName, int AKey, const QString &AText)
{
    return {AName, [=](TVictim &v) {
                QKeyEvent event(QEvent::KeyPress, AKey, Qt::NoModifier, AText);
                QCoreApplication::sendEvent(v.Edit, &event);
            }};
}

const std::vector<TTrigger> &Triggers()
{
    static const std::vector<TTrigger> list = {
        Key("x", Qt::Key_X, "x"),
        Key("Enter", Qt::Key_Return, "\r"),
        Key("Backspace", Qt::Key_Backspace, "\b"),
        Key("Delete", Qt::Key_Delete, {}),
        Message("undo of nothing", 772),
        {"cut of lines",
         [](TVictim &v) {
             v.Edit->SetSelEnd({1, 0});
             ZtSendMessage(v.Edit, TZtMsg::wmCut);
         }},
        Message("paste", 770),
        {"undo of an insertion",
         [](TVictim &v) {
             v.Edit->GetUndoList()->AddUndo(TZtChangeType::ctInsert, {0, 1}, {2, 1}, {0, 1}, {});
             ZtSendMessage(v.Edit, TZtMsg::wmUndo);
         }},
        {"undo of a deletion",
         [](TVictim &v) {
             v.Edit->GetUndoList()->AddUndo(TZtChangeType::ctCut, {1, 1}, {2, 2}, {0, 1}, "a\r\nb");
             ZtSendMessage(v.Edit, TZtMsg::wmUndo);
         }},
        {"insertion of lines",
         [](TVictim &v) {
             try {
                 v.Edit->InsertText(TZtChangeType::ctPaste, "p\r\nq\r\nr");
             } catch (const EZtException &) {
             } catch (int) {
             }
         }},
        {"mouse",
         [](TVictim &v) {
             Mouse(v.Edit, QEvent::MouseButtonPress, {40, 20});
             Mouse(v.Edit, QEvent::MouseMove, {60, 40});
             Mouse(v.Edit, QEvent::MouseButtonRelease, {60, 40});
             Mouse(v.Edit, QEvent::MouseButtonDblClick, {60, 20});
         }},
        {"replacement",
         [](TVictim &v) {
             TZtSearchReplaceOptions options;
             options.SearchString = "o";
             options.Options = TZtSearchFlag::sfDown;
             options.SearchForward = options.Replace = options.ReplaceAll = true;
             options.PromptOnReplace = true;
             options.WidenTo(*v.Edit->GetLines());
             v.Edit->SetSearchOptions(options);
             ZtSendMessage(v.Edit, 1027);
         }},
        {"paint", [](TVictim &v) { v.Edit->grab(); }},
    };
    return list;
}

// What may not be half done.
std::pair<QString, int> State(const TVictim &AVictim)
{
    return {AVictim.Edit->GetText(), AVictim.Edit->GetUndoList()->GetCount()};
}

class Handlers : public testing::Test {
protected:
    Handlers()
    {
        ZtPlatform().ShowException = [](const QString &) {};
    }
    ~Handlers() override { ZtPlatform() = ZtDefaultPlatform(); }
};

} // namespace

// How often a trigger calls a handler that does nothing.
static int CallsOf(const TTrigger &ATrigger, const TCallback &ACallback)
{
    TVictim victim;
    int calls = 0;
    ACallback.Install(victim, [&] { ++calls; });
    ATrigger.Do(victim);
    return calls;
}

TEST_F(Handlers, MayDoWhatTheyLike)
{
    int ran = 0;
    for (const TTrigger &trigger : Triggers())
        for (const TCallback &callback : Callbacks()) {
            const int most = qMin(CallsOf(trigger, callback), 2);
            for (int at = 1; at <= most; ++at)
                for (const TAction &action : Actions()) {
                    SCOPED_TRACE(std::string(trigger.Name) + ", " + callback.Name + ", " +
                                 action.Name + ", call " + std::to_string(at));
                    TVictim victim;
                    int calls = 0;
                    callback.Install(victim, [&] {
                        if (++calls == at && victim.Edit)
                            action.Do(victim);
                    });
                    trigger.Do(victim);
                    ASSERT_GE(calls, at);
                    ++ran;
                    victim.Settle();
                    const QByteArray name = action.Name;
                    ASSERT_EQ(
                        victim.Edit.isNull(),
                        QByteArrayList({"delete", "deleteLater", "delete form"}).contains(name));
                    if (victim.Edit)
                        victim.Edit->grab();
                }
        }
    EXPECT_GT(ran, 1000);
}

TEST_F(Handlers, ThatRaiseLeaveNothingHalfDone)
{
    int ran = 0;
    for (const TTrigger &trigger : Triggers()) {
        if (QByteArray(trigger.Name) == "replacement")
            continue; // a deletion and an insertion
        for (const TCallback &callback : Callbacks())
            for (int at = CallsOf(trigger, callback); at > 0; --at, ++ran) {
                SCOPED_TRACE(std::string(trigger.Name) + ", " + callback.Name + ", call " +
                             std::to_string(at));
                TVictim plain, victim;
                const auto before = State(victim);
                trigger.Do(plain);
                const auto after = State(plain);
                int calls = 0;
                callback.Install(victim, [&] {
                    if (++calls == at)
                        throw EZtException("raised");
                });
                trigger.Do(victim);
                // An undo that was prevented keeps the item that it was given.
                const auto state = State(victim);
                ASSERT_TRUE(state == after || state.first == before.first) << state.second;
                ASSERT_TRUE(state.second == after.second || state.second >= before.second);
            }
    }
    EXPECT_GT(ran, 100);
}
