#include "cad/text.h"

#include <gtest/gtest.h>

namespace tv::app {

TEST(Text, Utf8AndUtf16AgreeBeyondTheBasicPlane)
{
    EXPECT_EQ(ToUtf8(u"a\u03A9\u20AC\U0001F600"), "a\xCE\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf16("a\xCE\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u03A9\u20AC\U0001F600");
}

TEST(Text, BrokenUtf8BecomesTheReplacementCharacter)
{
    EXPECT_EQ(ToUtf16("a\xC3"), u"a\uFFFD");
    EXPECT_EQ(ToUtf16("\x80z"), u"\uFFFDz");
    EXPECT_EQ(ToUtf16("\xE0\x80\x80"), u"\uFFFD");
}

TEST(Text, ALoneSurrogateBecomesTheReplacementCharacter)
{
    const char16_t lone[] = {u'a', 0xD800, u'b', 0};
    EXPECT_EQ(ToUtf8(lone), "a\xEF\xBF\xBD"
                            "b");
}

TEST(Text, MacroFilesAreInCodePage1252)
{
    EXPECT_EQ(FromCodePage1252("\x80\x85\x99\xE9\xFF"), u"\u20AC\u2026\u2122\u00E9\u00FF");
    EXPECT_EQ(FromCodePage1252("\x81"), u"\u0081");
}

TEST(Text, APathIsTakenApart)
{
    EXPECT_EQ(FileNameOf(u"C:\\Vault\\a.b.step"), u"a.b.step");
    EXPECT_EQ(FolderOf(u"C:\\Vault\\a.b.step"), u"C:\\Vault");
    EXPECT_EQ(ExtensionOf(u"C:\\Vault\\a.b.STEP"), u".step");
    EXPECT_EQ(ExtensionOf(u"C:\\Vault.old\\readme"), u"");
    EXPECT_EQ(StemOf(u"C:\\Vault\\a.b.step"), u"a.b");
}

TEST(Text, ARelativePathIsJoinedToItsFolder)
{
    EXPECT_EQ(JoinPath(u"C:\\Vault\\asm", u"../parts/a.tvnprt"), u"C:\\Vault\\parts\\a.tvnprt");
    EXPECT_EQ(JoinPath(u"C:\\Vault", u"D:\\x.step"), u"D:\\x.step");
    EXPECT_EQ(JoinPath(u"\\\\server\\share", u"a/./b"), u"\\\\server\\share\\a\\b");
}

TEST(Text, APathIsWrittenAsSeenFromAFolder)
{
    EXPECT_EQ(RelativePath(u"C:\\Vault\\parts\\a.tvnprt", u"C:\\Vault\\asm"), u"../parts/a.tvnprt");
    EXPECT_EQ(RelativePath(u"C:\\vault\\a.tvnprt", u"C:\\Vault"), u"a.tvnprt");
    EXPECT_EQ(RelativePath(u"D:\\a.tvnprt", u"C:\\Vault"), u"");
}

} // namespace tv::app
