// What the extras draw, drawn again and again over what was there, gives the picture of an editor
// that is put into the same state from nothing.
//
// ZT_RANDOM_STEPS makes the run longer, ZT_RANDOM_SEED begins it elsewhere.

#include "marked_text.h"

#include "uZtCodeJSParser.h"
#include "uZtOverviewRuler.h"
#include "uZtTextMarks.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <qtestsupport_core.h>

#include <cmath>
#include <random>

using enum TZtExtra;

namespace {

constexpr TZtExtras All = ZtAllExtras() | zeBlanks;

const QStringList Words =
    QString("a x ( ) [ { ' \" Space Enter Enter Tab Backspace Delete Left Right Up Down Home End "
            "PgUp PgDn Ctrl+Home Ctrl+End Shift+Down Shift+Right Ctrl+Shift+Right Ctrl+Z Ctrl+Z "
            "Ctrl+Y Ctrl+A Escape F2 Shift+F2 Ctrl+F2 F8 Ctrl+M Ctrl+Shift+M Ctrl++ Ctrl+- Ctrl+0 "
            "click@3,2 click@9,5 press@2,1 move@7,3 release@7,3 click@-2,3 press@-2,4 move@-2,1 "
            "release@-2,1 wheel-120 wheel-30 wheel90 Ctrl+wheel30")
        .split(u' ');

const QStringList Texts = {"  if (a[x] == 'quoted') { // {",
                           "\tfor (;;) word(",
                           "/* open",
                           "closed */ var x = word;",
                           "",
                           "    }",
                           QString::fromUtf8("x \u65E5\u672C e\u0301 \U0001F600 word  "),
                           QString(90, u'w') + " end"};

class TExtrasPicture : public testing::Test {
protected:
    TZtCodeJSParser Lexer;
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    std::mt19937 Random;
    QFont Font;
    QString Search;
    QStringList Did;

    TExtrasPicture()
    {
        QApplication::setCursorFlashTime(0);
        Edit.SetWordMarkDelay(0);
    }
    ~TExtrasPicture() override { QApplication::setCursorFlashTime(1000); }
    int Below(int n) { return int(Random() % unsigned(n)); }
    void Start(TZtCorrections ACorrections);
    void SetExtras(TZtExtras AExtras);
    void Mark();
    void View();
    void Lines();
    void Step();
    static void Activate(TZtCodeEdit &AEdit);
    static QImage Shown(TZtCodeEdit &AEdit);
    static QImage Masked(const TZtCodeEdit &AEdit, QImage AImage);
    void PutIntoState(TZtCodeEdit &AFresh);
    void Compare(bool ARulerToo);
};

void TExtrasPicture::Activate(TZtCodeEdit &AEdit)
{
    QApplication::setActiveWindow(&AEdit);
    AEdit.setFocus(Qt::ActiveWindowFocusReason);
}

void TExtrasPicture::Start(TZtCorrections ACorrections)
{
    QCursor::setPos(700, 500); // a bar's button under it would be lit
    Random.seed(unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED")) + 1);
    Edit.SetZoom(100);
    Font = Edit.font();
    Edit.SetParser(&Lexer);
    Edit.SetText({});
    Edit.SetCorrections(ACorrections);
    Edit.SetExtras(All);
    for (int i = 0; i < 98; ++i)
        Edit.GetLines()->Add(Texts[i % int(Texts.size())]);
}

// Who switches the matches off forgets what was looked for.
void TExtrasPicture::SetExtras(TZtExtras AExtras)
{
    Edit.SetExtras(AExtras);
    if (!Edit.HasExtra(zeMatchMarks))
        Search.clear();
}

void TExtrasPicture::Mark()
{
    TZtTextMarks &marks = Edit.GetTextMarks();
    const int line = Below(qMax(Edit.GetLines()->GetCount(), 1));
    const QPoint from(Below(20), line), to(Below(30), line + Below(3));
    const std::optional<TColor> colours[] = {std::nullopt, clRed, 0x80FFFF};
    const TZtDecorationStyle style{TZtUnderline(Below(4)), colours[Below(3)], colours[Below(3)],
                                   colours[Below(3)],      colours[Below(3)], colours[Below(3)]};
    switch (Below(5)) {
    case 0:
        return void(marks.Decorations.Add(Below(3), {from, to, style, Below(3)}));
    case 1:
        return marks.Decorations.RemoveOwner(Below(3));
    case 2:
        return marks.Diagnostics.Set(QString::number(Below(2)),
                                     {{from, to, TZtSeverity(Below(3)), "m"}, {from, from}});
    case 3:
        return void(marks.Marks.Toggle(line, TZtLineMark(Below(7))));
    default:
        Search = Edit.HasExtra(zeMatchMarks) ? QStringList{"word", "e", "  ", {}}[Below(4)] : "";
        return Edit.MarkMatches(Search, TZtSearchFlag::sfDown);
    }
}

void TExtrasPicture::View()
{
    const int kind = Below(12);
    if (kind < 3)
        Edit.GetVScrollBar()->SetPosition(Below(Edit.GetLines()->GetCount() + 1));
    else if (kind == 3)
        Edit.GetHScrollBar()->SetPosition(Below(2) * Below(60));
    else if (kind == 4)
        Edit.SetScheme(TZtColorScheme::Find(TZtColorScheme::BundledNames()[Below(5)]));
    else if (kind == 5)
        Edit.SetZoom(70 + Below(80));
    else if (kind == 6)
        Font.setPointSize(8 + Below(4)), Edit.SetFont(Font);
    else if (kind == 7)
        Edit.resize(250 + Below(250), 120 + Below(200));
    else if (kind == 8)
        Edit.SetReadOnly(!Edit.GetReadOnly());
    else if (kind == 9)
        Edit.SetOptions(TZtCodeOptions(Below(4) * 2 + 8 * Below(2)));
    else if (kind == 10)
        SetExtras(TZtExtras::fromInt(int(Random())) & All);
    else
        SetExtras(All);
}

// Around a hundred: the gutter grows and shrinks.
void TExtrasPicture::Lines()
{
    TStringList &lines = *Edit.GetLines();
    const QString text = Texts[Below(int(Texts.size()))];
    if (lines.GetCount() < 97 || (lines.GetCount() < 103 && Below(3) > 0))
        lines.Insert(Below(lines.GetCount() + 1), text);
    else if (Below(2) == 0)
        lines.Delete(Below(2) ? lines.GetCount() - 1 : Below(lines.GetCount()));
    else
        lines.SetStrings(Below(lines.GetCount()), text);
    if (lines.GetCount() > 110)
        lines.Delete(0);
}

void TExtrasPicture::Step()
{
    const int kind = Below(8);
    const QString word = Words[Below(int(Words.size()))];
    if (kind == 0)
        Mark();
    else if (kind == 1)
        View();
    else if (kind == 2)
        Lines();
    else
        Rig.Do(word);
    if (kind > 2 && word == "Escape")
        Search.clear();
    if (Below(40) == 0)
        Edit.SetModified(false);
    Did = (Did << (kind > 2 ? word : QStringLiteral("step %1").arg(kind))).mid(Did.size() > 9);
}

// What asked for it is painted, and nothing else.
QImage TExtrasPicture::Shown(TZtCodeEdit &AEdit)
{
    QCoreApplication::processEvents();
    if (AEdit.devicePixelRatioF() != 1) // the screen rounds to other pixels
        return AEdit.grab().toImage();
    return AEdit.screen()->grabWindow(AEdit.winId()).toImage();
}

// Without the bars, whose ranges remember what was in sight, and the ruler, which rests a moment.
QImage TExtrasPicture::Masked(const TZtCodeEdit &AEdit, QImage AImage)
{
    QPainter painter(&AImage);
    for (const QObject *child : AEdit.children())
        if (const auto *widget = qobject_cast<const QWidget *>(child))
            painter.fillRect(widget->geometry().adjusted(-1, -1, 1, 1), Qt::black);
    return AImage;
}

void TExtrasPicture::PutIntoState(TZtCodeEdit &AFresh)
{
    AFresh.SetCorrections(Edit.GetCorrections());
    AFresh.ShareText(&Edit);
    AFresh.SetWordMarkDelay(0);
    AFresh.SetExtras(Edit.GetExtras());
    AFresh.SetFont(Font);
    AFresh.SetZoom(Edit.GetZoom());
    AFresh.SetScheme(Edit.GetScheme());
    AFresh.SetReadOnly(Edit.GetReadOnly());
    AFresh.resize(Edit.size());
    AFresh.show();
    Activate(AFresh);
    QCoreApplication::processEvents();
    // As far to the right as the other one was, whatever stood there.
    AFresh.SetOptions(Edit.GetOptions() | TZtCodeOption::coVirtualSpace);
    AFresh.SetCharPos(Edit.GetHScrollBar()->GetPosition() + 200);
    AFresh.SetLinePos(Edit.GetLinePos());
    AFresh.SetCharPos(Edit.GetCharPos());
    AFresh.SetOptions(Edit.GetOptions());
    AFresh.SetSelEnd(Edit.GetSelEnd());
    AFresh.SetSelStart(Edit.GetSelStart());
    AFresh.GetHScrollBar()->SetPosition(Edit.GetHScrollBar()->GetPosition());
    AFresh.GetVScrollBar()->SetPosition(Edit.GetVScrollBar()->GetPosition());
    AFresh.MarkMatches(Search, TZtSearchFlag::sfDown);
}

void TExtrasPicture::Compare(bool ARulerToo)
{
    const QImage image = Masked(Edit, Shown(Edit));
    ASSERT_EQ(image, Masked(Edit, Edit.grab().toImage())) << "drawn again";
    TZtCodeJSParser lexer;
    TZtCodeEdit fresh;
    fresh.SetParser(&lexer);
    PutIntoState(fresh);
    const QImage other = Masked(fresh, Shown(fresh));
    ASSERT_EQ(fresh.GetHScrollBar()->GetPosition(), Edit.GetHScrollBar()->GetPosition());
    ASSERT_EQ(fresh.GetVScrollBar()->GetPosition(), Edit.GetVScrollBar()->GetPosition());
    ASSERT_EQ(Edit.RealGuttorWidth(), fresh.RealGuttorWidth());
    ASSERT_EQ(image, other);
    auto *ruler = Edit.findChild<TZtOverviewRuler *>();
    if (ARulerToo && ruler) {
        QTest::qWait(300);
        Edit.grab();
        fresh.grab();
        ASSERT_EQ(ruler->GetRows(), fresh.findChild<TZtOverviewRuler *>()->GetRows());
    }
    Activate(Edit);
}

TEST_F(TExtrasPicture, EqualsADrawFromNothing)
{
    const int steps = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    for (const TZtCorrections corrections :
         {ZtAllCorrections(), TZtCorrection::zcStates | TZtCorrection::zcCaret}) {
        Start(corrections);
        for (int step = 0; step < (steps > 0 ? steps : 120); ++step) {
            for (int changes = Below(4); changes >= 0; --changes)
                Step();
            ASSERT_NO_FATAL_FAILURE(Compare(step % 40 == 39))
                << "step " << step << " with corrections " << corrections.toInt() << ": "
                << Did.join(QStringLiteral(" | ")).toStdString();
        }
    }
}

// In device pixels, at every ratio, and so equal lines look alike.
TEST_F(TExtrasPicture, AllLinesHaveOneHeight)
{
    Edit.SetCorrections(TZtCorrection::zcPicture);
    Edit.SetText(QStringLiteral("Hxg_|\n").repeated(9));
    const QImage image = Edit.grab().toImage();
    const qreal ratio = image.devicePixelRatio();
    const int height = int(std::ceil(Edit.GetLineWidth() * ratio - 1e-6));
    const int top = qRound(Edit.ClientArea().top() * ratio);
    const auto line = [&](int i) {
        return image.copy(image.width() / 20, top + i * height, image.width() / 2, height);
    };
    for (int i = 2; i < 9; ++i) // the caret is in the first
        EXPECT_EQ(line(i), line(1)) << i;
}

} // namespace
