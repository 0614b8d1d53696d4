// An application in memory that does what the test says, in place of the registered one.
#pragma once

#include "host/application_process.h"

#include "cad/macro_event.h"

#include <chrono>
#include <condition_variable>
#include <fstream>
#include <functional>
#include <memory>
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
        isWaiting = true;
        changed.notify_all();
        changed.wait(guard, [this] { return killed; });
    }

    bool IsKilled()
    {
        const std::lock_guard guard(lock);
        return killed;
    }

    /// Ends the macro when it waits for that, however late it gets there.
    void Kill()
    {
        std::unique_lock guard(lock);
        changed.wait_for(guard, std::chrono::minutes(1), [this] { return isWaiting; });
        log.push_back("kill");
        killed = true;
        changed.notify_all();
    }

  private:
    std::string events;
    std::vector<std::string>& log;
    std::mutex lock;
    std::condition_variable changed;
    bool isWaiting = false;
    bool killed = false;
};

class ScriptedApplications final : public ApplicationStarter
{
  public:
    using Macro = std::function<MacroCall(ScriptedRun& run, const std::string& path, const std::string& procedure)>;

    /// What goes on in a process of an application.
    struct Running
    {
        ProcessIdentity identity;
        std::string eventsFile;
        bool hasEnded = false;
        bool isBusy = false;
        ApplicationDetails details = {};
        /// How it takes the wish that it ends.
        ApplicationEnd end = ApplicationEnd::Politely;
    };

    void RequireSystem() override
    {
        if (!noSystem.empty()) {
            throw NoApplicationError(noSystem);
        }
    }

    std::vector<int32_t> RegisteredYears() override { return years; }

    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) override
    {
        if (!failure.empty()) {
            throw NoApplicationError(failure);
        }
        starts.push_back(start);
        log.push_back((start.isVisible ? "start visible" : "start") +
                      (start.program.empty() ? "" : " " + start.program));
        onStart();
        if (start.isUnwanted()) {
            throw NoApplicationError("The start was given up.");
        }
        const int32_t id = 4711 + static_cast<int32_t>(processes.size());
        processes.push_back(std::make_shared<Running>(
            Running{.identity = {id, 1'795'267'205'000 + id}, .eventsFile = start.eventsFile}));
        processes.back()->details = {true, revision, {}};
        return std::make_unique<Process>(*this, processes.back(), Hold::EndsWithUs);
    }

    std::unique_ptr<ApplicationProcess> Attach(const ProcessIdentity& wanted) override
    {
        for (const auto& process : processes) {
            if (process->identity == wanted && !process->hasEnded) {
                return std::make_unique<Process>(*this, process, Hold::GoesOn);
            }
        }
        return nullptr;
    }

    Macro macro = [](ScriptedRun&, const std::string&, const std::string&) { return MacroCall{true, true, 0}; };
    std::function<void()> onStart = [] {};
    std::string failure;
    std::string noSystem;
    std::string revision = "21.0.0";
    std::vector<int32_t> years = {2013};
    /// All that were started, also those that have ended.
    std::vector<std::shared_ptr<Running>> processes;
    std::vector<ApplicationStart> starts;
    /// Of the last wish that one ends.
    std::chrono::milliseconds patience{};
    /// What was asked of the applications, in order.
    std::vector<std::string> log;

  private:
    enum class Hold
    {
        EndsWithUs,
        GoesOn,
    };

    class Process final : public ApplicationProcess
    {
      public:
        Process(ScriptedApplications& starter, std::shared_ptr<Running> what, Hold how)
            : owner(starter), process(std::move(what)), hold(how), run(process->eventsFile, starter.log)
        {}
        ~Process() override
        {
            if (hold == Hold::EndsWithUs) {
                process->hasEnded = true;
                owner.log.push_back("gone");
            }
        }
        ProcessIdentity Identity() const override { return process->identity; }
        void Keep() override
        {
            hold = Hold::GoesOn;
            owner.log.push_back("keep");
        }
        std::string Revision() override { return owner.revision; }
        ApplicationDetails Details(std::chrono::milliseconds) override { return process->details; }
        MacroCall RunMacro(const std::string& path, const std::string& procedure) override
        {
            if (process->isBusy) {
                throw ApplicationBusyError("Another macro runs.");
            }
            owner.log.push_back("run " + procedure);
            run.Tell({app::MacroEventKind::Began, path});
            const MacroCall call = owner.macro(run, path, procedure);
            process->hasEnded = process->hasEnded || run.IsKilled();
            return call;
        }
        ApplicationEnd End(std::chrono::milliseconds patience) override
        {
            owner.log.push_back("close");
            owner.patience = patience;
            process->hasEnded = process->end != ApplicationEnd::NotEnded;
            return process->end;
        }
        void Kill() noexcept override { run.Kill(); }
        bool HasEnded(std::chrono::milliseconds) const override { return process->hasEnded; }

      private:
        ScriptedApplications& owner;
        std::shared_ptr<Running> process;
        Hold hold;
        ScriptedRun run;
    };
};

} // namespace tv::local
