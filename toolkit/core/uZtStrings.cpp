#include "uZtStrings.h"

#include "uZtStringList.h"

qsizetype ZtTrimmedSize(QAnyStringView S)
{
    return S.visit([](auto view) {
        qsizetype end = view.size();
        while (end > 0 && QChar(view[end - 1]).unicode() <= 32)
            --end;
        return end;
    });
}

void ZtStringToList(const QString &S, const QString &ASeparator, TStringList &AList)
{
    qsizetype from = 0;
    if (!ASeparator.isEmpty()) {
        for (qsizetype at; (at = S.indexOf(ASeparator, from)) >= 0; from = at + ASeparator.size())
            AList.Add(S.mid(from, at - from));
    }
    AList.Add(S.mid(from));
}

QString ZtTrimRight(const QString &S) { return S.left(ZtTrimmedSize(S)); }

void ZtChopBlanks(QString &S) { S.truncate(ZtTrimmedSize(S)); }

QString ZtTrim(const QString &S)
{
    const qsizetype end = ZtTrimmedSize(S);
    qsizetype start = 0;
    while (start < end && S.at(start).unicode() <= 32)
        ++start;
    return S.mid(start, end - start);
}
