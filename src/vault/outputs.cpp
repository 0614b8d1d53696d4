// What a macro leaves behind: taking note of it, and answering for it at the end of a run.

#include "support/notification.h"
#include "support/paths.h"
#include "vault/vault_access.h"
#include "vault/vault_files.h"

#include <algorithm>

namespace tv {

namespace {

constexpr int32_t kAllVersions = -1;
constexpr int32_t kFileObject = 1;

} // namespace

void VaultFiles::AddOutput(std::u16string_view path, std::u16string_view name, bool isLog)
{
    if (path.empty()) {
        return;
    }
    TaskFile output;
    output.path = CanonicalPath(path);
    if (IsKnownOutput(output.path)) {
        return;
    }
    output.source = current;
    output.outputConf = name;
    output.isLog = isLog;
    output.underVaultRoot = StartsWithRoot(output.path);

    VaultPlace place;
    if (FindInVault(vault.get(), output.path, place) != 0) {
        ClearTheWay(output.path);
    } else if (PrepareVaultFile(place, output) != 0) {
        return;
    }
    if (output.fileId == 0) {
        // The vault client drops repeated notifications now and then, so a new file is announced three times.
        for (int i = 0; i < 3; ++i) {
            NotifyVaultClient(platform.pipes, kNotifyOfFile, output.path);
        }
    }
    outputs.Add(std::move(output));
}

void VaultFiles::AddPrinted(std::u16string_view path, std::u16string_view name)
{
    TaskFile printed;
    printed.extra = path;
    printed.outputConf = name;
    printed.source = current;
    printed.isPrinted = true;
    outputs.Add(std::move(printed));
}

bool VaultFiles::IsKnownOutput(std::u16string_view path) const
{
    const std::vector<size_t> indexes = outputs.WithPath(path);
    return std::ranges::any_of(indexes, [&](size_t index) { return !outputs.Files()[index].isPrinted; });
}

/// The macro writes a new file, so what stands in its place is removed.
void VaultFiles::ClearTheWay(const std::u16string& path)
{
    if (platform.files.FileExists(path)) {
        platform.files.ClearReadOnly(path);
        platform.files.DeleteFile(path);
    }
}

/// Anything but 0 drops the output: the save goes on, and the file stays unregistered.
Result VaultFiles::PrepareVaultFile(const VaultPlace& place, TaskFile& output)
{
    return AtBoundary([&] {
        output.fileId = IdOf(place.file);
        if (output.isLog) {
            return 1;
        }
        if (existingFiles == ExistingFiles::Replace) {
            RemoveFromVault(place, output);
        } else {
            CheckOutForNewVersion(place, output);
        }
        return 0;
    });
}

void VaultFiles::RemoveFromVault(const VaultPlace& place, TaskFile& output)
{
    NotifyVaultClient(platform.pipes, kNotifyOfFile, output.path);
    ThrowIfFailed(Needed(place.folder).DeleteFile(0, output.fileId, kAllVersions));
    output.fileId = 0;
}

void VaultFiles::CheckOutForNewVersion(const VaultPlace& place, TaskFile& output)
{
    output.folderId = IdOf(place.folder);
    output.version = CurrentVersionOf(place.file);
    if (!IsLocked(place.file)) {
        ThrowIfFailed(place.file->LockFile(output.folderId, 0, 0));
    }
    output.inVault = true;
}

bool VaultFiles::StandsOnDisk(const TaskFile& output)
{
    return platform.files.FileExists(output.path);
}

Result VaultFiles::CollectResultFiles(std::vector<VyxDocument>& list, bool includeLog)
{
    return AtBoundary([&] {
        list.reserve(list.size() + outputs.Files().size());
        for (const TaskFile& output : outputs.Files()) {
            const bool wanted = !output.isPrinted && output.underVaultRoot && (includeLog || !output.isLog);
            VaultPlace place;
            if (!wanted || !StandsOnDisk(output) || ThrowIfFailed(FindInVault(vault.get(), output.path, place)) != 0) {
                continue;
            }
            const int32_t fileId = IdOf(place.file);
            const int32_t folderId = IdOf(place.folder);
            list.push_back({fileId, kFileObject, folderId, CurrentVersionOf(place.file)});
        }
        return 0;
    });
}

bool VaultFiles::AnyLogFileExists()
{
    return std::ranges::any_of(outputs.Files(),
                               [&](const TaskFile& output) { return output.isLog && StandsOnDisk(output); });
}

int32_t VaultFiles::CountExistingOutputs(bool includeLog, bool anyLocation)
{
    const auto count = std::ranges::count_if(outputs.Files(), [&](const TaskFile& output) {
        return !output.isPrinted && (anyLocation || output.underVaultRoot) && (includeLog || !output.isLog) &&
               StandsOnDisk(output);
    });
    return static_cast<int32_t>(count);
}

} // namespace tv
