#include "golden.h"

#include <QBuffer>
#include <QHash>

#include <gtest/gtest.h>

namespace {

// The rows of differences.txt: the reason for each "language/file line".
QHash<QString, QString> IntendedDifferences()
{
    QHash<QString, QString> rows;
    for (const QString &row : ZtTokenLines(ReadTextFile(GoldenFolder() + "/differences.txt")))
        if (!row.startsWith(u'#'))
            rows.insert(row.section(u' ', 0, 1), row.section(u' ', 2));
    return rows;
}

QString AsText(const QList<TZtTokenRecord> &ARecords, int ALine)
{
    QString text;
    for (const TZtTokenRecord &record : ARecords)
        if (record.Line == ALine)
            text += record.ToString() + u'\n';
    return text;
}

class Golden : public testing::TestWithParam<TGoldenCase> {
protected:
    const TZtTokenLanguage &Language = *GetParam().Language;
    const QStringList Lines = ZtTokenLines(ReadTextFile(GetParam().SourceFile));
    const std::unique_ptr<TZtTokenReader> Reader = Language.CreateReader();
    QList<int> LineKinds;
    const QList<TZtTokenRecord> Records = ZtReadTokens(*Reader, Lines, LineKinds);
};

TEST_P(Golden, LineByLineGivesTheTokenFile)
{
    ASSERT_FALSE(Lines.isEmpty());
    const QStringList expected = ZtTokenLines(ReadTextFile(GetParam().TokenFile));
    const QStringList actual = ZtTokenLines(TokenText(GetParam()));
    ASSERT_EQ(actual.size(), expected.size()) << "see the target update-golden";
    for (qsizetype i = 0; i < expected.size(); ++i)
        ASSERT_EQ(actual.at(i).toStdString(), expected.at(i).toStdString()) << "row " << i + 1;
}

TEST_P(Golden, TheWholeTextFromAStreamGivesTheSameTokens)
{
    const QString text = Lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n");
    QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    QBuffer stream(&bytes);
    ASSERT_TRUE(stream.open(QIODevice::ReadOnly));
    const auto reader = Language.CreateReader();
    reader->Parser().SetEndLines(true);
    reader->Parser().SetInputStream(&stream, false);
    const auto records = ZtDrainTokens(*reader, Lines);
    ASSERT_EQ(records.size(), Records.size());
    for (qsizetype i = 0; i < records.size(); ++i)
        ASSERT_EQ(records.at(i).ToString().toStdString(), Records.at(i).ToString().toStdString());
}

TEST_P(Golden, ARestartAtALineFromItsKeptStateGivesTheSameTokens)
{
    const QHash<QString, QString> intended = IntendedDifferences();
    for (int i = 0; i < Lines.size(); ++i) {
        const QString place = QStringLiteral("%1 %2").arg(GetParam().Name).arg(i + 1);
        QList<int> kinds = LineKinds;
        const auto reader = Language.CreateReader();
        const auto records = ZtReadTokens(*reader, Lines, kinds, i, 2);
        const bool same = AsText(records, i + 1) == AsText(Records, i + 1);
        if (intended.contains(place)) {
            EXPECT_FALSE(same) << place.toStdString() << " no longer differs";
            continue;
        }
        EXPECT_EQ(AsText(records, i + 1).toStdString(), AsText(Records, i + 1).toStdString())
            << place.toStdString();
        if (i + 1 < Lines.size()) {
            EXPECT_EQ(kinds.at(i + 1), LineKinds.at(i + 1)) << place.toStdString();
        }
    }
}

TEST_P(Golden, GetNextTokenGivesTheSameTextAndTheAttributesOfTheRow)
{
    const auto parser = Language.CreateParser();
    int line = 0;
    parser->OnGetNewBuffer = [&](bool AReset, QString &S) {
        if (AReset || line >= Lines.size())
            return false;
        S = Lines.at(line++) + QLatin1String("\r\n");
        return true;
    };
    parser->SetEndLines(true);
    QString token;
    for (const TZtTokenRecord &record : Records) {
        SCOPED_TRACE(record.ToString().toStdString());
        TColor background = 1, color = 1, rowBackground = 0, rowColor = 0;
        TFontStyles style = TFontStyle::fsStrikeOut, rowStyle;
        bool lineBreak = false;
        const bool more = parser->GetNextToken(token, background, color, style, lineBreak);
        Reader->RowAttributes(record.Row, rowBackground, rowColor, rowStyle);
        EXPECT_EQ(more, &record != &Records.last());
        EXPECT_EQ(lineBreak, QByteArray(record.Kind).endsWith("LineBreak"));
        EXPECT_EQ(token, record.Text);
        EXPECT_EQ(background, rowBackground);
        EXPECT_EQ(color, rowColor);
        EXPECT_EQ(style, rowStyle);
    }
}

INSTANTIATE_TEST_SUITE_P(Sources, Golden, testing::ValuesIn(GoldenCases()), [](const auto &golden) {
    QString name = golden.param.Name;
    for (QChar &c : name)
        c = c.isLetterOrNumber() ? c : QChar(u'_');
    return name.toStdString();
});

} // namespace
