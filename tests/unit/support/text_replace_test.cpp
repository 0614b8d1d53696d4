#include "support/text_replace.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(ReplaceAll, ReplacesEveryOccurrence)
{
    EXPECT_EQ(ReplaceAll(u"a-b-c", u"-", u" + "), u"a + b + c");
    EXPECT_EQ(ReplaceAll(u"--", u"-", u""), u"");
    EXPECT_EQ(ReplaceAll(u"", u"-", u"x"), u"");
}

TEST(ReplaceAll, ComparesWithCase)
{
    EXPECT_EQ(ReplaceAll(u"aA", u"a", u"b"), u"bA");
}

TEST(ReplaceAll, DoesNotLookAtWhatItPutIn)
{
    EXPECT_EQ(ReplaceAll(u"a", u"a", u"aa"), u"aa");
    EXPECT_EQ(ReplaceAll(u"<<x>>", u"<x>", u""), u"<>");
}

TEST(ReplaceAll, TakesOverlappingOccurrencesFromTheLeft)
{
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
}

TEST(ReplaceAll, AnEmptyTextOccursNowhere)
{
    EXPECT_EQ(ReplaceAll(u"abc", u"", u"x"), u"abc");
}

} // namespace
} // namespace tv
