// Looking things up, walking folders, and what single files and folders do.
#include "vault_worlds.h"

#include <algorithm>

namespace tv {
namespace {

template <typename World> class VaultLookUps : public VaultContract<World>
{
  protected:
    using Names = std::vector<std::u16string>;

    Names FilesOf(IVyxFolder& folder)
    {
        ComPtr<IVyxPos> position;
        EXPECT_EQ(folder.GetFirstFilePosition(position.put()), 0);
        Names names;
        for (VariantBool atEnd = kVariantFalse;;) {
            EXPECT_EQ(position->IsNull(&atEnd), 0);
            if (atEnd != kVariantFalse) {
                std::ranges::sort(names);
                return names;
            }
            ComPtr<IVyxFile> file;
            BString name;
            EXPECT_EQ(folder.GetNextFile(position.get(), file.put()), 0);
            EXPECT_EQ(file->GetName(name.put()), 0);
            names.push_back(name.Text());
        }
    }

    Names SubFoldersOf(IVyxFolder& folder)
    {
        ComPtr<IVyxPos> position;
        EXPECT_EQ(folder.GetFirstSubFolderPosition(position.put()), 0);
        Names paths;
        for (VariantBool atEnd = kVariantFalse;;) {
            EXPECT_EQ(position->IsNull(&atEnd), 0);
            if (atEnd != kVariantFalse) {
                std::ranges::sort(paths);
                return paths;
            }
            ComPtr<IVyxFolder> subFolder;
            BString path;
            EXPECT_EQ(folder.GetNextSubFolder(position.get(), subFolder.put()), 0);
            EXPECT_EQ(subFolder->GetLocalPath(path.put()), 0);
            paths.push_back(path.Text());
        }
    }

    ComPtr<IVyxFolder> Folder(const std::u16string& path)
    {
        ComPtr<IVyxFolder> folder;
        EXPECT_EQ(this->world.Get()->GetFolderFromPath(path.c_str(), folder.put()), 0);
        return folder;
    }
};

TYPED_TEST_SUITE(VaultLookUps, Vaults);

TYPED_TEST(VaultLookUps, TheRootPathHasNoBackslashAtItsEnd)
{
    BString root;
    EXPECT_EQ(this->world.Get()->GetRootFolderPath(root.put()), 0);
    EXPECT_EQ(root.Text(), this->world.Root());
    EXPECT_NE(root.Text().back(), u'\\');
}

TYPED_TEST(VaultLookUps, TheRootIsAFolder)
{
    this->world.AddFile(u"a.step");
    EXPECT_EQ(this->FilesOf(*this->Folder(this->world.Root()).get()), (std::vector<std::u16string>{u"a.step"}));
}

TYPED_TEST(VaultLookUps, AFileIsFoundWithItsFolder)
{
    this->world.AddFile(u"Sub\\a.step", 3);
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    const std::u16string path = this->world.PathOf(u"Sub\\a.step");
    ASSERT_EQ(this->world.Get()->GetFileFromPath(path.c_str(), folder.put(), file.put()), 0);
    ASSERT_TRUE(folder);
    ASSERT_TRUE(file);
    BString folderPath;
    EXPECT_EQ(folder->GetLocalPath(folderPath.put()), 0);
    EXPECT_EQ(folderPath.Text(), this->world.PathOf(u"Sub"));
    int32_t folderId = 0;
    BString filePath;
    EXPECT_EQ(folder->GetID(&folderId), 0);
    EXPECT_GT(folderId, 0);
    EXPECT_EQ(file->GetLocalPath(folderId, filePath.put()), 0);
    EXPECT_EQ(filePath.Text(), path);
    EXPECT_EQ(this->VersionOf(u"Sub\\a.step"), 3);
    EXPECT_FALSE(this->IsLocked(u"Sub\\a.step"));
}

TYPED_TEST(VaultLookUps, AFileIsFoundWithoutItsFolderToo)
{
    this->world.AddFile(u"a.step");
    ComPtr<IVyxFile> file;
    EXPECT_EQ(this->world.Get()->GetFileFromPath(this->world.PathOf(u"a.step").c_str(), nullptr, file.put()), 0);
    EXPECT_TRUE(file);
}

TYPED_TEST(VaultLookUps, CaseIsIgnored)
{
    this->world.AddFile(u"Sub\\\u00C4\u03A9\u0416.step");
    EXPECT_TRUE(this->IsInVault(u"SUB\\\u00E4\u03C9\u0436.STEP"));
    EXPECT_FALSE(this->IsInVault(u"SUB\\a\u03C9\u0436.STEP"));
    EXPECT_EQ(this->FilesOf(*this->Folder(this->world.PathOf(u"sUb")).get()).size(), 1u);
}

TYPED_TEST(VaultLookUps, TurkishLettersAndTheSharpSAreNotTakenForOthers)
{
    this->world.AddFile(u"\u0131\u00DF.step");
    EXPECT_FALSE(this->IsInVault(u"I\u00DF.step"));
    EXPECT_FALSE(this->IsInVault(u"i\u00DF.step"));
    EXPECT_FALSE(this->IsInVault(u"\u0131ss.step"));
    EXPECT_TRUE(this->IsInVault(u"\u0131\u00DF.STEP"));
}

TYPED_TEST(VaultLookUps, TheFinalSigmaIsALetterOfItsOwn)
{
    this->world.AddFile(u"\u03C2.step");
    EXPECT_FALSE(this->IsInVault(u"\u03A3.step"));
    EXPECT_FALSE(this->IsInVault(u"\u03C3.step"));
    EXPECT_TRUE(this->IsInVault(u"\u03C2.STEP"));
}

TYPED_TEST(VaultLookUps, WhatTheVaultDoesntHoldIsOneAndNoObject)
{
    this->world.AddFile(u"Sub\\a.step");
    IVyxVault& vault = *this->world.Get();
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    for (const std::u16string& path : {this->world.PathOf(u"Sub\\b.step"), this->world.PathOf(u"No\\a.step"),
                                       this->world.PathOf(u"Sub"), this->world.Outside(), std::u16string(u"a.step")}) {
        EXPECT_EQ(vault.GetFileFromPath(path.c_str(), folder.put(), file.put()), 1) << testing::PrintToString(path);
        EXPECT_FALSE(folder);
        EXPECT_FALSE(file);
    }
    for (const std::u16string& path :
         {this->world.PathOf(u"No"), this->world.PathOf(u"Sub\\a.step"), this->world.Outside()}) {
        EXPECT_EQ(vault.GetFolderFromPath(path.c_str(), folder.put()), 1) << testing::PrintToString(path);
        EXPECT_FALSE(folder);
    }
}

TYPED_TEST(VaultLookUps, AnEmptyPathIsRefused)
{
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
    EXPECT_EQ(this->world.Get()->GetFileFromPath(u"", folder.put(), file.put()), E_INVALIDARG);
    EXPECT_EQ(this->world.Get()->GetFolderFromPath(u"", folder.put()), E_INVALIDARG);
}

TYPED_TEST(VaultLookUps, AFolderGivesItsOwnFilesAndFoldersOnce)
{
    this->world.AddFile(u"F\\a.step");
    this->world.AddFile(u"F\\b.step");
    this->world.AddFile(u"F\\Sub\\c.step");
    this->world.AddFile(u"F\\Sub\\Deep\\d.step");
    this->world.AddFolder(u"F\\Empty");
    const auto folder = this->Folder(this->world.PathOf(u"F"));
    EXPECT_EQ(this->FilesOf(*folder.get()), (std::vector<std::u16string>{u"a.step", u"b.step"}));
    EXPECT_EQ(this->SubFoldersOf(*folder.get()),
              (std::vector<std::u16string>{this->world.PathOf(u"F\\Empty"), this->world.PathOf(u"F\\Sub")}));
    const auto empty = this->Folder(this->world.PathOf(u"F\\Empty"));
    EXPECT_TRUE(this->FilesOf(*empty.get()).empty());
    EXPECT_TRUE(this->SubFoldersOf(*empty.get()).empty());
}

TYPED_TEST(VaultLookUps, BehindTheEndOfAWalkIsAFailure)
{
    this->world.AddFolder(u"F");
    const auto folder = this->Folder(this->world.PathOf(u"F"));
    ComPtr<IVyxPos> position;
    ComPtr<IVyxFile> file;
    ComPtr<IVyxFolder> subFolder;
    ASSERT_EQ(folder->GetFirstFilePosition(position.put()), 0);
    EXPECT_EQ(folder->GetNextFile(position.get(), file.put()), this->kEndOfList);
    ASSERT_EQ(folder->GetFirstSubFolderPosition(position.put()), 0);
    EXPECT_EQ(folder->GetNextSubFolder(position.get(), subFolder.put()), this->kEndOfList);
}

TYPED_TEST(VaultLookUps, AWalkKeepsToTheFilesThatWereThereAtItsBeginning)
{
    this->world.AddFile(u"F\\a.step");
    const auto folder = this->Folder(this->world.PathOf(u"F"));
    ComPtr<IVyxPos> position;
    ASSERT_EQ(folder->GetFirstFilePosition(position.put()), 0);
    this->world.AddFile(u"F\\b.step");
    ComPtr<IVyxFile> file;
    EXPECT_EQ(folder->GetNextFile(position.get(), file.put()), 0);
    VariantBool atEnd = kVariantFalse;
    EXPECT_EQ(position->IsNull(&atEnd), 0);
    EXPECT_EQ(atEnd, kVariantTrue);
}

TYPED_TEST(VaultLookUps, LockingAFileChecksItOut)
{
    this->world.AddFile(u"a.step");
    EXPECT_EQ(this->Lock(u"a.step"), 0);
    EXPECT_TRUE(this->IsLocked(u"a.step"));
}

TYPED_TEST(VaultLookUps, AFileIsLockedWhoeverHasItCheckedOut)
{
    this->world.AddFile(u"a.step");
    this->world.CheckOutByAnother(u"a.step");
    EXPECT_TRUE(this->IsLocked(u"a.step"));
    EXPECT_EQ(this->Lock(u"a.step"), this->kLockedByAnother);
}

TYPED_TEST(VaultLookUps, AFileIsNotCheckedOutTwice)
{
    this->world.AddFile(u"a.step");
    EXPECT_EQ(this->Lock(u"a.step"), 0);
    EXPECT_EQ(this->Lock(u"a.step"), this->kFileIsLocked);
}

TYPED_TEST(VaultLookUps, AFileIsLockedInItsOwnFolderOnly)
{
    this->world.AddFile(u"a.step");
    EXPECT_EQ(this->FileAt(u"a.step")->LockFile(4711, 0, 0), this->kFolderNotFound);
    EXPECT_FALSE(this->IsLocked(u"a.step"));
}

TYPED_TEST(VaultLookUps, ADeletedFileLeavesTheVaultAndTheDisk)
{
    this->world.AddFile(u"Sub\\a.step", 2);
    const VyxSelectionPair pair = this->PairOf(u"Sub\\a.step");
    const auto file = this->FileAt(u"Sub\\a.step");
    EXPECT_EQ(this->FolderOf(u"Sub\\a.step")->DeleteFile(0, pair.fileId, -1), 0);
    EXPECT_FALSE(this->IsInVault(u"Sub\\a.step"));
    EXPECT_FALSE(this->world.StandsOnDisk(u"Sub\\a.step"));
    int32_t id = 0;
    EXPECT_LT(file->GetID(&id), 0);
}

TYPED_TEST(VaultLookUps, ACheckedOutFileIsNotDeleted)
{
    this->world.AddFile(u"mine.step");
    this->world.AddFile(u"theirs.step");
    ASSERT_EQ(this->Lock(u"mine.step"), 0);
    this->world.CheckOutByAnother(u"theirs.step");
    const auto folder = this->FolderOf(u"mine.step");
    EXPECT_EQ(folder->DeleteFile(0, this->PairOf(u"mine.step").fileId, -1), this->kFileIsLocked);
    EXPECT_EQ(folder->DeleteFile(0, this->PairOf(u"theirs.step").fileId, -1), this->kLockedByAnother);
    EXPECT_TRUE(this->IsInVault(u"mine.step"));
    EXPECT_TRUE(this->IsInVault(u"theirs.step"));
}

TYPED_TEST(VaultLookUps, AFileIsDeletedFromItsOwnFolderOnly)
{
    this->world.AddFile(u"a.step");
    this->world.AddFile(u"Sub\\b.step");
    const auto sub = this->FolderOf(u"Sub\\b.step");
    EXPECT_LT(sub->DeleteFile(0, this->PairOf(u"a.step").fileId, -1), 0);
    EXPECT_EQ(sub->DeleteFile(0, 4711, -1), this->kFileNotFound);
    EXPECT_TRUE(this->IsInVault(u"a.step"));
}

TYPED_TEST(VaultLookUps, InAClosedFolderFilesAreFoundAndNeitherLockedNorDeleted)
{
    this->world.AddFile(u"Closed\\a.step");
    this->world.Close(u"Closed");
    EXPECT_EQ(this->Lock(u"Closed\\a.step"), this->kPermissionDenied);
    EXPECT_EQ(this->FolderOf(u"Closed\\a.step")->DeleteFile(0, this->PairOf(u"Closed\\a.step").fileId, -1),
              this->kPermissionDenied);
    EXPECT_FALSE(this->IsLocked(u"Closed\\a.step"));
    EXPECT_TRUE(this->IsInVault(u"Closed\\a.step"));
}

TYPED_TEST(VaultLookUps, EachUtilityHasItsNumber)
{
    EXPECT_TRUE((this->template Make<IVyxBatchUpdate>(2)));
    EXPECT_TRUE((this->template Make<IVyxBatchUnlock>(6)));
    EXPECT_TRUE((this->template Make<IVyxBatchRefs>(8)));
    EXPECT_TRUE((this->template Make<IVyxBatchGet>(12)));
    EXPECT_TRUE((this->template Make<IVyxBatchList>(13)));
    EXPECT_TRUE((this->template Make<IVyxBatchAdd>(16)));
    ComPtr<IUnknown> utility;
    EXPECT_EQ(this->world.Get()->CreateUtility(99, utility.put()), E_INVALIDARG);
    EXPECT_FALSE(utility);
}

TYPED_TEST(VaultLookUps, TheVaultHasWordsForItsCodes)
{
    BString name;
    BString description;
    EXPECT_EQ(this->world.Get()->GetErrorString(this->kLockedByAnother, name.put(), description.put()), 0);
    EXPECT_EQ(name.Text(), u"E_VYX_LOCKED_BY_ANOTHER_USER");
    EXPECT_EQ(description.Text(), u"The file in question is checked out by another user.");
}

} // namespace
} // namespace tv
