#include "uZtHtmlExport.h"
#include "uZtStringList.h"
#include "uZtTextPrinter.h"
#include "uZtTokenDump.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

namespace {

// Takes all and keeps nothing.
class TSink : public QIODevice {
public:
    TSink() { open(QIODevice::WriteOnly); }
    qint64 Written = 0;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 ALength) override
    {
        Written += ALength;
        return ALength;
    }
};

// So many lines of the Pascal examples, again and again.
struct TSetup {
    explicit TSetup(qint64 ALines)
        : Parser(ZtTokenLanguageOf(QStringLiteral("a.pas"))->CreateParser())
    {
        const QDir folder(QStringLiteral(ZT_SOURCE_DIR "/examples/pascal"));
        QByteArray once;
        for (const QString &name : folder.entryList(QDir::Files)) {
            QFile file(folder.filePath(name));
            if (file.open(QIODevice::ReadOnly))
                once += file.readAll();
        }
        Text.SetUtf8Text(once.repeated(ALines / once.count('\n') + 1));
        Part = {&Text,
                Parser.get(),
                TZtColorScheme::Find(QStringLiteral("Light")),
                {},
                QPoint(0, int(ALines))};
    }
    TStringList Text;
    std::unique_ptr<TZtLangParser> Parser;
    TZtColouredText Part;
};

void Print(benchmark::State &AState)
{
    const TSetup setup(AState.range(0));
    TSink sink;
    QPdfWriter writer(&sink);
    int pages = 0;
    for (auto round : AState) {
        TZtTextPrinter printer(setup.Part, {4, true, true}, {});
        if (!printer.Print(writer))
            AState.SkipWithError("not printed");
        pages = printer.PageCount(writer);
    }
    AState.counters["pages"] = pages;
    AState.counters["bytes"] = double(sink.Written);
}

void CountPages(benchmark::State &AState)
{
    const TSetup setup(AState.range(0));
    TSink sink;
    const QPdfWriter writer(&sink);
    for (auto round : AState)
        benchmark::DoNotOptimize(TZtTextPrinter(setup.Part, {4, true, true}, {}).PageCount(writer));
}

void WriteHtml(benchmark::State &AState)
{
    const TSetup setup(AState.range(0));
    TSink sink;
    for (auto round : AState)
        ZtWriteHtml(sink, setup.Part, {});
    AState.counters["bytes"] = double(sink.Written) / double(AState.iterations());
}

BENCHMARK(Print)->Arg(10'000)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CountPages)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteHtml)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
