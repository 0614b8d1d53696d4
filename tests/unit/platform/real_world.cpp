#include "real_world.h"

#include "support/format.h"

#include <gtest/gtest.h>

#include <sddl.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tv {

namespace {

const wchar_t* Wide(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

void DeleteKeys()
{
    const wchar_t* path = L"Software\\TorvaneContract";
    RegDeleteTreeW(HKEY_CURRENT_USER, path);
    for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
        HKEY software = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software", 0, KEY_ALL_ACCESS | view, &software) == ERROR_SUCCESS) {
            RegDeleteTreeW(software, L"TorvaneContract");
            RegCloseKey(software);
        }
    }
}

void AnswerOneMessage(HANDLE pipe)
{
    if (ConnectNamedPipe(pipe, nullptr) != FALSE || GetLastError() == ERROR_PIPE_CONNECTED) {
        char message[4096];
        DWORD size = 0;
        if (ReadFile(pipe, message, sizeof message, &size, nullptr) != FALSE) {
            WriteFile(pipe, message, size, &size, nullptr);
            FlushFileBuffers(pipe);
        }
    }
    DisconnectNamedPipe(pipe);
    CloseHandle(pipe);
}

} // namespace

RealWorld::RealWorld() : machine(GetModuleHandleW(nullptr))
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    DeleteKeys();
    const auto place =
        std::filesystem::temp_directory_path() / ("tv_contract_" + std::to_string(GetCurrentProcessId()));
    std::filesystem::remove_all(place);
    std::filesystem::create_directories(place);
    folder = place.u16string();
}

RealWorld::~RealWorld()
{
    if (server.joinable()) {
        server.join();
    }
    ComPtr<IRunningObjectTable> table;
    if (GetRunningObjectTable(0, table.put()) >= 0) {
        for (uint32_t registration : registrations) {
            table->Revoke(registration);
        }
    }
    table.reset();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    DeleteKeys();
    CoUninitialize();
}

std::string RealWorld::Content(std::u16string_view path)
{
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "<missing>";
}

void RealWorld::SetReadOnly(std::u16string_view path)
{
    SetFileAttributesW(Wide(std::u16string(path)), FILE_ATTRIBUTE_READONLY);
}

bool RealWorld::MayWriteReadOnly(std::u16string_view path)
{
    const HANDLE file = CreateFileW(Wide(std::u16string(path)), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file) != FALSE;
}

void RealWorld::SetEnvironment(std::u16string_view name, std::u16string_view value)
{
    SetEnvironmentVariableW(Wide(std::u16string(name)), Wide(std::u16string(value)));
}

void RealWorld::SetAccess(const wchar_t* description)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Wide(RegistryPath()), 0, WRITE_DAC, &key), ERROR_SUCCESS);
    PSECURITY_DESCRIPTOR access = nullptr;
    EXPECT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(description, SDDL_REVISION_1, &access, nullptr));
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, access), ERROR_SUCCESS);
    LocalFree(access);
    RegCloseKey(key);
}

std::u16string RealWorld::PipeName() const
{
    return FormatText(u"\\\\.\\pipe\\contract_%u", static_cast<uint32_t>(GetCurrentProcessId()));
}

void RealWorld::ListenForOneMessage()
{
    const HANDLE pipe =
        CreateNamedPipeW(Wide(PipeName()), PIPE_ACCESS_DUPLEX, PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT, 1,
                         4096, 4096, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    server = std::thread(AnswerOneMessage, pipe);
}

std::u16string RealWorld::LongRunningCommand() const
{
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return FormatText(u"\"%s\" --gtest_also_run_disabled_tests --gtest_filter=Child.DISABLED_Sleeps "
                      u"--gtest_output=",
                      reinterpret_cast<const char16_t*>(program));
}

WindowHandle RealWorld::AddWindow(const std::u16string& title, WindowHandle owner)
{
    return reinterpret_cast<WindowHandle>(CreateWindowExW(0, L"STATIC", Wide(title), WS_POPUP, 0, 0, 10, 10,
                                                          reinterpret_cast<HWND>(owner), nullptr, nullptr, nullptr));
}

void RealWorld::CloseWindow(WindowHandle window)
{
    DestroyWindow(reinterpret_cast<HWND>(window));
}

uint32_t RealWorld::OwnProcess() const
{
    return GetCurrentProcessId();
}

void RealWorld::Register(std::u16string_view name, IUnknown* object)
{
    ComPtr<IRunningObjectTable> table;
    ComPtr<IMoniker> moniker;
    DWORD registration = 0;
    ASSERT_GE(GetRunningObjectTable(0, table.put()), 0);
    ASSERT_GE(CreateItemMoniker(L"", Wide(std::u16string(name)), moniker.put()), 0);
    ASSERT_GE(table->Register(ROTFLAGS_REGISTRATIONKEEPSALIVE, object, moniker.get(), &registration), 0);
    registrations.push_back(registration);
}

std::u16string RealWorld::InstallProduct(std::u16string_view name)
{
    return products.Add(name);
}

/// Played by a second process of this program, until it is ended; by itself only if nobody is left to do that.
TEST(Child, DISABLED_Sleeps)
{
    ::Sleep(300'000);
}

} // namespace tv
