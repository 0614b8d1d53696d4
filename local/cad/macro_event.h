// What a macro does as a person would want to hear of it, one line of a file for each: the application writes them
// while the macro runs, and whoever started it reads along.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv::app {

/// Environment variable that names the file. Without it nothing is written.
inline constexpr char kMacroEventsVariable[] = "TORVANE_MACRO_EVENTS";

enum class MacroEventKind
{
    Began,   ///< a macro file is about to be run; the text is its path as the caller named it
    Printed, ///< Debug.Print; the text is the line
    Saved,   ///< a file was written; the text is its path
    Asked,   ///< a message box stands and waits; the text is its prompt
    Failed,  ///< the macro ended with an error; the text describes it
};

struct MacroEvent
{
    MacroEventKind kind = MacroEventKind::Printed;
    std::string text;
    /// Of Failed: the error's number and the line of the macro, 0 for none.
    int32_t number = 0;
    int32_t line = 0;

    bool operator==(const MacroEvent&) const = default;
};

/// One line without its end.
std::string WriteMacroEvent(const MacroEvent& event);
/// Nothing for a line that isn't one of these.
std::optional<MacroEvent> ReadMacroEvent(std::string_view line);

} // namespace tv::app
