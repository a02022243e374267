// Measures this project's control and the editors that a user might pick instead on the same tasks,
// off screen, each in a process of its own, and prints one table with the ratios.

#include "peers.h"

#include <QApplication>
#include <QClipboard>
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

const QList<QByteArray> ScriptLines = {
    "function area(width, height) {\n",
    "    var total = width * height + 12;\n",
    "    if (total > 4096) { return \"large\"; }\n",
    "    // the border counts twice, see below\n",
    "    total = total + border[index] * 2;\n",
    "    for (i = 0; i < count; i++) sum(i);\n",
    "    return total / 2.5 - offset(\"x\", 7);\n",
    "} // end of the function, with a remark\n",
};
const QList<QByteArray> MarkupLines = {
    "  <plant id=\"17\" kind=\"bean\">climbs</plant>\n",
    "  <!-- in the shade until the end of May -->\n",
    "  <bed width=\"120\" length='300'/> text &amp; more\n",
};
const QList<QByteArray> QueryLines = {
    "select name, price from stock where id = 12;\n",
    "-- what was lent and has not come back yet\n",
    "update loan set due = @day where book in (1, 2);\n",
};

QByteArray Text(const QList<QByteArray> &ALines, qsizetype ASize, const QByteArray &ALast = {})
{
    QByteArray text;
    text.reserve(ASize + 100);
    for (qsizetype i = 0; text.size() < ASize; ++i)
        text += ALines[i % ALines.size()];
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

    void All()
    {
        Loading();
        Large();
        Pages();
        Editing();
        LongLine();
    }

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
    void Large()
    {
        const int lines = FPeer->LineCount();
        TypeAt("keystroke, top of 100 MB", 0, Qt::Key_X, QStringLiteral("x"));
        TypeAt("Enter, top of 100 MB", 0, Qt::Key_Return, QStringLiteral("\r"));
        // Takes back a break that was typed before.
        FPeer->MoveTo(0, 10);
        Report("Backspace, top of 100 MB",
               Median(
                   50, [&] { FullyPainted(Qt::Key_Backspace, QStringLiteral("\b")); },
                   [&] { Key(Qt::Key_Return, QStringLiteral("\r")); }));
        FPeer->MoveTo(0, 0);
        Settle();
        Report("jump to the end of 100 MB", Milliseconds([&] {
                   FPeer->MoveTo(lines - 1, 0);
                   Settle();
               }));
        TypeAt("keystroke, middle of 100 MB", lines / 2, Qt::Key_X, QStringLiteral("x"));
        TypeAt("keystroke, end of 100 MB", lines - 2, Qt::Key_X, QStringLiteral("x"));
        const QString needle = QLatin1StringView(Needle);
        Find("find, 100 MB, with case", needle, true, false);
        Find("find, 100 MB, without case", needle.toUpper(), false, false);
        Find("find, 100 MB, whole words", needle.toUpper(), false, true);
        Report("colouring 100 MB", Milliseconds([&] { FPeer->ColourAll(); }));
    }
    void TypeAt(const char *ATask, int ALine, int AKey, const QString &AText)
    {
        FPeer->MoveTo(ALine, 10);
        Settle();
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
    void Pages()
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
    void Editing()
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
                                                Open(TLanguage::JavaScript,
                                                     QStringLiteral("10.js"));
                                                FPeer->MoveTo(FPeer->LineCount() / 2, 10);
                                                Settle();
                                            }));
    }
    void LongLine()
    {
        Open(TLanguage::JavaScript, {});
        Report("10 MB line: load", Milliseconds([&] {
                   FPeer->LoadFile(File(QStringLiteral("line.js")));
                   Settle();
               }));
        TypeAt("10 MB line: keystroke", 0, Qt::Key_X, QStringLiteral("x"));
    }

    const TPeerKind &FKind;
    QString FFolder;
    std::unique_ptr<TPeer> FPeer;
};

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
QList<std::pair<QString, double>> MeasurePeer(const QString &AName, const QString &AFolder)
{
    std::fprintf(stderr, "measuring %s ...\n", qPrintable(AName));
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QApplication::applicationFilePath(), {AName, AFolder});
    process.waitForFinished(-1);
    QList<std::pair<QString, double>> values;
    for (const QByteArray &row : process.readAllStandardOutput().split('\n')) {
        const qsizetype tab = row.indexOf('\t');
        if (tab > 0)
            values.append({QString::fromUtf8(row.first(tab)), row.mid(tab + 1).toDouble()});
    }
    return values;
}

int PrintTable(const QString &AFolder)
{
    QList<QMap<QString, double>> columns;
    QStringList tasks;
    std::printf("| task (ms, where nothing else is said) |");
    for (const TPeerKind &peer : Peers()) {
        QMap<QString, double> column;
        for (const auto &[task, value] : MeasurePeer(QLatin1StringView(peer.Name), AFolder)) {
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
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    if (argc == 3) {
        const auto peer = std::find_if(Peers().begin(), Peers().end(), [&](const TPeerKind &kind) {
            return std::string(kind.Name) == argv[1];
        });
        if (peer == Peers().end())
            return 2;
        TRun(*peer, QString::fromLocal8Bit(argv[2])).All();
        return 0;
    }
    const QTemporaryDir folder;
    if (!WriteTexts(folder.path())) {
        std::fprintf(stderr, "compare: cannot write the texts into %s\n",
                     qPrintable(folder.path()));
        return 1;
    }
    return PrintTable(folder.path());
}
