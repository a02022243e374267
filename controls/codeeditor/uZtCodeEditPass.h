#pragma once

#include "uZtCodeEdit.h"
#include "uZtFrame.h"
#include "uZtHighlighter.h"
#include "uZtLineLook.h"

#include <array>

// For the sources of the editor that describe its rows to the frame.

inline constexpr int ZtTextLeft = 2; // between the gutter and the first column, in pixels

// One walk over what is visible, and its state.
struct TZtCodeEdit::TPaintPass {
    explicit TPaintPass(TZtCodeEdit &AEdit);

    void StartLine();
    // of the lexer's tokens
    bool NothingMoreToSee() const;
    void AddToken();
    void AddPiece(QStringView S, TColor AFore, TColor ABack);
    // of lines, with zcPicture
    void ComposeRow(int ALine);
    void ComposeCells(int ALine);
    void PutComposition();
    void DecorateRow(int ALine);
    void AddColumns(int ALine, const TZtCellSpan &ASpan);
    void AddStretch(int ALine, const TZtCellSpan &ASpan, int AColumn, int AStop);
    int StopOf(int ALine, int AColumn, int AEnd) const;
    TZtPieceMarks MarksOf(const TZtDecorationStyle &AStyle, TColor AFore, int AColumn,
                          int AStop) const;

    TZtCodeEdit &Edit;
    QPoint Begin; // the selection, in order
    QPoint End;
    int Row = 0;    // the screen line
    int Guttor = 0; // its width
    QRgb Blank = 0; // the colour of blanks that are seen
    int Left = 0;
    int Right = 0; // of the client area: what stands there is out of sight
    int X = 0;
    int Col = 0; // characters drawn on the line so far
    int LastLine = -1;
    bool LineColoured = false;
    TColor LineBack = 0;
    TColor LineFore = 0;
    bool AfterBreak = false;

    QString Token;
    TColor Back = 0;
    TColor Fore = 0;
    TFontStyles Style;
    bool LineBreak = false;

    const TZtLineLook *Look = nullptr; // of the line, with zcPicture
    TZtLineLook ComposedLook;          // and of one that an input method composes in
    QString Composed;                  // with its composition; null for every other line
    bool HasColumns = false;           // in the gutter
    TZtGuttorSight Sight;
    std::vector<TZtColourRun> Runs; // of the line, with zcPicture
    size_t Run = 0;                 // the first that does not end before the column

    std::array<QRgb, 32> SystemColours{}; // of the palette, looked up once
    QRgb Rgb(TColor AColor) const
    {
        if ((AColor >> 24) == 0xFF)
            return SystemColours[AColor % SystemColours.size()];
        return qRgb(int(AColor & 0xFF), int((AColor >> 8) & 0xFF), int((AColor >> 16) & 0xFF));
    }
};
