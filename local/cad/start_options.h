// The command line of the application.
#pragma once

#include <span>
#include <string>

namespace tv::app {

enum class StartMode
{
    Run,
    Register,
    Unregister,
};

struct StartOptions
{
    StartMode mode = StartMode::Run;
    /// How it was started: "/B", "/R" or nothing.
    std::u16string way;
    /// Fault text of the command line; several are joined by semicolons.
    std::u16string faults;
    /// First argument that is none of ours; empty when all are.
    std::u16string unknown;

    bool operator==(const StartOptions&) const = default;
};

/// \param arguments without the program's name
StartOptions ReadStartOptions(std::span<const std::u16string> arguments);

/// Two fault texts as one.
std::u16string JoinFaults(std::u16string_view first, std::u16string_view second);

} // namespace tv::app
