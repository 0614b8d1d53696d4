// Names under which outputs are recorded: they say what a file covers, not which sheet or configuration was on screen.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

/// A task's choice of sheets or of configurations.
struct OutputChoice
{
    uint32_t files = 0;   ///< mask 4: one output file each
    uint32_t outputs = 0; ///< mask 2: all; mask 8: those that match the name
    std::u16string named;
};

enum class OutputKind
{
    Sheet,
    Configuration
};

/// Returns the name to record for an output that was made while `name` was current.
std::u16string OutputName(const OutputChoice& choice, OutputKind kind, const std::u16string& name);

} // namespace tv
