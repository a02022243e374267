// What leaves the editor with its colours: the clipboard, and the text as HTML and on pages.

#include "marked_text.h"

#include "uZtCodeJSParser.h"
#include "uZtHighlighter.h"
#include "uZtTextPrinter.h"

#include <QBuffer>
#include <QMimeData>
#include <QPdfWriter>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using enum TZtExtra;
using enum TZtCorrection;

namespace {

class TRichCopy : public testing::Test {
protected:
    TRichCopy()
    {
        Edit.SetParser(&Lexer);
        ZtPlatform().SetClipboardData = [this](std::unique_ptr<QMimeData> mime) {
            Data = std::move(mime);
        };
    }
    ~TRichCopy() override { Edit.SetParser(nullptr); }
    // What is on the clipboard: the plain text alone, or that and the text of the HTML.
    QString Copied()
    {
        if (!Data)
            return Rig.Clipboard;
        QTextDocument document;
        document.setHtml(Data->html());
        return Data->text() + u'=' + document.toPlainText();
    }

    TZtCodeJSParser Lexer;
    TMarkedEditor Rig;
    TZtCodeEdit &Edit = Rig.Edit;
    std::unique_ptr<QMimeData> Data;
};

} // namespace

TEST_F(TRichCopy, ColoursComeWithTheExtraAlone)
{
    const struct {
        TZtExtras Extras;
        TZtCorrections Corrections;
        const char16_t *Text;
        const char *Keys;
        const char16_t *Copied;
        const char16_t *After;
    } rows[] = {
        {{}, {}, u"a [var x\n/]* b", "Ctrl+C", u"var x\r\n/", u"a [var x\n/]* b"},
        {ZtAllExtras() & ~TZtExtras(zeRichCopy), ZtAllCorrections(), u"a [var] b", "Ctrl+X", u"var",
         u"a | b"},
        {zeRichCopy, {}, u"a [var x\n/]* b", "Ctrl+C", u"var x\r\n/=var x\n/", u"a [var x\n/]* b"},
        {zeRichCopy, ZtAllCorrections(), u"a ]var x\n\n/[* b", "Ctrl+C",
         u"var x\r\n\r\n/=var x\n\n/", u"a ]var x\n\n/[* b"},
        {zeRichCopy, ZtAllCorrections(), u"a [var\tx]", "Ctrl+X", u"var\tx=var\tx", u"a |"},
        {zeRichCopy, ZtAllCorrections(), u"a| var", "Ctrl+C", u"", u"a| var"},
    };
    for (const auto &row : rows) {
        Edit.SetExtras({});
        Edit.SetCorrections(row.Corrections);
        Edit.SetExtras(row.Extras);
        Data.reset();
        Rig.Clipboard.clear();
        Rig.SetMarked(QString::fromUtf16(row.Text));
        Rig.Do(QString::fromLatin1(row.Keys));
        EXPECT_EQ(Copied(), QString::fromUtf16(row.Copied));
        EXPECT_EQ(Rig.Marked(), QString::fromUtf16(row.After));
    }
}

TEST_F(TRichCopy, WhatWasCopiedStays)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetExtras(zeRichCopy);
    Edit.SetScheme(TZtColorScheme::Find(u"Light"_s));
    Rig.SetMarked(u"/*\n[x */ var y]"_s);
    Rig.Do(u"Ctrl+C Delete t"_s);
    Edit.SetScheme(TZtColorScheme::Find(u"Dark"_s));
    const QString html = Data->html();
    EXPECT_TRUE(html.contains(u">x */</span>"_s)) << html.toStdString();
    EXPECT_TRUE(html.contains(u"<span style=\"font-weight:bold;color:#0b4fc4;\">var</span>"_s));
    // A text of more than a megabyte is copied plain.
    Edit.SetText(u"var x;\n"_s.repeated(200'000));
    Rig.Do(u"Ctrl+A Ctrl+C"_s);
    EXPECT_FALSE(Data->hasHtml());
    EXPECT_EQ(Data->text().size(), 8 * 200'000 - 2); // up to the last break
}

TEST_F(TRichCopy, NothingOnTheScreenChangesByPrinting)
{
    Edit.SetCorrections(ZtAllCorrections());
    Edit.SetExtras(ZtAllExtras() & ~ZtDrawnExtras());
    Edit.SetScheme(TZtColorScheme::Find(u"Dark"_s));
    Rig.SetMarked(u"var x\n[/* y\nz */ var] \"a\""_s);
    const QImage before = Edit.grab().toImage();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    int painted = 0;
    TZtPrintOptions options;
    options.OnProgress = [&](int, int) {
        Edit.SetScheme(Edit.GetScheme()); // draws anew
        painted += int(Edit.grab().toImage() == before);
        return true;
    };
    EXPECT_TRUE(Edit.Print(writer, options));
    EXPECT_EQ(painted, 1);
    EXPECT_GT(buffer.size(), 1000);
    EXPECT_EQ(Edit.PageCount(writer, options), 1);
    EXPECT_EQ(Edit.grab().toImage(), before);
    EXPECT_EQ(Rig.Marked(), u"var x\n[/* y\nz */ var] \"a\""_s);
    EXPECT_EQ(Lexer.GetScheme(), Edit.GetScheme());

    QBuffer html;
    html.open(QIODevice::WriteOnly);
    EXPECT_TRUE(Edit.WriteHtml(html, true));
    QTextDocument document;
    document.setHtml(QString::fromUtf8(html.data()));
    EXPECT_EQ(document.toPlainText(), u"/* y\nz */ var"_s);
}
