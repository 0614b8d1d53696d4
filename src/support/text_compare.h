// Comparison of texts without regard to case, as the system compares paths.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// The capital of a letter by the system's own table: one unit to one unit, of any script, not by locale. Every other
/// unit is returned as it is.
char16_t UpperCase(char16_t unit);
/// A text in capitals: equal for texts that are equal but for case, so a key for look-ups by path.
std::u16string InCapitals(std::u16string_view text);

bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right);
bool StartsWithIgnoringCase(std::u16string_view text, std::u16string_view start);
bool EndsWithIgnoringCase(std::u16string_view text, std::u16string_view end);
/// Negative, 0 or positive, by the capitals of both texts; an order for maps of paths.
int CompareIgnoringCase(std::u16string_view left, std::u16string_view right);

/// Orders texts without regard to case.
struct LessIgnoringCase
{
    using is_transparent = void;
    bool operator()(std::u16string_view left, std::u16string_view right) const
    {
        return CompareIgnoringCase(left, right) < 0;
    }
};

} // namespace tv
