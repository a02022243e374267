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
    bool operator==(const TZtFrameLook &) const = default;
};

/// The editor's picture. A paint describes the rows from the top; rows that are drawn already
/// as they are described are not drawn again.
class TZtFrame {
public:
    /// Starts a picture, without rows. `AFirstLine` is the text line at its top: rows that only
    /// moved up or down with it are moved in the picture.
    void Begin(const TZtFrameLook &ALook, int AFirstLine);
    TZtTextPainter &TextPainter() { return FText; }
    /// Gives the row at the screen line `ARow` (0-based) the host's background, from `ALeft` on.
    void ColourRow(int ARow, int ALeft, QRgb ABack);
    /// Puts text at pixel `ALeft` of a row and returns the width that it takes. What lies right of
    /// the picture is neither kept nor measured.
    int AddText(int ARow, int ALeft, QStringView S, QRgb AFore, QRgb ABack, TFontStyles AStyle);
    /// A box in the gutter beside a row that can be folded.
    void AddButton(const QRect &ARect, bool AExpanded);
    /// Draws what differs from the picture before.
    void Finish();

    const QImage &Image() const { return FImage; }
    /// The rows drawn last, from the top to the bottom of the picture; rows after the text are
    /// empty.
    const std::vector<TZtPaintRow> &Rows() const { return FDrawn; }

private:
    struct TButton {
        QRect Rect;
        bool Expanded;
        bool operator==(const TButton &) const = default;
    };

    TZtPaintRow &Row(int ARow);
    bool PrepareImage();
    void MoveRows();
    void MoveBelowChange();
    bool MoveBand(int AFrom, int AShift);
    int RowPixels() const;
    void DrawRow(QPainter &APainter, int ARow);
    void DrawRowText(QPainter &APainter, const TZtPaintRow &ARow, int ATop);
    void DrawMargin(QPainter &APainter, int ATop, int ABottom);
    void DrawGuttor(QPainter &APainter);

    TZtTextPainter FText;
    TZtFrameLook FLook{};
    TZtFrameLook FDrawnLook{};
    std::vector<TZtPaintRow> FRows; // the first FRowCount are in use; the rest keep their memory
    int FRowCount = 0;
    std::vector<TZtPaintRow> FDrawn;
    std::vector<bool> FTextDrawn; // of the row being drawn, by piece
    std::vector<bool> FKnown;     // whether the picture shows the row in FDrawn
    int FFirstLine = 0;
    int FDrawnFirstLine = 0;
    bool FGuttorKnown = false;
    std::vector<TButton> FButtons;
    std::vector<TButton> FDrawnButtons;
    QImage FImage;
};
