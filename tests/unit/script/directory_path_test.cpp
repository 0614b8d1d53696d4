#include "script/directory_path.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

class DirectoryPath : public testing::Test
{
  protected:
    std::vector<std::u16string> Created() const { return machine.log.SubjectsOf("files.CreateDirectory"); }

    fakes::FakePlatform machine;
};

TEST_F(DirectoryPath, IsCreatedFolderByFolder)
{
    EXPECT_TRUE(MakeDirectoryPath(machine.files, u"C:\\a\\b\\c"));
    EXPECT_EQ(Created(), (std::vector<std::u16string>{u"C:\\a", u"C:\\a\\b", u"C:\\a\\b\\c"}));
    EXPECT_TRUE(machine.files.FolderExists(u"C:\\a\\b\\c"));
}

TEST_F(DirectoryPath, MayHoldSlashes)
{
    EXPECT_TRUE(MakeDirectoryPath(machine.files, u"C:/a/b"));
    EXPECT_EQ(Created(), (std::vector<std::u16string>{u"C:/a", u"C:/a/b"}));
}

TEST_F(DirectoryPath, OfAFolderThatExistsIsAFailure)
{
    machine.files.AddFolder(u"C:\\a\\b");
    EXPECT_FALSE(MakeDirectoryPath(machine.files, u"C:\\a\\b"));
}

TEST_F(DirectoryPath, GoesOnWhenAFolderAboveExists)
{
    machine.files.AddFolder(u"C:\\a");
    EXPECT_TRUE(MakeDirectoryPath(machine.files, u"C:\\a\\b"));
}

TEST_F(DirectoryPath, ThatEndsInABackslashCountsAsExisting)
{
    EXPECT_FALSE(MakeDirectoryPath(machine.files, u"C:\\a\\"));
    EXPECT_TRUE(machine.files.FolderExists(u"C:\\a"));
}

TEST_F(DirectoryPath, OfOver260CharactersIsRefused)
{
    const std::u16string longest = u"C:\\" + std::u16string(257, u'x');
    EXPECT_FALSE(MakeDirectoryPath(machine.files, longest + u"x"));
    EXPECT_TRUE(Created().empty());
    MakeDirectoryPath(machine.files, longest);
    EXPECT_EQ(Created(), (std::vector<std::u16string>{longest}));
}

TEST_F(DirectoryPath, WithoutTextIsAFailure)
{
    EXPECT_FALSE(MakeDirectoryPath(machine.files, u""));
}

} // namespace
} // namespace tv
