#include "uZtEditSearch.h"

#include "fZtCodeEditSearchReplaceDlg.h"
#include "uZtCaret.h"
#include "uZtCodeEditOperate.h"
#include "uZtPlatform.h"
#include "uZtStrings.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QScopeGuard>

#include <algorithm>

namespace {

// How the dialog was closed. Its own Replace All button answers 10, which starts nothing; 14 comes
// from a host's.
constexpr int ResultOK = 1;
constexpr int ResultReplaceAll = 14;
constexpr int ResultReplaceAllButton = 10;

constexpr quint32 MsgSearchDialog = quint32(TZtMsg::wmUser) + 2;
constexpr quint32 MsgSearch = quint32(TZtMsg::wmUser) + 3;

constexpr int LongLine = 1 << 14;       // of which the matches are replaced in one go
constexpr int ReplacingPaintPause = 30; // milliseconds between two pictures of a replace-all

using TDlgType = TFrmCodeEditSearchReplaceDlgType;

// The first characters of a run; positions beyond its end count as its end.
QAnyStringView First(QAnyStringView ARun, qsizetype ACount)
{
    return ARun.visit([=](auto run) -> QAnyStringView {
        return run.first(qBound<qsizetype>(0, ACount, run.size()));
    });
}

QAnyStringView Skip(QAnyStringView ARun, qsizetype ACount)
{
    return ARun.visit([=](auto run) -> QAnyStringView {
        return run.sliced(qBound<qsizetype>(0, ACount, run.size()));
    });
}

} // namespace

void TZtEditSearch::ShowDialog(bool AReplaces)
{
    if (!FDialog) {
        FDialog = new TFrmCodeEditSearchReplaceDlg(&FEdit);
        FDialog->SetCtl3D(FEdit.GetCtl3D());
    }
    FDialog->SetDlgType(AReplaces ? TDlgType::replace : TDlgType::search);
    FDialog->SetGoesRound(FEdit.IsCorrected(TZtCorrection::zcDialogs));
    FDialog->GetRgScope()->SetItemIndex(0);
    FDialog->GetRgOrigin()->SetItemIndex(0);
    if (FEdit.SelLength() > 0)
        OfferSelection();
    const TZtCodeEdit::THold hold(FEdit); // the editor may be deleted while the dialog is open
    const int result = FDialog->ShowModal();
    const bool replaceAll =
        result == ResultReplaceAll ||
        (result == ResultReplaceAllButton && FEdit.IsCorrected(TZtCorrection::zcReplaceAll));
    if ((result != ResultOK && !replaceAll) || FEdit.IsAbandoned())
        return;
    TakeSearchOptions();
    FOptions.ReplaceAll = replaceAll;
    ZtPostMessage(&FEdit, MsgSearch);
}

// A selected word is what is looked for; a longer selection is where.
void TZtEditSearch::OfferSelection()
{
    if (FEdit.GetSelStart().y() != FEdit.GetSelEnd().y()) {
        FDialog->GetRgScope()->SetItemIndex(1);
        FDialog->GetRgOrigin()->SetItemIndex(1);
        return;
    }
    const int from = qMin(FEdit.GetSelStart().x(), FEdit.GetSelEnd().x());
    const int to = qMax(FEdit.GetSelStart().x(), FEdit.GetSelEnd().x());
    const QString text = FEdit.GetLines()->GetStrings(FEdit.GetSelStart().y()).mid(from, to - from);
    if (text.contains(u' '))
        FDialog->GetRgScope()->SetItemIndex(1);
    else
        FDialog->GetEdtTextToFind()->setText(text);
}

void TZtEditSearch::TakeSearchOptions()
{
    TZtSearchReplaceOptions &options = FOptions;
    options.SearchString = ZtTrim(FDialog->GetEdtTextToFind()->text());
    options.CaseSensitive = FDialog->GetChkBxCaseSensitive()->isChecked();
    options.WholeWordsOnly = FDialog->GetChkBxWholeWordsOnly()->isChecked();
    if (FDialog->GetRgScope()->GetItemIndex() == 0) {
        options.WidenTo(*FEdit.GetLines());
    } else {
        // A selection made to the left in one line gives a scope that starts behind its end.
        const bool down = FEdit.GetSelStart().y() < FEdit.GetSelEnd().y();
        const QPoint start = down ? FEdit.GetSelStart() : FEdit.GetSelEnd();
        const QPoint end = down ? FEdit.GetSelEnd() : FEdit.GetSelStart();
        options.StartLine = start.y();
        options.StartPos = start.x();
        options.EndLine = end.y();
        options.EndPos = end.x();
    }
    options.SearchForward = FDialog->GetRgDirection()->GetItemIndex() == 0;
    options.Origin = FDialog->GetRgOrigin()->GetItemIndex() == 0
                         ? TZtSearchOrigin::SearchFromCursor
                         : TZtSearchOrigin::SearchEntireScope;
    options.TakeFlags();
    options.Replace = FDialog->GetDlgType() == TDlgType::replace;
    options.ReplaceWith = FDialog->edtReplaceWith->text();
    options.PromptOnReplace = FDialog->chkBxPromptOnReplace->isChecked();
}

void TZtEditSearch::SetOptions(const TZtSearchReplaceOptions &Value)
{
    FOptions = Value;
    if (!FOptions.Options)
        FOptions.TakeFlags();
    FGiven = true;
}

void TZtEditSearch::Search(quint64 AAgain)
{
    const TZtCodeEdit::THold hold(FEdit); // it may be deleted while a box is open
    const bool once = FDialog || FGiven;
    if (!once && FEdit.IsCorrected(TZtCorrection::zcSearchKey))
        ZtPostMessage(&FEdit, MsgSearchDialog); // there is nothing to repeat yet
    if (!once)
        return;
    FEdit.MarkMatches(FOptions.SearchString, FOptions.Options | TZtSearchFlag::sfDown);
    if (FEdit.IsCorrected(TZtCorrection::zcReplaceAll) || AAgain != 0)
        return FEdit.Operate([&] { SearchStep(TZtSearchAgain(qMin<quint64>(AAgain, 2))); });
    auto ended = qScopeGuard([this] { EndReplaceAll(); }); // also by what the step raises
    QPoint match;
    if (!FindMatch(match)) {
        EndReplaceAll();
        ZtMsgBoxInfo(TZtCodeEdit::tr("Search string '%1' not found.").arg(FOptions.SearchString),
                     QString());
        return;
    }
    SelectMatch(match);
    FOptions.WidenTo(*FEdit.GetLines());
    FOptions.Origin = TZtSearchOrigin::SearchFromCursor;
    if (FOptions.Replace && ReplaceMatch(match))
        ended.dismiss();
}

bool TZtEditSearch::FindMatch(QPoint &AMatch) const
{
    const TZtSearchReplaceOptions &options = FOptions;
    const TZtBufferSearch search(options.SearchString, options.Options);
    int line = options.Origin == TZtSearchOrigin::SearchFromCursor ? FEdit.GetLinePos()
               : options.SearchForward                             ? options.StartLine
                                                                   : options.EndLine;
    // The first line is searched also when it lies outside the scope.
    do {
        const int column =
            options.SearchForward ? FindForward(search, line) : FindBackward(search, line);
        if (column >= 0) {
            AMatch = QPoint(column, line);
            return true;
        }
        line += options.SearchForward ? 1 : -1;
    } while (options.StartLine <= line && line <= options.EndLine);
    return false;
}

int TZtEditSearch::FindForward(const TZtBufferSearch &ASearch, int ALine) const
{
    if (ALine < 0 || ALine >= FEdit.GetLines()->GetCount())
        return -1;
    const TZtSearchReplaceOptions &options = FOptions;
    const QAnyStringView run = FEdit.GetLines()->View(ALine);
    const bool atCaret =
        options.Origin == TZtSearchOrigin::SearchFromCursor && ALine == FEdit.GetLinePos();
    const int start = atCaret                      ? FEdit.GetCharPos()
                      : ALine == options.StartLine ? options.StartPos
                                                   : 0;
    const int size =
        ALine == options.EndLine ? qMin(options.EndPos, int(run.size())) : int(run.size());
    return int(ASearch.Find(First(run, size), start));
}

int TZtEditSearch::FindBackward(const TZtBufferSearch &ASearch, int ALine) const
{
    if (ALine < 0 || ALine >= FEdit.GetLines()->GetCount())
        return -1;
    const TZtSearchReplaceOptions &options = FOptions;
    QAnyStringView run = FEdit.GetLines()->View(ALine);
    qsizetype start = run.size();
    if (options.Origin == TZtSearchOrigin::SearchFromCursor && ALine == FEdit.GetLinePos()) {
        run = First(run, FEdit.GetCharPos());
        start = run.size();
    } else if (ALine == options.EndLine) {
        start = options.EndPos;
    }
    int skipped = 0;
    if (ALine == options.StartLine) {
        skipped = qBound(0, options.StartPos, int(run.size()));
        run = Skip(run, skipped);
        start = run.size();
    }
    const qsizetype at = ASearch.Find(run, start);
    return at < 0 ? -1 : int(at) + skipped;
}

void TZtEditSearch::SelectMatch(const QPoint &AMatch)
{
    const int length = int(FOptions.SearchString.size());
    FEdit.SetLinePos(AMatch.y());
    if (FOptions.SearchForward) {
        FEdit.SetCharPos(AMatch.x() + length);
        FEdit.SetSelStart(AMatch);
        FEdit.SetSelEnd(QPoint(AMatch.x() + length, AMatch.y()));
    } else {
        FEdit.SetCharPos(AMatch.x());
        FEdit.SetSelStart(QPoint(AMatch.x() + length, AMatch.y()));
        FEdit.SetSelEnd(AMatch);
    }
}

// Answers whether the next step was posted.
bool TZtEditSearch::ReplaceMatch(const QPoint &AMatch)
{
    int answer = mrYes;
    const quint64 revision = FEdit.GetLines()->GetRevision();
    if (FOptions.PromptOnReplace) {
        EndReplaceAll();
        const QString question = TZtCodeEdit::tr("Do you want to replace this occurrence of '%1'?")
                                     .arg(FOptions.SearchString);
        answer = FOptions.ReplaceAll ? ZtMsgBoxYesNoCancel(question, QString())
                                     : ZtMsgBoxYesNo(question, QString());
    }
    if (FEdit.IsAbandoned())
        return false;
    // The match may be another text now, when somebody changed it while the question was open.
    if (answer == mrYes && FEdit.GetLines()->GetRevision() == revision) {
        QString deleted;
        FEdit.DeleteSelected(TZtChangeType::ctDelete, deleted);
        FEdit.InsertText(TZtChangeType::ctPaste, FOptions.ReplaceWith);
        FEdit.SetSelection(true);
    }
    if (!FOptions.ReplaceAll || answer == mrCancel)
        return false;
    if (answer == mrYes && !FOptions.SearchForward) {
        // Upwards it goes on before what it inserted, or it would find that again and never end.
        FEdit.SetLinePos(AMatch.y());
        FEdit.SetCharPos(AMatch.x());
    }
    FReplacingAll = true;
    FEdit.GetCaret()->Hide(); // a mark that moves at every step would be painted at every step
    ZtPostMessage(&FEdit, MsgSearch);
    return true;
}

// From here on every change is painted at once again.
void TZtEditSearch::EndReplaceAll()
{
    if (!std::exchange(FReplacingAll, false))
        return;
    HoldScrollBars(false);
    FEdit.ResetCaret();
    FEdit.Redraw();
}

void TZtEditSearch::CloseDialog()
{
    if (FDialog)
        FDialog->reject();
}

bool TZtEditSearch::PutsPaintOff()
{
    if (!FReplacingAll)
        return false;
    const bool hold = FLastPaint.isValid() && FLastPaint.elapsed() < ReplacingPaintPause;
    HoldScrollBars(hold);
    return hold;
}

void TZtEditSearch::HoldScrollBars(bool AHold)
{
    for (TScrollBar *bar : {FEdit.GetHScrollBar(), FEdit.GetVScrollBar()})
        if (bar->updatesEnabled() == AHold)
            bar->setUpdatesEnabled(!AHold);
}

// --- with zcReplaceAll: each step is whole by itself, and looks at the text as it is -------------

void TZtEditSearch::SayOfSearch(const QString &AText, bool ABox)
{
    if (FOnMessage)
        FEdit.Tell([&] { FEdit.Fire(FOnMessage, AText); });
    else if (ABox)
        ZtMsgBoxInfo(AText, QString());
}

// The first match between two places, downwards, or the last one.
bool TZtEditSearch::FindBetween(const TZtBufferSearch &ASearch, QPoint AFrom, QPoint ATo,
                                bool AForward, QPoint &AMatch) const
{
    const int length = int(FOptions.SearchString.size());
    const int last = std::min(ATo.y(), FEdit.GetLines()->GetCount() - 1);
    const int first = std::max(AFrom.y(), 0);
    for (int y = AForward ? first : last; first <= y && y <= last; y += AForward ? 1 : -1) {
        const QAnyStringView line = FEdit.GetLines()->View(y);
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
bool TZtEditSearch::FindRound(const TZtBufferSearch &ASearch, const QPoint &AFrom, bool AForward,
                              bool AWraps, QPoint &AMatch)
{
    const TZtSearchReplaceOptions &options = FOptions;
    const QPoint start(options.StartPos, options.StartLine), end(options.EndPos, options.EndLine);
    const QPoint from = ZtIsBefore(AFrom, start) ? start : ZtIsBefore(end, AFrom) ? end : AFrom;
    if (FindBetween(ASearch, AForward ? from : start, AForward ? end : from, AForward, AMatch))
        return true;
    if (!AWraps || !FindBetween(ASearch, start, end, AForward, AMatch))
        return false;
    SayOfSearch(AForward ? TZtCodeEdit::tr("The search went on from the start.")
                         : TZtCodeEdit::tr("The search went on from the end."),
                true);
    return true;
}

void TZtEditSearch::SearchStep(TZtSearchAgain AAgain)
{
    TZtSearchReplaceOptions &options = FOptions;
    const bool again = AAgain != TZtSearchAgain::saAsGiven;
    const bool forward = again ? AAgain == TZtSearchAgain::saForward : options.SearchForward;
    if (again || options.Origin == TZtSearchOrigin::SearchFromCursor)
        options.WidenTo(*FEdit.GetLines());
    if (options.ReplaceAll && !again)
        return ReplaceAll();
    const bool fromCursor = again || options.Origin == TZtSearchOrigin::SearchFromCursor;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown, forward);
    const TZtBufferSearch search(options.SearchString, flags);
    // What is selected is where the last step ended: the next match lies behind it.
    const bool reversed = FEdit.SelectionReversed();
    QPoint from(FEdit.GetCharPos(), FEdit.GetLinePos());
    if (fromCursor && FEdit.SelectionGiven())
        from = forward != reversed ? FEdit.GetSelEnd() : FEdit.GetSelStart();
    if (!fromCursor)
        from = forward ? QPoint(options.StartPos, options.StartLine)
                       : QPoint(options.EndPos, options.EndLine);
    QPoint match;
    const quint64 revision = FEdit.GetLines()->GetRevision();
    const bool found = FindRound(search, from, forward, fromCursor, match);
    options.WidenTo(*FEdit.GetLines());
    options.Origin = TZtSearchOrigin::SearchFromCursor;
    if (!found) {
        ZtMsgBoxInfo(TZtCodeEdit::tr("Search string '%1' not found.").arg(options.SearchString),
                     QString());
        return;
    }
    if (FEdit.GetLines()->GetRevision() != revision)
        return; // somebody changed the text while a box was open
    const QPoint end = match + QPoint(int(options.SearchString.size()), 0);
    FEdit.MoveTo(forward ? end : match);
    FEdit.SetSelStart(forward ? end : match);
    FEdit.SetSelEnd(forward ? match : end);
    if (options.Replace && !again && !FEdit.GetReadOnly())
        ReplaceFound(match, revision);
}

// Replaces the match that was found in the text of that revision; false where the user wants no
// more, or the match may be another text now.
bool TZtEditSearch::ReplaceFound(const QPoint &AMatch, quint64 ARevision)
{
    int answer = mrYes;
    if (FOptions.PromptOnReplace) {
        const QString question = TZtCodeEdit::tr("Do you want to replace this occurrence of '%1'?")
                                     .arg(FOptions.SearchString);
        answer = FOptions.ReplaceAll ? ZtMsgBoxYesNoCancel(question, QString())
                                     : ZtMsgBoxYesNo(question, QString());
    }
    if (FEdit.IsAbandoned() || answer == mrCancel)
        return false;
    bool same = FEdit.GetLines()->GetRevision() == ARevision;
    if (answer != mrYes || !same)
        return same;
    FEdit.Operate([&] {
        FEdit.Changed();
        same = FEdit.GetLines()->GetRevision() == ARevision;
        if (!same)
            return;
        const QPoint end = AMatch + QPoint(int(FOptions.SearchString.size()), 0);
        FEdit.MoveTo(FEdit.PutInPlace(AMatch, end, FOptions.ReplaceWith));
        FEdit.SetSelection(true);
        FEdit.Redraw();
    });
    return same;
}

void TZtEditSearch::ReplaceAll()
{
    if (FEdit.GetReadOnly())
        return;
    int count = 0;
    FEdit.Operate([&] {
        FEdit.RunToEnd([&] {
            FEdit.GetLines()->GetRaised()->Run(
                [&] { count = FOptions.PromptOnReplace ? ReplaceAsked() : ReplaceUnasked(); });
        });
    });
    if (FEdit.IsAbandoned())
        return;
    FOptions.WidenTo(*FEdit.GetLines());
    FOptions.Origin = TZtSearchOrigin::SearchFromCursor;
    FEdit.Redraw();
    if (count == 0)
        ZtMsgBoxInfo(TZtCodeEdit::tr("Search string '%1' not found.").arg(FOptions.SearchString),
                     QString());
    else if (count > 0)
        SayOfSearch(TZtCodeEdit::tr("%n occurrence(s) replaced.", nullptr, count), false);
}

// Each after a question, from the caret or the scope's start on. Answers how many were found, or -1
// where the user had enough.
int TZtEditSearch::ReplaceAsked()
{
    const TZtSearchReplaceOptions &options = FOptions;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown);
    const TZtBufferSearch search(options.SearchString, flags);
    QPoint from(options.StartPos, options.StartLine), match;
    int found = 0;
    quint64 revision = FEdit.GetLines()->GetRevision();
    while (FindBetween(search, from, {options.EndPos, options.EndLine}, true, match)) {
        ++found;
        const QPoint end = match + QPoint(int(options.SearchString.size()), 0);
        FEdit.MoveTo(end);
        FEdit.SetSelStart(end);
        FEdit.SetSelEnd(match);
        const QPoint scopeEnd(options.EndPos, options.EndLine);
        const int below = FEdit.GetLines()->GetCount() - scopeEnd.y();
        const int behind =
            FEdit.GetLines()->GetLength(qMin(scopeEnd.y(), FEdit.GetLines()->GetCount() - 1)) -
            scopeEnd.x();
        if (!ReplaceFound(match, revision))
            return -1;
        revision = FEdit.GetLines()->GetRevision();
        from = {FEdit.GetCharPos(), FEdit.GetLinePos()};
        FOptions.EndLine = FEdit.GetLines()->GetCount() - below;
        FOptions.EndPos = FEdit.GetLines()->GetLength(FOptions.EndLine) - behind;
    }
    return found;
}

// All at once, from the last line up, so that what is still to come stays where it was.
int TZtEditSearch::ReplaceUnasked()
{
    const TZtSearchReplaceOptions options = FOptions;
    TZtSearchFlags flags = options.Options;
    flags.setFlag(TZtSearchFlag::sfDown);
    const TZtBufferSearch search(options.SearchString, flags);
    const int length = int(options.SearchString.size());
    QPoint last;
    if (!FindBetween(search, {options.StartPos, options.StartLine},
                     {options.EndPos, options.EndLine}, true, last))
        return 0;
    FEdit.Changed(); // which may change the text: the matches are looked for behind it
    int count = 0;
    std::vector<int> matches;
    FEdit.GetLines()->BeginUpdate();
    const auto update = qScopeGuard([this] { FEdit.GetLines()->EndUpdate(); });
    for (int y = std::min(options.EndLine, FEdit.GetLines()->GetCount() - 1);
         y >= options.StartLine; --y) {
        const QAnyStringView line = FEdit.GetLines()->View(y);
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
    FEdit.MoveTo(FEdit.InText(last));
    FEdit.SetSelection(true);
    return count;
}

// One after the other, or in a long line together: each would move all that is behind it.
void TZtEditSearch::ReplaceInLine(int ALine, const std::vector<int> &AMatches)
{
    const int length = int(FOptions.SearchString.size());
    const QString &text = FOptions.ReplaceWith;
    if (FEdit.GetLines()->GetLength(ALine) < LongLine) {
        for (auto at = AMatches.rbegin(); at != AMatches.rend(); ++at)
            FEdit.PutInPlace({*at, ALine}, {*at + length, ALine}, text);
        return;
    }
    const QString line = FEdit.GetLines()->GetStrings(ALine);
    QString replaced;
    int from = AMatches.front();
    for (const int at : AMatches) {
        replaced += QStringView(line).sliced(from, at - from);
        replaced += text;
        from = at + length;
    }
    FEdit.PutInPlace({AMatches.front(), ALine}, {from, ALine}, replaced);
}
