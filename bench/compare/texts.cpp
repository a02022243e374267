#include "texts.h"

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

namespace {

constexpr qsizetype Megabyte = 1'000'000;

// The lines' numbers take the place of "#": no two lines are alike, as in a text that someone
// wrote.
const QList<QByteArray> ScriptLines = {
    "function area#(width, height) {\n",
    "    var total = width * height + #;\n",
    "    if (total > #) { return \"large\"; }\n",
    "    // border # counts twice, see below\n",
    "    total = total + border[#] * 2;\n",
    "    for (i = #; i < n; i++) sum(i);\n",
    "    return total / 2.5 - offset(\"x\", #);\n",
    "} // end of function #, with a remark\n",
};
const QList<QByteArray> MarkupLines = {
    "  <plant id=\"#\" kind=\"bean\">climbs</plant>\n",
    "  <!-- bed # in the shade until the end of May -->\n",
    "  <bed width=\"#\" length='300'/> text &amp; more\n",
};
const QList<QByteArray> QueryLines = {
    "select name, price from stock where id = #;\n",
    "-- what was lent to # and has not come back yet\n",
    "update loan set due = @day where book in (1, #);\n",
};

void AppendLine(QByteArray &AText, const QList<QByteArray> &ALines, qsizetype ANumber)
{
    const QByteArray &line = ALines[ANumber % ALines.size()];
    const qsizetype number = line.indexOf('#');
    AText += line.first(number) + QByteArray::number(ANumber) + line.sliced(number + 1);
}

QByteArray Text(const QList<QByteArray> &ALines, qsizetype ASize, const QByteArray &ALast = {})
{
    QByteArray text;
    text.reserve(ASize + 100);
    for (qsizetype i = 0; text.size() < ASize; ++i)
        AppendLine(text, ALines, i);
    return text + ALast;
}

QByteArray MillionLines()
{
    QByteArray text;
    for (qsizetype i = 0; i < 1'000'000; ++i)
        AppendLine(text, ScriptLines, i);
    return text;
}

// Ten megabytes in which a word stands 100,000 times.
QByteArray ReplaceText()
{
    QByteArray text;
    for (int i = 0; i < 100'000; ++i) {
        text += "    var quiteUnusualName = other + 12 * price;\n";
        text += "    // nothing to be replaced here, as the remark says\n";
    }
    return text;
}

bool WriteFile(const QString &AName, const QByteArray &AText)
{
    QFile file(AName);
    return file.open(QIODevice::WriteOnly) && file.write(AText) == AText.size();
}

} // namespace

bool WriteTexts(const QString &AFolder)
{
    const QByteArray last = QByteArray("var ") + Needle + " = 1;\n";
    QByteArray line = Text(ScriptLines, 10 * Megabyte);
    line.replace('\n', ' ');
    line.replace("//", "  ");
    return WriteFile(AFolder + QStringLiteral("/1.js"), Text(ScriptLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/10.js"), Text(ScriptLines, 10 * Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/100.js"),
                     Text(ScriptLines, 100 * Megabyte, last)) &&
           WriteFile(AFolder + QStringLiteral("/1.xml"), Text(MarkupLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/1.sql"), Text(QueryLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/replace.js"), ReplaceText()) &&
           WriteFile(AFolder + QStringLiteral("/paste.js"), Text(ScriptLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/million.js"), MillionLines()) &&
           WriteFile(AFolder + QStringLiteral("/line.js"), line);
}
