#include "worlds.h"

namespace tv {
namespace {

template <typename World> class FilesContract : public testing::Test
{
  protected:
    std::u16string In(std::u16string_view name) { return world.Folder().append(u"\\").append(name); }

    void Write(std::u16string_view name, std::string_view text)
    {
        const std::unique_ptr<OutputFile> file = files.OpenForAppend(In(name));
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->Write(text), 0u);
    }

    World world;
    FileService& files = world.Services().files;
};

TYPED_TEST_SUITE(FilesContract, Worlds);

TYPED_TEST(FilesContract, AppendingCreatesAMissingFileAndWritesBehindAnExistingOne)
{
    this->Write(u"a.log", "one");
    this->Write(u"A.LOG", "two");
    EXPECT_EQ(this->world.Content(this->In(u"a.log")), "onetwo");
}

TYPED_TEST(FilesContract, AppendingTurnsLineFeedsIntoLineEnds)
{
    this->Write(u"a.log", "one\ntwo\r\n");
    EXPECT_EQ(this->world.Content(this->In(u"a.log")), "one\r\ntwo\r\r\n");
}

TYPED_TEST(FilesContract, AppendingInAMissingFolderFails)
{
    EXPECT_EQ(this->files.OpenForAppend(this->In(u"missing\\a.log")), nullptr);
}

TYPED_TEST(FilesContract, AppendingToAReadOnlyFileFails)
{
    this->Write(u"a.log", "one");
    this->world.SetReadOnly(this->In(u"a.log"));
    if (this->world.MayWriteReadOnly(this->In(u"a.log"))) {
        GTEST_SKIP() << "this user may write read-only files";
    }
    EXPECT_EQ(this->files.OpenForAppend(this->In(u"a.log")), nullptr);
}

TYPED_TEST(FilesContract, AFileThatIsAppendedToCanBeAppendedToByAnother)
{
    const std::unique_ptr<OutputFile> first = this->files.OpenForAppend(this->In(u"a.log"));
    const std::unique_ptr<OutputFile> second = this->files.OpenForAppend(this->In(u"a.log"));
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    first->Write(std::string_view("1"));
    second->Write(std::string_view("2"));
    first->Write(std::string_view("3"));
    EXPECT_EQ(this->world.Content(this->In(u"a.log")), "123");
}

TYPED_TEST(FilesContract, AFolderIsNoFile)
{
    EXPECT_EQ(this->files.CreateDirectory(this->In(u"sub")), 0u);
    EXPECT_FALSE(this->files.FileExists(this->In(u"sub")));
    EXPECT_FALSE(this->files.FileExists(this->In(u"missing")));
    this->Write(u"a.txt", "x");
    EXPECT_TRUE(this->files.FileExists(this->In(u"A.TXT")));
}

TYPED_TEST(FilesContract, AFolderIsCreatedOnceAndOnlyBelowAnother)
{
    EXPECT_EQ(this->files.CreateDirectory(this->In(u"sub")), 0u);
    EXPECT_EQ(this->files.CreateDirectory(this->In(u"SUB")), 183u);
    EXPECT_EQ(this->files.CreateDirectory(this->In(u"missing\\sub")), 3u);
}

TYPED_TEST(FilesContract, DeletingTellsWhatIsMissing)
{
    EXPECT_EQ(this->files.DeleteFile(this->In(u"a.txt")), 2u);
    EXPECT_EQ(this->files.DeleteFile(this->In(u"missing\\a.txt")), 3u);
    this->Write(u"a.txt", "x");
    EXPECT_EQ(this->files.DeleteFile(this->In(u"a.txt")), 0u);
    EXPECT_FALSE(this->files.FileExists(this->In(u"a.txt")));
}

TYPED_TEST(FilesContract, AReadOnlyFileIsDeletedOnlyWhenItIsNoLonger)
{
    this->Write(u"a.txt", "x");
    this->world.SetReadOnly(this->In(u"a.txt"));
    EXPECT_EQ(this->files.DeleteFile(this->In(u"a.txt")), 5u);
    EXPECT_EQ(this->files.ClearReadOnly(this->In(u"a.txt")), 0u);
    EXPECT_EQ(this->files.DeleteFile(this->In(u"a.txt")), 0u);
}

TYPED_TEST(FilesContract, ClearingTheReadOnlyMarkOfAMissingFileFails)
{
    EXPECT_EQ(this->files.ClearReadOnly(this->In(u"a.txt")), 2u);
}

TYPED_TEST(FilesContract, AFileIsMovedUnlessTheTargetExists)
{
    this->Write(u"a.txt", "a");
    this->Write(u"b.txt", "b");
    EXPECT_EQ(this->files.MoveFile(this->In(u"a.txt"), this->In(u"b.txt")), 183u);
    EXPECT_EQ(this->files.MoveFile(this->In(u"a.txt"), this->In(u"c.txt")), 0u);
    EXPECT_EQ(this->world.Content(this->In(u"c.txt")), "a");
    EXPECT_FALSE(this->files.FileExists(this->In(u"a.txt")));
    EXPECT_EQ(this->files.MoveFile(this->In(u"a.txt"), this->In(u"d.txt")), 2u);
}

TYPED_TEST(FilesContract, ACopyOverwritesItsTarget)
{
    this->Write(u"a.txt", "a");
    this->Write(u"b.txt", "longer");
    EXPECT_EQ(this->files.CopyFile(this->In(u"a.txt"), this->In(u"b.txt")), 0u);
    EXPECT_EQ(this->world.Content(this->In(u"b.txt")), "a");
    EXPECT_EQ(this->files.CopyFile(this->In(u"missing"), this->In(u"b.txt")), 2u);
    EXPECT_EQ(this->files.CopyFile(this->In(u"a.txt"), this->In(u"missing\\b.txt")), 3u);
}

TYPED_TEST(FilesContract, ACopyOntoAReadOnlyFileIsDenied)
{
    this->Write(u"a.txt", "a");
    this->Write(u"b.txt", "b");
    this->world.SetReadOnly(this->In(u"b.txt"));
    if (this->world.MayWriteReadOnly(this->In(u"b.txt"))) {
        GTEST_SKIP() << "this user may write read-only files";
    }
    EXPECT_EQ(this->files.CopyFile(this->In(u"a.txt"), this->In(u"b.txt")), 5u);
}

TYPED_TEST(FilesContract, ATemporaryFileHasAUniqueNameWithItsPrefixAndIsWrittenAsItIs)
{
    std::unique_ptr<OutputFile> first;
    std::unique_ptr<OutputFile> second;
    ASSERT_EQ(this->files.CreateTemporaryFile(u"TFR", first), 0u);
    ASSERT_EQ(this->files.CreateTemporaryFile(u"TFR", second), 0u);
    const std::u16string path = first->Path();
    EXPECT_NE(path, second->Path());
    EXPECT_NE(path.find(u"\\TFR"), std::u16string::npos);
    EXPECT_EQ(first->Write(std::string_view("a\nb")), 0u);
    first.reset();
    EXPECT_EQ(this->world.Content(path), "a\nb");
    EXPECT_EQ(this->files.DeleteFile(path), 0u);
    const std::u16string other = second->Path();
    second.reset();
    EXPECT_EQ(this->files.DeleteFile(other), 0u);
}

TYPED_TEST(FilesContract, ATemporaryFileIsNotSharedWhileItIsOpen)
{
    std::unique_ptr<OutputFile> file;
    ASSERT_EQ(this->files.CreateTemporaryFile(u"TFR", file), 0u);
    const std::u16string path = file->Path();
    EXPECT_EQ(this->files.CopyFile(path, this->In(u"copy")), 32u);
    EXPECT_EQ(this->files.DeleteFile(path), 32u);
    EXPECT_EQ(this->files.OpenForAppend(path), nullptr);
    file.reset();
    EXPECT_EQ(this->files.DeleteFile(path), 0u);
}

TYPED_TEST(FilesContract, NarrowTextShowsWhatItCan)
{
    EXPECT_EQ(this->files.NarrowText(u"Sub main()\r\n"), "Sub main()\r\n");
    EXPECT_EQ(this->files.NarrowText(u"a\u4E2Db"), "a?b");
    EXPECT_EQ(this->files.NarrowText(u""), "");
}

} // namespace
} // namespace tv
