#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

namespace {

constexpr int MaxSide = 16384;

QString Tr(const char *AText) { return QCoreApplication::translate("CommandLine", AText); }

TCommandAnswer UsageError(const QString &AText)
{
    return {Tr("%1 (--help tells how it is used)").arg(AText), ZtUsageTrouble};
}

bool ReadSize(const QString &AText, QSize &ASize)
{
    static const QRegularExpression pattern(QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(AText);
    ASize = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    return ASize.width() >= 1 && ASize.height() >= 1 && ASize.width() <= MaxSide &&
           ASize.height() <= MaxSide;
}

} // namespace

std::optional<TCommandAnswer> ZtReadCommandLine(const QStringList &AArguments, TCommandLine &ALine)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  Tr("Show this help and leave."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     Tr("Show the version and leave."));
    const QCommandLineOption render(QStringLiteral("render"),
                                    Tr("Draw the window into the picture OUT.png and leave."),
                                    QStringLiteral("OUT.png"));
    const QCommandLineOption tokens(QStringLiteral("tokens"),
                                    Tr("Print the tokens of FILE, one a line, and leave."));
    const QCommandLineOption size(QStringLiteral("size"), Tr("The window's size in pixels."),
                                  QStringLiteral("WxH"));
    const QCommandLineOption line(QStringLiteral("line"),
                                  Tr("Put the caret on line N of the first file."),
                                  QStringLiteral("N"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Tr("Edits source code. Without a display, and with --render, the window is drawn into a "
           "picture instead."));
    parser.addOptions({help, version, render, tokens, size, line});
    parser.addPositionalArgument(QStringLiteral("FILE"), Tr("The files to open, a tab each."),
                                 QStringLiteral("[FILE...]"));
    if (!parser.parse(AArguments))
        return UsageError(parser.errorText());
    if (parser.isSet(help))
        return TCommandAnswer{parser.helpText(), 0};
    if (parser.isSet(version))
        return TCommandAnswer{QCoreApplication::applicationName() + QLatin1Char(' ') +
                                  QCoreApplication::applicationVersion(),
                              0};
    ALine.Files = parser.positionalArguments();
    ALine.RenderTo = parser.value(render);
    if (parser.isSet(render) && ALine.RenderTo.isEmpty())
        return UsageError(Tr("--render wants the name of a picture."));
    ALine.Tokens = parser.isSet(tokens);
    if (ALine.Tokens && (ALine.Files.size() != 1 || parser.isSet(render)))
        return UsageError(Tr("--tokens wants one file, and no --render."));
    if (parser.isSet(size) && !ReadSize(parser.value(size), ALine.Size))
        return UsageError(Tr("--size wants a width and a height from 1 to %1, such as 900x640, not "
                             "\"%2\".")
                              .arg(MaxSide)
                              .arg(parser.value(size)));
    bool number = true;
    if (parser.isSet(line))
        ALine.Line = parser.value(line).toInt(&number);
    if (!number || (parser.isSet(line) && ALine.Line < 1))
        return UsageError(
            Tr("--line wants a number from 1 up, not \"%1\".").arg(parser.value(line)));
    return std::nullopt;
}
