#include "cad_win32/native_kernel.h"

#include "cad/text.h"
#include "cad_win32/wide.h"
#include "com/base.h"

#include <optional>
#include <vector>

namespace tv::app {

namespace {

std::wstring EnvironmentVariable(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    if (!value.empty()) {
        value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    }
    return value;
}

bool IsFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool StartKernel(const std::wstring& kernel, const std::vector<std::string>& arguments)
{
    if (kernel.empty()) {
        return false;
    }
    std::wstring command = L"\"" + kernel + L"\"";
    for (const std::string& argument : arguments) {
        command += L" \"" + Wide(ToUtf16(argument)) + L"\"";
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                        &process)) {
        return false;
    }
    if (process.hThread != nullptr) {
        CloseHandle(process.hThread);
    }
    if (process.hProcess != nullptr) {
        CloseHandle(process.hProcess);
    }
    return true;
}

} // namespace

std::wstring FolderOfThisProgram()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring FindKernel(const std::wstring& folder)
{
    const std::wstring named = EnvironmentVariable(L"TVKERNEL");
    if (!named.empty()) {
        return named;
    }
    for (const wchar_t* name : {L"\\tvkernel.exe", L"\\tvkernel"}) {
        const std::wstring beside = folder + name;
        if (IsFile(beside)) {
            return beside;
        }
    }
    return {};
}

kernel::KernelClientSettings NativeKernelSettings(const std::wstring& folder)
{
    kernel::KernelClientSettings settings;
    settings.start = [folder](const std::vector<std::string>& arguments) {
        return StartKernel(FindKernel(folder), arguments);
    };
    return settings;
}

std::string NativePath(const std::string& path)
{
    // The compatibility layer exports this; Windows doesn't, and there a path is native already.
    using GetUnixFileName = char*(CDECL*)(const wchar_t*);
    static const auto getUnixFileName = reinterpret_cast<GetUnixFileName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (getUnixFileName == nullptr || path.empty()) {
        return path;
    }
    char* native = getUnixFileName(Wide(ToUtf16(path)).c_str());
    if (native == nullptr) {
        return path;
    }
    std::string result = native;
    HeapFree(GetProcessHeap(), 0, native);
    return result;
}

} // namespace tv::app
