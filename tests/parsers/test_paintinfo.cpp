#include "uZtCodePascalParser.h"
#include "uZtSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(PaintInfo, AnImportOverwritesTheSharedTable)
{
    auto &table = TZtCodePascalParser::DrawInfo;
    const std::vector<TZtPascalInfo> saved(std::begin(table), std::end(table));
    constexpr auto Bold = TFontStyle::fsBold, Italic = TFontStyle::fsItalic;
    constexpr auto Under = TFontStyle::fsUnderline, Strike = TFontStyle::fsStrikeOut;
    for (TZtPascalInfo &row : table)
        row.Style = Under | Strike;
    ZtSetSettingsFile(ZT_SOURCE_DIR "/tests/parsers/settings.ini");
    TZtCodePascalParser parser;
    parser.SetDelphiVersion(6);
    EXPECT_EQ(table[7].TextColor, clBlue) << "an unknown version leaves the table";
    parser.SetDelphiVersion(7);
    const struct {
        int Row;
        TColor BackGround, Text;
        TFontStyles Style;
    } rows[] = {
        {1, clYellow, clWindowText, Strike},
        {2, clWindow, clWindowText, Strike},
        {3, clWindow, clRed, Bold | Italic | Strike},
        {7, clWindow, clWindowText, Strike},
    };
    for (const auto &row : rows) {
        const TZtPascalInfo &info = table[row.Row];
        EXPECT_TRUE(info.BckColor == row.BackGround && info.TextColor == row.Text &&
                    info.Style == row.Style)
            << info.Name.toStdString();
    }
    // An older value that is missing raises after the steps before it.
    EXPECT_THROW(parser.SetDelphiVersion(9), ERegistryException);
    EXPECT_EQ(table[5].BckColor, clAqua);
    ZtSetSettingsFile(QString());
    std::ranges::copy(saved, table);
}
