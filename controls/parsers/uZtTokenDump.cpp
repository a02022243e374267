#include "uZtTokenDump.h"

#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtLanguages.h"

#include <algorithm>

namespace {

/// Counts the characters that go through a lexer.
template <typename TParser> class TCounting : public TParser {
public:
    char16_t InternalReadChar() override
    {
        ++Consumed;
        return TParser::InternalReadChar();
    }
    void InternalPushChar(char16_t C) override
    {
        --Consumed;
        TParser::InternalPushChar(C);
    }
    qsizetype Consumed = 0;
};

template <typename TParser, auto EndOfFile> class TReader final : public TZtTokenReader {
public:
    TZtLangParser &Parser() override { return FParser; }
    qsizetype Consumed() const override { return FParser.Consumed; }
    void RowAttributes(int ARow, TColor &ABackGround, TColor &ATextColor,
                       TFontStyles &AFontStyle) const override
    {
        const auto &row = TParser::DrawInfo[ARow];
        ABackGround = row.BckColor;
        ATextColor = row.TextColor;
        AFontStyle = row.Style;
    }
    QMetaEnum Kinds() const override { return QMetaEnum::fromType<decltype(EndOfFile)>(); }
    bool Next(TZtTokenRecord &ARecord) override
    {
        const auto kind = FParser.InternalGetNextToken(ARecord.Text);
        ARecord.Kind = Kinds().valueToKey(int(kind));
        ARecord.Row = int(&ZtDrawInfoRow(TParser::DrawInfo, kind) - TParser::DrawInfo);
        return kind != EndOfFile;
    }

private:
    TCounting<TParser> FParser;
};

template <typename TParser, auto EndOfFile>
constexpr TZtTokenLanguage Language(const char *AName, const char *ALanguage)
{
    return {AName, ALanguage,
            []() -> std::unique_ptr<TZtLangParser> { return std::make_unique<TParser>(); },
            []() -> std::unique_ptr<TZtTokenReader> {
                return std::make_unique<TReader<TParser, EndOfFile>>();
            }};
}

constexpr TZtTokenLanguage Languages[] = {
    Language<TZtCodePascalParser, TPascalToken::ptEndOfFile>("pascal", "Pascal"),
    Language<TZtCodeVBParser, TVBToken::vtEndOfFile>("vb", "Visual Basic"),
    Language<TZtCodeJSParser, TJSToken::vtEndOfFile>("js", "JavaScript"),
    Language<TZtCodeXMLParser, TZtXmlToken::vtEndOfFile>("xml", "XML"),
    Language<TZtCodeSqlParser, TZtSqlToken::vtEndOfFile>("sql", "Sql"),
};

bool NeedsEscape(QChar C)
{
    return C < u' ' || C == u'\\' || C == u'\x7F' || C.isSurrogate() ||
           C.category() == QChar::Other_Control || C.category() == QChar::Separator_Line ||
           C.category() == QChar::Separator_Paragraph;
}

QString Escaped(QChar C)
{
    switch (C.unicode()) {
    case u'\r':
        return QStringLiteral("\\r");
    case u'\n':
        return QStringLiteral("\\n");
    case u'\t':
        return QStringLiteral("\\t");
    case u'\\':
        return QStringLiteral("\\\\");
    default:
        return QStringLiteral("\\u%1").arg(int(C.unicode()), 4, 16, QLatin1Char('0'));
    }
}

/// Turns a count of consumed characters into a line and a column.
class TPlaces {
public:
    TPlaces(const QStringList &ALines, int AFirst) : FLines(ALines), FLine(AFirst) {}

    /// The place of the character at `AOffset` from the start; offsets must not decrease.
    void Find(qsizetype AOffset, TZtTokenRecord &ARecord)
    {
        while (FLine < FLines.size() && AOffset - FStart >= FLines.at(FLine).size() + 2)
            FStart += FLines.at(FLine++).size() + 2;
        ARecord.Line = FLine + 1;
        ARecord.Column = FLine < FLines.size() ? int(AOffset - FStart) + 1 : 1;
    }
    /// Whether the character at the place last found is the LF of its line.
    bool AtLineFeed(const TZtTokenRecord &ARecord) const
    {
        return FLine < FLines.size() && ARecord.Column == FLines.at(FLine).size() + 2;
    }

private:
    const QStringList &FLines;
    int FLine;
    qsizetype FStart = 0;
};

} // namespace

QString TZtTokenRecord::ToString() const
{
    QString text;
    for (const QChar C : Text)
        text += NeedsEscape(C) ? Escaped(C) : QString(C);
    return QStringLiteral("%1:%2 %3 %4 \"")
               .arg(Line)
               .arg(Column)
               .arg(QLatin1String(Kind))
               .arg(Row) +
           text + u'"';
}

QString TZtTokenLanguage::Extension() const
{
    return ZtFindLanguage(QLatin1String(Language))->Extensions.front();
}

std::span<const TZtTokenLanguage> ZtTokenLanguages() { return Languages; }

const TZtTokenLanguage *ZtTokenLanguageOf(const QString &AFileName)
{
    const QString &name = ZtLanguageOfFile(AFileName).Name;
    const auto *found = std::ranges::find_if(Languages, [&](const TZtTokenLanguage &language) {
        return name == QLatin1String(language.Language);
    });
    return found == std::end(Languages) ? nullptr : found;
}

QStringList ZtTokenLines(const QString &AText)
{
    QStringList lines = AText.split(u'\n');
    for (QString &line : lines)
        if (line.endsWith(u'\r'))
            line.chop(1);
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QList<TZtTokenRecord> ZtReadTokens(TZtTokenReader &AReader, const QStringList &ALines,
                                   QList<int> &ALineKinds, int AFirst, int AMaxLines)
{
    TZtLangParser &parser = AReader.Parser();
    const int end = int(std::min<qint64>(ALines.size(), qint64(AFirst) + AMaxLines));
    int line = AFirst;
    parser.OnGetNewBuffer = [&](bool AReset, QString &S) {
        if (AReset || line >= end)
            return false;
        ALineKinds.resize(std::max<qsizetype>(ALineKinds.size(), line + 1));
        ALineKinds[line] = parser.GetLineKind();
        S.append(ALines.at(line++)).append(QLatin1String("\r\n"));
        return true;
    };
    parser.ResetBuffer();
    parser.SetRemarkEnd(QString());
    parser.SetEndLines(true);
    parser.SetLineKind(ALineKinds.value(AFirst));
    QList<TZtTokenRecord> records = ZtDrainTokens(AReader, ALines, AFirst);
    parser.OnGetNewBuffer = nullptr;
    return records;
}

QList<TZtTokenRecord> ZtDrainTokens(TZtTokenReader &AReader, const QStringList &ALines, int AFirst)
{
    QList<TZtTokenRecord> records;
    TPlaces places(ALines, AFirst);
    const qsizetype before = AReader.Consumed();
    TZtTokenRecord record;
    for (bool more = true; more; records.append(record)) {
        qsizetype start = AReader.Consumed() - before;
        more = AReader.Next(record);
        places.Find(start, record);
        // A lexer may drop the LF in front of a token; the token then starts after it.
        if (places.AtLineFeed(record) && !record.Text.startsWith(u'\n'))
            places.Find(++start, record);
        record.Start = start;
        record.Length = AReader.Consumed() - before - start;
    }
    return records;
}
