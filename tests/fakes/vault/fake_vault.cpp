#include "fakes/vault/fake_vault.h"

#include "fakes/vault/vault_objects.h"
#include "support/paths.h"
#include "support/text_compare.h"

namespace tv::fakes {

FakeFile* VaultWorld::FindFile(std::u16string_view path)
{
    for (auto& [id, file] : files) {
        if (EqualIgnoringCase(file->path, path)) {
            return file.get();
        }
    }
    return nullptr;
}

FakeFile* VaultWorld::FindFile(int32_t id)
{
    const auto found = files.find(id);
    return found != files.end() ? found->second.get() : nullptr;
}

FakeFolder* VaultWorld::FindFolder(std::u16string_view path)
{
    for (auto& [id, folder] : folders) {
        if (EqualIgnoringCase(folder.path, path)) {
            return &folder;
        }
    }
    return nullptr;
}

FakeFolder* VaultWorld::FindFolder(int32_t id)
{
    const auto found = folders.find(id);
    return found != folders.end() ? &found->second : nullptr;
}

FakeFile& VaultWorld::Insert(std::u16string_view path, int32_t folderId)
{
    auto file = std::make_unique<FakeFile>();
    file->id = ++lastId;
    file->folderId = folderId;
    file->path = path;
    return *(files[file->id] = std::move(file));
}

FakeVault::FakeVault(std::u16string_view root, FileService* disk) : world(std::make_shared<VaultWorld>())
{
    world->root = root;
    world->disk = disk;
    const int32_t id = ++world->lastId;
    world->folders[id] = {id, 0, std::u16string(root), false};
    vault = MakeVaultObject(world);
}

int32_t FakeVault::AddFolder(std::u16string_view path)
{
    if (const FakeFolder* folder = world->FindFolder(path)) {
        return folder->id;
    }
    const std::u16string parent = FolderOf(path);
    const int32_t parentId = parent.size() < world->root.size() ? 0 : AddFolder(parent);
    const int32_t id = ++world->lastId;
    world->folders[id] = {id, parentId, std::u16string(path), false};
    return id;
}

FakeFile& FakeVault::AddFile(std::u16string_view path, int32_t versions)
{
    const int32_t folderId = AddFolder(FolderOf(path));
    FakeFile& file = world->Insert(path, folderId);
    for (int32_t version = 1; version <= versions; ++version) {
        file.versions[version];
    }
    return file;
}

int32_t FakeVault::AddVariable(std::u16string_view name)
{
    const int32_t id = ++world->lastId;
    world->variables[id] = name;
    return id;
}

void FakeVault::CheckOut(std::u16string_view path, std::u16string_view user)
{
    world->FindFile(path)->lockedBy = user;
}

void FakeVault::MakeReadOnly(std::u16string_view folder)
{
    world->FindFolder(folder)->readOnly = true;
}

} // namespace tv::fakes
