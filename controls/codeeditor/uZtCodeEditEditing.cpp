#include "uZtCodeEdit.h"

#include "uZtIndentation.h"
#include "uZtPlatform.h"
#include "uZtStringStream.h"
#include "uZtStrings.h"

// Who writes into the text besides the operations here, which record one undo item each: the undo
// list itself, `SetLines`, `SetText` and `LoadFromFile`, and a host that edits `Lines`.

namespace {

constexpr int CodePageUtf16 = 1200;

bool IsBreak(QChar C) { return C == u'\n' || C == u'\r'; }

// The characters that a key can type; above 255 whatever can be seen.
bool IsTypeable(char16_t C)
{
    static constexpr TZtCharSet narrow{u'\r', {32, 255}};
    return ZtCharInSet(C, narrow) || (C > 255 && (QChar(C).isPrint() || QChar(C).isSurrogate()));
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

void TZtCodeEdit::InsertText(TZtChangeType ChangeType, const QString &S)
{
    if (GetReadOnly())
        return;
    const QString text = S; // the host's events may change what was handed over
    const QPoint before(FCharPos, FLinePos);
    Changed();
    FSelStart = FSelEnd = QPoint(FCharPos, FLinePos);
    if (FSelStart.x() == -1)
        return;
    CheckFits(text.size());
    RunToEnd([&] {
        FLines->GetRaised()->Run([&] { InsertLines(text); });
        FUndoList->AddUndo(ChangeType, before, QPoint(FCharPos, FLinePos), before, QString());
        Invalidate();
    });
}

void TZtCodeEdit::InsertLines(const QString &S)
{
    EnsureLine(FSelStart.y());
    if (FLines->GetLength(FSelStart.y()) < FSelStart.x())
        FLines->SetStrings(FSelStart.y(),
                           FLines->GetStrings(FSelStart.y()).leftJustified(FSelStart.x()));

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
        FLines->EditStrings(FSelStart.y(), FLines->GetStrings(FSelStart.y()), [&](QString &line) {
            line.insert(FSelStart.x(), QStringView(S).sliced(start));
        });
        SetCharPos(FCharPos + int(S.size() - start));
    }
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
    const QPoint before(FCharPos, FLinePos);
    Changed();
    CheckFits(text.size());
    RunToEnd([&] {
        FLines->GetRaised()->Run([&] {
            if (text == QLatin1StringView("\r"))
                BreakLine();
            else
                InsertInLine(text);
        });
        FUndoList->AddUndo(TZtChangeType::ctInsert, before, QPoint(FCharPos, FLinePos), before,
                           QString());
        Invalidate();
    });
}

void TZtCodeEdit::InsertInLine(const QString &S)
{
    EnsureLine(FLinePos);
    const QPoint at(FCharPos, FLinePos);
    QString line = FLines->GetStrings(at.y());
    SetCharPos(at.x() + int(S.size()));
    FLines->EditStrings(at.y(), std::move(line), [&](QString &text) {
        if (text.size() < at.x())
            text = text.leftJustified(at.x());
        text.insert(at.x(), S);
        ZtChopBlanks(text); // lines never keep trailing blanks
    });
}

void TZtCodeEdit::BreakLine()
{
    EnsureLine(FLinePos);
    const QString line = FLines->GetStrings(FLinePos);
    FLines->SetStrings(FLinePos, ZtTrimRight(line.left(FCharPos)));
    FLines->Insert(FLinePos + 1, ZtTrimRight(line.mid(FCharPos)));
    SetLinePos(FLinePos + 1);
    SetCharPos(0);
    const int indent = ZtAutoIndent(*FLines, FLinePos - 1);
    if (indent < 0)
        return;
    FLines->SetStrings(FLinePos, QString(indent, u' ') + FLines->GetStrings(FLinePos));
    SetCharPos(indent);
}

// --- deleting ------------------------------------------------------------------------------------

void TZtCodeEdit::DeleteSelected(TZtChangeType AChangeType, QString &Deleted)
{
    if (GetReadOnly())
        return;
    const QPoint before(FCharPos, FLinePos);
    Changed();
    if (SelectionReversed())
        std::swap(FSelStart, FSelEnd);
    Deleted.clear();
    if (!SelectionGiven())
        return;
    RunToEnd([&] {
        ClampSelectionEnd();
        if (FSelStart.y() >= FLines->GetCount())
            return; // the selection lies below the text
        // Where "to the end of the line" starts a selection, the caret goes to where the text ends.
        if (FSelStart.x() == ZtEndOfLine)
            FSelStart.setX(FLines->GetLength(FSelStart.y()));
        Deleted = SelectedText();
        if (AChangeType != TZtChangeType::ctNone)
            FUndoList->AddUndo(AChangeType, FSelStart, FSelEnd, before, Deleted);
        DeleteLines(AChangeType, Deleted);
        Invalidate();
    });
}

// Removes what an ordered selection holds.
void TZtCodeEdit::DeleteLines(TZtChangeType AChangeType, const QString &ADeleted)
{
    const QPoint start = FSelStart;
    const QPoint end = FSelEnd;
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

void TZtCodeEdit::BackSpaceSelected()
{
    RunToEnd([this] { BackSpaceAtCaret(); });
}

void TZtCodeEdit::BackSpaceAtCaret()
{
    EnsureLine(FLinePos);
    QString line = FLines->GetStrings(FLinePos);
    if (FCharPos >= 1 && FLinePos >= 1) {
        if (FallBackToIndentation(line))
            return;
        if (line.size() < FCharPos) {
            SetCharPos(int(line.size()));
            Invalidate();
            return;
        }
    }
    if (FCharPos > 0)
        BackSpaceInLine(std::move(line));
    else if (FLinePos > 0)
        JoinWithLineAbove(line);
    else
        return;
    Invalidate();
}

bool TZtCodeEdit::FallBackToIndentation(const QString &ALine)
{
    if (!ZtTrim(ALine.left(FCharPos)).isEmpty())
        return false;
    const int column = ZtIndentationBefore(*FLines, FLinePos, FCharPos);
    if (column < 0)
        return false;
    SetCharPos(column);
    return true;
}

void TZtCodeEdit::BackSpaceInLine(QString &&ALine)
{
    const int count = CharactersBefore(FCharPos);
    const QPoint caret(FCharPos, FLinePos);
    const QPoint start(FCharPos - count, FLinePos);
    FUndoList->AddUndo(TZtChangeType::ctDelete, start, caret, caret, ALine.mid(start.x(), count));
    if (ALine.isEmpty()) {
        SetCharPos(start.x()); // right of an empty first line: there is nothing to erase
    } else if (start.x() > 0 || ALine.size() > count) {
        FLines->EditStrings(FLinePos, std::move(ALine), [&](QString &text) {
            text.remove(start.x(), count);
            ZtChopBlanks(text);
        });
        SetCharPos(start.x());
    } else {
        FLines->Delete(FLinePos); // erasing a line's last character removes the line
        SetLinePos(FLinePos - 1);
        EnsureLine(FLinePos);
        SetCharPos(FLines->GetLength(FLinePos));
    }
}

void TZtCodeEdit::JoinWithLineAbove(const QString &ALine)
{
    const int line = FLinePos;
    const QString above = FLines->GetStrings(line - 1);
    const int column = int(above.size());
    TStringList::CheckLength(above.size() + ALine.size());
    FUndoList->AddUndo(TZtChangeType::ctDelete, QPoint(column, line - 1), QPoint(0, line),
                       QPoint(0, line), QStringLiteral("\r\n"));
    SetCharPos(column);
    FLines->SetStrings(line - 1, ZtTrimRight(above + ALine));
    FLines->Delete(line);
    SetLinePos(line - 1);
}

// --- typing --------------------------------------------------------------------------------------

void TZtCodeEdit::WMChar(TZtMessage &Message)
{
    TCustomControl::WMChar(Message);
    const QChar C(char16_t(Message.WParam));
    const QChar high = std::exchange(FHighSurrogate, QChar());
    QString deleted;
    if (C.isHighSurrogate()) {
        FHighSurrogate = C; // a pair is typed as one, when its other half comes
        return;
    }
    if (C.isLowSurrogate() && high.isNull())
        return;
    if (IsTypeable(C.unicode())) {
        DeleteSelected(TZtChangeType::ctDelete, deleted);
        AddTxt(C.isLowSurrogate() ? QString(high) + C : QString(C));
    } else if (C == u'\b') {
        DeleteSelected(TZtChangeType::ctDelete, deleted);
        BackSpaceSelected();
    } else if (C == u'\t') {
        AddTxt(QString(qMax(FTabIndentSize, 0), u' '));
    } else {
        return;
    }
    SetSelection(true);
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
    FLines->Assign(Value);
    FModified = false;
    Invalidate();
}

void TZtCodeEdit::SetText(const QString &S)
{
    FLines->SetText(S);
    InitSelectionAndPosition();
}

void TZtCodeEdit::LoadFromFile(const QString &aFileName)
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
    Invalidate();
}
