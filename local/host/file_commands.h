// The commands on files of the vault.
#pragma once

#include "host/host_context.h"

namespace tv::local {

int InitCommand(HostContext& context, const std::string& name);
int ImportCommand(HostContext& context, const std::vector<std::string>& paths, const std::string& folder);
int ListCommand(HostContext& context, const std::string& folder, bool recursive);
int HistoryCommand(HostContext& context, const std::string& path);
int ExportCommand(HostContext& context, const std::string& path, const std::string& target, int32_t version);

} // namespace tv::local
