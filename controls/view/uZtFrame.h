#pragma once

#include "uZtTextPainter.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <vector>

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
    bool operator==(const TZtPaintPiece &) const = default;
};

/// One screen line as it is drawn.
struct TZtPaintRow {
    QString Text;
    std::vector<TZtPaintPiece> Pieces;
    bool Coloured = false; ///< the host gave the line a background of its own
    int ColouredLeft = 0;  ///< from where on that background is drawn, in pixels
    QRgb ColouredBack = 0;
    bool operator==(const TZtPaintRow &) const = default;
    QStringView TextOf(const TZtPaintPiece &APiece) const
    {
        return QStringView(Text).mid(APiece.Start, APiece.Length);
    }
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
    bool Exact = false; ///< whether text stands on the exact grid of `TZtTextPainter`
    bool operator==(const TZtFrameLook &) const = default;
};

/// The editor's picture. A paint describes the rows from the top; a row that was drawn before as it
/// is described now is not drawn again, wherever in the picture it stood (in its own place alone,
/// where rows are not whole device pixels).
class TZtFrame {
public:
    /// Starts a picture, without rows.
    void Begin(const TZtFrameLook &ALook);
    TZtTextPainter &TextPainter() { return FText; }
    /// Gives the row at the screen line `ARow` (0-based) the host's background, from `ALeft` on.
    void ColourRow(int ARow, int ALeft, QRgb ABack);
    /// Puts text at pixel `ALeft` of a row and returns the width that it takes. What lies right of
    /// the picture is neither kept nor measured. On the exact grid each character takes one cell,
    /// and control characters are seen.
    int AddText(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle);
    /// Puts characters that are drawn as one at pixel `ALeft` of a row. They take `AWidth` pixels
    /// and draw nothing outside; the space behind each is the caller's to know.
    void AddCluster(int ARow, int ALeft, int AWidth, QStringView S, QRgb AFore, QRgb ABack,
                    TFontStyles AStyle);
    /// A box in the gutter beside a row that can be folded.
    void AddButton(const QRect &ARect, bool AExpanded);
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
    // A place in the image that holds a drawn row.
    struct TStrip {
        TZtPaintRow Row;
        bool Known = false; // whether the image shows the row
        bool Taken = false; // by a row of this picture
    };
    struct TButton {
        QRect Rect;
        bool Expanded;
        bool operator==(const TButton &) const = default;
    };

    TZtPaintRow &Row(int ARow);
    int AddRun(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle);
    bool PrepareImages(int ARowCount);
    bool RowsCanMove() const;
    void PlaceDrawnRows();
    void PlaceNewRows();
    int FindStrip(int AFrom, int AReach, const TZtPaintRow *ARow) const;
    void DrawStrip(QPainter &APainter, int AStrip);
    void DrawRowText(QPainter &APainter, const TZtPaintRow &ARow, int ATop);
    void DrawGuttor(QPainter &APainter);

    TZtTextPainter FText;
    TZtFrameLook FLook{};
    TZtFrameLook FDrawnLook{};
    int FDrawnPitch = 0;    // the height of a drawn row
    bool FComplete = false; // the picture is the one that was described to the last `Finish`
    std::vector<TZtPaintRow> FRows; // the first FRowCount are in use; the rest keep their memory
    int FRowCount = 0;
    QImage FImage; // the strips, one below the other
    std::vector<TStrip> FStrips;
    std::vector<int> FShown;      // the strip of each row
    std::vector<bool> FTextDrawn; // of the row being drawn, by piece
    QImage FGuttor;
    bool FGuttorKnown = false;
    std::vector<TButton> FButtons;
    std::vector<TButton> FDrawnButtons;
};
