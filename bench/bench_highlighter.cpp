#include "uZtCells.h"
#include "uZtHighlighter.h"
#include "uZtStringList.h"
#include "uZtTokenDump.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

#include <map>

namespace {

constexpr qsizetype TextSize = 100'000'000;
constexpr int Sight = 60; // lines

// The example texts of a language, again and again.
const TStringList &Examples(const TZtTokenLanguage &ALanguage)
{
    static std::map<std::string, std::unique_ptr<TStringList>> known;
    std::unique_ptr<TStringList> &text = known[ALanguage.Name];
    if (text)
        return *text;
    const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/") + QLatin1String(ALanguage.Name));
    QByteArray once;
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            once += file.readAll();
    }
    text = std::make_unique<TStringList>();
    text->SetUtf8Text(once.repeated(TextSize / once.size() + 1));
    return *text;
}

struct TSetup {
    explicit TSetup(benchmark::State &AState)
        : Language(ZtTokenLanguages()[size_t(AState.range(0))]),
          Text(const_cast<TStringList &>(Examples(Language))), Parser(Language.CreateParser())
    {
        Parser->SetClosedRemarks(true);
        AState.SetLabel(Language.Name);
    }
    const TZtTokenLanguage &Language;
    TStringList &Text;
    std::unique_ptr<TZtLangParser> Parser;
};

// What the lexer alone takes for the text.
void BM_Lexer(benchmark::State &AState)
{
    TSetup setup(AState);
    for (auto _ : AState) {
        int line = 0;
        setup.Parser->OnGetNewBuffer = [&](bool AReset, QString &S) {
            if (AReset || line >= setup.Text.GetCount())
                return AReset;
            setup.Text.AppendTo(line++, S);
            S.append(QLatin1StringView("\r\n"));
            return true;
        };
        setup.Parser->ResetBuffer();
        setup.Parser->SetState({});
        QString token;
        TColor back = 0, fore = 0;
        TFontStyles style;
        bool lineBreak = false;
        while (setup.Parser->GetNextToken(token, back, fore, style, lineBreak)) {
        }
    }
    AState.SetBytesProcessed(qint64(AState.iterations()) * TextSize);
}

// The state at every line, in slices of 5 ms.
void BM_Advance(benchmark::State &AState)
{
    TSetup setup(AState);
    TZtHighlighter colours;
    colours.SetText(&setup.Text);
    colours.SetParser(setup.Parser.get());
    for (auto _ : AState) {
        colours.Invalidate();
        while (colours.Advance(5)) {
        }
    }
    AState.SetBytesProcessed(qint64(AState.iterations()) * TextSize);
}

// What a keystroke makes to be lexed anew, in the middle of the text and in sight.
void BM_Keystroke(benchmark::State &AState)
{
    TSetup setup(AState);
    TZtHighlighter colours;
    colours.SetText(&setup.Text);
    colours.SetParser(setup.Parser.get());
    while (colours.Advance(1000)) {
    }
    const int top = setup.Text.GetCount() / 2;
    colours.Prepare(top, top + Sight, 200);
    const QString line = setup.Text.GetStrings(top + 20);
    bool typed = false;
    for (auto _ : AState) {
        typed = !typed;
        setup.Text.SetStrings(top + 20, typed ? line + u' ' : line);
        colours.Prepare(top, top + Sight, 200);
        while (colours.Advance(5)) {
        }
    }
    setup.Text.SetStrings(top + 20, line);
}

// A page elsewhere in the text.
void BM_Page(benchmark::State &AState)
{
    TSetup setup(AState);
    TZtHighlighter colours;
    colours.SetText(&setup.Text);
    colours.SetParser(setup.Parser.get());
    while (colours.Advance(1000)) {
    }
    int top = 0;
    for (auto _ : AState) {
        top = (top + 10007) % (setup.Text.GetCount() - Sight);
        colours.Prepare(top, top + Sight, 200);
    }
}

// The cells of a line's last column: plain, with wide characters, with clusters.
void BM_CellOf(benchmark::State &AState)
{
    const char16_t *const parts[] = {u"abcdefghij", u"abcd\u0431\u0432gh\tj", u"\u65E5\u672C",
                                     u"e\u0301x"};
    const QString line = QString::fromUtf16(parts[AState.range(0)]).repeated(1'000'000);
    for (auto _ : AState)
        benchmark::DoNotOptimize(ZtCellOf(line, int(line.size()), {8, true, true}));
    AState.SetItemsProcessed(qint64(AState.iterations()) * line.size());
}

} // namespace

BENCHMARK(BM_Lexer)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Advance)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Keystroke)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Page)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CellOf)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
