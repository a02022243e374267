#pragma once

#include <QString>

/// Stands once in the text of 100 MB, at its end, and 100,000 times in the one for replacing.
constexpr char Needle[] = "quiteUnusualName";

/// Writes the texts of all tasks into a folder; false when one cannot be written.
bool WriteTexts(const QString &AFolder);
