#pragma once

#include <QElapsedTimer>
#include <QPoint>

/// Tells the third press of three quick ones, which the desktop does not.
class TZtTripleClick final {
public:
    void Doubles() { FPressed = false; } ///< a double click is about to be told
    void Doubled() { FSince.start(); }   ///< and has been
    /// A press that begins anew.
    void Forget() { FSince.invalidate(); }
    /// To be asked at each press, with its place in pixels.
    bool IsThird(const QPoint &APlace);

private:
    QElapsedTimer FSince; // the double click
    QPoint FPlace;
    bool FPressed = false; // its own second press has come
};
