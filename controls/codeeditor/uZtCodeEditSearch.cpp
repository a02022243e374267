#include "uZtCodeEditOperate.h"

#include "fZtCodeEditSearchReplaceDlg.h"
#include "uZtCaret.h"
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

void TZtCodeEdit::WMSearchReplaceDlg(TZtMessage &Message)
{
    if (!FSearchDlg) {
        FSearchDlg = new TFrmCodeEditSearchReplaceDlg(this);
        FSearchDlg->SetCtl3D(GetCtl3D());
    }
    FSearchDlg->SetDlgType(Message.WParam == 1 ? TDlgType::replace : TDlgType::search);
    FSearchDlg->SetGoesRound(IsCorrected(TZtCorrection::zcDialogs));
    FSearchDlg->GetRgScope()->SetItemIndex(0);
    FSearchDlg->GetRgOrigin()->SetItemIndex(0);
    if (SelLength() > 0)
        OfferSelection();
    const THold hold(*this); // the editor may be deleted while the dialog is open
    const int result = FSearchDlg->ShowModal();
    const bool replaceAll =
        result == ResultReplaceAll ||
        (result == ResultReplaceAllButton && IsCorrected(TZtCorrection::zcReplaceAll));
    if ((result != ResultOK && !replaceAll) || IsAbandoned())
        return;
    TakeSearchOptions();
    FSearchOptions.ReplaceAll = replaceAll;
    ZtPostMessage(this, MsgSearch);
}

// A selected word is what is looked for; a longer selection is where.
void TZtCodeEdit::OfferSelection()
{
    if (FSelStart.y() != FSelEnd.y()) {
        FSearchDlg->GetRgScope()->SetItemIndex(1);
        FSearchDlg->GetRgOrigin()->SetItemIndex(1);
        return;
    }
    const int from = qMin(FSelStart.x(), FSelEnd.x());
    const int to = qMax(FSelStart.x(), FSelEnd.x());
    const QString text = FLines->GetStrings(FSelStart.y()).mid(from, to - from);
    if (text.contains(u' '))
        FSearchDlg->GetRgScope()->SetItemIndex(1);
    else
        FSearchDlg->GetEdtTextToFind()->setText(text);
}

void TZtCodeEdit::TakeSearchOptions()
{
    TZtSearchReplaceOptions &options = FSearchOptions;
    options.SearchString = ZtTrim(FSearchDlg->GetEdtTextToFind()->text());
    options.CaseSensitive = FSearchDlg->GetChkBxCaseSensitive()->isChecked();
    options.WholeWordsOnly = FSearchDlg->GetChkBxWholeWordsOnly()->isChecked();
    if (FSearchDlg->GetRgScope()->GetItemIndex() == 0) {
        options.WidenTo(*FLines);
    } else {
        // A selection made to the left in one line gives a scope that starts behind its end.
        const bool down = FSelStart.y() < FSelEnd.y();
        const QPoint start = down ? FSelStart : FSelEnd;
        const QPoint end = down ? FSelEnd : FSelStart;
        options.StartLine = start.y();
        options.StartPos = start.x();
        options.EndLine = end.y();
        options.EndPos = end.x();
    }
    options.SearchForward = FSearchDlg->GetRgDirection()->GetItemIndex() == 0;
    options.Origin = FSearchDlg->GetRgOrigin()->GetItemIndex() == 0
                         ? TZtSearchOrigin::SearchFromCursor
                         : TZtSearchOrigin::SearchEntireScope;
    options.TakeFlags();
    options.Replace = FSearchDlg->GetDlgType() == TDlgType::replace;
    options.ReplaceWith = FSearchDlg->edtReplaceWith->text();
    options.PromptOnReplace = FSearchDlg->chkBxPromptOnReplace->isChecked();
}

void TZtCodeEdit::SetSearchOptions(const TZtSearchReplaceOptions &Value)
{
    FSearchOptions = Value;
    if (!FSearchOptions.Options)
        FSearchOptions.TakeFlags();
    FSearchGiven = true;
}

void TZtCodeEdit::WMSearchReplace(TZtMessage &Message)
{
    const THold hold(*this); // it may be deleted while a box is open
    const bool once = FSearchDlg || FSearchGiven;
    if (!once && IsCorrected(TZtCorrection::zcSearchKey))
        ZtPostMessage(this, MsgSearchDialog); // there is nothing to repeat yet
    if (!once)
        return;
    MarkMatches(FSearchOptions.SearchString, FSearchOptions.Options | TZtSearchFlag::sfDown);
    if (IsCorrected(TZtCorrection::zcReplaceAll) || Message.WParam != 0)
        return Operate([&] { SearchStep(TZtSearchAgain(qMin<quint64>(Message.WParam, 2))); });
    auto ended = qScopeGuard([this] { EndReplaceAll(); }); // also by what the step raises
    QPoint match;
    if (!FindMatch(match)) {
        EndReplaceAll();
        ZtMsgBoxInfo(tr("Search string '%1' not found.").arg(FSearchOptions.SearchString),
                     QString());
        return;
    }
    SelectMatch(match);
    FSearchOptions.WidenTo(*FLines);
    FSearchOptions.Origin = TZtSearchOrigin::SearchFromCursor;
    if (FSearchOptions.Replace && ReplaceMatch(match))
        ended.dismiss();
}

bool TZtCodeEdit::FindMatch(QPoint &AMatch) const
{
    const TZtSearchReplaceOptions &options = FSearchOptions;
    const TZtBufferSearch search(options.SearchString, options.Options);
    int line = options.Origin == TZtSearchOrigin::SearchFromCursor ? FLinePos
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

int TZtCodeEdit::FindForward(const TZtBufferSearch &ASearch, int ALine) const
{
    if (ALine < 0 || ALine >= FLines->GetCount())
        return -1;
    const TZtSearchReplaceOptions &options = FSearchOptions;
    const QAnyStringView run = FLines->View(ALine);
    const bool atCaret = options.Origin == TZtSearchOrigin::SearchFromCursor && ALine == FLinePos;
    const int start = atCaret ? FCharPos : ALine == options.StartLine ? options.StartPos : 0;
    const int size =
        ALine == options.EndLine ? qMin(options.EndPos, int(run.size())) : int(run.size());
    return int(ASearch.Find(First(run, size), start));
}

int TZtCodeEdit::FindBackward(const TZtBufferSearch &ASearch, int ALine) const
{
    if (ALine < 0 || ALine >= FLines->GetCount())
        return -1;
    const TZtSearchReplaceOptions &options = FSearchOptions;
    QAnyStringView run = FLines->View(ALine);
    qsizetype start = run.size();
    if (options.Origin == TZtSearchOrigin::SearchFromCursor && ALine == FLinePos) {
        run = First(run, FCharPos);
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

void TZtCodeEdit::SelectMatch(const QPoint &AMatch)
{
    const int length = int(FSearchOptions.SearchString.size());
    SetLinePos(AMatch.y());
    if (FSearchOptions.SearchForward) {
        SetCharPos(AMatch.x() + length);
        SetSelStart(AMatch);
        SetSelEnd(QPoint(AMatch.x() + length, AMatch.y()));
    } else {
        SetCharPos(AMatch.x());
        SetSelStart(QPoint(AMatch.x() + length, AMatch.y()));
        SetSelEnd(AMatch);
    }
}

// Answers whether the next step was posted.
bool TZtCodeEdit::ReplaceMatch(const QPoint &AMatch)
{
    int answer = mrYes;
    const quint64 revision = FLines->GetRevision();
    if (FSearchOptions.PromptOnReplace) {
        EndReplaceAll();
        const QString question =
            tr("Do you want to replace this occurrence of '%1'?").arg(FSearchOptions.SearchString);
        answer = FSearchOptions.ReplaceAll ? ZtMsgBoxYesNoCancel(question, QString())
                                           : ZtMsgBoxYesNo(question, QString());
    }
    if (IsAbandoned())
        return false;
    // The match may be another text now, when somebody changed it while the question was open.
    if (answer == mrYes && FLines->GetRevision() == revision) {
        QString deleted;
        DeleteSelected(TZtChangeType::ctDelete, deleted);
        InsertText(TZtChangeType::ctPaste, FSearchOptions.ReplaceWith);
        SetSelection(true);
    }
    if (!FSearchOptions.ReplaceAll || answer == mrCancel)
        return false;
    if (answer == mrYes && !FSearchOptions.SearchForward) {
        // Upwards it goes on before what it inserted, or it would find that again and never end.
        SetLinePos(AMatch.y());
        SetCharPos(AMatch.x());
    }
    FReplacingAll = true;
    FCaret->Hide(); // a mark that moves at every step would be painted at every step
    ZtPostMessage(this, MsgSearch);
    return true;
}

// From here on every change is painted at once again.
void TZtCodeEdit::EndReplaceAll()
{
    if (!std::exchange(FReplacingAll, false))
        return;
    HoldScrollBars(false);
    ResetCaret();
    Redraw();
}
