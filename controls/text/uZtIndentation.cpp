#include "uZtIndentation.h"

#include "uZtStringList.h"

namespace {

int LeadingSpaces(const QString &ALine)
{
    int count = 0;
    while (count < ALine.size() && ALine.at(count) == u' ')
        ++count;
    return count;
}

// The 1-based index of the first character that is no space, but at most the line's last one; 0 for
// a line that does not start with a space.
int IndentationLevel(const QString &ALine)
{
    const int spaces = LeadingSpaces(ALine);
    return spaces == 0 ? 0 : qMin(spaces + 1, int(ALine.size()));
}

} // namespace

qsizetype ZtIndentOf(QStringView ALine)
{
    qsizetype count = 0;
    while (count < ALine.size() && (ALine[count] == u' ' || ALine[count] == u'\t'))
        ++count;
    return count;
}

int ZtAutoIndent(const TStringList &ALines, int ALine)
{
    for (int k = ALine; k >= 0; --k) {
        const QString line = ALines.GetStrings(k);
        const int spaces = LeadingSpaces(line);
        if (spaces < line.size())
            return spaces;
    }
    return -1;
}

int ZtIndentationBefore(const TStringList &ALines, int ALine, int AColumn)
{
    for (int k = ALine; k >= 1; --k) {
        const int level = IndentationLevel(ALines.GetStrings(k));
        if (level > 0 && level < AColumn)
            return level - 1;
    }
    return -1;
}
