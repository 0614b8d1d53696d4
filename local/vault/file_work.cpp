#include "vault/file_work.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <map>
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

bool FileWork::HoldsVersion(const fs::path& place, const VersionRecord& version) const
{
    const auto stamp = Disk::StampOf(place);
    return stamp && stamp->size == version.size && Disk::Read(place).hash == version.content;
}

std::shared_ptr<const TemporaryFile> FileWork::CopyOf(const fs::path& from)
{
    auto copy = std::make_shared<TemporaryFile>(store->Files(), store->TemporaryPath());
    store->Files().CopyFlushed(from, copy->Path());
    return copy;
}

fs::path FileWork::Fetch(const FileRecord& asked, int32_t version)
{
    const fs::path place = LocalPathOf(asked);
    const Disk& disk = store->Files();
    // Another program may check the file out or in while the bytes are copied; then all is asked again.
    for (FileRecord file = asked;; file = store->RequireFile(asked.id)) {
        if (file.checkOut && Disk::IsFile(place)) {
            return place;
        }
        const VersionRecord wanted = RequireVersion(file, version);
        const bool holds = HoldsVersion(place, wanted);
        const bool readOnly = !file.checkOut;
        if (holds && Disk::IsReadOnly(place) == readOnly) {
            return place;
        }
        disk.MakeFolders(place.parent_path());
        const auto copy = holds ? nullptr : CopyOf(store->ContentPath(wanted));
        const bool done = store->WhileUnchanged(file, [&] {
            if (copy) {
                disk.Replace(copy->Path(), place);
            }
            disk.SetReadOnly(place, readOnly);
        });
        if (done) {
            return place;
        }
    }
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

AddPlan FileWork::PlanAdd(const AddRequest& request)
{
    const std::string name = TextOf(request.from.filename());
    VaultPath path = request.folder;
    path.push_back(name);
    // Asked before the bytes are copied; whether it is still so is asked again where the row is made.
    if (const auto folder = store->FindFolder(request.folder)) {
        store->RequireRight(folder->id, Right::Add);
        if (store->HasFile(folder->id, name)) {
            Fail(kErrorNameAlreadyExists, "The vault has '" + VaultPathText(path) + "' already.");
        }
    }
    const fs::path place = LocalPath(path);
    const Disk& disk = store->Files();
    std::shared_ptr<const TemporaryFile> copy;
    if (!SameName(TextOf(request.from.lexically_normal()), TextOf(place.lexically_normal()))) {
        disk.MakeFolders(place.parent_path());
        copy = CopyOf(request.from);
    }
    return {request.folder, name, store->TakeBytes(request.from), [&disk, place, copy] {
                if (copy) {
                    disk.Replace(copy->Path(), place);
                }
                return Disk::StampOf(place).value_or(FileStamp{});
            }};
}

std::vector<AddOutcome> FileWork::AddAll(std::span<const AddRequest> requests)
{
    std::vector<AddOutcome> outcomes(requests.size());
    std::vector<AddPlan> plans;
    std::vector<size_t> places;
    for (size_t i = 0; i < requests.size(); ++i) {
        outcomes[i].outcome = OutcomeOf([&] {
            plans.push_back(PlanAdd(requests[i]));
            places.push_back(i);
        });
    }
    if (plans.empty()) {
        return outcomes;
    }
    std::vector<AddOutcome> added = store->AddFiles(plans);
    for (size_t i = 0; i < added.size(); ++i) {
        outcomes[places[i]] = std::move(added[i]);
    }
    return outcomes;
}

FileRecord FileWork::Add(const fs::path& from, const FolderRecord& folder)
{
    const AddRequest request{from, store->PathOfFolder(folder.id)};
    const AddOutcome added = AddAll({&request, 1}).front();
    if (added.outcome.code != 0) {
        Fail(added.outcome.code, added.outcome.words);
    }
    return *added.file;
}

void FileWork::CheckOut(int32_t id)
{
    for (bool done = false; !done;) {
        const FileRecord file = store->RequireFile(id);
        store->RequireCheckOutable(file);
        const fs::path place = LocalPathOf(file);
        const VersionRecord latest = RequireVersion(file, 0);
        const Disk& disk = store->Files();
        const auto copy = HoldsVersion(place, latest) ? nullptr : CopyOf(store->ContentPath(latest));
        disk.MakeFolders(place.parent_path());
        done = store->CheckOut(id, latest.number, [&] {
            if (copy) {
                disk.Replace(copy->Path(), place);
            }
            disk.SetReadOnly(place, false);
            return Disk::StampOf(place).value_or(FileStamp{});
        });
    }
}

CheckInPlan FileWork::PlanCheckIn(int32_t id)
{
    const FileRecord file = store->RequireFile(id);
    store->RequireCheckInable(file);
    const fs::path place = LocalPathOf(file);
    const auto stamp = Disk::StampOf(place);
    if (!stamp) {
        Fail(kErrorFileNotFound, "The local copy '" + TextOf(place) + "' is missing.");
    }
    CheckInPlan plan{id, std::nullopt};
    const bool untouched = *stamp == file.checkOut->handedOut;
    const bool isFirst = file.checkOut->fresh;
    if (isFirst ? !HoldsVersion(place, RequireVersion(file, 0)) : !untouched) {
        plan.content = store->TakeBytes(place);
    }
    return plan;
}

std::vector<Outcome> FileWork::CheckIn(std::span<const int32_t> files, std::string_view comment)
{
    std::vector<Outcome> outcomes(files.size());
    std::vector<CheckInPlan> plans;
    std::map<int32_t, size_t> planned; // the plan of each file; a file named twice has one
    for (size_t i = 0; i < files.size(); ++i) {
        outcomes[i] = OutcomeOf([&] {
            if (!planned.contains(files[i])) {
                plans.push_back(PlanCheckIn(files[i]));
                planned[files[i]] = plans.size() - 1;
            }
        });
    }
    if (plans.empty()) {
        return outcomes;
    }
    const std::vector<Outcome> done = store->CheckIn(plans, comment);
    for (size_t i = 0; i < files.size(); ++i) {
        if (const auto plan = planned.find(files[i]); plan != planned.end()) {
            outcomes[i] = done[plan->second];
        }
    }
    for (const CheckInPlan& plan : plans) {
        // The check-in has happened; a copy that stays writable is put right when it is next fetched.
        (void)AtBoundary([&] {
            if (const auto file = store->FileById(plan.file); file && !file->checkOut) {
                store->Files().SetReadOnly(LocalPathOf(*file), true);
            }
            return 0;
        });
    }
    return outcomes;
}

UndoneFile FileWork::UndoCheckOut(int32_t id)
{
    const FileRecord file = store->RequireFile(id);
    store->RequireCheckedOutHere(file);
    const VaultPath path = store->PathOfFile(file);
    const fs::path place = LocalPath(path);
    const Disk& disk = store->Files();
    std::shared_ptr<const TemporaryFile> copy;
    if (!file.checkOut->fresh) {
        const VersionRecord latest = RequireVersion(file, 0);
        copy = HoldsVersion(place, latest) ? nullptr : CopyOf(store->ContentPath(latest));
        disk.MakeFolders(place.parent_path());
    }
    const bool leftVault = store->UndoCheckOut(id, file.latestVersion, [&] {
        if (copy) {
            disk.Replace(copy->Path(), place);
        }
        disk.SetReadOnly(place, true);
    });
    if (leftVault) {
        RemoveCopy(path);
    }
    return {file, leftVault};
}

/// Another file may have come to the place since; then the copy is that file's.
void FileWork::RemoveCopy(const VaultPath& path)
{
    store->WhereNoFileIs(path, [&] { store->Files().Remove(LocalPath(path)); });
}

void FileWork::Delete(int32_t id)
{
    const VaultPath path = store->PathOfFile(store->RequireFile(id));
    store->RemoveFile(id);
    RemoveCopy(path);
}

FileRecord FileWork::Restore(int32_t id)
{
    const FileRecord file = store->RestoreFile(id);
    Fetch(file, 0);
    return file;
}

ImportedFile FileWork::Import(const fs::path& from, const VaultPath& folderPath, std::string_view comment)
{
    const std::string name = TextOf(from.filename());
    CheckName(name);
    const FolderRecord folder = store->MakeFolder(folderPath);
    VaultPath path = folderPath;
    path.push_back(name);
    auto present = store->FindFile(path);
    present ? store->RequireCheckOutable(*present) : store->RequireRight(folder.id, Right::Add);
    const PendingContent content = store->TakeBytes(from);
    std::optional<FileRecord> added;
    if (!present) {
        const Outcome outcome =
            OutcomeOf([&] { added = store->AddFile(folder.id, name, content, std::nullopt, comment); });
        if (outcome.code == kErrorNameAlreadyExists) {
            // Another program may have brought it while the bytes were copied.
            present = store->FindFile(path);
        }
        if (!added && !present) {
            Fail(outcome.code, outcome.words);
        }
    }
    if (present) {
        store->AddVersion(present->id, content, comment);
    }
    const FileRecord file = store->RequireFile(added ? added->id : present->id);
    const Outcome fetched = OutcomeOf([&] { Fetch(file, 0); });
    if (fetched.code != 0) {
        Fail(fetched.code, "'" + VaultPathText(path) + "' is in the vault as version " +
                               std::to_string(file.latestVersion) +
                               ", but its local copy isn't up to date: " + fetched.words);
    }
    return {file, added.has_value()};
}

void FileWork::Export(const FileRecord& file, int32_t version, const fs::path& to)
{
    const VersionRecord wanted = RequireVersion(file, version);
    store->Files().MakeFolders(fs::absolute(to).parent_path());
    store->Files().CopyFlushed(store->ContentPath(wanted), to);
}

} // namespace tv::local
