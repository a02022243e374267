#include "shown.h"
#include "uZtCodePascalParser.h"
#include "uZtException.h"
#include "uZtStringList.h"
#include "uZtTextPrinter.h"

#include <QBuffer>
#include <QImage>
#include <QPageRanges>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What a program of poppler makes of a PDF file.
QByteArray Read(const QByteArray &APdf, const QString &AProgram, const QStringList &AOptions)
{
    QProcess process;
    process.start(AProgram, AOptions);
    process.write(APdf);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished()) << AProgram.toStdString();
    return process.readAllStandardOutput();
}

QString Numbered(int ALines)
{
    QString text;
    for (int i = 1; i <= ALines; ++i)
        text += u"  w%1 := %1;\n"_s.arg(i);
    return text;
}

struct TPrinting : testing::Test {
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
            GTEST_SKIP() << "There is no pdftotext";
        Options.Date = QDateTime({2026, 3, 4}, {5, 6});
        Options.Font = QFont(u"Liberation Mono"_s, 9);
        Options.Name = u"{page}.pas"_s; // not what it stands for
    }
    TZtTextPrinter Printer()
    {
        return {{&Lines, &Parser, nullptr, From, To}, {4, true, true}, Options};
    }
    bool Print(const QString &AText)
    {
        Lines.SetText(AText);
        QBuffer buffer(&Pdf);
        buffer.open(QIODevice::WriteOnly | QIODevice::Truncate);
        QPdfWriter writer(&buffer);
        writer.setResolution(Resolution);
        writer.setPageSize(QPageSize(Paper));
        writer.setPageRanges(Ranges);
        Count = Printer().PageCount(writer);
        return Printer().Print(writer);
    }
    // A list of rows for each page, blanks counting once.
    QList<QStringList> Pages(const QString &AText)
    {
        EXPECT_TRUE(Print(AText));
        QList<QStringList> pages;
        const QString all =
            QString::fromUtf8(Read(Pdf, u"pdftotext"_s, {u"-layout"_s, u"-"_s, u"-"_s}));
        for (const QString &page : all.split(u'\f', Qt::SkipEmptyParts)) {
            QStringList rows;
            for (const QString &row : page.split(u'\n', Qt::SkipEmptyParts))
                rows += row.simplified();
            pages += rows;
        }
        return pages;
    }
    // The rows of text of all pages.
    QStringList Rows(const QString &AText)
    {
        Options.Header = Options.Footer = {};
        QStringList rows;
        for (const QStringList &page : Pages(AText))
            rows += page;
        return rows;
    }
    QImage Picture(const QString &AText)
    {
        EXPECT_TRUE(Print(AText));
        return QImage::fromData(
            Read(Pdf, u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-png"_s, u"-singlefile"_s, u"-"_s}));
    }

    TStringList Lines;
    TZtCodePascalParser Parser{nullptr};
    TZtPrintOptions Options;
    QPoint From;
    std::optional<QPoint> To;
    QPageSize::PageSizeId Paper = QPageSize::A4;
    QPageRanges Ranges;
    int Resolution = 1200;
    QByteArray Pdf;
    int Count = 0;
};

} // namespace

TEST_F(TPrinting, EveryLineIsThereOnceInOrder)
{
    const QList<QStringList> pages = Pages(Numbered(300));
    EXPECT_EQ(pages.size(), Count);
    EXPECT_GT(Count, 3);
    int line = 0;
    for (int page = 0; page < pages.size(); ++page) {
        QStringList rows = pages[page];
        EXPECT_TRUE(rows.takeFirst().startsWith(u"{page}.pas "_s));
        EXPECT_EQ(rows.takeLast(), u"Page %1 of %2"_s.arg(page + 1).arg(Count));
        for (const QString &row : rows) {
            ++line;
            EXPECT_EQ(row, u"%1 w%1 := %1;"_s.arg(line));
        }
    }
    EXPECT_EQ(line, 300);
}

TEST_F(TPrinting, LongLinesGoOnUnderTheirBeginning)
{
    Paper = QPageSize::A6;
    const QString words = u"alpha beta gamma delta epsilon zeta eta theta iota kappa"_s;
    EXPECT_EQ(Rows(u"    "_s + words + u"\n\tx\n"_s),
              (QStringList{u"1 alpha beta gamma delta epsilon zeta eta"_s, u"theta iota kappa"_s,
                           u"2 x"_s}));
    Print(u"x"_s.repeated(20'000));
    const int pages = Count;
    EXPECT_GT(pages, 3);
    Print(u"\u4E2D"_s.repeated(10'000));
    EXPECT_NEAR(Count, pages, 1);
    Options.Wrap = false;
    EXPECT_EQ(Rows(words + u"\nx"_s).size(), 2);
    Options.LineNumbers = false;
    EXPECT_EQ(Rows(u"x\ny"_s), (QStringList{u"x"_s, u"y"_s}));
}

TEST_F(TPrinting, PartsPagesAndCopies)
{
    Options.LineNumbers = false;
    From = {4, 1};
    To = {4, 3};
    EXPECT_EQ(Rows(Numbered(9)), (QStringList{u":= 2;"_s, u"w3 := 3;"_s, u"w4"_s}));
    From = {};
    To = {};
    const auto lines = Rows(Numbered(200)).size(); // and with it the count of pages
    const int perPage = int(lines) / Count;
    const auto first = [&] {
        QStringList words;
        for (const QStringList &page : Pages(Numbered(400)))
            words += page.value(0).section(u' ', 0, 0);
        return words.join(u' ');
    };
    Ranges.addRange(2, 3);
    const QString all = first();
    const QString second = all.section(u' ', 0, 0);
    const QString third = all.section(u' ', 1, 1);
    EXPECT_GT(third.mid(1).toInt() - second.mid(1).toInt(), perPage / 2);
    Options.Copies = 2;
    EXPECT_EQ(first(), QStringList({second, third, second, third}).join(u' '));
    Options.Collated = false;
    Options.LastFirst = true;
    EXPECT_EQ(first(), QStringList({third, third, second, second}).join(u' '));
    Ranges = QPageRanges();
    Ranges.addPage(900);
    EXPECT_THROW(Print(Numbered(400)), EZtException);
}

TEST_F(TPrinting, PagesAreTheSameAtEveryResolution)
{
    Print(Numbered(1000));
    const int pages = Count;
    for (const int resolution : {72, 100, 600}) {
        Resolution = resolution;
        Print(Numbered(1000));
        EXPECT_EQ(Count, pages) << resolution;
    }
    Paper = QPageSize::A5;
    Print(Numbered(1000));
    EXPECT_GT(Count, pages * 4 / 3);
    Print(QString());
    EXPECT_EQ(Count, 1);
}

TEST_F(TPrinting, EndsWhereItIsToldTo)
{
    int told = 0;
    Options.OnProgress = [&](int done, int count) {
        EXPECT_EQ(done, told++);
        EXPECT_EQ(count, Count);
        return done < 2;
    };
    EXPECT_FALSE(Print(Numbered(400)));
    EXPECT_EQ(told, 3);
    Options.OnProgress = [&](int done, int) {
        if (done == 1)
            Lines.Delete(0);
        return true;
    };
    EXPECT_FALSE(Print(Numbered(400)));
}

TEST_F(TPrinting, ColoursAreThePapersAndTheLexerStaysAsItWas)
{
    const auto dark = TZtColorScheme::Find(u"Dark"_s);
    Parser.SetScheme(dark);
    const TZtLexerState state = Parser.GetState();
    bool isGrey = true;
    const auto look = [&](const QImage &picture) {
        bool grey = true;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                grey = grey && qAbs(colour.red() - colour.blue()) < 6;
            }
        isGrey = grey;
        return picture.pixelColor(picture.width() / 2, picture.height() / 2).lightness();
    };
    const QString text = u"begin // note\nx := 'string'"_s;
    EXPECT_GT(look(Picture(text)), 250);
    EXPECT_FALSE(isGrey);
    Options.Monochrome = true;
    EXPECT_GT(look(Picture(text)), 250);
    EXPECT_TRUE(isGrey);
    Options.Monochrome = false;
    Options.Scheme = dark;
    EXPECT_LT(look(Picture(text)), 60);
    EXPECT_EQ(Parser.GetScheme(), dark);
    EXPECT_EQ(Parser.GetState(), state);
    EXPECT_FALSE(Parser.OnGetNewBuffer);
}
