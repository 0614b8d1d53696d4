#include "support/numbers.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(ParseDecimal, ReadsANumber)
{
    EXPECT_EQ(ParseDecimal(u"17"), 17);
    EXPECT_EQ(ParseDecimal(u"-17"), -17);
    EXPECT_EQ(ParseDecimal(u"+17"), 17);
    EXPECT_EQ(ParseDecimal(u"007"), 7);
}

TEST(ParseDecimal, WhatIsNoNumberIsZero)
{
    EXPECT_EQ(ParseDecimal(u""), 0);
    EXPECT_EQ(ParseDecimal(u"x"), 0);
    EXPECT_EQ(ParseDecimal(u"-"), 0);
    EXPECT_EQ(ParseDecimal(u"- 5"), 0);
    EXPECT_EQ(ParseDecimal(u"--5"), 0);
}

TEST(ParseDecimal, PassesOverWhiteSpaceInFrontAndAnythingBehind)
{
    EXPECT_EQ(ParseDecimal(u" \t\r\n 21.0.3"), 21);
    EXPECT_EQ(ParseDecimal(u"21abc"), 21);
    EXPECT_EQ(ParseDecimal(u"0x10"), 0);
}

TEST(ParseDecimal, ANumberOutOfRangeIsTheNearestLimit)
{
    EXPECT_EQ(ParseDecimal(u"2147483647"), 2147483647);
    EXPECT_EQ(ParseDecimal(u"2147483648"), 2147483647);
    EXPECT_EQ(ParseDecimal(u"-2147483648"), INT32_MIN);
    EXPECT_EQ(ParseDecimal(u"-99999999999999999999999"), INT32_MIN);
}

} // namespace
} // namespace tv
