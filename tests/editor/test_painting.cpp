#include "uZtCodeEdit.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtFrame.h"
#include "uZtPlatform.h"
#include "uZtSystemColors.h"

#include <QCoreApplication>
#include <QScreen>

#include <gtest/gtest.h>

#include <random>

namespace {

constexpr TColor HostBack = 0x102030;
constexpr TColor HostFore = 0x00FFFF;

// Digits are red, "$" ends the text, and the state counts the lines that were read.
class TDigitLexer : public TZtLangParser {
public:
    bool GetNextToken(QString &AToken, TColor &ABack, TColor &AFore, TFontStyles &AStyle,
                      bool &ALineBreak) override
    {
        ++Calls;
        char16_t C = ReadChar();
        ALineBreak = C == u'\r';
        AToken = QChar(C);
        ABack = clWindow;
        AFore = QChar::isDigit(C) ? clRed : clWindowText;
        AStyle = Style;
        if (ALineBreak)
            ReadChar();
        if (ALineBreak)
            SetLineKind(GetLineKind() + 1);
        if (C < 32 || C == u'$')
            return C == u'\r' || C == u'\n';
        for (C = ReadChar(); C >= 32 && C != u'$' && QChar::isDigit(C) == (AFore == clRed);
             C = ReadChar())
            AToken += QChar(C);
        PushChar(C);
        return true;
    }
    int Calls = 0;
    TFontStyles Style;
};

struct Painting : testing::Test {
    Painting()
    {
        Editor.SetParser(&Lexer);
        Editor.resize(400, 200);
        Editor.show();
        QCoreApplication::processEvents();
    }
    void SetText(const char *S) { Editor.GetLines()->SetText(QString::fromLatin1(S)); }
    void Select(QPoint AStart, QPoint AEnd)
    {
        Editor.SetSelStart(AStart);
        Editor.SetSelEnd(AEnd);
    }
    QRgb Rgb(TColor C) const { return ZtToQColor(C, Editor.palette()).rgb(); }
    QImage Picture() { return Editor.grab().toImage(); }
    QRgb Pixel(int X, int Y) { return Picture().pixel(X, Y); }
    int Cell() { return Editor.GetCharWidth(); }
    int Right() const { return Editor.width() - Editor.GetVScrollBar()->width() - 2; }

    // The rows of a paint, "/" between them: {selected} <red> (host's colours) ?other?, and "!"
    // before a line that the host coloured.
    std::string Drawn()
    {
        Editor.Paint();
        QString text;
        for (const TZtPaintRow &row : Editor.PaintedRows()) {
            text += row.Coloured ? "!" : "";
            for (const TZtPaintPiece &piece : row.Pieces)
                text += Marks(piece).arg(row.TextOf(piece));
            text += u'/';
        }
        while (text.endsWith(u'/'))
            text.chop(1);
        return text.toStdString();
    }
    QString Marks(const TZtPaintPiece &APiece) const
    {
        const struct {
            TColor Fore, Back;
            const char *Marks;
        } rows[] = {{clHighlightText, clHighlight, "{%1}"},
                    {HostFore, HostBack, "(%1)"},
                    {clRed, clWindow, "<%1>"},
                    {clWindowText, clWindow, "%1"}};
        for (const auto &row : rows)
            if (APiece.Fore == Rgb(row.Fore) && APiece.Back == Rgb(row.Back))
                return row.Marks;
        return "?%1?";
    }

    TDigitLexer Lexer;
    TZtCodeEdit Editor;
};

} // namespace

TEST_F(Painting, SelectionSplitsTokens)
{
    const struct {
        QPoint Start, End;
        const char *Rows;
    } rows[] = {{{-1, -1}, {-1, -1}, "abc<123>def/xy<45>//z"},
                {{1, 0}, {2, 0}, "a{b}c<123>def/xy<45>//z"},
                {{2, 0}, {1, 0}, "a{b}c<123>def/xy<45>//z"},
                {{3, 0}, {6, 0}, "abc{123}def/xy<45>//z"},
                {{1, 0}, {8, 0}, "a{bc123de}f/xy<45>//z"},
                {{7, 0}, {1, 1}, "abc<123>d{ef}/{x}y<45>//z"},
                {{1, 3}, {3, 1}, "abc<123>def/xy<4>{5}//{z}"},
                {{4, 0}, {0, 3}, "abc<1>{23def}/{xy45}//z"},
                {{2, 1}, {ZtEndOfLine, 1}, "abc<123>def/xy{45}//z"},
                {{0, 0}, {ZtEndOfLine, 9}, "{abc123def}/{xy45}//{z}"},
                {{-1, 1}, {1, 1}, "abc<123>def/{x}y<45>//z"}};
    SetText("abc123def\nxy45\n\nz");
    for (const auto &row : rows) {
        Select(row.Start, row.End);
        EXPECT_EQ(Drawn(), row.Rows) << &row - rows;
    }
    const TZtPaintPiece piece = Editor.PaintedRows()[0].Pieces[1];
    EXPECT_EQ(QPoint(piece.Left, piece.Width), QPoint(22 + 3 * Cell(), 3 * Cell()));
}

TEST_F(Painting, TheHostColoursWholeLines)
{
    QString asked;
    Editor.SetOnParserLineChange([&](int line, TColor &back, TColor &fore) {
        asked += QString("%1:%2 ").arg(line).arg(QChar(fore == clRed ? u'r' : u'w'));
        EXPECT_EQ(back, clWindow);
        back = HostBack;
        fore = HostFore;
        return line == 2 || line == 4;
    });
    SetText("ab1\n2cd3\n\n\nz");
    Select({1, 0}, {2, 1});
    EXPECT_EQ(Drawn(), "a{b1}/!(2cd3)//!/z");
    EXPECT_EQ(asked, "1:w 2:r 3:w 4:w 5:w ");

    EXPECT_EQ(Pixel(Right(), Editor.GetLineWidth() + 2), Rgb(HostBack));
    // Below the top of the text the numbers go on counting from 1.
    asked.clear();
    Editor.GetVScrollBar()->SetPosition(3);
    Editor.Paint();
    EXPECT_EQ(asked, "4:w 5:w ");
}

TEST_F(Painting, ReadOnlyIsDarker)
{
    TColor dark = 0xC86432;
    Editor.DarkenColor(dark, true, 10);
    EXPECT_EQ(dark, 0xB45A2D);
    dark = clWindow;
    Editor.DarkenColor(dark, true, 10);
    SetText("ab");
    Select({1, 0}, {2, 0});
    Editor.SetReadOnly(true);
    EXPECT_EQ(Drawn(), "?a?{b}") << "the highlight stays as it is";
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Back, Rgb(dark));
    EXPECT_EQ(Pixel(Right(), 100), Rgb(dark));
}

TEST_F(Painting, AStyleIsTheFontsOrTheTokens)
{
    SetText("gp WM 12");
    QList<QImage> seen = {Picture()};
    for (const auto style : {TFontStyle::fsItalic, TFontStyle::fsUnderline, TFontStyle::fsStrikeOut,
                             TFontStyle::fsBold}) {
        Lexer.Style = style;
        Editor.update();
        const QImage image = Picture();
        EXPECT_FALSE(seen.contains(image)) << int(style);
        seen += image;
    }
    Lexer.Style = {};
    QFont bold = Editor.GetFont();
    bold.setBold(true);
    Editor.SetFont(bold);
    EXPECT_EQ(Picture(), seen.last());
}

TEST_F(Painting, TheRightMargin)
{
    Editor.SetRightMarginColor(clFuchsia);
    Editor.SetRightMargin(20);
    const struct {
        int Options, Scrolled, Column; // -1: it is not seen
    } rows[] = {{6, 0, 20}, {6, 20, 0}, {6, 21, -1}, {4, 5, 15}, {2, 0, -1}};
    for (const auto &row : rows) {
        Editor.SetOptions(TZtCodeOptions(row.Options));
        Editor.GetHScrollBar()->SetPosition(row.Scrolled);
        const QImage image = Picture();
        QList<int> found, expected;
        for (int x = 0; x < Right(); ++x)
            if (image.pixel(x, 100) == Rgb(clFuchsia))
                found += x;
        if (row.Column >= 0)
            expected += Editor.RealGuttorWidth() + row.Column * Cell() + 2;
        EXPECT_EQ(found, expected) << row.Options << ' ' << row.Scrolled;
    }
}

TEST_F(Painting, ScrolledText)
{
    SetText("abc1\nde\nfg");
    Editor.SetOptions({});
    EXPECT_EQ(Drawn(), "abc<1>/de/fg");
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Left, 2) << "without a gutter";
    Editor.SetShowGuttor(true);
    Editor.GetVScrollBar()->SetPosition(1);
    for (const auto &[column, rows] : {std::pair(3, ""), {1, "de/fg"}}) {
        Editor.GetHScrollBar()->SetPosition(column);
        EXPECT_EQ(Drawn(), rows) << "what is hidden under the gutter is left out";
    }
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Left, 22 - Cell());

    // Below the end nobody is asked.
    int asked = 0;
    Editor.SetOnParserLineChange([&](int, TColor &, TColor &) { return ++asked > 0; });
    Lexer.Calls = 0;
    Editor.GetVScrollBar()->SetPosition(50);
    EXPECT_EQ(Drawn(), "");
    EXPECT_EQ(Lexer.Calls + asked, 0);
    Editor.SetOnParserLineChange(nullptr);
    Editor.GetVScrollBar()->SetPosition(0);
    SetText("ab\n1$2\ncd");
    EXPECT_EQ(Drawn(), "ab/<1>") << "the lexer ended early";
}

TEST_F(Painting, LinesKeepTheLexersState)
{
    TStringList &lines = *Editor.GetLines();
    lines.SetText(QString("a\n").repeated(50));
    Editor.Paint();
    const int shown = (200 + Editor.GetLineWidth() - 1) / Editor.GetLineWidth();
    for (const int line : {0, 1, shown - 1, shown, 40})
        EXPECT_EQ(lines.GetObjects(line), line < shown ? line : 0);
    lines.SetObjects(30, 77);
    Editor.GetVScrollBar()->SetPosition(30);
    Editor.Paint();
    EXPECT_EQ(lines.GetObjects(30), 77);
    EXPECT_EQ(lines.GetObjects(32), 79);
}

TEST_F(Painting, AnExceptionEndsThePaintAlone)
{
    SetText("ab\ncd");
    QString reported;
    ZtPlatform().ShowException = [&](const QString &message) { reported += message; };
    Editor.SetOnParserLineChange([&](int line, TColor &, TColor &) {
        Editor.Paint(); // does nothing inside a paint
        return line == 2 ? throw EZtException("no colour") : false;
    });
    EXPECT_THROW(Editor.Paint(), EZtException) << "to the host that calls it";
    Editor.grab();
    Editor.grab();
    EXPECT_EQ(reported, "") << "not from inside a paint";
    QCoreApplication::processEvents();
    EXPECT_EQ(reported, "no colour") << "and once for all paints";
    ZtPlatform() = ZtDefaultPlatform();
}

TEST_F(Painting, GuttorCornerAndBorder)
{
    const std::pair<QPoint, TColor> places[] = {{{1, 50}, clBtnFace},
                                                {{18, 50}, clBtnHighlight},
                                                {{19, 50}, clBtnShadow},
                                                {{20, 50}, clWindow},
                                                {{398, 198}, clBtnFace}};
    for (const auto &[place, color] : places)
        EXPECT_EQ(Picture().pixel(place), Rgb(color)) << place.x();
    Editor.SetOptions({});
    EXPECT_EQ(Pixel(1, 50), Rgb(clWindow));
    for (const int style : {0, 1, 2}) {
        Editor.SetCtl3D(style == 2);
        Editor.SetBorderStyle(style == 0 ? TBorderStyle::bsNone : TBorderStyle::bsSingle);
        EXPECT_EQ(Pixel(0, 50) == Rgb(clBlack), style == 1) << style;
    }
}

// --- long texts ----------------------------------------------------------------------------------

// A comment that ends far below, or never: what is drawn is what a lexer that read all of it gives.
TEST(LongLines, AnOpenXmlCommentIsNotReadThrough)
{
    const QString opening = "<a>\n<!-- " + QString("x\n").repeated(40'000);
    for (const QString end : {"-->\n<after/>", "--\n-->\n<after/>", ""}) {
        const auto rows = [&](const QString &middle, int &handed) {
            TZtCodeEdit editor;
            editor.SetParser(new TZtCodeXMLParser(&editor));
            editor.resize(400, 200);
            editor.GetLines()->SetText(opening + middle + end);
            editor.GetLines()->OnChange = [&](QObject *) { ++handed; };
            editor.Paint();
            return editor.PaintedRows();
        };
        int few = 0, many = 0;
        EXPECT_EQ(rows(QString(), few), rows(QString("y - z\n").repeated(50'000), many));
        EXPECT_LT(many, 45'000) << end.toStdString();
    }
}

TEST(LongLines, AreHandedOverInPiecesAndMayBeCutMeanwhile)
{
    for (const int left : {40'000, 20'000, 1000}) {
        TZtCodePascalParser lexer;
        TZtCodeEdit editor;
        editor.GetLines()->SetText(QString(40'000, u'a') + "\nb");
        editor.SetParser(&lexer);
        QStringList pieces;
        for (QString piece; pieces.size() < 9 && editor.ParserGetNewBuffer(false, piece);) {
            pieces += piece;
            editor.GetLines()->SetStrings(0, QString(left, u'a'));
        }
        EXPECT_EQ(pieces.size(), left == 40'000 ? 4 : 3) << left;
        EXPECT_EQ(pieces.takeLast(), "b\r\n");
        EXPECT_EQ(pieces.join(QString()), QString(qMax(left, 16'384), u'a') + "\r\n");
    }
}

// --- what is drawn on top of the picture before gives the picture of a fresh editor --------------

namespace {

struct Redrawing : testing::Test {
    int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(Random); }
    void Change(TZtCodeEdit &AEditor)
    {
        static const QStringList texts = {"begin Write('quoted', $2A); end;",
                                          "// remark",
                                          "{ open",
                                          "closed } x := 1;",
                                          "",
                                          "procedure W\u65E5\u672C; // \u00FC",
                                          QString(65, u'W')};
        TStringList &lines = *AEditor.GetLines();
        const int line = Below(lines.GetCount());
        const QString text = texts[Below(7)];
        const std::function<void()> changes[] = {
            [&] { lines.SetStrings(line, text); },
            [&] { lines.Insert(line, text); },
            [&] { lines.Delete(lines.GetCount() > 20 ? line : lines.Add(text)); },
            [&] { AEditor.GetVScrollBar()->SetPosition(Below(25)); },
            [&] { AEditor.GetHScrollBar()->SetPosition(Below(3) ? 0 : Below(30)); },
            [&] { AEditor.SetSelStart(QPoint(Below(30), line)); },
            [&] { AEditor.SetSelEnd(QPoint(Below(4) ? Below(30) : -1, Below(30))); },
            [&] { AEditor.SetReadOnly(!AEditor.GetReadOnly()); },
            [&] { AEditor.SetRightMargin(Below(40)); },
            [&] { AEditor.SetRightMarginColor(Below(2) ? clRed : clBtnFace); },
            [&] { AEditor.SetOptions(TZtCodeOptions(Below(8))); },
            [&] { AEditor.SetBounds(0, 0, 250 + Below(200), 120 + Below(150)); },
            [&] { AEditor.SetBounds(0, 0, Below(60), Below(60)); },
            [&] {
                QFont font = AEditor.GetFont();
                font.setPointSize(8 + Below(4));
                AEditor.SetFont(font);
            },
        };
        changes[Below(int(std::size(changes)))]();
    }
    static void Prepare(TZtCodeEdit &AEditor, TZtLangParser *ALexer, QSize ASize)
    {
        AEditor.setFocusPolicy(Qt::NoFocus);
        AEditor.SetParser(ALexer);
        AEditor.SetOnParserLineChange([](int line, TColor &back, TColor &fore) {
            back = HostBack;
            fore = HostFore;
            return line % 9 == 0;
        });
        AEditor.resize(ASize);
        AEditor.show();
    }
    static QImage Copy(TZtCodeEdit &AEditor, TZtLangParser *ALexer)
    {
        TZtCodeEdit fresh;
        Prepare(fresh, ALexer, AEditor.size());
        fresh.GetLines()->Assign(AEditor.GetLines());
        for (const char *name : {"Font", "ReadOnly", "Options", "RightMargin", "RightMarginColor",
                                 "SelStart", "SelEnd"})
            fresh.setProperty(name, AEditor.property(name));
        fresh.GetHScrollBar()->SetPosition(AEditor.GetHScrollBar()->GetPosition());
        fresh.GetVScrollBar()->SetPosition(AEditor.GetVScrollBar()->GetPosition());
        return Shown(fresh);
    }
    // What asked for it is painted, and nothing else.
    static QImage Shown(TZtCodeEdit &AEditor)
    {
        QCoreApplication::processEvents();
        if (AEditor.devicePixelRatioF() != 1) // the screen rounds to other pixels
            return AEditor.grab().toImage();
        return AEditor.screen()->grabWindow(AEditor.winId()).toImage();
    }
    std::mt19937 Random{7};
};

} // namespace

TEST_F(Redrawing, EqualsADrawFromNothing)
{
    QCursor::setPos(700, 500); // a bar's button under it would be lit
    TztCodePasParser lexer, second;
    TZtCodeEdit editor;
    Prepare(editor, &lexer, QSize(400, 200));
    for (int i = 0; i < 25; ++i)
        editor.GetLines()->Add(QString("line %1; // x").arg(i));
    for (int i = 0; i < 150; ++i) {
        for (int changes = Below(3); changes >= 0; --changes)
            Change(editor);
        const QImage shown = Shown(editor);
        ASSERT_EQ(shown, editor.grab().toImage()) << "drawn again, step " << i;
        ASSERT_EQ(shown, Copy(editor, &second)) << "step " << i;
    }
}
