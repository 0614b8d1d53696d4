// What the component objects answer to a user who may not do what he asks for.
#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_objects.h"

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class RefusalsOfObjects : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileRecord screw = Import(*store, "screw.step", "screw", {"Parts"});
    FileRecord free = Import(*store, "free.step", "free", {"Free"});
    std::shared_ptr<VaultStore> berts = OpenAs(kBert);
    ComPtr<IVyxVault> vault = MakeVaultObject(berts);

    static std::u16string Wide(const fs::path& path) { return Utf16(TextOf(path)); }
    fs::path ScrewPath() const { return Root() / "Parts" / "screw.step"; }
    /// Bert keeps everything but that one right in the folder of the screw.
    void Take(Right right) { store->Permit(screw.folder, "bert", {kAllRights.bits & ~static_cast<uint32_t>(right)}); }

    template <typename Utility> ComPtr<Utility> MakeUtility(int32_t number)
    {
        ComPtr<IUnknown> unknown;
        EXPECT_EQ(vault->CreateUtility(number, unknown.put()), 0);
        ComPtr<Utility> utility;
        EXPECT_EQ(unknown.As(utility), 0);
        return utility;
    }

    ComPtr<IVyxFile> TakeFile()
    {
        ComPtr<IVyxFile> file;
        EXPECT_EQ(vault->GetFileFromPath(Wide(ScrewPath()).c_str(), nullptr, file.put()), 0);
        return file;
    }

    ComPtr<IVyxFolder> TakeFolder()
    {
        ComPtr<IVyxFolder> folder;
        EXPECT_EQ(vault->GetFolderFromPath(Wide(ScrewPath().parent_path()).c_str(), folder.put()), 0);
        return folder;
    }

    static SafeArray PairOf(const FileRecord& file)
    {
        const VyxSelectionPair pair{file.id, file.folder};
        return MakeRecordArray<VyxSelectionPair>({&pair, 1});
    }
};

TEST_F(RefusalsOfObjects, AFileThatCannotBeReadIsNotGiven)
{
    Take(Right::Read);
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    EXPECT_EQ(vault->GetFileFromPath(Wide(ScrewPath()).c_str(), folder.put(), file.put()), kErrorPermissionDenied);
    EXPECT_FALSE(folder);
    EXPECT_FALSE(file);
    EXPECT_EQ(vault->GetFolderFromPath(Wide(ScrewPath().parent_path()).c_str(), folder.put()), kErrorPermissionDenied);
    EXPECT_FALSE(folder);
}

TEST_F(RefusalsOfObjects, AFileThatWasGivenTellsNothingOnceItCannotBeRead)
{
    const auto file = TakeFile();
    const auto folder = TakeFolder();
    ComPtr<IVyxEnumeratorVariable> reader;
    ASSERT_EQ(file->GetEnumeratorVariable(0, reader.put()), 0);
    Take(Right::Read);
    int32_t version = 0;
    BString text;
    ComPtr<IVyxPos> position;
    SafeArray variables;
    SafeArray values;
    EXPECT_EQ(file->GetCurrentVersion(&version), kErrorPermissionDenied);
    EXPECT_EQ(file->GetLocalPath(screw.folder, text.put()), kErrorPermissionDenied);
    EXPECT_EQ(file->GetRevisionName(1, screw.folder, text.put()), kErrorPermissionDenied);
    EXPECT_EQ(folder->GetFirstFilePosition(position.put()), kErrorPermissionDenied);
    EXPECT_EQ(
        reader->GetVersionVariables(Variant::FromInt(1).get(), screw.folder, variables.put(), values.put(), nullptr),
        kErrorPermissionDenied);
}

TEST_F(RefusalsOfObjects, AWalkLeavesFoldersOutThatCannotBeRead)
{
    Take(Right::Read);
    ComPtr<IVyxFolder> root;
    ASSERT_EQ(vault->GetFolderFromPath(Wide(Root()).c_str(), root.put()), 0);
    ComPtr<IVyxPos> position;
    ASSERT_EQ(root->GetFirstSubFolderPosition(position.put()), 0);
    ComPtr<IVyxFolder> child;
    ASSERT_EQ(root->GetNextSubFolder(position.get(), child.put()), 0);
    BString path;
    ASSERT_EQ(child->GetLocalPath(path.put()), 0);
    EXPECT_EQ(path.View(), Wide(Root() / "Free"));
    VariantBool end = kVariantFalse;
    ASSERT_EQ(position->IsNull(&end), 0);
    EXPECT_EQ(end, kVariantTrue);
}

TEST_F(RefusalsOfObjects, FilesThatCannotBeReadAreNeitherFetchedNorListed)
{
    Take(Right::Read);
    const auto get = MakeUtility<IVyxBatchGet>(kUtilityBatchGet);
    EXPECT_EQ(get->AddSelection(vault.get(), screw.id, screw.folder, Variant::FromInt(0).get()),
              kErrorPermissionDenied);
    const auto list = MakeUtility<IVyxBatchList>(kUtilityBatchList);
    ASSERT_EQ(list->AddFile(Variant::FromText(Wide(ScrewPath())).get(), 0, 0, 0), 0);
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"", files.put()), kErrorPermissionDenied);
}

TEST_F(RefusalsOfObjects, LockingTakesTheRightToCheckOut)
{
    Take(Right::CheckOut);
    EXPECT_EQ(TakeFile()->LockFile(screw.folder, 0, 0), kErrorPermissionDenied);
    EXPECT_FALSE(store->FileById(screw.id)->checkOut);
}

TEST_F(RefusalsOfObjects, DeletingTakesTheRightToDelete)
{
    Take(Right::Delete);
    EXPECT_EQ(TakeFolder()->DeleteFile(0, screw.id, -1), kErrorPermissionDenied);
    EXPECT_TRUE(store->FileById(screw.id));
    EXPECT_TRUE(Disk::IsFile(ScrewPath()));
}

TEST_F(RefusalsOfObjects, ABatchAddRefusesWhatMayNotBeAddedAndAddsTheRest)
{
    Take(Right::Add);
    const fs::path here = Root() / "Parts" / "new.stl";
    const fs::path there = Root() / "Free" / "new.stl";
    WriteBytes(here, "solid");
    WriteBytes(there, "solid");
    const auto add = MakeUtility<IVyxBatchAdd>(kUtilityBatchAdd);
    for (const fs::path& file : {here, there}) {
        ASSERT_EQ(add->AddFileFromPathToPath(Wide(file).c_str(), Wide(file.parent_path()).c_str(), 0, 0, 0), 0);
    }
    SafeArray results;
    int32_t count = 0;
    ASSERT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    const SafeArrayView<VyxAddResult> view(results.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(view[0].result, kErrorPermissionDenied);
    EXPECT_EQ(view[0].fileId, 0);
    EXPECT_EQ(view[1].result, 0);
    EXPECT_EQ(view[1].fileId, store->FindFile({"Free", "new.stl"})->id);
    EXPECT_FALSE(store->FindFile({"Parts", "new.stl"}));
}

TEST_F(RefusalsOfObjects, ABatchUnlockChecksInTheRestAndTellsTheRefusal)
{
    FileWork work(berts);
    work.CheckOut(screw.id);
    work.CheckOut(free.id);
    Take(Right::CheckOut);
    const auto unlock = MakeUtility<IVyxBatchUnlock>(kUtilityBatchUnlock);
    const VyxSelectionPair pairs[] = {{screw.id, screw.folder}, {free.id, free.folder}};
    const SafeArray array = MakeRecordArray<VyxSelectionPair>(pairs);
    ASSERT_EQ(unlock->AddSelection(vault.get(), array.get()), 0);
    EXPECT_EQ(unlock->UnlockFiles(0, 0), kErrorPermissionDenied);
    EXPECT_TRUE(store->FileById(screw.id)->checkOut);
    EXPECT_FALSE(store->FileById(free.id)->checkOut);
}

TEST_F(RefusalsOfObjects, CardsTakeTheRightToCheckOut)
{
    const int32_t number = store->MakeCardVariable("Number");
    Take(Right::CheckOut);
    const auto update = MakeUtility<IVyxBatchUpdate>(kUtilityBatchUpdate);
    const Variant value = Variant::FromText(u"A-1");
    ASSERT_EQ(update->SetCardValue(screw.id, number, value.get(), 0, 1), 0);
    ASSERT_EQ(update->SetCardValue(free.id, number, value.get(), 0, 1), 0);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), kErrorPermissionDenied);
    EXPECT_EQ(SafeArrayView<int32_t>(errors.get())[0], kErrorPermissionDenied);
    EXPECT_TRUE(store->CardValues(screw.id, 1).empty());
    EXPECT_EQ(store->CardValues(free.id, 1).size(), 1u);
}

TEST_F(RefusalsOfObjects, ReferencesTakeTheRightToCheckOutTheirParent)
{
    Take(Right::CheckOut);
    const auto references = MakeUtility<IVyxBatchRefs>(kUtilityBatchRefs);
    ASSERT_EQ(references->AddReferences(screw.id, PairOf(free).get()), 0);
    int32_t pending = 0;
    EXPECT_EQ(references->CommitReferences(0, &pending), kErrorPermissionDenied);
    EXPECT_TRUE(store->Children(screw.id).empty());
}

TEST_F(RefusalsOfObjects, HaveTheVaultsOwnWords)
{
    BString name;
    BString description;
    ASSERT_EQ(vault->GetErrorString(static_cast<Result>(0x80040203u), name.put(), description.put()), 0);
    EXPECT_EQ(name.View(), u"E_VYX_PERMISSION_DENIED");
    EXPECT_EQ(description.View(), u"You don't have permission to perform this action.");
}

} // namespace

} // namespace tv::local
