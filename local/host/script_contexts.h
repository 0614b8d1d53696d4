// Where in a macro's text one is: in code, in a text between double quotes, or in a comment.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace tv::local {

enum class ScriptContext
{
    Code,
    Text,
    Comment,
};

/// The context of each unit. \param opaque ranges as offset and length, in order, that count as nothing in themselves:
/// placeholders, whose values are judged on their own
std::vector<ScriptContext> ContextsOf(std::u16string_view script,
                                      const std::vector<std::pair<size_t, size_t>>& opaque = {});

} // namespace tv::local
