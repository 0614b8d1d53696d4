// Handle: the owner of one system handle. Text at the border of the system's functions.
#pragma once

#include "com/base.h"

#include <string>
#include <string_view>
#include <utility>

namespace tv::win32 {

/// Owns a handle that CloseHandle closes; INVALID_HANDLE_VALUE counts as none.
class Handle
{
  public:
    Handle() = default;
    explicit Handle(HANDLE owned) : handle(owned == INVALID_HANDLE_VALUE ? nullptr : owned) {}
    Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~Handle()
    {
        if (handle != nullptr) {
            ::CloseHandle(handle);
        }
    }

    HANDLE get() const { return handle; }
    explicit operator bool() const { return handle != nullptr; }

  private:
    HANDLE handle = nullptr;
};

/// A text with its terminator, as the system's functions take it.
class ZeroTerminated
{
  public:
    explicit ZeroTerminated(std::u16string_view view) : text(view) {}
    operator const wchar_t*() const { return reinterpret_cast<const wchar_t*>(text.c_str()); }
    wchar_t* Buffer() { return reinterpret_cast<wchar_t*>(text.data()); }

  private:
    std::u16string text;
};

inline wchar_t* AsWide(char16_t* text)
{
    return reinterpret_cast<wchar_t*>(text);
}

/// The answer of a function that says how it went by a truth value.
inline uint32_t ErrorUnless(BOOL succeeded)
{
    return succeeded != FALSE ? ERROR_SUCCESS : ::GetLastError();
}

} // namespace tv::win32
