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
    if (FUndoList.back()->GetChangeType() == TZtChangeType::ctNone)
        throw EZtException(QStringLiteral("This undo-action has not yet been implemented!"));
    auto item = std::move(FUndoList.back());
    FUndoList.pop_back();
    const quint64 revision = FOwner->GetLines()->GetRevision();
    try {
        FOwner->RunToEnd([&] { Apply(*item); });
    } catch (const EStringListError &) {
        throw; // its line is gone: kept, it would bar the older items for ever
    } catch (...) {
        if (FOwner->GetLines()->GetRevision() == revision)
            FUndoList.push_back(std::move(item));
        throw;
    }
}

void TZtUndoList::Apply(const TZtUndoItem &AItem)
{
    const bool removed = AItem.GetChangeType() == TZtChangeType::ctCut ||
                         AItem.GetChangeType() == TZtChangeType::ctDelete;
    if (removed)
        PutBack(AItem);
    else
        TakeOut(AItem);
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
