#include "host/component.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <cstdio>
#include <string_view>

namespace tv::local {

namespace {

std::wstring ClassText()
{
    const std::u16string id = GuidText(kTaskAddInClass);
    return std::wstring(id.begin(), id.end());
}

[[noreturn]] void FailToCreate(HRESULT result)
{
    char code[16];
    std::snprintf(code, sizeof code, "0x%08X", static_cast<unsigned>(result));
    Fail(static_cast<Result>(result), std::string("The add-in can't be created (") + code +
                                          "). Is it registered? Register it with: regsvr32 TVTaskAddIn.dll");
}

std::wstring RegisteredFile()
{
    const std::wstring key = L"CLSID\\" + ClassText() + L"\\InprocServer32";
    wchar_t path[1024];
    DWORD size = sizeof path;
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size) != ERROR_SUCCESS) {
        FailToCreate(REGDB_E_CLASSNOTREG);
    }
    return path;
}

/// A module that is read for its resources only.
class ResourceFile
{
  public:
    explicit ResourceFile(const std::wstring& path)
        : module(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE))
    {}
    ResourceFile(const ResourceFile&) = delete;
    ResourceFile& operator=(const ResourceFile&) = delete;
    ~ResourceFile()
    {
        if (module != nullptr) {
            FreeLibrary(module);
        }
    }

    std::string_view Find(int32_t id) const
    {
        HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(id), L"Script");
        HGLOBAL loaded = place != nullptr ? LoadResource(module, place) : nullptr;
        const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
        return bytes != nullptr ? std::string_view(static_cast<const char*>(bytes), SizeofResource(module, place))
                                : std::string_view();
    }

  private:
    HMODULE module;
};

std::string FromAnsi(std::string_view bytes)
{
    const int length = static_cast<int>(bytes.size());
    std::wstring wide(bytes.size(), L'\0');
    const int count = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), length);
    wide.resize(static_cast<size_t>(count));
    return Utf8(std::u16string(wide.begin(), wide.end()));
}

class RegisteredComponent final : public Component
{
  public:
    // A single-threaded apartment, so that the application's events arrive inside the add-in's calls.
    RegisteredComponent() : initialized(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~RegisteredComponent() override
    {
        if (SUCCEEDED(initialized)) {
            CoUninitialize();
        }
    }

    ComPtr<IVyxAddIn5> Create() override
    {
        ComPtr<IVyxAddIn5> addIn;
        const HRESULT result =
            CoCreateInstance(kTaskAddInClass, nullptr, CLSCTX_INPROC_SERVER, kInterfaceId<IVyxAddIn5>, addIn.putVoid());
        if (FAILED(result)) {
            FailToCreate(result);
        }
        return addIn;
    }

    std::string Template(int32_t resource) override
    {
        const std::wstring path = RegisteredFile();
        const ResourceFile file(path);
        const std::string_view bytes = file.Find(resource);
        if (bytes.empty()) {
            Fail(E_FAIL, "The add-in '" + Utf8(std::u16string(path.begin(), path.end())) +
                             "' carries no macro template " + std::to_string(resource) + ".");
        }
        return FromAnsi(bytes) + "\n";
    }

  private:
    HRESULT initialized;
};

} // namespace

std::unique_ptr<Component> MakeRegisteredComponent()
{
    return std::make_unique<RegisteredComponent>();
}

} // namespace tv::local
