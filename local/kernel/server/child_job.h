// Runs a job in a process of its own, so that a crash, a loop or a hunger for memory in the geometry library is a
// failed job and nothing more.
#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

#include <functional>
#include <optional>
#include <string>

namespace tv::kernel {

inline constexpr int kNobodyWatches = -1;

/// Runs the work in a forked child and returns what it returned. The child is killed at its limits, which gives an
/// Error that names the subject.
///
/// \param subject    the file, for errors
/// \param watchedFd  a socket whose end ends the job, or kNobodyWatches
/// \returns nothing when the watched socket was closed by the other side
std::optional<Outcome<std::string>> RunInChild(const std::function<std::string()>& work, const Limits& limits,
                                               const std::string& subject, int watchedFd);

} // namespace tv::kernel
