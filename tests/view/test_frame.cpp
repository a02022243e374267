#include "uZtCells.h"
#include "uZtFrame.h"

#include <QFontDatabase>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

constexpr QRgb White = 0xFFFFFFFF;
constexpr QRgb Black = 0xFF000000;
constexpr QSize Size(400, 40);
constexpr int Left = 20;

struct Frame : testing::Test {
    void Begin(bool AExact)
    {
        QFont font(QStringLiteral("Courier New"));
        font.setPixelSize(16);
        Picture.TextPainter().SetFont(font);
        Picture.Begin({Size, 1, font, 0, -1, White, Black, White, White, White, AExact});
    }
    QImage Finish()
    {
        Picture.Finish();
        QImage image(Size, QImage::Format_RGB32);
        image.fill(White);
        QPainter painter(&image);
        Picture.CopyTo(painter, QRect(QPoint(), Size));
        return image;
    }
    // A line as an editor puts it on the exact grid.
    void AddLine(QStringView S, TFontStyles AStyle = {})
    {
        TZtCellReader reader(S, {4, true, true});
        for (TZtCellSpan span; reader.Next(span);) {
            const int x = Left + span.Cell * Cell();
            const QStringView text = S.mid(span.Start, span.Length);
            if (!span.IsCluster)
                EXPECT_EQ(Picture.AddText(0, x, text, Black, White, AStyle), span.Width * Cell());
            else if (text != u"\t")
                Picture.AddCluster(0, x, span.Width * Cell(), text, Black, White, AStyle);
        }
    }
    QImage Drawn(QStringView S, TFontStyles AStyle = {})
    {
        Begin(true);
        AddLine(S, AStyle);
        return Finish();
    }
    int Cell() { return Picture.TextPainter().CharWidth(); }
    TZtFrame Picture;
};

// How many pixels of some columns are not white.
int Ink(const QImage &AImage, int AFrom, int ATo)
{
    int ink = 0;
    for (int y = 0; y < AImage.height(); ++y)
        for (int x = AFrom; x < ATo; ++x)
            ink += AImage.pixel(x, y) != White;
    return ink;
}

} // namespace

TEST_F(Frame, ACharacterOfTheExactGridIsSeenInItsCellsAlone)
{
    const QStringView rows[] = {
        u"e\u0301",      u"\u0416", u"\u65E5", u"\U0001F468\u200D\U0001F469",
        u"\u05E9\u05C1", u"\u0645", u"\u0301", u"\u0915\u094D\u0937",
        u"\U0001D400",   u"\u01C4", u"\x01",   {u"\0", 1},
        u"\x7F",         u"\u0085", u"\xD800"};
    for (const QStringView row : rows) {
        for (const TFontStyles style : {TFontStyles(), TFontStyles(TFontStyle::fsItalic)}) {
            SCOPED_TRACE(row.toString().toStdString());
            const QImage image = Drawn(row, style);
            const int end = Left + ZtCellOf(row, int(row.size()), {4, true, true}) * Cell();
            EXPECT_GT(Ink(image, Left, end), 0);
            // Single characters in the control's own font may lean, as they do everywhere.
            const int lean = Picture.Rows()[0].Pieces[0].IsCluster ? 0 : 2 * int(bool(style));
            EXPECT_EQ(Ink(image, 0, Left - lean), 0);
            EXPECT_EQ(Ink(image, end + lean, Size.width()), 0);
        }
    }
}

TEST_F(Frame, TheExactGridKeepsTheOrderOfTheText)
{
    const QImage line = Drawn(u"a\u05E9\u05DC b");
    const QRect first(Left + Cell(), 0, Cell(), Size.height());
    const QRect second = first.translated(Cell(), 0);
    EXPECT_EQ(line.copy(first), Drawn(u" \u05E9").copy(first));
    EXPECT_EQ(line.copy(second), Drawn(u"  \u05DC").copy(second));
    EXPECT_NE(line.copy(first), line.copy(second));
    // The mark of an accent is seen above its letter.
    EXPECT_GT(Ink(Drawn(u"e\u0301"), Left, Left + Cell()), Ink(Drawn(u"e"), Left, Left + Cell()));
    // Control characters differ from each other, and each from its letter.
    for (const QStringView other : {u"\x02", u"A", u"\x81"})
        EXPECT_NE(Drawn(u"\x01"), Drawn(other));
}

TEST_F(Frame, PlainTextLooksTheSameOnBothGrids)
{
    const auto drawn = [this](bool AExact, QStringView S, TFontStyles AStyle) {
        Begin(AExact);
        Picture.AddText(0, Left, S, Black, White, AStyle);
        return Finish();
    };
    const TFontStyles styles = TFontStyle::fsBold | TFontStyle::fsItalic | TFontStyle::fsUnderline;
    for (const TFontStyles style : {TFontStyles(), styles}) {
        const QImage exact = drawn(true, u"while (x) \t\u00E9\u0416;", style);
        EXPECT_EQ(exact, drawn(false, u"while (x) \t\u00E9\u0416;", style));
        EXPECT_GT(Ink(exact, 0, Size.width()), 0);
    }
    // On the other one controls are not seen, and a wide character moves what follows.
    EXPECT_EQ(Ink(drawn(false, u"\x01\u0085", {}), 0, Size.width()), 0);
}
