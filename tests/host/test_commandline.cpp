#include "CommandLine.h"
#include "session.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

// The exit code, output and errors of ztedit where there is neither a display nor a way to draw.
QString RunZtedit(const QString &AArguments, const QString &AOutput = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"none"_s);
    process.setProcessEnvironment(environment);
    if (!AOutput.isEmpty())
        process.setStandardOutputFile(AOutput);
    process.start(QStringLiteral(ZT_ZTEDIT), AArguments.split(u' ', Qt::SkipEmptyParts));
    EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit);
    return u"%1|%2|%3"_s.arg(process.exitCode())
        .arg(QString::fromUtf8(process.readAllStandardOutput()),
             QString::fromUtf8(process.readAllStandardError()));
}

// What the command line asks for, or "error".
QString Read(const QString &AArguments)
{
    TCommandLine line;
    const auto answer = ZtReadCommandLine((u"ztedit "_s + AArguments).split(u' '), line);
    if (answer)
        return answer->ExitCode == ZtUsageTrouble && !answer->Text.contains(u'\n') ? u"error"_s
                                                                                   : answer->Text;
    QString all = line.Files.join(u' ');
    if (line.Size.isValid())
        all += u" %1x%2"_s.arg(line.Size.width()).arg(line.Size.height());
    all += line.RenderTo.isEmpty() ? QString() : u" to "_s + line.RenderTo;
    all += line.Line ? u" line %1"_s.arg(line.Line) : QString();
    return line.ChoosesDisplay ? all + u" display"_s : all;
}

} // namespace

TEST(CommandLine, OptionsAndFilesComeInAnyOrder)
{
    for (const char *wrong :
         {"--nonsense", "--size 12", "--size 0x5", "--size 5x99999", "--size=axb", "--line 0",
          "--line x", "--render", "--render ", "a -platform", "-reverse=1", "-strange"})
        EXPECT_EQ(Read(QString::fromLatin1(wrong)), u"error"_s) << wrong;
    const std::pair<const char *, const char *> rows[] = {
        {"a.pas --size 30x20 b --line=7 --render o.png -- -x", "a.pas b -x 30x20 to o.png line 7"},
        {"a -style fusion b", "a b"}, // Qt's own options are left to Qt
        {"--style=fusion a -stylesheet=x", "a"},
        {"-reverse a -qwindowtitle t -platform xcb", "a display"},
        {"-display :3", " display"},
        {"-- -reverse --style", "-reverse --style"},
    };
    for (const auto &[arguments, line] : rows)
        EXPECT_EQ(Read(QString::fromLatin1(arguments)), QLatin1StringView(line));
}

TEST(CommandLine, TokensAreALineEachInTheLanguageOfTheFile)
{
    THostSession session;
    session.Do(u"write:a.BAS=sub%20A'%20%C3%A4%09%0D%0Ax%0A"_s);
    EXPECT_EQ(RunZtedit(u"--tokens "_s + session.Path(u"a.BAS"_s)),
              u"0|1:1 vtSub 1 \"sub\"\n"
              "1:4 vtUnknown 0 \" \"\n"
              "1:5 vtIdentifier 4 \"A\"\n"
              "1:6 vtComment 3 \"' \u00E4\\t\"\n"
              "1:10 vtLineBreak 0 \"\\r\"\n"
              "2:1 vtIdentifier 4 \"x\"\n"
              "2:2 vtLineBreak 0 \"\\r\"\n"
              "3:1 vtEndOfFile 0 \"\\u0000\"\n|"_s);
}

TEST(CommandLine, TokensThatCannotBeShownAreAnError)
{
    THostSession session;
    session.Do(u"write:a.txt=a write:a.js=a"_s);
    const struct {
        const char *Arguments;
        int ExitCode;
        const char *Error;
    } rows[] = {
        {"~/none.js", 1, "none.js"},
        {"~/a.txt", 1, "a.txt"},
        {"~", 1, "directory"},
        {"", 2, "--tokens"},
        {"~/a.js ~/a.js", 2, "--tokens"},
        {"~/none.js -style fusion", 1, "none.js"},
        {"~/a.js -style", 2, "-style"},
        {"~/a.js --render o.png", 2, "--tokens"},
    };
    for (const auto &row : rows) {
        const QString arguments = QString::fromLatin1(row.Arguments);
        const QString run =
            RunZtedit(u"--tokens "_s + QString(arguments).replace(u'~', session.Folder.path()));
        EXPECT_TRUE(run.startsWith(u"%1||ztedit: "_s.arg(row.ExitCode)) &&
                    run.contains(QLatin1StringView(row.Error)) && run.count(u'\n') == 1)
            << row.Arguments << run.toStdString();
    }
    EXPECT_EQ(RunZtedit(u"--tokens "_s + session.Path(u"a.js"_s), u"/dev/full"_s)[0], u'1');
}
