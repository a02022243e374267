// Measures this project's control and the editors that a user might pick instead on the same tasks,
// off screen, each in a process of its own, and prints two tables with the ratios.

#include "tasks.h"
#include "texts.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

// What is measured, and how often.
struct TOrder {
    QString Folder;
    QString KTextEditor; // the program of its own; none when empty
    QStringList Groups;
    int Rounds = 1;
};

// An editor's figures, one of each round for a task.
struct TColumn {
    QString Name;
    TSet Set = TSet::Bare;
    bool Own = false;
    QString Program;
    QStringList Arguments;
    QMap<QString, QList<double>> Figures = {};

    bool Has(const QString &ATask) const { return Figures.contains(ATask); }
    double Median(const QString &ATask) const
    {
        QList<double> figures = Figures.value(ATask);
        if (figures.isEmpty())
            return 0;
        std::sort(figures.begin(), figures.end());
        return figures[figures.size() / 2];
    }
};

QList<TColumn> Columns(const TOrder &AOrder)
{
    QList<TColumn> columns;
    for (const TPeerKind &peer : Peers()) {
        const QString name = QLatin1StringView(peer.Name);
        columns.append({name,
                        peer.Set,
                        peer.Own,
                        QApplication::applicationFilePath(),
                        {QStringLiteral("--peer"), name}});
    }
    if (!AOrder.KTextEditor.isEmpty())
        columns.append(
            {QStringLiteral("KTextEditor"), TSet::Complete, false, AOrder.KTextEditor, {}});
    return columns;
}

// Measures an editor once more, in a process of its own; the tasks get the order in which they
// came.
void Measure(TColumn &AColumn, const TOrder &AOrder, QStringList &ATasks)
{
    std::fprintf(stderr, "measuring %s ...\n", qPrintable(AColumn.Name));
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(AColumn.Program, AColumn.Arguments +
                                       QStringList{QStringLiteral("--texts"), AOrder.Folder} +
                                       AOrder.Groups);
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        std::fprintf(stderr, "%s: ended early, %s\n", qPrintable(AColumn.Name),
                     qPrintable(process.errorString()));
    for (const QByteArray &row : process.readAllStandardOutput().split('\n')) {
        const qsizetype tab = row.indexOf('\t');
        if (tab <= 0)
            continue;
        const QString task = QString::fromUtf8(row.first(tab));
        AColumn.Figures[task].append(row.mid(tab + 1).toDouble());
        if (!ATasks.contains(task))
            ATasks.append(task);
    }
}

// The columns of a set, the peers' with the ratio to the last one of this project.
void PrintTable(const QList<TColumn> &AColumns, const QStringList &ATasks)
{
    QString title = QStringLiteral("| task (ms, where nothing else is said) |");
    QString rule = QStringLiteral("|---|");
    const TColumn *own = nullptr;
    for (const TColumn &column : AColumns) {
        title += QStringLiteral(" %1 |").arg(column.Name);
        title += column.Own ? QString() : QStringLiteral(" ratio |");
        rule += column.Own ? QStringLiteral("---:|") : QStringLiteral("---:|---:|");
        own = column.Own ? &column : own;
    }
    std::printf("\n%s\n%s\n", qPrintable(title), qPrintable(rule));
    for (const QString &task : ATasks) {
        std::printf("| %s |", qPrintable(task));
        for (const TColumn &column : AColumns) {
            const double figure = column.Median(task);
            if (!column.Has(task))
                std::printf(column.Own ? " - |" : " - | - |");
            else if (column.Own)
                std::printf(" %.2f |", figure);
            else
                std::printf(" %.2f | %.3f |", figure, own->Median(task) / figure);
        }
        std::printf("\n");
    }
}

void Compare(const TOrder &AOrder)
{
    QList<TColumn> columns = Columns(AOrder);
    QStringList tasks;
    for (int round = 0; round < AOrder.Rounds; ++round)
        for (TColumn &column : columns)
            Measure(column, AOrder, tasks);
    for (const TSet set : {TSet::Bare, TSet::Complete}) {
        QList<TColumn> some;
        std::copy_if(columns.begin(), columns.end(), std::back_inserter(some),
                     [&](const TColumn &column) { return column.Set == set; });
        PrintTable(some, tasks);
    }
}

int MeasureOne(const QString &AName, const TOrder &AOrder)
{
    const auto kind = std::find_if(Peers().begin(), Peers().end(), [&](const TPeerKind &one) {
        return AName == QLatin1StringView(one.Name);
    });
    if (kind == Peers().end()) {
        std::fprintf(stderr, "compare: there is no editor %s\n", qPrintable(AName));
        return 2;
    }
    MeasureTasks(*kind, AOrder.Folder, AOrder.Groups);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    QCommandLineParser line;
    line.setApplicationDescription(QStringLiteral("Measures editors on the same tasks."));
    line.addHelpOption();
    const QCommandLineOption peer(QStringLiteral("peer"),
                                  QStringLiteral("Measures one editor, without a table."),
                                  QStringLiteral("name"));
    const QCommandLineOption texts(QStringLiteral("texts"),
                                   QStringLiteral("The folder with the texts to measure on."),
                                   QStringLiteral("folder"));
    const QCommandLineOption other(QStringLiteral("ktexteditor"),
                                   QStringLiteral("Measures KTextEditor too, by its program."),
                                   QStringLiteral("path"));
    const QCommandLineOption rounds(
        QStringLiteral("rounds"),
        QStringLiteral("Measures all editors so often, by turns, and takes the medians."),
        QStringLiteral("count"), QStringLiteral("1"));
    line.addOptions({peer, texts, other, rounds});
    line.addPositionalArgument(
        QStringLiteral("groups"),
        QStringLiteral("large, pages, editing, line, marks; all when none is given"),
        QStringLiteral("[groups...]"));
    line.process(app);

    const QTemporaryDir folder;
    const TOrder order{line.isSet(texts) ? line.value(texts) : folder.path(), line.value(other),
                       line.positionalArguments(), std::max(line.value(rounds).toInt(), 1)};
    if (!line.isSet(texts) && !WriteTexts(order.Folder)) {
        std::fprintf(stderr, "compare: cannot write the texts into %s\n", qPrintable(order.Folder));
        return 1;
    }
    if (line.isSet(peer))
        return MeasureOne(line.value(peer), order);
    Compare(order);
    return 0;
}
