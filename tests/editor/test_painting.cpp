#include "uZtCodeEdit.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtPaintHelpers.h"
#include "uZtPlatform.h"
#include "uZtSystemColors.h"
#include "uZtTokenDump.h"

#include <QCoreApplication>
#include <QPainter>

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
        ABack = clWindow;
        AFore = clWindowText;
        AStyle = {};
        char16_t C = ReadChar();
        ALineBreak = C == u'\r';
        AToken = QChar(C);
        if (ALineBreak && !LineFeeds)
            ReadChar();
        if (ALineBreak)
            SetLineKind(GetLineKind() + 1);
        if (C < 32 || C == u'$')
            return C == u'\r' || C == u'\n';
        const bool digits = QChar::isDigit(C);
        for (C = ReadChar(); C >= 32 && C != u'$' && QChar::isDigit(C) == digits; C = ReadChar())
            AToken += QChar(C);
        PushChar(C);
        if (digits)
            AFore = clRed;
        return true;
    }
    int Calls = 0;
    bool LineFeeds = false; // hand them over as tokens of their own
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
    QRgb Rgb(TColor C) const { return ZtToQColor(C, Editor.palette()).rgb(); }
    QRgb Pixel(int X, int Y) { return Editor.grab().toImage().pixel(X, Y); }
    int Cell() { return Editor.GetCharWidth(); }
    int Right() const { return Editor.width() - Editor.GetVScrollBar()->width() - 2; }

    // The rows of a paint, "/" between them: {selected} <red> (host's colours) ?other?, and "!"
    // before a line that the host coloured.
    std::string Drawn()
    {
        Editor.Paint();
        QString text;
        for (const TZtPaintRow &row : Editor.PaintedRows()) {
            text += row.Coloured ? QStringLiteral("!") : QString();
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
        const QPair<QRgb, QRgb> colours(APiece.Fore, APiece.Back);
        if (colours == qMakePair(Rgb(clHighlightText), Rgb(clHighlight)))
            return QStringLiteral("{%1}");
        if (colours == qMakePair(Rgb(HostFore), Rgb(HostBack)))
            return QStringLiteral("(%1)");
        if (colours == qMakePair(Rgb(clRed), Rgb(clWindow)))
            return QStringLiteral("<%1>");
        return colours == qMakePair(Rgb(clWindowText), Rgb(clWindow)) ? QStringLiteral("%1")
                                                                      : QStringLiteral("?%1?");
    }

    TDigitLexer Lexer;
    TZtCodeEdit Editor;
};

} // namespace

TEST_F(Painting, SelectionSplitsTokens)
{
    const int toEnd = ZtEndOfLine;
    const struct {
        QPoint Start, End;
        const char *Rows;
    } rows[] = {{{-1, -1}, {-1, -1}, "abc<123>def/xy<45>//z"},
                {{1, 0}, {2, 0}, "a{b}c<123>def/xy<45>//z"},
                {{2, 0}, {1, 0}, "a{b}c<123>def/xy<45>//z"},
                {{1, 0}, {1, 0}, "abc<123>def/xy<45>//z"},
                {{0, 0}, {3, 0}, "{abc}<123>def/xy<45>//z"},
                {{3, 0}, {6, 0}, "abc{123}def/xy<45>//z"},
                {{2, 0}, {4, 0}, "ab{c1}<23>def/xy<45>//z"},
                {{1, 0}, {8, 0}, "a{bc123de}f/xy<45>//z"},
                {{7, 0}, {1, 1}, "abc<123>d{ef}/{x}y<45>//z"},
                {{1, 3}, {3, 1}, "abc<123>def/xy<4>{5}//{z}"},
                {{4, 0}, {0, 3}, "abc<1>{23def}/{xy45}//z"},
                {{2, 1}, {toEnd, 1}, "abc<123>def/xy{45}//z"},
                {{0, 0}, {toEnd, 9}, "{abc123def}/{xy45}//{z}"},
                {{9, 0}, {20, 0}, "abc<123>def/xy<45>//z"},
                {{-1, 1}, {1, 1}, "abc<123>def/{x}y<45>//z"}};
    SetText("abc123def\nxy45\n\nz");
    for (const auto &row : rows) {
        for (const bool lineFeeds : {false, true}) {
            Lexer.LineFeeds = lineFeeds;
            Editor.SetSelStart(row.Start);
            Editor.SetSelEnd(row.End);
            EXPECT_EQ(Drawn(), row.Rows) << row.Start.x() << ',' << row.Start.y() << " to "
                                         << row.End.x() << ',' << row.End.y() << lineFeeds;
        }
    }
    const auto pieces = Editor.PaintedRows()[0].Pieces;
    EXPECT_EQ(pieces[0].Left, 22);
    EXPECT_EQ(pieces[1].Left, 22 + 3 * Cell());
    EXPECT_EQ(pieces[1].Width, 3 * Cell());
}

TEST_F(Painting, TheHostColoursWholeLines)
{
    QString asked;
    Editor.SetOnParserLineChange([&](int line, TColor &back, TColor &fore) {
        asked += QStringLiteral("%1:%2 ").arg(line).arg(QChar(fore == clRed ? u'r' : u'w'));
        EXPECT_EQ(back, clWindow);
        back = HostBack;
        fore = HostFore;
        return line == 2 || line == 4;
    });
    SetText("ab1\n2cd3\n\n\nz");
    Editor.SetSelStart({1, 0});
    Editor.SetSelEnd({2, 1});
    EXPECT_EQ(Drawn(), "a{b1}/!(2cd3)//!/z");
    EXPECT_EQ(asked, QStringLiteral("1:w 2:r 3:w 4:w 5:w "));
    EXPECT_EQ(Editor.PaintedRows()[1].ColouredLeft, 22);

    // From the current x to the right edge, and under the margin; a narrow strip left of it stays.
    Editor.SetReadOnly(true);
    const int middle = Editor.GetLineWidth() + 2;
    for (const int columns : {0, 30}) {
        Editor.GetHScrollBar()->SetPosition(columns);
        EXPECT_EQ(Pixel(Right(), middle), Rgb(HostBack)) << columns;
        EXPECT_EQ(Pixel(20, middle), columns ? Rgb(HostBack) : Pixel(20, 190 - middle)) << columns;
    }
    // Below the top of the text the numbers go on counting from 1.
    asked.clear();
    Editor.GetVScrollBar()->SetPosition(3);
    Editor.Paint();
    EXPECT_EQ(asked, QStringLiteral("4:w 5:w "));
}

TEST_F(Painting, ReadOnlyIsDarker)
{
    const QPalette palette = Editor.palette();
    const struct {
        TColor Color;
        int Percent;
        TColor Expected;
    } rows[] = {
        {0xFFFFFF, 10, 0xE5E5E5},     {0x000000, 10, 0x000000}, {0x010A0B, 10, 0x000909},
        {0xC86432, 10, 0xB45A2D},     {0x123456, 0, 0x123456},  {0x123456, 100, 0},
        {0x7F0000AA, 10, 0x72000099},
    };
    for (const auto &row : rows) {
        TColor C = row.Color;
        Editor.DarkenColor(C, false, row.Percent);
        EXPECT_EQ(C, row.Color);
        Editor.DarkenColor(C, true, row.Percent);
        EXPECT_EQ(C, row.Expected);
    }
    TColor window = clWindow;
    TColor plain = ZtColorToRGB(clWindow, palette);
    Editor.DarkenColor(plain, true, 10);
    Editor.DarkenColor(window, false, 10);
    EXPECT_EQ(window, clWindow);
    Editor.DarkenColor(window, true, 10);
    EXPECT_EQ(window, plain);

    SetText("ab");
    Editor.SetSelStart({1, 0});
    Editor.SetSelEnd({2, 0});
    Editor.SetReadOnly(true);
    EXPECT_EQ(Drawn(), "?a?{b}") << "the highlight stays as it is";
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Back, Rgb(plain));
    EXPECT_EQ(Pixel(Right(), 100), Rgb(plain));
}

TEST_F(Painting, TheRightMargin)
{
    Editor.SetRightMarginColor(clFuchsia);
    SetText("a");
    const int widest = (400 - 20 - 3) / Cell(); // the last column inside the text area
    const struct {
        int Column, Scrolled;
        bool Guttor, Drawn;
    } rows[] = {
        {20, 0, true, true},   {20, 5, true, true},  {20, 20, true, true},
        {20, 21, true, false}, {20, 0, false, true}, {widest + 1, 0, true, false},
        {0, 0, true, true},
    };
    for (const auto &row : rows) {
        Editor.SetOptions(TZtCodeOptions(TZtCodeOption::coShowRightMargin)
                              .setFlag(TZtCodeOption::coShowGuttor, row.Guttor));
        Editor.SetRightMargin(row.Column);
        Editor.GetHScrollBar()->SetPosition(row.Scrolled);
        const int x = (row.Guttor ? 20 : 0) + (row.Column - row.Scrolled) * Cell() + 2;
        const QImage image = Editor.grab().toImage();
        int found = -1;
        for (int i = 0; i < 400; ++i)
            if (image.pixel(i, 100) == Rgb(clFuchsia))
                found = found < 0 ? i : 400;
        EXPECT_EQ(found, row.Drawn ? x : -1) << row.Column << ' ' << row.Scrolled;
    }
    Editor.SetOptions({});
    EXPECT_NE(Pixel(2, 100), Rgb(clFuchsia));
}

TEST_F(Painting, ScrolledText)
{
    SetText("abc1\nde\nfg");
    Editor.SetOptions({});
    EXPECT_EQ(Drawn(), "abc<1>/de/fg");
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Left, 2) << "without a gutter";
    Editor.SetShowGuttor(true);
    Editor.GetHScrollBar()->SetPosition(3);
    Editor.GetVScrollBar()->SetPosition(1);
    Editor.Paint();
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces.size(), 0u) << "hidden under the gutter";
    Editor.GetHScrollBar()->SetPosition(1);
    EXPECT_EQ(Drawn(), "de/fg");
    EXPECT_EQ(Editor.PaintedRows()[0].Pieces[0].Left, 22 - Cell());

    // At or past the end nobody is asked.
    int asked = 0;
    Editor.SetOnParserLineChange([&](int, TColor &, TColor &) { return ++asked > 0; });
    for (const int position : {3, 50, 0}) {
        if (position == 0)
            Editor.GetLines()->Clear();
        Editor.GetVScrollBar()->SetPosition(position);
        Lexer.Calls = 0;
        EXPECT_EQ(Drawn(), "");
        EXPECT_EQ(Lexer.Calls + asked, 0);
    }
}

TEST_F(Painting, LinesKeepTheLexersState)
{
    QString many;
    for (int i = 0; i < 50; ++i)
        many += QStringLiteral("a\n");
    Editor.GetLines()->SetText(many);
    Editor.Paint();
    const int shown = (200 + Editor.GetLineWidth() - 1) / Editor.GetLineWidth();
    for (const int line : {0, 1, shown - 1})
        EXPECT_EQ(Editor.GetLines()->GetObjects(line), line);
    for (const int line : {shown, 40})
        EXPECT_EQ(Editor.GetLines()->GetObjects(line), 0) << "never painted";

    Editor.GetLines()->SetObjects(30, 77);
    Editor.GetVScrollBar()->SetPosition(30);
    Lexer.SetRemarkEnd(QStringLiteral("x"));
    Editor.Paint();
    EXPECT_EQ(Editor.GetLines()->GetObjects(30), 77);
    EXPECT_EQ(Editor.GetLines()->GetObjects(32), 79);
    EXPECT_EQ(Lexer.GetRemarkEnd(), QString());
    EXPECT_TRUE(Lexer.GetEndLines());

    QString S = QStringLiteral("left alone");
    Lexer.SetLineKind(5);
    EXPECT_TRUE(Editor.ParserGetNewBuffer(true, S));
    EXPECT_EQ(S, QStringLiteral("left alone"));
    EXPECT_EQ(Editor.GetParserLineNr(), 0);
    EXPECT_TRUE(Editor.ParserGetNewBuffer(false, S));
    EXPECT_EQ(S, QStringLiteral("a\r\n"));
    EXPECT_EQ(Editor.GetParserLineNr(), 1);
    EXPECT_EQ(Editor.GetLines()->GetObjects(0), 5);
    Editor.SetParserLineNr(50);
    EXPECT_FALSE(Editor.ParserGetNewBuffer(false, S));
    EXPECT_EQ(Editor.GetParserLineNr(), 50);
}

// A number for each token of what a source hands over, made of all that a lexer says about it.
static std::vector<size_t> Tokens(TZtLangParser &AParser, const TZtOnGetNewBuffer &ASource)
{
    std::vector<size_t> result;
    QString token;
    TColor back = 0, fore = 0;
    TFontStyles style;
    bool lineBreak = false;
    AParser.OnGetNewBuffer = ASource;
    AParser.ResetBuffer();
    AParser.SetEndLines(true);
    while (result.size() < 100'000 && AParser.GetNextToken(token, back, fore, style, lineBreak))
        result.push_back(
            qHashMulti(0, token, back, fore, style.toInt(), lineBreak, AParser.GetLineKind()));
    return result;
}

TEST(LongLines, GiveTheSameTokensInPieces)
{
    constexpr int piece = 16'384;
    const QString sample = QString::fromUtf16(u" 12.5..7 <= <> := :=\"a\"\"b\" 'it''s' ... (* c *) "
                                              u"{ d } /* e */ <!-- g --> <p q='r'>&lt; "
                                              u"@v #13#10 $FF <![CDATA[h]]> end -- /* open");
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        for (int k = 0; k <= sample.size(); ++k) {
            TZtCodeEdit editor;
            TStringList &lines = *editor.GetLines();
            lines.Add(QString(piece - k, u'a') + sample);
            lines.Add(QString(piece, u'a') + sample.left(k));
            lines.Add(QStringLiteral("still a remark?"));
            const std::unique_ptr<TZtLangParser> parser = language.CreateParser();
            editor.SetParser(parser.get());
            int next = 0;
            const std::vector<size_t> whole =
                Tokens(*language.CreateParser(), [&](bool reset, QString &S) {
                    if (reset || next >= lines.GetCount())
                        return false;
                    S = lines.GetStrings(next++) + QStringLiteral("\r\n");
                    return true;
                });
            ASSERT_EQ(
                Tokens(*parser,
                       [&](bool reset, QString &S) { return editor.ParserGetNewBuffer(reset, S); }),
                whole)
                << language.Name << k;
            ASSERT_LT(whole.size(), 100'000u) << "no end";
        }
    }
}

// A comment that ends far below, or never: what is drawn is what a lexer that read all of it gives.
TEST(LongLines, AnOpenXmlCommentIsNotReadThrough)
{
    for (const char *end : {"-->\n<after/>", "--\n-->\n<after/>", ""}) {
        const QString opening =
            QStringLiteral("<a>\n<!-- ") + QStringLiteral("x\n").repeated(40'000);
        const auto rows = [&](const QString &middle, int &handed) {
            TZtCodeEdit editor;
            editor.SetParser(new TZtCodeXMLParser(&editor));
            editor.resize(400, 200);
            editor.GetLines()->SetText(opening + middle + QString::fromLatin1(end));
            editor.GetLines()->OnChange = [&](QObject *) { ++handed; };
            editor.Paint();
            return editor.PaintedRows();
        };
        int few = 0;
        int many = 0;
        EXPECT_EQ(rows(QString(), few), rows(QStringLiteral("y - z\n").repeated(50'000), many));
        EXPECT_GT(few, 20'000);
        EXPECT_LT(many, 45'000) << end;
    }
}

TEST(LongLines, MayBeCutWhileTheyAreDrawn)
{
    for (const int left : {20'000, 1000, -1}) {
        TZtCodeEdit editor;
        TStringList &lines = *editor.GetLines();
        lines.Add(QString(40'000, u'a'));
        lines.Add(QStringLiteral("b"));
        int calls = 0;
        TZtCodePascalParser lexer;
        editor.SetParser(&lexer);
        QString piece;
        while (editor.ParserGetNewBuffer(false, piece) && ++calls < 9) {
            if (calls > 1)
                continue;
            if (left < 0)
                lines.Delete(0);
            else
                lines.SetStrings(0, QString(left, u'a'));
        }
        EXPECT_EQ(piece, left < 0 ? QStringLiteral("\r\n") : QStringLiteral("b\r\n")) << left;
        EXPECT_EQ(calls, left == 20'000 || left == 1000 ? 3 : 2) << left;
    }
}

TEST_F(Painting, AnEarlyEndLeavesTheRestEmpty)
{
    SetText("ab\n1$2\ncd");
    EXPECT_EQ(Drawn(), "ab/<1>");
    EXPECT_EQ(Pixel(Right(), 2 * Editor.GetLineWidth() + 3), Rgb(clWindow));
}

TEST_F(Painting, AnExceptionEndsThePaintAlone)
{
    SetText("ab\ncd");
    QString reported;
    ZtPlatform().ShowException = [&](const QString &message) { reported += message; };
    int calls = 0;
    Editor.SetOnParserLineChange([&](int line, TColor &, TColor &) {
        Editor.Paint(); // does nothing inside a paint
        if (++calls > 1 && line == 2)
            throw EZtException(QStringLiteral("no colour"));
        return false;
    });
    EXPECT_THROW(Editor.Paint(), EZtException) << "to the host that calls it";
    Editor.grab();
    Editor.grab();
    EXPECT_EQ(reported, QString()) << "not from inside a paint";
    QCoreApplication::processEvents();
    EXPECT_EQ(reported, QStringLiteral("no colour")) << "and once for all paints";
    EXPECT_GE(calls, 6);
    Editor.SetOnParserLineChange(nullptr);
    EXPECT_EQ(Drawn(), "ab/cd");
    Editor.SetModified(false);
    Editor.GetLines()->Add(QString());
    EXPECT_TRUE(Editor.GetModified()) << "the paint is over";
    ZtPlatform() = ZtDefaultPlatform();
}

TEST_F(Painting, GuttorCornersAndBorder)
{
    QPalette palette = Editor.palette();
    palette.setColor(QPalette::Button, QColor(1, 200, 3));
    palette.setColor(QPalette::Light, QColor(250, 251, 252));
    palette.setColor(QPalette::Dark, QColor(80, 81, 82));
    Editor.setPalette(palette);
    Editor.GetHScrollBar()->hide();
    Editor.GetVScrollBar()->hide();
    const int h = Editor.GetHScrollBar()->height();
    for (const bool guttor : {true, false}) {
        Editor.SetOptions(guttor ? TZtCodeOption::coShowGuttor : TZtCodeOption());
        const QImage image = Editor.grab().toImage();
        EXPECT_EQ(image.pixel(0, 50), guttor ? Rgb(clBtnFace) : Rgb(clWindow));
        EXPECT_EQ(image.pixel(18, 50), guttor ? Rgb(clBtnHighlight) : Rgb(clWindow));
        EXPECT_EQ(image.pixel(19, 50), guttor ? Rgb(clBtnShadow) : Rgb(clWindow));
        EXPECT_EQ(image.pixel(20, 50), Rgb(clWindow));
        for (const QPoint box : {QPoint(0, 199), QPoint(19, 200 - h - 1), QPoint(400 - h, 199)})
            EXPECT_EQ(image.pixel(box), Rgb(clBtnFace));
        EXPECT_EQ(image.pixel(399, 199), Rgb(clBtnFace));
        EXPECT_EQ(image.pixel(400 - h - 2, 50), Rgb(clWindow));
    }
    const auto black = [this](QPoint P) { return Pixel(P.x(), P.y()) == Rgb(clBlack); };
    const struct {
        bool Bars;
        QPoint Corner; // the frame's last pixel
    } rows[] = {{false, {399, 199}}, {true, {399 - h, 199 - h}}};
    for (const auto &row : rows) {
        Editor.GetHScrollBar()->setVisible(row.Bars);
        Editor.GetVScrollBar()->setVisible(row.Bars);
        const QPoint places[] = {
            {0, 0}, {5, 0}, {0, 50}, {row.Corner.x(), 50}, {50, row.Corner.y()}, row.Corner};
        for (const int style : {0, 1, 2}) {
            Editor.SetCtl3D(style == 2);
            Editor.SetBorderStyle(style == 0 ? TBorderStyle::bsNone : TBorderStyle::bsSingle);
            for (const QPoint &place : places)
                EXPECT_EQ(black(place), style == 1) << place.x() << ' ' << place.y() << style;
        }
        EXPECT_FALSE(black({1, 1}));
    }
}

TEST(PaintHelpers, TheTreeButtonIsABox)
{
    const auto draw = [](const QRect &rect, bool expanded) {
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        ZtPaintTreeButton(painter, rect, expanded);
        return image;
    };
    for (const QRect &rect : {QRect(4, 3, 16, 15), QRect(10, 10, 14, 14), QRect(20, 22, 5, 4)}) {
        const QImage image = draw(rect, true);
        EXPECT_EQ(image, draw(rect, false));
        QImage expected(40, 40, QImage::Format_RGB32);
        expected.fill(Qt::red);
        QPainter painter(&expected);
        const QRect box(rect.x() + rect.width() / 2 - 7, rect.y() + rect.height() / 2 - 7, 14, 14);
        painter.fillRect(box, Qt::black);
        painter.fillRect(box.adjusted(1, 1, -1, -1), Qt::white);
        EXPECT_EQ(image, expected);
    }
}

// What is drawn on top of the picture before must give the picture of a fresh editor.
struct Redrawing : testing::Test {
    int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(Random); }
    void Change(TZtCodeEdit &AEditor)
    {
        TStringList &lines = *AEditor.GetLines();
        const int line = Below(lines.GetCount());
        static constexpr const char *texts[] = {
            "begin Write('quoted', $2A); end;",
            "// remark",
            "{ open",
            "closed } x := 1;",
            "",
            "procedure W日本; // ü",
            "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"};
        const QString text = QString::fromUtf8(texts[Below(7)]);
        const std::function<void()> changes[] = {
            [&] { lines.SetStrings(line, text); },
            [&] { lines.Insert(line, text); },
            [&] { lines.Delete(lines.GetCount() > 20 ? line : lines.Add(text)); },
            [&] { AEditor.GetVScrollBar()->SetPosition(Below(25)); },
            [&] { AEditor.GetHScrollBar()->SetPosition(Below(3) ? 0 : Below(30)); },
            [&] {
                AEditor.SetSelStart({Below(30), line});
            },
            [&] {
                AEditor.SetSelEnd({Below(4) ? Below(30) : -1, Below(30)});
            },
            [&] { AEditor.SetReadOnly(!AEditor.GetReadOnly()); },
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
    static QImage Copy(TZtCodeEdit &AEditor, TZtLangParser *ALexer)
    {
        TZtCodeEdit fresh;
        fresh.SetParser(ALexer);
        fresh.SetOnParserLineChange(AEditor.GetOnParserLineChange());
        fresh.resize(AEditor.size());
        fresh.SetFont(AEditor.GetFont());
        fresh.show();
        fresh.GetLines()->Assign(AEditor.GetLines());
        fresh.SetReadOnly(AEditor.GetReadOnly());
        fresh.SetOptions(AEditor.GetOptions());
        fresh.GetHScrollBar()->SetPosition(AEditor.GetHScrollBar()->GetPosition());
        fresh.GetVScrollBar()->SetPosition(AEditor.GetVScrollBar()->GetPosition());
        fresh.SetSelStart(AEditor.GetSelStart());
        fresh.SetSelEnd(AEditor.GetSelEnd());
        fresh.setFocusPolicy(Qt::NoFocus);
        return fresh.grab().toImage();
    }
    std::mt19937 Random{7};
};

TEST_F(Redrawing, EqualsADrawFromNothing)
{
    TztCodePasParser lexer;
    TztCodePasParser second;
    TZtCodeEdit editor;
    editor.setFocusPolicy(Qt::NoFocus);
    editor.SetParser(&lexer);
    editor.SetOnParserLineChange([](int line, TColor &back, TColor &fore) {
        back = HostBack;
        fore = HostFore;
        return line % 9 == 0;
    });
    editor.resize(400, 200);
    editor.show();
    for (int i = 0; i < 25; ++i)
        editor.GetLines()->Add(QStringLiteral("line %1; // x").arg(i));
    for (int i = 0; i < 150; ++i) {
        for (int changes = Below(3); changes >= 0; --changes)
            Change(editor);
        const QImage shown = editor.grab().toImage();
        ASSERT_EQ(shown, editor.grab().toImage()) << "drawn twice, step " << i;
        ASSERT_EQ(shown, Copy(editor, &second)) << "step " << i;
    }
}
