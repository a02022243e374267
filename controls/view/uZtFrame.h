#pragma once

#include "uZtDecorations.h"
#include "uZtGuttor.h"
#include "uZtStripImage.h"
#include "uZtTextPainter.h"

#include <QColor>
#include <QRect>

#include <vector>

/// What is drawn over a stretch of text.
struct TZtPieceMarks {
    TZtUnderline Line = TZtUnderline::ulNone;
    QRgb LineColour = 0;
    bool IsBoxed = false; ///< lines above and below, and at the ends where the box has them here
    bool BoxBegins = false;
    bool BoxEnds = false;
    QRgb BoxColour = 0;
    bool IsStruck = false; ///< a line through the text
    QRgb StrikeColour = 0;
    bool AreBlanksSeen = false; ///< as dots, and tabs as arrows
    QRgb BlankColour = 0;
    bool operator==(const TZtPieceMarks &) const = default;
};

/// A stretch of text in one set of attributes.
struct TZtPaintPiece {
    int Left;        ///< pixels from the left of the client area
    int Width;       ///< pixels
    qsizetype Start; ///< where its characters begin in the row's text
    qsizetype Length;
    QRgb Fore;
    QRgb Back;
    TFontStyles Style;
    bool IsCluster = false; ///< drawn as one, in exactly its width
    TZtPieceMarks Marks = {};
    bool operator==(const TZtPaintPiece &) const = default;
};

/// A line down a column, behind the text.
struct TZtPaintGuide {
    int Left; ///< pixels from the left of the client area
    QRgb Colour;
    bool operator==(const TZtPaintGuide &) const = default;
};

/// One screen line as it is drawn.
struct TZtPaintRow {
    QString Text;
    std::vector<TZtPaintPiece> Pieces;
    bool Coloured = false; ///< the host gave the line a background of its own
    int ColouredLeft = 0;  ///< from where on that background is drawn, in pixels
    QRgb ColouredBack = 0;
    std::vector<TZtPaintGuide> Guides;
    bool operator==(const TZtPaintRow &) const = default;
    QStringView TextOf(const TZtPaintPiece &APiece) const
    {
        return QStringView(Text).mid(APiece.Start, APiece.Length);
    }
    /// The text of the piece that touches one (by its index) on the left or right; empty without.
    QStringView Before(size_t APiece) const;
    QStringView Behind(size_t APiece) const;
};

/// What is drawn around the rows; a change of any of it draws everything anew.
struct TZtFrameLook {
    QSize Size;       ///< of the client area, in pixels
    qreal PixelRatio; ///< device pixels per pixel
    QFont Font;
    int GuttorWidth; ///< 0 when the gutter is hidden
    int MarginX;     ///< where the right margin is drawn, or -1
    QRgb Back;
    QRgb Margin;
    QRgb GuttorFace, GuttorLight, GuttorShadow;
    bool Exact = false;        ///< whether text stands on the exact grid of `TZtTextPainter`
    TZtGuttorLook Guttor = {}; ///< of its columns
    bool operator==(const TZtFrameLook &) const = default;
};

/// The height of a line in pixels on the exact grid, where a line of text takes `ALineHeight` and a
/// pixel `ARatio` device pixels: so much that all lines are of the same whole number of these.
qreal ZtRowPitch(int ALineHeight, qreal ARatio);

/// The editor's picture. A paint describes the rows from the top; a row that was drawn before as it
/// is described now is not drawn again, wherever in the picture it stood (in its own place alone,
/// where rows are not whole device pixels). Neither is its part of the gutter.
class TZtFrame {
public:
    /// Starts a picture, without rows. The gutter's columns, if there are any, draw their cells.
    void Begin(const TZtFrameLook &ALook, const TZtGuttor *AGuttor = nullptr);
    TZtTextPainter &TextPainter() { return FText; }
    /// Gives the row at the screen line `ARow` (0-based) the host's background, from `ALeft` on.
    void ColourRow(int ARow, int ALeft, QRgb ABack);
    /// Puts text at pixel `ALeft` of a row and returns the width that it takes. What lies right of
    /// the picture is neither kept nor measured. On the exact grid each character takes one cell,
    /// and control characters are seen.
    int AddText(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle,
                const TZtPieceMarks &AMarks = {});
    /// Puts characters that are drawn as one at pixel `ALeft` of a row. They take `AWidth` pixels
    /// and draw nothing outside; the space behind each is the caller's to know.
    void AddCluster(int ARow, int ALeft, int AWidth, QStringView S, QRgb AFore, QRgb ABack,
                    TFontStyles AStyle, const TZtPieceMarks &AMarks = {});
    /// Puts a line behind the text of a row.
    void AddGuide(int ARow, const TZtPaintGuide &AGuide) { Row(ARow).Guides.push_back(AGuide); }
    /// A box in the gutter beside a row that can be folded.
    void AddButton(int ARow, bool AExpanded);
    /// What the columns of the gutter show beside a row; none before it is said.
    std::vector<quint64> &Cells(int ARow);
    /// Draws what differs from the picture before.
    void Finish();

    /// Whether there is a picture to be copied.
    bool IsComplete() const { return FComplete; }
    /// Copies a part of the picture, in pixels of the client area.
    void CopyTo(QPainter &APainter, const QRect &APart) const;
    /// The rows drawn last, from the top to the bottom of the picture; rows after the text are
    /// empty.
    std::vector<TZtPaintRow> Rows() const;

private:
    // What stands beside a row.
    struct TGuttorRow {
        std::vector<quint64> Cells;
        bool HasButton = false;
        bool IsExpanded = false;
        bool operator==(const TGuttorRow &) const = default;
    };

    TZtPaintRow &Row(int ARow);
    int AddRun(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle,
               const TZtPieceMarks &AMarks);
    qreal Pitch() const;
    bool PrepareImages(int ARowCount);
    void DrawRow(QPainter &APainter, const TZtPaintRow &ARow);
    void DrawBackgrounds(QPainter &APainter, const TZtPaintRow &ARow);
    void DrawTexts(QPainter &APainter, const TZtPaintRow &ARow);
    void DrawMarks(QPainter &APainter, const TZtPaintRow &ARow);
    void DrawBlanks(QPainter &APainter, const TZtPaintRow &ARow, const TZtPaintPiece &APiece);
    void DrawGuttorRow(QPainter &APainter, const TGuttorRow &ARow);

    TZtTextPainter FText;
    TZtFrameLook FLook{};
    TZtFrameLook FDrawnLook{};
    const TZtGuttor *FGuttor = nullptr;
    bool FComplete = false; // the picture is the one that was described to the last `Finish`
    std::vector<TZtPaintRow> FRows; // the first FRowCount are in use; the rest keep their memory
    int FRowCount = 0;
    std::vector<TGuttorRow> FGuttorRows; // as many
    TZtStripImage<TZtPaintRow> FImage;
    TZtStripImage<TGuttorRow> FGuttorImage;
    std::vector<bool> FTextDrawn; // of the row being drawn, by piece
};
