#include "uZtCodePascalParser.h"
#include "uZtSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

class PaintInfo : public testing::Test {
protected:
    PaintInfo()
    {
        std::ranges::copy(Table, Saved);
        ZtSetSettingsFile(ZT_SOURCE_DIR "/tests/parsers/settings.ini");
    }
    ~PaintInfo() override
    {
        ZtSetSettingsFile(QString());
        std::ranges::copy(Saved, Table);
    }

    TZtPascalInfo (&Table)[8] = TZtCodePascalParser::DrawInfo;
    TZtPascalInfo Saved[8];
    TZtCodePascalParser Parser;
};

TEST_F(PaintInfo, AnImportOverwritesTheSharedTable)
{
    constexpr auto Bold = TFontStyle::fsBold, Italic = TFontStyle::fsItalic;
    constexpr auto Under = TFontStyle::fsUnderline, Strike = TFontStyle::fsStrikeOut;
    for (TZtPascalInfo &row : Table)
        row.Style = Under | Strike;
    Parser.SetDelphiVersion(7);
    const struct {
        QString Name;
        TColor BackGround, Text;
        TFontStyles Style;
    } rows[] = {
        {"Comment", clWindow, clRed, Bold | Italic | Strike},
        {"Reserved word", clYellow, clWindowText, Strike},
        {"string", clWindow, clWindowText, Strike},
        {"Symbol", clWindow, clWindowText, Strike},
    };
    for (const auto &row : rows) {
        const auto *info = std::ranges::find(Table, row.Name, &TZtPascalInfo::Name);
        ASSERT_NE(info, std::end(Table)) << row.Name.toStdString();
        EXPECT_TRUE(info->BckColor == row.BackGround && info->TextColor == row.Text &&
                    info->Style == row.Style)
            << row.Name.toStdString();
    }
}

// An older value that is missing or no number raises after the steps before it.
TEST_F(PaintInfo, AnImportEndsWhereItRaises)
{
    Parser.SetDelphiVersion(6);
    EXPECT_EQ(Table[7].TextColor, clBlue) << "an unknown version leaves the table";
    EXPECT_THROW(Parser.SetDelphiVersion(9), ERegistryException);
    EXPECT_EQ(Table[6].BckColor, clWindow);
    EXPECT_EQ(Table[5].BckColor, clAqua);
    EXPECT_EQ(Table[4].TextColor, clRed) << "not reached";
}

} // namespace
