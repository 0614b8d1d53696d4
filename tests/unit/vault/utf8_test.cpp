#include "vault/utf8.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(Utf8, HasOneToFourBytesForACharacter)
{
    EXPECT_EQ(ToUtf8(u"a\u00E4\u0416\u20AC\U0001F600"), "a\xC3\xA4\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8("a\xC3\xA4\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u00E4\u0416\u20AC\U0001F600");
}

TEST(Utf8, KeepsALoneSurrogate)
{
    const std::u16string text = {u'a', 0xDC00, 0xD800, u'b', 0xDBFF};
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
}

TEST(Utf8, ShowsWhatIsNoUtf8)
{
    EXPECT_EQ(FromUtf8("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(FromUtf8("a\xC3"), u"a\uFFFD");
    EXPECT_EQ(FromUtf8("\xE2\x82z"), u"\uFFFDz");
    EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xF7\xBF\xBF\xBF"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xFF"), u"\uFFFD");
}

} // namespace
} // namespace tv
