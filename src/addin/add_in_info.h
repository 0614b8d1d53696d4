// What the add-in tells of itself when the vault loads it.
#pragma once

#include "interfaces/vault.h"

namespace tv {

/// Fills the record and asks for the task commands. The required minor version is left as the caller set it.
void TellAddInInfo(VyxAddInInfo& info, IVyxCmdMgr& manager);

} // namespace tv
