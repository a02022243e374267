#pragma once

#include "uZtSearchOptions.h"

#include <QElapsedTimer>
#include <QPoint>

#include <vector>

class TFrmCodeEditSearchReplaceDlg;
class TZtCodeEdit;

/// Searches and replaces in an editor, which has it: what is looked for, the form that asks for
/// it, and the steps. Places are (column, line), 0-based, columns in UTF-16 units.
class TZtEditSearch final {
public:
    explicit TZtEditSearch(TZtCodeEdit &AEdit) : FEdit(AEdit) {}
    TZtEditSearch(const TZtEditSearch &) = delete;
    TZtEditSearch &operator=(const TZtEditSearch &) = delete;

    /// Shows the form for replacing or finding, and posts the first step where it is to be run.
    void ShowDialog(bool AReplaces);
    /// The editor goes: so does the form, if it is open.
    void CloseDialog();
    /// The form, null before it was shown first.
    TFrmCodeEditSearchReplaceDlg *GetDialog() const { return FDialog; }
    /// One step; `AAgain` is a `TZtSearchAgain`. Nothing happens before there are options.
    void Search(quint64 AAgain);
    const TZtSearchReplaceOptions &GetOptions() const { return FOptions; }
    /// Those of a host; see `TZtCodeEdit::SetSearchOptions`.
    void SetOptions(const TZtSearchReplaceOptions &Value);
    const TZtSearchMessageEvent &GetOnMessage() const { return FOnMessage; }
    void SetOnMessage(const TZtSearchMessageEvent &Value) { FOnMessage = Value; }
    /// Whether a chain of posted steps runs, of which not every one is painted.
    bool IsReplacingAll() const { return FReplacingAll; }
    /// Whether a paint that is asked for now is left out, as the last was a moment ago.
    bool PutsPaintOff();
    /// The editor was painted.
    void Painted() { FLastPaint.start(); }

private:
    void OfferSelection();
    void TakeSearchOptions();
    // without zcReplaceAll
    bool FindMatch(QPoint &AMatch) const;
    int FindForward(const TZtBufferSearch &ASearch, int ALine) const;
    int FindBackward(const TZtBufferSearch &ASearch, int ALine) const;
    void SelectMatch(const QPoint &AMatch);
    bool ReplaceMatch(const QPoint &AMatch);
    void EndReplaceAll();
    void HoldScrollBars(bool AHold);
    // with it
    void SearchStep(TZtSearchAgain AAgain);
    bool FindBetween(const TZtBufferSearch &ASearch, QPoint AFrom, QPoint ATo, bool AForward,
                     QPoint &AMatch) const;
    bool FindRound(const TZtBufferSearch &ASearch, const QPoint &AFrom, bool AForward, bool AWraps,
                   QPoint &AMatch);
    bool ReplaceFound(const QPoint &AMatch, quint64 ARevision);
    void ReplaceAll();
    int ReplaceAsked();
    int ReplaceUnasked();
    void ReplaceInLine(int ALine, const std::vector<int> &AMatches);
    void SayOfSearch(const QString &AText, bool ABox);

    TZtCodeEdit &FEdit;
    TFrmCodeEditSearchReplaceDlg *FDialog = nullptr; // the editor's child
    TZtSearchReplaceOptions FOptions;
    TZtSearchMessageEvent FOnMessage;
    bool FGiven = false; // the options, by the host, without the form
    bool FReplacingAll = false;
    QElapsedTimer FLastPaint;
};
