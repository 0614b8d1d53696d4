// The commands on macros: what a run would give the application, and whether that is any good.
#pragma once

#include "host/host_context.h"

namespace tv::local {

struct MacroChecks
{
    /// Compile the macro, as the application does before it runs one.
    bool compile = false;
    /// Warn of what runs and does otherwise than it says.
    bool lint = false;
};

/// Prints the macro of a file, or with checks what is wrong with it. Done when nothing is.
int MacroCommand(HostContext& context, const std::string& task, const std::string& path, MacroChecks checks);

} // namespace tv::local
