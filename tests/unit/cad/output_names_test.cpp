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

} // namespace tv
