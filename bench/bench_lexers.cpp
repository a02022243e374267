#include "uZtTokenDump.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype TextSize = 10'000'000;

// The language's example texts, one after the other, again and again.
QStringList ExampleLines(const TZtTokenLanguage &ALanguage, qsizetype &ASize)
{
    const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/") + QLatin1String(ALanguage.Name));
    QStringList once;
    const QStringList names =
        folder.entryList(QStringList(QLatin1String("*.") + ALanguage.Extension()));
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            once += ZtTokenLines(QString::fromUtf8(file.readAll()));
    }
    QStringList lines;
    while (!once.isEmpty() && ASize < TextSize) {
        lines += once;
        for (const QString &line : once)
            ASize += line.size() + 2;
    }
    return lines;
}

// Everything through GetNextToken, fed line by line as the editor does it.
qint64 Lex(TZtLangParser &AParser, const QStringList &ALines)
{
    qsizetype line = 0;
    AParser.OnGetNewBuffer = [&](bool AReset, QString &S) {
        if (AReset || line >= ALines.size())
            return false;
        S.append(ALines.at(line++)).append(QLatin1String("\r\n"));
        return true;
    };
    AParser.ResetBuffer();
    AParser.SetRemarkEnd(QString());
    AParser.SetEndLines(true);
    AParser.SetLineKind(0);
    QString token;
    TColor background = 0, color = 0;
    TFontStyles style;
    bool lineBreak = false;
    qint64 tokens = 0;
    while (AParser.GetNextToken(token, background, color, style, lineBreak))
        ++tokens;
    return tokens;
}

// Bytes are counted as one for each character, as in the source files. The second argument switches
// on all that is off by default.
void BM_Lexer(benchmark::State &AState)
{
    const TZtTokenLanguage &language = ZtTokenLanguages()[size_t(AState.range(0))];
    qsizetype size = 0;
    const QStringList lines = ExampleLines(language, size);
    const std::unique_ptr<TZtLangParser> parser = language.CreateParser();
    const bool corrected = AState.range(1) != 0;
    parser->SetAllKeyWords(corrected);
    parser->SetExtraKeyWords(corrected ? QStringList({"host", "print"}) : QStringList());
    parser->SetClosedRemarks(corrected);
    qint64 tokens = 0;
    for (auto _ : AState)
        tokens += Lex(*parser, lines);
    AState.SetLabel(language.Name + std::string(corrected ? ", corrected" : ""));
    AState.SetBytesProcessed(qint64(AState.iterations()) * size);
    AState.SetItemsProcessed(tokens);
}
// The plain-text lexer, on the first language's text. It never answers false at the end.
void BM_PlainText(benchmark::State &AState)
{
    qsizetype size = 0;
    const QStringList lines = ExampleLines(ZtTokenLanguages()[0], size);
    TZtLangParser parser;
    QString token;
    qint64 tokens = 0;
    for (auto _ : AState) {
        qsizetype line = 0;
        parser.OnGetNewBuffer = [&](bool AReset, QString &S) {
            if (AReset || line >= lines.size())
                return false;
            S.append(lines.at(line++)).append(QLatin1String("\r\n"));
            return true;
        };
        parser.ResetBuffer();
        while (parser.InternalGetNextToken(token) != TlngToken::tEndOfFile)
            ++tokens;
    }
    AState.SetLabel("plain text");
    AState.SetBytesProcessed(qint64(AState.iterations()) * size);
    AState.SetItemsProcessed(tokens);
}
BENCHMARK(BM_PlainText)->Unit(benchmark::kMillisecond);

BENCHMARK(BM_Lexer)
    ->ArgsProduct({benchmark::CreateDenseRange(0, int(ZtTokenLanguages().size()) - 1, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace
