// The texts of numbers and dates in US English, as automation reads and writes them.
#pragma once

#include "com/base.h"

#include <optional>
#include <string>
#include <string_view>

namespace tv::portable {

/// A number read from text. Hexadecimal and octal numbers are bit patterns: "&HFFFF" is -1 as a 16-bit number.
struct ParsedNumber
{
    double value = 0;
    /// Present when the text is a whole number of at most 64 bits: its magnitude.
    std::optional<uint64_t> whole;
    bool negative = false;
    bool isPattern = false;
};

/// Reads a number with sign, thousands separators, currency sign, exponent, or in parentheses. Empty for other text.
std::optional<ParsedNumber> ParseNumber(std::u16string_view text);

/// Writes a number with that many significant digits at most, 15 for a double and 7 for a float.
std::u16string NumberText(double number, int digits);

/// Writes a currency amount, counted in ten-thousandths, with no more decimals than it needs.
std::u16string CurrencyText(int64_t tenThousandths);

/// Writes a whole number.
std::u16string WholeText(bool negative, uint64_t magnitude);

enum class DateParts
{
    All,
    TimeOnly,
    DateOnly
};

/// Writes a date; empty when it lies outside of the years 100 to 9999.
std::optional<std::u16string> DateText(DATE date, DateParts parts);

/// Reads a date, a time or both. Empty for other text.
std::optional<DATE> ParseDate(std::u16string_view text);

/// Whether a number lies between the first moment of the year 100 and the last of the year 9999.
bool IsDate(double number);

} // namespace tv::portable
