#include "host/application_process.h"

#include "cad/macro_event.h"
#include "com/bstring.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "vault/text.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

TV_IID(IRunningObjectTable, "00000010-0000-0000-c000-000000000046");
TV_IID(IMoniker, "0000000f-0000-0000-c000-000000000046");

namespace tv::local {

namespace {

using Clock = std::chrono::steady_clock;

constexpr wchar_t kClassName[] = L"Torvane.Application";
constexpr wchar_t kBackgroundSwitch[] = L" /B";
constexpr std::chrono::seconds kStartPatience{120};
constexpr std::chrono::milliseconds kAttachInterval{50};
constexpr DWORD kEndPatienceMs = 10'000;
constexpr DWORD kKillPatienceMs = 5000;
constexpr UINT kKilledCode = 255;
constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

std::wstring Wide(std::string_view text)
{
    const std::u16string units = Utf16(text);
    return std::wstring(units.begin(), units.end());
}

std::string Narrow(std::wstring_view text)
{
    return Utf8(std::u16string(text.begin(), text.end()));
}

/// Owns a handle of the system.
class Handle
{
  public:
    explicit Handle(HANDLE owned = nullptr) : handle(owned) {}
    Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    Handle& operator=(Handle other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~Handle()
    {
        if (handle != nullptr) {
            CloseHandle(handle);
        }
    }
    HANDLE get() const { return handle; }

  private:
    HANDLE handle;
};

/// The program behind the class, as its registration names it.
std::wstring RegisteredProgram()
{
    CLSID id{};
    wchar_t program[1024] = {};
    DWORD size = sizeof program;
    if (SUCCEEDED(CLSIDFromProgID(kClassName, &id))) {
        const std::u16string text = GuidText(id);
        const std::wstring key = L"CLSID\\" + std::wstring(text.begin(), text.end()) + L"\\LocalServer32";
        if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, program, &size) ==
            ERROR_SUCCESS) {
            return program;
        }
    }
    throw NoApplicationError("The CAD application isn't registered on this machine. Register it with: "
                             "TORVANE.EXE /regserver");
}

std::wstring CommandLineFor(const std::wstring& program)
{
    const bool isPath = GetFileAttributesW(program.c_str()) != INVALID_FILE_ATTRIBUTES;
    return (isPath ? L"\"" + program + L"\"" : program) + kBackgroundSwitch;
}

/// Everything in it ends with us, also when we end without a word.
Handle MakeJob()
{
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

/// Hands one variable on to a process that is started meanwhile.
class HandedVariable
{
  public:
    HandedVariable(std::string_view variable, const std::string& value) : name(Wide(variable))
    {
        SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : Wide(value).c_str());
    }
    HandedVariable(const HandedVariable&) = delete;
    HandedVariable& operator=(const HandedVariable&) = delete;
    ~HandedVariable() { SetEnvironmentVariableW(name.c_str(), nullptr); }

  private:
    std::wstring name;
};

class StartedApplication final : public ApplicationProcess
{
  public:
    StartedApplication(const std::wstring& program, const ApplicationStart& start) : job(MakeJob())
    {
        STARTUPINFOW how{};
        how.cb = sizeof how;
        how.dwFlags = STARTF_USESHOWWINDOW;
        how.wShowWindow = start.isVisible ? SW_SHOWNORMAL : SW_HIDE;
        PROCESS_INFORMATION made{};
        std::wstring command = CommandLineFor(program);
        const HandedVariable events(app::kMacroEventsVariable, start.eventsFile);
        // It may not take a step before it belongs to the job.
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr, &how,
                            &made)) {
            throw NoApplicationError("The CAD application '" + Narrow(program) + "' can't be started (error " +
                                     std::to_string(GetLastError()) + ").");
        }
        process = Handle(made.hProcess);
        const Handle thread(made.hThread);
        processId = made.dwProcessId;
        AssignProcessToJobObject(job.get(), process.get());
        ResumeThread(thread.get());
    }

    ~StartedApplication() override
    {
        application.reset();
        Kill();
    }

    /// Waits until the application stands in the running object table under its process id.
    void Attach(const ApplicationStart& start)
    {
        const auto deadline = Clock::now() + kStartPatience;
        while (!FindObject()) {
            DWORD code = 0;
            if (HasEnded() && GetExitCodeProcess(process.get(), &code)) {
                throw NoApplicationError("The CAD application ended during its start (exit code " +
                                         std::to_string(code) + ").");
            }
            if (start.isUnwanted()) {
                throw NoApplicationError("The start of the CAD application was given up.");
            }
            if (Clock::now() > deadline) {
                throw NoApplicationError("The CAD application didn't register itself within " +
                                         std::to_string(kStartPatience.count()) + " seconds, and was ended.");
            }
            std::this_thread::sleep_for(kAttachInterval);
        }
    }

    int32_t ProcessId() const override { return static_cast<int32_t>(processId); }

    MacroCall RunMacro(const std::string& path, const std::string& procedure) override
    {
        const Variant file = Variant::FromText(Utf16(path));
        const Variant module = Variant::FromText(u"TVMacro1");
        const Variant name = Variant::FromText(Utf16(procedure));
        const Variant options = Variant::FromInt(0);
        LONG code = 0;
        VARIANT codeBack{};
        codeBack.vt = VT_BYREF | VT_I4;
        codeBack.plVal = &code;
        Variant answer;
        MacroCall call;
        call.answered =
            Call(L"RunMacroEx", {*file.get(), *module.get(), *name.get(), *options.get(), codeBack}, answer);
        call.succeeded = call.answered && answer.ToBool();
        call.code = static_cast<int32_t>(code);
        return call;
    }

    void Close() override
    {
        Variant answer;
        const Variant force = Variant::FromBool(true);
        if (!HasEnded() && Call(L"CloseAllDocuments", {*force.get()}, answer) && Call(L"ExitApplication", {}, answer)) {
            WaitForSingleObject(process.get(), kEndPatienceMs);
        }
        Kill();
    }

    void Kill() noexcept override
    {
        if (!HasEnded()) {
            TerminateProcess(process.get(), kKilledCode);
            WaitForSingleObject(process.get(), kKillPatienceMs);
        }
    }

  private:
    bool HasEnded() const { return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0; }

    bool FindObject()
    {
        ComPtr<IRunningObjectTable> table;
        ComPtr<IMoniker> moniker;
        ComPtr<IUnknown> object;
        const std::wstring name = L"Torvane_PID_" + std::to_wstring(processId);
        return GetRunningObjectTable(0, table.put()) >= 0 && CreateItemMoniker(L"", name.c_str(), moniker.put()) >= 0 &&
               table->GetObjectW(moniker.get(), object.put()) == S_OK && object.As(application) >= 0;
    }

    /// Calls a member by name; the arguments are borrowed. False when the application doesn't answer or refuses.
    bool Call(const wchar_t* member, std::vector<VARIANT> arguments, Variant& answer)
    {
        auto* name = const_cast<LPOLESTR>(member);
        DISPID id = 0;
        const GUID none{};
        if (application->GetIDsOfNames(none, &name, 1, LOCALE_USER_DEFAULT, &id) < 0) {
            return false;
        }
        std::ranges::reverse(arguments);
        DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        return application->Invoke(id, none, LOCALE_USER_DEFAULT, kCall, &params, answer.put(), nullptr, nullptr) >= 0;
    }

    Handle job;
    Handle process;
    DWORD processId = 0;
    ComPtr<IDispatch> application;
};

class RegisteredApplication final : public ApplicationStarter
{
  public:
    RegisteredApplication() : initialized(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~RegisteredApplication() override
    {
        if (SUCCEEDED(initialized)) {
            CoUninitialize();
        }
    }

    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) override
    {
        auto started = std::make_unique<StartedApplication>(RegisteredProgram(), start);
        started->Attach(start);
        return started;
    }

  private:
    HRESULT initialized;
};

} // namespace

std::unique_ptr<ApplicationStarter> MakeApplicationStarter()
{
    return std::make_unique<RegisteredApplication>();
}

} // namespace tv::local
