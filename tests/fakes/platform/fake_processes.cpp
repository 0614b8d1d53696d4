#include "fakes/platform/fake_processes.h"

#include "platform/registry_service.h"
#include "support/format.h"
#include "support/text_compare.h"

#include <algorithm>

namespace tv::fakes {

/// An open process.
class FakeProcessHandle final : public Process
{
  public:
    FakeProcessHandle(FakeProcesses& service, uint32_t processId, uint32_t grantedRights)
        : processes(service), id(processId), rights(grantedRights)
    {
        ++processes.At(id).openHandles;
    }
    ~FakeProcessHandle() override { --processes.At(id).openHandles; }

    bool Terminate(uint32_t exitCode) override
    {
        const uint32_t error = processes.log.Enter("process.Terminate", FormatText(u"%u", exitCode));
        FakeProcess& process = processes.At(id);
        if (error != 0 || (rights & kProcessTerminate) == 0 || process.refusesTermination || !process.isRunning) {
            return false;
        }
        if (!process.survivesTermination) {
            processes.End(id, exitCode);
        }
        return true;
    }

    bool GetExitCode(uint32_t& exitCode) override
    {
        if (processes.log.Enter("process.GetExitCode") != 0 || (rights & kProcessQuery) == 0) {
            return false;
        }
        exitCode = processes.At(id).exitCode;
        return true;
    }

    bool GetWorkingSet(uint64_t& bytes) override
    {
        if (processes.log.Enter("process.GetWorkingSet") != 0 || (rights & kProcessQuery) == 0) {
            return false;
        }
        bytes = processes.At(id).workingSet;
        return true;
    }

  private:
    FakeProcesses& processes;
    uint32_t id;
    uint32_t rights;
};

uint32_t FakeProcesses::Start(std::u16string_view commandLine, int32_t showMode, uint32_t& processId)
{
    processId = 0;
    if (const uint32_t error = log.Enter("processes.Start", commandLine)) {
        return error;
    }
    constexpr uint32_t kErrorInvalidParameter = 87;
    if (commandLine.empty()) {
        return kErrorInvalidParameter;
    }
    const bool isKnown =
        installed.empty() || std::any_of(installed.begin(), installed.end(), [&](const std::u16string& program) {
            return StartsWithIgnoringCase(commandLine, program);
        });
    if (!isKnown) {
        return kErrorFileNotFound;
    }
    FakeProcess& process = Add(std::u16string(commandLine));
    process.showMode = showMode;
    processId = process.id;
    if (onStart) {
        onStart(process);
    }
    return kErrorSuccess;
}

std::unique_ptr<Process> FakeProcesses::Open(uint32_t processId, uint32_t rights)
{
    const uint32_t error = log.Enter("processes.Open", FormatText(u"%u", processId));
    const auto found = processes.find(processId);
    if (error != 0 || found == processes.end() || !found->second.canBeOpened) {
        return nullptr;
    }
    // An ended process is gone for all but those who still hold it open.
    if (!found->second.isRunning && found->second.openHandles == 0) {
        return nullptr;
    }
    return std::make_unique<FakeProcessHandle>(*this, processId, rights);
}

FakeProcess& FakeProcesses::Add(std::u16string commandLine)
{
    lastId = lastId == 0 ? kFirstId : lastId + 4;
    FakeProcess& process = processes[lastId];
    process.id = lastId;
    process.commandLine = std::move(commandLine);
    return process;
}

void FakeProcesses::End(uint32_t processId, uint32_t exitCode)
{
    FakeProcess& process = processes.at(processId);
    if (!process.isRunning) {
        return;
    }
    process.isRunning = false;
    process.exitCode = exitCode;
    if (onEnd) {
        onEnd(process);
    }
}

size_t FakeProcesses::RunningCount() const
{
    return static_cast<size_t>(
        std::count_if(processes.begin(), processes.end(), [](const auto& row) { return row.second.isRunning; }));
}

size_t FakeProcesses::OpenHandles() const
{
    size_t handles = 0;
    for (const auto& [id, process] : processes) {
        handles += process.openHandles;
    }
    return handles;
}

} // namespace tv::fakes
