#include "platform/win32/processes.h"

#include "platform/win32/handle.h"

#include <psapi.h>

namespace tv::win32 {

namespace {

class Win32Process final : public Process
{
  public:
    explicit Win32Process(Handle opened) : process(std::move(opened)) {}

    bool Terminate(uint32_t exitCode) override { return ::TerminateProcess(process.get(), exitCode) != FALSE; }

    bool GetExitCode(uint32_t& exitCode) override
    {
        DWORD code = 0;
        if (::GetExitCodeProcess(process.get(), &code) == FALSE) {
            return false;
        }
        exitCode = code;
        return true;
    }

    bool GetWorkingSet(uint64_t& bytes) override
    {
        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof counters;
        if (::GetProcessMemoryInfo(process.get(), &counters, sizeof counters) == FALSE) {
            return false;
        }
        bytes = counters.WorkingSetSize;
        return true;
    }

  private:
    Handle process;
};

} // namespace

uint32_t Win32Processes::Start(std::u16string_view commandLine, int32_t showMode, uint32_t& processId)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(showMode);
    PROCESS_INFORMATION started{};
    // The function writes into the text that it is given.
    ZeroTerminated line(commandLine);
    const uint32_t error = ErrorUnless(
        ::CreateProcessW(nullptr, line.Buffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started));
    processId = error == ERROR_SUCCESS ? started.dwProcessId : 0;
    const Handle process(started.hProcess);
    const Handle thread(started.hThread);
    return error;
}

std::unique_ptr<Process> Win32Processes::Open(uint32_t processId, uint32_t rights)
{
    Handle opened(::OpenProcess(rights, FALSE, processId));
    if (!opened) {
        return nullptr;
    }
    return std::make_unique<Win32Process>(std::move(opened));
}

} // namespace tv::win32
