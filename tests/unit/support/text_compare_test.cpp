#include "support/text_compare.h"

#include "com/base.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(IgnoringCase, LettersOfManyScriptsHaveCapitals)
{
    EXPECT_EQ(UpperCase(u'a'), u'A');
    EXPECT_EQ(UpperCase(u'z'), u'Z');
    EXPECT_EQ(UpperCase(u'\u00E9'), u'\u00C9');
    EXPECT_EQ(UpperCase(u'\u00FF'), u'\u0178');
    EXPECT_EQ(UpperCase(u'\u0101'), u'\u0100');
    EXPECT_EQ(UpperCase(u'\u03B1'), u'\u0391');
    EXPECT_EQ(UpperCase(u'\u0436'), u'\u0416');
    EXPECT_EQ(UpperCase(u'\u0451'), u'\u0401');
    EXPECT_EQ(UpperCase(u'\u0561'), u'\u0531');
    EXPECT_EQ(UpperCase(u'\uFF41'), u'\uFF21');
}

TEST(IgnoringCase, OtherUnitsStayAsTheyAre)
{
    for (char16_t unit : std::u16string_view(u"A0[{`\u00D7\u00F7\u00DF\u0100\u4E2D\xD800\xFFFF")) {
        EXPECT_EQ(UpperCase(unit), unit);
    }
}

TEST(IgnoringCase, ALetterWhoseCapitalHasAnotherSmallLetterHasNone)
{
    EXPECT_EQ(UpperCase(u'\u0131'), u'\u0131');
    EXPECT_EQ(UpperCase(u'\u017F'), u'\u017F');
    EXPECT_EQ(UpperCase(u'\u00B5'), u'\u00B5');
}

TEST(IgnoringCase, NoCapitalHasACapital)
{
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t capital = UpperCase(static_cast<char16_t>(unit));
        ASSERT_EQ(UpperCase(capital), capital) << unit;
    }
}

TEST(IgnoringCase, TextsAreEqualWithoutRegardToCase)
{
    EXPECT_TRUE(EqualIgnoringCase(u"C:\\Vault\\Stra\u00DFe \u00C4", u"c:\\VAULT\\stra\u00DFe \u00E4"));
    EXPECT_FALSE(EqualIgnoringCase(u"abc", u"abcd"));
    EXPECT_FALSE(EqualIgnoringCase(u"strasse", u"stra\u00DFe"));
    EXPECT_TRUE(EqualIgnoringCase(u"", u""));
}

TEST(IgnoringCase, CapitalsAreAKeyForLookUps)
{
    EXPECT_EQ(InCapitals(u"c:\\Vault\\\u00E4\u03C9\u0436.step"), u"C:\\VAULT\\\u00C4\u03A9\u0416.STEP");
    EXPECT_EQ(InCapitals(u""), u"");
    EXPECT_EQ(InCapitals(u"\u0131\u0130\u00DF\u03C2\xD83D\xDE00"), u"\u0131\u0130\u00DF\u03C2\xD83D\xDE00");
}

TEST(IgnoringCase, TurkishAndGreekLettersAreComparedAsFileNamesAre)
{
    EXPECT_FALSE(EqualIgnoringCase(u"\u0131", u"I"));
    EXPECT_FALSE(EqualIgnoringCase(u"\u0131", u"i"));
    EXPECT_FALSE(EqualIgnoringCase(u"\u0130", u"i"));
    EXPECT_TRUE(EqualIgnoringCase(u"i", u"I"));
    EXPECT_TRUE(EqualIgnoringCase(u"\u03C3\u03AC", u"\u03A3\u0386"));
    EXPECT_FALSE(EqualIgnoringCase(u"\u03C2", u"\u03A3"));
    EXPECT_FALSE(EqualIgnoringCase(u"\u00DF", u"SS"));
}

TEST(IgnoringCase, StartsAndEndsAreFound)
{
    EXPECT_TRUE(StartsWithIgnoringCase(u"Torvane.exe", u"TORVANE"));
    EXPECT_FALSE(StartsWithIgnoringCase(u"Tor", u"Torvane"));
    EXPECT_TRUE(EndsWithIgnoringCase(u"part.TVNPRT", u".tvnprt"));
    EXPECT_FALSE(EndsWithIgnoringCase(u"prt", u".tvnprt"));
}

TEST(IgnoringCase, TextsAreOrderedByTheirCapitals)
{
    EXPECT_LT(CompareIgnoringCase(u"abc", u"ABD"), 0);
    EXPECT_GT(CompareIgnoringCase(u"b", u"A"), 0);
    EXPECT_LT(CompareIgnoringCase(u"ab", u"ABC"), 0);
    EXPECT_GT(CompareIgnoringCase(u"a_", u"AB"), 0);
    EXPECT_EQ(CompareIgnoringCase(u"a", u"A"), 0);
}

#ifdef _WIN32
TEST(IgnoringCase, EveryCapitalIsTheSystems)
{
    using Upcase = WCHAR(WINAPI*)(WCHAR);
    const auto upcase = reinterpret_cast<Upcase>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlUpcaseUnicodeChar")));
    ASSERT_NE(upcase, nullptr);
    for (uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
        ASSERT_EQ(static_cast<uint32_t>(UpperCase(static_cast<char16_t>(unit))), upcase(static_cast<WCHAR>(unit)));
    }
}
#endif

} // namespace
} // namespace tv
