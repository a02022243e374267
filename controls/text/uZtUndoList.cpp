#include "uZtUndoList.h"

#include "uZtStringList.h"
#include "uZtStrings.h"

TZtUndoItem *TZtUndoList::AddUndo(TZtChangeType AChangeType, const QPoint &AStartPos,
                                  const QPoint &AEndPos, const QPoint &ACaretPos,
                                  const QString &AValue)
{
    if (GetCount() >= FMaxUndo)
        FUndoList.pop_front();
    FUndoList.push_back(
        std::make_unique<TZtUndoItem>(AChangeType, AStartPos, AEndPos, ACaretPos, AValue));
    return FUndoList.back().get();
}

void TZtUndoList::Undo()
{
    if (FUndoList.empty())
        return;
    const TZtUndoItem item = *FUndoList.back();
    switch (item.GetChangeType()) {
    case TZtChangeType::ctCut:
    case TZtChangeType::ctDelete:
        try {
            PutBack(item);
        } catch (const EStringListError &) {
            FUndoList.pop_back(); // its line is gone: kept, it would bar the older items for ever
            throw;
        }
        break;
    case TZtChangeType::ctPaste:
    case TZtChangeType::ctInsert:
        TakeOut(item);
        break;
    case TZtChangeType::ctNone:
        throw EZtException(QStringLiteral("This undo-action has not yet been implemented!"));
    }
    FUndoList.pop_back();
}

void TZtUndoList::PutBack(const TZtUndoItem &AItem)
{
    TStringList *lines = FOwner->GetLines();
    const QPoint start = AItem.GetStartPos();
    const int column = qMax(start.x(), 0);
    const QString line = lines->GetStrings(start.y());
    TStringList pieces;
    ZtStringToList(line.left(column) + AItem.GetValue() + line.mid(column), QStringLiteral("\r\n"),
                   pieces);
    lines->Delete(start.y());
    for (int i = 0; i < pieces.GetCount(); ++i)
        lines->Insert(start.y() + i, pieces.GetStrings(i));
    FOwner->SetLinePos(AItem.GetCaretPos().y());
    FOwner->SetCharPos(AItem.GetCaretPos().x());
    if (AItem.GetChangeType() == TZtChangeType::ctCut) {
        FOwner->SetSelStart(AItem.GetStartPos());
        FOwner->SetSelEnd(AItem.GetEndPos());
    }
}

void TZtUndoList::TakeOut(const TZtUndoItem &AItem)
{
    FOwner->SetSelStart(AItem.GetStartPos());
    FOwner->SetSelEnd(AItem.GetEndPos());
    QString removed;
    FOwner->DeleteSelected(TZtChangeType::ctNone, removed);
    FOwner->SetLinePos(AItem.GetCaretPos().y());
    FOwner->SetCharPos(AItem.GetCaretPos().x());
}
