#include "uZtOverviewRuler.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int Rest = 120;      // milliseconds from a change to its picture
constexpr int LeastHeight = 3; // of a mark, in device pixels
constexpr int CaretHeight = 2; // in pixels

} // namespace

TZtOverviewRuler::TZtOverviewRuler(QWidget *AParent) : QWidget(AParent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Overview"));
}

void TZtOverviewRuler::SetLook(QRgb ABack, QRgb ACaret, const std::vector<TKind> &AKinds)
{
    if (FBack == ABack && FCaretColour == ACaret && FKinds == AKinds)
        return;
    FBack = ABack;
    FCaretColour = ACaret;
    FKinds = AKinds;
    FPicture = {};
    update();
}

int TZtOverviewRuler::CaretTop() const
{
    return std::clamp(int(FCaret * height()), 0, std::max(height() - CaretHeight, 0));
}

void TZtOverviewRuler::SetCaret(double APlace)
{
    const int before = CaretTop();
    FCaret = APlace;
    if (CaretTop() == before)
        return;
    update(0, before, width(), CaretHeight);
    update(0, CaretTop(), width(), CaretHeight);
}

void TZtOverviewRuler::Invalidate()
{
    if (!FRest.isActive())
        FRest.start(Rest, this);
}

void TZtOverviewRuler::timerEvent(QTimerEvent *AEvent)
{
    if (AEvent->timerId() != FRest.timerId())
        return QWidget::timerEvent(AEvent);
    FRest.stop();
    FPicture = {};
    update();
}

void TZtOverviewRuler::resizeEvent(QResizeEvent *) { FPicture = {}; }

// A mark is some pixels high where there is room, so that a single one in a long text is seen.
void TZtOverviewRuler::Compose()
{
    const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
    FPicture = QImage(size, QImage::Format_RGB32);
    FPicture.setDevicePixelRatio(devicePixelRatioF());
    FPicture.fill(FBack);
    FRows.assign(size_t(std::max(size.height(), 0)), 0);
    if (OnSurvey)
        OnSurvey(FRows);
    const int third = size.width() / 3;
    for (const TKind &kind : FKinds) {
        const int left = int(kind.Lane) * third + 1;
        const int right = kind.Lane == TLane::laRight ? size.width() : left + third - 1;
        int drawn = 0; // down to here
        for (int y = 0; y < size.height(); ++y) {
            if (!(FRows[size_t(y)] & kind.Bit))
                continue;
            const int bottom = std::min(y + LeastHeight, size.height());
            for (int row = std::max(y, drawn); row < bottom; ++row) {
                auto *pixels = reinterpret_cast<QRgb *>(FPicture.scanLine(row));
                std::fill(pixels + left, pixels + right, kind.Colour);
            }
            drawn = bottom;
        }
    }
}

void TZtOverviewRuler::paintEvent(QPaintEvent *)
{
    if (FPicture.isNull() || FPicture.devicePixelRatio() != devicePixelRatioF())
        Compose();
    QPainter painter(this);
    painter.drawImage(0, 0, FPicture);
    painter.fillRect(0, CaretTop(), width(), CaretHeight, QColor(FCaretColour));
}

void TZtOverviewRuler::GoTo(const QPointF &APlace)
{
    if (OnGoTo && height() > 0)
        OnGoTo(std::clamp(APlace.y() / height(), 0.0, 1.0 - 1e-9));
}

void TZtOverviewRuler::mousePressEvent(QMouseEvent *AEvent)
{
    if (AEvent->button() == Qt::LeftButton)
        GoTo(AEvent->position());
}

void TZtOverviewRuler::mouseMoveEvent(QMouseEvent *AEvent)
{
    if (AEvent->buttons() & Qt::LeftButton)
        GoTo(AEvent->position());
}
