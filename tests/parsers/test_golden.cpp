#include "golden.h"

#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"

#include <QBuffer>
#include <QMetaEnum>
#include <QSet>

#include <gtest/gtest.h>

namespace {

// The 1-based lines that differences.txt has a reason for in one source.
QSet<int> IntendedDifferences(const QString &AName)
{
    QSet<int> lines;
    for (const QString &row : ZtTokenLines(ReadTextFile(GoldenFolder() + "/differences.txt"))) {
        if (row.section(u' ', 0, 0) != AName)
            continue;
        EXPECT_FALSE(row.section(u' ', 2).isEmpty()) << row.toStdString();
        for (const QString &range : row.section(u' ', 1, 1).split(u','))
            for (int i = range.section(u'-', 0, 0).toInt(); i <= range.section(u'-', -1).toInt();
                 ++i)
                lines.insert(i);
    }
    return lines;
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
    const QSet<int> intended = IntendedDifferences(GetParam().Name);
    for (int i = 0; i < Lines.size(); ++i) {
        const QString place = QStringLiteral("%1 %2").arg(GetParam().Name).arg(i + 1);
        QList<int> kinds = LineKinds;
        const auto reader = Language.CreateReader();
        const auto records = ZtReadTokens(*reader, Lines, kinds, i, 2);
        const bool same = AsText(records, i + 1) == AsText(Records, i + 1);
        if (intended.contains(i + 1)) {
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

// A kind that no source has is one that its lexer never gives.
TEST(GoldenKinds, AllThatALexerGivesOccur)
{
    const struct {
        QString Language;
        QMetaEnum Kinds;
        QStringList Never;
    } rows[] = {
        {"pascal",
         QMetaEnum::fromType<TPascalToken>(),
         {"ptInvalid", "ptRepeat", "ptKeyword", "ptHexNumber", "ptSoapComment"}},
        {"vb",
         QMetaEnum::fromType<TVBToken>(),
         {"vtInvalid", "vtUnitil", "vtRem", "vtHexNumber", "vtColon"}},
        {"js",
         QMetaEnum::fromType<TJSToken>(),
         {"vtInvalid", "vtUnitil", "vtExit", "vtThen", "vtRem", "vtUntil", "vtHexNumber",
          "vtColon"}},
        {"xml", QMetaEnum::fromType<TZtXmlToken>(), {"vtUnknown", "vtInvalid", "vtProlog"}},
        {"sql", QMetaEnum::fromType<TZtSqlToken>(), {"vtInvalid", "vtFieldName"}},
    };
    ASSERT_EQ(std::size(rows), ZtTokenLanguages().size());
    for (const auto &row : rows) {
        QSet<QString> seen;
        for (const TGoldenCase &golden : GoldenCases())
            if (golden.Language->Name == row.Language)
                for (const QString &record : ZtTokenLines(ReadTextFile(golden.TokenFile)))
                    seen.insert(record.section(u' ', 1, 1));
        QStringList never;
        for (int i = 0; i < row.Kinds.keyCount(); ++i)
            if (!seen.contains(QString::fromLatin1(row.Kinds.key(i))))
                never += QString::fromLatin1(row.Kinds.key(i));
        EXPECT_EQ(never.join(u' ').toStdString(), row.Never.join(u' ').toStdString())
            << row.Language.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Sources, Golden, testing::ValuesIn(GoldenCases()), [](const auto &golden) {
    QString name = golden.param.Name;
    for (QChar &c : name)
        c = c.isLetterOrNumber() ? c : QChar(u'_');
    return name.toStdString();
});

} // namespace
