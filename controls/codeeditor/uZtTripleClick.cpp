#include "uZtTripleClick.h"

#include <QApplication>

// The press that belongs to a double click comes right behind it, the third one as late as a
// second one may.
bool TZtTripleClick::IsThird(const QPoint &APlace)
{
    if (!FSince.isValid())
        return false;
    if (!FPressed) {
        FPressed = true;
        FPlace = APlace;
        return false;
    }
    const bool near = (APlace - FPlace).manhattanLength() < QApplication::startDragDistance();
    const bool soon = FSince.elapsed() <= QApplication::doubleClickInterval();
    FSince.invalidate();
    return near && soon;
}
