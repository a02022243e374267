#include "uZtTextUnits.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

constexpr qsizetype Sight = 2048; // units on either side

QTextBoundaryFinder::BoundaryType TypeOf(TZtTextUnit AUnit)
{
    switch (AUnit) {
    case TZtTextUnit::tuCharacter:
        return QTextBoundaryFinder::Grapheme;
    case TZtTextUnit::tuWord:
        return QTextBoundaryFinder::Word;
    case TZtTextUnit::tuSentence:
        break;
    }
    return QTextBoundaryFinder::Sentence;
}

bool IsEdge(const QTextBoundaryFinder &AFinder)
{
    return AFinder.boundaryReasons() &
           (QTextBoundaryFinder::StartOfItem | QTextBoundaryFinder::EndOfItem);
}

} // namespace

std::pair<int, int> ZtUnitAt(QAnyStringView ALine, int AColumn, TZtTextUnit AUnit)
{
    if (AColumn >= ALine.size())
        return {int(ALine.size()), int(ALine.size())};
    const qsizetype from = std::max<qsizetype>(AColumn - Sight, 0);
    const QString text = ALine.visit([&](auto line) {
        return line.sliced(from, std::min(line.size() - from, 2 * Sight)).toString();
    });
    const qsizetype at = AColumn - from;
    QTextBoundaryFinder finder(TypeOf(AUnit), text);
    finder.setPosition(at + 1);
    while (finder.toPreviousBoundary() > 0 && !IsEdge(finder)) {
    }
    const qsizetype start = std::max<qsizetype>(finder.position(), 0);
    finder.setPosition(at);
    qsizetype end = finder.toNextBoundary();
    while (end >= 0 && end < text.size() && !IsEdge(finder))
        end = finder.toNextBoundary();
    return {int(from + start), int(from + (end < 0 ? text.size() : end))};
}
