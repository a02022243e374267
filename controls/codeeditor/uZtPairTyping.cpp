#include "uZtPairTyping.h"

#include "uZtCodeEdit.h"
#include "uZtEditExtras.h"
#include "uZtHighlighter.h"

// What stands around a place; code where nothing is known.
TZtElementKind TZtPairTyping::KindAt(const QPoint &APlace) const
{
    const auto highlighter = FEdit.FHighlighter; // a handler of the lexer may exchange it
    if (!highlighter || APlace.y() >= FEdit.FLines->GetCount())
        return TZtElementKind::ekCode;
    bool exact = false;
    const auto runs = highlighter->Peek(APlace.y(), APlace.y(), APlace.x() + 2, exact);
    if (runs.empty() || APlace.y() >= FEdit.FLines->GetCount())
        return TZtElementKind::ekCode;
    return ZtKindAround(runs.front(), FEdit.FLines->View(APlace.y()), APlace.x());
}

// Answers whether a character was typed in the way of pairs.
bool TZtPairTyping::Type(const QString &S)
{
    const auto pairs = FEdit.FExtras->Pairs();
    if (!pairs || FEdit.GetReadOnly() || S.size() != 1 || !TZtTypedPairs::MayPair(S.front()))
        return false;
    const bool selected = FEdit.SelectionGiven();
    const QPoint caret = selected ? (FEdit.SelectionReversed() ? FEdit.FSelEnd : FEdit.FSelStart)
                                  : QPoint(FEdit.FCharPos, FEdit.FLinePos);
    const TZtElementKind kind = KindAt(caret);
    const TZtPairEdit edit =
        pairs->OnCharacter(S.front(), caret, selected, kind, FEdit.GetParser()->GetLanguage());
    switch (edit.Action) {
    case TZtPairAction::paNone:
        return false;
    case TZtPairAction::paTypeOver:
        FEdit.SetCharPos(FEdit.FCharPos + 1);
        break;
    case TZtPairAction::paInsert:
        FEdit.AddTxt(S + edit.Closing);
        FEdit.SetCharPos(FEdit.FCharPos - 1);
        if (pairs == FEdit.FExtras->Pairs()) // no handler has brought another text
            pairs->Inserted({FEdit.FCharPos, FEdit.FLinePos});
        break;
    case TZtPairAction::paSurround:
        Surround(S, edit.Closing);
        return true;
    }
    FEdit.SetSelection(true);
    return true;
}

// The selected text stays selected between the two.
void TZtPairTyping::Surround(const QString &AOpening, QChar AClosing)
{
    const QPoint start = FEdit.SelectionReversed() ? FEdit.FSelEnd : FEdit.FSelStart;
    QString text;
    FEdit.GetSelected(text);
    FEdit.Erase(TZtChangeType::ctDelete, nullptr);
    FEdit.InsertText(TZtChangeType::ctInsert, AOpening + text + AClosing);
    FEdit.SetCharPos(FEdit.FCharPos - 1);
    FEdit.SetSelStart({FEdit.FCharPos, FEdit.FLinePos});
    FEdit.SetSelEnd(start + QPoint(1, 0));
}

// Answers whether the caret stood in an empty pair, which is gone. Two quotes are a string of their
// own.
bool TZtPairTyping::EraseEmptyPair()
{
    const auto pairs = FEdit.FExtras->Pairs();
    const QPoint caret(FEdit.FCharPos, FEdit.FLinePos);
    if (!pairs || FEdit.GetReadOnly() || FEdit.SelectionGiven() ||
        !pairs->OnBackspace(caret, FEdit.GetParser()->GetLanguage()))
        return false;
    QString opening;
    FEdit.FLines->AppendTo(FEdit.FLinePos, FEdit.FCharPos - 1, 1, opening);
    const bool bracket = QStringLiteral("([{").contains(opening);
    const TZtElementKind kind = KindAt(caret);
    if (kind == TZtElementKind::ekRemark || (kind == TZtElementKind::ekText && bracket))
        return false;
    FEdit.FSelStart = caret - QPoint(1, 0);
    FEdit.FSelEnd = caret + QPoint(1, 0);
    FEdit.Erase(TZtChangeType::ctDelete, nullptr);
    return true;
}
