// The utilities that work on many files at once, but for the cards.
#include "vault_worlds.h"

namespace tv {
namespace {

template <typename World> class VaultBatches : public VaultContract<World>
{
  protected:
    Result Queue(IVyxBatchAdd& add, std::u16string_view place, std::u16string_view folder)
    {
        const std::u16string to = folder.empty() ? this->world.Root() : this->world.PathOf(folder);
        return add.AddFileFromPathToPath(this->world.PathOf(place).c_str(), to.c_str(), 0, 0, 0);
    }

    /// Adds one file that the macro wrote; returns its id and the id of its folder.
    VyxSelectionPair AddWritten(std::u16string_view place, std::u16string_view folder)
    {
        this->world.WriteOnDisk(place);
        const auto add = this->template Make<IVyxBatchAdd>(16);
        SafeArray results;
        int32_t count = 0;
        EXPECT_EQ(Queue(*add.get(), place, folder), 0);
        EXPECT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
        EXPECT_EQ(count, 1);
        const SafeArrayView<VyxAddResult> view(results.get());
        EXPECT_EQ(view.size(), 1u);
        EXPECT_EQ(view[0].result, 0);
        return {view[0].fileId, view[0].folderId};
    }

    Result Get(const VyxSelectionPair& pair, int32_t version, int32_t flags)
    {
        const auto get = this->template Make<IVyxBatchGet>(12);
        EXPECT_EQ(get->AddSelection(this->world.Get(), pair.fileId, pair.folderId, Variant::FromInt(version).get()), 0);
        EXPECT_EQ(get->CreateTree(0, flags), 0);
        return get->GetFiles(0, 0);
    }
};

TYPED_TEST_SUITE(VaultBatches, Vaults);

TYPED_TEST(VaultBatches, FetchedFilesStandOnTheDiskAfterwards)
{
    this->world.AddFile(u"Sub\\a.step", 2);
    const VyxSelectionPair pair = this->PairOf(u"Sub\\a.step");
    for (const int32_t version : {0, 1, 2}) {
        this->world.RemoveFromDisk(u"Sub\\a.step");
        EXPECT_EQ(this->Get(pair, version, 0), 0) << version;
        EXPECT_TRUE(this->world.StandsOnDisk(u"Sub\\a.step")) << version;
    }
}

TYPED_TEST(VaultBatches, AFileComesWithWhatItRefersTo)
{
    this->world.AddFile(u"top.tvnasm");
    this->world.AddFile(u"Sub\\part.tvnprt");
    this->world.AddFile(u"Sub\\deep.tvnprt");
    this->world.Refer(u"top.tvnasm", u"Sub\\part.tvnprt");
    this->world.Refer(u"Sub\\part.tvnprt", u"Sub\\deep.tvnprt");
    for (const int32_t flags : {0, 1}) {
        this->world.RemoveFromDisk(u"Sub\\part.tvnprt");
        this->world.RemoveFromDisk(u"Sub\\deep.tvnprt");
        EXPECT_EQ(this->Get(this->PairOf(u"top.tvnasm"), 0, flags), 0);
        EXPECT_TRUE(this->world.StandsOnDisk(u"Sub\\part.tvnprt")) << flags;
        EXPECT_TRUE(this->world.StandsOnDisk(u"Sub\\deep.tvnprt")) << flags;
    }
}

TYPED_TEST(VaultBatches, NothingSelectedIsNothingFetched)
{
    const auto get = this->template Make<IVyxBatchGet>(12);
    EXPECT_EQ(get->CreateTree(0, 1), 0);
    EXPECT_EQ(get->GetFiles(0, 0), 0);
}

TYPED_TEST(VaultBatches, AFileThatTheVaultDoesntHoldCantBeSelected)
{
    this->world.AddFile(u"a.step");
    const VyxSelectionPair pair = this->PairOf(u"a.step");
    const auto get = this->template Make<IVyxBatchGet>(12);
    const Variant latest = Variant::FromInt(0);
    EXPECT_EQ(get->AddSelection(this->world.Get(), 4711, pair.folderId, latest.get()), this->kFileNotFound);
    EXPECT_EQ(get->AddSelection(this->world.Get(), pair.fileId, 4711, latest.get()), this->kFolderNotFound);
}

TYPED_TEST(VaultBatches, TheLatestVersionsComeForTheFilesThatAreThere)
{
    this->world.AddFile(u"a.step", 3);
    this->world.AddFile(u"b.step", 1);
    const auto list = this->template Make<IVyxBatchList>(13);
    const auto add = [&](const std::u16string& path) { return list->AddFile(Variant::FromText(path).get(), 0, 0, 0); };
    EXPECT_EQ(add(this->world.PathOf(u"b.step")), 0);
    EXPECT_EQ(add(this->world.PathOf(u"gone.step")), 0);
    EXPECT_EQ(add(this->world.Outside()), 0);
    EXPECT_EQ(add(this->world.PathOf(u"A.STEP")), 0);
    SafeArray created;
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"", created.put()), 0);
    EXPECT_EQ(list->GetFileList(files.put()), 0);
    const SafeArrayView<VyxListFile> view(files.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(view[0].fileId, this->PairOf(u"b.step").fileId);
    EXPECT_EQ(view[0].latestVersion, 1);
    EXPECT_EQ(view[1].fileId, this->PairOf(u"a.step").fileId);
    EXPECT_EQ(view[1].latestVersion, 3);
}

TYPED_TEST(VaultBatches, AFileAskedForTwiceIsToldTwice)
{
    this->world.AddFile(u"a.step");
    const auto list = this->template Make<IVyxBatchList>(13);
    const Variant path = Variant::FromText(this->world.PathOf(u"a.step"));
    EXPECT_EQ(list->AddFile(path.get(), 0, 0, 0), 0);
    EXPECT_EQ(list->AddFile(path.get(), 0, 0, 0), 0);
    SafeArray created;
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"", created.put()), 0);
    EXPECT_EQ(list->GetFileList(files.put()), 0);
    EXPECT_EQ(SafeArrayView<VyxListFile>(files.get()).size(), 2u);
}

TYPED_TEST(VaultBatches, AListOfNoFilesIsEmpty)
{
    const auto list = this->template Make<IVyxBatchList>(13);
    SafeArray created;
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"", created.put()), 0);
    EXPECT_EQ(list->GetFileList(files.put()), 0);
    EXPECT_EQ(SafeArrayView<VyxListFile>(files.get()).size(), 0u);
}

TYPED_TEST(VaultBatches, AnAddedFileIsCheckedOutAtVersionOneUntilItsCheckIn)
{
    this->world.AddFolder(u"Out");
    const VyxSelectionPair added = this->AddWritten(u"Out\\a.stl", u"Out");
    EXPECT_EQ(added.fileId, this->PairOf(u"Out\\a.stl").fileId);
    EXPECT_EQ(added.folderId, this->PairOf(u"Out\\a.stl").folderId);
    EXPECT_TRUE(this->IsLocked(u"Out\\a.stl"));
    EXPECT_EQ(this->VersionOf(u"Out\\a.stl"), 1);
    EXPECT_EQ(this->CheckIn({added}), 0);
    EXPECT_FALSE(this->IsLocked(u"Out\\a.stl"));
    EXPECT_EQ(this->VersionOf(u"Out\\a.stl"), 1);
    EXPECT_EQ(this->world.CommentOf(u"Out\\a.stl"), u"Torvane Task Add-in");
}

TYPED_TEST(VaultBatches, FoldersThatTheVaultLacksAreMadeForAddedFiles)
{
    const VyxSelectionPair added = this->AddWritten(u"Out\\Deep\\a.stl", u"Out\\Deep");
    ComPtr<IVyxFolder> folder;
    ASSERT_EQ(this->world.Get()->GetFolderFromPath(this->world.PathOf(u"Out\\Deep").c_str(), folder.put()), 0);
    int32_t id = 0;
    EXPECT_EQ(folder->GetID(&id), 0);
    EXPECT_EQ(id, added.folderId);
}

TYPED_TEST(VaultBatches, EachAddedFileHasItsResultInOrder)
{
    this->world.AddFile(u"there.stl");
    this->world.WriteOnDisk(u"new.stl");
    const auto add = this->template Make<IVyxBatchAdd>(16);
    EXPECT_EQ(this->Queue(*add.get(), u"there.stl", u""), 0);
    EXPECT_EQ(this->Queue(*add.get(), u"new.stl", u""), 0);
    SafeArray results;
    int32_t count = 0;
    ASSERT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    EXPECT_EQ(count, 2);
    const SafeArrayView<VyxAddResult> view(results.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(view[0].result, static_cast<Result>(0x8004020Fu));
    EXPECT_LE(view[0].fileId, 0);
    EXPECT_EQ(TextOf(view[0].path), this->world.PathOf(u"there.stl"));
    EXPECT_EQ(view[1].result, 0);
    EXPECT_EQ(view[1].fileId, this->PairOf(u"new.stl").fileId);
    EXPECT_EQ(TextOf(view[1].path), this->world.PathOf(u"new.stl"));
}

TYPED_TEST(VaultBatches, AClosedFolderKeepsNoneOfTheOtherFilesFromBeingAdded)
{
    this->world.AddFolder(u"Closed");
    this->world.Close(u"Closed");
    this->world.WriteOnDisk(u"Closed\\a.stl");
    this->world.WriteOnDisk(u"b.stl");
    const auto add = this->template Make<IVyxBatchAdd>(16);
    EXPECT_EQ(this->Queue(*add.get(), u"Closed\\a.stl", u"Closed"), 0);
    EXPECT_EQ(this->Queue(*add.get(), u"b.stl", u""), 0);
    SafeArray results;
    int32_t count = 0;
    ASSERT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    const SafeArrayView<VyxAddResult> view(results.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(view[0].result, this->kPermissionDenied);
    EXPECT_EQ(TextOf(view[0].path), this->world.PathOf(u"Closed\\a.stl"));
    EXPECT_EQ(view[1].result, 0);
    EXPECT_FALSE(this->IsInVault(u"Closed\\a.stl"));
    EXPECT_TRUE(this->IsInVault(u"b.stl"));
}

TYPED_TEST(VaultBatches, AFolderOutsideOfTheVaultTakesNoFile)
{
    this->world.WriteOnDisk(u"a.stl");
    const auto add = this->template Make<IVyxBatchAdd>(16);
    EXPECT_EQ(add->AddFileFromPathToPath(this->world.PathOf(u"a.stl").c_str(), this->world.Outside().c_str(), 0, 0, 0),
              this->kFolderNotFound);
}

TYPED_TEST(VaultBatches, AFileThatIsNotOnTheDiskCantBeAdded)
{
    const auto add = this->template Make<IVyxBatchAdd>(16);
    EXPECT_EQ(this->Queue(*add.get(), u"gone.stl", u""), this->kFileNotFound);
}

TYPED_TEST(VaultBatches, NothingQueuedIsNothingAdded)
{
    const auto add = this->template Make<IVyxBatchAdd>(16);
    SafeArray results;
    int32_t count = 7;
    EXPECT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(SafeArrayView<VyxAddResult>(results.get()).size(), 0u);
}

TYPED_TEST(VaultBatches, WhatWasAddedIsNotAddedAgain)
{
    this->world.WriteOnDisk(u"a.stl");
    const auto add = this->template Make<IVyxBatchAdd>(16);
    EXPECT_EQ(this->Queue(*add.get(), u"a.stl", u""), 0);
    SafeArray results;
    int32_t count = 0;
    EXPECT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    EXPECT_EQ(count, 0);
}

TYPED_TEST(VaultBatches, ACheckInOfAWrittenFileMakesTheNextVersion)
{
    this->world.AddFile(u"a.stl", 2);
    ASSERT_EQ(this->Lock(u"a.stl"), 0);
    this->world.WriteOnDisk(u"a.stl");
    EXPECT_EQ(this->CheckIn({this->PairOf(u"a.stl")}, u"Third"), 0);
    EXPECT_EQ(this->VersionOf(u"a.stl"), 3);
    EXPECT_FALSE(this->IsLocked(u"a.stl"));
    EXPECT_EQ(this->world.CommentOf(u"a.stl"), u"Third");
}

TYPED_TEST(VaultBatches, AFileOfAnotherKeepsNoneOfTheOthersFromBeingCheckedIn)
{
    for (const char16_t* place : {u"a.stl", u"b.stl", u"c.stl"}) {
        this->world.AddFile(place);
    }
    ASSERT_EQ(this->Lock(u"a.stl"), 0);
    this->world.CheckOutByAnother(u"b.stl");
    ASSERT_EQ(this->Lock(u"c.stl"), 0);
    EXPECT_EQ(this->CheckIn({this->PairOf(u"a.stl"), this->PairOf(u"b.stl"), this->PairOf(u"c.stl")}),
              this->kNotLockedByYou);
    EXPECT_FALSE(this->IsLocked(u"a.stl"));
    EXPECT_TRUE(this->IsLocked(u"b.stl"));
    EXPECT_FALSE(this->IsLocked(u"c.stl"));
}

TYPED_TEST(VaultBatches, AFileThatNobodyCheckedOutCantBeCheckedIn)
{
    this->world.AddFile(u"a.stl");
    EXPECT_EQ(this->CheckIn({this->PairOf(u"a.stl")}), this->kNotLockedByYou);
    EXPECT_EQ(this->VersionOf(u"a.stl"), 1);
}

TYPED_TEST(VaultBatches, ACheckInKnowsFilesByTheirFolderToo)
{
    this->world.AddFile(u"a.stl");
    ASSERT_EQ(this->Lock(u"a.stl"), 0);
    const VyxSelectionPair pair = this->PairOf(u"a.stl");
    EXPECT_EQ(this->CheckIn({{4711, pair.folderId}}), this->kFileNotFound);
    EXPECT_EQ(this->CheckIn({{pair.fileId, 4711}}), this->kFolderNotFound);
    EXPECT_TRUE(this->IsLocked(u"a.stl"));
}

TYPED_TEST(VaultBatches, SelectionsOfACheckInAddUp)
{
    this->world.AddFile(u"a.stl");
    this->world.AddFile(u"b.stl");
    ASSERT_EQ(this->Lock(u"a.stl"), 0);
    ASSERT_EQ(this->Lock(u"b.stl"), 0);
    const auto unlock = this->template Make<IVyxBatchUnlock>(6);
    for (const char16_t* place : {u"a.stl", u"b.stl"}) {
        const VyxSelectionPair pair = this->PairOf(place);
        const SafeArray array = MakeRecordArray(std::span<const VyxSelectionPair>(&pair, 1));
        EXPECT_EQ(unlock->AddSelection(this->world.Get(), array.get()), 0);
    }
    VariantBool done = kVariantFalse;
    EXPECT_EQ(unlock->CreateTree(0, 1, 0, &done), 0);
    EXPECT_EQ(unlock->UnlockFiles(0, 0), 0);
    EXPECT_FALSE(this->IsLocked(u"a.stl"));
    EXPECT_FALSE(this->IsLocked(u"b.stl"));
}

TYPED_TEST(VaultBatches, AReferenceLeadsFromAnOutputToItsSource)
{
    this->world.AddFile(u"a.tvnprt");
    this->world.AddFile(u"a.stl");
    const auto references = this->template Make<IVyxBatchRefs>(8);
    const VyxSelectionPair source = this->PairOf(u"a.tvnprt");
    const SafeArray array = MakeRecordArray(std::span<const VyxSelectionPair>(&source, 1));
    EXPECT_EQ(references->AddReferences(this->PairOf(u"a.stl").fileId, array.get()), 0);
    EXPECT_TRUE(this->world.SourcesOf(u"a.stl").empty());
    int32_t pending = 0;
    ASSERT_EQ(references->CommitReferences(0, &pending), 0);
    if (pending != 0) {
        int32_t stillPending = 0;
        ASSERT_EQ(references->CommitReferences(pending, &stillPending), 0);
        EXPECT_EQ(stillPending, 0);
    }
    EXPECT_EQ(this->world.SourcesOf(u"a.stl"), std::vector<int32_t>{source.fileId});
    EXPECT_TRUE(this->world.SourcesOf(u"a.tvnprt").empty());
}

TYPED_TEST(VaultBatches, AReferenceNeedsBothItsFiles)
{
    this->world.AddFile(u"a.tvnprt");
    const auto references = this->template Make<IVyxBatchRefs>(8);
    const VyxSelectionPair source = this->PairOf(u"a.tvnprt");
    const VyxSelectionPair gone{4711, source.folderId};
    const SafeArray array = MakeRecordArray(std::span<const VyxSelectionPair>(&source, 1));
    const SafeArray arrayOfGone = MakeRecordArray(std::span<const VyxSelectionPair>(&gone, 1));
    EXPECT_EQ(references->AddReferences(4711, array.get()), this->kFileNotFound);
    EXPECT_EQ(references->AddReferences(source.fileId, arrayOfGone.get()), this->kFileNotFound);
}

} // namespace
} // namespace tv
