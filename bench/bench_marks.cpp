// What marks, diagnostics and changed lines cost: a change of a text of a million lines, from the
// call until it is done, and what a ruler and a compiler ask for.

#include "uZtDiagnostics.h"
#include "uZtLineChanges.h"
#include "uZtLineMarks.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace {

constexpr int Lines = 1'000'000;
constexpr int Diagnostics = 100'000;

std::vector<TZtDiagnostic> Found()
{
    std::vector<TZtDiagnostic> found;
    for (int i = 0; i < Diagnostics; ++i) {
        const int line = int(qint64(i) * Lines / Diagnostics);
        found.push_back({{2, line}, {7, line}, TZtSeverity(i % 3), QStringLiteral("wrong"), {}});
    }
    return found;
}

struct TBench {
    TStringList Text;
    std::optional<TZtDiagnostics> Wrong;
    std::optional<TZtLineMarks> Marks;
    std::optional<TZtLineChanges> Changes;

    // With everything, or the text alone.
    explicit TBench(bool AMarked)
    {
        Text.SetUtf8Text(QByteArray("  total := total + price;\n").repeated(Lines));
        if (!AMarked)
            return;
        Wrong.emplace(&Text);
        Wrong->Set(QStringLiteral("compiler"), Found());
        Marks.emplace(&Text);
        for (int i = 0; i < 10'000; ++i)
            Marks->Set(i * 100, TZtLineMark(i % 7), true);
        Changes.emplace(&Text);
    }
};

// The argument: without marks (0) or with them (1).
void BM_Key(benchmark::State &AState)
{
    TBench bench(AState.range(0) == 1);
    for (auto _ : AState) {
        bench.Text.ReplaceInLine(Lines / 2, 4, 0, u"x");
        bench.Text.ReplaceInLine(Lines / 2, 4, 1, u"");
    }
}

void BM_Enter(benchmark::State &AState)
{
    TBench bench(AState.range(0) == 1);
    const QPoint at(4, Lines / 2);
    for (auto _ : AState)
        bench.Text.ReplaceText(at, at, TZtTextPiece(QStringLiteral("\n")));
}

// Enter by turns in the first line and in the last one.
void BM_FarEnter(benchmark::State &AState)
{
    TBench bench(AState.range(0) == 1);
    for (auto _ : AState) {
        bench.Text.ReplaceText({4, 0}, {4, 0}, TZtTextPiece(QStringLiteral("\n")));
        const QPoint at(0, bench.Text.GetCount() - 1);
        bench.Text.ReplaceText(at, at, TZtTextPiece(QStringLiteral("\n")));
    }
}

// Every tenth line is changed by itself. The second argument: from the first one (0) or from the
// last one (1).
void BM_ReplaceAll(benchmark::State &AState)
{
    TBench bench(AState.range(0) == 1);
    for (auto _ : AState) {
        if (bench.Changes)
            bench.Changes->Reset();
        for (int i = 0; i < 100'000; ++i) {
            const int line = (AState.range(1) ? 99'999 - i : i) * 10;
            bench.Text.ReplaceInLine(line, 2, 1, u"T");
        }
    }
}

void BM_KeyBesideChanges(benchmark::State &AState)
{
    TBench bench(true);
    for (int i = 0; i < 100'000; ++i)
        bench.Text.ReplaceInLine(i * 10, 2, 1, u"T");
    for (auto _ : AState) {
        bench.Text.ReplaceInLine(Lines / 2, 4, 0, u"x");
        bench.Text.ReplaceInLine(Lines / 2, 4, 1, u"");
    }
}

void BM_SurveyDiagnostics(benchmark::State &AState)
{
    TBench bench(true);
    std::vector<quint32> rows(size_t(AState.range(0)));
    for (auto _ : AState)
        bench.Wrong->Survey(rows);
}

void BM_SurveyMarks(benchmark::State &AState)
{
    TBench bench(true);
    for (int i = 0; i < 100'000; ++i)
        bench.Marks->Set(i * 10, TZtLineMark::lmHost, true);
    std::vector<quint32> rows(size_t(AState.range(0)));
    for (auto _ : AState)
        bench.Marks->Survey(rows);
}

void BM_SurveyChanges(benchmark::State &AState)
{
    TBench bench(true);
    for (int i = 0; i < 100'000; ++i)
        bench.Text.ReplaceInLine(i * 10, 2, 1, u"T");
    std::vector<quint32> rows(size_t(AState.range(0)));
    for (auto _ : AState)
        bench.Changes->Survey(rows);
}

// What a paint asks for: the ranges in fifty lines.
void BM_Paint(benchmark::State &AState)
{
    TBench bench(true);
    for (auto _ : AState)
        benchmark::DoNotOptimize(
            bench.Wrong->GetDecorations().GetInLines(Lines / 2, Lines / 2 + 50));
}

// A hundred thousand ranges for others, up to the first paint of them.
void BM_ReplaceOwner(benchmark::State &AState)
{
    TBench bench(true);
    TZtDecorations decorations(&bench.Text);
    std::vector<TZtDecoration> ranges;
    for (const TZtDiagnostic &found : Found())
        ranges.push_back({found.From, found.To});
    for (auto _ : AState) {
        decorations.ReplaceOwner(1, ranges);
        benchmark::DoNotOptimize(decorations.GetInLines(0, 50));
    }
}

// The pair of brackets at the caret, say, beside a hundred thousand others: gone, come and painted.
void BM_ReplaceFew(benchmark::State &AState)
{
    TBench bench(true);
    TZtDecorations &decorations = bench.Wrong->GetDecorations();
    int column = 0;
    for (auto _ : AState) {
        column = 1 - column;
        const QPoint at(column, Lines / 2);
        decorations.ReplaceOwner(
            1000, {{at, at + QPoint(1, 0)}, {at + QPoint(9, 0), at + QPoint(10, 0)}});
        benchmark::DoNotOptimize(decorations.GetInLines(Lines / 2, Lines / 2 + 50));
    }
}

void Modes(benchmark::internal::Benchmark *ABenchmark)
{
    ABenchmark->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);
}
void Rows(benchmark::internal::Benchmark *ABenchmark)
{
    ABenchmark->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(BM_Key)->Apply(Modes);
BENCHMARK(BM_Enter)->Apply(Modes)->Iterations(20'000);
BENCHMARK(BM_FarEnter)->Apply(Modes)->Iterations(200);
BENCHMARK(BM_ReplaceAll)->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KeyBesideChanges)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SurveyDiagnostics)->Apply(Rows);
BENCHMARK(BM_SurveyMarks)->Apply(Rows);
BENCHMARK(BM_SurveyChanges)->Apply(Rows);
BENCHMARK(BM_Paint)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ReplaceOwner)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReplaceFew)->Unit(benchmark::kMicrosecond);

} // namespace
