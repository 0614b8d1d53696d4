// The vault as the add-in sees it: component objects over the store. What they can't do they refuse; nothing is
// pretended.
#pragma once

#include "vault/file_work.h"

#include "interfaces/vault.h"

#include <functional>
#include <memory>

namespace tv::local {

/// The vault object, which also offers IVyxVariableMgr.
ComPtr<IVyxVault> MakeVaultObject(std::shared_ptr<VaultStore> store);

/// Told after each change of status or progress that the holder of an instance makes.
using InstanceObserver = std::function<void(const InstanceRecord&)>;

/// One launched instance. Its variables are its own, and below them the definition's.
ComPtr<IVyxTaskInstance> MakeTaskInstance(std::shared_ptr<VaultStore> store, int32_t instance,
                                          InstanceObserver observer = {});

/// An instance that nobody launched: it sees the definition, and what is written into it goes with the object.
ComPtr<IVyxTaskInstance> MakePreviewInstance(std::shared_ptr<VaultStore> store, const TaskRecord& task);

/// A task definition, open during setup. Setup pages and menu commands live as long as the object.
ComPtr<IVyxTaskProperties> MakeTaskProperties(std::shared_ptr<VaultStore> store, int32_t task);

/// The array that goes with commands 43 and 44.
SafeArray MakeCommandData(std::span<const SelectionItem> selection);
/// Reads such an array back; what the add-in hands over in its place is read the same way.
std::vector<SelectionItem> ReadCommandData(SAFEARRAY* data);

} // namespace tv::local
