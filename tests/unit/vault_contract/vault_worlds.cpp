#include "vault_worlds.h"

#include "vault/text.h"

namespace tv {

void SimulatedVault::AddFile(std::u16string_view place, int32_t versions)
{
    vault.AddFile(PathOf(place), versions);
    machine.files.AddFile(PathOf(place), "bytes");
}

void SimulatedVault::SetCard(std::u16string_view place, int32_t variable, std::u16string_view configuration,
                             std::u16string_view text)
{
    fakes::FakeFile& file = *vault.File(PathOf(place));
    file.versions.rbegin()->second.card[std::u16string(configuration)][variable] = Variant::FromText(text);
}

void SimulatedVault::Refer(std::u16string_view parent, std::u16string_view source)
{
    const fakes::FakeFile& file = *vault.File(PathOf(source));
    vault.File(PathOf(parent))->references.push_back({file.id, file.folderId});
}

std::vector<int32_t> SimulatedVault::SourcesOf(std::u16string_view place)
{
    std::vector<int32_t> sources;
    for (const VyxSelectionPair& reference : vault.File(PathOf(place))->references) {
        sources.push_back(reference.fileId);
    }
    return sources;
}

std::u16string SimulatedVault::CommentOf(std::u16string_view place)
{
    return vault.File(PathOf(place))->versions.rbegin()->second.comment;
}

std::filesystem::path LocalVault::DiskPath(std::u16string_view place) const
{
    std::string text = local::Utf8(place);
    std::replace(text.begin(), text.end(), '\\', '/');
    return (DiskWorld::Root() / local::PathOf(text)).make_preferred();
}

std::u16string LocalVault::Root() const
{
    return local::Utf16(local::TextOf(DiskWorld::Root()));
}

std::u16string LocalVault::PathOf(std::u16string_view place) const
{
    return local::Utf16(local::TextOf(DiskPath(place)));
}

std::u16string LocalVault::Outside() const
{
    return local::Utf16(local::TextOf(Folder("elsewhere") / "a.step"));
}

local::FileRecord LocalVault::Record(std::u16string_view place)
{
    return store->FindFile(local::ParseVaultPath(local::Utf8(place))).value();
}

void LocalVault::AddFile(std::u16string_view place, int32_t versions)
{
    local::VaultPath folder = local::ParseVaultPath(local::Utf8(place));
    const std::string name = folder.back();
    folder.pop_back();
    for (int32_t version = 1; version <= versions; ++version) {
        Import(*store, name, "version " + std::to_string(version), folder);
    }
}

void LocalVault::AddFolder(std::u16string_view place)
{
    store->MakeFolder(local::ParseVaultPath(local::Utf8(place)));
}

int32_t LocalVault::AddVariable(std::u16string_view name)
{
    return store->MakeCardVariable(local::Utf8(name));
}

void LocalVault::SetCard(std::u16string_view place, int32_t variable, std::u16string_view configuration,
                         std::u16string_view text)
{
    const local::CardWrite write{Record(place).id, variable, local::Utf8(configuration),
                                 local::StoredValue::FromText(local::Utf8(text))};
    store->WriteCards(std::span(&write, 1));
}

void LocalVault::CheckOutByAnother(std::u16string_view place)
{
    local::FileWork(OpenAs(local::kBert)).CheckOut(Record(place).id);
}

void LocalVault::Close(std::u16string_view folder)
{
    const auto record = store->FindFolder(local::ParseVaultPath(local::Utf8(folder)));
    constexpr uint32_t kReadAndPermit =
        static_cast<uint32_t>(local::Right::Read) | static_cast<uint32_t>(local::Right::Permit);
    store->Permit(record.value().id, local::kEveryUser, local::Rights{kReadAndPermit});
}

void LocalVault::Refer(std::u16string_view parent, std::u16string_view source)
{
    const local::ReferenceRecord reference{Record(source).id, 0};
    store->AddReferences(Record(parent).id, std::span(&reference, 1));
}

std::vector<int32_t> LocalVault::SourcesOf(std::u16string_view place)
{
    const local::FileRecord file = Record(place);
    std::vector<int32_t> sources;
    for (const local::ReferenceRecord& reference : store->References(file.id, file.latestVersion)) {
        sources.push_back(reference.sourceFile);
    }
    return sources;
}

std::u16string LocalVault::CommentOf(std::u16string_view place)
{
    const local::FileRecord file = Record(place);
    return local::Utf16(store->Version(file.id, file.latestVersion)->comment);
}

void LocalVault::WriteOnDisk(std::u16string_view place)
{
    std::filesystem::create_directories(DiskPath(place).parent_path());
    local::WriteBytes(DiskPath(place), "written by the macro");
}

void LocalVault::RemoveFromDisk(std::u16string_view place)
{
    store->Files().Remove(DiskPath(place));
}

bool LocalVault::StandsOnDisk(std::u16string_view place) const
{
    return local::Disk::IsFile(DiskPath(place));
}

} // namespace tv
