#include "listener/announcement.h"

#include <gtest/gtest.h>

#include <vector>

namespace tv::local {

namespace {

std::vector<uint8_t> Message(std::u16string_view text, uint8_t kind = 1)
{
    std::vector<uint8_t> bytes{kind, 0, 0, 0};
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<uint8_t>(unit >> 8));
    }
    return bytes;
}

TEST(Announcements, KindAndPathAreRead)
{
    const auto read = ReadAnnouncement(Message(std::u16string_view(u"C:\\V\\ä.stl\0", 11)));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, 1u);
    EXPECT_EQ(read->path, u"C:\\V\\ä.stl");
}

TEST(Announcements, AnEmptyPathIsAMessageOfSixBytes)
{
    const std::vector<uint8_t> bytes{1, 0, 0, 0, 0, 0};
    ASSERT_TRUE(ReadAnnouncement(bytes));
    EXPECT_EQ(ReadAnnouncement(bytes)->path, u"");
    EXPECT_EQ(LineFor(bytes), "kind 1  (no path)");
}

TEST(Announcements, APathOf260CharactersIsTheLongest)
{
    const auto longest = Message(std::u16string(260, u'x') + u'\0');
    EXPECT_EQ(longest.size(), 526u);
    ASSERT_TRUE(ReadAnnouncement(longest));
    EXPECT_EQ(ReadAnnouncement(longest)->path.size(), 260u);
    EXPECT_FALSE(ReadAnnouncement(Message(std::u16string(261, u'x') + u'\0')));
}

TEST(Announcements, BytesThatAreNoMessageAreRefused)
{
    EXPECT_FALSE(ReadAnnouncement({}));
    EXPECT_FALSE(ReadAnnouncement(std::vector<uint8_t>{1, 0, 0, 0}));
    EXPECT_FALSE(ReadAnnouncement(std::vector<uint8_t>{1, 0, 0, 0, 'x', 0, 0}));
    EXPECT_FALSE(ReadAnnouncement(Message(u"no end")));
}

TEST(Announcements, ThePathEndsAtTheFirstZero)
{
    EXPECT_EQ(ReadAnnouncement(Message(std::u16string_view(u"a\0b\0", 4)))->path, u"a");
}

TEST(Announcements, AMessageIsToldInOneLineWhateverItHolds)
{
    EXPECT_EQ(LineFor(Message(std::u16string_view(u"C:\\V\\ä.stl\0", 11))), "kind 1  C:\\V\\\xC3\xA4.stl");
    EXPECT_EQ(LineFor(Message(std::u16string_view(u"a\nb\0", 4), 7)), "kind 7  a?b");
    EXPECT_EQ(LineFor(Message(u"no end")), "a message of 16 bytes that is none of the add-in's");
}

} // namespace

} // namespace tv::local
