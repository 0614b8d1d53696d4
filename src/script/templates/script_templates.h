// The macro templates as data, for programs that don't carry them as resources.
#pragma once

#include <cstdint>
#include <string_view>

namespace tv {

/// The text of a template with CR LF line ends, by its resource id; empty for an id that there is none of.
std::string_view ScriptTemplate(int32_t id);

} // namespace tv
