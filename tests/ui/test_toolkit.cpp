#include "uZtCustomControl.h"
#include "uZtException.h"
#include "uZtPlatform.h"
#include "uZtScrollBar.h"
#include "uZtSystemColors.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Writes down what reaches it and fills its client area with red.
struct TProbe : TCustomControl {
    using TCustomControl::TCustomControl;
    void KeyDown(quint16 &Key, TShiftState Shift) override
    {
        Log += u"key%1/%2 "_s.arg(Key).arg(int(Shift));
        TCustomControl::KeyDown(Key, Shift);
    }
    void WMChar(TZtMessage &Message) override { Log += u"char%1 "_s.arg(Message.WParam); }
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
    } rows[] = {{Qt::Key_Z, Ctrl, u"\x1a", "key90/4 "},
                {Qt::Key_A, Alt, u"a", "key65/2 "},
                {Qt::Key_Q, AltGr | Alt, u"@", "key81/0 char64 "},
                {Qt::Key_Q, Ctrl | Alt, u"@", "key81/0 char64 "},
                {Qt::Key_Q, Ctrl | Alt, u"\x11", "key81/6 "},
                {Qt::Key_7, None, u"7", "key55/0 char55 "},
                {Qt::Key_7, Pad, u"7", "key103/0 char55 "},
                {Qt::Key_Plus, Pad, u"+", "key107/0 char43 "},
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
            probe.OnKeyDown = [&](QObject *, quint16 &key, TShiftState) {
                EXPECT_EQ(ZtPlatform().KeyboardShift(), ZtShiftState(row.Modifiers));
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
    commit.setCommitString(u"\u65e5b"_s);
    QCoreApplication::sendEvent(&probe, &commit);
    EXPECT_EQ(probe.Log, u"char26085 char98 "_s);
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
    }
    TProbe probe;
    probe.resize(20, 20);
    probe.SetBevelKind(bkTile);
    image = probe.grab().toImage();
    EXPECT_EQ(ZtToQColor(clRed, probe.palette()), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(5, 0), ZtToQColor(clBtnShadow, probe.palette()));
    EXPECT_EQ(image.pixelColor(5, 1), ZtToQColor(clBtnHighlight, probe.palette()));
    EXPECT_EQ(image.pixelColor(5, 19), ZtToQColor(clBtnHighlight, probe.palette()));
}

TEST(Control, AlignAndAnchors)
{
    const auto leftTop = akLeft | akTop;
    const struct {
        TCustomControl::TAlign Align;
        TCustomControl::TAnchors Anchors;
        // The parent is 200 x 100, with another control on top of 30, and becomes 300 x 160.
        QRect Before, After;
    } rows[] = {
        {alNone, leftTop, {10, 10, 50, 20}, {10, 10, 50, 20}},
        {alNone, akRight | akBottom, {10, 10, 50, 20}, {110, 70, 50, 20}},
        {alNone, leftTop | akRight | akBottom, {10, 10, 50, 20}, {10, 10, 150, 80}},
        {alNone, {}, {10, 10, 50, 20}, {60, 40, 50, 20}},
        {alTop, leftTop, {0, 30, 200, 20}, {0, 30, 300, 20}},
        {alBottom, leftTop, {0, 80, 200, 20}, {0, 140, 300, 20}},
        {alLeft, leftTop, {0, 30, 50, 70}, {0, 30, 50, 130}},
        {alRight, leftTop, {150, 30, 50, 70}, {250, 30, 50, 130}},
        {alClient, leftTop, {0, 30, 200, 70}, {0, 30, 300, 130}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        QWidget form;
        form.resize(200, 100);
        TProbe top(&form);
        top.SetHeight(30);
        top.SetAlign(alTop);
        auto *probe = new TProbe;
        probe->SetParent(&form);
        probe->SetBounds(10, 10, 50, 20);
        probe->SetAnchors(row.Anchors);
        form.show();
        probe->SetAlign(row.Align);
        EXPECT_EQ(probe->geometry(), row.Before);
        form.resize(300, 160);
        EXPECT_EQ(probe->geometry(), row.After);
    }
}

TEST(Platform, ExceptionsAreShownInWords)
{
    QStringList shown;
    ZtPlatform().ShowException = [&](const QString &message) { shown += message; };
    const std::exception_ptr raised[] = {
        std::make_exception_ptr(EConvertError(u"no number \u00e9"_s)),
        std::make_exception_ptr(EAbort(u"quiet"_s)),
        std::make_exception_ptr(std::bad_alloc()),
        std::make_exception_ptr(7),
    };
    for (const auto &exception : raised)
        ZtHandleException(exception);
    EXPECT_EQ(shown, (QStringList{u"no number \u00e9"_s, u"There is not enough memory."_s,
                                  u"Something unknown went wrong."_s}));
    ZtPlatform() = ZtDefaultPlatform();
}

TEST(Platform, TheClipboardHasWholeLineBreaks)
{
    const TZtPlatform platform = ZtDefaultPlatform();
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"a\n\nb\rc\r\n"_s);
    EXPECT_EQ(platform.ClipboardText(), u"a\r\n\r\nb\r\nc\r\n"_s);
    platform.SetClipboardText(u"a\r\n\r\nb"_s);
    EXPECT_EQ(clipboard->text(), u"a\n\nb"_s);
}

TEST(Platform, ALossIsNotWhatEnterConfirms)
{
    QTimer::singleShot(0, qApp, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        Press(*box, Qt::Key_Return);
    });
    EXPECT_EQ(ZtDefaultPlatform().MsgBoxConfirm(u"<b>"_s, {}), mrNo);
}

TEST(ScrollBar, MovesByALargeChangeBesideItsThumb)
{
    TScrollBar bar(nullptr);
    bar.SetKind(TScrollBarKind::sbVertical);
    bar.resize(20, 400);
    bar.SetMax(1000);
    bar.SetPageSize(200);
    const struct {
        int Large, From, Key, To;
    } rows[] = {
        {10, 100, Qt::Key_PageDown, 110},
        {10, 500, Qt::Key_PageUp, 490},
        {2'000'000'000, 900, Qt::Key_PageDown, 1000},
        {300, 100, Qt::Key_PageUp, 0},
    };
    for (const auto &row : rows) {
        bar.SetLargeChange(row.Large);
        bar.SetPosition(row.From);
        Press(bar, row.Key);
        EXPECT_EQ(bar.GetPosition(), row.To) << row.From;
        EXPECT_EQ(bar.pageStep(), 200);
    }
}

TEST(ScrollBar, ShowsItsThumbWhereItIs)
{
    TScrollBar bar(nullptr);
    bar.SetKind(TScrollBarKind::sbVertical);
    bar.resize(20, 200);
    bar.show();
    const std::function<void()> changes[] = {
        [&] { bar.SetMax(1000); },
        [&] { bar.SetPosition(500); },
        [&] { bar.SetPageSize(500); },
        [&] { bar.resize(20, 100); },
    };
    for (const auto &change : changes) {
        change();
        for (int k = 0; k < 2; ++k) // what changed, then the picture
            QCoreApplication::processEvents();
        const QImage seen = bar.screen()->grabWindow(bar.winId()).toImage();
        EXPECT_EQ(seen.convertToFormat(QImage::Format_RGB32),
                  bar.grab().toImage().convertToFormat(QImage::Format_RGB32));
    }
}
