#include "vault/vault_files.h"

#include "com/result.h"
#include "com/variant.h"
#include "support/task_variables.h"
#include "support/text_compare.h"
#include "vault/file_list.h"

namespace tv {

namespace {

constexpr char16_t kSelectionVariable[] = u"__selection_list";
constexpr char16_t kOutputVariable[] = u"__output_list";

Result WriteList(IVyxTaskInstance* instance, const char16_t* name, const std::u16string& text)
{
    return instance->SetVariable(name, Variant::FromText(text).get());
}

/// Reads a variable from a task definition or a task instance; 1 when it is absent.
Result ReadList(IUnknown* handle, const char16_t* name, Variant& value)
{
    ComPtr<IVyxTaskProperties> properties;
    if (QueryFor(handle, properties) >= 0) {
        return properties->GetVariable(name, value.put());
    }
    ComPtr<IVyxTaskInstance> instance;
    const Result result = QueryFor(handle, instance);
    return result < 0 ? result : instance->GetVariable(name, value.put());
}

} // namespace

VaultFiles::VaultFiles(Platform& services) : platform(services) {}

Result VaultFiles::Reset(IVyxVault* vaultOfRun, int32_t taskKind, ExistingFiles existing)
{
    outputs.Clear();
    vault = ComPtr<IVyxVault>::Share(vaultOfRun);
    kind = taskKind;
    existingFiles = existing;
    rootPath.clear();
    if (!vault) {
        return E_POINTER;
    }
    BString root;
    const Result result = vault->GetRootFolderPath(root.put());
    if (result >= 0) {
        rootPath = root.Text();
    }
    return result;
}

Result VaultFiles::SaveFileList(IVyxTaskInstance* instance, int32_t taskKind)
{
    return WriteList(instance, kOutputVariable, FileListText(outputs.Files(), taskKind));
}

Result VaultFiles::SaveFileList(IVyxTaskInstance* instance, int32_t taskKind, const SelectedFiles& list)
{
    outputs.Clear();
    outputs.Reserve(list.size());
    for (const auto& file : list) {
        outputs.Add(*file);
    }
    return WriteList(instance, kSelectionVariable, FileListText(outputs.Files(), taskKind));
}

Result VaultFiles::LoadFileList(IUnknown* handle, bool wantOutputs, std::vector<TaskFile>& list)
{
    Variant value;
    const Result result = ReadList(handle, wantOutputs ? kOutputVariable : kSelectionVariable, value);
    if (result == 0) {
        ParseFileList(value.ToText(), list);
    }
    return result;
}

bool VaultFiles::StartsWithRoot(std::u16string_view path) const
{
    return StartsWithIgnoringCase(path, rootPath);
}

} // namespace tv
