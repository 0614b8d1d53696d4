// The form of a value inside a string literal of the macro.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// Returns the text to put between the two quotes of a string literal. Macro text is narrow, so a unit above 255 leaves
/// the literal and stands as a call of ChrW. A long result is continued on further lines behind its ampersands; an
/// ampersand between blanks in the value itself counts too.
std::u16string EncodeLiteral(std::u16string_view value);

} // namespace tv
