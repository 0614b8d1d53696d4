#pragma once

#include <string>

namespace tv::local {

/// A new random id as text in braces and capitals.
std::string NewGuidText();

} // namespace tv::local
