#pragma once

#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <QPointer>

#include <gtest/gtest.h>

#include <ostream>

/// Does what a user and a host do, in words: "Shift+Right*3 Enter a Ctrl+Z" are keys, "#772" is a
/// message, "click@2,0" a click into column 2 of the view's line 0 (also "press@", "move@",
/// "release@", "double@", "triple@", "right@"), "wheel-120" the wheel, "insert:x" an `InsertText`
/// of the rest of the word, "paint" a paint, "read-only" forbids to edit. Ends early when the
/// editor is deleted.
void DoInEditor(QPointer<TZtCodeEdit> AEdit, const QString &AWords);

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
    TScrollBar *const H = Edit.GetHScrollBar();
    TScrollBar *const V = Edit.GetVScrollBar();
    int Changes = 0;
    int CursorMoves = 0;
    QString Clipboard;
    QStringList Errors;
    QStringList Posted; ///< "message:wParam"
    QString Events;     ///< `C` a change, `M` a caret move, `L` a change of the lines

    void SetMarked(const QString &AText);
    QString Marked() const;
    QStringList Lines() const;
    void Do(const QString &AWords) { DoInEditor(&Edit, AWords); }

    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;
};

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << QString(S).replace(u'\n', QStringLiteral("\\n")).toStdString() << '"';
}
