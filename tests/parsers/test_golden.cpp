#include "lexing.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Quoted(const QString &AText)
{
    TZtTokenRecord record;
    record.Text = AText;
    return record.ToString().section(u' ', 3);
}

QString Attributes(TColor ABackGround, TColor AColor, TFontStyles AStyle)
{
    return u"%1 on %2, style %3"_s.arg(AColor, 8, 16, '0'_L1)
        .arg(ABackGround, 8, 16, '0'_L1)
        .arg(AStyle.toInt());
}

/// A language with the letters of its kinds.
class TGoldens {
public:
    TGoldens(const TZtTokenLanguage &ALanguage, const QStringList &ALegend);
    QStringList Legend() const;
    QStringList Lines(const QStringList &ALines);
    QString Alone(const QString &ALine);

private:
    QStringList Show(const QStringList &APieces, const QList<TZtTokenRecord> &ATokens,
                     QStringList ANotes);
    void CheckDrawn(const QString &AText, const QList<TZtTokenRecord> &ATokens);

    const TZtTokenLanguage &FLanguage;
    const std::unique_ptr<TZtTokenReader> FReader = FLanguage.CreateReader();
    QStringList FUsual; // the legend's lines that are written by hand
    QHash<QString, QChar> FLetters;
    QHash<QChar, QString> FUsualTexts;
    QHash<QString, QString> FDrawn; // the row and the attributes of each kind that was seen
};

// The kinds in their order. One that no golden has is one that the lexer never gives.
QStringList TGoldens::Legend() const
{
    QStringList lines = FUsual;
    const QMetaEnum kinds = FReader->Kinds();
    for (int i = 0; i < kinds.keyCount(); ++i) {
        const QString kind = QLatin1StringView(kinds.key(i));
        lines += FLetters.value(kind, u' ') + u' ' + kind.leftJustified(18) +
                 FDrawn.value(kind, u"never given"_s);
    }
    return lines;
}

TGoldens::TGoldens(const TZtTokenLanguage &ALanguage, const QStringList &ALegend)
    : FLanguage(ALanguage)
{
    for (const QString &line : ALegend)
        if (const QStringList words = line.split(u' '); words.first() == u"usual") {
            FUsualTexts[words.at(1).front()] = words.at(2);
            FUsual += line;
        } else if (!line.startsWith(u' ')) {
            EXPECT_TRUE(FLetters.key(line.front()).isEmpty()) << "two kinds of a letter";
            FLetters[words.at(1)] = line.front();
        }
}

QStringList TGoldens::Lines(const QStringList &ALines)
{
    QList<int> states;
    QStringList lines, pieces, notes;
    for (const QString &line : ALines) {
        lines += GoldenText(line);
        pieces += lines.last() + "\r\n"_L1;
    }
    const auto tokens = ZtReadTokens(*FReader, lines, states);
    for (const int state : states)
        notes += state == 0 ? QString() : u" state %1"_s.arg(state);
    const QStringList shown = Show(pieces, tokens, notes);
    CheckDrawn(pieces.join(QString()), tokens);
    return shown;
}

QString TGoldens::Alone(const QString &ALine)
{
    const QString text = GoldenText(ALine);
    TTextStream stream(text);
    const auto reader = FLanguage.CreateReader();
    reader->Parser().SetInputStream(&stream, false);
    reader->Parser().SetEndLines(!ALine.startsWith(u'-'));
    reader->Parser().SetLineKind(ALine.left(1).toInt());
    return Show({text}, ZtDrainTokens(*reader, text.split("\r\n"_L1)), {}).first();
}

QStringList TGoldens::Show(const QStringList &APieces, const QList<TZtTokenRecord> &ATokens,
                           QStringList ANotes)
{
    const QString text = APieces.join(QString());
    QString kinds(text.size(), u'~');
    ANotes.resize(APieces.size());
    for (const TZtTokenRecord &token : ATokens) {
        TColor background = 0, color = 0;
        TFontStyles style;
        FReader->RowAttributes(token.Row, background, color, style);
        FDrawn[QLatin1StringView(token.Kind)] =
            u"row %1: "_s.arg(token.Row) + Attributes(background, color, style);
        const QChar letter = FLetters.value(QLatin1StringView(token.Kind), u' ');
        const QString read = text.mid(token.Start, token.Length), tokenText = Quoted(token.Text);
        const bool hidden = read.isEmpty() && token.Start < text.size();
        if (!hidden)
            kinds.replace(token.Start, qMax(1, read.size()),
                          letter + QString(qMax(0, read.size() - 1), u'.'));
        if (hidden || tokenText != FUsualTexts.value(letter, Quoted(read)))
            ANotes[qMin<qsizetype>(token.Line, APieces.size()) - 1] +=
                u"%1%2@%3 "_s.arg(hidden ? u" +" : u" ", letter).arg(token.Column) + tokenText;
    }
    QStringList shown;
    for (qsizetype at = 0, i = 0; i < APieces.size(); at += APieces.at(i++).size()) {
        const bool last = i == APieces.size() - 1;
        const QString note = ANotes.at(i).isEmpty() ? QString() : u" |"_s + ANotes.at(i);
        shown += kinds.mid(at, last ? -1 : APieces.at(i).size()) + note;
    }
    return shown;
}

// From a stream `GetNextToken` gives the same.
void TGoldens::CheckDrawn(const QString &AText, const QList<TZtTokenRecord> &ATokens)
{
    const auto parser = FLanguage.CreateParser();
    TTextStream stream(AText);
    parser->SetEndLines(true);
    parser->SetInputStream(&stream, false);
    QString text; // the lexers leave it alone at some line breaks
    for (const TZtTokenRecord &token : ATokens) {
        TColor background = 1, color = 1;
        TFontStyles style = TFontStyle::fsStrikeOut;
        bool lineBreak = false;
        const bool more = parser->GetNextToken(text, background, color, style, lineBreak);
        const QString drawn = FDrawn[QLatin1StringView(token.Kind)].section(u": "_s, 1);
        EXPECT_EQ((Attributes(background, color, style) + text).toStdString(),
                  (drawn + token.Text).toStdString());
        EXPECT_EQ(lineBreak, QByteArray(token.Kind).endsWith("LineBreak"));
        EXPECT_EQ(more, &token != &ATokens.last());
    }
}

TEST(Golden, SourcesGiveTheKindsUnderThemAsTheLegendTells)
{
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const QString folder = QLatin1StringView(language.Name) + u"/"_s;
        TGoldens goldens(language, GoldenLines(folder + u"legend"_s));
        const QDir files(u"" ZT_SOURCE_DIR "/tests/golden/"_s + folder);
        for (const QString &file : files.entryList({u"*.txt"_s})) {
            QStringList shown =
                goldens.Lines(GoldenLines(folder + file).filter(QRegularExpression(u"^>"_s)));
            ExpectUnderEachLine(folder + file, [&](const QString &line) {
                return line.startsWith(u'>') ? shown.takeFirst() : goldens.Alone(line);
            });
        }
        ExpectGolden(folder + u"legend"_s, goldens.Legend());
    }
}

} // namespace
