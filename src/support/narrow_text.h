// Conversion of wide text into narrow text.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// The text in the system's narrow code page; where the system has none, in Windows' Western European one. What the
/// code page can't show becomes its default character, "?".
std::string NarrowText(std::u16string_view text);

/// The text in code page 1252, whatever the system. Each 16-bit unit outside of it becomes "?".
std::string NarrowWesternText(std::u16string_view text);

/// Bytes in code page 1252 as wide text.
std::u16string WideWesternText(std::string_view bytes);

} // namespace tv
