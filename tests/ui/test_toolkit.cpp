#include "uZtCustomControl.h"
#include "uZtException.h"
#include "uZtPlatform.h"
#include "uZtScrollBar.h"
#include "uZtSystemColors.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <random>

namespace {

// Writes down what reaches it and fills its client area with red.
struct TProbe : TCustomControl {
    using TCustomControl::TCustomControl;
    void KeyDown(quint16 &Key, TShiftState Shift) override
    {
        Log += QStringLiteral("key%1/%2 ").arg(Key).arg(int(Shift));
        TCustomControl::KeyDown(Key, Shift);
    }
    void WMChar(TZtMessage &Message) override
    {
        Log += QStringLiteral("char%1 ").arg(Message.WParam);
    }
    bool Dispatch(TZtMessage &Message) override
    {
        if (Message.Msg != quint32(TZtMsg::wmUser))
            return TCustomControl::Dispatch(Message);
        Log += QStringLiteral("message%1,%2 ").arg(Message.WParam).arg(Message.LParam);
        Message.Result = 42;
        return true;
    }
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override
    {
        Log += QStringLiteral("mouse%1:%2,%3 ").arg(int(Button)).arg(X).arg(Y);
        TCustomControl::MouseDown(Button, Shift, X, Y);
    }
    void Notification(QObject *, TOperation) override { Log += QStringLiteral("removed "); }
    void Paint() override { Canvas()->fillRect(-50, -50, 500, 500, Qt::red); }
    QString Log;
};

using enum TCustomControl::TBevelKind;
using enum TCustomControl::TBevelEdge;
using enum TCustomControl::TBevelCut;
using enum TCustomControl::TAlign;
using enum TCustomControl::TAnchorKind;

// Sends a key and answers whether it was accepted.
bool Press(QWidget &AWidget, int AKey, Qt::KeyboardModifiers AModifiers = {},
           const QString &AText = {})
{
    QKeyEvent event(QEvent::KeyPress, AKey, AModifiers, AText);
    QCoreApplication::sendEvent(&AWidget, &event);
    return event.isAccepted();
}

void Click(QWidget &AWidget, QPointF AAt, Qt::MouseButton AButton)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, AAt, AAt, AButton, AButton, {});
        QCoreApplication::sendEvent(&AWidget, &event);
    }
}

constexpr auto None = Qt::NoModifier;
constexpr auto Shift = Qt::ShiftModifier;
constexpr auto Ctrl = Qt::ControlModifier;
constexpr auto Alt = Qt::AltModifier;
constexpr auto Pad = Qt::KeypadModifier;
constexpr auto AltGr = Qt::GroupSwitchModifier;

} // namespace

TEST(Keys, CodesShiftStateAndCharacters)
{
    const struct {
        int Key;
        Qt::KeyboardModifiers Modifiers;
        const char16_t *Text;
        const char *Log; // the key's code / shift 1, alt 2, ctrl 4; then its characters
    } rows[] = {{Qt::Key_A, None, u"a", "key65/0 char97 "},
                {Qt::Key_Z, Ctrl, u"\x1a", "key90/4 "},
                {Qt::Key_A, Alt, u"a", "key65/2 "},
                {Qt::Key_Q, AltGr | Alt, u"@", "key81/0 char64 "},
                {Qt::Key_Q, Ctrl | Alt, u"@", "key81/0 char64 "},
                {Qt::Key_Q, Ctrl | Alt, u"\x11", "key81/6 "},
                {Qt::Key_7, None, u"7", "key55/0 char55 "},
                {Qt::Key_7, Pad, u"7", "key103/0 char55 "},
                {Qt::Key_Plus, Pad, u"+", "key107/0 char43 "},
                {Qt::Key_Minus, Pad, u"-", "key109/0 char45 "},
                {Qt::Key_Asterisk, Pad, u"*", "key106/0 char42 "},
                {Qt::Key_Slash, Pad, u"/", "key111/0 char47 "},
                {Qt::Key_Comma, Pad, u",", "key110/0 char44 "},
                {Qt::Key_Return, None, u"\r", "key13/0 char13 "},
                {Qt::Key_Enter, Pad, u"\n", "key13/0 char13 "},
                {Qt::Key_Backspace, None, u"\b", "key8/0 char8 "},
                {Qt::Key_Tab, None, u"\t", "key9/0 char9 "},
                {Qt::Key_Backtab, Shift, u"\t", "key9/1 char9 "},
                {Qt::Key_Escape, None, u"\x1b", "key27/0 char27 "}, // a host's, unless consumed
                {Qt::Key_Delete, None, u"\x7f", "key46/0 "},
                {Qt::Key_End, Ctrl, u"", "key35/4 "},
                {Qt::Key_F1, None, u"", "key112/0 "},
                {Qt::Key_Exclam, Shift, u"!", "key0/1 char33 "},
                {0, None, u"😀", "key0/0 char55357 char56832 "}};
    TProbe probe;
    for (const auto &row : rows) {
        // A consumed key still types its characters.
        for (const bool consumed : {false, true}) {
            probe.Log.clear();
            probe.OnKeyDown = [consumed](QObject *, quint16 &key, TShiftState) {
                key = consumed ? 0 : key;
            };
            const auto text = QString::fromUtf16(row.Text);
            const bool accepted = Press(probe, row.Key, row.Modifiers, text);
            EXPECT_EQ(probe.Log, QString::fromLatin1(row.Log)) << row.Key << ' ' << row.Modifiers;
            const bool typed = probe.Log.contains(u"char") && row.Key != Qt::Key_Escape;
            EXPECT_EQ(accepted, typed || (consumed && !probe.Log.startsWith(u"key0")));
        }
    }
    probe.Log.clear();
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("\u65e5b"));
    QCoreApplication::sendEvent(&probe, &commit);
    EXPECT_EQ(probe.Log, QStringLiteral("char26085 char98 "));
}

TEST(Keys, TheEventsOwnShiftStateIsTheKeyboards)
{
    TProbe probe;
    QList<TShiftState> seen;
    probe.OnKeyDown = [&](QObject *, quint16 &, TShiftState) {
        {
            const TZtEventShift event(Alt);
            seen += ZtPlatform().KeyboardShift();
        }
        seen += ZtPlatform().KeyboardShift();
    };
    Press(probe, Qt::Key_Left, Shift | Ctrl);
    EXPECT_EQ(seen, (QList<TShiftState>{ssAlt, ssShift | ssCtrl}));
}

TEST(SystemColors, FollowThePalette)
{
    QPalette palette;
    const std::pair<TColor, QPalette::ColorRole> rows[] = {
        {clWindow, QPalette::Base},         {clWindowText, QPalette::Text},
        {clHighlight, QPalette::Highlight}, {clHighlightText, QPalette::HighlightedText},
        {clBtnFace, QPalette::Button},      {clBtnShadow, QPalette::Dark},
        {clBtnHighlight, QPalette::Light},
    };
    for (const auto &[color, role] : rows)
        palette.setColor(role, QColor(10 + role, 2, 3));
    for (const auto &[color, role] : rows)
        EXPECT_EQ(ZtColorToRGB(color, palette), TColor(0x03020A + role)) << role;
    EXPECT_EQ(ZtColorToRGB(0x123456, palette), 0x123456u);
    EXPECT_EQ(ZtToQColor(0x123456, palette), QColor(0x56, 0x34, 0x12));
    EXPECT_EQ(ZtColorToRGB(ZtSystemColor(99), palette), clBlack);
}

TEST(Control, BevelsTakeFromTheClientArea)
{
    const auto all = beLeft | beTop | beRight | beBottom;
    const struct {
        TCustomControl::TBevelKind Kind;
        TCustomControl::TBevelEdges Edges;
        TCustomControl::TBevelCut Outer, Inner;
        int Width;
        QRect Client; // of 60 x 40 pixels
    } rows[] = {
        {bkNone, all, bvLowered, bvRaised, 5, {0, 0, 60, 40}},
        {bkTile, all, bvLowered, bvRaised, 1, {2, 2, 56, 36}},
        {bkFlat, all, bvLowered, bvNone, 3, {3, 3, 54, 34}},
        {bkSoft, all, bvNone, bvNone, 3, {0, 0, 60, 40}},
        {bkTile, beTop, bvLowered, bvSpace, 2, {0, 4, 60, 36}},
        {bkTile, beLeft | beBottom, bvRaised, bvLowered, 1, {2, 0, 58, 38}},
    };
    QImage image(60, 40, QImage::Format_RGB32);
    for (const auto &row : rows) {
        TProbe probe;
        probe.resize(60, 40);
        probe.SetBevelKind(row.Kind);
        probe.SetBevelEdges(row.Edges);
        probe.SetBevelOuter(row.Outer);
        probe.SetBevelInner(row.Inner);
        probe.SetBevelWidth(row.Width);
        EXPECT_EQ(probe.ClientArea(), row.Client);
        // Every pixel is either the client's or the bevel's, also at corners without a bevel.
        image.fill(Qt::blue);
        probe.render(&image);
        for (int i = 0; i < 60 * 40; ++i) {
            const QColor color = image.pixelColor(i % 60, i / 60);
            ASSERT_EQ(color == Qt::red, row.Client.contains(i % 60, i / 60)) << i;
            ASSERT_NE(color, QColor(Qt::blue)) << i;
        }
        Click(probe, {30, 20}, Qt::RightButton);
        const QPoint at = QPoint(30, 20) - row.Client.topLeft();
        EXPECT_EQ(probe.Log, QStringLiteral("mouse1:%1,%2 ").arg(at.x()).arg(at.y()));
    }
    TProbe probe;
    probe.resize(20, 20);
    probe.SetBevelKind(bkTile);
    image = probe.grab().toImage();
    const QPalette palette = probe.palette();
    EXPECT_EQ(image.pixelColor(5, 0), ZtToQColor(clBtnShadow, palette)) << "lowered outside";
    EXPECT_EQ(image.pixelColor(5, 1), ZtToQColor(clBtnHighlight, palette)) << "raised inside";
    EXPECT_EQ(image.pixelColor(5, 19), ZtToQColor(clBtnHighlight, palette));
}

TEST(Control, AlignAndAnchors)
{
    const auto leftTop = akLeft | akTop;
    const auto rightBottom = akRight | akBottom;
    const struct {
        TCustomControl::TAlign Align;
        TCustomControl::TAnchors Anchors;
        QRect Before, After; // the parent is 200 x 100 and becomes 300 x 160
    } rows[] = {
        {alNone, leftTop, {10, 10, 50, 20}, {10, 10, 50, 20}},
        {alNone, rightBottom, {10, 10, 50, 20}, {110, 70, 50, 20}},
        {alNone, leftTop | rightBottom, {10, 10, 50, 20}, {10, 10, 150, 80}},
        {alNone, {}, {10, 10, 50, 20}, {60, 40, 50, 20}},
        {alTop, leftTop, {0, 0, 200, 20}, {0, 0, 300, 20}},
        {alBottom, leftTop, {0, 80, 200, 20}, {0, 140, 300, 20}},
        {alLeft, leftTop, {0, 0, 50, 100}, {0, 0, 50, 160}},
        {alRight, leftTop, {150, 0, 50, 100}, {250, 0, 50, 160}},
        {alClient, leftTop, {0, 0, 200, 100}, {0, 0, 300, 160}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        QWidget form;
        form.resize(200, 100);
        auto *probe = new TProbe;
        probe->SetParent(&form);
        probe->SetBounds(10, 10, 50, 20);
        probe->SetAnchors(row.Anchors);
        form.show();
        probe->SetAlign(row.Align);
        EXPECT_EQ(probe->geometry(), row.Before);
        form.resize(300, 160);
        EXPECT_EQ(probe->geometry(), row.After);
        // Where a layout manages the control, neither property counts.
        auto *layout = new QVBoxLayout(&form);
        layout->addWidget(probe);
        layout->activate();
        form.resize(320, 180);
        QCoreApplication::processEvents();
        EXPECT_EQ(probe->geometry(), layout->contentsRect());
    }
    // Two on one form share it.
    QWidget form;
    form.resize(200, 100);
    TProbe top(&form), rest(&form);
    top.SetHeight(30);
    rest.SetAlign(alClient);
    top.SetAlign(alTop);
    EXPECT_EQ(rest.geometry(), QRect(0, 30, 200, 70));
}

TEST(Control, MessagesReachDispatch)
{
    TProbe probe;
    ZtPostMessage(&probe, TZtMsg::wmUser, 1, -2);
    EXPECT_EQ(probe.Log, QString());
    EXPECT_EQ(ZtSendMessage(&probe, TZtMsg::wmUser, 3, 4), 42);
    QCoreApplication::processEvents();
    EXPECT_EQ(probe.Log, QStringLiteral("message3,4 message1,-2 "));
    EXPECT_EQ(ZtSendMessage(&probe, TZtMsg::wmChar, 97), 0);
    EXPECT_TRUE(probe.Log.endsWith(QStringLiteral("char97 ")));
    EXPECT_EQ(ZtSendMessage(&probe, 12345), 0);
}

TEST(Control, RemovalNotices)
{
    auto *probe = new TProbe;
    auto *other = new QObject;
    for (int i = 0; i < 2; ++i)
        probe->FreeNotification(other);
    delete other;
    EXPECT_EQ(probe->Log, QStringLiteral("removed "));
    // A child goes with its owner, when there is nobody left to be told.
    probe->FreeNotification(new QObject(probe));
    other = new QObject;
    probe->FreeNotification(other);
    delete probe;
    delete other;
}

TEST(Control, ExceptionsStopAtTheEvent)
{
    QStringList shown;
    ZtPlatform().ShowException = [&](const QString &message) { shown += message; };
    TProbe probe;
    const std::function<void()> raise[] = {
        [] { throw EConvertError(QStringLiteral("no number \u00e9")); },
        [] { throw std::runtime_error("plain"); },
        [] { throw EAbort(QStringLiteral("quiet")); },
        [] { throw std::bad_alloc(); },
        [] { throw 7; },
    };
    for (const auto &run : raise) {
        probe.OnKeyDown = [&](QObject *, quint16 &, TShiftState) { run(); };
        quint16 key = TZtKey::Left;
        const qsizetype before = shown.size();
        EXPECT_ANY_THROW(probe.KeyDown(key, {})) << "a host that calls it sees it";
        EXPECT_EQ(shown.size(), before);
        Press(probe, Qt::Key_Left);
        EXPECT_EQ(ZtPlatform().KeyboardShift(), TShiftState());
    }
    EXPECT_EQ(shown, QStringList({QStringLiteral("no number \u00e9"), QStringLiteral("plain"),
                                  QStringLiteral("There is not enough memory."),
                                  QStringLiteral("Something unknown went wrong.")}));
    ZtPlatform() = ZtDefaultPlatform();
}

TEST(Platform, TheClipboardHasWholeLineBreaks)
{
    const TZtPlatform platform = ZtDefaultPlatform();
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->setText(QStringLiteral("a\n\nb\rc\r\n"));
    EXPECT_EQ(platform.ClipboardText(), QStringLiteral("a\r\n\r\nb\r\nc\r\n"));
    platform.SetClipboardText(QStringLiteral("a\r\n\r\nb"));
    EXPECT_EQ(clipboard->text(), QStringLiteral("a\n\nb"));
}

TEST(ScrollBar, MovesByALargeChangeBesideItsThumb)
{
    TScrollBar bar(nullptr);
    bar.SetKind(TScrollBarKind::sbVertical);
    bar.resize(20, 400);
    bar.SetMax(1000);
    bar.SetPageSize(200);
    const struct {
        int Large, From, Click, To; // the click's y; 0 and 400 for the keys Page Up and Page Down
    } rows[] = {
        {10, 100, 380, 110},
        {10, 100, 400, 110},
        {10, 500, 30, 490},
        {10, 500, 0, 490},
        {2'000'000'000, 900, 400, 1000},
        {300, 100, 0, 0},
        {0, 500, 380, 500},
    };
    for (const auto &row : rows) {
        bar.SetLargeChange(row.Large);
        bar.SetPosition(row.From);
        if (row.Click % 400)
            Click(bar, QPointF(10, row.Click), Qt::LeftButton);
        else
            Press(bar, row.Click ? Qt::Key_PageDown : Qt::Key_PageUp);
        EXPECT_EQ(bar.GetPosition(), row.To) << row.From << ' ' << row.Click;
        EXPECT_EQ(bar.pageStep(), 200);
    }
}

TEST(ScrollBar, ShowsItsThumbWhereItIs)
{
    TScrollBar bar(nullptr);
    bar.SetKind(TScrollBarKind::sbVertical);
    bar.resize(20, 200);
    bar.show();
    QCoreApplication::processEvents();
    std::mt19937 random(3);
    const auto below = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    for (int i = 0; i < 300; ++i) {
        const int range = bar.GetMax();
        const std::function<void()> changes[] = {
            [&] { bar.SetMax(range + below(3)); },         [&] { bar.SetMax(below(2'000'000)); },
            [&] { bar.SetPosition(below(range + 1)); },    [&] { bar.SetPosition(below(3)); },
            [&] { bar.SetPosition(range - below(3)); },    [&] { bar.SetPageSize(below(100)); },
            [&] { bar.resize(20, 100 + 10 * below(10)); }, [&] { bar.grab(); },
        };
        for (int k = below(3); k >= 0; --k)
            changes[below(8)]();
        for (int k = 0; k < 2; ++k) // what changed, then the picture
            QCoreApplication::processEvents();
        const QImage seen = bar.screen()->grabWindow(bar.winId()).toImage();
        ASSERT_EQ(seen.convertToFormat(QImage::Format_RGB32),
                  bar.grab().toImage().convertToFormat(QImage::Format_RGB32))
            << "step " << i;
    }
}
