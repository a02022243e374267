#include "uZtCodeEditOperate.h"

#include "uZtPlatform.h"

#include <QScopeGuard>

#include <algorithm>

// Searching with zcReplaceAll: each step is whole by itself, and looks at the text as it is.

namespace {

constexpr int LongLine = 1 << 14; // of which the matches are replaced in one go

} // namespace

void TZtCodeEdit::SayOfSearch(const QString &AText, bool ABox)
{
    if (FOnSearchMessage)
        Tell([&] { Fire(FOnSearchMessage, AText); });
    else if (ABox)
        ZtMsgBoxInfo(AText, QString());
}

// The first match between two places, downwards, or the last one.
bool TZtCodeEdit::FindBetween(const TZtBufferSearch &ASearch, QPoint AFrom, QPoint ATo,
                              bool AForward, QPoint &AMatch) const
{
    const int length = int(FSearchOptions.SearchString.size());
    const int last = std::min(ATo.y(), FLines->GetCount() - 1);
    const int first = std::max(AFrom.y(), 0);
    for (int y = AForward ? first : last; first <= y && y <= last; y += AForward ? 1 : -1) {
        const QAnyStringView line = FLines->View(y);
        const qsizetype from = y == AFrom.y() ? std::max(AFrom.x(), 0) : 0;
        const qsizetype to = y == ATo.y() ? std::min<qsizetype>(ATo.x(), line.size()) : line.size();
        const qsizetype at = ASearch.Find(line, AForward ? from : to);
        if (at >= from && at + length <= to) {
            AMatch = QPoint(int(at), y);
            return true;
        }
    }
    return false;
}

// From a place to the end of the scope and, if that is asked for, from its other end on.
bool TZtCodeEdit::FindRound(const TZtBufferSearch &ASearch, const QPoint &AFrom, bool AForward,
                            bool AWraps, QPoint &AMatch)
{
    const TZtSearchReplaceOptions &options = FSearchOptions;
    const QPoint start(options.StartPos, options.StartLine), end(options.EndPos, options.EndLine);
    const QPoint from = ZtIsBefore(AFrom, start) ? start : ZtIsBefore(end, AFrom) ? end : AFrom;
    if (FindBetween(ASearch, AForward ? from : start, AForward ? end : from, AForward, AMatch))
        return true;
    if (!AWraps || !FindBetween(ASearch, start, end, AForward, AMatch))
        return false;
    SayOfSearch(AForward ? tr("The search went on from the start.")
                         : tr("The search went on from the end."),
                true);
    return true;
}

void TZtCodeEdit::SearchStep(TZtSearchAgain AAgain)
{
    TZtSearchReplaceOptions &options = FSearchOptions;
    const bool again = AAgain != TZtSearchAgain::saAsGiven;
    const bool forward = again ? AAgain == TZtSearchAgain::saForward : options.SearchForward;
    if (again || options.Origin == TZtSearchOrigin::SearchFromCursor)
        options.WidenTo(*FLines);
    if (options.ReplaceAll && !again)
        return ReplaceAll();
    const bool fromCursor = again || options.Origin == TZtSearchOrigin::SearchFromCursor;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown, forward);
    const TZtBufferSearch search(options.SearchString, flags);
    // What is selected is where the last step ended: the next match lies behind it.
    const bool reversed = SelectionReversed();
    QPoint from(FCharPos, FLinePos);
    if (fromCursor && SelectionGiven())
        from = forward != reversed ? FSelEnd : FSelStart;
    if (!fromCursor)
        from = forward ? QPoint(options.StartPos, options.StartLine)
                       : QPoint(options.EndPos, options.EndLine);
    QPoint match;
    const quint64 revision = FLines->GetRevision();
    const bool found = FindRound(search, from, forward, fromCursor, match);
    options.WidenTo(*FLines);
    options.Origin = TZtSearchOrigin::SearchFromCursor;
    if (!found) {
        ZtMsgBoxInfo(tr("Search string '%1' not found.").arg(options.SearchString), QString());
        return;
    }
    if (FLines->GetRevision() != revision)
        return; // somebody changed the text while a box was open
    const QPoint end = match + QPoint(int(options.SearchString.size()), 0);
    MoveTo(forward ? end : match);
    SetSelStart(forward ? end : match);
    SetSelEnd(forward ? match : end);
    if (options.Replace && !again && !GetReadOnly())
        ReplaceFound(match, revision);
}

// Replaces the match that was found in the text of that revision; false where the user wants no
// more, or the match may be another text now.
bool TZtCodeEdit::ReplaceFound(const QPoint &AMatch, quint64 ARevision)
{
    int answer = mrYes;
    if (FSearchOptions.PromptOnReplace) {
        const QString question =
            tr("Do you want to replace this occurrence of '%1'?").arg(FSearchOptions.SearchString);
        answer = FSearchOptions.ReplaceAll ? ZtMsgBoxYesNoCancel(question, QString())
                                           : ZtMsgBoxYesNo(question, QString());
    }
    if (IsAbandoned() || answer == mrCancel)
        return false;
    bool same = FLines->GetRevision() == ARevision;
    if (answer != mrYes || !same)
        return same;
    Operate([&] {
        Changed();
        same = FLines->GetRevision() == ARevision;
        if (!same)
            return;
        const QPoint end = AMatch + QPoint(int(FSearchOptions.SearchString.size()), 0);
        MoveTo(PutInPlace(AMatch, end, FSearchOptions.ReplaceWith));
        SetSelection(true);
        Redraw();
    });
    return same;
}

// Puts a text, which may hold breaks, in the place of another. Answers where it ends.
QPoint TZtCodeEdit::PutInPlace(const QPoint &AFrom, const QPoint &ATo, const QString &S)
{
    const TZtTextPiece piece(S);
    const int breaks = piece.GetCount() - 1;
    const int length = int(piece.GetLine(breaks).size());
    if (breaks == 0 && FLines->GetPiece(AFrom, ATo).GetText() == S)
        return ATo; // nothing changes
    Record(TZtChangeType::ctDelete, AFrom, ATo, AFrom, FLines->GetPiece(AFrom, ATo).GetText());
    FLines->ReplaceText(AFrom, ATo, piece);
    const QPoint end(breaks == 0 ? AFrom.x() + length : length, AFrom.y() + breaks);
    Record(TZtChangeType::ctPaste, AFrom, end, AFrom, QString());
    return end;
}

void TZtCodeEdit::ReplaceAll()
{
    if (GetReadOnly())
        return;
    int count = 0;
    Operate([&] {
        RunToEnd([&] {
            FLines->GetRaised()->Run([&] {
                count = FSearchOptions.PromptOnReplace ? ReplaceAsked() : ReplaceUnasked();
            });
        });
    });
    if (IsAbandoned())
        return;
    FSearchOptions.WidenTo(*FLines);
    FSearchOptions.Origin = TZtSearchOrigin::SearchFromCursor;
    Redraw();
    if (count == 0)
        ZtMsgBoxInfo(tr("Search string '%1' not found.").arg(FSearchOptions.SearchString),
                     QString());
    else if (count > 0)
        SayOfSearch(tr("%n occurrence(s) replaced.", nullptr, count), false);
}

// Each after a question, from the caret or the scope's start on. Answers how many were found, or -1
// where the user had enough.
int TZtCodeEdit::ReplaceAsked()
{
    const TZtSearchReplaceOptions &options = FSearchOptions;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown);
    const TZtBufferSearch search(options.SearchString, flags);
    QPoint from(options.StartPos, options.StartLine), match;
    int found = 0;
    quint64 revision = FLines->GetRevision();
    while (FindBetween(search, from, {options.EndPos, options.EndLine}, true, match)) {
        ++found;
        const QPoint end = match + QPoint(int(options.SearchString.size()), 0);
        MoveTo(end);
        SetSelStart(end);
        SetSelEnd(match);
        const QPoint scopeEnd(options.EndPos, options.EndLine);
        const int below = FLines->GetCount() - scopeEnd.y();
        const int behind =
            FLines->GetLength(qMin(scopeEnd.y(), FLines->GetCount() - 1)) - scopeEnd.x();
        if (!ReplaceFound(match, revision))
            return -1;
        revision = FLines->GetRevision();
        from = {FCharPos, FLinePos};
        FSearchOptions.EndLine = FLines->GetCount() - below;
        FSearchOptions.EndPos = FLines->GetLength(FSearchOptions.EndLine) - behind;
    }
    return found;
}

// All at once, from the last line up, so that what is still to come stays where it was.
int TZtCodeEdit::ReplaceUnasked()
{
    const TZtSearchReplaceOptions options = FSearchOptions;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown);
    const TZtBufferSearch search(options.SearchString, flags);
    const int length = int(options.SearchString.size());
    QPoint last;
    if (!FindBetween(search, {options.StartPos, options.StartLine},
                     {options.EndPos, options.EndLine}, true, last))
        return 0;
    Changed(); // which may change the text: the matches are looked for behind it
    int count = 0;
    std::vector<int> matches;
    FLines->BeginUpdate();
    const auto update = qScopeGuard([this] { FLines->EndUpdate(); });
    for (int y = std::min(options.EndLine, FLines->GetCount() - 1); y >= options.StartLine; --y) {
        const QAnyStringView line = FLines->View(y);
        const qsizetype end = y == options.EndLine ? options.EndPos : line.size();
        matches.clear();
        qsizetype at = search.Find(line, y == options.StartLine ? options.StartPos : 0);
        for (; at >= 0 && at + length <= end; at = search.Find(line, at + length))
            matches.push_back(int(at));
        if (matches.empty())
            continue;
        if (count == 0)
            last = {matches.back(), y};
        count += int(matches.size());
        ReplaceInLine(y, matches);
    }
    MoveTo(InText(last));
    SetSelection(true);
    return count;
}

// One after the other, or in a long line together: each would move all that is behind it.
void TZtCodeEdit::ReplaceInLine(int ALine, const std::vector<int> &AMatches)
{
    const int length = int(FSearchOptions.SearchString.size());
    const QString &text = FSearchOptions.ReplaceWith;
    if (FLines->GetLength(ALine) < LongLine) {
        for (auto at = AMatches.rbegin(); at != AMatches.rend(); ++at)
            PutInPlace({*at, ALine}, {*at + length, ALine}, text);
        return;
    }
    const QString line = FLines->GetStrings(ALine);
    QString replaced;
    int from = AMatches.front();
    for (const int at : AMatches) {
        replaced += QStringView(line).sliced(from, at - from);
        replaced += text;
        from = at + length;
    }
    PutInPlace({AMatches.front(), ALine}, {from, ALine}, replaced);
}
