#pragma once

#include "uZtExport.h"

#include <QPoint>
#include <QString>

#include <deque>
#include <functional>
#include <memory>

class TStringList;

/// What made a change. One of `ctNone` is not to be recorded: its undo raises.
enum class TZtChangeType : quint8 { ctNone, ctCut, ctPaste, ctDelete, ctInsert };

/// What an undo acts on: a text with a caret and a selection. Positions are (character, line),
/// 0-based.
class ZT_EDITOR_EXPORT TZtUndoTarget {
public:
    virtual ~TZtUndoTarget() = default;
    /// The text that the changes are of.
    virtual TStringList *GetLines() const = 0;
    virtual void SetCharPos(int Value) = 0;        ///< the caret's column
    virtual void SetLinePos(int Value) = 0;        ///< the caret's line
    virtual void SetSelStart(const QPoint &P) = 0; ///< the moving end of the selection
    virtual void SetSelEnd(const QPoint &P) = 0;   ///< its anchor
    /// Runs a change to its end whatever handlers raise meanwhile; the first of it is raised then.
    virtual void RunToEnd(const std::function<void()> &AStep) = 0;
    /// Removes the selected text and returns it; with `ctNone` nothing is recorded.
    virtual void DeleteSelected(TZtChangeType AChangeType, QString &Deleted) = 0;
};

/// One change of the text. Positions are (character, line), 0-based.
class ZT_EDITOR_EXPORT TZtUndoItem {
public:
    /// Positions are (character, line), 0-based; `AValue` is the text that was removed, empty for
    /// an insertion.
    TZtUndoItem(TZtChangeType AChangeType, const QPoint &AStartPos, const QPoint &AEndPos,
                const QPoint &ACaretPos, const QString &AValue)
        : FChangeType(AChangeType), FStartPos(AStartPos), FEndPos(AEndPos), FCaretPos(ACaretPos),
          FValue(AValue)
    {
    }

    /// Decides whether undo puts back or takes out.
    TZtChangeType GetChangeType() const { return FChangeType; }
    QPoint GetStartPos() const { return FStartPos; } ///< where the change begins
    /// Of what was removed, as it stood before, or of what was inserted.
    QPoint GetEndPos() const { return FEndPos; }
    /// Where the caret goes after the undo.
    QPoint GetCaretPos() const { return FCaretPos; }
    /// The removed text of a cut or delete; empty for insertions.
    const QString &GetValue() const { return FValue; }
    void SetValue(const QString &Value) { FValue = Value; }

private:
    TZtChangeType FChangeType;
    QPoint FStartPos;
    QPoint FEndPos;
    QPoint FCaretPos;
    QString FValue;
};

/// The last 100 changes of an editor, each undone by itself. There is no redo.
class ZT_EDITOR_EXPORT TZtUndoList {
public:
    /// `AOwner` outlives it.
    explicit TZtUndoList(TZtUndoTarget *AOwner) : FOwner(AOwner) {}

    /// Records a change; beyond 100 items the oldest is dropped. The list owns the item.
    TZtUndoItem *AddUndo(TZtChangeType AChangeType, const QPoint &AStartPos, const QPoint &AEndPos,
                         const QPoint &ACaretPos, const QString &AValue);
    /// Takes the newest change back; nothing happens on an empty list. Its item leaves the list
    /// first, so that an undo from inside a handler takes back the change before.
    ///
    /// The recorded positions are used as they are. Where the line of a removed text does not
    /// exist any more, `EStringListError` is raised and the item is gone. An item whose undo a
    /// handler has prevented by raising stays, and so does a `ctNone` item, which raises.
    void Undo();

    /// Forgets all changes; nothing is undone.
    void Clear() { FUndoList.clear(); }
    int GetCount() const { return int(FUndoList.size()); } ///< how many can be undone
    /// 0 is the oldest item. The index is not checked.
    const TZtUndoItem &GetItems(int Index) const { return *FUndoList[size_t(Index)]; }
    int GetMaxUndo() const { return FMaxUndo; } ///< how many the list keeps

private:
    void Apply(const TZtUndoItem &AItem);
    void PutBack(const TZtUndoItem &AItem);
    void TakeOut(const TZtUndoItem &AItem);

    int FMaxUndo = 100;
    TZtUndoTarget *FOwner;
    std::deque<std::unique_ptr<TZtUndoItem>> FUndoList;
};
