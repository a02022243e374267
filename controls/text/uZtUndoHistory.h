#pragma once

#include "uZtStringList.h"

#include <QElapsedTimer>
#include <QPointer>

#include <deque>
#include <functional>

/// Where a user stands in a text: caret and selection, (column, line), 0-based, and the first
/// column and line that are in sight.
struct TZtViewState {
    QPoint Caret;
    QPoint SelStart;
    QPoint SelEnd;
    QPoint Top;
};

/// How a step of the history may join the one before.
enum class TZtUndoJoin : quint8 {
    ujAlone,  ///< never
    ujTyped,  ///< characters, up to the start of the next word
    ujErased, ///< by Backspace or Delete, one after the other
    ujBack,   ///< takes the step before away, where it leads back to the text before that
};

/// Undo and redo without a limit but of memory, made of what a text tells about its changes:
/// whoever made them, undoing them leads back to the same text with the same object slots.
///
/// Changes between `BeginStep` and `EndStep` are one step, as are those of one update of the list;
/// any other change is a step by itself.
class TZtUndoHistory final : public TZtTextListener {
public:
    static constexpr qint64 DefaultBytes = 256 << 20;

    /// The text may go before the history, which is of no use then.
    explicit TZtUndoHistory(TStringList *AText);
    ~TZtUndoHistory();
    TZtUndoHistory(const TZtUndoHistory &) = delete;
    TZtUndoHistory &operator=(const TZtUndoHistory &) = delete;

    /// Asked where the user stands, for a step that nobody began.
    std::function<TZtViewState()> OnGetView;

    /// Steps nest; the outermost one counts.
    void BeginStep(const TZtViewState &AView);
    /// Answers whether the text is another one than before the outermost step began; false for an
    /// inner one. Where the object slots alone are others the step is kept, and the text counts as
    /// the same.
    bool EndStep(const TZtViewState &AView, TZtUndoJoin AJoin = TZtUndoJoin::ujAlone);
    bool IsInStep() const { return FDepth > 0; }
    /// What was changed so far is a step, and what comes another one, also in the middle of one
    /// that was begun.
    void Split() { CloseOpen(); }

    bool CanUndo() const { return !FUndo.empty() || IsOpen(); }
    bool CanRedo() const { return !FRedo.empty() && !IsOpen(); }
    /// Takes a step back, or makes it again. Answers whether there was one, and where the user
    /// stood. What a handler of the list raises before the change leaves the step where it was.
    bool Undo(TZtViewState &AView);
    bool Redo(TZtViewState &AView);
    void Clear();

    /// Another number for another text; the same one again when undo or redo lead back to it.
    quint64 GetVersion() const { return FUndo.empty() ? FFirstVersion : FUndo.back().Version; }
    /// The text as it is now is the one that is saved.
    void SetSaved() { FSaved = IsOpen() ? NoText : GetVersion(); }
    void SetUnsaved() { FSaved = NoText; }
    /// Whether the text is the saved one: not changed since, or led back to it.
    bool IsSaved() const { return !IsOpen() && FSaved == GetVersion(); }

    /// What the steps may take in memory, in bytes. The oldest ones go first; the last one stays.
    qint64 GetMaxBytes() const { return FMaxBytes; }
    void SetMaxBytes(qint64 Value);
    qint64 GetBytes() const { return FBytes; }
    /// The pause in milliseconds that ends the joining.
    void SetPause(int Value) { FPause = Value; }

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;
    void UpdateEnded(const TStringList &AText) override;
    bool WantsRemoved() const override { return true; }

private:
    static constexpr quint64 NoText = ~quint64(0);
    // What takes one change back.
    struct TRecord {
        QPoint Start;
        QPoint End;
        std::shared_ptr<TZtTextPiece> Text; // used up when the change is taken back
    };
    struct TStep {
        quint64 Version; // of the text behind it
        TZtViewState Before;
        TZtViewState After;
        TZtUndoJoin Join;
        bool EndsWithBlank;
        qint64 Bytes;
        std::vector<TRecord> Records;
    };
    bool IsOpen() const { return !FOpen.Records.empty(); }
    TZtViewState ViewAt(const QPoint &APlace) const;
    bool Close(const TZtViewState &AView, TZtUndoJoin AJoin);
    void CloseAlone();
    void CloseOpen();
    bool TakesBackLast();
    bool IsNothing(const std::vector<TRecord> &ARecords, bool AObjectsToo) const;
    bool IsNothing(const TRecord &ARecord, bool AObjectsToo) const;
    bool EndsWithBlank() const;
    bool JoinsLast(const TStep &AStep) const;
    static void Append(std::vector<TRecord> &ARecords, TRecord ARecord);
    bool Move(std::deque<TStep> &AFrom, std::deque<TStep> &ATo, TZtViewState TStep::*AView,
              TZtViewState &AAnswer);
    void Drop(std::deque<TStep> &ASteps);
    void DropOldest();

    QPointer<TStringList> FText;
    std::deque<TStep> FUndo;
    std::deque<TStep> FRedo;
    TStep FOpen{};                           // what is being collected
    std::vector<TRecord> *FMoving = nullptr; // what takes the move back that is under way
    int FDepth = 0;
    bool FMayJoin = false;
    quint64 FLastVersion = 0;
    quint64 FFirstVersion = 0; // of the text before the first step
    quint64 FSaved = 0;
    qint64 FBytes = 0;
    qint64 FMaxBytes = DefaultBytes;
    int FPause = 1000;
    QElapsedTimer FSinceLast;
};
