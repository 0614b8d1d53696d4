#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tv::macro {

char16_t LowerUnit(char16_t unit);
char16_t UpperUnit(char16_t unit);
std::u16string Lower(std::u16string_view text);
std::u16string Upper(std::u16string_view text);
std::u16string_view TrimBlanks(std::u16string_view text);
bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right);

/// Compares two texts unit by unit (Option Compare Binary) or ignoring case (Option Compare Text).
int CompareTexts(std::u16string_view left, std::u16string_view right, bool ignoreCase);

/// Position of a text in another from a start on, or npos.
size_t FindText(std::u16string_view text, std::u16string_view wanted, size_t start, bool ignoreCase);
size_t FindTextBackwards(std::u16string_view text, std::u16string_view wanted, size_t start, bool ignoreCase);

/// The operator Like. A malformed pattern is error 93.
bool MatchesPattern(std::u16string_view text, std::u16string_view pattern, bool ignoreCase);

/// Files and Chr speak Windows-1252; a unit that it lacks becomes "?".
std::string ToNarrow(std::u16string_view text);
std::u16string FromNarrow(std::string_view bytes);
char16_t NarrowToUnit(uint8_t byte);
uint8_t UnitToNarrow(char16_t unit);

/// Texts of numbers and messages, which are plain ASCII.
std::u16string Widen(std::string_view ascii);

} // namespace tv::macro
