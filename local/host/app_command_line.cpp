#include "host/app_commands.h"

#include <CLI/CLI.hpp>

namespace tv::local {

namespace {

constexpr int32_t kFirstYear = 1993;
constexpr int32_t kLastYear = 2999;

} // namespace

void AppCommandLine::AddTo(CLI::App& commandLine, HostContext& context, const AddCommand& add)
{
    CLI::App* app =
        commandLine.add_subcommand("app", "Work with the CAD application alone, without a task and a vault");
    app->require_subcommand(1);
    app->footer("Examples:\n  tvtask app versions\n  tvtask app start --visible\n  tvtask app run count.bas\n"
                "  tvtask app stop");

    add(*app, "versions", "List the versions that are installed, and the command line that starts each",
        [&context] { return AppVersionsCommand(context); });

    auto* begin = add(*app, "start", "Start the application; it runs until it is stopped",
                      [this, &context] { return AppStartCommand(context, start); });
    begin->add_option("--version", start.version, "Product year; the default version unless given")
        ->check(CLI::Range(kFirstYear, kLastYear));
    begin->add_flag("--visible", start.isVisible, "Show the application's window");
    begin->add_option("--timeout", start.timeout, "Seconds until it must have registered itself")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    begin->footer("Examples:\n  tvtask app start\n  tvtask app start --version 2013 --visible");

    auto* list = add(*app, "list", "List the applications that were started so and still run",
                     [&context] { return AppListCommand(context); });
    list->footer("Example:\n  tvtask app list");

    auto* macro = add(*app, "run", "Run a macro file in an application that was started so",
                      [this, &context] { return AppRunCommand(context, run, runProcess); });
    macro->add_option("FILE", run.file, "Text file with the macro")->required();
    macro->add_option("--procedure", run.procedure, "Procedure to run")->capture_default_str();
    macro->add_option("--pid", runProcess, "Process id of the application; the only one unless given")
        ->check(CLI::PositiveNumber);
    macro
        ->add_option("--timeout", run.timeout,
                     "Seconds after which the macro is ended, and the application with it; none unless given")
        ->check(CLI::PositiveNumber);
    macro->footer("Examples:\n  tvtask app run count.bas\n  tvtask app run count.bas --procedure Sheets --pid 1234");

    auto* end = add(*app, "stop", "End an application that was started so; what isn't saved in it is lost",
                    [this, &context] { return AppStopCommand(context, stop); });
    auto* one = end->add_option("--pid", stop.process, "Process id of the application; the only one unless given")
                    ->check(CLI::PositiveNumber);
    end->add_flag("--all", stop.all, "All of them")->excludes(one);
    end->add_option("--timeout", stop.timeout, "Seconds until it is ended by force")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    end->footer("Examples:\n  tvtask app stop\n  tvtask app stop --all");
}

} // namespace tv::local
