// The commands on task instances: launching, running, looking at them.
#pragma once

#include "host/host_context.h"

namespace tv::local {

/// Launches a task on files and folders. The assignments go to the instance only, as on a launch page.
int LaunchCommand(HostContext& context, const std::string& task, const std::vector<std::string>& paths,
                  const std::vector<std::string>& assignments);
/// Runs the given instances, or all that wait. Done when all of them finished well.
int RunCommand(HostContext& context, const std::vector<int32_t>& ids, bool all);
int StatusCommand(HostContext& context, std::optional<int32_t> id);
int LogCommand(HostContext& context, int32_t id);

} // namespace tv::local
