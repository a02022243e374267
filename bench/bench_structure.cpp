#include "uZtBrackets.h"
#include "uZtIndentGuides.h"
#include "uZtMatchMarks.h"
#include "uZtStringList.h"
#include "uZtTokenDump.h"

#include <QFile>

#include <benchmark/benchmark.h>

namespace {

constexpr int FarLines = 1'000'000;
constexpr qsizetype TextSize = 100'000'000;

// A block of a million lines with pairs of its own, all of whose states are known.
struct TBlock {
    TBlock() : Parser(ZtTokenLanguageOf("a.js")->CreateParser())
    {
        Parser->SetClosedRemarks(true);
        Text.SetText("{\n" + QString("  item[i] = call(a, 'b)'); // (\n").repeated(FarLines) +
                     "}\n");
        Colours.SetText(&Text);
        Colours.SetParser(Parser.get());
        while (Colours.Advance(1000)) {
        }
    }
    TStringList Text;
    std::unique_ptr<TZtLangParser> Parser;
    TZtHighlighter Colours;
    TZtBrackets Brackets{&Text, Colours};
};

TBlock &Block()
{
    static TBlock block;
    return block;
}

// A caret that goes from one near pair in sight to the next.
void BM_NearPair(benchmark::State &AState)
{
    TBlock &block = Block();
    const int top = FarLines / 2;
    block.Colours.Prepare(top, top + 60, 200);
    int line = top;
    for (auto _ : AState) {
        line = line == top + 60 ? top : line + 1;
        benchmark::DoNotOptimize(block.Brackets.Find({16, line}));
    }
    if (block.Brackets.GetState() != TZtBracketState::bsFound)
        AState.SkipWithError("no pair");
}

// A key that moves the caret to a bracket whose pair is a million lines away; from either end.
void BM_FarPairKey(benchmark::State &AState)
{
    TBlock &block = Block();
    const int line = AState.range(0) ? FarLines + 1 : 0;
    for (auto _ : AState) {
        block.Brackets.Find({9, 1}); // elsewhere
        if (block.Brackets.Find({0, line}) != TZtBracketState::bsSearching)
            AState.SkipWithError("it is near");
    }
}

// All that is done for it while nothing else is, in slices of 5 ms.
void BM_FarPairIdle(benchmark::State &AState)
{
    TBlock &block = Block();
    const int line = AState.range(0) ? FarLines + 1 : 0;
    for (auto _ : AState) {
        block.Brackets.Find({9, 1});
        block.Brackets.Find({0, line});
        while (block.Brackets.Advance(5)) {
        }
    }
    if (block.Brackets.GetState() != TZtBracketState::bsFound)
        AState.SkipWithError("no pair");
    AState.SetItemsProcessed(qint64(AState.iterations()) * FarLines);
}

// Guides of the lines in sight, and the caret's block.
void BM_Guides(benchmark::State &AState)
{
    const TBlock &block = Block();
    for (auto _ : AState) {
        benchmark::DoNotOptimize(ZtGuideCells(block.Text, 5000, 5060, {4, true, true}));
        benchmark::DoNotOptimize(ZtCurrentGuide(block.Text, 5030, 2, {4, true, true}));
    }
}

double ResidentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toDouble() * 4096 / 1e6;
}

// All matches in 100 MB of lines: of a letter, of a blank, of a word that is nowhere.
void BM_Matches(benchmark::State &AState)
{
    static const std::unique_ptr<TStringList> text = [] {
        const QByteArray line = "the quick brown fox jumps over the lazy dog\n";
        auto lines = std::make_unique<TStringList>();
        lines->SetUtf8Text(line.repeated(TextSize / line.size()));
        return lines;
    }();
    const char *const searches[] = {"e", " ", "nowhere"};
    const double before = ResidentMegabytes();
    TZtMatchMarks marks(text.get());
    for (auto _ : AState) {
        marks.SetSearch(QLatin1String(searches[AState.range(0)]), {});
        while (marks.Advance(5)) {
        }
    }
    AState.SetLabel(searches[AState.range(0)]);
    AState.counters["matches"] = double(marks.GetCount());
    AState.counters["MB"] = ResidentMegabytes() - before;
    AState.SetBytesProcessed(qint64(AState.iterations()) * TextSize);
}

} // namespace

BENCHMARK(BM_NearPair)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FarPairKey)->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FarPairIdle)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Guides)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Matches)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
