// The command line of tvlisten.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tv::local {

inline constexpr int kListenDone = 0;
inline constexpr int kListenFailed = 1;
inline constexpr int kListenWrongUsage = 2;

struct ListenerOptions
{
    /// The listener ends after so many messages; 0 for never.
    int count = 0;
    /// No message is answered, so that its sender waits.
    bool silent = false;
};

/// Reads the options, or else prints the help or what is wrong and leaves the exit code for it.
std::optional<ListenerOptions> ReadListenerOptions(const std::vector<std::string>& arguments, std::ostream& out,
                                                   std::ostream& err, int& exitCode);

} // namespace tv::local
