#include "host/connected_application_win32.h"
#include "host/installed_applications.h"

#include "cad/macro_event.h"
#include "com/bstring.h"

#include <set>
#include <thread>

namespace tv::local {

namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr wchar_t kClassName[] = L"Torvane.Application";
constexpr wchar_t kBackgroundSwitch[] = L" /B";
constexpr milliseconds kAttachInterval{50};
/// The system may need a moment to take the turn back from a program that has ended.
constexpr DWORD kTurnPatienceMs = 1000;

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

std::wstring CommandLineFor(const ApplicationStart& start)
{
    if (!start.commandLine.empty()) {
        return Wide(start.commandLine);
    }
    const std::wstring program = start.program.empty() ? RegisteredProgram() : Wide(start.program);
    const bool isPath = GetFileAttributesW(program.c_str()) != INVALID_FILE_ATTRIBUTES;
    return (isPath ? L"\"" + program + L"\"" : program) + kBackgroundSwitch;
}

void SetLimits(const Handle& job, DWORD flags)
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = flags;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

/// Everything in it ends with us, also when we end without a word.
Handle MakeJob()
{
    Handle job(CreateJobObjectW(nullptr, nullptr));
    SetLimits(job, JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE);
    return job;
}

/// "120", "0.5".
std::string SecondsText(milliseconds time)
{
    std::string text = std::to_string(static_cast<double>(time.count()) / 1000);
    text.erase(text.find_last_not_of('0') + 1);
    return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
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

class StartedApplication final : public ConnectedApplication
{
  public:
    StartedApplication(std::wstring command, const ApplicationStart& start) : job(MakeJob())
    {
        STARTUPINFOW how{};
        how.cb = sizeof how;
        how.dwFlags = STARTF_USESHOWWINDOW;
        how.wShowWindow = start.isVisible ? SW_SHOWNORMAL : SW_HIDE;
        PROCESS_INFORMATION made{};
        const std::string told = Narrow(command);
        const HandedVariable events(app::kMacroEventsVariable, start.eventsFile);
        // It may not take a step before it belongs to the job.
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr, &how,
                            &made)) {
            throw NoApplicationError("The CAD application '" + told + "' can't be started (error " +
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
        Disconnect();
        if (!isKept) {
            Kill();
        }
    }

    /// Waits until the application stands in the running object table under its process id.
    void Attach(const ApplicationStart& start)
    {
        const auto deadline = Clock::now() + start.patience;
        while (!Connect()) {
            DWORD code = 0;
            if (HasEnded({}) && GetExitCodeProcess(process.get(), &code)) {
                throw NoApplicationError("The CAD application ended during its start (exit code " +
                                         std::to_string(code) + ").");
            }
            if (start.isUnwanted()) {
                throw NoApplicationError("The start of the CAD application was given up.");
            }
            if (Clock::now() > deadline) {
                throw NoApplicationError("The CAD application didn't register itself within " +
                                         SecondsText(start.patience) + " seconds, and was ended.");
            }
            std::this_thread::sleep_for(kAttachInterval);
        }
    }

    void Keep() override
    {
        isKept = true;
        SetLimits(job, 0);
    }

  private:
    Handle job;
    bool isKept = false;
};

/// One that somebody has started before.
class FoundApplication final : public ConnectedApplication
{
  public:
    FoundApplication(Handle opened, DWORD id)
    {
        process = std::move(opened);
        processId = id;
    }
    ~FoundApplication() override { Disconnect(); }

    void Keep() override {}

    MacroCall RunMacro(const std::string& path, const std::string& procedure) override
    {
        const MacroTurn turn(processId);
        return ConnectedApplication::RunMacro(path, procedure);
    }

  private:
    /// The right to have a macro run, of one program at a time. The system takes it back from a program that ends.
    class MacroTurn
    {
      public:
        explicit MacroTurn(DWORD processId)
            : mutex(CreateMutexW(nullptr, FALSE, (L"Local\\tvtask_macro_" + std::to_wstring(processId)).c_str()))
        {
            if (WaitForSingleObject(mutex.get(), kTurnPatienceMs) == WAIT_TIMEOUT) {
                const std::string id = std::to_string(processId);
                throw ApplicationBusyError("Another macro runs in the CAD application of process " + id +
                                           ". Wait for its end, or end the application with: tvtask app stop --pid " +
                                           id);
            }
        }
        MacroTurn(const MacroTurn&) = delete;
        MacroTurn& operator=(const MacroTurn&) = delete;
        ~MacroTurn() { ReleaseMutex(mutex.get()); }

      private:
        Handle mutex;
    };
};

/// Calls `take` with the name of each key below one of the machine's. A key that isn't there has none.
void ForEachSubkey(const wchar_t* path, REGSAM view, const std::function<void(std::wstring_view name)>& take)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_READ | view, &key) != ERROR_SUCCESS) {
        return;
    }
    wchar_t name[256];
    DWORD length = ARRAYSIZE(name);
    for (DWORD i = 0; RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_NO_MORE_ITEMS;
         ++i, length = ARRAYSIZE(name)) {
        take({name, length});
    }
    RegCloseKey(key);
}

/// The number behind a prefix; nothing when there is anything else.
std::optional<int32_t> NumberBehind(std::wstring_view prefix, std::wstring_view name)
{
    constexpr size_t kMostDigits = 4;
    const std::wstring_view digits = name.substr(std::min(prefix.size(), name.size()));
    if (name.size() <= prefix.size() || digits.size() > kMostDigits ||
        _wcsnicmp(name.data(), prefix.data(), prefix.size()) != 0 ||
        digits.find_first_not_of(L"0123456789") != std::wstring_view::npos) {
        return std::nullopt;
    }
    return std::stoi(std::wstring(digits));
}

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

    std::vector<int32_t> RegisteredYears() override
    {
        std::set<int32_t> years;
        for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
            ForEachSubkey(L"SOFTWARE\\Torvane", view, [&](std::wstring_view name) {
                if (const auto year = NumberBehind(L"Torvane ", name)) {
                    years.insert(*year);
                }
            });
        }
        ForEachSubkey(L"SOFTWARE\\Classes", 0, [&](std::wstring_view name) {
            if (const auto suffix = NumberBehind(std::wstring(kClassName) + L".", name)) {
                years.insert(*suffix + kYearOfRevisionZero);
            }
        });
        return {years.begin(), years.end()};
    }

    std::unique_ptr<ApplicationProcess> Attach(const ProcessIdentity& wanted) override
    {
        const auto id = static_cast<DWORD>(wanted.id);
        Handle process(OpenProcess(kApplicationRights, FALSE, id));
        if (process.get() == nullptr || CreationTime(process.get()) != wanted.created) {
            return nullptr;
        }
        auto found = std::make_unique<FoundApplication>(std::move(process), id);
        return found->HasEnded({}) ? nullptr : std::move(found);
    }

    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) override
    {
        auto started = std::make_unique<StartedApplication>(CommandLineFor(start), start);
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
