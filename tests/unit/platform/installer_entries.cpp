#include "installer_entries.h"

#include "com/base.h"

namespace tv {

namespace {

/// The two lists of the products that are installed for all users.
constexpr const wchar_t* kLists[] = {
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData\\S-1-5-18\\Products",
    L"Software\\Classes\\Installer\\Products",
};

/// Products of these tests: code and key name differ in a digit from one to the next. The installer names a product's
/// key by the code's digits in an order of its own.
std::u16string CodeOf(wchar_t digit)
{
    return u"{0C5A7E11-0000-0000-0000-00000000000" + std::u16string(1, static_cast<char16_t>(digit)) + u"}";
}

std::wstring ProductKey(const wchar_t* list, wchar_t digit)
{
    return std::wstring(list) + L"\\11E7A5C00000000000000000000000" + digit + L"0";
}

/// Creates the key with the keys above it and notes which of them are new.
HKEY CreateKey(const std::wstring& path, std::vector<std::wstring>& created)
{
    HKEY key = nullptr;
    for (size_t end = 0; end != std::wstring::npos;) {
        end = path.find(L'\\', end + 1);
        const std::wstring part = path.substr(0, end);
        DWORD disposition = 0;
        RegCloseKey(key);
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, part.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key,
                            &disposition) != ERROR_SUCCESS) {
            return nullptr;
        }
        if (disposition == REG_CREATED_NEW_KEY) {
            created.push_back(part);
        }
    }
    return key;
}

void WriteProduct(HKEY key, const std::u16string& name)
{
    constexpr DWORD kVersion = 0x05060007;
    constexpr DWORD kForAllUsers = 1;
    const auto size = static_cast<DWORD>((name.size() + 1) * sizeof(char16_t));
    RegSetValueExW(key, L"ProductName", 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()), size);
    RegSetValueExW(key, L"Version", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&kVersion), sizeof kVersion);
    RegSetValueExW(key, L"Assignment", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&kForAllUsers), sizeof kForAllUsers);
}

} // namespace

InstallerEntries::InstallerEntries()
{
    // What a test left that was ended from outside.
    for (wchar_t digit = L'1'; digit <= L'9'; ++digit) {
        for (const wchar_t* list : kLists) {
            RegDeleteTreeW(HKEY_LOCAL_MACHINE, ProductKey(list, digit).c_str());
        }
    }
}

InstallerEntries::~InstallerEntries()
{
    for (; !createdKeys.empty(); createdKeys.pop_back()) {
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, createdKeys.back().c_str());
    }
}

std::u16string InstallerEntries::Add(std::u16string_view name)
{
    ++lastDigit;
    const HKEY data = CreateKey(ProductKey(kLists[0], lastDigit) + L"\\InstallProperties", createdKeys);
    const HKEY product = CreateKey(ProductKey(kLists[1], lastDigit), createdKeys);
    if (product != nullptr) {
        WriteProduct(product, std::u16string(name));
    }
    const bool entered = data != nullptr && product != nullptr;
    RegCloseKey(data);
    RegCloseKey(product);
    return entered ? CodeOf(lastDigit) : std::u16string();
}

} // namespace tv
