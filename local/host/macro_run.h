// Running a macro file in the application, without any task.
#pragma once

#include "host/host_context.h"

#include <filesystem>

namespace tv::local {

struct MacroRunOptions
{
    std::string file;
    std::string procedure = "main";
    /// Seconds after which the macro is ended; 0 for none.
    double timeout = 0;
    bool isVisible = false;
};

/// The application that a macro is run in.
class MacroPlace
{
  public:
    virtual ~MacroPlace() = default;

    /// File that the application tells its macros' doings in.
    virtual std::filesystem::path EventsFile() const = 0;
    /// Asked once, when there is no more to say against the run. Raises as ApplicationStarter does.
    virtual std::unique_ptr<ApplicationProcess> Enter(const std::function<bool()>& isUnwanted) = 0;
    /// The run is over.
    virtual void Leave(ApplicationProcess& application) = 0;
    /// A clause on what else goes when the macro is ended by force; empty for nothing.
    virtual std::string LostWithMacro() const { return {}; }
};

/// Checks the macro first, and runs nothing when it doesn't compile. Prints what the macro prints as it does so, the
/// files that it saves, and the error that it ends with.
int RunMacroFile(HostContext& context, const MacroRunOptions& options, MacroPlace& place);

/// Runs it in an application of its own, which ends with it.
int MacroRunCommand(HostContext& context, const MacroRunOptions& options);

} // namespace tv::local
