// The data cards of a run's outputs.
#pragma once

#include "interfaces/vault.h"
#include "platform/clock_service.h"
#include "vault/task_file.h"

#include <vector>

namespace tv {

/// Writes what the task's FileCardData lists to the cards of the outputs that stand in the vault. The sources of the
/// outputs learn the latest version, the revision and the workflow state. The first failure is the result, and nothing
/// is written then; 1 when a source has left the vault.
Result WriteFileCards(IVyxTaskInstance* instance, IVyxVault* vault, const std::vector<TaskFile>& outputs,
                      ClockService& clock);

} // namespace tv
