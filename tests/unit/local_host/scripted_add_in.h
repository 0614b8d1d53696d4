// An add-in in memory that does what the test says, in place of the registered one.
#pragma once

#include "host/component.h"
#include "host/machine.h"

#include "com/bstring.h"
#include "com/com_object.h"
#include "com/safe_array.h"

#include <functional>
#include <map>
#include <vector>

namespace tv::local {

/// What an add-in is told with a command, in the test's terms.
struct HandedCommand
{
    VyxCmd* record;
    SAFEARRAY** data;
    ComPtr<IVyxVault> vault;
    ComPtr<IVyxTaskInstance> instance;
};

/// How an add-in would start one version of the application.
struct ScriptedStart
{
    int32_t startedYear = 0;
    StartSource source = StartSource::None;
    std::u16string commandLine = {};
};

class ScriptedComponent final : public Component
{
  public:
    ComPtr<IVyxAddIn5> Create() override;
    std::string Template(int32_t resource) override;

    using Handler = std::function<Result(const HandedCommand&)>;
    std::map<int32_t, Handler> handlers;
    std::vector<int32_t> log;
    bool registered = true;
    bool offersPreview = true;
    /// What the preview gives; a line that names path and version when it is empty.
    std::u16string macro;
    int previews = 0;
    bool offersStartPreview = true;
    /// By the year that is asked for, 0 for none in particular. Any other isn't registered.
    std::map<int32_t, ScriptedStart> starts;
};

class QuietMachine final : public Machine
{
  public:
    /// The real one: files are named after it, and two test programs may run at once.
    int32_t ProcessId() const override { return MakeMachine()->ProcessId(); }
    bool IsAlive(int32_t process) const override { return process == alive; }
    int EndLeftApplications() override
    {
        ++cleanUps;
        return 0;
    }
    void LetApplicationsEndWithThisProcess() override { applicationsEndWithIt = true; }
    void OnInterrupt(std::function<void()> action) override { interrupt = std::move(action); }

    int32_t alive = 0;
    int cleanUps = 0;
    bool applicationsEndWithIt = false;
    std::function<void()> interrupt;
};

} // namespace tv::local
