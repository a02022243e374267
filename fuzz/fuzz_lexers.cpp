#include "require.h"

#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"

#include <QBuffer>
#include <QList>

#include <utility>

namespace {

/// Checks a lexer on one text: fed a line at a time and from a stream, with `EndLines` off and on.
template <typename TLexer, auto EndOfFile> class TLexerCheck {
public:
    TLexerCheck(const uint8_t *AData, size_t ASize)
        : FText(QString::fromUtf8(reinterpret_cast<const char *>(AData), qsizetype(ASize))),
          FLimit(4 * FText.size() + 64)
    {
        for (const bool endLines : {false, true})
            Require(FromLines(endLines) == FromStream(endLines),
                    "the tokens do not depend on the pieces that the text comes in");
    }

private:
    using TTokens = QList<std::pair<decltype(EndOfFile), QString>>;

    TTokens FromLines(bool AEndLines)
    {
        TLexer lexer;
        qsizetype next = 0, asked = 0;
        lexer.OnGetNewBuffer = [&](bool AReset, QString &S) {
            if (AReset)
                next = asked = 0;
            Require(++asked <= FLimit, "the source is asked a bounded number of times");
            if (AReset || next >= FText.size())
                return false;
            const qsizetype feed = FText.indexOf(u'\n', next);
            S = feed < 0 ? FText.mid(next) : FText.mid(next, feed + 1 - next);
            next += S.size();
            return true;
        };
        const TTokens tokens = Drain(lexer, AEndLines);
        CheckMethodTools(lexer);
        return tokens;
    }

    TTokens FromStream(bool AEndLines)
    {
        QByteArray bytes(reinterpret_cast<const char *>(FText.utf16()), FText.size() * 2);
        QBuffer stream(&bytes);
        stream.open(QIODevice::ReadOnly);
        TLexer lexer;
        lexer.SetInputStream(&stream, false);
        return Drain(lexer, AEndLines);
    }

    TTokens Drain(TLexer &ALexer, bool AEndLines)
    {
        ALexer.SetEndLines(AEndLines);
        TTokens tokens;
        qsizetype length = 0;
        do {
            QString text;
            const auto kind = ALexer.InternalGetNextToken(text);
            length += text.size();
            tokens.append({kind, text});
            Require(tokens.size() <= FLimit, "the number of tokens is bounded");
            Require(length <= FLimit, "the length of the tokens is bounded");
        } while (tokens.last().first != EndOfFile);
        return tokens;
    }

    void CheckMethodTools(TLexer &ALexer)
    {
        const int line = ALexer.MethodLineNr(QStringLiteral("a"));
        Require(line == -1 || (line >= 1 && line <= FText.count(u'\n') + 1),
                "a method's line is one of the text");
        Require(ALexer.GetSameMethods(&ALexer, QStringLiteral("objectNameChanged")).size() <=
                    FLimit,
                "the names of methods are bounded");
    }

    const QString FText;
    const qsizetype FLimit;
};

} // namespace

// Any text goes through each lexer: what is no source of its language too.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtLangParser, TlngToken::tEndOfFile>(AData, ASize);
    TLexerCheck<TZtCodePascalParser, TPascalToken::ptEndOfFile>(AData, ASize);
    TLexerCheck<TZtCodeVBParser, TVBToken::vtEndOfFile>(AData, ASize);
    TLexerCheck<TZtCodeJSParser, TJSToken::vtEndOfFile>(AData, ASize);
    TLexerCheck<TZtCodeXMLParser, TZtXmlToken::vtEndOfFile>(AData, ASize);
    TLexerCheck<TZtCodeSqlParser, TZtSqlToken::vtEndOfFile>(AData, ASize);
    return 0;
}
