#include "CommandLine.h"
#include "DbConnection.h"
#include "DbDocument.h"
#include "Document.h"
#include "FileStore.h"
#include "JournalFlow.h"
#include "MainWindow.h"
#include "PrintFlow.h"
#include "Tokens.h"
#include "UiLanguage.h"
#include "ViewMenu.h"

#include "uZtException.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QScreen>
#include <QTemporaryFile>

#include <cstdio>

namespace {

void PrintLine(FILE *ATo, const QString &AText)
{
    std::fprintf(ATo, "%s\n", AText.trimmed().toLocal8Bit().constData());
}

int Fail(const QString &AText, int AExitCode)
{
    PrintLine(stderr, QStringLiteral("ztedit: ") + AText);
    return AExitCode;
}

bool HasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Whether somebody sees the window, who can be asked.
bool IsOnDisplay(bool AOffScreen)
{
    static const QStringList blind{QStringLiteral("offscreen"), QStringLiteral("minimal")};
    return !AOffScreen && !blind.contains(QGuiApplication::platformName());
}

// On a machine without a login session Qt remarks on a folder that nothing here uses. All else that
// it has to say goes on to where it went.
QtMessageHandler OuterHandler = nullptr;

void HandleMessage(QtMsgType AType, const QMessageLogContext &AContext, const QString &AText)
{
    if (!AText.startsWith(QLatin1StringView("QStandardPaths: XDG_RUNTIME_DIR not set")))
        OuterHandler(AType, AContext, AText);
}

// A new file for the picture of a machine without a display.
QString NewPictureName()
{
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/ztedit-XXXXXX.png"));
    file.setAutoRemove(false);
    if (!file.open())
        throw EStreamError(QCoreApplication::translate("main", "Cannot make a file in \"%1\": %2.")
                               .arg(QDir::tempPath(), file.errorString()));
    return file.fileName();
}

// Shows the window as the command line wants it. The caret comes last: what is in view around it
// depends on the size.
void Show(TMainWindow &AWindow, const TCommandLine &ALine)
{
    if (ALine.Size.isValid())
        AWindow.resize(ALine.Size);
    AWindow.show();
    QCoreApplication::processEvents();
    TDocument *document = ALine.Files.isEmpty() ? AWindow.CurrentDocument()
                                                : AWindow.DocumentOf(ALine.Files.constFirst());
    if (!document)
        return;
    for (const int line : ALine.Bookmarks)
        document->SetBookmark(line);
    if (ALine.Line > 0)
        document->GoToLine(ALine.Line, std::max(ALine.Column, 1));
}

void Render(TMainWindow &AWindow, const TCommandLine &ALine)
{
    // The picture has the size that was asked for, also when the menus do not fit.
    AWindow.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    Show(AWindow, ALine);
    for (int i = 0; i < 3; ++i) // the heights of the status bar's rows follow one after the other
        QCoreApplication::processEvents();
    QByteArray picture;
    QBuffer buffer(&picture);
    AWindow.grab().save(&buffer, "PNG");
    const QString path = ALine.RenderTo.isEmpty() ? NewPictureName() : ALine.RenderTo;
    if (ZtMayOnlyReplace(path))
        throw EStreamError(
            QCoreApplication::translate("main", "You have no right to write \"%1\".").arg(path));
    ZtSaveFile(path, picture);
    PrintLine(stdout, QCoreApplication::translate("main", "The window is drawn in %1")
                          .arg(QFileInfo(path).absoluteFilePath()));
}

// Writes what is wanted of the one document.
void WriteOut(TDocument &ADocument, const TCommandLine &ALine)
{
    const QString path = ALine.PrintTo.isEmpty() ? ALine.HtmlTo : ALine.PrintTo;
    if (ZtMayOnlyReplace(path))
        throw EStreamError(
            QCoreApplication::translate("main", "You have no right to write \"%1\".").arg(path));
    if (ALine.PrintTo.isEmpty())
        ZtWriteHtmlTo(ADocument, path, false);
    else
        ZtPrintTo(ADocument, path);
    PrintLine(stdout, QCoreApplication::translate("main", "%1 is written")
                          .arg(QFileInfo(path).absoluteFilePath()));
}

int MakeSample(const QString &APath)
{
    try {
        ZtMakeSample(APath);
        PrintLine(stdout, QCoreApplication::translate("main", "%1 is made").arg(APath));
        return 0;
    } catch (...) {
        return Fail(ZtCurrentExceptionMessage(), ZtFileTrouble);
    }
}

int PrintTokens(const QString &AFile)
{
    try {
        ZtPrintTokens(AFile, stdout);
        return 0;
    } catch (...) {
        return Fail(ZtCurrentExceptionMessage(), ZtFileTrouble);
    }
}

// Nobody would see a box: what it says is printed, and a question has no answer.
void PrintMessages()
{
    ZtPlatform().MsgBoxError = [](const QString &text, const QString &) { Fail(text, 0); };
    ZtPlatform().MsgBoxConfirm = [](const QString &text, const QString &) {
        Fail(text, 0);
        return mrCancel;
    };
}

// For a picture every file has to be there. A user may want to begin one, and can be told about
// those that cannot be read: answers what.
QStringList OpenAll(TMainWindow &AWindow, const TCommandLine &ALine, bool AOffScreen)
{
    QStringList messages;
    if (AOffScreen)
        for (const QString &file : ALine.Files)
            AWindow.OpenFile(file);
    else
        messages = AWindow.OpenEach(ALine.Files, &TMainWindow::OpenOrBegin);
    try {
        if (!ALine.Diagnostics.isEmpty())
            AWindow.LoadDiagnostics(ALine.Diagnostics);
    } catch (const EStreamError &error) {
        if (AOffScreen)
            throw;
        messages += error.Message();
    }
    if (!ALine.Database.File.isEmpty())
        AWindow.OpenDatabase(ALine.Database);
    if (AWindow.DocumentCount() == 0)
        AWindow.NewDocument();
    AWindow.ShowDocument(0);
    return messages;
}

// A picture is the same on every machine, whatever somebody has chosen there.
void ChooseView(TViewMenu &AView, const TCommandLine &ALine, bool AOnDisplay)
{
    if (ALine.PlainControl)
        AView.Use(TViewSettings::Plain());
    else if (AOnDisplay)
        AView.Remember();
    if (!ALine.Scheme.isEmpty())
        AView.UseScheme(ALine.Scheme);
}

int Run(const TCommandLine &ALine, bool AOffScreen)
{
    if (AOffScreen)
        PrintMessages();
    if (ALine.PlainControl)
        TDocument::UsePlainEditors();
    TMainWindow window;
    const bool onDisplay = IsOnDisplay(AOffScreen);
    ChooseView(window.View(), ALine, onDisplay);
    if (onDisplay)
        window.KeepJournals();
    const QStringList messages = OpenAll(window, ALine, AOffScreen);
    if (!ALine.PrintTo.isEmpty() || !ALine.HtmlTo.isEmpty()) {
        WriteOut(*window.CurrentDocument(), ALine);
        return 0;
    }
    if (AOffScreen) {
        Render(window, ALine);
        return 0;
    }
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    Show(window, ALine);
    if (!messages.isEmpty())
        ZtMsgBoxError(messages.join(QLatin1Char('\n')), QCoreApplication::applicationName());
    TJournalFlow journals(window);
    if (onDisplay)
        journals.Start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("ztedit"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZT_VERSION));
    TCommandLine line;
    {
        // Without a display, which --help and --tokens must not need.
        const QCoreApplication application(argc, argv);
        ZtUseLanguage(ZtLanguageAskedFor(QCoreApplication::arguments()));
        if (const auto answer = ZtReadCommandLine(QCoreApplication::arguments(), line)) {
            if (answer->ExitCode != 0)
                return Fail(answer->Text, answer->ExitCode);
            PrintLine(stdout, answer->Text);
            return 0;
        }
        if (!line.SampleToMake.isEmpty())
            return MakeSample(line.SampleToMake);
        if (line.Tokens)
            return PrintTokens(line.Files.constFirst());
    }
    const bool offScreen = line.IsForFile() || !(line.ChoosesDisplay || HasDisplay());
    if (offScreen)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    OuterHandler = qInstallMessageHandler(HandleMessage);
    const QApplication application(argc, argv);
    // A picture is the same on every machine.
    ZtUseLanguage(line.Language.isEmpty() && offScreen ? QStringLiteral("en") : line.Language);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Zt Code Editor"));
    try {
        return Run(line, offScreen);
    } catch (...) {
        return Fail(ZtCurrentExceptionMessage(), ZtFileTrouble);
    }
}
