// The commands on the application alone: which versions there are, and starting one, running macros in it and ending
// it.
#pragma once

#include "host/host_context.h"
#include "host/macro_run.h"

#include <CLI/App.hpp>

#include <functional>
#include <optional>

namespace tv::local {

struct AppStartOptions
{
    /// Product year; whichever is registered unless given.
    std::optional<int32_t> version;
    bool isVisible = false;
    /// Seconds until it must have registered itself.
    double timeout = 120;
};

struct AppStopOptions
{
    std::optional<int32_t> process;
    bool all = false;
    /// Seconds until it is ended by force.
    double timeout = 30;
};

int AppVersionsCommand(HostContext& context);
int AppStartCommand(HostContext& context, const AppStartOptions& options);
/// \param process the application to take; the only one unless given
int AppRunCommand(HostContext& context, const MacroRunOptions& options, std::optional<int32_t> process);
int AppListCommand(HostContext& context);
int AppStopCommand(HostContext& context, const AppStopOptions& options);

/// The values that the options of these commands write to, and their place in the command line.
class AppCommandLine
{
  public:
    /// Adds one command below another.
    using AddCommand = std::function<CLI::App*(CLI::App& parent, const std::string& word, const std::string& what,
                                               std::function<int()> body)>;

    void AddTo(CLI::App& commandLine, HostContext& context, const AddCommand& add);

  private:
    AppStartOptions start;
    AppStopOptions stop;
    MacroRunOptions run;
    std::optional<int32_t> runProcess;
};

} // namespace tv::local
