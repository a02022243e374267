// What a journal costs the thread of its text: a change of a text of a hundred megabytes, from the
// call until it is done, without the picture. `median_us` and `max_us` are of all its rounds.

#include "uZtJournal.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

namespace {

constexpr qsizetype Megabyte = 1'000'000;

// Short lines of 40 bytes, or, with any other break than a new line, one line.
QByteArray TextOf(qsizetype ASize, char ABreak)
{
    const QByteArray line("  total := total + price[i] * count[i]; ");
    return (line.chopped(1) + ABreak).repeated(ASize / line.size());
}

struct TBench {
    TStringList Text;
    QTemporaryDir Folder;
    std::optional<TZtJournal> Journal;

    TBench(const QByteArray &AText, bool AJournal)
    {
        Text.SetUtf8Text(AText);
        // What the first edit of a line does is not of the journal.
        Text.ReplaceInLine(Text.GetCount() / 2, 10, 0, u"x");
        if (AJournal)
            Journal.emplace(Text, Folder.filePath(QStringLiteral("journal")),
                            TZtJournalBase{QStringLiteral("/file"), 0, {}, AText});
    }
};

template <typename TRound> void Measure(benchmark::State &AState, TRound ARound)
{
    std::vector<double> times;
    for (auto _ : AState) {
        const auto start = std::chrono::steady_clock::now();
        ARound();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        AState.SetIterationTime(took.count());
        times.push_back(took.count());
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // between two keys
    }
    std::sort(times.begin(), times.end());
    AState.counters["median_us"] = times[times.size() / 2] * 1e6;
    AState.counters["max_us"] = times.back() * 1e6;
}

// The first argument: without a journal (0) or with one (1).
void BM_Key(benchmark::State &AState)
{
    TBench bench(TextOf(100 * Megabyte, '\n'), AState.range(0) == 1);
    const int line = bench.Text.GetCount() / 2;
    Measure(AState, [&] { bench.Text.ReplaceInLine(line, 10, 0, u"x"); });
}

// In a line of ten megabytes.
void BM_KeyInLongLine(benchmark::State &AState)
{
    TBench bench(TextOf(10 * Megabyte, ' '), AState.range(0) == 1);
    Measure(AState, [&] { bench.Text.ReplaceInLine(0, bench.Text.GetLength(0), 0, u"x"); });
}

void BM_Enter(benchmark::State &AState)
{
    TBench bench(TextOf(100 * Megabyte, '\n'), AState.range(0) == 1);
    const QPoint at(10, bench.Text.GetCount() / 2);
    Measure(AState, [&] { bench.Text.ReplaceText(at, at, TZtTextPiece(QStringLiteral("\n"))); });
}

void BM_ReplaceWholeText(benchmark::State &AState)
{
    const QByteArray text = TextOf(100 * Megabyte, '\n');
    TBench bench(text, AState.range(0) == 1);
    Measure(AState, [&] { bench.Text.SetUtf8Text(text); });
}

void Modes(benchmark::internal::Benchmark *ABenchmark)
{
    ABenchmark->DenseRange(0, 1)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

BENCHMARK(BM_Key)->Apply(Modes)->Iterations(5000);
BENCHMARK(BM_KeyInLongLine)->Apply(Modes)->Iterations(2000);
BENCHMARK(BM_Enter)->Apply(Modes)->Iterations(5000);
BENCHMARK(BM_ReplaceWholeText)->Apply(Modes)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
