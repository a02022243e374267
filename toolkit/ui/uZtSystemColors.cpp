#include "uZtSystemColors.h"

#include "uZtColors.h"

#include <array>

namespace {

// Index: the system colour's number.
constexpr std::array<QPalette::ColorRole, 31> Roles = {
    QPalette::Mid,             // 0 scroll bar
    QPalette::Window,          // 1 desktop
    QPalette::Highlight,       // 2 active caption
    QPalette::Mid,             // 3 inactive caption
    QPalette::Window,          // 4 menu
    QPalette::Base,            // 5 window
    QPalette::Dark,            // 6 window frame
    QPalette::WindowText,      // 7 menu text
    QPalette::Text,            // 8 window text
    QPalette::HighlightedText, // 9 caption text
    QPalette::Window,          // 10 active border
    QPalette::Window,          // 11 inactive border
    QPalette::Mid,             // 12 application workspace
    QPalette::Highlight,       // 13 highlight
    QPalette::HighlightedText, // 14 highlight text
    QPalette::Button,          // 15 button face
    QPalette::Dark,            // 16 button shadow
    QPalette::PlaceholderText, // 17 grey text
    QPalette::ButtonText,      // 18 button text
    QPalette::WindowText,      // 19 inactive caption text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 dark shadow
    QPalette::Midlight,        // 22 light
    QPalette::ToolTipText,     // 23 info text
    QPalette::ToolTipBase,     // 24 info background
    QPalette::Button,          // 25 unused
    QPalette::Link,            // 26 hot light
    QPalette::Highlight,       // 27 active caption's gradient
    QPalette::Mid,             // 28 inactive caption's gradient
    QPalette::Highlight,       // 29 menu highlight
    QPalette::Window,          // 30 menu bar
};

} // namespace

QColor ZtToQColor(TColor AColor, const QPalette &APalette)
{
    if ((AColor >> 24) != 0xFF)
        return QColor(int(AColor & 0xFF), int((AColor >> 8) & 0xFF), int((AColor >> 16) & 0xFF));
    const quint32 index = AColor & 0xFFFFFF;
    if (index >= Roles.size())
        return Qt::black;
    const QColor color = APalette.color(Roles[index]);
    return QColor(color.red(), color.green(), color.blue());
}

TColor ZtColorToRGB(TColor AColor, const QPalette &APalette)
{
    const QColor color = ZtToQColor(AColor, APalette);
    return TColor(color.red()) | TColor(color.green()) << 8 | TColor(color.blue()) << 16;
}

std::optional<TColor> ZtToColor(const QVariant &AValue)
{
    const bool named =
        AValue.typeId() == QMetaType::QString || AValue.typeId() == QMetaType::QByteArray;
    TColor color = 0;
    if (named && ZtIdentToColor(AValue.toString(), color))
        return color;
    bool number = false;
    color = AValue.toUInt(&number);
    if (!named && number)
        return color;
    const auto qt = named ? QColor(AValue.toString()) : AValue.value<QColor>();
    if (!qt.isValid())
        return std::nullopt;
    return TColor(qt.red()) | TColor(qt.green()) << 8 | TColor(qt.blue()) << 16;
}
