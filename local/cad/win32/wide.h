// Texts of the system's calls, which are wchar_t, and ours, which are char16_t: the same units under two names.
#pragma once

#include <string>
#include <string_view>

namespace tv::app {

inline std::wstring Wide(std::u16string_view text)
{
    return std::wstring(text.begin(), text.end());
}

inline std::u16string Units(std::wstring_view text)
{
    return std::u16string(text.begin(), text.end());
}

} // namespace tv::app
