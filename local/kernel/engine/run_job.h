// Carries out one job in this process. Whoever calls it minds the time and the memory.
#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

#include <filesystem>
#include <functional>

namespace tv::kernel {

/// Both turn whatever goes wrong into an Error.
Outcome<Inspection> RunInspect(const InspectJob& job);

/// Writes to `temporary`, which stands beside the target, and leaves it to the caller to put it in the target's place.
Outcome<Saved> RunSave(const SaveJob& job, const std::filesystem::path& temporary);

} // namespace tv::kernel
