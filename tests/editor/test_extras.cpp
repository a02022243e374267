// What the extras do: keys, the gutter, the wheel, pairs, schemes; and that nothing is there
// without them.

#include "marked_text.h"

#include "uZtCaret.h"
#include "uZtCodeJSParser.h"
#include "uZtFrame.h"
#include "uZtOverviewRuler.h"
#include "uZtTextMarks.h"
#include "uZtTokenDump.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QToolTip>
#include <QWheelEvent>
#include <qtestsupport_core.h>

using enum TZtExtra;
using enum TZtCorrection;

namespace {

class TExtras : public testing::Test {
protected:
    TZtCodeJSParser Lexer;
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;

    TExtras() { Edit.SetParser(&Lexer); }
    ~TExtras() override { Edit.SetParser(nullptr); }
    QImage Picture() { return Edit.grab().toImage(); }
    QString Selection() const
    {
        const QPoint from = Edit.GetSelEnd(), to = Edit.GetSelStart();
        return QStringLiteral("%1,%2 %3,%4").arg(from.x()).arg(from.y()).arg(to.x()).arg(to.y());
    }
    QString Bookmarks()
    {
        QString lines;
        for (const auto &marked : Edit.GetTextMarks().Marks.GetInLines(0, 99))
            lines += QString::number(marked.Line);
        return lines;
    }
    QString Changes()
    {
        QString states;
        for (int i = 0; i < Edit.GetLines()->GetCount(); ++i)
            states += u"-cs"[int(Edit.GetTextMarks().Changes.GetState(i))];
        return states;
    }
};

} // namespace

// --- keys ----------------------------------------------------------------------------------------

TEST_F(TExtras, KeysAreThereWithTheirExtra)
{
    const struct {
        TZtExtra Extra;
        const char *Keys, *Text, *Bookmarks;
        int Zoom;
    } rows[] = {
        {zeMarks, "Ctrl+F2", "a|(\nb\n)c\nd", "013", 100},
        {zeMarks, "Ctrl+F2*2", "a|(\nb\n)c\nd", "13", 100},
        {zeMarks, "F2", "a(\n|b\n)c\nd", "13", 100},
        {zeMarks, "F2*3", "a(\n|b\n)c\nd", "13", 100},
        {zeMarks, "Shift+F2", "a(\nb\n)c\n|d", "13", 100},
        {zeDiagnostics, "F8", "a(\nb\n|)c\nd", "13", 100},
        {zeDiagnostics, "F8*2", "|a(\nb\n)c\nd", "13", 100},
        {zeDiagnostics, "Shift+F8", "|a(\nb\n)c\nd", "13", 100},
        {zeBrackets, "Ctrl+M", "a(\nb\n|)c\nd", "13", 100},
        {zeBrackets, "Ctrl+M*2", "a|(\nb\n)c\nd", "13", 100},
        {zeBrackets, "Ctrl+Shift+M", "a[(\nb\n)]c\nd", "13", 100},
        {zeZoom, "Ctrl++", "a|(\nb\n)c\nd", "13", 110},
        {zeZoom, "Ctrl+-", "a|(\nb\n)c\nd", "13", 91},
        {zeZoom, "Ctrl++ Ctrl+0", "a|(\nb\n)c\nd", "13", 100},
        {zeZoom, "Ctrl+wheel120", "a|(\nb\n)c\nd", "13", 110},
        {zeZoom, "Ctrl+wheel40*3", "a|(\nb\n)c\nd", "13", 110},
    };
    for (const auto &row : rows)
        for (const bool with : {true, false}) {
            Edit.SetCorrections(ZtAllCorrections());
            Edit.SetExtras(with ? TZtExtras(row.Extra) : TZtExtras());
            Rig.SetMarked("a|(\nb\n)c\nd");
            TZtTextMarks &marks = Edit.GetTextMarks();
            marks.Marks.Clear(TZtLineMark::lmBookmark);
            for (const int line : {1, 3})
                marks.Marks.Set(line, TZtLineMark::lmBookmark, true);
            marks.Diagnostics.Set("", {{{0, 0}, {1, 0}}, {{0, 2}, {1, 2}}});
            Rig.Do(row.Keys);
            EXPECT_EQ(Rig.Marked(), with ? row.Text : "a|(\nb\n)c\nd") << row.Keys << with;
            EXPECT_EQ(Bookmarks(), with ? row.Bookmarks : "13") << row.Keys << with;
            EXPECT_EQ(Edit.GetZoom(), with ? row.Zoom : 100) << row.Keys << with;
            EXPECT_EQ(Edit.GetModified(), false) << row.Keys << with;
            Edit.SetZoom(100);
        }
}

TEST_F(TExtras, MatchesAreMarkedUntilEscape)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetExtras(zeMatchMarks);
    Edit.SetText("one two\none");
    TZtSearchReplaceOptions options;
    options.SearchString = "one";
    options.SearchForward = true;
    options.WidenTo(*Edit.GetLines());
    Edit.SetSearchOptions(options);
    TZtMessage message(1027, 0, 0);
    const QImage before = Picture();
    Edit.WMSearchReplace(message);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Edit.GetMatchCount() == 2; }));
    Rig.Do("Ctrl+Home");
    EXPECT_NE(Picture(), before);
    Edit.GetLines()->Add("one");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Edit.GetMatchCount() == 3; }));
    Edit.GetLines()->Delete(2);
    Rig.Do("Escape");
    EXPECT_EQ(Picture(), before);
}

TEST_F(TExtras, TheWordIsMarkedWhenTheCaretRests)
{
    Edit.SetExtras(zeWordMarks);
    Edit.SetWordMarkDelay(30);
    Edit.SetText("ab ab");
    const auto marked = [this] {
        Edit.grab();
        return Edit.PaintedRows()[0].Pieces.back().Back == Edit.GetViewRgb(TZtViewColor::vcWord);
    };
    EXPECT_FALSE(marked());
    EXPECT_TRUE(QTest::qWaitFor(marked));
    Rig.Do("Right x"); // another word, which stands nowhere else
    EXPECT_TRUE(marked());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !marked(); }));
}

// --- gutter --------------------------------------------------------------------------------------

TEST_F(TExtras, TheGutterIsAsWideAsItsNumbers)
{
    for (const TZtCorrections corrections : {ZtAllCorrections(), TZtCorrections(zcPicture)}) {
        Edit.SetCorrections(corrections);
        Edit.SetExtras(zeLineNumbers);
        for (const auto &[lines, digits] : {std::pair(0, 2), {99, 2}, {100, 3}, {99, 2}}) {
            Edit.GetLines()->SetText(QStringLiteral("x\n").repeated(lines));
            const int width = Edit.RealGuttorWidth();
            EXPECT_EQ(width, (digits + 1) * Edit.GetCharWidth() + 4);
            EXPECT_EQ(Rig.H->x(), 0) << "the bar lies below the columns";
            EXPECT_EQ(Edit.GetCaret()->Rect().x(), width + 2) << "the caret goes along";
        }
    }
}

TEST_F(TExtras, NumbersSelectLines)
{
    const std::pair<const char *, const char *> rows[] = {
        {"click@-2,1", "0,1 0,2"},
        {"double@-2,1", "0,1 0,2"},
        {"press@-2,1 move@-2,2 release@-2,2", "0,1 0,3"},
        {"press@-2,2 move@-2,0 release@-2,0", "0,3 0,0"},
        {"press@-2,2 move@5,-3 release@5,-3", "0,3 0,0"},
        {"click@-2,3", "0,3 4,3"},
        {"press@-2,1 move@-2,9 release@-2,9", "0,1 4,3"},
        {"click@-2,1 move@-2,3", "0,1 0,2"},
    };
    for (const TZtCorrections corrections : {ZtAllCorrections(), TZtCorrections(zcPicture)}) {
        Edit.SetCorrections(corrections);
        Edit.SetExtras(zeLineNumbers);
        for (const auto &[words, selected] : rows) {
            Rig.SetMarked("|one\ntwo\nthree\nfour");
            Rig.Do(words);
            EXPECT_EQ(Selection(), selected) << words;
        }
    }
    Edit.SetText({});
    Rig.Do("press@-2,0 move@-2,3 release@-2,3");
    EXPECT_EQ(QPoint(Edit.GetCharPos(), Edit.GetLinePos()), QPoint(0, 0));
}

TEST_F(TExtras, MarksAreToggledUnlessTheHostListens)
{
    Edit.SetExtras(zeMarks | zeLineNumbers);
    const auto press = [&](const QString &mouse, int line) {
        Rig.SetMarked("one two|\ntwo\nthree");
        const int cells = Edit.RealGuttorWidth() / Edit.GetCharWidth();
        Rig.Do(QStringLiteral("%1@-%2,%3").arg(mouse).arg(cells).arg(line));
    };
    press("click", 1);
    EXPECT_EQ(Bookmarks(), "1");
    press("click", 1);
    press("right", 1);
    EXPECT_EQ(Bookmarks(), "");
    press("double", 0);
    EXPECT_EQ(Selection(), "7,0 7,0") << "no word is selected";
    EXPECT_EQ(Bookmarks(), "");
    press("click", 7);
    QStringList told;
    Edit.SetOnGuttorClick([&](int line, int column, TMouseButton button) {
        told += QStringLiteral("%1 %2 %3").arg(line).arg(column).arg(int(button));
    });
    press("click", 2);
    press("right", 1);
    press("click", 7);
    Rig.Do("click@-2,1");
    EXPECT_EQ(told.join(u','), "2 0 0,1 0 1,1 1 0");
    EXPECT_EQ(Bookmarks(), "");
    EXPECT_EQ(Selection(), "0,1 0,2");

    // A handler may take itself away, the column, the lines.
    Edit.SetOnGuttorClick([&](int, int, TMouseButton) {
        Edit.SetOnGuttorClick(nullptr);
        Edit.SetText({});
        Edit.GetGuttor()->Remove(Edit.GetGuttor()->GetColumn(1));
    });
    Rig.Do("click@-2,1");
    EXPECT_EQ(Bookmarks(), "");
    EXPECT_EQ(Edit.GetGuttor()->GetCount(), 2);
}

namespace {

// Draws a stripe, and more than it should.
class TStripes : public TZtGuttorColumn {
public:
    explicit TStripes(QRgb AColour) : FColour(AColour) {}
    int GetWidth(const TZtGuttorSight &) const override { return 8; }
    quint64 GetCell(int ALine, const TZtGuttorSight &) const override { return quint64(ALine % 2); }
    void Draw(QPainter &APainter, TZtTextPainter &, const QRectF &ACell, quint64 AValue,
              const TZtGuttorLook &) const override;

private:
    QRgb FColour;
};

void TStripes::Draw(QPainter &APainter, TZtTextPainter &, const QRectF &ACell, quint64 AValue,
                    const TZtGuttorLook &) const
{
    if (AValue)
        APainter.fillRect(ACell.adjusted(0, 0, 90, 90), QColor(FColour));
    APainter.setOpacity(0.5);
}

} // namespace

TEST_F(TExtras, AHostsColumnIsDrawnInItsPlace)
{
    Edit.SetExtras(zeLineNumbers);
    Edit.SetText("a\nb\nc\nd");
    QList<QImage> pictures;
    for (const QRgb colour : {qRgb(255, 0, 0), qRgb(0, 255, 0)}) {
        auto column = std::make_unique<TStripes>(colour);
        const TZtGuttorColumn *made = column.get();
        Edit.GetGuttor()->Insert(0, std::move(column));
        const int pitch = Edit.GetLineWidth();
        pictures += Picture();
        for (int row = 0; row < 4; ++row)
            EXPECT_EQ(pictures.last().pixel(4, row * pitch + 1) == colour, row % 2 == 1) << row;
        Edit.GetGuttor()->Remove(made);
        Edit.GetGuttor()->Insert(0, std::make_unique<TStripes>(qRgb(0, 0, 255)));
        EXPECT_NE(Picture(), pictures.last()) << "another one of that width and those cells";
        Edit.GetGuttor()->Remove(Edit.GetGuttor()->GetColumn(0));
    }
}

TEST_F(TExtras, ToolTipsTellOfDiagnostics)
{
    Edit.SetExtras(zeMarks | zeDiagnostics);
    Edit.SetText("one two\nthree");
    Edit.GetTextMarks().Diagnostics.Set("", {{{4, 0}, {7, 0}, TZtSeverity::dsError, "a < b"}});
    const int g = Edit.RealGuttorWidth(), cell = Edit.GetCharWidth(), pitch = Edit.GetLineWidth();
    const std::pair<QPoint, bool> rows[] = {
        {{g + 4 * cell + 4, 3}, true},     {{g + 8 * cell, 3}, false}, {{3, 3}, true},
        {{g + 3 * cell - 4, 3}, false},    {{g + 6 * cell, 3}, true},  {{3, pitch + 3}, false},
        {{g + 6 * cell, 9 * pitch}, false}};
    for (const auto &[at, told] : rows) {
        QHelpEvent event(QEvent::ToolTip, at, Edit.mapToGlobal(at));
        QCoreApplication::sendEvent(&Edit, &event);
        EXPECT_TRUE(QTest::qWaitFor([wanted = told] { return QToolTip::isVisible() == wanted; }))
            << at.x() << ',' << at.y();
        EXPECT_TRUE(!told || QToolTip::text().contains("&lt;")) << "plain text";
    }
}

// --- editing -------------------------------------------------------------------------------------

TEST_F(TExtras, PairsAreTyped)
{
    const struct {
        const char *Extension, *Text, *Keys, *Typed;
    } rows[] = {
        {"js", "a|", "(", "a(|)"},
        {"js", "|", "( x )", "(x)|"},
        {"js", "|", "( [ { } ] )", "([{}])|"},
        {"js", "|", "( ) )", "())|"},
        {"js", "|", "( Backspace", "|"},
        {"js", "x(|)", "Backspace", "x|"}, // one that stood there
        {"js", "// x(|)", "Backspace", "// x|)"},
        {"js", "x = \"|\"", "Backspace", "x = |"},
        {"js", "|", "( a Right Backspace", "(a|"},
        {"js", "|x", "(", "(|x"},
        {"js", "f(|)", "{", "f({|})"},
        {"js", "|, b", "(", "(|), b"},
        {"js", "(|)", ")", "()|)"}, // no typing over what others put there
        {"js", "|\nx", "( Down Up )", "()|)\nx"},
        {"js", "f(|)", "( Delete )", "f(()|)"},
        {"js", "[ab]c", "(", "([ab])c"},
        {"js", "a[b\nc]d", "{", "a{[b\nc]}d"},
        {"js", "a [bc] d", ")", "a )| d"},
        {"js", "// [bc] d", "(", "// (| d"},
        {"js", "// a |", "( '", "// a ('|"},
        {"js", "x = |", "\"", "x = \"|\""},
        {"js", "a = |", "\" b \"", "a = \"b\"|"},
        {"js", "|", "`", "`|`"},
        {"js", "|", "' Backspace", "|"},
        {"js", "a|", "'", "a'|"},
        {"js", "''|", "'", "'''|"},
        {"pas", "a := 'b''|'", "Backspace", "a := 'b'|'"}, // a doubled quote in a string
        {"pas", "'a | b'", "( '", "'a ('| b'"},
        {"pas", "'a |", "( '", "'a ('|"},
        {"pas", "'a' |", "(", "'a' (|)"},
        {"pas", "|", "\" '", "\"'|'"},
        {"vbs", "|", "' (", "'(|"}, // an apostrophe begins a comment
        {"txt", "|", "( ' \"", "('\"|\")"},
        {"txt", "don|", "' t Space ( \" a \" )", "don't (\"a\")|"},
        {"xml", "<a b=|>", "\" c \"", "<a b=\"c\"|>"},
        {"xml", "|", "< (", "<(|"},
        {"sql", "a [bc] d", "'", "a '[bc]' d"},
    };
    // The first row also where nothing was painted with the lexer yet.
    for (const TZtCorrections corrections : {ZtAllCorrections(), TZtCorrections(zcPicture)})
        for (const auto &row : rows) {
            SCOPED_TRACE(testing::Message() << row.Text << " : " << row.Keys);
            const auto *language = ZtTokenLanguageOf(QStringLiteral("a.") + row.Extension);
            const auto lexer = language ? language->CreateParser() : nullptr;
            Edit.SetCorrections(corrections);
            Edit.SetExtras(zeTypedPairs);
            Rig.SetMarked(row.Text);
            Edit.SetParser(lexer.get());
            Edit.SetReadOnly(true);
            const QString before = Edit.GetText();
            if (Edit.IsCorrected(zcReadOnly))
                Rig.Do(row.Keys);
            EXPECT_EQ(Edit.GetText(), before) << "read-only";
            Edit.SetReadOnly(false);
            Rig.SetMarked(row.Text);
            Edit.ClearUndo();
            Rig.Do(row.Keys);
            EXPECT_EQ(Rig.Marked(), row.Typed);
            // The first version's undo has one for what was selected, too.
            if (strchr(row.Keys, ' ') || (!Edit.IsCorrected(zcUndo) && strchr(row.Text, '[')))
                continue;
            Edit.Undo();
            EXPECT_EQ(Edit.GetText(), before) << "undone";
        }
    Edit.SetParser(&Lexer);
    Edit.SetCorrections(ZtAllCorrections());
    Rig.SetMarked("|");
    Rig.Do("(");
    Edit.GetLines()->ReplaceInLine(0, 0, 0, u"x");
    Rig.Do(")");
    EXPECT_EQ(Rig.Marked(), "x()|") << "what was typed moves with the text";
}

TEST_F(TExtras, ChangesAreFollowed)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetExtras(zeChangeBars);
    Edit.SetText("a\nb\nc");
    Edit.SetModified(false);
    Edit.ClearUndo();
    const std::pair<const char *, const char *> rows[] = {{"x", "c--"},
                                                          {"save", "s--"},
                                                          {"Down y", "sc-"},
                                                          {"Ctrl+Z", "s--"},
                                                          {"Ctrl+Z", "c--"},
                                                          {"Ctrl+Y", "s--"},
                                                          {"Down End Enter", "s-c-"},
                                                          {"Ctrl+End z", "s-cc"},
                                                          {"save", "s-ss"},
                                                          {"Ctrl+A q", "c"},
                                                          {"text", "---"}};
    for (const auto &[words, states] : rows) {
        const QString word(words);
        if (word == "save")
            Edit.SetModified(false);
        else if (word == "text")
            Edit.SetText("a\nb\nc");
        else
            Rig.Do(word);
        EXPECT_EQ(Changes(), states) << words;
    }
}

// --- wheel and zoom ------------------------------------------------------------------------------

TEST_F(TExtras, SmallStepsOfTheWheelAddUp)
{
    const int lines = Edit.GetScollLines(), pitch = Edit.GetLineWidth(), cell = Edit.GetCharWidth();
    const struct {
        TZtExtras Extras;
        QPoint Pixels, Angle;
        Qt::KeyboardModifier Key;
        int Times, Line, Column;
    } rows[] = {
        {zeFineWheel, {}, {0, -120}, Qt::NoModifier, 1, lines, 0},
        {zeFineWheel, {}, {0, -40}, Qt::NoModifier, 3, lines, 0},
        {zeFineWheel, {0, -1}, {0, -1}, Qt::NoModifier, 2 * pitch, 2, 0},
        {zeFineWheel, {-1, 0}, {-1, 0}, Qt::NoModifier, 2 * cell, 0, 2},
        {zeFineWheel, {0, -cell}, {0, -8}, Qt::ShiftModifier, 2, 0, 2},
        {zeFineWheel, {0, -1}, {0, -1}, Qt::ControlModifier, pitch, 1, 0},
        {{}, {}, {0, -120}, Qt::ControlModifier, 1, lines, 0},
        {{}, {}, {-120, 0}, Qt::NoModifier, 1, 0, 0},
    };
    Edit.SetText(QString(300, u'x') + QStringLiteral("\nx").repeated(99));
    for (const auto &row : rows) {
        Edit.SetExtras(row.Extras);
        Rig.V->SetPosition(0);
        Rig.H->SetPosition(0);
        for (int i = 0; i < row.Times; ++i) {
            QWheelEvent event(QPointF(50, 50), Edit.mapToGlobal(QPointF(50, 50)), row.Pixels,
                              row.Angle, {}, row.Key, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&Edit, &event);
        }
        EXPECT_EQ(Rig.V->GetPosition(), row.Line) << &row - rows;
        EXPECT_EQ(Rig.H->GetPosition(), row.Column) << &row - rows;
    }
}

TEST_F(TExtras, ZoomIsOfTheHostsFont)
{
    Edit.SetExtras(zeZoom | zeLineNumbers);
    Edit.SetText("x");
    QFont font = Edit.font();
    const auto size = [&] { return Edit.font().pointSizeF(); };
    const int cell = Edit.GetCharWidth();
    Edit.SetZoom(200);
    EXPECT_EQ(size(), 20);
    EXPECT_EQ(Edit.GetCharWidth(), 2 * cell);
    EXPECT_EQ(Edit.RealGuttorWidth(), 6 * cell + 4);
    font.setPointSize(14);
    Edit.SetFont(font);
    EXPECT_EQ(Edit.GetZoom(), 100);
    EXPECT_EQ(size(), 14);
    Edit.SetZoom(1);
    EXPECT_EQ(Edit.GetZoom(), 20);
    Edit.SetZoom(50);
    EXPECT_EQ(size(), 7);
    Rig.Do("Ctrl+0");
    EXPECT_EQ(Edit.font(), font);
    font.setPixelSize(30);
    Edit.SetFont(font);
    Edit.SetZoom(50);
    EXPECT_EQ(Edit.font().pixelSize(), 15);
}

// --- colours -------------------------------------------------------------------------------------

TEST_F(TExtras, SchemesAreTheEditorsOwn)
{
    const auto colours = [] {
        std::vector<TColor> all;
        for (const auto &row : TZtCodeJSParser::DrawInfo)
            all.insert(all.end(), {row.TextColor, row.BckColor});
        return all;
    };
    const auto before = colours();
    TZtCodeJSParser lexer;
    TZtCodeEdit other;
    other.SetParser(&lexer);
    other.SetExtras(ZtAllExtras());
    other.resize(Edit.size());
    other.ShareText(&Edit);
    other.show();
    Edit.SetExtras(ZtAllExtras() & ~TZtExtras(zeRuler)); // which rests a moment
    Edit.SetText("if (a) // b");
    const QImage plain = other.grab().toImage();
    const QImage mine = Picture();
    Edit.SetScheme(TZtColorScheme::Find("Dark"));
    EXPECT_NE(Picture(), mine);
    EXPECT_EQ(other.grab().toImage(), plain);
    EXPECT_EQ(colours(), before);
    Edit.SetScheme(nullptr);
    EXPECT_EQ(Picture(), mine);

    Edit.GetTextMarks().Marks.Toggle(0, TZtLineMark::lmBreakpoint);
    EXPECT_NE(other.grab().toImage(), plain) << "marks are the text's";
    QPalette palette = Edit.palette();
    const QImage light = Picture();
    palette.setColor(QPalette::Base, QColor(20, 20, 60));
    palette.setColor(QPalette::Button, QColor(90, 20, 60));
    Edit.setPalette(palette);
    const int below = 5 * Edit.GetLineWidth();
    EXPECT_EQ(Picture().pixel(200, below), qRgb(20, 20, 60));
    EXPECT_EQ(Picture().pixel(2, below), qRgb(90, 20, 60));
    Edit.setPalette(QPalette());
    EXPECT_EQ(Picture(), light);
}

// --- without them --------------------------------------------------------------------------------

TEST_F(TExtras, NothingIsLeftOfThem)
{
    Edit.SetText(QStringLiteral("if (x) {\n  y\n").repeated(60));
    const QString events = Rig.Events;
    const QImage first = Picture();
    for (const TZtCorrections corrections : {TZtCorrections(), TZtCorrections(zcPicture)}) {
        Edit.SetExtras({});
        Edit.SetCorrections(corrections);
        const QImage before = Picture();
        EXPECT_TRUE(corrections || before == first);
        Edit.SetExtras(ZtAllExtras() | zeBlanks);
        EXPECT_NE(Picture(), before);
        Rig.Do("move@-2,1");
        if (!corrections) { // the extras stay, and are not shown
            Edit.SetCorrections({});
            EXPECT_EQ(Picture(), before);
            Rig.Do("click@0,0 press@-2,1 release@-2,1 ( Ctrl+Z");
            EXPECT_EQ(Edit.GetLines()->GetStrings(0), "if (x) {");
            EXPECT_EQ(Bookmarks(), "");
        }
        Edit.SetExtras({});
        Edit.SetCorrections(corrections);
        Rig.Do("Ctrl+Home Left");
        EXPECT_EQ(Picture(), before);
        EXPECT_EQ(Edit.cursor().shape(), Qt::IBeamCursor);
        EXPECT_FALSE(Edit.hasMouseTracking());
    }
    EXPECT_EQ(Edit.findChild<TZtOverviewRuler *>(), nullptr);
}

TEST_F(TExtras, DecorationsNeedThePictureAlone)
{
    Edit.SetCorrections(zcPicture);
    Edit.SetText("one two");
    const QImage before = Picture();
    TZtDecorationStyle style;
    style.Background = clRed;
    Edit.GetTextMarks().Decorations.Add(0, {{4, 0}, {7, 0}, style});
    EXPECT_NE(Picture(), before);
    // A handler of the paint takes them away, and adds others.
    Edit.SetOnParserLineChange([&](int, TColor &, TColor &) {
        std::vector<TZtDecoration> many(50, {{0, 0}, {3, 0}, style});
        Edit.GetTextMarks().Decorations.ReplaceOwner(0, many);
        Edit.GetTextMarks().Decorations.RemoveOwner(0);
        return false;
    });
    Picture();
    Edit.SetOnParserLineChange(nullptr);
    EXPECT_EQ(Picture(), before);
}

// --- lifetime ------------------------------------------------------------------------------------

TEST_F(TExtras, LivesThroughWhateverBecomesOfIt)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("x.js"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("if (a) {\n}\n") > 0);
    file.close();
    TZtCodeEdit other;
    const std::function<void()> steps[] = {
        [&] { Edit.SetParser(nullptr); },
        [&] { Edit.LoadFromFile(file.fileName()); },
        [&] { Edit.SetText({}); },
        [&] { Edit.GetLines()->SetText("(\nlast"), Edit.GetLines()->Delete(1); },
        [&] { Edit.SetOptions(Edit.GetOptions() | TZtCodeOption::coVirtualSpace); },
        [&] { Edit.SetText("a b"), Edit.SetCharPos(40); },
        [&] { Edit.SetCorrections({}); },
        [&] { Edit.SetExtras(ZtAllExtras()); },
        [&] { other.SetText("()"), Edit.ShareText(&other); },
        [&] { Edit.SetExtras(zeRuler | zeTypedPairs | zeBrackets); },
        [&] { Edit.SetParser(new TZtCodeJSParser(&Edit)); },
        [&] { Edit.SetExtras(ZtAllExtras()); },
    };
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetExtras(ZtAllExtras() | zeBlanks);
    Edit.GetTextMarks().Diagnostics.Set("", {{{0, 0}, {1, 0}}});
    for (const auto &step : steps) {
        step();
        Rig.Do("Ctrl+M F2 F8 ( Backspace Ctrl+Z click@-2,0 Ctrl+F2");
        Picture();
        QCoreApplication::processEvents();
        EXPECT_EQ(Rig.Errors.join(u' '), "") << &step - steps;
    }
    EXPECT_EQ(Edit.GetLines(), other.GetLines());
    EXPECT_EQ(&Edit.GetTextMarks(), &other.GetTextMarks());

    QPointer<TZtCodeEdit> gone = new TZtCodeEdit;
    gone->SetExtras(ZtAllExtras());
    gone->SetText("a\nb");
    gone->resize(300, 200);
    gone->show();
    gone->SetOnGuttorClick([&](int, int, TMouseButton) { delete gone.data(); });
    DoInEditor(gone, "click@-2,1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}
