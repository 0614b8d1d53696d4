// Runs requests, each in a child process and within its limits.
#pragma once

#include "protocol/messages.h"
#include "server/child_job.h"

#include <optional>
#include <string>

namespace tv::kernel {

/// \param watchedFd  a socket whose end ends the job, or kNobodyWatches
/// \returns the reply, as messages.h encodes it; nothing when the watched socket was closed by the other side
std::optional<std::string> RunRequest(const Request& request, int watchedFd);

} // namespace tv::kernel
