// FakeProcesses: processes as a table that a test reads and changes.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/process_service.h"

#include <functional>
#include <map>

namespace tv::fakes {

/// One process that was started.
struct FakeProcess
{
    uint32_t id = 0;
    std::u16string commandLine;
    int32_t showMode = 0;
    bool isRunning = true;
    uint32_t exitCode = kStillActive;
    uint64_t workingSet = 64 << 20;
    /// A termination is taken without complaint, but the process stays.
    bool survivesTermination = false;
    /// A termination is refused.
    bool refusesTermination = false;
    bool canBeOpened = true;
    size_t openHandles = 0;
};

class FakeProcesses final : public ProcessService
{
  public:
    static constexpr uint32_t kFirstId = 4100;

    explicit FakeProcesses(CallLog& callLog) : log(callLog) {}

    uint32_t Start(std::u16string_view commandLine, int32_t showMode, uint32_t& processId) override;
    std::unique_ptr<Process> Open(uint32_t processId, uint32_t rights) override;

    /// Called with each process that has started, so that it can register itself, open windows or end.
    void OnStart(std::function<void(FakeProcess&)> listener) { onStart = std::move(listener); }
    /// Called when a process has ended, whatever ended it.
    void OnEnd(std::function<void(FakeProcess&)> listener) { onEnd = std::move(listener); }
    /// Lets only command lines start that begin with one of the given programs; without any, all do.
    void Install(std::u16string program) { installed.push_back(std::move(program)); }

    /// Adds a process that nobody here started.
    FakeProcess& Add(std::u16string commandLine = u"other.exe");
    /// The process of an id; std::out_of_range when there never was one.
    FakeProcess& At(uint32_t processId) { return processes.at(processId); }
    /// The process started last; std::out_of_range when there is none.
    FakeProcess& Last() { return processes.at(lastId); }
    void End(uint32_t processId, uint32_t exitCode = 0);
    size_t Count() const { return processes.size(); }
    size_t RunningCount() const;
    size_t OpenHandles() const;

  private:
    friend class FakeProcessHandle;

    CallLog& log;
    std::map<uint32_t, FakeProcess> processes;
    std::vector<std::u16string> installed;
    std::function<void(FakeProcess&)> onStart;
    std::function<void(FakeProcess&)> onEnd;
    uint32_t lastId = 0;
};

} // namespace tv::fakes
