// The commands on task definitions.
#pragma once

#include "host/host_context.h"

namespace tv::local {

int NewTaskCommand(HostContext& context, const std::string& name, const std::string& kind);
int ListTasksCommand(HostContext& context);
int ShowTaskCommand(HostContext& context, const std::string& name);
int SetTaskCommand(HostContext& context, const std::string& name, const std::vector<std::string>& assignments);
/// Takes the task's macro from a file, or from the add-in's template for the task's kind.
int TaskScriptCommand(HostContext& context, const std::string& name, const std::string& file, bool useTemplate);

} // namespace tv::local
