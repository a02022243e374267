#include "CompilerOutput.h"

#include "FileStore.h"

#include "uZtStringStream.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

using enum TZtSeverity;

namespace {

constexpr int LineEnd = std::numeric_limits<int>::max();

// All that stands before the message. A path that begins with a blank is part of the source that
// is quoted below a message.
const QRegularExpression &LinePattern()
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^(?<path>\S.*?))"
                       R"((?::(?<line>\d+)(?::(?<column>\d+))?:\s)"
                       R"(|\((?<line2>\d+)(?:,\s*(?<column2>\d+))?\)(?::\s|(?=\s+%1)))\s*)"
                       R"((?:(?<severity>%1)(?<code>\s+[A-Z]+\d+)?\s*:)?\s*(?<message>\S.*)$)")
            .arg(QStringLiteral(
                R"((?:fatal error|fatal|error|warning|note|information|info|hint)\b)")),
        QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

// What terminals take as colours.
const QRegularExpression &ColourPattern()
{
    static const QRegularExpression pattern(QStringLiteral("\x1B\\[[0-9;]*[mK]"));
    return pattern;
}

TZtSeverity SeverityOf(const QString &AWord)
{
    const QString word = AWord.toLower();
    if (word.isEmpty() || word.startsWith(u"fatal") || word == u"error")
        return dsError;
    return word == u"warning" ? dsWarning : dsInformation;
}

// The number of one of two groups, 0-based; -1 for none, or one that is too large.
int PlaceOf(const QRegularExpressionMatch &AMatch, const char *AGroup, const char *AOther)
{
    const QString text =
        AMatch.captured(QLatin1StringView(AGroup)) + AMatch.captured(QLatin1StringView(AOther));
    return text.toInt() - 1;
}

// Where a printed path leads.
QString TargetOf(const QString &APath, const QDir &AFolder)
{
    const QString beside = AFolder.absoluteFilePath(APath);
    return ZtFollowLinks(QFileInfo::exists(beside) || !QFileInfo::exists(APath)
                             ? beside
                             : QDir::current().absoluteFilePath(APath));
}

} // namespace

std::optional<TCompilerMessage> ZtReadCompilerMessage(const QString &ALine)
{
    const QRegularExpressionMatch match = LinePattern().match(ALine);
    if (!match.hasMatch())
        return std::nullopt;
    const int line = std::max(PlaceOf(match, "line", "line2"), 0);
    const int column = PlaceOf(match, "column", "column2");
    const QString code = match.captured(u"code").trimmed();
    const QString message = match.captured(u"message").trimmed();
    return TCompilerMessage{
        match.captured(u"path"),
        {.From = {std::max(column, 0), line},
         .To = {column < 0 ? LineEnd : column, line},
         .Severity = SeverityOf(match.captured(u"severity")),
         .Message = code.isEmpty() ? message : code + QStringLiteral(": ") + message}};
}

void TCompilerOutput::Load(const QString &APath)
{
    TZtStringStream stream;
    stream.LoadFromFile(APath);
    QString text = stream.GetWString();
    text.remove(ColourPattern());
    const QDir folder = QFileInfo(APath).absoluteDir();
    QHash<QString, std::vector<TZtDiagnostic>> files;
    QHash<QString, QString> targets; // of paths, which come again and again
    static const QRegularExpression lineBreak(QStringLiteral("[\r\n]+"));
    for (const QString &line : text.split(lineBreak, Qt::SkipEmptyParts)) {
        const std::optional<TCompilerMessage> message = ZtReadCompilerMessage(line);
        if (!message)
            continue;
        QString &target = targets[message->Path];
        if (target.isEmpty())
            target = TargetOf(message->Path, folder);
        files[target].push_back(message->Diagnostic);
    }
    FFiles = std::move(files);
}

std::vector<TZtDiagnostic> TCompilerOutput::Of(const QString &APath) const
{
    return APath.isEmpty() ? std::vector<TZtDiagnostic>() : FFiles.value(ZtFollowLinks(APath));
}

int TCompilerOutput::MessageCount() const
{
    int count = 0;
    for (const std::vector<TZtDiagnostic> &messages : FFiles)
        count += int(messages.size());
    return count;
}
