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

/// Why a run of the task wouldn't get through its macro, in a clause; empty when it would. With a file it is the macro
/// that a run would give it; without, or where the add-in can't be asked, the script with its variables put in.
std::optional<std::string> TaskMacroProblem(HostContext& context, const TaskRecord& task,
                                            const std::optional<FileRecord>& file);

/// Prints the macro of a file, or with checks what is wrong with it. Done when nothing is.
int MacroCommand(HostContext& context, const std::string& task, const std::string& path, MacroChecks checks);

} // namespace tv::local
