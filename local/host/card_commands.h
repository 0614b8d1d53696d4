// The commands on the cards of files.
#pragma once

#include "host/host_context.h"

namespace tv::local {

/// Prints the card of a version, 0 for the one that a next check-in would store; of one configuration if it is given.
int CardCommand(HostContext& context, const std::string& path, int32_t version,
                const std::optional<std::string>& configuration);

/// Writes values into the card of one configuration; the empty name stands for the file itself.
int SetCardCommand(HostContext& context, const std::string& path, const std::vector<std::string>& assignments,
                   const std::string& configuration);

} // namespace tv::local
