// The objects through which the simulated vault answers. For the simulator's own sources.
#pragma once

#include "com/com_object.h"
#include "fakes/vault/fake_vault.h"

namespace tv::fakes {

using WorldPtr = std::shared_ptr<VaultWorld>;

ComPtr<IVyxVault> MakeVaultObject(WorldPtr world);
/// Null for a number that no utility has.
ComPtr<IUnknown> MakeUtility(WorldPtr world, int32_t number);

} // namespace tv::fakes
