#include "uZtColors.h"

#include <QLatin1String>

namespace {

struct TColorIdent {
    const char *Ident;
    TColor Color;
};

constexpr TColorIdent ColorIdents[] = {
    {"clBlack", clBlack},
    {"clMaroon", clMaroon},
    {"clGreen", clGreen},
    {"clOlive", clOlive},
    {"clNavy", clNavy},
    {"clPurple", clPurple},
    {"clTeal", clTeal},
    {"clGray", clGray},
    {"clDkGray", clGray},
    {"clSilver", clSilver},
    {"clLtGray", clSilver},
    {"clRed", clRed},
    {"clLime", clLime},
    {"clYellow", clYellow},
    {"clBlue", clBlue},
    {"clFuchsia", clFuchsia},
    {"clAqua", clAqua},
    {"clWhite", clWhite},
    {"clMoneyGreen", 0xC0DCC0},
    {"clSkyBlue", 0xF0CAA6},
    {"clCream", 0xF0FBFF},
    {"clMedGray", 0xA4A0A0},
    {"clNone", 0x1FFFFFFF},
    {"clDefault", 0x20000000},
    {"clScrollBar", ZtSystemColor(0)},
    {"clBackground", ZtSystemColor(1)},
    {"clActiveCaption", ZtSystemColor(2)},
    {"clInactiveCaption", ZtSystemColor(3)},
    {"clMenu", ZtSystemColor(4)},
    {"clWindow", clWindow},
    {"clWindowFrame", ZtSystemColor(6)},
    {"clMenuText", ZtSystemColor(7)},
    {"clWindowText", clWindowText},
    {"clCaptionText", ZtSystemColor(9)},
    {"clActiveBorder", ZtSystemColor(10)},
    {"clInactiveBorder", ZtSystemColor(11)},
    {"clAppWorkSpace", ZtSystemColor(12)},
    {"clHighlight", clHighlight},
    {"clHighlightText", clHighlightText},
    {"clBtnFace", clBtnFace},
    {"clBtnShadow", clBtnShadow},
    {"clGrayText", ZtSystemColor(17)},
    {"clBtnText", ZtSystemColor(18)},
    {"clInactiveCaptionText", ZtSystemColor(19)},
    {"clBtnHighlight", clBtnHighlight},
    {"cl3DDkShadow", ZtSystemColor(21)},
    {"cl3DLight", ZtSystemColor(22)},
    {"clInfoText", ZtSystemColor(23)},
    {"clInfoBk", ZtSystemColor(24)},
    {"clHotLight", ZtSystemColor(26)},
    {"clGradientActiveCaption", ZtSystemColor(27)},
    {"clGradientInactiveCaption", ZtSystemColor(28)},
    {"clMenuHighlight", ZtSystemColor(29)},
    {"clMenuBar", ZtSystemColor(30)},
};

} // namespace

bool ZtIdentToColor(QStringView AIdent, TColor &AColor)
{
    for (const TColorIdent &row : ColorIdents) {
        if (AIdent.compare(QLatin1String(row.Ident), Qt::CaseInsensitive) == 0) {
            AColor = row.Color;
            return true;
        }
    }
    return false;
}
