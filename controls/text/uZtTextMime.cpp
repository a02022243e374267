#include "uZtTextMime.h"

namespace {

constexpr QLatin1StringView HtmlType("text/html");
constexpr QLatin1StringView LineBreak("\r\n");

} // namespace

TZtTextMime::TZtTextMime(const QString &AText, std::vector<TZtColourRuns> ARuns, int AFrom,
                         const TZtHtmlOptions &AOptions)
    : FText(AText), FRuns(std::move(ARuns)), FFrom(AFrom), FOptions(AOptions)
{
    setText(AText);
}

bool TZtTextMime::hasFormat(const QString &AType) const
{
    return AType == HtmlType || QMimeData::hasFormat(AType);
}

QStringList TZtTextMime::formats() const { return QStringList{HtmlType} + QMimeData::formats(); }

QVariant TZtTextMime::retrieveData(const QString &AType, QMetaType APreferred) const
{
    if (AType != HtmlType)
        return QMimeData::retrieveData(AType, APreferred);
    const QString html = Html();
    return APreferred.id() == QMetaType::QByteArray ? QVariant(html.toUtf8()) : QVariant(html);
}

QString TZtTextMime::Html() const
{
    static const TZtColourRuns none;
    const TZtHtmlMaker maker(FOptions);
    QString html = maker.Head();
    qsizetype start = 0;
    for (size_t i = 0; start <= FText.size(); ++i) {
        const qsizetype found = FText.indexOf(LineBreak, start);
        const qsizetype end = found < 0 ? FText.size() : found;
        if (i > 0)
            html += u'\n';
        maker.AppendLine(html, QStringView(FText).sliced(start, end - start),
                         i < FRuns.size() ? FRuns[i] : none, i == 0 ? FFrom : 0);
        start = end + LineBreak.size();
        if (found < 0)
            break;
    }
    return html + maker.Foot();
}
