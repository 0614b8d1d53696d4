// Numbers out of text.
#pragma once

#include <cstdint>
#include <string_view>

namespace tv {

/// Parses as _wtoi does: leading white space, a sign, decimal digits, and whatever follows is passed over. No digits
/// give 0; a number out of range gives the nearest limit.
int32_t ParseDecimal(std::u16string_view text);

} // namespace tv
