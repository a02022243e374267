#include "require.h"

#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <iterator>

namespace {

constexpr int Keys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                        Qt::Key_Home, Qt::Key_End,    Qt::Key_PageUp,   Qt::Key_PageDown,
                        Qt::Key_Tab,  Qt::Key_Delete, Qt::Key_Backspace};
constexpr quint32 Messages[] = {768, 769, 770, 772, 1025};
const QString Texts[] = {QStringLiteral("one two"),        QStringLiteral("\r\n"),
                         QStringLiteral("a\r\n\r\n  b\n"), QStringLiteral("/*"),
                         QStringLiteral("\tf(x)"),         QString::fromUcs4(U"\U0001F600")};

// It stays until the program ends: an engine has no place to take it down in time.
void StartApplication()
{
    static int argc = 1;
    static char name[] = "fuzz_editor";
    static char *argv[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    [[maybe_unused]] static const auto *application = new QApplication(argc, argv);
}

/// An editor that is worked through its events: each step is two bytes, what is done and with what.
class TEditorRun {
public:
    TEditorRun()
    {
        ZtPlatform().KeyboardShift = [this] { return FShift; };
        ZtPlatform().ClipboardText = [this] { return FClipboard; };
        ZtPlatform().SetClipboardText = [this](const QString &S) { FClipboard = S.left(200); };
        // What an undo raises when the line that it wants is gone.
        ZtPlatform().ShowException = [](const QString &) {};
        FEdit.SetParser(&FParser);
        FEdit.resize(300, 200);
    }

    void Step(uint8_t AWhat, uint8_t AWith)
    {
        static constexpr void (TEditorRun::*Steps[])(uint8_t) = {
            &TEditorRun::Paint,   &TEditorRun::Type,  &TEditorRun::Control, &TEditorRun::Press,
            &TEditorRun::Message, &TEditorRun::Click, &TEditorRun::Insert,  &TEditorRun::Paste};
        FShift = AWhat & 0x80 ? TShiftState(ssShift) : TShiftState();
        (this->*Steps[AWhat % std::size(Steps)])(AWith);
        QCoreApplication::removePostedEvents(&FEdit);
        const int count = FEdit.GetLines()->GetCount();
        Require(FEdit.GetLinePos() >= 0 && FEdit.GetLinePos() <= qMax(0, count - 1),
                "the caret is in a line of the text");
        Require(FEdit.GetCharPos() >= 0, "the caret is in a column");
    }

    void UndoAll()
    {
        for (int left = FEdit.GetUndoList()->GetCount(); FEdit.GetCanUndo(); --left) {
            Require(left > 0, "each undo takes an item away");
            ZtSendMessage(&FEdit, TZtMsg::wmUndo);
        }
        Paint(0);
    }

private:
    void Paint(uint8_t) { FEdit.grab(); }
    void Type(uint8_t AWith) { Key(0, QChar(AWith)); }
    void Control(uint8_t AWith) { Key(AWith == 13 ? Qt::Key_Return : 0, QChar(AWith % 32)); }
    void Press(uint8_t AWith)
    {
        Key(Keys[AWith % std::size(Keys)], {}, AWith & 0x40 ? Qt::ControlModifier : Qt::NoModifier);
    }
    void Message(uint8_t AWith) { ZtSendMessage(&FEdit, Messages[AWith % std::size(Messages)]); }
    void Click(uint8_t AWith)
    {
        const QPointF place(AWith % 16 * 20, AWith / 16 * 15);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, place, Qt::LeftButton, Qt::LeftButton, Modifiers());
            QCoreApplication::sendEvent(&FEdit, &event);
        }
    }
    void Insert(uint8_t AWith) { FEdit.InsertText(TZtChangeType::ctInsert, Text(AWith)); }
    void Paste(uint8_t AWith)
    {
        FClipboard = Text(AWith);
        ZtSendMessage(&FEdit, TZtMsg::wmPaste);
    }

    static const QString &Text(uint8_t AWith) { return Texts[AWith % std::size(Texts)]; }
    Qt::KeyboardModifiers Modifiers() const { return FShift ? Qt::ShiftModifier : Qt::NoModifier; }
    void Key(int AKey, const QString &AText, Qt::KeyboardModifiers AModifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, AKey, AModifiers | Modifiers(), AText);
        QCoreApplication::sendEvent(&FEdit, &event);
    }

    TZtCodeJSParser FParser;
    TZtCodeEdit FEdit;
    TShiftState FShift;
    QString FClipboard;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    StartApplication();
    TEditorRun run;
    for (size_t i = 0; i + 1 < qMin<size_t>(ASize, 400); i += 2)
        run.Step(AData[i], AData[i + 1]);
    run.UndoAll();
    return 0;
}
