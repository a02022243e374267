// Random work on the editor, beside a plain model of it; after every step both must agree.
//
// ZT_RANDOM_STEPS makes the run longer, and names slow steps then; ZT_RANDOM_SEED is its seed.

#include "marked_text.h"
#include "reference_model.h"

#include <QCoreApplication>
#include <QDebug>
#include <QElapsedTimer>

#include <iostream>
#include <random>

namespace {

using TModelAction = std::function<void(TReferenceEditor &)>;

struct TInput {
    int Weight;
    QString Keys;
    int ShiftPercent;
    TModelAction Model;
};

std::vector<TInput> Inputs()
{
    std::vector<TInput> list;
    for (const QString c : {"a", "b", "x", "0", "_", ".", "(", "\u00E9", "\u0416", "\U0001F600"})
        list.push_back({3, c, 5, [c](auto &m) { m.Char(c); }});
    const std::tuple<int, QString, QString> controls[] = {{6, "Space", " "},
                                                          {6, "Enter", "\r"},
                                                          {9, "Backspace", "\b"},
                                                          {3, "Tab", "\t"},
                                                          {1, "Escape", "\x1B"}};
    for (const auto &[weight, key, c] : controls)
        list.push_back({weight, key, 5, [c = c](auto &m) { m.Char(c); }});
    const std::pair<QString, quint16> moves[] = {{"Left", 0x25}, {"Right", 0x27}, {"Up", 0x26},
                                                 {"Down", 0x28}, {"Home", 0x24},  {"End", 0x23},
                                                 {"PgUp", 0x21}, {"PgDn", 0x22}};
    for (const auto &[key, code] : moves) {
        list.push_back({3, key, 35, [c = code](auto &m) { m.Key(c, false); }});
        list.push_back({2, "Ctrl+" + key, 35, [c = code](auto &m) { m.Key(c, true); }});
    }
    list.push_back({8, "Delete", 20, [](auto &m) { m.Key(0x2E, false); }});
    list.push_back({2, "Ctrl+A", 0, [](auto &m) { m.Key('A', true); }});
    const std::tuple<int, QString, TModelAction> commands[] = {
        {4, "Ctrl+Z", &TReferenceEditor::Undo},     {4, "#772", &TReferenceEditor::Undo},
        {2, "Ctrl+X", &TReferenceEditor::Cut},      {2, "#768", &TReferenceEditor::Cut},
        {2, "Ctrl+V", &TReferenceEditor::Paste},    {4, "#770", &TReferenceEditor::Paste},
        {2, "Ctrl+C", &TReferenceEditor::Copy},     {2, "#769", &TReferenceEditor::Copy},
        {3, "#1025", &TReferenceEditor::SelectWord}};
    for (const auto &[weight, key, action] : commands)
        list.push_back({weight, key, key.startsWith(u'#') ? 20 : 0, action});
    return list;
}

const QStringList Texts = {"",
                           "word",
                           "one two",
                           "a\r\nb",
                           "a\r\r\nb\n",
                           "\r\n",
                           "    in\n",
                           "tab\there\r",
                           "\n\n\n x\ny",
                           "  \r\n  ",
                           "\u0416",
                           "last\r\n",
                           QString(60, 'w') + "\r\nshort"};

class TRandomRun : public testing::Test {
protected:
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    TReferenceEditor Model;
    std::mt19937 Random;
    bool LinesTaken = false; // by the host, which leaves the caret below the text
    QStringList Last;

    void SetUp() override
    {
        ZtPlatform().KeyboardShift = [this] { return Model.Shift ? ssShift : TShiftState(); };
        Model.CharWidth = Edit.GetCharWidth();
        Model.LineHeight = Edit.GetLineWidth();
        Model.Guttor = Edit.GetGuttorWidth();
        Model.HPage = (400 - Model.Guttor - Rig.V->width()) / Model.CharWidth - 1;
        Model.VPage = (220 - Rig.H->height()) / Model.LineHeight - 1;
        SetText("begin\r\n  one two\r\n\r\nend\r\n");
    }

    int Pick(int ACount) { return int(Random() % unsigned(ACount)); }
    QPoint AnyPoint()
    {
        const int lines = int(Model.Lines.size()) + 1;
        return {Pick(30) - (Pick(8) == 0), Pick(Pick(8) == 0 ? lines + 4 : lines)};
    }
    void SetText(const QString &S)
    {
        Edit.SetText(S);
        Model.SetText(S);
        LinesTaken = false;
    }
    template <typename... T> void Tell(const T &...AValues)
    {
        QString text;
        QDebug debug(&text);
        ((debug.nospace() << AValues << ' '), ...);
        Last += text;
        if (Last.size() > 10)
            Last.removeFirst();
    }

    void Press();
    void Mouse();
    void Host();
    void Select();
    auto State();
};

void TRandomRun::Press()
{
    static const std::vector<TInput> inputs = Inputs();
    static const int total = [] {
        int sum = 0;
        for (const TInput &input : inputs)
            sum += input.Weight;
        return sum;
    }();
    int at = Pick(total);
    const TInput *input = inputs.data();
    for (; at >= input->Weight; ++input)
        at -= input->Weight;
    if (Pick(12) == 0)
        Rig.Clipboard = Model.Clipboard = Texts[Pick(int(Texts.size()))];
    Model.Shift = Pick(100) < input->ShiftPercent;
    QString keys = input->Keys;
    if (Model.Shift)
        keys.insert(keys.startsWith("Ctrl+") ? 5 : 0, "Shift+");
    Tell(keys);
    Rig.Keys(keys);
    input->Model(Model);
}

void TRandomRun::Mouse()
{
    using enum QEvent::Type;
    const QPoint at(Pick(420) - 10, Pick(280) - 30);
    const int kind = Pick(10);
    Model.Shift = Pick(5) == 0;
    const auto modifiers = Model.Shift ? Qt::ShiftModifier : Qt::NoModifier;
    Tell("mouse", kind, at, Model.Shift);
    if (kind < 2) {
        Rig.Mouse(MouseButtonPress, at, Qt::LeftButton, modifiers);
        Model.MouseDown(at.x(), at.y());
    } else if (kind < 5) {
        Rig.Mouse(MouseButtonRelease, at, Qt::LeftButton, modifiers);
        Model.MouseUp();
    } else if (kind < 7) {
        Rig.Mouse(MouseMove, at, Qt::LeftButton, modifiers);
        Model.MouseMove(at.x(), at.y());
    } else if (kind == 7) {
        Rig.Mouse(MouseButtonDblClick, at, Qt::LeftButton, modifiers);
        Model.MouseDown(at.x(), at.y());
        Model.SelectWord();
    } else if (kind == 8) {
        Rig.Mouse(MouseButtonPress, at, Qt::RightButton, modifiers);
    } else {
        Rig.Wheel(at.x() % 2 ? 120 : -120);
        Model.Wheel(at.x() % 2 ? 120 : -120);
    }
}

void TRandomRun::Host()
{
    const QString text = Texts[Pick(int(Texts.size()))];
    const QPoint at = AnyPoint();
    const int kind = Pick(9);
    Model.Shift = Pick(8) == 0;
    Tell("host", kind, at, text);
    if (kind == 0) {
        Edit.InsertText(TZtChangeType::ctInsert, text);
        Model.InsertText(TZtChangeType::ctInsert, text);
    } else if (kind == 1) {
        Edit.AddCode(text);
        Model.AddCode(text);
    } else if (kind == 2) {
        Edit.InsertCode(at.y(), at.x(), text);
        Model.InsertCode(at.y(), at.x(), text);
    } else if (kind == 3 && at.y() < Model.Lines.size()) {
        LinesTaken = true;
        Edit.GetLines()->Delete(at.y());
        Model.Remove(at.y());
    } else if (kind == 4 && at.x() == 0) {
        SetText(text);
    } else if (kind == 5) {
        Edit.SetModified(false);
        Model.Modified = false;
    } else if (kind == 6) {
        const int column = at.x() == 0 ? 700 : at.x() - 3;
        Edit.SetCharPos(column);
        Model.SetCharPos(column);
    } else if (kind == 7) {
        Edit.SetLinePos(at.y() - 1);
        Model.SetLinePos(at.y() - 1);
    } else if (kind == 8) {
        Edit.SetReadOnly(Model.ReadOnly = at.x() % 5 == 0);
        Edit.SetTabIndentSize(Model.TabSize = at.x() % 6 - 1);
    }
}

void TRandomRun::Select()
{
    const QPoint start = AnyPoint(), end = AnyPoint();
    const int kind = Pick(3);
    Tell("select", kind, start, end);
    Edit.SetSelStart(Model.SelStart = start);
    Edit.SetSelEnd(Model.SelEnd = end);
    QString text;
    if (kind == 0) {
        EXPECT_EQ(Edit.SelLength(), qMin<qint64>(Model.SelLength(), ZtEndOfLine));
    } else if (kind == 1) {
        Edit.GetSelected(text);
        EXPECT_EQ(text, Model.GetSelected());
    }
}

auto ItemState(const TZtUndoItem &AItem)
{
    return std::tuple(int(AItem.GetChangeType()), AItem.GetStartPos(), AItem.GetEndPos(),
                      AItem.GetCaretPos(), AItem.GetValue());
}

// What the two agree in, as a pair.
auto TRandomRun::State()
{
    const TZtUndoList &undo = *Edit.GetUndoList();
    const TZtUndoItem none(TZtChangeType::ctNone, {}, {}, {}, {});
    const TZtUndoItem &mine = undo.GetCount() ? undo.GetItems(undo.GetCount() - 1) : none;
    const TZtUndoItem &models = Model.Items.empty() ? none : Model.Items.back();
    return std::pair(
        std::tuple_cat(std::tuple(Rig.Lines(), QPoint(Edit.GetCharPos(), Edit.GetLinePos()),
                                  Edit.GetSelStart(), Edit.GetSelEnd(), Edit.GetModified(),
                                  Rig.H->GetPosition(), Rig.V->GetPosition(), Rig.Changes,
                                  Rig.CursorMoves, int(Rig.Errors.size()), Rig.Clipboard,
                                  undo.GetCount()),
                       ItemState(mine)),
        std::tuple_cat(std::tuple(Model.Lines, Model.Caret, Model.SelStart, Model.SelEnd,
                                  Model.Modified, Model.HPos, Model.VPos, Model.Changes,
                                  Model.CursorMoves, Model.Errors, Model.Clipboard,
                                  int(Model.Items.size())),
                       ItemState(models)));
}

template <typename T> std::string Dump(const T &AState)
{
    QString text;
    QDebug debug(&text);
    std::apply([&](const auto &...v) { ((debug << v), ...); }, AState);
    return text.toStdString();
}

TEST_F(TRandomRun, AgreesWithThePlainModel)
{
    const int longRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    const int seed = qEnvironmentVariableIntValue("ZT_RANDOM_SEED");
    Random.seed(unsigned(seed));
    for (int step = 0; step < (longRun > 0 ? longRun : 30000); ++step) {
        QElapsedTimer timer;
        timer.start();
        const int kind = Pick(40);
        kind < 31 ? Press() : kind < 36 ? Mouse() : kind < 39 ? Host() : Select();
        if (step % (longRun > 0 ? 20 : 100) == 0)
            QCoreApplication::processEvents(); // paints
        if (longRun > 0 && timer.elapsed() > 50)
            std::cerr << step << ": " << timer.elapsed() << " ms, " << Last.last().toStdString()
                      << '\n';
        const auto [is, should] = State();
        const int below = Edit.GetLinePos() - qMax(0, Edit.GetLines()->GetCount() - 1);
        LinesTaken = LinesTaken && below > 0;
        ASSERT_TRUE(is == should && !HasFailure() && (below <= 0 || LinesTaken) &&
                    Edit.GetUndoList()->GetCount() <= 100)
            << "seed " << seed << ", step " << step << "\nis:        " << Dump(is)
            << "\nshould be: " << Dump(should) << '\n'
            << Last.join(u'\n').toStdString();
        // A small text, so that its ends are met often.
        if (Model.Lines.size() > 60 || Model.Lines.join(u' ').size() > 3000)
            SetText(Model.Lines.mid(0, 12).join("\r\n").left(400));
    }
}

} // namespace
