// Conversion between UTF-16 and UTF-8, the form in which the XML library works. A lone surrogate, which a file name may
// hold, is kept in both directions.
#pragma once

#include <string>
#include <string_view>

namespace tv {

std::string ToUtf8(std::u16string_view text);

/// Bytes that are no UTF-8 become U+FFFD.
std::u16string FromUtf8(std::string_view bytes);

} // namespace tv
