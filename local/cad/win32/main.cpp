// TORVANE.EXE: the local edition's CAD application.
//
//     TORVANE.EXE [/B | /R]      starts it; automation finds it as "Torvane_PID_%d" in the running object table
//     TORVANE.EXE /regserver     registers it; /unregserver takes it out again
#include "cad/dispatch_object.h"
#include "cad/kernel_geometry.h"
#include "cad/macro_event.h"
#include "cad/macro_host.h"
#include "cad/macro_library.h"
#include "cad/text.h"
#include "cad_win32/file_system.h"
#include "cad_win32/main_window.h"
#include "cad_win32/native_kernel.h"
#include "cad_win32/registration.h"
#include "cad_win32/running_object.h"
#include "cad_win32/wide.h"
#include "com/result.h"

#include <shellapi.h>

#include <cstdio>

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

void AppendLine(const std::wstring& path, const std::string& line)
{
    if (FILE* file = path.empty() ? nullptr : _wfopen(path.c_str(), L"ab")) {
        std::fputs((line + "\r\n").c_str(), file);
        std::fclose(file);
    }
}

/// Appends a line to the file that the environment variable TORVANE_TRANSCRIPT names, if any.
void Note(const std::string& line)
{
    static const std::wstring path = EnvironmentVariable(L"TORVANE_TRANSCRIPT");
    AppendLine(path, std::to_string(GetCurrentProcessId()) + " " + line);
}

void TellMacroEvent(const MacroEvent& event)
{
    static const std::wstring path = [] {
        const std::string_view name = kMacroEventsVariable;
        return EnvironmentVariable(std::wstring(name.begin(), name.end()).c_str());
    }();
    if (!path.empty()) {
        AppendLine(path, WriteMacroEvent(event));
    }
}

double LocalDays()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    double days = 0;
    SystemTimeToVariantTime(&now, &days);
    return days;
}

class Apartment
{
  public:
    Apartment() : result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment()
    {
        if (SUCCEEDED(result)) {
            CoUninitialize();
        }
    }

  private:
    HRESULT result;
};

void PumpMessages()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

int RunApplication(int showMode)
{
    const Apartment apartment;
    DiskFileSystem files;
    KernelGeometry geometry(NativeKernelSettings(), NativePath);
    Application application(files, geometry);
    application.onNote = Note;
    application.onMacroEvent = TellMacroEvent;

    MacroLibrary library;
    ObjectContext context{application, {}};
    MacroHost host(context, files, LocalDays,
                   [&](const std::u16string& prompt, int32_t buttons, const std::u16string& title) {
                       return static_cast<int32_t>(
                           MessageBoxW(reinterpret_cast<HWND>(application.mainWindow), Wide(prompt).c_str(),
                                       title.empty() ? L"Torvane" : Wide(title).c_str(), static_cast<UINT>(buttons)));
                   });
    MacroRunner runner(host, library, macro::Limits{});
    context.runMacro = [&](std::u16string_view path, std::u16string_view module, std::u16string_view procedure) {
        Note("macro " + ToUtf8(path) + " " + ToUtf8(procedure));
        const MacroOutcome outcome = runner.Run(path, module, procedure);
        Note(outcome.succeeded ? "macro done" : "macro failed: " + outcome.message);
        if (!outcome.succeeded) {
            TellMacroEvent({MacroEventKind::Failed, outcome.description.empty() ? outcome.message : outcome.description,
                            outcome.number, outcome.line});
        }
        return outcome;
    };

    application.mainWindow = MakeMainWindow(application, showMode);
    if (application.mainWindow == 0) {
        Note("no main window");
        return 1;
    }
    try {
        const macro::Ref<macro::Object> object = MakeApplicationObject(context);
        const ComPtr<IDispatch> automation = DispatchFor(object);
        const RunningObject registered(automation.get());
        Note("started");
        PumpMessages();
        application.CloseAll();
    } catch (const ResultError& error) {
        Note("can't register as a running object: " + std::to_string(error.Code()));
        return 1;
    }
    Note("ended");
    return 0;
}

int RunSwitch(const std::wstring& name, int showMode)
{
    if (_wcsicmp(name.c_str(), L"/regserver") == 0) {
        return static_cast<int>(Register());
    }
    if (_wcsicmp(name.c_str(), L"/unregserver") == 0) {
        return static_cast<int>(Unregister());
    }
    if (name.empty() || _wcsicmp(name.c_str(), L"/B") == 0 || _wcsicmp(name.c_str(), L"/R") == 0 ||
        _wcsicmp(name.c_str(), L"-Embedding") == 0) {
        return RunApplication(showMode);
    }
    MessageBoxW(nullptr,
                (L"\"" + name + L"\" is no switch of Torvane. There are /B, /R, /regserver and /unregserver.").c_str(),
                L"Torvane", MB_ICONERROR);
    return 2;
}

} // namespace

} // namespace tv::app

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int showMode)
{
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::wstring first = arguments != nullptr && count > 1 ? arguments[1] : L"";
    LocalFree(arguments);
    return tv::app::RunSwitch(first, showMode);
}
