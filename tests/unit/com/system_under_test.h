// Where the suite runs, for the few results that Wine's automation library gives otherwise than Windows' own.
#pragma once

#include "com/base.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

/// Whether the system beneath is Wine, which is no Windows in every last result.
inline bool RunsOnWine()
{
#ifdef _WIN32
    HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
#else
    return false;
#endif
}

/// A text for a failure's message.
inline std::string Narrow(std::u16string_view text)
{
    std::string narrow;
    for (char16_t c : text) {
        narrow += c < 0x7F ? static_cast<char>(c) : '?';
    }
    return narrow;
}
