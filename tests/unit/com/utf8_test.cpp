#include "com/utf8.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

constexpr LoneSurrogate kBoth[] = {LoneSurrogate::Keep, LoneSurrogate::Replace};

TEST(Utf8, HasOneToFourBytesForACharacter)
{
    for (const LoneSurrogate lone : kBoth) {
        EXPECT_EQ(ToUtf8(u"a\u00E4\u0416\u20AC\U0001F600", lone), "a\xC3\xA4\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80");
        EXPECT_EQ(FromUtf8("a\xC3\xA4\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80", lone), u"a\u00E4\u0416\u20AC\U0001F600");
    }
}

TEST(Utf8, ReachesTheLastCharacterOfEachLength)
{
    for (const LoneSurrogate lone : kBoth) {
        EXPECT_EQ(FromUtf8("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", lone),
                  u"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF");
        EXPECT_EQ(ToUtf8(u"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", lone),
                  "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    }
}

TEST(Utf8, MayHoldZeros)
{
    const std::string bytes("a\0b", 3);
    const std::u16string text(u"a\0b", 3);
    EXPECT_EQ(FromUtf8(bytes, LoneSurrogate::Keep), text);
    EXPECT_EQ(ToUtf8(text, LoneSurrogate::Keep), bytes);
}

TEST(Utf8, KeepsALoneSurrogateWhereThatIsWanted)
{
    const std::u16string text = {u'a', 0xDC00, 0xD800, u'b', 0xDBFF};
    EXPECT_EQ(ToUtf8(text, LoneSurrogate::Keep), "a\xED\xB0\x80\xED\xA0\x80"
                                                 "b\xED\xAF\xBF");
    EXPECT_EQ(FromUtf8(ToUtf8(text, LoneSurrogate::Keep), LoneSurrogate::Keep), text);
}

TEST(Utf8, ReplacesALoneSurrogateElsewhere)
{
    const std::u16string text = {u'a', 0xDC00, 0xD800, u'b', 0xDBFF};
    EXPECT_EQ(ToUtf8(text, LoneSurrogate::Replace), "a\xEF\xBF\xBD\xEF\xBF\xBD"
                                                    "b\xEF\xBF\xBD");
    EXPECT_EQ(FromUtf8("a\xED\xB0\x80\xED\xA0\x80", LoneSurrogate::Replace), u"a\uFFFD\uFFFD");
}

TEST(Utf8, ShowsWhatIsNoUtf8)
{
    for (const LoneSurrogate lone : kBoth) {
        EXPECT_EQ(FromUtf8("a\x80z", lone), u"a\uFFFDz");
        EXPECT_EQ(FromUtf8("a\xC3", lone), u"a\uFFFD");
        EXPECT_EQ(FromUtf8("\xE2\x82z", lone), u"\uFFFDz");
        EXPECT_EQ(FromUtf8("\xC0\x80", lone), u"\uFFFD");
        EXPECT_EQ(FromUtf8("\xE0\x80\x80", lone), u"\uFFFD");
        EXPECT_EQ(FromUtf8("\xF7\xBF\xBF\xBF", lone), u"\uFFFD");
        EXPECT_EQ(FromUtf8("\xFF", lone), u"\uFFFD");
    }
}

TEST(Utf8, IsTakenCharacterByCharacter)
{
    const std::string bytes = "a\xC3\xA4\xF0\x9F\x98\x80";
    size_t position = 0;
    EXPECT_EQ(TakeUtf8(bytes, position, LoneSurrogate::Replace), U'a');
    EXPECT_EQ(position, 1u);
    EXPECT_EQ(TakeUtf8(bytes, position, LoneSurrogate::Replace), U'\u00E4');
    EXPECT_EQ(position, 3u);
    EXPECT_EQ(TakeUtf8(bytes, position, LoneSurrogate::Replace), U'\U0001F600');
    EXPECT_EQ(position, 7u);
}

} // namespace
} // namespace tv
