// The commands on folders, deleted files, revisions, workflow states and rights.
#pragma once

#include "host/host_context.h"

namespace tv::local {

int MakeFolderCommand(HostContext& context, const std::vector<std::string>& paths);

int RemoveCommand(HostContext& context, const std::vector<std::string>& paths);
/// Lists the deleted files of a folder and of all below it, latest first.
int DeletedCommand(HostContext& context, const std::string& folder);
/// Brings the file back that was last deleted at that place, or the one with that id.
int RestoreCommand(HostContext& context, const std::string& path, std::optional<int32_t> id);

int SetStateCommand(HostContext& context, const std::string& path, const std::string& state);
/// An empty revision stands for the one that follows.
int ReviseCommand(HostContext& context, const std::string& path, const std::string& revision);

struct PermitOptions
{
    std::string folder; ///< empty for all folders, which can only be listed
    std::string user;   ///< empty to list
    std::vector<std::string> rights;
    bool clear = false;
};

int PermitCommand(HostContext& context, const PermitOptions& options);

} // namespace tv::local
