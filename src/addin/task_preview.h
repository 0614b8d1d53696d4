// The macro text that a run would hand to the application, without a run.
#pragma once

#include "interfaces/vault.h"
#include "platform/platform.h"

#include <string>

namespace tv {

/// A failure of the vault or the task is raised; a task without a script raises 0x8000FFFF, as a run would.
std::u16string PreviewMacro(Platform& platform, IVyxVault& vault, IVyxTaskInstance& instance, const VyxCmdData& file);

} // namespace tv
