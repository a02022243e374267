#include "lexing.h"
#include "uZtCodePascalParser.h"
#include "uZtColors.h"
#include "uZtSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class PaintInfo : public testing::Test {
protected:
    PaintInfo()
    {
        std::ranges::copy(TZtCodePascalParser::DrawInfo, Saved);
        ZtSetSettingsFile(ZT_SOURCE_DIR "/tests/parsers/settings.ini");
    }
    ~PaintInfo() override
    {
        ZtSetSettingsFile(QString());
        std::ranges::copy(Saved, TZtCodePascalParser::DrawInfo);
    }

    TZtPascalInfo Saved[8];
};

TEST_F(PaintInfo, ReadsAnElementOfAVersionThatHasAnApplication)
{
    for (int version = 0; version < 12; ++version)
        EXPECT_EQ(DelphiKnown(version), version == 7 || version == 9) << version;
    constexpr auto Bold = TFontStyle::fsBold, Italic = TFontStyle::fsItalic;
    constexpr auto Under = TFontStyle::fsUnderline, Strike = TFontStyle::fsStrikeOut;
    const struct {
        int Version;
        QString Element;
        TColor BackGround, Text;
        TFontStyles Before, After;
        bool Raises = false;
    } rows[] = {
        {7, "Comment", clWindow, clRed, Under, Bold | Italic},
        {7, "Reserved word", clYellow, clWindowText, Bold | Strike, Strike},
        {7, "string", clWindow, clWindowText, {}, {}},
        {7, "Symbol", clWindow, clWindowText, Italic | Under | Strike, Strike},
        // An older value that is missing or no number raises after the earlier steps.
        {7, "Number", clWindow, 1, {}, Bold, true},
        {9, "Character", clAqua, 1, {}, {}, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Element.toStdString());
        TColor background = 1, color = 1;
        TFontStyles style = row.Before;
        EXPECT_NE(row.Raises, Raised([&] {
                                  GetPaintInfoFromDelphi(row.Version, row.Element, background,
                                                         color, style);
                              }).isEmpty());
        EXPECT_TRUE(background == row.BackGround && color == row.Text && style == row.After);
    }
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
