#include "cad/start_options.h"

#include "cad/text.h"

namespace tv::app {

StartOptions ReadStartOptions(std::span<const std::u16string> arguments)
{
    constexpr std::u16string_view kFaults = u"/faults:";
    StartOptions options;
    for (const std::u16string& argument : arguments) {
        const std::u16string_view text = argument;
        if (SameIgnoringCase(text, u"/B")) {
            options.way = u"/B";
        } else if (SameIgnoringCase(text, u"/R")) {
            options.way = u"/R";
        } else if (SameIgnoringCase(text, u"/regserver")) {
            options.mode = StartMode::Register;
        } else if (SameIgnoringCase(text, u"/unregserver")) {
            options.mode = StartMode::Unregister;
        } else if (SameIgnoringCase(text.substr(0, kFaults.size()), kFaults)) {
            options.faults = JoinFaults(options.faults, text.substr(kFaults.size()));
        } else if (!text.empty() && !SameIgnoringCase(text, u"-Embedding") && options.unknown.empty()) {
            options.unknown = text;
        }
    }
    return options;
}

std::u16string JoinFaults(std::u16string_view first, std::u16string_view second)
{
    if (first.empty() || second.empty()) {
        return std::u16string(first.empty() ? second : first);
    }
    return std::u16string(first) + u";" + std::u16string(second);
}

} // namespace tv::app
