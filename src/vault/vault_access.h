// Small steps that all work on the vault shares.
#pragma once

#include "com/com_ptr.h"
#include "com/result.h"
#include "com/variant.h"
#include "interfaces/vault.h"

#include <string>

namespace tv {

/// A file of the vault and the folder it was found in.
struct VaultPlace
{
    ComPtr<IVyxFolder> folder;
    ComPtr<IVyxFile> file;
};

/// Looks a path up: 0 found, 1 not in the vault.
inline Result FindInVault(IVyxVault* vault, const std::u16string& path, VaultPlace& place)
{
    if (vault == nullptr) {
        return E_POINTER;
    }
    const Result result = vault->GetFileFromPath(path.c_str(), place.folder.put(), place.file.put());
    return result == 0 && (!place.folder || !place.file) ? E_POINTER : result;
}

/// Makes a batch utility; E_NOINTERFACE when what the vault made is another.
template <typename Utility> Result MakeUtility(IVyxVault* vault, int32_t number, ComPtr<Utility>& utility)
{
    if (vault == nullptr) {
        return E_POINTER;
    }
    ComPtr<IUnknown> object;
    const Result result = vault->CreateUtility(number, object.put());
    return result < 0 ? result : object.As(utility);
}

/// Id of a file or a folder; a failure is raised.
template <typename Object> int32_t IdOf(const ComPtr<Object>& object)
{
    int32_t id = 0;
    ThrowIfFailed(object->GetID(&id));
    return id;
}

inline int32_t CurrentVersionOf(const ComPtr<IVyxFile>& file)
{
    int32_t version = 0;
    ThrowIfFailed(file->GetCurrentVersion(&version));
    return version;
}

/// Checks a file out unless it is checked out already; a failure is raised.
inline void LockIfUnlocked(const ComPtr<IVyxFile>& file, int32_t folderId)
{
    VariantBool locked = kVariantFalse;
    ThrowIfFailed(file->IsLocked(&locked));
    if (locked == kVariantFalse) {
        ThrowIfFailed(file->LockFile(folderId, 0, 0));
    }
}

} // namespace tv
