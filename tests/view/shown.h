#pragma once

#include <QString>

#include <ostream>

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << QString(S).replace(u'\n', QStringLiteral("\\n")).toStdString() << '"';
}
