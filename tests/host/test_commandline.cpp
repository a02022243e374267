#include "CommandLine.h"
#include "session.h"

#include "uZtTranslation.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

// The exit code, output and errors of ztedit where there is neither a display nor a way to draw,
// for a user of that language.
QString RunZtedit(const QString &AArguments, const QString &ALanguage = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"none"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"LANGUAGE"_s, ALanguage);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZT_ZTEDIT), AArguments.split(u' ', Qt::SkipEmptyParts));
    EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit);
    return u"%1|%2|%3"_s.arg(process.exitCode())
        .arg(QString::fromUtf8(process.readAllStandardOutput()),
             QString::fromUtf8(process.readAllStandardError()));
}

// What the command line asks for, or "error".
QString Read(const char *AArguments)
{
    TCommandLine line;
    const QStringList arguments = (u"ztedit "_s + QLatin1StringView(AArguments)).split(u' ');
    if (const auto answer = ZtReadCommandLine(arguments, line))
        return answer->ExitCode == ZtUsageTrouble ? u"error"_s : answer->Text;
    QString places = QString::number(line.Line);
    if (line.Column > 0)
        places += u':' + QString::number(line.Column);
    for (const int bookmark : line.Bookmarks)
        places += u" marked "_s + QString::number(bookmark);
    return u"%1 %2x%3 to %4 line %5"_s.arg(line.Files.join(u' '))
               .arg(line.Size.width())
               .arg(line.Size.height())
               .arg(line.RenderTo)
               .arg(places) +
           (line.Scheme.isEmpty() ? QString() : u" in "_s + line.Scheme) +
           (line.Diagnostics.isEmpty() ? QString() : u" with "_s + line.Diagnostics) +
           (line.ChoosesDisplay ? u" display"_s : QString());
}

} // namespace

TEST(CommandLine, OptionsAndFilesComeInAnyOrder)
{
    for (const char *wrong :
         {"--nonsense", "--size 0x5", "--size 5x99999", "--size=axb", "--line 0", "--line x",
          "--line 3:0", "--line 3:x", "--line :3", "--bookmark 3:1", "--bookmark 1 --bookmark 0",
          "--diagnostics ", "--render ", "a -platform", "-reverse=1"})
        EXPECT_EQ(Read(wrong), u"error"_s) << wrong;
    EXPECT_EQ(Read("a.pas --size 30x20 b --line=7 --render o.png -- -x"),
              u"a.pas b -x 30x20 to o.png line 7"_s);
    EXPECT_EQ(Read("--scheme dark"), u" -1x-1 to  line 0 in Dark"_s);
    EXPECT_EQ(Read("--line 12:5 --bookmark 3 --bookmark=4 --diagnostics d"),
              u" -1x-1 to  line 12:5 marked 3 marked 4 with d"_s);
    // Qt's own options are left to Qt.
    EXPECT_EQ(Read("-reverse a --style=fusion -qwindowtitle t -platform xcb -- -reverse"),
              u"a -reverse -1x-1 to  line 0 display"_s);
}

TEST(CommandLine, TokensAndSamplesAreMadeOrAnError)
{
    THostSession session;
    session.Do(u"write:a.BAS=sub%0D%0A'%C3%A4 write:a.txt=a write:a.js=a "
               "write:b.sql=--;%0ACREATE%20TABLE%20t(f); link:c.sql=b.sql link:c=d "
               "write:e.sql=CREATE%20TABLE%20t(f);NO;"_s);
    const struct {
        const char *Arguments, *Start, *Holds;
    } rows[] = {
        {"--tokens ~/a.BAS", "0|1:1 vtSub 1 \"sub\"\n", "2:1 vtComment 3 \"'\u00E4\"\n"},
        {"--tokens ~/none.js", "1||ztedit: ", "none.js"},
        {"--tokens ~/a.txt", "1||ztedit: ", "a.txt"},
        {"--tokens ~", "1||ztedit: ", "directory"},
        {"--tokens ~/a.js ~/a.js", "2||ztedit: ", "--tokens"},
        {"--scheme pink", "2||ztedit: ", "Desktop, Classic, Light, Dark"},
        {"--scheme ~/a.js", "1||ztedit: ", "a.js:1:1"},
        {"--tokens ~/a.js -style", "2||ztedit: ", "-style"},
        {"--render ~/o.png --diagnostics ~/none ~/a.js", "1||ztedit: ", "none"},
        {"--print ~/o.pdf ~/a.js", "0|", "o.pdf is written"},
        {"--html ~/o.html --scheme dark ~/a.js", "0|", "o.html is written"},
        {"--print ~/none/o.pdf ~/a.js", "1||ztedit: ", "none/o.pdf"},
        {"--html ~/p.html ~/none.js", "1||ztedit: ", "none.js"},
        {"--print ~/p.pdf", "2||ztedit: ", "--print wants one file"},
        {"--print ~/p.pdf ~/a.js ~/a.txt", "2||ztedit: ", "--print wants one file"},
        {"--print ~/p.pdf --html ~/p.html ~/a.js", "2||ztedit: ", "Only one"},
        {"--make-sample ~/b", "0|", "is made"},
        {"--make-sample ~/b", "1||ztedit: ", "there already"},
        {"--make-sample ~/c", "1||ztedit: ", "there already"},
        {"--make-sample ~/e", "1||ztedit: ", "NO"},
    };
    for (const auto &row : rows) {
        const QString run = RunZtedit(QString(row.Arguments).replace(u'~', session.Folder.path()));
        EXPECT_TRUE(run.startsWith(QLatin1StringView(row.Start)) &&
                    run.contains(QString::fromUtf8(row.Holds)))
            << row.Arguments << run.toStdString();
    }
    EXPECT_EQ(session.Do(u"names"_s), u"a.BAS,a.js,a.txt,b,b.sql,c.sql@,c@,e.sql,o.html,o.pdf"_s);
    QFile html(session.Path(u"o.html"_s));
    EXPECT_TRUE(html.open(QIODevice::ReadOnly) && html.readAll().contains("<title>a.js</title>"));
}

TEST(CommandLine, AnswersInTheUsersLanguage)
{
    if (ZtTranslatedLanguages().size() == 1)
        GTEST_SKIP() << "there is English alone";
    const struct {
        const char *Language, *Arguments, *Holds;
    } rows[] = {
        {"fr:de", "--bookmark 0", "à partir de 1"},
        {"sv:de_AT", "--bookmark 0", "ab 1"},
        {"en_GB:de", "--bookmark 0", "from 1"},
        {"sv", "--bookmark 0", "from 1"},
        {"fr", "--language nl --bookmark 0", "vanaf 1"},
        {"fr", "--bookmark 0 --language=en", "from 1"},
        {"de", "--language xx", "de, en, es, fr, nl, nicht „xx“"},
        {"es", "--help", "Mostrar esta ayuda y salir"},
    };
    for (const auto &row : rows) {
        const QString run =
            RunZtedit(QString::fromUtf8(row.Arguments), QString::fromUtf8(row.Language));
        EXPECT_TRUE(run.contains(QString::fromUtf8(row.Holds)))
            << row.Arguments << run.toStdString();
    }
}
