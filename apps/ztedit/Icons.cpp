#include "Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace {

QByteArray Drawing(const QString &AName)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(AName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A drawing whose "currentColor" is that of the text around it at the time it is painted, so that
// it follows the palette from light to dark.
class TDrawingEngine : public QIconEngine {
public:
    explicit TDrawingEngine(QByteArray ADrawing) : FDrawing(std::move(ADrawing)) {}

    QIconEngine *clone() const override { return new TDrawingEngine(FDrawing); }

    void paint(QPainter *APainter, const QRect &ARect, QIcon::Mode AMode, QIcon::State) override
    {
        QByteArray drawing = FDrawing;
        drawing.replace("currentColor", Color(AMode).name().toLatin1());
        QSvgRenderer renderer(drawing);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(APainter, ARect);
    }

    QPixmap pixmap(const QSize &ASize, QIcon::Mode AMode, QIcon::State AState) override
    {
        QPixmap picture(ASize);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), AMode, AState);
        return picture;
    }

private:
    // Not for `Active`, which is a selected row of a menu as well as a button under the mouse.
    static QColor Color(QIcon::Mode AMode)
    {
        const QPalette palette = QGuiApplication::palette();
        if (AMode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return palette.color(AMode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                             QPalette::WindowText);
    }

    QByteArray FDrawing;
};

QIcon DrawnIcon(const QString &AName)
{
    const QByteArray drawing = Drawing(AName);
    return drawing.isEmpty() ? QIcon() : QIcon(new TDrawingEngine(drawing));
}

} // namespace

QIcon ZtIcon(const char *AName)
{
    const QString name = QLatin1StringView(AName);
    return QIcon::hasThemeIcon(name) ? QIcon::fromTheme(name) : DrawnIcon(name);
}

QIcon ZtSymbol() { return DrawnIcon(QStringLiteral("ztedit")); }
