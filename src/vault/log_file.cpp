// The way of a run's log file into the vault.

#include "com/safe_array.h"
#include "support/paths.h"
#include "vault/check_in.h"
#include "vault/vault_access.h"
#include "vault/vault_files.h"

namespace tv {

namespace {

VyxSelectionPair AddToVault(IVyxVault* vault, const std::u16string& path)
{
    ComPtr<IVyxBatchAdd> batch;
    ThrowIfFailed(MakeUtility(vault, kUtilityBatchAdd, batch));
    const std::u16string folder = WithoutTrailingBackslashes(FolderOf(path));
    ThrowIfFailed(batch->AddFileFromPathToPath(path.c_str(), folder.c_str(), 0, 0, 0));
    SafeArray results;
    int32_t count = 0;
    ThrowIfFailed(batch->CommitAdd(0, results.put(), 0, 0, &count));
    const SafeArrayView<VyxAddResult> added(results.get());
    if (added.size() == 0) {
        throw ResultError(E_UNEXPECTED);
    }
    ThrowIfFailed(added[0].result);
    return {added[0].fileId, added[0].folderId};
}

} // namespace

Result CheckIn(IVyxBatchUnlock& batch, IVyxVault* vault, std::span<const VyxSelectionPair> files)
{
    return AtBoundary([&] {
        const SafeArray selection = MakeRecordArray(files);
        VariantBool done = kVariantFalse;
        ThrowIfFailed(batch.SetComment(u"Torvane Task Add-in"));
        ThrowIfFailed(batch.AddSelection(vault, selection.get()));
        ThrowIfFailed(batch.CreateTree(0, 1, 0, &done));
        return ThrowIfFailed(batch.UnlockFiles(0, 0));
    });
}

void VaultFiles::LockExistingLog(std::u16string_view path)
{
    if (path.empty()) {
        return;
    }
    // A log that can't be checked out costs its entries, not the run.
    AtBoundary([&] {
        VaultPlace place;
        if (FindInVault(vault.get(), CanonicalPath(path), place) == 0 && !IsLocked(place.file)) {
            place.file->LockFile(IdOf(place.folder), 0, 0);
        }
        return 0;
    });
}

Result VaultFiles::RegisterLogFile(std::u16string_view path)
{
    return AtBoundary([&] {
        TaskFile log;
        log.path = path;
        log.isLog = true;
        log.underVaultRoot = true;
        if (!StandsOnDisk(log)) {
            return 1;
        }
        VaultPlace place;
        VyxSelectionPair ids{};
        if (ThrowIfFailed(FindInVault(vault.get(), log.path, place)) != 0) {
            ids = AddToVault(vault.get(), log.path);
        } else {
            ids = {IdOf(place.file), IdOf(place.folder)};
        }
        ComPtr<IVyxBatchUnlock> batch;
        ThrowIfFailed(MakeUtility(vault.get(), kUtilityBatchUnlock, batch));
        const Result result = CheckIn(*batch.get(), vault.get(), std::span(&ids, 1));
        log.fileId = ids.fileId;
        log.folderId = ids.folderId;
        outputs.Add(std::move(log));
        return result;
    });
}

} // namespace tv
