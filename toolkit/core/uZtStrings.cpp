#include "uZtStrings.h"

#include "uZtStringList.h"

namespace {

qsizetype TrimmedEnd(const QString &S)
{
    qsizetype end = S.size();
    while (end > 0 && S.at(end - 1).unicode() <= 32)
        --end;
    return end;
}

} // namespace

void ZtStringToList(const QString &S, const QString &ASeparator, TStringList &AList)
{
    qsizetype from = 0;
    if (!ASeparator.isEmpty()) {
        for (qsizetype at; (at = S.indexOf(ASeparator, from)) >= 0; from = at + ASeparator.size())
            AList.Add(S.mid(from, at - from));
    }
    AList.Add(S.mid(from));
}

QString ZtTrimRight(const QString &S) { return S.left(TrimmedEnd(S)); }

void ZtChopBlanks(QString &S) { S.truncate(TrimmedEnd(S)); }

QString ZtTrim(const QString &S)
{
    const qsizetype end = TrimmedEnd(S);
    qsizetype start = 0;
    while (start < end && S.at(start).unicode() <= 32)
        ++start;
    return S.mid(start, end - start);
}
