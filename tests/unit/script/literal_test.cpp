#include "script/literal.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

std::u16string Times(std::u16string_view text, size_t count)
{
    std::u16string result;
    for (size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(EncodeLiteral, AnEmptyValueIsAnEmptyText)
{
    EXPECT_EQ(EncodeLiteral(u""), u"");
}

TEST(EncodeLiteral, NarrowUnitsStay)
{
    EXPECT_EQ(EncodeLiteral(u"C:\\Vault\\\u00E4\u00FF \"x\"\r\n"), u"C:\\Vault\\\u00E4\u00FF \"x\"\r\n");
}

TEST(EncodeLiteral, AWideUnitLeavesTheLiteral)
{
    EXPECT_EQ(EncodeLiteral(u"a\u03A9b"), u"a\" & ChrW(937) & \"b");
}

TEST(EncodeLiteral, AValueOfOneWideUnitStandsBetweenTwoEmptyLiterals)
{
    EXPECT_EQ(EncodeLiteral(u"\u03A9"), u"\" & ChrW(937) & \"");
}

TEST(EncodeLiteral, AWideUnitAtTheEndIsFollowedByAnEmptyLiteral)
{
    EXPECT_EQ(EncodeLiteral(u"a\u0100"), u"a\" & ChrW(256) & \"");
}

TEST(EncodeLiteral, WideUnitsInARowAreJoined)
{
    EXPECT_EQ(EncodeLiteral(u"\u03A9\u0410z\u0411"), u"\" & ChrW(937) & ChrW(1040) & \"z\" & ChrW(1041) & \"");
}

TEST(EncodeLiteral, ASurrogatePairIsTwoCalls)
{
    EXPECT_EQ(EncodeLiteral(u"\U0001F600"), u"\" & ChrW(55357) & ChrW(56832) & \"");
}

TEST(EncodeLiteral, TheLargestUnitIsUnsigned)
{
    EXPECT_EQ(EncodeLiteral(u"\uFFFF"), u"\" & ChrW(65535) & \"");
}

TEST(EncodeLiteral, ALongRunIsContinuedBehindTheFirstAmpersandAtOrAfterPosition100)
{
    const std::u16string eightTerms = Times(u"ChrW(1040) & ", 8);
    const std::u16string expected = u"\" & " + Times(eightTerms + u"_\r\n", 18) + Times(u"ChrW(1040) & ", 6) + u"\"";
    EXPECT_EQ(EncodeLiteral(Times(u"\u0410", 150)), expected);
}

TEST(EncodeLiteral, TheAmpersandOfAPlainValueIsBrokenBehindToo)
{
    const std::u16string value = Times(u"x", 100) + u" & D";
    EXPECT_EQ(EncodeLiteral(value), Times(u"x", 100) + u" & _\r\nD");
}

TEST(EncodeLiteral, AnAmpersandBeforePosition100IsLeftAlone)
{
    const std::u16string value = Times(u"x", 99) + u" & D";
    EXPECT_EQ(EncodeLiteral(value), value);
}

TEST(EncodeLiteral, TheNextBreakIsAtLeast100UnitsBehindTheLast)
{
    const std::u16string near = Times(u"x", 100) + u" & " + Times(u"y", 99) + u" & z";
    EXPECT_EQ(EncodeLiteral(near), Times(u"x", 100) + u" & _\r\n" + Times(u"y", 99) + u" & z");
    const std::u16string far = Times(u"x", 100) + u" & " + Times(u"y", 100) + u" & z";
    EXPECT_EQ(EncodeLiteral(far), Times(u"x", 100) + u" & _\r\n" + Times(u"y", 100) + u" & _\r\nz");
}

TEST(EncodeLiteral, AnAmpersandAtTheVeryEndIsContinuedIntoNothing)
{
    const std::u16string value = Times(u"x", 100) + u" & ";
    EXPECT_EQ(EncodeLiteral(value), Times(u"x", 100) + u" & _\r\n");
}

TEST(EncodeLiteral, ALongValueWithoutAmpersandIsNotBroken)
{
    const std::u16string value = Times(u"abc&def ", 1000);
    EXPECT_EQ(EncodeLiteral(value), value);
}

} // namespace
} // namespace tv
