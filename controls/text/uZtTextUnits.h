#pragma once

#include <QAnyStringView>

#include <utility>

enum class TZtTextUnit {
    tuCharacter, ///< a grapheme cluster
    tuWord,      ///< a word, or what stands between two
    tuSentence,
};

/// The unit (first column, column behind it; 0-based, UTF-16 units) that holds a column of a line,
/// by the boundaries of UAX #29. What is far from the column, 2048 units, is not looked at. Behind
/// the line's end there is none: both are its length.
std::pair<int, int> ZtUnitAt(QAnyStringView ALine, int AColumn, TZtTextUnit AUnit);
