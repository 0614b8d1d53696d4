// The commands on references between files.
#pragma once

#include "host/host_context.h"

namespace tv::local {

enum class ReferenceEnd
{
    Children, ///< what the file refers to
    Parents,  ///< the files that refer to it
};

/// Version 0 is the latest one, or what a next check-in would store; parents are those of the file, whatever version.
int ReferencesCommand(HostContext& context, const std::string& path, ReferenceEnd end, int32_t version);
int AddReferencesCommand(HostContext& context, const std::string& parent, const std::vector<std::string>& children);

} // namespace tv::local
