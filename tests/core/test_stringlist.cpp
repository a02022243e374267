#include "uZtStringList.h"
#include "uZtStrings.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using TStrings = std::vector<QString>;

TStrings SplitLines(QString S)
{
    S.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (S.endsWith(u'\n'))
        S.chop(1);
    else if (S.isEmpty())
        return {};
    const QStringList parts = S.split(u'\n');
    return {parts.begin(), parts.end()};
}

// A decoder takes a byte-order mark at the start away, so that each line is decoded behind an "x".
TStrings SplitUtf8(const QByteArray &ABytes)
{
    TStrings lines = SplitLines(QString::fromLatin1(ABytes));
    for (QString &line : lines)
        line = QString::fromUtf8('x' + line.toLatin1()).mid(1);
    return lines;
}

// The list next to the plainest model of it, with a log of the events: "-3" before a change of a
// list that holds 3 lines, "+4" after it.
struct TListModel {
    TListModel()
    {
        List.OnChanging = [this](QObject *sender) { Note('-', sender); };
        List.OnChange = [this](QObject *sender) { Note('+', sender); };
    }
    void Note(char sign, QObject *sender)
    {
        EXPECT_EQ(sender, &List);
        Log += sign + std::to_string(List.GetCount());
    }
    void ReplaceAll(TStrings ALines)
    {
        Objects.assign(ALines.size(), 0);
        Lines = std::move(ALines);
    }
    void Check() const
    {
        ASSERT_EQ(size_t(List.GetCount()), Lines.size());
        QString text;
        for (int i = 0; i < List.GetCount(); ++i) {
            const QString &line = Lines[size_t(i)];
            QString appended = QStringLiteral(">");
            List.AppendTo(i, appended);
            ASSERT_EQ(List.GetStrings(i), line) << i;
            ASSERT_EQ(List.View(i).toString(), line) << i;
            ASSERT_EQ(appended, u'>' + line) << i;
            ASSERT_EQ(List.GetLength(i), line.size()) << i;
            ASSERT_EQ(List.GetObjects(i), Objects[size_t(i)]) << i;
            text += line + QStringLiteral("\r\n");
        }
        ASSERT_EQ(List.GetText(), text);
    }

    TStringList List;
    TStrings Lines;
    std::vector<int> Objects;
    std::string Log;
};

struct TListFuzz : TListModel {
    size_t Below(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(Random); }
    // Bytes of Windows-1252 or UTF-8, with line breaks, marks, pairs, halves of pairs and zeros.
    QByteArray Bytes()
    {
        static const std::vector<QByteArray> pieces = {
            "a",  "\xC3\xA9", "\xFF", "\xE6\x97",     "\xEF\xBB\xBF",      "\xF0\x9F\x98\x80",
            "\r", "\n",       "\r\n", "\xED\xA0\xBD", QByteArray(1, '\0'), QByteArray(17, 'b')};
        QByteArray S;
        for (size_t n = Below(60); n > 0; --n)
            S += pieces[Below(pieces.size())];
        return S;
    }
    QString Text()
    {
        QString S = Below(2) ? QString::fromUtf8(Bytes()) : QString::fromLatin1(Bytes());
        return S.insert(qsizetype(Below(size_t(S.size()) + 1)), QChar(Below(2) ? 0xD83D : 0));
    }
    void Step();

    std::mt19937 Random{20260114};
};

void TListFuzz::Step()
{
    const size_t operation = Below(12);
    const QString S = Text();
    const auto at = std::ptrdiff_t(Below(Lines.size() + 1));
    if (operation < 5 || Lines.empty()) {
        const int object = int(Below(100));
        if (operation % 2)
            List.InsertObject(int(at), S, object);
        else
            List.InsertObject(List.GetCount(), S, object);
        const auto place = operation % 2 ? at : std::ptrdiff_t(Lines.size());
        Lines.insert(Lines.begin() + place, S);
        Objects.insert(Objects.begin() + place, object);
        return;
    }
    const size_t line = Below(Lines.size());
    if (operation < 7) {
        List.Delete(int(line));
        Lines.erase(Lines.begin() + std::ptrdiff_t(line));
        Objects.erase(Objects.begin() + std::ptrdiff_t(line));
    } else if (operation == 7) {
        List.SetStrings(int(line), Lines[line] = S);
    } else if (operation == 8) {
        const size_t from = Below(2) ? line : Below(Lines.size());
        const qsizetype column = qsizetype(Below(size_t(Lines[from].size()) + 1));
        List.EditStrings(int(line), List.GetStrings(int(from)),
                         [&](QString &text) { text.insert(column, S); });
        Lines[line] = QString(Lines[from]).insert(column, S);
    } else if (operation == 9) {
        List.SetObjects(int(line), Objects[line] = int(Below(100)) - 50);
    } else if (operation == 10) {
        List.SetText(S);
        ReplaceAll(SplitLines(S));
    } else {
        const QByteArray bytes = Bytes();
        List.SetUtf8Text(bytes);
        ReplaceAll(SplitUtf8(bytes));
    }
}

} // namespace

TEST(StringList, HoldsWhatThePlainModelHolds)
{
    TListFuzz fuzz;
    for (int i = 0; i < 3000; ++i) {
        fuzz.Log.clear();
        const std::string before = '-' + std::to_string(fuzz.Lines.size());
        fuzz.Step();
        ASSERT_EQ(fuzz.Log, before + '+' + std::to_string(fuzz.Lines.size())) << "step " << i;
        ASSERT_NO_FATAL_FAILURE(fuzz.Check()) << "step " << i;
    }
}

TEST(StringList, LongTextsKeepTheirLines)
{
    TListModel model;
    QString text;
    for (int i = 0; i < 3000; ++i)
        text += QString(i % 700, QChar(i % 3 ? 'x' : 0x416)) + QStringLiteral("\r\n");
    model.List.SetText(text);
    model.ReplaceAll(SplitLines(text));
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
    EXPECT_EQ(list.Add(QStringLiteral("a")), 0);
    EXPECT_EQ(list.AddObject(QStringLiteral("b"), 7), 1);
    list.SetObjects(0, 1);
    list.EndUpdate();
    EXPECT_EQ(model.Log, "-0");
    list.EndUpdate();
    EXPECT_EQ(model.Log, "-0+2");

    TListModel copy;
    copy.List.Add(QStringLiteral("old"));
    copy.Log.clear();
    copy.List.Assign(&list);
    EXPECT_EQ(copy.Log, "-1+2");
    copy.Lines = {QStringLiteral("a"), QStringLiteral("b")};
    copy.Objects = {1, 7};
    copy.Check();
    copy.List.Assign(&copy.List);
    copy.Check();
    copy.Log.clear();
    copy.List.Clear();
    EXPECT_EQ(copy.Log, "-2+0");
    copy.List.SetStrings(copy.List.Add(QString()), QString());
    EXPECT_EQ(copy.Log, "-2+0-0+1-1+1") << "also a store of an equal value is a change";
}

TEST(StringList, AFailedEditKeepsTheLine)
{
    TListModel model;
    for (const bool owned : {false, true}) {
        model.List.SetText(QStringLiteral("abc"));
        if (owned)
            model.List.SetStrings(0, QStringLiteral("abc"));
        EXPECT_THROW(model.List.EditStrings(0, model.List.GetStrings(0),
                                            [](QString &) { throw std::bad_alloc(); }),
                     std::bad_alloc);
        EXPECT_EQ(model.List.GetText(), QStringLiteral("abc\r\n")) << owned;
    }
}

// Handlers change the list under an operation: it goes on where it can and raises where it cannot.
TEST(StringList, HandlersMayChangeTheList)
{
    const std::function<void(TStringList &)> operations[] = {
        [](TStringList &list) { list.SetStrings(1, QStringLiteral("x")); },
        [](TStringList &list) { list.SetObjects(1, 7); },
        [](TStringList &list) { list.Delete(1); },
        [](TStringList &list) { list.InsertObject(2, QStringLiteral("x"), 1); },
        [](TStringList &list) { list.Clear(); },
        [](TStringList &list) { list.SetText(QStringLiteral("a\nb")); },
        [](TStringList &list) {
            list.EditStrings(1, list.GetStrings(1), [](QString &S) { S += u'x'; });
        },
        [](TStringList &list) {
            list.EditStrings(1, list.GetStrings(1), [&](QString &) { list.Clear(); });
        },
    };
    for (const auto &operation : operations)
        for (const bool before : {true, false}) {
            TStringList list;
            list.SetText(QStringLiteral("one\ntwo"));
            list.SetStrings(1, QStringLiteral("its own"));
            bool done = false;
            (before ? list.OnChanging : list.OnChange) = [&](QObject *) {
                if (!std::exchange(done, true))
                    list.Clear();
            };
            try {
                operation(list);
            } catch (const EStringListError &) {
                EXPECT_EQ(list.GetCount(), 0);
            }
            EXPECT_TRUE(done);
            list.OnChanging = list.OnChange = nullptr;
            list.SetText(QStringLiteral("still\nthere"));
            EXPECT_EQ(list.GetCount(), 2);
        }
    // What is raised before a change prevents it, and an update that it ended is over.
    TStringList list;
    list.Add(QStringLiteral("a"));
    list.OnChanging = [](QObject *) { throw EZtException(QStringLiteral("no")); };
    for (const auto &operation : operations)
        EXPECT_ANY_THROW(operation(list));
    list.OnChanging = nullptr;
    int changes = 0;
    list.OnChange = [&](QObject *) { ++changes; };
    list.Add(QStringLiteral("b"));
    EXPECT_EQ(list.GetText(), QStringLiteral("a\r\nb\r\n"));
    EXPECT_EQ(changes, 1);
}

TEST(StringList, AnIndexOutsideRaisesBeforeAnyEvent)
{
    TListModel model;
    TStringList &list = model.List;
    list.Add(QStringLiteral("a"));
    model.Log.clear();
    QString S;
    for (const int i : {-1, 1, 2}) {
        EXPECT_THROW(list.GetStrings(i), EStringListError) << i;
        EXPECT_THROW(list.GetObjects(i), EStringListError) << i;
        EXPECT_THROW(list.GetLength(i), EStringListError) << i;
        EXPECT_THROW(list.View(i), EStringListError) << i;
        EXPECT_THROW(list.AppendTo(i, S), EStringListError) << i;
        EXPECT_THROW(list.SetStrings(i, S), EStringListError) << i;
        EXPECT_THROW(list.EditStrings(i, QString(), [](QString &) {}), EStringListError) << i;
        EXPECT_THROW(list.SetObjects(i, 1), EStringListError) << i;
        EXPECT_THROW(list.Delete(i), EStringListError) << i;
    }
    EXPECT_THROW(list.Insert(-1, S), EStringListError);
    EXPECT_THROW(list.Insert(2, S), EStringListError);
    EXPECT_EQ(model.Log, "");
    EXPECT_EQ(list.GetText(), QStringLiteral("a\r\n"));
}

TEST(Strings, ToListGivesOnePieceMoreThanSeparators)
{
    const struct {
        const char *Text, *Separator, *Pieces;
    } rows[] = {
        {"", ",", "|"},       {"a", ",", "|a"},         {"a,b", ",", "|a|b"},
        {",", ",", "||"},     {"a,,b,", ",", "|a||b|"}, {"a\r\nb", "\r\n", "|a|b"},
        {"aaa", "aa", "||a"}, {"a,b", "", "|a,b"},
    };
    for (const auto &row : rows) {
        TStringList list;
        list.Add(QStringLiteral("kept"));
        ZtStringToList(QString::fromLatin1(row.Text), QString::fromLatin1(row.Separator), list);
        QString pieces;
        for (int i = 1; i < list.GetCount(); ++i)
            pieces += u'|' + list.GetStrings(i);
        EXPECT_EQ(pieces, QString::fromLatin1(row.Pieces)) << row.Text;
        EXPECT_EQ(list.GetStrings(0), QStringLiteral("kept"));
    }
}

TEST(Strings, TrimTakesCodesUpTo32)
{
    const struct {
        const char16_t *Text, *Both, *Right;
    } rows[] = {
        {u"", u"", u""},
        {u" \t\r\n", u"", u""},
        {u" \x01 a b\x1f ", u"a b", u" \x01 a b"},
        {u"\u00a0a\u00a0", u"\u00a0a\u00a0", u"\u00a0a\u00a0"},
    };
    for (const auto &row : rows) {
        const QString S = QString::fromUtf16(row.Text);
        EXPECT_EQ(ZtTrim(S), QString::fromUtf16(row.Both));
        EXPECT_EQ(ZtTrimRight(S), QString::fromUtf16(row.Right));
    }
}
