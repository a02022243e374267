#pragma once

#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <gtest/gtest.h>

#include <ostream>

/// An editor of fixed size in a shown window, with the desktop's services replaced.
///
/// A text is written with its caret and selection inside: `|` is an empty selection at the caret,
/// `[` the selection's anchor and `]` its moving end with the caret. `~` stands for a column right
/// of the line's end, a line feed parts the lines, and "-" is a text without lines.
class TMarkedEditor : public QObject {
public:
    TMarkedEditor();
    ~TMarkedEditor() override;

    TZtCodeEdit Edit;
    TScrollBar *H;
    TScrollBar *V;
    int Changes = 0;
    int CursorMoves = 0;
    QString Clipboard;
    QStringList Errors;
    QStringList Posted; ///< "message:wParam"
    QString Events;     ///< `C` a change, `M` a caret move, `L` a change of the lines

    void SetMarked(const QString &AText);
    QString Marked() const;
    QString MarkedCaret() const; ///< the caret alone
    QStringList Lines() const;
    /// Presses keys, such as "Shift+Right*3 Enter a Backspace Ctrl+Z"; "#772" is a message.
    void Keys(const QString &AKeys);
    void Press(int AKey, Qt::KeyboardModifiers AModifiers, const QString &AText);
    void Send(quint32 AMsg, quint64 AWParam = 0);
    /// A mouse event at a pixel of the editor.
    void Mouse(QEvent::Type AType, QPoint AAt, Qt::MouseButton AButton = Qt::LeftButton,
               Qt::KeyboardModifiers AModifiers = {});
    void Wheel(int ADelta);
    /// The pixel in the middle of a cell of the view.
    QPoint Cell(int AColumn, int ALine);

    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;

private:
    QString Mark(QPoint AAnchor, QPoint AEnd) const;
};

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << QString(S).replace(u'\n', QStringLiteral("\\n")).toStdString() << '"';
}
