#include "uZtMatchMarks.h"

#include "uZtStringList.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr int MostStretches = 65'536;
constexpr int Before = 65'536; // what is looked at of a long line left of what is asked for
constexpr int Piece = 65'536;  // of a line that is looked through in one go
constexpr qint64 UnitsPerClock = 65'536;

// The line's first `ALength` units.
QAnyStringView FirstOf(QAnyStringView ALine, qsizetype ALength)
{
    return ALine.visit([&](auto view) -> QAnyStringView {
        return decltype(view)(view.data(), std::min<qsizetype>(view.size(), ALength));
    });
}

} // namespace

TZtMatchMarks::TZtMatchMarks(TStringList *AText) : FText(AText) {}

void TZtMatchMarks::SetSearch(const QString &ASearch, TZtSearchFlags AFlags)
{
    Clear();
    if (ASearch.isEmpty())
        return;
    FSearch.emplace(ASearch, AFlags | TZtSearchFlag::sfDown);
    FLength = int(ASearch.size());
    Restart();
}

void TZtMatchMarks::Clear()
{
    FSearch.reset();
    FComplete.reset();
    FPass = {};
    FIsDone = true;
}

// Calls `ADo(start)` for the matches that begin between two columns; answers where the next may.
template <typename TDo>
int TZtMatchMarks::ForEachMatch(int ALine, int AFrom, int ATo, TDo ADo) const
{
    const QAnyStringView line = FirstOf(FText->View(ALine), qsizetype(ATo) + FLength);
    qsizetype next = AFrom;
    for (qsizetype at; next < ATo && (at = FSearch->Find(line, next)) >= 0 && at < ATo;
         next = at + FLength)
        ADo(int(at));
    return std::max(ATo, int(next));
}

std::vector<TZtMatchMarks::TMatch> TZtMatchMarks::GetInLine(int ALine, int AFrom, int ATo) const
{
    std::vector<TMatch> matches;
    if (!FSearch || !FText || ALine < 0 || ALine >= FText->GetCount())
        return matches;
    const int from = std::max(AFrom, 0);
    const int to = std::min(ATo, FText->GetLength(ALine));
    ForEachMatch(ALine, std::max(from - Before, 0), to, [&](int AStart) {
        if (AStart + FLength > from)
            matches.push_back({AStart, FLength});
    });
    return matches;
}

void TZtMatchMarks::Restart()
{
    FPass = {};
    FLine = FColumn = 0;
    FIsDone = !FSearch || !FText;
    if (FIsDone)
        return;
    FPass.Revision = FText->GetRevision();
    FPass.Lines = FText->GetCount();
    while ((FPass.Lines >> FPass.Shift) >= MostStretches)
        ++FPass.Shift;
    FPass.Stretches.resize(size_t(FPass.Lines >> FPass.Shift) + 1);
}

bool TZtMatchMarks::Advance(int AMilliseconds)
{
    if (FIsDone || !FText)
        return false;
    QElapsedTimer time;
    time.start();
    do {
        for (qint64 units = UnitsPerClock; units > 0 && FLine < FText->GetCount();)
            units -= SearchPiece();
    } while (FLine < FText->GetCount() && time.elapsed() < AMilliseconds);
    if (FLine < FText->GetCount())
        return true;
    FIsDone = true;
    FComplete = std::move(FPass);
    FPass = {};
    return false;
}

// Looks through a line, or some more of a long one; answers what that cost.
int TZtMatchMarks::SearchPiece()
{
    constexpr int perLine = 16;
    const int length = FText->GetLength(FLine);
    const int from = FColumn;
    const int to = length - from > Piece ? from + Piece : length;
    const qint64 before = FPass.Count;
    FColumn = ForEachMatch(FLine, from, to, [this](int) { ++FPass.Count; });
    if (FPass.Count > before) {
        // Lines that came since the pass began count for the last of those that were there.
        const size_t stretch = size_t(FLine >> FPass.Shift);
        FPass.Stretches[std::min(stretch, FPass.Stretches.size() - 1)] = true;
    }
    if (FColumn >= length) {
        ++FLine;
        FColumn = 0;
    }
    return std::max(to - from, 0) + perLine;
}

bool TZtMatchMarks::IsComplete() const
{
    return !FSearch ||
           (FIsDone && FComplete && FText && FComplete->Revision == FText->GetRevision());
}

void TZtMatchMarks::Survey(std::vector<quint32> &ARows, quint32 ABit) const
{
    const TPass &pass = Shown();
    const qint64 rows = std::ssize(ARows);
    for (size_t i = 0; i < pass.Stretches.size() && rows > 0 && pass.Lines > 0; ++i) {
        if (!pass.Stretches[i])
            continue;
        const qint64 first = qint64(i) << pass.Shift;
        const qint64 middle = first + ((qint64(1) << pass.Shift) - 1) / 2;
        const qint64 line = std::min<qint64>(middle, pass.Lines - 1);
        ARows[size_t(line * rows / pass.Lines)] |= ABit;
    }
}
