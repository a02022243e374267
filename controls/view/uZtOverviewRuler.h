#pragma once

#include <QBasicTimer>
#include <QImage>
#include <QWidget>

#include <functional>
#include <vector>

/// The whole text in the height of a bar: a stripe for all that is marked, and one for the caret.
///
/// What is marked is asked for when it is drawn, a bit for each kind in each row of pixels
/// (`TZtOverviewRows`). A change of it is drawn a moment later, so that no key waits for it.
class TZtOverviewRuler final : public QWidget {
    Q_OBJECT

public:
    static constexpr int Width = 14; ///< in pixels

    /// Which third of the width a kind is drawn in.
    enum class TLane : quint8 { laLeft, laMiddle, laRight };
    struct TKind {
        quint32 Bit;
        QRgb Colour;
        TLane Lane;
        bool operator==(const TKind &) const = default;
    };

    explicit TZtOverviewRuler(QWidget *AParent);

    /// Asked for the bits of the rows, which are 0 then.
    std::function<void(std::vector<quint32> &ARows)> OnSurvey;
    /// Told the place in the text, from 0 to less than 1, that was pressed or dragged to. It
    /// neither raises nor deletes the ruler.
    std::function<void(double APlace)> OnGoTo;

    /// The background and what the bits are drawn as, later ones over earlier ones.
    void SetLook(QRgb ABack, QRgb ACaret, const std::vector<TKind> &AKinds);
    /// Where the caret is, from 0 to less than 1.
    void SetCaret(double APlace);
    /// Asks for the bits anew after a moment.
    void Invalidate();
    /// The rows as they were drawn last.
    const std::vector<quint32> &GetRows() const { return FRows; }

protected:
    void paintEvent(QPaintEvent *AEvent) override;
    void resizeEvent(QResizeEvent *AEvent) override;
    void timerEvent(QTimerEvent *AEvent) override;
    void mousePressEvent(QMouseEvent *AEvent) override;
    void mouseMoveEvent(QMouseEvent *AEvent) override;

private:
    void Compose();
    void GoTo(const QPointF &APlace);
    int CaretTop() const;

    std::vector<TKind> FKinds;
    QRgb FBack = 0;
    QRgb FCaretColour = 0;
    double FCaret = 0;
    std::vector<quint32> FRows;
    QImage FPicture; // of the rows; null when it is to be made anew
    QBasicTimer FRest;
};
