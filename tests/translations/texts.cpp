#include "texts.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

void ReadTranslation(QXmlStreamReader &AXml, TTranslatedText &AText)
{
    AText.IsFinished = !AXml.attributes().hasAttribute(QStringLiteral("type"));
    if (!AText.IsPlural) {
        AText.Forms.append(AXml.readElementText());
        return;
    }
    while (AXml.readNextStartElement())
        AText.Forms.append(AXml.readElementText());
}

TTranslatedText ReadMessage(QXmlStreamReader &AXml, const QString &AContext)
{
    TTranslatedText text;
    text.Context = AContext;
    text.IsPlural = AXml.attributes().hasAttribute(QStringLiteral("numerus"));
    while (AXml.readNextStartElement()) {
        if (AXml.name() == u"source")
            text.Source = AXml.readElementText();
        else if (AXml.name() == u"translation")
            ReadTranslation(AXml, text);
        else
            AXml.skipCurrentElement();
    }
    return text;
}

} // namespace

QStringList FilesOfTexts(const QString &AFolder)
{
    return QDir(AFolder).entryList({QStringLiteral("*.ts")});
}

std::vector<TTranslatedText> ReadTexts(const QString &AFile)
{
    QFile file(AFile);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    std::vector<TTranslatedText> texts;
    QString context;
    xml.readNextStartElement();
    while (xml.readNextStartElement()) { // each context
        while (xml.readNextStartElement()) {
            if (xml.name() == u"name")
                context = xml.readElementText();
            else
                texts.push_back(ReadMessage(xml, context));
        }
    }
    EXPECT_FALSE(xml.hasError()) << AFile.toStdString();
    return texts;
}
