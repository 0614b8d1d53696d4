// Conversion between UTF-16, the form of texts at interfaces, and UTF-8, the form of databases, documents and XML.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tv {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// What becomes of half a surrogate pair that stands alone, as it may in a file name.
enum class LoneSurrogate
{
    Keep,   ///< it goes through unharmed in both directions, in bytes that are no strict UTF-8
    Replace ///< by the replacement character
};

std::string ToUtf8(std::u16string_view text, LoneSurrogate lone);

/// Bytes that are no UTF-8 become the replacement character.
std::u16string FromUtf8(std::string_view bytes, LoneSurrogate lone);

/// The character at a position below the size of the bytes; the position moves behind it.
char32_t TakeUtf8(std::string_view bytes, size_t& position, LoneSurrogate lone);
void AppendUtf8(std::string& bytes, char32_t character);

} // namespace tv
