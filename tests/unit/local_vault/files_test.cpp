#include "disk_world.h"

#include "vault/error_table.h"

#include <fstream>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class VaultFilesOnDisk : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};

    FileRecord Now(const FileRecord& file) { return *store->FileById(file.id); }
    /// Adds a file that stands in the local view, as a run does with its outputs.
    FileRecord AddOutput(const VaultPath& folder, std::string_view name, std::string_view bytes)
    {
        const fs::path place = work.LocalPath(folder) / PathOf(name);
        fs::create_directories(place.parent_path());
        WriteBytes(place, bytes);
        return work.Add(place, store->MakeFolder(folder));
    }
};

TEST_F(VaultFilesOnDisk, AVaultCanBeMadeOnceInAFolder)
{
    EXPECT_EQ(CodeOf([&] { Make(); }), kErrorNameAlreadyExists);
    EXPECT_EQ(OpenAs(kAnna)->Name(), "Bench");
}

TEST_F(VaultFilesOnDisk, AFolderWithoutAVaultCannotBeOpened)
{
    EXPECT_EQ(CodeOf([&] { VaultStore::Open(Folder("nothing")); }), kErrorDatabaseAccess);
}

TEST_F(VaultFilesOnDisk, AVaultOfALaterProgramIsRefused)
{
    Database(Root() / ".quellor" / "vault.db", false, Disk({})).Script("PRAGMA user_version = 99");
    EXPECT_EQ(CodeOf([&] { OpenAs(kAnna); }), kErrorVersionMismatch);
}

TEST_F(VaultFilesOnDisk, AnImportedFileIsVersionOneAndReadOnlyOnTheDisk)
{
    const FileRecord file = Import(*store, "screw.step", "bytes", {"Parts"});
    EXPECT_EQ(file.latestVersion, 1);
    EXPECT_FALSE(file.checkOut);
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "bytes");
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(file)));
    EXPECT_EQ(work.LocalPathOf(file), Root() / "Parts" / "screw.step");
}

TEST_F(VaultFilesOnDisk, AnImportWhoseLocalCopyCanNotBeWrittenSaysThatTheVersionIsThere)
{
    StoreOptions options = OptionsOf(kAnna);
    options.beforeWrite = [count = 0](std::string_view step) mutable {
        if (step == "write bytes" && ++count == 2) {
            Fail(kErrorDiskFull, "The disk is full.");
        }
    };
    const auto annas = VaultStore::Open(Root(), options);
    const fs::path from = Write("from/screw.step", "bytes");
    EXPECT_EQ(
        WordsOf([&] { FileWork(annas).Import(from, {"Parts"}, ""); }),
        "'\\Parts\\screw.step' is in the vault as version 1, but its local copy isn't up to date: The disk is full.");
    const auto file = store->FindFile({"Parts", "screw.step"});
    ASSERT_TRUE(file);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file->id, 1))), "bytes");
    EXPECT_EQ(BytesOf(work.Fetch(*file, 0)), "bytes");
}

TEST_F(VaultFilesOnDisk, ImportingAgainMakesANewVersionOfTheSameFile)
{
    const FileRecord first = Import(*store, "screw.step", "one");
    const FileRecord second = Import(*store, "screw.step", "two");
    EXPECT_EQ(second.id, first.id);
    EXPECT_EQ(second.latestVersion, 2);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(first.id, 1))), "one");
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(first.id, 2))), "two");
    EXPECT_EQ(BytesOf(work.LocalPathOf(second)), "two");
}

TEST_F(VaultFilesOnDisk, NamesAreFoundWhateverTheirCase)
{
    const FileRecord file = Import(*store, "Größe.step", "bytes", {"Parts"});
    EXPECT_EQ(store->FindFile({"PARTS", "GRÖßE.STEP"})->id, file.id);
    EXPECT_FALSE(store->FindFile({"Parts", "other.step"}));
    EXPECT_FALSE(store->FindFile({}));
}

TEST_F(VaultFilesOnDisk, AFolderIsMadeOnceWithThoseAboveIt)
{
    const FolderRecord first = store->MakeFolder({"A", "B"});
    EXPECT_EQ(store->MakeFolder({"a", "b"}).id, first.id);
    EXPECT_EQ(store->PathOfFolder(first.id), (VaultPath{"A", "B"}));
    EXPECT_EQ(store->SubFolders(kRootFolder).size(), 1u);
}

TEST_F(VaultFilesOnDisk, AFileIsNoFolder)
{
    Import(*store, "thing", "bytes");
    EXPECT_EQ(CodeOf([&] { store->MakeFolder({"thing", "below"}); }), kErrorNameAlreadyExists);
    store->MakeFolder({"place"});
    EXPECT_EQ(CodeOf([&] { Import(*store, "place", "bytes"); }), kErrorNameAlreadyExists);
}

TEST_F(VaultFilesOnDisk, AnAddedFileIsCheckedOutUntilItsCheckInAndThenStaysVersionOne)
{
    const FileRecord added = AddOutput({"Out"}, "screw.stl", "solid");
    EXPECT_EQ(added.latestVersion, 1);
    ASSERT_TRUE(added.checkOut);
    EXPECT_EQ(added.checkOut->holder, kAnna);
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{added.id}, "done")), std::vector<Result>{0});
    EXPECT_EQ(Now(added).latestVersion, 1);
    EXPECT_FALSE(Now(added).checkOut);
    EXPECT_EQ(store->Version(added.id, 1)->comment, "done");
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(added)));
}

TEST_F(VaultFilesOnDisk, WhatIsWrittenBetweenAddingAndTheFirstCheckInBelongsToVersionOne)
{
    const FileRecord added = AddOutput({"Out"}, "screw.stl", "draft");
    WriteBytes(work.LocalPathOf(added), "final");
    work.CheckIn(std::vector{added.id}, "done");
    EXPECT_EQ(Now(added).latestVersion, 1);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(added.id, 1))), "final");
    store->Verify();
}

TEST_F(VaultFilesOnDisk, AddingANameThatIsThereIsRefused)
{
    Import(*store, "screw.stl", "bytes");
    EXPECT_EQ(CodeOf([&] { AddOutput({}, "SCREW.stl", "other"); }), kErrorNameAlreadyExists);
}

TEST_F(VaultFilesOnDisk, ACheckOutMakesTheLocalCopyTheLatestAndWritable)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    Import(*store, "screw.step", "two");
    work.Fetch(Now(file), 1);
    ASSERT_EQ(BytesOf(work.LocalPathOf(file)), "one");
    work.CheckOut(file.id);
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "two");
    EXPECT_FALSE(Disk::IsReadOnly(work.LocalPathOf(file)));
}

TEST_F(VaultFilesOnDisk, ACheckInStoresTheBytesAsTheNextVersion)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    work.CheckOut(file.id);
    WriteBytes(work.LocalPathOf(file), "two!");
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id}, "changed")), std::vector<Result>{0});
    EXPECT_EQ(Now(file).latestVersion, 2);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file.id, 2))), "two!");
    EXPECT_EQ(store->Version(file.id, 2)->comment, "changed");
    EXPECT_EQ(store->Version(file.id, 2)->user, "anna");
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(file)));
}

TEST_F(VaultFilesOnDisk, AFileWrittenAgainWithTheSameBytesIsANewVersion)
{
    const FileRecord file = Import(*store, "screw.step", "same");
    work.CheckOut(file.id);
    WriteBytes(work.LocalPathOf(file), "same");
    fs::last_write_time(work.LocalPathOf(file), fs::file_time_type::clock::now() + std::chrono::seconds(2));
    work.CheckIn(std::vector{file.id}, "again");
    EXPECT_EQ(Now(file).latestVersion, 2);
    store->Verify();
}

TEST_F(VaultFilesOnDisk, AFileThatNobodyWroteKeepsItsVersion)
{
    const FileRecord file = Import(*store, "screw.step", "same");
    work.CheckOut(file.id);
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id}, "nothing")), std::vector<Result>{0});
    EXPECT_EQ(Now(file).latestVersion, 1);
    EXPECT_FALSE(Now(file).checkOut);
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(file)));
}

TEST_F(VaultFilesOnDisk, AFileCheckedOutByAnotherCanNeitherBeCheckedOutNorInNorDeletedNorImported)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    FileWork(OpenAs(kBert)).CheckOut(file.id);
    EXPECT_EQ(CodeOf([&] { work.CheckOut(file.id); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id}, "")), std::vector<Result>{kErrorNotLockedByYou});
    EXPECT_EQ(CodeOf([&] { work.Delete(file.id); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(CodeOf([&] { Import(*store, "screw.step", "two"); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(Now(file).latestVersion, 1);
    EXPECT_EQ(Now(file).checkOut->holder, kBert);
}

TEST_F(VaultFilesOnDisk, TheSameUserOnAnotherMachineIsToldSo)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    FileWork(OpenAs({"anna", "laptop"})).CheckOut(file.id);
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id}, "")), std::vector<Result>{kErrorLockedOnOtherComputer});
}

TEST_F(VaultFilesOnDisk, AFileThatIsNotCheckedOutCannotBeCheckedIn)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id}, "")), std::vector<Result>{kErrorNotLockedByYou});
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{99}, "")), std::vector<Result>{kErrorFileNotFound});
}

TEST_F(VaultFilesOnDisk, WhatCanBeCheckedInIsWhateverStandsAgainstTheOthers)
{
    const FileRecord missing = AddOutput({}, "a.stl", "a");
    const FileRecord good = AddOutput({}, "b.stl", "b");
    fs::remove(work.LocalPathOf(missing));
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{missing.id, good.id}, "")),
              (std::vector<Result>{kErrorFileNotFound, 0}));
    EXPECT_FALSE(Now(good).checkOut);
    EXPECT_TRUE(Now(missing).checkOut);
}

TEST_F(VaultFilesOnDisk, AFileNamedTwiceInOneCheckInIsCheckedInOnce)
{
    const FileRecord file = AddOutput({}, "a.stl", "a");
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{file.id, file.id}, "")), (std::vector<Result>{0, 0}));
    EXPECT_EQ(Now(file).latestVersion, 1);
}

TEST_F(VaultFilesOnDisk, AMissingOrSpoiltCopyIsFetchedAgain)
{
    const FileRecord file = Import(*store, "screw.step", "right");
    const fs::path place = work.LocalPathOf(file);
    Disk({}).SetReadOnly(place, false);
    WriteBytes(place, "wrong");
    work.Fetch(file, 0);
    EXPECT_EQ(BytesOf(place), "right");
    Disk({}).Remove(place);
    work.Fetch(file, 0);
    EXPECT_EQ(BytesOf(place), "right");
    EXPECT_TRUE(Disk::IsReadOnly(place));
}

TEST_F(VaultFilesOnDisk, FetchingLeavesACheckedOutCopyAlone)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    work.CheckOut(file.id);
    WriteBytes(work.LocalPathOf(file), "being written");
    work.Fetch(Now(file), 0);
    EXPECT_EQ(BytesOf(work.LocalPathOf(file)), "being written");
    EXPECT_FALSE(Disk::IsReadOnly(work.LocalPathOf(file)));
}

TEST_F(VaultFilesOnDisk, ReferencesAreFetchedAsBuiltOrLatestWhateverTheirDepthAndThoughTheyGoInCircles)
{
    const FileRecord bolt = Import(*store, "bolt.tvnprt", "old bolt");
    const FileRecord frame = Import(*store, "frame.tvnasm", "frame");
    const FileRecord machine = Import(*store, "machine.tvnasm", "machine");
    store->AddReferences(frame.id, std::vector<ReferenceRecord>{{bolt.id, 1}});
    store->AddReferences(machine.id, std::vector<ReferenceRecord>{{frame.id, 1}});
    store->AddReferences(bolt.id, std::vector<ReferenceRecord>{{machine.id, 1}});
    Import(*store, "bolt.tvnprt", "new bolt");
    for (const FileRecord& file : {bolt, frame, machine}) {
        Disk({}).Remove(work.LocalPathOf(file));
    }
    work.FetchWithReferences(Now(machine), 0, ReferenceRule::AsBuilt);
    EXPECT_EQ(BytesOf(work.LocalPathOf(frame)), "frame");
    EXPECT_EQ(BytesOf(work.LocalPathOf(bolt)), "old bolt");
    work.FetchWithReferences(Now(machine), 0, ReferenceRule::Latest);
    EXPECT_EQ(BytesOf(work.LocalPathOf(bolt)), "new bolt");
}

TEST_F(VaultFilesOnDisk, AnyVersionCanBeExported)
{
    const FileRecord file = Import(*store, "screw.step", "one");
    Import(*store, "screw.step", "two");
    work.Export(Now(file), 1, Folder("out/one.step"));
    work.Export(Now(file), 0, Folder("out/latest.step"));
    EXPECT_EQ(BytesOf(Folder("out/one.step")), "one");
    EXPECT_EQ(BytesOf(Folder("out/latest.step")), "two");
    EXPECT_EQ(CodeOf([&] { work.Export(Now(file), 7, Folder("out/none.step")); }), kErrorFileNotFound);
}

TEST_F(VaultFilesOnDisk, DamagedBytesAreFoundAndNamed)
{
    const FileRecord file = Import(*store, "screw.step", "whole");
    const fs::path content = store->ContentPath(*store->Version(file.id, 1));
    Disk({}).SetReadOnly(content, false);
    WriteBytes(content, "whOle");
    EXPECT_EQ(CodeOf([&] { store->Verify(); }), kErrorInvalidFile);
}

} // namespace

} // namespace tv::local
