#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A text of the interface and what it is in another language.
struct TTranslatedText {
    QString Context;
    QString Source;
    QStringList Forms; ///< one, or those for the numbers
    bool IsPlural = false;
    bool IsFinished = false;

    QString Name() const { return Context + QStringLiteral(": ") + Source; }
};

/// The files of texts in a folder, without it.
QStringList FilesOfTexts(const QString &AFolder);
/// What such a file holds.
std::vector<TTranslatedText> ReadTexts(const QString &AFile);
