// The launch of a task on chosen files, on the user's machine.
#pragma once

#include "interfaces/vault.h"
#include "vault/vault_files.h"

namespace tv {

/// Stores the selection in the task instance for the details page, unless the launch was cancelled.
///
/// \param data array of VyxCmdData; null or empty when the user has chosen nothing
/// \param kind receives the task's kind
Result LaunchTask(VaultFiles& files, IVyxVault& vault, IVyxTaskInstance& instance, VyxCmd& cmd, SAFEARRAY* data,
                  int32_t& kind);

} // namespace tv
