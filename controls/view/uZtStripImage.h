#pragma once

#include <QImage>
#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <vector>

/// Rows of a picture in an image, each in a strip of its own. A row that was drawn before as it is
/// now is not drawn again, wherever in the picture it stood: it keeps its strip.
///
/// Rows are compared by value. The pitch is the height of a row in pixels; strips may be exchanged
/// only where it is a whole number of device pixels.
template <typename TRow> class TZtStripImage {
public:
    /// An image for `ACount` rows of `AWidth` pixels, in which nothing is known. False when there
    /// is no memory for it.
    bool Prepare(int AWidth, int ACount, qreal APitch, qreal ARatio)
    {
        const QSize pixels = (QSizeF(AWidth, ACount * APitch) * ARatio).toSize();
        if (FImage.size() != pixels)
            FImage = QImage(pixels, QImage::Format_RGB32);
        FImage.setDevicePixelRatio(ARatio);
        FWidth = AWidth;
        FPitch = APitch;
        const qreal device = APitch * ARatio;
        FRowsCanMove = std::abs(device - std::round(device)) < 1e-6;
        FStrips.resize(size_t(ACount));
        FShown.resize(size_t(ACount));
        for (int i = 0; i < ACount; ++i) {
            FStrips[size_t(i)].Known = false;
            FShown[size_t(i)] = i;
        }
        return !FImage.isNull() || pixels.isEmpty();
    }

    /// Shows the first rows of `ARows`, as many as were prepared. Those that are not drawn yet are
    /// taken out of it and drawn by `ADraw(QPainter &, const TRow &)` with the painter's origin at
    /// the top left of the row.
    template <typename TDraw> void Show(std::vector<TRow> &ARows, TDraw ADraw)
    {
        PlaceDrawnRows(ARows);
        const int count = int(FShown.size());
        QPainter painter;
        for (int i = 0; i < count; ++i) {
            int &shown = FShown[size_t(i)];
            if (shown >= 0)
                continue;
            // As far as there are any, behind that of the row above.
            shown = Find(i > 0 ? (FShown[size_t(i - 1)] + 1) % count : 0, count, nullptr);
            TStrip &strip = FStrips[size_t(shown)];
            std::swap(strip.Row, ARows[size_t(i)]);
            strip.Known = strip.Taken = true;
            if (FImage.isNull())
                continue;
            if (!painter.isActive())
                painter.begin(&FImage);
            painter.resetTransform();
            painter.translate(0, TopOf(shown));
            ADraw(painter, std::as_const(strip.Row));
        }
    }

    /// Copies the rows that `APart` touches, in pixels: the part alone where rows are whole pixels,
    /// else all of them, so that device pixels are copied and not parts of them.
    void CopyTo(QPainter &APainter, const QRect &APart) const
    {
        const int count = int(FShown.size());
        int first = APart.isEmpty() || FImage.isNull() ? count : int(APart.top() / FPitch);
        while (first < count && first * FPitch <= APart.bottom()) {
            // Rows whose strips follow each other are copied as one.
            int end = first + 1;
            while (end < count && FShown[size_t(end)] == FShown[size_t(end - 1)] + 1)
                ++end;
            Copy(APainter, first, end, APart);
            first = end;
        }
    }

    /// The rows shown last, from the top to the bottom.
    std::vector<TRow> Rows() const
    {
        std::vector<TRow> rows;
        for (const int strip : FShown)
            rows.push_back(FStrips[size_t(strip)].Row);
        return rows;
    }

private:
    struct TStrip {
        TRow Row;
        bool Known = false; // whether the image shows the row
        bool Taken = false; // by a row of this picture
    };

    // Where a strip is drawn. Where the pitch is no whole number its top is not quite on a device
    // pixel, by rounding: a little more, in all strips, makes half pixels fall to the same side.
    qreal TopOf(int AStrip) const
    {
        constexpr qreal little = 1.0 / 1024;
        return AStrip * FPitch + (FPitch == std::floor(FPitch) ? 0 : little);
    }

    // Gives the rows that are drawn already their strips. Rows that scrolled, or stand below an
    // inserted or removed line, follow each other strip by strip: the search mostly ends at its
    // first step.
    void PlaceDrawnRows(const std::vector<TRow> &ARows)
    {
        const int count = int(FShown.size());
        for (TStrip &strip : FStrips)
            strip.Taken = false;
        const int reach = FRowsCanMove ? count : 1;
        int next = count > 0 ? FShown[0] : 0;
        for (int i = 0; i < count; ++i) {
            const int found = Find(FRowsCanMove ? next : i, reach, &ARows[size_t(i)]);
            FShown[size_t(i)] = found;
            if (found >= 0)
                FStrips[size_t(found)].Taken = true;
            next = ((found >= 0 ? found : next) + 1) % count;
        }
    }

    // The first free one of `AReach` strips from `AFrom` on, around the image, that shows a row, or
    // any when `ARow` is null; -1 if there is none.
    int Find(int AFrom, int AReach, const TRow *ARow) const
    {
        const int count = int(FStrips.size());
        for (int i = 0; i < AReach; ++i) {
            const int at = AFrom + i < count ? AFrom + i : AFrom + i - count;
            const TStrip &strip = FStrips[size_t(at)];
            if (!strip.Taken && (!ARow || (strip.Known && strip.Row == *ARow)))
                return at;
        }
        return -1;
    }

    void Copy(QPainter &APainter, int AFirst, int AEnd, const QRect &APart) const
    {
        const qreal ratio = FImage.devicePixelRatio();
        const QRectF band(0, AFirst * FPitch, FWidth, (AEnd - AFirst) * FPitch);
        const QRectF target = FPitch == std::floor(FPitch) ? band & QRectF(APart) : band;
        const QRectF source = target.translated(0, (FShown[size_t(AFirst)] - AFirst) * FPitch);
        APainter.drawImage(target, FImage, QRectF(source.topLeft() * ratio, source.size() * ratio));
    }

    QImage FImage; // the strips, one below the other
    int FWidth = 0;
    qreal FPitch = 1;
    bool FRowsCanMove = true;
    std::vector<TStrip> FStrips;
    std::vector<int> FShown; // the strip of each row
};
