// Replacement inside texts.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// Replaces every occurrence, comparing with case. What has been put in isn't looked at again, and an empty text to
/// replace occurs nowhere.
std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to);

} // namespace tv
