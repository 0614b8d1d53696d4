#include "module/registration.h"

#include "com/com_ptr.h"
#include "com/result.h"
#include "interfaces/ids.h"

#include <string>
#include <string_view>

TV_IID(ITypeLib, "00020402-0000-0000-c000-000000000046");

namespace tv {

namespace {

constexpr std::u16string_view kClasses = u"Software\\Classes\\";
constexpr std::u16string_view kDisplayName = u"Torvane Task Add-in";
constexpr REGSAM kView = KEY_WOW64_64KEY;
constexpr size_t kPathCapacity = 32768;

const wchar_t* Wide(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

struct RegistryEntry
{
    std::u16string key; ///< below the classes
    std::u16string name;
    std::u16string value;
};

std::u16string ClassKey()
{
    return u"CLSID\\" + GuidText(kTaskAddInClass);
}

std::u16string ModulePath(HMODULE module)
{
    std::u16string path(kPathCapacity, u'\0');
    const DWORD length =
        GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size()) {
        throw ResultError(SELFREG_E_CLASS);
    }
    path.resize(length);
    return path;
}

void WriteEntry(const RegistryEntry& entry)
{
    HKEY key = nullptr;
    const std::u16string path = std::u16string(kClasses) + entry.key;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(path), 0, nullptr, 0, KEY_WRITE | kView, nullptr, &key, nullptr) !=
        ERROR_SUCCESS) {
        throw ResultError(SELFREG_E_CLASS);
    }
    const auto size = static_cast<DWORD>((entry.value.size() + 1) * sizeof(char16_t));
    const LSTATUS written = RegSetValueExW(key, entry.name.empty() ? nullptr : Wide(entry.name), 0, REG_SZ,
                                           reinterpret_cast<const BYTE*>(entry.value.c_str()), size);
    RegCloseKey(key);
    if (written != ERROR_SUCCESS) {
        throw ResultError(SELFREG_E_CLASS);
    }
}

bool DeleteTree(const std::u16string& key)
{
    HKEY classes = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(std::u16string(kClasses)), 0, KEY_READ | KEY_WRITE | kView, &classes) !=
        ERROR_SUCCESS) {
        return false;
    }
    const LSTATUS deleted = RegDeleteTreeW(classes, Wide(key));
    RegCloseKey(classes);
    return deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND;
}

void WriteClass(const std::u16string& modulePath)
{
    const std::u16string id = GuidText(kTaskAddInClass);
    const std::u16string name(kDisplayName);
    const std::u16string progId(kTaskAddInProgId);
    const std::u16string plainProgId(kTaskAddInVersionIndependentProgId);
    const RegistryEntry entries[] = {
        {ClassKey(), u"", name},
        {ClassKey() + u"\\InprocServer32", u"", modulePath},
        {ClassKey() + u"\\InprocServer32", u"ThreadingModel", u"Both"},
        {ClassKey() + u"\\ProgID", u"", progId},
        {ClassKey() + u"\\VersionIndependentProgID", u"", plainProgId},
        {ClassKey() + u"\\TypeLib", u"", GuidText(kTaskAddInTypeLibrary)},
        {progId, u"", name},
        {progId + u"\\CLSID", u"", id},
        {plainProgId, u"", name},
        {plainProgId + u"\\CLSID", u"", id},
        {plainProgId + u"\\CurVer", u"", progId},
    };
    for (const RegistryEntry& entry : entries) {
        WriteEntry(entry);
    }
}

void WriteTypeLibrary(std::u16string modulePath)
{
    ComPtr<ITypeLib> library;
    auto* path = reinterpret_cast<wchar_t*>(modulePath.data());
    if (LoadTypeLibEx(path, REGKIND_NONE, library.put()) < 0 || RegisterTypeLib(library.get(), path, nullptr) < 0) {
        throw ResultError(SELFREG_E_TYPELIB);
    }
}

} // namespace

HRESULT RegisterServer(HMODULE module)
{
    return AtBoundary([&] {
        const std::u16string path = ModulePath(module);
        WriteClass(path);
        WriteTypeLibrary(path);
        return S_OK;
    });
}

HRESULT UnregisterServer()
{
    return AtBoundary([&] {
        const bool deleted = DeleteTree(ClassKey()) && DeleteTree(std::u16string(kTaskAddInProgId)) &&
                             DeleteTree(std::u16string(kTaskAddInVersionIndependentProgId));
        UnRegisterTypeLib(kTaskAddInTypeLibrary, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
        return deleted ? S_OK : SELFREG_E_CLASS;
    });
}

} // namespace tv
