// FakeVault: a little vault in memory that answers through the vault's own interfaces.
#pragma once

#include "com/com_ptr.h"
#include "com/variant.h"
#include "fakes/vault/vault_script.h"
#include "interfaces/vault.h"
#include "platform/file_service.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tv::fakes {

/// Failures of the simulated vault.
inline constexpr Result kVaultPermissionDenied = static_cast<Result>(0x80040203u);
inline constexpr Result kVaultEndOfList = static_cast<Result>(0x80040208u);
inline constexpr Result kVaultNotLockedByYou = static_cast<Result>(0x80040210u);
inline constexpr Result kVaultFileIsLocked = static_cast<Result>(0x80040211u);
inline constexpr Result kVaultLockedByAnother = static_cast<Result>(0x80040212u);
inline constexpr Result kVaultFileNotFound = static_cast<Result>(0x80040213u);
inline constexpr Result kVaultFolderNotFound = static_cast<Result>(0x80040214u);
inline constexpr Result kVaultVariableNotFound = static_cast<Result>(0x80040252u);

/// What a file's card holds: values by configuration name and variable id.
using FakeCard = std::map<std::u16string, std::map<int32_t, Variant>>;

struct FakeVersion
{
    std::u16string revision;
    std::u16string state;
    FakeCard card;
    std::u16string comment;
};

struct FakeFile
{
    int32_t id = 0;
    int32_t folderId = 0;
    std::u16string path;
    std::map<int32_t, FakeVersion> versions; ///< by number, from 1
    std::u16string lockedBy;                 ///< empty when the file is checked in
    bool isNew = false;                      ///< added and not yet checked in
    std::map<int32_t, Variant> cardUpdates;  ///< what batch updates wrote, by variable id
    std::map<int32_t, Variant> nextCard;     ///< the part of it that waits for the version of the check-in
    std::vector<VyxSelectionPair> references;

    int32_t CurrentVersion() const { return versions.empty() ? 0 : versions.rbegin()->first; }
};

struct FakeFolder
{
    int32_t id = 0;
    int32_t parentId = 0;
    std::u16string path;
    bool readOnly = false;
};

/// Everything that the simulated vault knows; its objects share it.
struct VaultWorld
{
    std::u16string name = u"TestVault";
    std::u16string root;
    std::u16string user = u"operator";
    FileService* disk = nullptr; ///< where local copies stand; null when a test doesn't care
    std::unordered_map<int32_t, std::unique_ptr<FakeFile>> files;
    std::map<int32_t, FakeFolder> folders;
    std::map<int32_t, std::u16string> variables; ///< card variables by id
    std::vector<int32_t> pendingCommits;         ///< what the next first commits of references leave pending
    int32_t lastId = 0;
    VaultScript script;

    /// Of files with the same path, the first that came.
    FakeFile* FindFile(std::u16string_view path);
    FakeFile* FindFile(int32_t id);
    FakeFolder* FindFolder(std::u16string_view path);
    FakeFolder* FindFolder(int32_t id);
    /// Ids in the order in which the files came.
    std::vector<int32_t> FilesIn(int32_t folderId);
    std::vector<int32_t> SubFolders(int32_t folderId);
    FakeFile& Insert(std::u16string_view path, int32_t folderId);
    FakeFolder& InsertFolder(std::u16string_view path, int32_t parentId);
    bool LockedByAnother(const FakeFile& file) const { return !file.lockedBy.empty() && file.lockedBy != user; }

  private:
    /// Ids in the order in which they came. A test may take files away, so an id may have nothing behind it.
    using Index = std::vector<int32_t>;

    std::unordered_map<std::u16string, Index> filesByPath;
    std::unordered_map<std::u16string, Index> foldersByPath;
    std::unordered_map<int32_t, Index> filesByFolder;
    std::unordered_map<int32_t, Index> foldersByParent;
};

/// Owns the world; a test builds it up, hands Get() to the code under test, and looks at what became of it.
class FakeVault
{
  public:
    explicit FakeVault(std::u16string_view root = u"C:\\Vault", FileService* disk = nullptr);

    IVyxVault* Get() const { return vault.get(); }

    /// Adds a folder and the missing ones above it; returns its id.
    int32_t AddFolder(std::u16string_view path);
    /// Adds a checked-in file with so many versions, and its folder if that is missing. No local copy is made.
    FakeFile& AddFile(std::u16string_view path, int32_t versions = 1);
    /// Adds a card variable; returns its id.
    int32_t AddVariable(std::u16string_view name);
    void CheckOut(std::u16string_view path, std::u16string_view user);
    /// Nobody may add, lock or delete files in the folder.
    void MakeReadOnly(std::u16string_view folder);

    /// The file at a path, null when it isn't in the vault.
    FakeFile* File(std::u16string_view path) { return world->FindFile(path); }
    FakeFolder* Folder(std::u16string_view path) { return world->FindFolder(path); }
    VaultWorld& World() { return *world; }
    /// Call log and faults.
    VaultScript& Script() { return world->script; }

  private:
    std::shared_ptr<VaultWorld> world;
    ComPtr<IVyxVault> vault;
};

} // namespace tv::fakes
