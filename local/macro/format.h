#pragma once

#include "macro/value.h"

namespace tv::macro {

/// The function Format: named formats, and number, date and text patterns.
std::u16string FormatValue(const Value& value, std::u16string_view pattern);

} // namespace tv::macro
