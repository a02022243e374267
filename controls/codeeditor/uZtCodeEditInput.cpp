#include "uZtCodeEditOperate.h"
#include "uZtCodeEditPass.h"

#include "uZtComposition.h"

#include "uZtPlatform.h"
#include "uZtPrimarySelection.h"
#include "uZtTextDrag.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPainter>

// What comes from input methods, from drags and from the primary selection.

using enum TZtCorrection;

namespace {

constexpr int LongestSurrounding = 4096; // units on each side of the caret
constexpr int MostSelected = 1 << 17;    // bytes that an input method is told

// What an input method is told of the text: the caret's line, but of a very long one a part.
struct TSurrounding {
    TSurrounding(const TStringList &ALines, const QPoint &ACaret)
        : Line(ACaret.y()), Start(qMax(0, ACaret.x() - LongestSurrounding))
    {
        if (Line >= ALines.GetCount())
            return;
        const int length = ALines.GetLength(Line);
        const int end = int(qMin<qint64>(qint64(ACaret.x()) + LongestSurrounding, length));
        ALines.AppendTo(Line, qMin(Start, length), qMax(end - Start, 0), Text);
    }
    // A place in it; at its ends what stands outside.
    int PlaceOf(const QPoint &P) const
    {
        if (P.y() != Line)
            return P.y() < Line ? 0 : int(Text.size());
        return qBound(0, P.x() - Start, int(Text.size()));
    }

    int Line;
    int Start;
    QString Text;
};

} // namespace

// --- the composition of an input method ----------------------------------------------------------

bool TZtCodeEdit::IsComposing() const
{
    return !FComposition->IsEmpty() && IsCorrected(zcComposition) && !GetReadOnly();
}

// The caret's line up to the end of the composition.
QString TZtCodeEdit::ComposedStart() const
{
    QString before;
    if (FLinePos < FLines->GetCount())
        FLines->AppendTo(FLinePos, 0, qMin(FCharPos, FLines->GetLength(FLinePos)), before);
    return FComposition->PutInto(before, FCharPos);
}

// Where some units of the composition end.
int TZtCodeEdit::ComposedCell(int AUnits) const
{
    if (!FCells.Tabs && !FCells.Wide)
        return FCharPos + AUnits;
    return ZtCellOf(ComposedStart(), FCharPos + AUnits, FCells);
}

void TZtCodeEdit::inputMethodEvent(QInputMethodEvent *AEvent)
{
    if (!IsCorrected(zcComposition)) {
        FComposition->Take(*AEvent);
        Redraw();
        return TCustomControl::inputMethodEvent(AEvent);
    }
    const THold hold(*this);
    FComposition->Clear();
    AEvent->setAccepted(!GetReadOnly());
    if (!AEvent->isAccepted())
        return CompositionChanged();
    if (!AEvent->commitString().isEmpty() || AEvent->replacementLength() > 0)
        Guarded([&] { Operate([&] { Commit(*AEvent); }); });
    if (IsAbandoned())
        return;
    Guarded([&] { SelectAsTold(*AEvent); });
    FComposition->Take(*AEvent);
    CompositionChanged();
}

// What is selected goes first, then what the input method replaces, which it counts from the caret.
void TZtCodeEdit::Commit(const QInputMethodEvent &AEvent)
{
    const QString text = AEvent.commitString();
    Erase(TZtChangeType::ctDelete, nullptr);
    if (AEvent.replacementLength() > 0 && FLinePos < FLines->GetCount()) {
        const int length = FLines->GetLength(FLinePos);
        const int from = qBound(0, FCharPos + AEvent.replacementStart(), length);
        FSelStart = {qBound(from, from + AEvent.replacementLength(), length), FLinePos};
        FSelEnd = {from, FLinePos};
        Erase(TZtChangeType::ctDelete, nullptr);
        SetSelection(true);
    }
    const bool key = text.size() == 1 || (text.size() == 2 && text.front().isHighSurrogate());
    if (key)
        return TypeCharacters(text); // a dead key, or a board whose keys come this way
    if (text.isEmpty())
        return;
    InsertText(TZtChangeType::ctInsert, text);
    SetSelection(true);
}

// An input method may select in the text that it is told, to put another one there later.
void TZtCodeEdit::SelectAsTold(const QInputMethodEvent &AEvent)
{
    for (const QInputMethodEvent::Attribute &attribute : AEvent.attributes()) {
        if (attribute.type != QInputMethodEvent::Selection || FLinePos >= FLines->GetCount())
            continue;
        const int length = FLines->GetLength(FLinePos);
        const int start = TSurrounding(*FLines, {FCharPos, FLinePos}).Start;
        const auto place = [&](qint64 units) {
            return QPoint(int(qBound(qint64(0), start + units, qint64(length))), FLinePos);
        };
        const QPoint anchor = place(attribute.start);
        MoveTo(place(qint64(attribute.start) + attribute.length));
        SetSelEnd(anchor);
        SetSelStart({FCharPos, FLinePos});
    }
}

void TZtCodeEdit::CompositionChanged()
{
    if (IsComposing())
        ScrollToColumn();
    ResetCaret();
    Redraw();
}

// As Qt's own editors do it: what the input method does not commit when it is asked to is dropped.
void TZtCodeEdit::EndComposition()
{
    if (FComposition->IsEmpty() || !IsCorrected(zcComposition))
        return;
    const THold hold(*this);
    QGuiApplication::inputMethod()->commit();
    if (IsAbandoned() || FComposition->IsEmpty())
        return;
    FComposition->Clear();
    CompositionChanged();
}

// Answers whether a press was among the characters that are composed, and is the input method's.
// Anywhere else it ends the composition.
bool TZtCodeEdit::PressComposition(int X, int Y)
{
    if (!IsComposing())
        return false;
    const int cell = FHScrollBar->GetPosition() + (X - RealGuttorWidth()) / qMax(FCharWidth, 1);
    const int units = int(FComposition->GetText().size());
    if (X < RealGuttorWidth() || PlaceAt(0, Y).y() != FLinePos || cell < ComposedCell(0) ||
        cell >= ComposedCell(units)) {
        EndComposition();
        return false;
    }
    const int column =
        FCells.Tabs || FCells.Wide ? ZtColumnAt(ComposedStart(), cell, FCells) : cell;
    QGuiApplication::inputMethod()->invokeAction(QInputMethod::Click, column - FCharPos);
    return true;
}

// Behind what is done now: the caret may go on, and nobody is told twice.
void TZtCodeEdit::TellInputMethod()
{
    if (!IsCorrected(zcComposition) || FTellsInput || !hasFocus())
        return;
    FTellsInput = true;
    const auto tell = [this] {
        FTellsInput = false;
        updateMicroFocus();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

// --- what an input method asks -------------------------------------------------------------------

QVariant TZtCodeEdit::inputMethodQuery(Qt::InputMethodQuery AQuery) const
{
    const QPoint caret(FCharPos, FLinePos);
    const QPoint anchor = SelectionGiven() ? FSelEnd : caret;
    const auto around = [&] { return TSurrounding(*FLines, caret); };
    const auto inWidget = [this](const QRect &r) { return r.translated(ClientArea().topLeft()); };
    switch (AQuery) {
    case Qt::ImEnabled:
        return !GetReadOnly();
    case Qt::ImReadOnly:
        return GetReadOnly();
    case Qt::ImCursorRectangle:
        return inWidget(CaretRectAt(GetCaretCell(), FLinePos));
    case Qt::ImAnchorRectangle:
        return inWidget(GetPlaceRect(anchor));
    case Qt::ImFont:
        return font();
    case Qt::ImCursorPosition:
        return around().PlaceOf(caret);
    case Qt::ImAnchorPosition:
        return around().PlaceOf(anchor);
    case Qt::ImAbsolutePosition:
        return FCharPos;
    case Qt::ImSurroundingText:
        return around().Text;
    case Qt::ImTextBeforeCursor:
        return around().Text.left(around().PlaceOf(caret));
    case Qt::ImTextAfterCursor:
        return around().Text.mid(around().PlaceOf(caret));
    case Qt::ImCurrentSelection: {
        const QPoint end = anchor == FSelEnd ? FSelStart : caret;
        if (qAbs(qint64(end.y()) - anchor.y()) > MostSelected)
            return QString(); // without a look at all its lines
        const TZtTextPiece piece = GetPiece(anchor, end);
        return piece.GetBytes() > MostSelected ? QString() : piece.GetText(QLatin1StringView("\n"));
    }
    default:
        return TCustomControl::inputMethodQuery(AQuery);
    }
}

// --- the selection for others --------------------------------------------------------------------

TZtTextPiece TZtCodeEdit::GetPiece(const QPoint &AFrom, const QPoint &ATo) const
{
    const int last = FLines->GetCount() - 1;
    if (last < 0)
        return {};
    const auto inText = [&](const QPoint &P) {
        return P.y() > last ? QPoint(FLines->GetLength(last), last) : InLine(P);
    };
    const bool ordered = ZtIsBefore(AFrom, ATo);
    return FLines->GetPiece(inText(ordered ? AFrom : ATo), inText(ordered ? ATo : AFrom));
}

// --- drag and drop -------------------------------------------------------------------------------

void TZtCodeEdit::ShowInput()
{
    const bool drags = HasExtra(TZtExtra::zeDragText);
    if (drags != bool(FTextDrag)) {
        FTextDrag = drags ? std::make_shared<TZtTextDrag>(*this) : nullptr;
    }
    if (drags)
        setAcceptDrops(true);
    const bool primary = HasExtra(TZtExtra::zePrimary);
    if (primary != bool(FPrimary))
        FPrimary = primary ? std::make_shared<TZtPrimarySelection>(*this) : nullptr;
}

void TZtCodeEdit::dragEnterEvent(QDragEnterEvent *AEvent) { TZtCodeEdit::dragMoveEvent(AEvent); }

void TZtCodeEdit::dragMoveEvent(QDragMoveEvent *AEvent)
{
    if (FTextDrag)
        FTextDrag->Over(*AEvent);
    else
        TCustomControl::dragMoveEvent(AEvent);
}

void TZtCodeEdit::dragLeaveEvent(QDragLeaveEvent *AEvent)
{
    if (FTextDrag)
        FTextDrag->Leave();
    TCustomControl::dragLeaveEvent(AEvent);
}

void TZtCodeEdit::dropEvent(QDropEvent *AEvent)
{
    if (const auto drag = FTextDrag) // which a handler may take away
        Guarded([&] { drag->Drop(*AEvent); });
    else
        TCustomControl::dropEvent(AEvent);
}

// Where text that is dragged over the editor would go.
void TZtCodeEdit::DrawDropMark(QPainter &APainter) const
{
    const QRect mark = FTextDrag->GetMark();
    if (!mark.isEmpty())
        APainter.fillRect(mark & PictureArea(), QColor(GetViewRgb(TZtViewColor::vcText)));
}

// --- the primary selection -----------------------------------------------------------------------

void TZtCodeEdit::InsertPrimary(const QPoint &APixel)
{
    if (!MayTakeText() || !ZtPlatform().HasPrimary())
        return;
    const auto primary = FPrimary; // which a handler may take away
    primary->Keep();
    QString text;
    Tell([&] { text = ZtPlatform().PrimaryText(); });
    if (text.isEmpty())
        return;
    const QPoint place = GetPlaceAt(APixel);
    SetLinePos(place.y());
    SetCharPos(place.x());
    InsertText(TZtChangeType::ctPaste, text);
    SetSelection(true);
}
