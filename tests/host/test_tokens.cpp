#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TRun {
    int ExitCode;
    QByteArray Output;
    QByteArray Errors;
};

// Runs ztedit where there is neither a display nor a way to draw.
TRun RunZtedit(const QStringList &AArguments, const QString &AOutput = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"none"_s);
    process.setProcessEnvironment(environment);
    if (!AOutput.isEmpty())
        process.setStandardOutputFile(AOutput);
    process.start(QStringLiteral(ZT_ZTEDIT), AArguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QString Make(const QTemporaryDir &AFolder, const QString &AName, const QByteArray &ABytes)
{
    QFile file(AFolder.filePath(AName));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(ABytes);
    return file.fileName();
}

} // namespace

TEST(Tokens, OneLineATokenInTheLanguageOfTheFile)
{
    const QTemporaryDir folder;
    const QByteArray text = "sub A(B) ' \xC3\xA4\t\r\nx\n";
    const TRun run = RunZtedit({u"--tokens"_s, Make(folder, u"a.BAS"_s, text)});
    EXPECT_EQ(run.ExitCode, 0) << run.Errors.toStdString();
    EXPECT_EQ(run.Output.toStdString(), "1:1 vtSub 1 \"sub\"\n"
                                        "1:4 vtUnknown 0 \" \"\n"
                                        "1:5 vtIdentifier 4 \"A\"\n"
                                        "1:6 vtOpenParen 6 \"(\"\n"
                                        "1:7 vtIdentifier 4 \"B\"\n"
                                        "1:8 vtCloseParen 6 \")\"\n"
                                        "1:9 vtUnknown 0 \" \"\n"
                                        "1:10 vtComment 3 \"' \u00E4\\t\"\n"
                                        "1:14 vtLineBreak 0 \"\\r\"\n"
                                        "2:1 vtIdentifier 4 \"x\"\n"
                                        "2:2 vtLineBreak 0 \"\\r\"\n"
                                        "3:1 vtEndOfFile 0 \"\\u0000\"\n");
}

TEST(Tokens, WhatCannotBeShownIsAnError)
{
    const QTemporaryDir folder;
    const QString text = Make(folder, u"a.txt"_s, "a\n");
    const QString script = Make(folder, u"a.js"_s, "a\n");
    const QString none = folder.filePath(u"none.js"_s);
    const struct {
        QStringList Arguments;
        int ExitCode;
        const char *Error;
    } rows[] = {
        {{none}, 1, "none.js"},
        {{text}, 1, "a.txt"},
        {{folder.path()}, 1, "directory"},
        {{}, 2, "--tokens"},
        {{script, script}, 2, "--tokens"},
        {{none, u"-style"_s, u"fusion"_s}, 1, "none.js"},
        {{script, u"-style"_s}, 2, "-style"},
        {{script, u"--render"_s, u"o.png"_s}, 2, "--tokens"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Arguments.join(u' ').toStdString());
        const TRun run = RunZtedit(QStringList{u"--tokens"_s} + row.Arguments);
        EXPECT_EQ(run.ExitCode, row.ExitCode);
        EXPECT_TRUE(run.Output.isEmpty());
        EXPECT_TRUE(run.Errors.startsWith("ztedit: ") && run.Errors.contains(row.Error) &&
                    run.Errors.count('\n') == 1)
            << run.Errors.toStdString();
    }
    EXPECT_EQ(RunZtedit({u"--tokens"_s, script}, u"/dev/full"_s).ExitCode, 1);
}
