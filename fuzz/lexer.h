#pragma once

#include "uZtCodeParser.h"

#include <QBuffer>
#include <QList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

inline void Require(bool ACondition, const char *AWhat)
{
    if (ACondition)
        return;
    std::fprintf(stderr, "Not kept: %s\n", AWhat);
    std::abort();
}

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
            if (AReset) {
                next = asked = 0;
                return false;
            }
            Require(++asked <= FLimit, "the source is asked a bounded number of times");
            if (next >= FText.size())
                return false;
            const qsizetype feed = FText.indexOf(u'\n', next);
            const qsizetype end = feed < 0 ? FText.size() : feed + 1;
            S = FText.mid(next, end - next);
            next = end;
            return true;
        };
        lexer.SetEndLines(AEndLines);
        const TTokens tokens = Drain(lexer);
        CheckMethodTools(lexer);
        return tokens;
    }

    TTokens FromStream(bool AEndLines)
    {
        QByteArray bytes(reinterpret_cast<const char *>(FText.utf16()), FText.size() * 2);
        QBuffer stream(&bytes);
        stream.open(QIODevice::ReadOnly);
        TLexer lexer;
        lexer.SetEndLines(AEndLines);
        lexer.SetInputStream(&stream, false);
        return Drain(lexer);
    }

    TTokens Drain(TLexer &ALexer)
    {
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
