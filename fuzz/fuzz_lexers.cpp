#include "uZtTokenDump.h"

#include <QBuffer>

#include <cstdio>
#include <cstdlib>

namespace {

void Require(bool ACondition, const char *AWhat)
{
    if (ACondition)
        return;
    std::fprintf(stderr, "Not kept: %s\n", AWhat);
    std::abort();
}

// The kinds and texts of all tokens.
QStringList Drain(TZtTokenReader &AReader, bool AEndLines, qsizetype ALimit)
{
    AReader.Parser().SetEndLines(AEndLines);
    QStringList tokens;
    TZtTokenRecord token;
    for (bool more = true; more; tokens += QLatin1StringView(token.Kind) + token.Text) {
        more = AReader.Next(token);
        ALimit -= 1 + token.Text.size();
        Require(ALimit >= 0, "the number and length of the tokens are bounded");
    }
    return tokens;
}

// Fed a line at a time and from a stream, a text gives the same tokens, also with all that is off
// by default.
void CheckLexer(const TZtTokenLanguage &ALanguage, const QString &AText, bool AEndLines,
                bool ACorrected)
{
    const qsizetype limit = 4 * AText.size() + 64;
    const auto fed = ALanguage.CreateReader(), streamed = ALanguage.CreateReader();
    for (TZtLangParser *parser : {&fed->Parser(), &streamed->Parser()}) {
        parser->SetAllKeyWords(ACorrected);
        parser->SetClosedRemarks(ACorrected);
    }
    qsizetype next = 0;
    fed->Parser().OnGetNewBuffer = [&](bool AReset, QString &S) {
        if (AReset)
            next = 0;
        if (AReset || next >= AText.size())
            return false;
        const qsizetype feed = AText.indexOf(u'\n', next);
        S = feed < 0 ? AText.mid(next) : AText.mid(next, feed + 1 - next);
        next += S.size();
        return true;
    };
    QBuffer stream;
    stream.setData(reinterpret_cast<const char *>(AText.utf16()), int(AText.size() * 2));
    stream.open(QIODevice::ReadOnly);
    streamed->Parser().SetInputStream(&stream, false);
    Require(Drain(*fed, AEndLines, limit) == Drain(*streamed, AEndLines, limit),
            "the tokens do not depend on the pieces that the text comes in");

    const int line = fed->Parser().MethodLineNr(QStringLiteral("a"));
    Require(line == -1 || (line >= 1 && line <= AText.count(u'\n') + 1),
            "a method's line is one of the text");
    fed->Parser().GetSameMethods(&fed->Parser(), QStringLiteral("objectNameChanged"));
}

} // namespace

// Any text goes through each lexer: what is no source of its language too.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(AData), qsizetype(ASize));
    for (const TZtTokenLanguage &language : ZtTokenLanguages())
        for (const bool endLines : {false, true})
            for (const bool corrected : {false, true})
                CheckLexer(language, text, endLines, corrected);
    return 0;
}
