#include "uZtHtmlExport.h"

#include "uZtException.h"
#include "uZtStringList.h"

#include <QBuffer>
#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr qsizetype Slice = 1 << 16; // units that are gathered before they are written

QString ColourName(quint32 AColour)
{
    return QLatin1Char('#') + QString::number(AColour, 16).rightJustified(6, u'0');
}

// Whether the unit at a place is one of a pair of surrogates.
bool IsPaired(QStringView S, qsizetype i)
{
    if (S[i].isHighSurrogate())
        return i + 1 < S.size() && S[i + 1].isLowSurrogate();
    return i > 0 && S[i - 1].isHighSurrogate();
}

bool IsNonCharacter(QStringView S, qsizetype i)
{
    const char16_t C = S[i].unicode();
    const char32_t whole = S[i].isLowSurrogate() ? QChar::surrogateToUcs4(S[i - 1], S[i]) : C;
    return QChar::isNonCharacter(whole);
}

// A unit that is not itself in the document: by what it is replaced there. Both halves of a
// noncharacter are replaced.
QString Replacement(QStringView S, qsizetype i)
{
    const char16_t C = S[i].unicode();
    if (C == u'&')
        return QStringLiteral("&amp;");
    if (C == u'<')
        return QStringLiteral("&lt;");
    if (C == u'>')
        return QStringLiteral("&gt;");
    if (C == u'"')
        return QStringLiteral("&quot;");
    if (C < 32 && C != u'\t')
        return QChar(char16_t(0x2400 + C));
    if (C == 127)
        return QChar(char16_t(0x2421));
    return {};
}

bool IsUnwritable(QStringView S, qsizetype i)
{
    const char16_t C = S[i].unicode();
    if (C >= 128 && C < 160)
        return true;
    if (C < 0xD800)
        return false;
    if (S[i].isSurrogate() && !IsPaired(S, i))
        return true;
    const qsizetype low = S[i].isHighSurrogate() ? i + 1 : i;
    return IsNonCharacter(S, low);
}

void AppendEscaped(QString &AHtml, QStringView S)
{
    qsizetype plain = 0; // from where on nothing was replaced
    for (qsizetype i = 0; i < S.size(); ++i) {
        const char16_t C = S[i].unicode();
        if (C >= 63 && C < 127)
            continue;
        const QString text =
            IsUnwritable(S, i) ? QString(QChar::ReplacementCharacter) : Replacement(S, i);
        if (text.isEmpty())
            continue;
        AHtml.append(S.sliced(plain, i - plain)).append(text);
        plain = i + 1;
    }
    AHtml.append(S.sliced(plain));
}

struct TStyleName {
    TFontStyle Style;
    const char *Css;
};
constexpr TStyleName StyleNames[] = {
    {TFontStyle::fsBold, "font-weight:bold;"},
    {TFontStyle::fsItalic, "font-style:italic;"},
};

QString CssOf(TFontStyles AStyle)
{
    QString css;
    for (const TStyleName &row : StyleNames)
        if (AStyle.testFlag(row.Style))
            css += QLatin1StringView(row.Css);
    QStringList lines;
    if (AStyle.testFlag(TFontStyle::fsUnderline))
        lines += QStringLiteral("underline");
    if (AStyle.testFlag(TFontStyle::fsStrikeOut))
        lines += QStringLiteral("line-through");
    if (!lines.isEmpty())
        css += QStringLiteral("text-decoration:%1;").arg(lines.join(u' '));
    return css;
}

void WriteOut(QIODevice &ATo, QString &AHtml)
{
    const QByteArray bytes = AHtml.toUtf8();
    if (ATo.write(bytes) != bytes.size())
        throw EStreamError(
            QCoreApplication::translate("ZtHtmlExport", "The text cannot be written: %1.")
                .arg(ATo.errorString()));
    AHtml.resize(0);
}

} // namespace

TZtHtmlMaker::TZtHtmlMaker(const TZtHtmlOptions &AOptions) : FOptions(AOptions) {}

// The line feed behind <pre> is none of the text's.
QString TZtHtmlMaker::Head() const
{
    QString html = QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\"/>\n"
                                  "<title>");
    AppendEscaped(html, FOptions.Title);
    html += QStringLiteral("</title>\n</head>\n<body style=\"background-color:%1;\">\n"
                           "<pre style=\"color:%2;background-color:%1;"
                           "-moz-tab-size:%3;tab-size:%3;font-family:")
                .arg(ColourName(FOptions.Background), ColourName(FOptions.Text))
                .arg(FOptions.TabWidth);
    QString family = FOptions.FontFamily;
    family.remove(u'\\').remove(u'\'');
    if (family == QLatin1StringView("monospace") || family.isEmpty())
        return html + QStringLiteral("monospace;\">\n");
    AppendEscaped(html, QLatin1Char('\'') + family + QLatin1Char('\''));
    return html + QStringLiteral(",monospace;\">\n");
}

// A line feed here would be a blank behind the text, for some programs.
QString TZtHtmlMaker::Foot() const { return QStringLiteral("</pre></body></html>"); }

void TZtHtmlMaker::AppendLine(QString &AHtml, QStringView ALine, const TZtColourRuns &ARuns,
                              int AFrom) const
{
    qsizetype done = 0;
    for (const TZtColourRun &run : ARuns) {
        qsizetype end = std::min<qsizetype>(run.Start + run.Length - AFrom, ALine.size());
        if (end <= done)
            continue;
        if (end < ALine.size() && ALine[end].isLowSurrogate() && ALine[end - 1].isHighSurrogate())
            ++end; // a lexer that cuts a pair
        AppendRun(AHtml, ALine.sliced(done, end - done), run);
        done = end;
    }
    AppendEscaped(AHtml, ALine.sliced(done));
}

// Blanks need no colour of their own.
void TZtHtmlMaker::AppendRun(QString &AHtml, QStringView S, const TZtColourRun &ARun) const
{
    QString css = CssOf(ARun.Style);
    const quint32 back = ZtPaperColour(ARun.Back);
    const quint32 fore = ZtPaperColour(ARun.Fore);
    const bool isSeen = !S.trimmed().isEmpty();
    if (fore != FOptions.Text && isSeen)
        css += QStringLiteral("color:%1;").arg(ColourName(fore));
    if (back != FOptions.Background)
        css += QStringLiteral("background-color:%1;").arg(ColourName(back));
    if (css.isEmpty() || (!isSeen && back == FOptions.Background && !css.contains(u"decoration")))
        return AppendEscaped(AHtml, S);
    AHtml += QStringLiteral("<span style=\"%1\">").arg(css);
    AppendEscaped(AHtml, S);
    AHtml += QStringLiteral("</span>");
}

bool ZtWriteHtml(QIODevice &ATo, const TZtColouredText &AText, const TZtHtmlOptions &AOptions)
{
    const TZtHtmlMaker maker(AOptions);
    TZtTextColours colours(AText);
    QString html = maker.Head();
    QString line;
    for (int i = AText.From.y(); i <= AText.GetLastLine(); ++i) {
        const TZtColourRuns &runs = colours.GetRuns(i);
        if (!colours.IsIntact())
            return false;
        const int start = AText.GetStart(i);
        line.resize(0);
        AText.Lines->AppendTo(i, start, AText.GetEnd(i) - start, line);
        if (i > AText.From.y())
            html += u'\n';
        maker.AppendLine(html, line, runs, start);
        if (html.size() < Slice)
            continue;
        WriteOut(ATo, html);
        if (AOptions.OnProgress && !AOptions.OnProgress(i + 1 - AText.From.y()))
            return false;
        if (!colours.IsIntact())
            return false;
    }
    html += maker.Foot();
    WriteOut(ATo, html);
    return true;
}

QString ZtHtmlOf(const TZtColouredText &AText, const TZtHtmlOptions &AOptions)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ZtWriteHtml(buffer, AText, AOptions);
    return QString::fromUtf8(buffer.data());
}
