#include "support/format.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(FormatText, TextWithoutConversionsStandsAsItIs)
{
    EXPECT_EQ(FormatText(u"plain"), u"plain");
    EXPECT_EQ(FormatText(u""), u"");
}

TEST(FormatText, TwoPercentSignsAreOne)
{
    EXPECT_EQ(FormatText(u"100%%"), u"100%");
    EXPECT_EQ(FormatText(u"%%%s%dd", u"0", 3), u"%03d");
}

TEST(FormatText, WholeNumbersPrintInEveryBase)
{
    EXPECT_EQ(FormatText(u"%d %i", -5, 7), u"-5 7");
    EXPECT_EQ(FormatText(u"%u", 4000000000u), u"4000000000");
    EXPECT_EQ(FormatText(u"%u", -1), u"4294967295");
    EXPECT_EQ(FormatText(u"%x %X %o", 0xBEEFu, 0xBEEFu, 8), u"beef BEEF 10");
    EXPECT_EQ(FormatText(u"%#x %#X", 255, 255), u"0xff 0XFF");
}

TEST(FormatText, TheExtremesOfNumbersPrint)
{
    EXPECT_EQ(FormatText(u"%d", INT32_MIN), u"-2147483648");
    EXPECT_EQ(FormatText(u"%lld", INT64_MIN), u"-9223372036854775808");
    EXPECT_EQ(FormatText(u"%I64u", UINT64_MAX), u"18446744073709551615");
}

TEST(FormatText, AnUnsignedNumberOf32BitsPrintsAsSignedUnderD)
{
    EXPECT_EQ(FormatText(u"%d", 0x80000000u), u"-2147483648");
}

TEST(FormatText, WidthFillsWithBlanksOrZerosOnTheLeft)
{
    EXPECT_EQ(FormatText(u"%5d|%05d|%-5d|", 42, 42, 42), u"   42|00042|42   |");
    EXPECT_EQ(FormatText(u"%05d", -42), u"-0042");
    EXPECT_EQ(FormatText(u"%2d", 12345), u"12345");
    EXPECT_EQ(FormatText(u"%-05d|", 42), u"42   |");
    EXPECT_EQ(FormatText(u"%5s|%-5s|", u"ab", u"ab"), u"   ab|ab   |");
}

TEST(FormatText, WidthAndPrecisionMayBeArguments)
{
    EXPECT_EQ(FormatText(u"%*d", 4, 7), u"   7");
    EXPECT_EQ(FormatText(u"%-*d|", 4, 7), u"7   |");
    EXPECT_EQ(FormatText(u"%*d|", -4, 7), u"7   |");
    EXPECT_EQ(FormatText(u"%.*f", 2, 1.5), u"1.50");
}

TEST(FormatText, SignsAreShownWhenAskedFor)
{
    EXPECT_EQ(FormatText(u"%+d % d %+d", 5, 5, -5), u"+5  5 -5");
}

TEST(FormatText, PrecisionOfAWholeNumberIsItsLeastDigits)
{
    EXPECT_EQ(FormatText(u"%.3d %8.3d", 7, 7), u"007      007");
}

TEST(FormatText, PrecisionOfATextCutsIt)
{
    EXPECT_EQ(FormatText(u"%.2s", u"abcdef"), u"ab");
}

TEST(FormatText, FloatsPrintWithSixPlacesUnlessTold)
{
    EXPECT_EQ(FormatText(u"%f", 2.5), u"2.500000");
    EXPECT_EQ(FormatText(u"%.2f", 1.005), u"1.00");
    EXPECT_EQ(FormatText(u"%.0f", 2.5), u"2");
    EXPECT_EQ(FormatText(u"%8.2f|%08.2f", -1.25, -1.25), u"   -1.25|-0001.25");
    EXPECT_EQ(FormatText(u"%e", 12345.678), u"1.234568e+04");
    EXPECT_EQ(FormatText(u"%g %G", 0.00001, 0.00001), u"1e-05 1E-05");
    EXPECT_EQ(FormatText(u"%f", 1e300).size(), 308u);
}

TEST(FormatText, AFloatOf32BitsPrintsAsItsValue)
{
    EXPECT_EQ(FormatText(u"%f", 0.5f), u"0.500000");
}

TEST(FormatText, TextsOfEveryFormPrint)
{
    const std::u16string owned = u"owned";
    EXPECT_EQ(FormatText(u"%s %s %s", u"literal", owned, std::u16string_view(u"view")), u"literal owned view");
    EXPECT_EQ(FormatText(u"%s", static_cast<const char16_t*>(nullptr)), u"(null)");
}

TEST(FormatText, CharactersPrint)
{
    EXPECT_EQ(FormatText(u"%c%c%3c", u'a', 0x3A9, u'z'), u"a\u03A9  z");
}

TEST(FormatText, AnArgumentOfAnotherKindPrintsInItsOwnWay)
{
    EXPECT_EQ(FormatText(u"%s", 5), u"5");
    EXPECT_EQ(FormatText(u"%d", u"text"), u"text");
    EXPECT_EQ(FormatText(u"%s", 0.5), u"0.500000");
}

TEST(FormatText, AConversionWithoutAnArgumentStandsAsItIs)
{
    EXPECT_EQ(FormatText(u"%d and %05d", 1), u"1 and %05d");
}

TEST(FormatText, AnUnknownConversionStandsAsItIs)
{
    EXPECT_EQ(FormatText(u"%q %d", 1), u"%q 1");
    EXPECT_EQ(FormatText(u"50%", 1), u"50%");
}

TEST(FormatText, AnAbsurdWidthIsHeldBack)
{
    EXPECT_LE(FormatText(u"%999999999d", 1).size(), 4096u);
}

} // namespace
} // namespace tv
