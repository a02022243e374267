#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QRect>

class QDragMoveEvent;
class QDropEvent;
class TZtCodeEdit;

/// Text that is dragged out of an editor and dropped into it with the mouse: the selection of an
/// editor of the application, or text of another program. Within a text a move is one change of it.
///
/// Places are (column, line), 0-based; pixels are those of the editor's client area.
class TZtTextDrag final : public QObject {
public:
    /// The editor has it.
    explicit TZtTextDrag(TZtCodeEdit &AEdit) : FEdit(AEdit) {}

    /// The left button went down. Answers whether that was on selected text: the mouse may begin a
    /// drag then, and the caret stays until the button goes up.
    bool Press(const QPoint &APixel);
    /// Whether the button is down on selected text.
    bool IsWaiting() const { return FWaits; }
    /// The mouse moved meanwhile. Runs the drag, as soon as it has moved far enough, to its end;
    /// text that was moved elsewhere is removed then.
    void Move(const QPoint &APixel);
    /// The button went up. Answers where it had gone down.
    QPoint Release()
    {
        FWaits = false;
        return FPressed;
    }

    /// Something is over the editor: takes what it may drop here, and shows where that would go.
    /// Files are left to who is around the editor.
    void Over(QDragMoveEvent &AEvent);
    void Leave();
    /// Puts the text into the editor and selects it, or refuses it. Raises what the editing
    /// operations raise; the event is refused then.
    void Drop(QDropEvent &AEvent);
    /// Where the text would go; empty while nothing is dragged over the editor.
    QRect GetMark() const { return FMark; }

protected:
    void timerEvent(QTimerEvent *AEvent) override;

private:
    void Run();
    bool Takes(const QDropEvent &AEvent) const;
    bool IsPlaceFor(const QDropEvent &AEvent, const QPoint &APlace) const;
    QPoint PixelOf(const QDropEvent &AEvent) const;
    bool IsOwn() const;
    bool IsIntact() const;
    QPoint TakeOut(QPoint APlace, QString &AText);
    void PutIn(const QPoint &APlace, const QString &AText);
    void MarkPlace(const QRect &AMark);
    QPoint ScrollStep() const;

    TZtCodeEdit &FEdit;
    bool FWaits = false;
    bool FMoved = false; // within its text, where nothing is left to be removed
    QPoint FPressed;
    QPoint FFrom; // the range that is dragged
    QPoint FTo;
    quint64 FRevision = 0; // of the text then
    QRect FMark;
    QPoint FPointer;
    QBasicTimer FScroll;
};
