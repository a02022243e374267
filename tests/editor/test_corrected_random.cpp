// Random work on the editor with all corrections on, or with some of them: what must hold after
// each step.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its first seed, of ZT_RANDOM_SEEDS.

#include "marked_text.h"

#include <QCoreApplication>

#include <random>

using enum TZtCorrection;

namespace {

const QStringList Keys =
    QString(
        "a b x 0 _ . ( \u00E9 \u0416 \u65E5 \u0301 \U0001F600 Space Space Enter Enter Tab "
        "Shift+Backtab Backspace Backspace Ctrl+Backspace Delete Delete Ctrl+Delete Escape Left "
        "Right Up Down Home End PgUp PgDn Shift+Left Shift+Right Shift+Up Shift+Down "
        "Shift+Home Shift+End Ctrl+Left Ctrl+Right Ctrl+Shift+Left Ctrl+Shift+Right Ctrl+Home "
        "Ctrl+End Ctrl+A #772 #772 Ctrl+Z #1028 Ctrl+Y #768 #770 #769 Shift+Delete click@3,1 "
        "Shift+click@5,2 double@2,0 triple@1,1 press@1,0 move@4,2 release@4,2 wheel-120 paint")
        .split(u' ');

const QStringList Texts = QString("|word|one two|a\r\nb|a\r\r\nb\n|\r\n|    in\n|tab\there\r|"
                                  "\n\n\n x\ny|  \r\n  |\u0416e\u0301|last\r\n|short")
                              .split(u'|');

class TCorrectedRun : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    std::mt19937 Random;
    QString Last; // what the step did
    QStringList Did;
    QString Saved;

    int Pick(int ACount) { return int(Random() % unsigned(ACount)); }
    QString AnyText() { return Texts[Pick(int(Texts.size()))]; }
    QPoint AnyPlace()
    {
        const TStringList &text = *Edit.GetLines();
        const int y = Pick(text.GetCount() + 1);
        return y == text.GetCount() ? text.GetEnd() : QPoint(Pick(text.GetLength(y) + 1), y);
    }
    void Start(int ASeed);
    void Step();
    void Host();
    void HostsLines();
    void CheckStep(const QString &ABefore, bool AReadOnly);
    void UndoAndRedoAll();
};

void TCorrectedRun::Start(int ASeed)
{
    Random.seed(unsigned(ASeed));
    Edit.SetCorrections(ASeed % 2 == 0
                            ? ZtAllCorrections()
                            : TZtCorrections::fromInt(int(Random())) & ZtAllCorrections());
    Rig.Errors.clear();
    Edit.SetReadOnly(false);
    Edit.SetText("begin\r\n  one two\r\n\r\nend\r\n");
    Edit.ClearUndo();
    Edit.SetModified(false);
    Saved = Edit.GetLines()->GetText();
}

void TCorrectedRun::HostsLines()
{
    TStringList &lines = *Edit.GetLines();
    const int line = lines.GetCount() > 0 ? Pick(lines.GetCount()) : -1;
    switch (Pick(4)) {
    case 0:
        return lines.Insert(Pick(lines.GetCount() + 1), "host");
    case 1:
        return line < 0 ? void() : lines.Delete(line);
    case 2:
        return line < 0 ? void() : lines.SetStrings(line, AnyText().simplified());
    default:
        QPoint from = AnyPlace(), to = AnyPlace();
        if (ZtIsBefore(to, from))
            std::swap(from, to);
        if (to != lines.GetEnd())
            lines.ReplaceText(from, to, TZtTextPiece(AnyText()));
    }
}

void TCorrectedRun::Host()
{
    const int kind = Pick(10);
    const QString text = AnyText();
    const QPoint at(Pick(40) - 3, Pick(Edit.GetLines()->GetCount() + 3) - 1);
    Last = QStringLiteral("host %1 (%2,%3)").arg(kind).arg(at.x()).arg(at.y());
    if (kind == 0) {
        Edit.InsertText(TZtChangeType::ctInsert, text);
    } else if (kind == 1) {
        Edit.SetText(text);
    } else if (kind < 5 && !Edit.GetReadOnly()) {
        HostsLines();
    } else if (kind == 5) {
        Edit.SetCharPos(at.x());
    } else if (kind == 6) {
        Edit.SetLinePos(at.y());
    } else if (kind == 7) {
        Edit.SetTabIndentSize(at.x() % 5);
        Edit.SetOptions(Edit.GetOptions() ^ TZtCodeOption::coVirtualSpace);
    } else if (kind == 8) {
        Edit.SetSelStart(at);
        Edit.SetSelEnd({Pick(30), Pick(9)});
    } else if (!Edit.GetReadOnly()) {
        Edit.BeginUpdate();
        Edit.AddTxt(text.simplified());
        HostsLines();
        Edit.EndUpdate();
    }
}

void TCorrectedRun::Step()
{
    if (Pick(12) == 0)
        Rig.Clipboard = AnyText();
    if (Pick(9) == 0)
        return Host();
    Last = Keys[Pick(int(Keys.size()))];
    Rig.Do(Last);
}

void TCorrectedRun::CheckStep(const QString &ABefore, bool AReadOnly)
{
    const TStringList &lines = *Edit.GetLines();
    const QString now = Edit.GetLines()->GetText();
    const bool setText = Last.contains(QStringLiteral("host 1 "));
    if (Edit.IsCorrected(zcEvents)) {
        ASSERT_EQ(Rig.Changes, now == ABefore ? 0 : 1);
        ASSERT_TRUE(Edit.GetModified() || now == Saved);
    }
    ASSERT_TRUE(!AReadOnly || setText || now == ABefore || !Edit.IsCorrected(zcReadOnly));
    const int x = Edit.GetCharPos(), y = Edit.GetLinePos();
    const bool inText = Edit.IsCorrected(zcCaret);
    ASSERT_TRUE(!inText || (0 <= y && y <= qMax(lines.GetCount() - 1, 0))) << y;
    const bool anywhere = Edit.GetOptions().testFlag(TZtCodeOption::coVirtualSpace);
    ASSERT_TRUE(!inText ||
                (0 <= x && (anywhere || x <= (lines.GetCount() > 0 ? lines.GetLength(y) : 0))))
        << x;
    // The first version's undo raises where the lines are gone that it would change.
    ASSERT_TRUE(!Edit.IsCorrected(zcUndo) || Rig.Errors.isEmpty())
        << Rig.Errors.join(u' ').toStdString();
}

void TCorrectedRun::UndoAndRedoAll()
{
    Edit.SetReadOnly(false);
    if (!Edit.IsCorrected(zcUndo))
        return;
    while (Edit.GetCanRedo())
        Edit.Redo();
    const QString last = Edit.GetLines()->GetText();
    while (Edit.GetCanUndo())
        Edit.Undo();
    ASSERT_EQ(Edit.GetLines()->GetText(), "begin\r\n  one two\r\n\r\nend\r\n");
    while (Edit.GetCanRedo())
        Edit.Redo();
    ASSERT_EQ(Edit.GetLines()->GetText(), last);
}

TEST_F(TCorrectedRun, HoldsWhatIsPromised)
{
    const int steps = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    const int first = qEnvironmentVariableIntValue("ZT_RANDOM_SEED");
    const int seeds = qMax(qEnvironmentVariableIntValue("ZT_RANDOM_SEEDS"), 2);
    for (int seed = first; seed < first + seeds; ++seed) {
        Start(seed);
        for (int step = 0; step < (steps > 0 ? steps : 3'000); ++step) {
            const QString before = Edit.GetLines()->GetText();
            const bool readOnly = Edit.GetReadOnly();
            Rig.Changes = 0;
            Step();
            Did = (Did << Last).mid(Did.size() > 9);
            ASSERT_NO_FATAL_FAILURE(CheckStep(before, readOnly))
                << "seed " << seed << ", step " << step << ": "
                << Did.join(QStringLiteral(" | ")).toStdString();
            if (Pick(60) == 0)
                Edit.SetReadOnly(Pick(3) == 0);
            if (Pick(40) == 0) { // saved, and led back to it
                Edit.SetModified(false);
                Saved = Edit.GetLines()->GetText();
                Rig.Do("z");
                if (Edit.GetLines()->GetText() != Saved &&
                    Edit.GetCorrections() == ZtAllCorrections()) {
                    ASSERT_TRUE(Edit.GetModified());
                    Edit.Undo();
                    ASSERT_EQ(Edit.GetLines()->GetText(), Saved);
                }
                ASSERT_TRUE(!Edit.GetModified() || Edit.GetLines()->GetText() != Saved ||
                            !Edit.IsCorrected(zcEvents));
            }
            if (step % 2000 == 1999) {
                ASSERT_NO_FATAL_FAILURE(UndoAndRedoAll());
            }
            if (Edit.GetLines()->GetCount() > 60 || before.size() > 3000)
                Edit.SetText(before.left(300));
        }
        ASSERT_NO_FATAL_FAILURE(UndoAndRedoAll());
    }
}

} // namespace
