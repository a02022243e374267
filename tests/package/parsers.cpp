// A program without a window that links the lexers alone: 0 when a keyword is found where it is.
#include "uZtCodePascalParser.h"
#include "uZtStringList.h"
#include "uZtTokenDump.h"

int main()
{
    const TZtTokenLanguage *language = ZtTokenLanguageOf(QStringLiteral("unit.pas"));
    const auto reader = language->CreateReader();
    QList<int> kinds;
    const auto tokens =
        ZtReadTokens(*reader, {QStringLiteral("begin"), QStringLiteral("end.")}, kinds);
    if (tokens.isEmpty() || TZtCodePascalParser().GetLanguage().isEmpty())
        return 1;
    try {
        TStringList().GetStrings(1);
    } catch (const EStringListError &) {
        return 0; // known on this side of the library, too
    }
    return 2;
}
