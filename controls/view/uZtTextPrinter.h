#pragma once

#include "uZtCells.h"
#include "uZtExport.h"
#include "uZtTextColours.h"
#include "uZtTextPainter.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFont>
#include <QHash>
#include <QRectF>

#include <array>
#include <functional>
#include <vector>

class QPagedPaintDevice;

/// How a text is printed. Paper, margins, orientation, resolution and the range of pages are the
/// device's.
struct TZtPrintOptions {
    Q_DECLARE_TR_FUNCTIONS(TZtPrintOptions)

public:
    /// Left, middle and right.
    using TFields = std::array<QString, 3>;

    /// The colours of text and paper; null for the bundled scheme "Light".
    std::shared_ptr<const TZtColorScheme> Scheme = nullptr;
    bool Monochrome = false; ///< black on white; comments slanted
    /// In points; the font of the editor at 9 points where none is given.
    std::optional<QFont> Font = std::nullopt;
    bool LineNumbers = true;    ///< 1-based, left of the text
    bool Wrap = true;           ///< long lines; else they are cut at the edge
    bool SelectionOnly = false; ///< the selection; else the whole text
    /// In these `{name}`, `{path}`, `{page}`, `{pages}`, `{date}` and `{time}` stand for what they
    /// say. Empty ones take no room.
    TFields Header{QStringLiteral("{name}"), QString(), QStringLiteral("{date}")};
    TFields Footer{QString(), tr("Page {page} of {pages}"), QString()}; ///< at the bottom of a page
    QString Name = {};      ///< what `{name}` stands for
    QString Path = {};      ///< what `{path}` stands for
    QDateTime Date = {};    ///< now, where none is given
    int Copies = 1;         ///< 1 or more
    bool Collated = true;   ///< copy by copy; else page by page
    bool LastFirst = false; ///< the last page comes first
    /// Told before each page how many are printed, of how many; false ends it.
    std::function<bool(int ADone, int ACount)> OnProgress = {};
};

/// Puts a text on pages. It is laid out in units of 1/1200 inch, so that pages are the same at
/// every resolution, and never copied.
class ZT_EDITOR_EXPORT TZtTextPrinter {
public:
    /// `AText` outlives the printer. Its scheme is not asked for, but that of the options.
    TZtTextPrinter(const TZtColouredText &AText, const TZtCellRules &ACells,
                   const TZtPrintOptions &AOptions);

    /// How many pages the text takes on a device, whatever range of them is to be printed; 1 for an
    /// empty text. Nothing is drawn and no lexer asked.
    int PageCount(const QPagedPaintDevice &ADevice);
    /// Prints the pages of the device's range. Answers whether it went to the end: not where
    /// `OnProgress` ends it, or where the text is changed meanwhile. Raises `EZtException` where
    /// the device cannot be begun or gives no new page, or where there is no page in its range, and
    /// what the lexer raises.
    bool Print(QPagedPaintDevice &ADevice);

private:
    struct TPlace {
        int Line;
        int Column;
    };
    struct TRow {
        int Line;
        int Column; // where it begins
        int End;
        int Indent; // in cells
        bool IsFirst;
    };
    // One of the combinations of styles.
    struct TFace {
        bool Ready = false;
        QFont Font;
        QHash<char16_t, bool> Fits; // whether a character can be drawn with others
    };

    void SetFont();
    void LayOut(const QPagedPaintDevice &ADevice);
    void Paginate();
    bool NextRow(TPlace &APlace, TRow &ARow);
    int IndentOf(int ALine) const;
    std::vector<int> PagesFor(const QPagedPaintDevice &ADevice) const;
    void DrawPage(QPainter &APainter, int APage);
    void DrawFields(QPainter &APainter, const TZtPrintOptions::TFields &AFields, qreal ATop,
                    int APage);
    QString Filled(const QString &AField, int APage) const;
    void DrawRow(QPainter &APainter, const TRow &ARow, qreal ATop);
    void DrawNumber(QPainter &APainter, const TRow &ARow, qreal ATop);
    void DrawWrapMark(QPainter &APainter, qreal ATop) const;
    void DrawSpan(QPainter &APainter, const TZtCellSpan &ASpan, qreal ALeft, qreal ATop,
                  const TZtColourRun &ARun);
    void DrawPlain(QPainter &APainter, qsizetype AStart, qsizetype AEnd, qreal ALeft, qreal ATop,
                   TFontStyles AStyle);
    TZtColourRun LookOf(const TZtColourRun &ARun) const;
    TFace &Face(TFontStyles AStyle);
    bool Fits(TFace &AFace, QChar C) const;

    TZtColouredText FText;
    const TZtCellRules FCells;
    const TZtPrintOptions FOptions;
    TZtTextColours FColours;
    QFont FFont;
    TZtTextPainter FPainter; // of what does not stand in its cell by itself
    std::array<TFace, 16> FFaces;
    QString FLine; // the row that is drawn
    qreal FCell = 0;
    int FPitch = 0;    // from row to row
    int FBaseline = 0; // from a row's top
    quint32 FPaper = 0;
    quint32 FInk = 0;
    quint32 FNumbers = 0;
    // What follows is in units and of one device.
    QSizeF FPage;
    qreal FTop = 0;  // of the first row
    qreal FLeft = 0; // of the text; the numbers stand left of it
    int FColumns = 1;
    int FRows = 1;
    bool FHasHeader = false;
    bool FHasFooter = false;
    int FDigits = 0;            // of a line's number; 0 where there is no room for it
    std::vector<TPlace> FPages; // where they begin
};
