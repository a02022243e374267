#pragma once

#include "uZtCells.h"
#include "uZtCodeList.h"
#include "uZtCodeOptions.h"
#include "uZtCodeParser.h"
#include "uZtColorScheme.h"
#include "uZtCorrections.h"
#include "uZtCustomControl.h"
#include "uZtExport.h"
#include "uZtExtras.h"
#include "uZtScrollBar.h"
#include "uZtSearchOptions.h"
#include "uZtStringList.h"
#include "uZtTextPainter.h"
#include "uZtUndoList.h"
#include "uZtViewHost.h"

#include <QBasicTimer>
#include <QMenu>
#include <QPoint>
#include <QPointer>

#include <limits>
#include <memory>

class QHelpEvent;
class QMimeData;
class QPagedPaintDevice;
class TFrmCodeEditSearchReplaceDlg;
class TZtCaret;
class TZtComposition;
class TZtEditExtras;
class TZtEditSearch;
class TZtEditWatcher;
class TZtEditState;
class TZtEditedText;
class TZtFrame;
class TZtGuttor;
class TZtGuttorMouse;
class TZtHighlighter;
class TZtMarkColumn;
class TZtPrimarySelection;
class TZtTextDrag;
class TZtTripleClick;
class TZtUndoHistory;
enum class TZtUndoJoin : quint8;
struct TZtGuttorSight;
struct TZtLineLook;
struct TZtPaintRow;
struct TZtPrintOptions;
struct TZtTextMarks;
struct TZtViewState;

/// The source-code editor control.
///
/// Positions are (X: character, Y: line), both 0-based, characters being UTF-16 units. The caret is
/// (`CharPos`, `LinePos`) and may stand right of its line's end. `SelStart` is the selection's
/// moving end, which follows the caret, and `SelEnd` its anchor, in either order; an X of -1 means
/// that there is no selection.
///
/// Everything runs on the thread of the user interface. Setters store and ask for a paint; only
/// `Paint` draws.
///
/// What a handler may do: everything. It may call any operation, change the text, the lexer or
/// itself, open a message box, and delete the editor (see `TZtNotifier`). What `OnChange` raises
/// prevents the change that it announces. What any other handler raises in the middle of an
/// operation is raised when the operation has come to its end: it is done then, with its undo item.
/// An operation that finds a line gone which a handler took away raises `EStringListError`.
class ZT_EDITOR_EXPORT TZtCodeEdit : public TCustomControl,
                                     public TZtUndoTarget,
                                     public TZtViewHost {
    Q_OBJECT
    Q_PROPERTY(ZtCodeOptions::TBorderStyle BorderStyle READ GetBorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(TStringList *Lines READ GetLines WRITE SetLines DESIGNABLE false)
    Q_PROPERTY(TZtLangParser *Parser READ GetParser WRITE SetParser DESIGNABLE false)
    Q_PROPERTY(QString Language READ GetLanguage WRITE StoreLanguage NOTIFY languageChanged)
    Q_PROPERTY(QMenu *PopupMenu READ GetPopupMenu WRITE SetPopupMenu DESIGNABLE false)
    Q_PROPERTY(int GuttorWidth READ GetGuttorWidth WRITE SetGuttorWidth)
    Q_PROPERTY(int RightMargin READ GetRightMargin WRITE SetRightMargin)
    Q_PROPERTY(QVariant RightMarginColor READ GetRightMarginColor WRITE SetRightMarginColor)
    Q_PROPERTY(ZtCodeOptions::TZtCodeOptions Options READ GetOptions WRITE SetOptions NOTIFY
                   optionsChanged)
    Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly NOTIFY readOnlyChanged)
    Q_PROPERTY(int TabIndentSize READ GetTabIndentSize WRITE SetTabIndentSize)
    Q_PROPERTY(ZtCorrections::TZtCorrections Corrections READ GetCorrections WRITE SetCorrections
                   NOTIFY correctionsChanged)
    Q_PROPERTY(ZtExtras::TZtExtras Extras READ GetExtras WRITE SetExtras NOTIFY extrasChanged)
    Q_PROPERTY(int Zoom READ GetZoom WRITE SetZoom NOTIFY zoomChanged STORED false)
    Q_PROPERTY(int WordMarkDelay READ GetWordMarkDelay WRITE SetWordMarkDelay)
    Q_PROPERTY(int TabWidth READ GetTabWidth WRITE SetTabWidth)
    Q_PROPERTY(qint64 UndoBytes READ GetUndoBytes WRITE SetUndoBytes)
    Q_PROPERTY(bool UndoLoads READ GetUndoLoads WRITE SetUndoLoads)
    Q_PROPERTY(int LinePos READ GetLinePos WRITE SetLinePos NOTIFY cursorPositionChanged
                   STORED false DESIGNABLE false)
    Q_PROPERTY(int CharPos READ GetCharPos WRITE SetCharPos NOTIFY cursorPositionChanged
                   STORED false DESIGNABLE false)
    Q_PROPERTY(
        bool ShowGuttor READ GetShowGuttor WRITE SetShowGuttor NOTIFY optionsChanged STORED false)
    Q_PROPERTY(bool ShowRightMargin READ GetShowRightMargin WRITE SetShowRightMargin NOTIFY
                   optionsChanged STORED false)
    Q_PROPERTY(QPoint SelStart READ GetSelStart WRITE SetSelStart NOTIFY selectionChanged
                   STORED false DESIGNABLE false)
    Q_PROPERTY(QPoint SelEnd READ GetSelEnd WRITE SetSelEnd NOTIFY selectionChanged
                   STORED false DESIGNABLE false)
    Q_PROPERTY(QString Text READ GetText WRITE SetText NOTIFY textChanged USER true)
    Q_PROPERTY(
        int ParserLineNr READ GetParserLineNr WRITE SetParserLineNr STORED false DESIGNABLE false)
    Q_PROPERTY(bool Modified READ GetModified WRITE SetModified NOTIFY modificationChanged
                   STORED false DESIGNABLE false)
    Q_PROPERTY(bool CanPaste READ GetCanPaste)
    Q_PROPERTY(bool CanUndo READ GetCanUndo NOTIFY undoAvailable)
    Q_PROPERTY(bool CanRedo READ GetCanRedo NOTIFY redoAvailable)

public:
    explicit TZtCodeEdit(QWidget *AOwner = nullptr);
    ~TZtCodeEdit() override;

    // === uZtCodeEdit.cpp: object, properties, metrics

    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    /// The frame while `Ctl3D` is off. Stored only; the next paint draws it.
    Q_SLOT void SetBorderStyle(TBorderStyle Value) { FBorderStyle = Value; }
    /// The live text. The host may edit it; nothing is recorded for undo then.
    TStringList *GetLines() const final { return FLines; }
    /// Takes over the lines of `Value`, which stays the caller's, and clears `Modified`. Nothing is
    /// recorded for undo and no event fires.
    void SetLines(const TStringList *Value);
    /// The lexer; never null: without one the editor makes a plain one of its own.
    TZtLangParser *GetParser();
    /// A parser that the editor made itself is freed; the host's stay the host's.
    void SetParser(TZtLangParser *Value);
    /// The name of the lexer's language, also of a lexer that the host attached; empty for plain
    /// text.
    QString GetLanguage() const;
    /// Attaches a lexer of the language of this name, letter case apart (see `uZtLanguages.h`),
    /// which the editor owns; plain text for an empty name. A lexer of that language stays. Raises
    /// `EZtParser` for a name that is not known; nothing is changed then. Set as a property of the
    /// object it raises nothing, but prints a warning.
    void SetLanguage(const QString &Value);
    QMenu *GetPopupMenu() const { return FPopupMenu; }
    /// The menu of a right click.
    void SetPopupMenu(QMenu *Value);
    int GetGuttorWidth() const { return FGuttorWidth; }
    /// The gutter in pixels where it has no columns. Stored only: layout and picture follow with
    /// the next change of either.
    Q_SLOT void SetGuttorWidth(int Value) { FGuttorWidth = Value; }
    int GetRightMargin() const { return FRightMargin; }
    /// The column of the margin's line.
    Q_SLOT void SetRightMargin(int Value);
    /// The colour of the margin's line.
    TColor GetRightMarginColor() const { return FRightMarginColor; }
    void SetRightMarginColor(TColor Value);
    /// What `ZtToColor` makes a colour of: for forms and style sheets. Ignores all else.
    void SetRightMarginColor(const QVariant &Value);
    /// Gutter, margin and where the caret may stand. A setter lays out and paints anew.
    TZtCodeOptions GetOptions() const { return FOptions; }
    Q_SLOT void SetOptions(TZtCodeOptions Value);
    bool GetShowGuttor() const { return FOptions.testFlag(TZtCodeOption::coShowGuttor); }
    /// Turns the gutter on; without `zcSwitches` also with false: it is taken away through
    /// `Options` alone then.
    Q_SLOT void SetShowGuttor(bool Value);
    bool GetShowRightMargin() const { return FOptions.testFlag(TZtCodeOption::coShowRightMargin); }
    /// Turns the margin on; without `zcSwitches` also with false: it is taken away through
    /// `Options` alone then.
    Q_SLOT void SetShowRightMargin(bool Value);
    /// Whether users cannot change the text; without `zcReadOnly` Backspace and undo still do.
    virtual bool GetReadOnly() const { return FReadOnly; }
    Q_SLOT virtual void SetReadOnly(bool Value);
    int GetTabIndentSize() const { return FTabIndentSize; }
    /// How many spaces the Tab key inserts; none when 0 or negative.
    Q_SLOT void SetTabIndentSize(int Value) { FTabIndentSize = Value; }
    int GetTabWidth() const { return FCells.TabWidth; }
    /// With `zcTabs`: every how many cells a tab stop stands, 1 or more.
    Q_SLOT void SetTabWidth(int Value);
    int GetParserLineNr() const { return FParserLineNr; }
    /// The index of the line that the lexer is handed next.
    void SetParserLineNr(int Value)
    {
        FParserLineNr = Value;
        FParserColumn = 0;
    }
    bool GetModified() const { return FModified; }
    /// Whether the text was changed since this was set to false, as a save does. False also says
    /// which text the saved one is, for `zcEvents`.
    Q_SLOT void SetModified(bool Value);

    const TNotifyEvent &GetOnCursorChange() const { return FOnCursorChange; }
    /// Fired by every caret move, also by one that leads to where the caret was.
    void SetOnCursorChange(const TNotifyEvent &Value) { FOnCursorChange = Value; }
    const TNotifyEvent &GetOnChange() const { return FOnChange; }
    /// Fired by the editing operations, before they change the text; with `zcEvents` once after
    /// each operation, undo, load or edit of the host that changed the text.
    void SetOnChange(const TNotifyEvent &Value) { FOnChange = Value; }
    const TZtParserLineChangeEvent &GetOnParserLineChange() const { return FOnParserLineChange; }
    /// Asked by every paint for every line that it draws.
    void SetOnParserLineChange(const TZtParserLineChangeEvent &Value);

    /// The gutter's width in pixels as the layout counts it: 0 while it is hidden, that of its
    /// columns where it has any.
    int RealGuttorWidth() const;
    /// The size of a character cell in pixels.
    int GetCharWidth();
    void SetCharWidth(int Value);
    /// The height of a line in pixels.
    int GetLineWidth();
    void SetLineWidth(int Value);
    /// Lays out the two scroll bars and sets their ranges.
    void PositionScollBars();
    TScrollBar *GetHScrollBar() const { return FHScrollBar; } ///< at the first cell in sight
    TScrollBar *GetVScrollBar() const { return FVScrollBar; } ///< at the first line in sight
    /// Lines that a notch of the wheel scrolls.
    int GetScollLines() const { return FScollLines; }
    /// Whether the line starts a block that can be folded. Always false, `Collapsed` untouched.
    bool IsLineCollapse(int ALine, bool &Collapsed) const;

    /// The text is about to change; ignored while painting.
    virtual void LinesChanged(QObject *Sender);
    /// The text has changed: fits the scroll bars and tells who is connected. Ignored while
    /// painting.
    void CodeChange(QObject *Sender);
    /// An operation is about to change the text: fires `OnChange`, unless `zcEvents` does that
    /// later.
    virtual void Changed();
    /// A bar has moved: the caret's mark and the picture follow.
    void ScrollChange(QObject *Sender);

    void Loaded() override;
    void Notification(QObject *AComponent, TOperation Operation) override;
    void SetParent(QWidget *AParent) override;
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Answers that the background is taken care of: `Paint` covers the whole client area.
    int WMEraseBkgnd() const { return 1; }

    // === uZtCodeEditCorrections.cpp: corrections, operations, undo and redo

    TZtCorrections GetCorrections() const { return FCorrections; }
    /// What is done better than by the first version; none of it unless the host says so. `zcTabs`,
    /// `zcCells` and `zcStates` bring `zcPicture` with them. Switching `zcUndo` or `zcEvents` on or
    /// off forgets what could be undone.
    Q_SLOT void SetCorrections(TZtCorrections Value);
    /// One of `Corrections`.
    bool IsCorrected(TZtCorrection ACorrection) const { return FCorrections.testFlag(ACorrection); }
    /// Takes the last change back; nothing happens when there is none.
    virtual void Undo();
    /// With `zcUndo`: makes the change again that was taken back last.
    virtual void Redo();
    bool GetCanRedo() const; ///< whether `Redo` has something to do; never without `zcUndo`
    /// Forgets what could be undone and redone.
    void ClearUndo();
    /// Between these, with `zcUndo`, all changes are one step of undo and, with `zcEvents`, of
    /// `OnChange`.
    void BeginUpdate();
    void EndUpdate(); ///< nothing happens without a `BeginUpdate`
    qint64 GetUndoBytes() const { return FUndoBytes; }
    /// With `zcUndo`: what the undo may take in memory, in bytes. The oldest steps go first.
    Q_SLOT void SetUndoBytes(qint64 Value);
    bool GetUndoLoads() const { return FUndoLoads; }
    /// With `zcUndo`: whether `LoadFromFile` can be undone. If not, it forgets all steps.
    Q_SLOT void SetUndoLoads(bool Value) { FUndoLoads = Value; }
    /// Shows and edits the text of another editor from now on. With `zcUndo` in both, the two share
    /// one undo. The text lives as long as one of them.
    void ShareText(TZtCodeEdit *AOther);
    /// The caret's column in cells: a tab or a wide character before it counts as it is drawn.
    int GetCaretCell() const;

    // === uZtCodeEditExtras.cpp: what is shown and offered beside the text

    TZtExtras GetExtras() const final { return FShownExtras; }
    /// What the editor shows and offers beside the text; none of it unless the host says so.
    Q_SLOT void SetExtras(TZtExtras Value);
    /// Its columns are shown with `zcPicture`, which the extras bring with them.
    TZtGuttor *GetGuttor() const;
    /// The gutter's column of marks, for icons of the host's own.
    TZtMarkColumn *GetMarkColumn() const;
    const TZtGuttorClickEvent &GetOnGuttorClick() const { return FOnGuttorClick; }
    /// Told of a press beside a line. Without a handler one in the column of marks sets a bookmark
    /// or takes it away.
    void SetOnGuttorClick(const TZtGuttorClickEvent &Value) { FOnGuttorClick = Value; }
    /// Decorations, diagnostics, marks and changes of the text, for all editors that show it. The
    /// changes are those since they were asked for first. Drawn with `zcPicture`.
    TZtTextMarks &GetTextMarks() final;
    bool HasTextMarks() const final;
    /// Never null: "Classic" by default.
    const std::shared_ptr<const TZtColorScheme> &GetScheme() const;
    /// The colours of the text and of everything around it; null for "Classic", the lexers' tables
    /// and the desktop's colours.
    void SetScheme(const std::shared_ptr<const TZtColorScheme> &Value);
    /// The colour of a part of the view, of the scheme or of the desktop.
    TColor GetViewColor(TZtViewColor APart) const final;
    QRgb GetViewRgb(TZtViewColor APart) const final;
    int GetZoom() const { return FZoom; }
    /// The size of the font in per cent of what the host has set, 20 to 500.
    Q_SLOT void SetZoom(int Value);
    int GetWordMarkDelay() const final { return FWordMarkDelay; }
    /// With `zeWordMarks`: how long the caret rests before its word is marked, in milliseconds, so
    /// that what is typed does not flicker; 0: at once.
    Q_SLOT void SetWordMarkDelay(int Value) { FWordMarkDelay = qMax(Value, 0); }
    /// Marks all matches of a text with `zeMatchMarks`, as a search does; an empty one marks none.
    void MarkMatches(const QString &AText, TZtSearchFlags AFlags);
    /// How many there are; -1 until the whole text was looked through, which is done in idle time.
    qint64 GetMatchCount() const;
    /// Puts the caret at the start of a line (0-based) and the line into the middle of the view.
    Q_SLOT void GoToLine(int ALine) final;
    /// Runs a command of the extras; message 1029 does it too. Answers whether it led anywhere.
    bool RunExtra(TZtExtraCommand ACommand);
    /// The colours of lines; null without `zcPicture`.
    TZtHighlighter *GetHighlighter() const final { return FHighlighter.get(); }
    const TZtCellRules &GetCellRules() const final { return FCells; }
    int GetIndentStep() const final
    {
        return FTabIndentSize > 0 ? FTabIndentSize : FCells.TabWidth;
    }
    /// To be called when what is shown beside the text is other: lays out and paints anew.
    void ExtrasChanged() final;
    /// To be called when other lines have something in the overview ruler.
    void OverviewChanged() final;

    // === uZtCodeEditAccess.cpp: for assistive tools

    /// The cells of the character at a place in pixels of the control, also where it is out of
    /// sight; behind a line's end one cell. The place is put inside the text.
    QRect GetCharacterRect(const QPoint &APlace) const;
    /// The place of the character at a pixel of the control, or of its line's end; (-1, -1) where
    /// there is no text: beside it and below its last line.
    QPoint GetCharacterAt(const QPoint &AAt) const;
    /// Scrolls until the character at a place is in sight. The caret stays.
    void ScrollTo(const QPoint &APlace);
    /// Told whenever something that can be seen may be other; null for nobody. It has to take
    /// itself away before it goes.
    void SetWatcher(TZtEditWatcher *Value) { FWatcher = Value; }

    // === uZtCodeEditPaint.cpp: rendering

    /// Asks for a paint of the text area; the scroll bars keep their picture. A host calls it where
    /// the lexer's colours have changed.
    void Invalidate() override;
    /// Lexes the visible lines and draws them. Re-entrant calls do nothing.
    void Paint() override;
    /// Makes `ParserGetNewBuffer` go on with the next line that holds `AText`, or be at its end
    /// when there is none.
    void ParserSkipTo(const QString &AText);
    /// The lexer's source: with `AReset` restarts at line 0, else hands over the next line and CR
    /// LF in `S` and keeps the lexer's `LineKind` in that line's object slot; false after the last.
    /// A line of more than 16384 units comes in pieces.
    bool ParserGetNewBuffer(bool AReset, QString &S);
    /// If `Apply`, makes `Color` a plain RGB value with each of its four bytes `Percent` per cent
    /// smaller.
    void DarkenColor(TColor &Color, bool Apply, int Percent) const;
    /// A copy of the screen lines as the last paint drew them, from the top of the control.
    std::vector<TZtPaintRow> PaintedRows() const;

    // === uZtCodeEditCaret.cpp: the caret's place

    int GetCharPos() const final { return FCharPos; }
    /// The caret's column, 0-based. Moves the caret in its line; right of its end is allowed. A
    /// negative column gives column 0 of the line above. Scrolls it into view and fires
    /// `OnCursorChange`; the selection follows.
    Q_SLOT void SetCharPos(int Value) final;
    int GetLinePos() const final { return FLinePos; }
    /// The caret's line, 0-based, clamped to the text. The column stays.
    Q_SLOT void SetLinePos(int Value) final;
    /// Puts the caret's mark where the caret is, or hides it outside the text area.
    void ResetCaret();
    /// The mark that blinks; of a class that only the library knows.
    TZtCaret *GetCaret() const { return FCaret; }
    void CMEnter() override;
    void CMExit() override;

    // === uZtCodeEditKeys.cpp: keyboard

    /// The shortcuts: posts the command's message and sets `Key` to 0 where one matches.
    virtual void KeyCommand(quint16 &Key, TShiftState Shift);
    void KeyDown(quint16 &Key, TShiftState Shift) override;
    /// Moves the caret by a word; see `ZtWordJump`.
    void GotoNextChar(bool Forward);
    /// Whether the editor claims a navigation key for itself.
    bool CMWantSpecialKey(quint16 Key) const;
    /// The kinds of keys that the editor wants: arrows, characters and Tab.
    int WMGetDlgCode() const { return 0x83; }
    QVariant inputMethodQuery(Qt::InputMethodQuery AQuery) const override;

    // === uZtCodeEditMouse.cpp: mouse and scrolling

    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    /// One notch of the wheel, its direction being the sign of the high word of `WParam`.
    void WMMouseWheel(TZtMessage &Message);
    /// Turns a client pixel position into a text position. Counts `GuttorWidth` also while the
    /// gutter is hidden; -1 stands for a cell size that is not known.
    void CalcCursor(int &X, int &Y);
    /// The place in the text (column, line) at a client pixel, or the nearest one.
    QPoint GetPlaceAt(const QPoint &APixel) const;
    /// Where the caret is drawn when it stands at a place, in client pixels; also out of sight.
    QRect GetPlaceRect(const QPoint &APlace) const;
    void DblClick() override;

    // === uZtCodeEditEditing.cpp: editing

    /// Inserts `S`, which may hold line breaks, at the caret. Any two break characters in a row are
    /// one break. One undo item of `ChangeType`; nothing in a read-only editor.
    virtual void InsertText(TZtChangeType ChangeType, const QString &S);
    /// Inserts typed text at the caret; CR alone breaks the line and indents the new one like the
    /// nearest line above that is not blank. The line's trailing blanks go. One undo item.
    virtual void AddTxt(const QString &S);
    /// Removes the selected text and returns it in `Deleted` (untouched in a read-only editor).
    /// With `ctCut` it goes to the clipboard; with `ctNone` nothing is recorded for undo.
    void DeleteSelected(TZtChangeType AChangeType, QString &Deleted) final;
    /// The Backspace key's work at the caret, also in a read-only editor.
    virtual void BackSpaceSelected();
    void WMChar(TZtMessage &Message) override;
    /// Inserts `aTxt` at the start of the last line.
    virtual void AddCode(const QString &aTxt);
    /// Moves the caret to a place (0-based) and inserts `ATxt` there, as `InsertText` does with
    /// `ctPaste`.
    void InsertCode(int ALinePos, int ACharPos, const QString &ATxt);
    /// All lines, CR LF after each; with `zcText` with the line breaks of the text that was set.
    QString GetText() const;
    /// Replaces the text and puts the caret at its start. The undo list stays. With `zcText`
    /// nothing happens when the text is `S` already.
    Q_SLOT void SetText(const QString &S);
    /// Replaces the text by a file's, whose encoding is found out. Raises `EStreamError` when it
    /// cannot be read; the text is left then, the caret and the view are at the start already.
    virtual void LoadFromFile(const QString &aFileName);
    /// What `Undo` takes back without `zcUndo`; with it nothing is recorded here.
    TZtUndoList *GetUndoList() const { return FUndoList.get(); }
    void RunToEnd(const std::function<void()> &AStep) final;

    // === uZtCodeEditSelection.cpp: selection and clipboard

    /// The end of the selection that follows the caret; an X of -1: there is none. A setter checks
    /// nothing and fires no event.
    QPoint GetSelStart() const final { return FSelStart; }
    void SetSelStart(const QPoint &P) final;
    /// The selection's anchor; an X of -1: there is no selection. May stand before the other end.
    QPoint GetSelEnd() const final { return FSelEnd; }
    void SetSelEnd(const QPoint &P) final;
    /// Moves the selection's end to the caret, and its anchor too unless Shift is down or a drag
    /// goes on; with `ACollapse` Shift does not count.
    void SetSelection(bool ACollapse);
    /// Nothing is selected any more. The caret stays.
    virtual void ClearSelection();
    /// Whether a deletion would remove a selected text.
    bool SelectionGiven() const;
    /// What stands between two places in either order, as far as the text has it.
    TZtTextPiece GetPiece(const QPoint &AFrom, const QPoint &ATo) const;
    /// Whether text that is dropped, or of the primary selection, can be put in.
    virtual bool MayTakeText() const { return !GetReadOnly(); }
    /// Nothing is selected any more, and the caret goes to the start of the text.
    void InitSelectionAndPosition();
    /// The selected text; empty without a selection. A selection that ends below the text appends
    /// an empty line.
    void GetSelected(QString &Selected);
    /// More than 0 when there is a selection. Line breaks are not counted, and in one line it
    /// counts from the selection's start to the line's end.
    int SelLength();
    bool GetCanPaste() const; ///< whether the clipboard has text; asks the desktop, and is not told
    /// Whether `Undo` has something to do, also while the editor is read-only.
    bool GetCanUndo() const;
    /// Selects the word at the caret.
    void WMSselectWord(TZtMessage &Message);
    void WMCut(TZtMessage &Message);   ///< message 768: moves the selected text to the clipboard
    void WMCopy(TZtMessage &Message);  ///< message 769
    void WMPaste(TZtMessage &Message); ///< message 770: replaces the selection
    void WMUndo(TZtMessage &Message);  ///< message 772: `Undo`
    void WMRedo(TZtMessage &Message);  ///< message 1028: `Redo`
    void WMExtra(TZtMessage &Message); ///< message 1029: runs the `TZtExtraCommand` in `WParam`

    bool Dispatch(TZtMessage &Message) override;

    // === uZtCodeEditExport.cpp: what leaves the editor for paper, files and other programs

    /// Prints the text or the selection on a printer, or into a PDF file; see
    /// `TZtTextPrinter::Print` for the answer and what it raises. Diagnostics, marks and the host's
    /// colours of lines (`OnParserLineChange`) are not printed.
    bool Print(QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions);
    /// How many pages that takes, whatever range of them the device is to print.
    int PageCount(const QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions) const;
    /// Writes the text or the selection as HTML; see `ZtWriteHtml`.
    bool WriteHtml(QIODevice &ADevice, bool ASelectionOnly, const QString &ATitle = {});
    /// The selected text as other programs get it: plain with the desktop's line breaks and, with
    /// `zeRichCopy` and up to 2^20 units of it, as HTML, which is made when it is asked for. Empty
    /// without a selection.
    std::unique_ptr<QMimeData> CreateMimeData();

    // === uZtCodeEditSearch.cpp: search and replace

    /// Shows the dialog for replacing (`WParam` 1) or finding, takes its answers over and posts the
    /// search step. Only the results 1 (OK) and 14 (all occurrences) start a search.
    void WMSearchReplaceDlg(TZtMessage &Message);
    /// One step: finds the next match, selects it and replaces it when that is asked for. Nothing
    /// happens before the first search has been set up.
    void WMSearchReplace(TZtMessage &Message);
    const TZtSearchReplaceOptions &GetSearchOptions() const;
    const TZtSearchMessageEvent &GetOnSearchMessage() const;
    /// With `zcReplaceAll`: told that a search went round the end of the text, or how much was
    /// replaced. Without a handler a message box says that it went round.
    void SetOnSearchMessage(const TZtSearchMessageEvent &Value);
    /// For a host with a dialog of its own, which posts message 1027 afterwards. Where `Options` is
    /// empty, it follows from the three flags.
    void SetSearchOptions(const TZtSearchReplaceOptions &Value);
    /// The dialog, null before it was shown first. It keeps its entries.
    TFrmCodeEditSearchReplaceDlg *GetSearchDlg() const;

    // === uZtCodeEditSlots.cpp: Qt's own idiom

    /// A menu of the usual commands, which is the caller's to delete.
    QMenu *createStandardContextMenu();

public Q_SLOTS:
    // What the messages of these names do, at once; the two forms open when the event loop comes
    // round. What is raised goes to `ZtHandleException`.
    void undo();    ///< see `Undo`
    void redo();    ///< see `Redo`
    void cut();     ///< moves the selected text to the clipboard
    void copy();    ///< copies the selected text, with `zeRichCopy` also its colours
    void paste();   ///< the clipboard's text replaces the selection
    void find();    ///< opens the search form
    void replace(); ///< opens the search form for replacing
    /// Repeats the search downwards, without replacing.
    void findNext();
    /// Repeats the search upwards, without replacing.
    void findPrevious();
    void selectAll(); ///< the caret goes to the end of the text
    /// Removes the selected text, as the Delete key does; nothing without a selection.
    void deleteSelection();
    /// Removes the text, whether or not the editor is read-only, and forgets what could be undone.
    void clear();

Q_SIGNALS:
    /// Emitted with `OnChange` where `zcEvents` is on, else after each change of the lines.
    void textChanged();
    void cursorPositionChanged(); ///< emitted with `OnCursorChange`
    /// The lexer is of another language now.
    void languageChanged();
    // Each of these is emitted at the end of an operation, when the value is other than it was told
    // last.
    void modificationChanged(bool AModified); ///< what `Modified` is now
    void readOnlyChanged(bool AReadOnly);     ///< what `ReadOnly` is now
    void selectionChanged();                  ///< one of its ends is another one
    void undoAvailable(bool AAvailable);      ///< what `CanUndo` is now
    void redoAvailable(bool AAvailable);      ///< what `CanRedo` is now
    /// Whether there is a selected text.
    void copyAvailable(bool AAvailable);
    void schemeChanged();                                 ///< another scheme
    void zoomChanged(int AZoom);                          ///< what `Zoom` is now, in per cent
    void optionsChanged(TZtCodeOptions AOptions);         ///< what `Options` is now
    void correctionsChanged(TZtCorrections ACorrections); ///< what `Corrections` is now
    void extrasChanged(TZtExtras AExtras);                ///< what `Extras` is now

protected:
    bool event(QEvent *AEvent) override;
    bool focusNextPrevChild(bool ANext) override;
    void keyPressEvent(QKeyEvent *AEvent) override;
    void paintEvent(QPaintEvent *AEvent) override;
    void wheelEvent(QWheelEvent *AEvent) override;
    void contextMenuEvent(QContextMenuEvent *AEvent) override;
    void inputMethodEvent(QInputMethodEvent *AEvent) override;
    void timerEvent(QTimerEvent *AEvent) override;
    void connectNotify(const QMetaMethod &ASignal) override;
    void LayoutChanged() override;
    void FocusPaused(bool AActive) override;
    void Abandoned() override;
    void dragEnterEvent(QDragEnterEvent *AEvent) override;
    void dragMoveEvent(QDragMoveEvent *AEvent) override;
    void dragLeaveEvent(QDragLeaveEvent *AEvent) override;
    void dropEvent(QDropEvent *AEvent) override;
    /// To be called when a value that a signal tells may be another one.
    void StateChanged();
    /// The lines were made of `S` otherwise than by `SetText`.
    void TakeBreaks(const QString &S);

private:
    struct TPaintPass;
    struct TKeyAction;
    struct TExtraAction;
    struct TBackSpace;
    class TFollower;
    // languages
    void StoreLanguage(const QString &Value);
    void ForgetLineStates();
    void TellLanguage();
    // corrections
    bool MayEdit() const { return !IsCorrected(TZtCorrection::zcReadOnly) || !GetReadOnly(); }
    void MakeState();
    bool IsWatched() const;
    void Watched(const std::function<void()> &AStep);
    template <typename TStep> void Operate(TStep AStep);
    void BeginOperation();
    void EndOperation();
    void TellChange();
    TZtViewState GetView() const;
    void SetView(const TZtViewState &AView);
    void Move(bool (TZtUndoHistory::*AMove)(TZtViewState &));
    void Record(TZtChangeType AChangeType, const QPoint &AStart, const QPoint &AEnd,
                const QPoint &ACaret, const QString &AValue);
    void AttachText(const std::shared_ptr<TZtEditedText> &AText);
    void DetachText();
    void LeaveHistory();
    void MakeHistory();
    static void ForEach(const TZtEditedText &AText,
                        const std::function<void(TZtCodeEdit &)> &AStep);
    void CorrectParser(TZtCorrections AWhich);
    QPoint InText(const QPoint &APlace) const;
    QPoint InLine(const QPoint &APlace) const;
    void MoveTo(const QPoint &APlace);
    void KeepCaretInText();
    void ScrollToColumn();
    void ScrollToLine();
    int CellOf(const QPoint &APlace) const;
    int ColumnAt(int ALine, int ACell) const;
    void SetRanges(int AColumns, int ALines);
    void Show(TZtCodeOption AOption, bool AShow);
    // extras
    TZtGuttorSight GuttorSight() const;
    bool HasColumns() const;
    int BarsWidth() const;
    qreal RowPitch() const;
    void WatchText();
    void JumpTo(const QPoint &APlace);
    bool ShowToolTip(const QHelpEvent &AEvent);
    void ColourParser();
    void CaretSeen();
    void MeasureFont();
    // assistive tools
    static void InstallAccessible();
    void TellWatcher();
    void ScrollFinely(const QWheelEvent &AEvent);
    bool ZoomWith(QEvent *AEvent);
    // painting
    bool BeginFrame();
    void ComposeLines();
    void HandOverPiece(QString &S);
    void FeedParser();
    void ComposeText();
    TColor Shaded(TColor AColor, bool AReadOnly) const;
    void LexAhead();
    void StartIdle(int ADelay);
    void PutOffIdle();
    QRect PictureArea() const;
    void CopyFrame();
    void Redraw();
    void PaintCorners();
    void PaintFlatBorder();
    void UpdatePageSizes();
    void PaintComposition(QPainter &APainter) const;
    void DrawDropMark(QPainter &APainter) const;
    void PrepareParser();
    // input
    bool IsComposing() const;
    QString ComposedStart() const;
    int ComposedCell(int AUnits) const;
    void Commit(const QInputMethodEvent &AEvent);
    void SelectAsTold(const QInputMethodEvent &AEvent);
    void CompositionChanged();
    void EndComposition();
    bool PressComposition(int X, int Y);
    void TellInputMethod();
    void ShowInput();
    void InsertPrimary(const QPoint &APixel);
    // handlers
    void Outside(const std::function<void()> &AStep);
    void Tell(const std::function<void()> &AStep);
    // caret
    void MoveToColumn(int AColumn);
    void CaretMoved();
    QRect CaretRectAt(int ACell, int ALine) const;
    // keys
    void SelectAll();
    void DoKey(quint16 &Key, TShiftState Shift);
    void SelectWord();
    void SelectLine(int ALine);
    int CharactersBefore(int AColumn) const;
    int CharactersAfter(int AColumn) const;
    // mouse
    void MoveCaretTo(int X, int Y);
    void DoMouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
    QPoint PlaceAt(int X, int Y) const;
    // editing
    void EnsureLine(int ALine);
    bool SelectionReversed() const;
    void ClampSelectionEnd();
    auto KeepSelection();
    QString SelectedText() const;
    QPoint PutInPlace(const QPoint &AFrom, const QPoint &ATo, const QString &S);
    void InsertLines(const QString &S);
    void InsertInLine(const QString &S);
    void BreakLine();
    void DeleteLines(TZtChangeType AChangeType, const QString &ADeleted);
    void Load(const QString &aFileName);
    void SetAllLines(const QString &S);
    void MarkSaved();
    void ForgetChanges();
    void CheckFits(qsizetype AMore) const;
    void InsertBreak(const QString &APiece);
    void PutInLine(int ALine, QString &&AText, int AColumn, int ACount, QStringView S, bool AChop);
    void ChopBlanks(QString &S) const;
    void ChopLine(int ALine);
    void BreakIndented();
    void Erase(TZtChangeType AChangeType, QString *ADeleted);
    void EraseGiven(TZtChangeType AChangeType, const QPoint &ABefore, QString *ADeleted);
    void EraseTo(const QPoint &APlace);
    void EraseWord(bool AForward);
    void EraseBack();
    void Type(const QString &S);
    void TypeTab(bool ABack);
    void IndentLines(int AFirst, int ALast, bool ABack);
    // menus and slots
    void PopupMenuAt(const QPoint &APlace);
    bool PopupMenuAtCaret();
    void CaretForMenu(int X, int Y);
    void Send(quint32 AMsg, quint64 AWParam = 0);
    // classes for single tasks
    friend class TZtEditExport;
    friend class TZtEditSearch;
    friend class TZtGuttorMouse;
    friend class TZtPairTyping;
    void MakeParts();
    std::shared_ptr<TZtEditSearch> FSearch;
    std::shared_ptr<TZtGuttorMouse> FGuttorMouse;
    TBorderStyle FBorderStyle = TBorderStyle::bsSingle;
    bool FModified = false;
    std::unique_ptr<TZtEditState> FState;
    bool FInside = false; // an operation at whose end the signals are told
    std::unique_ptr<TZtUndoList> FUndoList;
    std::shared_ptr<TZtEditedText> FText;
    TStringList *FLines = nullptr; // of FText
    int FCharPos = 0;
    int FLinePos = 0;
    int FGuttorWidth = 20;
    TZtLangParser *FParser = nullptr;
    QString FLanguage; // told last
    int FParserLineNr = 0;
    int FParserColumn = 0; // of the line before, where its next piece begins; 0 without one
    TZtCaret *FCaret;
    int FCharWidth = 0;
    int FLineWidth = 0;
    TScrollBar *FHScrollBar = nullptr;
    TScrollBar *FVScrollBar = nullptr;
    bool InPaint = false;
    bool InMouseDown = false;
    bool inMouseMove = false;
    int FRightMargin = 80;
    TColor FRightMarginColor = clBtnFace;
    TZtCodeOptions FOptions;
    QPoint FSelStart;
    QPoint FSelEnd;
    TNotifyEvent FOnCursorChange;
    int FScollLines = 3;
    std::vector<std::unique_ptr<QObject>> Collapse; // for folding; nothing adds to it
    bool FInMouseSetSelection = false;
    bool ParserLineCollapse = false;
    bool ParserLineCollapsed = false;
    TNotifyEvent FOnChange;
    bool FReadOnly = false;
    QMenu *FPopupMenu = nullptr;
    TZtParserLineChangeEvent FOnParserLineChange;
    int FTabIndentSize = 2;
    std::unique_ptr<TZtFrame> FFrame;
    std::unique_ptr<TZtTripleClick> FTripleClick;
    TZtTextPainter FMetrics; // the font's measures between two paints
    std::unique_ptr<TZtComposition> FComposition;
    bool FTellsInput = false;                      // an input method, soon
    std::shared_ptr<TZtTextDrag> FTextDrag;        // with zeDragText
    std::shared_ptr<TZtPrimarySelection> FPrimary; // with zePrimary
    QChar FHighSurrogate;                          // typed, waiting for its other half
    int FWheelRest = 0;                            // of a notch, in eighths of a degree
    TZtEditWatcher *FWatcher = nullptr;
    TZtCorrections FCorrections;
    TZtExtras FShownExtras;
    std::unique_ptr<TZtEditExtras> FExtras;
    std::shared_ptr<const TZtColorScheme> FScheme;
    TZtGuttorClickEvent FOnGuttorClick;
    int FZoom = 100;
    int FWordMarkDelay = 200;
    QFont FUnzoomed;     // the host's
    QPointF FWheelRests; // of a cell and a line, in pixels
    double FPinch = 1;   // what was zoomed by and is less than a per cent
    TZtCellRules FCells;
    std::shared_ptr<TZtUndoHistory> FHistory;     // with zcUndo or zcEvents
    std::shared_ptr<TZtHighlighter> FHighlighter; // with zcPicture
    std::shared_ptr<TFollower> FFollower;
    qint64 FUndoBytes;
    bool FUndoLoads = true;
    bool FCaretCarried = false; // along with the text, which is not told yet
    int FOperations = 0;        // that are under way, one in the other
    TZtUndoJoin FJoin{};        // alone
    quint64 FToldVersion = 0;   // of the text, when OnChange was fired last
    int FWantedCell = -1;       // where Up and Down would like to be
    int FLongest = 0;           // of the lines shown so far, in cells
    bool FRedraws = false;      // the editor itself asks for a paint
    QBasicTimer FIdle;          // while there are states to be found
    int FIdleDelay = 0;         // that it was started with
    quint64 FShownColours = 0;  // the highlighter's revision at the last paint
    QPoint FPressPlace;
};
