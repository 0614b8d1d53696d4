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

/// An object that the vault said it gave; E_POINTER is raised where it gave none.
template <typename Object> Object& Needed(const ComPtr<Object>& object)
{
    if (!object) {
        throw ResultError(E_POINTER);
    }
    return *object.get();
}

/// Looks a path up: 0 found, 1 not in the vault.
inline Result FindInVault(IVyxVault* vault, const std::u16string& path, VaultPlace& place)
{
    if (vault == nullptr) {
        return E_POINTER;
    }
    return vault->GetFileFromPath(path.c_str(), place.folder.put(), place.file.put());
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
    ThrowIfFailed(Needed(object).GetID(&id));
    return id;
}

inline int32_t CurrentVersionOf(const ComPtr<IVyxFile>& file)
{
    int32_t version = 0;
    ThrowIfFailed(Needed(file).GetCurrentVersion(&version));
    return version;
}

inline bool IsLocked(const ComPtr<IVyxFile>& file)
{
    VariantBool locked = kVariantFalse;
    ThrowIfFailed(Needed(file).IsLocked(&locked));
    return locked != kVariantFalse;
}

} // namespace tv
