#pragma once

#include <QAnyStringView>
#include <QPoint>

#include <utility>

class TStringList;

/// Where a jump by one word from `AFrom` (character, line; 0-based) leads. The line must exist.
///
/// A word is a run of ASCII digits, ASCII letters and characters above 255. Forward, a jump within
/// a line stops at the line's end before it goes on to the next one. Backward, the character
/// immediately left of `AFrom` is never looked at, and lines are crossed only from column 0; a jump
/// that finds no word there leads to the start of the text. The character may be -1 where the scan
/// met the start of its line.
QPoint ZtWordJump(const TStringList &ALines, const QPoint &AFrom, bool AForward);

/// The word (first column, column behind it; 0-based, UTF-16 units) that a column of a line stands
/// in or right behind; both are the column where there is none.
///
/// A word is a run of letters, digits, marks and underscores, so that an identifier is one, as far
/// as it has no word boundary of UAX #29 inside. What is far from the column, 2048 units, is not
/// looked at.
std::pair<int, int> ZtWordAt(QAnyStringView ALine, int AColumn);

/// Where a jump by one word of that kind leads: forward behind the word, or the run of other
/// characters, and the blanks behind it; backward to its start. A jump stops at a line's end and
/// crosses it from there. The line must exist.
QPoint ZtUnicodeWordJump(const TStringList &ALines, const QPoint &AFrom, bool AForward);

/// Whether the characters at `AColumn` and behind it (0-based) are the two halves of one code
/// point, which the caret and the deleting keys take as one.
bool ZtIsPair(const TStringList &ALines, int ALine, int AColumn);
