#include "platform/win32/registry.h"

#include "platform/win32/handle.h"

#include <iterator>

namespace tv::win32 {

namespace {

HKEY NativeKey(KeyHandle key)
{
    switch (key) {
    case kCurrentUserRoot:
        return HKEY_CURRENT_USER;
    case kLocalMachineRoot:
        return HKEY_LOCAL_MACHINE;
    default:
        return reinterpret_cast<HKEY>(static_cast<uintptr_t>(key));
    }
}

/// `opened` is a reference because the call that fills it stands beside it in the argument list.
uint32_t HandOver(LSTATUS result, const HKEY& opened, KeyHandle& key)
{
    key = result == ERROR_SUCCESS ? static_cast<KeyHandle>(reinterpret_cast<uintptr_t>(opened)) : kNoKey;
    return static_cast<uint32_t>(result);
}

} // namespace

uint32_t Win32Registry::OpenKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key)
{
    HKEY opened = nullptr;
    return HandOver(::RegOpenKeyExW(NativeKey(parent), ZeroTerminated(subkey), 0, access, &opened), opened, key);
}

uint32_t Win32Registry::CreateKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key)
{
    HKEY opened = nullptr;
    return HandOver(::RegCreateKeyExW(NativeKey(parent), ZeroTerminated(subkey), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                      access, nullptr, &opened, nullptr),
                    opened, key);
}

uint32_t Win32Registry::OpenKeyTransacted(KeyHandle parent, std::u16string_view subkey, uint32_t access,
                                          TransactionHandle transaction, KeyHandle& key)
{
    using OpenTransacted = LSTATUS(WINAPI*)(HKEY, LPCWSTR, DWORD, REGSAM, PHKEY, HANDLE, PVOID);
    key = kNoKey;
    const HMODULE library = ::GetModuleHandleW(L"Advapi32.dll");
    const auto open = reinterpret_cast<OpenTransacted>(
        reinterpret_cast<void*>(library == nullptr ? nullptr : ::GetProcAddress(library, "RegOpenKeyTransactedW")));
    if (open == nullptr) {
        return ERROR_INVALID_FUNCTION;
    }
    HKEY opened = nullptr;
    return HandOver(open(NativeKey(parent), ZeroTerminated(subkey), 0, access, &opened,
                         reinterpret_cast<HANDLE>(static_cast<uintptr_t>(transaction)), nullptr),
                    opened, key);
}

uint32_t Win32Registry::CloseKey(KeyHandle key)
{
    return static_cast<uint32_t>(::RegCloseKey(NativeKey(key)));
}

uint32_t Win32Registry::QueryValue(KeyHandle key, std::u16string_view name, uint32_t& type, uint8_t* buffer,
                                   uint32_t& size)
{
    DWORD storedType = 0;
    DWORD storedSize = size;
    const LSTATUS result =
        ::RegQueryValueExW(NativeKey(key), ZeroTerminated(name), nullptr, &storedType, buffer, &storedSize);
    if (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
        type = storedType;
        size = storedSize;
    }
    return static_cast<uint32_t>(result);
}

uint32_t Win32Registry::SetValue(KeyHandle key, std::u16string_view name, uint32_t type, std::span<const uint8_t> data)
{
    return static_cast<uint32_t>(
        ::RegSetValueExW(NativeKey(key), ZeroTerminated(name), 0, type, data.data(), static_cast<DWORD>(data.size())));
}

uint32_t Win32Registry::EnumKey(KeyHandle key, uint32_t index, std::u16string& name)
{
    char16_t buffer[261];
    DWORD length = static_cast<DWORD>(std::size(buffer));
    const LSTATUS result =
        ::RegEnumKeyExW(NativeKey(key), index, AsWide(buffer), &length, nullptr, nullptr, nullptr, nullptr);
    if (result == ERROR_SUCCESS) {
        name.assign(buffer, length);
    }
    return static_cast<uint32_t>(result);
}

bool Win32Registry::ExpandEnvironment(std::u16string_view text, std::u16string& expanded)
{
    const ZeroTerminated source(text);
    const DWORD size = ::ExpandEnvironmentStringsW(source, nullptr, 0);
    if (size == 0) {
        return false;
    }
    std::u16string buffer(size, u'\0');
    const DWORD written = ::ExpandEnvironmentStringsW(source, AsWide(buffer.data()), size);
    if (written == 0 || written > size) {
        return false;
    }
    buffer.resize(written - 1);
    expanded = std::move(buffer);
    return true;
}

} // namespace tv::win32
