// Check-outs by user and machine, and how they are given back.
#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class CheckOuts : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord screw = Import(*store, "screw.step", "one");
    fs::path place = work.LocalPathOf(screw);

    FileRecord Now() { return *store->FileById(screw.id); }
    FileRecord AddOutput(std::string_view name, std::string_view bytes)
    {
        WriteBytes(work.LocalPath({std::string(name)}), bytes);
        return work.Add(work.LocalPath({std::string(name)}), *store->FolderById(kRootFolder));
    }
};

TEST_F(CheckOuts, BelongToUserAndMachineTogether)
{
    work.CheckOut(screw.id);
    EXPECT_EQ(Now().checkOut->holder, (Session{"anna", "bench-1"}));
    EXPECT_EQ(CodeOf([&] { work.CheckOut(screw.id); }), kErrorFileIsLocked);
    EXPECT_EQ(CodeOf([&] { FileWork(OpenAs({"anna", "laptop"})).CheckOut(screw.id); }), kErrorLockedOnOtherComputer);
    EXPECT_EQ(CodeOf([&] { FileWork(OpenAs({"bert", "bench-1"})).CheckOut(screw.id); }), kErrorLockedByAnotherUser);
}

TEST_F(CheckOuts, AreEndedOnTheMachineWhereTheyBegan)
{
    work.CheckOut(screw.id);
    WriteBytes(place, "being written");
    FileWork laptop(OpenAs({"anna", "laptop"}));
    EXPECT_EQ(CodesOf(laptop.CheckIn(std::vector{screw.id}, "")), std::vector<Result>{kErrorLockedOnOtherComputer});
    EXPECT_EQ(CodeOf([&] { laptop.UndoCheckOut(screw.id); }), kErrorLockedOnOtherComputer);
    EXPECT_EQ(laptop.CheckIn(std::vector{screw.id}, "")[0].words,
              "'screw.step' is checked out by anna on bench-1 since 2026-11-21T01:40:05Z.");
    EXPECT_EQ(BytesOf(place), "being written");
    EXPECT_EQ(CodesOf(work.CheckIn(std::vector{screw.id}, "")), std::vector<Result>{0});
}

TEST_F(CheckOuts, ThatFailLeaveTheCopyOfTheHolderWritable)
{
    work.CheckOut(screw.id);
    EXPECT_EQ(CodeOf([&] { FileWork(OpenAs(kBert)).CheckOut(screw.id); }), kErrorLockedByAnotherUser);
    EXPECT_FALSE(Disk::IsReadOnly(place));
}

TEST_F(CheckOuts, KeepTheirCopyFromBeingFetchedOverByOthers)
{
    work.CheckOut(screw.id);
    WriteBytes(place, "being written");
    FileWork(OpenAs(kBert)).Fetch(Now(), 1);
    EXPECT_EQ(BytesOf(place), "being written");
    EXPECT_FALSE(Disk::IsReadOnly(place));
}

TEST_F(CheckOuts, WhoseCopyWentGetItBackByAFetch)
{
    work.CheckOut(screw.id);
    Disk({}).Remove(place);
    FileWork(OpenAs(kBert)).Fetch(Now(), 0);
    EXPECT_EQ(BytesOf(place), "one");
    EXPECT_FALSE(Disk::IsReadOnly(place));
}

TEST_F(CheckOuts, TakeTheVersionThatCameMeanwhile)
{
    // Another program makes a version while the local copy is being prepared.
    bool came = false;
    StoreOptions options = OptionsOf(kBert);
    options.beforeWrite = [&](std::string_view step) {
        if (step == "write bytes" && !came) {
            came = true;
            Import(*store, "screw.step", "two");
        }
    };
    Disk({}).Remove(place);
    FileWork(VaultStore::Open(Root(), options)).CheckOut(screw.id);
    EXPECT_TRUE(came);
    EXPECT_EQ(BytesOf(place), "two");
    EXPECT_EQ(Now().checkOut->holder, kBert);
}

TEST_F(CheckOuts, GivenBackLeaveTheLatestVersionReadOnly)
{
    work.CheckOut(screw.id);
    WriteBytes(place, "spoilt");
    const UndoneFile undone = work.UndoCheckOut(screw.id);
    EXPECT_FALSE(undone.leftVault);
    EXPECT_EQ(undone.file.id, screw.id);
    EXPECT_EQ(BytesOf(place), "one");
    EXPECT_TRUE(Disk::IsReadOnly(place));
    EXPECT_FALSE(Now().checkOut);
    EXPECT_EQ(Now().latestVersion, 1);
}

TEST_F(CheckOuts, GivenBackUntouchedLeaveTheCopyReadOnly)
{
    work.CheckOut(screw.id);
    work.UndoCheckOut(screw.id);
    EXPECT_EQ(BytesOf(place), "one");
    EXPECT_TRUE(Disk::IsReadOnly(place));
}

TEST_F(CheckOuts, GivenBackBringAMissingCopyBack)
{
    work.CheckOut(screw.id);
    fs::remove(place);
    work.UndoCheckOut(screw.id);
    EXPECT_EQ(BytesOf(place), "one");
}

TEST_F(CheckOuts, GivenBackDropWhatWasWrittenIntoCardAndReferences)
{
    const int32_t number = store->MakeCardVariable("Number");
    const FileRecord bolt = Import(*store, "bolt.step", "bolt");
    work.CheckOut(screw.id);
    const CardWrite card{screw.id, number, {}, StoredValue::FromText("A-2")};
    store->WriteCards({&card, 1});
    store->AddReferences(screw.id, std::vector<ReferenceRecord>{{bolt.id, 1}});
    work.UndoCheckOut(screw.id);
    Import(*store, "screw.step", "two");
    EXPECT_TRUE(store->CardValues(screw.id, 2).empty());
    EXPECT_TRUE(store->References(screw.id, 2).empty());
}

TEST_F(CheckOuts, OfAFileNeverCheckedInTakeItOutOfTheVaultWithItsCopyAndItsBytes)
{
    const FileRecord added = AddOutput("screw.stl", "solid");
    const fs::path content = store->ContentPath(*store->Version(added.id, 1));
    const UndoneFile undone = work.UndoCheckOut(added.id);
    EXPECT_TRUE(undone.leftVault);
    EXPECT_EQ(undone.file.name, "screw.stl");
    EXPECT_EQ(CodeOf([&] { store->RequireFile(added.id); }), kErrorFileNotFound);
    EXPECT_TRUE(store->DeletedFiles().empty());
    EXPECT_FALSE(fs::exists(work.LocalPath({"screw.stl"})));
    EXPECT_FALSE(fs::exists(content));
    EXPECT_GT(AddOutput("screw.stl", "solid").id, added.id);
}

TEST_F(CheckOuts, OfAFileNeverCheckedInLeaveBytesThatAnotherShares)
{
    const FileRecord added = AddOutput("copy.step", "one");
    work.UndoCheckOut(added.id);
    store->Verify();
}

TEST_F(CheckOuts, AreGivenBackByTheirHolderOnly)
{
    EXPECT_EQ(CodeOf([&] { work.UndoCheckOut(screw.id); }), kErrorNotLockedByYou);
    FileWork(OpenAs(kBert)).CheckOut(screw.id);
    WriteBytes(place, "bert's");
    EXPECT_EQ(CodeOf([&] { work.UndoCheckOut(screw.id); }), kErrorNotLockedByYou);
    EXPECT_EQ(CodeOf([&] { work.UndoCheckOut(99); }), kErrorFileNotFound);
    EXPECT_EQ(BytesOf(place), "bert's");
}

TEST_F(CheckOuts, ManyAreEndedInOneTransaction)
{
    std::vector<int32_t> ids;
    for (int i = 0; i < 5; ++i) {
        ids.push_back(AddOutput("part " + std::to_string(i) + ".stl", "solid " + std::to_string(i)).id);
    }
    int commits = 0;
    StoreOptions options = OptionsOf(kAnna);
    options.beforeWrite = [&](std::string_view step) { commits += step == "commit" ? 1 : 0; };
    FileWork counting(VaultStore::Open(Root(), options));
    EXPECT_EQ(CodesOf(counting.CheckIn(ids, "all")), (std::vector<Result>{0, 0, 0, 0, 0}));
    EXPECT_EQ(commits, 1);
}

TEST_F(CheckOuts, ThatAnotherEndedMeanwhileDoNotKeepTheOthersFromEnding)
{
    const FileRecord first = AddOutput("a.stl", "a");
    const FileRecord second = AddOutput("b.stl", "b");
    WriteBytes(work.LocalPath({"b.stl"}), "b, longer");
    // The same user ends the first one from another window, while the second one's bytes are being copied.
    bool came = false;
    StoreOptions options = OptionsOf(kAnna);
    options.beforeWrite = [&](std::string_view step) {
        if (step == "write bytes" && !came) {
            came = true;
            work.CheckIn(std::vector{first.id}, "other window");
        }
    };
    FileWork other(VaultStore::Open(Root(), options));
    EXPECT_EQ(CodesOf(other.CheckIn(std::vector{first.id, second.id}, "this window")),
              (std::vector<Result>{kErrorNotLockedByYou, 0}));
    EXPECT_EQ(store->Version(first.id, 1)->comment, "other window");
    EXPECT_EQ(store->Version(second.id, 1)->comment, "this window");
}

class AddingMany : public CheckOuts
{
  protected:
    fs::path Output(std::string_view name, std::string_view bytes)
    {
        const fs::path path = Root() / "Out" / PathOf(name);
        fs::create_directories(path.parent_path());
        WriteBytes(path, bytes);
        return path;
    }
};

TEST_F(AddingMany, IsOneTransactionWithAnOutcomeForEach)
{
    const AddRequest requests[] = {{Output("a.stl", "a"), {"Out"}},
                                   {place, {}},
                                   {Folder("none.stl"), {"Out"}},
                                   {Output("b.stl", "b"), {"Out"}},
                                   {Output("a.stl", "a"), {"Out"}}};
    int commits = 0;
    StoreOptions options = OptionsOf(kAnna);
    options.beforeWrite = [&](std::string_view step) { commits += step == "commit" ? 1 : 0; };
    const auto added = FileWork(VaultStore::Open(Root(), options)).AddAll(requests);
    EXPECT_EQ(commits, 1);
    ASSERT_EQ(added.size(), 5u);
    EXPECT_EQ(added[0].outcome.code, 0);
    EXPECT_EQ(added[1].outcome.code, kErrorNameAlreadyExists);
    EXPECT_EQ(added[1].outcome.words, "The vault has '\\screw.step' already.");
    EXPECT_EQ(added[2].outcome.code, kErrorIo);
    EXPECT_EQ(added[3].outcome.code, 0);
    EXPECT_EQ(added[4].outcome.code, kErrorNameAlreadyExists);
    EXPECT_EQ(store->FindFile({"Out", "a.stl"})->id, added[0].file->id);
    EXPECT_EQ(store->FindFile({"Out", "b.stl"})->id, added[3].file->id);
    EXPECT_FALSE(added[4].file);
}

TEST_F(AddingMany, LeavesNoCopiesOfWhatWasRefused)
{
    const AddRequest requests[] = {{Output("a.stl", "a"), {"Out"}}, {Output("a.stl", "a"), {"Out"}}};
    work.AddAll(requests);
    EXPECT_TRUE(fs::is_empty(Root() / ".quellor" / "temp"));
}

TEST_F(AddingMany, DoesNotTouchTheCopyOfAFileWhoseNameItWanted)
{
    const AddRequest request{Write("outside/screw.step", "other bytes"), {}};
    EXPECT_EQ(work.AddAll({&request, 1})[0].outcome.code, kErrorNameAlreadyExists);
    EXPECT_EQ(BytesOf(place), "one");
}

TEST_F(AddingMany, DoesNotTouchTheCopyOfAFileThatTookTheNameMeanwhile)
{
    bool came = false;
    StoreOptions options = OptionsOf(kBert);
    options.beforeWrite = [&](std::string_view step) {
        if (step == "write bytes" && !came) {
            came = true;
            Import(*store, "bolt.step", "anna's");
        }
    };
    const AddRequest request{Write("elsewhere/bolt.step", "bert's"), {}};
    EXPECT_EQ(FileWork(VaultStore::Open(Root(), options)).AddAll({&request, 1})[0].outcome.code,
              kErrorNameAlreadyExists);
    EXPECT_TRUE(came);
    EXPECT_EQ(BytesOf(work.LocalPath({"bolt.step"})), "anna's");
}

TEST_F(AddingMany, OfNothingDoesNothing)
{
    EXPECT_TRUE(work.AddAll({}).empty());
}

} // namespace

} // namespace tv::local
