#include "uZtStringList.h"
#include "uZtStrings.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

QStringList SplitLines(QString S)
{
    S.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines = S.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

// A decoder takes a byte-order mark at the start away, so that each line is decoded behind an "x".
QStringList SplitUtf8(const QByteArray &ABytes)
{
    QStringList lines = SplitLines(QString::fromLatin1(ABytes));
    for (QString &line : lines)
        line = QString::fromUtf8('x' + line.toLatin1()).mid(1);
    return lines;
}

struct TLine {
    QString Text;
    int Object = 0;
};
using TLines = QList<TLine>;

TLines WithoutObjects(const QStringList &ATexts)
{
    TLines lines;
    for (const QString &text : ATexts)
        lines.append({text});
    return lines;
}

constexpr QLatin1StringView Break{"\x01"}; // the lines hold other breaks

QString Joined(const TLines &ALines)
{
    QString text;
    for (const TLine &line : ALines)
        text += line.Text + Break;
    return text;
}

// A text that is only ever told its changes; what they say was removed must have been there.
class TMirror final : public TZtTextListener {
public:
    QString Text;
    std::vector<TZtTextChange> Changes;

    bool WantsRemoved() const override { return true; }
    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override
    {
        const qsizetype start = At(AChange.Start), count = At(AChange.RemovedEnd) - start;
        EXPECT_EQ(Text.mid(start, count), AChange.Removed->GetText(Break));
        const TZtTextPiece inserted = AText.GetPiece(AChange.Start, AChange.InsertedEnd);
        Text.replace(start, count, inserted.GetText(Break));
        Changes.push_back(AChange);
    }

private:
    qsizetype At(const QPoint &APlace) const
    {
        qsizetype start = 0;
        for (int y = 0; y < APlace.y(); ++y)
            start = Text.indexOf(Break, start) + 1;
        return start + APlace.x();
    }
};

// The list next to the plainest model of it, with a log of the events: "-3" before a change of a
// list that holds 3 lines, "+4" after it.
class TListModel {
public:
    TListModel()
    {
        List.OnChanging = [this](QObject *) { Log += '-' + std::to_string(List.GetCount()); };
        List.OnChange = [this](QObject *) { Log += '+' + std::to_string(List.GetCount()); };
    }
    void Step();
    void Check() const;
    void ReplaceText();

    TStringList List;
    TLines Lines;
    std::string Log;
    bool SetsSlots = true;

private:
    int Below(qsizetype ACount) { return int(FRandom() % quint32(ACount)); }
    QByteArray Bytes();
    QString Text();

    std::mt19937 FRandom{20260114};
};

// Windows-1252 or UTF-8, with line breaks, marks, pairs, halves of pairs and zeros.
QByteArray TListModel::Bytes()
{
    static const QByteArrayList pieces = {
        "a",  "\xC3\xA9", "\xFF", "\xE6\x97",     "\xEF\xBB\xBF",      "\xF0\x9F\x98\x80",
        "\r", "\n",       "\r\n", "\xED\xA0\xBD", QByteArray(1, '\0'), QByteArray(17, 'b')};
    QByteArray S;
    for (int n = Below(60); n > 0; --n)
        S += pieces[Below(pieces.size())];
    return S;
}

QString TListModel::Text()
{
    const QString S = Below(2) ? QString::fromUtf8(Bytes()) : QString::fromLatin1(Bytes());
    return QString(S).insert(Below(S.size() + 1), QChar(Below(2) ? 0xD83D : 0));
}

void TListModel::ReplaceText()
{
    QPoint from(0, Below(Lines.size() + 1));
    QPoint to(0, from.y() + Below(Lines.size() + 1 - from.y()));
    if (from.y() < Lines.size())
        from.setX(Below(Lines[from.y()].Text.size() + 1));
    if (to.y() < Lines.size())
        to.setX(Below(Lines[to.y()].Text.size() + 1));
    if (to.y() == from.y() && to.x() < from.x())
        std::swap(from, to);
    QStringList pieces = SplitLines(Text() + u'x');
    pieces.last().chop(1);
    if (to.y() == Lines.size()) { // nothing may be left without a break
        pieces.last().clear();
        if (pieces.size() == 1)
            from.setX(0);
    }
    List.ReplaceText(from, to, TZtTextPiece(pieces.join(u'\n')));
    Lines.append(TLine()); // the end of the text is a line too, for now
    TLines lines = WithoutObjects(pieces);
    lines.first().Text.prepend(Lines[from.y()].Text.left(from.x()));
    lines.last().Text.append(Lines[to.y()].Text.mid(to.x()));
    lines.last().Object = Lines[to.y()].Object;
    lines.first().Object = Lines[from.y()].Object;
    Lines = Lines.mid(0, from.y()) + lines + Lines.mid(to.y() + 1);
    Lines.removeLast();
}

void TListModel::Step()
{
    const int operation = Below(15), object = Below(100);
    const QString S = Text();
    if (operation < 5 || Lines.isEmpty()) {
        const int at = operation < 3 ? int(Lines.size()) : Below(Lines.size() + 1);
        List.InsertObject(at, S, object);
        Lines.insert(at, {S, object});
        return;
    }
    const int line = Below(Lines.size());
    if (operation > 11) {
        ReplaceText();
    } else if (operation < 7) {
        List.Delete(line);
        Lines.removeAt(line);
    } else if (operation == 7) {
        List.SetStrings(line, Lines[line].Text = S);
    } else if (operation == 8) {
        const int from = Below(2) ? line : Below(Lines.size());
        const int column = Below(Lines[from].Text.size() + 1);
        List.EditStrings(line, List.GetStrings(from),
                         [&](QString &text) { text.insert(column, S); });
        Lines[line].Text = QString(Lines[from].Text).insert(column, S);
    } else if (operation == 9 && SetsSlots) {
        List.SetObjects(line, Lines[line].Object = -object);
    } else if (operation == 10) {
        List.SetText(S);
        Lines = WithoutObjects(SplitLines(S));
    } else {
        const QByteArray bytes = Bytes();
        List.SetUtf8Text(bytes);
        Lines = WithoutObjects(SplitUtf8(bytes));
    }
}

void TListModel::Check() const
{
    ASSERT_EQ(List.GetCount(), Lines.size());
    QString text;
    for (int i = 0; i < List.GetCount(); ++i) {
        QString appended = u">"_s;
        List.AppendTo(i, appended);
        ASSERT_EQ(List.GetStrings(i), Lines[i].Text) << i;
        ASSERT_EQ(List.View(i).toString(), Lines[i].Text) << i;
        ASSERT_EQ(appended, u'>' + Lines[i].Text) << i;
        ASSERT_EQ(List.GetLength(i), Lines[i].Text.size()) << i;
        ASSERT_EQ(List.GetObjects(i), Lines[i].Object) << i;
        text += Lines[i].Text + u"\r\n"_s;
    }
    ASSERT_EQ(List.GetText(), text);
}

} // namespace

// Told alone, the changes make the same text; each put back, the last one first, they lead to the
// first one, with its object slots. Slots that are set between changes are no part of them.
TEST(StringList, HoldsWhatThePlainModelHoldsAndTellsItsChanges)
{
    TListModel model;
    for (int round = 0; round < 200; ++round) {
        TMirror mirror;
        model.SetsSlots = round % 3 > 0;
        const TLines before = model.Lines;
        mirror.Text = Joined(before);
        if (!model.SetsSlots)
            model.List.AddListener(&mirror);
        for (int i = 0; i < 20; ++i) {
            model.Log.clear();
            const std::string log = '-' + std::to_string(model.Lines.size());
            const quint64 revision = model.List.GetRevision();
            model.Step();
            if (model.List.GetRevision() == revision && model.Log.empty())
                continue; // nothing was replaced by nothing
            ASSERT_EQ(model.Log, log + '+' + std::to_string(model.Lines.size()))
                << round << ' ' << i;
            ASSERT_NO_FATAL_FAILURE(model.Check()) << round << ' ' << i;
            ASSERT_TRUE(model.SetsSlots || mirror.Text == Joined(model.Lines)) << round << ' ' << i;
        }
        model.List.RemoveListener(&mirror);
        if (model.SetsSlots)
            continue;
        for (; !mirror.Changes.empty(); mirror.Changes.pop_back()) {
            TZtTextChange &change = mirror.Changes.back();
            model.List.ReplaceText(change.Start, change.InsertedEnd, std::move(*change.Removed));
        }
        model.Lines = before;
        ASSERT_NO_FATAL_FAILURE(model.Check()) << round;
    }
}

// Many lines, some of them long, change hands with their blocks.
TEST(StringList, LargePiecesComeAndGoWhole)
{
    TStringList list;
    for (const bool wide : {false, true}) {
        QString text;
        for (int i = 0; i < 20'000; ++i)
            text += QString(i % 7 ? 1 : i % 700, QChar(wide ? 0x416 : u'x')) + QString::number(i) +
                    u"\r\n"_s;
        list.SetUtf8Text(text.toUtf8());
        ASSERT_EQ(list.GetText(), text);
        list.SetText(text);
        ASSERT_EQ(list.GetText(), text);
        list.SetStrings(7, u"its own"_s);
        text = list.GetText();
        const std::pair<QPoint, QPoint> ranges[] = {
            {{0, 0}, list.GetEnd()},     {{0, 0}, {3, 19'999}}, {{2, 1}, {1, 19'990}},
            {{2, 5'000}, {0, 9'000}},    {{1, 7}, {1, 7'000}},  {{2, 100}, {2, 104}},
            {{0, 19'998}, list.GetEnd()}};
        for (const auto &[from, to] : ranges) {
            TMirror mirror;
            mirror.Text = Joined(WithoutObjects(SplitLines(text)));
            list.AddListener(&mirror);
            list.ReplaceText(from, to, {});
            list.ReplaceText(from, from, std::move(*mirror.Changes[0].Removed));
            list.RemoveListener(&mirror);
            ASSERT_EQ(list.GetText(), text) << from.y();
        }
        list.ReplaceText({0, 3}, {0, 3}, TZtTextPiece(text));
        list.ReplaceText({0, 3}, {0, 20'003}, {});
        ASSERT_EQ(list.GetText(), text);
    }
}

TEST(StringList, AnUpdateFiresOnce)
{
    TListModel model;
    TStringList &list = model.List;
    list.Clear();
    EXPECT_EQ(model.Log, "") << "an empty list has nothing to clear";
    list.BeginUpdate();
    list.BeginUpdate();
    EXPECT_EQ(list.Add(u"a"_s), 0);
    EXPECT_EQ(list.AddObject(u"b"_s, 7), 1);
    list.SetObjects(0, 1);
    list.EndUpdate();
    EXPECT_EQ(model.Log, "-0");
    list.EndUpdate();
    EXPECT_EQ(model.Log, "-0+2");

    TListModel copy;
    copy.List.Add(u"old"_s);
    copy.Log.clear();
    copy.List.Assign(&list);
    copy.List.Assign(&copy.List);
    EXPECT_EQ(copy.List.GetText(), u"a\r\nb\r\n"_s);
    EXPECT_EQ(copy.List.GetObjects(1), 7);
    copy.List.SetStrings(0, u"a"_s);
    copy.List.Clear();
    EXPECT_EQ(copy.Log, "-1+2-2+2-2+0") << "a store of an equal value is a change too";
}

// A failed edit keeps the line, also one that was edited in its own memory.
TEST(StringList, AFailedEditKeepsTheLine)
{
    TStringList list;
    list.SetText(u"abc"_s);
    for (int i = 0; i < 2; ++i) {
        EXPECT_ANY_THROW(
            list.EditStrings(0, list.GetStrings(0), [](QString &) { throw std::bad_alloc(); }));
        EXPECT_EQ(list.GetText(), u"abc\r\n"_s);
        list.SetStrings(0, u"abc"_s);
    }
}

using TOperations = QList<std::function<void(TStringList &list, int at)>>;

const TOperations LineOperations = {
    [](TStringList &list, int at) { list.ReplaceInLine(at, 0, 1, u"x"); },
    [](TStringList &list, int at) {
        list.ReplaceText({1, at}, {1, at}, TZtTextPiece(u"\n"_s));
    },
    [](TStringList &list, int at) { list.SetStrings(at, u"x"_s); },
    [](TStringList &list, int at) { list.SetObjects(at, 7); },
    [](TStringList &list, int at) { list.Delete(at); },
    [](TStringList &list, int at) { list.EditStrings(at, u"x"_s, [](QString &) {}); },
    [](TStringList &list, int at) {
        list.EditStrings(at, list.GetStrings(at), [&](QString &) { list.Clear(); });
    },
};

const TOperations TextOperations = {
    [](TStringList &list, int) { list.Insert(list.GetCount(), u"x"_s); },
    [](TStringList &list, int) { list.Clear(); },
    [](TStringList &list, int) { list.SetText(u"a\nb"_s); },
};

const TOperations Reads = {
    [](TStringList &list, int at) { list.GetStrings(at); },
    [](TStringList &list, int at) { list.GetObjects(at); },
    [](TStringList &list, int at) { list.GetLength(at); },
    [](TStringList &list, int at) { list.View(at); },
};

TEST(StringList, APlaceOutsideRaisesBeforeAnyEvent)
{
    TListModel model;
    TStringList &list = model.List;
    list.SetText(u"ab\nc"_s);
    model.Log.clear();
    for (const int i : {-1, 2}) {
        for (const auto &operation : LineOperations + Reads)
            EXPECT_THROW(operation(list, i), EStringListError) << i;
        EXPECT_THROW(list.Insert(i < 0 ? i : i + 1, u"x"_s), EStringListError) << i;
    }
    const std::pair<QPoint, QPoint> ranges[] = {
        {{3, 0}, {0, 1}}, {{0, 0}, {2, 1}}, {{-1, 0}, {1, 0}}, {{0, -1}, {1, 0}},
        {{0, 0}, {1, 2}}, {{0, 0}, {0, 3}}, {{1, 0}, {0, 0}},  {{1, 0}, {0, 2}}};
    for (const auto &[from, to] : ranges)
        EXPECT_THROW(list.ReplaceText(from, to, {}), EStringListError) << from.x() << to.x();
    EXPECT_THROW(list.ReplaceText({0, 2}, {0, 2}, TZtTextPiece(u"x"_s)), EStringListError);
    EXPECT_THROW(list.ReplaceInLine(0, 1, 2, u""), EStringListError);
    EXPECT_EQ(model.Log, "");
    EXPECT_EQ(list.GetText(), u"ab\r\nc\r\n"_s);
    TStringList::CheckLength(TStringList::MaxLength);
    EXPECT_THROW(TStringList::CheckLength(qsizetype(TStringList::MaxLength) + 1), EStringListError);
}

// Handlers change the list under an operation: it goes on where it can and raises where it cannot.
TEST(StringList, HandlersMayChangeTheList)
{
    for (const auto &operation : LineOperations + TextOperations)
        for (const auto handler : {&TStringList::OnChanging, &TStringList::OnChange}) {
            TStringList list;
            list.SetText(u"one\ntwo"_s);
            list.SetStrings(1, u"its own"_s);
            bool done = false;
            list.*handler = [&](QObject *) {
                if (!std::exchange(done, true))
                    list.Clear();
            };
            try {
                operation(list, 1);
            } catch (const EStringListError &) {
                EXPECT_EQ(list.GetCount(), 0);
            }
            EXPECT_TRUE(done);
            list.SetText(u"still\nthere"_s);
            EXPECT_EQ(list.GetCount(), 2);
        }
}

// What is raised before a change prevents it, and an update that it ended is over.
TEST(StringList, AHandlerMayPreventAChange)
{
    TListModel model;
    TStringList &list = model.List;
    list.Add(u"a"_s);
    list.OnChanging = [](QObject *) { throw EZtException(u"no"_s); };
    for (const auto &operation : LineOperations + TextOperations)
        EXPECT_THROW(operation(list, 0), EZtException);
    list.OnChanging = nullptr;
    list.Add(u"b"_s);
    EXPECT_EQ(model.Log, "-0+1+2");
    EXPECT_EQ(list.GetText(), u"a\r\nb\r\n"_s);
}

TEST(Strings, TrimTakesCodesUpTo32)
{
    EXPECT_EQ(ZtTrim(u" \t\r\n"_s), u""_s);
    EXPECT_EQ(ZtTrim(u" \x01 a b\x1f "_s), u"a b"_s);
    EXPECT_EQ(ZtTrim(u"\u00a0a\u00a0"_s), u"\u00a0a\u00a0"_s);
    EXPECT_EQ(ZtTrimRight(u" \x01 a b\x1f "_s), u" \x01 a b"_s);
}
