#pragma once

#include "uZtStringList.h"

#include <QRegularExpression>

#include <random>

// Changes a text at random, by each operation that a text has.
class TRandomEdits {
public:
    // Words may hold breaks, which some operations leave within a line. A text of more lines than
    // `AMostLines` is soon replaced.
    TRandomEdits(TStringList &AText, unsigned ASeed, int AMostLines = 40,
                 const QStringList &AWords = {"a", "word", "\u00E4\t", QChar(0xD83D), "\r\n",
                                              "a\rb\n"})
        : FText(AText), FRandom(ASeed), FMostLines(AMostLines), FWords(AWords)
    {
    }
    int Below(int AEnd) { return int(FRandom() % unsigned(AEnd)); }
    QString Lines(int ACount)
    {
        QString lines = Words();
        while (--ACount > 0)
            lines += u'\n' + Words();
        return lines;
    }
    QPoint Place()
    {
        const int y = Below(FText.GetCount() + 1);
        return y == FText.GetCount() ? FText.GetEnd() : QPoint(Below(FText.GetLength(y) + 1), y);
    }
    void One()
    {
        const int count = FText.GetCount();
        const int kind = Below(20);
        if (kind == 0 || (kind < 4 && count > FMostLines))
            Below(4) ? FText.SetText(Lines(FMostLines / 2)) : FText.Clear();
        else if (kind < 3)
            FText.InsertObject(Below(count + 1), Words(), Below(9));
        else if (kind < 9 && count > 0)
            ChangeLine(kind, Below(count));
        else
            Replace();
    }

private:
    QString Words()
    {
        QString words;
        for (int i = Below(4); i > 0; --i)
            words += FWords[Below(int(FWords.size()))];
        return words;
    }
    void ChangeLine(int AKind, int ALine)
    {
        QString line = FText.GetStrings(ALine);
        if (AKind == 3)
            FText.Delete(ALine);
        else if (AKind < 6)
            FText.SetStrings(ALine, Below(2) ? Words() : line.replace("a", "ba"));
        else if (AKind == 6)
            FText.EditStrings(ALine, std::move(line), [](QString &S) { S += u'x'; });
        else
            FText.ReplaceInLine(ALine, Below(int(line.size()) + 1), 0, Words().remove(Breaks));
    }
    void Replace()
    {
        QPoint from = Place();
        QPoint to = Below(3) ? from : Place();
        if (ZtIsBefore(to, from))
            std::swap(from, to);
        to = to.y() > from.y() + 30 ? from : to;
        QString text = Lines(Below(4) ? 1 : 1 + Below(FMostLines / 10));
        if (to == FText.GetEnd()) {
            from.setX(0);
            text += text.isEmpty() || text.endsWith(u'\n') ? "" : "\n";
        }
        FText.ReplaceText(from, to, TZtTextPiece(text));
    }

    const QRegularExpression Breaks{"[\r\n]"};
    TStringList &FText;
    std::mt19937 FRandom;
    const int FMostLines;
    const QStringList FWords;
};
