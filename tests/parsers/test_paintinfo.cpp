#include "uZtCodePascalParser.h"
#include "uZtColors.h"
#include "uZtSettings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr char Settings[] = R"([Software]
borland\DELPHI\7.0\App=C:/ide/ide.exe
borland\delphi\6.0\App=
borland\delphi\8.0\Name=no application
Borland\Delphi\7.0\Editor\Highlight\Comment\Bold=true
Borland\Delphi\7.0\Editor\Highlight\Comment\Italic=1
Borland\Delphi\7.0\Editor\Highlight\Comment\Underline=no
Borland\Delphi\7.0\Editor\Highlight\Comment\Default%20BackGround=true
Borland\Delphi\7.0\Editor\Highlight\Comment\Foreground%20Color%20New=CLred
Borland\Delphi\7.0\Editor\Highlight\Reserved%20word\Background%20Color=11
Borland\Delphi\7.0\Editor\Highlight\Reserved%20word\Foreground%20Color%20New=$000000FF
Borland\Delphi\7.0\Editor\Highlight\String\Background%20Color=16
Borland\Delphi\7.0\Editor\Highlight\String\Foreground%20Color=-1
Borland\Delphi\7.0\Editor\Highlight\Number\Default%20Background=True
Borland\Delphi\7.0\Editor\Highlight\Number\Bold=1
Borland\Delphi\7.0\Editor\Highlight\Number\Foreground%20Color=blue
Borland\Delphi\9.0\App=ide
Borland\Delphi\9.0\Editor\Highlight\Character\Background%20Color%20New=clAqua
)";

class PaintInfo : public testing::Test {
protected:
    PaintInfo()
    {
        std::ranges::copy(TZtCodePascalParser::DrawInfo, Saved);
        QFile file(Folder.filePath("settings.ini"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(Settings) > 0);
        ZtSetSettingsFile(file.fileName());
    }
    ~PaintInfo() override
    {
        ZtSetSettingsFile(QString());
        std::ranges::copy(Saved, TZtCodePascalParser::DrawInfo);
    }

    QTemporaryDir Folder;
    TZtPascalInfo Saved[8];
};

TEST_F(PaintInfo, AVersionIsKnownByItsApplication)
{
    for (int version = 0; version < 12; ++version)
        EXPECT_EQ(DelphiKnown(version), version == 7 || version == 9) << version;
}

TEST_F(PaintInfo, ReadsAnElement)
{
    constexpr auto Bold = TFontStyle::fsBold, Italic = TFontStyle::fsItalic;
    constexpr auto Under = TFontStyle::fsUnderline, Strike = TFontStyle::fsStrikeOut;
    const struct {
        QString Element;
        TColor BackGround, Text;
        TFontStyles Before, After;
    } rows[] = {
        {"Comment", clWindow, clRed, Under, Bold | Italic},
        {"Reserved word", clYellow, clWindowText, Bold | Strike, Strike},
        {"string", clWindow, clWindowText, {}, {}},
        {"Symbol", clWindow, clWindowText, Italic | Under | Strike, Strike},
    };
    for (const auto &row : rows) {
        TColor background = 1, color = 1;
        TFontStyles style = row.Before;
        GetPaintInfoFromDelphi(7, row.Element, background, color, style);
        EXPECT_EQ(background, row.BackGround) << row.Element.toStdString();
        EXPECT_EQ(color, row.Text) << row.Element.toStdString();
        EXPECT_EQ(style, row.After) << row.Element.toStdString();
    }
}

TEST_F(PaintInfo, AnOlderValueThatIsNoNumberRaisesAfterTheEarlierSteps)
{
    TColor background = 1, color = 1;
    TFontStyles style;
    EXPECT_THROW(GetPaintInfoFromDelphi(7, "Number", background, color, style), ERegistryException);
    EXPECT_EQ(background, clWindow);
    EXPECT_EQ(color, 1u);
    EXPECT_EQ(style, TFontStyle::fsBold);
    // Missing in an existing key raises too.
    EXPECT_THROW(GetPaintInfoFromDelphi(9, "Character", background, color, style),
                 ERegistryException);
    EXPECT_EQ(background, clAqua);
}

TEST_F(PaintInfo, AnImportOverwritesTheSharedTableFromTheLastRowDown)
{
    auto &table = TZtCodePascalParser::DrawInfo;
    TZtCodePascalParser parser;
    parser.SetDelphiVersion(6);
    EXPECT_EQ(parser.GetDelphiVersion(), 6);
    EXPECT_EQ(table[7].TextColor, clBlue) << "an unknown version leaves the table";

    table[4].Name.clear();
    EXPECT_THROW(parser.SetDelphiVersion(9), ERegistryException);
    EXPECT_EQ(parser.GetDelphiVersion(), 9);
    EXPECT_EQ(table[6].BckColor, clWindow);
    EXPECT_EQ(table[5].BckColor, clAqua);
    EXPECT_EQ(table[4].TextColor, clRed);
    EXPECT_EQ(table[3].BckColor, clHighlight) << "not reached";
}

TEST(DrawInfoRows, TheFirstRowThatHoldsTheKindElseRowZero)
{
    struct {
        TZtSet<int> Tokens;
    } const table[] = {{{9}}, {{1, 2}}, {{2, 3}}};
    for (const auto &[kind, row] : {std::pair(1, 1), {2, 1}, {3, 2}, {4, 0}, {9, 0}})
        EXPECT_EQ(&ZtDrawInfoRow(table, kind) - table, row) << kind;
}

TEST(Colors, IdentifiersInAnyCase)
{
    TColor color = 7;
    EXPECT_TRUE(ZtIdentToColor(u"CLBTNFACE", color));
    EXPECT_EQ(color, clBtnFace);
    for (const auto &text : {u"", u"cl", u"Red", u"$000000FF", u"clRed "})
        EXPECT_FALSE(ZtIdentToColor(text, color));
    EXPECT_EQ(color, clBtnFace);
}

} // namespace
