#pragma once

#include "uZtCustomControl.h"

#include <QCursor>

class TZtCodeEdit;

/// The mouse over the gutter of an editor, which has it, where the gutter has columns: its pointer,
/// the handler of its presses, bookmarks, lines that are selected by their numbers. Pixels are
/// those of the client area.
class TZtGuttorMouse final {
public:
    explicit TZtGuttorMouse(TZtCodeEdit &AEdit) : FEdit(AEdit) {}
    TZtGuttorMouse(const TZtGuttorMouse &) = delete;
    TZtGuttorMouse &operator=(const TZtGuttorMouse &) = delete;

    /// The gutter has columns now, or none any more.
    void Track();
    /// The mouse is at `X`.
    void PointAt(int X);
    /// Answers whether the press was in a column, and is done with.
    bool Press(TMouseButton AButton, int X, int Y);
    /// Whether that was so of the button that is down.
    bool IsPressed() const { return FIsPressed; }
    /// Answers whether lines are being selected; then down to the one at `Y`.
    bool Drag(int Y);
    void Release();

private:
    bool PressIn(TMouseButton Button, int X, int Y);
    void SelectLines(int AFrom, int ATo);

    TZtCodeEdit &FEdit;
    int FDrag = -1; // the line where the numbers were pressed
    bool FIsPressed = false;
    bool FIsOver = false; // the gutter, of which the pointer is
    QCursor FTextCursor;  // elsewhere
    bool FTracks = false; // which the host has not asked for
};
