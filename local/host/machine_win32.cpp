#include "host/machine.h"

#include "host/connected_application_win32.h"

#include "com/base.h"

#include <tlhelp32.h>

#include <atomic>
#include <mutex>
#include <utility>

namespace tv::local {

namespace {

constexpr wchar_t kApplication[] = L"TORVANE.EXE";
constexpr UINT kEndedCode = 1;
constexpr DWORD kEndTimeoutMs = 5000;

int EndStartedApplications()
{
    int ended = 0;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) {
        if (entry.th32ParentProcessID != GetCurrentProcessId() || lstrcmpiW(entry.szExeFile, kApplication) != 0) {
            continue;
        }
        const Handle process(OpenProcess(kApplicationRights, FALSE, entry.th32ProcessID));
        // One that is older than we are was started by an earlier process of our id, and is to stay.
        if (process.get() != nullptr && CreationTime(process.get()) >= CreationTime(GetCurrentProcess())) {
            ended += TerminateProcess(process.get(), kEndedCode) ? 1 : 0;
            WaitForSingleObject(process.get(), kEndTimeoutMs);
        }
    }
    CloseHandle(snapshot);
    return ended;
}

// The system calls the handler without a context of ours.
std::mutex interruptLock;
std::function<void()> interruptAction;
std::atomic<bool> interrupted = false;

BOOL WINAPI HandleInterrupt(DWORD event)
{
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
        EndStartedApplications();
        return FALSE;
    }
    const std::lock_guard guard(interruptLock);
    if (!interruptAction) {
        return FALSE;
    }
    if (interrupted.exchange(true)) {
        EndStartedApplications();
        return FALSE;
    }
    interruptAction();
    return TRUE;
}

class WindowsMachine final : public Machine
{
  public:
    WindowsMachine() { SetConsoleCtrlHandler(HandleInterrupt, TRUE); }
    ~WindowsMachine() override
    {
        SetConsoleCtrlHandler(HandleInterrupt, FALSE);
        if (job != nullptr) {
            LimitJob(0);
            CloseHandle(job);
        }
    }

    int32_t ProcessId() const override { return static_cast<int32_t>(GetCurrentProcessId()); }

    bool IsAlive(int32_t process) const override
    {
        HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
        if (handle == nullptr) {
            return false;
        }
        const bool alive = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
        CloseHandle(handle);
        return alive;
    }

    int EndLeftApplications() override { return EndStartedApplications(); }

    void LetApplicationsEndWithThisProcess() override
    {
        if (job != nullptr) {
            return;
        }
        // Processes that we start belong to our job, and the system may start one for the first to need its desktop,
        // which others then use too and which has to outlive us.
        GetDesktopWindow();
        job = CreateJobObjectW(nullptr, nullptr);
        LimitJob(JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE);
        AssignProcessToJobObject(job, GetCurrentProcess());
    }

    void OnInterrupt(std::function<void()> action) override
    {
        const std::lock_guard guard(interruptLock);
        interrupted = false;
        interruptAction = std::move(action);
    }

  private:
    void LimitJob(DWORD flags)
    {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = flags;
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }

    /// Holds this process and all that it starts; the system closes it when we end without having done so.
    HANDLE job = nullptr;
};

} // namespace

std::unique_ptr<Machine> MakeMachine()
{
    return std::make_unique<WindowsMachine>();
}

} // namespace tv::local
