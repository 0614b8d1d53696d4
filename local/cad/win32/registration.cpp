#include "cad_win32/registration.h"

#include "cad_win32/wide.h"
#include "com/guid.h"
#include "interfaces/ids.h"

#include <vector>

namespace tv::app {

namespace {

constexpr int kYearOfRevisionZero = 1992;

struct Entry
{
    std::wstring key;
    std::wstring name;
    std::wstring text;
};

std::wstring ThisProgram()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring ClassKey()
{
    return L"SOFTWARE\\Classes\\CLSID\\" + Wide(GuidText(kLocalApplicationClass));
}

std::wstring VersionedName()
{
    return L"Torvane.Application." + std::to_wstring(kProductYear - kYearOfRevisionZero);
}

std::wstring SetupKey()
{
    return L"SOFTWARE\\Torvane\\Torvane " + std::to_wstring(kProductYear) + L"\\Setup";
}

std::vector<Entry> TextEntries()
{
    const std::wstring program = ThisProgram();
    const std::wstring classId = Wide(GuidText(kLocalApplicationClass));
    return {
        {ClassKey(), L"", L"Torvane Application"},
        {ClassKey() + L"\\LocalServer32", L"", program},
        {ClassKey() + L"\\ProgID", L"", VersionedName()},
        {ClassKey() + L"\\VersionIndependentProgID", L"", L"Torvane.Application"},
        {L"SOFTWARE\\Classes\\Torvane.Application", L"", L"Torvane Application"},
        {L"SOFTWARE\\Classes\\Torvane.Application\\CLSID", L"", classId},
        {L"SOFTWARE\\Classes\\Torvane.Application\\CurVer", L"", VersionedName()},
        {L"SOFTWARE\\Classes\\" + VersionedName(), L"", L"Torvane Application"},
        {L"SOFTWARE\\Classes\\" + VersionedName() + L"\\CLSID", L"", classId},
        {SetupKey(), L"Torvane Folder", program.substr(0, program.find_last_of(L'\\'))},
    };
}

DWORD WriteValue(const std::wstring& key, const std::wstring& name, DWORD type, const void* data, size_t size)
{
    HKEY opened = nullptr;
    DWORD error = static_cast<DWORD>(RegCreateKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0,
                                                     KEY_WRITE | KEY_WOW64_64KEY, nullptr, &opened, nullptr));
    if (error != ERROR_SUCCESS) {
        return error;
    }
    error = static_cast<DWORD>(RegSetValueExW(opened, name.empty() ? nullptr : name.c_str(), 0, type,
                                              static_cast<const BYTE*>(data), static_cast<DWORD>(size)));
    RegCloseKey(opened);
    return error;
}

DWORD DeleteTree(const std::wstring& key)
{
    const DWORD error = static_cast<DWORD>(RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str()));
    return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

} // namespace

unsigned Register()
{
    for (const Entry& entry : TextEntries()) {
        const DWORD error =
            WriteValue(entry.key, entry.name, REG_SZ, entry.text.c_str(), (entry.text.size() + 1) * sizeof(wchar_t));
        if (error != ERROR_SUCCESS) {
            return error;
        }
    }
    const DWORD office = 1;
    return WriteValue(SetupKey(), L"Torvane Office Installed", REG_DWORD, &office, sizeof office);
}

unsigned Unregister()
{
    DWORD first = ERROR_SUCCESS;
    for (const std::wstring& key :
         {ClassKey(), L"SOFTWARE\\Classes\\" + VersionedName(), std::wstring(L"SOFTWARE\\Classes\\Torvane.Application"),
          L"SOFTWARE\\Torvane\\Torvane " + std::to_wstring(kProductYear)}) {
        const DWORD error = DeleteTree(key);
        first = first != ERROR_SUCCESS ? first : error;
    }
    return first;
}

} // namespace tv::app
