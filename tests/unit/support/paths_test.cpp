#include "support/paths.h"

#include "com/base.h"

#include <gtest/gtest.h>
#ifdef _WIN32
#include <shlwapi.h>
#endif

namespace tv {
namespace {

TEST(Paths, TheFileNameIsTheLastComponent)
{
    EXPECT_EQ(FileNameOf(u"C:\\Vault\\a.tvnprt"), u"a.tvnprt");
    EXPECT_EQ(FileNameOf(u"C:/Vault/a.tvnprt"), u"a.tvnprt");
    EXPECT_EQ(FileNameOf(u"a"), u"a");
    EXPECT_EQ(FileNameOf(u"C:a"), u"a");
    EXPECT_EQ(FileNameOf(u"C:\\Vault\\"), u"");
    EXPECT_EQ(FileNameOf(u""), u"");
}

TEST(Paths, TheFolderIsWhatStandsBeforeTheLastComponent)
{
    EXPECT_EQ(FolderOf(u"C:\\Vault\\sub\\a.txt"), u"C:\\Vault\\sub");
    EXPECT_EQ(FolderOf(u"\\\\server\\share\\a.txt"), u"\\\\server\\share");
    EXPECT_EQ(FolderOf(u"sub\\a.txt"), u"sub");
    EXPECT_EQ(FolderOf(u"a.txt"), u"");
    EXPECT_EQ(FolderOf(u"C:\\Vault\\"), u"C:\\Vault");
    EXPECT_EQ(FolderOf(u"C:\\Vault\\\\a"), u"C:\\Vault");
}

TEST(Paths, TheFolderBelowARootKeepsItsBackslash)
{
    EXPECT_EQ(FolderOf(u"C:\\a.txt"), u"C:\\");
    EXPECT_EQ(FolderOf(u"C:\\"), u"C:\\");
    EXPECT_EQ(FolderOf(u"\\a.txt"), u"\\");
    EXPECT_EQ(FolderOf(u"C:a.txt"), u"C:");
}

TEST(Paths, TheExtensionFollowsTheLastDotOfTheLastComponent)
{
    EXPECT_EQ(ExtensionOf(u"C:\\a.b\\c.d.tvnprt"), u"tvnprt");
    EXPECT_EQ(ExtensionOf(u"C:\\a.b\\c"), u"");
    EXPECT_EQ(ExtensionOf(u"a."), u"");
    EXPECT_EQ(ExtensionOf(u".a"), u"a");
    EXPECT_EQ(ExtensionOf(u""), u"");
}

TEST(Paths, TheExtensionCanBeTakenOffAndReplaced)
{
    EXPECT_EQ(WithoutExtension(u"C:\\a.b\\c.d"), u"C:\\a.b\\c");
    EXPECT_EQ(WithoutExtension(u"C:\\a.b\\c"), u"C:\\a.b\\c");
    EXPECT_EQ(FileStemOf(u"C:\\a.b\\c.d.e"), u"c.d");
    EXPECT_EQ(WithExtension(u"C:\\Temp\\TFR1.tmp", u".tvb"), u"C:\\Temp\\TFR1.tvb");
    EXPECT_EQ(WithExtension(u"C:\\Temp\\TFR1", u".tvb"), u"C:\\Temp\\TFR1.tvb");
}

TEST(Paths, AllTrailingBackslashesAreTrimmed)
{
    EXPECT_EQ(WithoutTrailingBackslashes(u"C:\\Vault\\\\"), u"C:\\Vault");
    EXPECT_EQ(WithoutTrailingBackslashes(u"C:\\"), u"C:");
    EXPECT_EQ(WithoutTrailingBackslashes(u"\\\\"), u"");
    EXPECT_EQ(WithoutTrailingBackslashes(u"a"), u"a");
}

struct Appended
{
    std::u16string_view folder;
    std::u16string_view more;
    std::u16string_view result;
};

constexpr Appended kAppended[] = {
    {u"C:\\v", u"logs", u"C:\\v\\logs"},
    {u"C:\\v", u"\\logs", u"C:\\v\\logs"},
    {u"C:\\v\\", u"logs", u"C:\\v\\logs"},
    {u"C:\\v", u"logs\\", u"C:\\v\\logs\\"},
    {u"C:\\v", u"D:\\logs", u"D:\\logs"},
    {u"C:\\v", u"D:", u"D:\\"},
    {u"C:\\v", u"\\\\server\\share\\logs", u"\\\\server\\share\\logs"},
    {u"C:\\v", u"..\\logs", u"C:\\logs"},
    {u"C:\\v", u".\\logs", u"C:\\v\\logs"},
    {u"C:\\v", u"", u"C:\\v"},
    {u"C:\\v", u"\\", u"C:\\v"},
    {u"C:\\", u"a", u"C:\\a"},
    {u"C:", u"a", u"C:\\a"},
    {u"v", u"a", u"v\\a"},
    {u"", u"a", u"a"},
    {u"", u"", u"\\"},
    {u"C:\\v", u"..\\..\\..\\a", u"C:\\a"},
};

TEST(Paths, AppendingFollowsTheShell)
{
    for (const Appended& row : kAppended) {
        EXPECT_EQ(AppendPath(row.folder, row.more), row.result);
    }
}

struct Canonical
{
    std::u16string_view path;
    std::u16string_view result;
};

constexpr Canonical kCanonical[] = {
    {u"", u"\\"},
    {u"C:", u"C:\\"},
    {u"C:\\", u"C:\\"},
    {u"C:\\..", u"C:\\"},
    {u"C:\\a\\..", u"C:\\"},
    {u"C:\\a\\..\\..\\b", u"C:\\b"},
    {u"C:\\a\\.\\b", u"C:\\a\\b"},
    {u"C:\\a\\b\\..\\c", u"C:\\a\\c"},
    {u"C:\\a\\b\\", u"C:\\a\\b\\"},
    {u"C:\\a\\.\\", u"C:\\a\\"},
    {u"C:\\a\\..\\", u"C:\\"},
    {u"C:\\a\\\\b", u"C:\\a\\\\b"},
    {u"C:\\a.\\b", u"C:\\a.\\b"},
    {u"C:\\a\\.b", u"C:\\a\\.b"},
    {u"\\\\server\\share\\a\\..\\b", u"\\\\server\\share\\b"},
    {u"\\\\server\\share\\", u"\\\\server\\share\\"},
    {u"\\\\server\\share", u"\\\\server\\share"},
    {u"a\\..\\b", u"\\b"},
    {u"a\\b\\..\\c", u"a\\c"},
    {u"..\\a", u"..\\a"},
    {u".\\a", u"a"},
    {u"\\..\\a", u"\\a"},
};

TEST(Paths, CanonicalPathsHaveNoDotComponents)
{
    for (const Canonical& row : kCanonical) {
        EXPECT_EQ(CanonicalPath(row.path), row.result);
    }
}

TEST(Paths, ADotAtTheEndIsTakenOff)
{
    EXPECT_EQ(CanonicalPath(u"C:\\a\\b\\."), u"C:\\a\\b");
}

TEST(Paths, NamesThatBeginWithDotsStayWhole)
{
    EXPECT_EQ(CanonicalPath(u"C:\\a\\..b"), u"C:\\a\\..b");
    EXPECT_EQ(CanonicalPath(u"C:\\a\\...\\b"), u"C:\\a\\...\\b");
}

#ifdef _WIN32
TEST(Paths, TheShellAgrees)
{
    for (const Canonical& row : kCanonical) {
        wchar_t result[MAX_PATH];
        ASSERT_NE(PathCanonicalizeW(result, reinterpret_cast<const wchar_t*>(row.path.data())), FALSE);
        EXPECT_EQ(std::u16string_view(reinterpret_cast<const char16_t*>(result)), row.result);
    }
    for (const Appended& row : kAppended) {
        wchar_t result[MAX_PATH] = {};
        row.folder.copy(reinterpret_cast<char16_t*>(result), MAX_PATH - 1);
        ASSERT_NE(PathAppendW(result, reinterpret_cast<const wchar_t*>(row.more.data())), FALSE);
        EXPECT_EQ(std::u16string_view(reinterpret_cast<const char16_t*>(result)), row.result);
    }
}
#endif

} // namespace
} // namespace tv
