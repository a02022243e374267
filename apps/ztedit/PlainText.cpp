#include "PlainText.h"

#include <QLabel>

QString ZtWithoutMnemonics(QString AText)
{
    return AText.replace(QLatin1Char('&'), QLatin1StringView("&&"));
}

QString ZtPlainToolTip(const QString &AText)
{
    return Qt::mightBeRichText(AText)
               ? QStringLiteral("<p style='white-space:pre'>%1</p>").arg(AText.toHtmlEscaped())
               : AText;
}

QString ZtPlainTitle(QString AText)
{
    return AText.replace(QLatin1StringView("[*]"), QLatin1StringView("[*][*]"));
}

QLabel *ZtPlainLabel(const QString &AText, QWidget *AControl)
{
    auto *label = new QLabel(AControl->parentWidget());
    label->setTextFormat(Qt::PlainText);
    label->setText(ZtWithoutMnemonics(AText));
    label->setBuddy(AControl);
    return label;
}
