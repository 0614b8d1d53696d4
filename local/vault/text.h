// Text inside the local edition is UTF-8; at the component interfaces it is UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace tv::local {

/// Unpaired halves of a surrogate pair become the replacement character.
std::string Utf8(std::u16string_view text);
/// Bytes that are no UTF-8 become the replacement character.
std::u16string Utf16(std::string_view text);

/// The form in which names are compared: capital letters of the Latin, Greek and Cyrillic alphabets, as Windows
/// compares file names. Other characters stay as they are.
std::string FoldName(std::string_view name);

inline bool SameName(std::string_view left, std::string_view right)
{
    return FoldName(left) == FoldName(right);
}

} // namespace tv::local
