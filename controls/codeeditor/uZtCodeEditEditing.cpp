#include "uZtCodeEditOperate.h"

#include "uZtEditExport.h"
#include "uZtEditedText.h"
#include "uZtIndentation.h"
#include "uZtPairTyping.h"
#include "uZtPlatform.h"
#include "uZtStringStream.h"
#include "uZtStrings.h"
#include "uZtWordScan.h"

// Who writes into the text besides the operations here, which record one undo item each: the undo
// list itself, `SetLines`, `SetText` and `LoadFromFile`, and a host that edits `Lines`.

using enum TZtCorrection;

namespace {

constexpr int CodePageUtf16 = 1200;

bool IsBreak(QChar C) { return C == u'\n' || C == u'\r'; }

// The characters that a key can type; above 255 whatever can be seen.
bool IsTypeable(char16_t C)
{
    static constexpr TZtCharSet narrow{u'\r', {32, 255}};
    return ZtCharInSet(C, narrow) || (C > 255 && (QChar(C).isPrint() || QChar(C).isSurrogate()));
}

// How many characters go where a line loses one step of its indentation.
int UnindentOf(const QString &ALine, int ACells)
{
    if (ALine.startsWith(u'\t'))
        return 1;
    int count = 0;
    while (count < qMin<qsizetype>(ACells, ALine.size()) && ALine.at(count) == u' ')
        ++count;
    return count;
}

} // namespace

// --- shared steps --------------------------------------------------------------------------------

// As many lines as are missing now: a handler may take each of them away again.
void TZtCodeEdit::EnsureLine(int ALine)
{
    for (int missing = ALine + 1 - FLines->GetCount(); missing > 0; --missing)
        FLines->Add(QString());
}

// Raises when the caret's line would become too long by what is about to be put there.
void TZtCodeEdit::CheckFits(qsizetype AMore) const
{
    const int length = FLinePos < FLines->GetCount() ? FLines->GetLength(FLinePos) : 0;
    TStringList::CheckLength(std::max(length, FCharPos) + AMore);
}

bool TZtCodeEdit::SelectionReversed() const
{
    return FSelEnd.y() < FSelStart.y() ||
           (FSelEnd.y() == FSelStart.y() && FSelEnd.x() < FSelStart.x());
}

bool TZtCodeEdit::SelectionGiven() const
{
    // A line of -1 is left over where only the columns of "no selection" were set.
    return FSelStart.x() != -1 && FSelEnd.x() != -1 && FSelEnd.x() != ZtEndOfLine &&
           FSelStart != FSelEnd && FSelStart.y() >= 0 && FSelEnd.y() >= 0;
}

void TZtCodeEdit::ClampSelectionEnd()
{
    if (FSelEnd.y() < FLines->GetCount())
        return;
    if (IsCorrected(zcClipboard) || !MayEdit()) {
        const int last = FLines->GetCount() - 1;
        FSelEnd = last < 0 ? FSelStart : QPoint(FLines->GetLength(last), last);
        if (ZtIsBefore(FSelEnd, FSelStart))
            FSelStart = FSelEnd;
        return;
    }
    FLines->Add(QString());
    FSelEnd = QPoint(ZtEndOfLine, FLines->GetCount() - 1);
}

// Of an ordered selection whose lines exist.
QString TZtCodeEdit::SelectedText() const
{
    const QString first = FLines->GetStrings(FSelStart.y());
    if (FSelStart.y() == FSelEnd.y())
        return first.mid(FSelStart.x(), FSelEnd.x() - FSelStart.x());
    const QLatin1StringView lineBreak("\r\n");
    QString text = first.mid(FSelStart.x()) + lineBreak;
    for (int i = FSelStart.y() + 1; i < FSelEnd.y(); ++i) {
        FLines->AppendTo(i, text);
        text += lineBreak;
    }
    return text + FLines->GetStrings(FSelEnd.y()).left(qMax(FSelEnd.x(), 0));
}

// --- inserting -----------------------------------------------------------------------------------

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

void TZtCodeEdit::InsertText(TZtChangeType ChangeType, const QString &S)
{
    if (GetReadOnly())
        return;
    const QString text = S; // the host's events may change what was handed over
    Operate([&] {
        const QPoint before(FCharPos, FLinePos);
        Changed();
        FSelStart = FSelEnd = QPoint(FCharPos, FLinePos);
        if (FSelStart.x() == -1)
            return;
        CheckFits(text.size());
        RunToEnd([&] {
            FLines->GetRaised()->Run([&] { InsertLines(text); });
            Record(ChangeType, before, QPoint(FCharPos, FLinePos), before, QString());
            Redraw();
        });
    });
}

void TZtCodeEdit::InsertLines(const QString &S)
{
    if (S.isEmpty() && IsCorrected(zcBreaks))
        return;
    EnsureLine(FSelStart.y());
    if (FLines->GetLength(FSelStart.y()) < FSelStart.x())
        FLines->SetStrings(FSelStart.y(),
                           FLines->GetStrings(FSelStart.y()).leftJustified(FSelStart.x()));

    if (IsCorrected(zcBreaks)) {
        const QPoint at = FSelStart;
        const TZtTextPiece piece(S);
        const int breaks = piece.GetCount() - 1;
        const int length = int(piece.GetLine(breaks).size());
        FLines->ReplaceText(at, at, piece);
        MoveTo({breaks == 0 ? at.x() + length : length, at.y() + breaks});
        return;
    }
    qsizetype start = 0;
    for (qsizetype i = 0; i < S.size(); ++i) {
        if (!IsBreak(S.at(i)))
            continue;
        const qsizetype end = i;
        if (i + 1 < S.size() && IsBreak(S.at(i + 1)))
            ++i; // any two of them are one break, two CRs as well
        InsertBreak(S.mid(start, end - start));
        start = i + 1;
    }
    if (start < S.size()) {
        EnsureLine(FSelStart.y());
        PutInLine(FSelStart.y(), FLines->GetStrings(FSelStart.y()), FSelStart.x(), 0,
                  QStringView(S).sliced(start), false);
        SetCharPos(FCharPos + int(S.size() - start));
    }
}

// Puts `S` in the place of a part of a line whose text is `AText`, filled up to there with blanks
// where it is shorter. Where somebody follows the text, exactly that is changed.
void TZtCodeEdit::PutInLine(int ALine, QString &&AText, int AColumn, int ACount, QStringView S,
                            bool AChop)
{
    if (!FCorrections) {
        FLines->EditStrings(ALine, std::move(AText), [&](QString &text) {
            if (text.size() < AColumn)
                text = text.leftJustified(AColumn);
            text.remove(AColumn, ACount).insert(AColumn, S);
            if (AChop)
                ZtChopBlanks(text);
        });
        return;
    }
    AText = QString(); // the line's memory is its own again
    const int length = FLines->GetLength(ALine);
    const int column = qMin(AColumn, length);
    const int count = qMin(ACount, length - column);
    if (column < AColumn)
        FLines->ReplaceInLine(ALine, column, count, QString(AColumn - column, u' ').append(S));
    else
        FLines->ReplaceInLine(ALine, column, count, S);
    if (AChop)
        ChopLine(ALine);
}

void TZtCodeEdit::ChopLine(int ALine)
{
    if (IsCorrected(zcBlanks))
        return;
    const int end = int(ZtTrimmedSize(FLines->View(ALine)));
    FLines->ReplaceInLine(ALine, end, FLines->GetLength(ALine) - end, {});
}

// Lines do not keep trailing blanks, unless they may.
void TZtCodeEdit::ChopBlanks(QString &S) const
{
    if (!IsCorrected(zcBlanks))
        ZtChopBlanks(S);
}

// Splits the line at the selection's start; the piece before the break ends the first half.
void TZtCodeEdit::InsertBreak(const QString &APiece)
{
    const QPoint at = FSelStart;
    const QString line = FLines->GetStrings(at.y());
    FLines->SetStrings(at.y(), line.left(at.x()));
    FLines->Insert(at.y() + 1, line.mid(at.x()));
    const QPoint next(0, at.y() + 1);
    FSelStart = FSelEnd = next;
    SetLinePos(next.y());
    SetCharPos(0);
    FSelStart = next;
    FLines->SetStrings(at.y(), FLines->GetStrings(at.y()) + APiece);
}

void TZtCodeEdit::AddTxt(const QString &S)
{
    if (GetReadOnly())
        return;
    const QString text = S; // the host's events may change what was handed over
    Operate([&] {
        const QPoint before(FCharPos, FLinePos);
        Changed();
        CheckFits(text.size());
        RunToEnd([&] {
            FLines->GetRaised()->Run([&] {
                if (text == QLatin1StringView("\r"))
                    BreakLine();
                else if (!text.isEmpty() || !IsCorrected(zcBreaks))
                    InsertInLine(text);
            });
            Record(TZtChangeType::ctInsert, before, QPoint(FCharPos, FLinePos), before, QString());
            Redraw();
        });
    });
}

void TZtCodeEdit::InsertInLine(const QString &S)
{
    EnsureLine(FLinePos);
    const QPoint at(FCharPos, FLinePos);
    QString line = FLines->GetStrings(at.y());
    const QPoint behind(at.x() + int(S.size()), at.y());
    if (!IsCorrected(zcCaret))
        SetCharPos(behind.x());
    PutInLine(at.y(), std::move(line), at.x(), 0, S, !IsCorrected(zcBlanks));
    if (IsCorrected(zcCaret))
        MoveTo(behind);
}

void TZtCodeEdit::BreakLine()
{
    EnsureLine(FLinePos);
    if (IsCorrected(zcTabs))
        return BreakIndented();
    const QString line = FLines->GetStrings(FLinePos);
    QString head = line.left(FCharPos), tail = line.mid(FCharPos);
    ChopBlanks(head);
    ChopBlanks(tail);
    FLines->SetStrings(FLinePos, head);
    FLines->Insert(FLinePos + 1, tail);
    SetLinePos(FLinePos + 1);
    SetCharPos(0);
    const int indent = ZtAutoIndent(*FLines, FLinePos - 1);
    if (indent < 0)
        return;
    FLines->SetStrings(FLinePos, QString(indent, u' ') + FLines->GetStrings(FLinePos));
    SetCharPos(indent);
}

// The new line begins with the blanks, tabs too, that the broken one begins with left of the caret.
void TZtCodeEdit::BreakIndented()
{
    ChopLine(FLinePos);
    const QPoint at(qMin(FCharPos, FLines->GetLength(FLinePos)), FLinePos);
    QString head;
    FLines->AppendTo(at.y(), 0, at.x(), head);
    const QString blanks = head.left(ZtIndentOf(head));
    FLines->ReplaceText(at, at, TZtTextPiece(u'\n' + blanks));
    ChopLine(at.y());
    MoveTo({int(blanks.size()), at.y() + 1});
}

// --- deleting ------------------------------------------------------------------------------------

void TZtCodeEdit::DeleteSelected(TZtChangeType AChangeType, QString &Deleted)
{
    Erase(AChangeType, &Deleted);
}

// `DeleteSelected`, which does not gather a text that nobody asks for.
void TZtCodeEdit::Erase(TZtChangeType AChangeType, QString *ADeleted)
{
    if (GetReadOnly())
        return;
    Operate([&] {
        const QPoint before(FCharPos, FLinePos);
        Changed();
        if (SelectionReversed())
            std::swap(FSelStart, FSelEnd);
        if (ADeleted)
            ADeleted->clear();
        if (SelectionGiven())
            RunToEnd([&] { EraseGiven(AChangeType, before, ADeleted); });
    });
}

void TZtCodeEdit::EraseGiven(TZtChangeType AChangeType, const QPoint &ABefore, QString *ADeleted)
{
    ClampSelectionEnd();
    if (FSelStart.y() >= FLines->GetCount())
        return; // the selection lies below the text
    // Where "to the end of the line" starts a selection, the caret goes to where the text ends.
    if (FSelStart.x() == ZtEndOfLine)
        FSelStart.setX(FLines->GetLength(FSelStart.y()));
    QString deleted;
    const bool recorded = AChangeType != TZtChangeType::ctNone && !IsCorrected(zcUndo);
    if (ADeleted || recorded || AChangeType == TZtChangeType::ctCut)
        deleted = SelectedText();
    if (AChangeType != TZtChangeType::ctNone)
        Record(AChangeType, FSelStart, FSelEnd, ABefore, deleted);
    DeleteLines(AChangeType, deleted);
    if (ADeleted)
        *ADeleted = deleted;
    Redraw();
}

// Removes what an ordered selection holds.
void TZtCodeEdit::DeleteLines(TZtChangeType AChangeType, const QString &ADeleted)
{
    const QPoint start = FSelStart;
    const QPoint end = FSelEnd;
    if (FCorrections) {
        if (AChangeType == TZtChangeType::ctCut)
            TZtEditExport::ToClipboard(*this, ADeleted);
        FLines->ReplaceText(InLine(start), InLine(end), {});
        FSelEnd = start;
        MoveTo(start);
        return;
    }
    QString first = FLines->GetStrings(start.y());
    const QString last = start.y() < end.y() ? FLines->GetStrings(end.y()) : QString();
    for (int i = start.y(); i < end.y(); ++i)
        FLines->Delete(start.y());
    if (AChangeType == TZtChangeType::ctCut)
        Tell([&] { ZtPlatform().SetClipboardText(ADeleted); });
    FLines->EditStrings(start.y(), std::move(first), [&](QString &text) {
        const int column = qMax(start.x(), 0);
        if (start.y() == end.y())
            text.remove(column, end.x() - column);
        else
            text = text.left(column) + last.mid(end.x());
    });
    FSelEnd = start;
    SetCharPos(start.x());
    SetLinePos(start.y());
}

// What Backspace does at the caret.
struct TZtCodeEdit::TBackSpace {
    static void AtCaret(TZtCodeEdit &AEdit);

private:
    static bool ToIndentation(TZtCodeEdit &AEdit, const QString &ALine);
    static void InLine(TZtCodeEdit &AEdit, QString &&ALine);
    static void JoinLines(TZtCodeEdit &AEdit, const QString &ALine);
};

void TZtCodeEdit::BackSpaceSelected()
{
    if (MayEdit())
        Operate([this] { RunToEnd([this] { TBackSpace::AtCaret(*this); }); });
}

void TZtCodeEdit::TBackSpace::AtCaret(TZtCodeEdit &AEdit)
{
    if (AEdit.IsCorrected(zcBackspace) && AEdit.FCharPos == 0 && AEdit.FLinePos == 0)
        return;
    AEdit.FJoin = TZtUndoJoin::ujErased;
    AEdit.EnsureLine(AEdit.FLinePos);
    QString line = AEdit.FLines->GetStrings(AEdit.FLinePos);
    if (AEdit.FCharPos >= 1 && (AEdit.FLinePos >= 1 || AEdit.IsCorrected(zcBackspace))) {
        if (ToIndentation(AEdit, line))
            return;
        if (line.size() < AEdit.FCharPos) {
            AEdit.SetCharPos(int(line.size()));
            AEdit.Redraw();
            return;
        }
    }
    if (AEdit.FCharPos > 0)
        InLine(AEdit, std::move(line));
    else if (AEdit.FLinePos > 0)
        JoinLines(AEdit, line);
    else
        return;
    AEdit.Redraw();
}

bool TZtCodeEdit::TBackSpace::ToIndentation(TZtCodeEdit &AEdit, const QString &ALine)
{
    if (!ZtTrim(ALine.left(AEdit.FCharPos)).isEmpty())
        return false;
    const int column = ZtIndentationBefore(*AEdit.FLines, AEdit.FLinePos, AEdit.FCharPos);
    if (column < 0)
        return false;
    if (AEdit.IsCorrected(zcBackspace) && ALine.size() > column)
        AEdit.EraseTo({column, AEdit.FLinePos}); // the blanks go, instead of the caret alone
    else
        AEdit.SetCharPos(column);
    return true;
}

void TZtCodeEdit::TBackSpace::InLine(TZtCodeEdit &AEdit, QString &&ALine)
{
    const int count = AEdit.CharactersBefore(AEdit.FCharPos);
    const QPoint caret(AEdit.FCharPos, AEdit.FLinePos);
    const QPoint start(AEdit.FCharPos - count, AEdit.FLinePos);
    AEdit.Record(TZtChangeType::ctDelete, start, caret, caret, ALine.mid(start.x(), count));
    if (ALine.isEmpty()) {
        AEdit.SetCharPos(start.x()); // right of an empty first line: there is nothing to erase
    } else if (start.x() > 0 || ALine.size() > count || AEdit.IsCorrected(zcBackspace)) {
        AEdit.PutInLine(AEdit.FLinePos, std::move(ALine), start.x(), count, {},
                        !AEdit.IsCorrected(zcBlanks));
        AEdit.SetCharPos(start.x());
    } else {
        AEdit.FLines->Delete(AEdit.FLinePos); // erasing a line's last character removes the line
        AEdit.SetLinePos(AEdit.FLinePos - 1);
        AEdit.EnsureLine(AEdit.FLinePos);
        AEdit.SetCharPos(AEdit.FLines->GetLength(AEdit.FLinePos));
    }
}

void TZtCodeEdit::TBackSpace::JoinLines(TZtCodeEdit &AEdit, const QString &ALine)
{
    const int line = AEdit.FLinePos;
    const QString above = AEdit.FLines->GetStrings(line - 1);
    const int column = int(above.size());
    TStringList::CheckLength(above.size() + ALine.size());
    AEdit.Record(TZtChangeType::ctDelete, QPoint(column, line - 1), QPoint(0, line),
                 QPoint(0, line), QStringLiteral("\r\n"));
    if (AEdit.FCorrections) {
        AEdit.FLines->ReplaceText({column, line - 1}, {0, line}, {});
        AEdit.ChopLine(line - 1);
        AEdit.MoveTo({column, line - 1});
        return;
    }
    AEdit.SetCharPos(column);
    AEdit.FLines->SetStrings(line - 1, ZtTrimRight(above + ALine));
    AEdit.FLines->Delete(line);
    AEdit.SetLinePos(line - 1);
}

// Removes what stands between the caret and a place before or behind it.
void TZtCodeEdit::EraseTo(const QPoint &APlace)
{
    const QPoint caret(FCharPos, FLinePos);
    const QPoint start = ZtIsBefore(APlace, caret) ? APlace : caret;
    const QPoint end = ZtIsBefore(APlace, caret) ? caret : APlace;
    Record(TZtChangeType::ctDelete, start, end, caret,
           FLines->GetPiece(InLine(start), InLine(end)).GetText());
    FLines->ReplaceText(InLine(start), InLine(end), {});
    MoveTo(start);
}

// Removes the word before or behind the caret, or what is selected.
void TZtCodeEdit::EraseWord(bool AForward)
{
    if (GetReadOnly())
        return;
    Operate([&] {
        if (SelectionGiven())
            return Erase(TZtChangeType::ctDelete, nullptr);
        if (FLinePos >= FLines->GetCount())
            return;
        const QPoint caret = InText({FCharPos, FLinePos});
        const QPoint to = ZtUnicodeWordJump(*FLines, caret, AForward);
        if (to == caret)
            return;
        Changed();
        FCharPos = caret.x();
        RunToEnd([&] { EraseTo(to); });
        SetSelection(true);
        Redraw();
    });
}

// --- typing --------------------------------------------------------------------------------------

void TZtCodeEdit::WMChar(TZtMessage &Message)
{
    TCustomControl::WMChar(Message);
    const QChar C(char16_t(Message.WParam));
    const QChar high = std::exchange(FHighSurrogate, QChar());
    if (C.isHighSurrogate()) {
        FHighSurrogate = C; // a pair is typed as one, when its other half comes
        return;
    }
    if (C.isLowSurrogate() && high.isNull())
        return;
    Operate([&] { Type(C.isLowSurrogate() ? QString(high) + C : QString(C)); });
}

// What one character does, or a pair.
void TZtCodeEdit::Type(const QString &S)
{
    const char16_t C = S.front().unicode();
    if (C == 127 && IsCorrected(zcBackspace))
        return;
    if (TZtPairTyping(*this).Type(S))
        return;
    if (IsTypeable(C)) {
        Erase(TZtChangeType::ctDelete, nullptr);
        AddTxt(S);
        FJoin = C == u'\r' ? TZtUndoJoin::ujAlone : TZtUndoJoin::ujTyped;
    } else if (C == u'\b' && TZtPairTyping(*this).EraseEmptyPair()) {
        FJoin = TZtUndoJoin::ujAlone;
    } else if (C == u'\b' && IsCorrected(zcBackspace)) {
        EraseBack();
    } else if (C == u'\b') {
        Erase(TZtChangeType::ctDelete, nullptr);
        BackSpaceSelected();
    } else if (C == u'\t' && IsCorrected(zcTabs)) {
        return TypeTab(ZtPlatform().KeyboardShift().testFlag(ssShift));
    } else if (C == u'\t') {
        AddTxt(QString(qMax(FTabIndentSize, 0), u' '));
    } else {
        return;
    }
    SetSelection(true);
}

// The selection, or with Ctrl the word before the caret, or the character.
void TZtCodeEdit::EraseBack()
{
    if (SelectionGiven())
        Erase(TZtChangeType::ctDelete, nullptr);
    else if (ZtPlatform().KeyboardShift().testFlag(ssCtrl))
        EraseWord(false);
    else
        BackSpaceSelected();
}

// --- tabs ----------------------------------------------------------------------------------------

// Goes to the next stop, or indents lines that are selected.
void TZtCodeEdit::TypeTab(bool ABack)
{
    if (GetReadOnly())
        return;
    const QPoint start = SelectionReversed() ? FSelEnd : FSelStart;
    const QPoint end = SelectionReversed() ? FSelStart : FSelEnd;
    if (SelectionGiven() && start.y() < end.y())
        return IndentLines(start.y(), end.y() - (end.x() == 0), ABack);
    if (ABack)
        return IndentLines(FLinePos, FLinePos, true);
    Erase(TZtChangeType::ctDelete, nullptr);
    const int cells = FTabIndentSize > 0 ? FTabIndentSize - GetCaretCell() % FTabIndentSize : 0;
    AddTxt(cells > 0 ? QString(cells, u' ') : QStringLiteral("\t"));
    SetSelection(true);
}

void TZtCodeEdit::IndentLines(int AFirst, int ALast, bool ABack)
{
    const int cells = FTabIndentSize > 0 ? FTabIndentSize : FCells.TabWidth;
    const auto changes = [&](int y) {
        return ABack ? UnindentOf(FLines->GetStrings(y), cells) > 0 : FLines->GetLength(y) > 0;
    };
    while (AFirst <= qMin(ALast, FLines->GetCount() - 1) && !changes(AFirst))
        ++AFirst;
    if (AFirst > qMin(ALast, FLines->GetCount() - 1))
        return;
    Changed();
    const QString step = FTabIndentSize > 0 ? QString(cells, u' ') : QStringLiteral("\t");
    QPoint caret(FCharPos, FLinePos), start = FSelStart, end = FSelEnd;
    for (int y = AFirst; y <= qMin(ALast, FLines->GetCount() - 1); ++y) {
        const QString line = FLines->GetStrings(y);
        const int width = ABack ? -UnindentOf(line, cells) : line.isEmpty() ? 0 : int(step.size());
        Record(ABack ? TZtChangeType::ctDelete : TZtChangeType::ctInsert, {0, y}, {qAbs(width), y},
               caret, ABack ? line.left(-width) : QString());
        FLines->ReplaceInLine(y, 0, qMax(-width, 0), width > 0 ? step : QString());
        for (QPoint *P : {&caret, &start, &end})
            if (P->y() == y && (P->x() > 0 || AFirst == ALast))
                P->setX(qMax(P->x() + width, 0));
    }
    MoveTo(caret);
    SetSelStart(start);
    SetSelEnd(end);
    Redraw();
}

// --- the whole text ------------------------------------------------------------------------------

void TZtCodeEdit::AddCode(const QString &aTxt)
{
    SetLinePos(FLines->GetCount());
    SetCharPos(0);
    InsertText(TZtChangeType::ctPaste, aTxt);
}

void TZtCodeEdit::InsertCode(int ALinePos, int ACharPos, const QString &ATxt)
{
    SetLinePos(ALinePos);
    SetCharPos(ACharPos);
    InsertText(TZtChangeType::ctPaste, ATxt);
}

void TZtCodeEdit::SetLines(const TStringList *Value)
{
    Operate([&] {
        FLines->Assign(Value);
        MarkSaved();
        ForgetChanges();
    });
    Redraw();
}

// What comes behind in the same operation is a change of the text that is saved.
void TZtCodeEdit::MarkSaved()
{
    if (FHistory)
        FHistory->Split();
    SetModified(false);
}

// A text that was loaded begins without changed lines.
void TZtCodeEdit::ForgetChanges()
{
    if (FText->Marks)
        FText->Marks->Changes.Reset();
}

QString TZtCodeEdit::GetText() const
{
    return IsCorrected(zcText) ? FText->Breaks.Join(*FLines) : FLines->GetText();
}

// Who is told of the lines can ask for the text already; what raises leaves both as they were.
void TZtCodeEdit::SetAllLines(const QString &S)
{
    const std::shared_ptr<TZtEditedText> text = FText;
    const TZtTextBreaks before = text->Breaks;
    const quint64 revision = FLines->GetRevision();
    TZtFirstException raised;
    raised.Run([&] {
        TakeBreaks(S);
        text->GetLines()->SetText(S);
    });
    if (text->GetLines()->GetRevision() == revision)
        text->Breaks = before;
    raised.Raise();
}

void TZtCodeEdit::TakeBreaks(const QString &S)
{
    if (IsCorrected(zcText))
        FText->Breaks.Take(S);
}

void TZtCodeEdit::SetText(const QString &S)
{
    if (IsCorrected(zcText) && FText->Breaks.Gives(S, *FLines))
        return; // what is bound to the text hands it back
    Operate([&] {
        SetAllLines(S);
        ForgetChanges();
        InitSelectionAndPosition();
    });
}

void TZtCodeEdit::LoadFromFile(const QString &aFileName)
{
    Operate([&] { Load(aFileName); });
    if (!FUndoLoads && FHistory)
        FHistory->Clear();
    StateChanged();
}

void TZtCodeEdit::Load(const QString &aFileName)
{
    SetLinePos(0);
    SetCharPos(0);
    FHScrollBar->SetPosition(0);
    FVScrollBar->SetPosition(0);
    TZtStringStream stream(CodePageUtf16, 16);
    stream.LoadFromFile(aFileName, -1);
    if (stream.GetFormat().Encoding == TZtEncoding::teUtf8)
        FLines->SetUtf8Text(stream.Bytes(), stream.Bytes().size() - stream.Content().size());
    else
        FLines->SetText(stream.GetWString());
    if (IsCorrected(zcText))
        FText->Breaks.Take(stream);
    if (IsCorrected(zcEvents))
        MarkSaved();
    ForgetChanges();
    Redraw();
}
