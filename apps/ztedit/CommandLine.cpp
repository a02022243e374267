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

// The texts of a database, of which three options make one.
struct TDbOptions {
    const QCommandLineOption File{QStringLiteral("db"),
                                  Tr("Open the texts of an SQLite database, with --table and "
                                     "--field."),
                                  QStringLiteral("FILE")};
    const QCommandLineOption Table{QStringLiteral("table"), Tr("The table or view."),
                                   QStringLiteral("T")};
    const QCommandLineOption Field{QStringLiteral("field"),
                                   Tr("The field to edit, of text or of bytes."),
                                   QStringLiteral("F")};
    const QCommandLineOption Key{QStringLiteral("key"),
                                 Tr("The field that tells the records apart, for a table without "
                                    "a primary key."),
                                 QStringLiteral("K")};
    const QCommandLineOption Sample{QStringLiteral("make-sample"),
                                    Tr("Make the database FILE by the statements in FILE.sql and "
                                       "leave."),
                                    QStringLiteral("FILE")};

    // Answers what is wrong.
    QString Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        ALine.Database = {AParser.value(File), AParser.value(Table), AParser.value(Field),
                          AParser.value(Key)};
        ALine.SampleToMake = AParser.value(Sample);
        const TDbPlace &place = ALine.Database;
        const bool all = !place.File.isEmpty() && !place.Table.isEmpty() && !place.Field.isEmpty();
        for (const QCommandLineOption &option : {File, Table, Field, Key})
            if (AParser.isSet(option) && !all)
                return Tr("--db, --table and --field are wanted together.");
        if (AParser.isSet(Sample) && (all || ALine.SampleToMake.isEmpty()))
            return Tr("--make-sample wants the name of a database, and no --db.");
        return {};
    }
};

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
    const TDbOptions database;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Tr("Edits source code. Without a display, and with --render, the window is drawn into a "
           "picture instead."));
    parser.addOptions({help, version, render, tokens, size, line, database.File, database.Table,
                       database.Field, database.Key, database.Sample});
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
    if (const QString fault = database.Read(parser, ALine); !fault.isEmpty())
        return UsageError(fault);
    ALine.Tokens = parser.isSet(tokens);
    if (ALine.Tokens &&
        (ALine.Files.size() != 1 || parser.isSet(render) || !ALine.Database.File.isEmpty()))
        return UsageError(Tr("--tokens wants one file, and neither --render nor --db."));
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
