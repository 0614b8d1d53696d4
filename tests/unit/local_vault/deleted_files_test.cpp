#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class DeletedFiles : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};

    std::vector<int32_t> Listed(std::optional<int32_t> folder = {})
    {
        std::vector<int32_t> ids;
        for (const DeletedRecord& deleted : store->DeletedFiles(folder)) {
            ids.push_back(deleted.file.id);
        }
        return ids;
    }
};

TEST_F(DeletedFiles, AreGoneFromTheirFolderWithTheirLocalCopy)
{
    const FileRecord file = Import(*store, "screw.step", "bytes", {"Parts"});
    work.Delete(file.id);
    EXPECT_FALSE(store->FileById(file.id));
    EXPECT_FALSE(store->FindFile({"Parts", "screw.step"}));
    EXPECT_TRUE(store->FilesIn(file.folder).empty());
    EXPECT_TRUE(store->FilesNamed("screw.step").empty());
    EXPECT_FALSE(fs::exists(work.LocalPath({"Parts", "screw.step"})));
}

TEST_F(DeletedFiles, AreListedWithWhoAndWhenAndTheirVersions)
{
    const FileRecord file = Import(*store, "screw.step", "one", {"Parts"});
    Import(*store, "screw.step", "two", {"Parts"});
    FileWork(OpenAs(kBert)).Delete(file.id);
    const auto deleted = store->DeletedFiles();
    ASSERT_EQ(deleted.size(), 1u);
    EXPECT_EQ(deleted[0].file.id, file.id);
    EXPECT_EQ(deleted[0].file.name, "screw.step");
    EXPECT_EQ(deleted[0].file.latestVersion, 2);
    EXPECT_EQ(store->PathOfFile(deleted[0].file), (VaultPath{"Parts", "screw.step"}));
    EXPECT_EQ(deleted[0].deletedBy, kBert);
    EXPECT_EQ(deleted[0].deletedAt, "2026-11-21T01:40:05Z");
    ASSERT_EQ(store->Versions(file.id).size(), 2u);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file.id, 1))), "one");
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file.id, 2))), "two");
}

TEST_F(DeletedFiles, AreListedByFolderLatestFirst)
{
    const FileRecord first = Import(*store, "a.step", "a", {"A"});
    const FileRecord second = Import(*store, "b.step", "b", {"B"});
    const FileRecord third = Import(*store, "c.step", "c", {"A"});
    for (const FileRecord& file : {first, second, third}) {
        work.Delete(file.id);
    }
    EXPECT_EQ(Listed(), (std::vector<int32_t>{third.id, second.id, first.id}));
    EXPECT_EQ(Listed(first.folder), (std::vector<int32_t>{third.id, first.id}));
    EXPECT_TRUE(Listed(kRootFolder).empty());
}

TEST_F(DeletedFiles, LeaveTheirNameToANewFileWithANewId)
{
    const FileRecord old = Import(*store, "screw.step", "old");
    work.Delete(old.id);
    const FileRecord anew = Import(*store, "screw.step", "new");
    EXPECT_NE(anew.id, old.id);
    EXPECT_EQ(anew.latestVersion, 1);
    EXPECT_EQ(BytesOf(work.LocalPathOf(anew)), "new");
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(old.id, 1))), "old");
}

TEST_F(DeletedFiles, OfOneNameAreKeptSideBySideAndTheLastIsFoundByItsPath)
{
    const FileRecord first = Import(*store, "screw.step", "first");
    work.Delete(first.id);
    const FileRecord second = Import(*store, "screw.step", "second");
    EXPECT_EQ(store->FindDeleted({"SCREW.step"})->file.id, first.id);
    work.Delete(second.id);
    EXPECT_EQ(store->FindDeleted({"screw.step"})->file.id, second.id);
    EXPECT_EQ(Listed().size(), 2u);
    EXPECT_FALSE(store->FindDeleted({"other.step"}));
    EXPECT_FALSE(store->FindDeleted({"none", "screw.step"}));
    EXPECT_FALSE(store->FindDeleted({}));
}

TEST_F(DeletedFiles, SayWhoDeletedThemWhenTheyAreAskedFor)
{
    const FileRecord file = Import(*store, "screw.step", "bytes", {"Parts"});
    work.Delete(file.id);
    EXPECT_EQ(CodeOf([&] { work.CheckOut(file.id); }), kErrorFileDeleted);
    EXPECT_EQ(CodeOf([&] { work.Delete(file.id); }), kErrorFileDeleted);
    EXPECT_EQ(CodeOf([&] { store->Revise(file.id); }), kErrorFileDeleted);
    EXPECT_EQ(WordsOf([&] { store->RequireFile(file.id); }),
              "'\\Parts\\screw.step' was deleted by anna at 2026-11-21T01:40:05Z.");
}

TEST_F(DeletedFiles, ComeBackWithTheirIdTheirVersionsAndTheirLocalCopy)
{
    const FileRecord file = Import(*store, "screw.step", "one", {"Parts"});
    Import(*store, "screw.step", "two", {"Parts"});
    work.Delete(file.id);
    EXPECT_EQ(work.Restore(file.id).id, file.id);
    EXPECT_EQ(store->FindFile({"Parts", "screw.step"})->latestVersion, 2);
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "two");
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(file)));
    EXPECT_TRUE(store->DeletedFiles().empty());
}

TEST_F(DeletedFiles, DoNotComeBackWhereTheirNameWasTakenSince)
{
    const FileRecord file = Import(*store, "screw.step", "old");
    work.Delete(file.id);
    Import(*store, "screw.step", "new");
    EXPECT_EQ(CodeOf([&] { work.Restore(file.id); }), kErrorNameAlreadyExists);
    EXPECT_EQ(Listed(), std::vector<int32_t>{file.id});
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "new");
}

TEST_F(DeletedFiles, OnlyThoseComeBackOrGoForGood)
{
    const FileRecord file = Import(*store, "screw.step", "bytes");
    EXPECT_EQ(CodeOf([&] { work.Restore(file.id); }), kErrorNameAlreadyExists);
    EXPECT_EQ(CodeOf([&] { store->PurgeFile(file.id); }), kErrorNameAlreadyExists);
    EXPECT_EQ(CodeOf([&] { work.Restore(99); }), kErrorFileNotFound);
    EXPECT_EQ(WordsOf([&] { store->PurgeFile(99); }), "There is no deleted file with the id 99.");
    EXPECT_TRUE(store->FileById(file.id));
}

TEST_F(DeletedFiles, GoForGoodWithBytesThatNobodyShares)
{
    const FileRecord file = Import(*store, "a.step", "shared");
    Import(*store, "a.step", "own");
    const FileRecord other = Import(*store, "b.step", "shared");
    const fs::path shared = store->ContentPath(*store->Version(file.id, 1));
    const fs::path own = store->ContentPath(*store->Version(file.id, 2));
    work.Delete(file.id);
    EXPECT_TRUE(fs::exists(own));
    store->PurgeFile(file.id);
    EXPECT_FALSE(fs::exists(own));
    EXPECT_EQ(BytesOf(shared), "shared");
    EXPECT_TRUE(store->DeletedFiles().empty());
    EXPECT_EQ(CodeOf([&] { store->RequireFile(file.id); }), kErrorFileNotFound);
    EXPECT_EQ(store->FileById(other.id)->latestVersion, 1);
    store->Verify();
}

TEST_F(DeletedFiles, NeverGiveTheirIdAway)
{
    const FileRecord file = Import(*store, "screw.step", "bytes");
    work.Delete(file.id);
    store->PurgeFile(file.id);
    EXPECT_GT(Import(*store, "screw.step", "bytes").id, file.id);
}

TEST_F(DeletedFiles, ThatAreCheckedOutAreRefused)
{
    const FileRecord file = Import(*store, "screw.step", "bytes");
    work.CheckOut(file.id);
    EXPECT_EQ(CodeOf([&] { work.Delete(file.id); }), kErrorFileIsLocked);
    EXPECT_EQ(CodeOf([&] { FileWork(OpenAs(kBert)).Delete(file.id); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(CodeOf([&] { FileWork(OpenAs({"anna", "laptop"})).Delete(file.id); }), kErrorLockedOnOtherComputer);
    EXPECT_TRUE(fs::exists(work.LocalPathOf(file)));
}

TEST_F(DeletedFiles, AreProvedLikeAllOthers)
{
    const FileRecord file = Import(*store, "screw.step", "whole", {"Parts"});
    const fs::path content = store->ContentPath(*store->Version(file.id, 1));
    work.Delete(file.id);
    store->Verify();
    Disk({}).SetReadOnly(content, false);
    WriteBytes(content, "whOle");
    EXPECT_EQ(WordsOf([&] { store->Verify(); }), "The bytes of version 1 of '\\Parts\\screw.step' are damaged.");
}

TEST_F(DeletedFiles, LeaveTheLocalCopyOfTheFileThatTookTheirNameSince)
{
    const FileRecord file = Import(*store, "screw.step", "old");
    store->RemoveFile(file.id);
    Import(*OpenAs(kBert), "screw.step", "new");
    store->WhereNoFileIs({"screw.step"}, [&] { ADD_FAILURE() << "a file is there"; });
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "new");
}

} // namespace

} // namespace tv::local
