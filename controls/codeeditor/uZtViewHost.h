#pragma once

#include "uZtCells.h"
#include "uZtColorScheme.h"
#include "uZtExport.h"
#include "uZtExtras.h"

#include <QColor>
#include <QPoint>

class QWidget;
class TStringList;
class TZtHighlighter;
struct TZtTextMarks;

/// The editor as the parts of its view know it. Places are (column, line), 0-based, columns in
/// UTF-16 units.
class ZT_EDITOR_EXPORT TZtViewHost {
public:
    /// The text that is shown; never null.
    virtual TStringList *GetLines() const = 0;
    /// The caret's.
    virtual int GetCharPos() const = 0;
    virtual int GetLinePos() const = 0; ///< its line, 0-based
    /// The selection's ends in either order; an X of -1: there is none.
    virtual QPoint GetSelStart() const = 0;
    /// The selection's anchor; an X of -1: there is none.
    virtual QPoint GetSelEnd() const = 0;
    /// What is shown and offered beside the text.
    virtual TZtExtras GetExtras() const = 0;
    /// Whether it is among these.
    bool HasExtra(TZtExtra AExtra) const { return GetExtras().testFlag(AExtra); }
    /// The colours of lines; null without `zcPicture`.
    virtual TZtHighlighter *GetHighlighter() const = 0;
    /// How characters stand in cells: tabs, wide ones.
    virtual const TZtCellRules &GetCellRules() const = 0;
    /// The cells of a step of indentation, 1 or more.
    virtual int GetIndentStep() const = 0;
    /// How long the caret rests before its word is marked, in milliseconds; 0: at once.
    virtual int GetWordMarkDelay() const = 0;
    /// What is marked in the text; made when it is asked for first.
    virtual TZtTextMarks &GetTextMarks() = 0;
    virtual bool HasTextMarks() const = 0; ///< whether it was made
    /// The colour of a part of the view, of the scheme or of the desktop.
    virtual TColor GetViewColor(TZtViewColor APart) const = 0;
    /// `GetViewColor`, resolved with the control's palette.
    virtual QRgb GetViewRgb(TZtViewColor APart) const = 0;
    /// Puts the caret at the start of a line and the line into the middle of the view.
    virtual void GoToLine(int ALine) = 0;
    /// To be called when what is shown beside the text is other: lays out and paints anew.
    virtual void ExtrasChanged() = 0;
    /// To be called when other lines have something in the overview ruler.
    virtual void OverviewChanged() = 0;

protected:
    ~TZtViewHost() = default;
};
