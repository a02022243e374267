// What is marked in a text, beside plain models that look at everything.
//
// ZT_RANDOM_STEPS makes the run longer; ZT_RANDOM_SEED is its seed.

#include "random_edits.h"
#include "uZtDiagnostics.h"
#include "uZtLineChanges.h"
#include "uZtLineMarks.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using enum TZtLineState;

// Ranges that are all looked at, one by one.
struct TPlainRange {
    QPoint From, To;
    int Owner, Layer;
    bool IsEmpty() const { return !ZtIsBefore(From, To); }
    bool Touches(int AFirst, int ALast) const
    {
        return !IsEmpty() && From.y() <= ALast && ZtIsBefore({0, AFirst}, To);
    }
};
using TPlainRanges = std::map<TZtDecorationHandle, TPlainRange>; // in the order of adding

// What may be expected of marks and states of lines without the rules for the lines of a change:
// all others keep theirs, and no mark is lost.
class TPlainLines final : public TZtTextListener {
public:
    TPlainRanges Ranges;
    std::vector<quint32> Marks;
    std::vector<TZtLineState> States;

    TPlainLines(const TZtLineMarks &AMarks, const TZtLineChanges &AChanges)
        : FMarks(AMarks), FChanges(AChanges)
    {
    }
    void Read(int ALines)
    {
        Marks.clear();
        States.clear();
        for (int i = 0; i < std::max(ALines, 1); ++i) {
            Marks.push_back(FMarks.GetMarks(i));
            States.push_back(FChanges.GetState(i));
        }
    }
    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override
    {
        MapRanges(AChange);
        const auto marks = std::move(Marks);
        const auto states = std::move(States);
        Read(AText.GetCount());
        const size_t last = Marks.size() - 1;
        const size_t start = std::min(size_t(AChange.Start.y()), last);
        quint32 before = 0, after = 0;
        for (size_t i = 0; i < marks.size(); ++i)
            if (i < start)
                EXPECT_TRUE(marks[i] == Marks[i] && (states[i] == States[i])) << i;
            else if (int(i) <= AChange.RemovedEnd.y())
                before |= marks[i];
            else
                Compare(i + size_t(AChange.InsertedEnd.y() - AChange.RemovedEnd.y()), marks[i],
                        states[i], AChange.IsWholeText);
        for (size_t i = start; i <= std::min(last, size_t(AChange.InsertedEnd.y())); ++i)
            after |= Marks[i];
        EXPECT_EQ(before, after);
    }

private:
    void Compare(size_t ALine, quint32 AMarks, TZtLineState AState, bool AWhole)
    {
        ASSERT_LT(ALine, Marks.size());
        EXPECT_EQ(Marks[ALine], AMarks) << ALine;
        EXPECT_TRUE(AWhole || States[ALine] == AState) << ALine;
    }
    void MapRanges(const TZtTextChange &AChange)
    {
        for (auto &[handle, range] : Ranges) {
            const bool empty = range.IsEmpty();
            range.To = AChange.Map(range.To, TZtAnchorSide::asBefore);
            range.From = empty ? range.To : AChange.Map(range.From, TZtAnchorSide::asBehind);
            range.From = range.IsEmpty() ? range.To : range.From;
        }
    }
    const TZtLineMarks &FMarks;
    const TZtLineChanges &FChanges;
};

struct TMarks : testing::Test {
    TStringList Text;
    TZtDecorations Decorations{&Text};
    TZtLineMarks Marks{&Text};
    TZtLineChanges Changes{&Text};
    TPlainLines Plain{Marks, Changes};

    void CompareRanges(int AFirst, int ALast, const QPoint &APlace)
    {
        for (const auto &[handle, range] : Plain.Ranges) {
            const auto placed = Decorations.GetRange(handle);
            ASSERT_TRUE(placed && placed->From == range.From && placed->To == range.To);
        }
        std::multimap<int, TZtDecorationHandle> layers;
        std::vector<TZtDecorationHandle> drawn, at, shown;
        for (const auto &[handle, range] : Plain.Ranges)
            layers.emplace(range.Layer, handle);
        for (const auto &[layer, handle] : layers) {
            const TPlainRange &range = Plain.Ranges[handle];
            if (range.Touches(AFirst, ALast))
                drawn.push_back(handle);
            if (!ZtIsBefore(APlace, range.From) && ZtIsBefore(APlace, range.To))
                at.insert(at.begin(), handle);
        }
        for (const auto &placed : Decorations.GetInLines(AFirst, ALast))
            shown.push_back(placed.Handle);
        EXPECT_EQ(shown, drawn);
        const auto top = Decorations.GetAt(APlace);
        EXPECT_TRUE(std::equal(top.begin(), top.end(), at.begin(), at.end(),
                               [](auto &A, auto B) { return A.Handle == B; }));
    }
    struct TRun {
        int First, Last;
        quint32 Bits;
    };
    // The rows in which the bits of runs of lines are set, one by one.
    std::vector<quint32> Rows(size_t ARows, const std::vector<TRun> &ARuns) const
    {
        std::vector<quint32> rows(ARows);
        const size_t lines = size_t(std::max(Text.GetCount(), 1));
        const auto row = [&](int line) {
            return std::min(size_t(line), lines - 1) * ARows / lines;
        };
        for (const TRun &run : ARuns)
            for (size_t i = row(run.First); i <= row(run.Last); ++i)
                rows[i] |= run.Bits;
        return rows;
    }
    void CompareSurveys(size_t ARows)
    {
        std::vector<quint32> decorations(ARows), marks(ARows), changes(ARows);
        std::vector<TRun> ranges, marked, changed;
        for (const auto &[handle, range] : Plain.Ranges)
            if (!range.IsEmpty())
                ranges.push_back({range.From.y(), range.To.y(), 1u << range.Owner});
        for (int i = 0; i < int(Plain.Marks.size()); ++i) {
            marked.push_back({i, i, Plain.Marks[size_t(i)]});
            const TZtLineState state = Plain.States[size_t(i)];
            const int first = i > 0 && Plain.States[size_t(i) - 1] == state ? i - 1 : i;
            if (state != csNone)
                changed.push_back({first, i, 1u << quint32(state)});
        }
        Decorations.Survey(decorations, [](int owner) { return 1u << owner; });
        EXPECT_EQ(decorations, Rows(ARows, ranges));
        Marks.Survey(marks);
        EXPECT_EQ(marks, Rows(ARows, marked));
        Changes.Survey(changes);
        EXPECT_EQ(changes, Rows(ARows, changed));
    }
    int CountOf(TZtLineMark AKind) const
    {
        return int(std::count_if(Plain.Marks.begin(), Plain.Marks.end(),
                                 [&](quint32 marks) { return marks & ZtMarkBit(AKind); }));
    }
};

QString Shown(const std::optional<TZtDiagnostic> &ADiagnostic)
{
    return ADiagnostic ? u"%1:%2 %3"_s.arg(ADiagnostic->From.y())
                             .arg(ADiagnostic->From.x())
                             .arg(ADiagnostic->Message)
                       : u"-"_s;
}

} // namespace

// Marks that are set and taken away while the text is edited.
struct TMarksAtRandom : TMarks {
    const int LongRun = qEnvironmentVariableIntValue("ZT_RANDOM_STEPS");
    TRandomEdits Edits{Text, unsigned(qEnvironmentVariableIntValue("ZT_RANDOM_SEED"))};
    QStringList Saved; // the lines of the text when it was saved
    bool OneLine = false;

    TMarksAtRandom()
    {
        Changes.SetIsWholeTextMarked(true);
        Text.AddListener(&Plain);
        Plain.Read(0);
    }
    ~TMarksAtRandom() override { Text.RemoveListener(&Plain); }
    TPlainRange Range(int AOwner)
    {
        QPoint from = Edits.Place(), to = Edits.Place();
        if (OneLine)
            to = {from.y() < Text.GetCount() ? Text.GetLength(from.y()) : 0, from.y()};
        if (ZtIsBefore(to, from))
            std::swap(from, to);
        return {from, Edits.Below(8) ? to : from, AOwner, Edits.Below(3)};
    }
    void Replace(int AOwner)
    {
        std::vector<TPlainRange> plain;
        std::vector<TZtDecoration> ranges;
        for (int i = Edits.Below(20); i > 0; --i) {
            plain.push_back(Range(AOwner));
            ranges.push_back({plain.back().From, plain.back().To, {}, plain.back().Layer});
        }
        Decorations.ReplaceOwner(AOwner, ranges);
        std::erase_if(Plain.Ranges, [=](auto &item) { return item.second.Owner == AOwner; });
        std::vector<TZtDecorationHandle> handles;
        for (const auto &placed : Decorations.GetAllInLines(0, Text.GetCount()))
            if (placed.Owner == AOwner)
                handles.push_back(placed.Handle);
        ASSERT_EQ(handles.size(), plain.size());
        std::sort(handles.begin(), handles.end());
        for (size_t i = 0; i < plain.size(); ++i)
            Plain.Ranges[handles[i]] = plain[i];
    }
    void One(int AKind)
    {
        if (AKind < 11) {
            Edits.One();
        } else if (AKind < 14) {
            const TPlainRange plain = Range(Edits.Below(3));
            Plain.Ranges[Decorations.Add(plain.Owner, {plain.From, plain.To, {}, plain.Layer})] =
                plain;
        } else if (AKind == 14 && !Plain.Ranges.empty()) {
            const auto gone = Plain.Ranges.extract(
                std::next(Plain.Ranges.begin(), Edits.Below(int(Plain.Ranges.size()))));
            Decorations.Remove(gone.key());
            Decorations.Remove(gone.key()); // names no other one
        } else if (AKind == 15) {
            Replace(Edits.Below(3));
        } else if (AKind == 16) {
            Changes.MarkSaved();
            Saved.clear();
            for (int i = 0; i < Text.GetCount(); ++i)
                Saved += Text.GetStrings(i);
        } else {
            Marks.Toggle(Edits.Below(std::max(Text.GetCount(), 1)), TZtLineMark(Edits.Below(4)));
        }
        Plain.Read(Text.GetCount());
    }
    // Lines that were not changed stand in the order that they were saved in.
    void CompareLines() const
    {
        for (const TZtLineMark mark : {TZtLineMark::lmBookmark, TZtLineMark::lmError})
            EXPECT_EQ(Marks.GetCount(mark), CountOf(mark));
        qsizetype at = -1;
        for (int i = 0; i < Text.GetCount(); ++i) {
            if (Changes.GetState(i) == csChanged)
                continue;
            at = Saved.indexOf(Text.GetStrings(i), at + 1);
            ASSERT_GE(at, 0);
        }
    }
    void CompareNext(const QPoint &APlace, bool AForward)
    {
        std::vector<QPoint> places;
        for (const auto &[handle, range] : Plain.Ranges)
            places.push_back(range.From);
        std::sort(places.begin(), places.end(), ZtIsBefore);
        std::optional<QPoint> next;
        if (!places.empty() && AForward) {
            const auto behind = std::upper_bound(places.begin(), places.end(), APlace, ZtIsBefore);
            next = behind == places.end() ? places.front() : *behind;
        } else if (!places.empty()) {
            const auto at = std::lower_bound(places.begin(), places.end(), APlace, ZtIsBefore);
            next = at == places.begin() ? places.back() : at[-1];
        }
        EXPECT_EQ(Decorations.Next(APlace, AForward), next);
    }
};

TEST_F(TMarksAtRandom, KeepTheirPlacesThroughAnyEdits)
{
    for (int step = 0; step < (LongRun > 0 ? LongRun : 10'000); ++step) {
        if (step % 500 == 0) {
            for (int owner = 0; owner < 3; ++owner)
                Decorations.RemoveOwner(owner);
            Plain.Ranges.clear();
            OneLine = !OneLine;
        }
        One(Edits.Below(20));
        const int first = Edits.Below(20);
        CompareRanges(first, first + Edits.Below(4), Edits.Place());
        CompareSurveys(size_t(1 + Edits.Below(30)));
        CompareNext(Edits.Place(), Edits.Below(2));
        CompareLines();
        ASSERT_EQ(Decorations.GetCount(), int(Plain.Ranges.size()));
        ASSERT_FALSE(HasFailure()) << "step " << step;
    }
}

TEST_F(TMarks, AMarkGoesWithItsLine)
{
    struct TCase {
        const char *Name;
        std::function<void(TStringList &AText)> Edit;
        const char *Marked; // where the marks of the lines 2 and 3 of six are then
    };
    const auto replace = [](QPoint AFrom, QPoint ATo, const QString &S) {
        return [=](TStringList &text) { text.ReplaceText(AFrom, ATo, TZtTextPiece(S)); };
    };
    const TCase cases[] = {
        {"Enter at the start", replace({0, 2}, {0, 2}, u"\n"_s), "3,4"},
        {"Enter in the middle", replace({1, 2}, {1, 2}, u"\n"_s), "2,4"},
        {"Enter at the end", replace({2, 2}, {2, 2}, u"\n"_s), "2,4"},
        {"typing at the start", replace({0, 2}, {0, 2}, u"x"_s), "2,3"},
        {"a line before", [](TStringList &text) { text.Insert(2, u"x"_s); }, "3,4"},
        {"its line removed", [](TStringList &text) { text.Delete(2); }, "2"},
        {"its line and one more removed", replace({0, 3}, {0, 5}, u""_s), "2,3"},
        {"joined with the one above", replace({2, 1}, {0, 2}, u""_s), "1,2"},
        {"joined with the one below", replace({2, 2}, {0, 3}, u""_s), "2"},
        {"removed from the middle of one", replace({1, 1}, {1, 4}, u""_s), "1"},
        {"the end removed", replace({0, 2}, {0, 6}, u""_s), "1"},
        {"lines for lines", replace({0, 1}, {0, 5}, u"a\nb\nc\nd\n"_s), "2,3"},
        {"fewer lines for lines", replace({0, 1}, {0, 5}, u"a\nb\n"_s), "2"},
        {"another text", [](TStringList &text) { text.SetText(u"a\nb\nc"_s); }, "2"},
        {"no text", [](TStringList &text) { text.Clear(); }, "0"},
    };
    for (const TCase &row : cases) {
        Text.SetText(u"l0\nl1\nl2\nl3\nl4\nl5"_s);
        Marks.Set(2, TZtLineMark::lmBookmark, true);
        Marks.Set(3, TZtLineMark::lmBookmark, true);
        row.Edit(Text);
        QStringList marked;
        for (const auto &line : Marks.GetInLines(0, 99))
            marked += QString::number(line.Line);
        EXPECT_EQ(marked.join(u','), row.Marked) << row.Name;
        EXPECT_EQ(Marks.GetCount(TZtLineMark::lmBookmark), marked.size()) << row.Name;
        Marks.Clear(TZtLineMark::lmBookmark);
    }
}

TEST_F(TMarks, TheNextMarkGoesRound)
{
    Text.SetText(u"0\n1\n2\n3\n4"_s);
    EXPECT_EQ(Marks.Next(0, TZtLineMark::lmBookmark, true), -1);
    Marks.Set(1, TZtLineMark::lmBookmark, true);
    EXPECT_EQ(Marks.Next(1, TZtLineMark::lmBookmark, false), 1);
    Marks.Set(3, TZtLineMark::lmBookmark, true);
    Marks.Set(2, TZtLineMark::lmError, true);
    QString way;
    for (const auto &[line, forward] : std::initializer_list<std::pair<int, bool>>{
             {0, true}, {1, true}, {3, true}, {99, true}, {0, false}, {3, false}, {4, false}})
        way += QString::number(Marks.Next(line, TZtLineMark::lmBookmark, forward));
    EXPECT_EQ(way, "1311313");
    EXPECT_THROW(Marks.Toggle(5, TZtLineMark::lmHost), EStringListError);
}

TEST_F(TMarks, ChangedLinesAreThoseThatAreOthers)
{
    struct TCase {
        QPoint From, To;
        const char *Inserted;
        const char *States; // of the lines: none, changed, saved
    };
    const TCase cases[] = {
        {{1, 1}, {1, 1}, "x", "ncnn"},   // typed
        {{0, 1}, {0, 1}, "\n", "ncnnn"}, // Enter at the start, in the middle, at the end
        {{1, 1}, {1, 1}, "\n", "nccnn"},
        {{2, 1}, {2, 1}, "\n", "nncnn"},
        {{2, 1}, {0, 2}, "", "ncn"},    // joined
        {{0, 1}, {0, 2}, "", "ncn"},    // the line that another one was removed before
        {{0, 3}, {0, 4}, "", "nnc"},    // or the last one
        {{0, 0}, {0, 2}, "a\n", "cnn"}, // lines for lines
        {{1, 0}, {1, 2}, "a\nb\nc\nd", "ccccn"},
        {{0, 4}, {0, 4}, "a\nb\n", "nnnncc"},
    };
    const auto states = [this] {
        QString all;
        for (int i = 0; i < Text.GetCount(); ++i)
            all += u"ncs"_s[int(Changes.GetState(i))];
        return all;
    };
    for (const TCase &row : cases) {
        Text.SetText(u"l0\nl1\nl2\nl3"_s);
        Text.ReplaceText(row.From, row.To, TZtTextPiece(QString::fromLatin1(row.Inserted)));
        EXPECT_EQ(states(), row.States) << row.States;
        Changes.MarkSaved();
        EXPECT_EQ(states(), QString(row.States).replace(u'c', u's')) << row.States;
        Text.ReplaceInLine(0, 0, 0, u"x");
        Text.ReplaceInLine(0, 0, 1, u"");
        EXPECT_EQ(Changes.GetState(0), csChanged);
        Changes.Restore();
        EXPECT_EQ(states(), QString(row.States).replace(u'c', u's')) << row.States;
    }
    Text.SetText(u"a\nb"_s);
    EXPECT_EQ(states(), "nn");
    Changes.SetIsWholeTextMarked(true);
    Text.SetText(u"b\nc"_s);
    EXPECT_EQ(states(), "cc");
    Changes.Reset();
    EXPECT_EQ(states(), "nn");
}

TEST_F(TMarks, ARangeGrowsInsideAndStaysEmpty)
{
    Text.SetText(u"one two three"_s);
    const auto two = Decorations.Add(1, {{4, 0}, {7, 0}});
    const auto place = [&] {
        const auto placed = Decorations.GetRange(two);
        return u"%1-%2 %3"_s.arg(placed->From.x())
            .arg(placed->To.x())
            .arg(Decorations.GetInLines(0, 0).size());
    };
    Text.ReplaceInLine(0, 4, 0, u"<");
    EXPECT_EQ(place(), "5-8 1") << "behind what is inserted at its start";
    Text.ReplaceInLine(0, 8, 0, u">");
    EXPECT_EQ(place(), "5-8 1") << "before what is inserted at its end";
    Text.ReplaceInLine(0, 6, 0, u"--");
    EXPECT_EQ(place(), "5-10 1") << "around what is inserted in it";
    Text.ReplaceInLine(0, 4, 7, u"");
    EXPECT_EQ(place(), "4-4 0");
    Text.ReplaceInLine(0, 4, 0, u"two");
    EXPECT_EQ(place(), "4-4 0") << "what comes to its place is not its own";
    EXPECT_EQ(Decorations.Next({9, 0}, true), QPoint(4, 0));
    Decorations.RemoveOwner(1);
    EXPECT_FALSE(Decorations.GetRange(two));
    EXPECT_FALSE(Decorations.Next({0, 0}, true));
}

TEST_F(TMarks, EachAttributeWinsByItself)
{
    TZtDecorationStyle style{TZtUnderline::ulWavy, clRed, clYellow, {}, {}, {}};
    style.PutOver({{}, {}, {}, clBlue, {}, {}});
    style.PutOver({TZtUnderline::ulDotted, {}, {}, {}, clGray, {}});
    EXPECT_EQ(style,
              (TZtDecorationStyle{TZtUnderline::ulDotted, {}, clYellow, clBlue, clGray, {}}));
}

TEST_F(TMarks, ADiagnosticCoversWhatItsColumnNames)
{
    struct TCase {
        QPoint From, To, CoversFrom, CoversTo;
    };
    const TCase cases[] = {
        {{6, 0}, {6, 0}, {4, 0}, {9, 0}},     // within a word
        {{9, 0}, {9, 0}, {9, 0}, {10, 0}},    // right behind it
        {{12, 0}, {12, 0}, {10, 0}, {12, 0}}, // at the end, both halves of a pair
        {{11, 0}, {11, 0}, {10, 0}, {12, 0}}, {{0, 1}, {0, 1}, {0, 1}, {0, 1}}, // nothing there
        {{1, 2}, {3, 0}, {0, 2}, {3, 2}},  // ends before it begins
        {{0, 9}, {9, 99}, {2, 2}, {3, 2}}, // outside
        {{-5, -1}, {2, 0}, {0, 0}, {2, 0}},
    };
    Text.SetText(u"if  total;\U0001F600\n\nend"_s);
    TZtDiagnostics diagnostics(&Text);
    for (const TCase &row : cases) {
        diagnostics.Set(u"c"_s, {{row.From, row.To, TZtSeverity::dsError, u"m"_s, {}}});
        const auto found = diagnostics.Next({0, 0}, true);
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->From == row.CoversFrom && found->To == row.CoversTo)
            << row.From.x() << ',' << row.From.y() << " covers " << found->From.x() << ','
            << found->From.y() << " to " << found->To.x() << ',' << found->To.y();
    }
}

TEST_F(TMarks, DiagnosticsAreGoneThroughAndCounted)
{
    using enum TZtSeverity;
    Text.SetText(u"aa bb\ncc dd\nee"_s);
    TZtDiagnostics diagnostics(&Text);
    int told = 0;
    diagnostics.OnChange = [&] { ++told; };
    diagnostics.Set(u"x"_s, {{{3, 1}, {5, 1}, dsWarning, u"w"_s, {}},
                             {{0, 0}, {2, 0}, dsError, u"e"_s, {}},
                             {{0, 0}, {2, 1}, dsInformation, u"i"_s, {}}});
    diagnostics.Set(u"y"_s, {{{3, 1}, {5, 1}, dsError, u"f"_s, {}}});
    diagnostics.Clear(u"z"_s);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(Shown(diagnostics.Next({0, 0}, true)), "1:3 f") << "the worst of those there";
    EXPECT_EQ(Shown(diagnostics.Next({3, 1}, true)), "0:0 e");
    EXPECT_EQ(Shown(diagnostics.Next({0, 0}, false)), "1:3 f");
    QString at;
    for (const TZtDiagnostic &diagnostic : diagnostics.At({1, 0}))
        at += diagnostic.Message + diagnostic.Source;
    EXPECT_EQ(at, "exix");
    EXPECT_EQ(diagnostics.OfLine(1), dsError);
    std::vector<quint32> rows(3);
    diagnostics.Survey(rows);
    EXPECT_EQ(rows,
              (std::vector<quint32>{1u << quint32(dsError) | 1u << quint32(dsInformation), 7, 0}));
    diagnostics.Clear(u"y"_s);
    EXPECT_EQ(diagnostics.OfLine(1), dsWarning);
    EXPECT_EQ(diagnostics.OfLine(2), std::nullopt);
    Text.ReplaceInLine(1, 3, 2, u"");
    EXPECT_EQ(diagnostics.GetCount(dsWarning), 1) << "its source takes it back";
    EXPECT_EQ(Shown(diagnostics.Next({0, 0}, true)), "1:3 w");
    diagnostics.Clear();
    EXPECT_EQ(diagnostics.GetCount(), 0);
    EXPECT_EQ(told, 4);
}
