#include "fakes/vault/fake_vault.h"

#include "fakes/vault/vault_objects.h"
#include "support/paths.h"
#include "support/text_compare.h"

namespace tv::fakes {

namespace {

/// The ids that still stand for something; the others leave the index.
template <typename Things> const std::vector<int32_t>& Standing(std::vector<int32_t>& ids, const Things& things)
{
    std::erase_if(ids, [&](int32_t id) { return !things.contains(id); });
    return ids;
}

/// The first of the ids that still stands for something; those before it leave the index.
template <typename Find> auto FirstStanding(std::vector<int32_t>& ids, Find&& find) -> decltype(find(0))
{
    while (!ids.empty()) {
        if (auto* thing = find(ids.front())) {
            return thing;
        }
        ids.erase(ids.begin());
    }
    return nullptr;
}

} // namespace

FakeFile* VaultWorld::FindFile(std::u16string_view path)
{
    const auto found = filesByPath.find(InCapitals(path));
    return found != filesByPath.end() ? FirstStanding(found->second, [&](int32_t id) { return FindFile(id); })
                                      : nullptr;
}

FakeFile* VaultWorld::FindFile(int32_t id)
{
    const auto found = files.find(id);
    return found != files.end() ? found->second.get() : nullptr;
}

FakeFolder* VaultWorld::FindFolder(std::u16string_view path)
{
    const auto found = foldersByPath.find(InCapitals(path));
    return found != foldersByPath.end() ? FirstStanding(found->second, [&](int32_t id) { return FindFolder(id); })
                                        : nullptr;
}

FakeFolder* VaultWorld::FindFolder(int32_t id)
{
    const auto found = folders.find(id);
    return found != folders.end() ? &found->second : nullptr;
}

std::vector<int32_t> VaultWorld::FilesIn(int32_t folderId)
{
    return Standing(filesByFolder[folderId], files);
}

std::vector<int32_t> VaultWorld::SubFolders(int32_t folderId)
{
    return Standing(foldersByParent[folderId], folders);
}

FakeFile& VaultWorld::Insert(std::u16string_view path, int32_t folderId)
{
    auto file = std::make_unique<FakeFile>();
    file->id = ++lastId;
    file->folderId = folderId;
    file->path = path;
    filesByPath[InCapitals(path)].push_back(file->id);
    filesByFolder[folderId].push_back(file->id);
    return *(files[file->id] = std::move(file));
}

FakeFolder& VaultWorld::InsertFolder(std::u16string_view path, int32_t parentId)
{
    const int32_t id = ++lastId;
    foldersByPath[InCapitals(path)].push_back(id);
    foldersByParent[parentId].push_back(id);
    return folders[id] = {id, parentId, std::u16string(path), false};
}

FakeVault::FakeVault(std::u16string_view root, FileService* disk) : world(std::make_shared<VaultWorld>())
{
    world->root = root;
    world->disk = disk;
    world->InsertFolder(root, 0);
    vault = MakeVaultObject(world);
}

int32_t FakeVault::AddFolder(std::u16string_view path)
{
    if (const FakeFolder* folder = world->FindFolder(path)) {
        return folder->id;
    }
    const std::u16string parent = FolderOf(path);
    const int32_t parentId = parent.size() < world->root.size() ? 0 : AddFolder(parent);
    return world->InsertFolder(path, parentId).id;
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
