#include "shown.h"
#include "uZtCodePascalParser.h"
#include "uZtHtmlExport.h"
#include "uZtLineWrap.h"
#include "uZtStringList.h"
#include "uZtTextMime.h"

#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextDocument>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// The rows of a line, between bars.
QString Rows(const QString &ALine, int AWidth, const TZtCellRules &ARules)
{
    QStringList rows;
    for (int from = 0; from < ALine.size() && rows.size() < 100;) {
        const int end = ZtRowEnd(ALine, from, int(ALine.size()), AWidth, ARules);
        rows += ALine.mid(from, end - from);
        from = end;
    }
    return rows.join(u'|');
}

// What a document is to hold of a text: controls as pictures, and nothing that is no character.
QString Writable(const QString &S)
{
    QString text;
    for (qsizetype i = 0; i < S.size(); ++i) {
        const char16_t C = S[i].unicode();
        if ((C < 32 && C != u'\t' && C != u'\n') || C == 127)
            text += QChar(char16_t(C == 127 ? 0x2421 : 0x2400 + C));
        else if ((C >= 128 && C < 160) || C == 0xFFFE)
            text += QChar::ReplacementCharacter;
        else if (S[i].isHighSurrogate() && i + 1 < S.size() && S[i + 1].isLowSurrogate())
            text += S.mid(i++, 2);
        else
            text += S[i].isSurrogate() ? QChar(QChar::ReplacementCharacter) : S[i];
    }
    return text;
}

QString TextOfHtml(const QString &AHtml)
{
    QTextDocument document;
    document.setHtml(AHtml);
    return document.toPlainText();
}

// Empty where a text is well-formed.
QString XmlFault(const QString &AXml)
{
    QXmlStreamReader reader(AXml);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

struct THtml : testing::Test {
    QString Of(const QString &AText)
    {
        Lines.SetText(AText);
        return ZtHtmlOf({&Lines, &Parser, TZtColorScheme::Find(u"Light"_s), From, To}, Options);
    }
    TStringList Lines;
    TZtCodePascalParser Parser{nullptr};
    TZtHtmlOptions Options;
    QPoint From;
    std::optional<QPoint> To;
};

} // namespace

TEST(LineWrap, RowsEndBehindBlanksAndBetweenClusters)
{
    const TZtCellRules cells{4, true, true};
    struct {
        QString Line;
        int Width;
        const char16_t *Rows;
    } const rows[] = {
        {u"short"_s, 5, u"short"},
        {u"abcdefg"_s, 3, u"abc|def|g"},
        {u"one two three"_s, 9, u"one two |three"},
        {u"one two three"_s, 8, u"one two |three"},
        {u"one two three"_s, 7, u"one two |three"}, // the blank hangs over the edge
        {u"a bcdefghij"_s, 8, u"a bcdefg|hij"},     // too near the start
        {u"a\tbc\td"_s, 6, u"a\tbc|\td"},
        {u"\t\t\t"_s, 2, u"\t|\t|\t"}, // a row takes a character at least
        {u"\u4E2D\u6587\u5B57"_s, 5, u"\u4E2D\u6587|\u5B57"},
        {u"ab\u4E2D"_s, 3, u"ab|\u4E2D"},
        {u"aae\u0301e"_s, 3, u"aae\u0301|e"},
        {u"abcd \u0301e"_s, 4, u"abcd| \u0301e"},
        {u"\U0001F468\u200D\U0001F469x"_s, 2, u"\U0001F468\u200D\U0001F469|x"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(Rows(row.Line, row.Width, cells), QStringView(row.Rows)) << row.Width;
    // Without tabs and wide characters each unit, or pair, takes a cell.
    EXPECT_EQ(Rows(u"\t\t\u4E2D\u6587"_s, 3, {}), u"\t\t|\u4E2D\u6587"_s);
}

TEST_F(THtml, LinesHaveTheirLooksInPlace)
{
    const auto body = [](const QString &html) {
        const qsizetype start = html.indexOf(u'\n', html.indexOf("<pre"_L1)) + 1;
        return html.mid(start, html.indexOf("</pre>"_L1) - start);
    };
    Options.Text = 0x1F2328;
    Options.Title = u"a<b&\"c\""_s;
    Options.FontFamily = u"It's \"Mono\""_s;
    Options.TabWidth = 3;
    const QString html = Of(u"\tbegin x // <&>\n\nend"_s);
    EXPECT_EQ(body(html),
              u"\t<span style=\"font-weight:bold;color:#0b4fc4;\">begin</span> x "
              "<span style=\"font-style:italic;color:#4b6b4b;\">// &lt;&amp;&gt;</span>\n\n"
              "<span style=\"font-weight:bold;color:#0b4fc4;\">end</span>"_s);
    EXPECT_TRUE(html.contains("<title>a&lt;b&amp;&quot;c&quot;</title>"_L1));
    EXPECT_TRUE(html.contains("tab-size:3;font-family:'Its &quot;Mono&quot;',monospace;"_L1));
    EXPECT_EQ(XmlFault(html), QString());
    // A part, whose last line is none where only its start belongs to it.
    From = {1, 0};
    To = {3, 0};
    EXPECT_EQ(TextOfHtml(Of(u"ab<d\nx"_s)), u"b<"_s);
    To = {0, 1};
    EXPECT_EQ(TextOfHtml(Of(u"ab<d\nx"_s)), u"b<d"_s);
    From = {};
    To = {};
    EXPECT_EQ(TextOfHtml(Of(QString())), QString());
}

TEST_F(THtml, WhatIsReadIsWhatWasWritten)
{
    static const QString pieces[] = {u"a"_s,
                                     u"end"_s,
                                     u" "_s,
                                     u"  "_s,
                                     u"\t"_s,
                                     u"<b>"_s,
                                     u"&amp;"_s,
                                     u"\""_s,
                                     u"'"_s,
                                     u"{"_s,
                                     u"}"_s,
                                     u"\n"_s,
                                     u"\n"_s,
                                     u"\u4E2D"_s,
                                     u"e\u0301"_s,
                                     u"\x01"_s,
                                     u"\x1B"_s,
                                     u"\x7F"_s,
                                     u"\u0085"_s,
                                     u"\u009F"_s,
                                     u"]]>"_s,
                                     u"<!--"_s,
                                     QString(QChar(0xD800)),
                                     QString(QChar(0xDC00)),
                                     QString(QChar(0xFFFE)),
                                     u"\U0001F600"_s};
    const int rounds = qMax(qEnvironmentVariableIntValue("ZT_RANDOM_TEXTS"), 150);
    QRandomGenerator random(20);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        QString text;
        for (int i = random.bounded(60); i > 0; --i)
            text += pieces[random.bounded(int(std::size(pieces)))];
        while (text.endsWith(u'\n'))
            text.chop(1); // the break of the last line, which is no line of its own
        const QString html = Of(text);
        EXPECT_EQ(TextOfHtml(html), Writable(text)) << html.toStdString();
        EXPECT_EQ(XmlFault(html), QString()) << html.toStdString();
        // From the clipboard the same.
        const TZtTextMime mime(QString(text).replace(u"\n"_s, u"\r\n"_s), {}, 0, Options);
        EXPECT_EQ(TextOfHtml(mime.html()), Writable(text));
        EXPECT_EQ(mime.data(u"text/html"_s), mime.html().toUtf8());
    }
}
