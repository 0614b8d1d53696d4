// The check-in of a set of files.
#pragma once

#include "interfaces/vault.h"

#include <span>

namespace tv {

/// Checks the files in with the add-in's comment. The first failure is the result.
Result CheckIn(IVyxBatchUnlock& batch, IVyxVault* vault, std::span<const VyxSelectionPair> files);

} // namespace tv
