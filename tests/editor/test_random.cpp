// Random work on the editor, beside a plain model of it; after every step both must agree.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its seed.

#include "marked_text.h"
#include "reference_model.h"

#include <QCoreApplication>
#include <QDebug>

#include <random>

namespace {

struct TInput {
    QString Words;
    int ShiftPercent;
    std::function<void(TReferenceEditor &)> Model;
};

// Each as often as its weight says.
std::vector<TInput> Inputs()
{
    using T = TReferenceEditor;
    std::vector<TInput> list;
    const auto add = [&list](int weight, const QString &words, int shift, const auto &model) {
        list.insert(list.end(), size_t(weight), TInput{words, shift, model});
    };
    for (const QString c : {"a", "b", "x", "0", "_", ".", "(", "\u00E9", "\u0416", "\U0001F600"})
        add(3, c, 5, [c](T &m) { m.Char(c); });
    const std::tuple<int, QString, QString> controls[] = {{6, "Space", " "},
                                                          {6, "Enter", "\r"},
                                                          {9, "Backspace", "\b"},
                                                          {3, "Tab", "\t"},
                                                          {1, "Escape", "\x1B"}};
    for (const auto &[weight, key, c] : controls)
        add(weight, key, 5, [c = c](T &m) { m.Char(c); });
    quint16 code = TZtKey::Prior; // the codes follow one another
    for (const QString key : {"PgUp", "PgDn", "End", "Home", "Left", "Up", "Right", "Down"}) {
        add(4, key, 35, [code](T &m) { m.Key(code, false); });
        if (code != TZtKey::Left && code != TZtKey::Right)
            add(2, "Ctrl+" + key, 35, [code](T &m) { m.Key(code, true); });
        ++code;
    }
    add(8, "Delete", 20, [](T &m) { m.Key(TZtKey::Delete, false); });
    add(2, "Ctrl+A", 0, [](T &m) { m.Key('A', true); });
    const std::tuple<const char *, const char *, void (T::*)()> commands[] = {
        {"Ctrl+Z", "#772", &T::Undo},
        {"Ctrl+X", "#768", &T::Cut},
        {"Ctrl+V", "#770", &T::Paste},
        {"Ctrl+C", "#769", &T::Copy}};
    for (const auto &[key, message, action] : commands) {
        add(3, key, 0, action);
        add(3, message, 20, action);
    }
    return list;
}

const QStringList Texts = QString("|word|one two|a\r\nb|a\r\r\nb\n|\r\n|    in\n|tab\there\r|"
                                  "\n\n\n x\ny|  \r\n  |\u0416|last\r\n|%1\r\nshort")
                              .arg(QString(60, u'w'))
                              .split(u'|');

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
        Model.HPage = (400 - Edit.GetGuttorWidth() - Rig.V->width()) / Edit.GetCharWidth() - 1;
        Model.VPage = (220 - Rig.H->height()) / Edit.GetLineWidth() - 1;
        SetText("begin\r\n  one two\r\n\r\nend\r\n");
    }
    int Pick(int ACount) { return int(Random() % unsigned(ACount)); }
    QString AnyText() { return Texts[Pick(int(Texts.size()))]; }
    QPoint AnyPoint()
    {
        const int lines = Model.Count() + 1;
        return {Pick(30) - (Pick(8) == 0), Pick(Pick(8) == 0 ? lines + 4 : lines)};
    }
    template <typename T> void Both(const T &AAct)
    {
        AAct(Edit);
        AAct(Model);
    }
    void SetText(const QString &S)
    {
        Both([&](auto &e) { e.SetText(S); });
        LinesTaken = false;
    }
    void Tell(const QString &AWhat) { Last = (Last << AWhat).mid(Last.size() > 9); }

    void Press();
    void Host();
};

void TRandomRun::Press()
{
    static const std::vector<TInput> inputs = Inputs();
    const TInput &input = inputs[size_t(Pick(int(inputs.size())))];
    if (Pick(12) == 0)
        Rig.Clipboard = Model.Clipboard = AnyText();
    Model.Shift = Pick(100) < input.ShiftPercent;
    QString words = input.Words;
    if (Model.Shift && !words.startsWith(u'#'))
        words.insert(words.startsWith("Ctrl+") ? 5 : 0, "Shift+");
    Tell(Model.Shift ? words + " (Shift)" : words);
    Rig.Do(words);
    input.Model(Model);
}

void TRandomRun::Host()
{
    const QString text = AnyText();
    const QPoint at = AnyPoint(), other = AnyPoint();
    const int kind = Pick(8);
    Model.Shift = Pick(8) == 0;
    QString what;
    QDebug(&what) << "host" << kind << at << other << text;
    Tell(what);
    if (kind == 0) {
        Both([&](auto &e) { e.InsertText(TZtChangeType::ctInsert, text); });
    } else if (kind == 1 && at.y() < Model.Count()) {
        LinesTaken = true;
        Edit.GetLines()->Delete(at.y());
        Model.Edited().removeAt(at.y());
    } else if (kind == 2 && at.x() == 0) {
        SetText(text);
    } else if (kind == 3) {
        Edit.SetModified(Model.Modified = false);
    } else if (kind == 4) {
        Both([&](auto &e) { e.SetCharPos(at.x() == 0 ? 700 : at.x() - 3); });
    } else if (kind == 5) {
        Both([&](auto &e) { e.SetLinePos(at.y() - 1); });
    } else if (kind == 6) {
        Edit.SetReadOnly(Model.ReadOnly = at.x() % 5 == 0);
        Edit.SetTabIndentSize(Model.TabSize = at.x() % 6 - 1);
    } else {
        Edit.SetSelStart(Model.SelStart = at);
        Edit.SetSelEnd(Model.SelEnd = other);
    }
}

auto ItemState(const TZtUndoItem &AItem)
{
    return std::tuple(int(AItem.GetChangeType()), AItem.GetStartPos(), AItem.GetEndPos(),
                      AItem.GetCaretPos(), AItem.GetValue());
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
    const TZtUndoList &undo = *Edit.GetUndoList();
    const TZtUndoItem none(TZtChangeType::ctNone, {}, {}, {}, {});
    for (int step = 0; step < (longRun > 0 ? longRun : 30000); ++step) {
        Pick(16) < 14 ? Press() : Host();
        if (step % 100 == 0)
            QCoreApplication::processEvents(); // paints
        const auto is = std::tuple_cat(
            std::tuple(Rig.Lines(), QPoint(Edit.GetCharPos(), Edit.GetLinePos()),
                       Edit.GetSelStart(), Edit.GetSelEnd(), Edit.GetModified(),
                       Rig.H->GetPosition(), Rig.V->GetPosition(), Rig.Changes, Rig.CursorMoves,
                       int(Rig.Errors.size()), Rig.Clipboard, undo.GetCount()),
            ItemState(undo.GetCount() ? undo.GetItems(undo.GetCount() - 1) : none));
        const auto should = std::tuple_cat(
            std::tuple(Model.Lines, Model.Caret, Model.SelStart, Model.SelEnd, Model.Modified,
                       Model.HPos, Model.VPos, Model.Changes, Model.CursorMoves, Model.Errors,
                       Model.Clipboard, int(Model.Items.size())),
            ItemState(Model.Items.empty() ? none : Model.Items.back()));
        const bool below = Edit.GetLinePos() > qMax(0, Model.Count() - 1);
        LinesTaken = LinesTaken && below;
        ASSERT_TRUE(is == should && (!below || LinesTaken))
            << "seed " << seed << ", step " << step << "\nis:        " << Dump(is)
            << "\nshould be: " << Dump(should) << '\n'
            << Last.join(u'\n').toStdString();
        // A small text, so that its ends are met often.
        if (Model.Count() > 60 || Model.Lines.join(u' ').size() > 3000)
            SetText(Model.Lines.mid(0, 12).join("\r\n").left(400));
    }
}

} // namespace
