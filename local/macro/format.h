#pragma once

#include "macro/dates.h"
#include "macro/value.h"

#include <span>
#include <vector>

namespace tv::macro {

/// The function Format: named formats, and number, date and text patterns.
std::u16string FormatValue(const Value& value, std::u16string_view pattern, const WeekRule& weeks = {});

/// The pattern that a date format's name stands for, such as "Long Date"; empty for other names.
std::u16string_view NamedDatePattern(std::u16string_view name);
/// Whether the pattern shows a date rather than a number.
bool IsDatePattern(std::u16string_view pattern);
std::u16string FormatDate(double date, std::u16string_view pattern, const WeekRule& weeks);

} // namespace tv::macro
