// The commands by which a user takes files for himself and gives them back.
#pragma once

#include "host/host_context.h"

namespace tv::local {

int CheckOutCommand(HostContext& context, const std::vector<std::string>& paths);
int UndoCommand(HostContext& context, const std::vector<std::string>& paths);
int CheckInCommand(HostContext& context, const std::vector<std::string>& paths, const std::string& comment);

} // namespace tv::local
