// The editor's speed as a user meets it: paints, keystrokes, loading and pasting, on texts from a
// page to a hundred megabytes. Each benchmark gives the median of its rounds as `median_ms`, the
// time from the event until the picture stands.

#include "uZtAnchors.h"
#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtFrame.h"
#include "uZtOverviewRuler.h"
#include "uZtPlatform.h"
#include "uZtTextMarks.h"
#include "uZtTokenDump.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr qsizetype Megabyte = 1'000'000;

// The examples of a language, one after the other, until `ASize` bytes are reached.
QByteArray ExampleText(const TZtTokenLanguage &ALanguage, qsizetype ASize)
{
    QByteArray once;
    const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/") +
                      QLatin1StringView(ALanguage.Name));
    for (const QString &name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            once += file.readAll();
    }
    return once.repeated(ASize / once.size() + 1).first(ASize);
}

QByteArray PascalText(qsizetype ASize) { return ExampleText(ZtTokenLanguages()[0], ASize); }

// Short lines of one hundred megabytes: 2.5 million of 40 bytes.
QByteArray ShortLines(qsizetype ASize)
{
    const QByteArray line("  total := total + price[i] * count[i];\n");
    return line.repeated(ASize / line.size());
}

void Settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

struct TBench {
    TZtCodeEdit Edit;
    TZtCodePascalParser Parser;

    TBench()
    {
        Edit.SetParser(&Parser);
        Edit.resize(1280, 800);
        Edit.show();
        Edit.activateWindow();
        Edit.setFocus();
        Settle();
    }
    explicit TBench(const QByteArray &AText) : TBench()
    {
        Edit.GetLines()->SetUtf8Text(AText);
        Settle();
    }
    ~TBench() { Edit.SetParser(nullptr); }

    void Key(int AKey, const QString &AText = {})
    {
        QKeyEvent event(QEvent::KeyPress, AKey, Qt::NoModifier, AText);
        QApplication::sendEvent(&Edit, &event);
        Settle();
    }
};

// Runs the rounds of a benchmark and reports their median.
template <typename TRound, typename TPrepare>
void Measure(benchmark::State &AState, TRound ARound, TPrepare APrepare)
{
    std::vector<double> times;
    for (auto _ : AState) {
        APrepare();
        const auto start = std::chrono::steady_clock::now();
        ARound();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        AState.SetIterationTime(took.count());
        times.push_back(took.count());
    }
    std::nth_element(times.begin(), times.begin() + qsizetype(times.size() / 2), times.end());
    AState.counters["median_ms"] = times[times.size() / 2] * 1000;
}

template <typename TRound> void Measure(benchmark::State &AState, TRound ARound)
{
    Measure(AState, ARound, [] {});
}

// The resident memory of this process in bytes, or the most that it ever was.
double Resident(const char *AField)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(AField, 0) == 0)
            return std::stod(line.substr(line.find(':') + 1)) * 1024;
    return 0;
}

void BM_FullRepaint(benchmark::State &AState)
{
    TBench bench(PascalText(100'000));
    int round = 0;
    Measure(AState, [&] {
        // Another margin colour draws everything anew.
        bench.Edit.SetRightMarginColor(TColor(++round & 0xFF));
        Settle();
    });
}

// The same for every language, to be compared with Pascal's.
void BM_FullRepaintOf(benchmark::State &AState)
{
    const TZtTokenLanguage &language = ZtTokenLanguages()[size_t(AState.range(0))];
    const std::unique_ptr<TZtLangParser> parser = language.CreateParser();
    TBench bench(ExampleText(language, 100'000));
    bench.Edit.SetParser(parser.get());
    Settle();
    int round = 0;
    Measure(AState, [&] {
        bench.Edit.SetRightMarginColor(TColor(++round & 0xFF));
        Settle();
    });
    AState.SetLabel(language.Name);
}

void BM_UnchangedRepaint(benchmark::State &AState)
{
    TBench bench(PascalText(100'000));
    Measure(AState, [&] {
        bench.Edit.Invalidate();
        Settle();
    });
}

void BM_PageDown(benchmark::State &AState)
{
    TBench bench(PascalText(Megabyte));
    Measure(
        AState, [&] { bench.Key(Qt::Key_PageDown); },
        [&] {
            if (bench.Edit.GetLinePos() + 200 > bench.Edit.GetLines()->GetCount())
                bench.Edit.SetLinePos(0);
        });
}

// One notch of the wheel.
void BM_Scroll(benchmark::State &AState)
{
    TBench bench(PascalText(Megabyte));
    TScrollBar *bar = bench.Edit.GetVScrollBar();
    Measure(AState, [&] {
        bar->SetPosition(bar->GetPosition() + 3);
        Settle();
    });
}

void BM_Load100MB(benchmark::State &AState)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("large.pas"));
    {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(ShortLines(100 * Megabyte)) < 0) {
            AState.SkipWithError("cannot write the file");
            return;
        }
    }
    double added = 0;
    std::unique_ptr<TBench> bench;
    double before = 0;
    Measure(
        AState,
        [&] {
            bench->Edit.LoadFromFile(name);
            Settle();
            added = Resident("VmRSS") - before;
        },
        [&] {
            bench.reset();
            bench = std::make_unique<TBench>();
            before = Resident("VmRSS");
        });
    AState.counters["memory_per_byte"] = added / double(100 * Megabyte);
    AState.counters["peak_per_byte"] = Resident("VmHWM") / double(100 * Megabyte);
}

// The line that a benchmark works on: 0 is the first, 1 the middle, 2 the last.
int WorkLine(const TZtCodeEdit &AEdit, int64_t AWhere)
{
    return int(AWhere * (AEdit.GetLines()->GetCount() - 1) / 2);
}

// One key at column 10 of a text of a million lines. `APrepareKey` is pressed before each round,
// not measured, so that the text stays what it is.
void TypeAt(benchmark::State &AState, int AKey, const QString &AText, int APrepareKey = 0,
            const QString &APrepareText = {})
{
    TBench bench(ShortLines(40 * Megabyte));
    bench.Edit.SetLinePos(WorkLine(bench.Edit, AState.range(0)));
    Settle();
    Measure(
        AState, [&] { bench.Key(AKey, AText); },
        [&] {
            bench.Edit.SetCharPos(10);
            if (APrepareKey)
                bench.Key(APrepareKey, APrepareText);
        });
}

// A key in a million lines of a hundred bytes, alone (0) or with an assistive tool that listens and
// asks for the caret, as screen readers do (1).
void AssistedKey(benchmark::State &AState, int AKey, const QString &AText)
{
    TBench bench;
    bench.Edit.SetCorrections(ZtAllCorrections());
    bench.Edit.GetLines()->SetUtf8Text((QByteArray(99, 'x') + '\n').repeated(1'000'000));
    bench.Edit.SetLinePos(500'000);
    qint64 told = 0;
    if (AState.range(0) == 1) {
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&bench.Edit);
        ZtPlatform().IsAssisted = [] { return true; };
        ZtPlatform().TellAssistants = [&told, seen](QAccessibleEvent &) {
            told += seen->textInterface()->cursorPosition();
        };
    }
    Settle();
    Measure(
        AState, [&] { bench.Key(AKey, AText); }, [&] { bench.Edit.SetCharPos(10); });
    ZtPlatform() = ZtDefaultPlatform();
    if ((told > 0) != (AState.range(0) == 1))
        AState.SkipWithError("nothing was told");
}

void BM_AssistedKey(benchmark::State &AState)
{
    AssistedKey(AState, Qt::Key_X, QStringLiteral("x"));
}

void BM_AssistedEnter(benchmark::State &AState)
{
    AssistedKey(AState, Qt::Key_Return, QStringLiteral("\r"));
}

void BM_TypeCharacter(benchmark::State &AState) { TypeAt(AState, Qt::Key_X, QStringLiteral("x")); }

void BM_Enter(benchmark::State &AState) { TypeAt(AState, Qt::Key_Return, QStringLiteral("\r")); }

// Takes back the line break that was typed before.
void BM_Backspace(benchmark::State &AState)
{
    TypeAt(AState, Qt::Key_Backspace, QStringLiteral("\b"), Qt::Key_Return, QStringLiteral("\r"));
}

// A key in a line of ten megabytes, which is the last one (0) or has another below it in sight (1).
void BM_TypeInLongLine(benchmark::State &AState)
{
    QByteArray text = ShortLines(10 * Megabyte).replace('\n', ' ');
    if (AState.range(0) == 1)
        text += "\nend.\n";
    TBench bench(text);
    const auto start = std::chrono::steady_clock::now();
    bench.Key(Qt::Key_X, QStringLiteral("x"));
    const std::chrono::duration<double, std::milli> first =
        std::chrono::steady_clock::now() - start;
    Measure(AState, [&] { bench.Key(Qt::Key_X, QStringLiteral("x")); });
    AState.counters["first_ms"] = first.count();
}

// What a key costs more with so many anchors, all of them below it: the change of the text alone.
void BM_KeyWithAnchors(benchmark::State &AState)
{
    TStringList text;
    text.SetUtf8Text(ShortLines(100 * Megabyte));
    TZtAnchors anchors(&text);
    const int count = int(AState.range(0));
    for (int i = 0; i < count; ++i)
        anchors.Add({3, int(qint64(i) * text.GetCount() / count)}, TZtAnchorSide::asBehind);
    const int line = int(AState.range(1)) * (text.GetCount() / 2);
    Measure(AState, [&] {
        text.ReplaceInLine(line, 0, 0, u"x");
        text.ReplaceText({1, line}, {1, line}, TZtTextPiece(QStringLiteral("\n")));
    });
}

// The overview ruler from nothing, with so many diagnostics and a tenth as many bookmarks in a
// million lines.
void BM_OverviewRuler(benchmark::State &AState)
{
    TBench bench(QByteArray("a line\n").repeated(1'000'000));
    bench.Edit.SetCorrections(ZtAllCorrections());
    bench.Edit.SetExtras(ZtAllExtras());
    const int count = int(AState.range(0));
    std::vector<TZtDiagnostic> diagnostics;
    for (int i = 0; i < count; ++i) {
        const int line = int(qint64(i) * 1'000'000 / count);
        diagnostics.push_back({{2, line}, {4, line}, TZtSeverity(i % 3), {}, {}});
        if (i % 10 == 0)
            bench.Edit.GetTextMarks().Marks.Set(line, TZtLineMark::lmBookmark, true);
    }
    bench.Edit.GetTextMarks().Diagnostics.Set(QStringLiteral("bench"), diagnostics);
    auto *ruler = bench.Edit.findChild<TZtOverviewRuler *>();
    int height = ruler->height();
    Measure(
        AState, [&] { ruler->repaint(); }, [&] { ruler->resize(14, height ^= 1); });
}

// Everything is selected and deleted in so many megabytes, and comes back by an undo.
void BM_DeleteAllAndBack(benchmark::State &AState)
{
    TBench bench(ShortLines(AState.range(0) * Megabyte));
    bench.Edit.SetCorrections(ZtAllCorrections());
    Settle();
    const int count = bench.Edit.GetLines()->GetCount();
    const bool back = AState.range(1) != 0;
    Measure(
        AState,
        [&] {
            if (back)
                bench.Edit.Undo();
            else
                bench.Key(Qt::Key_Delete);
            Settle();
        },
        [&] {
            if (bench.Edit.GetLines()->GetCount() != count)
                bench.Edit.Undo();
            QKeyEvent all(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier);
            QApplication::sendEvent(&bench.Edit, &all);
            if (back)
                bench.Key(Qt::Key_Delete);
        });
}

// From a jump to the end of 100 MB, all of it in one comment, until the colours there are right.
void BM_RightColoursAfterAJump(benchmark::State &AState)
{
    TBench bench;
    TZtCodeJSParser parser;
    bench.Edit.SetParser(&parser);
    bench.Edit.SetCorrections(ZtAllCorrections());
    const QByteArray text = "/*\n" + ShortLines(100 * Megabyte);
    const auto isGreen = [&] {
        const auto rows = bench.Edit.PaintedRows();
        return !rows.empty() && !rows[0].Pieces.empty() &&
               rows[0].Pieces.back().Fore == qRgb(0, 128, 0);
    };
    Measure(
        AState,
        [&] {
            QKeyEvent end(QEvent::KeyPress, Qt::Key_End, Qt::ControlModifier);
            QApplication::sendEvent(&bench.Edit, &end);
            bench.Edit.repaint(); // what was shown before is no matter
            while (!isGreen())
                QApplication::processEvents();
        },
        [&] {
            bench.Edit.GetLines()->SetUtf8Text(text);
            bench.Edit.SetLinePos(0);
            bench.Edit.repaint();
        });
    bench.Edit.SetParser(&bench.Parser);
}

void BM_Paste1MBInto10MB(benchmark::State &AState)
{
    const QString pasted = QString::fromLatin1(ShortLines(Megabyte));
    const QByteArray text = ShortLines(10 * Megabyte);
    TBench bench;
    ZtPlatform().ClipboardText = [&] { return pasted; };
    Measure(
        AState,
        [&] {
            ZtSendMessage(&bench.Edit, TZtMsg::wmPaste);
            Settle();
        },
        [&] {
            bench.Edit.GetLines()->SetUtf8Text(text);
            bench.Edit.SetLinePos(WorkLine(bench.Edit, 1));
            bench.Edit.SetCharPos(10);
            Settle();
        });
    ZtPlatform() = ZtDefaultPlatform();
}

// A string that stands only on the last of 2.5 million lines. 0: with case, 1: without, 2: whole
// words without case.
void BM_FindIn100MB(benchmark::State &AState)
{
    TBench bench(ShortLines(100 * Megabyte) + "  needleInTheStack := 1;\n");
    TZtSearchReplaceOptions options;
    options.SearchString = QStringLiteral("needleInTheStack");
    options.SearchForward = true;
    options.Options = TZtSearchFlag::sfDown;
    options.Options.setFlag(TZtSearchFlag::sfMatchCase, AState.range(0) == 0);
    options.Options.setFlag(TZtSearchFlag::sfWholeWord, AState.range(0) == 2);
    options.WidenTo(*bench.Edit.GetLines());
    Measure(
        AState, [&] { ZtSendMessage(&bench.Edit, quint32(TZtMsg::wmUser) + 3); },
        [&] {
            bench.Edit.SetLinePos(0);
            bench.Edit.SetCharPos(0);
            bench.Edit.SetSearchOptions(options);
            Settle();
        });
    if (bench.Edit.GetLinePos() == 0)
        AState.SkipWithError("not found");
}

// 100,000 replacements through the posted messages, as the dialog starts them. `longest_turn_ms` is
// the longest that the event loop was kept from the user.
void BM_ReplaceAll(benchmark::State &AState)
{
    const QByteArray line("  total := total + price[i] * count[i];   // a remark of some length, "
                          "so that a hundred bytes are reached\n");
    const QByteArray text = line.repeated(100'000);
    TBench bench;
    TZtSearchReplaceOptions options;
    options.SearchString = QStringLiteral("price");
    options.SearchForward = true;
    options.Options = TZtSearchFlag::sfDown | TZtSearchFlag::sfMatchCase;
    options.Replace = options.ReplaceAll = true;
    options.ReplaceWith = QStringLiteral("amount");
    bool done = false;
    ZtPlatform().MsgBoxInfo = [&](const QString &, const QString &) { done = true; };
    double longest = 0;
    Measure(
        AState,
        [&] {
            ZtPostMessage(&bench.Edit, quint32(TZtMsg::wmUser) + 3);
            while (!done) {
                const auto start = std::chrono::steady_clock::now();
                QApplication::processEvents();
                const std::chrono::duration<double, std::milli> turn =
                    std::chrono::steady_clock::now() - start;
                longest = std::max(longest, turn.count());
            }
        },
        [&] {
            done = false;
            bench.Edit.GetLines()->SetUtf8Text(text);
            bench.Edit.SetLinePos(0);
            bench.Edit.SetCharPos(0);
            options.WidenTo(*bench.Edit.GetLines());
            bench.Edit.SetSearchOptions(options);
            Settle();
        });
    AState.counters["longest_turn_ms"] = longest;
    ZtPlatform() = ZtDefaultPlatform();
}

BENCHMARK(BM_FullRepaintOf)
    ->DenseRange(0, 4)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(200);
BENCHMARK(BM_FindIn100MB)
    ->DenseRange(0, 2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(BM_ReplaceAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_FullRepaint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_UnchangedRepaint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_PageDown)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_Scroll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_Load100MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_TypeCharacter)
    ->DenseRange(0, 2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(300);
BENCHMARK(BM_Enter)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_Backspace)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(BM_AssistedKey)
    ->DenseRange(0, 1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1000);
BENCHMARK(BM_AssistedEnter)
    ->DenseRange(0, 1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1000);
BENCHMARK(BM_TypeInLongLine)
    ->DenseRange(0, 1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);
BENCHMARK(BM_KeyWithAnchors)
    ->Args({0, 0})
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(300);
BENCHMARK(BM_OverviewRuler)
    ->Arg(0)
    ->Arg(100'000)
    ->Iterations(100)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteAllAndBack)
    ->Args({100, 0})
    ->Args({100, 1})
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_RightColoursAfterAJump)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Paste1MBInto10MB)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
