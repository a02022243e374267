// Starts with a program as one of Qt's generic plugins, looks at its window when that has come to
// rest, and ends the program: with code 0 when editors are in sight that show something, in the
// colours that are wanted.
//
// QT_QPA_GENERIC_PLUGINS=ztvisitor:dark starts the program on a dark desktop. ZT_PICTURE is the
// file that the window is drawn into.

#include <QApplication>
#include <QGenericPlugin>
#include <QPalette>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int Rest = 700; // milliseconds in which what runs in the background has come

QPalette DarkPalette()
{
    QPalette palette(QColor(0x2b, 0x2f, 0x33));
    palette.setColor(QPalette::Base, QColor(0x1d, 0x20, 0x23));
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(0xe4, 0xe6, 0xe8));
    return palette;
}

// Why the editors are not what they should be; empty when they are.
QString FaultOf(const QWidget &AWindow, bool ADark)
{
    QList<QWidget *> editors;
    for (QWidget *widget :
         AWindow.findChildren<QWidget *>() + QList{const_cast<QWidget *>(&AWindow)})
        if (widget->inherits("TZtCodeEdit"))
            editors += widget;
    bool matches = false;
    for (QWidget *editor : editors) {
        if (!editor->isVisible() || editor->width() < 200 || editor->height() < 100)
            return QStringLiteral("an editor is too small to be of use");
        if (editor->property("Language").toString().isEmpty() ||
            editor->property("Text").toString().isEmpty())
            return QStringLiteral("an editor has no language or no text");
        const QImage picture = editor->grab().toImage();
        const QColor ground = picture.pixelColor(picture.width() / 2, picture.height() / 2);
        matches = matches || (ground.lightness() < 128) == ADark;
    }
    return matches ? QString() : QStringLiteral("no editor is in the desktop's colours");
}

void Look(bool ADark)
{
    QWidget *window = QApplication::activeWindow();
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (!window && widget->isVisible())
            window = widget;
    const QString fault = window ? FaultOf(*window, ADark) : QStringLiteral("there is no window");
    if (window && qEnvironmentVariableIsSet("ZT_PICTURE"))
        window->grab().save(qEnvironmentVariable("ZT_PICTURE"));
    if (!fault.isEmpty())
        qCritical("%s", qUtf8Printable(fault));
    QCoreApplication::exit(fault.isEmpty() ? 0 : 1);
}

} // namespace

class TVisitor final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "visitor.json")

public:
    QObject *create(const QString &, const QString &ALook) override
    {
        const bool dark = ALook == QLatin1String("dark");
        if (dark)
            QGuiApplication::setPalette(DarkPalette());
        auto *timer = new QTimer;
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, timer, [dark] { Look(dark); });
        timer->start(Rest);
        return timer;
    }
};

#include "visitor.moc"
