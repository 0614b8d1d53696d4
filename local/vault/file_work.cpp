#include "vault/file_work.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <set>

namespace tv::local {

namespace fs = std::filesystem;

fs::path FileWork::LocalPath(const VaultPath& path) const
{
    fs::path place = store->Root();
    for (const std::string& name : path) {
        place /= PathOf(name);
    }
    return place;
}

fs::path FileWork::LocalPathOf(const FileRecord& file) const
{
    return LocalPath(store->PathOfFile(file));
}

bool FileWork::IsCheckedOutHere(const FileRecord& file) const
{
    return file.checkOut && file.checkOut->holder == store->CurrentUser();
}

VersionRecord FileWork::RequireVersion(const FileRecord& file, int32_t version)
{
    const auto record = store->Version(file.id, version > 0 ? version : file.latestVersion);
    if (!record) {
        Fail(kErrorFileNotFound, "'" + VaultPathText(store->PathOfFile(file)) + "' has no version " +
                                     std::to_string(version) + "; its latest is " + std::to_string(file.latestVersion) +
                                     ".");
    }
    return *record;
}

void FileWork::PutCopy(const fs::path& from, const fs::path& place)
{
    const Disk& disk = store->Files();
    disk.MakeFolders(place.parent_path());
    const fs::path temporary = store->TemporaryFile();
    disk.CopyFlushed(from, temporary);
    disk.Replace(temporary, place);
}

fs::path FileWork::Fetch(const FileRecord& file, int32_t version)
{
    const fs::path place = LocalPathOf(file);
    if (IsCheckedOutHere(file) && Disk::IsFile(place)) {
        return place;
    }
    const VersionRecord wanted = RequireVersion(file, version);
    const auto stamp = Disk::StampOf(place);
    if (!stamp || stamp->size != wanted.size || Disk::Read(place).hash != wanted.content) {
        PutCopy(store->ContentPath(wanted), place);
    }
    store->Files().SetReadOnly(place, !IsCheckedOutHere(file));
    return place;
}

void FileWork::FetchWithReferences(const FileRecord& first, int32_t version, ReferenceRule rule)
{
    std::set<int32_t> seen{first.id};
    std::vector<std::pair<FileRecord, int32_t>> waiting{{first, version}};
    while (!waiting.empty()) {
        const auto [file, number] = waiting.back();
        waiting.pop_back();
        Fetch(file, number);
        for (const ReferenceRecord& reference : store->References(file.id, number > 0 ? number : file.latestVersion)) {
            const auto source = store->FileById(reference.sourceFile);
            if (source && seen.insert(source->id).second) {
                waiting.emplace_back(*source, rule == ReferenceRule::AsBuilt ? reference.sourceVersion : 0);
            }
        }
    }
}

FileRecord FileWork::Add(const fs::path& from, const FolderRecord& folder)
{
    const std::string name = TextOf(from.filename());
    const fs::path place = LocalPath(store->PathOfFolder(folder.id)) / from.filename();
    const bool elsewhere = !SameName(TextOf(from.lexically_normal()), TextOf(place.lexically_normal()));
    if (elsewhere && store->FindFile([&] {
            VaultPath path = store->PathOfFolder(folder.id);
            path.push_back(name);
            return path;
        }())) {
        Fail(kErrorNameAlreadyExists, "The vault has '" + name + "' in that folder already.");
    }
    if (elsewhere) {
        PutCopy(from, place);
    }
    const PendingContent content = store->TakeBytes(place);
    return store->AddFile(folder.id, name, content, Disk::StampOf(place).value_or(FileStamp{}));
}

void FileWork::CheckOut(int32_t id)
{
    const auto file = store->FileById(id);
    if (!file) {
        Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(id) + ".");
    }
    const fs::path place = LocalPathOf(*file);
    if (!file->checkOut) {
        Fetch(*file, 0);
        store->Files().SetReadOnly(place, false);
    }
    try {
        store->CheckOut(id, Disk::StampOf(place).value_or(FileStamp{}));
    } catch (const ResultError&) {
        // Somebody else was faster; the copy isn't ours to write.
        if (const auto now = store->FileById(id); now && !IsCheckedOutHere(*now) && Disk::IsFile(place)) {
            store->Files().SetReadOnly(place, true);
        }
        throw;
    }
}

CheckInPlan FileWork::PlanCheckIn(int32_t id)
{
    const auto file = store->FileById(id);
    if (!file) {
        Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(id) + ".");
    }
    store->RequireCheckedOutHere(*file);
    const fs::path place = LocalPathOf(*file);
    const auto stamp = Disk::StampOf(place);
    if (!stamp) {
        Fail(kErrorFileNotFound, "The local copy '" + TextOf(place) + "' is missing.");
    }
    CheckInPlan plan{id, std::nullopt};
    const bool untouched = *stamp == file->checkOut->handedOut;
    const bool isFirst = file->checkOut->fresh;
    if (isFirst ? Disk::Read(place).hash != RequireVersion(*file, 0).content : !untouched) {
        plan.content = store->TakeBytes(place);
    }
    return plan;
}

std::vector<Result> FileWork::CheckIn(std::span<const int32_t> files, std::string_view comment)
{
    std::vector<Result> results;
    std::vector<CheckInPlan> plans;
    std::set<int32_t> planned;
    for (int32_t file : files) {
        try {
            if (planned.insert(file).second) {
                plans.push_back(PlanCheckIn(file));
            }
            results.push_back(0);
        } catch (const ResultError& error) {
            results.push_back(error.Code());
        }
    }
    store->CheckIn(plans, comment);
    for (const CheckInPlan& plan : plans) {
        // The check-in has happened; a copy that stays writable is put right when it is next fetched.
        (void)AtBoundary([&] {
            store->Files().SetReadOnly(LocalPathOf(*store->FileById(plan.file)), true);
            return 0;
        });
    }
    return results;
}

void FileWork::Delete(int32_t id)
{
    const auto file = store->FileById(id);
    if (!file) {
        Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(id) + ".");
    }
    const fs::path place = LocalPathOf(*file);
    store->RemoveFile(id);
    store->Files().Remove(place);
}

ImportedFile FileWork::Import(const fs::path& from, const VaultPath& folderPath, std::string_view comment)
{
    const std::string name = TextOf(from.filename());
    CheckName(name);
    const FolderRecord folder = store->MakeFolder(folderPath);
    VaultPath path = folderPath;
    path.push_back(name);
    const auto present = store->FindFile(path);
    const PendingContent content = store->TakeBytes(from);
    int32_t id = 0;
    if (present) {
        id = present->id;
        store->AddVersion(id, content, comment);
    } else {
        id = store->AddFile(folder.id, name, content, std::nullopt, comment).id;
    }
    const FileRecord file = *store->FileById(id);
    Fetch(file, 0);
    return {file, !present};
}

void FileWork::Export(const FileRecord& file, int32_t version, const fs::path& to)
{
    const VersionRecord wanted = RequireVersion(file, version);
    store->Files().MakeFolders(fs::absolute(to).parent_path());
    store->Files().CopyFlushed(store->ContentPath(wanted), to);
}

} // namespace tv::local
