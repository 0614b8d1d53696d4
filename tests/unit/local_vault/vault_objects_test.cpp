#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_objects.h"

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class VaultObjects : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord screw = Import(*store, "screw.step", "screw", {"Parts"});
    ComPtr<IVyxVault> vault = MakeVaultObject(store);

    static std::u16string Wide(const fs::path& path) { return Utf16(TextOf(path)); }
    fs::path ScrewPath() const { return Root() / "Parts" / "screw.step"; }

    template <typename Utility> ComPtr<Utility> Make(int32_t number)
    {
        ComPtr<IUnknown> unknown;
        EXPECT_EQ(vault->CreateUtility(number, unknown.put()), 0);
        ComPtr<Utility> utility;
        EXPECT_EQ(unknown.As(utility), 0);
        return utility;
    }

    ComPtr<IVyxFile> FileAt(const fs::path& path)
    {
        ComPtr<IVyxFile> file;
        EXPECT_EQ(vault->GetFileFromPath(Wide(path).c_str(), nullptr, file.put()), 0);
        return file;
    }

    using DiskWorld::Make;
};

TEST_F(VaultObjects, TheVaultTellsItsNameAndTheRootOfItsLocalView)
{
    BString name;
    BString root;
    EXPECT_EQ(vault->GetName(name.put()), 0);
    EXPECT_EQ(vault->GetRootFolderPath(root.put()), 0);
    EXPECT_EQ(name.View(), u"Bench");
    EXPECT_EQ(root.View(), Wide(Root()));
}

TEST_F(VaultObjects, WhatIsNotInTheVaultIsOne)
{
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    EXPECT_EQ(vault->GetFileFromPath(Wide(Root() / "none.step").c_str(), folder.put(), file.put()), 1);
    EXPECT_FALSE(folder);
    EXPECT_FALSE(file);
    EXPECT_EQ(vault->GetFileFromPath(Wide(Folder("elsewhere.step")).c_str(), folder.put(), file.put()), 1);
    EXPECT_EQ(vault->GetFolderFromPath(Wide(Root() / "none").c_str(), folder.put()), 1);
    EXPECT_EQ(vault->GetFolderFromPath(Wide(ScrewPath()).c_str(), folder.put()), 1);
}

TEST_F(VaultObjects, BadArgumentsAreRefused)
{
    ComPtr<IVyxFile> file;
    EXPECT_EQ(vault->GetFileFromPath(nullptr, nullptr, file.put()), E_POINTER);
    EXPECT_EQ(vault->GetFileFromPath(u"x", nullptr, nullptr), E_POINTER);
    EXPECT_EQ(vault->GetFileFromPath(u"", nullptr, file.put()), E_INVALIDARG);
    ComPtr<IUnknown> utility;
    EXPECT_EQ(vault->CreateUtility(99, utility.put()), E_INVALIDARG);
    EXPECT_FALSE(utility);
}

TEST_F(VaultObjects, AFileTellsWhatItIs)
{
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    ASSERT_EQ(vault->GetFileFromPath(Wide(ScrewPath()).c_str(), folder.put(), file.put()), 0);
    int32_t folderId = 0;
    int32_t id = 0;
    int32_t version = 0;
    VariantBool locked = kVariantTrue;
    BString name;
    BString path;
    EXPECT_EQ(folder->GetID(&folderId), 0);
    EXPECT_EQ(file->GetID(&id), 0);
    EXPECT_EQ(file->GetCurrentVersion(&version), 0);
    EXPECT_EQ(file->IsLocked(&locked), 0);
    EXPECT_EQ(file->GetName(name.put()), 0);
    EXPECT_EQ(file->GetLocalPath(folderId, path.put()), 0);
    EXPECT_EQ(folderId, screw.folder);
    EXPECT_EQ(id, screw.id);
    EXPECT_EQ(version, 1);
    EXPECT_EQ(locked, kVariantFalse);
    EXPECT_EQ(name.View(), u"screw.step");
    EXPECT_EQ(path.View(), Wide(ScrewPath()));
    EXPECT_EQ(file->GetLocalPath(folderId + 50, path.put()), kErrorFolderNotFound);
}

TEST_F(VaultObjects, AFileWithoutRevisionOrStateGivesANullText)
{
    const auto file = FileAt(ScrewPath());
    BStr text = reinterpret_cast<BStr>(1);
    EXPECT_EQ(file->GetRevisionName(1, screw.folder, &text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(file->GetStateName(0, screw.folder, &text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(file->GetRevisionName(7, screw.folder, &text), kErrorFileNotFound);
}

TEST_F(VaultObjects, AFolderIsWalkedInTheOrderOfNames)
{
    Import(*store, "bolt.step", "bolt", {"Parts"});
    store->MakeFolder({"Parts", "Old"});
    ComPtr<IVyxFolder> folder;
    ASSERT_EQ(vault->GetFolderFromPath(Wide(Root() / "Parts").c_str(), folder.put()), 0);
    ComPtr<IVyxPos> position;
    ASSERT_EQ(folder->GetFirstFilePosition(position.put()), 0);
    std::vector<std::u16string> names;
    VariantBool atEnd = kVariantFalse;
    while (position->IsNull(&atEnd) == 0 && atEnd == kVariantFalse) {
        ComPtr<IVyxFile> file;
        ASSERT_EQ(folder->GetNextFile(position.get(), file.put()), 0);
        BString name;
        file->GetName(name.put());
        names.push_back(name.Text());
    }
    EXPECT_EQ(names, (std::vector<std::u16string>{u"bolt.step", u"screw.step"}));
    ComPtr<IVyxFile> beyond;
    EXPECT_EQ(folder->GetNextFile(position.get(), beyond.put()), kErrorEndOfList);
    EXPECT_EQ(folder->GetNextFile(nullptr, beyond.put()), E_POINTER);
    ASSERT_EQ(folder->GetFirstSubFolderPosition(position.put()), 0);
    ComPtr<IVyxFolder> child;
    ASSERT_EQ(folder->GetNextSubFolder(position.get(), child.put()), 0);
    BString path;
    child->GetLocalPath(path.put());
    EXPECT_EQ(path.View(), Wide(Root() / "Parts" / "Old"));
}

TEST_F(VaultObjects, LockingAFileChecksItOut)
{
    const auto file = FileAt(ScrewPath());
    EXPECT_EQ(file->LockFile(screw.folder + 50, 0, 0), kErrorFolderNotFound);
    EXPECT_EQ(file->LockFile(screw.folder, 0, 0), 0);
    VariantBool locked = kVariantFalse;
    EXPECT_EQ(file->IsLocked(&locked), 0);
    EXPECT_EQ(locked, kVariantTrue);
    EXPECT_FALSE(Disk::IsReadOnly(ScrewPath()));
    EXPECT_EQ(file->LockFile(screw.folder, 0, 0), kErrorFileIsLocked);
}

TEST_F(VaultObjects, LockingAFileOfAnotherHasItsOwnCode)
{
    FileWork(OpenAs(kBert)).CheckOut(screw.id);
    EXPECT_EQ(FileAt(ScrewPath())->LockFile(screw.folder, 0, 0), kErrorLockedByAnotherUser);
    BString name;
    BString description;
    EXPECT_EQ(vault->GetErrorString(kErrorLockedByAnotherUser, name.put(), description.put()), 0);
    EXPECT_EQ(name.View(), u"E_VYX_LOCKED_BY_ANOTHER_USER");
    EXPECT_EQ(description.View(), u"The file in question is checked out by another user.");
}

TEST_F(VaultObjects, DeletingAFileNeedsAllItsVersionsAndItsFolder)
{
    ComPtr<IVyxFolder> folder;
    ASSERT_EQ(vault->GetFolderFromPath(Wide(Root() / "Parts").c_str(), folder.put()), 0);
    EXPECT_EQ(folder->DeleteFile(0, screw.id, 1), E_INVALIDARG);
    EXPECT_EQ(folder->DeleteFile(0, 99, -1), kErrorFileNotFound);
    const auto file = FileAt(ScrewPath());
    EXPECT_EQ(folder->DeleteFile(0, screw.id, -1), 0);
    EXPECT_FALSE(fs::exists(ScrewPath()));
    int32_t version = 0;
    EXPECT_EQ(file->GetCurrentVersion(&version), kErrorFileDeleted);
}

TEST_F(VaultObjects, ACheckedOutFileIsNotDeleted)
{
    ComPtr<IVyxFolder> folder;
    ASSERT_EQ(vault->GetFolderFromPath(Wide(Root() / "Parts").c_str(), folder.put()), 0);
    FileWork(OpenAs(kBert)).CheckOut(screw.id);
    EXPECT_EQ(folder->DeleteFile(0, screw.id, -1), kErrorLockedByAnotherUser);
}

TEST_F(VaultObjects, BatchGetBringsTheLocalCopiesOntoTheDisk)
{
    Disk({}).Remove(ScrewPath());
    const auto get = Make<IVyxBatchGet>(kUtilityBatchGet);
    EXPECT_EQ(get->AddSelection(nullptr, screw.id, screw.folder, Variant::FromInt(0).get()), E_POINTER);
    EXPECT_EQ(get->AddSelection(vault.get(), 99, screw.folder, Variant::FromInt(0).get()), kErrorFileNotFound);
    EXPECT_EQ(get->AddSelection(vault.get(), screw.id, screw.folder, Variant::FromInt(0).get()), 0);
    EXPECT_EQ(get->CreateTree(0, 1), 0);
    EXPECT_EQ(get->GetFiles(0, 0), 0);
    EXPECT_EQ(BytesOf(ScrewPath()), "screw");
    EXPECT_TRUE(Disk::IsReadOnly(ScrewPath()));
}

TEST_F(VaultObjects, BatchListTellsTheLatestVersionsOfTheFilesThatTheVaultHas)
{
    Import(*store, "screw.step", "second", {"Parts"});
    const auto list = Make<IVyxBatchList>(kUtilityBatchList);
    EXPECT_EQ(list->AddFile(Variant::FromText(Wide(Root() / "none.step")).get(), 0, 0, 0), 0);
    EXPECT_EQ(list->AddFile(Variant::FromText(Wide(ScrewPath())).get(), 0, 0, 0), 0);
    SafeArray created;
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"", created.put()), 0);
    EXPECT_EQ(list->GetFileList(files.put()), 0);
    const SafeArrayView<VyxListFile> view(files.get());
    ASSERT_EQ(view.size(), 1u);
    EXPECT_EQ(view[0].fileId, screw.id);
    EXPECT_EQ(view[0].latestVersion, 2);
}

TEST_F(VaultObjects, BatchAddGivesAResultForEachFileAndFollowsFoldersOfTheDisk)
{
    const fs::path output = Root() / "Out" / "STL" / "screw.stl";
    fs::create_directories(output.parent_path());
    WriteBytes(output, "solid");
    const auto add = Make<IVyxBatchAdd>(kUtilityBatchAdd);
    const auto queue = [&](const fs::path& file, const fs::path& folder) {
        return add->AddFileFromPathToPath(Wide(file).c_str(), Wide(folder).c_str(), 0, 0, 0);
    };
    EXPECT_EQ(queue(output, output.parent_path()), 0);
    EXPECT_EQ(queue(ScrewPath(), ScrewPath().parent_path()), 0);
    EXPECT_EQ(queue(Root() / "none", Root()), kErrorFileNotFound);
    EXPECT_EQ(queue(output, Folder("elsewhere")), kErrorFolderNotFound);
    SafeArray results;
    int32_t count = 0;
    ASSERT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    EXPECT_EQ(count, 2);
    const SafeArrayView<VyxAddResult> view(results.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(view[0].result, 0);
    EXPECT_EQ(tv::TextOf(view[0].path), Wide(output));
    const auto added = store->FindFile({"Out", "STL", "screw.stl"});
    ASSERT_TRUE(added);
    EXPECT_EQ(view[0].fileId, added->id);
    EXPECT_EQ(view[0].folderId, added->folder);
    EXPECT_TRUE(added->checkOut);
    EXPECT_EQ(view[1].result, E_VYX_NAME_ALREADY_EXISTS);
    EXPECT_EQ(view[1].fileId, 0);
    EXPECT_EQ(tv::TextOf(view[1].path), Wide(ScrewPath()));
}

TEST_F(VaultObjects, BatchUnlockChecksInWithItsComment)
{
    FileAt(ScrewPath())->LockFile(screw.folder, 0, 0);
    WriteBytes(ScrewPath(), "longer than before");
    const auto unlock = Make<IVyxBatchUnlock>(kUtilityBatchUnlock);
    const VyxSelectionPair pair{screw.id, screw.folder};
    const SafeArray pairs = MakeRecordArray<VyxSelectionPair>({&pair, 1});
    VariantBool done = kVariantFalse;
    EXPECT_EQ(unlock->SetComment(u"Torvane Task Add-in"), 0);
    EXPECT_EQ(unlock->AddSelection(vault.get(), pairs.get()), 0);
    EXPECT_EQ(unlock->CreateTree(0, 1, 0, &done), 0);
    EXPECT_EQ(unlock->UnlockFiles(0, 0), 0);
    EXPECT_EQ(store->FileById(screw.id)->latestVersion, 2);
    EXPECT_EQ(store->Version(screw.id, 2)->comment, "Torvane Task Add-in");
    EXPECT_FALSE(store->FileById(screw.id)->checkOut);
}

TEST_F(VaultObjects, BatchUnlockOfAFileOfAnotherIsRefused)
{
    FileWork(OpenAs(kBert)).CheckOut(screw.id);
    const auto unlock = Make<IVyxBatchUnlock>(kUtilityBatchUnlock);
    const VyxSelectionPair pair{screw.id, screw.folder};
    const SafeArray pairs = MakeRecordArray<VyxSelectionPair>({&pair, 1});
    EXPECT_EQ(unlock->AddSelection(vault.get(), pairs.get()), 0);
    EXPECT_EQ(unlock->UnlockFiles(0, 0), kErrorNotLockedByYou);
}

TEST_F(VaultObjects, CardsAreWrittenInABatchAndReadByVersion)
{
    const int32_t variable = store->MakeCardVariable("Number");
    const auto update = Make<IVyxBatchUpdate>(kUtilityBatchUpdate);
    EXPECT_EQ(update->SetCardValue(screw.id, variable, Variant::FromText(u"A-1").get(), 0, 1), 0);
    EXPECT_EQ(update->SetCardValue(screw.id, 0, Variant::FromText(u"lost").get(), 0, 1), 0);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    EXPECT_EQ(SafeArrayView<int32_t>(errors.get())[0], kErrorVariableNotFound);

    ComPtr<IVyxEnumeratorVariable> reader;
    ASSERT_EQ(FileAt(ScrewPath())->GetEnumeratorVariable(0, reader.put()), 0);
    SafeArray variables;
    SafeArray values;
    VyxVersionInfo info{};
    ASSERT_EQ(
        reader->GetVersionVariables(Variant::FromInt(0).get(), screw.folder, variables.put(), values.put(), &info), 0);
    const BStr revision = info.revision;
    EXPECT_EQ(info.currentVersion, 1);
    EXPECT_EQ(revision, nullptr);
    const SafeArrayView<VARIANT> objects(variables.get());
    ASSERT_EQ(objects.size(), 1u);
    ComPtr<IVyxVariableValue> value;
    ASSERT_EQ(QueryFor(objects[0].punkVal, value), 0);
    int32_t id = 0;
    Variant text;
    EXPECT_EQ(value->GetID(&id), 0);
    EXPECT_EQ(id, variable);
    EXPECT_EQ(value->GetValue(u"", text.put()), 0);
    EXPECT_EQ(text.ToText(), u"A-1");
    EXPECT_EQ(value->GetValue(u"Long", text.put()), 1);
    SafeArray noVariables;
    SafeArray noValues;
    EXPECT_EQ(
        reader->GetVersionVariables(Variant::FromInt(9).get(), screw.folder, noVariables.put(), noValues.put(), &info),
        kErrorFileNotFound);
}

TEST_F(VaultObjects, CardVariablesAreEnumeratedThroughTheVault)
{
    store->MakeCardVariable("Number");
    store->MakeCardVariable("Material");
    ComPtr<IVyxVariableMgr> manager;
    ASSERT_EQ(vault.As(manager), 0);
    ComPtr<IVyxPos> position;
    ASSERT_EQ(manager->GetFirstVariablePosition(position.put()), 0);
    std::vector<std::u16string> names;
    VariantBool atEnd = kVariantFalse;
    while (position->IsNull(&atEnd) == 0 && atEnd == kVariantFalse) {
        ComPtr<IVyxVariable> variable;
        ASSERT_EQ(manager->GetNextVariable(position.get(), variable.put()), 0);
        BString name;
        variable->GetName(name.put());
        names.push_back(name.Text());
    }
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Number", u"Material"}));
}

TEST_F(VaultObjects, ReferencesAreWrittenByTheSecondOfTwoCommits)
{
    const FileRecord output = Import(*store, "screw.stl", "solid");
    const FileRecord other = Import(*store, "screw.pdf", "paper");
    const auto references = Make<IVyxBatchRefs>(kUtilityBatchRefs);
    const VyxSelectionPair pair{screw.id, screw.folder};
    const SafeArray sources = MakeRecordArray<VyxSelectionPair>({&pair, 1});
    EXPECT_EQ(references->AddReferences(99, sources.get()), kErrorFileNotFound);
    EXPECT_EQ(references->AddReferences(output.id, sources.get()), 0);
    EXPECT_EQ(references->AddReferences(other.id, sources.get()), 0);
    int32_t pending = 7;
    EXPECT_EQ(references->CommitReferences(0, &pending), 0);
    EXPECT_EQ(pending, 2);
    EXPECT_TRUE(store->References(output.id, 1).empty());
    EXPECT_EQ(references->CommitReferences(pending, &pending), 0);
    EXPECT_EQ(pending, 0);
    ASSERT_EQ(store->References(output.id, 1).size(), 1u);
    EXPECT_EQ(store->References(output.id, 1)[0].sourceFile, screw.id);
    EXPECT_EQ(store->References(other.id, 1).size(), 1u);
}

TEST_F(VaultObjects, WithoutReferencesNothingIsLeftPending)
{
    int32_t pending = 7;
    EXPECT_EQ(Make<IVyxBatchRefs>(kUtilityBatchRefs)->CommitReferences(0, &pending), 0);
    EXPECT_EQ(pending, 0);
}

TEST_F(VaultObjects, ASecondCommitOfReferencesNeedsTheNumberOfTheFirst)
{
    const FileRecord output = Import(*store, "screw.stl", "solid");
    const auto references = Make<IVyxBatchRefs>(kUtilityBatchRefs);
    const VyxSelectionPair pair{screw.id, screw.folder};
    const SafeArray sources = MakeRecordArray<VyxSelectionPair>({&pair, 1});
    references->AddReferences(output.id, sources.get());
    int32_t pending = 0;
    EXPECT_EQ(references->CommitReferences(1, &pending), E_INVALIDARG);
    EXPECT_EQ(references->CommitReferences(0, &pending), 0);
    EXPECT_EQ(references->CommitReferences(5, &pending), E_INVALIDARG);
    EXPECT_EQ(references->CommitReferences(0, nullptr), E_POINTER);
    EXPECT_TRUE(store->References(output.id, 1).empty());
}

TEST_F(VaultObjects, ReferencesOfAFileOfAnotherAreRefusedAtTheFirstCommit)
{
    const FileRecord output = Import(*store, "screw.stl", "solid");
    FileWork(OpenAs(kBert)).CheckOut(output.id);
    const auto references = Make<IVyxBatchRefs>(kUtilityBatchRefs);
    const VyxSelectionPair pair{screw.id, screw.folder};
    const SafeArray sources = MakeRecordArray<VyxSelectionPair>({&pair, 1});
    EXPECT_EQ(references->AddReferences(output.id, sources.get()), 0);
    int32_t pending = 0;
    EXPECT_EQ(references->CommitReferences(0, &pending), kErrorLockedByAnotherUser);
}

TEST_F(VaultObjects, AListOfFilesTakesNoColumnsAndNoFlags)
{
    const auto list = Make<IVyxBatchList>(kUtilityBatchList);
    const Variant path = Variant::FromText(Wide(ScrewPath()));
    EXPECT_EQ(list->AddFile(path.get(), 1, 0, 0), E_INVALIDARG);
    EXPECT_EQ(list->AddFile(path.get(), 0, 1, 0), E_INVALIDARG);
    EXPECT_EQ(list->AddFile(path.get(), 0, 0, 1), E_INVALIDARG);
    SafeArray files;
    EXPECT_EQ(list->CreateList(u"Number", files.put()), kErrorInvalidQuery);
    EXPECT_EQ(list->CreateList(nullptr, files.put()), E_POINTER);
}

TEST_F(VaultObjects, ACardValueTakesNoConfigurationAndNoOtherFlagThanOne)
{
    const int32_t variable = store->MakeCardVariable("Number");
    const auto update = Make<IVyxBatchUpdate>(kUtilityBatchUpdate);
    const Variant value = Variant::FromText(u"A-1");
    EXPECT_EQ(update->SetCardValue(screw.id, variable, value.get(), 1, 1), E_INVALIDARG);
    EXPECT_EQ(update->SetCardValue(screw.id, variable, value.get(), 0, 2), E_INVALIDARG);
    EXPECT_EQ(update->SetCardValue(screw.id, variable, value.get(), 0, 0), 0);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    EXPECT_EQ(store->CardValues(screw.id, 1).size(), 1u);
}

TEST_F(VaultObjects, TheCardOfAFileOfAnotherIsNotWritten)
{
    const int32_t variable = store->MakeCardVariable("Number");
    FileWork(OpenAs(kBert)).CheckOut(screw.id);
    const auto update = Make<IVyxBatchUpdate>(kUtilityBatchUpdate);
    update->SetCardValue(screw.id, variable, Variant::FromText(u"A-1").get(), 0, 1);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), kErrorLockedByAnotherUser);
    EXPECT_EQ(SafeArrayView<int32_t>(errors.get())[0], kErrorLockedByAnotherUser);
    EXPECT_TRUE(store->CardValues(screw.id, 1).empty());
}

TEST_F(VaultObjects, AReplacedFileIsDeletedAndComesAnewUnderItsName)
{
    ComPtr<IVyxFolder> folder;
    ASSERT_EQ(vault->GetFolderFromPath(Wide(Root() / "Parts").c_str(), folder.put()), 0);
    ASSERT_EQ(folder->DeleteFile(0, screw.id, -1), 0);
    WriteBytes(ScrewPath(), "new screw");
    const auto add = Make<IVyxBatchAdd>(kUtilityBatchAdd);
    ASSERT_EQ(add->AddFileFromPathToPath(Wide(ScrewPath()).c_str(), Wide(Root() / "Parts").c_str(), 0, 0, 0), 0);
    SafeArray results;
    int32_t count = 0;
    ASSERT_EQ(add->CommitAdd(0, results.put(), 0, 0, &count), 0);
    const SafeArrayView<VyxAddResult> view(results.get());
    EXPECT_EQ(view[0].result, 0);
    EXPECT_NE(view[0].fileId, screw.id);
    EXPECT_EQ(store->FileById(view[0].fileId)->latestVersion, 1);
    EXPECT_EQ(store->DeletedFile(screw.id)->file.name, "screw.step");
}

TEST_F(VaultObjects, TheVersionReadTellsRevisionAndState)
{
    store->Revise(screw.id, "B");
    store->SetState(screw.id, "Released");
    const auto file = FileAt(ScrewPath());
    BString revision;
    BString state;
    EXPECT_EQ(file->GetRevisionName(1, screw.folder, revision.put()), 0);
    EXPECT_EQ(file->GetStateName(1, screw.folder, state.put()), 0);
    EXPECT_EQ(revision.View(), u"B");
    EXPECT_EQ(state.View(), u"Released");
    ComPtr<IVyxEnumeratorVariable> reader;
    ASSERT_EQ(file->GetEnumeratorVariable(0, reader.put()), 0);
    SafeArray variables;
    SafeArray values;
    VyxVersionInfo info{};
    ASSERT_EQ(
        reader->GetVersionVariables(Variant::FromInt(1).get(), screw.folder, variables.put(), values.put(), &info), 0);
    BString ownedRevision;
    BString ownedState;
    *ownedRevision.put() = info.revision;
    *ownedState.put() = info.state;
    EXPECT_EQ(info.currentVersion, 1);
    EXPECT_EQ(ownedRevision.View(), u"B");
    EXPECT_EQ(ownedState.View(), u"Released");
}

} // namespace

} // namespace tv::local
