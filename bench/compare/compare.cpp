// Measures this project's control and the editors that a user might pick instead on the same tasks,
// off screen, each in a process of its own, and prints one table with the ratios.

#include "peers.h"

#include <QApplication>
#include <QClipboard>
#include <QCommandLineParser>
#include <QFile>
#include <QKeyEvent>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

constexpr qsizetype Megabyte = 1'000'000;
constexpr char Needle[] = "quiteUnusualName";

// --- texts ---------------------------------------------------------------------------------------

// The lines' numbers take the place of "#": no two lines are alike, as in a text that someone
// wrote.
const QList<QByteArray> ScriptLines = {
    "function area#(width, height) {\n",
    "    var total = width * height + #;\n",
    "    if (total > #) { return \"large\"; }\n",
    "    // border # counts twice, see below\n",
    "    total = total + border[#] * 2;\n",
    "    for (i = #; i < n; i++) sum(i);\n",
    "    return total / 2.5 - offset(\"x\", #);\n",
    "} // end of function #, with a remark\n",
};
const QList<QByteArray> MarkupLines = {
    "  <plant id=\"#\" kind=\"bean\">climbs</plant>\n",
    "  <!-- bed # in the shade until the end of May -->\n",
    "  <bed width=\"#\" length='300'/> text &amp; more\n",
};
const QList<QByteArray> QueryLines = {
    "select name, price from stock where id = #;\n",
    "-- what was lent to # and has not come back yet\n",
    "update loan set due = @day where book in (1, #);\n",
};

QByteArray Text(const QList<QByteArray> &ALines, qsizetype ASize, const QByteArray &ALast = {})
{
    QByteArray text;
    text.reserve(ASize + 100);
    for (qsizetype i = 0; text.size() < ASize; ++i) {
        const QByteArray &line = ALines[i % ALines.size()];
        const qsizetype number = line.indexOf('#');
        text += line.first(number) + QByteArray::number(i) + line.sliced(number + 1);
    }
    return text + ALast;
}

// Ten megabytes in which a word stands 100,000 times.
QByteArray ReplaceText()
{
    QByteArray text;
    for (int i = 0; i < 100'000; ++i) {
        text += "    var quiteUnusualName = other + 12 * price;\n";
        text += "    // nothing to be replaced here, as the remark says\n";
    }
    return text;
}

// --- measuring -----------------------------------------------------------------------------------

void Settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

template <typename TRound> double Milliseconds(TRound ARound)
{
    const auto start = std::chrono::steady_clock::now();
    ARound();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

// The median of up to `ARounds` rounds; rounds that take seconds are not repeated as often.
template <typename TRound, typename TPrepare>
double Median(int ARounds, TRound ARound, TPrepare APrepare)
{
    std::vector<double> times;
    double sum = 0;
    for (int i = 0; i < ARounds && (i < 3 || sum < 8000); ++i) {
        APrepare();
        times.push_back(Milliseconds(ARound));
        sum += times.back();
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

template <typename TRound> double Median(int ARounds, TRound ARound)
{
    return Median(ARounds, ARound, [] {});
}

double ResidentMegabytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS", 0) == 0)
            return std::stod(line.substr(line.find(':') + 1)) / 1000;
    return 0;
}

void Report(const char *ATask, double AValue)
{
    std::printf("%s\t%.4f\n", ATask, AValue);
    std::fflush(stdout);
}

class TRun {
public:
    TRun(const TPeerKind &AKind, const QString &AFolder) : FKind(AKind), FFolder(AFolder) {}

    void Large()
    {
        Loading();
        LargeText();
    }
    void Pages();
    void Editing();
    void LongLine();

private:
    void Open(TLanguage ALanguage, const QString &AFile)
    {
        FPeer.reset();
        FPeer = FKind.Create();
        FPeer->SetLanguage(ALanguage);
        FPeer->Widget()->resize(1280, 800);
        FPeer->Widget()->show();
        FPeer->Widget()->activateWindow();
        FPeer->KeyTarget()->setFocus();
        Settle();
        if (!AFile.isEmpty())
            FPeer->LoadFile(File(AFile));
        Settle();
    }
    QString File(const QString &AName) const { return FFolder + u'/' + AName; }
    void Key(int AKey, const QString &AText = {})
    {
        QKeyEvent event(QEvent::KeyPress, AKey, Qt::NoModifier, AText);
        QApplication::sendEvent(FPeer->KeyTarget(), &event);
        Settle();
    }

    // A key with a paint of the whole text area, whatever part the editor itself would ask for.
    void FullyPainted(int AKey, const QString &AText)
    {
        QKeyEvent event(QEvent::KeyPress, AKey, Qt::NoModifier, AText);
        QApplication::sendEvent(FPeer->KeyTarget(), &event);
        FPeer->RepaintUnchanged();
        Settle();
    }

    void Loading()
    {
        const std::pair<const char *, const char *> files[] = {{"load 1 MB", "1.js"},
                                                               {"load 10 MB", "10.js"}};
        for (const auto &[task, name] : files) {
            Report(task, Median(
                             5,
                             [&] {
                                 FPeer->LoadFile(File(QLatin1StringView(name)));
                                 Settle();
                             },
                             [&] { Open(TLanguage::JavaScript, {}); }));
        }
        Open(TLanguage::JavaScript, {});
        const double before = ResidentMegabytes();
        Report("load 100 MB", Milliseconds([&] {
                   FPeer->LoadFile(File(QStringLiteral("100.js")));
                   Settle();
               }));
        Report("memory after 100 MB (MB)", ResidentMegabytes() - before);
    }
    // On the 100 MB that are loaded.
    void LargeText()
    {
        const int lines = FPeer->LineCount();
        TypeAt("keystroke, top of 100 MB", 0, Qt::Key_X, QStringLiteral("x"));
        SplitAndJoin();
        MoveTo(0, 0);
        Report("jump to the end of 100 MB", Milliseconds([&] { MoveTo(lines - 1, 0); }));
        TypeAt("keystroke, middle of 100 MB", lines / 2, Qt::Key_X, QStringLiteral("x"));
        TypeAt("keystroke, end of 100 MB", lines - 3, Qt::Key_X, QStringLiteral("x"));
        const QString needle = QLatin1StringView(Needle);
        Find("find, 100 MB, with case", needle, true, false);
        Find("find, 100 MB, without case", needle.toUpper(), false, false);
        Find("find, 100 MB, whole words", needle.toUpper(), false, true);
        Report("colouring 100 MB", Milliseconds([&] { FPeer->ColourAll(); }));
    }
    // Splits the first lines, one after the other, and joins them again: the page stays one of
    // text.
    void SplitAndJoin()
    {
        constexpr int rounds = 20;
        int line = -2;
        Report("Enter, top of 100 MB",
               Median(
                   rounds, [&] { FullyPainted(Qt::Key_Return, QStringLiteral("\r")); },
                   [&] { MoveTo(line += 2, 10); }));
        line = 0;
        Report("Backspace, top of 100 MB",
               Median(
                   rounds, [&] { FullyPainted(Qt::Key_Backspace, QStringLiteral("\b")); },
                   [&] { MoveTo(++line, 0); }));
    }
    void MoveTo(int ALine, int AColumn)
    {
        FPeer->MoveTo(ALine, AColumn);
        Settle();
    }
    void TypeAt(const char *ATask, int ALine, int AKey, const QString &AText)
    {
        MoveTo(ALine, 10);
        Report(ATask, Median(50, [&] { FullyPainted(AKey, AText); }));
    }
    void Find(const char *ATask, const QString &S, bool ACase, bool AWholeWords)
    {
        bool found = false;
        const double time = Median(3, [&] { found = FPeer->Find(S, ACase, AWholeWords); });
        Settle();
        if (!found)
            std::fprintf(stderr, "%s: nothing found\n", ATask);
        Report(ATask, time);
    }

    const TPeerKind &FKind;
    QString FFolder;
    std::unique_ptr<TPeer> FPeer;
};

void TRun::Pages()
{
    struct TPage {
        const char *Task;
        TLanguage Language;
        const char *File;
    };
    const TPage pages[] = {{"Page Down, JavaScript", TLanguage::JavaScript, "1.js"},
                           {"Page Down, XML", TLanguage::Xml, "1.xml"},
                           {"Page Down, SQL", TLanguage::Sql, "1.sql"}};
    for (const TPage &page : pages) {
        Open(page.Language, QLatin1StringView(page.File));
        Report(page.Task, Median(200, [&] { Key(Qt::Key_PageDown); }));
    }
    Open(TLanguage::JavaScript, QStringLiteral("1.js"));
    Report("repaint, unchanged page", Median(200, [&] {
               FPeer->RepaintUnchanged();
               Settle();
           }));
}

void TRun::Editing()
{
    Open(TLanguage::JavaScript, QStringLiteral("replace.js"));
    int count = 0;
    const double time = Milliseconds([&] {
        count = FPeer->ReplaceAll(QLatin1StringView(Needle), QStringLiteral("plainName"));
        Settle();
    });
    if (count < 100'000)
        std::fprintf(stderr, "%s: replaced %d in %.0f ms, the rest is reckoned\n", FKind.Name,
                     count, time);
    Report("replace-all of 100,000 in 10 MB", time * 100'000 / std::max(count, 1));
    QApplication::clipboard()->setText(QString::fromLatin1(Text(ScriptLines, Megabyte)));
    Report("paste 1 MB into 10 MB", Median(
                                        3,
                                        [&] {
                                            FPeer->Paste();
                                            Settle();
                                        },
                                        [&] {
                                            Open(TLanguage::JavaScript, QStringLiteral("10.js"));
                                            FPeer->MoveTo(FPeer->LineCount() / 2, 10);
                                            Settle();
                                        }));
}

void TRun::LongLine()
{
    Open(TLanguage::JavaScript, {});
    Report("10 MB line: load", Milliseconds([&] {
               FPeer->LoadFile(File(QStringLiteral("line.js")));
               Settle();
           }));
    TypeAt("10 MB line: keystroke", 0, Qt::Key_X, QStringLiteral("x"));
}

constexpr struct {
    const char *Name;
    void (TRun::*Measure)();
} Groups[] = {{"large", &TRun::Large},
              {"pages", &TRun::Pages},
              {"editing", &TRun::Editing},
              {"line", &TRun::LongLine}};

// --- the table -----------------------------------------------------------------------------------

bool WriteFile(const QString &AName, const QByteArray &AText)
{
    QFile file(AName);
    return file.open(QIODevice::WriteOnly) && file.write(AText) == AText.size();
}

bool WriteTexts(const QString &AFolder)
{
    const QByteArray last = QByteArray("var ") + Needle + " = 1;\n";
    QByteArray line = Text(ScriptLines, 10 * Megabyte);
    line.replace('\n', ' ');
    line.replace("//", "  ");
    return WriteFile(AFolder + QStringLiteral("/1.js"), Text(ScriptLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/10.js"), Text(ScriptLines, 10 * Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/100.js"),
                     Text(ScriptLines, 100 * Megabyte, last)) &&
           WriteFile(AFolder + QStringLiteral("/1.xml"), Text(MarkupLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/1.sql"), Text(QueryLines, Megabyte)) &&
           WriteFile(AFolder + QStringLiteral("/replace.js"), ReplaceText()) &&
           WriteFile(AFolder + QStringLiteral("/line.js"), line);
}

// The tasks of one editor, measured in a process of its own, in the order in which they came.
QList<std::pair<QString, double>> MeasurePeer(const QString &AName, const QString &AFolder,
                                              const QStringList &AGroups)
{
    std::fprintf(stderr, "measuring %s ...\n", qPrintable(AName));
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QApplication::applicationFilePath(),
                  QStringList{QStringLiteral("--peer"), AName, QStringLiteral("--texts"), AFolder} +
                      AGroups);
    process.waitForFinished(-1);
    QList<std::pair<QString, double>> values;
    for (const QByteArray &row : process.readAllStandardOutput().split('\n')) {
        const qsizetype tab = row.indexOf('\t');
        if (tab > 0)
            values.append({QString::fromUtf8(row.first(tab)), row.mid(tab + 1).toDouble()});
    }
    return values;
}

void PrintTable(const QString &AFolder, const QStringList &AGroups)
{
    QList<QMap<QString, double>> columns;
    QStringList tasks;
    std::printf("| task (ms, where nothing else is said) |");
    for (const TPeerKind &peer : Peers()) {
        QMap<QString, double> column;
        for (const auto &[task, value] :
             MeasurePeer(QLatin1StringView(peer.Name), AFolder, AGroups)) {
            column.insert(task, value);
            if (!tasks.contains(task))
                tasks.append(task);
        }
        columns.append(column);
        std::printf(" %s |%s", peer.Name, columns.size() > 1 ? " ratio |" : "");
    }
    std::printf("\n|---|");
    for (qsizetype i = 0; i < columns.size(); ++i)
        std::printf(i ? "---:|---:|" : "---:|");
    std::printf("\n");
    for (const QString &task : tasks) {
        const double own = columns.front().value(task);
        std::printf("| %s | %.2f |", qPrintable(task), own);
        for (qsizetype i = 1; i < columns.size(); ++i) {
            if (columns[i].contains(task))
                std::printf(" %.2f | %.3f |", columns[i][task], own / columns[i][task]);
            else
                std::printf(" - | - |");
        }
        std::printf("\n");
    }
}

void Measure(const TPeerKind &AKind, const QString &AFolder, const QStringList &AGroups)
{
    TRun run(AKind, AFolder);
    for (const auto &group : Groups)
        if (AGroups.isEmpty() || AGroups.contains(QLatin1StringView(group.Name)))
            (run.*group.Measure)();
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
    line.addOptions({peer, texts});
    line.addPositionalArgument(
        QStringLiteral("groups"),
        QStringLiteral("large, pages, editing, line; all when none is given"),
        QStringLiteral("[groups...]"));
    line.process(app);

    const QTemporaryDir folder;
    const QString written = line.isSet(texts) ? line.value(texts) : folder.path();
    if (!line.isSet(texts) && !WriteTexts(written)) {
        std::fprintf(stderr, "compare: cannot write the texts into %s\n", qPrintable(written));
        return 1;
    }
    if (!line.isSet(peer)) {
        PrintTable(written, line.positionalArguments());
        return 0;
    }
    const auto kind = std::find_if(Peers().begin(), Peers().end(), [&](const TPeerKind &one) {
        return line.value(peer) == QLatin1StringView(one.Name);
    });
    if (kind == Peers().end()) {
        std::fprintf(stderr, "compare: there is no editor %s\n", qPrintable(line.value(peer)));
        return 2;
    }
    Measure(*kind, written, line.positionalArguments());
    return 0;
}
