#pragma once

#include "uZtTokenDump.h"

#include <ostream>

/// A source text and the file of its tokens: everything under examples/<language> and
/// tests/golden/<language> with the language's extension.
struct TGoldenCase {
    const TZtTokenLanguage *Language;
    QString Name; ///< "pascal/comments.pas"
    QString SourceFile;
    QString TokenFile;
};

inline void PrintTo(const TGoldenCase &ACase, std::ostream *AStream)
{
    *AStream << ACase.Name.toStdString();
}

QList<TGoldenCase> GoldenCases();
QString ReadTextFile(const QString &AFileName);
/// What the token file should hold: the source read line by line.
QString TokenText(const TGoldenCase &ACase);
/// The folder with the token files and the list of intended differences.
QString GoldenFolder();
