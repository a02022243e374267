#pragma once

#include "uZtCodeParser.h"

#include <QMetaEnum>
#include <QStringList>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

template <typename TToken> QString KindName(TToken AKind)
{
    return QString::fromLatin1(QMetaEnum::fromType<TToken>().valueToKey(int(AKind)));
}

/// Tokens as "kind:text", one to a line. The end of the input is left out.
template <typename TToken> using TTokenRow = std::vector<std::pair<TToken, QString>>;

template <typename TToken> std::string ToLines(const TTokenRow<TToken> &ATokens)
{
    QStringList lines;
    for (const auto &[kind, text] : ATokens)
        lines += KindName(kind) + u':' + text;
    return lines.join(u'\n').toStdString();
}

/// Feeds a text a line at a time, each with its line break.
inline void Feed(TZtLangParser &AParser, const QString &AText)
{
    AParser.OnGetNewBuffer = [text = AText, next = qsizetype(0)](bool AReset, QString &S) mutable {
        if (AReset)
            next = 0;
        if (AReset || next >= text.size())
            return false;
        const qsizetype feed = text.indexOf(u'\n', next);
        const qsizetype end = feed < 0 ? text.size() : feed + 1;
        S = text.mid(next, end - next);
        next = end;
        return true;
    };
    AParser.ResetBuffer();
}

/// The tokens that are left to be read, at most `ALimit`.
template <typename TToken, typename TLexer>
TTokenRow<TToken> ReadTokens(TLexer &ALexer, size_t ALimit = 10000)
{
    TTokenRow<TToken> tokens;
    QString text;
    while (tokens.size() < ALimit) {
        const TToken kind = ALexer.InternalGetNextToken(text);
        if (kind == TToken::vtEndOfFile)
            break;
        tokens.emplace_back(kind, text);
    }
    return tokens;
}

template <typename TLexer, typename TToken>
void ExpectTokens(const QString &AText, const TTokenRow<TToken> &AExpected, bool AEndLines = true)
{
    TLexer lexer;
    lexer.SetEndLines(AEndLines);
    Feed(lexer, AText);
    EXPECT_EQ(ToLines(ReadTokens<TToken>(lexer)), ToLines(AExpected)) << AText.toStdString();
}

/// Any mixture of pieces comes to its end, with no more tokens than the text has characters and
/// those that a remark's end adds.
template <typename TToken, typename TLexer> void ExpectEveryTextEnds(const QStringList &APieces)
{
    TLexer lexer;
    quint32 seed = 1;
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int i = 0; i < 12; ++i) {
            seed = seed * 1664525 + 1013904223;
            text += APieces.at(qsizetype(seed >> 8) % APieces.size());
        }
        lexer.SetEndLines(round % 2 == 0);
        lexer.SetRemarkEnd(QString());
        lexer.SetLineKind(0);
        Feed(lexer, text);
        const size_t limit = size_t(text.size()) * 2 + 2;
        const auto tokens = ReadTokens<TToken>(lexer, limit);
        ASSERT_LT(tokens.size(), limit) << text.toStdString();
        qsizetype length = 0;
        for (const auto &token : tokens)
            length += token.second.size();
        ASSERT_LE(length, qsizetype(limit) * 2) << text.toStdString();
    }
}

/// The attributes that a token of one kind is drawn with.
struct TAttributes {
    TColor BackGround = 0;
    TColor TextColor = 0;
    TFontStyles Style;
    bool operator==(const TAttributes &) const = default;
};

/// Reads the whole text with `GetNextToken` and answers the attributes of its first token.
inline TAttributes FirstAttributes(TZtLangParser &AParser, const QString &AText)
{
    Feed(AParser, AText);
    QString token;
    TAttributes result;
    bool lineBreak = true;
    AParser.GetNextToken(token, result.BackGround, result.TextColor, result.Style, lineBreak);
    EXPECT_EQ(lineBreak, AText.startsWith(u'\r')) << AText.toStdString();
    return result;
}
