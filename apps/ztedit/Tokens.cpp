#include "Tokens.h"

#include "uZtException.h"
#include "uZtStringList.h"
#include "uZtStringStream.h"
#include "uZtTokenDump.h"

#include <QCoreApplication>

#include <cerrno>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(Tokens)
};

QStringList LinesOf(const QString &APath)
{
    TZtStringStream stream;
    stream.LoadFromFile(APath);
    TStringList text;
    text.SetText(stream.GetWString());
    QStringList lines;
    lines.reserve(text.GetCount());
    for (int i = 0; i < text.GetCount(); ++i)
        lines.append(text.GetStrings(i));
    return lines;
}

} // namespace

void ZtPrintTokens(const QString &APath, FILE *ATo)
{
    const QStringList lines = LinesOf(APath);
    const TZtTokenLanguage *language = ZtTokenLanguageOf(APath);
    if (!language)
        throw EZtException(TTexts::tr("\"%1\" is in no language that has tokens.").arg(APath));
    const auto reader = language->CreateReader();
    QList<int> kinds;
    for (const TZtTokenRecord &token : ZtReadTokens(*reader, lines, kinds))
        std::fprintf(ATo, "%s\n", token.ToString().toUtf8().constData());
    if (std::fflush(ATo) != 0 || std::ferror(ATo))
        throw EStreamError(TTexts::tr("Cannot print the tokens: %1.").arg(qt_error_string(errno)));
}
