#include "tasks.h"

#include "texts.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QKeyEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

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
    void Marked();

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
    QString File(const QString &AName) const { return FFolder + QLatin1Char('/') + AName; }
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
                                 FPeer->LoadFile(File(QLatin1String(name)));
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
        TypeAt("keystroke, top of 100 MB", 0);
        Split("Enter, top of 100 MB", 0);
        Join("Backspace, top of 100 MB");
        MoveTo(0, 0);
        Report("jump to the end of 100 MB", Milliseconds([&] { MoveTo(lines - 1, 0); }));
        TypeAt("keystroke, middle of 100 MB", lines / 2);
        TypeAt("keystroke, end of 100 MB", lines - 3);
        const QString needle = QLatin1String(Needle);
        Find("find, 100 MB, with case", needle, true, false);
        Find("find, 100 MB, without case", needle.toUpper(), false, false);
        Find("find, 100 MB, whole words", needle.toUpper(), false, true);
        bool coloured = false;
        const double time = Milliseconds([&] { coloured = FPeer->ColourAll(); });
        if (coloured)
            Report("colouring 100 MB", time);
    }
    // Splits lines, one after the other; `Join` joins the first ones again: the page stays one of
    // text.
    void Split(const char *ATask, int ALine)
    {
        int line = ALine - 2;
        Report(ATask, Median(
                          20, [&] { FullyPainted(Qt::Key_Return, QStringLiteral("\r")); },
                          [&] { MoveTo(line += 2, 10); }));
    }
    void Join(const char *ATask)
    {
        int line = 0;
        Report(ATask, Median(
                          20, [&] { FullyPainted(Qt::Key_Backspace, QStringLiteral("\b")); },
                          [&] { MoveTo(++line, 0); }));
    }
    void MoveTo(int ALine, int AColumn)
    {
        FPeer->MoveTo(ALine, AColumn);
        Settle();
    }
    void TypeAt(const char *ATask, int ALine)
    {
        MoveTo(ALine, 10);
        Report(ATask, Median(50, [&] { FullyPainted(Qt::Key_X, QStringLiteral("x")); }));
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
        Open(page.Language, QLatin1String(page.File));
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
        count = FPeer->ReplaceAll(QLatin1String(Needle), QStringLiteral("plainName"));
        Settle();
    });
    if (count < 100'000)
        std::fprintf(stderr, "%s: replaced %d in %.0f ms, the rest is reckoned\n", FKind.Name,
                     count, time);
    Report("replace-all of 100,000 in 10 MB", time * 100'000 / std::max(count, 1));
    QFile pasted(File(QStringLiteral("paste.js")));
    if (pasted.open(QIODevice::ReadOnly))
        QApplication::clipboard()->setText(QString::fromLatin1(pasted.readAll()));
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
    TypeAt("10 MB line: keystroke", 0);
}

void TRun::Marked()
{
    if (!FKind.Own)
        return;
    Open(TLanguage::JavaScript, QStringLiteral("million.js"));
    const int middle = FPeer->LineCount() / 2;
    TypeAt("million lines: keystroke, top", 0);
    Split("million lines: Enter, top", 0);
    TypeAt("million lines: keystroke, middle", middle);
    Split("million lines: Enter, middle", middle);
    Open(TLanguage::JavaScript, QStringLiteral("million.js"));
    FPeer->MarkLines();
    Settle();
    TypeAt("the same marked: keystroke, top", 0);
    Split("the same marked: Enter, top", 0);
    TypeAt("the same marked: keystroke, middle", middle);
    Split("the same marked: Enter, middle", middle);
}

constexpr struct {
    const char *Name;
    void (TRun::*Measure)();
} Groups[] = {{"large", &TRun::Large},
              {"pages", &TRun::Pages},
              {"editing", &TRun::Editing},
              {"line", &TRun::LongLine},
              {"marks", &TRun::Marked}};

} // namespace

void MeasureTasks(const TPeerKind &AKind, const QString &AFolder, const QStringList &AGroups)
{
    TRun run(AKind, AFolder);
    for (const auto &group : Groups)
        if (AGroups.isEmpty() || AGroups.contains(QLatin1String(group.Name)))
            (run.*group.Measure)();
}
