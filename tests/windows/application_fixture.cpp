#include "application_fixture.h"

#include <algorithm>
#include <fstream>

TV_IID(IRunningObjectTable, "00000010-0000-0000-c000-000000000046");
TV_IID(IMoniker, "0000000f-0000-0000-c000-000000000046");

namespace tv {

namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr UINT kKilledCode = 255;

std::wstring ProgramFolder()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    for (int level = 0; level < 2; ++level) {
        path.resize(path.rfind(L'\\'));
    }
    return path;
}

} // namespace

std::string Narrow(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t unit : text) {
        narrow += static_cast<char>(unit);
    }
    return narrow;
}

void ApplicationFixture::SetUp()
{
    ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0);
    wchar_t temporary[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, temporary);
    folder = temporary + (L"application_" + std::to_wstring(GetCurrentProcessId()));
    CreateDirectoryW(folder.c_str(), nullptr);
}

void ApplicationFixture::TearDown()
{
    EndProcess();
    for (const std::wstring& file : written) {
        DeleteFileW(file.c_str());
    }
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
    CoUninitialize();
}

void ApplicationFixture::Launch(const std::wstring& arguments)
{
    EndProcess();
    STARTUPINFOW start{};
    start.cb = sizeof start;
    std::wstring command = L"\"" + ProgramFolder() + L"\\TORVANE.EXE\" " + arguments;
    ASSERT_TRUE(
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
}

void ApplicationFixture::Attach(DWORD patience)
{
    const std::wstring name = L"Torvane_PID_" + std::to_wstring(process.dwProcessId);
    const ULONGLONG deadline = GetTickCount64() + patience;
    while (!application && GetTickCount64() < deadline) {
        ComPtr<IRunningObjectTable> table;
        ComPtr<IMoniker> moniker;
        ComPtr<IUnknown> object;
        ASSERT_GE(GetRunningObjectTable(0, table.put()), 0);
        ASSERT_GE(CreateItemMoniker(L"", name.c_str(), moniker.put()), 0);
        if (table->GetObjectW(moniker.get(), object.put()) == S_OK) {
            ASSERT_GE(object.As(application), 0);
        } else {
            Sleep(50);
        }
    }
}

void ApplicationFixture::EndProcess()
{
    application.reset();
    if (process.hProcess == nullptr) {
        return;
    }
    if (WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT) {
        TerminateProcess(process.hProcess, kKilledCode);
    }
    EXPECT_EQ(WaitForSingleObject(process.hProcess, kPatience), WAIT_OBJECT_0) << "a process is left";
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    process = {};
}

HRESULT ApplicationFixture::Try(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments, Variant& answer)
{
    std::reverse(arguments.begin(), arguments.end());
    auto* text = const_cast<LPOLESTR>(name);
    DISPID member = 0;
    const HRESULT found = object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &member);
    if (found < 0) {
        return found;
    }
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kRead, &params, answer.put(), nullptr, nullptr);
}

MacroAnswer ApplicationFixture::RunMacroFile(const std::wstring& path)
{
    const Variant file = Variant::FromText(std::u16string(path.begin(), path.end()));
    const Variant module = Variant::FromText(u"TVMacro1");
    const Variant procedure = Variant::FromText(u"main");
    const Variant options = Variant::FromInt(0);
    MacroAnswer told{0, false, -1};
    VARIANT code{};
    code.vt = VT_BYREF | VT_I4;
    code.plVal = &told.error;
    Variant answer;
    told.result = Try(application.get(), L"RunMacroEx",
                      {*file.get(), *module.get(), *procedure.get(), *options.get(), code}, answer);
    told.succeeded = told.result >= 0 && answer.ToBool();
    return told;
}

std::wstring ApplicationFixture::Write(const wchar_t* name, const std::string& text)
{
    const std::wstring path = folder + L"\\" + name;
    std::ofstream(Narrow(path), std::ios::binary) << text;
    written.push_back(path);
    return path;
}

} // namespace tv
