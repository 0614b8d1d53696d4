// An application in memory that does what the test says, in place of the registered one.
#pragma once

#include "host/application_process.h"

#include "cad/macro_event.h"

#include <condition_variable>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace tv::local {

/// What the macro of a test may do.
class ScriptedRun
{
  public:
    ScriptedRun(std::string eventsFile, std::vector<std::string>& callLog) : events(std::move(eventsFile)), log(callLog)
    {}

    void Tell(const app::MacroEvent& event)
    {
        std::ofstream(events, std::ios::binary | std::ios::app) << app::WriteMacroEvent(event) << "\r\n";
    }

    /// Comes back when somebody ends the application, as a call does.
    void WaitForEnd()
    {
        std::unique_lock guard(lock);
        changed.wait(guard, [this] { return killed; });
    }

    void Kill()
    {
        const std::lock_guard guard(lock);
        log.push_back("kill");
        killed = true;
        changed.notify_all();
    }

  private:
    std::string events;
    std::vector<std::string>& log;
    std::mutex lock;
    std::condition_variable changed;
    bool killed = false;
};

class ScriptedApplications final : public ApplicationStarter
{
  public:
    using Macro = std::function<MacroCall(ScriptedRun& run, const std::string& path, const std::string& procedure)>;

    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) override
    {
        if (!failure.empty()) {
            throw NoApplicationError(failure);
        }
        log.push_back(start.isVisible ? "start visible" : "start");
        onStart();
        if (start.isUnwanted()) {
            throw NoApplicationError("The start was given up.");
        }
        return std::make_unique<Process>(*this, start.eventsFile);
    }

    Macro macro = [](ScriptedRun&, const std::string&, const std::string&) { return MacroCall{true, true, 0}; };
    std::function<void()> onStart = [] {};
    std::string failure;
    /// What was asked of the applications, in order.
    std::vector<std::string> log;

  private:
    class Process final : public ApplicationProcess
    {
      public:
        Process(ScriptedApplications& starter, std::string eventsFile)
            : owner(starter), run(std::move(eventsFile), starter.log)
        {}
        ~Process() override { owner.log.push_back("gone"); }
        int32_t ProcessId() const override { return 4711; }
        MacroCall RunMacro(const std::string& path, const std::string& procedure) override
        {
            owner.log.push_back("run " + procedure);
            return owner.macro(run, path, procedure);
        }
        void Close() override { owner.log.push_back("close"); }
        void Kill() noexcept override { run.Kill(); }

      private:
        ScriptedApplications& owner;
        ScriptedRun run;
    };
};

} // namespace tv::local
