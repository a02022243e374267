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

// The list next to the plainest model of it, with a log of the events: "-3" before a change of a
// list that holds 3 lines, "+4" after it.
class TListModel {
public:
    TListModel()
    {
        List.OnChanging = [this](QObject *) { Log += '-' + std::to_string(List.GetCount()); };
        List.OnChange = [this](QObject *) { Log += '+' + std::to_string(List.GetCount()); };
    }
    void ReplaceAll(const QStringList &ALines)
    {
        Lines = ALines;
        Objects.assign(size_t(ALines.size()), 0);
    }
    void Step();
    void Check() const;

    TStringList List;
    QStringList Lines;
    std::vector<int> Objects;
    std::string Log;

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

void TListModel::Step()
{
    const int operation = Below(12), object = Below(100);
    const QString S = Text();
    if (operation < 5 || Lines.isEmpty()) {
        const int at = operation < 3 ? int(Lines.size()) : Below(Lines.size() + 1);
        List.InsertObject(at, S, object);
        Lines.insert(at, S);
        Objects.insert(Objects.begin() + at, object);
        return;
    }
    const int line = Below(Lines.size());
    if (operation < 7) {
        List.Delete(line);
        Lines.removeAt(line);
        Objects.erase(Objects.begin() + line);
    } else if (operation == 7) {
        List.SetStrings(line, Lines[line] = S);
    } else if (operation == 8) {
        const int from = Below(2) ? line : Below(Lines.size());
        const int column = Below(Lines[from].size() + 1);
        List.EditStrings(line, List.GetStrings(from),
                         [&](QString &text) { text.insert(column, S); });
        Lines[line] = QString(Lines[from]).insert(column, S);
    } else if (operation == 9) {
        List.SetObjects(line, Objects[size_t(line)] = -object);
    } else if (operation == 10) {
        List.SetText(S);
        ReplaceAll(SplitLines(S));
    } else {
        const QByteArray bytes = Bytes();
        List.SetUtf8Text(bytes);
        ReplaceAll(SplitUtf8(bytes));
    }
}

void TListModel::Check() const
{
    ASSERT_EQ(List.GetCount(), Lines.size());
    QString text;
    for (int i = 0; i < List.GetCount(); ++i) {
        QString appended = u">"_s;
        List.AppendTo(i, appended);
        ASSERT_EQ(List.GetStrings(i), Lines[i]) << i;
        ASSERT_EQ(List.View(i).toString(), Lines[i]) << i;
        ASSERT_EQ(appended, u'>' + Lines[i]) << i;
        ASSERT_EQ(List.GetLength(i), Lines[i].size()) << i;
        ASSERT_EQ(List.GetObjects(i), Objects[size_t(i)]) << i;
        text += Lines[i] + u"\r\n"_s;
    }
    ASSERT_EQ(List.GetText(), text);
}

} // namespace

TEST(StringList, HoldsWhatThePlainModelHolds)
{
    TListModel model;
    for (int i = 0; i < 3000; ++i) {
        model.Log.clear();
        const std::string before = '-' + std::to_string(model.Lines.size());
        model.Step();
        ASSERT_EQ(model.Log, before + '+' + std::to_string(model.Lines.size())) << "step " << i;
        ASSERT_NO_FATAL_FAILURE(model.Check()) << "step " << i;
    }
}

TEST(StringList, LongTextsKeepTheirLines)
{
    TListModel model;
    QString text;
    for (int i = 0; i < 3000; ++i)
        text += QString(i % 700, QChar(i % 3 ? 'x' : 0x416)) + u"\r\n"_s;
    model.ReplaceAll(SplitLines(text));
    model.List.SetText(text);
    model.Check();
    model.List.SetUtf8Text(text.toUtf8());
    model.Check();
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

TEST(StringList, AnIndexOutsideRaisesBeforeAnyEvent)
{
    TListModel model;
    TStringList &list = model.List;
    list.Add(u"a"_s);
    model.Log.clear();
    for (const int i : {-1, 1}) {
        EXPECT_THROW(list.GetStrings(i), EStringListError) << i;
        EXPECT_THROW(list.GetObjects(i), EStringListError) << i;
        EXPECT_THROW(list.GetLength(i), EStringListError) << i;
        EXPECT_THROW(list.View(i), EStringListError) << i;
        for (const auto &operation : LineOperations)
            EXPECT_THROW(operation(list, i), EStringListError) << i;
        EXPECT_THROW(list.Insert(2 * i, u"x"_s), EStringListError) << i;
    }
    EXPECT_EQ(model.Log, "");
    EXPECT_EQ(list.GetText(), u"a\r\n"_s);
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
