// TORVANE.EXE: the local edition's CAD application.
//
//     TORVANE.EXE [/B | /R]      starts it; automation finds it as "Torvane_PID_%d" in the running object table
//     TORVANE.EXE /regserver     registers it; /unregserver takes it out again
//     TORVANE.EXE /faults:TEXT   starts it with faults; docs/torvane-faults.md describes the text
#include "cad/dispatch_object.h"
#include "cad/fault_player.h"
#include "cad/kernel_geometry.h"
#include "cad/macro_event.h"
#include "cad/macro_host.h"
#include "cad/macro_library.h"
#include "cad/start_options.h"
#include "cad/text.h"
#include "cad/transcript_text.h"
#include "cad_win32/counter_file.h"
#include "cad_win32/fault_hands.h"
#include "cad_win32/file_system.h"
#include "cad_win32/main_window.h"
#include "cad_win32/native_kernel.h"
#include "cad_win32/registration.h"
#include "cad_win32/running_object.h"
#include "cad_win32/wide.h"
#include "com/result.h"

#include <shellapi.h>

#include <cstdio>
#include <cwchar>
#include <memory>
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

/// The variables of this process. Those that begin with "=" are the shell's own.
std::vector<std::u16string> EnvironmentEntries()
{
    std::vector<std::u16string> entries;
    wchar_t* const block = GetEnvironmentStringsW();
    if (block == nullptr) {
        return entries;
    }
    for (const wchar_t* entry = block; *entry != L'\0'; entry += std::wcslen(entry) + 1) {
        if (*entry != L'=') {
            entries.push_back(Units(entry));
        }
    }
    FreeEnvironmentStringsW(block);
    return entries;
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

constexpr int kBadCommandLine = 2;

/// The faults of the environment and of the command line. Raises FaultTextError.
FaultSettings AskedFaults(const StartOptions& options)
{
    const std::u16string text = JoinFaults(Units(EnvironmentVariable(L"TORVANE_FAULTS")), options.faults);
    FaultSettings settings = ParseFaults(ToUtf8(text));
    if (settings.counterFile.empty()) {
        settings.counterFile = ToUtf8(Units(EnvironmentVariable(L"TORVANE_FAULT_COUNTER")));
    }
    return settings;
}

std::unique_ptr<FaultCounter> MakeCounter(const FaultSettings& settings)
{
    if (settings.counterFile.empty()) {
        return std::make_unique<MemoryFaultCounter>();
    }
    return std::make_unique<CounterFile>(Wide(ToUtf16(settings.counterFile)));
}

/// Writes a line to the standard error output, if whoever started the program gave it one.
void TellError(const std::string& line)
{
    const std::string text = "TORVANE: " + line + "\r\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    Note("error " + line);
}

int32_t ShowMessageBox(const Application& application, const std::u16string& prompt, int32_t buttons,
                       const std::u16string& title)
{
    Note("message shown " + QuotedText(ToUtf8(prompt)));
    const int answer = MessageBoxW(reinterpret_cast<HWND>(application.mainWindow), Wide(prompt).c_str(),
                                   title.empty() ? L"Torvane" : Wide(title).c_str(), static_cast<UINT>(buttons));
    Note("message answered " + std::to_string(answer));
    return answer;
}

/// Lets the faults happen at the application's steps.
void ConnectFaults(FaultPlayer& faults, Application& application)
{
    application.onSaving = [&faults] { faults.AtSave(); };
    application.onExit = [&faults, exit = application.onExit] {
        if (faults.AtExitRequest()) {
            exit();
        }
    };
}

/// Registers the application and works until it is asked to end.
void Serve(ObjectContext& context, FaultPlayer& faults)
{
    if (!faults.AtStart()) {
        Note("never registers");
        PumpMessages();
        return;
    }
    const macro::Ref<macro::Object> object = MakeApplicationObject(context);
    const ComPtr<IDispatch> automation = DispatchFor(object);
    const RunningObject registered(automation.get());
    Note("registered");
    PumpMessages();
    faults.AtEnd();
    context.application.CloseAll();
}

int RunApplication(const StartOptions& options, const FaultSettings& settings, int showMode)
{
    const Apartment apartment;
    DiskFileSystem files;
    KernelGeometry geometry(NativeKernelSettings(), NativePath);
    Application application(files, geometry);
    application.onNote = Note;
    application.onMacroEvent = TellMacroEvent;
    if (!settings.revision.empty()) {
        application.revision = ToUtf16(settings.revision);
    }
    const std::unique_ptr<FaultCounter> counter = MakeCounter(settings);
    FaultPlan plan(settings.faults, *counter);
    SystemFaultHands hands(Note);
    FaultPlayer faults(plan, hands, MajorRevision(application.revision), Note);
    const ObserverScope observed(faults);

    MacroLibrary library;
    ObjectContext context{application, {}};
    MacroHost host(
        context, files, LocalDays,
        [&](const std::u16string& prompt, int32_t buttons, const std::u16string& title) {
            return ShowMessageBox(application, prompt, buttons, title);
        },
        EnvironmentEntries);
    MacroRunner runner(host, library, macro::Limits{});
    context.runMacro = [&](std::u16string_view path, std::u16string_view module, std::u16string_view procedure) {
        Note("macro " + ToUtf8(path) + " " + ToUtf8(procedure));
        TellMacroEvent({MacroEventKind::Began, ToUtf8(path)});
        const std::optional<MacroOutcome> forced = faults.AtMacro();
        const MacroOutcome outcome = forced ? *forced : runner.Run(path, module, procedure);
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
    ConnectFaults(faults, application);
    Note("started" + (options.way.empty() ? "" : " " + ToUtf8(options.way)));
    try {
        Serve(context, faults);
    } catch (const ResultError& error) {
        Note("can't work as a running object: " + std::to_string(error.Code()));
        return 1;
    }
    Note("ended");
    return 0;
}

int Start(const StartOptions& options, int showMode)
{
    if (!options.unknown.empty()) {
        MessageBoxW(nullptr,
                    (L"\"" + Wide(options.unknown) +
                     L"\" is no switch of Torvane. There are /B, /R, /faults:TEXT, /regserver and /unregserver.")
                        .c_str(),
                    L"Torvane", MB_ICONERROR);
        return kBadCommandLine;
    }
    if (options.mode != StartMode::Run) {
        return static_cast<int>(options.mode == StartMode::Register ? Register() : Unregister());
    }
    try {
        return RunApplication(options, AskedFaults(options), showMode);
    } catch (const FaultTextError& error) {
        TellError(error.what());
        return kBadCommandLine;
    }
}

} // namespace

} // namespace tv::app

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int showMode)
{
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::u16string> given;
    for (int i = 1; i < count; ++i) {
        given.push_back(tv::app::Units(arguments[i]));
    }
    LocalFree(arguments);
    return tv::app::Start(tv::app::ReadStartOptions(given), showMode);
}
