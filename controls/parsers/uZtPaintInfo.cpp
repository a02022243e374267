#include "uZtCodeParser.h"

#include "uZtColors.h"
#include "uZtSettings.h"

#include <array>

namespace {

/// What the IDE's older colour indices stand for.
constexpr std::array<TColor, 16> Palette = {clBlack, clMaroon,  clGreen,  clOlive, clNavy, clPurple,
                                            clTeal,  clGray,    clSilver, clRed,   clLime, clYellow,
                                            clBlue,  clFuchsia, clAqua,   clWhite};

TColor PaletteColor(int AIndex, TColor ADefault)
{
    return quint32(AIndex) < Palette.size() ? Palette[quint32(AIndex)] : ADefault;
}

/// Reads the values of one element under one key.
class TElementReader {
public:
    TElementReader(const QString &AKey, const QString &AElement)
        : FKey(AKey), FElement(AElement), FView(AKey)
    {
    }

    bool Flag(const QString &AName, bool ADefault) const
    {
        if (FView.ReadInteger(FElement, AName, 0) != 0)
            return true;
        const QString text = FView.ReadString(FElement, AName, QString()).toUpper();
        return text.isEmpty() ? ADefault : text == QLatin1String("TRUE");
    }

    TColor Color(const QString &AName, TColor ADefault) const
    {
        const QString text = FView.ReadString(FElement, AName, QString());
        if (text.isEmpty())
            return PaletteColor(OlderIndex(AName), ADefault);
        // The test is on the name of the value: a new-style value is an identifier or nothing.
        if (AName.at(0) >= u'0' && AName.at(0) <= u'9')
            return PaletteColor(FView.ReadInteger(FElement, AName, -1), ADefault);
        TColor color = ADefault;
        ZtIdentToColor(text, color);
        return color;
    }

private:
    /// The index under the older name ("Background Color" for "Background Color New").
    int OlderIndex(const QString &AName) const
    {
        TZtRegistry registry;
        if (!registry.OpenKeyReadOnly(u'\\' + FKey + FElement + u'\\'))
            return -1;
        return registry.ReadInteger(AName.chopped(4));
    }

    QString FKey;
    QString FElement;
    TZtRegistryIniFile FView;
};

} // namespace

bool DelphiKnown(int AVersion)
{
    TZtRegistry registry;
    return registry.OpenKeyReadOnly(
               QStringLiteral("software\\borland\\delphi\\%1.0\\").arg(AVersion)) &&
           !registry.ReadString(QStringLiteral("App")).isEmpty();
}

void GetPaintInfoFromDelphi(int AVersion, const QString &AElement, TColor &ABackGround,
                            TColor &ATextColor, TFontStyles &AFontStyle)
{
    GetPaintInfoFromReg(
        QStringLiteral("Software\\Borland\\Delphi\\%1.0\\Editor\\HighLight\\").arg(AVersion),
        AElement, ABackGround, ATextColor, AFontStyle);
}

void GetPaintInfoFromReg(const QString &AKey, const QString &AElement, TColor &ABackGround,
                         TColor &ATextColor, TFontStyles &AFontStyle)
{
    const TElementReader reader(AKey, AElement);
    AFontStyle.setFlag(TFontStyle::fsBold, reader.Flag(QStringLiteral("Bold"), false));
    AFontStyle.setFlag(TFontStyle::fsItalic, reader.Flag(QStringLiteral("Italic"), false));
    AFontStyle.setFlag(TFontStyle::fsUnderline, reader.Flag(QStringLiteral("Underline"), false));
    ABackGround = reader.Flag(QStringLiteral("Default BackGround"), false)
                      ? clWindow
                      : reader.Color(QStringLiteral("Background Color New"), clWindow);
    ATextColor = reader.Flag(QStringLiteral("Default ForeGround"), false)
                     ? clWindowText
                     : reader.Color(QStringLiteral("Foreground Color New"), clWindowText);
}
