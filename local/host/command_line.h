// The command line of tvtask.
#pragma once

#include "host/host_context.h"

#include <string>
#include <vector>

namespace tv::local {

/// Carries out one command line (without the program's name) and returns the exit code: 0 done, 1 ended with failure,
/// 2 wrong usage, 3 the vault can't be opened or the application not be started.
int RunCommandLine(const std::vector<std::string>& arguments, HostEnvironment& environment);

} // namespace tv::local
