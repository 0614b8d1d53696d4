#include "cad/output_name_texts.h"
#include "cad/output_names.h"

#include <gtest/gtest.h>

namespace tv {

namespace {

std::u16string SheetName(uint32_t files, uint32_t outputs)
{
    return OutputName({files, outputs, u"Plan*"}, OutputKind::Sheet, u"Sheet7");
}

} // namespace

TEST(OutputNamesTest, OneFileEachKeepsTheName)
{
    EXPECT_EQ(SheetName(4, 0), u"Sheet7");
    EXPECT_EQ(SheetName(4, 2), u"Sheet7");
    EXPECT_EQ(SheetName(5, 8), u"Sheet7");
}

TEST(OutputNamesTest, AllSheetsInOneFileAreNamedSo)
{
    EXPECT_EQ(SheetName(2, 2), u"All sheets");
    EXPECT_EQ(SheetName(0, 3), u"All sheets");
}

TEST(OutputNamesTest, TheMaskForAllBeatsTheOneForAName)
{
    EXPECT_EQ(SheetName(0, 10), u"All sheets");
}

TEST(OutputNamesTest, ANamePatternStandsForItself)
{
    EXPECT_EQ(SheetName(0, 8), u"Plan*");
    EXPECT_EQ(SheetName(2, 9), u"Plan*");
}

TEST(OutputNamesTest, TheLastActiveOneKeepsTheName)
{
    EXPECT_EQ(SheetName(0, 4), u"Sheet7");
    EXPECT_EQ(SheetName(0, 0), u"Sheet7");
    EXPECT_EQ(SheetName(0, 1), u"Sheet7");
}

TEST(OutputNamesTest, ConfigurationsHaveWordsOfTheirOwn)
{
    EXPECT_EQ(OutputName({0, 2, u""}, OutputKind::Configuration, u"Long"), u"All configurations");
    EXPECT_EQ(OutputName({0, 8, u"L*"}, OutputKind::Configuration, u"Long"), u"L*");
    EXPECT_EQ(OutputName({4, 2, u""}, OutputKind::Configuration, u"Long"), u"Long");
}

TEST(OutputNamesTest, EveryPairOfMasksHasItsName)
{
    struct Row
    {
        uint32_t files;
        uint32_t outputs;
        std::u16string_view sheet;
        std::u16string_view configuration;
    };
    const Row rows[] = {
        {0, 0, u"Current", u"Current"},
        {0, 1, u"Current", u"Current"},
        {0, 2, u"All sheets", u"All configurations"},
        {0, 4, u"Current", u"Current"},
        {0, 6, u"All sheets", u"All configurations"},
        {0, 8, u"Plan*", u"Plan*"},
        {0, 10, u"All sheets", u"All configurations"},
        {0, 12, u"Plan*", u"Plan*"},
        {0, 15, u"All sheets", u"All configurations"},
        {2, 2, u"All sheets", u"All configurations"},
        {3, 8, u"Plan*", u"Plan*"},
        {8, 2, u"All sheets", u"All configurations"},
        {4, 0, u"Current", u"Current"},
        {4, 2, u"Current", u"Current"},
        {4, 8, u"Current", u"Current"},
        {4, 15, u"Current", u"Current"},
        {6, 2, u"Current", u"Current"},
        {15, 15, u"Current", u"Current"},
        {0xFFFFFFFF, 0xFFFFFFFF, u"Current", u"Current"},
        {0xFFFFFFFB, 0xFFFFFFFF, u"All sheets", u"All configurations"},
        {0xFFFFFFFB, 0xFFFFFFFD, u"Plan*", u"Plan*"},
        {0xFFFFFFFB, 0xFFFFFFF5, u"Current", u"Current"},
        {0xFFFFFFFB, 16, u"Current", u"Current"},
    };
    for (const Row& row : rows) {
        const OutputChoice choice{row.files, row.outputs, u"Plan*"};
        EXPECT_EQ(OutputName(choice, OutputKind::Sheet, u"Current"), row.sheet) << row.files << ' ' << row.outputs;
        EXPECT_EQ(OutputName(choice, OutputKind::Configuration, u"Current"), row.configuration)
            << row.files << ' ' << row.outputs;
    }
}

TEST(OutputNamesTest, AnEmptyNameIsMappedLikeAnyOther)
{
    EXPECT_EQ(OutputName({0, 2, u""}, OutputKind::Sheet, u""), u"All sheets");
    EXPECT_EQ(OutputName({0, 8, u""}, OutputKind::Sheet, u"Sheet7"), u"");
    EXPECT_EQ(OutputName({0, 0, u"Plan*"}, OutputKind::Sheet, u""), u"");
}

TEST(OutputNamesTest, TheNamesForAllHaveTheirNumbers)
{
    ASSERT_EQ(std::size(kNamesOfAll), 2u);
    EXPECT_EQ(kNamesOfAll[0].kind, OutputKind::Sheet);
    EXPECT_EQ(kNamesOfAll[0].key, 170u);
    EXPECT_EQ(kNamesOfAll[0].text, std::u16string_view(u"All sheets"));
    EXPECT_EQ(kNamesOfAll[1].kind, OutputKind::Configuration);
    EXPECT_EQ(kNamesOfAll[1].key, 169u);
    EXPECT_EQ(kNamesOfAll[1].text, std::u16string_view(u"All configurations"));
}

} // namespace tv
