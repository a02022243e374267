#include "uZtTextDrag.h"

#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTimerEvent>
#include <QUrl>

#include <algorithm>

namespace {

constexpr int ScrollPause = 50; // milliseconds between two steps at an edge

// The one that runs in this application, if any.
TZtTextDrag *Running = nullptr;

bool HasFiles(const QMimeData &AData)
{
    const QList<QUrl> urls = AData.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

// --- out of the editor ---------------------------------------------------------------------------

bool TZtTextDrag::Press(const QPoint &APixel)
{
    FWaits = false;
    if (!FEdit.SelectionGiven() || APixel.x() < FEdit.RealGuttorWidth())
        return false;
    FFrom = FEdit.GetSelEnd();
    FTo = FEdit.GetSelStart();
    if (ZtIsBefore(FTo, FFrom))
        std::swap(FFrom, FTo);
    const QPoint place = FEdit.GetPlaceAt(APixel);
    FWaits = !ZtIsBefore(place, FFrom) && ZtIsBefore(place, FTo);
    FPressed = APixel;
    return FWaits;
}

void TZtTextDrag::Move(const QPoint &APixel)
{
    if (!FWaits || (APixel - FPressed).manhattanLength() < QApplication::startDragDistance())
        return;
    FWaits = false;
    Run();
}

void TZtTextDrag::Run()
{
    const TZtNotifier::THold hold(FEdit); // it may be deleted before the button goes up
    auto data = FEdit.CreateMimeData();
    const QString text = data->text();
    FRevision = FEdit.GetLines()->GetRevision();
    auto *drag = new QDrag(&FEdit); // Qt deletes it
    drag->setMimeData(data.release());
    FMoved = false;
    Qt::DropAction done = Qt::IgnoreAction;
    {
        const QScopedValueRollback running(Running, this);
        done = ZtPlatform().RunDrag(drag, FEdit.MayTakeText() ? Qt::CopyAction | Qt::MoveAction
                                                              : Qt::DropActions(Qt::CopyAction));
    }
    if (done != Qt::MoveAction || FMoved || FEdit.IsAbandoned() || !FEdit.MayTakeText())
        return;
    // What others changed meanwhile is not taken for what was moved.
    if (!FEdit.SelectionGiven() || FEdit.CreateMimeData()->text() != text)
        return;
    QString removed;
    FEdit.DeleteSelected(TZtChangeType::ctDelete, removed);
}

// --- into the editor -----------------------------------------------------------------------------

bool TZtTextDrag::Takes(const QDropEvent &AEvent) const
{
    const QMimeData *data = AEvent.mimeData();
    return data && data->hasText() && !HasFiles(*data) && FEdit.MayTakeText();
}

// Whether what is dragged comes from the text that is shown here.
bool TZtTextDrag::IsOwn() const { return Running && Running->FEdit.GetLines() == FEdit.GetLines(); }

// Whether what is dragged still stands where it stood.
bool TZtTextDrag::IsIntact() const { return FEdit.GetLines()->GetRevision() == FRevision; }

bool TZtTextDrag::IsPlaceFor(const QDropEvent &AEvent, const QPoint &APlace) const
{
    if (!IsOwn() || ZtIsBefore(APlace, Running->FFrom) || ZtIsBefore(Running->FTo, APlace))
        return true;
    const bool edge = APlace == Running->FFrom || APlace == Running->FTo;
    return edge && AEvent.proposedAction() == Qt::CopyAction;
}

QPoint TZtTextDrag::PixelOf(const QDropEvent &AEvent) const
{
    return AEvent.position().toPoint() - FEdit.ClientArea().topLeft();
}

void TZtTextDrag::Over(QDragMoveEvent &AEvent)
{
    AEvent.ignore();
    if (!Takes(AEvent))
        return Leave();
    FPointer = PixelOf(AEvent);
    const QPoint place = FEdit.GetPlaceAt(FPointer);
    const bool fits = IsPlaceFor(AEvent, place);
    MarkPlace(fits ? FEdit.GetPlaceRect(place) : QRect());
    if (ScrollStep().isNull())
        FScroll.stop();
    else if (!FScroll.isActive())
        FScroll.start(ScrollPause, this);
    if (fits || AEvent.type() == QEvent::DragEnter)
        AEvent.acceptProposedAction();
}

void TZtTextDrag::Leave()
{
    FScroll.stop();
    MarkPlace({});
}

void TZtTextDrag::Drop(QDropEvent &AEvent)
{
    Leave();
    // A source that moves its text takes it away when the drop is accepted.
    AEvent.setDropAction(Qt::IgnoreAction);
    AEvent.ignore();
    const QPoint pixel = PixelOf(AEvent);
    QPoint place = FEdit.GetPlaceAt(pixel);
    if (!Takes(AEvent) || !IsPlaceFor(AEvent, place))
        return;
    QString text = ZtFromDesktop(AEvent.mimeData()->text());
    FEdit.setFocus(Qt::MouseFocusReason);
    FEdit.DragDrop(AEvent.source(), pixel.x(), pixel.y());
    const bool moves = IsOwn() && AEvent.proposedAction() == Qt::MoveAction;
    TZtFirstException raised;
    FEdit.BeginUpdate();
    raised.Run([&] {
        if (moves && Running->IsIntact())
            place = TakeOut(place, text);
        if (moves)
            Running->FMoved = true;
        PutIn(place, text);
    });
    raised.Run([&] { FEdit.EndUpdate(); });
    raised.Raise();
    AEvent.acceptProposedAction();
}

// Removes what is dragged from the text and answers where the place is then.
QPoint TZtTextDrag::TakeOut(QPoint APlace, QString &AText)
{
    const QPoint from = Running->FFrom, to = Running->FTo;
    FEdit.SetSelEnd(from);
    FEdit.SetSelStart(to);
    FEdit.DeleteSelected(TZtChangeType::ctDelete, AText);
    if (ZtIsBefore(APlace, to))
        return APlace;
    if (APlace.y() == to.y())
        APlace.rx() += from.x() - to.x();
    APlace.ry() -= to.y() - from.y();
    return APlace;
}

void TZtTextDrag::PutIn(const QPoint &APlace, const QString &AText)
{
    FEdit.SetLinePos(APlace.y());
    FEdit.SetCharPos(APlace.x());
    FEdit.InsertText(TZtChangeType::ctPaste, AText);
    FEdit.SetSelEnd(APlace);
    FEdit.SetSelStart({FEdit.GetCharPos(), FEdit.GetLinePos()});
}

// --- while the mouse is over the editor ----------------------------------------------------------

void TZtTextDrag::MarkPlace(const QRect &AMark)
{
    const QPoint origin = FEdit.ClientArea().topLeft();
    for (const QRect &mark : {std::exchange(FMark, AMark), AMark})
        if (!mark.isEmpty())
            FEdit.update(mark.translated(origin));
}

// Which way the view goes, in columns and lines, where the mouse is near an edge of it.
QPoint TZtTextDrag::ScrollStep() const
{
    const auto step = [](int at, int first, int last, int edge) {
        return at < first + edge ? -1 : at >= last - edge ? 1 : 0;
    };
    const int left = FEdit.RealGuttorWidth();
    const int right = FEdit.GetClientWidth() - FEdit.GetVScrollBar()->width();
    const int bottom = FEdit.GetClientHeight() - FEdit.GetHScrollBar()->height();
    const int line = std::min(FEdit.GetLineWidth(), bottom / 4);
    const int column = std::min(FEdit.GetCharWidth(), (right - left) / 4);
    return {step(FPointer.x(), left, right, column), step(FPointer.y(), 0, bottom, line)};
}

void TZtTextDrag::timerEvent(QTimerEvent *)
{
    const QPoint by = ScrollStep();
    const auto scroll = [](TScrollBar *bar, int step) {
        if (step != 0)
            bar->SetPosition(bar->GetPosition() + step);
    };
    scroll(FEdit.GetHScrollBar(), by.x());
    scroll(FEdit.GetVScrollBar(), by.y());
    if (!FMark.isEmpty())
        MarkPlace(FEdit.GetPlaceRect(FEdit.GetPlaceAt(FPointer)));
}
