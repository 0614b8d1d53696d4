#include "listener/listener_options.h"

#include <CLI/CLI.hpp>

namespace tv::local {

std::optional<ListenerOptions> ReadListenerOptions(const std::vector<std::string>& arguments, std::ostream& out,
                                                   std::ostream& err, int& exitCode)
{
    ListenerOptions options;
    CLI::App app{
        "Prints what the add-in tells a local listener of: each file that it is about to replace in the vault, "
        "and each new one",
        "tvlisten"};
    app.add_option("--count", options.count, "End after so many messages; never unless given")
        ->check(CLI::PositiveNumber);
    app.add_flag("--no-answer", options.silent, "Answer no message: its sender waits until the listener ends");
    app.footer("Each message is a line of time, kind and path. Ctrl-C ends it.\n\n"
               "Examples:\n  tvlisten\n  tvlisten --count 3");
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return options;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            exitCode = app.exit(error, out, err);
        } else {
            err << "tvlisten: " << error.what() << ". To see what would be right: tvlisten --help\n";
            exitCode = kListenWrongUsage;
        }
        return std::nullopt;
    }
}

} // namespace tv::local
