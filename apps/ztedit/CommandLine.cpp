#include "CommandLine.h"

#include "Schemes.h"

#include "uZtException.h"
#include "uZtTranslation.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int MaxSide = 16384;

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

TCommandAnswer UsageError(const QString &AText)
{
    return {TTexts::tr("%1 (--help tells how it is used)").arg(AText), ZtUsageTrouble};
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
        return UsageError(TTexts::tr("--scheme wants one of %1, or a file, not \"%2\".")
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
            return TTexts::tr("-%1 wants a value.").arg(QLatin1StringView(option->Name));
        ALine.ChoosesDisplay |= option->Display;
        AArguments.remove(i, two ? 2 : 1);
    }
    return {};
}

// The texts of a database, of which three options make one.
struct TDbOptions {
    const QCommandLineOption File{
        QStringLiteral("db"),
        TTexts::tr("Open the texts of an SQLite database, with --table and "
                   "--field."),
        QStringLiteral("FILE")};
    const QCommandLineOption Table{QStringLiteral("table"), TTexts::tr("The table or view."),
                                   QStringLiteral("T")};
    const QCommandLineOption Field{QStringLiteral("field"),
                                   TTexts::tr("The field to edit, of text or of bytes."),
                                   QStringLiteral("F")};
    const QCommandLineOption Key{
        QStringLiteral("key"),
        TTexts::tr("The field that tells the records apart, for a table without "
                   "a primary key."),
        QStringLiteral("K")};
    const QCommandLineOption Sample{
        QStringLiteral("make-sample"),
        TTexts::tr("Make the database FILE by the statements in FILE.sql and "
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
                return TTexts::tr("--db, --table and --field are wanted together.");
        if (AParser.isSet(Sample) && (all || ALine.SampleToMake.isEmpty()))
            return TTexts::tr("--make-sample wants the name of a database, and no --db.");
        return {};
    }
};

// What is shown in the texts.
struct TTextOptions {
    const QCommandLineOption Line{
        QStringLiteral("line"),
        TTexts::tr("Put the caret on line N of the first file, in column C."),
        QStringLiteral("N[:C]")};
    const QCommandLineOption Bookmark{
        QStringLiteral("bookmark"),
        TTexts::tr("Put a bookmark on line N of the first file; may be given "
                   "several times."),
        QStringLiteral("N")};
    const QCommandLineOption Diagnostics{
        QStringLiteral("diagnostics"),
        TTexts::tr("Show what a compiler printed into FILE, in the texts "
                   "that it is about."),
        QStringLiteral("FILE")};

    // Answers what is wrong.
    QString Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        if (AParser.isSet(Line) && !ReadPlace(AParser.value(Line), ALine.Line, &ALine.Column))
            return TTexts::tr("--line wants a number from 1 up, or two such as 12:5, not \"%1\".")
                .arg(AParser.value(Line));
        for (const QString &bookmark : AParser.values(Bookmark)) {
            int line = 0;
            if (!ReadPlace(bookmark, line))
                return TTexts::tr("--bookmark wants a number from 1 up, not \"%1\".").arg(bookmark);
            ALine.Bookmarks.append(line);
        }
        ALine.Diagnostics = AParser.value(Diagnostics);
        if (AParser.isSet(Diagnostics) && ALine.Diagnostics.isEmpty())
            return TTexts::tr("--diagnostics wants the name of a file.");
        return {};
    }
};

// What is written instead of showing a window, one of them at most.
struct TOutputOptions {
    const QCommandLineOption Render{
        QStringLiteral("render"), TTexts::tr("Draw the window into the picture OUT.png and leave."),
        QStringLiteral("OUT.png")};
    const QCommandLineOption Print{QStringLiteral("print"),
                                   TTexts::tr("Print FILE into OUT.pdf and leave."),
                                   QStringLiteral("OUT.pdf")};
    const QCommandLineOption Html{
        QStringLiteral("html"), TTexts::tr("Write FILE with its colours into OUT.html and leave."),
        QStringLiteral("OUT.html")};
    const QCommandLineOption Tokens{QStringLiteral("tokens"),
                                    TTexts::tr("Print the tokens of FILE, one a line, and leave.")};

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
                return TTexts::tr("--%1 wants the name of a file to write.").arg(name);
            const bool one = ALine.Files.size() == 1 && ALine.Database.File.isEmpty();
            if (AParser.isSet(option) && name != Render.names().constFirst() && !one)
                return TTexts::tr("--%1 wants one file, and no --db.").arg(name);
        }
        if (given > 1)
            return TTexts::tr("Only one of --render, --print, --html and --tokens can be given.");
        return {};
    }
};

// How the window looks.
struct TViewOptions {
    const QCommandLineOption Size{
        QStringLiteral("size"), TTexts::tr("The window's size in pixels."), QStringLiteral("WxH")};
    const QCommandLineOption Scheme{QStringLiteral("scheme"),
                                    TTexts::tr("The colours: %1, or a JSON file.")
                                        .arg(ZtSchemeNames().join(QStringLiteral(", "))),
                                    QStringLiteral("NAME")};
    const QCommandLineOption Language{
        QStringLiteral("language"),
        TTexts::tr("The language of the texts: %1. Without it, it is the desktop's.")
            .arg(ZtTranslatedLanguages().join(QStringLiteral(", "))),
        QStringLiteral("XX")};
    QCommandLineOption Plain{QStringLiteral("plain-control")};

    TViewOptions() { Plain.setFlags(QCommandLineOption::HiddenFromHelp); }

    std::optional<TCommandAnswer> Read(const QCommandLineParser &AParser, TCommandLine &ALine) const
    {
        ALine.PlainControl = AParser.isSet(Plain);
        ALine.Language = AParser.value(Language);
        const QStringList languages = ZtTranslatedLanguages();
        if (AParser.isSet(Language) && !languages.contains(ALine.Language))
            return UsageError(TTexts::tr("--language wants one of %1, not \"%2\".")
                                  .arg(languages.join(QStringLiteral(", ")), ALine.Language));
        if (AParser.isSet(Size) && !ReadSize(AParser.value(Size), ALine.Size))
            return UsageError(
                TTexts::tr("--size wants a width and a height from 1 to %1, such as 900x640, "
                           "not \"%2\".")
                    .arg(MaxSide)
                    .arg(AParser.value(Size)));
        return AParser.isSet(Scheme) ? ReadScheme(AParser.value(Scheme), ALine.Scheme)
                                     : std::nullopt;
    }
};

} // namespace

QString ZtLanguageAskedFor(const QStringList &AArguments)
{
    const QCommandLineOption language(QStringLiteral("language"), {}, QStringLiteral("XX"));
    QCommandLineParser parser;
    parser.addOption(language);
    parser.parse(AArguments); // all others are unknown to it
    const QString value = parser.value(language);
    return ZtTranslatedLanguages().contains(value) ? value : QString();
}

std::optional<TCommandAnswer> ZtReadCommandLine(const QStringList &AArguments, TCommandLine &ALine)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  TTexts::tr("Show this help and leave."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     TTexts::tr("Show the version and leave."));
    const TOutputOptions output;
    const TTextOptions text;
    const TViewOptions view;
    const TDbOptions database;
    QCommandLineParser parser;
    parser.setApplicationDescription(TTexts::tr(
        "Edits source code. Without a display, and with --render, the window is drawn into a "
        "picture instead. The options of every Qt application are known too, such as -style, "
        "-platform and -reverse."));
    parser.addOptions({help, version, output.Render, output.Print, output.Html, output.Tokens,
                       text.Line, text.Bookmark, text.Diagnostics, view.Size, view.Scheme,
                       view.Language, view.Plain, database.File, database.Table, database.Field,
                       database.Key, database.Sample});
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 TTexts::tr("The files to open, a tab each."),
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
