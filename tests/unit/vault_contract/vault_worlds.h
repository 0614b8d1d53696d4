// The two vaults that one contract suite runs on: the simulator, and the local edition's on the real disk.
#pragma once

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_vault.h"
#include "local_vault/disk_world.h"

#include "vault/vault_objects.h"

#include <gtest/gtest.h>

namespace tv {

/// Places are given below the vault's root, with backslashes. Files are checked in and their local copies stand on the
/// disk.
class SimulatedVault
{
  public:
    IVyxVault* Get() const { return vault.Get(); }
    std::u16string Root() const { return u"C:\\Vault"; }
    std::u16string PathOf(std::u16string_view place) const { return u"C:\\Vault\\" + std::u16string(place); }
    std::u16string Outside() const { return u"D:\\Elsewhere\\a.step"; }

    void AddFile(std::u16string_view place, int32_t versions = 1);
    void AddFolder(std::u16string_view place) { vault.AddFolder(PathOf(place)); }
    int32_t AddVariable(std::u16string_view name) { return vault.AddVariable(name); }
    void SetCard(std::u16string_view place, int32_t variable, std::u16string_view configuration,
                 std::u16string_view text);
    void CheckOutByAnother(std::u16string_view place) { vault.CheckOut(PathOf(place), u"somebody"); }
    /// Everybody may read in the folder and nothing else.
    void Close(std::u16string_view folder) { vault.MakeReadOnly(PathOf(folder)); }
    void Refer(std::u16string_view parent, std::u16string_view source);

    std::vector<int32_t> SourcesOf(std::u16string_view place);
    std::u16string CommentOf(std::u16string_view place);
    void WriteOnDisk(std::u16string_view place) { machine.files.AddFile(PathOf(place), "written by the macro"); }
    void RemoveFromDisk(std::u16string_view place) { machine.files.RemoveFile(PathOf(place)); }
    bool StandsOnDisk(std::u16string_view place) { return machine.files.FileExists(PathOf(place)); }

  private:
    fakes::FakePlatform machine;
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
};

class LocalVault : public local::DiskWorld
{
  public:
    void TestBody() override {}

    IVyxVault* Get() const { return vault.get(); }
    std::u16string Root() const;
    std::u16string PathOf(std::u16string_view place) const;
    std::u16string Outside() const;

    void AddFile(std::u16string_view place, int32_t versions = 1);
    void AddFolder(std::u16string_view place);
    int32_t AddVariable(std::u16string_view name);
    void SetCard(std::u16string_view place, int32_t variable, std::u16string_view configuration,
                 std::u16string_view text);
    void CheckOutByAnother(std::u16string_view place);
    void Close(std::u16string_view folder);
    void Refer(std::u16string_view parent, std::u16string_view source);

    std::vector<int32_t> SourcesOf(std::u16string_view place);
    std::u16string CommentOf(std::u16string_view place);
    void WriteOnDisk(std::u16string_view place);
    void RemoveFromDisk(std::u16string_view place);
    bool StandsOnDisk(std::u16string_view place) const;

  private:
    std::filesystem::path DiskPath(std::u16string_view place) const;
    local::FileRecord Record(std::u16string_view place);

    std::shared_ptr<local::VaultStore> store = Make();
    ComPtr<IVyxVault> vault = local::MakeVaultObject(store);
};

using Vaults = testing::Types<SimulatedVault, LocalVault>;

/// What the suites share: the steps that every test begins with.
template <typename World> class VaultContract : public testing::Test
{
  protected:
    static constexpr Result kPermissionDenied = static_cast<Result>(0x80040203u);
    static constexpr Result kFileNotFound = static_cast<Result>(0x80040213u);
    static constexpr Result kFolderNotFound = static_cast<Result>(0x80040214u);
    static constexpr Result kNotLockedByYou = static_cast<Result>(0x80040210u);
    static constexpr Result kFileIsLocked = static_cast<Result>(0x80040211u);
    static constexpr Result kLockedByAnother = static_cast<Result>(0x80040212u);
    static constexpr Result kEndOfList = static_cast<Result>(0x80040208u);

    template <typename Utility> ComPtr<Utility> Make(int32_t number)
    {
        ComPtr<IUnknown> object;
        EXPECT_EQ(world.Get()->CreateUtility(number, object.put()), 0);
        ComPtr<Utility> utility;
        EXPECT_EQ(object.As(utility), 0);
        return utility;
    }

    ComPtr<IVyxFile> FileAt(std::u16string_view place)
    {
        ComPtr<IVyxFile> file;
        EXPECT_EQ(world.Get()->GetFileFromPath(world.PathOf(place).c_str(), nullptr, file.put()), 0);
        return file;
    }

    ComPtr<IVyxFolder> FolderOf(std::u16string_view place)
    {
        ComPtr<IVyxFolder> folder;
        ComPtr<IVyxFile> file;
        EXPECT_EQ(world.Get()->GetFileFromPath(world.PathOf(place).c_str(), folder.put(), file.put()), 0);
        return folder;
    }

    VyxSelectionPair PairOf(std::u16string_view place)
    {
        VyxSelectionPair pair{};
        EXPECT_EQ(FileAt(place)->GetID(&pair.fileId), 0);
        EXPECT_EQ(FolderOf(place)->GetID(&pair.folderId), 0);
        return pair;
    }

    int32_t VersionOf(std::u16string_view place)
    {
        int32_t version = 0;
        EXPECT_EQ(FileAt(place)->GetCurrentVersion(&version), 0);
        return version;
    }

    bool IsLocked(std::u16string_view place)
    {
        VariantBool locked = kVariantFalse;
        EXPECT_EQ(FileAt(place)->IsLocked(&locked), 0);
        return locked != kVariantFalse;
    }

    Result Lock(std::u16string_view place) { return FileAt(place)->LockFile(PairOf(place).folderId, 0, 0); }

    bool IsInVault(std::u16string_view place)
    {
        ComPtr<IVyxFile> file;
        return world.Get()->GetFileFromPath(world.PathOf(place).c_str(), nullptr, file.put()) == 0;
    }

    Result CheckIn(const std::vector<VyxSelectionPair>& pairs, const char16_t* comment = u"Torvane Task Add-in")
    {
        const auto unlock = Make<IVyxBatchUnlock>(6);
        const SafeArray array = MakeRecordArray(std::span<const VyxSelectionPair>(pairs));
        VariantBool done = kVariantFalse;
        EXPECT_EQ(unlock->SetComment(comment), 0);
        EXPECT_EQ(unlock->AddSelection(world.Get(), array.get()), 0);
        EXPECT_EQ(unlock->CreateTree(0, 1, 0, &done), 0);
        return unlock->UnlockFiles(0, 0);
    }

    World world;
};

} // namespace tv
