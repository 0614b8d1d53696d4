#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv::macro {

/// Reads a number as the conversions do: blanks around it, a sign on either side, brackets, a currency sign, thousands
/// separators, exponent, &H and &O. Infinite when the text is a number that no Double holds.
std::optional<double> ParseNumber(std::u16string_view text);

/// A text's number times a power of ten, to the last digit, which a Double can't give beyond 15 of them. Nothing when
/// the text has an exponent or is no number; error 6 when the result is too large.
std::optional<int64_t> ReadScaled(std::u16string_view text, size_t decimals);

/// Up to 15 digits, with an exponent when the number needs more places than that on either side of the point.
std::u16string NumberText(double number);
/// The same with the seven digits of a Single.
std::u16string SingleText(double number);
std::u16string CurrencyText(int64_t scaled);

/// Without the blanks, tabs and line ends around it.
std::u16string_view TrimWhite(std::u16string_view text);

} // namespace tv::macro
