// The end of a run: new outputs are added to the vault, cards and references are written, and everything is checked in.

#include "com/safe_array.h"
#include "support/format.h"
#include "support/paths.h"
#include "support/task_variables.h"
#include "vault/check_in.h"
#include "vault/file_cards.h"
#include "vault/vault_access.h"
#include "vault/vault_files.h"

namespace tv {

namespace {

constexpr int32_t kConvert = 1;

/// Writes the failure of a step to the log and passes it on.
Result Logged(Result result, TaskScript& script, std::u16string_view context)
{
    if (result < 0) {
        script.LogVaultError(result, context);
    }
    return result;
}

} // namespace

Result VaultFiles::RegisterOutputs(IVyxTaskInstance* instance, IVyxVault* vaultOfRun, TaskScript& script)
{
    return AtBoundary([&] {
        if (!outputs.Files().empty()) {
            ThrowIfFailed(AddNewOutputs(vaultOfRun, script));
        }
        if (PairsInVault().empty()) {
            return 0;
        }
        if (kind == kConvert) {
            // One text serves both steps; people search logs for it.
            constexpr std::u16string_view kFailed = u"Error creating references from source to destination file.";
            ThrowIfFailed(Logged(UpdateFileCards(instance), script, kFailed));
            ThrowIfFailed(Logged(CreateSourceReferences(instance), script, kFailed));
        }
        return CheckInOutputs(vaultOfRun, script);
    });
}

Result VaultFiles::AddNewOutputs(IVyxVault* vaultOfRun, TaskScript& script)
{
    ComPtr<IVyxBatchAdd> batch;
    ThrowIfFailed(
        Logged(MakeUtility(vaultOfRun, kUtilityBatchAdd, batch), script, u"Creating VyxUtil_BatchAdd interface."));
    if (QueueNewOutputs(*batch.get(), script) == 0) {
        return 0;
    }
    SafeArray results;
    int32_t count = 0;
    ThrowIfFailed(Logged(batch->CommitAdd(0, results.put(), 0, 0, &count), script,
                         u"Adding files to the vault. No permission to add files to the destination folder?"));
    const SafeArrayView<VyxAddResult> added(results.get());
    for (const VyxAddResult& result : added) {
        TakeAddResult(result, script);
    }
    return 0;
}

int32_t VaultFiles::QueueNewOutputs(IVyxBatchAdd& batch, TaskScript& script)
{
    int32_t queued = 0;
    for (const TaskFile& output : outputs.Files()) {
        const bool isNew = !output.isPrinted && output.underVaultRoot && !output.inVault;
        if (!isNew || !StandsOnDisk(output) || !StartsWithRoot(output.path)) {
            continue;
        }
        ++queued;
        const std::u16string folder = WithoutTrailingBackslashes(FolderOf(output.path));
        ThrowIfFailed(Logged(batch.AddFileFromPathToPath(output.path.c_str(), folder.c_str(), 0, 0, 0), script,
                             FormatText(u"Adding file '%s' from path.", folder)));
    }
    return queued;
}

void VaultFiles::TakeAddResult(const VyxAddResult& added, TaskScript& script)
{
    const std::u16string path(TextOf(added.path));
    VyxSelectionPair ids{added.fileId, added.folderId};
    if (added.result == E_VYX_NAME_ALREADY_EXISTS) {
        FillIdsFromVault(path, ids);
    } else if (Logged(added.result, script, u"Error adding a file to the vault.") < 0) {
        return;
    }
    for (size_t index : outputs.WithPath(path)) {
        TaskFile& output = outputs.Files()[index];
        if (!output.isPrinted && output.underVaultRoot) {
            output.fileId = ids.fileId;
            output.folderId = ids.folderId;
            output.inVault = true;
        }
    }
}

/// The file came into the vault by another way, so the batch may not know its ids.
void VaultFiles::FillIdsFromVault(const std::u16string& path, VyxSelectionPair& ids)
{
    VaultPlace place;
    if (ThrowIfFailed(FindInVault(vault.get(), path, place)) != 0) {
        return;
    }
    if (ids.fileId <= 0) {
        ids.fileId = IdOf(place.file);
    }
    if (ids.folderId < 1) {
        ids.folderId = IdOf(place.folder);
    }
}

std::vector<VyxSelectionPair> VaultFiles::PairsInVault() const
{
    std::vector<VyxSelectionPair> pairs;
    for (const TaskFile& output : outputs.Files()) {
        if (output.inVault) {
            pairs.push_back({output.fileId, output.folderId});
        }
    }
    return pairs;
}

Result VaultFiles::UpdateFileCards(IVyxTaskInstance* instance)
{
    return WriteFileCards(instance, vault.get(), outputs.Files(), platform.clock);
}

Result VaultFiles::CreateSourceReferences(IVyxTaskInstance* instance)
{
    return AtBoundary([&] {
        if (!ReadBool(instance, u"RefToSource").value_or(false)) {
            return 0;
        }
        ComPtr<IVyxBatchRefs> batch;
        ThrowIfFailed(MakeUtility(vault.get(), kUtilityBatchRefs, batch));
        for (const TaskFile& output : outputs.Files()) {
            if (!output.inVault || output.isLog || output.source == nullptr) {
                continue;
            }
            const VyxSelectionPair sources[] = {{output.source->fileId, output.source->folderId}};
            const SafeArray array = MakeRecordArray(std::span<const VyxSelectionPair>(sources));
            ThrowIfFailed(batch->AddReferences(output.fileId, array.get()));
        }
        int32_t pending = 0;
        const Result result = ThrowIfFailed(batch->CommitReferences(0, &pending));
        return pending != 0 ? batch->CommitReferences(pending, &pending) : result;
    });
}

Result VaultFiles::CheckInOutputs(IVyxVault* vaultOfRun, TaskScript& script)
{
    ComPtr<IVyxBatchUnlock> batch;
    ThrowIfFailed(
        Logged(MakeUtility(vaultOfRun, kUtilityBatchUnlock, batch), script, u"Checking in all checked out docs."));
    return Logged(CheckIn(*batch.get(), vaultOfRun, PairsInVault()), script, u"Unlocking files.");
}

} // namespace tv
