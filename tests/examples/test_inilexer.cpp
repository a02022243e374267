// The lexer that docs/lexers.md explains.
#include "IniLexer.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

using TStates = std::vector<int>;

// The tokens from a line on, as "kind:text", and the state that each line begins with.
QStringList Tokens(const QStringList &ALines, TStates &AStates, int AFirst = 0)
{
    TIniLexer lexer;
    int next = AFirst;
    lexer.OnGetNewBuffer = [&](bool AReset, QString &S) {
        if (AReset || next >= ALines.size())
            return false;
        AStates.resize(size_t(next) + 1);
        AStates[size_t(next)] = lexer.GetLineKind();
        S = ALines[next++] + u"\r\n"_s;
        return true;
    };
    lexer.Reset();
    lexer.SetLineKind(AStates.empty() ? 0 : AStates[size_t(AFirst)]);
    QStringList result;
    QString token;
    for (;;) {
        const TIniToken kind = lexer.InternalGetNextToken(token);
        if (kind == TIniToken::itEndOfFile)
            return result;
        result += QString::number(int(kind)) + u':' + token;
    }
}

// A letter for each token: what the line is made of.
QString Kinds(const QString &AText)
{
    constexpr char letters[] = "n_ #[sk=v\"\\";
    TStates states;
    QString result;
    for (const QString &token : Tokens(AText.split(u'\n'), states))
        result += QLatin1Char(letters[token.section(u':', 0, 0).toInt()]);
    return result;
}

} // namespace

TEST(IniLexer, ReadsWhatAFileIsMadeOf)
{
    const struct {
        QString Text, Kinds;
    } cases[] = {
        {u"[a b]"_s, u"[s[n"_s},
        {u"[a"_s, u"[sn"_s},
        {u"[a] # b"_s, u"[s[ #n"_s},
        {u"; [a]"_s, u"#n"_s},
        {u"  # a = b"_s, u" #n"_s},
        {u"key name = a b"_s, u"k = vn"_s},
        {u"k:"_s, u"k=n"_s},
        {u"= v"_s, u"= vn"_s},
        {u"word"_s, u"kn"_s},
        {u"k='a=b' # c"_s, u"k=\" vn"_s},
        {u"k=\"a"_s, u"k=\"n"_s},
        {u"k=C:\\a\\b"_s, u"k=vvvn"_s},
        {u"k = a\\\n b # c\nd = e"_s, u"k = v\\n vnk = vn"_s},
        {u"k = a\\\n\nd = e"_s, u"k = v\\nnk = vn"_s},
        {u"k = a\\\n  \nd = e"_s, u"k = v\\n nk = vn"_s},
        {u"k = \\"_s, u"k = \\n"_s},
    };
    for (const auto &row : cases)
        EXPECT_EQ(Kinds(row.Text), row.Kinds) << qPrintable(row.Text);
}

// What the editor relies on: no character is lost, and a line can be read alone from its state.
TEST(IniLexer, LosesNothingAndRestartsAtEveryLine)
{
    std::mt19937 random(20);
    const QString alphabet = u"ab =:[]#;\"'\\\\ \t"_s;
    for (int round = 0; round < 200; ++round) {
        QStringList lines;
        for (int i = 0; i < 6; ++i) {
            QString line;
            for (auto n = random() % 12; n > 0; --n)
                line += alphabet[qsizetype(random() % size_t(alphabet.size()))];
            lines += line;
        }
        TStates states;
        const QStringList all = Tokens(lines, states);
        QString text;
        for (const QString &token : all)
            text += token.section(u':', 1);
        EXPECT_EQ(text, lines.join(u"\r\n"_s) + u"\r\n"_s);
        for (int first = 1; first < lines.size(); ++first) {
            const QStringList part = Tokens(lines, states, first);
            EXPECT_EQ(part, all.mid(all.size() - part.size())) << qPrintable(lines.join(u'\n'));
        }
    }
}
