#include "CommandLine.h"

#include "Schemes.h"

#include "uZtException.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

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

// Reads a line's number, and a column's where one is wanted and given.
bool ReadPlace(const QString &AText, int &ALine, int *AColumn = nullptr)
{
    const qsizetype colon = AColumn ? AText.indexOf(u':') : -1;
    bool column = true;
    if (colon >= 0)
        column = (*AColumn = AText.mid(colon + 1).toInt()) >= 1;
    ALine = AText.left(colon).toInt();
    return ALine >= 1 && column;
}

// Answers what is wrong: with the name, or with the file.
std::optional<TCommandAnswer> ReadScheme(const QString &AName, QString &AScheme)
{
    const QStringList names = ZtSchemeNames();
    const auto named = [&AName](const QString &name) {
        return name.compare(AName, Qt::CaseInsensitive) == 0;
    };
    if (const auto name = std::ranges::find_if(names, named); name != names.end()) {
        AScheme = *name;
        return std::nullopt;
    }
    if (!QFileInfo::exists(AName))
        return UsageError(Tr("--scheme wants one of %1, or a file, not \"%2\".")
                              .arg(names.join(QStringLiteral(", ")), AName));
    try {
        ZtSchemeOf(AName);
        AScheme = QFileInfo(AName).absoluteFilePath();
        return std::nullopt;
    } catch (const EZtException &error) {
        return TCommandAnswer{error.Message(), ZtFileTrouble};
    }
}

// An option that Qt's application takes itself, with one dash or two.
struct TQtOption {
    enum TValue { None, Next, NextOrSame }; // in the argument behind it, or as in "-style=X" too
    const char *Name;
    TValue Value;
    bool Display = false;
};

constexpr TQtOption QtOptions[] = {
    {"display", TQtOption::Next, true},
    {"dograb", TQtOption::None},
    {"geometry", TQtOption::Next},
    {"icon", TQtOption::Next},
    {"name", TQtOption::Next},
    {"nograb", TQtOption::None},
    {"platform", TQtOption::Next, true},
    {"platformpluginpath", TQtOption::Next},
    {"platformtheme", TQtOption::Next},
    {"plugin", TQtOption::Next},
    {"qwindowgeometry", TQtOption::Next},
    {"qwindowicon", TQtOption::Next},
    {"qwindowtitle", TQtOption::Next},
    {"reverse", TQtOption::None},
    {"session", TQtOption::Next},
    {"style", TQtOption::NextOrSame},
    {"stylesheet", TQtOption::NextOrSame},
    {"testability", TQtOption::None},
    {"title", TQtOption::Next},
    {"widgetcount", TQtOption::None},
};

const TQtOption *QtOptionOf(const QString &AArgument)
{
    static const QRegularExpression pattern(QStringLiteral("^--?([a-z]+)(=.*)?$"));
    const QRegularExpressionMatch match = pattern.match(AArgument);
    const auto *row =
        std::find_if(std::begin(QtOptions), std::end(QtOptions), [&match](const TQtOption &option) {
            return match.captured(1) == QLatin1StringView(option.Name) &&
                   (!match.hasCaptured(2) || option.Value == TQtOption::NextOrSame);
        });
    return row == std::end(QtOptions) ? nullptr : row;
}

// Leaves the arguments that are not Qt's. Answers what is wrong.
QString TakeQtOptions(QStringList &AArguments, TCommandLine &ALine)
{
    for (qsizetype i = 1; i < AArguments.size() && AArguments[i] != QLatin1StringView("--");) {
        const TQtOption *option = QtOptionOf(AArguments[i]);
        if (!option) {
            ++i;
            continue;
        }
        const bool two = option->Value != TQtOption::None && !AArguments[i].contains(u'=');
        if (two && i + 1 == AArguments.size())
            return Tr("-%1 wants a value.").arg(QLatin1StringView(option->Name));
        ALine.ChoosesDisplay |= option->Display;
        AArguments.remove(i, two ? 2 : 1);
    }
    return {};
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

// What is shown in the texts.
struct TTextOptions {
    const QCommandLineOption Line{QStringLiteral("line"),
                                  Tr("Put the caret on line N of the first file, in column C."),
                                  QStringLiteral("N[:C]")};
    const QCommandLineOption Bookmark{QStringLiteral("bookmark"),
                                      Tr("Put a bookmark on line N of the first file; may be given "
                                         "several times."),
                                      QStringLiteral("N")};
    const QCommandLineOption Diagnostics{QStringLiteral("diagnostics"),
                                         Tr("Show what a compiler printed into FILE, in the texts "
                                            "that it is about."),
                                         QStringLiteral("FILE")};

    // Answers what is wrong.
    QString Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        if (AParser.isSet(Line) && !ReadPlace(AParser.value(Line), ALine.Line, &ALine.Column))
            return Tr("--line wants a number from 1 up, or two such as 12:5, not \"%1\".")
                .arg(AParser.value(Line));
        for (const QString &bookmark : AParser.values(Bookmark)) {
            int line = 0;
            if (!ReadPlace(bookmark, line))
                return Tr("--bookmark wants a number from 1 up, not \"%1\".").arg(bookmark);
            ALine.Bookmarks.append(line);
        }
        ALine.Diagnostics = AParser.value(Diagnostics);
        if (AParser.isSet(Diagnostics) && ALine.Diagnostics.isEmpty())
            return Tr("--diagnostics wants the name of a file.");
        return {};
    }
};

// What is written instead of showing a window, one of them at most.
struct TOutputOptions {
    const QCommandLineOption Render{QStringLiteral("render"),
                                    Tr("Draw the window into the picture OUT.png and leave."),
                                    QStringLiteral("OUT.png")};
    const QCommandLineOption Print{QStringLiteral("print"),
                                   Tr("Print FILE into OUT.pdf and leave."),
                                   QStringLiteral("OUT.pdf")};
    const QCommandLineOption Html{QStringLiteral("html"),
                                  Tr("Write FILE with its colours into OUT.html and leave."),
                                  QStringLiteral("OUT.html")};
    const QCommandLineOption Tokens{QStringLiteral("tokens"),
                                    Tr("Print the tokens of FILE, one a line, and leave.")};

    // Answers what is wrong.
    QString Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        ALine.RenderTo = AParser.value(Render);
        ALine.PrintTo = AParser.value(Print);
        ALine.HtmlTo = AParser.value(Html);
        ALine.Tokens = AParser.isSet(Tokens);
        int given = 0;
        for (const QCommandLineOption &option : {Render, Print, Html, Tokens}) {
            const QString name = option.names().constFirst();
            given += int(AParser.isSet(option));
            if (AParser.isSet(option) && !option.valueName().isEmpty() &&
                AParser.value(option).isEmpty())
                return Tr("--%1 wants the name of a file to write.").arg(name);
            const bool one = ALine.Files.size() == 1 && ALine.Database.File.isEmpty();
            if (AParser.isSet(option) && name != Render.names().constFirst() && !one)
                return Tr("--%1 wants one file, and no --db.").arg(name);
        }
        if (given > 1)
            return Tr("Only one of --render, --print, --html and --tokens can be given.");
        return {};
    }
};

// How the window looks.
struct TViewOptions {
    const QCommandLineOption Size{QStringLiteral("size"), Tr("The window's size in pixels."),
                                  QStringLiteral("WxH")};
    const QCommandLineOption Scheme{
        QStringLiteral("scheme"),
        Tr("The colours: %1, or a JSON file.").arg(ZtSchemeNames().join(QStringLiteral(", "))),
        QStringLiteral("NAME")};
    QCommandLineOption Plain{QStringLiteral("plain-control")};

    TViewOptions() { Plain.setFlags(QCommandLineOption::HiddenFromHelp); }

    std::optional<TCommandAnswer> Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        ALine.PlainControl = AParser.isSet(Plain);
        if (AParser.isSet(Size) && !ReadSize(AParser.value(Size), ALine.Size))
            return UsageError(Tr("--size wants a width and a height from 1 to %1, such as 900x640, "
                                 "not \"%2\".")
                                  .arg(MaxSide)
                                  .arg(AParser.value(Size)));
        return AParser.isSet(Scheme) ? ReadScheme(AParser.value(Scheme), ALine.Scheme)
                                     : std::nullopt;
    }
};

} // namespace

std::optional<TCommandAnswer> ZtReadCommandLine(const QStringList &AArguments, TCommandLine &ALine)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  Tr("Show this help and leave."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     Tr("Show the version and leave."));
    const TOutputOptions output;
    const TTextOptions text;
    const TViewOptions view;
    const TDbOptions database;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Tr("Edits source code. Without a display, and with --render, the window is drawn into a "
           "picture instead. The options of every Qt application are known too, such as -style, "
           "-platform and -reverse."));
    parser.addOptions({help, version, output.Render, output.Print, output.Html, output.Tokens,
                       text.Line, text.Bookmark, text.Diagnostics, view.Size, view.Scheme,
                       view.Plain, database.File, database.Table, database.Field, database.Key,
                       database.Sample});
    parser.addPositionalArgument(QStringLiteral("FILE"), Tr("The files to open, a tab each."),
                                 QStringLiteral("[FILE...]"));
    QStringList arguments = AArguments;
    if (const QString fault = TakeQtOptions(arguments, ALine); !fault.isEmpty())
        return UsageError(fault);
    if (!parser.parse(arguments))
        return UsageError(parser.errorText());
    if (parser.isSet(help))
        return TCommandAnswer{parser.helpText(), 0};
    if (parser.isSet(version))
        return TCommandAnswer{QCoreApplication::applicationName() + QLatin1Char(' ') +
                                  QCoreApplication::applicationVersion(),
                              0};
    ALine.Files = parser.positionalArguments();
    if (const QString fault = database.Read(parser, ALine); !fault.isEmpty())
        return UsageError(fault);
    if (const QString fault = output.Read(parser, ALine); !fault.isEmpty())
        return UsageError(fault);
    if (const QString fault = text.Read(parser, ALine); !fault.isEmpty())
        return UsageError(fault);
    return view.Read(parser, ALine);
}
