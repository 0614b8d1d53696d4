// AlteredVault: the simulated vault with some answers of a test's own, for answers that a sound vault doesn't give.
#pragma once

#include "com/com_object.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "interfaces/vault.h"

#include <functional>
#include <vector>

namespace tv {

class AlteredVault final : public ComObject<IVyxVault, IVyxVariableMgr>
{
  public:
    explicit AlteredVault(IVyxVault* soundVault) : sound(ComPtr<IVyxVault>::Share(soundVault))
    {
        QueryFor(soundVault, soundVariables);
    }

    /// Take the place of the operations when they are set.
    std::function<Result(int32_t number, IUnknown** utility)> createUtility;
    std::function<Result(IVyxFolder** folder, IVyxFile** file)> getFileFromPath;

    Result TV_CALL GetName(BStr* name) override { return sound->GetName(name); }
    Result TV_CALL GetRootFolderPath(BStr* path) override { return sound->GetRootFolderPath(path); }
    Result TV_CALL GetFolderFromPath(const char16_t* path, IVyxFolder** folder) override
    {
        return sound->GetFolderFromPath(path, folder);
    }
    Result TV_CALL GetFileFromPath(const char16_t* path, IVyxFolder** folder, IVyxFile** file) override
    {
        return getFileFromPath ? getFileFromPath(folder, file) : sound->GetFileFromPath(path, folder, file);
    }
    Result TV_CALL CreateUtility(int32_t number, IUnknown** utility) override
    {
        return createUtility ? createUtility(number, utility) : sound->CreateUtility(number, utility);
    }
    Result TV_CALL GetErrorString(Result code, BStr* name, BStr* description) override
    {
        return sound->GetErrorString(code, name, description);
    }
    Result TV_CALL GetFirstVariablePosition(IVyxPos** position) override
    {
        return soundVariables->GetFirstVariablePosition(position);
    }
    Result TV_CALL GetNextVariable(IVyxPos* position, IVyxVariable** variable) override
    {
        return soundVariables->GetNextVariable(position, variable);
    }

  private:
    ComPtr<IVyxVault> sound;
    ComPtr<IVyxVariableMgr> soundVariables;
};

/// A batch list that tells what a test gave it.
class GivenList final : public ComObject<IVyxBatchList>
{
  public:
    std::vector<VyxListFile> records;

    Result TV_CALL AddFile(const VARIANT*, int32_t, int32_t, int32_t) override { return 0; }
    Result TV_CALL CreateList(const char16_t*, SAFEARRAY** files) override
    {
        *files = nullptr;
        return 0;
    }
    Result TV_CALL GetFileList(SAFEARRAY** files) override
    {
        *files = MakeRecordArray(std::span<const VyxListFile>(records)).release();
        return 0;
    }
};

/// A card variable that counts how often it is asked for its id.
class GivenVariable final : public ComObject<IVyxVariableValue>
{
  public:
    int32_t id = 0;
    std::u16string value;
    int idCalls = 0;

    Result TV_CALL GetID(int32_t* variableId) override
    {
        ++idCalls;
        *variableId = id;
        return 0;
    }
    Result TV_CALL GetValue(const char16_t*, VARIANT* result) override
    {
        Variant::FromText(value).MoveTo(result);
        return 0;
    }
};

/// A file whose card holds the elements that a test gave it.
class FileWithCard final : public ComObject<IVyxFile, IVyxEnumeratorVariable>
{
  public:
    std::vector<Variant> elements;
    bool hasReader = true;

    Result TV_CALL GetEnumeratorVariable(int32_t, IVyxEnumeratorVariable** variables) override
    {
        *variables = nullptr;
        if (hasReader) {
            AddRef();
            *variables = this;
        }
        return 0;
    }
    Result TV_CALL GetVersionVariables(const VARIANT*, int32_t, SAFEARRAY** variables, SAFEARRAY** values,
                                       VyxVersionInfo* info) override
    {
        SafeArray array = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(elements.size()));
        {
            const SafeArrayView<VARIANT> view(array.get());
            for (size_t i = 0; i < elements.size(); ++i) {
                Variant(elements[i]).MoveTo(&view[i]);
            }
        }
        *variables = array.release();
        *values = nullptr;
        *info = {};
        return 0;
    }

    Result TV_CALL GetID(int32_t*) override { return E_NOTIMPL; }
    Result TV_CALL GetName(BStr*) override { return E_NOTIMPL; }
    Result TV_CALL GetLocalPath(int32_t, BStr*) override { return E_NOTIMPL; }
    Result TV_CALL GetCurrentVersion(int32_t*) override { return E_NOTIMPL; }
    Result TV_CALL IsLocked(VariantBool*) override { return E_NOTIMPL; }
    Result TV_CALL LockFile(int32_t, int32_t, int32_t) override { return E_NOTIMPL; }
    Result TV_CALL GetRevisionName(int32_t, int32_t, BStr*) override { return E_NOTIMPL; }
    Result TV_CALL GetStateName(int32_t, int32_t, BStr*) override { return E_NOTIMPL; }
};

} // namespace tv
