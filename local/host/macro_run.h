// The command that runs a macro file in the application, without any task.
#pragma once

#include "host/host_context.h"

namespace tv::local {

struct MacroRunOptions
{
    std::string file;
    std::string procedure = "main";
    /// Seconds after which the macro is ended; 0 for none.
    double timeout = 0;
    bool isVisible = false;
};

/// Checks the macro first and starts nothing when it doesn't compile. Prints what the macro prints as it does so, the
/// files that it saves, and the error that it ends with.
int MacroRunCommand(HostContext& context, const MacroRunOptions& options);

} // namespace tv::local
